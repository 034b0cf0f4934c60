// What a clerk waits for in the window: the first window after the start, the step to the grid, a key in an
// editor.
//
//   desktop_misure [LINES]     compensation lines of the large company, 100000 without a number

#include <unistd.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
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

constexpr double kFirstWindow = 0.300;
constexpr double kStepRatio = 1.5;
constexpr double kKey = 0.010;
constexpr int kKeys = 60;

// Since the kernel made this process.
double sinceStart() {
  std::ifstream stat("/proc/self/stat");
  std::string text((std::istreambuf_iterator<char>(stat)), {});
  std::istringstream fields(text.substr(text.rfind(')') + 2));
  std::string field;
  constexpr int kStartTime = 20;  // behind the name
  for (int i = 0; i < kStartTime; ++i) fields >> field;
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  const double seconds = static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
  return seconds - std::stod(field) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

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

// Waits until a window has been drawn for the first time.
class FirstPaint : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && dynamic_cast<desktop::FormWindow*>(watched) != nullptr)
      painted = true;
    return false;
  }
  bool painted = false;
};

void firstWindow(const fs::path& folder) {
  const Profilo profile = profileOf(folder, "demo.db");
  desktop::QtFrontEnd screen;
  FirstPaint paint;
  qApp->installEventFilter(&paint);
  Impianto all(profile, screen);
  all.programma().main();
  while (!paint.painted) QCoreApplication::processEvents();
  row("first window after the start of the process", sinceStart(), kFirstWindow);
  all.programma().wizard()->unload();
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

void keys(desktop::QtFrontEnd& screen) {
  desktop::FormWindow& editor = *screen.topmost();
  auto* const box = editor.findChild<QLineEdit*>(QStringLiteral("curField(11)"));
  box->setFocus();
  std::vector<double> spent;
  for (int i = 0; i < kKeys; ++i) {
    if (i % 6 == 0) box->selectAll();
    spent.push_back(seconds([&] {
      QKeyEvent press(QEvent::KeyPress, Qt::Key_1 + i % 6, Qt::NoModifier, QString(QChar(u'1' + i % 6)));
      QApplication::sendEvent(box, &press);
      QCoreApplication::processEvents();
    }));
  }
  std::sort(spent.begin(), spent.end());
  row("a key in an editor, the median of 60", spent[spent.size() / 2], kKey);
  row("a key in an editor, the slowest of 60", spent.back(), kKey);
}

void large(const fs::path& folder, int lines) {
  const Profilo profile = profileOf(folder, "grande.db");
  creaArchivio(*creaConnessione(profile.database), ContenutoArchivio::Sintetico, {lines, 2016, 2016, 1});
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
  QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
  click(wizard.cmdNav[2]);

  // The second time, so that both sides find the database warm.
  if (wizard.fraStep[0].left() == Frame::kOffStage)
    throw std::runtime_error("the wizard is not on its first step");
  const double step = seconds([&] { click(wizard.cmdNav[3]); });
  const std::string load = loadStatement(profile.traccia);
  const auto bare = apriConnessione(profile.database);
  bare->Execute("DELETE FROM tmpprequadrivio12");
  const double statement = seconds([&] { bare->Execute(load); });
  row("next step with " + std::to_string(wizard.grdCompensi.rowCount()) +
          " lines, beside 1.5 times its statement",
      step, kStepRatio * statement);

  auto* const table = screen.window(wizard)->findChild<QWidget*>(QStringLiteral("grdCompensi"));
  QTimer::singleShot(0, qApp, [&] {
    keys(screen);
    screen.topmost()->form().unload();
  });
  table->setFocus();
  screen.perform(wizard.grdCompensi, [&] { wizard.grdCompensi.doubleClick(1); });
  wizard.unload();
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  using namespace cu::bench;
  namespace fs = std::filesystem;
  if (std::getenv("DISPLAY") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  // The demonstration database is made beforehand, by a first run of this program: the start does not pay for
  // it.
  const char* const made = std::getenv("DESKTOP_MISURE_FOLDER");
  if (made == nullptr) {
    char name[] = "/tmp/desktop_misureXXXXXX";
    const fs::path folder = mkdtemp(name);
    cu::Profilo::Database database;
    database.origine = (folder / "demo.db").string();
    creaArchivio(*creaConnessione(database), cu::ContenutoArchivio::Dimostrativo);
    setenv("DESKTOP_MISURE_FOLDER", folder.c_str(), 1);
    const std::string command = std::string(argv[0]) + " " + (argc > 1 ? argv[1] : "100000");
    const int result = std::system(command.c_str());
    fs::remove_all(folder);
    return result == 0 ? 0 : 1;
  }
  QApplication application(argc, argv);
  cu::desktop::look::apply(application, cu::desktop::look::Colours::Light);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  heading();
  firstWindow(made);
  large(made, argc > 1 ? std::atoi(argv[1]) : 100000);
  return 0;
}
