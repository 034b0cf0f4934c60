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

// As wide and high as its content, as far as there is space; scrolls otherwise.
class ContentArea : public QScrollArea {
 public:
  explicit ContentArea(QWidget* parent);
  QSize sizeHint() const override;
  // The height missing to show everything at its present width; negative where there is too much.
  int missingHeight() const;
};

// Places controls by their frames: labels before their fields, sections below each other, consecutive options
// and buttons side by side.
class Layouter {
 public:
  explicit Layouter(FormWindow& window) : window_(window) {}

  std::vector<Control*> inside(const Frame* frame) const;  // direct children only
  // Places the controls one below the other in `into`, which has no layout yet.
  void fill(QWidget* into, const std::vector<Control*>& controls);
  void fillFrame(Frame& frame);  // the frame has been created already
  // Side by side, each with the width that it needs; a stretch at `gap`.
  void fillRow(QBoxLayout& row, const std::vector<Control*>& controls);
  // Sets the accessible name of every control without one.
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
