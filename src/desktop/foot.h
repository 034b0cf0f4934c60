#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

namespace cu::desktop {

// The foot of the main window: what is being done, and how far it is.
class Foot : public QWidget {
 public:
  explicit Foot(QWidget* parent);
  void tell(const QString& what, std::size_t done, std::size_t total);
  void rest();  // nothing is being done
  QString words() const { return words_->text(); }
  bool working() const { return working_; }
  int percent() const { return bar_->maximum() > 0 ? bar_->value() : -1; }

 private:
  QLabel* words_;
  QProgressBar* bar_;
  bool working_ = false;
};

}  // namespace cu::desktop
