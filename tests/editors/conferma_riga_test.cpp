#include "editors/conferma_riga.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_connection.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/work_table.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

class LineEditor : public testing::Test {
 protected:
  void SetUp() override {
    connessione.answer("t", workTable({workRow(1, 1), workRow(2, 1, {{"AnagraficaPerc", text("Verdi Ugo")}}),
                                       workRow(2, 2)}));
    righe.Open(connessione, "t", LockType::BatchOptimistic);
    righe.MoveTo(2);
  }
  // Opens the editor on the current line; `tasto` is the button that a person presses, "" for none.
  bool conferma(const std::string& tasto) {
    const auto editor = fnCreaEditor(2016, frontEnd, utilita);
    editor->setRecordset(righe);
    frontEnd.modals.push_back([&](Form& form) {
      if (!tasto.empty()) dynamic_cast<Button&>(*form.find(tasto)).click();
    });
    editor->showModal();
    return editor->OK();
  }

  FakeConnection connessione;
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  Recordset righe;
};

TEST_F(LineEditor, IsTheOneOfTheYearsLayout) {
  const std::pair<int, const char*> kAnni[] = {{2014, "frmCompenso"},     {2015, "frmCompenso2016"},
                                               {2016, "frmCompenso2017"}, {2013, "frmCompenso2017"},
                                               {2030, "frmCompenso2017"}, {0, "frmCompenso2017"}};
  for (const auto& [anno, nome] : kAnni)
    EXPECT_EQ(fnCreaEditor(anno, frontEnd, utilita)->name(), nome) << anno;
}

TEST_F(LineEditor, ShowsTheOneLineItIsGiven) {
  const auto editor = fnCreaEditor(2016, frontEnd, utilita);
  editor->setRecordset(righe);
  EXPECT_EQ(&editor->Recordset(), &righe);
  EXPECT_EQ(righe.RecordCount(), 1U);
  EXPECT_EQ(righe.Get("IDAnagrafica").integer(), 2);
  EXPECT_EQ(righe.Get("IDCausalePagamento").integer(), 1);
}

TEST_F(LineEditor, SaysWhetherItWasConfirmed) {
  EXPECT_TRUE(conferma("cmdOk"));
  EXPECT_FALSE(conferma("cmdAnnulla"));
  EXPECT_FALSE(conferma(""));
}

TEST_F(LineEditor, ChangesNothingInTheDatabase) {
  connessione.sent.clear();
  conferma("cmdOk");
  EXPECT_THAT(connessione.texts(), ElementsAre());
}

}  // namespace
}  // namespace cu::test
