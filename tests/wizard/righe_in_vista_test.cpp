// What a window shows of the lines, from their cells alone.

#include "wizard/righe_in_vista.h"

#include <gtest/gtest.h>

#include <map>

#include "controls/form.h"
#include "support/scripted_front_end.h"

namespace cu::test {
namespace {

class RigheInVista : public ::testing::Test {
 protected:
  RigheInVista() : form(frontEnd, "frm"), griglia(form, "grd", nullptr) { descriviRighe(griglia); }

  // Whether a line with these cells, and null ones beside them, is in the state.
  bool in(const char* nome, const std::map<std::string, Value>& riga) {
    for (const RowState& stato : griglia.states) {
      if (stato.name != nome) continue;
      std::vector<CellView> celle;
      for (const std::string& campo : stato.fields) {
        const auto trovata = riga.find(campo);
        celle.push_back(trovata == riga.end() ? CellView() : trovata->second.view());
      }
      return stato.holds(celle);
    }
    ADD_FAILURE() << nome;
    return false;
  }
  static Value euro(int importo) { return Value::ofDecimal(Decimal::fromInteger(importo)); }

  ScriptedFrontEnd frontEnd;
  Form form;
  Grid griglia;
};

TEST_F(RigheInVista, ScelteENonScelteSonoTutteLeRighe) {
  for (const int valore : {0, 1, -1}) {
    const std::map<std::string, Value> riga = {{"Selezionato", Value::ofInteger(valore)}};
    EXPECT_EQ(in("Scelte", riga), valore != 0);
    EXPECT_EQ(in("Non scelte", riga), valore == 0);
  }
  EXPECT_TRUE(in("Non scelte", {}));
}

TEST_F(RigheInVista, SenzaProtocolloMancaUnoDeiDue) {
  const Value testo = Value::ofText("17");
  EXPECT_FALSE(in("Senza protocollo", {{"ProtocolloAnnSost", testo}, {"ProgressivoAnnSost", testo}}));
  EXPECT_TRUE(in("Senza protocollo", {{"ProtocolloAnnSost", testo}}));
  EXPECT_TRUE(
      in("Senza protocollo", {{"ProtocolloAnnSost", Value::ofText("  ")}, {"ProgressivoAnnSost", testo}}));
}

TEST_F(RigheInVista, AltriModuliQuandoIlLordoNonELaSommaDellaRiga) {
  EXPECT_FALSE(
      in("Altri moduli o lordo diverso", {{"AmmontareLordo", euro(100)}, {"Imponibile", euro(100)}}));
  EXPECT_TRUE(in("Altri moduli o lordo diverso", {{"AmmontareLordo", euro(150)}, {"Imponibile", euro(100)}}));
  // The refunded expenses are in the gross as loaded, and no longer after a correction.
  EXPECT_FALSE(in("Altri moduli o lordo diverso",
                  {{"AmmontareLordo", euro(130)}, {"Imponibile", euro(100)}, {"SpeseRimborsate", euro(30)}}));
  EXPECT_FALSE(in("Altri moduli o lordo diverso",
                  {{"AmmontareLordo", euro(100)}, {"Imponibile", euro(100)}, {"SpeseRimborsate", euro(30)}}));
  EXPECT_FALSE(in("Altri moduli o lordo diverso", {{"AmmontareLordo", euro(10)},
                                                   {"SommeRegimeConvenzionale", euro(1)},
                                                   {"SommeNonSoggetteARitenuta", euro(2)},
                                                   {"Imponibile", euro(3)},
                                                   {"QuotaProvvigioniNonSoggette", euro(4)}}));
}

TEST_F(RigheInVista, DatiMancantiDiCodiceFiscaleECognome) {
  const Value codice = Value::ofText("RSSMRA70A01L781Z");
  EXPECT_FALSE(in("Dati mancanti", {{"AnagraficaPerc", Value::ofText("Rossi")}, {"CodiceFiscale", codice}}));
  EXPECT_TRUE(in("Dati mancanti", {{"AnagraficaPerc", Value::ofText("Rossi")}}));
  EXPECT_TRUE(in("Dati mancanti", {{"AnagraficaPerc", Value::ofText(" Marco")}, {"CodiceFiscale", codice}}));
  EXPECT_TRUE(in("Dati mancanti", {{"CodiceFiscale", codice}}));
}

}  // namespace
}  // namespace cu::test
