#include "desktop/further_reader.h"

#include <QThreadPool>
#include <exception>
#include <mutex>
#include <utility>

#include "base/error.h"
#include "desktop/text.h"

namespace cu::desktop {

struct FurtherReader::Link {
  std::mutex mutex;
  FurtherReader* reader = nullptr;  // null once it is destroyed
  // The reader cannot be destroyed between the look at it and the posting, which its destruction undoes.
  template <class Call>
  void post(Call call) {
    const std::lock_guard<std::mutex> held(mutex);
    if (reader == nullptr) return;
    QMetaObject::invokeMethod(
        reader,
        [to = reader, call = std::move(call)] {
          to->link_.reset();
          call(*to);
        },
        Qt::QueuedConnection);
  }
};

namespace {

FurtherRows compared(const FurtherColumns::Texts& read) {
  FurtherRows rows;
  rows.reserve(read.size());
  for (const auto& [record, texts] : read) {
    FurtherRow& row = rows[record];
    for (const std::string& text : texts) {
      row.texts += shown(text);
      row.keys += folded(row.texts.back());
    }
  }
  return rows;
}

}  // namespace

FurtherReader::~FurtherReader() {
  if (link_ == nullptr) return;
  const std::lock_guard<std::mutex> held(link_->mutex);
  link_->reader = nullptr;
}

void FurtherReader::read(const FurtherColumns& columns) {
  link_ = std::make_shared<Link>();
  link_->reader = this;
  QThreadPool::globalInstance()->start([link = link_, read = columns.read] {
    try {
      const auto rows = std::make_shared<FurtherRows>(compared(read()));
      link->post([rows](const FurtherReader& to) { to.onRead(std::move(*rows)); });
    } catch (const std::exception& error) {
      link->post(
          [text = shown(asError(error).description())](const FurtherReader& to) { to.onFailed(text); });
    }
  });
}

}  // namespace cu::desktop
