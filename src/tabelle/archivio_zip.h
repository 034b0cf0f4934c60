#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tabelle/lettura.h"

namespace cu::tabelle {

// A ZIP archive in memory, read with limits: members, bytes of all members read, and their ratio to the
// compressed bytes. Every function raises ErroreTabella, F03 for what is damaged or encrypted, F05 beyond a
// limit; the place is the archive's name.
class ArchivioZip {
 public:
  // The bytes are used in place and have to outlive the archive.
  ArchivioZip(std::string_view byte, std::string_view nome, const Limiti& limiti);
  ~ArchivioZip();
  ArchivioZip(const ArchivioZip&) = delete;
  ArchivioZip& operator=(const ArchivioZip&) = delete;

  std::size_t membri() const;
  std::string nomeMembro(std::size_t indice) const;
  // By name without regard to case.
  std::optional<std::size_t> trova(const std::string& nome) const;

  // A member's bytes in order. The archive has to outlive it.
  class Membro {
   public:
    ~Membro();
    Membro(Membro&&) noexcept;
    Membro(const Membro&) = delete;
    Membro& operator=(const Membro&) = delete;
    // Up to `quanti` bytes; 0 at the end, where the checksum has been compared.
    std::size_t leggi(char* dove, std::size_t quanti);

   private:
    friend class ArchivioZip;
    struct Stato;
    explicit Membro(std::unique_ptr<Stato> stato);
    std::unique_ptr<Stato> stato_;
  };
  Membro apri(std::size_t indice);

 private:
  struct Archivio;
  std::unique_ptr<Archivio> archivio_;
};

}  // namespace cu::tabelle
