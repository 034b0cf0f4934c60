#include "reporting/hash_order.h"

#include <QHashFunctions>

namespace cu::reporting {

FixedHashOrder::FixedHashOrder() { QHashSeed::setDeterministicGlobalSeed(); }
FixedHashOrder::~FixedHashOrder() { QHashSeed::resetRandomGlobalSeed(); }

}  // namespace cu::reporting
