// What the window of a file shows.

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "apps/comune/file_letto.h"
#include "apps/strumenti/esportazione.h"
#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/ricerca.h"
#include "apps/strumenti/strumenti.h"
#include "apps/strumenti/tabella_vista.h"
#include "base/windows1252.h"
#include "desktop/file_dialog.h"
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
  if (file_ == nullptr || !ricerca_->passa(certificato)) return false;
  const RigaCertificato& riga = file_->certificati()[certificato];
  return !soloRilievi_->isChecked() || riga.errori + riga.avvisi > 0;
}

void FinestraFile::mostra() {
  ricerca_->prepara(file_->certificati().size(), [this](std::size_t quale) {
    const RigaCertificato& riga = file_->certificati()[quale];
    return riga.percipiente + "\n" + riga.nome + "\n" + riga.causale;
  });
  const bool letto = !file_->percorso().empty();
  if (letto) setWindowTitle(QFileInfo(percorso_).fileName());
  quale_.reset();
  avviso_->dici(letto ? qs(stranezza(*file_)) : QString());
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
  testa_->dici(file_->percorso().empty() ? percorso_ : qs(intestazione(*file_)));
  const std::size_t tutte = file_->certificati().size();
  quanti_->setText(
      certificati_->mostrate() == tutte
          ? QString()
          : QStringLiteral("%1 di %2").arg(conteggio(certificati_->mostrate()), conteggio(tutte)));
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
    if (file_->percorso().empty() || !file_->estraneo().empty()) testo.clear();
  }
  if (tralasciati > 0 && diChi_->currentIndex() == 1) {
    testo = QStringLiteral("Di ogni regola sono elencati i primi 1.000 casi; altri %1 sono solo contati.")
                .arg(conteggio(tralasciati));
  }
  altri_->dici(testo);
}

void FinestraFile::mostraCertificato(std::optional<std::size_t> quale) {
  quale_ = quale;
  certificato_.reset();
  segno_.reset();
  caselleMostrate_.clear();
  QString errore;
  if (quale_ && file_ != nullptr) {
    try {
      certificato_ = file_->rileggi(*quale_);
      caselleMostrate_ = caselleDi(*certificato_, file_->anno().value_or(0), file_->modello());
    } catch (const std::exception& raccolto) {
      errore = QString::fromUtf8(raccolto.what());
    }
  }
  caselle_->mostra(caselleMostrate_.size(), false);
  filtraRilievi();
  if (!errore.isEmpty()) {
    disegno_.stop();
    modulo_->pages().say(errore);
  } else if (certificato_) {
    disegno_.start();
  } else {
    disegno_.stop();
    const bool filtrate = file_ != nullptr && !file_->certificati().empty();
    modulo_->pages().say(filtrate ? QStringLiteral("Nessuna certificazione corrisponde alla ricerca.")
                                  : QStringLiteral("Nessuna certificazione da mostrare."));
  }
}

void FinestraFile::disegnaCertificato() {
  if (!certificato_ || !quale_) return;
  posti_.clear();
  if (!file_->anno()) {
    modulo_->pages().say(
        QStringLiteral("Il file non dice di quale anno è: le caselle si leggono nella tabella qui sotto, "
                       "il modulo non si può disegnare."));
    return;
  }
  try {
    const std::size_t suo = file_->certificati()[*quale_].sostituto;
    const lettura::Sostituto nessuno;
    const auto pagine =
        disegna(*certificato_, suo < file_->sostituti().size() ? file_->sostituti()[suo] : nessuno,
                *file_->anno(), &posti_);
    modulo_->pages().open(qs(pagine->preview().file), pagine->preview().pages);
    mostraSegno();
  } catch (const std::exception& errore) {
    modulo_->pages().say(
        QStringLiteral("Il modulo non si può disegnare: %1").arg(QString::fromUtf8(errore.what())));
  }
}

void FinestraFile::filtraRilievi() {
  rilievi_->riapplicaFiltro();
  // Of what is shown the first that is the certificate's own.
  const auto ora = rilievi_->corrente();
  if (quale_ && ora && certificatoDelRilievo(*ora) != quale_) {
    const std::vector<lettura::Rilievo>& tutti = file_->rilievi();
    const auto suo = std::find_if(tutti.begin(), tutti.end(), [this](const lettura::Rilievo& uno) {
      return file_->certificatoDi(uno) == quale_;
    });
    if (suo != tutti.end()) rilievi_->scegli(static_cast<std::size_t>(suo - tutti.begin()));
  }
  mostraTratto(rilievi_->corrente());
  if (file_ != nullptr) diceRilievi();
}

void FinestraFile::mostraTratto(std::optional<std::size_t> rilievo) {
  if (!rilievo || file_ == nullptr || *rilievo >= file_->rilievi().size()) {
    tratto_->hide();
    detto_->dici({});
    return;
  }
  const lettura::Rilievo& suo = file_->rilievi()[*rilievo];
  detto_->dici((certificatoDelRilievo(*rilievo) ? QString() : QStringLiteral("Di tutto il file: ")) +
               qs(suo.testo));
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

std::optional<std::size_t> FinestraFile::certificatoDelRilievo(std::size_t rilievo) const {
  return file_->certificatoDi(file_->rilievi().at(rilievo));
}

void FinestraFile::vaiAlRilievo(std::size_t rilievo) {
  if (const auto quale = certificatoDelRilievo(rilievo)) {
    if (!passa(*quale)) {
      ricerca_->svuota();
      soloRilievi_->setChecked(false);
    }
    if (quale_ != quale) certificati_->scegli(quale);
    segnaRilievo(rilievo);
  }
  rilievi_->scegli(rilievo);
  mostraTratto(rilievo);
}

// Page 1 has the data, the others have a module each.
void FinestraFile::segnaRilievo(std::size_t rilievo) {
  if (!certificato_) return;
  const lettura::Rilievo suo = file_->rilievi().at(rilievo);
  const std::vector<lettura::Modulo>& moduli = certificato_->moduli;
  const auto dove = std::find_if(moduli.begin(), moduli.end(),
                                 [&](const lettura::Modulo& uno) { return uno.riga == suo.riga; });
  const bool nelModulo = suo.record != 'D' && dove != moduli.end();
  const int modulo = nelModulo ? dove->numero : 0;
  const auto casella =
      std::find_if(caselleMostrate_.begin(), caselleMostrate_.end(), [&](const CasellaMostrata& una) {
        return una.codice == suo.campo && (!nelModulo || una.modulo == modulo);
      });
  caselle_->scegli(casella == caselleMostrate_.end()
                       ? std::nullopt
                       : std::optional(static_cast<std::size_t>(casella - caselleMostrate_.begin())));
  segna(suo.campo, nelModulo ? static_cast<int>(dove - moduli.begin()) + 1 : 0);
}

void FinestraFile::segnaCasella(std::size_t casella) {
  if (!certificato_ || casella >= caselleMostrate_.size()) return;
  const CasellaMostrata& sua = caselleMostrate_[casella];
  const std::vector<lettura::Modulo>& moduli = certificato_->moduli;
  const auto dove = std::find_if(moduli.begin(), moduli.end(),
                                 [&](const lettura::Modulo& uno) { return uno.numero == sua.modulo; });
  const bool nelModulo = sua.modulo != 0 && dove != moduli.end();
  segna(sua.codice, nelModulo ? static_cast<int>(dove - moduli.begin()) + 1 : 0);
}

void FinestraFile::segna(std::string codice, int pagina) {
  segno_ = Segno{std::move(codice), pagina};
  if (disegno_.isActive()) {
    disegno_.stop();
    disegnaCertificato();
  } else {
    mostraSegno();
  }
}

void FinestraFile::mostraSegno() {
  desktop::Pages& pagine = modulo_->pages();
  if (!segno_ || !pagine.pictures()) return;
  const auto posto = std::find_if(posti_.begin(), posti_.end(), [this](const reporting::FormPlace& uno) {
    return uno.code == segno_->codice && uno.page == static_cast<std::size_t>(segno_->pagina);
  });
  if (posto == posti_.end()) {
    pagine.setMark(std::nullopt);
    pagine.go(segno_->pagina);
    return;
  }
  constexpr double kPunti = 72 / 25.4;  // in a millimetre
  const reporting::Box& dove = posto->place;
  const QRectF riquadro(dove.x * kPunti, dove.y * kPunti, dove.width * kPunti, dove.height * kPunti);
  const QString nome =
      QStringLiteral("Casella segnata: ") +
      qs(segno_->codice + " " + nomeCasella(segno_->codice, file_->anno().value_or(0), file_->modello()));
  pagine.setMark(desktop::Pages::Mark{segno_->pagina, riquadro, nome});
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
  const QString dove =
      desktop::fileToSave(this, QStringLiteral("Esporta le certificazioni"),
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
