// Every field of the additional modules, in every layout that has it: from the row shown, and back with
// Salva.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

class ModuleField : public testing::TestWithParam<Caso>, public CampiProva {
 protected:
  const Campo& campo() const { return GetParam().campo; }
  std::pair<Value, std::string> conservato() const {
    switch (campo().tipo) {
      case Tipo::Importo:
        return {amount("1234.5678"), "1234.5678"};
      case Tipo::Testo:
        return {text("RSSMRA70A01H501U"), "RSSMRA70A01H501U"};
      case Tipo::Flag:
        return {whole(-1), "1"};
      case Tipo::Elenco:
        return {whole(2), "2"};
      case Tipo::Numero:
        return {whole(1999), "1999"};
    }
    return {};
  }
  std::string vuoto() const { return campo().tipo == Tipo::Testo ? "" : "0"; }
};

TEST_P(ModuleField, ShowsItsColumnWhenTheRowIsSelected) {
  const auto [valore, atteso] = conservato();
  WorkRow secondo = modulo(8, 3);
  secondo[campo().colonna] = valore;
  moduli({modulo(7, 2), secondo});
  apri(GetParam().anno);
  griglia().selectRow(2);
  EXPECT_EQ(mostrato(campo()), atteso);
  griglia().selectRow(1);
  EXPECT_EQ(mostrato(campo()), std::string(campo().colonna) == "NumeroModulo" ? "2" : vuoto());
}

TEST_P(ModuleField, ShowsNothingOfTheOtherColumns) {
  WorkRow pieno = moduloPieno(7, 2);
  pieno[campo().colonna] = campo().tipo == Tipo::Flag ? whole(0) : null();
  moduli({pieno});
  apri(GetParam().anno);
  EXPECT_EQ(mostrato(campo()), vuoto());
}

TEST_P(ModuleField, GoesToItsColumnAndToNoOtherAtSave) {
  moduli({moduloPieno(7, 2)});
  apri(GetParam().anno);
  const Righe prima = fotografia(righeModuli());
  const std::string nuovo = cambia(campo()) == "9" && std::string(campo().controllo) == "numAnno"
                                ? (c<NumberBox>("numAnno").enter("1999"), "1999")
                                : mostrato(campo());
  premi("cmdSave");
  EXPECT_TRUE(frontEnd.boxes.empty());
  EXPECT_EQ(differenze(prima, fotografia(righeModuli())), (Righe{{campo().colonna, nuovo}}));
  EXPECT_EQ(mostrato(campo()), nuovo);
  EXPECT_TRUE(istruzioni().empty());
}

TEST_P(ModuleField, IsClearedByNew) {
  moduli({moduloPieno(7, 2)});
  apri(GetParam().anno);
  premi("cmdNew");
  EXPECT_EQ(mostrato(campo()), std::string(campo().controllo) == "numModulo" ? "3" : vuoto());
  if (campo().tipo == Tipo::Importo || std::string(campo().controllo) == "numAnno") {
    EXPECT_EQ(c<EditBox>(campo().controllo).text(), "");
  }
}

TEST_P(ModuleField, NotSavedIsLostWhenAnotherRowIsSelected) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(GetParam().anno);
  const std::string prima = mostrato(campo());
  cambia(campo());
  griglia().selectRow(2);
  griglia().selectRow(1);
  EXPECT_EQ(mostrato(campo()), prima);
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_TRUE(istruzioni().empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ModuleField, testing::ValuesIn(casi(tavolaModuli())), NomeCaso());

struct ModuleFields : testing::Test, CampiProva {};

TEST_F(ModuleFields, TheColumnsWithoutAControlKeepWhatTheyHold) {
  for (const int anno : kAnni) {
    moduli({moduloPieno(7, 2)});
    apri(anno);
    const Righe prima = fotografia(righeModuli());
    importo(18).enter("1");
    premi("cmdSave");
    const Righe dopo = fotografia(righeModuli());
    EXPECT_EQ(differenze(prima, dopo), (Righe{{"ImponibileAnniPrec", "1"}})) << anno;
    EXPECT_EQ(dopo.at("CodiceFiscaleLavoroAutonomo"), prima.at("CodiceFiscaleLavoroAutonomo"));
  }
}

TEST_F(ModuleFields, OfANewModuleAreAllStoredAtSave) {
  for (const int anno : kAnni) {
    apri(anno);
    for (const Campo& campo : tavolaModuli()) {
      if (campo.nel(anno)) cambia(campo);
    }
    c<NumberBox>("numAnno").enter("2000");
    premi("cmdSave");
    const Righe righe = fotografia(righeModuli());
    for (const Campo& campo : tavolaModuli()) {
      if (!campo.nel(anno)) {
        EXPECT_EQ(righe.at(campo.colonna), "NULL") << anno << campo.colonna;
        continue;
      }
      std::string atteso = mostrato(campo);
      EXPECT_NE(atteso, campo.tipo == Tipo::Testo ? "" : "0") << campo.controllo;
      EXPECT_EQ(righe.at(campo.colonna), atteso) << anno << campo.colonna;
    }
    EXPECT_EQ(righe.at("IDModuloXContoIndividuale"), "-1");
    EXPECT_EQ(righe.at("CodiceFiscaleLavoroAutonomo"), "NULL");
  }
}

}  // namespace
}  // namespace cu::test
