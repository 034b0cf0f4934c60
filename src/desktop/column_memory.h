#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace cu::desktop {

// The user's widths, order and choice of a grid's columns, stored per user and not with the program's data.
class ColumnMemory {
 public:
  explicit ColumnMemory(const QString& grid);
  // 0 where the user has set none.
  int width(const QString& field) const;
  void setWidth(const QString& field, int width);
  // Fields from left to right; empty where the user has set no order.
  QStringList order() const;
  void setOrder(const QStringList& fields);
  // Fields that the user has hidden.
  QStringList hidden() const;
  void setHidden(const QStringList& fields);
  void forget();

 private:
  QString group_;
};

}  // namespace cu::desktop
