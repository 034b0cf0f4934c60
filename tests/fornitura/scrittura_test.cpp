#include "fornitura/scrittura.h"

#include <gmock/gmock.h>

#include "fornitura/carico.h"
#include "fornitura/corsa.h"
#include "fornitura/fornitura_prova.h"
#include "support/cur_reader.h"
#include "telematic/prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Write : public OperazioniProva {
 protected:
  void SetUp() override {
    certificati(2);
    database.internal.answerContaining("FROM ModuloXContoIndividuale", rispostaModuli({}));
    ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
  }
  void certificati(int quanti) {
    database.internal.answerContaining("ORDER BY Anag.Anagrafica",
                                       rispostaPrincipale(certificati2016(quanti)));
  }
  fornitura::RichiestaFile richiesta() const {
    return {.anno = "2016",
            .cartella = "/cu",
            .cartellaDocumenti = "Comunicazioni",
            .firma = *Date::fromYmd(2017, 3, 5),
            .dati = {.UsoIntermediari = false,
                     .CodiceFiscaleAzienda = "01234567890",
                     .CodiceFiscaleIntermediario = "",
                     .TipoComIntermediario = "0",
                     .DataImpegnoIntermediario = Date(),
                     .TipoComunicazione = Comunicazione::Ordinaria}};
  }
  fornitura::RichiestaCU intera() const {
    fornitura::RichiestaCU intera;
    intera.anno = "2016";
    intera.cartella = "/cu";
    intera.cartellaDocumenti = "Comunicazioni";
    intera.modulo = {"Modulo.rpt", 4};
    return intera;
  }
};

TEST_F(Write, TheFileIsNamedByCompanyAndYear) {
  const auto file = fornitura::scrivi(intorno(), compensi, richiesta());
  ASSERT_TRUE(file);
  EXPECT_EQ(file->nome, "CUR_01234567890_2016.cur");
  EXPECT_EQ(file->percorso, "/cu/CUR_01234567890_2016.cur");
  EXPECT_EQ(file->certificazioni, 2U);
  EXPECT_EQ(CurFile(files.files.at(file->percorso)).types(), "ABDHDHZ");
}

TEST_F(Write, WithoutCertificatesThereIsNoFile) {
  certificati(0);
  const auto file = fornitura::scrivi(intorno(), compensi, richiesta());
  ASSERT_TRUE(file);
  EXPECT_EQ(file->certificazioni, 0U);
  EXPECT_THAT(files.files, IsEmpty());
}

TEST_F(Write, AFolderThatDoesNotExistIsRefusedInWords) {
  files.folders.erase("/cu");
  const auto file = fornitura::scrivi(intorno(), compensi, richiesta());
  EXPECT_THAT(codici(file.refusals), ElementsAre("percorso-inesistente @txtPercorsoCU"));
  EXPECT_EQ(file.refusals[0].text, "Attenzione! Il percorso per il salvataggio dei files è inesistente!");
}

TEST_F(Write, AFileThatCannotBeOpenedIsRefusedWithoutAWord) {
  files.failNth(MemoryFileSystem::Operation::Open, 1, 70);
  const auto file = fornitura::scrivi(intorno(), compensi, richiesta());
  EXPECT_THAT(codici(file.refusals), ElementsAre("file-non-scritto @txtPercorsoCU"));
  EXPECT_EQ(file.refusals[0].text, "");
}

TEST_F(Write, AWholeRunLoadsChecksWritesPrintsAndLoadsAgain) {
  const auto esito = fornitura::creaCU(intorno(), compensi, intera());
  ASSERT_TRUE(esito) << esito.refusals.at(0).text;
  ASSERT_TRUE(esito->file.has_value());
  EXPECT_EQ(esito->file->certificazioni, 2U);
  EXPECT_THAT(factory.printing.arguments("report.outputPath"), SizeIs(2));
  const auto testi = eseguite();
  EXPECT_THAT(testi.front(), HasSubstr("drop table"));
  EXPECT_THAT(testi.back(), HasSubstr("INSERT INTO tmpprequadrivio12 SELECT"));
}

TEST_F(Write, AWholeRunStopsAtAYearWithoutAccounts) {
  fornitura::RichiestaCU altra = intera();
  altra.anno = "2012";
  database.internal.sent.clear();
  const auto esito = fornitura::creaCU(intorno(), compensi, altra);
  EXPECT_THAT(codici(esito.refusals), ElementsAre("anno-senza-conti @KRNCboEsCont(0)"));
  EXPECT_EQ(esito.refusals[0].text, "Nessun conto individuale per l'anno 2012.");
  EXPECT_THAT(eseguite(), IsEmpty());
}

TEST_F(Write, AWholeRunStopsAtAWarningThatIsNotPassed) {
  fornitura::RichiestaCU domani = intera();
  domani.firma = Date::fromYmd(2017, 3, 6);
  const auto fermata = fornitura::creaCU(intorno(), compensi, domani);
  EXPECT_FALSE(fermata);
  EXPECT_THAT(codici(fermata.warnings), ElementsAre("firma-futura @dtDataFirma"));
  EXPECT_THAT(files.files, IsEmpty());
  domani.prosegue = [](const Finding&) { return true; };
  EXPECT_TRUE(fornitura::creaCU(intorno(), compensi, domani));
  EXPECT_THAT(files.files, SizeIs(1));
}

TEST_F(Write, AWholeRunWarnsOfBoxesThatRemainBlank) {
  modello = modello::kModelloPubblicato;
  std::vector<Contenuti> righe = certificati2016(1);
  righe[0]["Anno"] = whole(2024);
  righe[0]["NonResidente"] = whole(1);
  database.internal.answerContaining("ORDER BY Anag.Anagrafica", rispostaPrincipale(righe));
  fornitura::RichiestaCU corsa = intera();
  const auto fermata = fornitura::creaCU(intorno(), compensi, corsa);
  EXPECT_THAT(codici(fermata.refusals), ElementsAre("caselle-non-attestate @"));
  EXPECT_THAT(files.files, IsEmpty());
  corsa.prosegue = [](const Finding&) { return true; };
  EXPECT_TRUE(fornitura::creaCU(intorno(), compensi, corsa));
  EXPECT_THAT(files.files, SizeIs(1));
}

TEST_F(Write, AWholeRunStopsWhereDataAreMissing) {
  fornitura::RichiestaCU conIntermediario = intera();
  conIntermediario.intermediario = {"NTRMDR70A01H501U", 1, std::nullopt};
  const auto esito = fornitura::creaCU(intorno(), compensi, conIntermediario);
  EXPECT_THAT(codici(esito.refusals), ElementsAre("dato-mancante @dtDataImpegno"));
  ASSERT_THAT(esito->mancanti, SizeIs(1));
  EXPECT_FALSE(esito->file.has_value());
}

}  // namespace
}  // namespace cu::test
