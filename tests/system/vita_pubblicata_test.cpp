// A year in its published form, of two companies in one database: written, sent, answered, corrected.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "support/cur_reader.h"
#include "system/pubblicati_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using Operazioni = std::map<std::string, int>;

class VitaPubblicata : public ::testing::TestWithParam<int> {
 protected:
  VitaPubblicata() : posto_(Posto::Database::Nessuno), anno_(std::to_string(GetParam())) {
    const Esecuzione creato =
        posto_.crea({"--payees", "6", "--companies", "2", "--years", anno_, "--seed", "4"});
    EXPECT_EQ(creato.codice, 0) << creato.errori;
    usaModelliPubblicati(posto_);
  }

  Esecuzione cuctl(int azienda, std::vector<std::string> argomenti) {
    posto_.imposta("session.company", std::to_string(azienda));
    argomenti.insert(argomenti.end(), {"--profile", posto_.profilo()});
    return posto_.cuctl(argomenti);
  }
  std::string cartella(const std::string& nome) const {
    std::filesystem::create_directories(posto_.cartella() / nome);
    return posto_.cartella() / nome;
  }
  std::string crea(int azienda) {
    const std::string dove = cartella("cu" + std::to_string(azienda));
    const Esecuzione fatto = cuctl(
        azienda, {"make", "--year", anno_, "--folder", dove, "--signature-date", "2027-03-01", "--yes"});
    EXPECT_EQ(fatto.codice, 0) << fatto.uscita << fatto.errori;
    return telematico("cu" + std::to_string(azienda));
  }
  std::string telematico(const std::string& in) const {
    for (const std::string& nome : posto_.file(in)) {
      if (nome.starts_with("CUR_") && std::count(nome.begin(), nome.end(), '_') == 2) {
        return posto_.cartella() / (in + "/" + nome);
      }
    }
    return {};
  }
  json stato(int azienda) {
    const Esecuzione fatto = cuctl(azienda, {"status", "--year", anno_, "--json"});
    EXPECT_EQ(fatto.codice, 0) << fatto.errori;
    return json::parse(fatto.uscita);
  }
  Operazioni operazioni(int azienda) {
    Operazioni operazioni;
    for (const json& voce : stato(azienda)) ++operazioni[voce.at("operation")];
    return operazioni;
  }
  json certificati(const std::string& file) {
    return json::parse(posto_.cuctl({"inspect", file, "--json"}).uscita)
        .at("agents")
        .at(0)
        .at("certificates");
  }
  void accettata(int azienda, const std::string& file, const std::string& protocollo) {
    std::string tabella = "CodiceFiscale;Causale;Protocollo;Progressivo;Esito\n";
    int progressivo = 0;
    for (const json& uno : certificati(file)) {
      tabella += uno.at("payee").get<std::string>() + ";" + uno.at("reason").get<std::string>() + ";" +
                 protocollo + ";" + std::to_string(++progressivo) + ";accettata\n";
    }
    const Esecuzione fatto =
        cuctl(azienda, {"receipt", posto_.cartella().write("ricevuta.csv", tabella), "--apply"});
    EXPECT_EQ(fatto.codice, 0) << fatto.uscita << fatto.errori;
  }
  static std::string conto(const json& di) {
    return " WHERE IDAzienda = 2 AND IDCausalePagamento = (SELECT IDCausalePagamento FROM CausalePagamento"
           " WHERE Codice = '" +
           di.at("reason").get<std::string>() +
           "') AND IDAnagrafica IN (SELECT IDAnagrafica FROM Anagrafica WHERE CodiceFiscale = '" +
           di.at("payee").get<std::string>() + "' OR PartitaIva = '" + di.at("payee").get<std::string>() +
           "')";
  }

  Posto posto_;
  const std::string anno_;
};

TEST_P(VitaPubblicata, OfOneCompanyLeavesTheOtherAlone) {
  const std::string prima = crea(1);
  const std::string seconda = crea(2);
  const auto quante1 = static_cast<int>(certificati(prima).size());
  const json sue = certificati(seconda);
  const auto quante2 = static_cast<int>(sue.size());
  ASSERT_GE(quante2, 3);

  const Esecuzione altrui = cuctl(1, {"sent", seconda});
  EXPECT_EQ(altrui.codice, 1);
  EXPECT_THAT(altrui.errori, HasSubstr("non è fra i file scritti per questa azienda"));
  EXPECT_EQ(cuctl(1, {"verify", seconda}).codice, 1);
  EXPECT_EQ(cuctl(2, {"verify", seconda}).codice, 0);
  EXPECT_EQ(cuctl(2, {"sent", seconda}).codice, 0);
  EXPECT_EQ(operazioni(1), (Operazioni{{"nuova", quante1}}));
  EXPECT_EQ(operazioni(2), (Operazioni{{"attesa", quante2}}));
  accettata(2, seconda, "27030612345678901");
  EXPECT_EQ(operazioni(1), (Operazioni{{"nuova", quante1}}));
  EXPECT_EQ(operazioni(2), (Operazioni{{"nessuna", quante2}}));

  posto_.lettore()->esegui("UPDATE ContoIndividuale SET RitenutaAcconto = RitenutaAcconto + 0.01" +
                           conto(sue[0]));
  posto_.lettore()->esegui("DELETE FROM ContoIndividuale" + conto(sue[1]));
  EXPECT_EQ(operazioni(2), (Operazioni{{"sostituzione", 1}, {"annullamento", 1}, {"nessuna", quante2 - 2}}));
  const Esecuzione corrette =
      cuctl(2, {"correct", "--year", anno_, "--folder", cartella("correzioni"), "--yes"});
  EXPECT_EQ(corrette.codice, 0) << corrette.errori;
  for (const auto& [quale, operazione] :
       {std::pair{"correzioni/sostituzioni", 'S'}, std::pair{"correzioni/annullamenti", 'A'}}) {
    const std::string file = telematico(quale);
    EXPECT_EQ(posto_.cuctl({"validate", file}).codice, 0) << quale;
    const std::size_t relativo = (posto_.cartella() / "").size();
    const CurFile letto(posto_.cartella().read(file.substr(relativo)));
    EXPECT_EQ(letto.types(), operazione == 'S' ? "ABDHZ" : "ABDZ");
    // Record B as the form of the year has it: the event of two digits, the flag, the kinds of correction.
    EXPECT_EQ(letto.lines().at(1).at(309, 2), "00");
    EXPECT_EQ(letto.lines().at(1).at(527, 1), GetParam() >= 2021 ? "0" : " ");
    EXPECT_EQ(letto.lines().at(1).at(91, 2), operazione == 'S' ? "01" : "10");
    EXPECT_EQ(letto.lines().at(2).at(47, 17), "27030612345678901");
    EXPECT_EQ(letto.lines().at(2).at(64, 6), operazione == 'S' ? "000001" : "000002");
    EXPECT_EQ(letto.lines().at(2).at(84, 1), std::string(1, operazione));
    accettata(2, file, operazione == 'S' ? "27041012345678902" : "27041012345678903");
  }
  EXPECT_EQ(operazioni(2), (Operazioni{{"nessuna", quante2 - 1}}));
  EXPECT_EQ(operazioni(1), (Operazioni{{"nuova", quante1}}));
}

INSTANTIATE_TEST_SUITE_P(Years, VitaPubblicata, ::testing::Values(2020, 2024),
                         [](const auto& caso) { return std::to_string(caso.param); });

}  // namespace
}  // namespace cu::test
