// What the window shows and accepts while a long work is running.

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <utility>

#include "desktop/foot.h"
#include "desktop/pace.h"
#include "desktop/preview_dialog.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

using desktop::Pace;

TEST(Pace, HasNoEstimateInTheFirstSecondsNorWithoutATotal) {
  Pace pace;
  pace.note(QStringLiteral("Prova"), 0, 1000, 0);
  pace.note(QStringLiteral("Prova"), 100, 1000, 2900);
  EXPECT_FALSE(pace.remaining());
  pace.note(QStringLiteral("Altra"), 0, 0, 3000);
  pace.note(QStringLiteral("Altra"), 0, 0, 60000);
  EXPECT_FALSE(pace.remaining());
}

TEST(Pace, EstimatesByTheRateOfTheLastSecondsAndNotByThatOfTheBeginning) {
  Pace pace;
  pace.note(QStringLiteral("Prova"), 0, 1000, 0);
  pace.note(QStringLiteral("Prova"), 100, 1000, 10000);
  ASSERT_TRUE(pace.remaining());
  EXPECT_EQ(*pace.remaining(), 90000);
  // Twice as fast from here on.
  for (int i = 1; i <= 3; ++i)
    pace.note(QStringLiteral("Prova"), static_cast<std::size_t>(100 + 200 * i), 1000, 10000 + 10000 * i);
  EXPECT_EQ(*pace.remaining(), 15000);
}

TEST(Pace, BeginsAnewWithAnotherWork) {
  Pace pace;
  pace.note(QStringLiteral("Prova"), 0, 1000, 0);
  pace.note(QStringLiteral("Prova"), 500, 1000, 10000);
  pace.note(QStringLiteral("Altra"), 1, 1000, 10100);
  EXPECT_FALSE(pace.remaining());
  pace.note(QStringLiteral("Altra"), 500, 1000, 20000);
  EXPECT_TRUE(pace.remaining());
  pace.note(QStringLiteral("Altra"), 1, 1000, 20100);
  EXPECT_FALSE(pace.remaining()) << "the same work once more";
}

TEST(Pace, IsToldInRoundNumbers) {
  for (const auto& [time, text] : {std::pair{0, "ancora pochi secondi"},
                                   {5000, "ancora pochi secondi"},
                                   {5001, "ancora circa 10 secondi"},
                                   {41000, "ancora circa 50 secondi"},
                                   {51000, "ancora circa un minuto"},
                                   {76000, "ancora circa 2 minuti"},
                                   {3540000, "ancora circa 59 minuti"},
                                   {3600000, "ancora circa un'ora"},
                                   {7300000, "ancora circa 2 ore"}}) {
    EXPECT_EQ(desktop::remainingText(time), QString::fromUtf8(text));
  }
}

TEST(LongWork, TellsWhatRemains) {
  desktop::Foot foot(nullptr, {});
  foot.tell(QStringLiteral("Stampa dei moduli"), 120, 20000, desktop::remainingText(100000));
  EXPECT_EQ(foot.words(), QStringLiteral("Stampa dei moduli: 120 di 20.000, ancora circa 2 minuti"));
}

QImage pictureOfWidget(QWidget& widget) { return widget.grab().toImage(); }

TEST(LongWork, ShowsItsButtonsAsOffWithoutMovingTheFocus) {
  Screen screen;
  QWidget& button = *screen.find<QWidget>("cmdNav(3)");
  const QImage before = pictureOfWidget(button);
  QImage meanwhile;
  screen.form().cmdOpzioni.onClick = [&] {
    screen.frontEnd().progress("Prova", 1, 2);
    meanwhile = pictureOfWidget(button);
    EXPECT_TRUE(button.isEnabled());
  };
  screen.click("cmdOpzioni");
  settle();
  EXPECT_NE(meanwhile, before);
  EXPECT_EQ(pictureOfWidget(button), before);
  EXPECT_EQ(screen.focus(), &screen.form().cmdOpzioni);
  button.setEnabled(false);
  EXPECT_EQ(pictureOfWidget(button), meanwhile);
  button.setEnabled(true);
}

// Acts once the running work can be interrupted, and is the one named: when the window is about to be painted
// with that, in the work's own pauses. A timer might not be due in any of them.
class WhenInterruptible : public QObject {
 public:
  WhenInterruptible(Screen& screen, std::function<void(QPushButton& button)> act, QString work = {})
      : window_(screen.window()),
        foot_(*screen.window().foot()),
        act_(std::move(act)),
        work_(std::move(work)) {
    window_.installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool now = event->type() == QEvent::UpdateRequest && foot_.interruption()->isVisible() &&
                     foot_.words().startsWith(work_);
    if (now && !std::exchange(acted_, true)) act_(*foot_.interruption());
    return QObject::eventFilter(watched, event);
  }

 private:
  desktop::FormWindow& window_;
  const desktop::Foot& foot_;
  std::function<void(QPushButton&)> act_;
  QString work_;
  bool acted_ = false;
};

struct InterruptedRun {
  QString title;
  int lines = 0;
  QString words;
  std::size_t forms = 0;
};

// Makes the telematic file with its forms; `act` is done as soon as the run can be interrupted.
InterruptedRun runInterrupted(const std::function<void(Screen&, QPushButton&)>& act) {
  Screen screen(247, Profilo::MotoreStampa::Pdf);
  InterruptedRun run;
  screen.toEnd();
  const WhenInterruptible watch(screen, [&](QPushButton& button) { act(screen, button); });
  screen.whenModal([&](QWidget& modal) {
    run.title = modal.windowTitle();
    const auto* const table = modal.findChild<QTableWidget*>();
    if (table == nullptr) {
      screen.click("Command1");
      return;
    }
    run.lines = table->rowCount();
    screen.whenModal([&](QWidget&) { screen.click("Command1"); });
    pressButton(modal, "Chiudi");
  });
  screen.click("cmdNav(4)");
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_FALSE(screen.window().foot()->interruption()->isVisible());
  run.words = screen.window().foot()->words();
  const QStringList files = QDir(screen.documents()).entryList({QStringLiteral("*.cur")}, QDir::Files);
  run.forms = static_cast<std::size_t>(files.size()) - 1;
  return run;
}

TEST(Interruption, EndsThePrintsOfTheFormsKeepsThoseMadeAndNamesTheOthers) {
  const InterruptedRun run =
      runInterrupted([](Screen&, QPushButton& button) { QTest::mouseClick(&button, Qt::LeftButton); });
  EXPECT_EQ(run.title, QStringLiteral("Moduli non stampati"));
  EXPECT_GT(run.lines, 0);
  EXPECT_TRUE(run.words.contains(QStringLiteral("Creato CUR_04123450233_2016.cur.")));
  EXPECT_TRUE(run.words.contains(QStringLiteral("Stampa dei moduli interrotta dopo %1 su %2.")
                                     .arg(run.forms)
                                     .arg(run.forms + static_cast<std::size_t>(run.lines))))
      << run.words.toStdString();
}

TEST(Interruption, IsReachedByEscToo) {
  const InterruptedRun run = runInterrupted(
      [](Screen& screen, QPushButton&) { QTest::keyClick(screen.window().windowHandle(), Qt::Key_Escape); });
  EXPECT_EQ(run.title, QStringLiteral("Moduli non stampati"));
  EXPECT_GT(run.lines, 0);
}

// What follows an interruption of the one file with all forms, during this phase.
struct WithoutForms {
  QString box;
  QString words;
  QStringList files;
};
WithoutForms interruptOneFile(const QString& phase) {
  Screen screen(247, Profilo::MotoreStampa::Pdf);
  screen.toEnd();
  screen.click("optStampaTracciato(1)");
  WithoutForms run;
  const WhenInterruptible watch(
      screen, [](QPushButton& button) { QTest::mouseClick(&button, Qt::LeftButton); }, phase);
  screen.whenModal([&](QWidget& modal) {
    run.box = boxText(modal);
    pressButton(modal, "OK");
  });
  screen.whenModal([&](QWidget&) { screen.click("Command1"); });
  screen.click("cmdNav(4)");
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_FALSE(screen.window().foot()->interruption()->isVisible());
  run.words = screen.window().foot()->words();
  run.files = QDir(screen.documents()).entryList(QDir::Files);
  return run;
}

TEST(Interruption, OfOneFileWithAllFormsLeavesNoneAndSaysSo) {
  for (const char* const phase : {"Preparazione dei moduli", "Scrittura dei moduli"}) {
    const WithoutForms run = interruptOneFile(QString::fromLatin1(phase));
    EXPECT_TRUE(run.box.contains(QStringLiteral("Il file telematico è completo."))) << run.box.toStdString();
    EXPECT_TRUE(run.box.contains(QStringLiteral("non è stato creato."))) << run.box.toStdString();
    EXPECT_TRUE(run.files.contains(QStringLiteral("CUR_04123450233_2016.cur")));
    for (const QString& file : run.files) {
      EXPECT_FALSE(file.contains(QStringLiteral("_2016_"))) << file.toStdString() << " in " << phase;
    }
    EXPECT_TRUE(run.words.startsWith(QStringLiteral("Creato CUR_04123450233_2016.cur.")));
  }
}

TEST(Interruption, NamesTheFileThatWasNotMade) {
  const WithoutForms run = interruptOneFile(QStringLiteral("Scrittura dei moduli"));
  EXPECT_TRUE(run.words.endsWith(
      QStringLiteral("Stampa interrotta: CUR_04123450233_2016_05032017_1030.cur non è stato creato.")))
      << run.words.toStdString();
}

// Starts the preview of the accounts.
void previewAccounts(Screen& screen) {
  screen.click("cmdNav(3)");
  screen.click("cmdNav(4)");
}

TEST(Interruption, OfAPreviewBeforeItsFirstPageShowsNone) {
  Screen screen(246, Profilo::MotoreStampa::Pdf);
  const WhenInterruptible watch(screen, [](QPushButton& button) {
    EXPECT_TRUE(button.isEnabled());
    QTest::mouseClick(&button, Qt::LeftButton);
  });
  previewAccounts(screen);
  EXPECT_TRUE(screen.top() == &screen.window());
  EXPECT_EQ(screen.window().foot()->words(),
            QStringLiteral("Anteprima interrotta prima della prima pagina."));
  EXPECT_FALSE(screen.window().foot()->interruption()->isVisible());
}

TEST(Interruption, IsOfferedAlikeInAllPhasesOfAPrint) {
  Screen screen(246, Profilo::MotoreStampa::Pdf);
  int pages = 0;
  bool offered = false;
  const WhenInterruptible watch(
      screen, [&](QPushButton& button) { offered = button.isEnabled(); },
      QStringLiteral("Scrittura delle pagine"));
  screen.whenModal([&](QWidget& modal) {
    pages = dynamic_cast<desktop::PreviewDialog&>(modal).pages();
    EXPECT_EQ(modal.findChild<QLabel*>(QStringLiteral("parziale")), nullptr);
    modal.close();
  });
  previewAccounts(screen);
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_TRUE(offered);
  EXPECT_GT(pages, 2) << "nobody has interrupted it";
}

TEST(Interruption, EndsWithAWorkThatDoesNotAsk) {
  Screen screen;
  bool offered = false;
  bool later = true;
  screen.form().cmdOpzioni.onClick = [&] {
    QPushButton* const button = screen.window().foot()->interruption();
    screen.frontEnd().progress("Prova", 1, 3);
    EXPECT_FALSE(screen.frontEnd().interrupted());
    screen.frontEnd().progress("Prova", 2, 3);
    offered = button->isVisible();
    screen.frontEnd().progress("Altra prova", 1, 2);
    later = button->isVisible();
  };
  screen.click("cmdOpzioni");
  EXPECT_TRUE(offered);
  EXPECT_FALSE(later);
}

// The disk is full at the first of many prints.
TEST(Interruption, IsOfferedByTheBoxOfAPrintThatFails) {
  Screen screen;
  bool askedBefore = true;
  bool ended = false;
  screen.form().cmdOpzioni.onClick = [&] {
    screen.frontEnd().progress("Prova", 1, 3);
    askedBefore = screen.frontEnd().interrupted();
    screen.frontEnd().messageBox({"Spazio esaurito", "Prova", BoxIcon::Stop, BoxButtons::Ok, Answer::Ok});
    screen.frontEnd().progress("Prova", 2, 3);
    ended = screen.frontEnd().interrupted();
  };
  screen.whenModal([](QWidget& modal) { pressButton(modal, "Interrompi"); });
  screen.click("cmdOpzioni");
  EXPECT_FALSE(askedBefore);
  EXPECT_TRUE(ended);
  screen.whenModal([](QWidget& modal) { pressButton(modal, "OK"); });
  screen.click("cmdOpzioni");
  EXPECT_FALSE(askedBefore) << "the interruption was that of the first work";
  EXPECT_FALSE(ended);
}

TEST(Interruption, IsNotOfferedByTheBoxOfAnEventThatCannotBeInterrupted) {
  Screen screen;
  screen.form().cmdOpzioni.onClick = [&] {
    screen.frontEnd().messageBox({"Spazio esaurito", "Prova", BoxIcon::Stop, BoxButtons::Ok, Answer::Ok});
  };
  qsizetype buttons = 0;
  screen.whenModal([&](QWidget& modal) {
    buttons = modal.findChildren<QPushButton*>().size();
    pressButton(modal, "OK");
  });
  screen.click("cmdOpzioni");
  EXPECT_EQ(buttons, 1);
}

TEST(Interruption, IsTheOnlyThingThatReceivesInputMeanwhile) {
  bool pressed = false;
  const InterruptedRun run = runInterrupted([&](Screen& screen, QPushButton&) {
    screen.form().cmdNav[0].onClick = [&] { pressed = true; };
    screen.click("cmdNav(0)");
    QTest::keyClick(screen.window().windowHandle(), Qt::Key_Return);
    screen.window().close();
  });
  EXPECT_FALSE(pressed);
  EXPECT_EQ(run.lines, 0);
  EXPECT_FALSE(run.words.contains(QStringLiteral("interrotta"))) << run.words.toStdString();
}

}  // namespace
}  // namespace cu::test
