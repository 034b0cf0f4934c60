#include "apps/avvio/scelta_avvio.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include "apps/comune/connessioni.h"
#include "apps/importazione/mappe_personali.h"
#include "archive/archivio.h"
#include "archive/codici_pubblicati.h"
#include "base/error.h"
#include "odbc/connection_text.h"
#include "platform/owner_only.h"
#include "suite/file_system.h"
#include "suite/impostazioni.h"
#include "suite/platform_file.h"
#include "suite/testi.h"
#include "suite/testo_profilo.h"

namespace cu {
namespace {

constexpr const char* kSezione = "MenuSettings";
constexpr const char* kPercorsoDocumenti = "Path";
constexpr std::int16_t kTestoChiave = 1368;
constexpr int kRecenti = 8;

Profilo::Database databaseDi(const QString& file) {
  Profilo::Database database;
  database.origine = file.toStdString();
  return database;
}

// Created under a temporary name and renamed when it is complete.
void creaIntero(const QString& file, ContenutoArchivio contenuto, ModuliArchivio moduli) {
  const QString nuovo = file + QStringLiteral(".nuovo");
  const auto togli = [&] {
    for (const char* coda : {"", "-wal", "-shm"}) QFile::remove(nuovo + QString::fromLatin1(coda));
  };
  togli();
  try {
    creaArchivio(*creaConnessione(databaseDi(nuovo)), contenuto, {}, moduli);
  } catch (...) {
    togli();
    throw;
  }
  for (const char* coda : {"-wal", "-shm"}) QFile::remove(nuovo + QString::fromLatin1(coda));
  QFile::rename(nuovo, file);
}

// A path has separators of its own.
QString improntaDi(const QString& database) {
  return QString::fromLatin1(
      QCryptographicHash::hash(database.toUtf8(), QCryptographicHash::Sha256).toHex().left(16));
}
QString chiaveAnno(const QString& database, std::int32_t azienda) {
  return QStringLiteral("avvio/anni/%1/%2").arg(improntaDi(database)).arg(azienda);
}
QString chiaveModuli(const QString& database) {
  return QStringLiteral("avvio/moduli/%1").arg(improntaDi(database));
}

std::string chiave() { return TestiItaliani().text(kTestoChiave); }

void creaCartellaImpostazioni(const CartelleAvvio& cartelle) {
  createOwnerOnlyFolder(QFileInfo(cartelle.impostazioni).absolutePath().toStdString());
}

template <class Uso>
auto conImpostazioni(const CartelleAvvio& cartelle, const Uso& uso) {
  FileSystemPiattaforma files;
  ImpostazioniToml impostazioni(cartelle.impostazioni.toStdString(), files, [](const std::string&) {});
  return uso(impostazioni);
}

// A folder that a desktop's user knows, for a text.
QString luogo(const char* che, const QString& dove) {
  return QString::fromUtf8(che) + QStringLiteral(": ") + QDir::toNativeSeparators(dove) + u'\n';
}

}  // namespace

// The library keeps the mode of an existing file.
void riservaMemoria() {
  const QString file = QSettings().fileName();
  createOwnerOnlyFolder(QFileInfo(file).absolutePath().toStdString());
  createOwnerOnlyFile(file.toStdString());
}

Profilo::Database ServerAvvio::database() const {
  Profilo::Database database;
  database.motore = Profilo::Motore::Odbc;
  database.origine = testo.toStdString();
  database.cifrata = cifrata;
  return database;
}

QString ServerAvvio::nome() const {
  const odbc::ConnectionText parti(testo.toStdString());
  const auto parte = [&parti](std::initializer_list<std::string_view> chiavi) {
    return QString::fromStdString(parti.value(chiavi));
  };
  const QString nome =
      QStringLiteral("%1, database %2").arg(parte({"Server", "ServerName", "DSN"}), parte({"Database"}));
  const QString utente = parte({"UID"});
  return utente.isEmpty() ? nome : nome + QStringLiteral(", utente ") + utente;
}

Profilo::Database SceltaAvvio::suo(const QString& dimostrativo) const {
  if (!server.testo.isEmpty()) return server.database();
  return databaseDi(database.isEmpty() ? dimostrativo : database);
}

bool SceltaAvvio::mai() { return !QSettings().contains(QStringLiteral("avvio/funzione")); }

SceltaAvvio SceltaAvvio::ricordata() {
  QSettings memoria;
  memoria.beginGroup(QStringLiteral("avvio"));
  SceltaAvvio scelta;
  scelta.database = memoria.value(QStringLiteral("database")).toString();
  scelta.server.testo = memoria.value(QStringLiteral("server")).toString();
  scelta.server.cifrata = memoria.value(QStringLiteral("cifrata"), true).toBool();
  scelta.azienda = memoria.value(QStringLiteral("azienda"), scelta.azienda).toInt();
  scelta.filiale = memoria.value(QStringLiteral("filiale"), scelta.filiale).toInt();
  scelta.utente = memoria.value(QStringLiteral("utente"), scelta.utente).toInt();
  scelta.funzione = memoria.value(QStringLiteral("funzione"), scelta.funzione).toInt();
  return scelta;
}

void SceltaAvvio::ricorda() const {
  QSettings memoria;
  memoria.beginGroup(QStringLiteral("avvio"));
  memoria.setValue(QStringLiteral("database"), database);
  memoria.setValue(QStringLiteral("server"), server.testo);
  memoria.setValue(QStringLiteral("cifrata"), server.cifrata);
  const QString questo = server.testo.isEmpty() ? database : kRecenteServer + server.testo;
  if (!questo.isEmpty()) {
    QStringList recenti = memoria.value(QStringLiteral("recenti")).toStringList();
    recenti.removeAll(questo);
    recenti.prepend(questo);
    memoria.setValue(QStringLiteral("recenti"), recenti.mid(0, kRecenti));
  }
  memoria.setValue(QStringLiteral("azienda"), azienda);
  memoria.setValue(QStringLiteral("filiale"), filiale);
  memoria.setValue(QStringLiteral("utente"), utente);
  memoria.setValue(QStringLiteral("funzione"), funzione);
}

QStringList databaseRecenti() {
  QStringList recenti = QSettings().value(QStringLiteral("avvio/recenti")).toStringList();
  recenti.removeIf([](const QString& uno) { return !uno.startsWith(kRecenteServer) && !QFile::exists(uno); });
  return recenti;
}

QString annoRicordato(const QString& database, std::int32_t azienda) {
  return QSettings().value(chiaveAnno(database, azienda)).toString();
}

void ricordaAnno(const QString& database, std::int32_t azienda, const QString& anno) {
  if (!anno.isEmpty()) QSettings().setValue(chiaveAnno(database, azienda), anno);
}

// A database that cannot be read is reported where its companies are listed.
bool moduliPubblicatiDi(const QString& database) {
  const QVariant scelti = QSettings().value(chiaveModuli(database));
  if (scelti.isValid() || database.startsWith(kRecenteServer)) return scelti.toBool();
  try {
    return perModuliPubblicati(*apriConnessione(databaseDi(database)));
  } catch (const std::exception&) {
    return false;
  }
}

void ricordaModuli(const QString& database, bool pubblicati) {
  QSettings().setValue(chiaveModuli(database), pubblicati);
}

CartelleAvvio CartelleAvvio::delUtente() {
  const auto cartella = [](QStandardPaths::StandardLocation luogo) {
    return QStandardPaths::writableLocation(luogo);
  };
  CartelleAvvio cartelle;
  cartelle.dati = cartella(QStandardPaths::AppLocalDataLocation);
  cartelle.impostazioni = cartella(QStandardPaths::AppConfigLocation) + QStringLiteral("/impostazioni.toml");
  cartelle.documenti = cartella(QStandardPaths::DocumentsLocation);
  return cartelle;
}

QString CartelleAvvio::databaseDimostrativo() const { return dati + QStringLiteral("/dimostrativo.db"); }

void preparaDimostrativo(const CartelleAvvio& cartelle) {
  const QString file = cartelle.databaseDimostrativo();
  if (QFile::exists(file)) return;
  createOwnerOnlyFolder(cartelle.dati.toStdString());
  creaIntero(file, ContenutoArchivio::Dimostrativo, ModuliArchivio::DiAllora);
}

void creaArchivioVuoto(const QString& file) {
  if (QFile::exists(file)) {
    throw Error(kErrorPathAccess, "Il file «" + QFileInfo(file).fileName().toStdString() +
                                      "» esiste già: per un nuovo archivio serve un nome nuovo.");
  }
  creaIntero(file, ContenutoArchivio::Vuoto, ModuliArchivio::Pubblicati);
}

QString nomeNuovoArchivio(const QString& cartella) {
  const QString inizio = cartella + QStringLiteral("/archivio");
  QString file = inizio + QStringLiteral(".db");
  for (int i = 2; QFile::exists(file); ++i) file = QStringLiteral("%1-%2.db").arg(inizio).arg(i);
  return file;
}

std::vector<AziendaAvvio> aziendeDi(const Profilo::Database& database) {
  return aziendeDelDatabase(*apriConnessione(database));
}

Profilo profiloDi(const SceltaAvvio& scelta, const CartelleAvvio& cartelle) {
  QDir().mkpath(cartelle.documenti);
  creaCartellaImpostazioni(cartelle);
  Profilo profilo;
  profilo.file = kAvvioSenzaProfilo;
  profilo.sessione.utente = scelta.utente;
  profilo.sessione.azienda = scelta.azienda;
  profilo.sessione.filiale = scelta.filiale;
  profilo.sessione.titolo = chiave();
  profilo.sessione.cartellaGuida = cartelle.dati.toStdString();
  profilo.sessione.contestoGuida = 1;
  profilo.sessione.sezioneImpostazioni = "Sessione" + std::to_string(scelta.utente);
  profilo.sessione.processi = {{"Wizard stampa", scelta.funzione}};
  profilo.database = scelta.suo(cartelle.databaseDimostrativo());
  profilo.valuta = {true, "€", ",", "."};
  profilo.documenti = cartelle.documenti.toStdString();
  profilo.impostazioni = cartelle.impostazioni.toStdString();
  profilo.moduliPubblicati = scelta.moduliPubblicati;
  return profilo;
}

void salvaProfilo(const SceltaAvvio& scelta, const CartelleAvvio& cartelle, const QString& file) {
  Profilo profilo = profiloDi(scelta, cartelle);
  // The installed guide, wherever that is.
  profilo.sessione.cartellaGuida.clear();
  replaceFile(file.toStdString(), testoProfilo(profilo), NewFile::OwnerOnly);
  restrictToOwner(file.toStdString());
}

QString testoInformazioni(const std::string& versione, const CartelleAvvio& cartelle,
                          const Profilo* profilo) {
  QString testo = QString::fromStdString(versione) + QStringLiteral("\n\n");
  if (profilo != nullptr) {
    if (profilo->file != kAvvioSenzaProfilo) testo += luogo("Profilo", QString::fromStdString(profilo->file));
    if (profilo->database.motore == Profilo::Motore::Odbc) {
      testo += QStringLiteral("Database: ") +
               ServerAvvio{QString::fromStdString(profilo->database.origine), true}.nome() + u'\n';
    } else {
      testo += luogo("Database", QString::fromStdString(profilo->database.origine));
    }
    testo += luogo("Documenti", QString::fromStdString(profilo->documenti));
    testo += luogo("Impostazioni", QString::fromStdString(profilo->impostazioni));
  } else {
    testo += luogo("Database dimostrativo", cartelle.databaseDimostrativo());
    testo += luogo("Documenti", cartelle.documenti);
    testo += luogo("Impostazioni", cartelle.impostazioni);
  }
  testo += luogo("Profili di importazione", QString::fromStdString(cartellaMappe()));
  testo += luogo("Aspetto e ultime scelte", QSettings().fileName());
  return testo.trimmed();
}

QString cartellaMinisteriale(const CartelleAvvio& cartelle) {
  return conImpostazioni(cartelle, [](Settings& impostazioni) {
    return QString::fromStdString(impostazioni.get(chiave(), kSezione, kPercorsoDocumenti, ""));
  });
}

void salvaCartellaMinisteriale(const CartelleAvvio& cartelle, const QString& cartella) {
  creaCartellaImpostazioni(cartelle);
  conImpostazioni(cartelle, [&](Settings& impostazioni) {
    impostazioni.set(chiave(), kSezione, kPercorsoDocumenti, cartella.toStdString());
    return 0;
  });
}

}  // namespace cu
