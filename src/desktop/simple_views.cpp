#include "desktop/simple_views.h"

#include <QCheckBox>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>

#include "desktop/form_window.h"
#include "desktop/layouter.h"
#include "desktop/look.h"
#include "desktop/qt_front_end.h"
#include "desktop/radio.h"
#include "desktop/section.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

// A label that wraps at the available width.
QLabel* wrapping(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

FrameView::FrameView(FormWindow& window, Frame& frame, QWidget* parent) : View(window, frame), frame_(frame) {
  if (frame.caption().empty() || isPage(frame)) {
    setWidget(new QWidget(parent));
  } else {
    section_ = new Section(parent);
    setWidget(section_);
  }
}

void FrameView::refresh() {
  if (section_ == nullptr) return;
  section_->setTitle(shown(control().caption()));
  section_->setAccessibleName(spoken(control().caption()));
  afterEvent();
}

// A section whose controls are all disabled themselves keeps them legible, and its texts selectable.
bool FrameView::reads() const {
  if (section_ == nullptr || !live() || frame_.enabled()) return false;
  const auto& controls = frame_.form().controls();
  return std::none_of(controls.begin(), controls.end(),
                      [this](const Control* each) { return each->frame() == &frame_ && each->enabled(); });
}

// A section without visible content takes no space.
void FrameView::afterEvent() {
  if (section_ == nullptr || !live()) return;
  section_->setEnabled(frame_.enabled() || reads());
  bool any = false;
  for (const Control* each : frame_.form().controls())
    any = any || (each->frame() == &frame_ && each->visible());
  section_->setMaximumHeight(any ? QWIDGETSIZE_MAX : 0);
}

LabelView::LabelView(FormWindow& window, Label& label, QWidget* parent)
    : View(window, label), label_(wrapping(parent)) {
  setWidget(label_);
}

void LabelView::refresh() {
  const QString text = lines(control().caption());
  // An ampersand is a mnemonic only where the label names a field: elsewhere it is shown as a character.
  label_->setText(text);
  // A screen reader would use the name of the section for a label without a name.
  label_->setAccessibleName(text.isEmpty() ? QStringLiteral(" ") : spoken(control().caption()));
  // An empty text takes no line.
  label_->setMaximumHeight(text.isEmpty() ? 0 : QWIDGETSIZE_MAX);
}

LinkView::LinkView(FormWindow& window, Link& link, QWidget* parent) : View(window, link) {
  auto* button = new QToolButton(parent);
  button->setAutoRaise(true);
  button->setCursor(Qt::PointingHandCursor);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  QFont font = button->font();
  font.setUnderline(true);
  button->setFont(font);
  look::inkAsLink(*button);
  button_ = button;
  setWidget(button);
  QObject::connect(button, &QToolButton::clicked, button, [this, &link] { act([&link] { link.click(); }); });
}

// A link names its target, such as a folder: it has no mnemonic.
void LinkView::refresh() {
  const QString text = shown(control().caption());
  button_->setText(QString(text).replace(u'&', QStringLiteral("&&")));
  button_->setAccessibleName(text);
}

ButtonView::ButtonView(FormWindow& window, Button& button, QWidget* parent)
    : View(window, button), model_(button), button_(new QPushButton(parent)) {
  setWidget(button_);
  auto* const push = static_cast<QPushButton*>(button_);
  push->setAutoDefault(false);
  push->setMinimumWidth(6 * push->fontMetrics().averageCharWidth() + 56);
  push->setDefault(button.form().defaultButton == &button);
  QObject::connect(button_, &QAbstractButton::clicked, button_,
                   [this, &button] { act([&button] { button.click(); }); });
}

void ButtonView::refresh() {
  button_->setText(shown(control().caption()));
  button_->setAccessibleName(spoken(control().caption()));
}

bool ButtonView::allows() {
  return !model_.drops || window().frontEnd().mayDrop(model_.form(), model_.drops());
}

OptionView::OptionView(FormWindow& window, Option& option, QWidget* parent)
    : View(window, option),
      option_(option),
      button_(new Radio([this](int step) { chooseNeighbour(step); }, parent)) {
  setWidget(button_);
  QObject::connect(button_, &QAbstractButton::clicked, button_, [this] { act([this] { option_.click(); }); });
}

void OptionView::refresh() {
  button_->setText(shown(option_.caption()));
  button_->setAccessibleName(spoken(option_.caption()));
  button_->setChecked(option_.value());
  afterEvent();
}

// The options of a frame are one tab stop: the one that is on, or the first where none is.
void OptionView::afterEvent() {
  if (!live()) return;
  const std::vector<Option*> options = group();
  const auto on =
      std::find_if(options.begin(), options.end(), [](const Option* option) { return option->value(); });
  const bool stop = !options.empty() && &option_ == (on != options.end() ? *on : options.front());
  button_->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
}

std::vector<Option*> OptionView::group() const {
  std::vector<Option*> options = option_.group();
  std::erase_if(options, [](const Option* option) { return !option->available(); });
  return options;
}

void OptionView::chooseNeighbour(int step) {
  if (!live()) return;
  const std::vector<Option*> options = group();
  const auto here = std::find(options.begin(), options.end(), &option_);
  if (here == options.end() || options.size() < 2) return;
  const auto count = static_cast<std::ptrdiff_t>(options.size());
  Option* const next = options[static_cast<std::size_t>((here - options.begin() + step + count) % count)];
  window().act(*next, [next] { next->click(); });
}

CheckView::CheckView(FormWindow& window, Check& check, QWidget* parent)
    : View(window, check), check_(check), button_(new QCheckBox(parent)) {
  setWidget(button_);
  QObject::connect(button_, &QAbstractButton::clicked, button_, [this] { act([this] { check_.click(); }); });
}

void CheckView::refresh() {
  button_->setText(shown(check_.caption()));
  button_->setAccessibleName(spoken(check_.caption()));
  button_->setChecked(check_.value());
}

}  // namespace cu::desktop
