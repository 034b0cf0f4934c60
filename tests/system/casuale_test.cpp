// Any user actions in any order: random commands on random data. The program answers each, leaves no
// exception uncaught, and what it shows and writes stays consistent.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "support/cur_reader.h"
#include "system/guidato_support.h"

namespace cu::test {
namespace {

using json = nlohmann::json;

constexpr int kComandi = 250;

class QualunqueCosa : public Guidato, public testing::WithParamInterface<unsigned> {
 protected:
  QualunqueCosa() : Guidato(false), caso_(GetParam()) {
    const Esecuzione creato = posto_.crea({"--payees", std::to_string(3 + numero(9)), "--years", "2014-2017",
                                           "--seed", std::to_string(GetParam())});
    if (creato.codice != 0) throw std::runtime_error(creato.errori);
    posto_.imposta("session.processes", "[ { name = \"Wizard stampa\", function = " +
                                            std::string(numero(3) == 0 ? "246" : "247") + " } ]");
  }

  int numero(int sotto) { return std::uniform_int_distribution<int>(0, sotto - 1)(caso_); }
  template <class T>
  const T& uno(const std::vector<T>& fra) {
    return fra.at(static_cast<std::size_t>(numero(static_cast<int>(fra.size()))));
  }

  json risposta(const json& modale) {
    const std::string tipo = modale.at("kind");
    if (tipo == "message" || tipo == "error") {
      const json& pulsanti = modale.at("buttons");
      return {{"do", "answer"},
              {"with", pulsanti.at(static_cast<std::size_t>(numero(static_cast<int>(pulsanti.size()))))}};
    }
    if (tipo == "preview" || tipo == "log") return {{"do", "answer"}, {"with", "ok"}};
    if (tipo == "menu" && numero(2) == 0) {
      return {{"do", "menu"}, {"tool", modale.at("tools").at(0)}};
    }
    if (tipo == "printer" && numero(2) == 0) {
      return {{"do", "answer"}, {"with", {{"printer", "nessuna"}, {"copies", 2}}}};
    }
    if (tipo == "folder" && numero(2) == 0) {
      return {{"do", "answer"}, {"with", {{"folder", posto_.cartella() / "Documenti"}}}};
    }
    if (tipo == "save" && numero(2) == 0) {
      return {{"do", "answer"}, {"with", {{"file", posto_.cartella() / "Documenti/stampa.pdf"}}}};
    }
    return {{"do", "answer"}, {"with", "cancel"}};
  }

  // A command that fits the control's kind; null for a control without user actions.
  json gesto(const std::string& nome, const json& stato) {
    const std::string tipo = stato.at("kind");
    if (tipo == "button" || tipo == "link" || tipo == "option" || tipo == "check") {
      return {{"do", "click"}, {"on", nome}};
    }
    if (tipo == "text" || tipo == "date") {
      return {{"do", numero(4) == 0 ? "paste" : "enter"},
              {"in", nome},
              {"text", uno<std::string>({"", "12345", "01/03/2017", "31/12/2017", "RSSMRA60A01H501W",
                                         "D'Angelò; --", "99999999999999999999", "€ñ\t\n"})}};
    }
    if (tipo == "amount" || tipo == "number") {
      return {{"do", numero(4) == 0 ? "paste" : "enter"},
              {"in", nome},
              {"text", uno<std::string>({"", "0", "1", "2", "3", "1.234,56", "-10", "12a", "2015", "0,01"})}};
    }
    if (tipo == "list") {
      return {{"do", "choose"},
              {"in", nome},
              {"index", numero(static_cast<int>(stato.at("entries").size()) + 1) - 1}};
    }
    if (tipo == "tabs") return {{"do", "choose"}, {"in", nome}, {"index", 1 + numero(2)}};
    if (tipo == "print") return {{"do", "choose"}, {"in", nome}, {"output", 1 + numero(6)}};
    if (tipo == "picker") return {{"do", "choose"}, {"in", nome}, {"record", 0}};
    if (tipo == "selector") {
      return {{"do", "choose"},
              {"in", nome},
              {"code", uno<std::string>({"", "A", "P0000001", "zz"})},
              {"description", uno<std::string>({"", "Rossi"})}};
    }
    if (tipo == "grid" && stato.at("rows") > 0) {
      const int riga = 1 + numero(stato.at("rows"));
      switch (numero(4)) {
        case 0:
          return {{"do", "row"}, {"in", nome}, {"row", riga}};
        case 1:
          return {{"do", "doubleclick"}, {"in", nome}, {"row", riga}};
        case 2:
          return {{"do", "key"}, {"on", nome}, {"code", 32}, {"shift", 0}};
        default: {
          const json& colonna = stato.at("columns").at(
              static_cast<std::size_t>(numero(static_cast<int>(stato.at("columns").size()))));
          return {{"do", "press"}, {"in", nome}, {"row", riga}, {"column", colonna.at("field")}};
        }
      }
    }
    return nullptr;
  }

  json comando(const json& stato) {
    if (!stato.at("modal").is_null()) return risposta(stato.at("modal"));
    const std::string form = stato.at("windows").back();
    if (numero(20) == 0) {
      return {
          {"do", "key"}, {"on", form}, {"code", uno<int>({13, 33, 34, 112, 82, 71})}, {"shift", numero(3)}};
    }
    if (form != "frmWizard" && numero(30) == 0) return {{"do", "close"}, {"window", form}};
    // Goes forward and opens lines more often than at random.
    if (form == "frmWizard" && numero(4) == 0) {
      const int righe = manda({{"do", "get"}, {"of", "frmWizard.grdCompensi"}}).at("result").at("rows");
      if (righe > 0)
        return {{"do", "doubleclick"}, {"in", "frmWizard.grdCompensi"}, {"row", 1 + numero(righe)}};
    }
    if (form.starts_with("frmCompenso") && numero(12) == 0) {
      return {{"do", "click"},
              {"on", form + uno<std::string>({".cmdOk", ".cmdAltriModuli", ".cmdDatiAggiuntivi"})}};
    }
    if (form == "frmWizard" && numero(6) == 0)
      return {
          {"do", "click"},
          {"on", uno<std::string>({"frmWizard.cmdNav(3)", "frmWizard.cmdNav(4)", "frmWizard.optstType(1)"})}};
    const json albero = manda({{"do", "tree"}, {"of", form}}).at("result");
    std::vector<json> gesti;
    for (const auto& [nome, controllo] : albero.items()) {
      if (nome == form || !controllo.at("enabled") || !controllo.at("visible")) continue;
      if (nome == "cmdNav(1)" && numero(10) > 0) continue;  // the exit
      json trovato = gesto(form + "." + nome, controllo);
      if (!trovato.is_null()) gesti.push_back(std::move(trovato));
    }
    return gesti.empty() ? json{{"do", "state"}} : uno(gesti);
  }

  void controllaConteggio(const json& stato) {
    if (stato.at("windows") != json({"frmWizard"}) || !stato.at("modal").is_null()) return;
    const json griglia = manda({{"do", "get"}, {"of", "frmWizard.grdCompensi"}}).at("result");
    if (griglia.at("columns").empty()) return;
    int selezionate = 0;
    for (const json& riga : righe("frmWizard.grdCompensi", 1, griglia.at("rows"))) {
      selezionate += riga.at("Selezionato") != 0 ? 1 : 0;
    }
    const std::string mostrato = griglia.at("columns").at(0).at("caption");
    EXPECT_EQ(mostrato, "[ " + std::to_string(selezionate) + " ]");
  }

  // The telematic file of the year, made without a conversation; "" when the wizard has rejected it.
  std::string fai(const std::string& anno) {
    const Esecuzione esito = posto_.cuctl({"make", "--profile", posto_.profilo(), "--year", anno, "--yes",
                                           "--folder", posto_.cartella() / "Documenti"});
    EXPECT_LT(esito.codice, 2) << esito.errori;
    for (const std::string& nome : posto_.file("Documenti")) {
      if (nome.starts_with("CUR_") && nome.ends_with("_" + anno + ".cur") &&
          std::count(nome.begin(), nome.end(), '_') == 2) {
        return posto_.cartella().read("Documenti/" + nome);
      }
    }
    return {};
  }

 private:
  std::mt19937 caso_;
};

TEST_P(QualunqueCosa, LeavesTheProgramSoundAndTheFileTrue) {
  avvia();
  json stato = manda({{"do", "state"}});
  std::string storia;
  if (numero(4) > 0) {
    manda({{"do", "click"}, {"on", "frmWizard.optstType(1)"}});
    manda({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"index", numero(4)}});
    manda({{"do", "click"}, {"on", "frmWizard.optTipoComunicazione(" + std::to_string(numero(3)) + ")"}});
    stato = manda({{"do", "click"}, {"on", "frmWizard.cmdNav(3)"}});
  }
  for (int n = 0; n < kComandi;) {
    const json fatto = comando(stato);
    storia += fatto.dump() + "\n";
    stato = manda(fatto);
    n += stato.at("ok").get<bool>() ? 1 : 0;
    if (stato.at("ended")) {
      avvia();
      stato = manda({{"do", "state"}});
      continue;
    }
    const json& modale = stato.at("modal");
    ASSERT_FALSE(!modale.is_null() && modale.at("kind") == "error") << modale << "\nafter\n" << storia;
    ASSERT_NO_FATAL_FAILURE(controllaConteggio(stato)) << storia;
    ASSERT_FALSE(HasFailure()) << storia;
  }
  processo_->chiudiIngresso();
  processo_->resto();
  EXPECT_EQ(processo_->codice(), 0) << processo_->errori();

  for (const char* anno : {"2014", "2015", "2016", "2017"}) {
    const std::string primo = fai(anno);
    if (primo.empty()) continue;
    const CurFile file(primo);
    const std::string tipi = file.types();
    EXPECT_EQ(tipi.substr(0, 2), "AB");
    EXPECT_EQ(tipi.back(), 'Z');
    const CurLine& coda = file.line('Z');
    EXPECT_EQ(std::stoi(coda.at(16, 9)), 1);
    EXPECT_EQ(std::stoi(coda.at(25, 9)), 0);
    EXPECT_EQ(std::stoi(coda.at(34, 9)), std::count(tipi.begin(), tipi.end(), 'D'));
    EXPECT_EQ(std::stoi(coda.at(43, 9)), 0);
    EXPECT_EQ(std::stoi(coda.at(52, 9)), std::count(tipi.begin(), tipi.end(), 'H'));
    EXPECT_EQ(fai(anno), primo) << anno;
  }
}

// The number of seeds; CU_SEEDS sets another one.
unsigned semi() {
  const char* const chiesti = std::getenv("CU_SEEDS");
  return chiesti == nullptr ? 8 : static_cast<unsigned>(std::stoul(chiesti));
}
INSTANTIATE_TEST_SUITE_P(Seeds, QualunqueCosa, testing::Range(1U, 1U + semi()));

}  // namespace
}  // namespace cu::test
