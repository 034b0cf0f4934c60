#include "fatture/campi_fattura.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "fatture/errore.h"

namespace cu::fatture {
namespace {

void daiTesto(InLettura& l, std::string& dove, std::string_view testo) {
  if (!dove.empty()) return l.rileva("C02", "l'elemento è dato due volte");
  dove = testo;
}

void daiCodice(InLettura& l, std::string& dove, std::string_view testo) {
  std::string codice;
  for (const char c : testo) {
    if (c != ' ') codice += upperAscii(c);
  }
  daiTesto(l, dove, codice);
}

std::string virgolette(std::string_view testo) { return "«" + std::string(testo) + "»"; }

template <class T>
bool giaDato(InLettura& l, const std::optional<T>& dove) {
  if (dove) l.rileva("C02", "l'elemento è dato due volte");
  return dove.has_value();
}

void daiEsatto(InLettura& l, std::optional<ImportoEsatto>& dove, std::string_view testo) {
  if (giaDato(l, dove)) return;
  dove = ImportoEsatto::leggi(testo);
  if (!dove) l.rileva("V03", virgolette(testo) + " non è un importo");
}

void daiImporto(InLettura& l, std::optional<Decimal>& dove, std::string_view testo) {
  if (giaDato(l, dove)) return;
  const std::optional<ImportoEsatto> esatto = ImportoEsatto::leggi(testo);
  if (!esatto) return l.rileva("V03", virgolette(testo) + " non è un importo");
  dove = esatto->arrotondato();
  if (!esatto->inCentesimi()) {
    l.rileva("V04", virgolette(testo) + " ha più di due decimali: arrotondato a " + dove->toFixed(2, ','),
             true);
  }
}

void daiAliquota(InLettura& l, std::optional<Decimal>& dove, std::string_view testo) {
  daiImporto(l, dove, testo);
  if (dove && (*dove < Decimal() || *dove > Decimal::fromInteger(100))) {
    l.rileva("V03", virgolette(testo) + " non è un'aliquota");
    dove.reset();
  }
}

// "2014-12-18", also with a zone or a time after it.
void daiData(InLettura& l, std::optional<Date>& dove, std::string_view testo) {
  constexpr std::size_t kGiorno = 10;
  if (giaDato(l, dove)) return;
  const std::string_view resto = testo.size() > kGiorno ? testo.substr(kGiorno) : std::string_view();
  if (testo.size() >= kGiorno && testo[4] == '-' &&
      (resto.empty() || resto.front() == 'Z' || resto.front() == '+' || resto.front() == '-' ||
       resto.front() == 'T'))
    dove = Date::parseIso(testo.substr(0, kGiorno));
  if (!dove) l.rileva("V01", virgolette(testo) + " non è una data");
}

void daiSi(InLettura& l, bool& dove, std::string_view testo) {
  if (equalsNoCase(testo, "SI")) {
    dove = true;
  } else {
    l.rileva("V05", virgolette(testo) + " non è fra i valori ammessi: SI");
  }
}

// The last one of a group, which its element has opened.
template <class T>
T& ultimo(std::vector<T>& gruppo) {
  if (gruppo.empty()) gruppo.emplace_back();
  return gruppo.back();
}

struct Gruppo {
  std::string_view percorso;
  std::size_t (*apri)(InLettura&);  // returns how many there are then
};

#define BODY "FatturaElettronicaBody/"
#define GENERALI "FatturaElettronicaBody/DatiGenerali/"
#define DOCUMENTO "FatturaElettronicaBody/DatiGenerali/DatiGeneraliDocumento/"
#define BENI "FatturaElettronicaBody/DatiBeniServizi/"
#define CEDENTE "FatturaElettronicaHeader/CedentePrestatore/"
#define COMMITTENTE "FatturaElettronicaHeader/CessionarioCommittente/"

template <class T>
std::size_t aggiunto(std::vector<T>& gruppo) {
  gruppo.emplace_back();
  return gruppo.size();
}

constexpr auto kGruppi = std::to_array<Gruppo>({
    {DOCUMENTO "DatiRitenuta",
     [](InLettura& l) {
       const std::size_t quante = aggiunto(l.corpo.ritenute);
       l.corpo.ritenute.back().riga = l.posto.riga;
       return quante;
     }},
    {DOCUMENTO "DatiCassaPrevidenziale",
     [](InLettura& l) {
       const std::size_t quante = aggiunto(l.corpo.casse);
       l.corpo.casse.back().riga = l.posto.riga;
       return quante;
     }},
    {DOCUMENTO "DatiBollo",
     [](InLettura& l) {
       l.corpo.bollo.emplace();
       return std::size_t{1};
     }},
    {DOCUMENTO "ScontoMaggiorazione", [](InLettura& l) { return aggiunto(l.corpo.sconti); }},
    {GENERALI "DatiFattureCollegate", [](InLettura& l) { return aggiunto(l.corpo.collegate); }},
    {BENI "DettaglioLinee", [](InLettura& l) { return aggiunto(l.corpo.linee); }},
    {BENI "DettaglioLinee/AltriDatiGestionali",
     [](InLettura& l) { return aggiunto(ultimo(l.corpo.linee).altriDati); }},
    {BENI "DatiRiepilogo", [](InLettura& l) { return aggiunto(l.corpo.riepiloghi); }},
    {BODY "DatiPagamento/DettaglioPagamento", [](InLettura& l) { return aggiunto(l.corpo.scadenze); }},
    {CEDENTE "StabileOrganizzazione",
     [](InLettura& l) {
       l.testata.cedente.stabileOrganizzazione = true;
       return std::size_t{1};
     }},
    {CEDENTE "RappresentanteFiscale",
     [](InLettura& l) {
       l.testata.cedente.rappresentanteFiscale = true;
       return std::size_t{1};
     }},
    // The representative of the seller is outside of the seller's own element.
    {"FatturaElettronicaHeader/RappresentanteFiscale",
     [](InLettura& l) {
       l.testata.cedente.rappresentanteFiscale = true;
       return std::size_t{1};
     }},
});

struct Elemento {
  std::string_view percorso;
  void (*metti)(InLettura&, std::string_view);
};

#define TESTO(DOVE) [](InLettura& l, std::string_view t) { daiTesto(l, DOVE, t); }
#define CODICE(DOVE) [](InLettura& l, std::string_view t) { daiCodice(l, DOVE, t); }
#define IMPORTO(DOVE) [](InLettura& l, std::string_view t) { daiImporto(l, DOVE, t); }
#define ESATTO(DOVE) [](InLettura& l, std::string_view t) { daiEsatto(l, DOVE, t); }
#define ALIQUOTA(DOVE) [](InLettura& l, std::string_view t) { daiAliquota(l, DOVE, t); }
#define DATA(DOVE) [](InLettura& l, std::string_view t) { daiData(l, DOVE, t); }
#define SI(DOVE) [](InLettura& l, std::string_view t) { daiSi(l, DOVE, t); }

#define SOGGETTO(RADICE, DOVE)                                                                          \
  {RADICE "DatiAnagrafici/IdFiscaleIVA/IdPaese", CODICE(DOVE.paese)},                                   \
      {RADICE "DatiAnagrafici/IdFiscaleIVA/IdCodice", CODICE(DOVE.partitaIva)},                         \
      {RADICE "DatiAnagrafici/CodiceFiscale", CODICE(DOVE.codiceFiscale)},                              \
      {RADICE "DatiAnagrafici/Anagrafica/Denominazione", TESTO(DOVE.denominazione)},                    \
      {RADICE "DatiAnagrafici/Anagrafica/Nome", TESTO(DOVE.nome)},                                      \
      {RADICE "DatiAnagrafici/Anagrafica/Cognome", TESTO(DOVE.cognome)},                                \
      {RADICE "DatiAnagrafici/RegimeFiscale", CODICE(DOVE.regime)},                                     \
      {RADICE "Sede/Indirizzo", TESTO(DOVE.sede.indirizzo)},                                            \
      {RADICE "Sede/NumeroCivico", TESTO(DOVE.sede.civico)}, {RADICE "Sede/CAP", TESTO(DOVE.sede.cap)}, \
      {RADICE "Sede/Comune", TESTO(DOVE.sede.comune)},                                                  \
      {RADICE "Sede/Provincia", CODICE(DOVE.sede.provincia)}, {                                         \
    RADICE "Sede/Nazione", CODICE(DOVE.sede.nazione)                                                    \
  }

// The simplified invoice has the party's data one level higher.
#define SEMPLICE(RADICE, IDENTITA, DOVE)                                    \
  {RADICE IDENTITA "IdFiscaleIVA/IdPaese", CODICE(DOVE.paese)},             \
      {RADICE IDENTITA "IdFiscaleIVA/IdCodice", CODICE(DOVE.partitaIva)}, { \
    RADICE IDENTITA "CodiceFiscale", CODICE(DOVE.codiceFiscale)             \
  }

constexpr auto kElementi = std::to_array<Elemento>({
    SOGGETTO(CEDENTE, l.testata.cedente),
    SOGGETTO(COMMITTENTE, l.testata.committente),
    SEMPLICE(CEDENTE, "", l.testata.cedente),
    SEMPLICE(COMMITTENTE, "IdentificativiFiscali/", l.testata.committente),
    {CEDENTE "Denominazione", TESTO(l.testata.cedente.denominazione)},
    {CEDENTE "Nome", TESTO(l.testata.cedente.nome)},
    {CEDENTE "Cognome", TESTO(l.testata.cedente.cognome)},
    {CEDENTE "RegimeFiscale", CODICE(l.testata.cedente.regime)},
    {DOCUMENTO "TipoDocumento", CODICE(l.corpo.tipo)},
    {DOCUMENTO "Divisa", CODICE(l.corpo.divisa)},
    {DOCUMENTO "Data", DATA(l.corpo.data)},
    {DOCUMENTO "Numero", TESTO(l.corpo.numero)},
    {DOCUMENTO "DatiRitenuta/TipoRitenuta", CODICE(ultimo(l.corpo.ritenute).tipo)},
    {DOCUMENTO "DatiRitenuta/ImportoRitenuta", IMPORTO(ultimo(l.corpo.ritenute).importo)},
    {DOCUMENTO "DatiRitenuta/AliquotaRitenuta", ALIQUOTA(ultimo(l.corpo.ritenute).aliquota)},
    {DOCUMENTO "DatiRitenuta/CausalePagamento", CODICE(ultimo(l.corpo.ritenute).causale)},
    {DOCUMENTO "DatiCassaPrevidenziale/TipoCassa", CODICE(ultimo(l.corpo.casse).tipo)},
    {DOCUMENTO "DatiCassaPrevidenziale/AlCassa", ALIQUOTA(ultimo(l.corpo.casse).aliquota)},
    {DOCUMENTO "DatiCassaPrevidenziale/ImportoContributoCassa", IMPORTO(ultimo(l.corpo.casse).importo)},
    {DOCUMENTO "DatiCassaPrevidenziale/ImponibileCassa", IMPORTO(ultimo(l.corpo.casse).imponibile)},
    {DOCUMENTO "DatiCassaPrevidenziale/AliquotaIVA", ALIQUOTA(ultimo(l.corpo.casse).aliquotaIva)},
    {DOCUMENTO "DatiCassaPrevidenziale/Ritenuta", SI(ultimo(l.corpo.casse).ritenuta)},
    {DOCUMENTO "DatiCassaPrevidenziale/Natura", CODICE(ultimo(l.corpo.casse).natura)},
    {DOCUMENTO "DatiBollo/BolloVirtuale", CODICE(l.corpo.bollo->virtuale)},
    {DOCUMENTO "DatiBollo/ImportoBollo", IMPORTO(l.corpo.bollo->importo)},
    {DOCUMENTO "ScontoMaggiorazione/Tipo", CODICE(ultimo(l.corpo.sconti).tipo)},
    {DOCUMENTO "ScontoMaggiorazione/Percentuale", ALIQUOTA(ultimo(l.corpo.sconti).percentuale)},
    {DOCUMENTO "ScontoMaggiorazione/Importo", ESATTO(ultimo(l.corpo.sconti).importo)},
    {DOCUMENTO "ImportoTotaleDocumento", IMPORTO(l.corpo.totale)},
    {DOCUMENTO "Arrotondamento", IMPORTO(l.corpo.arrotondamento)},
    {DOCUMENTO "Causale", [](InLettura& l, std::string_view t) { l.corpo.causali.emplace_back(t); }},
    {GENERALI "DatiFattureCollegate/IdDocumento", TESTO(ultimo(l.corpo.collegate).numero)},
    {GENERALI "DatiFattureCollegate/Data", DATA(ultimo(l.corpo.collegate).data)},
    {BENI "DettaglioLinee/NumeroLinea", TESTO(ultimo(l.corpo.linee).numero)},
    {BENI "DettaglioLinee/Descrizione", TESTO(ultimo(l.corpo.linee).descrizione)},
    {BENI "DettaglioLinee/PrezzoTotale", ESATTO(ultimo(l.corpo.linee).prezzoTotale)},
    {BENI "DettaglioLinee/AliquotaIVA", ALIQUOTA(ultimo(l.corpo.linee).aliquotaIva)},
    {BENI "DettaglioLinee/Ritenuta", SI(ultimo(l.corpo.linee).ritenuta)},
    {BENI "DettaglioLinee/Natura", CODICE(ultimo(l.corpo.linee).natura)},
    {BENI "DettaglioLinee/AltriDatiGestionali/TipoDato", TESTO(ultimo(ultimo(l.corpo.linee).altriDati).tipo)},
    {BENI "DettaglioLinee/AltriDatiGestionali/RiferimentoTesto",
     TESTO(ultimo(ultimo(l.corpo.linee).altriDati).testo)},
    {BENI "DettaglioLinee/AltriDatiGestionali/RiferimentoNumero",
     ESATTO(ultimo(ultimo(l.corpo.linee).altriDati).numero)},
    {BENI "DatiRiepilogo/AliquotaIVA", ALIQUOTA(ultimo(l.corpo.riepiloghi).aliquotaIva)},
    {BENI "DatiRiepilogo/Natura", CODICE(ultimo(l.corpo.riepiloghi).natura)},
    {BENI "DatiRiepilogo/SpeseAccessorie", IMPORTO(ultimo(l.corpo.riepiloghi).speseAccessorie)},
    {BENI "DatiRiepilogo/Arrotondamento", ESATTO(ultimo(l.corpo.riepiloghi).arrotondamento)},
    {BENI "DatiRiepilogo/ImponibileImporto", IMPORTO(ultimo(l.corpo.riepiloghi).imponibile)},
    {BENI "DatiRiepilogo/Imposta", IMPORTO(ultimo(l.corpo.riepiloghi).imposta)},
    {BENI "DatiRiepilogo/EsigibilitaIVA", CODICE(ultimo(l.corpo.riepiloghi).esigibilita)},
    {BODY "DatiPagamento/DettaglioPagamento/ModalitaPagamento", CODICE(ultimo(l.corpo.scadenze).modalita)},
    {BODY "DatiPagamento/DettaglioPagamento/DataScadenzaPagamento", DATA(ultimo(l.corpo.scadenze).data)},
    {BODY "DatiPagamento/DettaglioPagamento/ImportoPagamento", IMPORTO(ultimo(l.corpo.scadenze).importo)},
});

#undef SEMPLICE
#undef SOGGETTO
#undef SI
#undef DATA
#undef ALIQUOTA
#undef ESATTO
#undef IMPORTO
#undef CODICE
#undef TESTO
#undef COMMITTENTE
#undef CEDENTE
#undef BENI
#undef DOCUMENTO
#undef GENERALI
#undef BODY

template <class T, std::size_t N>
constexpr std::array<T, N> ordinati(std::array<T, N> voci) {
  std::sort(voci.begin(), voci.end(), [](const T& a, const T& b) { return a.percorso < b.percorso; });
  return voci;
}

constexpr auto kPerPercorso = ordinati(kElementi);
constexpr auto kGruppiPerPercorso = ordinati(kGruppi);

template <class T, std::size_t N>
constexpr bool senzaDoppi(const std::array<T, N>& voci) {
  for (std::size_t i = 1; i < N; ++i) {
    if (voci[i - 1].percorso == voci[i].percorso) return false;
  }
  return true;
}
static_assert(senzaDoppi(kPerPercorso) && senzaDoppi(kGruppiPerPercorso));

template <class T, std::size_t N>
const T* voceDi(const std::array<T, N>& voci, std::string_view percorso) {
  const auto* const sua = std::lower_bound(voci.begin(), voci.end(), percorso,
                                           [](const T& una, std::string_view p) { return una.percorso < p; });
  return sua != voci.end() && sua->percorso == percorso ? sua : nullptr;
}

// The number of an Italian firm as the lists have it: programs prefix the country, or lose leading zeros.
void aggiustaPartitaIva(InLettura& l, Soggetto& soggetto, const char* elemento) {
  constexpr std::size_t kCifre = 11;
  std::string& numero = soggetto.partitaIva;
  if (soggetto.paese != "IT" || numero.size() == kCifre) return;
  if (numero.size() == kCifre + 2 && numero.starts_with("IT")) {
    numero.erase(0, 2);
    return;
  }
  if (numero.size() < 7 || numero.size() > kCifre || !std::all_of(numero.begin(), numero.end(), isDigit))
    return;
  const std::string riempito = std::string(kCifre - numero.size(), '0') + numero;
  if (!controlloGiusto(riempito)) return;
  l.posto.elemento = elemento;
  l.rileva("V09", "la partita IVA " + numero + " ha perso gli zeri iniziali: " + riempito, true);
  numero = riempito;
}

void chiedi(InLettura& l, bool manca, const char* elemento) {
  if (!manca) return;
  l.posto.elemento = elemento;
  l.rileva("C01", "l'elemento manca o è vuoto");
}

// An amount that is there but is none has a message of its own already.
bool giaRilevato(const Fattura& fattura, std::string_view elemento, std::size_t riga) {
  return std::any_of(fattura.rilievi.begin(), fattura.rilievi.end(), [&](const Rilievo& uno) {
    return uno.posto.elemento == elemento && (riga == 0 || uno.posto.riga >= riga);
  });
}

void verificaBlocchi(InLettura& l) {
  for (const Ritenuta& una : l.corpo.ritenute) {
    l.posto.riga = una.riga;
    chiedi(l, una.tipo.empty(), "DatiRitenuta/TipoRitenuta");
    chiedi(l, una.causale.empty(), "DatiRitenuta/CausalePagamento");
    for (const auto& [valore, elemento] : {std::pair(una.importo, "DatiRitenuta/ImportoRitenuta"),
                                           std::pair(una.aliquota, "DatiRitenuta/AliquotaRitenuta")})
      chiedi(l, !valore && !giaRilevato(l.corpo, elemento, una.riga), elemento);
  }
  for (const Cassa& una : l.corpo.casse) {
    l.posto.riga = una.riga;
    constexpr const char* kImporto = "DatiCassaPrevidenziale/ImportoContributoCassa";
    chiedi(l, una.tipo.empty(), "DatiCassaPrevidenziale/TipoCassa");
    chiedi(l, !una.importo && !giaRilevato(l.corpo, kImporto, una.riga), kImporto);
  }
}

}  // namespace

void InLettura::rileva(std::string codice, std::string testo, bool avviso) {
  corrente().rilievi.push_back({std::move(codice), posto, std::move(testo), avviso});
}

bool apriGruppo(InLettura& lettura, std::string_view percorso, const Limiti& limiti) {
  const Gruppo* const gruppo = voceDi(kGruppiPerPercorso, percorso);
  if (gruppo == nullptr) return false;
  if (gruppo->apri(lettura) > limiti.gruppi) {
    throw ErroreFattura("F05", lettura.posto,
                        "Il documento ha più di " + fromInteger(static_cast<std::int64_t>(limiti.gruppi)) +
                            " elementi di questo genere");
  }
  return true;
}

bool campoLetto(std::string_view percorso) { return voceDi(kPerPercorso, percorso) != nullptr; }

void metti(InLettura& lettura, std::string_view percorso, std::string_view testo) {
  const Elemento* const elemento = voceDi(kPerPercorso, percorso);
  if (elemento != nullptr && !testo.empty()) elemento->metti(lettura, testo);
}

void verificaDocumento(InLettura& l) {
  Fattura& corpo = l.corpo;
  l.posto = corpo.posto;
  aggiustaPartitaIva(l, corpo.cedente, "CedentePrestatore/DatiAnagrafici/IdFiscaleIVA/IdCodice");
  aggiustaPartitaIva(l, corpo.committente, "CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice");
  chiedi(l, corpo.cedente.partitaIva.empty() && corpo.cedente.codiceFiscale.empty(),
         "CedentePrestatore/DatiAnagrafici/IdFiscaleIVA");
  chiedi(l, corpo.cedente.nominativo().empty(), "CedentePrestatore/DatiAnagrafici/Anagrafica");
  chiedi(l, corpo.committente.partitaIva.empty() && corpo.committente.codiceFiscale.empty(),
         "CessionarioCommittente/DatiAnagrafici");
  chiedi(l, corpo.tipo.empty(), "DatiGeneraliDocumento/TipoDocumento");
  chiedi(l, corpo.numero.empty(), "DatiGeneraliDocumento/Numero");
  constexpr const char* kData = "DatiGeneraliDocumento/Data";
  chiedi(l, !corpo.data && !giaRilevato(corpo, kData, 0), kData);
  chiedi(l, corpo.divisa.empty(), "DatiGeneraliDocumento/Divisa");
  if (!corpo.divisa.empty() && corpo.divisa != "EUR") {
    l.posto.elemento = "DatiGeneraliDocumento/Divisa";
    l.rileva("V05", "la divisa è " + corpo.divisa + ": si leggono solo documenti in euro");
  }
  if (corpo.semplificata) return;
  l.posto.elemento.clear();
  chiedi(l, corpo.linee.empty(), "DatiBeniServizi/DettaglioLinee");
  constexpr const char* kPrezzo = "DettaglioLinee/PrezzoTotale";
  for (const Linea& una : corpo.linee) {
    if (una.prezzoTotale || giaRilevato(corpo, kPrezzo, 0)) continue;
    l.posto.elemento = kPrezzo;
    l.rileva("C01", "nella linea " + una.numero + " manca l'importo");
  }
  verificaBlocchi(l);
}

}  // namespace cu::fatture
