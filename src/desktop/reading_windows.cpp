#include "desktop/reading_windows.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QListView>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/first_size.h"

namespace cu::desktop {
namespace {

void closeByEscape(QWidget& window) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_Escape), &window);
  QObject::connect(key, &QShortcut::activated, &window, [&window] { window.close(); });
}

QLabel* plainLabel(const QString& text, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

}  // namespace

FileLines::FileLines(const QString& path, QObject* parent) : QAbstractListModel(parent), file_(path) {
  starts_.push_back(0);
  if (!file_.open(QIODevice::ReadOnly)) return;
  const qint64 size = file_.size();
  data_ = reinterpret_cast<const char*>(size > 0 ? file_.map(0, size) : nullptr);
  if (data_ == nullptr) return;
  for (qint64 at = 0; at < size; ++at) {
    if (data_[at] == '\n') starts_.push_back(at + 1);
  }
  if (starts_.back() != size) starts_.push_back(size);
}

int FileLines::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(starts_.size()) - 1;
}

QVariant FileLines::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole) return {};
  const auto row = static_cast<std::size_t>(index.row());
  QByteArray line(data_ + starts_[row], starts_[row + 1] - starts_[row]);
  while (line.endsWith('\n') || line.endsWith('\r')) line.chop(1);
  const QString text = QString::fromUtf8(line);
  return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(line) : text;
}

TextWindow::TextWindow(QWidget* parent, const QString& path) : QWidget(parent, Qt::Window) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(QFileInfo(path).fileName());
  auto* column = new QVBoxLayout(this);
  auto* model = new FileLines(path, this);
  if (!model->readable())
    column->addWidget(plainLabel(QStringLiteral("%1 è vuoto o non si può leggere.").arg(path), this));
  auto* view = new QListView(this);
  view->setModel(model);
  view->setUniformItemSizes(true);
  view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  view->setAccessibleName(QStringLiteral("Righe del file"));
  column->addWidget(view, 1);
  closeByEscape(*this);
  resize(firstSize(*this, {960, 560}));
}

}  // namespace cu::desktop
