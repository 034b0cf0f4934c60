#include "desktop/reading_windows.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

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

// A picture is no wider than the text.
class GuidePages : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;
  QVariant loadResource(int type, const QUrl& name) override {
    QVariant loaded = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) return loaded;
    QImage picture;
    if (loaded.typeId() == QMetaType::QByteArray) {
      picture.loadFromData(loaded.toByteArray());
    } else {
      picture = loaded.value<QImage>();
    }
    if (picture.isNull() || picture.width() <= kPictureWidth) return loaded;
    const double scale = devicePixelRatioF();
    picture = picture.scaledToWidth(
        static_cast<int>(std::min<double>(kPictureWidth * scale, picture.width())), Qt::SmoothTransformation);
    picture.setDevicePixelRatio(picture.width() / static_cast<double>(kPictureWidth));
    return picture;
  }

 private:
  static constexpr int kPictureWidth = 800;
};

}  // namespace

HelpWindow::HelpWindow(QWidget* parent, const QString& folder)
    : QWidget(parent, Qt::Window), text_(new GuidePages(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(QStringLiteral("Guida"));
  auto* column = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  auto* caption = new QLabel(QStringLiteral("&Cerca nella guida"), this);
  auto* box = new QLineEdit(this);
  caption->setBuddy(box);
  box->setAccessibleName(QStringLiteral("Cerca nella guida"));
  row->addWidget(caption);
  row->addWidget(box, 1);
  column->addLayout(row);
  column->addWidget(text_, 1);
  text_->setAccessibleName(QStringLiteral("Guida"));
  text_->setOpenExternalLinks(true);
  text_->setSearchPaths({folder});
  QFile file(folder + QStringLiteral("/guida.md"));
  if (file.open(QIODevice::ReadOnly)) {
    text_->document()->setBaseUrl(QUrl::fromLocalFile(folder + u'/'));
    text_->setMarkdown(QString::fromUtf8(file.readAll()));
  } else {
    text_->setPlainText(QStringLiteral("La guida non è installata: manca %1.").arg(file.fileName()));
  }
  connect(box, &QLineEdit::returnPressed, this, [this, box] {
    if (text_->find(box->text())) return;
    text_->moveCursor(QTextCursor::Start);
    text_->find(box->text());
  });
  closeByEscape(*this);
  resize(880, 720);
  text_->setFocus();
}

void HelpWindow::showChapter(const QString& heading) {
  chapter_ = heading;
  if (isVisible()) goToChapter();
}

// The position of a heading is known after the page has its width.
void HelpWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  QMetaObject::invokeMethod(
      this, [this] { goToChapter(); }, Qt::QueuedConnection);
}

void HelpWindow::goToChapter() {
  const QTextDocument& guide = *text_->document();
  QTextBlock block = guide.begin();
  while (block.isValid() && (block.blockFormat().headingLevel() == 0 || block.text() != chapter_)) {
    block = block.next();
  }
  if (!block.isValid()) block = guide.begin();
  text_->setTextCursor(QTextCursor(block));
  const QRectF place = guide.documentLayout()->blockBoundingRect(block);
  text_->verticalScrollBar()->setValue(static_cast<int>(place.top()));
}

void openGuide(QPointer<HelpWindow>& guide, QWidget* parent, const QString& folder, const QString& chapter) {
  if (guide != nullptr && guide->parentWidget() != parent) {
    HelpWindow* const old = guide;
    guide.clear();
    delete old;
  }
  if (guide == nullptr) guide = new HelpWindow(parent, folder);
  guide->showChapter(chapter);
  guide->show();
  guide->raise();
  guide->activateWindow();
}

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
  resize(960, 560);
}

}  // namespace cu::desktop
