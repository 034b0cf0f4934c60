// The texts of the form.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

struct Didascalia {
  const char* controllo;
  const char* testo;
};
std::string nomeDidascalia(const testing::TestParamInfo<Didascalia>& info) {
  return nomeDi(info.param.controllo);
}

class OldestCaption : public testing::TestWithParam<Didascalia>, public CampiProva {};

TEST_P(OldestCaption, IsAsAlways) {
  apri(2014);
  EXPECT_EQ(editor->find(GetParam().controllo)->caption(), GetParam().testo);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Fields, OldestCaption, testing::Values(
    Didascalia{"curField(10)", "Ammontare lordo"},
    Didascalia{"curField(11)", "Somme regime convenzionale"},
    Didascalia{"cboCodicePerNonSoggetti", "Codice per non soggetti"},
    Didascalia{"curField(12)", "Somme non soggette a ritenuta"},
    Didascalia{"curField(22)", "Imponibile non soggetto"},
    Didascalia{"curField(19)", "Imponibile"},
    Didascalia{"curField(20)", "Ritenute d'acconto"},
    Didascalia{"curField(0)", "Ritenute d'imposta"},
    Didascalia{"curField(1)", "Ritenute sospese"},
    Didascalia{"curField(2)", "Add. Region. d'acconto"},
    Didascalia{"curField(3)", "Add. Region. d'imposta"},
    Didascalia{"curField(4)", "Add. Region. sospesa"},
    Didascalia{"curField(5)", "Add. Comun. d'acconto"},
    Didascalia{"curField(6)", "Add. Comun. d'imposta"},
    Didascalia{"curField(7)", "Add. Comun. sospesa"},
    Didascalia{"curField(8)", "Imponibile anni precedenti"},
    Didascalia{"curField(9)", "Ritenute anni precedenti"},
    Didascalia{"curField(13)", "Contributi carico azienda"},
    Didascalia{"curField(14)", "Contributi carico percipiente"},
    Didascalia{"curField(15)", "Spese rimborsate"},
    Didascalia{"curField(16)", "Ritenute rimborsate"},
    Didascalia{"numModulo", "Numero modulo"},
    Didascalia{"numAnno", "Anno"},
    Didascalia{"curField(17)", "Somme non soggette a ritenuta"},
    Didascalia{"curField(18)", "Imponibile anni precedenti"},
    Didascalia{"curField(21)", "Ritenute anni precedenti"},
    Didascalia{"lblField(3)", "Add. Region. d'acconto"},
    Didascalia{"lblField(4)", "Add. Region. d'imposta"},
    Didascalia{"lblField(5)", "Add. Region. sospesa"},
    Didascalia{"lblField(6)", "Add. Comun. d'acconto"},
    Didascalia{"lblField(7)", "Add. Comun. d'imposta"},
    Didascalia{"lblField(8)", "Add. Comun. sospesa"},
    Didascalia{"lblSommeNonSoggette", "Somme non soggette a ritenuta"},
    Didascalia{"lblSpeseRimb", "Spese rimborsate"},
    Didascalia{"cmdOk", "OK"},
    Didascalia{"cmdAnnulla", "Annulla"},
    Didascalia{"cmdNew", "N&uovo"},
    Didascalia{"cmdSave", "Sa&lva"},
    Didascalia{"cmdDelete", "&Elimina"}), nomeDidascalia);
// clang-format on

class Caption : public testing::TestWithParam<Didascalia>, public CampiProva {};

TEST_P(Caption, IsAsAlways) {
  for (const int anno : {2015, 2016}) {
    apri(anno);
    EXPECT_EQ(editor->find(GetParam().controllo)->caption(), GetParam().testo) << anno;
  }
}
INSTANTIATE_TEST_SUITE_P(
    Controls, Caption,
    testing::Values(Didascalia{"curField(12)", "7.a Altre somme non soggette a ritenuta"},
                    Didascalia{"curField(22)", "7.b Quote provvigioni non soggette"},
                    Didascalia{"cmdOk", "OK"}, Didascalia{"cmdAnnulla", "Annulla"},
                    Didascalia{"cmdDatiAggiuntivi", "&Dati aggiuntivi"}, Didascalia{"cmdNew", "N&uovo"},
                    Didascalia{"cmdSave", "Sa&lva"}, Didascalia{"cmdDelete", "&Elimina"},
                    Didascalia{"lblIstruzioniMinisteriali", "Istruzioni ministeriali"},
                    Didascalia{"lblNoteCompilazione", "Note di compilazione"}),
    nomeDidascalia);

// From the form of 2016 on the captions contain the field's number.
class NumberedField : public testing::TestWithParam<Caso>, public CampiProva {};

TEST_P(NumberedField, BearsItsNumberInTheMinisterialForm) {
  apri(GetParam().anno);
  const std::string campo = GetParam().campo.campo;
  EXPECT_EQ(editor->find(GetParam().campo.controllo)->caption().substr(0, campo.size() + 1), campo + " ");
}

std::vector<Caso> numerati() {
  std::vector<Caso> tutti =
      insieme(casi(tavolaModulo1()), insieme(casi(tavolaModuli()), casi(tavolaIntestazione())));
  std::erase_if(tutti, [](const Caso& caso) { return caso.anno == 2014 || *caso.campo.campo == '\0'; });
  return tutti;
}
INSTANTIATE_TEST_SUITE_P(Rows, NumberedField, testing::ValuesIn(numerati()), NomeCaso());

struct Forms : testing::Test, CampiProva {};

TEST_F(Forms, HaveTheCaptionOfTheCertificate) {
  for (const int anno : kAnni) EXPECT_EQ(apri(anno).caption(), "Certificazione compensi") << anno;
}

TEST_F(Forms, AreChosenByTheYear) {
  const std::pair<int, const char*> attesi[] = {{2013, "frmCompenso2017"}, {2014, "frmCompenso"},
                                                {2015, "frmCompenso2016"}, {2016, "frmCompenso2017"},
                                                {2017, "frmCompenso2017"}, {2018, "frmCompenso2017"},
                                                {0, "frmCompenso2017"}};
  for (const auto& [anno, nome] : attesi) EXPECT_EQ(apri(anno).name(), nome) << anno;
}

// Every later year, and any before 2014, has the fields and rules of the newest layout.
TEST_F(Forms, AYearBeforeAndYearsAfterHaveTheNewestLayout) {
  for (const int anno : {2013, 2017, 2018}) {
    apri(anno, rigaPiena());
    for (const auto* tavola : {&tavolaModulo1(), &tavolaModuli(), &tavolaIntestazione()}) {
      for (const Campo& campo : *tavola) {
        EXPECT_EQ(esiste(campo.controllo), campo.nel(2016)) << anno << campo.controllo;
      }
    }
    EXPECT_TRUE(esiste("cmdDatiAggiuntivi")) << anno;
    EXPECT_FALSE(esiste("stbMain")) << anno;
  }
}

TEST_F(Forms, HaveWhatTheirLayoutAsksFor) {
  apri(2014);
  for (const char* nome : {"stbMain", "txtProtocollo", "txtProgressivo", "TownComuneResidenzaAnnoPrec",
                           "TownComuneResidenzaAnnoCorr"}) {
    EXPECT_TRUE(esiste(nome)) << nome;
  }
  for (const char* nome : {"cmdDatiAggiuntivi", "cmdModulo1", "cmdAltriModuli", "picModulo1",
                           "lblIstruzioniMinisteriali", "lblNoteCompilazione"}) {
    EXPECT_FALSE(esiste(nome)) << nome;
  }
  EXPECT_EQ(editor->scroll(), nullptr);
  for (const int anno : {2015, 2016}) {
    apri(anno);
    for (const char* nome : {"stbMain", "txtProtocollo", "txtProgressivo", "TownComuneResidenzaAnnoPrec",
                             "TownComuneResidenzaAnnoCorr"}) {
      EXPECT_FALSE(esiste(nome)) << nome;
    }
    for (const char* nome : {"cmdDatiAggiuntivi", "cmdModulo1", "cmdAltriModuli", "picModulo1",
                             "picAltriModuli", "fraAltriModuli", "grdAltriModuli"}) {
      EXPECT_TRUE(esiste(nome)) << nome;
    }
    EXPECT_NE(editor->scroll(), nullptr);
  }
}

TEST_F(Forms, TellTheUtilitiesOfTheirLoadAndUnload) {
  for (const int anno : kAnni) {
    utilita.prepared.clear();
    utilita.released.clear();
    const std::string nome = apri(anno).name();
    EXPECT_EQ(utilita.prepared, std::vector<std::string>{nome});
    EXPECT_TRUE(utilita.released.empty());
    premi("cmdAnnulla");
    EXPECT_EQ(utilita.released, std::vector<std::string>{nome});
  }
}

}  // namespace
}  // namespace cu::test
