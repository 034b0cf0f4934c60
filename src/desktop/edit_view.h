#pragma once

#include <optional>
#include <string>

#include "controls/datebox.h"
#include "controls/textbox.h"
#include "desktop/view.h"

class QLineEdit;
class QToolButton;

namespace cu::desktop {

// A box to type in. The widget lets the person type; what has changed is handed to the box as the one
// character, paste or deletion that it was, and the box says what the text is.
class EditView : public View {
 public:
  EditView(FormWindow& window, EditBox& box, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;
  void commit() override;
  bool takeBack() override;
  QLineEdit* line() const { return line_; }

  // What a person has done to the content: characters from `at` on gave way to others.
  struct Difference {
    std::size_t at = 0;
    std::size_t removed = 0;
    std::u32string inserted;
  };

 protected:
  void refresh() override;
  EditBox& box() const { return box_; }
  // For a subclass that surrounds the line with more.
  void surround(QWidget* with) { setWidget(with); }
  virtual void edited(const QString& now);

 private:
  Difference whatWasDone(const std::u32string& before, const std::u32string& now) const;
  EditBox& box_;
  QLineEdit* line_;

  // The content before the first thing typed since the focus came.
  struct Before {
    std::string text;
    Event restore;
  };
  std::optional<Before> before_;
};

// Amounts and numbers stand at the right; the decimal key of the keypad types the currency's mark.
class NumericView : public EditView {
 public:
  NumericView(FormWindow& window, EditBox& box, QWidget* parent, const std::string& decimalPoint);
};

// A date: the slashes come by themselves where they belong, and a calendar opens beside it. A note says
// beside the box that what was typed is no date, as soon as it cannot become one.
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
  QObject watching_;  // ends with the view, which goes before its widgets do
};

// How a box's background is drawn.
void paintBackground(QWidget& widget, Background background);

}  // namespace cu::desktop
