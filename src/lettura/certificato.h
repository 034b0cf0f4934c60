#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cu::lettura {

// What a file holds, as text for people: UTF-8, without the blanks that fill a field. Numbers and dates are
// as the file writes them ("1234,50", "05032017").

struct Valore {
  std::string codice;  // of the cell: "AU001004"
  std::string testo;
  friend bool operator==(const Valore&, const Valore&) = default;
};

struct Modulo {
  int numero = 0;
  std::int64_t riga = 0;
  std::vector<Valore> celle;  // in the file's order, one a code
};

// A record A. A file without one has none of this.
struct Fornitura {
  std::string codice;                       // "CUR18"
  std::optional<std::int32_t> annoFiscale;  // 2017; none of an unknown code
  std::string mittente;
  std::string tipoMittente;
  std::string testo;  // the whole line, blanks and all
};

// A record B.
struct Sostituto {
  std::string codiceFiscale;
  std::string nome;
  bool annullamenti = false;
  bool sostituzioni = false;
  std::string testo;  // the whole line, blanks and all; empty without a record B
};

// A record D with its H.
struct Certificato {
  int numero = 0;
  std::int64_t riga = 0;
  std::string percipiente;  // fiscal code
  std::string nome;         // "ROSSI MARIO"
  std::string operazione;   // "", "A" or "S"
  std::string protocollo;   // "" where it is zeros
  std::string progressivo;
  std::vector<Valore> celle;
  std::vector<Modulo> moduli;

  // The value of a cell of D, or of the first module; "" without it.
  const std::string& valore(std::string_view codice) const;
  const std::string& causale() const { return valore("AU001001"); }
};

// The value under a code; "" where there is none.
const std::string& valoreDi(const std::vector<Valore>& celle, std::string_view codice);

// "1234,50" in cents; 0 for what is no amount.
std::int64_t centesimiDi(const std::string& testo);
// The same back; "" for 0, which has no cell.
std::string importo(std::int64_t centesimi);
// The sums not subject to withholding of all modules (boxes 5 and 7), in cents.
std::int64_t nonSoggette(const Certificato& certificato);

}  // namespace cu::lettura
