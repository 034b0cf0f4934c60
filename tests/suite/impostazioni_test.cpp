#include "suite/impostazioni.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/error.h"
#include "suite/file_system.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct ImpostazioniTest : ::testing::Test {
  test::TempFolder cartella;
  FileSystemPiattaforma files;
  std::vector<std::string> avvisi;
  ImpostazioniToml impostazioni{cartella / "settings.toml", files,
                                [this](const std::string& testo) { avvisi.push_back(testo); }};
  std::string leggi(std::string_view nome, std::string_view altrimenti = "-") {
    return impostazioni.get("Quadrivio", "MenuSettings", nome, altrimenti);
  }
};

TEST_F(ImpostazioniTest, WithoutAFileTheDefaultHolds) {
  EXPECT_EQ(leggi("CU_Path", "/documenti"), "/documenti");
  EXPECT_THAT(avvisi, IsEmpty());
  EXPECT_FALSE(files.fileExists(cartella / "settings.toml"));
}

TEST_F(ImpostazioniTest, WhatIsWrittenIsReadBackAlsoByAnotherObject) {
  for (const char* valore : {"/home/utente/Documenti", "C:\\CU\\2017", "con \"virgolette\" e 'apici'",
                             "riga\r\ncon tab\t", "", "perché €", "[non] = una # sezione"}) {
    impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", valore);
    EXPECT_EQ(leggi("CU_Path"), valore);
    ImpostazioniToml altra(cartella / "settings.toml", files, nullptr);
    EXPECT_EQ(altra.get("Quadrivio", "MenuSettings", "CU_Path", "-"), valore);
  }
}

TEST_F(ImpostazioniTest, AFileWrittenByHandIsUnderstood) {
  cartella.write("settings.toml",
                 "[\"Quadrivio\".MenuSettings]\nCU_Path = \"/cu\"\nView2 = 3\nX = true\nY = 1.5\n");
  EXPECT_EQ(leggi("CU_Path"), "/cu");
  EXPECT_EQ(leggi("View2"), "3");
  EXPECT_EQ(leggi("X"), "1");
  EXPECT_EQ(leggi("Y"), "1.5");
  EXPECT_EQ(leggi("Path"), "-");
}

TEST_F(ImpostazioniTest, OtherKeysAndSectionsStay) {
  cartella.write("settings.toml",
                 "altro = 5\n[\"Quadrivio\".MenuSettings]\nView2 = 3\n[\"Quadrivio\".Sessione12]\na = \"b\"\n"
                 "[Diverso.MenuSettings]\nCU_Path = \"/suo\"\n");
  impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/mio");
  EXPECT_EQ(leggi("CU_Path"), "/mio");
  EXPECT_EQ(leggi("View2"), "3");
  EXPECT_EQ(impostazioni.get("Quadrivio", "Sessione12", "a", "-"), "b");
  EXPECT_EQ(impostazioni.get("Diverso", "MenuSettings", "CU_Path", "-"), "/suo");
  EXPECT_THAT(cartella.read("settings.toml"), HasSubstr("altro = 5"));
  EXPECT_THAT(cartella.read("settings.toml"), HasSubstr("View2 = 3"));
}

TEST_F(ImpostazioniTest, AValueThatIsThereIsNotWrittenAgain) {
  const std::string aMano = "# mio\n[Quadrivio.MenuSettings]\nCU_Path='/cu' # qui\nView2=3\n";
  cartella.write("settings.toml", aMano);
  impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/cu");
  EXPECT_EQ(cartella.read("settings.toml"), aMano);
  // Another type is another value, and so is another letter.
  impostazioni.set("Quadrivio", "MenuSettings", "View2", "3");
  EXPECT_THAT(cartella.read("settings.toml"), HasSubstr("View2 = \"3\""));
  impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/CU");
  EXPECT_EQ(leggi("CU_Path"), "/CU");
}

TEST_F(ImpostazioniTest, ASectionIsDeletedAlone) {
  impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/mio");
  impostazioni.set("Quadrivio", "Sessione12", "a", "b");
  impostazioni.deleteSection("Quadrivio", "Sessione12");
  EXPECT_EQ(impostazioni.get("Quadrivio", "Sessione12", "a", "-"), "-");
  EXPECT_EQ(leggi("CU_Path"), "/mio");
  impostazioni.deleteSection("Quadrivio", "Sessione12");
  impostazioni.deleteSection("Quadrivio", "");
  impostazioni.deleteSection("Ignoto", "Sessione12");
  EXPECT_EQ(leggi("CU_Path"), "/mio");
}

TEST_F(ImpostazioniTest, DeletingInAMissingFileMakesNone) {
  impostazioni.deleteSection("Quadrivio", "Sessione12");
  EXPECT_FALSE(files.fileExists(cartella / "settings.toml"));
}

TEST_F(ImpostazioniTest, MissingFoldersAreMade) {
  ImpostazioniToml profonde(cartella / "a/b/c.toml", files, nullptr);
  profonde.set("Quadrivio", "MenuSettings", "CU_Path", "/x");
  EXPECT_TRUE(files.fileExists(cartella / "a/b/c.toml"));
}

TEST_F(ImpostazioniTest, ABrokenFileIsToldOnceAndKeptAsideByTheFirstWrite) {
  cartella.write("settings.toml", "[rotto\n");
  EXPECT_EQ(leggi("CU_Path", "/d"), "/d");
  EXPECT_EQ(leggi("View2", "2"), "2");
  EXPECT_THAT(avvisi, ElementsAre("Il file delle impostazioni " + (cartella / "settings.toml") +
                                  " è danneggiato: valgono le impostazioni predefinite."));
  EXPECT_EQ(cartella.read("settings.toml"), "[rotto\n");
  impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/nuovo");
  ASSERT_EQ(avvisi.size(), 2U);
  EXPECT_THAT(avvisi[1], HasSubstr("è stato conservato come " + (cartella / "settings.toml.danneggiato-1")));
  EXPECT_EQ(cartella.read("settings.toml.danneggiato-1"), "[rotto\n");
  EXPECT_EQ(leggi("CU_Path"), "/nuovo");
}

TEST_F(ImpostazioniTest, ASecondBrokenFileDoesNotReplaceTheFirst) {
  for (const char* rotto : {"[uno\n", "[due\n"}) {
    cartella.write("settings.toml", rotto);
    impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/x");
  }
  EXPECT_EQ(cartella.read("settings.toml.danneggiato-1"), "[uno\n");
  EXPECT_EQ(cartella.read("settings.toml.danneggiato-2"), "[due\n");
}

TEST_F(ImpostazioniTest, SomethingElseInThePlaceOfASectionIsNotOverwritten) {
  cartella.write("settings.toml", "Quadrivio = \"testo\"\n");
  EXPECT_EQ(leggi("CU_Path"), "-");
  EXPECT_THROW(impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/x"), FileError);
  EXPECT_EQ(cartella.read("settings.toml"), "Quadrivio = \"testo\"\n");
}

TEST_F(ImpostazioniTest, BytesThatAreNoUtf8DoNotSpoilTheFile) {
  impostazioni.set("Quadrivio", "MenuSettings", "CU_Path", "/perch\xe9");
  EXPECT_EQ(leggi("CU_Path"), "/perch\xEF\xBF\xBD");
}

TEST_F(ImpostazioniTest, AFailedWriteIsTold) {
  ImpostazioniToml senza("/proc/nessuno/settings.toml", files, nullptr);
  EXPECT_THROW(senza.set("Quadrivio", "MenuSettings", "CU_Path", "/x"), FileError);
}

TEST_F(ImpostazioniTest, TwoProcessesLoseNoKeyOfOneAnother) {
  constexpr int kChiavi = 40;
  const auto scrivi = [&](const std::string& prefisso) {
    for (int i = 0; i < kChiavi; ++i) {
      impostazioni.set("Quadrivio", "MenuSettings", prefisso + std::to_string(i), "v");
    }
  };
  const pid_t figlio = ::fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0) {
    try {
      scrivi("figlio");
    } catch (...) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  scrivi("padre");
  int stato = 0;
  ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
  EXPECT_EQ(stato, 0);
  for (int i = 0; i < kChiavi; ++i) {
    EXPECT_EQ(leggi("padre" + std::to_string(i)), "v");
    EXPECT_EQ(leggi("figlio" + std::to_string(i)), "v");
  }
}

}  // namespace
}  // namespace cu
