// The commands that read files, from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

class EsameFile : public ::testing::Test {
 protected:
  void SetUp() override {
    posto_.imposta("printing.engine", "\"record\"");
    std::filesystem::create_directories(in("cu"));
    const Esecuzione fatto = posto_.cuctl(
        {"make", "--profile", posto_.profilo(), "--year", "2017", "--folder", in("cu"), "--yes"});
    ASSERT_EQ(fatto.codice, 0) << fatto.errori;
    make_ = fatto;
    file_ = in("cu") + "/CUR_04123450233_2017.cur";
  }
  std::string in(const std::string& nome) const { return posto_.cartella().path() + "/" + nome; }
  std::string contenuto() const {
    std::ifstream file(file_, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), {});
  }
  std::string scrivi(const std::string& nome, const std::string& testo) const {
    std::ofstream(in(nome), std::ios::binary) << testo;
    return in(nome);
  }
  // A copy with other bytes at a line and a position, from 1.
  std::string danneggiato(std::size_t riga, std::size_t posizione, const std::string& byte) const {
    std::string testo = contenuto();
    testo.replace((riga - 1) * 1900 + posizione - 1, byte.size(), byte);
    return scrivi("danneggiato.cur", testo);
  }

  Posto posto_;
  Esecuzione make_;
  std::string file_;
};

TEST_F(EsameFile, MakeSaysWhatItsOwnReaderFinds) {
  EXPECT_THAT(make_.uscita, HasSubstr("Controllo: nessun errore, 8 avvisi\n"));
  EXPECT_THAT(make_.uscita, HasSubstr("(C09, avviso)"));
  EXPECT_EQ(make_.errori, "");
}

TEST_F(EsameFile, ValidateCountsErrorsAndWarnings) {
  EXPECT_EQ(posto_.cuctl({"validate", file_}).codice, 0);
  EXPECT_EQ(posto_.cuctl({"validate", "--strict", file_}).codice, 1);
  const std::string guasto = danneggiato(4, 98, "a");
  const Esecuzione male = posto_.cuctl({"validate", file_, guasto});
  EXPECT_EQ(male.codice, 0) << "a reason in lower case is doubtful, not wrong";
  const Esecuzione peggio = posto_.cuctl({"validate", danneggiato(4, 1898, "B")});
  EXPECT_EQ(peggio.codice, 1);
  EXPECT_THAT(
      peggio.uscita,
      HasSubstr("riga 4, posizione 1898: In posizione 1898 manca la A che chiude il record. (L02, errore)"));
}

TEST_F(EsameFile, WhatIsPlainlySomethingElseIsNamed) {
  const std::string stampa = scrivi("modulo.cur", "%PDF-1.4\nuna stampa\n");
  const Esecuzione pdf = posto_.cuctl({"validate", stampa});
  EXPECT_EQ(pdf.codice, 1);
  EXPECT_THAT(
      pdf.uscita,
      HasSubstr(
          "modulo.cur: questo è un documento PDF, non un file telematico della Certificazione Unica; "));
  EXPECT_THAT(pdf.uscita, Not(HasSubstr("L01"))) << "every line of it is one";
  const Esecuzione inJson = posto_.cuctl({"validate", "--json", stampa});
  EXPECT_EQ(inJson.codice, 1);
  EXPECT_GT(json::parse(inJson.uscita).at("files").at(0).at("counts").at("L01"), 0);
  EXPECT_EQ(posto_.cuctl({"validate", scrivi("testo.cur", "una riga\n")}).codice, 1);
}

TEST_F(EsameFile, ValidateInJsonHasTheFindings) {
  const std::string guasto = danneggiato(4, 114 + 8, "x");
  const Esecuzione esecuzione = posto_.cuctl({"validate", "--json", guasto});
  EXPECT_EQ(esecuzione.codice, 1);
  const json risposta = json::parse(esecuzione.uscita);
  const json& uno = risposta.at("files").at(0);
  EXPECT_EQ(uno.at("file"), guasto);
  EXPECT_EQ(uno.at("counts").at("K03"), 1);
  bool trovato = false;
  for (const json& rilievo : uno.at("findings")) {
    if (rilievo.at("code") != "K03") continue;
    trovato = true;
    EXPECT_EQ(rilievo.at("line"), 4);
    EXPECT_EQ(rilievo.at("position"), 114);
    EXPECT_EQ(rilievo.at("length"), 24);
    EXPECT_EQ(rilievo.at("record"), "H");
    EXPECT_EQ(rilievo.at("field"), "AU001004");
    EXPECT_EQ(rilievo.at("severity"), "error");
  }
  EXPECT_TRUE(trovato);
}

TEST_F(EsameFile, AFileThatCannotBeOpenedIsWrongUsage) {
  for (const char* comando : {"inspect", "validate"}) {
    const Esecuzione esecuzione = posto_.cuctl({comando, in("nessuno.cur")});
    EXPECT_EQ(esecuzione.codice, 2) << comando;
    EXPECT_THAT(esecuzione.errori, HasSubstr("nessuno.cur: il file non esiste."));
    EXPECT_EQ(posto_.cuctl({comando, in("cu")}).codice, 2) << comando;
  }
  EXPECT_EQ(posto_.cuctl({"diff", file_, in("nessuno.cur")}).codice, 2);
  EXPECT_EQ(posto_.cuctl({"validate", in("nessuno.cur"), file_}).codice, 2);
}

TEST_F(EsameFile, InspectShowsWhateverCanBeRead) {
  const json intero = json::parse(posto_.cuctl({"inspect", "--json", file_}).uscita);
  EXPECT_EQ(intero.at("bytes"), std::filesystem::file_size(file_));
  EXPECT_EQ(intero.at("supply").at("code"), "CUR18");
  EXPECT_EQ(intero.at("supply").at("taxYear"), 2017);
  EXPECT_EQ(intero.at("supply").at("senderType"), "01");
  EXPECT_EQ(intero.at("totals").at("D"), 49);
  EXPECT_EQ(intero.at("agents").at(0).at("fiscalCode"), "04123450233");
  EXPECT_EQ(intero.at("agents").at(0).at("certificates").size(), 49U);
  const json& primo = intero.at("agents").at(0).at("certificates").at(0);
  EXPECT_EQ(primo.at("line"), 3);
  EXPECT_EQ(primo.at("modules").at(0).at("cells").at("AU001001"), primo.at("reason"));
  for (const std::string& testo :
       {std::string(), std::string("%PDF-1.7\n\xFF\xFE"), contenuto().substr(0, 6000),
        std::string(5000000, 'x'), std::string(3000, '\n')}) {
    const Esecuzione esecuzione = posto_.cuctl({"inspect", "--json", scrivi("strano.cur", testo)});
    EXPECT_EQ(esecuzione.codice, 0);
    const json letto = json::parse(esecuzione.uscita);
    EXPECT_EQ(letto.at("bytes"), testo.size());
    EXPECT_FALSE(letto.at("findings").empty());
  }
}

TEST_F(EsameFile, InspectCountsACertificateOverTheWholeFile) {
  const json terzo = json::parse(posto_.cuctl({"inspect", "--json", "--certificate", "3", file_}).uscita);
  ASSERT_EQ(terzo.at("agents").at(0).at("certificates").size(), 1U);
  EXPECT_EQ(terzo.at("agents").at(0).at("certificates").at(0).at("number"), 3);
  const Esecuzione oltre = posto_.cuctl({"inspect", "--certificate", "50", file_});
  EXPECT_EQ(oltre.codice, 0);
  EXPECT_THAT(oltre.errori, HasSubstr("49 certificazioni"));
}

TEST_F(EsameFile, DiffNamesTheBoxThatChanged) {
  const std::string altro = danneggiato(4, 114 + 8 + 15, "9");
  const Esecuzione esecuzione = posto_.cuctl({"diff", "--json", file_, altro});
  EXPECT_EQ(esecuzione.codice, 1);
  int cambiate = 0;
  for (const json& voce : json::parse(esecuzione.uscita)) {
    if (voce.at("state") == "equal") continue;
    ++cambiate;
    EXPECT_EQ(voce.at("state"), "changed");
    EXPECT_EQ(voce.at("boxes").at(0).at("field"), "AU001004");
  }
  EXPECT_EQ(cambiate, 1);
}

TEST_F(EsameFile, InspectWritesItsTable) {
  const Esecuzione esecuzione =
      posto_.cuctl({"inspect", file_, "--csv", in("t.csv"), "--xlsx", in("t.xlsx")});
  EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
  std::ifstream csv(in("t.csv"), std::ios::binary);
  const std::string testo((std::istreambuf_iterator<char>(csv)), {});
  EXPECT_EQ(std::count(testo.begin(), testo.end(), '\n'), 50);
  EXPECT_THAT(testo, HasSubstr("04123450233;1;3;"));
  EXPECT_GT(std::filesystem::file_size(in("t.xlsx")), 5000U);
  EXPECT_EQ(posto_.cuctl({"inspect", file_, "--csv", in("nessuna/t.csv")}).codice, 1);
}

TEST_F(EsameFile, InspectNeverWritesATableOverItsFile) {
  const std::string prima = contenuto();
  std::filesystem::create_symlink(file_, in("altro.csv"));
  for (const char* opzione : {"--csv", "--xlsx"}) {
    for (const std::string& tabella : {file_, in("altro.csv"), in("./") + file_.substr(in("").size())}) {
      const Esecuzione esecuzione = posto_.cuctl({"inspect", file_, opzione, tabella});
      EXPECT_EQ(esecuzione.codice, 2) << tabella;
      EXPECT_THAT(esecuzione.errori, HasSubstr("è il file da leggere"));
      EXPECT_EQ(esecuzione.uscita, "");
    }
  }
  EXPECT_EQ(contenuto(), prima);
  const Esecuzione due = posto_.cuctl({"inspect", file_, "--csv", in("t"), "--xlsx", in("t")});
  EXPECT_EQ(due.codice, 2);
  EXPECT_FALSE(std::filesystem::exists(in("t")));
}

}  // namespace
}  // namespace cu::test
