#pragma once

#include <cstddef>
#include <string>

#include "controls/frontend.h"
#include "data/rowstore.h"

namespace cu {

// The prints of a run in their order, packed: a run may make a hundred thousand, in one folder and of one
// report.
class StampeAnnotate {
 public:
  struct Una {
    std::string file;
    std::string report;
    bool fatta = false;  // the file is complete
  };
  StampeAnnotate();
  void annota(const PrintNote& nota);
  std::size_t size() const { return righe_.size(); }
  bool empty() const { return size() == 0; }
  Una operator[](std::size_t quale) const;

 private:
  RowStore righe_;
};

}  // namespace cu
