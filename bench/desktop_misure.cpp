// The user's waiting times in the window: the step to the grid, its order, filter and totals, a key in an
// editor. Argument: the number of payees (default 100,000).

#include <QApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "apps/comune/connessioni.h"
#include "apps/comune/impianto.h"
#include "archive/archivio.h"
#include "desktop/form_window.h"
#include "desktop/grid_order.h"
#include "desktop/grid_table.h"
#include "desktop/look.h"
#include "desktop/qt_front_end.h"
#include "desktop/row_reader.h"
#include "misura.h"
#include "reporting/pdf_reports.h"

namespace cu::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kSteps = 10;

Profilo profileOf(const fs::path& folder, const std::string& database) {
  Profilo profile;
  profile.sessione.utente = 12;
  profile.sessione.azienda = 1;
  profile.sessione.filiale = 1;
  profile.sessione.titolo = "Quadrivio";
  profile.sessione.processi = {{"Wizard stampa", 247}};
  profile.database.origine = (folder / database).string();
  profile.valuta = {true, "€", ",", "."};
  profile.documenti = folder.string();
  profile.impostazioni = (folder / "impostazioni.toml").string();
  profile.stampa = Profilo::MotoreStampa::Registro;
  profile.traccia = (folder / "traccia.sql").string();
  return profile;
}

// The text of the load as last sent by the wizard.
std::string loadStatement(const std::string& trace) {
  std::ifstream file(trace);
  std::string found;
  for (std::string line; std::getline(file, line);) {
    if (line.find("INSERT INTO tmpprequadrivio") != std::string::npos) found = line;
  }
  std::string text;
  for (std::size_t at = 1; at + 1 < found.size(); ++at) {
    if (found[at] != '\\') {
      text += found[at];
      continue;
    }
    const char escaped = found[++at];
    text += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped == 't' ? '\t' : escaped;
  }
  return text;
}

// Presses a button of the next box or form that waits.
void answer(const QString& caption) {
  QTimer::singleShot(0, qApp, [caption] {
    for (QPushButton* const button : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
      if (button->text().remove(u'&') == caption) button->click();
    }
  });
}

// Types and deletes digits, each drawn before the next one; returns the mean of a key.
double keySeconds(QLineEdit& line) {
  constexpr int kDigits = 6;
  constexpr int kRounds = 20;
  line.setFocus();
  const auto press = [&](int key, int digits) {
    QTest::keyClick(&line, static_cast<Qt::Key>(key));
    QCoreApplication::processEvents();
    if (line.text().count(u'7') != digits) throw std::runtime_error("a key has not reached its field");
  };
  double best = 1e9;
  for (int round = 0; round < kRounds; ++round) {
    line.selectAll();
    press(Qt::Key_Delete, 0);
    best = std::min(best, seconds([&] {
                            for (int i = 1; i <= kDigits; ++i) press(Qt::Key_7, i);
                            for (int i = kDigits - 1; i >= 0; --i) press(Qt::Key_Backspace, i);
                          }) / (2 * kDigits));
  }
  return best;
}

// A window that contains only fields, as large as an editor.
double bareKeySeconds(QSize size) {
  QWidget window;
  auto* grid = new QGridLayout(&window);
  constexpr int kFields = 60;
  for (int i = 0; i < kFields; ++i) grid->addWidget(new QLineEdit(&window), i / 5, i % 5);
  window.resize(size);
  window.show();
  QCoreApplication::processEvents();
  return keySeconds(*window.findChild<QLineEdit*>());
}

void measureKeys(desktop::QtFrontEnd& screen, FrmWizard& wizard) {
  Pair times;
  QString failed = QStringLiteral("no editor has opened");
  QTimer opened;
  QObject::connect(&opened, &QTimer::timeout, &opened, [&] {
    desktop::FormWindow& editor = *screen.topmost();
    if (&editor.form() == &wizard || screen.busy()) return;  // not yet
    opened.stop();
    try {
      auto* const field = editor.findChild<QLineEdit*>(QStringLiteral("curField(19)"));
      if (field == nullptr || !field->isEnabled())
        throw std::runtime_error("the field is not to be typed into");
      times.ours = keySeconds(*field);
      times.limit = bareKeySeconds(editor.size());
      failed.clear();
    } catch (const std::exception& error) {
      failed = QString::fromUtf8(error.what());
    }
    QWidget* const typed = editor.focusWidget();
    QTest::keyClick(typed, Qt::Key_Escape);  // takes back what was typed
    QTest::keyClick(typed, Qt::Key_Escape);
  });
  opened.start(10);
  screen.perform(wizard.grdCompensi, [&] { wizard.grdCompensi.doubleClick(1); });
  if (!failed.isEmpty()) throw std::runtime_error(failed.toStdString());
  print({"key in an editor, drawn", times.ours, times.limit, "a window of bare fields", "value:0.01"});
}

// What the grid does with all its rows at a user's wish.
void measureRows(const Grid& grid) {
  constexpr int kRounds = 5;
  const std::string lines = " of " + grouped(static_cast<long long>(grid.rowCount())) + " lines";
  std::vector<CellView> cells(grid.rows()->Fields().size());
  const auto pass = [&] {
    for (std::size_t row = 1; row <= grid.rowCount(); ++row) grid.rows()->Peek(row, cells.data());
  };
  const auto report = [&](const char* what, const std::function<void()>& work) {
    const Pair times = best(kRounds, work, pass);
    print({what + lines, times.ours, times.limit, "reading each row once", "value:0.1"});
  };
  report("sort by payee", [&] { desktop::arranged(grid, {"AnagraficaPerc", false, {}, 0}); });
  report("sort by gross, downwards", [&] { desktop::arranged(grid, {"AmmontareLordo", true, {}, 0}); });
  const QString words = QStringLiteral("ma 1.0");
  report("filter by a word and an amount", [&] { desktop::arranged(grid, {"", false, words, 0}); });
  report("filter of chosen lines", [&] { desktop::arranged(grid, {"", false, {}, 1}); });
  report("totals", [&] { desktop::totalsOf(grid, std::vector<bool>()); });
}

// Each step of the wheel, and each page, drawn before the next one; returns the slowest.
double slowestFrame(QAbstractScrollArea& table, int frames, int step) {
  QScrollBar& bar = *table.verticalScrollBar();
  double slowest = 0;
  for (int i = 0; i < frames; ++i) {
    const int to = bar.value() + step;
    slowest = std::max(slowest, seconds([&] {
                         bar.setValue(to);
                         table.viewport()->repaint();
                         QCoreApplication::processEvents();
                       }));
    if (bar.value() != to) throw std::runtime_error("the grid has not moved");
  }
  return slowest;
}

// A screen shows sixty pictures a second.
void measureScrolling(desktop::GridTable& table, std::size_t rows) {
  constexpr int kFrames = 300;
  constexpr int kRounds = 3;
  const auto report = [&](const char* what, int step) {
    Pair times{1e9, 0};
    for (int i = 0; i < kRounds; ++i) {
      table.verticalScrollBar()->setValue(0);
      QCoreApplication::processEvents();
      times.ours = std::min(times.ours, slowestFrame(table, kFrames, step));
    }
    times.limit = 1.0 / 60;
    print({what + (" of " + grouped(static_cast<long long>(rows))) + " lines, slowest picture", times.ours,
           times.limit, "a picture at 60 Hz", "ratio:1"});
  };
  const int page = table.verticalScrollBar()->pageStep();
  report("scrolling by a line", 1);
  report("scrolling by three lines", 3);
  if (page > 0 && page * kFrames < table.verticalScrollBar()->maximum()) report("scrolling by a page", page);
}

desktop::GridTable& gridOf(const QWidget& window) {
  for (QTableView* const table : window.findChildren<QTableView*>()) {
    if (auto* const grid = dynamic_cast<desktop::GridTable*>(table)) return *grid;
  }
  throw std::runtime_error("the window has no grid");
}

void measure(const fs::path& folder, int payees) {
  const Profilo profile = profileOf(folder, "grande.db");
  creaArchivio(*creaConnessione(profile.database), ContenutoArchivio::Sintetico, {payees, 2016, 2016, 1});
  desktop::QtFrontEnd screen;
  Impianto all(profile, screen, PdfReports::crea);
  all.programma().main();
  FrmWizard& wizard = *all.programma().wizard();
  const auto click = [&](Button& button) {
    screen.perform(button, [&] { button.click(); });
    QCoreApplication::processEvents();
  };
  screen.perform(wizard.optstType[1], [&] { wizard.optstType[1].click(); });
  screen.perform(wizard.KRNCboEsCont0, [&] { wizard.KRNCboEsCont0.setIndex(0); });
  click(wizard.cmdNav[3]);

  // From here on the database is warm for both sides.
  const auto bare = apriConnessione(profile.database);
  Pair times{1e9, 1e9};
  for (int i = 0; i < kSteps; ++i) {
    answer(QStringLiteral("No"));
    click(wizard.cmdNav[2]);
    if (wizard.fraStep[0].left() == Frame::kOffStage)
      throw std::runtime_error("the wizard is not on its first step");
    times.ours = std::min(times.ours, seconds([&] { click(wizard.cmdNav[3]); }));
    if (wizard.fraStep[1].left() == Frame::kOffStage)
      throw std::runtime_error("the wizard is not on its second step");
    const std::string load = loadStatement(profile.traccia);
    bare->Execute("DELETE FROM tmpprequadrivio12");
    times.limit = std::min(times.limit, seconds([&] { bare->Execute(load); }));
  }
  // With few lines the window itself takes the greater part.
  constexpr std::size_t kMany = 50'000;
  const auto lines = static_cast<std::size_t>(wizard.grdCompensi.rowCount());
  print({"next step with " + grouped(static_cast<long long>(lines)) + " lines", times.ours, times.limit,
         "the load's one statement", lines < kMany ? "" : "ratio:1.5"});

  measureRows(wizard.grdCompensi);
  measureScrolling(gridOf(*screen.topmost()), wizard.grdCompensi.rowCount());
  measureKeys(screen, wizard);
  wizard.unload();
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  using namespace cu::bench;
  if (std::getenv("DISPLAY") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(argc, argv);
  cu::desktop::look::apply(application, cu::desktop::look::Colours::Light);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const ScratchFolder folder("cu_desktop_misure");
  measure(folder.path(), argc > 1 ? std::atoi(argv[1]) : 100000);
  return 0;
}
