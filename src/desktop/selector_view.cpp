#include "desktop/selector_view.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <functional>

#include "base/text.h"
#include "controls/form.h"
#include "desktop/edit_view.h"
#include "desktop/follow_letters.h"
#include "desktop/form_window.h"
#include "desktop/hint.h"
#include "desktop/look.h"
#include "desktop/own_colours.h"
#include "desktop/qt_front_end.h"
#include "desktop/reading_line.h"
#include "desktop/search_list.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu::desktop {
namespace {

// Typing in the municipality's box only searches: a letter opens the list with it.
class SearchedLine : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<void(const QString&)> onTyped;
  std::function<void()> onDeleted;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool letter = !event->text().isEmpty() && event->text()[0].isPrint() &&
                        !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (letter) {
      onTyped(event->text().trimmed());
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
      onDeleted();
    } else {
      QLineEdit::keyPressEvent(event);
    }
  }
};

// A text that is longer than its box is read from its beginning, also while all of it is selected.
class Description : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    const auto length = static_cast<int>(text().size());
    if (length > 0 && selectedText().size() == length) setSelection(length, -length);
  }
  void focusOutEvent(QFocusEvent* event) override {
    QLineEdit::focusOutEvent(event);
    if (!isModified()) setCursorPosition(0);
  }
};

// The note for a choice without a row in the table.
QString noteOn(const Selector& selector) {
  if (selector.record() != 0) return {};
  if (!trim(selector.code()).empty()) return QStringLiteral("Codice inesistente");
  return trim(selector.description()).empty() ? QString() : QStringLiteral("Manca il codice");
}

QToolButton* searchButton(QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setText(QStringLiteral("…"));
  button->setToolTip(QStringLiteral("Ricerca (F4)"));
  button->setFocusPolicy(Qt::NoFocus);
  return button;
}

void openBy(QLineEdit* line, const std::function<void()>& open) {
  auto* byKey = new QAction(line);
  byKey->setShortcuts({QKeySequence(Qt::Key_F4), QKeySequence(Qt::ALT | Qt::Key_Down)});
  byKey->setShortcutContext(Qt::WidgetShortcut);
  line->addAction(byKey);
  QObject::connect(byKey, &QAction::triggered, line, open);
}

// The user's choice in the list; nullopt when it was cancelled or the list could not be read.
std::optional<SearchDialog::Chosen> search(FormWindow& window, const QString& title,
                                           const QStringList& captions, const QString& typed,
                                           const std::function<void(Recordset&)>& read,
                                           const FurtherColumns& further = {}) {
  QtFrontEnd& screen = window.frontEnd();
  Recordset rows;
  screen.setPointer(kPointerHourglass);
  screen.runEvent([&] { read(rows); });
  screen.setPointer(kPointerDefault);
  if (!rows.IsOpen()) return std::nullopt;
  SearchDialog dialog(&window, title, rows, captions, typed, further);
  dialog.typeAhead(screen.typedAhead());
  screen.run(dialog, *dialog.box());
  return dialog.chosen();
}

}  // namespace

SelectorView::SelectorView(FormWindow& window, Selector& selector, QWidget* parent)
    : View(window, selector),
      selector_(selector),
      code_(new QLineEdit),
      description_(new Description),
      note_(new QLabel),
      opener_(searchButton(nullptr)) {
  auto* around = new QWidget(parent);
  auto* row = new QHBoxLayout(around);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(3);
  row->addWidget(code_);
  row->addWidget(description_, 1);
  row->addWidget(note_);
  row->addWidget(opener_);
  setOwnColours(*note_,
                [](QPalette& colours) { colours.setColor(QPalette::WindowText, look::warningInk()); });
  followLetters(*code_, [code = code_] {
    code->setFixedWidth(code->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")) + 18);
  });
  setWidget(around);
  opener_->setVisible(selector.binding().search);
  for (QLineEdit* line : {code_, description_}) {
    // The note was about the previous text.
    QObject::connect(line, &QLineEdit::textEdited, line, [this] { showNote({}); });
    openBy(line, [this, line] { openSearch(line->isModified() ? line->text() : QString()); });
  }
  QObject::connect(opener_, &QToolButton::clicked, opener_, [this] { openSearch({}); });
}

QList<QWidget*> SelectorView::focusWidgets() const { return {code_, description_}; }

void SelectorView::setSpokenName(const QString& name) {
  View::setSpokenName(name);
  const Selector::Binding& binding = selector_.binding();
  const auto called = [&](const std::string& caption, const char* otherwise) {
    return name + QStringLiteral(", ") + (caption.empty() ? QString::fromUtf8(otherwise) : shown(caption));
  };
  code_->setAccessibleName(called(binding.codeCaption, "codice"));
  description_->setAccessibleName(called(binding.descriptionCaption, "descrizione"));
  opener_->setAccessibleName(QStringLiteral("Ricerca, ") + name);
}

void SelectorView::commit() {
  if (!live()) return;
  const bool codeTyped = code_->isModified();
  const bool descriptionTyped = description_->isModified();
  if (!codeTyped && !descriptionTyped) return;
  code_->setModified(false);
  description_->setModified(false);
  const std::string code = utf8(code_->text().trimmed());
  const std::string description =
      codeTyped && !descriptionTyped ? std::string() : utf8(description_->text().trimmed());
  std::optional<Selector::Row> row;
  try {
    if (codeTyped && !code.empty()) row = selector_.findCode(code);
  } catch (...) {
    // If the table cannot be read, the code is stored as typed.
    selector_.choose(code, description);
    throw;
  }
  if (!selector_.choose(row)) selector_.choose(code, description);
  refreshAll();
}

bool SelectorView::takeBack() {
  if (!live()) return false;
  const bool differs =
      code_->text() != shown(selector_.code()) || description_->text() != shown(selector_.description());
  code_->setModified(false);
  description_->setModified(false);
  refreshAll();
  return differs;
}

void SelectorView::refresh() {
  const auto show = [](QLineEdit& line, const std::string& text) {
    if (!line.isModified() && line.text() != shown(text)) {
      line.setText(shown(text));
      line.setCursorPosition(0);
    }
  };
  show(*code_, selector_.code());
  show(*description_, selector_.description());
  for (QLineEdit* line : {code_, description_}) {
    if (line->isReadOnly() != reads()) {
      line->setReadOnly(reads());
      paintBackground(*line, reads() ? Background::Face : Background::Window);
    }
    showForReading(*line, reads());
  }
  opener_->setEnabled(!reads());
  const bool typing = code_->isModified() || description_->isModified();
  showNote(typing ? QString() : noteOn(selector_));
  // The tooltip shows a description that is too long for its box.
  description_->setToolTip(dataTip(shown(selector_.description())));
  opener_->setVisible(selector_.binding().search);
}

bool SelectorView::reads() const {
  return live() && !selector_.enabled() && !(selector_.code().empty() && selector_.description().empty());
}

void SelectorView::showNote(const QString& note) {
  note_->setText(note);
  note_->setAccessibleName(note);
  note_->setVisible(!note.isEmpty());
  code_->setAccessibleDescription(note);
}

void SelectorView::openSearch(const QString& typed) {
  if (!live() || !selector_.available() || !selector_.binding().search) return;
  code_->setModified(false);
  description_->setModified(false);
  refreshAll();
  window().act(selector_, {});
  if (!live() || !selector_.available()) return;
  const Selector::Binding& binding = selector_.binding();
  const QString title = binding.title.empty() ? QStringLiteral("Ricerca ") + shown(binding.descriptionCaption)
                                              : shown(binding.title);
  const auto chosen = search(
      window(), title, {shown(binding.codeCaption), shown(binding.descriptionCaption)}, typed,
      [this](Recordset& rows) { selector_.list(rows); }, window().frontEnd().further(binding));
  if (!chosen || !live()) return;
  act([&] { selector_.choose(Selector::Row{chosen->record, chosen->code, chosen->description}); });
}

PickerView::PickerView(FormWindow& window, Picker& picker, QWidget* parent)
    : View(window, picker), picker_(picker), opener_(searchButton(nullptr)) {
  auto* around = new QWidget(parent);
  auto* row = new QHBoxLayout(around);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(3);
  auto* line = new SearchedLine;
  name_ = line;
  row->addWidget(name_, 1);
  row->addWidget(opener_);
  tellWhole(*name_);
  name_->setContextMenuPolicy(Qt::NoContextMenu);
  name_->setAcceptDrops(false);
  setHint(*name_, QStringLiteral("Nessun comune"));
  setWidget(around);
  line->onTyped = [this](const QString& typed) { openSearch(typed); };
  line->onDeleted = [this] {
    if (live()) act([this] { picker_.setRecord(0); });
  };
  openBy(name_, [this] { openSearch({}); });
  QObject::connect(opener_, &QToolButton::clicked, opener_, [this] { openSearch({}); });
}

QList<QWidget*> PickerView::focusWidgets() const { return {name_}; }

void PickerView::setSpokenName(const QString& name) {
  View::setSpokenName(name);
  opener_->setAccessibleName(QStringLiteral("Ricerca, ") + name);
}

void PickerView::refresh() {
  name_->setText(shown(picker_.text()));
  name_->setCursorPosition(0);
}

void PickerView::openSearch(const QString& typed) {
  if (!live() || !picker_.available()) return;
  window().act(picker_, {});
  if (!live() || !picker_.available()) return;
  const QString title = picker_.title().empty() ? QStringLiteral("Comuni") : shown(picker_.title());
  const auto chosen = search(window(), title, {QStringLiteral("Provincia"), QStringLiteral("Comune")}, typed,
                             [this](Recordset& rows) { picker_.list(rows); });
  if (!chosen || !live()) return;
  act([&] { picker_.setRecord(chosen->record); });
}

}  // namespace cu::desktop
