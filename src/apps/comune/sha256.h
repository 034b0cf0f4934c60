#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace cu {

// The SHA-256 of bytes that come one part after another. std::bad_alloc where there is no memory for it.
class Sha256 {
 public:
  Sha256();
  ~Sha256();
  Sha256(const Sha256&) = delete;
  Sha256& operator=(const Sha256&) = delete;

  void aggiungi(std::string_view byte);
  // 64 lower-case digits; nothing can be added afterwards.
  std::string cifre();

 private:
  struct Stato;
  std::unique_ptr<Stato> stato_;
};

}  // namespace cu
