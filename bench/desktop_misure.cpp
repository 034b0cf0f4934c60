// What a clerk waits for in the window: the step to the grid, a key in an editor. Argument: how many payees
// (100,000 without one).

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "apps/comune/connessioni.h"
#include "apps/comune/impianto.h"
#include "database/archivio.h"
#include "desktop/edit_view.h"
#include "desktop/form_window.h"
#include "desktop/look.h"
#include "desktop/qt_front_end.h"
#include "misura.h"

namespace cu::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kKeys = 60;
constexpr int kSteps = 3;

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

// The text of the load as the wizard sent it last.
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

std::vector<double> typed(QLineEdit& box) {
  box.setFocus();
  // The window is drawn for the first time before the first key.
  QCoreApplication::processEvents();
  std::vector<double> spent;
  for (int i = 0; i < kKeys; ++i) {
    if (i % 6 == 0) box.selectAll();
    spent.push_back(seconds([&] {
      QKeyEvent press(QEvent::KeyPress, Qt::Key_1 + i % 6, Qt::NoModifier, QString(QChar(u'1' + i % 6)));
      QApplication::sendEvent(&box, &press);
      QCoreApplication::processEvents();
    }));
  }
  std::sort(spent.begin(), spent.end());
  return spent;
}

// In the first amount of the editor that is open, and in a box alone in a window.
void keys(desktop::QtFrontEnd& screen) {
  auto* const box = screen.topmost()->findChild<QLineEdit*>(QStringLiteral("curField(11)"));
  if (box == nullptr || !box->isVisible()) throw std::runtime_error("the editor is not open");
  const std::vector<double> ours = typed(*box);
  if (box->text().isEmpty()) throw std::runtime_error("nothing was typed");
  QLineEdit alone;
  alone.show();
  const std::vector<double> bare = typed(alone);
  const std::string of = " of " + std::to_string(kKeys);
  print({"a key in an editor, the median" + of, ours[kKeys / 2], bare[kKeys / 2], "a box alone in a window",
         "value:0.01"});
  print({"a key in an editor, the slowest" + of, ours.back(), bare.back(), "a box alone in a window",
         "value:0.01"});
}

// Presses a button of the next box or form that waits.
void answer(const QString& caption) {
  QTimer::singleShot(0, qApp, [caption] {
    for (QPushButton* const button : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
      if (button->text().remove(u'&') == caption) button->click();
    }
  });
}

void measure(const fs::path& folder, int payees) {
  const Profilo profile = profileOf(folder, "grande.db");
  creaArchivio(*creaConnessione(profile.database), ContenutoArchivio::Sintetico, {payees, 2016, 2016, 1});
  desktop::QtFrontEnd screen;
  Impianto all(profile, screen);
  all.programma().main();
  FrmWizard& wizard = *all.programma().wizard();
  const auto click = [&](Button& button) {
    screen.perform(button, [&] { button.click(); });
    QCoreApplication::processEvents();
  };
  screen.perform(wizard.optstType[1], [&] { wizard.optstType[1].click(); });
  screen.perform(wizard.KRNCboEsCont0, [&] { wizard.KRNCboEsCont0.setIndex(0); });
  click(wizard.cmdNav[3]);

  // From here on both sides find the database warm.
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
  print({"next step with " + grouped(static_cast<long long>(wizard.grdCompensi.rowCount())) + " lines",
         times.ours, times.limit, "the load's one statement", "ratio:1.5"});

  std::exception_ptr failed;
  QTimer::singleShot(0, qApp, [&] {
    try {
      keys(screen);
    } catch (const std::exception&) {
      failed = std::current_exception();
    }
    screen.topmost()->form().unload();
  });
  screen.window(wizard)->findChild<QWidget*>(QStringLiteral("grdCompensi"))->setFocus();
  screen.perform(wizard.grdCompensi, [&] { wizard.grdCompensi.doubleClick(1); });
  if (failed) std::rethrow_exception(failed);
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
