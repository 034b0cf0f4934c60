#include "reporting/gui_application.h"

#include <QGuiApplication>
#include <clocale>

#include "reporting/report_error.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CU_LEAKS_COUNT
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(CU_LEAKS_COUNT)
// The font library keeps what it has read to the end of the process; that is no leak of this program.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }
// Nor is it a message of this program.
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
#endif

namespace cu::reporting {

void ensureGuiApplication() {
  if (QCoreApplication::instance() != nullptr) {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr) return;
    throw Error(kErrorReportOutput, "Il programma è stato avviato senza le funzioni grafiche per la stampa.");
  }
  static char program[] = "report";
  static char option[] = "-platform";
  static char platform[] = "offscreen";
  static char* arguments[] = {program, option, platform, nullptr};
  static int count = 3;
  // What the toolkit misses of a desktop's session is of no concern to a print, and of none to who reads the
  // program's messages.
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  // Never taken down: the toolkit's own static objects may outlive anything that is released at the end.
  [[maybe_unused]] static const auto* const application = new QGuiApplication(count, arguments);
  qInstallMessageHandler(before);
  // The toolkit has taken over the locale of the environment; numbers stay as the program writes them.
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace cu::reporting
