#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>

#include "controls/frontend.h"

namespace cu::desktop {

// What the user can open after an event, beside the files that it printed.
struct Offer {
  QString caption;  // empty for none
  QString about;    // the tooltip
  std::function<void()> run;
};

// The status text while no work is running: the facts of the last event that reported some or did long work,
// and the files made by it.
class Status {
 public:
  // A user event begins: its first fact, or its first long work, replaces the previous status.
  void begin() { begun_ = true; }
  void work() { forget(); }
  void tell(const QString& fact);
  void print(const PrintNote& note);
  void offer(Offer offer);  // with the facts of the event; replaces an earlier one

  // A nested event, of a window opened by this one, must not remove its facts.
  bool begun() const { return begun_; }
  void resume(bool begun, std::size_t told) { begun_ = begun && told == told_; }
  std::size_t told() const { return told_; }

  QString words() const;   // "Pronto" where there is nothing to report
  QString file() const;    // the file, where exactly one was made
  QString folder() const;  // the folder of the files made; each of the two may be empty
  const Offer& offered() const { return offer_; }

 private:
  void forget();

  bool begun_ = false;
  std::size_t told_ = 0;  // total count
  QStringList facts_;
  QSet<QString> files_;
  QString first_;  // the first of them
  int asked_ = 0;  // number of files to make
  QString printer_;
  int copies_ = 0;
  Offer offer_;
};

}  // namespace cu::desktop
