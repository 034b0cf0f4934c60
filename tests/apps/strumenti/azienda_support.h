#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "apps/comune/connessioni.h"
#include "apps/esame/operazioni_registro.h"
#include "archive/archivio.h"
#include "suite/profilo.h"
#include "support/temp_folder.h"

namespace cu::test {

// The demonstration company in a folder of its own, with the tables of what was filed.
class Azienda {
 public:
  Azienda() {
    profilo.file = "prova";
    profilo.sessione.utente = 12;
    profilo.sessione.azienda = 1;
    profilo.sessione.filiale = 1;
    profilo.sessione.titolo = "Quadrivio";
    profilo.sessione.sezioneImpostazioni = "Sessione12";
    profilo.sessione.oggi = Profilo::Istante{Date::fromYmd(2018, 3, 5).value(), {10, 30, 0}};
    profilo.database.origine = cartella / "demo.db";
    profilo.valuta = {true, "€", ",", "."};
    profilo.documenti = cartella / "documenti";
    profilo.impostazioni = cartella / "impostazioni.toml";
    std::filesystem::create_directory(profilo.documenti);
    creaArchivio(*creaConnessione(profilo.database), ContenutoArchivio::Dimostrativo);
  }
  // The ordinary supply of a year, as the accounts have it.
  std::string scrivi(std::int32_t anno) const {
    const EsitoCorreggi esito = correggi(profilo, {.anno = anno,
                                                   .cartella = cartella / "uscita",
                                                   .firma = {},
                                                   .prosegue = [](const std::string&) { return true; }});
    return esito.file.empty() ? std::string() : esito.file.front().file.percorso;
  }
  void esegui(const std::string& istruzione) const { apriConnessione(profilo.database)->Execute(istruzione); }

  TempFolder cartella;
  Profilo profilo;
};

// An office instead: three companies with 2016 and 2017, of which the second one has sent its 2017. The
// present company is the second one.
inline void diventaStudio(Azienda& azienda) {
  azienda.profilo.database.origine = azienda.cartella / "studio.db";
  creaArchivio(*creaConnessione(azienda.profilo.database), ContenutoArchivio::Sintetico,
               {.percipienti = 4, .primoAnno = 2016, .ultimoAnno = 2017, .seme = 3, .aziende = 3});
  azienda.profilo.sessione.azienda = 2;
  azienda.profilo.sessione.filiale = 2;
  const std::string file = azienda.scrivi(2017);
  EXPECT_FALSE(file.empty());
  EXPECT_TRUE(segnaInviato(azienda.profilo, file, Date::fromYmd(2018, 3, 5), [](const std::string&) {
                return true;
              }).riuscito);
}

inline std::string letto(const std::string& percorso) {
  std::ifstream file(percorso, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string scritto(const std::string& percorso, const std::string& testo) {
  std::ofstream(percorso, std::ios::binary) << testo;
  return percorso;
}

// Waits for what a window does in its thread.
inline bool aspetta(const std::function<bool()>& fatto) {
  QElapsedTimer tempo;
  tempo.start();
  constexpr int kMassimo = 30000;
  while (!fatto() && tempo.elapsed() < kMassimo) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QThread::msleep(2);
  }
  QCoreApplication::processEvents();
  return fatto();
}

// Calls once with the next dialog that waits for an answer.
inline void alProssimoDialogo(const std::function<void(QWidget& dialogo)>& fa) {
  auto* const orologio = new QTimer(qApp);
  QObject::connect(orologio, &QTimer::timeout, orologio, [orologio, fa] {
    QWidget* const dialogo = QApplication::activeModalWidget();
    if (dialogo == nullptr) return;
    orologio->stop();
    orologio->deleteLater();
    fa(*dialogo);
  });
  orologio->start(10);
}

// Presses the button of a widget whose caption contains the text; whether there is one.
inline bool premi(QWidget& dove, const char* testo) {
  for (auto* uno : dove.findChildren<QAbstractButton*>()) {
    if (!uno->text().remove(u'&').contains(QString::fromUtf8(testo))) continue;
    uno->click();
    return true;
  }
  return false;
}

// Whether a label of the widget that can be seen contains the text.
inline bool dice(const QWidget& dove, const char* testo) {
  const QList<QLabel*> scritte = dove.findChildren<QLabel*>();
  return std::any_of(scritte.begin(), scritte.end(), [&](const QLabel* una) {
    return una->isVisibleTo(&dove) && una->text().contains(QString::fromUtf8(testo));
  });
}

}  // namespace cu::test
