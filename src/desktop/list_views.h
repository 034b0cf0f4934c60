#pragma once

#include "controls/listbox.h"
#include "controls/print_control.h"
#include "controls/tabs.h"
#include "desktop/view.h"

class QComboBox;
class QTabBar;

namespace cu::desktop {

// A drop-down list.
class ListView : public View {
 public:
  ListView(FormWindow& window, ListBox& list, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;
  QComboBox* combo() const { return combo_; }

 private:
  void refresh() override;
  ListBox& list_;
  QComboBox* combo_;
};

// The bar of the tabs; their pages are frames. Ctrl+Tab leads to the next one from anywhere in the window.
class TabsView : public View {
 public:
  TabsView(FormWindow& window, Tabs& tabs, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;

 private:
  void refresh() override;
  void turn(int step);
  Tabs& tabs_;
  QTabBar* bar_;
};

// The choice of report and output.
class PrintView : public View {
 public:
  PrintView(FormWindow& window, PrintControl& print, QWidget* parent);
  QList<QWidget*> focusWidgets() const override;
  QComboBox* reports() const { return reports_; }
  QComboBox* outputs() const { return outputs_; }
  void setSpokenName(const QString& name) override;

 private:
  void refresh() override;
  PrintControl& print_;
  QComboBox* reports_;
  QComboBox* outputs_;
  QLabel* note_;
};

}  // namespace cu::desktop
