// What the window of a year's state does.

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

#include "apps/esame/operazioni_registro.h"
#include "apps/esame/ricevuta_letta.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/dialoghi_stato.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/strumenti.h"
#include "desktop/dialogs.h"
#include "desktop/file_dialog.h"
#include "desktop/text.h"
#include "suite/orologio.h"
#include "suite/testi.h"

namespace cu::strumenti {
namespace {

QString dettoInvio(const EsitoInvio& esito, Date giorno) {
  const riscontro::Invio& invio = *esito.invio;
  if (!esito.cambiato) {
    const Date prima = Date::parseIso(invio.dataInvio).value_or(Date());
    return QStringLiteral("Il file %1 era già segnato come inviato il %2: non è cambiato nulla.")
        .arg(qs(invio.nome), qs(prima.toItalian()));
  }
  const auto quante = static_cast<std::uint64_t>(invio.certificazioni);
  return QStringLiteral("✓ Segnato come inviato il %1 il file %2, con %3 del %4.")
      .arg(qs(giorno.toItalian()), qs(invio.nome), qs(alPlurale(quante, "certificazione", "certificazioni")))
      .arg(invio.anno);
}

QString dettaRicevuta(const riscontro::PianoRicevuta& piano) {
  return QStringLiteral("✓ Ricevuta registrata: %1, %2.")
      .arg(qs(alPlurale(piano.nuovi("accettata"), "accettata", "accettate")),
           qs(alPlurale(piano.nuovi("scartata"), "scartata", "scartate")));
}

}  // namespace

// The folder of the last telematic file; before there was one, where the wizard writes by itself.
QString FinestraStato::cartellaDeiFile() const {
  const QString documenti = qs(profilo_.documenti);
  const QString sua = QDir(documenti).filePath(qs(TestiItaliani().text(1264)));
  return cartellaRicordata(QStringLiteral("file"), QFileInfo(sua).isDir() ? sua : documenti);
}

void FinestraStato::segnaInviato() {
  const Date oggi = orologio(profilo_)->today();
  DialogoInviato dialogo(this, QDate(oggi.year(), oggi.month(), oggi.day()), cartellaDeiFile());
  if (dialogo.exec() != QDialog::Accepted) return;
  const QDate scelto = dialogo.giorno();
  const Date giorno = Date::fromYmd(scelto.year(), scelto.month(), scelto.day()).value_or(oggi);
  risposta_->dici({});
  auto esito = std::make_shared<EsitoInvio>();
  auto rifiutato = std::make_shared<bool>(false);
  const auto chiede = [this, rifiutato](const std::string& avviso) {
    const bool si =
        lavoro().chiedi([this, testo = qs(avviso)] { return conferma(testo, QStringLiteral("S&egna")); });
    *rifiutato = !si;
    return si;
  };
  compi(
      QStringLiteral("Il file viene segnato come inviato…"),
      [esito, chiede, profilo = profilo_, file = dialogo.file().toStdString(), giorno] {
        *esito = cu::segnaInviato(profilo, file, giorno, chiede);
      },
      [this, esito, rifiutato, giorno] {
        if (*rifiutato) return;
        if (!esito->riuscito || !esito->invio) {
          mostraErrore(qs(esito->testo));
          return;
        }
        risposta_->dici(dettoInvio(*esito, giorno));
        leggi(esito->invio->anno);
      },
      Modo::Scrive);
}

void FinestraStato::togliDalRegistro() {
  const QString uso = QStringLiteral("inviato");
  const QString scelto = desktop::fileToOpen(this, QStringLiteral("File che non verrà inviato"),
                                             cartellaRicordata(uso, cartellaDeiFile()),
                                             QStringLiteral("File telematici (*.cur);;Tutti i file (*)"));
  if (scelto.isEmpty()) return;
  ricordaCartella(uso, QFileInfo(scelto).absolutePath());
  togliDalRegistro(scelto);
}

void FinestraStato::togliDalRegistro(const QString& file) {
  risposta_->dici({});
  auto esito = std::make_shared<EsitoInvio>();
  auto rifiutato = std::make_shared<bool>(false);
  const auto chiede = [this, rifiutato](const std::string& avviso) {
    const QString testo = qs(avviso) + QStringLiteral("\n\nIl file resta nella sua cartella.");
    const bool si =
        lavoro().chiedi([this, testo] { return conferma(testo, QStringLiteral("&Togli dal registro")); });
    *rifiutato = !si;
    return si;
  };
  compi(
      QStringLiteral("Il file viene tolto dal registro…"),
      [esito, chiede, profilo = profilo_, percorso = file.toStdString()] {
        *esito = cu::togliDalRegistro(profilo, percorso, chiede);
      },
      [this, esito, rifiutato] {
        if (*rifiutato) return;
        if (!esito->riuscito || !esito->invio) {
          mostraErrore(qs(esito->testo));
          return;
        }
        risposta_->dici(
            QStringLiteral("✓ Tolto dal registro il file %1: non va inviato.").arg(qs(esito->invio->nome)));
        leggi(esito->invio->anno);
      },
      Modo::Scrive);
}

void FinestraStato::leggiRicevuta() {
  const QString uso = QStringLiteral("ricevute");
  const QString scelta = desktop::fileToOpen(this, QStringLiteral("Leggi ricevuta"),
                                             cartellaRicordata(uso, qs(profilo_.documenti)),
                                             QStringLiteral("Tabelle (*.csv *.xlsx);;Tutti i file (*)"));
  if (scelta.isEmpty()) return;
  ricordaCartella(uso, QFileInfo(scelta).absolutePath());
  risposta_->dici({});
  leggiRicevuta(scelta);
}

void FinestraStato::leggiRicevuta(const QString& tabella) {
  auto righe = std::make_shared<std::vector<riscontro::RigaRicevuta>>();
  auto piano = std::make_shared<riscontro::PianoRicevuta>();
  compi(
      QStringLiteral("Lettura della ricevuta…"),
      [righe, piano, profilo = profilo_, percorso = tabella.toStdString()] {
        *righe = righeRicevuta(percorso);
        *piano = pianoRicevuta(profilo, *righe);
      },
      [this, righe, piano, tabella] {
        if (DialogoRicevuta(this, QFileInfo(tabella).fileName(), *piano).exec() == QDialog::Accepted)
          registra(righe, piano);
      },
      Modo::Legge);
}

void FinestraStato::registra(const std::shared_ptr<std::vector<riscontro::RigaRicevuta>>& righe,
                             const std::shared_ptr<riscontro::PianoRicevuta>& piano) {
  auto registrata = std::make_shared<bool>(false);
  compi(
      QStringLiteral("La ricevuta viene registrata…"),
      [righe, registrata, profilo = profilo_] { *registrata = registraRicevuta(profilo, *righe); },
      [this, registrata, piano] {
        if (*registrata) {
          risposta_->dici(dettaRicevuta(*piano));
        } else {
          mostraErrore(
              QStringLiteral("Nel frattempo gli invii sono cambiati: la ricevuta non è stata registrata. "
                             "Leggerla di nuovo."));
        }
        leggi(stato_->anno);
      },
      Modo::Scrive);
}

void FinestraStato::scriviCorrezioni() {
  const QString uso = QStringLiteral("correzioni");
  const QString cartella = desktop::folderToUse(this, QStringLiteral("Cartella delle correzioni"),
                                                cartellaRicordata(uso, qs(profilo_.documenti)));
  if (cartella.isEmpty()) return;
  ricordaCartella(uso, cartella);
  risposta_->dici({});
  scriviCorrezioni(cartella);
}

void FinestraStato::scriviCorrezioni(const QString& cartella) {
  auto esito = std::make_shared<EsitoCorreggi>();
  RichiestaCorreggi richiesta{
      .anno = stato_->anno, .cartella = cartella.toStdString(), .firma = {}, .prosegue = {}};
  richiesta.prosegue = [this](const std::string& avviso) {
    const QString testo = desktop::lines(avviso).trimmed();
    return lavoro().chiedi([this, testo] { return conferma(testo, QStringLiteral("&Prosegui")); });
  };
  richiesta.avanzamento = [this](const char* che, std::size_t fatto, std::size_t totale) {
    lavoro().riferisci(che, fatto, totale);
  };
  richiesta.continua = [this] { return !lavoro().annullato(); };
  compi(
      QStringLiteral("Le correzioni vengono scritte…"),
      [esito, richiesta, profilo = profilo_] { *esito = correggi(profilo, richiesta); },
      [this, esito] {
        for (const LogTable& registro : esito->registri) desktop::LogDialog(this, registro).exec();
        // Not modal: the files that it opens can be read beside it.
        auto* const dialogo =
            new DialogoCorrezioni(this, *esito, [this](const QString& file) { apriFile(file, profilo_); });
        dialogo->setAttribute(Qt::WA_DeleteOnClose);
        dialogo->show();
        leggi(stato_->anno);
      },
      Modo::ScriveAPassi);
}

void FinestraStato::aggiungiTabelle() {
  const bool si = conferma(
      QStringLiteral("Nel database vengono create le tabelle che ricordano i file scritti e le risposte: "
                     "CuInvio, CuCertificazione e CuModulo. I conti e gli altri dati restano come sono."),
      QStringLiteral("&Aggiungi le tabelle"));
  if (!si) return;
  compi(
      QStringLiteral("Le tabelle vengono aggiunte…"),
      [profilo = profilo_] { cu::aggiungiTabelle(profilo.database); },
      [this] {
        risposta_->dici(
            QStringLiteral("✓ Le tabelle sono state aggiunte: da ora ogni file scritto viene ricordato."));
        leggi(std::nullopt);
      },
      Modo::Scrive);
}

}  // namespace cu::strumenti
