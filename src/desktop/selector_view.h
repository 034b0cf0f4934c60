#pragma once

#include "controls/picker.h"
#include "controls/selector.h"
#include "desktop/view.h"

class QLineEdit;
class QToolButton;

namespace cu::desktop {

// A code box, a description box, and the search list. A text typed into either is committed when the user
// leaves the box or presses Enter: a code present in the table selects its row; any other text is stored as
// typed, with a note next to it.
class SelectorView : public View {
 public:
  SelectorView(FormWindow& window, Selector& selector, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;
  void setSpokenName(const QString& name) override;
  void commit() override;
  bool takeBack() override;
  bool reads() const override;
  QLineEdit* codeBox() const { return code_; }
  QLineEdit* descriptionBox() const { return description_; }
  QLabel* note() const { return note_; }
  void openSearch(const QString& typed);

 private:
  void refresh() override;
  void showNote(const QString& note);
  Selector& selector_;
  QLineEdit* code_;
  QLineEdit* description_;
  QLabel* note_;
  QToolButton* opener_;
};

// The municipality: its name, and the search list.
class PickerView : public View {
 public:
  PickerView(FormWindow& window, Picker& picker, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;
  void setSpokenName(const QString& name) override;
  void openSearch(const QString& typed);
  QLineEdit* nameBox() const { return name_; }

 private:
  void refresh() override;
  Picker& picker_;
  QLineEdit* name_;
  QToolButton* opener_;
};

}  // namespace cu::desktop
