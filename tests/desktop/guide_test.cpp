// The guide's window: contents, a search that stays, pictures of the look and of the window's width; the list
// of keys.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <set>

#include "apps/strumenti/finestra_file.h"
#include "desktop/guide_text.h"
#include "desktop/guide_window.h"
#include "desktop/look.h"
#include "desktop/preview_dialog.h"
#include "desktop/screen_support.h"
#include "desktop/table_commands.h"
#include "desktop/table_style.h"

namespace cu::test {
namespace {

QString guideFolder() { return QStringLiteral(CU_GUIDA); }

struct OpenGuide {
  explicit OpenGuide(const QString& folder = guideFolder())
      : window(new desktop::HelpWindow(nullptr, folder)) {
    window->resize(1000, 700);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    settle();
  }
  ~OpenGuide() { delete window.data(); }
  QLineEdit& box() { return *window->findChild<QLineEdit*>(); }
  QString current() {
    const QTreeWidgetItem* const item = window->contents().currentItem();
    return item == nullptr ? QString() : item->text(0);
  }
  QString seen() {
    return window->text().headings()[static_cast<std::size_t>(window->text().headingSeen())].text;
  }
  QPointer<desktop::HelpWindow> window;
};

TEST(GuideWindow, TheContentsHaveEveryChapterAndGoThere) {
  OpenGuide guide;
  QTreeWidget& contents = guide.window->contents();
  std::size_t entries = 0;
  for (QTreeWidgetItemIterator each(&contents); *each != nullptr; ++each) ++entries;
  EXPECT_EQ(entries + 1, guide.window->text().headings().size()) << "all but the guide's title";
  const auto found =
      contents.findItems(QStringLiteral("Annullare e sostituire"), Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  contents.setCurrentItem(found[0]);
  settle();
  EXPECT_EQ(guide.seen(), QStringLiteral("Annullare e sostituire"));
}

TEST(GuideWindow, TheContentsFollowWhatIsRead) {
  OpenGuide guide;
  guide.window->showChapter(QStringLiteral("Muoversi"));
  settle();
  EXPECT_EQ(guide.current(), QStringLiteral("Muoversi"));
  guide.window->text().verticalScrollBar()->setValue(0);
  settle();
  EXPECT_EQ(guide.current(), QString()) << "above the first chapter";
}

TEST(GuideWindow, TheSearchStaysAndCountsItsHits) {
  OpenGuide guide;
  guide.box().setFocus();
  QTest::keyClicks(&guide.box(), "PERCIPIENTE");
  const QString first = guide.window->words();
  const QRegularExpression counted(QStringLiteral("^1 di (\\d+)$"));
  ASSERT_TRUE(counted.match(first).hasMatch()) << first.toStdString();
  EXPECT_GT(counted.match(first).captured(1).toInt(), 5);
  QTest::keyClick(&guide.box(), Qt::Key_Return);
  EXPECT_TRUE(guide.window->words().startsWith(QStringLiteral("2 di ")));
  const desktop::GuideText& read = guide.window->text();
  EXPECT_GE(read.cursorRect().top(), 0);
  EXPECT_LE(read.cursorRect().center().y(), read.viewport()->height() * 2 / 3)
      << "with the text that follows it";
  QTest::keyClick(&guide.box(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(guide.window->words(), first);
  QTest::keyClick(&guide.box(), Qt::Key_Return, Qt::ShiftModifier);
  const QString last = counted.match(first).captured(1);
  EXPECT_EQ(guide.window->words(), last + QStringLiteral(" di ") + last);
  EXPECT_TRUE(guide.box().hasFocus());
  EXPECT_EQ(guide.box().text(), QStringLiteral("PERCIPIENTE"));
  guide.box().setText(QStringLiteral("questa parola manca"));
  EXPECT_EQ(guide.window->words(), QStringLiteral("Nessuna corrispondenza"));
  guide.box().clear();
  EXPECT_EQ(guide.window->words(), QString());
}

TEST(GuideWindow, TheContentsShowTheChapterOfWhatWasFound) {
  OpenGuide guide;
  const desktop::GuideText& read = guide.window->text();
  guide.box().setFocus();
  guide.box().setText(QStringLiteral("fiscale"));
  std::set<QString> chapters;
  for (int i = 0; i < 30; ++i) {
    const int at = read.textCursor().position();
    QString above;
    for (const auto& heading : read.headings()) {
      if (heading.position <= at) above = heading.level > 1 ? heading.text : QString();
    }
    EXPECT_EQ(guide.current(), above);
    chapters.insert(above);
    QTest::keyClick(&guide.box(), Qt::Key_Return);
  }
  EXPECT_GT(chapters.size(), 5U);
}

TEST(GuideWindow, AccentsAreIgnored) {
  OpenGuide guide;
  guide.window->search(QStringLiteral("perche"));
  const QString plain = guide.window->words();
  guide.window->search(QStringLiteral("PERCHÉ"));
  EXPECT_EQ(guide.window->words(), plain);
  EXPECT_NE(plain, QStringLiteral("Nessuna corrispondenza"));
}

// A guide of one picture, 1200 pixels wide; blue, and red for the dark look.
void writeSmallGuide(const QTemporaryDir& folder) {
  QDir(folder.path()).mkpath(QStringLiteral("immagini/scuri"));
  QImage picture(1200, 300, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  picture.save(folder.filePath(QStringLiteral("immagini/una.png")));
  picture.fill(Qt::red);
  picture.save(folder.filePath(QStringLiteral("immagini/scuri/una.png")));
  QFile text(folder.filePath(QStringLiteral("guida.md")));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly));
  text.write("# Guida\n\n## Uno\n\n![una](immagini/una.png)\n\nTesto\n");
}

QImage pictureOf(desktop::HelpWindow& guide) {
  return guide.text()
      .document()
      ->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("immagini/una.png")))
      .value<QImage>();
}

TEST(GuideWindow, PicturesAreAsWideAsTheTextPermits) {
  const QTemporaryDir folder;
  writeSmallGuide(folder);
  OpenGuide guide(folder.path());
  const auto fits = [&] {
    const int room = guide.window->text().viewport()->width();
    const QSizeF size = pictureOf(*guide.window).deviceIndependentSize();
    return size.width() <= room && size.width() > room - 40;
  };
  EXPECT_TRUE(QTest::qWaitFor(fits));
  guide.window->resize(700, 600);
  EXPECT_TRUE(QTest::qWaitFor(fits));
  guide.window->resize(1900, 600);
  EXPECT_TRUE(QTest::qWaitFor([&] { return pictureOf(*guide.window).width() == 1200; })) << "never enlarged";
}

TEST(GuideWindow, PicturesAreThoseOfTheLook) {
  const QTemporaryDir folder;
  writeSmallGuide(folder);
  OpenGuide guide(folder.path());
  const auto shows = [&](Qt::GlobalColor colour) {
    return QTest::qWaitFor([&] { return pictureOf(*guide.window).pixelColor(5, 5) == QColor(colour); });
  };
  EXPECT_TRUE(shows(Qt::blue));
  auto& application = *static_cast<QApplication*>(QApplication::instance());
  desktop::look::apply(application, desktop::look::Colours::Dark);
  EXPECT_TRUE(shows(Qt::red));
  desktop::look::apply(application, desktop::look::Colours::Light);
  EXPECT_TRUE(shows(Qt::blue));
}

// The keys of a section of the chapter, as the guide names them.
std::set<QString> keysNamed(const QString& section) {
  QFile file(guideFolder() + QStringLiteral("/guida.md"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll());
  const qsizetype from = text.indexOf(QStringLiteral("\n### ") + section + u'\n');
  EXPECT_GE(from, 0) << section.toStdString();
  const QStringList lines =
      text.mid(from + 1, text.indexOf(QStringLiteral("\n#"), from + 2) - from).split(u'\n');
  std::set<QString> keys;
  for (const QString& line : lines) {
    if (!line.startsWith(u'|') || line.startsWith(QStringLiteral("|--")) ||
        line.startsWith(QStringLiteral("| Tasti")))
      continue;
    for (const QString& key : line.section(u'|', 1, 1).split(QStringLiteral(", ")))
      keys.insert(key.trimmed());
  }
  return keys;
}

QKeySequence sequenceOf(QString name) {
  const std::pair<const char*, const char*> words[] = {
      {"Maiusc", "Shift"}, {"Pag su", "PgUp"},  {"Pag giù", "PgDown"}, {"Inizio", "Home"}, {"Fine", "End"},
      {"Invio", "Return"}, {"Spazio", "Space"}, {"Canc", "Del"},       {"Giù", "Down"},    {"Su", "Up"}};
  for (const auto& [italian, english] : words)
    name.replace(QString::fromUtf8(italian), QLatin1String(english));
  return QKeySequence(name, QKeySequence::PortableText);
}

// Whether the window does something at a key that is pressed where its focus is.
bool answers(QWidget& window, const QKeySequence& keys) {
  for (const auto* shortcut : window.findChildren<QShortcut*>()) {
    if (shortcut->key() == keys) return true;
  }
  QWidget* const focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  const QKeyCombination key = keys[0];
  QKeyEvent event(QEvent::KeyPress, key.key(), key.keyboardModifiers(),
                  key.key() < Qt::Key_Escape && !(key.keyboardModifiers() & Qt::ControlModifier)
                      ? QString(QChar(key.key()))
                      : QString());
  QApplication::sendEvent(focus, &event);
  return event.isAccepted();
}

// The keys of a window are those of its section, and of the section for all windows.
void expectItsKeys(QWidget& window, const QString& section) {
  std::set<QString> named = keysNamed(section);
  for (const QString& key : named) {
    EXPECT_TRUE(answers(window, sequenceOf(key))) << section.toStdString() << ": " << key.toStdString();
  }
  named.merge(keysNamed(QStringLiteral("In ogni finestra")));
  std::set<QString> sequences;
  for (const QString& key : named) sequences.insert(sequenceOf(key).toString(QKeySequence::PortableText));
  for (const auto* shortcut : window.findChildren<QShortcut*>()) {
    const QString key = shortcut->key().toString(QKeySequence::PortableText);
    EXPECT_TRUE(sequences.count(key) == 1) << section.toStdString() << " does not name " << key.toStdString();
  }
}

TEST(Keys, OfThePreviewAreThoseOfTheGuide) {
  Preview preview;
  preview.title = "Conto individuale";
  preview.pages = {"prima", "seconda"};
  desktop::PreviewDialog dialog(nullptr, preview);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  dialog.setFocus();
  expectItsKeys(dialog, QStringLiteral("Nell'anteprima"));
  EXPECT_FALSE(answers(dialog, QKeySequence(Qt::Key_F9)));
}

TEST(Keys, OfTheGuideAreThoseOfTheGuide) {
  OpenGuide guide;
  expectItsKeys(*guide.window, QStringLiteral("Nella guida"));
}

TEST(Keys, OfTheWindowOfAFileAreThoseOfTheGuide) {
  QPointer<strumenti::FinestraFile> window =
      new strumenti::FinestraFile(QStringLiteral("manca.cur"), std::nullopt);
  window->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  window->findChild<QTableView*>()->setFocus();
  expectItsKeys(*window, QStringLiteral("Nelle finestre dei file telematici"));
  delete window.data();
}

TEST(Keys, OfTheTablesAreAnswered) {
  QTableView table;
  QStandardItemModel rows(20, 2);
  desktop::styleRows(table);
  table.setAccessibleName(QStringLiteral("Prova"));
  table.setModel(&rows);
  new desktop::TableCommands(table, {});
  table.show();
  const std::set<QString> named = keysNamed(QStringLiteral("Nelle tabelle"));
  EXPECT_EQ(named.size(), 5U);
  for (const QString& key : named) {
    table.setCurrentIndex(rows.index(5, 1));
    // A menu that opens is closed.
    QTimer::singleShot(0, [] {
      if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
    });
    EXPECT_TRUE(answers(table, sequenceOf(key))) << key.toStdString();
  }
}

TEST(Keys, CtrlF1OpensTheirListFromFormsAndDialogs) {
  Screen screen;
  const auto chapterOpened = [] {
    settle();
    for (QWidget* each : QApplication::topLevelWidgets()) {
      auto* const guide = dynamic_cast<desktop::HelpWindow*>(each);
      if (guide == nullptr || !guide->isVisible()) continue;
      const QString chapter = guide->contents().currentItem()->text(0);
      guide->close();
      settle();
      return chapter;
    }
    return QString();
  };
  screen.key(Qt::Key_F1, Qt::ControlModifier);
  EXPECT_EQ(chapterOpened(), QStringLiteral("Tasti"));
  QString overBox;
  screen.form().cmdOpzioni.onClick = [&] { screen.frontEnd().messageBox({.text = "Testo", .title = ""}); };
  screen.whenModal([&](QWidget& modal) {
    QTest::keyClick(&modal, Qt::Key_F1, Qt::ControlModifier);
    overBox = chapterOpened();
    pressButton(modal, "OK");
  });
  screen.click("cmdOpzioni");
  EXPECT_EQ(overBox, QStringLiteral("Tasti"));
}

TEST(Keys, OfTheGridAreAnswered) {
  Screen screen;
  screen.toGrid();
  auto& table = *screen.find<QTableView>("grdCompensi");
  table.setFocus();
  for (const QString& key : keysNamed(QStringLiteral("Nella griglia"))) {
    if (key == QStringLiteral("Invio")) continue;  // opens the editor, which other tests do
    table.setCurrentIndex(table.model()->index(5, 1));
    EXPECT_TRUE(answers(table, sequenceOf(key))) << key.toStdString();
  }
}

}  // namespace
}  // namespace cu::test
