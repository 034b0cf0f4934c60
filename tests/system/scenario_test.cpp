// Conversations stored in files, one per file: the commands, the expected answers, and the reason.
//
// A line of a file is a JSON object:
//   {"comment":"..."}                  for the reader
//   {"setup":{"database":"demo|empty|none","profile":{"section.key":"TOML value"}}}   first, if at all
//   {"expect":{...}}                   the answer that comes before any command
//   {"send":{...},"expect":{...}}      a command and its answer; {"raw":"..."} for bytes that are no command
//   {"close":true}                     standard input ends here; without it, behind the last line
//   {"after":{"exit":0,"stderr":...,"trace":[...],"files":{"folder":[...]}}}   last, if at all: what is left

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "system/confronto_support.h"
#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;

struct Riga {
  int numero;
  json contenuto;
};

std::vector<Riga> leggi(const std::filesystem::path& percorso) {
  std::ifstream file(percorso);
  std::vector<Riga> righe;
  int numero = 0;
  for (std::string testo; std::getline(file, testo);) {
    ++numero;
    if (!testo.empty()) righe.push_back({numero, json::parse(testo)});
  }
  return righe;
}

std::vector<std::filesystem::path> scenari() {
  std::vector<std::filesystem::path> percorsi;
  for (const auto& voce : std::filesystem::directory_iterator(CU_SCENARI)) {
    if (voce.path().extension() == ".jsonl") percorsi.push_back(voce.path());
  }
  std::sort(percorsi.begin(), percorsi.end());
  return percorsi;
}

class Scenario : public ::testing::TestWithParam<std::filesystem::path> {
 protected:
  void prepara(const json& impianto) {
    const std::string database = impianto.value("database", "demo");
    posto_ = std::make_unique<Posto>(database == "none"    ? Posto::Database::Nessuno
                                     : database == "empty" ? Posto::Database::Vuoto
                                                           : Posto::Database::Dimostrativo);
    if (!impianto.contains("profile")) return;
    for (const auto& [chiave, valore] : impianto["profile"].items()) posto_->imposta(chiave, valore);
  }

  void confronta(const Riga& riga, Processo& processo) {
    const auto risposta = processo.riga();
    ASSERT_TRUE(risposta.has_value()) << "line " << riga.numero << ": no answer; " << processo.errori();
    const std::string qui = differenza(riga.contenuto["expect"], json::parse(*risposta));
    EXPECT_EQ(qui, "") << "line " << riga.numero << ": " << *risposta;
  }

  void scambia(const Riga& riga, Processo& processo) {
    const json& contenuto = riga.contenuto;
    if (contenuto.contains("send") || contenuto.contains("raw")) {
      ASSERT_TRUE(contenuto.contains("expect")) << "line " << riga.numero << " expects nothing";
      processo.scrivi(
          (contenuto.contains("send") ? contenuto["send"].dump() : contenuto["raw"].get<std::string>()) +
          "\n");
    }
    if (contenuto.contains("close")) processo.chiudiIngresso();
    if (contenuto.contains("expect")) confronta(riga, processo);
  }

  void controllaDopo(const json& dopo, Processo& processo) {
    EXPECT_EQ(processo.codice(), dopo.value("exit", 0)) << processo.errori();
    if (dopo.contains("stderr")) {
      EXPECT_EQ(differenza(dopo["stderr"], processo.errori()), "");
    }
    if (dopo.contains("trace")) {
      EXPECT_EQ(differenza(dopo["trace"], traccia()), "");
    }
    if (!dopo.contains("files")) return;
    for (const auto& [cartella, nomi] : dopo["files"].items()) {
      EXPECT_EQ(differenza(nomi, json(posto_->file(cartella))), "") << cartella;
    }
  }

  json traccia() const {
    json testi = json::array();
    std::istringstream righe(posto_->cartella().read("trace.sql"));
    for (std::string riga; std::getline(righe, riga);) testi.push_back(json::parse(riga));
    return testi;
  }

  std::unique_ptr<Posto> posto_;
};

TEST_P(Scenario, RunsAsWritten) {
  const std::vector<Riga> righe = leggi(GetParam());
  json impianto = json::object();
  json dopo = json::object();
  bool attesa = false;
  for (const Riga& riga : righe) {
    if (riga.contenuto.contains("setup")) impianto = riga.contenuto["setup"];
    if (riga.contenuto.contains("after")) dopo = riga.contenuto["after"];
    attesa = attesa || riga.contenuto.contains("expect");
  }
  ASSERT_TRUE(attesa || dopo.contains("exit")) << "a scenario that expects nothing";
  prepara(impianto);
  const auto processo = posto_->guida();
  for (const Riga& riga : righe) {
    scambia(riga, *processo);
    if (HasFatalFailure()) return;
  }
  processo->chiudiIngresso();
  processo->resto();
  controllaDopo(dopo, *processo);
}

INSTANTIATE_TEST_SUITE_P(Files, Scenario, ::testing::ValuesIn(scenari()),
                         [](const ::testing::TestParamInfo<std::filesystem::path>& file) {
                           return file.param.stem().string();
                         });

}  // namespace
}  // namespace cu::test
