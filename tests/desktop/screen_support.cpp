#include "desktop/screen_support.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "desktop/text.h"
#include "reporting/pdf_reports.h"

namespace cu::test {
namespace {

// Created once; each test has its copy.
const QString& demonstration() {
  static const QTemporaryDir folder;
  static const QString file = [] {
    const QString made = folder.filePath(QStringLiteral("dimostrativo.db"));
    Profilo::Database database;
    database.origine = made.toStdString();
    creaArchivio(*creaConnessione(database), ContenutoArchivio::Dimostrativo);
    return made;
  }();
  return file;
}

}  // namespace

QString Screen::freshDatabase(const QTemporaryDir& folder) {
  const QString database = folder.filePath(QStringLiteral("prova.db"));
  QFile::copy(demonstration(), database);
  return database;
}

Screen::Screen(std::int32_t mode, Profilo::MotoreStampa engine, const Before& before)
    : watcher_(std::make_unique<QObject>()) {
  QDir(folder_.path()).mkdir(QStringLiteral("documenti"));
  profile_.sessione.utente = 12;
  profile_.sessione.azienda = 1;
  profile_.sessione.filiale = 1;
  profile_.sessione.titolo = "Quadrivio";
  profile_.sessione.processi = {{"Wizard stampa", mode}};
  profile_.sessione.oggi = Profilo::Istante{*Date::fromYmd(2017, 3, 5), {10, 30, 0}};
  profile_.database.origine = freshDatabase(folder_).toStdString();
  profile_.valuta = {true, "€", ",", "."};
  profile_.documenti = documents().toStdString();
  profile_.impostazioni = folder_.filePath(QStringLiteral("impostazioni.toml")).toStdString();
  profile_.stampa = engine;
  if (before) before(screen_, profile_);
  watch();
  impianto_ = std::make_unique<Impianto>(profile_, screen_, PdfReports::crea);
  impianto_->programma().main();
  window().activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

Screen::~Screen() {
  watcher_.reset();
  if (screen_.anyOpen()) form().unload();
  settle();
}

// The answer may open another window: the next watch is queued first.
void Screen::watch() {
  constexpr int kPause = 5;
  QTimer::singleShot(kPause, watcher_.get(), [this] { watch(); });
  if (screen_.busy()) return;
  QWidget* modal = QApplication::activePopupWidget();
  if (modal == nullptr) modal = QApplication::activeModalWidget();
  if (modal == nullptr || modals_.empty() || modal == answering_ || !modal->isVisible()) return;
  if (!modal->isActiveWindow() && QApplication::activePopupWidget() == nullptr) {
    modal->activateWindow();
    return;
  }
  const auto act = std::move(modals_.front());
  modals_.pop_front();
  QWidget* const before = std::exchange(answering_, modal);
  act(*modal);
  answering_ = before;
}

void Screen::whenModal(std::function<void(QWidget&)> act) { modals_.push_back(std::move(act)); }

void Screen::click(const char* name) {
  auto* const widget = find<QWidget>(name);
  ASSERT_NE(widget, nullptr) << name;
  QPoint at = widget->rect().center();
  // An option or a check box is clicked on its mark.
  if (qobject_cast<QAbstractButton*>(widget) != nullptr) at.setX(std::min(at.x(), 10));
  QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, at);
}

void Screen::type(const char* name, const char* text) {
  auto* line = find<QLineEdit>(name);
  if (line == nullptr) line = find<QWidget>(name)->findChild<QLineEdit*>();
  line->setFocus();
  line->selectAll();
  if (*text == '\0') QTest::keyClick(line, Qt::Key_Delete);
  typeText(*line, QString::fromUtf8(text));
}

void Screen::choose(const char* list, const char* text) {
  auto* const combo = find<QComboBox>(list);
  const int index = combo->findText(QString::fromUtf8(text));
  ASSERT_GE(index, 0) << text;
  combo->setFocus();
  combo->setCurrentIndex(index);
  emit combo->activated(index);
}

void Screen::key(Qt::Key key, Qt::KeyboardModifiers held) {
  // Sent through the window, so that mnemonics are processed as with a real keyboard.
  QTest::keyClick(top()->windowHandle(), key, held);
  // A mnemonic shows its button pressed for a tenth of a second before the click.
  constexpr int kAnimation = 180;
  if (held.testFlag(Qt::AltModifier)) QTest::qWait(kAnimation);
  settle();
}

void Screen::toTelematicFile(const char* year) {
  click("optstType(1)");
  choose("KRNCboEsCont(0)", year);
}

void Screen::toGrid(const char* year) {
  toTelematicFile(year);
  click("cmdNav(3)");
}

void Screen::toEnd() {
  toGrid();
  click("cmdNav(3)");
}

void Screen::inEditor(const char* year, const std::function<void()>& act) {
  toGrid(year);
  whenModal([&](QWidget&) {
    act();
    if (top() != &window()) key(Qt::Key_Escape);
  });
  find<QWidget>("grdCompensi")->setFocus();
  key(Qt::Key_Return);
  EXPECT_TRUE(allAnswered());
}

void pressButton(QWidget& modal, const char* caption) {
  for (QAbstractButton* button : modal.findChildren<QAbstractButton*>()) {
    if (desktop::spoken(button->text().toStdString()) != QString::fromUtf8(caption)) continue;
    QTest::mouseClick(button, Qt::LeftButton);
    return;
  }
  FAIL() << "no button " << caption;
}

QString boxText(QWidget& modal) {
  const auto* const box = qobject_cast<QMessageBox*>(&modal);
  return box == nullptr ? QString() : box->text();
}

void typeText(QWidget& widget, const QString& text) {
  for (const QChar letter : text) {
    if (letter.unicode() < 0x80) {
      QTest::keyClicks(&widget, QString(letter));
      continue;
    }
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, 0, Qt::NoModifier, QString(letter));
      QApplication::sendEvent(&widget, &event);
    }
  }
}

void settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace cu::test
