// The ranges of a print with hostile texts as limits: the statement before the print, the selection formula
// and the report's own statement.

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "system/forma_support.h"
#include "system/guidato_support.h"
#include "system/inserimenti_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;
using json = nlohmann::json;

// Only a control character is invalid in a formula.
bool conControlli(const std::string& testo) {
  return std::any_of(testo.begin(), testo.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

// Of the payees with one reason alone the first of each reason, with that reason. Grouped here: the embedded
// engine, which one of the servers has behind it, does not group.
std::vector<std::pair<std::string, std::string>> unoPerCausale(const std::vector<Lettore::Riga>& pagamenti) {
  std::map<int, std::set<int>> causali;
  for (const Lettore::Riga& riga : pagamenti) causali[std::stoi(riga.at(0))].insert(std::stoi(riga.at(1)));
  std::set<int> viste;
  std::vector<std::pair<std::string, std::string>> chi;
  for (const auto& [percipiente, sue] : causali) {
    if (sue.size() == 1 && viste.insert(*sue.begin()).second) {
      chi.emplace_back(std::to_string(percipiente), std::to_string(*sue.begin()));
    }
  }
  return chi;
}

class StampaOstile : public Guidato, public testing::WithParamInterface<int> {
 protected:
  // A payee with a reason for each text, and one for a harmless text.
  StampaOstile() : Guidato(false), testi_(inserimenti()) {
    testi_.push_back({"Innocuo", std::string(48, 'X')});
    const auto database = posto_.lettore();
    const std::string nel2016 = database->nellAnno("DataPagamento", "2016");
    const auto chi = unoPerCausale(
        database->righe("SELECT IDAnagrafica, IDCausalePagamento FROM Compenso WHERE " + nel2016));
    for (std::size_t i = 0; i < testi_.size(); ++i) {
      const auto& [percipiente, causale] = chi.at(i);
      database->esegui("UPDATE Percipiente SET Codice = ? WHERE IDAnagrafica = " + percipiente,
                       {testi_[i].testo});
      database->esegui("UPDATE Anagrafica SET Anagrafica = ?, Nome = ? WHERE IDAnagrafica = " + percipiente,
                       {breve(i), segno(i)});
      database->esegui("UPDATE CausalePagamento SET Codice = ? WHERE IDCausalePagamento = " + causale,
                       {breve(i)});
    }
    posto_.imposta("printing.engine", "\"pdf\"");
    posto_.imposta("session.processes",
                   "[ { name = \"Wizard stampa\", function = " + std::to_string(GetParam()) + " } ]");
    avvia();
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
    if (GetParam() == 246) fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(1)"}, {"text", "2016"}});
  }

  std::string breve(std::size_t i) const { return primi(testi_[i].testo, 40); }
  static std::string segno(std::size_t i) { return "SEGNO" + std::to_string(i) + "FINE"; }

  // The print of one text's range, or its message, and the shapes of the statements sent for it.
  struct Esito {
    json modale;
    std::vector<std::string> forme;
  };
  Esito stampa(std::size_t i, const std::string& report, const std::string& scelta) {
    for (const char* lato : {"(0)", "(1)"}) {
      fai({{"do", "choose"},
           {"in", std::string("frmWizard.KrnCDPerc") + lato},
           {"code", ""},
           {"description", ""}});
    }
    const std::size_t prima = istruzioniDi(posto_.cartella().read("trace.sql")).size();
    clic("frmWizard." + scelta);
    for (const char* lato : {"(0)", "(1)"}) {
      fai({{"do", "choose"}, {"in", std::string("frmWizard.KrnCDPerc") + lato}, {"code", testi_[i].testo}});
      fai({{"do", "choose"}, {"in", std::string("frmWizard.KrnCDCausContrib") + lato}, {"code", breve(i)}});
    }
    clic("frmWizard.cmdNav(3)");
    fai({{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"report", report}, {"output", 1}});
    Esito esito{clic("frmWizard.cmdNav(4)").at("modal"), {}};
    if (!esito.modale.is_null()) rispondi("ok");
    clic("frmWizard.cmdNav(2)");
    const auto istruzioni = istruzioniDi(posto_.cartella().read("trace.sql"));
    for (std::size_t n = prima; n < istruzioni.size(); ++n) esito.forme.push_back(formaDi(istruzioni[n]));
    return esito;
  }
  std::vector<std::string> stampe() {
    clic("frmWizard.cmdNav(3)");
    const json nomi = stato("frmWizard.WizPrint").at("reports");
    clic("frmWizard.cmdNav(2)");
    return nomi;
  }

  std::vector<Inserimento> testi_;
};

TEST_P(StampaOstile, SelectsThePayeeOfThatNameOrSaysWhyNot) {
  for (const std::string& report : stampe()) {
    for (const char* scelta : {"optCode", "optName"}) {
      const std::vector<std::string> innocue = stampa(testi_.size() - 1, report, scelta).forme;
      EXPECT_FALSE(innocue.empty());
      for (std::size_t i = 0; i < testi_.size(); ++i) {
        SCOPED_TRACE(report + " " + scelta + " " + testi_[i].nome);
        const Esito esito = stampa(i, report, scelta);
        EXPECT_EQ(esito.forme, innocue);
        ASSERT_FALSE(esito.modale.is_null());
        if (conControlli(testi_[i].testo)) {
          EXPECT_THAT(esito.modale.value("text", ""), HasSubstr("carattere di controllo")) << esito.modale;
          continue;
        }
        const std::string pagine = esito.modale.value("pages", json::array()).dump();
        EXPECT_THAT(pagine, HasSubstr(segno(i)));
        std::size_t altri = 0;
        for (std::size_t altro = 0; altro < testi_.size(); ++altro) {
          altri += altro != i && pagine.find(segno(altro)) != std::string::npos ? 1U : 0U;
        }
        EXPECT_EQ(altri, 0U);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Modes, StampaOstile, testing::Values(246, 247),
                         [](const auto& caso) { return std::to_string(caso.param); });

}  // namespace
}  // namespace cu::test
