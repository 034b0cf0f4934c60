// The whole life of a year: file, receipt, corrections, their receipts, until nothing is left to do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "system/vita_invii_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST_F(VitaInvii, EndsWithNothingLeftToDo) {
  const std::string file = crea();
  const json prime = certificati(file);
  const auto quante = static_cast<int>(prime.size());
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"nuova", quante}}));
  inviata(file);
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"attesa", quante}}));
  applicata(ricevuta(file, "18030612345678901", {0, 5}));
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"nuova", 2}, {"nessuna", quante - 2}}));

  // One accepted is corrected, another removed, and a payee is new.
  const json corretta = prime.at(2);
  const json tolta = prime.at(3);
  const auto archivio = posto_.lettore();
  const auto conto = [](const json& certificato) {
    return " WHERE Anno = 2017 AND IDAnagrafica IN (SELECT IDAnagrafica FROM Anagrafica WHERE CodiceFiscale "
           "= '" +
           certificato.at("payee").get<std::string>() + "' OR PartitaIva = '" +
           certificato.at("payee").get<std::string>() +
           "') AND IDCausalePagamento = (SELECT IDCausalePagamento FROM CausalePagamento WHERE Codice = '" +
           certificato.at("reason").get<std::string>() + "')";
  };
  archivio->esegui("UPDATE ContoIndividuale SET OnorarioProvvigioni = OnorarioProvvigioni + 0.01" +
                   conto(corretta));
  archivio->esegui("DELETE FROM ContoIndividuale" + conto(tolta));
  archivio->esegui(
      "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, CodiceFiscale, Sesso, "
      "DataNascita,"
      " IDComuneNascita, Indirizzo, Cap, IDComune) SELECT 9001, 'Nuovo', 'Mario', 1, 'NVUMRA80A01L781C', 'M',"
      " '1980-01-01', IDComuneNascita, 'Via Roma 1', '37121', IDComune FROM Anagrafica WHERE IDAnagrafica = "
      "101");
  archivio->esegui("INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice) VALUES (1, 9001, 'P900')");
  archivio->esegui(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, OnorarioProvvigioni,"
      " QuotaProvvigioniNonSoggette, RitenutaAcconto) SELECT 9001, IDCausalePagamento, 2017, 1, 1000, 0, 200"
      " FROM CausalePagamento WHERE Codice = 'A'");
  const auto prima = archivio->righe("SELECT * FROM ContoIndividualeDatiAggiuntivi");
  EXPECT_EQ(operazioni(),
            (std::map<std::string, int>{
                {"nuova", 3}, {"sostituzione", 1}, {"annullamento", 1}, {"nessuna", quante - 4}}));
  for (const json& voce : status()) {
    if (voce.at("operation") != "sostituzione") continue;
    EXPECT_EQ(voce.at("payee"), corretta.at("payee"));
    EXPECT_EQ(voce.at("boxes").at(0).at("field"), "AU001004");
    EXPECT_EQ(voce.at("protocol"), "18030612345678901");
    EXPECT_EQ(voce.at("progressive"), "000003");
  }

  const Esecuzione esecuzione = cuctl({"correct", "--year", kAnno, "--folder", in("correzioni"), "--yes"});
  EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
  const std::string nome = "/CUR_04123450233_2017.cur";
  const std::string ordinaria = in("correzioni") + "/ordinarie" + nome;
  const std::string sostituzione = in("correzioni") + "/sostituzioni" + nome;
  const std::string annullamento = in("correzioni") + "/annullamenti" + nome;
  EXPECT_EQ(posto_.cuctl({"validate", ordinaria, sostituzione, annullamento}).codice, 0);
  EXPECT_EQ(certificati(ordinaria).size(), 3U);
  const json sostituita = certificati(sostituzione);
  ASSERT_EQ(sostituita.size(), 1U);
  EXPECT_EQ(sostituita.at(0).at("operation"), "S");
  EXPECT_EQ(sostituita.at(0).at("protocol"), "18030612345678901");
  EXPECT_EQ(sostituita.at(0).at("progressive"), "000003");
  const json annullata = certificati(annullamento);
  ASSERT_EQ(annullata.size(), 1U);
  EXPECT_EQ(annullata.at(0).at("operation"), "A");
  EXPECT_EQ(annullata.at(0).at("payee"), tolta.at("payee"));
  EXPECT_EQ(annullata.at(0).at("progressive"), "000004");
  json cellePrime = tolta.at("cells");
  json celleAnnullate = annullata.at(0).at("cells");
  for (json* celle : {&cellePrime, &celleAnnullate}) celle->erase("DA003001");
  EXPECT_EQ(celleAnnullate, cellePrime);
  // The accounts are as they were.
  EXPECT_EQ(archivio->righe("SELECT * FROM ContoIndividualeDatiAggiuntivi"), prima);

  // A correction that was written is pending, and is not written again.
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"nuova", 3}, {"attesa", 2}, {"nessuna", quante - 4}}));
  for (const std::string& uno : {ordinaria, sostituzione, annullamento}) inviata(uno);
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"attesa", 5}, {"nessuna", quante - 4}}));
  const Esecuzione altra = cuctl({"correct", "--year", kAnno, "--folder", in("altre"), "--yes"});
  EXPECT_EQ(altra.codice, 0) << altra.errori;
  EXPECT_THAT(altra.uscita, HasSubstr("Nessuna certificazione è da inviare, sostituire o annullare."));

  applicata(ricevuta(ordinaria, "18041012345678902", {}));
  applicata(ricevuta(sostituzione, "18041012345678903", {}));
  applicata(ricevuta(annullamento, "18041012345678904", {}));
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"nessuna", quante}}));
}

TEST_F(VitaInvii, ASentFileIsNotDiscarded) {
  const std::string file = crea();
  inviata(file);
  const json prima = status();
  const Esecuzione esecuzione = cuctl({"discard", file, "--yes"});
  EXPECT_EQ(esecuzione.codice, 1);
  EXPECT_THAT(esecuzione.errori, HasSubstr("le sue certificazioni risultano inviate"));
  EXPECT_EQ(status(), prima);
  applicata(ricevuta(file, "18030612345678901", {0}));
  EXPECT_EQ(cuctl({"discard", file, "--yes"}).codice, 1);
  EXPECT_EQ(cuctl({"discard", in("nessuno.cur"), "--yes"}).codice, 2);
  std::ofstream(file, std::ios::app | std::ios::binary) << " ";
  EXPECT_THAT(cuctl({"discard", file, "--yes"}).errori, HasSubstr("non è fra i file scritti"));
}

TEST_F(VitaInvii, AFileThatWasWrittenTwiceIsDiscardedOnce) {
  const json prima = status();
  crea();
  const std::string file = crea();
  EXPECT_EQ(cuctl({"discard", file, "--yes"}).codice, 0);
  EXPECT_EQ(status(), prima);
}

TEST_F(VitaInvii, AReceiptTwiceAddsNothing) {
  const std::string file = crea();
  const std::string tabella = ricevuta(file, "18030612345678901", {1});
  applicata(tabella);
  const Esecuzione ancora = cuctl({"receipt", tabella, "--apply"});
  EXPECT_EQ(ancora.codice, 0);
  EXPECT_THAT(ancora.uscita, HasSubstr("0 nuovi"));
}

TEST_F(VitaInvii, AReceiptThatFitsNothingIsRejectedWhole) {
  crea();
  const std::string nome = in("estranea.csv");
  std::ofstream(nome) << "CodiceFiscale;Protocollo;Progressivo;Esito\n"
                         "XXXXXX00A00X000X;18030612345678901;000001;accettata\n"
                         "BDLYSF86M08Z336E;1,80306E+16;1;accettata\n"
                         "BDLYSF86M08Z336E;18030612345678901;1;forse\n";
  const Esecuzione esecuzione = cuctl({"receipt", nome, "--apply"});
  EXPECT_EQ(esecuzione.codice, 1);
  EXPECT_THAT(esecuzione.errori, HasSubstr("riga 2, colonna \"CodiceFiscale\""));
  EXPECT_THAT(esecuzione.errori, HasSubstr("(P12)"));
  EXPECT_THAT(esecuzione.errori, HasSubstr("riga 3, colonna \"Protocollo\""));
  EXPECT_THAT(esecuzione.errori, HasSubstr("(V09)"));
  EXPECT_THAT(esecuzione.errori, HasSubstr("riga 4, colonna \"Esito\""));
  EXPECT_EQ(operazioni().count("attesa"), 0U);
}

TEST_F(VitaInvii, ATableThatIsNoReceiptIsToldApartFromOneThatFitsNothing) {
  crea();
  const std::string nome = in("vuota.csv");
  const std::pair<const char*, const char*> tabelle[] = {
      {"", "Il file è vuoto (F01)."},
      {"CodiceFiscale;Protocollo;Progressivo;Esito\n", "nessuna riga (F01)."},
      {"Nome;Importo\nRossi;12,50\n", "nessuna intestazione è nota"},
      {"%PDF-1.4\n", "(F02)."}};
  for (const auto& [contenuto, detto] : tabelle) {
    std::ofstream(nome, std::ios::binary) << contenuto;
    const Esecuzione esecuzione = cuctl({"receipt", nome});
    EXPECT_EQ(esecuzione.codice, 1) << contenuto;
    EXPECT_THAT(esecuzione.errori, HasSubstr(detto));
    EXPECT_EQ(esecuzione.uscita, "");
  }
}

TEST_F(VitaInvii, TheTraceHasNothingOfWhatIsReadAndFollowed) {
  const std::string file = crea();
  const std::string tabella = ricevuta(file, "18030612345678901", {1});
  const auto traccia = [&] {
    std::ifstream letta(in("trace.sql"), std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(letta)), {});
  };
  const std::string prima = traccia();
  ASSERT_NE(prima, "");
  EXPECT_THAT(prima, Not(HasSubstr("CuInvio")));
  EXPECT_EQ(cuctl({"verify", file}).codice, 0);
  EXPECT_EQ(cuctl({"status", "--year", kAnno}).codice, 0);
  EXPECT_EQ(cuctl({"discard", file}).codice, 1);
  inviata(file);
  applicata(tabella);
  EXPECT_EQ(cuctl({"discard", file, "--yes"}).codice, 1);
  EXPECT_EQ(traccia(), prima);
}

TEST_F(VitaInvii, WithoutTheTablesTheRunIsTheSame) {
  const std::string file = crea();
  std::ifstream primo(file, std::ios::binary);
  const std::string contenuto((std::istreambuf_iterator<char>(primo)), {});
  const auto archivio = posto_.lettore();
  for (const char* tabella : {"CuModulo", "CuCertificazione", "CuInvio"}) {
    archivio->esegui("DROP TABLE " + std::string(tabella));
  }
  const std::string secondo = crea();
  std::ifstream altro(secondo, std::ios::binary);
  EXPECT_EQ(std::string((std::istreambuf_iterator<char>(altro)), {}), contenuto);
  const Esecuzione stato = cuctl({"status", "--year", kAnno});
  EXPECT_EQ(stato.codice, 1);
  EXPECT_THAT(stato.errori, HasSubstr("cuctl upgrade"));
  EXPECT_EQ(posto_.sulDatabase("upgrade").codice, 0);
  EXPECT_EQ(cuctl({"status", "--year", kAnno}).codice, 0);
  EXPECT_THAT(posto_.sulDatabase("upgrade").uscita, HasSubstr("già"));
}

TEST_F(VitaInvii, OnlyAFileThatWasWrittenIsMarkedAsSent) {
  const std::string file = crea();
  std::ofstream(file, std::ios::app | std::ios::binary) << " ";
  const Esecuzione esecuzione = cuctl({"sent", file});
  EXPECT_EQ(esecuzione.codice, 1);
  EXPECT_THAT(esecuzione.errori, HasSubstr("non è fra i file scritti"));
  EXPECT_EQ(cuctl({"sent", in("nessuno.cur")}).codice, 2);
}

TEST_F(VitaInvii, ADayOfSendingThatCannotWellBeTrueIsAWarning) {
  const std::string file = crea();
  const Esecuzione sbagliato = cuctl({"sent", file, "--date", "2001-01-02"});
  EXPECT_EQ(sbagliato.codice, 0);
  EXPECT_THAT(sbagliato.errori,
              StartsWith("Attenzione: Il 02/01/2001 il file non c'era ancora: è stato scritto il "));
  const Esecuzione corretto = cuctl({"sent", file, "--date", "2018-03-06"});
  EXPECT_EQ(corretto.codice, 0);
  EXPECT_THAT(corretto.uscita, HasSubstr("giorno dell'invio corretto, 06/03/2018 invece di 02/01/2001"));
  EXPECT_THAT(cuctl({"sent", file}).uscita, HasSubstr("già segnato come inviato il 06/03/2018."));
}

TEST_F(VitaInvii, AReceiptNamesTheFilesThatItMarksAsSent) {
  const std::string tabella = ricevuta(crea(), "18030612345678901", {});
  EXPECT_THAT(cuctl({"receipt", tabella}).uscita,
              HasSubstr(", 2017): verrebbe segnato anche come inviato.\n"));
  EXPECT_THAT(cuctl({"receipt", tabella, "--apply"}).uscita,
              HasSubstr(", 2017): segnato anche come inviato.\n"));
  EXPECT_THAT(cuctl({"receipt", tabella}).uscita, Not(HasSubstr("come inviato")));
}

TEST_F(VitaInvii, AFreshFileAgreesWithTheAccounts) {
  for (const char* anno : {"2014", "2015", "2016", "2017"}) {
    std::filesystem::create_directories(in("cu"));
    ASSERT_EQ(cuctl({"make", "--year", anno, "--folder", in("cu"), "--yes"}).codice, 0);
    const std::string file = in("cu") + "/CUR_04123450233_" + anno + ".cur";
    const Esecuzione esecuzione = cuctl({"verify", file, "--json"});
    EXPECT_EQ(esecuzione.codice, 0) << anno << esecuzione.uscita.substr(0, 2000);
    EXPECT_EQ(posto_.cuctl({"diff", file, file}).codice, 0);
    for (const json& voce : json::parse(esecuzione.uscita)) EXPECT_EQ(voce.at("state"), "equal");
  }
}

TEST_F(VitaInvii, ACentInTheAccountsIsFound) {
  const std::string file = crea();
  posto_.lettore()->esegui(
      "UPDATE ContoIndividuale SET RitenutaAcconto = RitenutaAcconto + 0.01 WHERE Anno = 2017"
      " AND IDAnagrafica = 101 AND IDCausalePagamento = 1");
  const Esecuzione esecuzione = cuctl({"verify", file, "--json"});
  EXPECT_EQ(esecuzione.codice, 1);
  int diverse = 0;
  for (const json& voce : json::parse(esecuzione.uscita)) {
    if (voce.at("state") == "equal") continue;
    ++diverse;
    EXPECT_EQ(voce.at("state"), "different");
    ASSERT_EQ(voce.at("boxes").size(), 1U);
    EXPECT_EQ(voce.at("boxes").at(0).at("field"), "AU001009");
    EXPECT_EQ(voce.at("boxes").at(0).at("module"), 1);
  }
  EXPECT_EQ(diverse, 1);
}

}  // namespace
}  // namespace cu::test
