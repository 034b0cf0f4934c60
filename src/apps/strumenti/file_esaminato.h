#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "lettura/esame.h"

namespace cu::strumenti {

// Where the lines of a file begin. One offset in 64 is kept: the lines between are counted again.
class IndiceRighe {
 public:
  static constexpr std::int64_t kPasso = 64;
  // The bytes of the file in their order.
  void aggiungi(const char* byte, std::size_t quanti);
  struct Punto {
    std::int64_t riga = 1;
    std::uint64_t byte = 0;
  };
  // The last known beginning at or before the line.
  Punto prima(std::int64_t riga) const;

 private:
  std::vector<std::uint64_t> inizi_ = {0};  // of the lines 1, 65, 129, ...
  std::int64_t riga_ = 1;
  std::uint64_t letti_ = 0;
};

// What the table of a file shows of a certificate. Amounts in cents.
struct RigaCertificato {
  int numero = 0;
  std::int64_t riga = 0;
  std::int64_t ultima = 0;  // of its last module
  std::size_t sostituto = 0;
  std::string percipiente;
  std::string nome;
  std::string causale;
  std::string operazione;
  std::string protocollo;
  std::string progressivo;
  std::int64_t lordo = 0;
  std::int64_t nonSoggette = 0;
  std::int64_t imponibile = 0;
  std::int64_t acconto = 0;
  std::int64_t imposta = 0;
  std::size_t errori = 0;
  std::size_t avvisi = 0;
};

// A file that was read once. Its certificates are not kept: they are read again at their lines.
class FileEsaminato {
 public:
  using Avanza = std::function<void(const char* che, std::uint64_t fatto, std::uint64_t totale)>;
  // Reads the file, `avanza` being called with `che`; it may raise. FileIlleggibile where it cannot be read.
  static FileEsaminato leggi(const std::string& percorso, const Avanza& avanza,
                             const char* che = "Lettura del file");

  const std::string& percorso() const { return percorso_; }
  std::uint64_t dimensione() const { return dimensione_; }
  const lettura::Esito& esito() const { return esito_; }
  const std::vector<lettura::Sostituto>& sostituti() const { return sostituti_; }
  const std::vector<RigaCertificato>& certificati() const { return certificati_; }
  // Those of no certificate come first.
  const std::vector<lettura::Rilievo>& rilievi() const { return rilievi_; }
  // A sentence where the file is something else than a telematic file, which then has no findings.
  const std::string& estraneo() const { return estraneo_; }
  std::optional<std::int32_t> anno() const { return esito_.fornitura.annoFiscale; }
  // The form of the file, by its first record B.
  const modello::Modello& modello() const;

  // The certificate to whose lines the line belongs.
  std::optional<std::size_t> certificatoDi(std::int64_t riga) const;
  // Of a finding; none for one of the whole file, also where it is shown on a certificate's line: a file that
  // ends too early ends in a certificate.
  std::optional<std::size_t> certificatoDi(const lettura::Rilievo& rilievo) const;
  // Reads a certificate again. Error where the file is no longer the one that was read.
  lettura::Certificato rileggi(std::size_t certificato) const;
  // A line as it is, without its end, and no more of it than the reader keeps; the same Error.
  std::string riga(std::int64_t numero) const;

 private:
  std::vector<std::string> righe(std::int64_t prima, std::int64_t ultima) const;
  void ordinaRilievi();

  std::string percorso_;
  std::uint64_t dimensione_ = 0;
  std::int64_t modificato_ = 0;
  lettura::Esito esito_;
  std::vector<lettura::Sostituto> sostituti_;
  std::vector<RigaCertificato> certificati_;
  std::vector<lettura::Rilievo> rilievi_;
  std::string estraneo_;
  IndiceRighe indice_;
};

// "CUR18, compensi del 2017, ordinaria", the agent, the size, "nessun errore, 8 avvisi".
std::string intestazione(const FileEsaminato& file);
// Why a file is none of ours, in a sentence; empty where it is one.
std::string stranezza(const FileEsaminato& file);

}  // namespace cu::strumenti
