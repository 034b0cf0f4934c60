#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include <nlohmann/json.hpp>

#include "system/posto_support.h"

namespace cu::test {

// The wizard driven by a test, command by command. Every command is required to be accepted.
class Guidato : public ::testing::Test {
 protected:
  using json = nlohmann::json;

  explicit Guidato(bool subito = true) {
    if (subito) avvia();
  }
  void avvia() {
    processo_ = posto_.guida();
    leggi();
  }

  json leggi() {
    const auto riga = processo_->riga();
    if (!riga) throw std::runtime_error("the program has ended: " + processo_->errori());
    return json::parse(*riga);
  }
  json manda(const json& comando) {
    processo_->scrivi(comando.dump() + "\n");
    return leggi();
  }
  json fai(const json& comando) {
    json risposta = manda(comando);
    EXPECT_TRUE(risposta.at("ok").get<bool>()) << comando << " " << risposta;
    return risposta;
  }
  json clic(const std::string& controllo) { return fai({{"do", "click"}, {"on", controllo}}); }
  json scrivi(const std::string& controllo, const std::string& testo) {
    return fai({{"do", "enter"}, {"in", controllo}, {"text", testo}});
  }
  json lascia(const std::string& controllo) { return fai({{"do", "leave"}, {"of", controllo}}); }
  json rispondi(const std::string& risposta) { return fai({{"do", "answer"}, {"with", risposta}}); }
  json stato(const std::string& controllo) { return fai({{"do", "get"}, {"of", controllo}}).at("result"); }
  json righe(const std::string& griglia, int da, int quante) {
    return fai({{"do", "rows"}, {"in", griglia}, {"from", da}, {"count", quante}}).at("result");
  }

  // From the start to the grid of a year's lines; `tipo` is 0 for the ordinary communication.
  void vaiAllaGriglia(const std::string& anno, int tipo = 0) {
    clic("frmWizard.optstType(1)");
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", anno}});
    if (tipo > 0) clic("frmWizard.optTipoComunicazione(" + std::to_string(tipo) + ")");
    clic("frmWizard.cmdNav(3)");
  }
  // The position of a payee's first line: a server returns the lines in its own order.
  int rigaDi(int anagrafica) {
    const json tutte = righe("frmWizard.grdCompensi", 1, stato("frmWizard.grdCompensi").at("rows"));
    int trovata = 0;
    for (std::size_t i = 0; i < tutte.size(); ++i) {
      if (tutte[i].at("IDAnagrafica") != anagrafica) continue;
      const auto precede = [&](const json& altra) {
        return tutte[i].at("IDCausalePagamento") < altra.at("IDCausalePagamento");
      };
      if (trovata == 0 || precede(tutte[static_cast<std::size_t>(trovata) - 1])) {
        trovata = static_cast<int>(i) + 1;
      }
    }
    if (trovata == 0) throw std::runtime_error("no line of the payee " + std::to_string(anagrafica));
    return trovata;
  }
  // The top window's name, after a double click on a line of the grid.
  std::string apri(int riga) {
    const json risposta = fai({{"do", "doubleclick"}, {"in", "frmWizard.grdCompensi"}, {"row", riga}});
    return risposta.at("windows").back();
  }
  // From the grid to the file, and back to the first step; returns the file's content.
  std::string creaFile() {
    clic("frmWizard.cmdNav(3)");
    json risposta = clic("frmWizard.cmdNav(4)");
    while (risposta.at("windows").back() == "frmMsgLink") risposta = clic("frmMsgLink.Command1");
    if (!risposta.at("modal").is_null()) throw std::runtime_error("no file: " + risposta.dump());
    for (const std::string& nome : posto_.file("Documenti")) {
      // The names of the forms contain more than company and year.
      if (nome.starts_with("CUR_") && std::count(nome.begin(), nome.end(), '_') == 2) {
        return posto_.cartella().read("Documenti/" + nome);
      }
    }
    throw std::runtime_error("no telematic file");
  }

  Posto posto_;
  std::unique_ptr<Processo> processo_;
};

}  // namespace cu::test
