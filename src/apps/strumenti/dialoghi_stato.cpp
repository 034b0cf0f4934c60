#include "apps/strumenti/dialoghi_stato.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::strumenti {
namespace {

constexpr int kMessaggioMassimo = 320;

}  // namespace

DialogoInviato::DialogoInviato(QWidget* parent, QDate oggi, const QString& cartella)
    : Dialogo(parent, QStringLiteral("inviato"), QStringLiteral("Segna come inviato")),
      file_(new QLineEdit(this)),
      giorno_(new QLineEdit(oggi.toString(QStringLiteral("dd/MM/yyyy")), this)),
      nota_(new QLabel(this)) {
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(
      new Frase(this, QStringLiteral("Il file viene riconosciuto dal suo contenuto, fra quelli scritti per "
                                     "questa azienda: nome e cartella possono essere cambiati.")));
  auto* const modulo = new QFormLayout;
  file_->setReadOnly(true);
  file_->setAccessibleName(QStringLiteral("File inviato"));
  auto* const sfoglia = new QPushButton(QStringLiteral("&Sfoglia…"), this);
  auto* const riga = new QHBoxLayout;
  riga->addWidget(file_, 1);
  riga->addWidget(sfoglia);
  modulo->addRow(QStringLiteral("File"), riga);
  auto* const rigaGiorno = new QHBoxLayout;
  rigaGiorno->addWidget(giorno_);
  rigaGiorno->addWidget(nota_, 1);
  auto* const etichetta = new QLabel(QStringLiteral("Inviato il &giorno"), this);
  etichetta->setBuddy(giorno_);
  giorno_->setAccessibleName(QStringLiteral("Inviato il giorno"));
  giorno_->setMaximumWidth(giorno_->fontMetrics().horizontalAdvance(QStringLiteral("  00/00/0000  ")) + 16);
  modulo->addRow(etichetta, rigaGiorno);
  colonna->addLayout(modulo);
  auto* const pulsanti = new QDialogButtonBox(this);
  segna_ = pulsanti->addButton(QStringLiteral("S&egna"), QDialogButtonBox::AcceptRole);
  segna_->setEnabled(false);
  pulsanti->addButton(QStringLiteral("Annulla"), QDialogButtonBox::RejectRole);
  colonna->addWidget(pulsanti);
  connect(pulsanti, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(pulsanti, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(sfoglia, &QPushButton::clicked, this, [this, cartella] {
    scegli(
        scegliFile(this, QStringLiteral("File inviato"), file_->text().isEmpty() ? cartella : file_->text()));
  });
  connect(giorno_, &QLineEdit::textChanged, this, [this] { controlla(); });
  ricordaDimensione({520, sizeHint().height()});
  sfoglia->setFocus();
}

void DialogoInviato::scegli(const QString& file) {
  if (file.isEmpty()) return;
  file_->setText(file);
  controlla();
  segna_->setDefault(true);
  segna_->setFocus();
}

void DialogoInviato::controlla() {
  const bool valida = giorno().isValid();
  nota_->setText(valida ? QString() : QStringLiteral("Non è una data."));
  segna_->setEnabled(valida && !file_->text().isEmpty());
}

QString DialogoInviato::file() const { return file_->text(); }
// "05/03/2018", "5/3/2018" or "05032018".
QDate DialogoInviato::giorno() const {
  const QString testo = giorno_->text().trimmed();
  for (const char* forma : {"dd/MM/yyyy", "d/M/yyyy", "ddMMyyyy"}) {
    const QDate letta = QDate::fromString(testo, QString::fromLatin1(forma));
    if (letta.isValid()) return letta;
  }
  return {};
}

namespace {

// "3 nuovi (2 accettate, 1 scartata)"
QString dettiNuovi(const riscontro::PianoRicevuta& piano) {
  const std::size_t nuovi = piano.quanti(riscontro::EsitoRiga::Nuovo);
  QString quanti = qs(alPlurale(nuovi, "nuovo", "nuovi"));
  if (nuovi == 0) return quanti;
  return QStringLiteral("%1 (%2, %3)")
      .arg(quanti, qs(alPlurale(piano.nuovi("accettata"), "accettata", "accettate")),
           qs(alPlurale(piano.nuovi("scartata"), "scartata", "scartate")));
}

// The counts of a plan, and what can be done with it.
QString dettoPiano(const riscontro::PianoRicevuta& piano) {
  using riscontro::EsitoRiga;
  const auto quanti = [&](EsitoRiga esito) { return piano.quanti(esito); };
  QString testo = QStringLiteral("%1, %2 già registrati, %3 da decidere, %4.")
                      .arg(dettiNuovi(piano), conteggio(quanti(EsitoRiga::Uguale)),
                           conteggio(quanti(EsitoRiga::DaDecidere)),
                           qs(alPlurale(quanti(EsitoRiga::Errore), "errore", "errori")));
  const bool nessuna =
      std::all_of(piano.righe.begin(), piano.righe.end(), [](const riscontro::RigaPiano& riga) {
        return riga.esito == EsitoRiga::Errore && riga.codice == "P12";
      });
  if (nessuna) {
    return QStringLiteral(
               "Nessuna riga corrisponde a una certificazione di questa azienda che attende una risposta: "
               "forse la ricevuta è di un'altra azienda. ") +
           testo;
  }
  if (!piano.applicabile()) {
    testo += QStringLiteral(" Finché ci sono righe da decidere o errori non si registra nulla.");
  } else if (quanti(EsitoRiga::Nuovo) == 0) {
    testo += QStringLiteral(" Non c'è nulla da registrare.");
  } else {
    testo += QStringLiteral(" Non è ancora stato scritto nulla.");
    QStringList file;
    for (const std::int64_t id : piano.daSegnare) file += qs(piano.invio(id).nome);
    if (file.size() == 1) {
      testo += QStringLiteral(" Il file %1 verrà anche segnato come inviato.").arg(file.first());
    } else if (!file.isEmpty()) {
      testo += QStringLiteral(" Verranno anche segnati come inviati i file %1.")
                   .arg(file.join(QStringLiteral(", ")));
    }
  }
  return testo;
}

}  // namespace

DialogoRicevuta::DialogoRicevuta(QWidget* parent, const QString& nome, const riscontro::PianoRicevuta& piano)
    : Dialogo(parent, QStringLiteral("ricevuta"), QStringLiteral("Ricevuta: %1").arg(nome)), piano_(piano) {
  auto* const colonna = new QVBoxLayout(this);
  colonna->addWidget(new Frase(this, dettoPiano(piano_)));
  const std::size_t nuovi = piano_.quanti(riscontro::EsitoRiga::Nuovo);
  const auto di = [this](std::size_t q) -> const riscontro::RigaPiano& { return piano_.righe[q]; };
  auto* const tabella = new Tabella(
      QStringLiteral("strumenti_ricevuta"), QStringLiteral("Righe della ricevuta"),
      {{"riga", "Riga", [di](std::size_t q) { return QString::number(di(q).letta.riga); }, true,
        [di](std::size_t q) { return QVariant(qlonglong(di(q).letta.riga)); }},
       {"prova", "Registrazione", [di](std::size_t q) { return qs(detto(di(q).esito)); }},
       {"percipiente", "Codice fiscale", [di](std::size_t q) { return qs(di(q).letta.codiceFiscale); }},
       {"causale", "Caus.", [di](std::size_t q) { return qs(di(q).letta.causale); }},
       {"esito", "Esito", [di](std::size_t q) { return qs(di(q).letta.esito); }},
       {"messaggio",
        "Messaggio",
        [di](std::size_t q) { return qs(di(q).codice.empty() ? di(q).letta.motivo : di(q).testo); },
        false,
        {},
        {},
        kMessaggioMassimo},
       {"protocollo", "Protocollo", [di](std::size_t q) { return qs(di(q).letta.protocollo); }},
       {"progressivo", "Progr.", [di](std::size_t q) { return qs(di(q).letta.progressivo); }},
       {"anno", "Anno",
        [this, di](std::size_t q) {
          const riscontro::Invio* const invio = piano_.invioDi(di(q));
          return invio == nullptr ? QString() : QString::number(invio->anno);
        }},
       {"file", "File",
        [this, di](std::size_t q) {
          const riscontro::Invio* const invio = piano_.invioDi(di(q));
          return invio == nullptr ? QString() : qs(invio->nome);
        }}},
      this);
  tabella->mostra(piano_.righe.size());
  colonna->addWidget(tabella, 1);
  auto* const pulsanti = new QDialogButtonBox(this);
  auto* const registra = pulsanti->addButton(QStringLiteral("&Registra"), QDialogButtonBox::AcceptRole);
  registra->setEnabled(piano_.applicabile() && nuovi > 0);
  pulsanti->addButton(QStringLiteral("&Chiudi"), QDialogButtonBox::RejectRole);
  connect(pulsanti, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(pulsanti, &QDialogButtonBox::rejected, this, &QDialog::reject);
  colonna->addWidget(pulsanti);
  tabella->setFocus();
  ricordaDimensione({980, 400});
}

DialogoCorrezioni::DialogoCorrezioni(QWidget* parent, const EsitoCorreggi& esito,
                                     const std::function<void(const QString& file)>& apri)
    : Dialogo(parent, QStringLiteral("correzioni"), QStringLiteral("Correzioni")) {
  auto* const colonna = new QVBoxLayout(this);
  for (const std::string& messaggio : esito.messaggi) {
    colonna->addWidget(new Frase(this, qs(messaggio).remove(u'\r').trimmed()));
  }
  if (esito.interrotto) {
    colonna->addWidget(new Frase(
        this, esito.file.empty()
                  ? QStringLiteral("Interrotto: non è stato scritto nessun file.")
                  : QStringLiteral("Interrotto: i file elencati qui sono interi e registrati, gli altri non "
                                   "sono stati scritti. «Scrivi correzioni» scrive ciò che manca.")));
  } else if (esito.file.empty()) {
    colonna->addWidget(new Frase(
        this,
        esito.riuscito
            ? QStringLiteral(
                  "Nessuna certificazione è da inviare, sostituire o annullare: non c'è nulla da scrivere.")
            : QStringLiteral("Non è stato scritto nessun file.")));
  }
  for (const FileScritto& scritto : esito.file) {
    const QString percorso = qs(scritto.file.percorso);
    auto* const riga = new QHBoxLayout;
    QString testo = QStringLiteral("%1: %2\n%3\nControllo: %4")
                        .arg(QString::fromUtf8(dettaFornitura(scritto.file.tipo)),
                             qs(alPlurale(scritto.file.certificazioni, "certificazione", "certificazioni")),
                             percorso, qs(dettiRilievi(scritto.dopo.rilievi)));
    if (!scritto.dopo.guasto.empty()) testo += u'\n' + qs(scritto.dopo.guasto);
    riga->addWidget(new Frase(this, testo), 1);
    auto* const mostra = new QPushButton(QStringLiteral("Apri"), this);
    mostra->setAccessibleName(
        QStringLiteral("Apri %1: %2")
            .arg(QString::fromUtf8(dettaFornitura(scritto.file.tipo)), QFileInfo(percorso).fileName()));
    connect(mostra, &QPushButton::clicked, this, [apri, percorso] { apri(percorso); });
    riga->addWidget(mostra);
    colonna->addLayout(riga);
  }
  colonna->addStretch(1);
  auto* const pulsanti = new QDialogButtonBox(this);
  pulsanti->addButton(QStringLiteral("&Chiudi"), QDialogButtonBox::RejectRole);
  connect(pulsanti, &QDialogButtonBox::rejected, this, &QDialog::reject);
  colonna->addWidget(pulsanti);
  ricordaDimensione({640, sizeHint().height()});
}

}  // namespace cu::strumenti
