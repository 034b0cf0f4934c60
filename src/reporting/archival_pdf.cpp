#include "reporting/archival_pdf.h"

#include <algorithm>

#include "base/text.h"
#include "reporting/report_error.h"

namespace cu::reporting {
namespace {

constexpr std::string_view kHeader = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
constexpr std::size_t kPagesOfBranch = 1000;
constexpr std::size_t kTagOfSubset = 7;  // "QQAAAA+"

std::string count(std::size_t number) { return fromInteger(static_cast<std::int64_t>(number)); }

std::string referenceTo(int number) { return fromInteger(number) + " 0 R"; }

// The name after a key, "DejaVuSans" of "/BaseFont /DejaVuSans".
std::string nameOf(std::string_view dictionary, std::string_view key) {
  const std::string start = std::string(key) + " /";
  const std::size_t at = dictionary.find(start);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = dictionary.substr(at + start.size());
  return std::string(rest.substr(0, rest.find_first_of("\n />")));
}

std::string padded(qint64 number) {
  constexpr std::size_t kDigits = 10;
  const std::string digits = fromInteger(number);
  return std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

}  // namespace

ArchivalPdf::ArchivalPdf(QIODevice& target, const DocumentInfo& info)
    : target_(target),
      info_(info),
      objects_([this](int theirs, std::string_view body) { take(theirs, body); }),
      content_(QCryptographicHash::Md5) {
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  put(kHeader);
}

qint64 ArchivalPdf::writeData(const char* data, qint64 size) {
  objects_.add({data, static_cast<std::size_t>(size)});
  return size;
}

int ArchivalPdf::newNumber() {
  offsets_.push_back(0);
  return static_cast<int>(offsets_.size() - 1);
}

// An object is numbered at its first mention.
int ArchivalPdf::number(int theirs) {
  const auto at = static_cast<std::size_t>(theirs);
  if (at >= numbers_.size()) numbers_.resize(at + 1);
  if (numbers_[at] == 0) numbers_[at] = newNumber();
  return numbers_[at];
}

void ArchivalPdf::take(int theirs, std::string_view object) {
  if (const auto known = omitted_.find(theirs); known != omitted_.end()) {
    if (known->second != object) broken_ = true;
    omitted_.erase(known);
    return;
  }
  const PdfBody body = pdfBody(object);
  // The information is the first object.
  if (infoNumber_ == 0) {
    infoNumber_ = number(theirs);
    putObject(infoNumber_, infoDictionary(info_).toStdString(), std::nullopt);
    return;
  }
  if (body.dictionary.find("/Type /Metadata") != std::string_view::npos) {
    const std::string packet = metadataPacket(info_).toStdString();
    putObject(number(theirs), "<<\n/Type /Metadata\n/Subtype /XML\n/Length " + count(packet.size()) + "\n>>",
              packet);
    return;
  }
  if (body.dictionary.find("/Type /Pages") != std::string_view::npos) return;  // replaced by the tree
  std::string dictionary(body.dictionary);
  // The length of a stream, which the toolkit writes behind it.
  if (const int length = referenceOf(dictionary, "Length"); length != 0 && body.stream) {
    const std::string size = count(body.stream->size());
    omitted_.emplace(length, size);
    replaceOnce(dictionary, "/Length " + referenceTo(length), "/Length " + size);
  }
  if (dictionary.find("/Type /Page\n") != std::string::npos) {
    const int page = number(theirs);
    if (branches_.empty() || branches_.back().pages.size() == kPagesOfBranch) {
      branches_.push_back({newNumber(), {}});
    }
    branches_.back().pages.push_back(page);
    putObject(page, pageDictionary(dictionary), body.stream);
    return;
  }
  if (dictionary.find("/Type /Catalog") != std::string::npos) {
    catalogNumber_ = number(theirs);
    treeNumber_ = number(referenceOf(dictionary, "Pages"));
    replaceOnce(dictionary, "/Type /Catalog",
                std::string("/Type /Catalog\n/Lang (") + kDocumentLanguage + ")");
  }
  nameSubset(dictionary);
  putObject(number(theirs), withReferences(dictionary, [this](int each) { return number(each); }),
            body.stream);
}

// The page hangs on its branch, and has no list of annotations, which is empty.
std::string ArchivalPdf::pageDictionary(std::string_view dictionary) {
  std::string page(dictionary);
  if (const int notes = referenceOf(page, "Annots"); notes != 0) {
    omitted_.emplace(notes, "[ ]");
    replaceOnce(page, "/Annots " + referenceTo(notes) + "\n", "");
  }
  const int parent = referenceOf(page, "Parent");
  replaceOnce(page, "/Parent " + referenceTo(parent) + "\n", "");
  page = withReferences(page, [this](int each) { return number(each); });
  replaceOnce(page, "/Type /Page\n", "/Type /Page\n/Parent " + referenceTo(branches_.back().number) + "\n");
  return page;
}

// The toolkit tags the name of a subset in its descriptor alone, and the descriptor precedes the font.
void ArchivalPdf::nameSubset(std::string& dictionary) {
  if (const std::string described = nameOf(dictionary, "/FontName"); !described.empty()) {
    subset_ = described;
    return;
  }
  const std::string base = nameOf(dictionary, "/BaseFont");
  if (base.empty() || subset_.size() <= kTagOfSubset || subset_.substr(kTagOfSubset) != base) return;
  replaceOnce(dictionary, "/BaseFont /" + base, "/BaseFont /" + subset_);
}

void ArchivalPdf::putObject(int number, std::string_view dictionary, std::optional<std::string_view> stream) {
  offsets_[static_cast<std::size_t>(number)] = position_;
  std::string object = fromInteger(number) + " 0 obj\n";
  object += dictionary;
  if (stream) {
    object += "\nstream\n";
    object += *stream;
    object += "\nendstream";
  }
  put(object + "\nendobj\n");
}

void ArchivalPdf::putPageTree() {
  std::string kids;
  std::size_t pages = 0;
  for (const Branch& branch : branches_) {
    std::string list;
    for (const int page : branch.pages) list += referenceTo(page) + "\n";
    putObject(branch.number,
              "<<\n/Type /Pages\n/Parent " + referenceTo(treeNumber_) + "\n/Kids [\n" + list + "]\n/Count " +
                  count(branch.pages.size()) + "\n>>",
              std::nullopt);
    kids += referenceTo(branch.number) + "\n";
    pages += branch.pages.size();
  }
  putObject(treeNumber_, "<<\n/Type /Pages\n/Kids [\n" + kids + "]\n/Count " + count(pages) + "\n>>",
            std::nullopt);
}

void ArchivalPdf::putTable() {
  const qint64 start = position_;
  const std::string size = count(offsets_.size());
  std::string table = "xref\n0 " + size + "\n0000000000 65535 f \n";
  for (std::size_t i = 1; i < offsets_.size(); ++i) {
    if (offsets_[i] == 0) broken_ = true;  // mentioned and not written
    table += padded(offsets_[i]) + " 00000 n \n";
  }
  put(table);
  const std::string id = content_.result().toHex().toStdString();
  put("trailer\n<<\n/Size " + size + "\n/Info " + referenceTo(infoNumber_) + "\n/Root " +
      referenceTo(catalogNumber_) + "\n/ID [<" + id + "> <" + id + ">]\n>>\nstartxref\n" +
      fromInteger(start) + "\n%%EOF\n");
}

void ArchivalPdf::finish() {
  broken_ = broken_ || !objects_.complete() || !omitted_.empty() || catalogNumber_ == 0 || branches_.empty();
  if (!broken_) {
    putPageTree();
    putTable();
  }
  if (broken_) throw Error(kErrorReportOutput, "La stampa non è stata composta per intero.");
}

void ArchivalPdf::put(std::string_view bytes) {
  // cppcheck-suppress[invalidLifetime,danglingTemporaryLifetime]: the bytes are digested at once
  content_.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  target_.write(bytes.data(), static_cast<qint64>(bytes.size()));
  position_ += static_cast<qint64>(bytes.size());
}

}  // namespace cu::reporting
