#include "telematic/engine/file_seq.h"

#include <algorithm>
#include <cstddef>

#include "base/error.h"
#include "telematic/engine/record_image.h"

namespace cu {

void FileSeq::OpenFile(std::int32_t mode) {
  if (isOpen_) throw Error(kErrorFileOpen, "Il file è già aperto.");
  if (mode != kSequentialOutput) throw Error(kErrorInvalidCall, "Modo di apertura del file non valido.");
  fileNumber_ = 1;
  file_ = files_.openForOutput(filePathName_);
  isOpen_ = true;
}

void FileSeq::CloseFile() {
  if (file_ != nullptr) file_->close();
  file_.reset();
  isOpen_ = false;
}

void FileSeq::CopyMemory(std::string& buffer, std::int32_t offset, std::string_view value,
                         std::int32_t length) {
  const auto width = static_cast<std::int64_t>(buffer.size());
  std::int64_t n = std::min<std::int64_t>(static_cast<std::int64_t>(value.size()), length);
  if (offset < 0 || offset >= width) {
    throw Error(kErrorInvalidCall, "Un campo comincia fuori dal record.");
  }
  n = std::min(n, width - offset);
  if (n <= 0) return;
  std::copy_n(value.data(), n, buffer.data() + offset);
}

void FileSeq::Compose(const IRecord& record, std::string& buffer) {
  const std::int32_t width = record.Length();
  if (width < 0) throw Error(kErrorInvalidCall, "La larghezza del record è negativa.");
  buffer.assign(static_cast<std::size_t>(width), ' ');
  for (const IField* field : record.Fields().NewEnum()) {
    CopyMemory(buffer, field->Offset(), field->Value(), field->Length());
    // The date and the number of a document share a field, separated by a mark.
    if (field->Name().find("Data Documento") != std::string::npos && !field->Value().empty()) {
      CopyMemory(buffer, field->Offset() + 6, ";", 1);
    }
  }
}

void FileSeq::WriteRecord(const IRecord& record) {
  Compose(record, line_);
  line_ += kLineEnd;
  write(line_);
}

void FileSeq::WriteImage(const RecordImage& image) { write(image.line()); }

void FileSeq::write(std::string_view line) {
  if (file_ == nullptr) throw Error(kErrorBadFile, "Il file non è aperto.");
  file_->write(line);
}

}  // namespace cu
