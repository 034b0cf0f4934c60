#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fornitura/intorno.h"
#include "support/company_answers.h"
#include "support/fake_factory.h"
#include "support/fixed_clock.h"
#include "support/memory_file_system.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "worklist/compensi.h"

namespace cu::test {

// The operations with surroundings that record their calls: user 12, company 1, 5 March 2017. There is no
// form; the front end is only the sink of their progress.
class OperazioniProva : public testing::Test {
 protected:
  OperazioniProva() {
    files.folders = {"/cu", "/documenti", "/documenti/Comunicazioni"};
    answerCompany(database, conteggi);
  }
  ~OperazioniProva() override {
    EXPECT_TRUE(avanzamento.shown.empty());
    EXPECT_TRUE(avanzamento.boxes.empty());
  }
  fornitura::Intorno intorno() {
    return {.ambito = {&database, 12, 1, 1},
            .factory = factory,
            .utilita = utilita,
            .files = files,
            .clock = clock,
            .avanzamento = avanzamento,
            .visore = avanzamento,
            .modello = modello};
  }
  static Filtri anno(const char* quale) {
    Filtri filtri;
    filtri.anno = quale;
    return filtri;
  }
  std::vector<std::string> eseguite() const { return database.internal.texts(FakeConnection::Kind::Execute); }

  std::reference_wrapper<const modello::Modello> modello = modello::kModello;
  Counts conteggi;
  FakeDatabase database;
  FakeFactory factory{database};
  ScriptedFrontEnd avanzamento;
  SimpleUtility utilita{avanzamento};
  MemoryFileSystem files;
  FixedClock clock{2017, 3, 5};
  Compensi compensi{utilita, avanzamento};
};

// The code and the place of each finding.
inline std::vector<std::string> codici(const std::vector<Finding>& rilievi) {
  std::vector<std::string> trovati;
  for (const Finding& rilievo : rilievi) trovati.push_back(rilievo.code + " @" + rilievo.place);
  return trovati;
}

}  // namespace cu::test
