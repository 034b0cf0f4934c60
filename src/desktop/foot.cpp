#include "desktop/foot.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "desktop/clear_style.h"
#include "desktop/look.h"
#include "desktop/status.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

// One line that is cut where the window is too narrow; the tooltip then shows the whole text.
class FootLine : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {60, QLabel::minimumSizeHint().height()}; }
  QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(whole_) + 2, QLabel::sizeHint().height()};
  }
  void setWhole(const QString& text) {
    whole_ = text;
    setAccessibleName(text);
    updateGeometry();
    cut();
  }
  const QString& whole() const { return whole_; }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    cut();
  }

 private:
  void cut() {
    const QString fitting = fontMetrics().elidedText(whole_, Qt::ElideRight, width());
    setText(fitting);
    setToolTip(fitting == whole_ ? QString() : sentenceTip(whole_));
  }
  QString whole_;
};

// Enter activates a link too: the key has no other meaning here.
class PathLink : public QToolButton {
 public:
  using QToolButton::QToolButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      click();
      return;
    }
    QToolButton::keyPressEvent(event);
  }
};

}  // namespace

Foot::Foot(QWidget* parent, std::function<void(const QString&)> open)
    : QWidget(parent),
      open_(std::move(open)),
      words_(new FootLine(this)),
      file_(link(QStringLiteral("Apri"), QStringLiteral("apriFile"))),
      folder_(link(QStringLiteral("Apri la cartella"), QStringLiteral("apriCartella"))),
      offered_(link({}, QStringLiteral("apriOfferta"))),
      bar_(new QProgressBar(this)),
      interruption_(new QPushButton(QStringLiteral("Interro&mpi"), this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 3, 12, 4);
  row->addWidget(words_);
  row->addWidget(file_);
  row->addWidget(folder_);
  row->addWidget(offered_);
  row->addStretch(1);
  row->addWidget(bar_);
  row->addWidget(interruption_);
  connect(file_, &QToolButton::clicked, this, [this] { open_(file_->property("path").toString()); });
  connect(folder_, &QToolButton::clicked, this, [this] { open_(folder_->property("path").toString()); });
  connect(offered_, &QToolButton::clicked, this, [this] {
    // What it opens can report a fact, which replaces the offer.
    const std::function<void()> run = further_;
    if (run) run();
  });
  words_->setMinimumHeight(
      file_->sizeHint().height());  // the links appear and disappear without moving anything
  words_->setTextFormat(Qt::PlainText);
  words_->setAccessibleDescription(QStringLiteral("Stato"));
  bar_->setFixedWidth(220);
  bar_->setFixedHeight(14);
  bar_->setTextVisible(false);
  bar_->setAccessibleName(QStringLiteral("Avanzamento"));
  // The bar keeps its space when it is hidden, so that nothing moves.
  QSizePolicy place = bar_->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  bar_->setSizePolicy(place);
  // Not in the focus chain: the key Esc interrupts.
  interruption_->setObjectName(QStringLiteral("interrompi"));
  interruption_->setFocusPolicy(Qt::NoFocus);
  interruption_->setProperty(kUsableWhileBusy, true);
  interruption_->setToolTip(QStringLiteral("Interrompe dopo il modulo o la pagina in corso (Esc)"));
  interruption_->setAccessibleDescription(interruption_->toolTip());
  interruption_->hide();
  rest({});
}

QToolButton* Foot::link(const QString& caption, const QString& name) {
  auto* const made = new PathLink(this);
  made->setObjectName(name);
  made->setText(caption);
  made->setAutoRaise(true);
  made->setCursor(Qt::PointingHandCursor);
  made->setFocusPolicy(Qt::TabFocus);
  QFont underlined = made->font();
  underlined.setUnderline(true);
  made->setFont(underlined);
  look::inkAsLink(*made);
  return made;
}

void Foot::offer(QToolButton& link, const QString& path) {
  link.setProperty("path", path);
  link.setToolTip(dataTip(path));
  link.setVisible(!path.isEmpty());
}

void Foot::offerFurther(const Offer& offer) {
  further_ = offer.run;
  offered_->setText(offer.caption);
  offered_->setToolTip(dataTip(offer.about));
  offered_->setVisible(!offer.caption.isEmpty());
}

QString Foot::words() const { return static_cast<const FootLine*>(words_)->whole(); }

void Foot::tell(const QString& what, std::size_t done, std::size_t total, const QString& remaining) {
  QString words = what;
  if (total > 0) {
    words += QStringLiteral(": %L1 di %L2").arg(done).arg(total);
    bar_->setRange(0, 100);
    bar_->setValue(static_cast<int>(done * 100 / total));
  } else {
    bar_->setRange(0, 0);
  }
  if (!remaining.isEmpty()) words += QStringLiteral(", ") + remaining;
  static_cast<FootLine*>(words_)->setWhole(words);
  offer(*file_, {});
  offer(*folder_, {});
  offerFurther({});
  bar_->setVisible(true);
}

void Foot::rest(const Status& status) {
  static_cast<FootLine*>(words_)->setWhole(status.words());
  offer(*file_, status.file());
  offer(*folder_, status.folder());
  offerFurther(status.offered());
  bar_->setRange(0, 100);
  bar_->reset();
  bar_->setVisible(false);
}

}  // namespace cu::desktop
