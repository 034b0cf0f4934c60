#include "apps/assistente/pagina_lettura.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

#include "apps/assistente/modello_celle.h"
#include "apps/strumenti/frase.h"
#include "desktop/table_commands.h"
#include "desktop/table_style.h"

namespace cu::assistente {
namespace {

constexpr int kMassimaColonna = 260;
constexpr int kColonneAccanto = 3;  // captions with their boxes in a row

}  // namespace

PaginaLettura::PaginaLettura(QWidget* parent, Assistente& assistente) : Pagina(parent, assistente) {
  colonna().addWidget(new strumenti::Frase(
      this, QStringLiteral("Così vengono lette le prime righe. Se qualcosa non va, dire qui com'è fatto il "
                           "file: vale per tutti i file con gli stessi titoli.")));
  auto* const griglia = new QGridLayout;
  componiModi(*griglia);
  colonna().addLayout(griglia);
  frase_ = new strumenti::Frase(this);
  colonna().addWidget(frase_);
  modello_ = new ModelloCelle(this);
  celle_ = new QTableView(this);
  desktop::styleRows(*celle_);
  // As they are in the file: neither sorted nor moved.
  celle_->horizontalHeader()->setSectionsClickable(false);
  new desktop::TableCommands(*celle_, {});
  celle_->setModel(modello_);
  celle_->setAccessibleName(QStringLiteral("Prime righe del file"));
  celle_->setMinimumHeight(fontMetrics().height() * 6);
  colonna().addWidget(celle_, 1);
}

void PaginaLettura::aggiungiModo(QGridLayout& griglia, int riga, int colonna, const char* testo,
                                 QWidget* casella) {
  griglia.addWidget(etichetta(testo, casella, this), riga, colonna * 2);
  griglia.addWidget(casella, riga, colonna * 2 + 1);
  griglia.setColumnStretch(colonna * 2 + 1, 1);
}

void PaginaLettura::componiModi(QGridLayout& griglia) {
  using intake::OrdineData;
  using tabelle::Caratteri;
  file_ = new QComboBox(this);
  file_->setAccessibleName(QStringLiteral("File"));
  file_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  foglio_ = new QComboBox(this);
  foglio_->setAccessibleName(QStringLiteral("Foglio"));
  foglio_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  titoli_ = new QSpinBox(this);
  titoli_->setRange(0, 1000);
  titoli_->setSpecialValueText(QStringLiteral("la prima scritta"));
  titoli_->setAccessibleName(QStringLiteral("Riga dei titoli"));
  titoli_->setKeyboardTracking(false);
  separatore_ = new Scelta<std::optional<char>>(this, "Separatore",
                                                {{"riconosciuto", std::nullopt},
                                                 {"punto e virgola ;", ';'},
                                                 {"virgola ,", ','},
                                                 {"tabulazione", '\t'},
                                                 {"barra |", '|'}});
  caratteri_ = new Scelta<Caratteri>(this, "Caratteri",
                                     {{"riconosciuti", Caratteri::Riconosciuti},
                                      {"UTF-8", Caratteri::Utf8},
                                      {"Windows-1252", Caratteri::Windows1252},
                                      {"UTF-16 LE", Caratteri::Utf16Le},
                                      {"UTF-16 BE", Caratteri::Utf16Be}});
  decimali_ = new Scelta<std::optional<char>>(
      this, "Segno dei decimali",
      {{"riconosciuto", std::nullopt}, {"virgola 12,50", ','}, {"punto 12.50", '.'}});
  migliaia_ = new Scelta<std::optional<char>>(this, "Segno delle migliaia",
                                              {{"nessuno", std::nullopt},
                                               {"punto 1.234", '.'},
                                               {"virgola 1,234", ','},
                                               {"apostrofo 1'234", '\''},
                                               {"spazio 1 234", ' '}});
  date_ = new Scelta<std::optional<OrdineData>>(this, "Ordine delle date",
                                                {{"riconosciuto", std::nullopt},
                                                 {"giorno mese anno", OrdineData::GiornoMeseAnno},
                                                 {"mese giorno anno", OrdineData::MeseGiornoAnno},
                                                 {"anno mese giorno", OrdineData::AnnoMeseGiorno}});
  const std::initializer_list<std::pair<const char*, QWidget*>> modi = {{"&File", file_},
                                                                        {"F&oglio", foglio_},
                                                                        {"Riga dei &titoli", titoli_},
                                                                        {"Sepa&ratore", separatore_},
                                                                        {"&Caratteri", caratteri_},
                                                                        {"&Date", date_},
                                                                        {"D&ecimali", decimali_},
                                                                        {"&Migliaia", migliaia_}};
  int posto = 0;
  for (const auto& [testo, casella] : modi) {
    aggiungiModo(griglia, posto / kColonneAccanto, posto % kColonneAccanto, testo, casella);
    ++posto;
  }
  connect(file_, &QComboBox::activated, this, [this] { mostra(); });
  connect(foglio_, &QComboBox::activated, this, [this](int quale) {
    cambiaModo([&](intake::Mappatura& m) { m.lettura.foglio = foglio_->itemText(quale).toStdString(); });
  });
  connect(titoli_, &QSpinBox::valueChanged, this, [this](int riga) {
    cambiaModo([&](intake::Mappatura& m) { m.lettura.rigaIntestazione = static_cast<std::size_t>(riga); });
  });
  separatore_->scelto = [this](const auto& v) { cambiaModo([&](auto& m) { m.lettura.separatore = v; }); };
  caratteri_->scelto = [this](const auto& v) { cambiaModo([&](auto& m) { m.lettura.caratteri = v; }); };
  decimali_->scelto = [this](const auto& v) { cambiaModo([&](auto& m) { m.decimali = v; }); };
  migliaia_->scelto = [this](const auto& v) { cambiaModo([&](auto& m) { m.migliaia = v; }); };
  date_->scelto = [this](const auto& v) { cambiaModo([&](auto& m) { m.date = v; }); };
}

QWidget* PaginaLettura::primo() { return celle_; }

const FileScelto* PaginaLettura::corrente() const {
  const int quale = file_->currentIndex();
  return quale < 0 || quale >= static_cast<int>(stato().file().size())
             ? nullptr
             : &stato().file()[static_cast<std::size_t>(quale)];
}

void PaginaLettura::cambiaModo(const std::function<void(intake::Mappatura&)>& come) {
  const FileScelto* const file = corrente();
  if (file == nullptr) return;
  intake::Mappatura mappatura = file->mappatura;
  come(mappatura);
  if (mappatura.migliaia && mappatura.migliaia == mappatura.decimali) {
    mostraErrore(QStringLiteral("Lo stesso segno non può stare per i decimali e per le migliaia."));
    mostra();
    return;
  }
  stato().cambiaMappatura(static_cast<std::size_t>(file_->currentIndex()), mappatura);
  cambia();
}

QString PaginaLettura::dettaLettura(const FileScelto& file) const {
  if (file.tabella == nullptr) return qs(file.guasto);
  const std::size_t righe = file.tabella->righe.size();
  QString testo = quante(righe, "riga", "righe");
  if (righe > ModelloCelle::kMostrate) {
    testo += QStringLiteral(", si vedono le prime %1").arg(ModelloCelle::kMostrate);
  }
  if (file.tabella->righeNascoste > 0) {
    testo +=
        QStringLiteral(", %1 nascoste nel foglio").arg(strumenti::conteggio(file.tabella->righeNascoste));
  }
  if (!file.profilo.empty())
    testo += QStringLiteral("; letto con il profilo %1").arg(QFileInfo(qs(file.profilo)).fileName());
  const std::size_t simili = stato().quantiSimili(static_cast<std::size_t>(file_->currentIndex()));
  if (simili > 1) testo += QStringLiteral("; %1 file hanno gli stessi titoli").arg(simili);
  return testo + u'.';
}

void PaginaLettura::mostra() {
  const int prima = std::max(0, file_->currentIndex());
  file_->clear();
  for (const FileScelto& uno : stato().file()) file_->addItem(qs(uno.nome));
  file_->setCurrentIndex(std::min(prima, file_->count() - 1));
  file_->setEnabled(file_->count() > 1);
  const FileScelto* const file = corrente();
  if (file == nullptr) {
    modello_->mostra(nullptr);
    return;
  }
  modello_->mostra(file->tabella);
  const intake::Mappatura& mappatura = file->mappatura;
  const bool testo = file->fogli.empty();
  foglio_->clear();
  for (const std::string& uno : file->fogli) foglio_->addItem(qs(uno));
  const tabelle::Tabella* const tabella = file->tabella.get();
  const std::string& foglio = tabella != nullptr ? tabella->foglio : mappatura.lettura.foglio;
  foglio_->setCurrentIndex(std::max(0, foglio_->findText(qs(foglio))));
  foglio_->setEnabled(foglio_->count() > 1);
  {
    const QSignalBlocker zitto(titoli_);
    titoli_->setValue(static_cast<int>(mappatura.lettura.rigaIntestazione));
  }
  separatore_->metti(mappatura.lettura.separatore);
  separatore_->setEnabled(testo);
  caratteri_->metti(mappatura.lettura.caratteri);
  caratteri_->setEnabled(testo);
  decimali_->metti(mappatura.decimali);
  migliaia_->metti(mappatura.migliaia);
  date_->metti(mappatura.date);
  frase_->dici(dettaLettura(*file));
  celle_->resizeColumnsToContents();
  for (int i = 0; i < modello_->columnCount(); ++i) {
    celle_->setColumnWidth(i, std::min(celle_->columnWidth(i), kMassimaColonna));
  }
}

}  // namespace cu::assistente
