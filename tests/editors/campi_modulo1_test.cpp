// Every field of module 1, in every layout that has it: from the column into the control and back.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

class Modulo1Field : public testing::TestWithParam<Caso>, public CampiProva {
 protected:
  const Campo& campo() const { return GetParam().campo; }
  // A stored value, and the control's representation of it.
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
        return {whole(3), "3"};
    }
    return {};
  }
  std::string vuoto() const { return campo().tipo == Tipo::Testo ? "" : "0"; }
};

TEST_P(Modulo1Field, ShowsItsColumn) {
  const auto [valore, atteso] = conservato();
  apri(GetParam().anno, {{"Codice", text("N")}, {campo().colonna, valore}});
  EXPECT_EQ(mostrato(campo()), atteso);
}

TEST_P(Modulo1Field, ShowsNothingOfTheOtherColumns) {
  WorkRow piena = rigaPiena();
  piena[campo().colonna] = campo().tipo == Tipo::Flag ? whole(0) : null();
  apri(GetParam().anno, piena);
  EXPECT_EQ(mostrato(campo()), vuoto());
}

TEST_P(Modulo1Field, GoesBackToItsColumnAndToNoOther) {
  const int anno = GetParam().anno;
  apri(anno, rigaPiena());
  const Righe prima = fotografia(riga);
  const std::string nuovo = cambia(campo());
  Righe attese = {{campo().colonna, nuovo}, {"Modificato", "-1"}};
  if (campo().tipo == Tipo::Elenco) attese["CodicePerNonSoggetti"] = "C2";
  if (std::string(campo().colonna) != "RitenuteAcconto") {  // a change that certainly marks the row
    importo(20).enter("5");
    attese["RitenuteAcconto"] = "5";
  }
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_EQ(differenze(prima, fotografia(riga)), attese);
  EXPECT_TRUE(frontEnd.errors.empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, Modulo1Field, testing::ValuesIn(casi(tavolaModulo1())), NomeCaso());

class MissingField : public testing::TestWithParam<Caso>, public CampiProva {};

TEST_P(MissingField, IsNotOnTheForm) {
  apri(GetParam().anno, rigaPiena());
  EXPECT_FALSE(esiste(GetParam().campo.controllo));
}
INSTANTIATE_TEST_SUITE_P(Rows, MissingField,
                         testing::ValuesIn(insieme(casi(tavolaModulo1(), false),
                                                   insieme(casi(tavolaModuli(), false),
                                                           casi(tavolaIntestazione(), false)))),
                         NomeCaso());

// A form has no controls of the arrays other than those of the tables.
TEST(Fields, AreThoseOfTheTablesAndNoOthers) {
  for (const int anno : kAnni) {
    CampiProva prova;
    prova.apri(anno);
    std::set<std::string> attesi;
    for (const auto* tavola : {&tavolaModulo1(), &tavolaModuli(), &tavolaIntestazione()}) {
      for (const Campo& campo : *tavola) {
        if (campo.nel(anno) && indice(campo.controllo) >= 0) attesi.insert(campo.controllo);
      }
    }
    std::set<std::string> trovati;
    for (const Control* controllo : prova.editor->controls()) {
      if (controllo->name().find("Field(") == 3 && controllo->name().substr(0, 3) != "lbl") {
        trovati.insert(controllo->name());
      }
    }
    EXPECT_EQ(trovati, attesi) << anno;
  }
}

TEST(Fields, TheColumnsOfTheOtherLayoutsStayAsTheyWere) {
  CampiProva prova;
  prova.apri(2014, rigaPiena());
  const auto prima = CampiProva::fotografia(prova.riga);
  prova.importo(20).enter("5");
  prova.premi("cmdOk");
  EXPECT_EQ(CampiProva::differenze(prima, CampiProva::fotografia(prova.riga)),
            (CampiProva::Righe{{"RitenuteAcconto", "5"}, {"Modificato", "-1"}}));
}

class ReadOnlyField : public testing::TestWithParam<Caso>, public CampiProva {};

TEST_P(ReadOnlyField, ShowsItsColumnAndIsClosed) {
  const Campo& campo = GetParam().campo;
  WorkRow piena = rigaPiena();
  const bool codiceAzienda = std::string(campo.colonna).empty();
  const std::string colonna = codiceAzienda ? "CodiceAzPressoENPAM" : campo.colonna;
  piena["IDCUEntePrevidenziale"] = whole(1);
  piena[colonna] = text("quello");
  apri(GetParam().anno, piena);
  const TextBox& casella = c<TextBox>(campo.controllo);
  EXPECT_EQ(casella.text(), "quello");
  EXPECT_FALSE(casella.enabled());
  EXPECT_TRUE(casella.locked());
  EXPECT_EQ(casella.background(), Background::Face);
}

TEST_P(ReadOnlyField, IsNeverWrittenBack) {
  apri(GetParam().anno, rigaPiena());
  const Righe prima = fotografia(riga);
  c<TextBox>(GetParam().campo.controllo).setText("altro");
  importo(20).enter("5");
  premi("cmdOk");
  EXPECT_EQ(differenze(prima, fotografia(riga)), (Righe{{"RitenuteAcconto", "5"}, {"Modificato", "-1"}}));
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadOnlyField, testing::ValuesIn(casi(tavolaIntestazione())), NomeCaso());

}  // namespace
}  // namespace cu::test
