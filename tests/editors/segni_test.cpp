// The marks set by a change: on the row, on the module, or none.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

enum class Segno { Riga, Modulo, Niente };

// The amounts and texts whose change marks the module, by index; any other amount marks the row, any other
// text nothing.
const std::set<int> kImportiDelModulo = {17, 18, 21, 50, 51, 52, 53, 66, 67, 69, 70, 71, 74, 75, 76, 77, 78,
                                         79, 80, 81, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91, 92, 93, 94, 95};
const std::set<int> kTestiDelModulo = {12, 13, 14, 18, 19, 20, 22, 23};
const int kTestoDelModuloSolo2015 = 21;
const std::map<std::string, Segno> kAltri = {
    {"cboCodicePerNonSoggetti", Segno::Riga},
    {"cboCodicePerNonSoggettiAltri", Segno::Modulo},
    {"numAnno", Segno::Modulo},
    {"numModulo", Segno::Modulo},
    {"chkAnticipazioneAltri", Segno::Modulo},
    {"chkAltriContributiAltriModuli", Segno::Modulo},
    {"chkRitenuteNonOperate1AltriModuli", Segno::Modulo},
    {"chkRitenuteNonOperate2AltriModuli", Segno::Modulo},
    {"chkAnticipazione", Segno::Niente},
    {"chkAltriContributi", Segno::Niente},
    {"chkRitenuteNonOperate1", Segno::Niente},
    {"chkRitenuteNonOperate2", Segno::Niente},
};

Segno atteso(const Caso& caso) {
  const int n = indice(caso.campo.controllo);
  switch (caso.campo.tipo) {
    case Tipo::Importo:
      return kImportiDelModulo.contains(n) ? Segno::Modulo : Segno::Riga;
    case Tipo::Testo:
      return kTestiDelModulo.contains(n) || (caso.anno == 2015 && n == kTestoDelModuloSolo2015)
                 ? Segno::Modulo
                 : Segno::Niente;
    case Tipo::Flag:
    case Tipo::Elenco:
    case Tipo::Numero:
      return kAltri.at(caso.campo.controllo);
  }
  return Segno::Niente;
}

class Mark : public testing::TestWithParam<Caso>, public CampiProva {
 protected:
  void SetUp() override {
    moduli({modulo(7, 2)});
    apri(GetParam().anno, {{"Codice", text("N")}});
  }
  void cambiaComeSiPuo() {
    const Campo& campo = GetParam().campo;
    if (campo.tipo == Tipo::Testo && c<TextBox>(campo.controllo).locked()) {
      c<TextBox>(campo.controllo).setText("altro");
    } else {
      cambia(campo);
    }
  }
};

TEST_P(Mark, OfAChange) {
  ASSERT_FALSE(salvaAcceso());
  cambiaComeSiPuo();
  EXPECT_EQ(salvaAcceso(), atteso(GetParam()) == Segno::Modulo);
  premi("cmdOk");
  ASSERT_TRUE(editor->OK());
  EXPECT_EQ(modificata(), atteso(GetParam()) == Segno::Riga);
}

TEST_P(Mark, IsNotMadeByTheOpening) {
  EXPECT_FALSE(salvaAcceso());
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_FALSE(modificata());
}

INSTANTIATE_TEST_SUITE_P(Rows, Mark,
                         testing::ValuesIn(insieme(casi(tavolaModulo1()),
                                                   insieme(casi(tavolaModuli()),
                                                           casi(tavolaIntestazione())))),
                         NomeCaso());

struct Marks : testing::Test, CampiProva {};

TEST_F(Marks, AFullRowIsOpenedWithoutOne) {
  for (const int anno : kAnni) {
    moduli({moduloPieno(7, 2), moduloPieno(8, 3)});
    apri(anno, rigaPiena());
    const Righe prima = fotografia(riga);
    EXPECT_FALSE(salvaAcceso()) << anno;
    premi("cmdOk");
    EXPECT_TRUE(differenze(prima, fotografia(riga)).empty()) << anno;
    EXPECT_TRUE(istruzioni().empty()) << anno;
  }
}

TEST_F(Marks, TickingOnlyTheAdvanceWritesNothingToTheRow) {
  apri(2016, {{"Anticipazione", whole(0)}, {"Modificato", whole(-1)}});
  const Righe prima = fotografia(riga);
  c<Check>("chkAnticipazione").click();
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
}

TEST_F(Marks, ChangingOnlyTheSumsNotTaxedEnablesSaveAndDoesNotMarkTheRow) {
  moduli({modulo(7, 2)});
  apri(2016);
  importo(50).enter("10");
  EXPECT_TRUE(salvaAcceso());
  premi("cmdOk");
  EXPECT_FALSE(modificata());
  EXPECT_EQ(riga.Get("PignoramentoTerziSommeNonTassate1").toText(), "0");
}

TEST_F(Marks, AFiscalCodeReachesTheRowTogetherWithAnAmount) {
  apri(2016);
  testo(6).enter("RSSMRA70A01H501U");
  c<Check>("chkAnticipazione").click();
  importo(9).enter("1");
  premi("cmdOk");
  EXPECT_EQ(riga.Get("CodiceFiscaleLavoroAutonomo").toText(), "RSSMRA70A01H501U");
  EXPECT_EQ(riga.Get("Anticipazione").toText(), "1");
}

TEST_F(Marks, TheOldestLayoutMarksTheRowByReferencesAndMunicipalitiesToo) {
  const std::vector<std::pair<const char*, std::function<void()>>> cambi = {
      {"txtProtocollo", [&] { c<TextBox>("txtProtocollo").enter("5"); }},
      {"txtProgressivo", [&] { c<TextBox>("txtProgressivo").enter("5"); }},
      {"TownComuneResidenzaAnnoPrec", [&] { c<Picker>("TownComuneResidenzaAnnoPrec").setRecord(58); }},
      {"TownComuneResidenzaAnnoCorr", [&] { c<Picker>("TownComuneResidenzaAnnoCorr").setRecord(58); }},
  };
  for (const auto& [nome, cambio] : cambi) {
    apri(2014, {{"ProtocolloAnnSost", text("1")}, {"ProgressivoAnnSost", text("1")}}, 3);
    cambio();
    premi("cmdOk");
    EXPECT_TRUE(modificata()) << nome;
    EXPECT_FALSE(salvaAcceso()) << nome;
  }
}

}  // namespace
}  // namespace cu::test
