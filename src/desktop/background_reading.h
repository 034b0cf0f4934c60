#pragma once

#include <QObject>
#include <QString>
#include <QThreadPool>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include "base/error.h"
#include "desktop/text.h"

namespace cu::desktop {

// Reads something in a thread. It can be destroyed meanwhile: what is read then is dropped, and only the end
// of the program waits for it. A second reading takes the place of the first.
template <class Read>
class BackgroundReading : public QObject {
 public:
  explicit BackgroundReading(QObject* parent = nullptr) : QObject(parent) {}
  ~BackgroundReading() override { drop(); }
  // One of the two is called when reading has ended, in the thread of this object.
  std::function<void(Read read)> onRead;
  std::function<void(const QString& error)> onFailed;
  bool reading() const { return link_ != nullptr; }

  void start(std::function<Read()> read) {
    drop();
    link_ = std::make_shared<Link>();
    link_->reader = this;
    QThreadPool::globalInstance()->start([link = link_, read = std::move(read)] {
      try {
        const auto result = std::make_shared<Read>(read());
        post(link, [result](const BackgroundReading& to) { to.onRead(std::move(*result)); });
      } catch (const std::exception& error) {
        post(link, [text = shown(asError(error).description())](const BackgroundReading& to) {
          to.onFailed(text);
        });
      }
    });
  }
  void drop() {
    const std::shared_ptr<Link> link = std::exchange(link_, nullptr);
    if (link == nullptr) return;
    const std::lock_guard<std::mutex> held(link->mutex);
    link->reader = nullptr;
  }

 private:
  struct Link {
    std::mutex mutex;
    BackgroundReading* reader = nullptr;  // null once it is destroyed, or reads something else
  };
  // The reader cannot be destroyed between the look at it and the posting, which its destruction undoes.
  template <class Call>
  static void post(const std::shared_ptr<Link>& link, Call call) {
    const std::lock_guard<std::mutex> held(link->mutex);
    if (link->reader == nullptr) return;
    QMetaObject::invokeMethod(
        link->reader,
        [to = link->reader, link, call = std::move(call)] {
          if (to->link_ != link) return;
          to->link_.reset();
          call(*to);
        },
        Qt::QueuedConnection);
  }

  std::shared_ptr<Link> link_;  // with the thread, while it reads
};

}  // namespace cu::desktop
