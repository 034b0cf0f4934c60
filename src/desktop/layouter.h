#pragma once

#include <QScrollArea>
#include <vector>

#include "desktop/form_window.h"
#include "desktop/kind.h"

class QBoxLayout;
class QGridLayout;

namespace cu::desktop {

// Whether the frame is a whole page of its form: a stage, a tab's page, or one that the form scrolls.
bool isPage(const Frame& frame);

// As wide and high as what it shows, as far as there is room; scrolls where there is not.
class ContentArea : public QScrollArea {
 public:
  explicit ContentArea(QWidget* parent);
  QSize sizeHint() const override;
  // What it lacks for showing everything at its present width; less than 0 where it has too much.
  int missingHeight() const;
};

// Places controls by the frames they stand in: labels before their fields, sections below each other, runs of
// options and buttons side by side.
class Layouter {
 public:
  explicit Layouter(FormWindow& window) : window_(window) {}

  std::vector<Control*> inside(const Frame* frame) const;  // directly
  // One below the other into `into`, which has no layout yet.
  void fill(QWidget* into, const std::vector<Control*>& controls);
  void fillFrame(Frame& frame);  // one that is made already
  // Side by side, each as wide as it needs; a stretch where `gap` says.
  void fillRow(QBoxLayout& row, const std::vector<Control*>& controls);
  // What is spoken of every control that has no name yet.
  void nameAll();

 private:
  struct Row {
    QGridLayout& grid;
    int next = 0;
  };
  std::size_t place(Row& row, const std::vector<Control*>& controls, std::size_t at);
  std::size_t placeFrames(Row& row, const std::vector<Control*>& controls, std::size_t at);
  std::size_t placeLabel(Row& row, const std::vector<Control*>& controls, std::size_t at);
  std::size_t placeField(Row& row, const std::vector<Control*>& controls, std::size_t at);
  bool holdsOne(const Control& control) const;  // a frame with one field alone
  void field(Row& row, Control& control, Label* label);
  void together(Row& row, const std::vector<Control*>& run);
  void cells(QWidget* into, const std::vector<Control*>& controls);
  void cell(QWidget* into, Control& control, Label* label);
  FormWindow& window_;
};

}  // namespace cu::desktop
