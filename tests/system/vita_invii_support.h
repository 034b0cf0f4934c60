#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "system/posto_support.h"

// A year of the demonstration company that is written, sent, answered and corrected.
namespace cu::test {

using nlohmann::json;

inline constexpr const char* kAnno = "2017";

class VitaInvii : public ::testing::Test {
 protected:
  void SetUp() override { posto_.imposta("printing.engine", "\"record\""); }

  std::string in(const std::string& nome) const { return posto_.cartella().path() + "/" + nome; }
  Esecuzione cuctl(std::vector<std::string> argomenti) {
    argomenti.insert(argomenti.end(), {"--profile", posto_.profilo()});
    return posto_.cuctl(argomenti);
  }
  json status() {
    const Esecuzione esecuzione = cuctl({"status", "--year", kAnno, "--json"});
    EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
    return json::parse(esecuzione.uscita);
  }
  // How many certificates each operation is asked for.
  std::map<std::string, int> operazioni() {
    std::map<std::string, int> operazioni;
    for (const json& voce : status()) ++operazioni[voce.at("operation")];
    return operazioni;
  }
  json certificati(const std::string& file) {
    const Esecuzione esecuzione = posto_.cuctl({"inspect", file, "--json"});
    EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
    const json letto = json::parse(esecuzione.uscita);
    EXPECT_TRUE(letto.at("findings").empty() || letto.at("findings").at(0).at("severity") == "warning");
    return letto.at("agents").at(0).at("certificates");
  }
  // An answer to each certificate of a file; those at these places are rejected.
  std::string ricevuta(const std::string& file, const std::string& protocollo,
                       const std::vector<std::size_t>& scartate) {
    std::string tabella = "CodiceFiscale;Causale;Protocollo;Progressivo;Esito;Motivo\n";
    const json tutte = certificati(file);
    for (std::size_t i = 0; i < tutte.size(); ++i) {
      const bool scartata = std::find(scartate.begin(), scartate.end(), i) != scartate.end();
      tabella +=
          tutte[i].at("payee").get<std::string>() + ";" + tutte[i].at("reason").get<std::string>() + ";";
      tabella += scartata ? ";;scartata;Codice fiscale non registrato\n"
                          : protocollo + ";" + std::to_string(i + 1) + ";accettata;\n";
    }
    const std::string nome = in("ricevuta" + protocollo + ".csv");
    std::ofstream(nome, std::ios::binary) << tabella;
    return nome;
  }
  void inviata(const std::string& file) {
    const Esecuzione esecuzione = cuctl({"sent", file, "--date", "2018-03-06"});
    EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
  }
  void applicata(const std::string& tabella) {
    const Esecuzione prova = cuctl({"receipt", tabella});
    EXPECT_EQ(prova.codice, 0) << prova.errori;
    EXPECT_THAT(prova.uscita, ::testing::HasSubstr("Non è stato scritto nulla."));
    const Esecuzione vera = cuctl({"receipt", tabella, "--apply"});
    EXPECT_EQ(vera.codice, 0) << vera.errori;
  }
  std::string crea(const std::vector<std::string>& altre = {}) {
    std::filesystem::create_directories(in("cu"));
    std::vector<std::string> argomenti = {"make", "--year", kAnno, "--folder", in("cu"), "--yes"};
    argomenti.insert(argomenti.end(), altre.begin(), altre.end());
    const Esecuzione esecuzione = cuctl(argomenti);
    EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
    return in("cu") + "/CUR_04123450233_2017.cur";
  }

  Posto posto_;
};

}  // namespace cu::test
