#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>
#include <functional>

namespace cu::desktop {

class Status;
struct Offer;

// The foot of the main window: the running operation and its progress, otherwise the result of the last one.
class Foot : public QWidget {
 public:
  // `open` is called with the file or folder to open.
  Foot(QWidget* parent, std::function<void(const QString& path)> open);
  // `remaining` is an estimate in words; empty for none.
  void tell(const QString& what, std::size_t done, std::size_t total, const QString& remaining = {});
  void rest(const Status& status);  // no operation is running
  QString words() const;
  // Interrupts the running work; hidden as long as there is none that can be interrupted.
  QPushButton* interruption() const { return interruption_; }

 private:
  QToolButton* link(const QString& caption, const QString& name);
  void offer(QToolButton& link, const QString& path);
  void offerFurther(const Offer& offer);

  std::function<void(const QString&)> open_;
  std::function<void()> further_;  // what the last link runs
  QLabel* words_;
  QToolButton* file_;
  QToolButton* folder_;
  QToolButton* offered_;
  QProgressBar* bar_;
  QPushButton* interruption_;
};

}  // namespace cu::desktop
