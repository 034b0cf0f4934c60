#include "tabelle/deposito.h"

#include <algorithm>
#include <cstring>

namespace cu::tabelle {

std::string_view Deposito::conserva(std::string_view testo) {
  constexpr std::size_t kBlocco = 65536;
  if (testo.empty()) return {};
  if (testo.size() > resto_) {
    resto_ = std::max(kBlocco, testo.size());
    blocchi_.push_back(std::make_unique<char[]>(resto_));
    libero_ = blocchi_.back().get();
  }
  char* const dove = libero_;
  std::memcpy(dove, testo.data(), testo.size());
  libero_ += testo.size();
  resto_ -= testo.size();
  return {dove, testo.size()};
}

}  // namespace cu::tabelle
