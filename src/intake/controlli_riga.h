#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "intake/lettura_righe.h"

namespace cu::intake {

// What the values of one row say of each other, without a database. Codes of people and firms are reduced to
// their form (P01, P02, P07, V09), what follows from them is compared (P03, P04, P05) or derived, and the
// amounts of a credit note become negative (R06).
class ControlliRiga {
 public:
  ControlliRiga(Lettura& lettura, Date oggi) : lettura_(lettura), oggi_(oggi) {}
  void esegui(RigaLetta& riga);

 private:
  void azienda(RigaLetta& riga);
  void percipiente(RigaLetta& riga);
  void compenso(RigaLetta& riga);

  void codiceFiscale(RigaLetta& riga, std::uint8_t colonna, bool controlla);
  void partitaIva(RigaLetta& riga, std::uint8_t colonna, bool controlla);
  void cap(RigaLetta& riga, std::uint8_t colonna);
  void persona(RigaLetta& riga);
  void dividiNome(RigaLetta& riga, std::string_view codice);
  void nascita(RigaLetta& riga, std::string_view codice);
  void notaDiCredito(RigaLetta& riga);
  // Whether the cell's value was rejected: what it would give is not derived then.
  bool respinta(const RigaLetta& riga, std::uint8_t colonna) const;
  void segnala(RigaLetta& riga, Codice codice, std::uint8_t colonna, std::string testo,
               bool soloAvviso = false);

  Lettura& lettura_;
  Date oggi_;
};

// The row's field of the column, which is added in its place where there is none.
Campo& campoDi(RigaLetta& riga, std::uint8_t colonna);
template <class C>
void mettiCampo(RigaLetta& riga, C colonna, CellView valore, bool derivato = false) {
  const auto rango = static_cast<std::uint8_t>(colonna);
  campoDi(riga, rango) = {rango, StatoCampo::Dato, derivato, valore};
}

// Of a payment's kind of document; nullopt for an unknown one.
std::optional<bool> eNotaDiCredito(std::string_view tipo);

// Whether a text names Italy as a country.
bool eItalia(std::string_view nazione);
// Whether a payee's row says that the payee is foreign.
bool eEstero(const RigaLetta& percipiente);

}  // namespace cu::intake
