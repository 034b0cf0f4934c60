#include "apps/assistente/pagina_prova.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "apps/assistente/colonne_tabella.h"
#include "apps/importazione/righe_errate.h"
#include "apps/strumenti/copia_archivio.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"
#include "desktop/file_dialog.h"
#include "suite/platform_file.h"
#include "tabelle/scrittura.h"

namespace cu::assistente {
namespace {

const QString kUsoSalvati = QStringLiteral("importazione_salvati");

}  // namespace

PaginaProva::PaginaProva(QWidget* parent, Assistente& assistente)
    : Pagina(parent, assistente), frase_(new strumenti::Frase(this)), risposta_(new strumenti::Frase(this)) {
  colonna().addWidget(frase_);
  riquadroDiversi_ = new QWidget(this);
  QHBoxLayout* const riga = rigaDi(riquadroDiversi_);
  diversi_ =
      new Scelta<intake::SuDiversi>(this, "Righe già presenti con altri valori",
                                    {{"fermano l'importazione", intake::SuDiversi::Rifiuta},
                                     {"restano come sono in archivio", intake::SuDiversi::Salta},
                                     {"si aggiornano con quelle del file", intake::SuDiversi::Aggiorna}});
  diversi_->scelto = [this](intake::SuDiversi diversi) {
    stato().scegliDiversi(diversi);
    cambia();
  };
  riga->addWidget(etichetta("Le righe &già presenti con altri valori", diversi_, this));
  riga->addWidget(diversi_);
  riga->addStretch(1);
  colonna().addWidget(riquadroDiversi_);
  componiSchede();
  colonna().addWidget(new strumenti::RigaCopia(this, assistente.ambiente().database));
  risposta_->hide();
  colonna().addWidget(risposta_);
  auto* const sotto = new QHBoxLayout;
  errori_ = bottone(
      "Salva &errori…", [this] { chiediErrori(); },
      "Le righe con errori in un file CSV, con le colonne del file e il motivo in una in più");
  resoconto_ = bottone("Salva &resoconto…", [this] { chiediResoconto(); });
  ripeti_ = bottone("Ripe&ti la prova", [this] {
    stato().ripetiPiano();
    cambia();
  });
  for (QPushButton* uno : {errori_, resoconto_, ripeti_}) sotto->addWidget(uno);
  sotto->addStretch(1);
  colonna().addLayout(sotto);
}

void PaginaProva::componiSchede() {
  schede_ = new QTabWidget(this);
  schede_->addTab(avvisi(), {});
  schede_->addTab(somme(), {});
  schede_->addTab(conti(), {});
  schede_->addTab(mancanti(), {});
  schede_->addTab(note(), {});
  colonna().addWidget(schede_, 1);
}

QWidget* PaginaProva::avvisi() {
  listaAvvisi_ = new QListWidget(this);
  listaAvvisi_->setAccessibleName(QStringLiteral("Avvisi da accettare"));
  listaAvvisi_->setWordWrap(true);
  listaAvvisi_->setAlternatingRowColors(true);
  listaAvvisi_->setSpacing(2);
  connect(listaAvvisi_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* voce) {
    if (zitta_) return;
    stato().accetta(static_cast<intake::Codice>(voce->data(Qt::UserRole).toInt()),
                    voce->checkState() == Qt::Checked);
    cambia();
  });
  return listaAvvisi_;
}

QWidget* PaginaProva::note() {
  listaNote_ = new QListWidget(this);
  listaNote_->setAccessibleName(QStringLiteral("Note sui file"));
  listaNote_->setWordWrap(true);
  listaNote_->setAlternatingRowColors(true);
  return listaNote_;
}

QWidget* PaginaProva::somme() {
  const auto di = [this](std::size_t q) -> const SommaAnnoCausale& { return somme_[q]; };
  const auto importo = [di](const char* chiave, const char* titolo, auto quale) {
    return colonnaImporto(chiave, titolo, [di, quale](std::size_t q) { return quale(di(q)); });
  };
  const auto numero = [di](const char* chiave, const char* titolo, auto quale) {
    return colonnaNumero(chiave, titolo, [di, quale](std::size_t q) { return quale(di(q)); });
  };
  tabellaSomme_ = new strumenti::Tabella(
      QStringLiteral("assistente_somme"), QStringLiteral("Somme per anno e causale"),
      {{.chiave = "anno",
        .titolo = "Anno",
        .testo = [di](std::size_t q) { return QString::number(di(q).anno); },
        .ordine = [di](std::size_t q) { return QVariant(di(q).anno); }},
       {.chiave = "causale", .titolo = "Caus.", .testo = [di](std::size_t q) { return qs(di(q).causale); }},
       numero("conti", "Conti", [](const SommaAnnoCausale& s) { return s.conti; }),
       numero("compensi", "Compensi", [](const SommaAnnoCausale& s) { return s.compensi; }),
       importo("prima", "Onorari prima", [](const SommaAnnoCausale& s) { return s.prima[0]; }),
       importo("dopo", "Onorari dopo", [](const SommaAnnoCausale& s) { return s.dopo[0]; }),
       importo("ritenutePrima", "Ritenute prima",
               [](const SommaAnnoCausale& s) { return ritenute(s.prima); }),
       importo("ritenuteDopo", "Ritenute dopo", [](const SommaAnnoCausale& s) { return ritenute(s.dopo); }),
       colonnaVuota()},
      this);
  return tabellaSomme_;
}

QWidget* PaginaProva::conti() {
  const auto di = [this](std::size_t q) -> const intake::ContoPiano& { return piano_->conti[q]; };
  const auto prima = [](const intake::ContoPiano& conto) { return conto.prima.value_or(schede::Importi{}); };
  const auto importo = [di](const char* chiave, const char* titolo, auto quale) {
    return colonnaImporto(chiave, titolo, [di, quale](std::size_t q) { return quale(di(q)); });
  };
  using schede::Importo;
  const auto nonSoggette = [](const schede::Importi& i) {
    return i[schede::posto(Importo::SommeNonSoggette)] + i[schede::posto(Importo::RegimeConvenzionale)];
  };
  tabellaConti_ = new strumenti::Tabella(
      QStringLiteral("assistente_conti"), QStringLiteral("Conti prima e dopo"),
      {{.chiave = "percipiente",
        .titolo = "Percipiente",
        .testo = [di](std::size_t q) { return qs(di(q).percipiente); }},
       {.chiave = "causale", .titolo = "Caus.", .testo = [di](std::size_t q) { return qs(di(q).causale); }},
       {.chiave = "anno",
        .titolo = "Anno",
        .testo = [di](std::size_t q) { return QString::number(di(q).anno); },
        .ordine = [di](std::size_t q) { return QVariant(di(q).anno); }},
       {.chiave = "nuovo",
        .titolo = "Conto",
        .testo =
            [di](std::size_t q) {
              return di(q).prima ? QStringLiteral("≠ cambia") : QStringLiteral("+ nuovo");
            }},
       importo("prima", "Onorari prima", [prima](const intake::ContoPiano& c) { return prima(c)[0]; }),
       importo("dopo", "Onorari dopo", [](const intake::ContoPiano& c) { return c.dopo[0]; }),
       importo("ritenutePrima", "Ritenute prima",
               [prima](const intake::ContoPiano& c) { return ritenute(prima(c)); }),
       importo("ritenuteDopo", "Ritenute dopo", [](const intake::ContoPiano& c) { return ritenute(c.dopo); }),
       importo("nonSoggettePrima", "Non sogg. prima",
               [prima, nonSoggette](const intake::ContoPiano& c) { return nonSoggette(prima(c)); }),
       importo("nonSoggetteDopo", "Non sogg. dopo",
               [nonSoggette](const intake::ContoPiano& c) { return nonSoggette(c.dopo); }),
       colonnaVuota()},
      this);
  return tabellaConti_;
}

QWidget* PaginaProva::mancanti() {
  const auto di = [this](std::size_t q) -> const intake::MancantePiano& { return piano_->mancanti[q]; };
  tabellaMancanti_ = new strumenti::Tabella(
      QStringLiteral("assistente_mancanti"), QStringLiteral("Dati che mancano per il file telematico"),
      {{.chiave = "percipiente",
        .titolo = "Percipiente",
        .testo =
            [di](std::size_t q) {
              return di(q).percipiente.empty() ? QStringLiteral("(l'azienda)") : qs(di(q).percipiente);
            }},
       {.chiave = "testo",
        .titolo = "Che cosa manca",
        .testo = [di](std::size_t q) { return qs(di(q).testo); }}},
      this);
  return tabellaMancanti_;
}

QWidget* PaginaProva::primo() { return schede_->currentWidget(); }

void PaginaProva::salvaErrori(const QString& cartellaOFile) {
  const std::vector<std::size_t> file = fileConRigheErrate(*piano_);
  const QFileInfo dove(cartellaOFile);
  QStringList scritti;
  try {
    for (const std::size_t quale : file) {
      const FileScelto& suo = stato().file().at(quale);
      QString percorso = cartellaOFile;
      if (dove.isDir())
        percorso += u'/' + QFileInfo(qs(suo.nome)).completeBaseName() + QStringLiteral("-errori.csv");
      replaceFile(percorso.toStdString(), tabelle::scriviCsv(righeErrate(*piano_, quale, *suo.tabella)),
                  NewFile::OwnerOnly);
      scritti += percorso;
    }
    risposta_->dici(
        QStringLiteral("✓ Scritto: %1. Corrette, le righe si importano da sole.").arg(scritti.join(u", ")));
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
  }
}

// The last one used, or that of a file that is imported.
QString PaginaProva::cartellaSalvati(std::size_t file) const {
  const QFileInfo suo(qs(stato().file().at(file).percorso));
  return strumenti::cartellaRicordata(kUsoSalvati, suo.absolutePath());
}

// A file for each of those that have errors.
void PaginaProva::chiediErrori() {
  if (piano_ == nullptr) return;
  const std::vector<std::size_t> file = fileConRigheErrate(*piano_);
  if (file.empty()) return;
  const QString cartella = cartellaSalvati(file.front());
  QString scelto;
  if (file.size() == 1) {
    const QString nome = QFileInfo(qs(stato().file().at(file.front()).nome)).completeBaseName();
    scelto = desktop::fileToSave(this, QStringLiteral("Salva errori"),
                                 cartella + u'/' + nome + QStringLiteral("-errori.csv"),
                                 QStringLiteral("Testo (*.csv)"));
  } else {
    scelto = desktop::folderToUse(this, QStringLiteral("Cartella degli errori"), cartella);
  }
  if (scelto.isEmpty()) return;
  const QFileInfo dove(scelto);
  strumenti::ricordaCartella(kUsoSalvati, dove.isDir() ? scelto : dove.absolutePath());
  salvaErrori(scelto);
}

void PaginaProva::salvaResoconto(const QString& file) {
  EsitoImportazione esito;
  if (stato().prova()) esito = stato().prova()->esito;
  try {
    scriviResoconto(file.toStdString(), *piano_, esito);
    risposta_->dici(QStringLiteral("✓ Scritto il resoconto: %1.").arg(file));
  } catch (const std::exception& guasto) {
    mostraErrore(QString::fromUtf8(guasto.what()));
  }
}

void PaginaProva::chiediResoconto() {
  if (piano_ == nullptr) return;
  QString scelto = desktop::fileToSave(this, QStringLiteral("Salva resoconto"),
                                       cartellaSalvati(0) + QStringLiteral("/resoconto.csv"),
                                       QStringLiteral("Testo (*.csv);;JSON (*.json)"));
  if (scelto.isEmpty()) return;
  if (!fileDiResoconto(scelto.toStdString())) scelto += QStringLiteral(".csv");
  strumenti::ricordaCartella(kUsoSalvati, QFileInfo(scelto).absolutePath());
  salvaResoconto(scelto);
}

}  // namespace cu::assistente
