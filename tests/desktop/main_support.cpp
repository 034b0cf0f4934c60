// The tests' own entry: a window system without a screen, and private settings.

#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <iostream>

#include "desktop/look.h"
#include "desktop/table_watch.h"

namespace {

// The platform without a screen reports its missing capabilities for every window.
void quiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg || type == QtCriticalMsg) std::cerr << text.toStdString() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(quiet);
  QStandardPaths::setTestModeEnabled(true);
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("cuwizard-prove"));
  QCoreApplication::setOrganizationName(QStringLiteral("cuwizard-prove"));
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  QGuiApplication::setQuitOnLastWindowClosed(false);
  cu::desktop::look::apply(application, cu::desktop::look::Colours::Light);
  cu::test::TableWatch watch;
  application.installEventFilter(&watch);
  return RUN_ALL_TESTS();
}
