#pragma once

#include <QLabel>
#include <vector>

#include "controls/form.h"
#include "desktop/section.h"

class QVBoxLayout;

namespace cu::desktop {

// The line above the pages of a wizard that shows what the work concerns.
class WhereLine : public QWidget {
 public:
  explicit WhereLine(QWidget* parent);
  void setFacts(const std::vector<Form::Fact>& facts);
  QString words() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  std::vector<Form::Fact> facts_;
  QString whole_;
};

// The panel beside the controls of a stage that shows what the form's main action would do.
class OutlookPanel : public Section {
 public:
  explicit OutlookPanel(QWidget* parent);
  void setFacts(const std::vector<Form::Fact>& facts);
  // The text of a fact; empty where it is not shown.
  QString text(const QString& name) const;

 protected:
  bool event(QEvent* event) override;

 private:
  void fill();
  std::vector<Form::Fact> facts_;
  QVBoxLayout* rows_;
  QList<QWidget*> shown_;
};

}  // namespace cu::desktop
