#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "lettura/certificato.h"
#include "lettura/righe.h"
#include "lettura/rilievi.h"
#include "modello/modello.h"

// A second opinion on a telematic file: it is read in one pass and in constant memory, whatever the file
// holds.
namespace cu::lettura {

// Places of birth by their cadastral codes.
class Luoghi {
 public:
  virtual ~Luoghi() = default;
  // Whether the place has that name (UTF-8), now or before; nothing for a code that is not known.
  virtual std::optional<bool> haNome(std::string_view catastale, std::string_view nome) const = 0;
};

// Is given what the file holds as it is read. Each is whole and lives until the call returns.
class Ascoltatore {
 public:
  virtual ~Ascoltatore() = default;
  virtual void fornitura(const Fornitura& /*fornitura*/) {}
  virtual void sostituto(const Sostituto& /*sostituto*/) {}  // also before a certificate without a record B
  virtual void certificato(const Certificato& /*certificato*/) {}
  // Each line of a known record as it stands, before what it says: 1898 characters of Windows-1252.
  virtual void record(char /*tipo*/, std::int64_t /*riga*/, std::string_view /*testo*/) {}
};

struct Esito {
  std::uint64_t byteLetti = 0;
  std::int64_t righe = 0;
  Fornitura fornitura;
  bool annullamenti = false;  // of any agent
  bool sostituzioni = false;
  std::array<std::size_t, 26> totali{};  // lines of each record, by letter
  Rilievi rilievi;
};

// Without `luoghi` places of birth are not compared; without `ascoltatore` no texts are made; without
// `modello` each agent's record B decides whose layout it has. Errors of the source rise as they are.
Esito esamina(Sorgente& sorgente, const Luoghi* luoghi = nullptr, Ascoltatore* ascoltatore = nullptr,
              const modello::Modello* modello = nullptr);

}  // namespace cu::lettura
