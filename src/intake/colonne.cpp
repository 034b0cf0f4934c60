#include "intake/colonne.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "tabelle/lettura.h"

namespace cu::intake {
namespace {

constexpr std::string_view kDate = "GG/MM/AAAA o AAAA-MM-GG";
constexpr std::string_view kFlag = "S o N, SI o NO, 1 o 0, X o niente, true o false";
constexpr std::string_view kImporti = "due decimali al più, senza segni di migliaia";
constexpr std::string_view kPercento = "da 0 a 100";
constexpr std::string_view kFormaCodici = "16 caratteri di una persona, 11 cifre di una ditta";
constexpr std::string_view kIva = "11 cifre";
constexpr std::string_view kSigla = "sigla di due lettere, come VR";
constexpr std::string_view kCap5 = "5 cifre in Italia";
constexpr std::string_view kPropri =
    "S: i codici di categoria e di evento che non sono in elenco vengono aggiunti";

template <class C>
constexpr std::uint8_t rango(C colonna) {
  return static_cast<std::uint8_t>(colonna);
}

// Each table names its columns in the order of its enumeration.
template <std::size_t N>
constexpr bool inOrdine(const std::array<Colonna, N>& colonne) {
  for (std::size_t i = 0; i < N; ++i) {
    if (colonne[i].indice != i || colonne[i].nome.empty()) return false;
  }
  return true;
}

constexpr auto kAziende = [] {
  using enum ColonnaAzienda;
  using T = TipoColonna;
  using O = Obbligo;
  // clang-format off
  return std::to_array<Colonna>({
    {.indice = rango(CodiceFiscale), .nome = "CodiceFiscale", .tipo = T::CodiceFiscale, .obbligo = O::Sempre,
     .esempio = "12345670017", .ammessi = kFormaCodici},
    {.indice = rango(PartitaIva), .nome = "PartitaIva", .tipo = T::PartitaIva, .esempio = "12345670017", .ammessi = kIva},
    {.indice = rango(Denominazione), .nome = "Denominazione", .altriNomi = {"Cognome", "RagioneSociale"},
     .obbligo = O::Sempre, .esempio = "Esempio S.r.l.", .ammessi = "il cognome di una persona"},
    {.indice = rango(Nome), .nome = "Nome", .ammessi = "di una persona"},
    {.indice = rango(Indirizzo), .nome = "Indirizzo", .esempio = "Via Roma 1"},
    {.indice = rango(Cap), .nome = "Cap", .tipo = T::Cap, .esempio = "00184", .ammessi = kCap5},
    {.indice = rango(Comune), .nome = "Comune", .obbligo = O::Sempre, .esempio = "Roma",
     .ammessi = "nome o codice catastale"},
    {.indice = rango(Provincia), .nome = "Provincia", .tipo = T::Codice, .obbligo = O::Sempre, .esempio = "RM",
     .ammessi = kSigla},
    {.indice = rango(Telefono), .nome = "Telefono", .esempio = "06 1234567"},
    {.indice = rango(Fax), .nome = "Fax"},
    {.indice = rango(Email), .nome = "Email", .esempio = "amministrazione@esempio.example"},
    {.indice = rango(CodiceAttivita), .nome = "CodiceAttivita", .esempio = "692011",
     .ammessi = "codice ATECO, senza punti"},
    {.indice = rango(RappresentanteCodiceFiscale), .nome = "RappresentanteCodiceFiscale",
     .tipo = T::CodiceFiscale, .obbligo = O::SeNonPersona, .esempio = "RSSMRA80A01H501U", .ammessi = kFormaCodici},
    {.indice = rango(RappresentanteCognome), .nome = "RappresentanteCognome", .obbligo = O::SeNonPersona,
     .esempio = "Rossi"},
    {.indice = rango(RappresentanteNome), .nome = "RappresentanteNome", .obbligo = O::SeNonPersona,
     .esempio = "Mario"},
    {.indice = rango(RappresentanteCarica), .nome = "RappresentanteCarica", .tipo = T::Codice,
     .obbligo = O::SeNonPersona, .esempio = "1", .ammessi = "codice carica da 1 a 15"},
    {.indice = rango(CodiceFiscaleSocieta), .nome = "CodiceFiscaleSocieta", .tipo = T::CodiceFiscale,
     .ammessi = "della società rappresentante"},
    {.indice = rango(EventoEccezionale), .nome = "EventoEccezionale", .tipo = T::Codice,
     .ammessi = "codice dell'evento"},
    {.indice = rango(IntermediarioCodiceFiscale), .nome = "IntermediarioCodiceFiscale",
     .tipo = T::CodiceFiscale, .ammessi = kFormaCodici},
    {.indice = rango(Impegno), .nome = "Impegno", .tipo = T::Codice,
     .ammessi = "1 predisposta dal contribuente, 2 da chi invia"},
    {.indice = rango(DataImpegno), .nome = "DataImpegno", .tipo = T::Data, .ammessi = kDate},
    {.indice = rango(CodiciPropri), .nome = "CodiciPropri", .tipo = T::Logico, .ammessi = kPropri, .rara = true},
  });
  // clang-format on
}();
static_assert(inOrdine(kAziende) && kAziende.size() == rango(ColonnaAzienda::CodiciPropri) + 1);

constexpr auto kPercipienti = [] {
  using enum ColonnaPercipiente;
  using T = TipoColonna;
  using O = Obbligo;
  // clang-format off
  return std::to_array<Colonna>({
    {.indice = rango(Codice), .nome = "Codice", .esempio = "P001", .ammessi = "se manca, lo assegna il programma"},
    {.indice = rango(CodiceFiscale), .nome = "CodiceFiscale", .tipo = T::CodiceFiscale, .obbligo = O::SeItaliano,
     .esempio = "RSSMRA80A01H501U", .ammessi = kFormaCodici},
    {.indice = rango(PartitaIva), .nome = "PartitaIva", .tipo = T::PartitaIva, .esempio = "00743110157", .ammessi = kIva},
    {.indice = rango(Cognome), .nome = "Cognome", .altriNomi = {"Denominazione", "RagioneSociale", "Nominativo"},
     .obbligo = O::Sempre, .esempio = "Rossi", .ammessi = "o la ragione sociale"},
    {.indice = rango(Nome), .nome = "Nome", .esempio = "Mario", .ammessi = "di una persona"},
    {.indice = rango(PersonaFisica), .nome = "PersonaFisica", .tipo = T::Logico, .esempio = "S", .ammessi = kFlag},
    {.indice = rango(Sesso), .nome = "Sesso", .tipo = T::Sesso, .esempio = "M", .ammessi = "M o F"},
    {.indice = rango(DataNascita), .nome = "DataNascita", .tipo = T::Data, .esempio = "1980-01-01", .ammessi = kDate},
    {.indice = rango(ComuneNascita), .nome = "ComuneNascita", .esempio = "Roma",
     .ammessi = "nome o codice catastale; niente per chi è nato all'estero"},
    {.indice = rango(ProvinciaNascita), .nome = "ProvinciaNascita", .tipo = T::Codice, .esempio = "RM",
     .ammessi = kSigla},
    {.indice = rango(NazioneNascita), .nome = "NazioneNascita", .ammessi = "nome o codice; niente per l'Italia"},
    {.indice = rango(Indirizzo), .nome = "Indirizzo", .esempio = "Via Garibaldi 7"},
    {.indice = rango(Cap), .nome = "Cap", .tipo = T::Cap, .esempio = "00184", .ammessi = kCap5},
    {.indice = rango(Comune), .nome = "Comune", .esempio = "Roma",
     .ammessi = "nome o codice catastale; all'estero la località"},
    {.indice = rango(Provincia), .nome = "Provincia", .tipo = T::Codice, .esempio = "RM", .ammessi = kSigla},
    {.indice = rango(Nazione), .nome = "Nazione", .ammessi = "nome o codice; niente per l'Italia"},
    {.indice = rango(Email), .nome = "Email", .esempio = "mario.rossi@esempio.example"},
    {.indice = rango(Telefono), .nome = "Telefono", .esempio = "06 7654321"},
    {.indice = rango(Fax), .nome = "Fax"},
    {.indice = rango(NonResidente), .nome = "NonResidente", .tipo = T::Logico, .esempio = "N", .ammessi = kFlag},
    {.indice = rango(Schumacker), .nome = "Schumacker", .tipo = T::Logico, .ammessi = kFlag},
    {.indice = rango(CodiceFiscaleEstero), .nome = "CodiceFiscaleEstero"},
    {.indice = rango(CodiceFiscaleRappresentante), .nome = "CodiceFiscaleRappresentante",
     .tipo = T::CodiceFiscale, .ammessi = kFormaCodici},
    {.indice = rango(CategoriaParticolare), .nome = "CategoriaParticolare", .tipo = T::Codice,
     .ammessi = "codice della categoria"},
    {.indice = rango(EventoEccezionale), .nome = "EventoEccezionale", .tipo = T::Codice,
     .ammessi = "codice dell'evento"},
    {.indice = rango(EntePrevidenziale), .nome = "EntePrevidenziale",
     .ammessi = "denominazione o codice fiscale dell'ente"},
    {.indice = rango(CodiceFiscaleEnte), .nome = "CodiceFiscaleEnte", .tipo = T::CodiceFiscale,
     .ammessi = "di un ente che non è in elenco, e viene aggiunto"},
    {.indice = rango(CodiceEnte), .nome = "CodiceEnte", .ammessi = "di un ente che viene aggiunto"},
    {.indice = rango(CategoriaEnte), .nome = "CategoriaEnte", .tipo = T::Codice,
     .ammessi = "codice della categoria dell'ente"},
    {.indice = rango(CodiceAziendaENPAM), .nome = "CodiceAziendaENPAM"},
    {.indice = rango(CodiceAziendaENPAPI), .nome = "CodiceAziendaENPAPI"},
    {.indice = rango(CodiciPropri), .nome = "CodiciPropri", .tipo = T::Logico, .ammessi = kPropri, .rara = true},
  });
  // clang-format on
}();
static_assert(inOrdine(kPercipienti) && kPercipienti.size() == rango(ColonnaPercipiente::CodiciPropri) + 1);

constexpr auto kCompensi = [] {
  using enum ColonnaCompenso;
  using T = TipoColonna;
  using O = Obbligo;
  // clang-format off
  return std::to_array<Colonna>({
    {.indice = rango(CodicePercipiente), .nome = "CodicePercipiente", .obbligo = O::UnaDelleChiavi, .esempio = "P001"},
    {.indice = rango(CodiceFiscale), .nome = "CodiceFiscale", .tipo = T::CodiceFiscale,
     .obbligo = O::UnaDelleChiavi, .esempio = "RSSMRA80A01H501U", .ammessi = "del percipiente"},
    {.indice = rango(PartitaIva), .nome = "PartitaIva", .tipo = T::PartitaIva, .obbligo = O::UnaDelleChiavi,
     .ammessi = "del percipiente"},
    {.indice = rango(Causale), .nome = "Causale", .tipo = T::Codice, .obbligo = O::Sempre, .esempio = "A",
     .ammessi = "causale pagamento"},
    {.indice = rango(DataPagamento), .nome = "DataPagamento", .tipo = T::Data, .obbligo = O::Sempre,
     .esempio = "2017-03-20", .ammessi = kDate},
    {.indice = rango(NumeroDocumento), .nome = "NumeroDocumento", .esempio = "12/2017"},
    {.indice = rango(DataDocumento), .nome = "DataDocumento", .tipo = T::Data, .esempio = "2017-03-15",
     .ammessi = kDate},
    {.indice = rango(Onorario), .nome = "Onorario", .altriNomi = {"Compenso"}, .tipo = T::Importo,
     .obbligo = O::UnoDegliImporti, .esempio = "1000.00", .ammessi = kImporti},
    {.indice = rango(QuotaNonSoggetta), .nome = "QuotaNonSoggetta", .tipo = T::Importo, .ammessi = kImporti},
    {.indice = rango(PercentualeImponibile), .nome = "PercentualeImponibile", .tipo = T::Percentuale,
     .ammessi = kPercento},
    {.indice = rango(SommeNonSoggette), .nome = "SommeNonSoggette", .altriNomi = {"Spese", "Bollo"},
     .tipo = T::Importo, .obbligo = O::UnoDegliImporti, .somma = true, .esempio = "2.00", .ammessi = kImporti},
    {.indice = rango(SommeRegimeConvenzionale), .nome = "SommeRegimeConvenzionale", .tipo = T::Importo,
     .obbligo = O::UnoDegliImporti, .ammessi = kImporti},
    {.indice = rango(RitenutaAcconto), .nome = "RitenutaAcconto", .tipo = T::Importo, .esempio = "200.00",
     .ammessi = kImporti},
    {.indice = rango(RitenutaImposta), .nome = "RitenutaImposta", .tipo = T::Importo, .ammessi = kImporti},
    {.indice = rango(AliquotaRitenuta), .nome = "AliquotaRitenuta", .tipo = T::Percentuale, .ammessi = kPercento},
    {.indice = rango(ContributoPrevidenziale), .nome = "ContributoPrevidenziale", .tipo = T::Importo,
     .ammessi = "il totale"},
    {.indice = rango(ContributoDitta), .nome = "ContributoDitta", .tipo = T::Importo, .ammessi = kImporti},
    {.indice = rango(ContributoPercipiente), .nome = "ContributoPercipiente", .tipo = T::Importo,
     .ammessi = kImporti},
    {.indice = rango(CodiceNonSoggette), .nome = "CodiceNonSoggette", .tipo = T::Codice,
     .ammessi = "codice delle somme non soggette"},
    {.indice = rango(Lordo), .nome = "Lordo", .tipo = T::Importo, .obbligo = O::UnoDegliImporti,
     .esempio = "1002.00", .ammessi = "controllo"},
    {.indice = rango(Imponibile), .nome = "Imponibile", .tipo = T::Importo, .esempio = "1000.00", .ammessi = "controllo"},
    {.indice = rango(Netto), .nome = "Netto", .tipo = T::Importo, .esempio = "802.00", .ammessi = "controllo"},
    {.indice = rango(Tipo), .nome = "Tipo", .ammessi = "fattura, parcella, ricevuta o nota di credito"},
    {.indice = rango(Riferimento), .nome = "Riferimento", .ammessi = "identifica il compenso"},
  });
  // clang-format on
}();
static_assert(inOrdine(kCompensi) && kCompensi.size() == rango(ColonnaCompenso::Riferimento) + 1);

struct NomeElenco {
  Elenco elenco;
  std::string_view italiano;
  std::string_view inglese;
};
constexpr auto kElenchi = std::to_array<NomeElenco>({{Elenco::Aziende, "aziende", "companies"},
                                                     {Elenco::Percipienti, "percipienti", "payees"},
                                                     {Elenco::Compensi, "compensi", "payments"}});

using NomiNoti = std::unordered_map<std::string, std::uint8_t>;

NomiNoti nomiDi(Elenco elenco) {
  NomiNoti noti;
  for (const Colonna& colonna : colonne(elenco)) {
    noti.emplace(tabelle::normalizza(colonna.nome), colonna.indice);
    for (const std::string_view altro : colonna.altriNomi) {
      if (!altro.empty()) noti.emplace(tabelle::normalizza(altro), colonna.indice);
    }
  }
  return noti;
}

}  // namespace

std::span<const Colonna> colonne(Elenco elenco) {
  switch (elenco) {
    case Elenco::Aziende:
      return kAziende;
    case Elenco::Percipienti:
      return kPercipienti;
    case Elenco::Compensi:
      break;
  }
  return kCompensi;
}

std::optional<std::uint8_t> cercaColonna(Elenco elenco, std::string_view intestazione) {
  static const std::array<NomiNoti, kElenchi.size()> kNoti = {
      nomiDi(Elenco::Aziende), nomiDi(Elenco::Percipienti), nomiDi(Elenco::Compensi)};
  const NomiNoti& noti = kNoti[static_cast<std::size_t>(elenco)];
  const auto nota = noti.find(tabelle::normalizza(intestazione));
  if (nota == noti.end()) return std::nullopt;
  return nota->second;
}

std::string_view nome(Elenco elenco) { return kElenchi[static_cast<std::size_t>(elenco)].italiano; }

std::string_view nomeInglese(Elenco elenco) { return kElenchi[static_cast<std::size_t>(elenco)].inglese; }

std::optional<Elenco> elencoDaNome(std::string_view nome) {
  for (const NomeElenco& voce : kElenchi) {
    if (voce.italiano == nome) return voce.elenco;
  }
  return std::nullopt;
}

std::optional<Elenco> elencoDaNomeInglese(std::string_view nome) {
  for (const NomeElenco& voce : kElenchi) {
    if (voce.inglese == nome) return voce.elenco;
  }
  return std::nullopt;
}

}  // namespace cu::intake
