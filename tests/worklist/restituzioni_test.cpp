// The column of a box that the suite does not have: in the work table of the form that has it, and only
// there.

#include "worklist/restituzioni.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "modello/restituzioni.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "worklist/riscrittura.h"
#include "worklist/tabella_lavoro.h"

namespace cu::test {
namespace {

constexpr std::string_view kAggiunta = "SommeRestituite";

TEST(OwnColumn, IsOfThePublishedFormAlone) {
  EXPECT_FALSE(modello::haCaselleProprie(modello::kModello));
  EXPECT_TRUE(modello::haCaselleProprie(modello::kModelloPubblicato));
}

TEST(OwnColumn, IsTheLastOfTheTable) {
  std::string atteso = fnCreaTabella("tmpprequadrivio12");
  atteso.insert(atteso.find(" CONSTRAINT"), " , [SommeRestituite] [Importo] NULL");
  EXPECT_EQ(fnCreaTabella("tmpprequadrivio12", true), atteso);
}

TEST(OwnColumn, IsLoadedEmptyOrFromItsTable) {
  ScriptedFrontEnd schermo;
  const SimpleUtility utilita{schermo};
  Filtri filtri;
  filtri.anno = "2022";
  const auto con = [&](const std::string& colonna) {
    std::string testo = fnSelectCompensi(filtri, 1, utilita);
    return testo.insert(testo.find(" FROM RepContoIndividuale WHERE Anno ="), ", " + colonna);
  };
  EXPECT_EQ(fnSelectCompensi(filtri, 1, utilita, CaselleProprie::Vuote), con("NULL AS SommeRestituite"));
  EXPECT_EQ(fnSelectCompensi(filtri, 1, utilita, CaselleProprie::Lette),
            con("(SELECT SommeRestituite FROM CuRestituzione CP WHERE"
                " RepContoIndividuale.IDAnagrafica = CP.IDAnagrafica"
                " AND RepContoIndividuale.IDCausalePagamento = CP.IDCausalePagamento"
                " AND RepContoIndividuale.Anno = CP.Anno AND RepContoIndividuale.IDAzienda = CP.IDAzienda)"
                " AS SommeRestituite"));
}

TEST(OwnColumn, IsWrittenWithTheLineAndNotIntoTheAccounts) {
  std::vector<std::string_view> dopo;
  for (const ColonnaRiscritta& colonna : colonneRiscritte(modello::kModelloPubblicato)) {
    dopo.push_back(colonna.nome);
  }
  const auto aggiunta = std::find(dopo.begin(), dopo.end(), kAggiunta);
  ASSERT_NE(aggiunta, dopo.end());
  dopo.erase(aggiunta);
  std::vector<std::string_view> prima;
  for (const ColonnaRiscritta& colonna : colonneRiscritte(modello::kModello)) prima.push_back(colonna.nome);
  EXPECT_EQ(dopo, prima);
  EXPECT_EQ(cu::datiAggiuntivi(modello::kModelloPubblicato), cu::datiAggiuntivi(modello::kModello));
  EXPECT_EQ(fnAggiornaDatiAggiuntivi("tmpprequadrivio12").find(kAggiunta), std::string::npos);
}

}  // namespace
}  // namespace cu::test
