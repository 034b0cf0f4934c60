#include "reporting/sheet_numbers.h"

#include <gtest/gtest.h>

#include <memory>

namespace cu::reporting {
namespace {

TEST(ShortNumber, DropsTheDigitsThatABinaryNumberMissesBy) {
  EXPECT_EQ(shortNumber("8.005800000000001"), "8.0058");
  EXPECT_EQ(shortNumber("-8.005800000000001"), "-8.0058");
  EXPECT_EQ(shortNumber("9.199999999999999"), "9.2");
  EXPECT_EQ(shortNumber("9.199999999999998"), "9.199999999999998");  // the number below 9.2
  EXPECT_EQ(shortNumber("9003.014999999999"), "9003.015");
}

TEST(ShortNumber, LeavesWhatIsShortOrNeedsItsDigits) {
  for (const char* number : {"0", "-0.0001", "594.8", "41664", "12345678901.2345", "999999999999.9999",
                             "19999999999999.98", "922337203685477.5", "non un numero 0123456789012345"}) {
    EXPECT_EQ(shortNumber(number), number);
  }
}

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

std::string copyOf(const std::string& rows) {
  const File from(std::tmpfile());
  const File to(std::tmpfile());
  std::fwrite(rows.data(), 1, rows.size(), from.get());
  EXPECT_TRUE(copyWithShortNumbers(from.get(), to.get()));
  std::string copy(static_cast<std::size_t>(std::ftell(to.get())), '\0');
  std::rewind(to.get());
  EXPECT_EQ(std::fread(copy.data(), 1, copy.size(), to.get()), copy.size());
  return copy;
}

TEST(CopyWithShortNumbers, ChangesTheNumbersOfCellsAlone) {
  EXPECT_EQ(copyOf("<c r=\"A1\" s=\"2\"><v>8.005800000000001</v></c><t>8.005800000000001</t>"),
            "<c r=\"A1\" s=\"2\"><v>8.0058</v></c><t>8.005800000000001</t>");
  EXPECT_EQ(copyOf(""), "");
  EXPECT_EQ(copyOf("<v>8.005800000000001"), "<v>8.005800000000001");
  EXPECT_EQ(copyOf("a<v"), "a<v");
}

// Wherever a mark or a number falls upon the end of what is read at a time.
TEST(CopyWithShortNumbers, ReadsOverTheEndsOfBlocks) {
  for (std::size_t before = 65500; before < 65545; ++before) {
    const std::string text(before, 'x');
    EXPECT_EQ(copyOf(text + "<v>8.005800000000001</v><c/>"), text + "<v>8.0058</v><c/>") << before;
  }
}

}  // namespace
}  // namespace cu::reporting
