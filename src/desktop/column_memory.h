#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace cu::desktop {

// The widths and the order that a person has given the columns of a grid, kept for the person, not for the
// program's data.
class ColumnMemory {
 public:
  explicit ColumnMemory(const QString& grid);
  // 0 where the person has said nothing.
  int width(const QString& field) const;
  void setWidth(const QString& field, int width);
  // Fields from left to right; empty where the person has said nothing.
  QStringList order() const;
  void setOrder(const QStringList& fields);
  void forget();

 private:
  QString group_;
};

}  // namespace cu::desktop
