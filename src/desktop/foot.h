#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <QWidget>
#include <functional>

namespace cu::desktop {

class Status;

// The foot of the main window: what is being done and how far it is, and otherwise what came of it.
class Foot : public QWidget {
 public:
  // `open` is called with the file or the folder that the person wants to see.
  Foot(QWidget* parent, std::function<void(const QString& path)> open);
  void tell(const QString& what, std::size_t done, std::size_t total);
  void rest(const Status& status);  // nothing is being done
  QString words() const;

 private:
  QToolButton* link(const QString& caption, const QString& name);
  void offer(QToolButton& link, const QString& path);

  std::function<void(const QString&)> open_;
  QLabel* words_;
  QToolButton* file_;
  QToolButton* folder_;
  QProgressBar* bar_;
};

}  // namespace cu::desktop
