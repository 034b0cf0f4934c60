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
// The font library keeps its caches to the end of the process; that is not a leak of this program.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }
// Nor is it a message for this program's output.
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
  // The toolkit's messages on a missing desktop session are irrelevant for a print and for the readers of the
  // program's messages.
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  // Never destroyed: the toolkit's own static objects may outlive anything that is destroyed at the end.
  [[maybe_unused]] static const auto* const application = new QGuiApplication(count, arguments);
  qInstallMessageHandler(before);
  // The toolkit has set the locale from the environment; number formats are reset.
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace cu::reporting
