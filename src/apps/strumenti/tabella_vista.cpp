#include "apps/strumenti/tabella_vista.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/look.h"
#include "desktop/table_style.h"

namespace cu::strumenti {
namespace {

constexpr int kRigheMisurate = 200;
constexpr const char* kNessuna = "Nessuna riga corrisponde a ciò che si cerca.";

}  // namespace

Tabella::Tabella(const QString& nome, const QString& detta, std::vector<Colonna> colonne, QWidget* parent)
    : QTableView(parent),
      modello_(new ModelloTabella(std::move(colonne), this)),
      filtro_(new FiltroTabella(this)) {
  setAccessibleName(detta);
  filtro_->setSourceModel(modello_);
  desktop::styleRows(*this);
  setModel(filtro_);
  verticalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  // Ascending, descending, the order of the rows.
  horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  horizontalHeader()->setSortIndicatorClearable(true);
  setSortingEnabled(true);
  comandi_ = new desktop::TableCommands(*this, nome);
  comandi_->setWidths = [this] { larghezzePrime(); };
  setMinimumHeight(fontMetrics().height() * 6);
  setMinimumWidth(fontMetrics().height() * 8);
  connect(filtro_, &QAbstractItemModel::layoutChanged, this, [this] {
    if (currentIndex().isValid()) scrollTo(currentIndex());
  });
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& dove) {
    if (aperta) aperta(static_cast<std::size_t>(filtro_->mapToSource(dove).row()));
  });
}

void Tabella::apreCon(const QString& scritta, std::function<void(std::size_t riga)> apri) {
  connect(this, &QTableView::activated, this, [this, apri](const QModelIndex& dove) {
    apri(static_cast<std::size_t>(filtro_->mapToSource(dove).row()));
  });
  comandi_->addRowCommands = [this, scritta, apri = std::move(apri)](QMenu& menu) {
    QAction* const prima = menu.addAction(scritta);
    menu.setDefaultAction(prima);
    connect(prima, &QAction::triggered, this, [this, apri] {
      if (const auto quale = corrente()) apri(*quale);
    });
  };
}

void Tabella::mostra(std::size_t righe, bool primaRiga) {
  zitta_ = true;
  modello_->mostra(righe);
  if (!posate_ || righe > 0) larghezze();
  zitta_ = false;
  detta_.reset();
  tolta_.reset();
  diceVuota();
  if (primaRiga && filtro_->rowCount() > 0) {
    setCurrentIndex(filtro_->index(0, 0));
  } else if (scelta) {
    scelta(std::nullopt);
  }
}

void Tabella::rimostra(std::size_t righe) {
  const auto prima = corrente();
  const int altezza = verticalScrollBar()->value();
  const int lato = horizontalScrollBar()->value();
  mostra(righe);
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(altezza);
  if (prima) scegli(prima);
  horizontalScrollBar()->setValue(lato);
}

// A row that only the filter has made the current one gives its place back to the one before.
void Tabella::riapplicaFiltro() {
  const auto prima = corrente();
  zitta_ = true;
  filtro_->riapplica();
  zitta_ = false;
  diceVuota();
  if (tolta_ && siVede(*tolta_)) {
    scegli(std::exchange(tolta_, std::nullopt));
  } else if (prima && siVede(*prima)) {
    const auto tolta = tolta_;
    scegli(prima);
    tolta_ = tolta;
  } else {
    const auto tolta = tolta_ ? tolta_ : prima;
    if (filtro_->rowCount() > 0) {
      setCurrentIndex(filtro_->index(0, 0));
      currentChanged(currentIndex(), {});
    } else {
      detta_.reset();
      if (scelta) scelta(std::nullopt);
    }
    tolta_ = tolta;
  }
}

bool Tabella::siVede(std::size_t riga) const {
  return filtro_->mapFromSource(modello_->index(static_cast<int>(riga), 0)).isValid();
}

// For a screen reader; on the screen the words are in the empty table.
void Tabella::diceVuota() { setAccessibleDescription(vuota() ? QString::fromUtf8(kNessuna) : QString()); }

void Tabella::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (!vuota()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::Text));
  constexpr int kMargine = 12;
  const QRect dove = viewport()->rect().adjusted(kMargine, kMargine, -kMargine, -kMargine);
  painter.drawText(dove, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, QString::fromUtf8(kNessuna));
}

std::optional<std::size_t> Tabella::corrente() const {
  const QModelIndex ora = currentIndex();
  if (!ora.isValid()) return std::nullopt;
  return static_cast<std::size_t>(filtro_->mapToSource(ora).row());
}

void Tabella::scegli(std::optional<std::size_t> riga) {
  if (!riga) {
    clearSelection();
    setCurrentIndex({});
    return;
  }
  const QModelIndex dove = filtro_->mapFromSource(modello_->index(static_cast<int>(*riga), 0));
  if (!dove.isValid()) return;
  setCurrentIndex(dove);
  scrollTo(dove);
}

std::vector<std::size_t> Tabella::evidenziate() const {
  std::vector<std::size_t> righe;
  for (const QModelIndex& una : selectionModel()->selectedRows())
    righe.push_back(static_cast<std::size_t>(filtro_->mapToSource(una).row()));
  std::sort(righe.begin(), righe.end());
  return righe;
}

std::size_t Tabella::mostrate() const { return static_cast<std::size_t>(filtro_->rowCount()); }

void Tabella::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (zitta_) return;
  const auto ora = corrente();
  if (ora == detta_) return;
  detta_ = ora;
  tolta_.reset();
  if (scelta) scelta(ora);
}

void Tabella::keyPressEvent(QKeyEvent* event) {
  const auto ora = corrente();
  const bool invio = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (invio && aperta && ora) {
    aperta(*ora);
    return;
  }
  if (scriviQui(event)) return;
  QTableView::keyPressEvent(event);
}

int Tabella::scritta() const {
  const auto& colonne = modello_->colonne();
  const auto sua =
      std::find_if(colonne.begin(), colonne.end(), [](const Colonna& una) { return una.scrivi != nullptr; });
  return sua == colonne.end() ? -1 : static_cast<int>(sua - colonne.begin());
}

// A digit begins the writing of the row's cell that can be written, wherever in the row the person is. In a
// row that cannot be written it does nothing: the rows are not searched for it.
bool Tabella::scriviQui(QKeyEvent* event) {
  const QString testo = event->text();
  if (testo.isEmpty() || !testo.front().isDigit() || !currentIndex().isValid() || scritta() < 0) return false;
  edit(currentIndex().siblingAtColumn(scritta()), QAbstractItemView::AnyKeyPressed, event);
  return true;
}

void Tabella::avanza() {
  const int colonna = scritta() < 0 ? currentIndex().column() : scritta();
  for (int riga = currentIndex().row() + 1; riga < filtro_->rowCount(); ++riga) {
    const bool scrivibile = filtro_->index(riga, colonna).flags().testFlag(Qt::ItemIsEditable);
    if (scritta() >= 0 && !scrivibile) continue;
    setCurrentIndex(filtro_->index(riga, currentIndex().column()));
    return;
  }
}

void Tabella::riscrivi(std::size_t riga, const QString& testo) {
  const QModelIndex dove = filtro_->mapFromSource(modello_->index(static_cast<int>(riga), scritta()));
  if (!dove.isValid()) return;
  setCurrentIndex(dove);
  edit(dove);
  auto* const casella = qobject_cast<QLineEdit*>(indexWidget(dove));
  if (casella == nullptr) return;
  casella->setText(testo);
  casella->selectAll();
}

void Tabella::concludi() {
  if (state() != QAbstractItemView::EditingState || scritta() < 0) return;
  QWidget* const casella = indexWidget(currentIndex().siblingAtColumn(scritta()));
  if (casella == nullptr) return;
  commitData(casella);
  closeEditor(casella, QAbstractItemDelegate::NoHint);
}

void Tabella::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  zitta_ = true;
  larghezze();
  zitta_ = false;
  posate_ = true;
}

// The first widths, then the user's.
void Tabella::larghezze() {
  comandi_->placeColumns();
  larghezzaUltima();
}

// Those of the first rows.
void Tabella::larghezzePrime() {
  for (int i = 0; i < modello_->columnCount(); ++i) {
    const int massima = modello_->colonne()[static_cast<std::size_t>(i)].massima * desktop::look::letters() /
                        desktop::look::kNormalLetters;
    setColumnWidth(i, std::min(larghezzaDi(i), massima));
  }
  const int quale = modello_->columnCount() - 1;
  constexpr int kMassimaUltima = 1200;
  if (modello_->colonne()[static_cast<std::size_t>(quale)].intera)
    ultima_ = std::min(larghezzaDi(quale), kMassimaUltima);
}

void Tabella::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  larghezzaUltima();
}

// What the other columns leave, or what it needs.
void Tabella::larghezzaUltima() {
  if (ultima_ == 0) return;
  comandi_->quietly([this] {
    const int quale = modello_->columnCount() - 1;
    int altre = 0;
    for (int i = 0; i < quale; ++i) altre += columnWidth(i);
    const bool entra = altre + ultima_ <= viewport()->width();
    horizontalHeader()->setStretchLastSection(entra);
    if (!entra) setColumnWidth(quale, ultima_);
  });
}

// Of the heading's longest word, of some rows from the first to the last, because numbers grow, and of the
// first that are shown.
int Tabella::larghezzaDi(int colonna) const {
  constexpr int kIntornoCella = 14;
  int larga = 0;
  const QString titolo = modello_->headerData(colonna, Qt::Horizontal, Qt::DisplayRole).toString();
  for (const QString& parola : titolo.split(u' ')) {
    larga = std::max(larga, horizontalHeader()->fontMetrics().horizontalAdvance(parola) + kIntornoCella);
  }
  const int righe = modello_->rowCount();
  const int passo = std::max(1, righe / kRigheMisurate);
  const auto misura = [&](int riga) {
    const QModelIndex cella = modello_->index(riga, colonna);
    const QVariant carattere = cella.data(Qt::FontRole);
    const int testo = carattere.isValid()
                          ? QFontMetrics(carattere.value<QFont>()).horizontalAdvance(cella.data().toString())
                          : fontMetrics().horizontalAdvance(cella.data().toString());
    larga = std::max(larga, testo + kIntornoCella);
  };
  for (int riga = 0; riga < righe; riga += passo) misura(riga);
  if (righe > 0) misura(righe - 1);
  for (int riga = 0; riga < std::min(filtro_->rowCount(), kRigheMisurate); ++riga) {
    misura(filtro_->mapToSource(filtro_->index(riga, 0)).row());
  }
  return larga;
}

}  // namespace cu::strumenti
