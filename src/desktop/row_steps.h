#pragma once

#include <QWidget>

class QLabel;
class QToolButton;

namespace cu::desktop {

class FormWindow;
class GridView;

// For a form that shows one row of the grid of the window below: leads to the row before or after, in the
// order shown. A step presses the form's own OK or cancel button and, when that has closed the form,
// double-clicks the other row. When the form stays open, nothing else happens.
class RowSteps : public QWidget {
 public:
  // Null for a form that no row of a grid has opened.
  static RowSteps* of(FormWindow& window, QWidget* parent);

  enum class Through { Ok, Cancel };
  void go(int step, Through button);

  QToolButton* before() const { return before_; }
  QToolButton* after() const { return after_; }
  QLabel* place() const { return place_; }

 private:
  RowSteps(FormWindow& window, FormWindow& below, GridView& grid, QWidget* parent);
  QToolButton* button(int step);

  FormWindow& window_;
  FormWindow& below_;
  GridView& grid_;
  QToolButton* before_;
  QLabel* place_;
  QToolButton* after_;
};

}  // namespace cu::desktop
