#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cu::lettura {

// The rules that a file is checked against. docs/controlli.md names the source of each.
enum class Regola : std::uint8_t {
  // clang-format off
  L01, L02, L03, L04,
  O01, O02, O03, O04, O05, O06, O07,
  H01, H02, H03, H04, H05, H06, H07,
  F01, F02, F03, F04, F05, F06,
  K01, K02, K03, K04, K05, K06, K07, K08,
  C01, C02, C03, C04, C05, C06, C07, C08, C09, C10,
  // clang-format on
};
inline constexpr std::size_t kRegole = static_cast<std::size_t>(Regola::C10) + 1;

// What the authority does about a warning is not attested.
enum class Gravita : std::uint8_t { Errore, Avviso };

struct VoceRegola {
  Regola regola;
  std::string_view codice;
  Gravita gravita;
  std::string_view titolo;  // what the rule demands, for lists and legends
};

inline constexpr auto kVociRegole = [] {
  using enum Regola;
  constexpr Gravita E = Gravita::Errore;
  constexpr Gravita A = Gravita::Avviso;
  // clang-format off
  return std::to_array<VoceRegola>({
    {L01, "L01", E, "Ogni riga ha 1898 caratteri e finisce con CR LF"},
    {L02, "L02", E, "Ogni riga ha una A in posizione 1898"},
    {L03, "L03", E, "Il testo non ha caratteri di controllo né byte estranei a Windows-1252"},
    {L04, "L04", E, "Il file finisce con il record Z"},
    {O01, "O01", E, "Il primo record è A"},
    {O02, "O02", E, "I record si susseguono A, B, D, H, Z"},
    {O03, "O03", E, "I record sono A, B, D, H e Z"},
    {O04, "O04", E, "Il record Z conta i record del file"},
    {O05, "O05", E, "Il record B conta le sue certificazioni"},
    {O06, "O06", E, "I numeri delle certificazioni crescono e sono unici"},
    {O07, "O07", E, "I moduli di una certificazione sono 1, 2, 3"},
    {H01, "H01", E, "Il codice fiscale del sostituto è lo stesso nei record B, D e H"},
    {H02, "H02", E, "Percipiente e numero della certificazione sono gli stessi nei record D e H"},
    {H03, "H03", E, "Il codice fornitura è CUR e l'anno della CU, da CUR15"},
    {H04, "H04", E, "Un annullamento o una sostituzione ha protocollo e progressivo"},
    {H05, "H05", E, "Una certificazione ordinaria non ha protocollo né progressivo"},
    {H06, "H06", E, "Un annullamento non ha importi"},
    {H07, "H07", E, "Una fornitura non unisce certificazioni ordinarie e correzioni"},
    {F01, "F01", E, "Un numero è riempito di zeri a sinistra"},
    {F02, "F02", E, "Un testo comincia all'inizio del campo"},
    {F03, "F03", E, "Una data esiste, nella forma GGMMAAAA"},
    {F04, "F04", E, "Una casella da barrare contiene 0, 1 o niente"},
    {F05, "F05", A, "Un testo è in lettere maiuscole dove il modello le chiede"},
    {F06, "F06", E, "Uno spazio riservato è vuoto"},
    {K01, "K01", E, "Un codice appartiene al modello dell'anno"},
    {K02, "K02", E, "I codici crescono e ognuno è dato una volta"},
    {K03, "K03", E, "Un valore è del genere della sua casella"},
    {K04, "K04", A, "L'ultimo carattere di un codice fiscale o di una partita IVA risulta dagli altri"},
    {K05, "K05", E, "Una continuazione segue il suo inizio"},
    {K06, "K06", E, "Fra le caselle usate non ce ne sono di vuote"},
    {K07, "K07", E, "I dati indispensabili ci sono"},
    {K08, "K08", A, "Una casella non ne accompagna una che la esclude"},
    {C01, "C01", A, "Il lordo è la somma di imponibile, somme non soggette e spese rimborsate"},
    {C02, "C02", A, "Le somme non soggette hanno un codice, e il codice delle somme"},
    {C03, "C03", A, "La ritenuta non supera il suo imponibile"},
    {C04, "C04", A, "La ritenuta è d'acconto o d'imposta, non entrambe"},
    {C05, "C05", A, "Sesso, data e luogo di nascita sono quelli del codice fiscale"},
    {C06, "C06", A, "Le ritenute di anni precedenti non superano il loro imponibile"},
    {C07, "C07", A, "I contributi dovuti sono la somma di quelli del committente e del percipiente"},
    {C08, "C08", A, "L'anno del reddito accompagna le causali G, H, I o un'anticipazione"},
    {C09, "C09", A, "La causale esiste in quell'anno"},
    {C10, "C10", A, "Nei moduli dal 2020 il codice delle somme non soggette e la categoria sono dell'anno"},
  });
  // clang-format on
}();
static_assert(kVociRegole.size() == kRegole);
static_assert([] {
  for (std::size_t i = 0; i < kRegole; ++i) {
    if (static_cast<std::size_t>(kVociRegole.at(i).regola) != i) return false;
  }
  return true;
}());

constexpr const VoceRegola& voce(Regola regola) { return kVociRegole.at(static_cast<std::size_t>(regola)); }

// A finding: line and position from 1, in bytes. `record` is zero and `campo` empty for a finding of a whole
// line or file; `campo` is the name of a field of the frame or the code of a cell.
struct Rilievo {
  std::int64_t riga = 0;
  int posizione = 1;
  int lunghezza = 0;
  char record = '\0';
  std::string campo;
  Regola regola{};
  std::string testo;  // Italian
};

// Collects findings; of one rule no more than kMassimoPerRegola are kept, the others are counted.
class Rilievi {
 public:
  static constexpr std::size_t kMassimoPerRegola = 1000;

  void aggiungi(Rilievo rilievo);
  // Whether one more of the rule would be kept: its text need not be made otherwise.
  bool conserva(Regola regola) const { return conteggi_[indice(regola)] < kMassimoPerRegola; }
  void conta(Regola regola) { ++conteggi_[indice(regola)]; }

  // By line and position.
  std::vector<Rilievo> ordinati() const;
  std::size_t quanti(Regola regola) const { return conteggi_[indice(regola)]; }
  std::size_t errori() const { return somma(Gravita::Errore); }
  std::size_t avvisi() const { return somma(Gravita::Avviso); }

 private:
  static std::size_t indice(Regola regola) { return static_cast<std::size_t>(regola); }
  std::size_t somma(Gravita gravita) const;

  std::vector<Rilievo> rilievi_;
  std::array<std::size_t, kRegole> conteggi_{};
};

}  // namespace cu::lettura
