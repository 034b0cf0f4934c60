#pragma once

#include <map>
#include <string>
#include <vector>

#include "faults/guasti.h"
#include "suite/profilo.h"
#include "support/temp_folder.h"

namespace cu::test {

// A whole run for 2016 on a database of its own: a line corrected in its editor, one with a module, the
// references left unchanged, the file, the end.
class Corsa {
 public:
  Corsa();

  struct Esito {
    bool finita = false;                // back on the first step after the file
    std::vector<std::string> messaggi;  // the messages shown
  };
  // No exception may propagate from it.
  Esito percorri(Guasto& guasto);

  std::string file() const;                          // the telematic file's content; "" when there is none
  std::map<std::string, std::string> conti() const;  // each table of the accounts, as one text
  std::string integrita() const;                     // "ok"
  void sporca() const;  // an earlier file and setting that do not belong to this run
  bool altruiIntatti() const;

 private:
  TempFolder cartella_;
  Profilo profilo_;
};

}  // namespace cu::test
