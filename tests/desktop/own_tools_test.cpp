// What the window offers beside the form: a copy of the database, from a menu and below the forecast.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <map>

#include "apps/strumenti/copia_archivio.h"
#include "apps/strumenti/dialogo_lavoro.h"
#include "desktop/screen_support.h"
#include "support/held_locks.h"

namespace cu::test {
namespace {

class OwnTools : public ::testing::Test {
 protected:
  OwnTools() { QSettings().remove(QStringLiteral("copie")); }
  ~OwnTools() override { QSettings().remove(QStringLiteral("copie")); }
  QPushButton* offer() {
    for (auto* each : screen_.window().findChildren<QPushButton*>()) {
      if (each->text().remove(u'&') == QStringLiteral("Copia di sicurezza…")) return each;
    }
    return nullptr;
  }
  QAction* entry() {
    for (QAction* menu : screen_.window().findChild<QMenuBar*>()->actions()) {
      if (menu->text().remove(u'&') == QStringLiteral("Strumenti")) return menu->menu()->actions().first();
    }
    return nullptr;
  }
  // Answers the dialogs of a copy, whose file stands in the documents.
  void answer() {
    screen_.whenModal([this](QWidget& modal) {
      auto& dialog = dynamic_cast<QFileDialog&>(modal);
      auto& name = *dialog.findChild<QLineEdit*>();
      proposed_ = name.text();
      name.setText(copy());
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    waitAndClose();
  }
  void waitAndClose() {
    screen_.whenModal([this](QWidget& modal) {
      auto& dialog = dynamic_cast<strumenti::DialogoLavoro&>(modal);
      while (dialog.inCorso()) settle();
      EXPECT_TRUE(dialog.riuscito()) << dialog.testo().toStdString();
      dialog.findChild<QPushButton*>(QStringLiteral("chiudi"))->click();
    });
  }
  QString copy() const { return screen_.documents() + QStringLiteral("/copia.db"); }

  Screen screen_{247, Profilo::MotoreStampa::Registro,
                 [](desktop::QtFrontEnd& screen, const Profilo& profile) {
                   strumenti::offriCopie(screen, profile.database, [](QWidget*) {});
                 }};
  QString proposed_;
};

TEST_F(OwnTools, TheMenuMakesACopyAndTheFormKeepsItsFocusAndLocks) {
  ASSERT_NE(entry(), nullptr);
  const Control* const focus = screen_.focus();
  answer();
  entry()->trigger();
  EXPECT_TRUE(screen_.allAnswered());
  EXPECT_TRUE(QFile::exists(copy()));
  EXPECT_TRUE(proposed_.startsWith(QStringLiteral("prova-"))) << proposed_.toStdString();
  EXPECT_EQ(screen_.focus(), focus);
  EXPECT_TRUE(holdsLock(screen_.profile().database.origine));
}

TEST_F(OwnTools, TheLastStepOffersACopyBelowTheForecast) {
  screen_.toEnd();
  ASSERT_NE(offer(), nullptr);
  EXPECT_TRUE(offer()->isVisible());
  const Control* const focus = screen_.focus();
  answer();
  offer()->click();
  EXPECT_TRUE(QFile::exists(copy()));
  EXPECT_EQ(screen_.focus(), focus);
  EXPECT_TRUE(strumenti::dettaUltimaCopia(screen_.profile().database).startsWith(QStringLiteral("oggi")));
}

TEST_F(OwnTools, EveryLetterOfAStepIsGivenOnceWithTheirMenu) {
  const auto expectOnce = [this](const char* step) {
    std::map<QChar, QStringList> given;
    const auto note = [&](const QString& text) {
      const QKeySequence key = QKeySequence::mnemonic(text);
      if (!key.isEmpty()) given[key.toString().back()] += text;
    };
    for (const QAction* menu : screen_.window().findChild<QMenuBar*>()->actions()) note(menu->text());
    for (const auto* button : screen_.window().findChildren<QAbstractButton*>()) {
      if (button->isVisible()) note(button->text());
    }
    for (const auto* label : screen_.window().findChildren<QLabel*>()) {
      if (label->isVisible() && label->buddy() != nullptr) note(label->text());
    }
    EXPECT_GT(given.size(), 6U) << step;
    for (const auto& [letter, texts] : given) {
      EXPECT_EQ(texts.size(), 1) << step << ", " << letter.toLatin1() << ": "
                                 << texts.join(u'|').toStdString();
    }
  };
  expectOnce("first");
  screen_.toGrid();
  expectOnce("grid");
  screen_.click("cmdNav(3)");
  expectOnce("last");
}

TEST(NoOwnTools, AServersDatabaseHasNone) {
  desktop::QtFrontEnd screen;
  Profilo::Database server;
  server.motore = Profilo::Motore::Odbc;
  strumenti::offriCopie(screen, server, [](QWidget*) {});
  EXPECT_TRUE(screen.ownTools.empty());
  EXPECT_FALSE(screen.belowOutlook);
}

}  // namespace
}  // namespace cu::test
