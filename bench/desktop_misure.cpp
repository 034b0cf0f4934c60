// What a clerk waits for in the window: the step to the grid. Argument: how many payees (100,000 without
// one).

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "apps/comune/connessioni.h"
#include "apps/comune/impianto.h"
#include "database/archivio.h"
#include "desktop/form_window.h"
#include "desktop/look.h"
#include "desktop/qt_front_end.h"
#include "misura.h"

namespace cu::bench {
namespace {

namespace fs = std::filesystem;

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
