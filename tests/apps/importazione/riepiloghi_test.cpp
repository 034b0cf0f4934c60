#include "apps/importazione/riepiloghi.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/importazione/assistente.h"
#include "apps/importazione/posto_importazione.h"
#include "apps/importazione/righe_errate.h"
#include "intake/corrispondenza.h"
#include "tabelle/lettura.h"
#include "tabelle/scrittura.h"

namespace cu {
namespace {

using intake::Codice;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kMisti =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto;Note\n"
    "P001;A;20/03/2018;1/2018;1000,00;200,00;x\n"
    "P001;A;22/03/2018;3/2018;100,00;20,00;\n"
    "P002;B;21/12/2017;2/2018;500,00;90,00;\n"
    "P999;A;21/03/2018;4/2018;77,00;;\n"
    "P001;A;31/02/2018;5/2018;\"1,00\";;dice \"no\"\n";

class Riepiloghi : public testing::Test {
 protected:
  Riepiloghi() : assistente_(posto.ambiente()) {
    assistente_.aggiungi({posto.file("misti.csv", kMisti)});
    test::finoAllaProva(assistente_);
  }
  const intake::Piano& piano() const { return *assistente_.piano(); }
  const test::PostoImportazione posto;
  Assistente assistente_;
};

TEST_F(Riepiloghi, SumTheAccountsOfAYearAndAReason) {
  const auto somme = sommePerAnnoECausale(piano());
  ASSERT_EQ(somme.size(), 2U);
  EXPECT_EQ(somme[0].anno, 2017);
  EXPECT_EQ(somme[0].causale, "B");
  EXPECT_EQ(somme[1].causale, "A");
  EXPECT_EQ(somme[1].conti, 1U);
  EXPECT_EQ(somme[1].compensi, 2U);
  EXPECT_EQ(somme[1].prima[0].toText(), "0");
  EXPECT_EQ(somme[1].dopo[0].toText(), "1100");
  EXPECT_EQ(ritenute(somme[1].dopo).toText(), "220");
}

TEST_F(Riepiloghi, CountTheWarningsOfAKind) {
  const auto avvisi = avvisiPerCodice(piano());
  ASSERT_EQ(avvisi.size(), 2U);
  EXPECT_EQ(avvisi[0].codice, Codice::C03);
  EXPECT_EQ(avvisi[1].codice, Codice::R01);
  EXPECT_EQ(avvisi[1].quanti, 1U);
  EXPECT_THAT(avvisi[1].primo, HasSubstr("misti.csv, riga 4"));
  EXPECT_FALSE(avvisi[1].accettati);
  assistente_.accetta(Codice::R01, true);
  EXPECT_TRUE(avvisiPerCodice(piano())[1].accettati);
}

TEST_F(Riepiloghi, ListThePayeesThatRowsMeanUnknownOnesFirst) {
  const auto soggetti = soggettiDelPiano(piano());
  ASSERT_EQ(soggetti.size(), 4U);
  EXPECT_EQ(soggetti[0].stato, SoggettoPiano::Stato::Assente);
  EXPECT_EQ(soggetti[0].chiave, "P999");
  EXPECT_EQ(soggetti[1].stato, SoggettoPiano::Stato::NonCercato);
  EXPECT_EQ(soggetti[2].chiave, "P001");
  EXPECT_EQ(soggetti[2].nome, "Rossi Marco");
  EXPECT_THAT(soggetti[2].righe, ElementsAre(0U, 1U));
  EXPECT_EQ(soggetti[2].lordo->toText(), "1100");
}

TEST_F(Riepiloghi, GiveTheRowsWithErrorsBackWithTheirColumns) {
  EXPECT_THAT(fileConRigheErrate(piano()), ElementsAre(0U));
  const auto errate = righeErrate(piano(), 0, *assistente_.file().front().tabella);
  ASSERT_EQ(errate.righe.size(), 2U);
  EXPECT_EQ(errate.colonne.back(), "Errore");
  EXPECT_THAT(errate.righe[0].back().view().text(), HasSubstr("(P12)"));
  EXPECT_THAT(errate.righe[1].back().view().text(), HasSubstr("DataPagamento: "));
  const std::string csv = tabelle::scriviCsv(errate);
  EXPECT_THAT(csv, HasSubstr("P001;A;31/02/2018;5/2018;\"1,00\";;\"dice \"\"no\"\"\";"));
}

TEST_F(Riepiloghi, TheRowsWithErrorsCanBeReadAgainWithTheirColumn) {
  const auto errate = righeErrate(piano(), 0, *assistente_.file().front().tabella);
  const std::string byte = tabelle::scriviCsv(errate);
  const tabelle::Tabella tabella = tabelle::leggiTabella(byte, "errori.csv", {});
  const intake::Corrispondenza trovate = intake::abbina(tabella, intake::Elenco::Compensi, {});
  for (const intake::Messaggio& uno : trovate.messaggi) EXPECT_NE(uno.colonna, "Errore") << uno.testo;
}

TEST(RiepiloghiDiErrori, NamesThePayeeOfARowWithErrorsWhereItIsKnown) {
  const test::PostoImportazione posto;
  Assistente assistente(posto.ambiente());
  assistente.aggiungi({posto.file(
      "f.csv",
      "CodicePercipiente;Causale;DataPagamento;Onorario\nP001;A;20/03/2018;x\nP999;A;20/03/2018;x\n")});
  test::finoAllaProva(assistente);
  const auto soggetti = soggettiDelPiano(*assistente.piano());
  ASSERT_EQ(soggetti.size(), 2U);
  EXPECT_EQ(soggetti[0].chiave, "P001");
  EXPECT_FALSE(soggetti[0].nome.empty());
  EXPECT_EQ(soggetti[1].nome, "");
}

TEST_F(Riepiloghi, ShowRowsAsTextsThatCanBeSorted) {
  ASSERT_EQ(assistente_.righe()->size(), 5U);
  EXPECT_THAT((*assistente_.righe())[0].celle,
              ElementsAre("P001", "A", "2018-03-20", "1/2018", "1000", "", "200"));
  EXPECT_THAT((*assistente_.righe())[3].messaggi, HasSubstr("(P12)"));
  EXPECT_THAT(messaggiGenerali(piano()), IsEmpty());
  EXPECT_EQ(dettoStato(intake::StatoRiga::DaDecidere), "? da decidere");
}

TEST_F(Riepiloghi, TakeACandidateForAllRowsOfAPayee) {
  posto.esegui("UPDATE Percipiente SET Codice = 'P001' WHERE Codice = 'P003'");
  assistente_.ripetiPiano();
  test::svolgi(assistente_);
  const auto soggetti = soggettiDelPiano(piano());
  EXPECT_EQ(soggetti[0].stato, SoggettoPiano::Stato::DaScegliere);
  ASSERT_EQ(soggetti[0].candidati.size(), 2U);
  const std::int32_t scelto = soggetti[0].candidati[1].id;
  assistente_.decidi(soggetti[0].righe, [&](intake::Decisione& d) { d.idAnagrafica = scelto; });
  test::svolgi(assistente_);
  EXPECT_EQ(piano().quante(intake::StatoRiga::DaDecidere), 0U);
  EXPECT_EQ(soggettiDelPiano(piano())[2].nome, "Dell'Orto Giulia");
}

}  // namespace
}  // namespace cu
