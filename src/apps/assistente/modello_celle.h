#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "tabelle/tabella.h"

namespace cu::assistente {

// The first rows of a table as they were read, with their numbers in the file.
class ModelloCelle : public QAbstractTableModel {
 public:
  static constexpr int kMostrate = 100;

  using QAbstractTableModel::QAbstractTableModel;
  void mostra(std::shared_ptr<const tabelle::Tabella> tabella);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::shared_ptr<const tabelle::Tabella> tabella_;
};

}  // namespace cu::assistente
