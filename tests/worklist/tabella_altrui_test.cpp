// The work table of a user has the same name in each of his sessions: whose lines it holds is found out
// before they reach the accounts and the file.

#include <gmock/gmock.h>

#include <array>
#include <vector>

#include "worklist/compensi_prova.h"

namespace cu::test {
namespace {

class TabellaAltrui : public testing::Test {
 protected:
  void SetUp() override { prova.carica({workRow(101, 1), workRow(102, 3)}); }
  // What the table holds now: key, selection and correction of each line.
  void contiene(const std::vector<std::array<int, 6>>& righe) {
    Table tabella({"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "Selezionato", "Modificato"},
                  {});
    for (const auto& riga : righe) {
      std::vector<Value> celle;
      for (const int valore : riga) celle.push_back(whole(valore));
      tabella.rows.push_back(std::move(celle));
    }
    prova.database.own.answerContaining("FROM tmpprequadrivio12", tabella);
  }
  std::string errore() {
    return prova.erroreDi([&] { prova.compensi.sbControllaTabella(); });
  }
  CompensiProva prova;
};

TEST_F(TabellaAltrui, IsNotTheOneThatHasBeenLoadedInAnyOrder) {
  contiene({{102, 3, 2016, 1, 1, 0}, {101, 1, 2016, 1, 1, 0}});
  EXPECT_EQ(errore(), "");
  EXPECT_TRUE(prova.database.main.sent.empty() && prova.database.internal.sent.empty())
      << "nothing is traced";
}

TEST_F(TabellaAltrui, HasTheLinesOfAnotherYear) {
  contiene({{101, 1, 2017, 1, 1, 0}, {102, 3, 2017, 1, 1, 0}});
  EXPECT_THAT(errore(), testing::HasSubstr("un'altra sessione dello stesso utente"));
}

TEST_F(TabellaAltrui, HasMoreLinesOrNone) {
  contiene({{101, 1, 2016, 1, 1, 0}, {102, 3, 2016, 1, 1, 0}, {103, 1, 2016, 1, 1, 0}});
  EXPECT_NE(errore(), "");
  contiene({});
  EXPECT_NE(errore(), "");
}

// The same lines loaded again: what has been corrected or deselected here is not in them.
TEST_F(TabellaAltrui, HasLostACorrectionOrTheSelection) {
  Recordset& righe = prova.compensi.rsCompensi();
  righe.MoveFirst();
  righe.Set("Modificato", Value::ofFlag(true));
  righe.Update();
  contiene({{101, 1, 2016, 1, 1, 0}, {102, 3, 2016, 1, 1, 0}});
  EXPECT_NE(errore(), "");
  contiene({{101, 1, 2016, 1, 1, 1}, {102, 3, 2016, 1, 1, 0}});
  EXPECT_EQ(errore(), "");
  contiene({{101, 1, 2016, 1, 1, 1}, {102, 3, 2016, 1, 0, 0}});
  EXPECT_NE(errore(), "");
}

}  // namespace
}  // namespace cu::test
