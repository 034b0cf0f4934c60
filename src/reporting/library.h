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

// The files of data/reports/ embedded in the program.
std::vector<DefinitionFile> embeddedDefinitionFiles();

// The definitions of the reports, read at first use.
class ReportLibrary {
 public:
  explicit ReportLibrary(std::vector<DefinitionFile> files) : files_(std::move(files)) {}

  // Raises Error (kErrorReportDefinition) when no definition has the name, or when it belongs to another
  // object type or number; or the error of an invalid file, when that file may contain the name.
  const ReportDefinition& find(std::string_view name, std::int32_t objectType, std::int32_t number);

 private:
  std::vector<DefinitionFile> files_;
  bool read_ = false;
  std::vector<ReportDefinition> definitions_;
  std::optional<Error> broken_;  // the first error
};

}  // namespace cu::reporting
