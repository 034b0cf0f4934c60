#include "apps/comune/sha256.h"

#include <openssl/evp.h>

#include <array>
#include <new>

namespace cu {

struct Sha256::Stato {
  Stato() {
    if (contesto == nullptr || EVP_DigestInit_ex(contesto, EVP_sha256(), nullptr) != 1) {
      EVP_MD_CTX_free(contesto);
      throw std::bad_alloc();
    }
  }
  ~Stato() { EVP_MD_CTX_free(contesto); }
  Stato(const Stato&) = delete;
  Stato& operator=(const Stato&) = delete;

  EVP_MD_CTX* contesto = EVP_MD_CTX_new();
};

Sha256::Sha256() : stato_(std::make_unique<Stato>()) {}

Sha256::~Sha256() = default;

void Sha256::aggiungi(std::string_view byte) {
  if (EVP_DigestUpdate(stato_->contesto, byte.data(), byte.size()) != 1) throw std::bad_alloc();
}

std::string Sha256::cifre() {
  constexpr std::string_view kCifre = "0123456789abcdef";
  std::array<unsigned char, EVP_MAX_MD_SIZE> somma{};
  unsigned int lunga = 0;
  if (EVP_DigestFinal_ex(stato_->contesto, somma.data(), &lunga) != 1) throw std::bad_alloc();
  std::string testo;
  for (unsigned int i = 0; i < lunga; ++i) {
    testo += kCifre[somma[i] >> 4U];
    testo += kCifre[somma[i] & 0xFU];
  }
  return testo;
}

}  // namespace cu
