// A driver that transfers texts as bytes, with the process in any locale.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>

#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::HasSubstr;

using Environment = std::map<std::string, std::optional<std::string>>;  // nullopt: the variable is not set

// Sets environment variables and restores them at the end.
class Variables {
 public:
  explicit Variables(const Environment& wanted) {
    for (const auto& [name, value] : wanted) {
      const char* const now = std::getenv(name.c_str());
      before_[name] = now == nullptr ? std::nullopt : std::optional<std::string>(now);
    }
    apply(wanted);
  }
  ~Variables() { apply(before_); }
  Variables(const Variables&) = delete;
  Variables& operator=(const Variables&) = delete;

 private:
  static void apply(const Environment& wanted) {
    for (const auto& [name, value] : wanted) {
      if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
      } else {
        ::unsetenv(name.c_str());
      }
    }
  }
  Environment before_;
};

struct Case {
  const char* name;
  const char* locale;    // LC_ALL; null: no locale is set
  const char* encoding;  // what the driver would derive from a locale with that code page; null: none
};

class LocaleOfTheProcess : public ::testing::TestWithParam<Case> {
 protected:
  LocaleOfTheProcess()
      : variables_({{"LANG", std::nullopt},
                    {"LC_CTYPE", std::nullopt},
                    {"LC_ALL", optional(GetParam().locale)},
                    {"PGCLIENTENCODING", optional(GetParam().encoding)}}) {}

  static constexpr const char* kDriver = "PostgreSQL ANSI";

 private:
  static std::optional<std::string> optional(const char* value) {
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
  }
  Variables variables_;
};

TEST_P(LocaleOfTheProcess, NamesOfColumnsAndCellsAreUtf8) {
  const auto connection = opened(kDriver);
  RowStore rows;
  connection->Query("SELECT 'è € Ж' AS \"Città € Ж\", char_length('è€Ж') AS n", rows);
  EXPECT_EQ((*rows.columns())[0].name, "Città € Ж");
  std::vector<CellView> cells(2);
  rows.read(0, cells.data());
  EXPECT_EQ(cells[0].toText(), "è € Ж");
  EXPECT_EQ(cells[1].toText(), "3");
}

TEST_P(LocaleOfTheProcess, MessagesAreUtf8) {
  const auto connection = opened(kDriver);
  const DatabaseError error = errorOf([&] { connection->Execute("SELECT * FROM \"città € Ж\""); });
  EXPECT_THAT(error.what(), HasSubstr("\"città € Ж\""));
}

INSTANTIATE_TEST_SUITE_P(Locales, LocaleOfTheProcess,
                         ::testing::Values(Case{"None", nullptr, nullptr}, Case{"C", "C", nullptr},
                                           Case{"Utf8", "C.UTF-8", nullptr}, Case{"Latin1", "C", "LATIN1"}),
                         [](const ::testing::TestParamInfo<Case>& each) { return each.param.name; });

}  // namespace
}  // namespace cu::odbc::test
