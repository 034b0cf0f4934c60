#include "reporting/library.h"

#include "base/text.h"
#include "reporting/definition_reader.h"
#include "reporting/embedded.h"

namespace cu::reporting {

std::vector<DefinitionFile> embeddedDefinitionFiles() {
  std::vector<DefinitionFile> result;
  for (const EmbeddedFile& file : embeddedFiles()) {
    result.push_back({std::string(file.name), {reinterpret_cast<const char*>(file.bytes), file.size}});
  }
  return result;
}

const ReportDefinition& ReportLibrary::find(std::string_view name, std::int32_t objectType,
                                            std::int32_t number) {
  for (std::size_t i = 0; !read_ && i < files_.size(); ++i) {
    try {
      definitions_.push_back(parseDefinition(files_[i].text, files_[i].name));
    } catch (const Error& error) {
      if (!broken_) broken_ = error;
    }
  }
  read_ = true;
  for (const ReportDefinition& each : definitions_) {
    if (!equalsNoCase(each.name, name)) continue;
    if (each.objectType == objectType && each.number == number) return each;
    refuseDefinition(each.name + ": appartiene al tipo oggetto " + fromInteger(each.objectType) +
                     " con il numero " + fromInteger(each.number) + ", richiesta per il tipo " +
                     fromInteger(objectType) + " con il numero " + fromInteger(number));
  }
  if (broken_) throw *broken_;
  refuseDefinition("\"" + std::string(name) + "\": non esiste");
}

}  // namespace cu::reporting
