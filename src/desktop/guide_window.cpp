#include "desktop/guide_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desktop/first_size.h"
#include "desktop/guide_text.h"
#include "desktop/look.h"
#include "desktop/own_colours.h"

namespace cu::desktop {
namespace {

constexpr int kContents = 260;  // pixels
// A picture of a window of usual width is shown as large as it is; on a small screen it is reduced.
constexpr QSize kBegin(1400, 820);
constexpr int kChapterRole = Qt::UserRole;

}  // namespace

HelpWindow::HelpWindow(QWidget* parent, const QString& folder)
    : QWidget(parent, Qt::Window),
      text_(new GuideText(folder, this)),
      contents_(new QTreeWidget(this)),
      box_(new QLineEdit(this)),
      count_(new QLabel(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(QStringLiteral("Guida"));
  layOut();
  fillContents();
  const auto key = [this](const QKeySequence& keys, const std::function<void()>& action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  key(Qt::Key_Escape, [this] { close(); });
  key(QKeySequence::Find, [this] {
    box_->setFocus(Qt::ShortcutFocusReason);
    box_->selectAll();
  });
  key(Qt::Key_F3, [this] { step(false); });
  key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { step(true); });
  key(QKeySequence(Qt::CTRL | Qt::Key_F1), [this] { showChapter(QString::fromUtf8(kKeysChapter)); });
  connect(box_, &QLineEdit::textChanged, this, [this](const QString& now) { search(now); });
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* now) {
    if (now != nullptr && !going_) showChapter(now->data(0, kChapterRole).toString());
  });
  connect(text_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { follow(); });
  resize(firstSize(*this, kBegin));
  text_->setFocus();
  tell();
}

void HelpWindow::layOut() {
  auto* column = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  auto* caption = new QLabel(QStringLiteral("&Cerca nella guida"), this);
  caption->setBuddy(box_);
  box_->setAccessibleName(QStringLiteral("Cerca nella guida"));
  box_->setClearButtonEnabled(true);
  row->addWidget(caption);
  row->addWidget(box_, 1);
  const auto button = [&](const char* name, bool back) {
    auto* made = new QPushButton(QString::fromUtf8(name), this);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [this, back] { step(back); });
    row->addWidget(made);
    onHits_.push_back(made);
  };
  button("Prece&dente", true);
  button("Successiv&o", false);
  count_->setTextFormat(Qt::PlainText);
  count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance(QStringLiteral("Nessuna corrispondenza ")));
  row->addWidget(count_);
  column->addLayout(row);
  auto* sides = new QSplitter(Qt::Horizontal, this);
  sides->setChildrenCollapsible(false);
  sides->addWidget(contents_);
  sides->addWidget(text_);
  sides->setStretchFactor(1, 1);
  sides->setSizes({kContents, kBegin.width() - kContents});
  column->addWidget(sides, 1);
}

void HelpWindow::fillContents() {
  contents_->setAccessibleName(QStringLiteral("Indice della guida"));
  contents_->setHeaderHidden(true);
  contents_->setMinimumWidth(kContents / 2);
  QTreeWidgetItem* chapter = nullptr;
  for (const GuideText::Heading& each : text_->headings()) {
    // The title of the guide is no chapter.
    if (each.level == 1) {
      items_.push_back(nullptr);
      continue;
    }
    auto* const item =
        each.level == 2 || chapter == nullptr ? new QTreeWidgetItem(contents_) : new QTreeWidgetItem(chapter);
    if (each.level == 2) chapter = item;
    item->setText(0, each.text);
    item->setToolTip(0, each.text);
    item->setData(0, kChapterRole, each.text);
    items_.push_back(item);
  }
  contents_->expandAll();
}

// The chapter that is read is the current one in the contents.
void HelpWindow::follow() {
  if (!going_) markChapter(text_->headingSeen());
}

void HelpWindow::markChapter(int heading) {
  if (heading < 0) return;
  QTreeWidgetItem* const item = items_[static_cast<std::size_t>(heading)];
  if (item == contents_->currentItem()) return;
  going_ = true;
  contents_->setCurrentItem(item);
  going_ = false;
}

// The place may be far below what is seen first, in another chapter.
void HelpWindow::goToHit() {
  going_ = true;
  text_->mark(hits_, at_);
  going_ = false;
  if (at_ < hits_.size()) markChapter(text_->headingAt(hits_[at_].from));
  tell();
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
  going_ = true;
  text_->goTo(chapter_);
  for (QTreeWidgetItem* item : items_) {
    if (item != nullptr && item->text(0) == chapter_) contents_->setCurrentItem(item);
  }
  going_ = false;
}

void HelpWindow::search(const QString& text) {
  searched_ = text.simplified();
  hits_ = text_->places(searched_);
  at_ = text_->firstBelow(hits_);
  goToHit();
}

void HelpWindow::step(bool back) {
  if (hits_.empty()) return;
  at_ = (at_ + (back ? hits_.size() - 1 : 1)) % hits_.size();
  goToHit();
}

QString HelpWindow::words() const {
  if (searched_.isEmpty()) return {};
  if (hits_.empty()) return QStringLiteral("Nessuna corrispondenza");
  return QStringLiteral("%L1 di %L2").arg(at_ + 1).arg(hits_.size());
}

void HelpWindow::tell() {
  count_->setText(words());
  const bool none = hits_.empty() && !searched_.isEmpty();
  setOwnColours(*count_, [none](QPalette& colours) {
    if (none) colours.setColor(QPalette::WindowText, look::warningInk());
  });
  box_->setAccessibleDescription(words());
  for (QWidget* each : onHits_) each->setEnabled(!hits_.empty());
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && box_->hasFocus()) {
    step(event->modifiers().testFlag(Qt::ShiftModifier));
  } else {
    QWidget::keyPressEvent(event);
  }
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

void addGuideKeys(QWidget* window, const std::function<void(const QString& chapter)>& open) {
  const auto add = [&](const QKeySequence& keys, const QString& chapter) {
    QObject::connect(new QShortcut(keys, window), &QShortcut::activated, window,
                     [open, chapter] { open(chapter); });
  };
  add(Qt::Key_F1, {});
  add(QKeySequence(Qt::CTRL | Qt::Key_F1), QString::fromUtf8(kKeysChapter));
}

}  // namespace cu::desktop
