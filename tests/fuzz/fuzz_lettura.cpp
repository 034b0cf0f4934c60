// Any bytes as a telematic file: findings lie inside the file, and neither the size of the blocks in which it
// is read nor a listener changes them.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "lettura/confronto.h"
#include "lettura/esame.h"

namespace {

using cu::lettura::Certificato;
using cu::lettura::Esito;
using cu::lettura::Rilievo;

class Memory : public cu::lettura::Sorgente {
 public:
  Memory(std::string_view bytes, std::size_t block) : bytes_(bytes), block_(block) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    const std::size_t n = std::min({quanti, block_, bytes_.size()});
    if (n > 0) std::memcpy(dove, bytes_.data(), n);
    bytes_.remove_prefix(n);
    return n;
  }

 private:
  std::string_view bytes_;
  std::size_t block_;
};

// Pairs each certificate with itself.
class Listener : public cu::lettura::Ascoltatore {
 public:
  void certificato(const Certificato& certificato) override {
    cu::lettura::Accostamento pairs;
    pairs.aggiungi(certificato);
    const auto own = pairs.togli(certificato);
    if (!own || !cu::lettura::diverse(*own, certificato).empty()) std::abort();
  }
};

Esito examine(std::string_view bytes, std::size_t block, cu::lettura::Ascoltatore* listener) {
  Memory source(bytes, block);
  return cu::lettura::esamina(source, nullptr, listener);
}

bool same(const Rilievo& a, const Rilievo& b) {
  return a.riga == b.riga && a.posizione == b.posizione && a.regola == b.regola && a.testo == b.testo;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  Listener listener;
  const Esito whole = examine(bytes, size + 1, &listener);
  const Esito pieces = examine(bytes, 1 + size % 97, nullptr);
  const std::vector<Rilievo> findings = whole.rilievi.ordinati();
  const std::vector<Rilievo> others = pieces.rilievi.ordinati();
  if (whole.byteLetti != size || pieces.righe != whole.righe) std::abort();
  if (!std::equal(findings.begin(), findings.end(), others.begin(), others.end(), same)) std::abort();
  for (const Rilievo& finding : findings) {
    if (finding.riga < 1 || finding.riga > std::max<std::int64_t>(1, whole.righe)) std::abort();
    if (finding.posizione < 1 || finding.posizione > 1899 || finding.testo.empty()) std::abort();
  }
  if (size == 0 && findings.size() != 1) std::abort();
  return 0;
}
