#pragma once

#include <string>

#include "sqlite/handle.h"

namespace cu::sqlite {

// An existing database for this object alone: nobody else has it open or can open it meanwhile, and what the
// engine's files beside it held is in the file. DatabaseError where somebody has it
// open.
class SoleUse {
 public:
  explicit SoleUse(const std::string& database);
  ~SoleUse();
  SoleUse(const SoleUse&) = delete;
  SoleUse& operator=(const SoleUse&) = delete;

 private:
  bool byEngine(const std::string& database);
  void bySystem(const std::string& database);

  DatabaseHandle handle_;
  int file_ = -1;  // of a damaged one
};

}  // namespace cu::sqlite
