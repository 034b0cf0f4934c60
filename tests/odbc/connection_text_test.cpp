#include "odbc/connection_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "odbc/wide.h"
#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string withEncryption(const std::string& given, DriverFamily family, bool encrypt) {
  ConnectionText text(given);
  setEncryption(text, family, encrypt);
  return text.text();
}

TEST(ConnectionTexts, AreKeywordsAndValues) {
  const ConnectionText text(" Driver = {ODBC Driver 18 for SQL Server} ;server=tcp:host,1433;UID={a}}b;c};;");
  EXPECT_EQ(text.value({"DRIVER"}), "ODBC Driver 18 for SQL Server");
  EXPECT_EQ(text.value({"Server"}), "tcp:host,1433");
  EXPECT_EQ(text.value({"User ID", "uid"}), "a}b;c");
  EXPECT_EQ(text.value({"Database"}), "");
  EXPECT_EQ(text.text(), "Driver={ODBC Driver 18 for SQL Server};server=tcp:host,1433;UID={a}}b;c};");
}

TEST(ConnectionTexts, WhatIsNoneIsRefusedWithoutShowingIt) {
  for (const char* wrong :
       {"", " ; ", "segreto", "Driver", "=segreto", "Driver={segreto", "Driver={a}segreto;", ";x{=1"}) {
    const DatabaseError error = errorOf([&] { ConnectionText text(wrong); });
    EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable) << wrong;
    EXPECT_THAT(error.what(), Not(HasSubstr("segreto")));
  }
}

TEST(ConnectionTexts, APasswordInTheTextIsRefusedWithoutShowingIt) {
  for (const char* wrong :
       {"Driver=x;PWD=segreto", "Driver=x;pwd={segreto}", "Driver=x;Password=segreto;UID=y"}) {
    const DatabaseError error = errorOf([&] { OdbcConnection::wantsPassword(wrong); });
    EXPECT_THAT(error.what(), HasSubstr("La password non va scritta nell'indirizzo del database"));
    EXPECT_THAT(error.what(), Not(HasSubstr("segreto")));
  }
}

TEST(ConnectionTexts, APasswordIsWantedUnlessTheUserSignsOnByHimself) {
  EXPECT_TRUE(OdbcConnection::wantsPassword("Driver=FreeTDS;Server=x;UID=y"));
  EXPECT_TRUE(OdbcConnection::wantsPassword("DSN=suite"));
  EXPECT_FALSE(OdbcConnection::wantsPassword("Driver=FreeTDS;Server=x;Trusted_Connection=Yes"));
  EXPECT_FALSE(OdbcConnection::wantsPassword("Driver=x;Authentication=ActiveDirectoryIntegrated"));
}

TEST(DriverFamilies, AreKnownByNameAndLibrary) {
  for (const char* name : {"FreeTDS", "/usr/lib/x86_64-linux-gnu/odbc/libtdsodbc.so"}) {
    EXPECT_EQ(familyOf(name), DriverFamily::FreeTds) << name;
  }
  for (const char* name : {"ODBC Driver 17 for SQL Server", "SQL Server Native Client 11.0", "SQL Server",
                           "/opt/x/libmsodbcsql-18.so"}) {
    EXPECT_EQ(familyOf(name), DriverFamily::Microsoft) << name;
  }
  for (const char* name : {"PostgreSQL Unicode", "", "MySQL"}) {
    EXPECT_EQ(familyOf(name), DriverFamily::Other) << name;
  }
}

TEST(Encryption, IsOnUnlessTheProfileTurnsItOff) {
  using enum DriverFamily;
  EXPECT_EQ(withEncryption("Driver=FreeTDS;Server=x", FreeTds, true),
            "Driver=FreeTDS;Server=x;Encryption=require;");
  EXPECT_EQ(withEncryption("Driver=a;Server=x", Microsoft, true), "Driver=a;Server=x;Encrypt=yes;");
  EXPECT_EQ(withEncryption("Driver=FreeTDS;Encryption=require", FreeTds, false),
            "Driver=FreeTDS;Encryption=off;");
  EXPECT_EQ(withEncryption("Driver=a;Encrypt=strict", Microsoft, false), "Driver=a;Encrypt=no;");
  EXPECT_EQ(withEncryption("Driver=a;Encrypt=strict", Microsoft, true), "Driver=a;Encrypt=strict;");
  EXPECT_EQ(withEncryption("Driver=a;Encrypt=Mandatory", Microsoft, true), "Driver=a;Encrypt=Mandatory;");
  EXPECT_EQ(withEncryption("Driver=a;Server=x", Other, true), "Driver=a;Server=x;");
  EXPECT_EQ(withEncryption("Driver=a;Server=x", Other, false), "Driver=a;Server=x;");
}

TEST(Encryption, AnAddressThatTurnsItOffBesideTheProfileIsRefused) {
  struct {
    const char* text;
    DriverFamily family;
  } const cases[] = {{"Driver=FreeTDS;Encryption=off", DriverFamily::FreeTds},
                     {"Driver=FreeTDS;encryption=request", DriverFamily::FreeTds},
                     {"Driver=FreeTDS;Encrypt=no", DriverFamily::FreeTds},
                     {"Driver=a;Encrypt=no", DriverFamily::Microsoft},
                     {"Driver=a;Encrypt=optional", DriverFamily::Microsoft}};
  for (const auto& each : cases) {
    const DatabaseError error = errorOf([&] { withEncryption(each.text, each.family, true); });
    EXPECT_THAT(error.what(), HasSubstr("toglie la cifratura")) << each.text;
  }
}

TEST(Protocol, IsNamedToFreeTdsAlone) {
  const auto with = [](const char* given, DriverFamily family) {
    ConnectionText text(given);
    setProtocol(text, family);
    return text.text();
  };
  EXPECT_EQ(with("Driver=FreeTDS", DriverFamily::FreeTds), "Driver=FreeTDS;TDS_Version=7.4;");
  EXPECT_EQ(with("Driver=FreeTDS;TDS_Version=auto", DriverFamily::FreeTds),
            "Driver=FreeTDS;TDS_Version=7.4;");
  EXPECT_EQ(with("Driver=FreeTDS;TDS_Version=7.3", DriverFamily::FreeTds), "Driver=FreeTDS;TDS_Version=7.3;");
  EXPECT_EQ(with("Driver=a", DriverFamily::Microsoft), "Driver=a;");
}

TEST(NarrowTexts, AreNamedToTheDriverThatWouldGoByTheLocale) {
  const auto with = [](const char* given, const char* driver) {
    ConnectionText text(given);
    setNarrowTexts(text, driver);
    return text.text();
  };
  for (const char* driver : {"PostgreSQL ANSI", "/usr/lib/odbc/psqlodbca.so"}) {
    EXPECT_EQ(with("Driver=a", driver), "Driver=a;ConnSettings={SET client_encoding TO 'UTF8'};");
    EXPECT_EQ(with("Driver=a;connsettings=x", driver), "Driver=a;connsettings=x;");
  }
  EXPECT_EQ(with("Driver=FreeTDS", "FreeTDS"), "Driver=FreeTDS;");
}

TEST(WideTexts, ThereAndBack) {
  for (const std::string& text :
       {std::string(), std::string("abc"), std::string("è €\xF0\x9F\x98\x80z"), std::string("a\0b", 3)}) {
    std::vector<SQLWCHAR> wide;
    toWide(text, wide);
    EXPECT_EQ(fromWide(wide.data(), wide.size()), text);
  }
  std::vector<SQLWCHAR> wide;
  toWide("\xF0\x9F\x98\x80", wide);
  EXPECT_THAT(wide, ::testing::ElementsAre(0xD83D, 0xDE00));
  toWide("a\xFF", wide);
  EXPECT_THAT(wide, ::testing::ElementsAre('a', 0xFFFD));
  const SQLWCHAR halves[] = {0xDE00, 'a', 0xD83D};
  EXPECT_EQ(fromWide(halves, 3), "\uFFFDa\uFFFD");
}

}  // namespace
}  // namespace cu::odbc::test
