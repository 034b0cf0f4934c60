// What a window shows of the lines beside their cells.

#include "wizard/righe_in_vista.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "controls/form.h"
#include "support/scripted_front_end.h"

namespace cu::test {
namespace {

class RigheInVista : public ::testing::Test {
 protected:
  RigheInVista() : form(frontEnd, "frm"), griglia(form, "grd", nullptr) {
    descriviRighe(griglia, [] { return fnSelectConModuli(3, 2016); });
  }

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

TEST_F(RigheInVista, ConModuliSonoLeRigheDiCuiEsistonoModuli) {
  const auto stato = std::find_if(griglia.states.begin(), griglia.states.end(),
                                  [](const RowState& ogni) { return ogni.name == "Con moduli"; });
  ASSERT_NE(stato, griglia.states.end());
  EXPECT_EQ(stato->holds, nullptr) << "no cell of a line tells it";
  EXPECT_EQ(stato->statement(),
            "SELECT IDAnagrafica, IDCausalePagamento FROM ModuloXContoIndividuale WHERE IDAzienda = 3 AND "
            "Anno = 2016");
  EXPECT_EQ(stato->fields, (std::vector<std::string>{"IDAnagrafica", "IDCausalePagamento"}));
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
