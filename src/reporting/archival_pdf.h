#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QIODevice>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reporting/document_info.h"
#include "reporting/pdf_objects.h"

namespace cu::reporting {

// Passes a PDF/A-1b of the toolkit on to a device, as a file for keeping: the document information, its
// metadata and the language are the given ones, the identifier is computed from the content, a subset of a
// font has the same name everywhere, and the pages are in a tree, because no list may have more than 8,191
// entries. The toolkit has no setting for these; its information also has the machine's time and zone, and
// its identifier is random. The same drawing with the same information has the same bytes, whenever it is
// written.
class ArchivalPdf : public QIODevice {
 public:
  // The target outlives this device; the caller handles its errors.
  ArchivalPdf(QIODevice& target, const DocumentInfo& info);
  bool isSequential() const override { return true; }
  // Writes the end of the file, once the toolkit has written its own. Raises Error (kErrorReportOutput) where
  // that was not a complete document.
  void finish();

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override;

 private:
  void take(int theirs, std::string_view body);
  void putObject(int number, std::string_view dictionary, std::optional<std::string_view> stream);
  std::string pageDictionary(std::string_view dictionary);
  void nameSubset(std::string& dictionary);
  void putPageTree();
  void putTable();
  void put(std::string_view bytes);
  int number(int theirs);
  int newNumber();

  QIODevice& target_;
  DocumentInfo info_;
  PdfObjects objects_;
  QCryptographicHash content_;
  qint64 position_ = 0;
  std::vector<int> numbers_;            // by the toolkit's numbers; 0 for none so far
  std::vector<qint64> offsets_ = {0};   // of each object
  std::map<int, std::string> omitted_;  // the expected bodies of objects that are left out
  int infoNumber_ = 0;
  int catalogNumber_ = 0;
  int treeNumber_ = 0;
  struct Branch {
    int number;
    std::vector<int> pages;
  };
  std::vector<Branch> branches_;
  std::string subset_;  // the name of the last subset of a font, "QQAAAA+DejaVuSans"
  bool broken_ = false;
};

}  // namespace cu::reporting
