// The program is killed at any moment: finished work is kept, each statement is executed or not executed, the
// database is intact, and the next run completes the work.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>
#include <thread>

#include "system/posto_support.h"

namespace cu::test {
namespace {

constexpr int kTentativi = 12;
constexpr const char* kTabella = "tmpprequadrivio12";

std::string clic(const std::string& controllo) { return "{\"do\":\"click\",\"on\":\"" + controllo + "\"}"; }

std::string scegli(const std::string& elenco, const std::string& voce) {
  return "{\"do\":\"choose\",\"in\":\"" + elenco + "\",\"text\":\"" + voce + "\"}";
}

std::string rispondi(const std::string& risposta) {
  return "{\"do\":\"answer\",\"with\":\"" + risposta + "\"}";
}

class Interruzione : public ::testing::Test {
 protected:
  Interruzione() : posto_(Posto::Database::Nessuno) {
    const Esecuzione esito = posto_.crea({"--payees", "1500", "--years", "2016-2016", "--seed", "3"});
    EXPECT_EQ(esito.codice, 0) << esito.errori;
  }

  // The wizard on its second step, the work table loaded.
  std::unique_ptr<Processo> allaGriglia() {
    auto processo = posto_.guida();
    processo->riga();
    fai(*processo, clic("frmWizard.optstType(1)"));
    fai(*processo, scegli("frmWizard.KRNCboEsCont(0)", "2016"));
    fai(*processo, clic("frmWizard.cmdNav(3)"));
    return processo;
  }
  static void fai(Processo& processo, const std::string& comando) {
    processo.scrivi(comando + "\n");
    const auto risposta = processo.riga();
    ASSERT_TRUE(risposta.has_value());
    ASSERT_NE(risposta->find("\"ok\":true"), std::string::npos) << *risposta;
  }
  // The duration of the undisturbed command.
  static std::chrono::microseconds durata(Processo& processo, const std::string& comando) {
    const auto inizio = std::chrono::steady_clock::now();
    fai(processo, comando);
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - inizio);
  }
  // Sends the command and kills the program within the command's duration.
  void uccidiDurante(Processo& processo, const std::string& comando, std::chrono::microseconds tempo) {
    std::uniform_int_distribution<std::int64_t> istante(0, tempo.count());
    const std::chrono::microseconds attesa(istante(caso_));
    processo.scrivi(comando + "\n");
    std::this_thread::sleep_for(attesa);
    ::kill(processo.id(), SIGKILL);
    processo.codice();
  }
  void sano() {
    if (sulServer()) return;  // a server ensures its own consistency
    EXPECT_EQ(posto_.lettore()->testo("PRAGMA integrity_check"), "ok");
  }
  void compiPoi() {
    const Esecuzione esito = posto_.cuctl({"make", "--profile", posto_.profilo(), "--year", "2016",
                                           "--folder", posto_.cartella() / "Documenti", "--yes"});
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    EXPECT_EQ(fileIntero(), true);
  }
  // Whether the file of the last run ends with its record Z.
  bool fileIntero() {
    for (const std::string& nome : posto_.file("Documenti")) {
      if (nome.size() < 4 || nome.substr(nome.size() - 4) != ".cur") continue;
      const std::string contenuto = posto_.cartella().read("Documenti/" + nome);
      return contenuto.size() >= 1900 && contenuto.size() % 1900 == 0 &&
             contenuto[contenuto.size() - 1900] == 'Z';
    }
    return false;
  }

  Posto posto_;
  std::mt19937 caso_{std::random_device{}()};
};

TEST_F(Interruzione, SelectAllKeepsEachLineThatWasDone) {
  const std::string deseleziona = clic("frmWizard.cmdSelect(1)");
  std::chrono::microseconds tempo{};
  {
    const auto intero = allaGriglia();
    tempo = durata(*intero, deseleziona);
  }
  int aMeta = 0;
  for (int i = 0; i < kTentativi; ++i) {
    const auto processo = allaGriglia();
    uccidiDurante(*processo, deseleziona, tempo);
    sano();
    const auto lettore = posto_.lettore();
    const std::string tabella = kTabella;
    const std::int64_t righe = lettore->numero("SELECT COUNT(*) FROM " + tabella);
    const std::int64_t fatte = lettore->numero("SELECT COUNT(*) FROM " + tabella + " WHERE Selezionato = 0");
    ASSERT_GT(righe, 1000);
    // The statements run in the order of the lines, which is that of the key where the server reads by it:
    // the executed ones are a contiguous prefix.
    const auto nellOrdine = lettore->righe("SELECT Selezionato FROM " + tabella +
                                           " ORDER BY IDAnagrafica, IDCausalePagamento, Anno");
    EXPECT_TRUE(sulServer() || std::is_sorted(nellOrdine.begin(), nellOrdine.end()));
    if (fatte > 0 && fatte < righe) ++aMeta;
  }
  EXPECT_GT(aMeta, 0) << "no run was caught in the middle";
  compiPoi();
}

TEST_F(Interruzione, WriteBackDoesAStatementOrLeavesIt) {
  const std::string indietro = clic("frmWizard.cmdNav(2)");
  const std::string si = rispondi("yes");
  const auto cambia = [&](int importo) {
    posto_.lettore()->esegui("UPDATE " + std::string(kTabella) + " SET Modificato = 1, RitenuteAcconto = " +
                             std::to_string(importo) + ", RitenuteRimborsate = " + std::to_string(importo));
  };
  std::chrono::microseconds tempo{};
  {
    const auto intero = allaGriglia();
    cambia(5);
    fai(*intero, indietro);
    tempo = durata(*intero, si);
  }
  for (int i = 0; i < kTentativi; ++i) {
    const int importo = 100 + i;
    const auto processo = allaGriglia();
    cambia(importo);
    fai(*processo, indietro);
    uccidiDurante(*processo, si, tempo);
    sano();
    const auto lettore = posto_.lettore();
    const std::string valore = std::to_string(importo);
    const std::int64_t righe = lettore->numero("SELECT COUNT(*) FROM " + std::string(kTabella));
    const std::int64_t conti =
        lettore->numero("SELECT COUNT(*) FROM ContoIndividuale WHERE RitenutaAcconto = " + valore);
    const std::int64_t dati = lettore->numero(
        "SELECT COUNT(*) FROM ContoIndividualeDatiAggiuntivi WHERE RitenuteRimborsate = " + valore);
    EXPECT_TRUE(conti == 0 || conti == righe) << conti << " di " << righe;
    EXPECT_TRUE(dati == 0 || dati == righe) << dati << " di " << righe;
    EXPECT_TRUE(dati == 0 || conti == righe) << "the second statement without the first";
  }
  compiPoi();
}

TEST_F(Interruzione, GenerationLeavesAFileThatTellsItIsNotComplete) {
  const std::string avvia = clic("frmWizard.cmdNav(4)");
  const auto allaFine = [&] {
    auto processo = allaGriglia();
    fai(*processo, clic("frmWizard.cmdNav(3)"));
    return processo;
  };
  std::chrono::microseconds tempo{};
  {
    const auto intero = allaFine();
    tempo = durata(*intero, avvia);
    ASSERT_TRUE(fileIntero());
  }
  const std::string prima = posto_.lettore()->testo("SELECT SUM(OnorarioProvvigioni) FROM ContoIndividuale");
  for (int i = 0; i < kTentativi; ++i) {
    const auto processo = allaFine();
    uccidiDurante(*processo, avvia, tempo);
    sano();
    EXPECT_EQ(posto_.lettore()->testo("SELECT SUM(OnorarioProvvigioni) FROM ContoIndividuale"), prima);
  }
  compiPoi();
}

}  // namespace
}  // namespace cu::test
