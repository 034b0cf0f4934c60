#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace cu::reporting {

// The objects of a PDF as the toolkit writes it: dictionaries on lines of their own, each object ended by
// "endobj" on a line, the table of all objects at the end.

// Splits such a PDF into its objects while it is written.
class PdfObjects {
 public:
  // What is between "12 0 obj" and "endobj", without the line ends around it.
  using Each = std::function<void(int number, std::string_view body)>;

  explicit PdfObjects(Each each) : each_(std::move(each)) {}
  void add(std::string_view bytes);
  // Whether the table at the end has arrived and has as many objects as were found before.
  bool complete() const;

 private:
  bool next(std::size_t& begin);

  Each each_;
  std::string held_;          // what is not yet a whole object
  std::size_t searched_ = 0;  // the part of it without an end of an object
  int found_ = 0;
  bool broken_ = false;
};

// The parts of an object's body.
struct PdfBody {
  std::string_view dictionary;
  std::optional<std::string_view> stream;
};
PdfBody pdfBody(std::string_view body);

// The object of "/Name 12 0 R" in a dictionary; 0 where it is absent or no reference.
int referenceOf(std::string_view dictionary, std::string_view name);

// The text with each reference "12 0 R" directed to the object that `number` returns for 12.
std::string withReferences(std::string_view dictionary, const std::function<int(int)>& number);

// Replaces the first occurrence, which is required.
bool replaceOnce(std::string& text, std::string_view piece, std::string_view by);

}  // namespace cu::reporting
