#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "reporting/definition.h"

namespace cu::reporting {

struct DefinitionFile {
  std::string name;
  std::string text;
};

// Those of data/reports/, which the program carries.
std::vector<DefinitionFile> embeddedDefinitionFiles();

// The definitions of the reports, read when they are first asked for.
class ReportLibrary {
 public:
  explicit ReportLibrary(std::vector<DefinitionFile> files) : files_(std::move(files)) {}

  // Error (kErrorReportDefinition) when no definition bears the name, when it belongs to another object type
  // or number, and what a broken file says when the name may be in it.
  const ReportDefinition& find(std::string_view name, std::int32_t objectType, std::int32_t number);

 private:
  std::vector<DefinitionFile> files_;
  bool read_ = false;
  std::vector<ReportDefinition> definitions_;
  std::optional<Error> broken_;  // the first one
};

}  // namespace cu::reporting
