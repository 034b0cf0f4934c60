#include "apps/assistente/modello_celle.h"

#include <algorithm>
#include <utility>

namespace cu::assistente {
namespace {

constexpr qsizetype kMassimoMostrato = 500;

// In one line, and not longer than anybody reads.
QString cellaMostrata(std::string_view testo) {
  QString mostrata = QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size())).simplified();
  if (mostrata.size() > kMassimoMostrato) mostrata = mostrata.left(kMassimoMostrato) + u'…';
  return mostrata;
}

bool numerica(tabelle::Genere genere) {
  return genere == tabelle::Genere::Numero || genere == tabelle::Genere::Percentuale;
}

}  // namespace

void ModelloCelle::mostra(std::shared_ptr<const tabelle::Tabella> tabella) {
  beginResetModel();
  tabella_ = std::move(tabella);
  endResetModel();
}

int ModelloCelle::rowCount(const QModelIndex& parent) const {
  if (parent.isValid() || tabella_ == nullptr) return 0;
  return static_cast<int>(std::min<std::size_t>(kMostrate, tabella_->righe.size()));
}

int ModelloCelle::columnCount(const QModelIndex& parent) const {
  if (parent.isValid() || tabella_ == nullptr) return 0;
  return static_cast<int>(tabella_->intestazione.celle.size());
}

QVariant ModelloCelle::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || tabella_ == nullptr) return {};
  const tabelle::Cella cella =
      tabella_->righe[static_cast<std::size_t>(index.row())].cella(static_cast<std::size_t>(index.column()));
  if (role == Qt::DisplayRole) return cellaMostrata(cella.testo);
  if (role == Qt::TextAlignmentRole && numerica(cella.genere))
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

QVariant ModelloCelle::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || tabella_ == nullptr) return {};
  const auto quale = static_cast<std::size_t>(section);
  if (orientation == Qt::Vertical) return static_cast<qulonglong>(tabella_->righe[quale].numero);
  const QString titolo = cellaMostrata(tabella_->intestazione.cella(quale).testo);
  return titolo.isEmpty() ? QString::fromStdString(tabelle::letteraColonna(quale + 1)) : titolo;
}

}  // namespace cu::assistente
