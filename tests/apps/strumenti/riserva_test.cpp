// Who can read what the windows remember, and databases.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <filesystem>

#include "apps/avvio/scelta_avvio.h"
#include "support/umask.h"

namespace cu::strumenti {
namespace {

TEST(WhatWindowsRemember, IsTheUsersAlone) {
  const QString nome = QCoreApplication::organizationName();
  QCoreApplication::setOrganizationName(QStringLiteral("cuwizard-riserva"));
  const std::string file = QSettings().fileName().toStdString();
  std::filesystem::remove(file);
  {
    const test::Umask umask(0);
    riservaMemoria();
    EXPECT_EQ(test::modeOf(file), 0600U);
    SceltaAvvio scelta;
    scelta.database = QStringLiteral("/cartella/archivio.db");
    scelta.ricorda();
    QSettings().sync();
    EXPECT_GT(std::filesystem::file_size(file), 0U);
    EXPECT_EQ(test::modeOf(file), 0600U);
  }
  EXPECT_EQ(SceltaAvvio::ricordata().database, QStringLiteral("/cartella/archivio.db"));
  std::filesystem::remove_all(std::filesystem::path(file).parent_path());
  QCoreApplication::setOrganizationName(nome);
}

TEST(OwnArchives, AndTheirFoldersAreTheUsersAlone) {
  const QTemporaryDir cartella;
  const test::Umask umask(0);
  const CartelleAvvio cartelle{cartella.filePath(QStringLiteral("dati")),
                               cartella.filePath(QStringLiteral("config/impostazioni.toml")),
                               cartella.filePath(QStringLiteral("documenti"))};
  preparaDimostrativo(cartelle);
  salvaCartellaMinisteriale(cartelle, QStringLiteral("/cartella"));
  EXPECT_EQ(test::modeOf(cartelle.dati.toStdString()), 0700U);
  EXPECT_EQ(test::modeOf(cartelle.databaseDimostrativo().toStdString()), 0600U);
  EXPECT_EQ(test::modeOf(cartella.filePath(QStringLiteral("config")).toStdString()), 0700U);
  EXPECT_EQ(test::modeOf(cartelle.impostazioni.toStdString()), 0600U);
  const QString proprio = cartella.filePath(QStringLiteral("archivio.db"));
  creaArchivioVuoto(proprio);
  EXPECT_EQ(test::modeOf(proprio.toStdString()), 0600U);
}

}  // namespace
}  // namespace cu::strumenti
