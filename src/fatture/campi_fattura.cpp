#include "fatture/campi_fattura.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/ascii.h"
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

// Where the fields of each element are.
Soggetto& inCedente(InLettura& l) { return l.testata.cedente; }
Sede& inSedeCedente(InLettura& l) { return l.testata.cedente.sede; }
Soggetto& inCommittente(InLettura& l) { return l.testata.committente; }
Fattura& inDocumento(InLettura& l) { return l.corpo; }
Ritenuta& inRitenuta(InLettura& l) { return ultimo(l.corpo.ritenute); }
Cassa& inCassa(InLettura& l) { return ultimo(l.corpo.casse); }
Bollo& inBollo(InLettura& l) { return *l.corpo.bollo; }
Sconto& inSconto(InLettura& l) { return ultimo(l.corpo.sconti); }
DocumentoCollegato& inCollegata(InLettura& l) { return ultimo(l.corpo.collegate); }
Linea& inLinea(InLettura& l) { return ultimo(l.corpo.linee); }
AltroDato& inAltroDato(InLettura& l) { return ultimo(ultimo(l.corpo.linee).altriDati); }
Riepilogo& inRiepilogo(InLettura& l) { return ultimo(l.corpo.riepiloghi); }
Scadenza& inScadenza(InLettura& l) { return ultimo(l.corpo.scadenze); }

void dai(InLettura& l, std::string& dove, std::string_view testo) { daiTesto(l, dove, testo); }
void dai(InLettura& l, bool& dove, std::string_view testo) { daiSi(l, dove, testo); }
void dai(InLettura& l, std::optional<Date>& dove, std::string_view testo) { daiData(l, dove, testo); }
void dai(InLettura& l, std::optional<Decimal>& dove, std::string_view testo) { daiImporto(l, dove, testo); }
void dai(InLettura& l, std::optional<ImportoEsatto>& dove, std::string_view testo) {
  daiEsatto(l, dove, testo);
}

// What an element's text becomes: by the type of its field, or as a code or a rate.
template <auto Dove, auto Campo>
void come(InLettura& l, std::string_view testo) {
  dai(l, Dove(l).*Campo, testo);
}
template <auto Dove, auto Campo>
void codice(InLettura& l, std::string_view testo) {
  daiCodice(l, Dove(l).*Campo, testo);
}
template <auto Dove, auto Campo>
void aliquota(InLettura& l, std::string_view testo) {
  daiAliquota(l, Dove(l).*Campo, testo);
}
void causaleDocumento(InLettura& l, std::string_view testo) { l.corpo.causali.emplace_back(testo); }

constexpr std::string_view kCedente = "FatturaElettronicaHeader/CedentePrestatore";
constexpr std::string_view kCedenteDati = "FatturaElettronicaHeader/CedentePrestatore/DatiAnagrafici";
constexpr std::string_view kCedenteNome =
    "FatturaElettronicaHeader/CedentePrestatore/DatiAnagrafici/Anagrafica";
constexpr std::string_view kCedenteIva =
    "FatturaElettronicaHeader/CedentePrestatore/DatiAnagrafici/IdFiscaleIVA";
// The simplified invoice has the party's data one level higher.
constexpr std::string_view kCedenteIvaSemplice = "FatturaElettronicaHeader/CedentePrestatore/IdFiscaleIVA";
constexpr std::string_view kCedenteSede = "FatturaElettronicaHeader/CedentePrestatore/Sede";
constexpr std::string_view kCommittenteDati =
    "FatturaElettronicaHeader/CessionarioCommittente/DatiAnagrafici";
constexpr std::string_view kCommittenteNome =
    "FatturaElettronicaHeader/CessionarioCommittente/DatiAnagrafici/Anagrafica";
constexpr std::string_view kCommittenteIva =
    "FatturaElettronicaHeader/CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA";
constexpr std::string_view kCommittenteSemplice =
    "FatturaElettronicaHeader/CessionarioCommittente/IdentificativiFiscali";
constexpr std::string_view kCommittenteIvaSemplice =
    "FatturaElettronicaHeader/CessionarioCommittente/IdentificativiFiscali/IdFiscaleIVA";
constexpr std::string_view kDocumento = "FatturaElettronicaBody/DatiGenerali/DatiGeneraliDocumento";
constexpr std::string_view kRitenuta =
    "FatturaElettronicaBody/DatiGenerali/DatiGeneraliDocumento/DatiRitenuta";
constexpr std::string_view kCassa =
    "FatturaElettronicaBody/DatiGenerali/DatiGeneraliDocumento/DatiCassaPrevidenziale";
constexpr std::string_view kBollo = "FatturaElettronicaBody/DatiGenerali/DatiGeneraliDocumento/DatiBollo";
constexpr std::string_view kSconto =
    "FatturaElettronicaBody/DatiGenerali/DatiGeneraliDocumento/ScontoMaggiorazione";
constexpr std::string_view kCollegata = "FatturaElettronicaBody/DatiGenerali/DatiFattureCollegate";
constexpr std::string_view kLinea = "FatturaElettronicaBody/DatiBeniServizi/DettaglioLinee";
constexpr std::string_view kAltroDato =
    "FatturaElettronicaBody/DatiBeniServizi/DettaglioLinee/AltriDatiGestionali";
constexpr std::string_view kRiepilogo = "FatturaElettronicaBody/DatiBeniServizi/DatiRiepilogo";
constexpr std::string_view kScadenza = "FatturaElettronicaBody/DatiPagamento/DettaglioPagamento";

template <class T>
std::size_t aggiunto(std::vector<T>& gruppo) {
  gruppo.emplace_back();
  return gruppo.size();
}
// With the line of the text where the block begins.
template <class T>
std::size_t aggiuntoBlocco(InLettura& l, std::vector<T>& gruppo) {
  gruppo.emplace_back();
  gruppo.back().riga = l.posto.riga;
  return gruppo.size();
}
std::size_t bollo(InLettura& l) {
  l.corpo.bollo.emplace();
  return 1;
}
std::size_t stabile(InLettura& l) {
  l.testata.cedente.stabileOrganizzazione = true;
  return 1;
}
std::size_t rappresentante(InLettura& l) {
  l.testata.cedente.rappresentanteFiscale = true;
  return 1;
}

struct Gruppo {
  std::string_view percorso;
  std::size_t (*apri)(InLettura&);  // returns how many there are then
};
constexpr auto kGruppi = std::to_array<Gruppo>({
    {kRitenuta, [](InLettura& l) { return aggiuntoBlocco(l, l.corpo.ritenute); }},
    {kCassa, [](InLettura& l) { return aggiuntoBlocco(l, l.corpo.casse); }},
    {kBollo, bollo},
    {kSconto, [](InLettura& l) { return aggiunto(l.corpo.sconti); }},
    {kCollegata, [](InLettura& l) { return aggiunto(l.corpo.collegate); }},
    {kLinea, [](InLettura& l) { return aggiunto(l.corpo.linee); }},
    {kAltroDato, [](InLettura& l) { return aggiunto(ultimo(l.corpo.linee).altriDati); }},
    {kRiepilogo, [](InLettura& l) { return aggiunto(l.corpo.riepiloghi); }},
    {kScadenza, [](InLettura& l) { return aggiunto(l.corpo.scadenze); }},
    {"FatturaElettronicaHeader/CedentePrestatore/StabileOrganizzazione", stabile},
    {"FatturaElettronicaHeader/CedentePrestatore/RappresentanteFiscale", rappresentante},
    {"FatturaElettronicaHeader/RappresentanteFiscale", rappresentante},
});

struct Elemento {
  std::string_view dentro;
  std::string_view nome;
  void (*metti)(InLettura&, std::string_view);
};
constexpr auto kElementi = std::to_array<Elemento>({
    {kCedenteIva, "IdPaese", codice<inCedente, &Soggetto::paese>},
    {kCedenteIva, "IdCodice", codice<inCedente, &Soggetto::partitaIva>},
    {kCedenteDati, "CodiceFiscale", codice<inCedente, &Soggetto::codiceFiscale>},
    {kCedenteNome, "Denominazione", come<inCedente, &Soggetto::denominazione>},
    {kCedenteNome, "Nome", come<inCedente, &Soggetto::nome>},
    {kCedenteNome, "Cognome", come<inCedente, &Soggetto::cognome>},
    {kCedenteDati, "RegimeFiscale", codice<inCedente, &Soggetto::regime>},
    {kCedenteSede, "Indirizzo", come<inSedeCedente, &Sede::indirizzo>},
    {kCedenteSede, "NumeroCivico", come<inSedeCedente, &Sede::civico>},
    {kCedenteSede, "CAP", come<inSedeCedente, &Sede::cap>},
    {kCedenteSede, "Comune", come<inSedeCedente, &Sede::comune>},
    {kCedenteSede, "Provincia", codice<inSedeCedente, &Sede::provincia>},
    {kCedenteSede, "Nazione", codice<inSedeCedente, &Sede::nazione>},
    {kCedenteIvaSemplice, "IdPaese", codice<inCedente, &Soggetto::paese>},
    {kCedenteIvaSemplice, "IdCodice", codice<inCedente, &Soggetto::partitaIva>},
    {kCedente, "CodiceFiscale", codice<inCedente, &Soggetto::codiceFiscale>},
    {kCedente, "Denominazione", come<inCedente, &Soggetto::denominazione>},
    {kCedente, "Nome", come<inCedente, &Soggetto::nome>},
    {kCedente, "Cognome", come<inCedente, &Soggetto::cognome>},
    {kCedente, "RegimeFiscale", codice<inCedente, &Soggetto::regime>},
    {kCommittenteIva, "IdPaese", codice<inCommittente, &Soggetto::paese>},
    {kCommittenteIva, "IdCodice", codice<inCommittente, &Soggetto::partitaIva>},
    {kCommittenteDati, "CodiceFiscale", codice<inCommittente, &Soggetto::codiceFiscale>},
    {kCommittenteNome, "Denominazione", come<inCommittente, &Soggetto::denominazione>},
    {kCommittenteNome, "Nome", come<inCommittente, &Soggetto::nome>},
    {kCommittenteNome, "Cognome", come<inCommittente, &Soggetto::cognome>},
    {kCommittenteIvaSemplice, "IdPaese", codice<inCommittente, &Soggetto::paese>},
    {kCommittenteIvaSemplice, "IdCodice", codice<inCommittente, &Soggetto::partitaIva>},
    {kCommittenteSemplice, "CodiceFiscale", codice<inCommittente, &Soggetto::codiceFiscale>},
    {kDocumento, "TipoDocumento", codice<inDocumento, &Fattura::tipo>},
    {kDocumento, "Divisa", codice<inDocumento, &Fattura::divisa>},
    {kDocumento, "Data", come<inDocumento, &Fattura::data>},
    {kDocumento, "Numero", come<inDocumento, &Fattura::numero>},
    {kDocumento, "ImportoTotaleDocumento", come<inDocumento, &Fattura::totale>},
    {kDocumento, "Arrotondamento", come<inDocumento, &Fattura::arrotondamento>},
    {kDocumento, "Causale", causaleDocumento},
    {kRitenuta, "TipoRitenuta", codice<inRitenuta, &Ritenuta::tipo>},
    {kRitenuta, "ImportoRitenuta", come<inRitenuta, &Ritenuta::importo>},
    {kRitenuta, "AliquotaRitenuta", aliquota<inRitenuta, &Ritenuta::aliquota>},
    {kRitenuta, "CausalePagamento", codice<inRitenuta, &Ritenuta::causale>},
    {kCassa, "TipoCassa", codice<inCassa, &Cassa::tipo>},
    {kCassa, "AlCassa", aliquota<inCassa, &Cassa::aliquota>},
    {kCassa, "ImportoContributoCassa", come<inCassa, &Cassa::importo>},
    {kCassa, "ImponibileCassa", come<inCassa, &Cassa::imponibile>},
    {kCassa, "AliquotaIVA", aliquota<inCassa, &Cassa::aliquotaIva>},
    {kCassa, "Ritenuta", come<inCassa, &Cassa::ritenuta>},
    {kCassa, "Natura", codice<inCassa, &Cassa::natura>},
    {kBollo, "BolloVirtuale", codice<inBollo, &Bollo::virtuale>},
    {kBollo, "ImportoBollo", come<inBollo, &Bollo::importo>},
    {kSconto, "Tipo", codice<inSconto, &Sconto::tipo>},
    {kSconto, "Percentuale", aliquota<inSconto, &Sconto::percentuale>},
    {kSconto, "Importo", come<inSconto, &Sconto::importo>},
    {kCollegata, "IdDocumento", come<inCollegata, &DocumentoCollegato::numero>},
    {kCollegata, "Data", come<inCollegata, &DocumentoCollegato::data>},
    {kLinea, "NumeroLinea", come<inLinea, &Linea::numero>},
    {kLinea, "Descrizione", come<inLinea, &Linea::descrizione>},
    {kLinea, "PrezzoTotale", come<inLinea, &Linea::prezzoTotale>},
    {kLinea, "AliquotaIVA", aliquota<inLinea, &Linea::aliquotaIva>},
    {kLinea, "Ritenuta", come<inLinea, &Linea::ritenuta>},
    {kLinea, "Natura", codice<inLinea, &Linea::natura>},
    {kAltroDato, "TipoDato", come<inAltroDato, &AltroDato::tipo>},
    {kAltroDato, "RiferimentoTesto", come<inAltroDato, &AltroDato::testo>},
    {kAltroDato, "RiferimentoNumero", come<inAltroDato, &AltroDato::numero>},
    {kRiepilogo, "AliquotaIVA", aliquota<inRiepilogo, &Riepilogo::aliquotaIva>},
    {kRiepilogo, "Natura", codice<inRiepilogo, &Riepilogo::natura>},
    {kRiepilogo, "SpeseAccessorie", come<inRiepilogo, &Riepilogo::speseAccessorie>},
    {kRiepilogo, "Arrotondamento", come<inRiepilogo, &Riepilogo::arrotondamento>},
    {kRiepilogo, "ImponibileImporto", come<inRiepilogo, &Riepilogo::imponibile>},
    {kRiepilogo, "Imposta", come<inRiepilogo, &Riepilogo::imposta>},
    {kRiepilogo, "EsigibilitaIVA", codice<inRiepilogo, &Riepilogo::esigibilita>},
    {kScadenza, "ModalitaPagamento", codice<inScadenza, &Scadenza::modalita>},
    {kScadenza, "DataScadenzaPagamento", come<inScadenza, &Scadenza::data>},
    {kScadenza, "ImportoPagamento", come<inScadenza, &Scadenza::importo>},
});

constexpr bool prima(const Elemento& a, const Elemento& b) {
  return a.dentro != b.dentro ? a.dentro < b.dentro : a.nome < b.nome;
}
constexpr auto kOrdinati = [] {
  auto voci = kElementi;
  std::sort(voci.begin(), voci.end(), prima);
  return voci;
}();
static_assert(std::adjacent_find(kOrdinati.begin(), kOrdinati.end(),
                                 [](const Elemento& a, const Elemento& b) { return !prima(a, b); }) ==
              kOrdinati.end());

const Elemento* elementoDi(std::string_view percorso) {
  const std::size_t barra = percorso.rfind('/');
  if (barra == std::string_view::npos) return nullptr;
  const Elemento cercato{percorso.substr(0, barra), percorso.substr(barra + 1), nullptr};
  const auto* const suo = std::lower_bound(kOrdinati.begin(), kOrdinati.end(), cercato, prima);
  return suo != kOrdinati.end() && !prima(cercato, *suo) ? suo : nullptr;
}

}  // namespace

void InLettura::rileva(std::string codice, std::string testo, bool avviso) {
  corrente().rilievi.push_back({std::move(codice), posto, std::move(testo), avviso});
}

bool apriGruppo(InLettura& lettura, std::string_view percorso, const Limiti& limiti) {
  const auto* const gruppo = std::find_if(kGruppi.begin(), kGruppi.end(),
                                          [&](const Gruppo& uno) { return uno.percorso == percorso; });
  if (gruppo == kGruppi.end()) return false;
  if (gruppo->apri(lettura) > limiti.gruppi) {
    throw ErroreFattura("F05", lettura.posto,
                        "Il documento ha più di " + fromInteger(static_cast<std::int64_t>(limiti.gruppi)) +
                            " elementi di questo genere");
  }
  return true;
}

bool campoLetto(std::string_view percorso) { return elementoDi(percorso) != nullptr; }

void metti(InLettura& lettura, std::string_view percorso, std::string_view testo) {
  const Elemento* const elemento = elementoDi(percorso);
  if (elemento != nullptr && !testo.empty()) elemento->metti(lettura, testo);
}

}  // namespace cu::fatture
