#include "apps/strumenti/modello_vista.h"

#include <QApplication>
#include <QFont>
#include <utility>

#include "desktop/table_commands.h"
#include "desktop/table_style.h"

namespace cu::strumenti {

ModelloTabella::ModelloTabella(std::vector<Colonna> colonne, QObject* parent)
    : QAbstractTableModel(parent), colonne_(std::move(colonne)) {}

void ModelloTabella::mostra(std::size_t righe) {
  beginResetModel();
  righe_ = static_cast<int>(righe);
  endResetModel();
}

int ModelloTabella::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : righe_; }

int ModelloTabella::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(colonne_.size());
}

QVariant ModelloTabella::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Colonna& colonna = colonne_[static_cast<std::size_t>(index.column())];
  const auto riga = static_cast<std::size_t>(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return colonna.testo(riga);
    case Qt::EditRole:
      return colonna.daScrivere ? colonna.daScrivere(riga) : colonna.testo(riga);
    case Qt::TextAlignmentRole:
      return QVariant(colonna.aDestra || (colonna.importi && desktop::showsAmount(colonna.testo(riga)))
                          ? Qt::AlignRight | Qt::AlignVCenter
                          : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::AccessibleTextRole:
      return colonna.detto ? colonna.detto(riga) : colonna.testo(riga);
    case Qt::FontRole: {
      if (!inGrassetto || !inGrassetto(riga)) return {};
      QFont grassetto = QApplication::font("QTableView");
      grassetto.setBold(true);
      return grassetto;
    }
    case kOrdine:
      return colonna.ordine ? colonna.ordine(riga) : QVariant(colonna.testo(riga));
    default:
      return {};
  }
}

QVariant ModelloTabella::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const Colonna& colonna = colonne_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return QString::fromUtf8(colonna.titolo);
  if (role == desktop::kColumnNameRole) return QString::fromUtf8(colonna.chiave);
  if (role == Qt::TextAlignmentRole) {
    return QVariant(colonna.aDestra ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

Qt::ItemFlags ModelloTabella::flags(const QModelIndex& index) const {
  const Qt::ItemFlags solite = QAbstractTableModel::flags(index);
  if (!index.isValid()) return solite;
  const Colonna& colonna = colonne_[static_cast<std::size_t>(index.column())];
  const bool scrivibile =
      colonna.scrivi && (!colonna.scrivibile || colonna.scrivibile(static_cast<std::size_t>(index.row())));
  return scrivibile ? solite | Qt::ItemIsEditable : solite;
}

bool ModelloTabella::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const Colonna& colonna = colonne_[static_cast<std::size_t>(index.column())];
  const QString testo = value.toString();
  if (!colonna.scrivi || testo == data(index, Qt::EditRole).toString()) return false;
  colonna.scrivi(static_cast<std::size_t>(index.row()), testo);
  return true;
}

FiltroTabella::FiltroTabella(QObject* parent) : QSortFilterProxyModel(parent) {
  setSortRole(ModelloTabella::kOrdine);
  setSortCaseSensitivity(Qt::CaseInsensitive);
}

bool FiltroTabella::filterAcceptsRow(int riga, const QModelIndex&) const {
  return !passa || passa(static_cast<std::size_t>(riga));
}

// A screen reader hears the order, which the window draws.
QVariant FiltroTabella::headerData(int section, Qt::Orientation orientation, int role) const {
  QVariant dato = QSortFilterProxyModel::headerData(section, orientation, role);
  if (orientation != Qt::Horizontal || role != Qt::AccessibleTextRole || section != sortColumn()) return dato;
  const QString titolo = QSortFilterProxyModel::headerData(section, orientation, Qt::DisplayRole).toString();
  return titolo + (sortOrder() == Qt::DescendingOrder ? QStringLiteral(", in ordine decrescente")
                                                      : QStringLiteral(", in ordine crescente"));
}

}  // namespace cu::strumenti
