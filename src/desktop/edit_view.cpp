#include "desktop/edit_view.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QToolButton>
#include <QToolTip>
#include <QWidgetAction>
#include <optional>
#include <utility>

#include "base/text.h"
#include "controls/form.h"
#include "controls/numericbox.h"
#include "desktop/follow_letters.h"
#include "desktop/form_window.h"
#include "desktop/own_colours.h"
#include "desktop/reading_line.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu::desktop {
namespace {

constexpr const char* kOnFace = "suSfondo";  // of a box: whether it has the window's background

// A line that selects its whole content when it gets the focus by the keyboard or the first click, so that
// typing replaces it. When the focus returns from another window or a menu, nothing is selected, and typing
// continues.
class Line : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  QString keypadMark;

  // The selection being replaced by a key: only this shows that a letter was typed over an equal one.
  struct Replaced {
    int at = 0;
    int count = 0;
  };
  std::optional<Replaced> replacing;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    byMouse_ = event->reason() == Qt::MouseFocusReason;
    if (!std::exchange(away_, false)) selectAll();
  }
  void focusOutEvent(QFocusEvent* event) override {
    QLineEdit::focusOutEvent(event);
    away_ = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    QLineEdit::mouseReleaseEvent(event);
    if (byMouse_ && !hasSelectedText()) selectAll();
    byMouse_ = false;
  }
  void keyPressEvent(QKeyEvent* event) override {
    const int at = hasSelectedText() ? selectionStart() : cursorPosition();
    replacing = Replaced{at, static_cast<int>(selectedText().size())};
    take(event);
    replacing.reset();
  }

 private:
  void take(QKeyEvent* event) {
    const bool mark = event->key() == Qt::Key_Period || event->key() == Qt::Key_Comma;
    if (mark && event->modifiers().testFlag(Qt::KeypadModifier) && !keypadMark.isEmpty() && !isReadOnly()) {
      insert(keypadMark);
      return;
    }
    QLineEdit::keyPressEvent(event);
  }

  bool byMouse_ = false;
  bool away_ = false;
};

// The change from `before` to `now`; the cursor is after the inserted text.
EditView::Difference difference(const std::u32string& before, const std::u32string& now, std::size_t cursor) {
  const std::size_t tail = now.size() - std::min(cursor, now.size());
  std::size_t behind = 0;
  while (behind < tail && behind < before.size() &&
         before[before.size() - 1 - behind] == now[now.size() - 1 - behind]) {
    ++behind;
  }
  std::size_t at = 0;
  while (at < before.size() - behind && at < now.size() - behind && before[at] == now[at]) ++at;
  return {at, before.size() - behind - at, now.substr(at, now.size() - behind - at)};
}

bool isControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029; }

// Removes control characters, such as the line breaks of a copied cell or paragraph: at the ends they are
// dropped, inside the text they become one blank. Returns whether there were any.
bool makeOneLine(std::u32string& text) {
  std::u32string line;
  for (const char32_t c : text) {
    if (!isControl(c)) {
      line += c;
    } else if (!line.empty() && line.back() != U' ') {
      line += U' ';
    }
  }
  if (line == text) return false;
  if (!text.empty() && isControl(text.back()) && !line.empty() && line.back() == U' ') line.pop_back();
  text = std::move(line);
  return true;
}

// Whether the text may become a date: "3", "31/0", "5/3/201", but not "31/02/2".
bool onItsWay(const QString& text) {
  static const QRegularExpression kBeginning(
      QStringLiteral("^(?:\\d{0,2}|\\d{1,2}/\\d{0,2}|(\\d{1,2}/\\d{1,2}/)\\d{0,3})$"));
  const QRegularExpressionMatch match = kBeginning.match(text);
  if (!match.hasMatch()) return false;
  // 29 February depends on the year.
  return !match.hasCaptured(1) || Date::parseItalian(utf8(match.captured(1) + QStringLiteral("2000")));
}

std::u32string points(const QString& text) { return text.toStdU32String(); }

std::string utf8Of(const std::u32string& text) {
  std::string bytes;
  for (const char32_t point : text) appendUtf8(bytes, point);
  return bytes;
}

}  // namespace

void paintBackground(QWidget& widget, Background background) {
  const bool face = background == Background::Face;
  if (widget.property(kOnFace).isValid() && widget.property(kOnFace).toBool() == face) return;
  widget.setProperty(kOnFace, face);
  setOwnColours(widget, [face](QPalette& palette) {
    if (face) palette.setBrush(QPalette::Base, palette.brush(QPalette::Window));
  });
}

EditView::EditView(FormWindow& window, EditBox& box, QWidget* parent)
    : View(window, box), box_(box), line_(new Line(parent)) {
  setWidget(line_);
  tellWhole(*line_);
  QObject::connect(line_, &QLineEdit::textEdited, line_, [this](const QString& now) {
    if (!live()) return;
    if (!before_) before_ = Before{box_.stored(), box_.restorer()};
    edited(now);
  });
}

// The box already has the text typed; when the focus leaves, it becomes final.
void EditView::commit() {
  if (live() && box_.form().focus() != &box_) before_.reset();
}

bool EditView::takeBack() {
  if (!live() || !before_) return false;
  const Before before = *std::exchange(before_, std::nullopt);
  if (box_.stored() == before.text) return false;
  act(before.restore);
  line_->selectAll();
  return true;
}

QList<QWidget*> EditView::focusWidgets() const { return {line_}; }

// For a key the replaced selection is known; for all other changes the texts before and after are compared.
EditView::Difference EditView::whatWasDone(const std::u32string& before, const std::u32string& now) const {
  const QString text = QString::fromStdU32String(now);
  const int cursor = line_->cursorPosition();
  const auto& replacing = static_cast<const Line*>(line_)->replacing;
  if (replacing && cursor > replacing->at) {
    const QString old = QString::fromStdU32String(before);
    return {points(old.left(replacing->at)).size(), points(old.mid(replacing->at, replacing->count)).size(),
            points(text.mid(replacing->at, cursor - replacing->at))};
  }
  return difference(before, now, points(text.left(cursor)).size());
}

void EditView::edited(const QString& now) {
  const std::u32string before = points(shown(box_.text()));
  const std::u32string after = points(now);
  Difference what = whatWasDone(before, after);
  const bool cleaned = makeOneLine(what.inserted);
  bool taken = false;
  act([&] {
    if (what.inserted.empty()) {
      taken = box_.eraseAt(what.at, what.removed);
    } else if (what.inserted.size() == 1) {
      taken = box_.typeAt(what.at, what.removed, what.inserted.front());
    } else {
      taken = box_.pasteAt(what.at, what.removed, utf8Of(what.inserted));
    }
  });
  if (!live()) return;
  if (line_->text() != now) line_->setText(shown(box_.text()));
  if (!taken) {
    const std::u32string start = before.substr(0, what.at + what.removed);
    line_->setCursorPosition(static_cast<int>(QString::fromStdU32String(start).size()));
    // What was to be replaced stays selected: the next key replaces it.
    const auto& replacing = static_cast<const Line*>(line_)->replacing;
    if (replacing && replacing->count > 0) line_->setSelection(replacing->at, replacing->count);
  }
  tellRefused(taken ? QString() : QString::fromStdU32String(what.inserted).simplified());
  if (taken && cleaned) {
    const std::u32string start = points(line_->text()).substr(0, what.at + what.inserted.size());
    line_->setCursorPosition(static_cast<int>(QString::fromStdU32String(start).size()));
  }
}

// Beside the box, until the next key.
void EditView::tellRefused(const QString& inserted) {
  const QString expected = inserted.isEmpty() ? QString() : expects();
  if (expected.isEmpty()) {
    if (std::exchange(refusing_, false)) QToolTip::hideText();
    return;
  }
  constexpr int kMost = 24;
  const QString shortened = inserted.size() > kMost ? inserted.left(kMost) + QStringLiteral("…") : inserted;
  refusing_ = true;
  QToolTip::showText(line_->mapToGlobal(QPoint(0, line_->height())),
                     dataTip(QStringLiteral("«%1» qui non si può scrivere: %2").arg(shortened, expected)),
                     line_);
}

void EditView::refresh() {
  const QString text = shown(box_.text());
  if (line_->text() != text) {
    const int cursor = line_->cursorPosition();
    const bool all = line_->hasFocus() && line_->selectedText() == line_->text();
    line_->setText(text);
    if (all) {
      line_->selectAll();
    } else {
      line_->setCursorPosition(line_->hasFocus() ? std::min(cursor, static_cast<int>(text.size())) : 0);
    }
  }
  const bool fixed = box_.locked() || reads();
  if (line_->isReadOnly() != fixed) line_->setReadOnly(fixed);
  showForReading(*line_, reads());
  paintBackground(*line_, fixed ? Background::Face : box_.background());
}

// A box that its form only shows, unlike one that another choice would enable.
bool EditView::reads() const {
  return live() && !box_.enabled() && (box_.locked() || box_.background() == Background::Face);
}

NumericView::NumericView(FormWindow& window, EditBox& box, QWidget* parent, const std::string& decimalPoint)
    : EditView(window, box, parent) {
  line()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  static_cast<Line*>(line())->keypadMark = shown(decimalPoint);
}

QString NumericView::expects() const {
  if (!live()) return {};
  const bool amount = dynamic_cast<const AmountBox*>(&box()) != nullptr;
  return amount ? QStringLiteral("va un importo, come 1.234,56") : QStringLiteral("va un numero");
}

DateView::DateView(FormWindow& window, DateBox& box, QWidget* parent)
    : EditView(window, box, new QWidget(parent)), date_(box), opener_(new QToolButton), note_(new QLabel) {
  QWidget* const around = line()->parentWidget();
  auto* row = new QHBoxLayout(around);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  row->addWidget(line());
  row->addWidget(opener_);
  row->addWidget(note_);
  row->addStretch(1);
  line()->setPlaceholderText(QStringLiteral("gg/mm/aaaa"));
  followLetters(*line(), [line = line()] {
    line->setFixedWidth(line->fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000  ")) + 24);
  });
  opener_->setText(QStringLiteral("▾"));
  opener_->setToolTip(QStringLiteral("Calendario (Alt+Giù)"));
  opener_->setAccessibleName(QStringLiteral("Apri il calendario"));
  opener_->setFocusPolicy(Qt::NoFocus);
  note_->setText(QStringLiteral("⚠ Non è una data"));
  note_->hide();
  surround(around);
  QObject::connect(qApp, &QApplication::focusChanged, &watching_, [this] { showNote(); });
  QObject::connect(opener_, &QToolButton::clicked, opener_, [this] { openCalendar(); });
  auto* byKey = new QAction(line());
  byKey->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Down));
  byKey->setShortcutContext(Qt::WidgetShortcut);
  line()->addAction(byKey);
  QObject::connect(byKey, &QAction::triggered, line(), [this] { openCalendar(); });
}

void DateView::refresh() {
  EditView::refresh();
  opener_->setEnabled(date_.enabled() && !date_.locked());
  showNote();
}

void DateView::showNote() {
  if (!live()) return;
  const QString text = shown(date_.text()).trimmed();
  const bool unfinished = line()->hasFocus() && onItsWay(text);
  const bool none = date_.enabled() && !text.isEmpty() && !date_.date() && !unfinished;
  note_->setVisible(none);
  line()->setAccessibleDescription(
      none ? QStringLiteral("Non è una data: scrivere giorno, mese e anno, come 28/02/2017") : QString());
}

// "0503" becomes "05/03": the slash is inserted before the digit after day or month.
void DateView::edited(const QString& now) {
  const QString before = shown(date_.text());
  const bool appended = now.size() == before.size() + 1 && now.startsWith(before) && now.back().isDigit();
  const bool dayDone = before.size() == 2 && before[0].isDigit() && before[1].isDigit();
  const bool monthDone = before.size() == 5 && before[2] == u'/' && before[4].isDigit();
  if (!appended || (!dayDone && !monthDone)) {
    EditView::edited(now);
    return;
  }
  const char32_t digit = now.back().unicode();
  act([&] {
    if (date_.type(U'/')) date_.type(digit);
  });
  if (live()) line()->end(false);
}

void DateView::openCalendar() {
  if (!live()) return;
  window().act(date_, {});
  if (!live() || !date_.available() || date_.locked()) return;
  QMenu menu(line());
  auto* calendar = new QCalendarWidget(&menu);
  calendar->setFirstDayOfWeek(Qt::Monday);
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  const QDate day = QDate::fromString(shown(date_.entered()), QStringLiteral("dd/MM/yyyy"));
  if (day.isValid()) calendar->setSelectedDate(day);
  auto* holder = new QWidgetAction(&menu);
  holder->setDefaultWidget(calendar);
  menu.addAction(holder);
  QDate chosen;
  const auto take = [&](QDate picked) {
    chosen = picked;
    menu.close();
  };
  QObject::connect(calendar, &QCalendarWidget::clicked, &menu, take);
  QObject::connect(calendar, &QCalendarWidget::activated, &menu, take);
  QMetaObject::invokeMethod(
      calendar, [calendar] { calendar->setFocus(); }, Qt::QueuedConnection);
  menu.exec(line()->mapToGlobal(QPoint(0, line()->height())));
  if (!live() || !chosen.isValid()) return;
  act([&] { date_.paste(utf8(chosen.toString(QStringLiteral("dd/MM/yyyy")))); });
}

}  // namespace cu::desktop
