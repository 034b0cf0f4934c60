// The order and the filter of the rows in view, which leave the rows themselves as they are.

#include "desktop/grid_order.h"

#include <gmock/gmock.h>

#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <numeric>

#include "desktop/foot.h"
#include "desktop/form_window.h"
#include "desktop/grid_support.h"
#include "gestione/righe_elenco.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;

struct ListForm : Form {
  explicit ListForm(FrontEnd& frontEnd) : Form(frontEnd, "frmElenco"), list(*this, "grdElenco", nullptr) {}
  Grid list;
};

// A grid of a key, a text, an amount and a day.
class Arranging : public ::testing::Test {
 protected:
  Arranging()
      : form(frontEnd),
        rows(form.list, {colonnaChiave(), colonnaTesto("Nome", "Nome", 900), colonnaImporto("Lordo", "Lordo"),
                         colonnaGiorno("Giorno", "Giorno")}) {}
  void add(const char* name, std::optional<int> amount, const char* day) {
    const std::int64_t key = static_cast<std::int64_t>(all.size());
    all.push_back({Value::ofInteger(key), Value::ofText(name),
                   amount ? Value::ofDecimal(Decimal::fromInteger(*amount)) : Value(),
                   Value::ofDate(*Date::parseItalian(day))});
    rows.mostra(all);
  }
  std::vector<std::uint32_t> by(const char* field, bool descending = false) {
    return desktop::arranged(form.list, {field, descending, {}, 0});
  }
  std::vector<std::uint32_t> with(const char* words) {
    return desktop::arranged(form.list, {"", false, QString::fromUtf8(words), 0});
  }

  desktop::QtFrontEnd frontEnd;
  ListForm form;
  RigheElenco rows;
  std::vector<RigheElenco::Riga> all;
};

TEST_F(Arranging, TextsByTheirLettersAmountsAsNumbersDaysAsDays) {
  add("zoe", 9, "01/02/2016");
  add("Èva", 1000, "31/01/2016");
  add("ettore", -5, "01/01/2017");
  add("D'Angelo Anna Maria", std::nullopt, "02/02/2015");
  add("D'Angelo Anna", 10, "03/02/2015");
  EXPECT_THAT(by("Nome"), ElementsAre(4, 3, 2, 1, 0));
  EXPECT_THAT(by("Lordo"), ElementsAre(3, 2, 0, 4, 1));
  EXPECT_THAT(by("Giorno"), ElementsAre(3, 4, 1, 0, 2));
  EXPECT_THAT(by("Giorno", true), ElementsAre(2, 0, 1, 4, 3));
}

TEST_F(Arranging, EqualValuesKeepTheirOrderInBothDirections) {
  add("Rossi", 7, "01/02/2016");
  add("ROSSI", 3, "01/02/2016");
  add("Ròssi", 7, "01/02/2016");
  EXPECT_THAT(by("Nome"), ElementsAre(0, 1, 2));
  EXPECT_THAT(by("Nome", true), ElementsAre(0, 1, 2));
  EXPECT_THAT(by("Lordo", true), ElementsAre(0, 2, 1));
}

TEST_F(Arranging, AllWordsAreInTheRowInWhateverColumnAndForm) {
  add("Èva Rossi", 1234, "01/02/2016");
  add("Rossi Adamo", 12, "31/01/2016");
  EXPECT_THAT(with("rossi"), ElementsAre(0, 1));
  EXPECT_THAT(with("EVA  rossi"), ElementsAre(0));
  add("Jose\u0301 Nuñez-Straße", 5, "01/02/2016");
  EXPECT_THAT(with("josé NUNEZ"), ElementsAre(2));
  EXPECT_THAT(with("STRAßE"), ElementsAre(2));
  EXPECT_THAT(with("1.234,00"), ElementsAre(0));
  EXPECT_THAT(with("1234,0"), ElementsAre(0));
  EXPECT_THAT(with("rossi 31/01"), ElementsAre(1));
  EXPECT_THAT(with("rossieva"), ElementsAre());
  EXPECT_THAT(with(""), ElementsAre(0, 1, 2));
}

TEST_F(Arranging, OneWordDoesNotSpanTwoColumns) {
  add("Rossi 1", 2, "01/02/2016");
  EXPECT_THAT(with("12"), ElementsAre());
  EXPECT_THAT(with("1 2"), ElementsAre(0));
}

class GridOrder : public LinesInWindow {
 protected:
  std::vector<std::string> names(const std::vector<int>& of, const char* field = "AnagraficaPerc") {
    std::vector<std::string> found;
    for (const int row : of) found.push_back(stored(row, field));
    return found;
  }
  std::vector<int> inOrder() {
    std::vector<int> rows(grid().rowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
  }
  std::string chosen() { return grid().column("Selezionato")->caption; }
  QToolButton& state(const char* name) {
    return *screen.find<QToolButton>((std::string("stato:") + name).c_str());
  }
  std::string seen() { return screen.find<QWidget>("righeInVista")->accessibleName().toStdString(); }
};

TEST_F(GridOrder, AHeaderSortsUpThenDownThenGivesTheAccountsOrderBack) {
  const std::vector<std::string> before = names(inOrder());
  const auto amounts = [&] {
    std::vector<double> found;
    for (const int row : rowsInView()) found.push_back(std::stod(stored(row, "AmmontareLordo")));
    return found;
  };
  clickHeader("AmmontareLordo");
  std::vector<double> up = amounts();
  EXPECT_TRUE(std::is_sorted(up.begin(), up.end()));
  EXPECT_NE(rowsInView(), inOrder());
  EXPECT_EQ(grid().row(), 1U) << "the current row is the one that it was";
  EXPECT_EQ(names(inOrder()), before) << "the rows are as they were";
  expectAgreement();
  clickHeader("AmmontareLordo");
  std::vector<double> down = amounts();
  EXPECT_TRUE(std::is_sorted(down.rbegin(), down.rend()));
  clickHeader("AmmontareLordo");
  EXPECT_EQ(rowsInView(), inOrder());
  expectAgreement();
}

TEST_F(GridOrder, TheOrderIsTheViewsAndTheFormStillGetsTheEvent) {
  std::vector<std::string> pressed;
  grid().onMouseUp = [&](std::size_t row, const std::string& field) {
    pressed.push_back(std::to_string(row) + field);
  };
  clickHeader("Codice");
  EXPECT_THAT(pressed, ElementsAre("0Codice"));
  EXPECT_EQ(model().headerData(column("Codice"), Qt::Horizontal, Qt::AccessibleTextRole).toString(),
            QStringLiteral("Codice pagamento, in ordine crescente"));
  clickHeader("Popup");
  EXPECT_THAT(pressed, ElementsAre("0Codice", "0Popup"));
  EXPECT_EQ(view().arrangement().field, "Codice") << "a column of menus has no order";
}

TEST_F(GridOrder, TheColumnsKeepTheirWidthsWhateverIsInView) {
  const int before = table().columnWidth(column("AnagraficaPerc"));
  filter("zzzz");
  ASSERT_TRUE(rowsInView().empty());
  screen.click("cmdSelect(1)");
  EXPECT_EQ(table().columnWidth(column("AnagraficaPerc")), before);
  filter("");
  EXPECT_EQ(table().columnWidth(column("AnagraficaPerc")), before);
}

TEST_F(GridOrder, WithoutTheCurrentRowTheRowsAreSeenFromTheFirst) {
  screen.click("cmdSelect(1)");
  table().setFocus();
  screen.key(Qt::Key_End, Qt::ControlModifier);
  screen.key(Qt::Key_Space);
  ASSERT_EQ(chosen(), "[ 1 ]");
  ASSERT_GT(table().rowAt(4), 0) << "scrolled";
  state("Non scelte").click();
  settle();
  ASSERT_TRUE(view().currentHidden());
  ASSERT_GT(rowsInView().size(), 20U);
  EXPECT_EQ(table().rowAt(4), 0);
  expectAgreement();
}

TEST_F(GridOrder, KeysFollowTheViewAndActOnTheRowsThatAreHighlighted) {
  clickHeader("AmmontareLordo");
  clickHeader("AmmontareLordo");
  table().setFocus();
  screen.key(Qt::Key_Home, Qt::ControlModifier);
  const std::vector<int> seen = rowsInView();
  EXPECT_EQ(static_cast<int>(grid().row()) - 1, seen[0]);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(static_cast<int>(grid().row()) - 1, seen[2]);
  std::vector<std::size_t> passed;
  const auto own = grid().onKeyDown;
  grid().onKeyDown = [&](std::int16_t& code, std::int16_t& shift) {
    passed = grid().highlighted();
    own(code, shift);
  };
  screen.key(Qt::Key_Space);
  std::vector<std::size_t> wanted;
  for (int i = 0; i < 3; ++i)
    wanted.push_back(static_cast<std::size_t>(seen[static_cast<std::size_t>(i)]) + 1);
  std::sort(wanted.begin(), wanted.end());
  EXPECT_EQ(passed, wanted);
  for (const int row : inOrder()) {
    const bool taken =
        std::find(wanted.begin(), wanted.end(), static_cast<std::size_t>(row) + 1) == wanted.end();
    EXPECT_EQ(stored(row, "Selezionato") != "0", taken) << row;
  }
  EXPECT_EQ(rowsInView(), seen) << "nothing moves away under the hand";
  grid().onKeyDown = own;
  expectAgreement();
}

TEST_F(GridOrder, ADoubleClickOpensTheRowThatIsMeant) {
  clickHeader("AmmontareLordo");
  const int meant = rowsInView()[3];
  const std::string account = stored(meant, "IDAnagrafica") + "/" + stored(meant, "IDCausalePagamento");
  screen.whenModal([&](QWidget&) {
    const Recordset& open = *grid().rows();
    EXPECT_EQ(open.Get("IDAnagrafica").toText() + "/" + open.Get("IDCausalePagamento").toText(), account);
    screen.key(Qt::Key_Escape);
  });
  QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell(3, "AnagraficaPerc"));
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_EQ(static_cast<int>(grid().row()) - 1, meant);
  EXPECT_EQ(table().currentIndex().row(), 3);
  expectAgreement();
}

TEST_F(GridOrder, TheHighlightedRowsStayHighlightedInAnotherOrder) {
  table().setFocus();
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  const std::vector<std::uint32_t> before = view().highlightedRows();
  ASSERT_EQ(before.size(), 3U);
  clickHeader("RitenuteAcconto");
  EXPECT_EQ(view().highlightedRows(), before);
  EXPECT_EQ(grid().row(), 3U);
}

TEST_F(GridOrder, TheFilterShowsTheRowsThatHaveAllWordsAndChangesNoChoice) {
  const std::string name = stored(7, "AnagraficaPerc");
  const std::string chosen = grid().column("Selezionato")->caption;
  filter(name.c_str());
  ASSERT_GT(model().rowCount(), 0);
  ASSERT_LT(model().rowCount(), model().gridRows());
  EXPECT_THAT(names(rowsInView()), ::testing::Each(name));
  EXPECT_EQ(grid().column("Selezionato")->caption, chosen);
  EXPECT_EQ(grid().rowCount(), static_cast<std::size_t>(model().gridRows()));
  filter("");
  EXPECT_EQ(rowsInView(), inOrder());
  table().setFocus();
  expectAgreement();
}

TEST_F(GridOrder, ACurrentRowThatTheFilterHidesStaysAndNoKeyActsOnIt) {
  const std::string name = stored(7, "AnagraficaPerc");
  ASSERT_NE(stored(0, "AnagraficaPerc"), name);
  filter(name.c_str());
  EXPECT_EQ(grid().row(), 1U);
  EXPECT_TRUE(view().currentHidden());
  QTest::qWait(100);
  EXPECT_NE(seen().find("la riga corrente non è fra queste"), std::string::npos) << seen();
  table().setFocus();
  screen.key(Qt::Key_Space);
  EXPECT_EQ(chosen(), "[ 49 ]");
  screen.key(Qt::Key_Down);
  EXPECT_FALSE(view().currentHidden());
  EXPECT_EQ(static_cast<int>(grid().row()) - 1, rowsInView()[0]);
  EXPECT_EQ(chosen(), "[ 49 ]");
  screen.key(Qt::Key_Space);
  EXPECT_EQ(chosen(), "[ 48 ]");
  EXPECT_EQ(stored(rowsInView()[0], "Selezionato"), "0");
  expectAgreement();
}

TEST_F(GridOrder, ReadyFiltersShowTheRowsInTheirStates) {
  table().setFocus();
  screen.key(Qt::Key_Space);
  state("Non scelte").click();
  EXPECT_THAT(rowsInView(), ElementsAre(0));
  state("Scelte").click();
  EXPECT_EQ(model().rowCount(), 0) << "no row is in both states";
  state("Non scelte").click();
  EXPECT_EQ(model().rowCount(), model().gridRows() - 1);
  QTest::qWait(100);
  EXPECT_EQ(state("Scelte").text(), QStringLiteral("Scelte %L1").arg(model().gridRows() - 1));
  EXPECT_TRUE(state("Senza protocollo").isHidden()) << "an ordinary communication has none";
}

TEST_F(GridOrder, SelezionaTuttoMeansAllRowsAndTellsOfThoseHidden) {
  screen.click("cmdSelect(1)");
  const int rows = model().gridRows();
  filter(stored(7, "AnagraficaPerc").c_str());
  QTest::qWait(100);
  const int hidden = rows - model().rowCount();
  screen.click("cmdSelect(0)");
  const std::string told =
      "Sono state scelte anche " + std::to_string(hidden) + " righe nascoste dal filtro.";
  EXPECT_TRUE(QTest::qWaitFor([&] { return screen.window().foot()->words().toStdString() == told; }))
      << screen.window().foot()->words().toStdString();
  for (int row = 0; row < rows; ++row) EXPECT_NE(stored(row, "Selezionato"), "0") << row;
}

TEST_F(GridOrder, SelezionaTuttoWithAllRowsHiddenTellsOfNoOthers) {
  screen.click("cmdSelect(1)");
  filter("zzzz");
  QTest::qWait(100);
  ASSERT_EQ(model().rowCount(), 0);
  screen.click("cmdSelect(0)");
  const std::string told =
      "Sono state scelte " + std::to_string(model().gridRows()) + " righe nascoste dal filtro.";
  EXPECT_TRUE(QTest::qWaitFor([&] { return screen.window().foot()->words().toStdString() == told; }))
      << screen.window().foot()->words().toStdString();
}

TEST_F(GridOrder, ARowThatLeavesTheFilterStaysUntilItIsAppliedAgain) {
  state("Scelte").click();
  table().setFocus();
  screen.key(Qt::Key_Down);
  screen.key(Qt::Key_Space);
  EXPECT_EQ(rowsInView(), inOrder());
  QTest::qWait(100);
  EXPECT_NE(seen().find("una non risponde più al filtro"), std::string::npos) << seen();
  QTest::keyClick(screen.find<QLineEdit>("filtroRighe"), Qt::Key_Return);
  EXPECT_EQ(model().rowCount(), model().gridRows() - 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return seen().find("risponde") == std::string::npos; })) << seen();
}

TEST_F(GridOrder, NewRowsAreArrangedAsTheOldOnesWere) {
  clickHeader("AmmontareLordo");
  filter(stored(7, "AnagraficaPerc").c_str());
  const std::vector<int> before = rowsInView();
  screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
  screen.click("cmdNav(2)");
  screen.click("cmdNav(3)");
  EXPECT_EQ(rowsInView(), before);
  expectAgreement();
}

TEST_F(GridOrder, TheQuickSearchFollowsTheView) {
  clickHeader("AnagraficaPerc");
  clickHeader("AnagraficaPerc");
  screen.find<QLineEdit>("ricercaRapida")->setFocus();
  screen.key(Qt::Key_Home);
  const QString wanted = model().text(model().rowCount() - 1, column("AnagraficaPerc"));
  typeText(*screen.find<QLineEdit>("ricercaRapida"), wanted);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const int row = table().currentIndex().row();
    return model().text(row, column("AnagraficaPerc")) == wanted;
  }));
  table().setFocus();
  expectAgreement();
}

TEST_F(GridOrder, EscInTheFilterEmptiesItAndThenGoesToTheGrid) {
  auto* const box = screen.find<QLineEdit>("filtroRighe");
  filter("zzz");
  EXPECT_EQ(model().rowCount(), 0);
  box->setFocus();
  screen.key(Qt::Key_Escape);
  EXPECT_EQ(rowsInView(), inOrder());
  EXPECT_EQ(screen.window().focusWidget(), box);
  screen.key(Qt::Key_Escape);
  EXPECT_EQ(screen.window().focusWidget(), &table());
}

TEST_F(GridOrder, TheReadyFiltersAreOneTabStopAndTheArrowsMoveAmongThem) {
  screen.find<QLineEdit>("filtroRighe")->setFocus();
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(screen.window().focusWidget(), &state("Scelte"));
  screen.key(Qt::Key_Right);
  EXPECT_EQ(screen.window().focusWidget(), &state("Non scelte"));
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(state("Non scelte").isChecked());
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(screen.window().focusWidget(), &table());
}

}  // namespace
}  // namespace cu::test
