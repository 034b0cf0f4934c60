#include "desktop/column_memory.h"

#include <QSettings>

namespace cu::desktop {

ColumnMemory::ColumnMemory(const QString& grid) : group_(QStringLiteral("griglie/") + grid) {}

int ColumnMemory::width(const QString& field) const {
  return QSettings().value(group_ + QStringLiteral("/larghezze/") + field, 0).toInt();
}

void ColumnMemory::setWidth(const QString& field, int width) {
  QSettings().setValue(group_ + QStringLiteral("/larghezze/") + field, width);
}

QStringList ColumnMemory::order() const {
  return QSettings().value(group_ + QStringLiteral("/ordine")).toStringList();
}

void ColumnMemory::setOrder(const QStringList& fields) {
  QSettings().setValue(group_ + QStringLiteral("/ordine"), fields);
}

QStringList ColumnMemory::hidden() const {
  return QSettings().value(group_ + QStringLiteral("/nascoste")).toStringList();
}

void ColumnMemory::setHidden(const QStringList& fields) {
  QSettings().setValue(group_ + QStringLiteral("/nascoste"), fields);
}

void ColumnMemory::forget() { QSettings().remove(group_); }

}  // namespace cu::desktop
