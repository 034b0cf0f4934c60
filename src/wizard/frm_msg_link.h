#pragma once

#include <string>

#include "base/per_chiamanti.h"
#include "controls/form.h"
#include "data/database.h"
#include "host/filesystem.h"
#include "host/session.h"

namespace cu {

class UtilitaSuite;

// The notice at the end of a run: the file's name, a link that opens its folder, and what is to be done with
// it.
class FrmMsgLink : public Form, public per_chiamanti::DiFrmMsgLink<FrmMsgLink> {
 public:
  FrmMsgLink(FrontEnd& frontEnd, UtilitaSuite& utilita, TestiSuite& testi, const FileSystem& files);

  void setConnection(cu::Connection* connection) { connection_ = connection; }  // kept while the form is open
  // The folder; its first use loads the form.
  void setPath(const std::string& cartella);

  std::string guideChapter() const override { return "Il file è pronto"; }

  Label lblUser;
  Link lblLink;
  Label Label1;
  Frame Image1;
  Button Command1;

 private:
  friend per_chiamanti::DiFrmMsgLink<FrmMsgLink>;

  void formLoad() override;
  void formUnload() override;

  UtilitaSuite& utilita_;
  TestiSuite& testi_;
  const FileSystem& files_;
  cu::Connection* connection_ = nullptr;
  int puntatore_ = 0;
};

}  // namespace cu
