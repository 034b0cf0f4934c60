#include "desktop/layouter.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/grid.h"
#include "controls/listbox.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/selector.h"
#include "controls/tabs.h"
#include "desktop/cells.h"
#include "desktop/change_mark.h"
#include "desktop/edit_view.h"
#include "desktop/follow_letters.h"
#include "desktop/simple_views.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kSpacing = 8;
constexpr std::size_t kCellsFrom =
    3;  // the number of captioned fields from which a section consists of boxes

// A box for a known number of characters is not wider than they are.
void limitWidth(QWidget& widget, const Control& control) {
  auto* const line = qobject_cast<QLineEdit*>(&widget);
  if (line == nullptr) return;
  const auto* const box = dynamic_cast<const EditBox*>(&control);
  const bool numeric = dynamic_cast<const NumericBox*>(&control) != nullptr;
  const bool limited = box != nullptr && box->maxLength() > 0 && box->maxLength() < 40;
  if (!numeric && !limited) return;
  const int letters = numeric ? 18 : static_cast<int>(box->maxLength() + 2);
  followLetters(*line, [line, numeric, letters] {
    const int width = letters * line->fontMetrics().horizontalAdvance(u'M');
    line->setMaximumWidth(width);
    if (!numeric) line->setMinimumWidth(width);
  });
}

// The pages of an editor consist of boxes only.
bool onEditorPage(const std::vector<Control*>& controls) {
  if (controls.empty() || !controls.front()->form().stages().empty()) return false;
  for (const Frame* frame = controls.front()->frame(); frame != nullptr; frame = frame->frame()) {
    if (isPage(*frame)) return true;
  }
  return false;
}

// Places `text` directly below the field of a row, which keeps its caption next to it: an empty text takes no
// space.
bool hang(QGridLayout& grid, int row, QWidget* text) {
  QLayoutItem* const field = grid.itemAtPosition(row, 1);
  if (field == nullptr || field->widget() == nullptr) return false;
  QWidget* const widget = field->widget();
  if (QLayoutItem* const caption = grid.itemAtPosition(row, 0); caption != nullptr && caption != field) {
    caption->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    if (caption->widget() != nullptr) caption->widget()->setMinimumHeight(widget->sizeHint().height());
  }
  grid.removeWidget(widget);
  auto* both = new QVBoxLayout;
  both->setSpacing(0);
  both->addWidget(widget);
  both->addWidget(text);
  grid.addLayout(both, row, 1);
  return true;
}

// "101 Codice fiscale" and "105 Codice fiscale" are the same caption.
QString withoutNumber(const QString& caption) {
  return caption.isEmpty() || !caption[0].isDigit() ? caption : caption.section(u' ', 1);
}

int mostColumnsOf(const Control& control, Cell::Width width) {
  constexpr int kAll = 9;
  if (width == Cell::Width::Widest) return kAll;
  if (dynamic_cast<const ListBox*>(&control) != nullptr) return 3;
  // A long text, or a read-only name.
  const auto* const text = dynamic_cast<const TextBox*>(&control);
  if (text != nullptr && text->longText) return 2;
  return text != nullptr && text->locked() && text->maxLength() == 0 ? 2 : 1;
}

bool namesNext(const Label& label, const Control& next) {
  if (label.buddy != nullptr) return label.buddy == &next;
  return next.caption().empty();
}

}  // namespace

bool isPage(const Frame& frame) {
  const Form& form = frame.form();
  for (const Frame* stage : form.stages()) {
    if (stage == &frame) return true;
  }
  for (Control* control : form.controls()) {
    const auto* const tabs = dynamic_cast<Tabs*>(control);
    if (tabs == nullptr) continue;
    for (const Tabs::Tab& tab : tabs->tabs()) {
      if (tab.page == &frame) return true;
    }
  }
  return form.scroll() != nullptr && frame.frame() == nullptr;
}

ContentArea::ContentArea(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setFocusPolicy(Qt::NoFocus);
}

QSize ContentArea::sizeHint() const {
  if (widget() == nullptr) return QScrollArea::sizeHint();
  QSize hint = widget()->sizeHint().expandedTo(widget()->minimumSize());
  if (widget()->layout() != nullptr && widget()->layout()->hasHeightForWidth()) {
    hint.setHeight(widget()->layout()->heightForWidth(hint.width()));
  }
  return hint + QSize(verticalScrollBar()->sizeHint().width(), 2);
}

int ContentArea::missingHeight() const {
  const QLayout* const layout = widget() == nullptr ? nullptr : widget()->layout();
  if (layout == nullptr) return 0;
  const int needed = layout->hasHeightForWidth() ? layout->totalHeightForWidth(viewport()->width())
                                                 : layout->totalSizeHint().height();
  return needed - viewport()->height();
}

std::vector<Control*> Layouter::inside(const Frame* frame) const {
  std::vector<Control*> found;
  for (Control* control : window_.form().controls()) {
    if (control->frame() == frame) found.push_back(control);
  }
  return found;
}

void Layouter::fillFrame(Frame& frame) {
  QWidget* const into = window_.view(frame)->widget();
  fill(into, inside(&frame));
  // A frame without a border has no margins.
  if (frame.caption().empty() && into->layout() != nullptr) into->layout()->setContentsMargins(0, 0, 0, 0);
}

bool Layouter::holdsOne(const Control& control) const {
  const auto* const frame = dynamic_cast<const Frame*>(&control);
  if (frame == nullptr) return false;
  const auto held = inside(frame);
  return held.size() == 1 && kindOf(*held.front()) == Kind::Field && held.front()->caption().empty();
}

void Layouter::fill(QWidget* into, const std::vector<Control*>& controls) {
  const bool boxes = onEditorPage(controls);
  const auto captioned = std::count_if(controls.begin(), controls.end(), [boxes](Control* control) {
    const Kind kind = kindOf(*control);
    if (const auto* const label = dynamic_cast<Label*>(control)) return boxes && label->buddy != nullptr;
    return (kind == Kind::Field || kind == Kind::Check) && !control->caption().empty();
  });
  const bool frames = std::any_of(controls.begin(), controls.end(),
                                  [](Control* control) { return kindOf(*control) == Kind::Frame; });
  if (static_cast<std::size_t>(captioned) >= (boxes ? 1 : kCellsFrom) && !frames) {
    cells(into, controls);
    return;
  }
  auto* grid = new QGridLayout(into);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(kSpacing);
  grid->setColumnStretch(1, 1);
  Row row{*grid};
  for (std::size_t at = 0; at < controls.size();) at += place(row, controls, at);
}

// Places the control at `at` with those that belong to it; returns their number.
std::size_t Layouter::place(Row& row, const std::vector<Control*>& controls, std::size_t at) {
  Control& control = *controls[at];
  QWidget* const into = row.grid.parentWidget();
  const Kind kind = kindOf(control);
  switch (kind) {
    case Kind::Frame:
      return placeFrames(row, controls, at);
    case Kind::Label:
      return placeLabel(row, controls, at);
    case Kind::Option:
    case Kind::Button:
    case Kind::Link: {
      std::vector<Control*> run;
      for (std::size_t i = at; i < controls.size() && kindOf(*controls[i]) == kind; ++i) {
        run.push_back(controls[i]);
      }
      together(row, run);
      return run.size();
    }
    case Kind::Check:
      row.grid.addWidget(window_.make(control, into).widget(), row.next++, 0, 1, 2, Qt::AlignLeft);
      return 1;
    case Kind::Field:
      return placeField(row, controls, at);
    case Kind::Wide: {
      View& made = window_.make(control, into);
      const bool grows = dynamic_cast<Grid*>(&control) != nullptr;
      row.grid.addWidget(made.widget(), row.next, 0, 1, 2);
      if (grows) row.grid.setRowStretch(row.next, 1);
      ++row.next;
      return 1;
    }
  }
  return 1;
}

// Sections of a page with one field each are placed side by side.
std::size_t Layouter::placeFrames(Row& row, const std::vector<Control*>& controls, std::size_t at) {
  std::size_t count = 0;
  while (onEditorPage(controls) && at + count < controls.size() && holdsOne(*controls[at + count])) ++count;
  if (count < 2) count = 1;
  auto* beside = new QHBoxLayout;
  beside->setSpacing(kSpacing);
  row.grid.addLayout(beside, row.next++, 0, 1, 2);
  for (std::size_t i = at; i < at + count; ++i) {
    auto& frame = static_cast<Frame&>(*controls[i]);
    beside->addWidget(window_.make(frame, row.grid.parentWidget()).widget(), 1);
    fillFrame(frame);
  }
  return count;
}

std::size_t Layouter::placeLabel(Row& row, const std::vector<Control*>& controls, std::size_t at) {
  auto& label = static_cast<Label&>(*controls[at]);
  Control* const next = at + 1 < controls.size() ? controls[at + 1] : nullptr;
  if (next != nullptr && kindOf(*next) == Kind::Field && namesNext(label, *next)) {
    field(row, *next, &label);
    return 2;
  }
  // A text of its own; behind a field it belongs below that field.
  const bool below = at > 0 && kindOf(*controls[at - 1]) == Kind::Field;
  QWidget* const text = window_.make(label, row.grid.parentWidget()).widget();
  if (!below || !hang(row.grid, row.next - 1, text)) row.grid.addWidget(text, row.next++, 0, 1, 2);
  return 1;
}

// A button behind a field without a label is placed beside it.
std::size_t Layouter::placeField(Row& row, const std::vector<Control*>& controls, std::size_t at) {
  Control& control = *controls[at];
  Control* const next = at + 1 < controls.size() ? controls[at + 1] : nullptr;
  if (!control.caption().empty() || next == nullptr || kindOf(*next) != Kind::Button) {
    field(row, control, nullptr);
    return 1;
  }
  auto* beside = new QHBoxLayout;
  row.grid.addLayout(beside, row.next++, 0, 1, 2);
  fillRow(*beside, {&control, next});
  auto* note = new QLabel(row.grid.parentWidget());
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);
  note->setObjectName(shown(control.name()) + QStringLiteral(".nota"));
  row.grid.addWidget(note, row.next++, 0, 1, 2);
  window_.view(control)->setNoteLabel(note);
  return 2;
}

void Layouter::field(Row& row, Control& control, Label* label) {
  QWidget* const into = row.grid.parentWidget();
  const bool captioned = label != nullptr || !control.caption().empty();
  QLabel* caption = nullptr;
  if (label != nullptr) {
    auto& made = static_cast<LabelView&>(window_.make(*label, into));
    caption = made.label();
    caption->setWordWrap(false);
  } else if (captioned) {
    caption = new QLabel(into);
  }
  View& shownBy = window_.make(control, into);
  limitWidth(*shownBy.widget(), control);
  if (label != nullptr) {
    caption->setBuddy(shownBy.focusWidgets().value(0, shownBy.widget()));
    shownBy.setSpokenName(spoken(label->caption()));
  } else if (captioned) {
    shownBy.setCaptionLabel(caption);
    shownBy.setSpokenName(spoken(control.caption()));
  }
  if (caption != nullptr) row.grid.addWidget(caption, row.next, 0, Qt::AlignLeft | Qt::AlignVCenter);
  const QWidget* const widget = shownBy.widget();
  const bool list =
      dynamic_cast<ListBox*>(&control) != nullptr || widget->minimumWidth() == widget->maximumWidth();
  row.grid.addWidget(shownBy.widget(), row.next++, captioned ? 1 : 0, 1, captioned ? 1 : 2,
                     list ? Qt::AlignLeft : Qt::Alignment());
}

void Layouter::together(Row& row, const std::vector<Control*>& run) {
  std::size_t letters = 0;
  for (const Control* control : run) letters += control->caption().size();
  constexpr std::size_t kOneLine = 80;
  if (letters > kOneLine) {
    for (Control* control : run) {
      row.grid.addWidget(window_.make(*control, row.grid.parentWidget()).widget(), row.next++, 0, 1, 2,
                         Qt::AlignLeft);
    }
    return;
  }
  auto* side = new QHBoxLayout;
  side->setSpacing(2 * kSpacing);
  row.grid.addLayout(side, row.next++, 0, 1, 2);
  fillRow(*side, run);
  side->addStretch(1);
}

void Layouter::fillRow(QBoxLayout& row, const std::vector<Control*>& controls) {
  QWidget* const into = row.parentWidget();
  row.setSpacing(8);
  for (Control* control : controls) {
    View& made = window_.make(*control, into);
    row.addWidget(made.widget(), kindOf(*control) == Kind::Field ? 1 : 0);
  }
}

void Layouter::cells(QWidget* into, const std::vector<Control*>& controls) {
  auto* box = new CellBox(into);
  auto* around = new QGridLayout(into);
  // The cells have margins of their own.
  around->setContentsMargins(6, 5, 6, 5);
  around->addWidget(box);
  for (std::size_t at = 0; at < controls.size(); ++at) {
    auto* const label = dynamic_cast<Label*>(controls[at]);
    const bool names = label != nullptr && label->buddy != nullptr && at + 1 < controls.size() &&
                       controls[at + 1] == label->buddy;
    if (names) ++at;
    cell(box, *controls[at], names ? label : nullptr);
  }
}

void Layouter::cell(QWidget* into, Control& control, Label* label) {
  auto& box = static_cast<CellBox&>(*into);
  Cell& cell = box.add();
  const Kind kind = kindOf(control);
  View* title = label == nullptr ? nullptr : &window_.make(*label, &cell);
  View& shownBy = window_.make(control, &cell);
  const bool ownCaption =
      kind == Kind::Check || kind == Kind::Button || kind == Kind::Label || kind == Kind::Link;
  using Width = Cell::Width;
  Width width = Width::Narrow;
  if (dynamic_cast<ListBox*>(&control) != nullptr || dynamic_cast<Picker*>(&control) != nullptr) {
    width = Width::Wide;
  } else if (dynamic_cast<Selector*>(&control) != nullptr) {
    width = Width::Widest;
  }
  // Field and note side by side.
  if (!control.note().empty()) width = Width::Wide;
  const std::string& caption = label == nullptr ? control.caption() : label->caption();
  cell.setNumber(shown(control.boxNumber));
  if (title != nullptr) {
    cell.setTitle(title->widget());
  } else if (!ownCaption) {
    QLabel* const text = cell.addTitle();
    shownBy.setCaptionLabel(text);
  }
  cell.mostColumns = mostColumnsOf(control, width);
  cell.asks = withoutNumber(spoken(caption));
  cell.setContent(shownBy.widget());
  if (!control.note().empty()) shownBy.setNoteLabel(cell.addNote());
  if (kind == Kind::Label) {
    QLabel* const text = static_cast<LabelView&>(shownBy).label();
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text->setFocusPolicy(Qt::NoFocus);
  }
  if (control.differs) {
    FormWindow& window = window_;
    shownBy.setChangeMark(new ChangeMark(
        cell, *shownBy.widget(), [&window, &control](const Event& enter) { window.act(control, enter); }));
  }
  box.setWidth(cell, width);
  if (!shownBy.focusWidgets().isEmpty()) shownBy.setSpokenName(spoken(caption));
}

void Layouter::nameAll() {
  for (Control* control : window_.form().controls()) {
    View* const shownBy = window_.view(*control);
    if (shownBy == nullptr || shownBy->focusWidgets().isEmpty() || !shownBy->spokenName().isEmpty()) continue;
    QString name = spoken(control->caption());
    // Without a caption of its own it has the name of its section.
    for (const Frame* frame = control->frame(); name.isEmpty() && frame != nullptr; frame = frame->frame()) {
      name = spoken(frame->caption());
    }
    if (name.isEmpty())
      name = dynamic_cast<Grid*>(control) != nullptr ? QStringLiteral("Elenco") : shown(control->name());
    const bool ownCaption = !control->caption().empty() && kindOf(*control) != Kind::Field;
    if (!ownCaption) shownBy->setSpokenName(name);
  }
}

}  // namespace cu::desktop
