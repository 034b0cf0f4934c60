#pragma once

#include <optional>
#include <string>

#include "controls/datebox.h"
#include "controls/textbox.h"
#include "desktop/view.h"

class QLineEdit;
class QToolButton;

namespace cu::desktop {

// A text box. The widget handles typing; each change is passed to the box as one character, paste or
// deletion, and the box determines the text.
class EditView : public View {
 public:
  EditView(FormWindow& window, EditBox& box, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;
  void commit() override;
  bool takeBack() override;
  QLineEdit* line() const { return line_; }
  bool reads() const override;

  // A change of the content by the user: `removed` characters from `at` were replaced by `inserted`.
  struct Difference {
    std::size_t at = 0;
    std::size_t removed = 0;
    std::u32string inserted;
  };

 protected:
  void refresh() override;
  EditBox& box() const { return box_; }
  // For a subclass that adds widgets around the line.
  void surround(QWidget* with) { setWidget(with); }
  virtual void edited(const QString& now);
  // What the box takes, where it refuses other texts.
  virtual QString expects() const { return {}; }

 private:
  Difference whatWasDone(const std::u32string& before, const std::u32string& now) const;
  void tellRefused(const QString& inserted);
  EditBox& box_;
  QLineEdit* line_;
  bool refusing_ = false;  // it was told what the box takes

  // The content before the first change since the box got the focus.
  struct Before {
    std::string text;
    Event restore;
  };
  std::optional<Before> before_;
};

// Amounts and numbers are right-aligned; the decimal key of the keypad types the currency's mark.
class NumericView : public EditView {
 public:
  NumericView(FormWindow& window, EditBox& box, QWidget* parent, const std::string& decimalPoint);

 private:
  QString expects() const override;
};

// A date: the slashes are inserted automatically, and a calendar can be opened. A note next to the box
// reports a text that is no date, as soon as it cannot become one.
class DateView : public EditView {
 public:
  DateView(FormWindow& window, DateBox& box, QWidget* parent);

 private:
  void refresh() override;
  void edited(const QString& now) override;
  void openCalendar();
  void showNote();
  DateBox& date_;
  QToolButton* opener_;
  QLabel* note_;
  QObject watching_;  // destroyed with the view, before its widgets
};

// Selects how a box's background is drawn.
void paintBackground(QWidget& widget, Background background);

}  // namespace cu::desktop
