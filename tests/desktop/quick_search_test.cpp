// The search above the grid of compensation lines.

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "desktop/grid_support.h"

namespace cu::test {
namespace {

class QuickSearchOfLines : public LinesInWindow {};

TEST_F(QuickSearchOfLines, TheQuickSearchMovesToTheRowAndChangesNothingElse) {
  const std::string all = grid().column("Selezionato")->caption;
  const int last = model().rowCount() - 1;
  const int column = *model().columnOf("AnagraficaPerc");
  const QString wanted = model().text(last, column);
  auto* const box = screen.find<QLineEdit>("ricercaRapida");
  box->setFocus();
  typeText(*box, wanted.toUpper());
  QTest::qWait(200);
  EXPECT_EQ(model().text(static_cast<int>(grid().row()) - 1, column), wanted);
  EXPECT_EQ(model().text(last, column), wanted) << "the order is as it was";
  EXPECT_EQ(grid().column("Selezionato")->caption, all);
  EXPECT_EQ(screen.window().focusWidget(), box) << "the typing goes on";
}

// The rows of a column in the order in which Enter in the quick search visits them.
QList<int> inOrderOfSearch(const desktop::GridModel& model, int column, const QString& wanted) {
  QList<int> rows;
  for (const bool begins : {true, false}) {
    for (int row = 0; row < model.rowCount(); ++row) {
      const QString name = model.text(row, column);
      const bool has = name.contains(wanted, Qt::CaseInsensitive);
      if (has && name.startsWith(wanted, Qt::CaseInsensitive) == begins) rows += row;
    }
  }
  return rows;
}

TEST_F(QuickSearchOfLines, EnterInTheQuickSearchGoesToTheNextRowAndRoundAgain) {
  const int column = *model().columnOf("AnagraficaPerc");
  const QString wanted = QStringLiteral("fe");
  const QList<int> rows = inOrderOfSearch(model(), column, wanted);
  const QString first = model().text(rows.first(), column);
  const QString last = model().text(rows.last(), column);
  ASSERT_TRUE(first.startsWith(wanted, Qt::CaseInsensitive)) << first.toStdString();
  ASSERT_FALSE(last.startsWith(wanted, Qt::CaseInsensitive)) << last.toStdString();
  auto* const box = screen.find<QLineEdit>("ricercaRapida");
  box->setFocus();
  typeText(*box, wanted);
  QTRY_VERIFY(rows.contains(static_cast<int>(grid().row()) - 1));
  qsizetype at = rows.indexOf(static_cast<int>(grid().row()) - 1);
  for (qsizetype i = 0; i <= rows.size(); ++i) {
    at = (at + 1) % rows.size();
    screen.key(i % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
    ASSERT_EQ(static_cast<int>(grid().row()) - 1, rows[at]) << i;
  }
  EXPECT_EQ(screen.window().focusWidget(), box) << "the typing goes on";
}

TEST_F(QuickSearchOfLines, TheQuickSearchFindsAPayeeByFiscalCodeAndCode) {
  auto* const box = screen.find<QLineEdit>("ricercaRapida");
  auto* const note = screen.find<QLabel>("esitoRicerca");
  box->setFocus();
  const int last = model().rowCount() - 1;
  for (const char* field : {"CodiceFiscale", "CodicePercipiente"}) {
    const QString text = model().fieldText(last, field);
    ASSERT_FALSE(text.isEmpty()) << field;
    box->clear();
    typeText(*box, text.toLower());
    screen.key(Qt::Key_Return);
    const int found = static_cast<int>(grid().row()) - 1;
    EXPECT_EQ(model().fieldText(found, field), text);
    EXPECT_TRUE(note->isVisible());
    EXPECT_TRUE(note->text().endsWith(text)) << "what is not seen in the row is said";
  }
  EXPECT_TRUE(note->text().startsWith(QStringLiteral("codice "))) << note->text().toStdString();
  // A name is seen in its row.
  box->clear();
  typeText(*box, model().text(0, *model().columnOf("AnagraficaPerc")));
  screen.key(Qt::Key_Return);
  EXPECT_FALSE(note->isVisible());
}

TEST_F(QuickSearchOfLines, TheQuickSearchSaysInWordsThatThereIsNone) {
  auto* const box = screen.find<QLineEdit>("ricercaRapida");
  auto* const note = screen.find<QLabel>("esitoRicerca");
  const std::size_t before = grid().row();
  box->setFocus();
  typeText(*box, QStringLiteral("zzzz"));
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(note->isVisible());
  EXPECT_EQ(note->text(), QStringLiteral("Non trovato"));
  EXPECT_EQ(box->accessibleDescription(), note->text());
  EXPECT_EQ(grid().row(), before);
  screen.key(Qt::Key_Escape);
  EXPECT_FALSE(note->isVisible());
}

TEST_F(QuickSearchOfLines, EscInTheQuickSearchEmptiesItAndGoesBackToTheGrid) {
  auto* const box = screen.find<QLineEdit>("ricercaRapida");
  box->setFocus();
  typeText(*box, QStringLiteral("zzz"));
  int asked = 0;
  screen.whenModal([&](QWidget& modal) {
    ++asked;
    pressButton(modal, "No");
  });
  screen.key(Qt::Key_Escape);
  EXPECT_EQ(box->text(), QString());
  EXPECT_EQ(screen.window().focusWidget(), box);
  screen.key(Qt::Key_Escape);
  EXPECT_EQ(screen.window().focusWidget(), &table());
  EXPECT_EQ(asked, 0) << "the program is not offered to be left";
  screen.key(Qt::Key_Escape);
  EXPECT_EQ(asked, 1) << "in the grid the key is the form's";
  expectAgreement();
}

}  // namespace
}  // namespace cu::test
