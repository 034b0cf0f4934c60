#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cu::intake {

// The stable codes of what an import has to say: F file, C column, V value, P payee, R payment, A account.
enum class Codice : std::uint8_t {
  // clang-format off
  F01, F02, F03, F04, F05, F06, F07, F08,
  C01, C02, C03,
  V01, V02, V03, V04, V05, V06, V07, V08, V09, V10,
  P01, P02, P03, P04, P05, P06, P07, P08, P09, P10, P11, P12,
  R01, R02, R03, R04, R05, R06, R07, R08, R09, R10, R11, R12, R13, R14,
  A01, A02, A03, A04,
  // clang-format on
};
inline constexpr std::size_t kCodici = static_cast<std::size_t>(Codice::A04) + 1;

// An error and a message to be decided stop the import; a warning does so until its code is accepted; an
// information never does.
enum class Gravita : std::uint8_t { Errore, DaDecidere, Avviso, Informazione };

struct VoceCodice {
  Codice codice;
  std::string_view sigla;
  Gravita gravita;
  std::string_view titolo;  // for lists and legends
};

inline constexpr auto kVociCodici = [] {
  using enum Codice;
  constexpr Gravita E = Gravita::Errore;
  constexpr Gravita D = Gravita::DaDecidere;
  constexpr Gravita A = Gravita::Avviso;
  constexpr Gravita I = Gravita::Informazione;
  // clang-format off
  return std::to_array<VoceCodice>({
    {F01, "F01", E, "Il file è vuoto o non ha intestazione"},
    {F02, "F02", E, "Il genere del file non è fra quelli che si leggono"},
    {F03, "F03", E, "Il file è danneggiato o non si può leggere"},
    {F04, "F04", E, "Il documento contiene una definizione di tipo (DTD)"},
    {F05, "F05", E, "Il file supera un limite"},
    {F06, "F06", E, "Il documento è di un altro committente"},
    {F07, "F07", I, "Il documento è emesso dall'azienda stessa"},
    {F08, "F08", I, "Il file è già stato importato"},
    {C01, "C01", E, "Manca una colonna o un valore obbligatorio"},
    {C02, "C02", E, "Una colonna è data due volte"},
    {C03, "C03", A, "Una colonna è sconosciuta"},
    {V01, "V01", E, "Un valore non è una data"},
    {V02, "V02", E, "L'ordine di giorno e mese non è certo"},
    {V03, "V03", E, "Un valore non è un importo"},
    {V04, "V04", A, "Un importo ha più di due decimali"},
    {V05, "V05", E, "Un valore non è fra quelli ammessi"},
    {V06, "V06", E, "Un testo è troppo lungo"},
    {V07, "V07", A, "Un carattere non esiste nel file telematico"},
    {V08, "V08", E, "Una cella del foglio elettronico non ha un valore"},
    {V09, "V09", E, "Un numero ha perso delle cifre"},
    {V10, "V10", E, "Un testo ha caratteri di controllo"},
    {P01, "P01", E, "Un codice non ha la forma di un codice fiscale"},
    {P02, "P02", A, "Il carattere di controllo di un codice fiscale non risulta"},
    {P03, "P03", A, "Cognome e nome non sono quelli del codice fiscale"},
    {P04, "P04", A, "Il sesso non è quello del codice fiscale"},
    {P05, "P05", A, "La data di nascita non è quella del codice fiscale"},
    {P06, "P06", A, "Un luogo non è quello del codice fiscale o della provincia, o non esiste più"},
    {P07, "P07", A, "La cifra di controllo di una partita IVA non risulta"},
    {P08, "P08", D, "Più luoghi hanno questo nome"},
    {P09, "P09", D, "Più percipienti sono possibili"},
    {P10, "P10", E, "Le chiavi della riga indicano percipienti diversi"},
    {P11, "P11", A, "Mancano dati che il file telematico chiede"},
    {P12, "P12", E, "Il percipiente non è in archivio"},
    {R01, "R01", A, "La ritenuta non risulta dall'aliquota"},
    {R02, "R02", D, "L'imponibile della ritenuta non è stato trovato"},
    {R03, "R03", I, "Il compenso è già presente, uguale"},
    {R04, "R04", D, "Il compenso è già presente, diverso"},
    {R05, "R05", I, "Il compenso è di un altro anno"},
    {R06, "R06", A, "Nota di credito"},
    {R07, "R07", A, "Il contributo alla cassa è compreso nel lordo"},
    {R08, "R08", A, "Contributo ENASARCO"},
    {R09, "R09", A, "La ritenuta differisce per un arrotondamento"},
    {R10, "R10", A, "Un percipiente in regime forfettario ha una ritenuta"},
    {R11, "R11", A, "La causale non è di quell'anno"},
    {R12, "R12", I, "La data di pagamento è proposta"},
    {R13, "R13", E, "La ritenuta supera l'imponibile, o la quota il compenso"},
    {R14, "R14", A, "Lordo, imponibile o netto non risultano dalla riga"},
    {A01, "A01", E, "Una somma del conto diventa negativa"},
    {A02, "A02", D, "Gli importi del conto sono stati corretti a mano"},
    {A03, "A03", E, "Un conto ha due codici per le somme non soggette"},
    {A04, "A04", A, "I moduli aggiuntivi del conto hanno somme"},
  });
  // clang-format on
}();
static_assert(kVociCodici.size() == kCodici);
constexpr bool vociInOrdine() {
  for (std::size_t i = 0; i < kVociCodici.size(); ++i) {
    if (kVociCodici[i].codice != static_cast<Codice>(i)) return false;
  }
  return true;
}
static_assert(vociInOrdine());

constexpr const VoceCodice& voce(Codice codice) { return kVociCodici[static_cast<std::size_t>(codice)]; }
// Whether a person can accept messages with the code: those that are warnings, always or where, as V09 and
// F03, what was lost or damaged can be restored.
constexpr bool accettabile(Codice codice) {
  return voce(codice).gravita == Gravita::Avviso || codice == Codice::V09 || codice == Codice::F03;
}
// "V03"; upper case.
std::optional<Codice> codiceDaSigla(std::string_view sigla);
// "errore", "da decidere", "avviso", "informazione"
std::string_view nome(Gravita gravita);

// Where something is, as far as it is known: "" and 0 for what is not.
struct PostoMessaggio {
  std::string file;
  std::string foglio;
  std::size_t riga = 0;
  std::size_t documento = 0;  // of an invoice file
};

struct Messaggio {
  Codice codice = Codice::F01;
  Gravita gravita = Gravita::Errore;
  std::string colonna;     // as the file has it; "" where it is none
  std::string testo;       // a sentence in Italian without place, code and full stop
  PostoMessaggio posto{};  // of a message that belongs to no row
};

// With the severity of the code.
Messaggio messaggio(Codice codice, std::string testo, std::string colonna = {});

// 'compensi.csv, riga 14, colonna "Ritenuta": 199,9O non è un importo (V03).'
std::string dettoMessaggio(const PostoMessaggio& posto, const Messaggio& messaggio);
// With its own place.
std::string dettoMessaggio(const Messaggio& messaggio);

}  // namespace cu::intake
