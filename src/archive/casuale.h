#pragma once

#include <cstdint>

namespace cu {

// A pseudorandom generator with the same sequence on every machine and with every library: SplitMix64
// (Steele, Lea, Flood, "Fast splittable pseudorandom number generators", 2014). Not for secrets.
class Casuale {
 public:
  constexpr explicit Casuale(std::uint64_t seme) : stato_(seme) {}
  // An independent generator for the number `indice`, whatever other generators have produced.
  constexpr Casuale(std::uint64_t seme, std::uint64_t indice) : stato_(mescola(seme) ^ mescola(~indice)) {}

  constexpr std::uint64_t prossimo() { return mescola(stato_ += 0x9E3779B97F4A7C15ULL); }
  // 0 to limite - 1.
  constexpr std::uint32_t sotto(std::uint32_t limite) {
    return static_cast<std::uint32_t>(((prossimo() >> 32) * limite) >> 32);
  }
  // From `minimo` to `massimo`, inclusive.
  constexpr std::int64_t tra(std::int64_t minimo, std::int64_t massimo) {
    return minimo + static_cast<std::int64_t>(sotto(static_cast<std::uint32_t>(massimo - minimo + 1)));
  }
  constexpr bool percento(std::uint32_t probabilita) { return sotto(100) < probabilita; }
  template <class Elenco>
  constexpr const auto& scelta(const Elenco& elenco) {
    return elenco[sotto(static_cast<std::uint32_t>(elenco.size()))];
  }

 private:
  static constexpr std::uint64_t mescola(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
  }
  std::uint64_t stato_;
};

}  // namespace cu
