#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include "controls/frontend.h"

namespace cu::desktop {

// What is to be said when no work goes on: the facts of the last event that told some or did long work, and
// the files that it made.
class Status {
 public:
  // A person's event begins: what it tells, or its first long work, takes the place of what was told before.
  void begin() { begun_ = true; }
  void work() { forget(); }
  void tell(const QString& fact);
  void print(const PrintNote& note);

  // An event inside this one, of a window that it has opened, must not take its facts away.
  bool begun() const { return begun_; }
  void resume(bool begun, std::size_t told) { begun_ = begun && told == told_; }
  std::size_t told() const { return told_; }

  QString words() const;   // "Pronto" where there is nothing to say
  QString file() const;    // the one file that was made
  QString folder() const;  // where the files are that were made; each of the two may be empty

 private:
  void forget();

  bool begun_ = false;
  std::size_t told_ = 0;  // ever
  QStringList facts_;
  QSet<QString> files_;
  QString first_;  // of them
  int asked_ = 0;  // files that were to be made
  QString printer_;
  int copies_ = 0;
};

}  // namespace cu::desktop
