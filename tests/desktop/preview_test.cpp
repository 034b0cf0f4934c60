// The preview: turning, finding, small pictures, and documents of thousands of pages.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <map>

#include "desktop/page_wait.h"
#include "desktop/preview_support.h"
#include "desktop/thumbnails.h"

namespace cu::test {
namespace {

TEST(Preview, OfAnInterruptedLayoutSaysThatItIsNotAll) {
  const auto noteOf = [](bool whole, QString* title) {
    const QTemporaryDir folder;
    Preview preview = documentIn(folder, 3);
    preview.whole = whole;
    const desktop::PreviewDialog dialog(nullptr, preview);
    if (title != nullptr) *title = dialog.windowTitle();
    const auto* const note = dialog.findChild<QLabel*>(QStringLiteral("parziale"));
    return note == nullptr ? QString() : note->text();
  };
  QString title;
  EXPECT_EQ(
      noteOf(false, &title),
      QStringLiteral("L'anteprima è stata interrotta: queste sono le prime 3 pagine, non tutta la stampa."));
  EXPECT_EQ(title, QStringLiteral("Anteprima - Conto individuale (parziale)"));
  EXPECT_EQ(noteOf(true, nullptr), QString());
}

TEST(Preview, KeysTurnThePages) {
  Previewed shown(4);
  const auto after = [&](Qt::Key key) {
    QTest::keyClick(shown.dialog->focusWidget(), key);
    return shown.dialog->page();
  };
  EXPECT_EQ(after(Qt::Key_End), 3);
  EXPECT_EQ(after(Qt::Key_PageDown), 3);
  EXPECT_EQ(after(Qt::Key_PageUp), 2);
  EXPECT_EQ(after(Qt::Key_Home), 0);
  EXPECT_EQ(after(Qt::Key_PageDown), 1);
  EXPECT_TRUE(shown.drawn());
}

TEST(Preview, TheWheelScrollsAPageAndThenTurnsIt) {
  Previewed shown(3);
  QScrollBar& bar = *shown.dialog->view().findChild<QScrollArea*>()->verticalScrollBar();
  ASSERT_GT(bar.maximum(), 0) << "the page is higher than the window";
  shown.wheel(-1);
  EXPECT_EQ(shown.dialog->page(), 0);
  EXPECT_GT(bar.value(), 0);
  bar.setValue(bar.maximum());
  shown.wheel(-1);
  EXPECT_EQ(shown.dialog->page(), 1);
  ASSERT_TRUE(shown.drawn());
  EXPECT_EQ(bar.value(), 0) << "a page begins at its top";
  shown.wheel(1);
  EXPECT_EQ(shown.dialog->page(), 0);
  ASSERT_TRUE(shown.drawn());
  EXPECT_EQ(bar.value(), bar.maximum()) << "backwards it is read from its end";
  bar.setValue(0);
  shown.wheel(1);
  EXPECT_EQ(shown.dialog->page(), 0) << "there is none before";
}

TEST(Preview, ThePageBoxGoesToANumberAndNamesTheLimits) {
  Previewed shown(12);
  QLineEdit& box = shown.box("Pagina");
  EXPECT_TRUE(shown.says(QStringLiteral("di 12")));
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, "10");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(shown.dialog->page(), 9);
  box.selectAll();
  QTest::keyClicks(&box, "13");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(shown.dialog->page(), 9);
  EXPECT_TRUE(shown.says(QStringLiteral("Le pagine vanno da 1 a 12.")));
  EXPECT_TRUE(shown.dialog->isVisible());
}

TEST(Preview, FindsWithoutAccentsCountsAndMarksTheHits) {
  Previewed shown(5);
  shown.find("calo nico");
  ASSERT_TRUE(shown.searched());
  EXPECT_EQ(shown.dialog->found().hits(), 3U);
  EXPECT_TRUE(shown.says(QStringLiteral("1 di 3")));
  desktop::Pages& pages = shown.dialog->view();
  ASSERT_TRUE(pages.mark());
  EXPECT_EQ(pages.mark()->page, 0);
  EXPECT_GT(pages.mark()->place.width(), 0);
  QLineEdit& wanted = shown.box("Cerca nelle pagine");
  QTest::keyClick(&wanted, Qt::Key_Return);
  EXPECT_EQ(pages.mark()->page, 2);
  QTest::keyClick(&wanted, Qt::Key_F3);
  EXPECT_EQ(shown.dialog->page(), 4);
  QTest::keyClick(&wanted, Qt::Key_F3);
  EXPECT_EQ(shown.dialog->page(), 0) << "after the last one the first";
  QTest::keyClick(&wanted, Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(shown.dialog->page(), 4);
  EXPECT_TRUE(shown.says(QStringLiteral("3 di 3")));
}

TEST(Preview, SaysWhenNothingIsFoundAndForgetsAnEmptySearch) {
  Previewed shown(3);
  shown.find("NICOLÒ");
  ASSERT_TRUE(shown.searched());
  EXPECT_EQ(shown.dialog->found().hits(), 2U);
  shown.find("assente");
  ASSERT_TRUE(shown.searched());
  EXPECT_TRUE(shown.says(QStringLiteral("Nessuna corrispondenza")));
  EXPECT_FALSE(shown.dialog->view().mark());
  shown.box("Cerca nelle pagine").clear();
  EXPECT_FALSE(shown.says(QStringLiteral("Nessuna corrispondenza")));
}

TEST(Preview, EscTakesBackWhatIsTypedBeforeItCloses) {
  Previewed shown(12);
  QLineEdit& number = shown.box("Pagina");
  number.setFocus();
  number.selectAll();
  QTest::keyClicks(&number, "7");
  QTest::keyClick(&number, Qt::Key_Escape);
  EXPECT_TRUE(shown.dialog->isVisible());
  EXPECT_EQ(number.text(), QStringLiteral("1"));
  QLineEdit& wanted = shown.box("Cerca nelle pagine");
  wanted.setFocus();
  QTest::keyClicks(&wanted, "rossi");
  QTest::keyClick(&wanted, Qt::Key_Escape);
  EXPECT_TRUE(shown.dialog->isVisible());
  EXPECT_EQ(wanted.text(), QString());
  QTest::keyClick(&wanted, Qt::Key_Escape);
  EXPECT_FALSE(shown.dialog->isVisible());
}

TEST(Preview, FindsInTheTextsWhereTheyAreShown) {
  Previewed shown(5);
  shown.dialog->view().setAsText(true);
  shown.find("CALO");
  ASSERT_TRUE(shown.searched());
  EXPECT_EQ(shown.dialog->found().hits(), 3U);
  const auto* const text = shown.dialog->findChild<QPlainTextEdit*>();
  EXPECT_EQ(text->textCursor().selectedText(), QStringLiteral("Calò"));
  // The other way of showing has its own places.
  shown.dialog->view().setAsText(false);
  ASSERT_TRUE(shown.searched());
  EXPECT_EQ(shown.dialog->found().hits(), 3U);
  EXPECT_TRUE(shown.dialog->view().mark());
}

TEST(Preview, AnswersWhileThousandsOfPagesAreSearchedAndDrawn) {
  Previewed shown(kMany, false);
  EXPECT_EQ(shown.dialog->pages(), kMany);
  QTest::keyClick(&shown.dialog->view(), Qt::Key_End);
  EXPECT_EQ(shown.dialog->page(), kMany - 1);
  // Box and number of pages are written alike.
  const auto boxes = shown.dialog->findChildren<QLineEdit*>();
  EXPECT_TRUE(std::any_of(boxes.begin(), boxes.end(), [](const QLineEdit* box) {
    return box->accessibleName() == QStringLiteral("Pagina") &&
           box->text() == QStringLiteral("%L1").arg(kMany) &&
           box->accessibleDescription() == QStringLiteral("di ") + box->text();
  }));
  ASSERT_TRUE(shown.drawn());
  shown.find("assente");
  EXPECT_TRUE(shown.dialog->found().running());
  EXPECT_TRUE(shown.dialog->found().words().startsWith(QStringLiteral("Si cerca")))
      << "the progress is shown";
  shown.dialog->view().go(1000);
  ASSERT_TRUE(shown.drawn());
  EXPECT_TRUE(shown.dialog->found().running()) << "a page is not kept waiting by a search";
  ASSERT_TRUE(shown.searched());
  EXPECT_EQ(shown.dialog->found().hits(), 0U);
}

TEST(Preview, TheHitsOfThousandsOfPagesAreInTheirOrder) {
  Previewed shown(kMany);
  shown.dialog->view().go(1001);
  shown.find("nicolo");
  ASSERT_TRUE(shown.searched());
  EXPECT_EQ(shown.dialog->found().hits(), kMany / 2U);
  EXPECT_EQ(shown.dialog->page(), 1002) << "the first one from the page that was shown";
  EXPECT_TRUE(shown.says(QStringLiteral("502 di 1.050")));
}

TEST(Preview, OnlyTheSmallPicturesThatAreSeenAreDrawn) {
  Previewed shown(kMany);
  const desktop::Thumbnails& small = shown.dialog->thumbnails();
  ASSERT_TRUE(small.isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return small.thumbnails().drawn() > 2; }, kPatience));
  EXPECT_LT(small.thumbnails().drawn(), 60);
  shown.dialog->thumbnails().setCurrentIndex(small.model()->index(1500, 0));
  EXPECT_EQ(shown.dialog->page(), 1500);
  shown.dialog->view().go(20);
  EXPECT_EQ(small.currentIndex().row(), 20);
  EXPECT_EQ(small.model()->index(20, 0).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Pagina 21"));
}

TEST(Preview, TheChoiceOfSmallPicturesIsRemembered) {
  Previewed first(3);
  for (auto* each : first.dialog->findChildren<QAbstractButton*>()) {
    if (each->text() == QStringLiteral("&Miniature")) each->click();
  }
  EXPECT_FALSE(first.dialog->thumbnails().isVisible());
  desktop::PreviewDialog second(nullptr, first.preview);
  second.show();
  EXPECT_FALSE(second.thumbnails().isVisible());
  QSettings().remove(QStringLiteral("anteprima"));
}

TEST(Preview, AWaitIsShownAfterAMomentAndSaysWhatFor) {
  QWidget over;
  over.resize(400, 300);
  over.show();
  desktop::PageWait wait(&over);
  wait.begin(QStringLiteral("Si disegna la pagina 7…"));
  EXPECT_FALSE(wait.isVisible()) << "a short wait is not noticed";
  EXPECT_TRUE(QTest::qWaitFor([&] { return wait.isVisible(); }, kPatience));
  EXPECT_EQ(wait.findChild<QLabel*>()->text(), QStringLiteral("Si disegna la pagina 7…"));
  EXPECT_TRUE(over.rect().contains(wait.geometry()));
  wait.end();
  EXPECT_FALSE(wait.isVisible());
}

TEST(Preview, EachLetterPressesOneThingAndEverythingHasAName) {
  const Previewed shown(3);
  std::map<QChar, int> letters;
  const auto take = [&](const QString& text) {
    const qsizetype at = text.indexOf(u'&');
    if (at >= 0) ++letters[text[at + 1].toLower()];
  };
  for (const auto* each : shown.dialog->findChildren<QAbstractButton*>()) take(each->text());
  for (const auto* each : shown.dialog->findChildren<QLabel*>()) {
    if (each->buddy() != nullptr) take(each->text());
  }
  EXPECT_EQ(letters.size(), 16U);
  for (const auto& [letter, count] : letters) EXPECT_EQ(count, 1) << QString(letter).toStdString();
  for (const auto* each : shown.dialog->findChildren<QWidget*>()) {
    if (!each->isVisible() || each->focusPolicy() == Qt::NoFocus) continue;
    const auto* const button = qobject_cast<const QAbstractButton*>(each);
    EXPECT_TRUE(button != nullptr || !each->accessibleName().isEmpty()) << each->metaObject()->className();
  }
}

}  // namespace
}  // namespace cu::test
