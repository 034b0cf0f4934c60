#include "desktop/pace.h"

namespace cu::desktop {
namespace {

constexpr qint64 kFirstEstimate = 3000;
constexpr qint64 kMarkEvery = 10000;
constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;

qint64 roundedUp(qint64 time, qint64 unit) { return (time + unit - 1) / unit; }

}  // namespace

void Pace::note(const QString& what, std::size_t done, std::size_t total, qint64 now) {
  const Mark here{now, done};
  if (what != what_ || done < last_.done || total != total_) {
    what_ = what;
    total_ = total;
    began_ = from_ = next_ = here;
  } else if (now - next_.time >= kMarkEvery) {
    from_ = next_;
    next_ = here;
  }
  last_ = here;
}

std::optional<qint64> Pace::remaining() const {
  if (total_ == 0 || last_.done >= total_ || last_.done <= from_.done) return std::nullopt;
  if (last_.time - began_.time < kFirstEstimate) return std::nullopt;
  const double rate =
      static_cast<double>(last_.done - from_.done) / static_cast<double>(last_.time - from_.time);
  return static_cast<qint64>(static_cast<double>(total_ - last_.done) / rate);
}

QString remainingText(qint64 milliseconds) {
  if (milliseconds <= 5 * kSecond) return QStringLiteral("ancora pochi secondi");
  if (milliseconds <= 50 * kSecond) {
    return QStringLiteral("ancora circa %1 secondi").arg(10 * roundedUp(milliseconds, 10 * kSecond));
  }
  if (milliseconds <= 75 * kSecond) return QStringLiteral("ancora circa un minuto");
  const qint64 minutes = roundedUp(milliseconds, kMinute);
  if (minutes < 60) return QStringLiteral("ancora circa %1 minuti").arg(minutes);
  const qint64 hours = (milliseconds + kHour / 2) / kHour;
  return hours <= 1 ? QStringLiteral("ancora circa un'ora")
                    : QStringLiteral("ancora circa %1 ore").arg(hours);
}

}  // namespace cu::desktop
