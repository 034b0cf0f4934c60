#include "reporting/pdf_objects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace cu::reporting {
namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr std::string_view kFile =
    "%PDF-1.4\n%\xE2\xE3\n"
    "1 0 obj\n<<\n/Title (endobj)\n>>\nendobj\n"
    "12 0 obj\n[ ]\nendobj\n"
    "xref\n0 3\n0000000000 65535 f \n";

std::vector<std::pair<int, std::string>> objectsOf(std::string_view file, std::size_t piece, bool& complete) {
  std::vector<std::pair<int, std::string>> found;
  PdfObjects objects([&found](int number, std::string_view body) { found.emplace_back(number, body); });
  for (std::size_t at = 0; at < file.size(); at += piece) objects.add(file.substr(at, piece));
  complete = objects.complete();
  return found;
}

TEST(PdfObjects, AreFoundWhateverPiecesArrive) {
  for (std::size_t piece = 1; piece <= kFile.size(); ++piece) {
    bool complete = false;
    EXPECT_THAT(objectsOf(kFile, piece, complete),
                ElementsAre(Pair(1, "<<\n/Title (endobj)\n>>"), Pair(12, "[ ]")))
        << piece;
    EXPECT_TRUE(complete) << piece;
  }
}

TEST(PdfObjects, AreCountedAgainstTheTable) {
  bool complete = true;
  objectsOf("%PDF-1.4\n1 0 obj\n[ ]\nendobj\nxref\n0 3\n", 9, complete);
  EXPECT_FALSE(complete) << "one is missing";
  objectsOf("%PDF-1.4\n1 0 obj\n[ ]\nendobj\n", 9, complete);
  EXPECT_FALSE(complete) << "without a table";
  objectsOf("%PDF-1.4\n1 0 obj\n[ ]\nendobj\nwhatever\nendobj\nxref\n0 2\n", 9, complete);
  EXPECT_FALSE(complete) << "with something else";
}

TEST(PdfBody, IsADictionaryWithOrWithoutAStream) {
  const PdfBody plain = pdfBody("<<\n/Count 1\n>>");
  EXPECT_EQ(plain.dictionary, "<<\n/Count 1\n>>");
  EXPECT_FALSE(plain.stream.has_value());
  const PdfBody full = pdfBody("<<\n/Length 3\n>>\nstream\na\nb\nendstream");
  EXPECT_EQ(full.dictionary, "<<\n/Length 3\n>>");
  EXPECT_EQ(full.stream, "a\nb");
  EXPECT_EQ(pdfBody("<<\n>>\nstream\n\nendstream").stream, "");
}

TEST(References, AreReadAndRedirected) {
  EXPECT_EQ(referenceOf("<<\n/Parent 7 0 R\n/Count 3\n>>", "Parent"), 7);
  EXPECT_EQ(referenceOf("<<\n/Count 3\n>>", "Count"), 0) << "a number";
  EXPECT_EQ(referenceOf("<<\n>>", "Parent"), 0);
  const auto hundredMore = [](int number) { return number + 100; };
  EXPECT_EQ(withReferences("[7 0 R 12 0 R]", hundredMore), "[107 0 R 112 0 R]");
  EXPECT_EQ(withReferences("/W [0 [600 0]] /Root 5 0 R", hundredMore), "/W [0 [600 0]] /Root 105 0 R");
  EXPECT_EQ(withReferences("", hundredMore), "");
  EXPECT_EQ(withReferences(" 0 R", hundredMore), " 0 R");
}

TEST(Replacement, IsOfTheFirstPiece) {
  std::string text = "a b a";
  EXPECT_TRUE(replaceOnce(text, "a", "cc"));
  EXPECT_EQ(text, "cc b a");
  EXPECT_FALSE(replaceOnce(text, "x", "y"));
}

}  // namespace
}  // namespace cu::reporting
