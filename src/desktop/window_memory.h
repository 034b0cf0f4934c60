#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QRect>

class QWidget;

namespace cu::desktop {

// Keeps the size and, of independent windows, the place that the user has given to each window of the
// program, for the same window next time. What the user has not changed is left to the program. One object
// serves all windows during its lifetime.
class WindowMemory : public QObject {
 public:
  WindowMemory();
  bool eventFilter(QObject* watched, QEvent* event) override;
  static void forget();

 private:
  struct Changed {
    bool size = false;
    bool place = false;
  };
  void restore(QWidget& window) const;
  void store(const QWidget& window, Changed changed) const;
  QHash<const QObject*, Changed> changed_;
};

// Whether its size comes from the memory: it is not adapted to the content.
bool sizeRemembered(const QWidget& window);

// The rectangle, moved and if necessary shrunk into the screen with which it has most in common; into the
// first one where it has nothing in common with any. `screens` is not empty.
QRect onScreen(const QRect& wanted, const QList<QRect>& screens);

}  // namespace cu::desktop
