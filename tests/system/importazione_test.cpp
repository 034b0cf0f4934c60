// Data of other programs, from outside: the commands that import, export, undo and write templates.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using Argomenti = std::vector<std::string>;

constexpr const char* kAziende =
    "CodiceFiscale;PartitaIva;Denominazione;Comune;Provincia;Indirizzo;Cap;Telefono;CodiceAttivita;"
    "RappresentanteCodiceFiscale;RappresentanteCognome;RappresentanteNome;RappresentanteCarica\n"
    "12345670017;12345670017;Esempio S.r.l.;Roma;RM;Via Roma "
    "1;00184;061234567;692011;RSSMRA80A01H501U;Rossi;Mario;1\n";
constexpr const char* kPercipienti =
    "Codice;CodiceFiscale;Cognome;Nome;Indirizzo;Cap;Comune;Provincia\n"
    "P1;BNCLCU70A01L781E;Bianchi;Luca;Via Mazzini 3;37121;Verona;VR\n"
    "P2;00743110157;Verdi S.p.A.;;Via Cavour 2;00184;Roma;RM\n";
constexpr const char* kCompensi =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto\n"
    "P1;A;25/03/2017;1;1000,00;200,00\n"
    "P1;A;05/04/2017;2;500,00;100,00\n"
    "P2;A;30/06/2016;7;100,00;20,00\n";

class Importazione : public ::testing::Test {
 protected:
  Importazione() : posto_(Posto::Database::Vuoto) {}

  std::string scrivi(const std::string& nome, const std::string& testo) {
    return posto_.cartella().write(nome, testo);
  }
  std::string leggi(const std::string& nome) { return posto_.cartella().read(nome); }

  // "import" with the database of the place, behind the other arguments.
  Esecuzione importa(Argomenti argomenti, const std::string& ingresso = {}) {
    argomenti.insert(argomenti.begin(), "import");
    return conDatabase(std::move(argomenti), ingresso);
  }
  Esecuzione conDatabase(Argomenti argomenti, const std::string& ingresso = {}) {
    argomenti.insert(argomenti.end(), {"--database", posto_.indirizzo()});
    if (posto_.databaseDelServer() != nullptr) {
      argomenti.insert(argomenti.end(), {"--password-env", kVariabilePassword});
    }
    return posto_.cuctl(argomenti, ingresso);
  }
  // Companies and payees, applied.
  void prepara() {
    const Esecuzione aziende = importa({"companies", scrivi("aziende.csv", kAziende), "--apply"});
    ASSERT_EQ(aziende.codice, 0) << aziende.uscita << aziende.errori;
    const Esecuzione percipienti =
        importa({"payees", scrivi("percipienti.csv", kPercipienti), "--company", "12345670017", "--apply"});
    ASSERT_EQ(percipienti.codice, 0) << percipienti.uscita << percipienti.errori;
  }
  Esecuzione compensi(const std::string& testo, Argomenti altri = {}) {
    Argomenti argomenti = {"payments", scrivi("compensi.csv", testo), "--company", "12345670017"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return importa(argomenti);
  }
  std::int64_t quanti(const std::string& tabella) const {
    return posto_.lettore()->numero("SELECT COUNT(*) FROM " + tabella);
  }

  Posto posto_;
};

TEST_F(Importazione, FromNothingToAccounts) {
  prepara();
  const Esecuzione prova = compensi(kCompensi);
  EXPECT_EQ(prova.codice, 0) << prova.errori;
  EXPECT_EQ(prova.uscita, "Prova: 3 nuovi, 0 uguali, 0 da decidere, 0 errori. Non è stato scritto nulla.\n");
  EXPECT_EQ(quanti("Compenso"), 0);
  const Esecuzione fatta = compensi(kCompensi, {"--apply"});
  EXPECT_EQ(fatta.codice, 0) << fatta.errori;
  EXPECT_EQ(fatta.uscita, "Importazione 3: 3 nuovi, 0 uguali, 0 da decidere, 0 errori.\n");
  EXPECT_EQ(quanti("Compenso"), 3);
  EXPECT_EQ(quanti("ContoIndividuale"), 2);
  EXPECT_EQ(posto_.lettore()->numero("SELECT SUM(RitenutaAcconto) FROM ContoIndividuale"), 320);
}

TEST_F(Importazione, OfTheSameTwiceAddsNothingAndSaysSo) {
  prepara();
  ASSERT_EQ(compensi(kCompensi, {"--apply"}).codice, 0);
  const Esecuzione ancora = compensi(kCompensi, {"--apply", "--report", posto_.cartella() / "r.json"});
  EXPECT_EQ(ancora.codice, 0) << ancora.errori;
  EXPECT_EQ(ancora.uscita,
            "Importazione: 0 nuovi, 3 uguali, 0 da decidere, 0 errori. Non è stato scritto nulla.\n");
  EXPECT_THAT(ancora.errori, HasSubstr("compensi.csv"));
  EXPECT_THAT(ancora.errori, HasSubstr("(F08)."));
  const json resoconto = json::parse(leggi("r.json"));
  EXPECT_EQ(resoconto.at("applied"), false);
  EXPECT_TRUE(resoconto.at("batch").is_null());
  EXPECT_EQ(resoconto.at("counts").at("uguale"), 3);
  EXPECT_EQ(quanti("Compenso"), 3);
  EXPECT_EQ(quanti("CuImportazione"), 3);
}

TEST_F(Importazione, WithAnErrorWritesNothing) {
  prepara();
  const Esecuzione esito = compensi(
      "CodicePercipiente;Causale;DataPagamento;Onorario;Ritenuta Acconto\nP1;A;25/03/2017;1000;199,9O\n"
      "P1;A;26/03/2017;1000;200\n",
      {"--apply"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(esito.errori,
            "compensi.csv, riga 2, colonna \"Ritenuta Acconto\": 199,9O non è un importo (V03).\n");
  EXPECT_EQ(esito.uscita,
            "Importazione: 1 nuovo, 0 uguali, 0 da decidere, 1 errore. Non è stato scritto nulla.\n");
  EXPECT_EQ(quanti("Compenso"), 0);
}

TEST_F(Importazione, WithAWarningNeedsItsCodeAccepted) {
  prepara();
  const std::string testo =
      "CodicePercipiente;Causale;DataPagamento;Onorario;Note\nP1;A;25/03/2017;0,125;x\n";
  const Esecuzione senza = compensi(testo, {"--apply"});
  EXPECT_EQ(senza.codice, 1);
  EXPECT_EQ(
      senza.uscita,
      "Importazione: 1 nuovo, 0 uguali, 0 da decidere, 0 errori. Avvisi da accettare: C03,V04. Non è stato "
      "scritto nulla.\n");
  EXPECT_EQ(compensi(testo, {"--accept", "C03"}).codice, 1);
  EXPECT_EQ(compensi(testo, {"--accept", "C03,V04"}).codice, 0);
  EXPECT_EQ(compensi(testo, {"--accept", "C03,V04", "--apply"}).codice, 0);
  EXPECT_EQ(quanti("Compenso"), 1);
}

TEST_F(Importazione, ReadsATextFromStandardInput) {
  prepara();
  const Esecuzione esito = importa({"payments", "-", "--company", "1", "--apply"}, kCompensi);
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_EQ(quanti("Compenso"), 3);
  const Esecuzione male = importa({"payments", "-", "--company", "1"}, "Causale\nA\n");
  EXPECT_EQ(male.codice, 1);
  EXPECT_THAT(male.errori, HasSubstr("ingresso standard, colonna \"DataPagamento\": manca la colonna, che è "
                                     "obbligatoria (C01).\n"));
}

TEST_F(Importazione, OfOneYearLeavesTheOthersOut) {
  prepara();
  const Esecuzione esito = compensi(kCompensi, {"--year", "2017", "--apply"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_EQ(esito.uscita, "Importazione 3: 2 nuovi, 0 uguali, 0 da decidere, 0 errori, 1 escluso.\n");
  EXPECT_THAT(esito.errori, AllOf(HasSubstr("compensi.csv, riga 4"), HasSubstr("(R05).")));
}

TEST_F(Importazione, ReportsInJson) {
  prepara();
  const Esecuzione esito = compensi(kCompensi, {"--apply", "--report", posto_.cartella() / "r.json"});
  ASSERT_EQ(esito.codice, 0) << esito.errori;
  const json r = json::parse(leggi("r.json"));
  EXPECT_EQ(r.at("batch"), 3);
  EXPECT_EQ(r.at("applied"), true);
  EXPECT_EQ(r.at("kind"), "payments");
  EXPECT_EQ(
      r.at("counts"),
      json({{"nuovo", 3}, {"uguale", 0}, {"diverso", 0}, {"da decidere", 0}, {"errore", 0}, {"escluso", 0}}));
  ASSERT_EQ(r.at("rows").size(), 3U);
  const json& riga = r.at("rows")[0];
  EXPECT_EQ(riga.at("file"), "compensi.csv");
  EXPECT_EQ(riga.at("row"), 2);
  EXPECT_EQ(riga.at("state"), "nuovo");
  EXPECT_EQ(riga.at("values").at("Causale"), "A");
  EXPECT_EQ(riga.at("values").at("DataPagamento"), "2017-03-25");
  EXPECT_TRUE(riga.at("derived").is_array());
  EXPECT_TRUE(riga.at("messages").empty());
  ASSERT_EQ(r.at("accounts").size(), 2U);
  for (const json& conto : r.at("accounts")) {
    EXPECT_TRUE(conto.at("before").is_null());
    EXPECT_EQ(conto.at("reason"), "A");
    EXPECT_FALSE(conto.at("after").empty());
  }
  EXPECT_TRUE(r.at("missing").is_array());
  EXPECT_TRUE(r.at("messages").empty());
}

TEST_F(Importazione, ReportsErrorsInJsonAndAsATable) {
  prepara();
  const std::string testo =
      "CodicePercipiente;Causale;DataPagamento;Onorario;Note\nP1;A;25/03/2017;x;\nP9;A;26/03/2017;5;\n";
  EXPECT_EQ(compensi(testo, {"--report", posto_.cartella() / "r.json"}).codice, 1);
  const json r = json::parse(leggi("r.json"));
  EXPECT_EQ(r.at("applied"), false);
  EXPECT_EQ(r.at("rows")[0].at("state"), "errore");
  EXPECT_EQ(
      r.at("rows")[0].at("messages")[0],
      json({{"code", "V03"}, {"severity", "error"}, {"column", "Onorario"}, {"text", "x non è un importo"}}));
  EXPECT_EQ(r.at("rows")[1].at("messages")[0].at("code"), "P12");
  EXPECT_EQ(r.at("messages")[0].at("code"), "C03");
  EXPECT_EQ(r.at("messages")[0].at("severity"), "warning");
  EXPECT_EQ(r.at("messages")[0].at("file"), "compensi.csv");
  EXPECT_EQ(compensi(testo, {"--report", posto_.cartella() / "r.csv"}).codice, 1);
  EXPECT_THAT(leggi("r.csv"), AllOf(HasSubstr("file;riga;colonna;stato;codice;messaggio\r\n"),
                                    HasSubstr("compensi.csv;2;Onorario;errore;V03;x non è un importo\r\n"),
                                    HasSubstr("compensi.csv;;Note;;C03;")));
}

TEST_F(Importazione, IsToldAlsoWhereItsReportCannotBeWritten) {
  prepara();
  std::filesystem::create_directory(posto_.cartella() / "r.json");
  const Esecuzione esito = compensi(kCompensi, {"--apply", "--report", posto_.cartella() / "r.json"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(esito.uscita, "Importazione 3: 3 nuovi, 0 uguali, 0 da decidere, 0 errori.\n");
  EXPECT_THAT(esito.errori, HasSubstr("r.json"));
}

TEST_F(Importazione, FindsAProfileByTheHeading) {
  prepara();
  const std::string testo =
      "Studio\n\nForn.;Data pag.;Imponibile;Rit.\nP1;25/03/2017;1.000,00;-200,00\nTotale;;1.000,00;\n";
  const std::string mappa =
      "formato = \"compensi\"\n[lettura]\nriga_intestazione = 3\nmigliaia = \".\"\n"
      "salta_se = { colonna = \"Forn.\", inizia = \"Totale\" }\n[colonne]\nCodicePercipiente = \"Forn.\"\n"
      "DataPagamento = \"Data pag.\"\nCausale = { costante = \"A\" }\nOnorario = \"Imponibile\"\n"
      "RitenutaAcconto = { colonna = \"Rit.\", segno = \"positivo\" }\n";
  EXPECT_EQ(compensi(testo).codice, 1);
  const Esecuzione indicata = compensi(testo, {"--map", scrivi("mappa.toml", mappa)});
  EXPECT_EQ(indicata.codice, 0) << indicata.errori;
  EXPECT_EQ(indicata.uscita,
            "Prova: 1 nuovo, 0 uguali, 0 da decidere, 0 errori, 1 escluso. Non è stato scritto nulla.\n");
  // sha256 of "forn\ndatapag\nimponibile\nrit\n"
  const std::string impronta = "1a8cea1352d501e9abb27696e4b0ceb1e1f43855b0e396f56d3e683ed638596c";
  const std::string cartella = posto_.cartella() / "config/cuwizard/cuwizard/importazione";
  std::filesystem::create_directories(cartella);
  scrivi("config/cuwizard/cuwizard/importazione/m.toml", "impronta = \"" + impronta + "\"\n" + mappa);
  setenv("XDG_CONFIG_HOME", (posto_.cartella() / "config").c_str(), 1);
  const Esecuzione trovata = compensi(testo);
  unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(trovata.codice, 0) << trovata.errori;
  EXPECT_THAT(trovata.errori, HasSubstr("compensi.csv: letto con la mappatura " + cartella + "/m.toml\n"));
}

TEST_F(Importazione, WithAWrongProfileEndsWithTwo) {
  const std::string file = scrivi("compensi.csv", kCompensi);
  const auto con = [&](const std::string& mappa) {
    return importa({"payments", file, "--company", "1", "--map", scrivi("mappa.toml", mappa)});
  };
  const Esecuzione chiave = con("formato = \"compensi\"\n[lettura]\ndate = \"dmy\"\n");
  EXPECT_EQ(chiave.codice, 2);
  EXPECT_THAT(chiave.errori,
              HasSubstr("mappa.toml: lettura.date: valore non ammesso, atteso \"gma\", \"mga\" o \"amg\"\n"));
  const Esecuzione formato = con("formato = \"percipienti\"\n");
  EXPECT_EQ(formato.codice, 2);
  EXPECT_THAT(formato.errori, HasSubstr("mappa.toml: formato: valore non ammesso, atteso \"compensi\"\n"));
  const Esecuzione senza = importa({"payments", file, "--company", "1", "--map", "manca.toml"});
  EXPECT_EQ(senza.codice, 2);
  EXPECT_THAT(senza.errori, HasSubstr("manca.toml: il file non esiste"));
}

TEST_F(Importazione, OfWrongUsageEndsWithTwo) {
  const std::string file = scrivi("compensi.csv", kCompensi);
  struct {
    Argomenti argomenti;
    const char* messaggio;
  } const casi[] = {
      {{"import"}, "cuctl: manca il comando"},
      {{"import", "nulla"}, "cuctl: comando sconosciuto: nulla"},
      {{"import", "payments", file}, "cuctl: --database: manca"},
      {{"import", "payments", file, "--database", "sqlite:x"}, "cuctl: --company: manca"},
      {{"import", "payments", "--database", "sqlite:x", "--company", "1"}, "cuctl: file: manca"},
      {{"import", "companies", file, "--database", "sqlite:x", "--company", "1"},
       "cuctl: argomento sconosciuto: --company"},
      {{"import", "payments", "-", "-", "--database", "sqlite:x", "--company", "1"}, "una volta sola"},
      {{"import", "payments", file, "--database", "x", "--company", "1"},
       "--database: atteso \"sqlite:FILE\""},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--accept", "V03"},
       "--accept: V03 non è un avviso"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--accept", "X01"},
       "--accept: X01 non è un codice"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--dates", "dym"},
       "--dates: atteso dmy, mdy o ymd"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--separator", "x"},
       "--separator: atteso"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--charset", "x"},
       "--charset: atteso"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--decimal", ";"},
       "--decimal: atteso"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--on-duplicate", "x"},
       "--on-duplicate: atteso"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--report", "r.txt"},
       "--report: atteso"},
      {{"import", "payments", file, "--database", "sqlite:x", "--company", "1", "--report", "manca/r.csv"},
       "--report: non si può scrivere"},
      {{"import", "payments", "manca.csv", "--database", "sqlite:x", "--company", "1"},
       "manca.csv: il file non esiste."},
      {{"import", "undo", "--database", "sqlite:x"}, "cuctl: importazione: manca"},
      {{"import", "undo", "x", "--database", "sqlite:x"}, "importazione: atteso un numero"},
      {{"export", "payees", "--database", "sqlite:x", "--output", "a.csv"}, "cuctl: --company: manca"},
      {{"export", "payees", "--database", "sqlite:x", "--company", "1", "--output", "a.ods"},
       "--output: atteso"},
      {{"template", "payees", "a.txt"}, "file: atteso un nome che finisce in .csv o .xlsx"},
  };
  for (const auto& caso : casi) {
    const Esecuzione esito = posto_.cuctl(caso.argomenti);
    EXPECT_EQ(esito.codice, 2) << caso.messaggio;
    EXPECT_THAT(esito.errori, HasSubstr(caso.messaggio));
    EXPECT_EQ(esito.uscita, "");
  }
  const Esecuzione azienda = importa({"payments", file, "--company", "99"});
  EXPECT_EQ(azienda.codice, 2);
  EXPECT_EQ(azienda.errori, "--company: nel database non c'è un'azienda 99\n");
}

TEST_F(Importazione, CanSkipBadFiles) {
  prepara();
  const std::string buono = scrivi("buono.csv", kCompensi);
  const std::string vuoto = scrivi("vuoto.csv", "");
  const Argomenti base = {"payments", buono, vuoto, "--company", "1"};
  const Esecuzione ferma = importa(base);
  EXPECT_EQ(ferma.codice, 1);
  EXPECT_THAT(ferma.errori, HasSubstr("vuoto.csv: il file è vuoto (F01).\n"));
  EXPECT_THAT(ferma.uscita, HasSubstr("; 1 errore generale."));
  Argomenti salta = base;
  salta.push_back("--skip-bad-files");
  EXPECT_EQ(importa(salta).codice, 0);
  EXPECT_EQ(importa({"payments", vuoto, "--company", "1", "--skip-bad-files"}).codice, 1);
}

TEST_F(Importazione, IsListedAndTakenBack) {
  EXPECT_EQ(importa({"history"}).uscita, "Nessuna importazione.\n");
  prepara();
  ASSERT_EQ(compensi(kCompensi, {"--apply"}).codice, 0);
  EXPECT_THAT(importa({"history", "--company", "12345670017"}).uscita,
              HasSubstr("compensi, applicata: 3 nuovi, 0 uguali, 0 da decidere, 0 errori (compensi.csv).\n"));
  const Esecuzione prova = importa({"undo", "3"});
  EXPECT_EQ(prova.codice, 0) << prova.errori;
  EXPECT_EQ(prova.uscita,
            "Prova: importazione 3 da annullare: 3 compensi tolti. Non è stato scritto nulla.\n");
  EXPECT_EQ(quanti("Compenso"), 3);
  const Esecuzione fatto = importa({"undo", "3", "--apply"});
  EXPECT_EQ(fatto.codice, 0) << fatto.errori;
  EXPECT_THAT(fatto.uscita, HasSubstr("Importazione 3 annullata: 3 compensi tolti."));
  EXPECT_EQ(quanti("Compenso"), 0);
  EXPECT_EQ(quanti("ContoIndividuale"), 0);
  const Esecuzione ancora = importa({"undo", "3", "--apply"});
  EXPECT_EQ(ancora.codice, 1);
  EXPECT_FALSE(ancora.errori.empty());
  EXPECT_EQ(importa({"undo", "99"}).codice, 1);
  const json lotti = json::parse(importa({"history", "--json"}).uscita);
  ASSERT_EQ(lotti.size(), 3U);
  EXPECT_EQ(lotti[2].at("batch"), 3);
  EXPECT_EQ(lotti[2].at("kind"), "payments");
  EXPECT_EQ(lotti[2].at("state"), "annullata");
  EXPECT_EQ(lotti[1].at("state"), "applicata");
  EXPECT_EQ(lotti[2].at("counts").at("nuovo"), 3);
  ASSERT_EQ(lotti[2].at("files").size(), 1U);
  EXPECT_EQ(lotti[2].at("files")[0].at("name"), "compensi.csv");
  EXPECT_EQ(lotti[2].at("files")[0].at("size"), std::string(kCompensi).size());
  EXPECT_EQ(lotti[2].at("files")[0].at("sha256").get<std::string>().size(), 64U);
}

TEST_F(Importazione, TakesTheTemplatesAsTheyAre) {
  for (const char* estensione : {".csv", ".xlsx"}) {
    posto_.crea({"--empty"});
    for (const char* elenco : {"companies", "payees", "payments"}) {
      const std::string file = posto_.cartella() / (std::string(elenco) + estensione);
      const Esecuzione modello = posto_.cuctl({"template", elenco, file});
      ASSERT_EQ(modello.codice, 0) << modello.errori;
      Argomenti argomenti = {elenco, file, "--apply"};
      if (elenco != std::string("companies")) argomenti.insert(argomenti.end(), {"--company", "12345670017"});
      const Esecuzione esito = importa(argomenti);
      EXPECT_EQ(esito.codice, 0) << esito.uscita << esito.errori;
      EXPECT_THAT(esito.uscita, HasSubstr(": 1 nuovo, "));
      EXPECT_EQ(esito.errori, "");
    }
  }
}

}  // namespace
}  // namespace cu::test
