// The libraries that cuctl loads when it calls them: when that is, and what is said where one cannot be
// loaded.

#include "late/late_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(LateLibrary, GivesTheFunctionsOfALibrary) {
  const LateLibrary library("libm.so.6", "I calcoli");
  auto* const root = reinterpret_cast<double (*)(double)>(library.function("sqrt"));
  EXPECT_EQ(root(9.0), 3.0);
}

TEST(LateLibrary, WhatCannotBeLoadedIsSaid) {
  for (const auto& [file, name] :
       {std::pair("libnon-esiste.so.1", "sqrt"), std::pair("libm.so.6", "radice")}) {
    try {
      LateLibrary(file, "I calcoli").function(name);
      FAIL() << file;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), kErrorLateLibrary);
      EXPECT_THAT(error.description(), AllOf(StartsWith("I calcoli non si possono usare: la libreria «" +
                                                        std::string(file) + "» "),
                                             EndsWith("Installarla di nuovo; tutto il resto funziona.")));
    }
  }
}

#ifdef CU_LATE

class LateProgram : public ::testing::Test {
 protected:
  // The exit code of a command line; the rest is in the files "uscita" and "errori".
  int run(const std::string& arguments, const std::string& environment = {}) const {
    const std::string command =
        "cd '" + folder.path() + "' && " + environment + " '" CU_CUCTL "' " + arguments + " >uscita 2>errori";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  // The files that the loader has looked for in such a run.
  std::string loaded(const std::string& arguments) const {
    EXPECT_EQ(run(arguments, "LD_DEBUG=files"), 0) << arguments << folder.read("errori");
    return folder.read("errori");
  }
  // Makes every run below fail to load a library.
  std::string without(const std::string& library) const {
    folder.write(library, "testo");
    return "LD_LIBRARY_PATH='" + folder.path() + "'";
  }

  test::TempFolder folder;
};

TEST_F(LateProgram, LoadsOnlyWhatItCalls) {
  const auto late = {CU_LIBRARY_CRYPTO,   CU_LIBRARY_EXPAT,      CU_LIBRARY_ODBC,
                     CU_LIBRARY_UTF8PROC, CU_LIBRARY_XLSXWRITER, CU_LIBRARY_ZIP};
  for (const char* const arguments : {"--help", "make --help", "create --database sqlite:prova.db --demo",
                                      "check --database sqlite:prova.db", "template payees modello.csv"}) {
    const std::string files = loaded(arguments);
    EXPECT_THAT(files, HasSubstr("libsqlite3"));
    for (const char* const library : late) EXPECT_THAT(files, Not(HasSubstr(library))) << arguments;
  }
  EXPECT_THAT(loaded("template payees modello.xlsx"),
              AllOf(HasSubstr(CU_LIBRARY_XLSXWRITER), Not(HasSubstr(CU_LIBRARY_ZIP))));
  // The driver manager is named by the version that the program was built with.
  const std::string version = loaded("--version");
  for (const char* const library : late) {
    const bool asked = std::string_view(library) != CU_LIBRARY_ODBC;
    EXPECT_EQ(version.find(library) != std::string::npos, asked) << library;
  }
}

TEST_F(LateProgram, ATableLoadsWhatReadsIt) {
  ASSERT_EQ(run("create --database sqlite:prova.db --demo"), 0);
  ASSERT_EQ(run("template payees modello.csv"), 0);
  ASSERT_EQ(run("template payees modello.xlsx"), 0);
  const std::string import = "import payees --database sqlite:prova.db --company 1 --on-duplicate update ";
  EXPECT_THAT(loaded(import + "modello.csv"),
              AllOf(HasSubstr(CU_LIBRARY_UTF8PROC), Not(HasSubstr(CU_LIBRARY_EXPAT))));
  EXPECT_THAT(loaded(import + "modello.xlsx"),
              AllOf(HasSubstr(CU_LIBRARY_UTF8PROC), HasSubstr(CU_LIBRARY_EXPAT), HasSubstr(CU_LIBRARY_ZIP)));
}

TEST_F(LateProgram, AMissingLibraryStopsWhatNeedsItAlone) {
  const std::string environment = without(CU_LIBRARY_XLSXWRITER);
  EXPECT_EQ(run("template payees modello.xlsx", environment), 1);
  EXPECT_THAT(
      folder.read("errori"),
      StartsWith(
          "I fogli elettronici da scrivere non si possono usare: la libreria «" CU_LIBRARY_XLSXWRITER));
  EXPECT_FALSE(std::filesystem::exists(folder / "modello.xlsx"));
  EXPECT_EQ(run("template payees modello.csv", environment), 0);
}

TEST_F(LateProgram, ASpreadsheetWithoutTheReaderOfXmlIsSaid) {
  ASSERT_EQ(run("create --database sqlite:prova.db --demo"), 0);
  ASSERT_EQ(run("template payees modello.xlsx"), 0);
  EXPECT_EQ(
      run("import payees --database sqlite:prova.db --company 1 modello.xlsx", without(CU_LIBRARY_EXPAT)), 1);
  EXPECT_THAT(folder.read("errori"),
              HasSubstr("I file XML e i fogli elettronici da leggere non si possono usare: la libreria "
                        "«" CU_LIBRARY_EXPAT));
}

TEST_F(LateProgram, TheVersionSaysWhichLibraryIsMissing) {
  EXPECT_EQ(run("--version", without(CU_LIBRARY_ZIP)), 0);
  EXPECT_THAT(folder.read("uscita"),
              AllOf(HasSubstr("\nArchivi: Gli archivi compressi non si possono usare: "),
                    HasSubstr("\nFatture firmate: OpenSSL ")));
}

TEST_F(LateProgram, AServerWithoutItsLibraryIsSaid) {
  EXPECT_EQ(run("check --database 'odbc:Driver=Nessuno;Trusted_Connection=Yes'", without(CU_LIBRARY_ODBC)),
            1);
  EXPECT_THAT(folder.read("uscita") + folder.read("errori"),
              HasSubstr("I server per ODBC non si possono usare"));
}

#endif

}  // namespace
}  // namespace cu
