#include "intake/esporta.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The table as a text, as it is written to a file.
std::string csv(const Esportazione& esportazione) {
  std::string testo;
  for (const Colonna& colonna : colonne(esportazione.elenco)) testo += std::string(colonna.nome) + ";";
  testo += "\n";
  for (const std::vector<Value>& riga : esportazione.righe) {
    for (const Value& valore : riga) {
      const CellView cella = valore.view();
      const std::string scritto = valore.type() == ValueType::Date ? cella.date().toIso() : cella.toText();
      testo += '"';
      for (const char c : scritto) testo += c == '"' ? std::string("\"\"") : std::string(1, c);
      testo += "\";";
    }
    testo += "\n";
  }
  return testo;
}

// The accounts by payee and reason: ids differ from database to database.
std::vector<std::string> conti(Connection& connessione) {
  const test::Righe righe(
      connessione,
      "SELECT Conto.CodicePercipiente, Conto.Codice, Conto.Anno, Conto.OnorarioProvvigioni,"
      " Conto.QuotaProvvigioniNonSoggette, Conto.SommeNonSoggette, Conto.SommeNonSoggetteRegConv,"
      " Conto.RitenutaAcconto, Conto.RitenutaImposta, Conto.ContributoPrevidenziale,"
      " Conto.RitenutaPrevidenziale13, Conto.CodicePerNonSoggetti, Conto.CodiceFiscale,"
      " Conto.Anagrafica, Conto.Nome, Conto.CUCodiceFiscale, Conto.CUCodiceEntePrevidenziale,"
      " Conto.CUCodiceCategoriaEntePrevidenziale, Conto.NonResidente"
      " FROM RepContoIndividuale Conto WHERE EXISTS (SELECT * FROM Compenso C"
      " WHERE C.IDAnagrafica = Conto.IDAnagrafica AND C.IDCausalePagamento = Conto.IDCausalePagamento"
      " AND Year(C.DataPagamento) = Conto.Anno)"
      " ORDER BY Conto.CodicePercipiente, Conto.Codice, Conto.Anno");
  std::vector<std::string> testi;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    std::string testo;
    for (const std::string& colonna : righe.names()) testo += righe.text(i, colonna) + "|";
    testi.push_back(testo);
  }
  return testi;
}

void andataERitorno(ContenutoArchivio contenuto) {
  Banco origine(contenuto);
  Banco nuova;
  ASSERT_THAT(nuova.importa(Elenco::Aziende, csv(esportaAziende(*origine, 1)), "a.csv"), IsEmpty());
  ASSERT_THAT(nuova.importa(Elenco::Percipienti, csv(esportaPercipienti(*origine, 1)), "p.csv"), IsEmpty());
  const Esportazione compensi = esportaCompensi(*origine, 1, std::nullopt);
  ASSERT_THAT(nuova.importa(Elenco::Compensi, csv(compensi), "c.csv"), IsEmpty());
  EXPECT_EQ(nuova.quante("Compenso"), origine.quante("Compenso"));
  EXPECT_EQ(conti(*nuova), conti(*origine));
  EXPECT_GT(conti(*nuova).size(), 100U);
  // What was imported is exported alike, and imported again it is equal.
  EXPECT_EQ(csv(esportaPercipienti(*nuova, 1)), csv(esportaPercipienti(*origine, 1)));
  EXPECT_EQ(csv(esportaAziende(*nuova, 1)), csv(esportaAziende(*origine, 1)));
  EXPECT_FALSE(nuova.piano(Elenco::Percipienti, csv(esportaPercipienti(*origine, 1))).scrive());
  EXPECT_FALSE(nuova.piano(Elenco::Compensi, csv(compensi)).scrive());
}

TEST(Esporta, TheDemonstrationCompanyComesBackWithTheSameAccounts) {
  andataERitorno(ContenutoArchivio::Dimostrativo);
}

TEST(Esporta, ASyntheticCompanyComesBackWithTheSameAccounts) { andataERitorno(ContenutoArchivio::Sintetico); }

TEST(Esporta, CodesOfACompanysOwnListsComeBack) {
  Banco origine{prova::riempito()};
  origine->Execute(
      "INSERT INTO EventoEccezionale (IDEventoEccezionale, CodiceEventoEccezionale) VALUES (50, '9')");
  origine->Execute(
      "INSERT INTO CategoriaParticolare (IDCategoriaParticolare, CodiceCategoriaParticolare) VALUES (51, "
      "'W9')");
  origine->Execute(
      "UPDATE Percipiente SET IDEventoEccezionale = 50, IDCategoriaParticolare = 51 WHERE Codice = 'P1'");
  origine->Execute("UPDATE ConfigurazioneCompensiATerzi SET IDEventoEccezionale = 50");
  Banco nuova;
  const std::string aziende = csv(esportaAziende(*origine, 1));
  const std::string percipienti = csv(esportaPercipienti(*origine, 1));
  ASSERT_THAT(nuova.importa(Elenco::Aziende, aziende, "a.csv"), IsEmpty());
  ASSERT_THAT(nuova.importa(Elenco::Percipienti, percipienti, "p.csv"), IsEmpty());
  EXPECT_EQ(csv(esportaAziende(*nuova, 1)), aziende);
  EXPECT_EQ(csv(esportaPercipienti(*nuova, 1)), percipienti);
  EXPECT_EQ(nuova.uno("SELECT COUNT(*) FROM EventoEccezionale WHERE CodiceEventoEccezionale = '9'"), "1");
  EXPECT_EQ(nuova.uno("SELECT COUNT(*) FROM Percipiente INNER JOIN CategoriaParticolare ON"
                      " Percipiente.IDCategoriaParticolare = CategoriaParticolare.IDCategoriaParticolare"
                      " WHERE CodiceCategoriaParticolare = 'W9'"),
            "1");
  EXPECT_FALSE(nuova.piano(Elenco::Aziende, aziende).scrive());
  EXPECT_FALSE(nuova.piano(Elenco::Percipienti, percipienti).scrive());
}

TEST(Esporta, ADocumentThatIsThereTwiceComesBackTwice) {
  Banco origine{prova::riempito()};
  for (const char* valori : {"11, '20170320', '1/2017', 1000", "12, '20170320', '1/2017', 600"}) {
    origine->Execute(
        std::string("INSERT INTO Compenso (IDAzienda, IDAnagrafica, IDCausalePagamento, IDCompenso,"
                    " DataPagamento, NumeroDocumento, OnorarioProvvigioni) SELECT 1, IDAnagrafica, 1, ") +
        valori + " FROM Percipiente WHERE Codice = 'P1'");
  }
  const std::string compensi = csv(esportaCompensi(*origine, 1, std::nullopt));
  EXPECT_EQ(csv(esportaCompensi(*origine, 1, 2017)),
            compensi.substr(0, compensi.find("\"P2\"")) +
                compensi.substr(compensi.find("\n", compensi.find("\"P2\"")) + 1))
      << "references do not depend on the year";
  EXPECT_EQ(Banco::stati(origine.piano(Elenco::Compensi, compensi)), "uguale uguale uguale uguale uguale");
  Banco nuova;
  ASSERT_THAT(nuova.importa(Elenco::Aziende, csv(esportaAziende(*origine, 1)), "a.csv"), IsEmpty());
  ASSERT_THAT(nuova.importa(Elenco::Percipienti, csv(esportaPercipienti(*origine, 1)), "p.csv"), IsEmpty());
  ASSERT_THAT(nuova.importa(Elenco::Compensi, compensi, "c.csv"), IsEmpty());
  EXPECT_EQ(nuova.quante("Compenso"), 5);
  EXPECT_EQ(nuova.uno("SELECT SUM(OnorarioProvvigioni) FROM Compenso"), "3400");
  EXPECT_EQ(csv(esportaCompensi(*nuova, 1, std::nullopt)), compensi);
  EXPECT_FALSE(nuova.piano(Elenco::Compensi, compensi).scrive());
}

TEST(Esporta, AmountsOfZeroAreWritten) {
  Banco suo{prova::riempito()};
  const std::string compensi = csv(esportaCompensi(*suo, 1, std::nullopt));
  suo->Execute("UPDATE Compenso SET QuotaProvvigioniNonSoggette = 5 WHERE IDCompenso = 1");
  EXPECT_EQ(Banco::stati(suo.piano(Elenco::Compensi, compensi)), "diverso uguale uguale");
}

TEST(Esporta, WhatHasNoPlaceInTheTablesIsListed) {
  Banco demo(ContenutoArchivio::Dimostrativo);
  const Esportazione compensi = esportaCompensi(*demo, 1, 2014);
  ASSERT_EQ(compensi.tralasciati.size(), 3U);
  EXPECT_THAT(compensi.tralasciati[0], ::testing::HasSubstr("conti senza compensi"));
  EXPECT_THAT(compensi.tralasciati[1], ::testing::HasSubstr("dati aggiuntivi"));
  EXPECT_THAT(compensi.tralasciati[2], ::testing::HasSubstr("moduli aggiuntivi"));
}

TEST(Esporta, AnAccountCorrectedByHandIsListed) {
  Banco suo{prova::riempito()};
  EXPECT_THAT(esportaCompensi(*suo, 1, std::nullopt).tralasciati, IsEmpty());
  suo->Execute("UPDATE ContoIndividuale SET RitenutaAcconto = 299 WHERE Anno = 2017");
  EXPECT_THAT(esportaCompensi(*suo, 1, std::nullopt).tralasciati,
              ElementsAre("1 conto corretto a mano, del quale restano i compensi"));
  EXPECT_THAT(esportaCompensi(*suo, 1, 2016).tralasciati, IsEmpty());
}

TEST(Esporta, ACodeOfSumsNotSubjectIsNotLeftOut) {
  Banco suo{prova::riempito()};
  ASSERT_THAT(
      suo.importa(Elenco::Compensi,
                  "CodicePercipiente;Causale;DataPagamento;Onorario;SommeNonSoggette;CodiceNonSoggette\n"
                  "P1;M;2017-11-20;70;10;7\n"),
      IsEmpty());
  ASSERT_EQ(suo.quante("ContoIndividualeDatiAggiuntivi"), 1);
  EXPECT_THAT(esportaCompensi(*suo, 1, std::nullopt).tralasciati, IsEmpty());
}

TEST(Esporta, ACompanyIsFoundByItsCodesAndItsId) {
  Banco demo(ContenutoArchivio::Dimostrativo);
  EXPECT_EQ(cercaAzienda(*demo, "04123450233"), 1);
  EXPECT_EQ(cercaAzienda(*demo, "1"), 1);
  EXPECT_EQ(cercaAzienda(*demo, "2"), std::nullopt);
}

}  // namespace
}  // namespace cu::intake
