#include "reporting/hash_order.h"

#include <QHashFunctions>
#include <mutex>

namespace cu::reporting {
namespace {

// The order is that of the whole process, and several threads lay reports out at a time.
struct Holders {
  std::mutex mutex;
  int count = 0;
};

Holders& holders() {
  static Holders all;
  return all;
}

}  // namespace

FixedHashOrder::FixedHashOrder() {
  const std::lock_guard lock(holders().mutex);
  if (holders().count++ == 0) QHashSeed::setDeterministicGlobalSeed();
}

FixedHashOrder::~FixedHashOrder() {
  const std::lock_guard lock(holders().mutex);
  if (--holders().count == 0) QHashSeed::resetRandomGlobalSeed();
}

}  // namespace cu::reporting
