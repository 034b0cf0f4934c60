#pragma once

#include <QAbstractListModel>
#include <QFile>
#include <QWidget>
#include <vector>

namespace cu::desktop {

// The lines of a text file of any size, each decoded when it is shown.
class FileLines : public QAbstractListModel {
 public:
  explicit FileLines(const QString& path, QObject* parent = nullptr);
  bool readable() const { return data_ != nullptr; }
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QFile file_;
  const char* data_ = nullptr;
  std::vector<qint64> starts_;  // one more than the number of lines
};

// Shows a text file.
class TextWindow : public QWidget {
 public:
  TextWindow(QWidget* parent, const QString& path);
};

}  // namespace cu::desktop
