#include "apps/assistente/pagina_sorgente.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/importazione/modello_tabella.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/file_dialog.h"

namespace cu::assistente {
namespace {

constexpr int kTuttiGliAnni = 2000;  // the box shows words for its smallest number
constexpr int kUltimoAnno = 2199;
const QString kUso = QStringLiteral("importazione");

}  // namespace

PaginaSorgente::PaginaSorgente(QWidget* parent, Assistente& assistente) : Pagina(parent, assistente) {
  colonna().addWidget(new strumenti::Frase(
      this,
      QStringLiteral("I dati vengono da tabelle di un altro programma (file CSV, TSV o XLSX) o da fatture "
                     "elettroniche (file XML e P7M, archivi ZIP, cartelle), che si possono anche trascinare "
                     "qui. I file vengono soltanto letti.")));
  componiFile();
  componiScelte();
  avviso_ = new strumenti::Frase(this);
  avviso_->hide();
  colonna().addWidget(avviso_);
  auto* const riga = new QHBoxLayout;
  tabelle_ = bottone("Aggiungi le ta&belle", [this] {
    if (aggiungiTabelle) aggiungiTabelle();
  });
  estraneo_ = bottone("Importa &lo stesso in questo database…", [this] { chiediEstraneo(); });
  for (QPushButton* uno : {tabelle_, estraneo_}) {
    uno->hide();
    riga->addWidget(uno);
  }
  riga->addStretch(1);
  colonna().addLayout(riga);
}

void PaginaSorgente::chiediEstraneo() {
  QMessageBox domanda(QMessageBox::Question, window()->windowTitle(), {}, QMessageBox::NoButton, this);
  domanda.setTextFormat(Qt::PlainText);
  domanda.setText(
      QStringLiteral("In questo database è un'altra suite a numerare le righe. Si può importare solo se la "
                     "suite intanto non lavora, e dopo averne fatto una copia."));
  const QPushButton* const si =
      domanda.addButton(QStringLiteral("&Importa lo stesso"), QMessageBox::AcceptRole);
  domanda.setDefaultButton(domanda.addButton(QStringLiteral("Annulla"), QMessageBox::RejectRole));
  domanda.exec();
  if (domanda.clickedButton() != si) return;
  stato().ammettiEstraneo(true);
  cambia();
}

void PaginaSorgente::componiScelte() {
  dati_ = new Scelta<std::optional<intake::Elenco>>(this, "Che cosa contengono i file",
                                                    {{"Aziende", intake::Elenco::Aziende},
                                                     {"Percipienti", intake::Elenco::Percipienti},
                                                     {"Compensi pagati", intake::Elenco::Compensi},
                                                     {"Fatture elettroniche", std::nullopt}});
  dati_->scelto = [this](const std::optional<intake::Elenco>& elenco) {
    if (elenco) {
      stato().scegliElenco(*elenco);
    } else {
      stato().scegliFatture();
    }
    cambia();
  };
  aziende_ = new QComboBox(this);
  aziende_->setAccessibleName(QStringLiteral("Azienda"));
  aziende_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  aziende_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(aziende_, &QComboBox::activated, this, [this] {
    stato().scegliAzienda(aziende_->currentData().toInt());
    cambia();
  });
  anno_ = new QSpinBox(this);
  anno_->setRange(kTuttiGliAnni, kUltimoAnno);
  anno_->setSpecialValueText(QStringLiteral("tutti gli anni"));
  anno_->setAccessibleName(QStringLiteral("Solo i compensi pagati nell'anno"));
  anno_->setKeyboardTracking(false);
  connect(anno_, &QSpinBox::valueChanged, this, [this](int anno) {
    stato().scegliAnno(anno == kTuttiGliAnni ? std::nullopt : std::optional(anno));
    cambia();
  });
  auto* const modulo = new QFormLayout;
  modulo->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  modulo->addRow(etichetta("&Che cosa contengono", dati_, this), dati_);
  modulo->addRow(etichetta("A&zienda", aziende_, this), aziende_);
  riquadroAnno_ = etichetta("Pagati nell'a&nno", anno_, this);
  modulo->addRow(riquadroAnno_, anno_);
  colonna().addLayout(modulo);
}

void PaginaSorgente::componiFile() {
  const auto di = [this](std::size_t q) -> const FileScelto& { return mostrati_[q]; };
  file_ = new strumenti::Tabella(
      QStringLiteral("assistente_file"), QStringLiteral("File da importare"),
      {{.chiave = "nome", .titolo = "File", .testo = [di](std::size_t q) { return qs(di(q).nome); }},
       {.chiave = "tipo", .titolo = "Tipo", .testo = [this, di](std::size_t q) { return dettoTipo(di(q)); }},
       {.chiave = "righe",
        .titolo = "Righe",
        .testo =
            [di](std::size_t q) {
              return di(q).tabella == nullptr ? QString() : strumenti::conteggio(di(q).tabella->righe.size());
            },
        .aDestra = true,
        .ordine =
            [di](std::size_t q) {
              return QVariant(di(q).tabella == nullptr ? 0 : qlonglong(di(q).tabella->righe.size()));
            }},
       {.chiave = "nota", .titolo = "Nota", .testo = [this, di](std::size_t q) { return dettaNota(di(q)); }}},
      this);
  colonna().addWidget(file_, 1);
  auto* const riga = new QHBoxLayout;
  aggiungi_ = bottone("&Aggiungi file…", [this] { sfoglia(); });
  QPushButton* const cartella = bottone(
      "Aggiungi cart&ella…", [this] { sfogliaCartella(); },
      "Tutte le fatture elettroniche della cartella e di quelle che contiene");
  togli_ = bottone("&Togli", [this] { togli(); });
  modello_ = bottone(
      "&Modello vuoto…", [this] { scriviModello(); },
      "Scrive una tabella da riempire, con una riga d'esempio");
  for (QPushButton* uno : {aggiungi_, cartella, togli_}) riga->addWidget(uno);
  riga->addStretch(1);
  riga->addWidget(modello_);
  colonna().addLayout(riga);
}

QWidget* PaginaSorgente::primo() { return stato().file().empty() ? aggiungi_ : static_cast<QWidget*>(file_); }

QString PaginaSorgente::dettoTipo(const FileScelto& file) const {
  if (stato().fatture()) {
    if (QFileInfo(qs(file.percorso)).isDir()) return QStringLiteral("cartella");
    return qs(file.nome).endsWith(QStringLiteral(".zip"), Qt::CaseInsensitive) ? QStringLiteral("archivio")
                                                                               : QStringLiteral("fattura");
  }
  if (!file.fogli.empty()) return quante(file.fogli.size(), "foglio", "fogli") + QStringLiteral(" XLSX");
  if (file.tabella == nullptr) return {};
  const char separatore = file.tabella->separatore;
  const QString segno = separatore == '\t' ? QStringLiteral("tab") : QString(QLatin1Char(separatore));
  return QStringLiteral("testo %1, separatore %2")
      .arg(QString::fromUtf8(file.tabella->caratteri.data(), qsizetype(file.tabella->caratteri.size())),
           segno);
}

QString PaginaSorgente::dettaNota(const FileScelto& file) const {
  if (stato().fatture()) {
    return QFileInfo::exists(qs(file.percorso)) ? qs(file.percorso) : QStringLiteral("✖ non c'è più");
  }
  if (!file.guasto.empty()) return QStringLiteral("✖ ") + qs(file.guasto);
  if (!file.nota.empty()) return QStringLiteral("⚠ ") + qs(file.nota);
  if (!file.profilo.empty())
    return QStringLiteral("letto con il profilo %1").arg(QFileInfo(qs(file.profilo)).fileName());
  return file.tabella == nullptr ? QString() : QStringLiteral("✓ si legge");
}

void PaginaSorgente::mostraDatabase() {
  const auto& database = stato().database();
  aziende_->clear();
  tabelle_->setVisible(database && !database->storico);
  estraneo_->setVisible(database && database->storico && !database->creatoQui && !stato().ammesso());
  if (!database) return;
  for (const AziendaDelDatabase& una : database->aziende) aziende_->addItem(qs(una.nome), una.id);
  aziende_->setCurrentIndex(aziende_->findData(stato().azienda()));
  aziende_->setEnabled(stato().elenco() != intake::Elenco::Aziende && !database->aziende.empty());
  QString testo;
  if (!database->storico) {
    testo = QStringLiteral(
        "Questo database non ha ancora le tabelle che ricordano le importazioni. «Aggiungi le tabelle» le "
        "crea: gli altri dati restano come sono.");
  } else if (!database->creatoQui) {
    testo = stato().ammesso()
                ? QStringLiteral("Il database è di un'altra suite: l'importazione è stata ammessa.")
                : QStringLiteral(
                      "Questo database non è stato creato da questo programma: in quello di un'altra suite è "
                      "lei a numerare le righe, e importarvi può confondere i suoi dati.");
  } else if (database->aziende.empty() && stato().elenco() != intake::Elenco::Aziende) {
    testo =
        QStringLiteral("Il database non contiene nessuna azienda: importare prima l'elenco delle aziende.");
  }
  if (testo.isEmpty() && !stato().file().empty()) testo = qs(stato().impedimento());
  avviso_->dici(testo);
}

void PaginaSorgente::mostra() {
  mostrati_ = stato().file();
  file_->rimostra(mostrati_.size());
  togli_->setEnabled(!stato().file().empty());
  modello_->setEnabled(!stato().fatture());
  dati_->metti(stato().fatture() ? std::nullopt : std::optional(stato().elenco()));
  const bool compensi = stato().elenco() == intake::Elenco::Compensi;
  riquadroAnno_->setVisible(compensi);
  anno_->setVisible(compensi);
  mostraDatabase();
}

void PaginaSorgente::sfoglia() {
  const QStringList scelti = desktop::filesToOpen(
      this, QStringLiteral("File da importare"), strumenti::cartellaRicordata(kUso),
      QStringLiteral("Tabelle e fatture (*.csv *.tsv *.txt *.xlsx *.xml *.p7m *.zip);;Tutti i file (*)"));
  if (scelti.isEmpty()) return;
  strumenti::ricordaCartella(kUso, QFileInfo(scelti.first()).absolutePath());
  std::vector<std::string> percorsi;
  for (const QString& uno : scelti) percorsi.push_back(uno.toStdString());
  stato().aggiungi(percorsi);
  cambia();
}

void PaginaSorgente::sfogliaCartella() {
  const QString scelta = desktop::folderToUse(this, QStringLiteral("Cartella delle fatture"),
                                              strumenti::cartellaRicordata(kUso));
  if (scelta.isEmpty()) return;
  strumenti::ricordaCartella(kUso, scelta);
  stato().scegliFatture();
  stato().aggiungi({scelta.toStdString()});
  cambia();
}

void PaginaSorgente::togli() {
  const auto quale = file_->corrente();
  if (!quale) return;
  const auto& file = stato().file();
  const auto suo = std::find_if(file.begin(), file.end(), [&](const FileScelto& uno) {
    return uno.percorso == mostrati_[*quale].percorso;
  });
  if (suo == file.end()) return;
  stato().togli(static_cast<std::size_t>(suo - file.begin()));
  cambia();
}

void PaginaSorgente::scriviModello() {
  const QString nome = qs(std::string(intake::nome(stato().elenco()))) + QStringLiteral(".xlsx");
  const QString scelto =
      desktop::fileToSave(this, QStringLiteral("Modello vuoto"),
                          strumenti::cartellaRicordata(
                              kUso, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) +
                              u'/' + nome,
                          QStringLiteral("Cartella di lavoro (*.xlsx);;Testo (*.csv)"));
  if (scelto.isEmpty()) return;
  try {
    cu::scriviModello(scelto.toStdString(), stato().elenco());
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
  }
}

}  // namespace cu::assistente
