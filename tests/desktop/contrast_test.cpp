// Every text of the windows as it is drawn, in both looks.

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include "apps/avvio/finestra_avvio.h"
#include "desktop/frozen_columns.h"
#include "desktop/grid_support.h"
#include "desktop/guide_window.h"
#include "desktop/preview_dialog.h"
#include "desktop/print_dialog.h"
#include "desktop/selector_view.h"
#include "support/drawn_contrast.h"

namespace cu::test {
namespace {

// The measure itself: a grey on white that is too pale is found, the same letters in black are not.
TEST(DrawnContrast, TellsPaleLettersFromReadableOnes) {
  for (const bool pale : {true, false}) {
    QWidget window;
    QPalette colours;
    colours.setColor(QPalette::Window, Qt::white);
    colours.setColor(QPalette::WindowText, pale ? QColor(0x90, 0x90, 0x90) : QColor(Qt::black));
    window.setPalette(colours);
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(new QLabel(QStringLiteral("Ammontare 1.530,00"), &window));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const DrawnTexts drawn(window);
    EXPECT_EQ(drawn.count(), 1U);
    EXPECT_EQ(drawn.unreadable().empty(), !pale);
  }
}

class GridContrast : public LinesInWindow {};

// Sorted and filtered, rows highlighted, the current one among them; states, totals, a search that found
// nothing, columns over the others.
TEST_F(GridContrast, OfHeadingsRowsStatesAndTotals) {
  expectReadable(screen.window(), 100);
  clickHeader("AmmontareLordo");
  table().setFocus();
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  screen.key(Qt::Key_Down, Qt::ShiftModifier);
  filter("a");
  auto& search = *screen.find<QLineEdit>("ricercaRapida");
  typeText(search, QStringLiteral("xyz"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return screen.find<QLabel>("esitoRicerca")->isVisible(); }));
  expectReadable(screen.window(), 100);
  table().horizontalScrollBar()->setValue(table().horizontalScrollBar()->maximum() / 2);
  settle();
  ASSERT_FALSE(table().frozen().isHidden());
  expectReadable(screen.window(), 100);
}

TEST(WindowContrast, OfAnEditorWithAChange) {
  Screen screen;
  screen.inEditor("2016", [&] {
    screen.type("curField(19)", "77");
    expectReadable(*screen.top(), 60);
    screen.key(Qt::Key_Tab);
  });
}

TEST(WindowContrast, OfTheStepsOfTheWizard) {
  Screen screen;
  expectReadable(screen.window(), 20);
  screen.toEnd();
  expectReadable(screen.window(), 20);
}

TEST(WindowContrast, OfASearchListAndOfABox) {
  Screen screen;
  screen.whenModal([&](QWidget& list) {
    expectReadable(list, 20);
    typeText(*list.findChild<QLineEdit*>(), QStringLiteral("co"));
    settle();
    expectReadable(list, 20);
    QTest::keyClick(&list, Qt::Key_Escape);
  });
  static_cast<desktop::SelectorView&>(*screen.window().view(screen.form().KrnCDPerc0)).openSearch({});
  EXPECT_TRUE(screen.allAnswered());
  QMessageBox box(QMessageBox::Warning, QStringLiteral("Prova"),
                  QStringLiteral("Il file non si può scrivere."), QMessageBox::Ok);
  box.show();
  expectReadable(box, 2);
}

TEST(WindowContrast, OfStartGuideAndPreview) {
  const QTemporaryDir folder;
  FinestraAvvio start({}, {folder.filePath(QStringLiteral("dati")),
                           folder.filePath(QStringLiteral("config/impostazioni.toml")),
                           folder.filePath(QStringLiteral("documenti"))});
  start.show();
  expectReadable(start, 20);
  desktop::HelpWindow guide(nullptr, QStringLiteral(CU_GUIDA));
  guide.show();
  expectReadable(guide, 20);
  Preview preview;
  preview.title = "Conto individuale";
  preview.whole = false;
  preview.pages = {"Pagina 1\r\n", "Pagina 2\r\n"};
  desktop::PreviewDialog pages(nullptr, preview);
  pages.show();
  typeText(*pages.findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly), QStringLiteral("9"));
  expectReadable(pages, 10);
  desktop::PrintDialog print(nullptr, 3, 0, [] { return QString(); });
  print.show();
  expectReadable(print, 10);
}

}  // namespace
}  // namespace cu::test
