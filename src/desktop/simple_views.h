#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <vector>

#include "desktop/view.h"

namespace cu::desktop {

// A frame: a titled section where it has a caption, otherwise a plain area. The layout fills it.
class FrameView : public View {
 public:
  FrameView(FormWindow& window, Frame& frame, QWidget* parent);

 private:
  void refresh() override;
  bool shows() const override { return frame_.visible() && frame_.onStage(); }
  bool reads() const override;
  void afterEvent() override;
  Frame& frame_;
  QGroupBox* section_ = nullptr;
};

class LabelView : public View {
 public:
  LabelView(FormWindow& window, Label& label, QWidget* parent);
  QLabel* label() const { return label_; }

 private:
  void refresh() override;
  QLabel* label_;
};

class LinkView : public View {
 public:
  LinkView(FormWindow& window, Link& link, QWidget* parent);
  QList<QWidget*> focusWidgets() const override { return {button_}; }

 private:
  void refresh() override;
  QAbstractButton* button_;
};

class ButtonView : public View {
 public:
  ButtonView(FormWindow& window, Button& button, QWidget* parent);
  QList<QWidget*> focusWidgets() const override { return {button_}; }
  bool allows() override;

 private:
  void refresh() override;
  Button& model_;
  QAbstractButton* button_;
};

class OptionView : public View {
 public:
  OptionView(FormWindow& window, Option& option, QWidget* parent);
  QList<QWidget*> focusWidgets() const override { return {button_}; }
  // Selects the next or previous option of the same frame, for the arrow keys.
  void chooseNeighbour(int step);
  void afterEvent() override;

 private:
  void refresh() override;
  std::vector<Option*> group() const;  // those of the frame that the user can reach
  Option& option_;
  QAbstractButton* button_;
};

class CheckView : public View {
 public:
  CheckView(FormWindow& window, Check& check, QWidget* parent);
  QList<QWidget*> focusWidgets() const override { return {button_}; }

 private:
  void refresh() override;
  Check& check_;
  QAbstractButton* button_;
};

}  // namespace cu::desktop
