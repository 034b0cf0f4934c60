// The commands perform the wizard's steps without a form: on random data and with random choices, `make` and
// `print` send, write and print the same as the wizard under the driver.

#include <gmock/gmock.h>

#include <random>

#include "system/guidato_support.h"

namespace cu::test {
namespace {

using json = nlohmann::json;
using Argomenti = std::vector<std::string>;

class CommandAndDriver : public Guidato, public testing::WithParamInterface<unsigned> {
 protected:
  CommandAndDriver() : Guidato(false), caso_(GetParam()) {
    const std::string percipienti = std::to_string(3 + numero(12));
    for (Posto* posto : {&posto_, &altro_}) {
      const Esecuzione creato = posto->crea(
          {"--payees", percipienti, "--years", "2014-2017", "--seed", std::to_string(GetParam())});
      if (creato.codice != 0) throw std::runtime_error(creato.errori);
    }
    argomenti_ = {"--profile", altro_.profilo()};
  }

  int numero(int sotto) { return std::uniform_int_distribution<int>(0, sotto - 1)(caso_); }
  bool forse() { return numero(2) == 0; }
  void aggiungi(const Argomenti& altri) { argomenti_.insert(argomenti_.end(), altri.begin(), altri.end()); }

  void anno(const char* opzione, const char* elenco) {
    const std::string scelto = std::to_string(2014 + numero(4));
    fai({{"do", "choose"}, {"in", elenco}, {"text", scelto}});
    aggiungi({opzione, scelto});
  }
  void estremo(const char* opzione, const char* selettore, const std::string& codice) {
    if (!forse()) return;
    // A code without a row is typed with an empty description.
    const json trovato = manda({{"do", "choose"}, {"in", selettore}, {"code", codice}});
    if (!trovato.at("ok").get<bool>()) {
      fai({{"do", "choose"}, {"in", selettore}, {"code", codice}, {"description", ""}});
    }
    aggiungi({opzione, codice});
  }
  void estremi() {
    estremo("--from-payee", "frmWizard.KrnCDPerc(0)", "P0000" + std::to_string(numero(10)));
    estremo("--to-payee", "frmWizard.KrnCDPerc(1)", forse() ? "P00009" : "p0001");
    estremo("--from-reason", "frmWizard.KrnCDCausContrib(0)", "A");
    estremo("--to-reason", "frmWizard.KrnCDCausContrib(1)", "Z");
  }
  // Answers what is in front until only the wizard is open; returns the texts of the boxes.
  std::vector<std::string> chiudiTutto(json risposta) {
    std::vector<std::string> testi;
    for (int passi = 0; passi < 50; ++passi) {
      const json& modale = risposta.at("modal");
      if (modale.is_null()) {
        if (risposta.at("windows").back() != "frmMsgLink") return testi;
        risposta = clic("frmMsgLink.Command1");
        continue;
      }
      const std::string tipo = modale.at("kind");
      if (tipo == "save") {
        risposta = fai({{"do", "answer"}, {"with", {{"file", posto_.cartella() / "stampa.pdf"}}}});
        continue;
      }
      if (tipo == "message") testi.push_back(modale.at("text"));
      const bool avviso = tipo == "message" && modale.at("buttons") == json({"ok", "cancel"});
      risposta = rispondi(avviso && !passa_ ? "cancel" : "ok");
    }
    throw std::runtime_error("boxes without an end: " + risposta.dump());
  }
  void finisci() {
    fai({{"do", "close"}, {"window", "frmWizard"}});
    processo_->chiudiIngresso();
    processo_->resto();
  }
  // Compares the files of both places, without the folder's own name.
  void confronta() {
    EXPECT_EQ(senzaPosto(altro_, altro_.cartella().read("trace.sql")),
              senzaPosto(posto_, posto_.cartella().read("trace.sql")));
    EXPECT_EQ(altro_.file("Documenti"), posto_.file("Documenti"));
    for (const std::string& nome : posto_.file("Documenti")) {
      if (!std::filesystem::is_regular_file(posto_.cartella() / ("Documenti/" + nome))) continue;
      EXPECT_EQ(altro_.cartella().read("Documenti/" + nome), posto_.cartella().read("Documenti/" + nome))
          << nome;
    }
    EXPECT_EQ(senzaPosto(altro_, altro_.cartella().read("settings.toml")),
              senzaPosto(posto_, posto_.cartella().read("settings.toml")));
  }
  static std::string senzaPosto(const Posto& posto, std::string testo) {
    const std::string cartella = posto.cartella() / "";
    for (std::size_t dove = testo.find(cartella); dove != std::string::npos; dove = testo.find(cartella)) {
      testo.erase(dove, cartella.size());
    }
    return testo;
  }
  std::mt19937 caso_;
  Posto altro_{Posto::Database::Nessuno};
  Argomenti argomenti_;
  bool passa_ = false;
};

TEST_P(CommandAndDriver, MakeTheSameFileByTheSameStatements) {
  avvia();
  clic("frmWizard.optstType(1)");
  clic("frmWizard.optCode");
  anno("--year", "frmWizard.KRNCboEsCont(0)");
  const int tipo = 1 + numero(3);
  clic("frmWizard.optTipoComunicazione(" + std::to_string(tipo - 1) + ")");
  aggiungi({"--kind", std::to_string(tipo)});
  estremi();
  json risposta = clic("frmWizard.cmdNav(3)");
  if (tipo != 1 && numero(4) != 0) {
    clic("frmWizard.cmdProtocollo");
    scrivi("frmProtocollo.txtProtocollo", "17030512345678901");
    scrivi("frmProtocollo.txtProgressivo", "000042");
    clic("frmProtocollo.cmdOk");
    aggiungi({"--protocol", "17030512345678901", "--progressive", "000042"});
  }
  risposta = clic("frmWizard.cmdNav(3)");
  std::vector<std::string> detti = chiudiTutto(risposta);
  if (detti.empty()) {
    passa_ = forse();
    if (passa_) aggiungi({"--yes"});
    if (forse()) {
      const char* const firma = forse() ? "06/03/2017" : "01/03/2017";
      scrivi("frmWizard.dtDataFirma", firma);
      aggiungi({"--signature-date", firma});
    }
    if (forse()) {
      clic("frmWizard.optStampaTracciato(1)");
      aggiungi({"--cumulative"});
    }
    if (forse()) {
      clic("frmWizard.chkIntermediari");
      scrivi("frmWizard.txtCodiceFiscale", "MRARSS60A01L781Z");
      aggiungi({"--intermediary", "MRARSS60A01L781Z"});
      if (forse()) {
        scrivi("frmWizard.dtDataImpegno", "15/02/2017");
        aggiungi({"--commitment-date", "15/02/2017"});
      }
    }
    detti = chiudiTutto(clic("frmWizard.cmdNav(4)"));
  }
  finisci();
  Argomenti tutti = {"make"};
  tutti.insert(tutti.end(), argomenti_.begin(), argomenti_.end());
  const Esecuzione esito = altro_.cuctl(tutti);
  confronta();
  for (std::string detto : detti) {
    std::erase(detto, '\r');
    EXPECT_THAT(esito.errori, ::testing::HasSubstr(detto));
  }
}

TEST_P(CommandAndDriver, PrintTheSameByTheSameStatements) {
  const bool conti = forse();
  posto_.imposta("session.processes",
                 std::string("[ { name = \"Wizard stampa\", function = ") + (conti ? "246" : "247") + " } ]");
  avvia();
  clic("frmWizard.optCode");
  anno("--year", "frmWizard.KRNCboEsCont(0)");
  if (conti && forse()) anno("--to-year", "frmWizard.KRNCboEsCont(1)");
  estremi();
  clic("frmWizard.cmdNav(3)");
  const std::string report =
      conti ? "ContoIndividuale.rpt"
            : std::string("CertificazioneCompensi") + (forse() ? "Sintetico.rpt" : "Analitico.rpt");
  fai({{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"report", report}, {"output", 3}});
  const std::vector<std::string> detti = chiudiTutto(clic("frmWizard.cmdNav(4)"));
  finisci();
  Argomenti tutti = {"print", "--report", report, "--output", altro_.cartella() / "stampa.pdf"};
  tutti.insert(tutti.end(), argomenti_.begin(), argomenti_.end());
  const Esecuzione esito = altro_.cuctl(tutti);
  confronta();
  EXPECT_EQ(esito.codice, detti.empty() ? 0 : 1) << esito.errori;
  for (const std::string& detto : detti) EXPECT_THAT(esito.errori, ::testing::HasSubstr(detto));
}

INSTANTIATE_TEST_SUITE_P(Seeds, CommandAndDriver, testing::Range(1U, 13U));

}  // namespace
}  // namespace cu::test
