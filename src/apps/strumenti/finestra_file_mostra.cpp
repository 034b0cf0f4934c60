// What the window of a file shows.

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <algorithm>

#include "apps/comune/file_letto.h"
#include "apps/strumenti/esportazione.h"
#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/strumenti.h"
#include "apps/strumenti/tabella_vista.h"
#include "base/windows1252.h"
#include "desktop/page_view.h"
#include "desktop/text.h"

namespace cu::strumenti {
namespace {

constexpr int kIntorno = 48;  // characters before and after a stretch

// One character for each byte, so that positions are those of the file.
QString carattereABrano(const std::string& byte) {
  QString testo;
  testo.reserve(static_cast<qsizetype>(byte.size()));
  for (const char uno : byte) {
    const QString letto = QString::fromStdString(da1252(std::string_view(&uno, 1)));
    const bool visibile = letto.size() == 1 && letto[0].isPrint();
    testo += visibile ? letto : QStringLiteral("·");
  }
  return testo;
}

}  // namespace

bool FinestraFile::passa(std::size_t certificato) const {
  if (file_ == nullptr || certificato >= cercati_.size()) return false;
  const RigaCertificato& riga = file_->certificati()[certificato];
  if (soloRilievi_->isChecked() && riga.errori + riga.avvisi == 0) return false;
  return cercato_.isEmpty() || cercati_[certificato].contains(cercato_);
}

void FinestraFile::mostra() {
  cercati_.clear();
  cercati_.reserve(file_->certificati().size());
  for (const RigaCertificato& riga : file_->certificati()) {
    cercati_.push_back(desktop::folded(qs(riga.percipiente + "\n" + riga.nome + "\n" + riga.causale)));
  }
  const bool letto = !file_->percorso().empty();
  if (letto) setWindowTitle(QFileInfo(percorso_).fileName());
  quale_.reset();
  avviso_->setText(letto ? qs(stranezza(*file_)) : QString());
  const bool senzaCertificati = file_->certificati().empty();
  diChi_->setCurrentIndex(senzaCertificati ? 1 : diChi_->currentIndex());
  rilievi_->mostra(file_->rilievi().size(), false);
  certificati_->mostra(file_->certificati().size());
  if (senzaCertificati) filtraRilievi();
  mostraTesta();
  conFile_->setEnabled(letto && !senzaCertificati);
  conConti_->setEnabled(letto && !senzaCertificati);
  esporta_->setEnabled(letto && !senzaCertificati);
  certificati_->setFocus();
}

void FinestraFile::mostraTesta() {
  if (file_ == nullptr) return;
  testa_->setText(file_->percorso().empty() ? percorso_ : qs(intestazione(*file_)));
  const std::size_t tutte = file_->certificati().size();
  quanti_->setText(certificati_->mostrate() == tutte
                       ? QString()
                       : QStringLiteral("%1 di %2").arg(certificati_->mostrate()).arg(tutte));
  diceRilievi();
}

void FinestraFile::diceRilievi() {
  std::size_t tralasciati = 0;
  for (const lettura::VoceRegola& voce : lettura::kVociRegole) {
    const std::size_t tutti = file_->esito().rilievi.quanti(voce.regola);
    if (tutti > lettura::Rilievi::kMassimoPerRegola)
      tralasciati += tutti - lettura::Rilievi::kMassimoPerRegola;
  }
  QString testo;
  if (rilievi_->mostrate() == 0) {
    testo = diChi_->currentIndex() == 1 ? QStringLiteral("Nessun rilievo: il file è in ordine.")
            : quale_                    ? QStringLiteral("Nessun rilievo.")
                                        : QStringLiteral("Nessuna certificazione scelta.");
    if (file_->percorso().empty()) testo.clear();
  }
  if (tralasciati > 0 && diChi_->currentIndex() == 1) {
    testo = QStringLiteral("Di ogni regola sono elencati i primi 1.000 casi; altri %1 sono solo contati.")
                .arg(tralasciati);
  }
  altri_->setText(testo);
  altri_->setToolTip(desktop::sentenceTip(testo));
}

void FinestraFile::mostraCertificato(std::optional<std::size_t> quale) {
  quale_ = quale;
  certificato_.reset();
  caselleMostrate_.clear();
  QString errore;
  if (quale_ && file_ != nullptr) {
    try {
      certificato_ = file_->rileggi(*quale_);
      caselleMostrate_ = caselleDi(*certificato_, file_->anno().value_or(0));
    } catch (const std::exception& raccolto) {
      errore = QString::fromUtf8(raccolto.what());
    }
  }
  caselle_->mostra(caselleMostrate_.size());
  filtraRilievi();
  if (!errore.isEmpty()) {
    disegno_.stop();
    modulo_->say(errore);
  } else if (certificato_) {
    disegno_.start();
  } else {
    disegno_.stop();
    const bool filtrate = file_ != nullptr && !file_->certificati().empty();
    modulo_->say(filtrate ? QStringLiteral("Nessuna certificazione corrisponde alla ricerca.")
                          : QStringLiteral("Nessuna certificazione da mostrare."));
  }
}

void FinestraFile::disegnaCertificato() {
  if (!certificato_ || !quale_) return;
  if (!file_->anno()) {
    modulo_->say(
        QStringLiteral("Il file non dice di quale anno è: le caselle si leggono nella tabella qui sotto, "
                       "il modulo non si può disegnare."));
    return;
  }
  try {
    const std::size_t suo = file_->certificati()[*quale_].sostituto;
    const lettura::Sostituto nessuno;
    const auto pagine = disegna(
        *certificato_, suo < file_->sostituti().size() ? file_->sostituti()[suo] : nessuno, *file_->anno());
    modulo_->open(qs(pagine->preview().file), pagine->preview().pages);
  } catch (const std::exception& errore) {
    modulo_->say(QStringLiteral("Il modulo non si può disegnare: %1").arg(QString::fromUtf8(errore.what())));
  }
}

void FinestraFile::filtraRilievi() {
  rilievi_->riapplicaFiltro();
  mostraTratto(rilievi_->corrente());
  if (file_ != nullptr) diceRilievi();
}

void FinestraFile::mostraTratto(std::optional<std::size_t> rilievo) {
  if (!rilievo || file_ == nullptr || *rilievo >= file_->rilievi().size()) {
    tratto_->hide();
    detto_->hide();
    return;
  }
  const lettura::Rilievo& suo = file_->rilievi()[*rilievo];
  detto_->setText(qs(suo.testo));
  detto_->show();
  QString riga;
  try {
    riga = carattereABrano(file_->riga(suo.riga));
  } catch (const std::exception& errore) {
    tratto_->setPlainText(QString::fromUtf8(errore.what()));
    tratto_->show();
    return;
  }
  const int inizio = std::max(0, suo.posizione - 1);
  const int da = std::max(0, inizio - kIntorno);
  const int lungo = std::max(1, suo.lunghezza);
  const QString brano = riga.mid(da, inizio - da + lungo + kIntorno);
  tratto_->setPlainText(brano + QStringLiteral(" \n") + QString(inizio - da, u' ') +
                        QString(std::min(lungo, 1900), u'▲'));
  QTextEdit::ExtraSelection segnato;
  segnato.cursor = QTextCursor(tratto_->document());
  segnato.cursor.setPosition(std::min<int>(inizio - da, static_cast<int>(brano.size())));
  segnato.cursor.setPosition(std::min<int>(inizio - da + lungo, static_cast<int>(brano.size()) + 1),
                             QTextCursor::KeepAnchor);
  segnato.format.setBackground(palette().highlight());
  segnato.format.setForeground(palette().highlightedText());
  tratto_->setExtraSelections({segnato});
  QTextCursor dove(tratto_->document());
  dove.setPosition(std::min<int>(inizio - da, static_cast<int>(brano.size())));
  tratto_->show();
  tratto_->setTextCursor(dove);
  tratto_->centerCursor();
}

void FinestraFile::vaiAlRilievo(std::size_t rilievo) {
  const lettura::Rilievo suo = file_->rilievi().at(rilievo);
  const auto quale = file_->certificatoDi(suo.riga);
  if (quale) {
    if (!passa(*quale)) {
      cerca_->clear();
      soloRilievi_->setChecked(false);
    }
    if (quale_ != quale) certificati_->scegli(quale);
    int modulo = 0;
    for (const lettura::Modulo& uno : certificato_ ? certificato_->moduli : std::vector<lettura::Modulo>()) {
      if (uno.riga == suo.riga) modulo = uno.numero;
    }
    const auto casella =
        std::find_if(caselleMostrate_.begin(), caselleMostrate_.end(), [&](const CasellaMostrata& una) {
          return una.codice == suo.campo && (suo.record == 'D' || una.modulo == modulo);
        });
    if (casella != caselleMostrate_.end()) {
      caselle_->scegli(static_cast<std::size_t>(casella - caselleMostrate_.begin()));
      // Page 1 has the data, the others have a module each.
      const auto dove = std::find_if(certificato_->moduli.begin(), certificato_->moduli.end(),
                                     [&](const lettura::Modulo& uno) { return uno.riga == suo.riga; });
      const int pagina = suo.record == 'D' || dove == certificato_->moduli.end()
                             ? 0
                             : static_cast<int>(dove - certificato_->moduli.begin()) + 1;
      if (disegno_.isActive()) {
        disegno_.stop();
        disegnaCertificato();
      }
      modulo_->go(pagina);
    } else {
      caselle_->scegli(std::nullopt);
    }
  }
  rilievi_->scegli(rilievo);
  mostraTratto(rilievo);
}

void FinestraFile::chiedeFile() {
  const QString scelto = scegliFile(this, QStringLiteral("Apri un file telematico"), percorso_);
  if (!scelto.isEmpty()) apri(scelto);
}

void FinestraFile::confrontaFile() {
  const QString altro = scegliFile(this, QStringLiteral("Confronta con"), percorso_);
  if (!altro.isEmpty()) apriConfronto(percorso_, altro);
}

void FinestraFile::confrontaConti() {
  if (profilo_) apriConfrontoConConti(percorso_, *profilo_);
}

void FinestraFile::esporta() {
  const QFileInfo questo(percorso_);
  const QString dove = QFileDialog::getSaveFileName(
      this, QStringLiteral("Esporta le certificazioni"),
      questo.absolutePath() + u'/' + questo.completeBaseName() + QStringLiteral(".csv"),
      QStringLiteral("Tabella CSV (*.csv);;Foglio elettronico (*.xlsx)"));
  if (dove.isEmpty()) return;
  if (QFileInfo(dove) == questo) {
    mostraErrore(
        QStringLiteral("La tabella non può sostituire il file telematico. Scegliere un altro nome."));
    return;
  }
  const QString errore = scriviTabella(certificati_->modello(), dove);
  if (!errore.isEmpty()) mostraErrore(errore);
}

}  // namespace cu::strumenti
