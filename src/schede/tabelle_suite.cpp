#include "schede/tabelle_suite.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace cu::schede {
namespace {

using enum TipoColonna;

constexpr ColonnaSuite kColonneAzienda[] = {{"IDAzienda", Intero}, {"IDAnagrafica", Id}};
constexpr ColonnaSuite kColonneAnagrafica[] = {{"IDAnagrafica", Intero},
                                               {"Anagrafica"},
                                               {"Nome"},
                                               {"PersonaFisica", Flag},
                                               {"CodiceFiscale"},
                                               {"PartitaIva"},
                                               {"EMailInternet"},
                                               {"Telefono"},
                                               {"Fax"},
                                               {"Cap"},
                                               {"Indirizzo"},
                                               {"Sesso"},
                                               {"DataNascita", Giorno},
                                               {"IDComuneNascita", Id},
                                               {"IDNazionalita", Id},
                                               {"IDComune", Id},
                                               {"IDNazione", Id}};
constexpr ColonnaSuite kColonneComune[] = {
    {"IDComune", Intero}, {"Comune"}, {"IDProvincia", Id}, {"CodiceComuneDiNascita"}};
constexpr ColonnaSuite kColonneConfigurazioneGenerale[] = {{"IDAzienda", Intero},
                                                           {"CodiceFiscaleSocieta"},
                                                           {"IDAnagraficaRappresentante", Id},
                                                           {"IDCodiceCaricaRappresentante", Id},
                                                           {"IDFilialePrevalente", Id}};
constexpr ColonnaSuite kColonneConfigurazioneCompensi[] = {{"IDAzienda", Intero},
                                                           {"IDEventoEccezionale", Id}};
constexpr ColonnaSuite kColonneConfigurazioneContabile[] = {{"IDAzienda", Intero}, {"InterlineaGiornale"}};
constexpr ColonnaSuite kColonneConfigurazioneElenco[] = {{"IDAzienda", Intero},
                                                         {"CodiceFiscaleIntermediario"},
                                                         {"TipoComunicazione", Id},
                                                         {"DataImpegno", Giorno}};
constexpr ColonnaSuite kColonneFiliale[] = {
    {"IDFiliale", Intero}, {"IDAzienda", Id}, {"IDAttivitaAzienda", Id}};
constexpr ColonnaSuite kColonneAttivitaAzienda[] = {{"IDAttivitaAzienda", Intero}, {"IDAzienda", Id}};
constexpr ColonnaSuite kColonneAttivitaPerPeriodo[] = {
    {"IDAttivitaAzienda", Intero}, {"IDPeriodoIva", Intero}, {"IDCodiceAttivita", Id}};
constexpr ColonnaSuite kColonnePeriodoIva[] = {{"IDPeriodoIva", Intero}, {"IDAzienda", Id}, {"Anno", Intero}};
constexpr ColonnaSuite kColonneCodiceAttivita[] = {{"IDCodiceAttivita", Intero}, {"CodiceAttivita"}};
constexpr ColonnaSuite kColonneFilialePredefinita[] = {
    {"IDDefaultFilialePerTipoOggetto", Intero}, {"IDTipoOggetto", Id}, {"IDFiliale", Id}};
constexpr ColonnaSuite kColonneEnte[] = {{"IDCUEntePrevidenziale", Intero},
                                         {"CUCodiceFiscale"},
                                         {"CUDenominazioneEntePrevidenziale"},
                                         {"CUCodiceEntePrevidenziale"}};
constexpr ColonnaSuite kColonneCategoriaEnte[] = {{"IDCUCategoriaEntePrevidenziale", Intero},
                                                  {"CUCodiceCategoriaEntePrevidenziale"}};
constexpr ColonnaSuite kColonneCategoriaParticolare[] = {{"IDCategoriaParticolare", Intero},
                                                         {"CodiceCategoriaParticolare"}};
constexpr ColonnaSuite kColonneEventoEccezionale[] = {{"IDEventoEccezionale", Intero},
                                                      {"CodiceEventoEccezionale"}};
constexpr ColonnaSuite kColonnePercipiente[] = {{"IDAzienda", Intero},
                                                {"IDAnagrafica", Intero},
                                                {"Codice"},
                                                {"NonResidente", Flag},
                                                {"NonResidenteSchumacker", Flag},
                                                {"CodiceFiscaleRappresentante"},
                                                {"CodiceIdentificazioneFiscaleEstero"},
                                                {"CodiceAzPressoENPAM"},
                                                {"CodiceAzPressoENPAPI"},
                                                {"IDCategoriaParticolare", Id},
                                                {"IDEventoEccezionale", Id},
                                                {"IDCUEntePrevidenziale", Id},
                                                {"IDCUCategoriaEntePrevidenziale", Id}};
constexpr ColonnaSuite kColonneCompenso[] = {{"IDCompenso", Intero},
                                             {"IDAzienda", Id},
                                             {"IDAnagrafica", Id},
                                             {"IDCausalePagamento", Id},
                                             {"DataPagamento", Giorno},
                                             {"NumeroDocumento"},
                                             {"DataDocumento", Giorno},
                                             {"OnorarioProvvigioni", Importo},
                                             {"QuotaProvvigioniNonSoggette", Importo},
                                             {"SommeNonSoggette", Importo},
                                             {"SommeNonSoggetteRegConv", Importo},
                                             {"RitenutaAcconto", Importo},
                                             {"RitenutaImposta", Importo},
                                             {"ContributoPrevidenziale", Importo},
                                             {"RitenutaPrevidenziale13", Importo}};
constexpr ColonnaSuite kColonneConto[] = {{"IDAnagrafica", Intero},
                                          {"IDCausalePagamento", Intero},
                                          {"Anno", Intero},
                                          {"IDAzienda", Intero},
                                          {"OnorarioProvvigioni", Importo},
                                          {"QuotaProvvigioniNonSoggette", Importo},
                                          {"SommeNonSoggette", Importo},
                                          {"SommeNonSoggetteRegConv", Importo},
                                          {"RitenutaAcconto", Importo},
                                          {"RitenutaImposta", Importo},
                                          {"ContributoPrevidenziale", Importo},
                                          {"RitenutaPrevidenziale13", Importo}};
constexpr ColonnaSuite kColonneDatiAggiuntivi[] = {{"IDAnagrafica", Intero}, {"IDCausalePagamento", Intero},
                                                   {"Anno", Intero},         {"IDAzienda", Intero},
                                                   {"Anticipazione", Flag},  {"IDCodicePerNonSoggetti", Id}};

}  // namespace

const TabellaSuite kAzienda{"Azienda", 1, kColonneAzienda};
const TabellaSuite kAnagrafica{"Anagrafica", 1, kColonneAnagrafica};
const TabellaSuite kComune{"Comune", 1, kColonneComune};
const TabellaSuite kConfigurazioneGenerale{"ConfigurazioneGenerale", 1, kColonneConfigurazioneGenerale};
const TabellaSuite kConfigurazioneCompensi{"ConfigurazioneCompensiATerzi", 1, kColonneConfigurazioneCompensi};
const TabellaSuite kConfigurazioneContabile{"ConfigurazioneContabile", 1, kColonneConfigurazioneContabile};
const TabellaSuite kConfigurazioneElenco{"ConfigurazioneElencoCliFor", 1, kColonneConfigurazioneElenco};
const TabellaSuite kFiliale{"Filiale", 1, kColonneFiliale};
const TabellaSuite kAttivitaAzienda{"AttivitaAzienda", 1, kColonneAttivitaAzienda};
const TabellaSuite kAttivitaPerPeriodo{"AttivitaAziendaPerPeriodoIva", 2, kColonneAttivitaPerPeriodo};
const TabellaSuite kPeriodoIva{"PeriodoIva", 1, kColonnePeriodoIva};
const TabellaSuite kCodiceAttivita{"CodiceAttivita", 1, kColonneCodiceAttivita};
const TabellaSuite kFilialePredefinita{"DefaultFilialePerTipoOggetto", 1, kColonneFilialePredefinita};
const TabellaSuite kEnte{"CUEntePrevidenziale", 1, kColonneEnte};
const TabellaSuite kCategoriaEnte{"CUCategoriaEntePrevidenziale", 1, kColonneCategoriaEnte};
const TabellaSuite kCategoriaParticolare{"CategoriaParticolare", 1, kColonneCategoriaParticolare};
const TabellaSuite kEventoEccezionale{"EventoEccezionale", 1, kColonneEventoEccezionale};
const TabellaSuite kPercipiente{"Percipiente", 2, kColonnePercipiente};
const TabellaSuite kCompenso{"Compenso", 1, kColonneCompenso};
const TabellaSuite kConto{"ContoIndividuale", 4, kColonneConto};
const TabellaSuite kDatiAggiuntivi{"ContoIndividualeDatiAggiuntivi", 4, kColonneDatiAggiuntivi};

std::size_t TabellaSuite::posto(std::string_view colonna) const {
  const auto trovata = std::find_if(colonne.begin(), colonne.end(),
                                    [&](const ColonnaSuite& una) { return una.nome == colonna; });
  if (trovata == colonne.end()) throw std::logic_error("colonna sconosciuta: " + std::string(colonna));
  return static_cast<std::size_t>(trovata - colonne.begin());
}

std::span<const TabellaSuite* const> tabelleSuite() {
  static constexpr std::array kTutte = {&kAzienda,
                                        &kAnagrafica,
                                        &kComune,
                                        &kConfigurazioneGenerale,
                                        &kConfigurazioneCompensi,
                                        &kConfigurazioneContabile,
                                        &kConfigurazioneElenco,
                                        &kFiliale,
                                        &kAttivitaAzienda,
                                        &kAttivitaPerPeriodo,
                                        &kPeriodoIva,
                                        &kCodiceAttivita,
                                        &kFilialePredefinita,
                                        &kEnte,
                                        &kCategoriaEnte,
                                        &kCategoriaParticolare,
                                        &kEventoEccezionale,
                                        &kPercipiente,
                                        &kCompenso,
                                        &kConto,
                                        &kDatiAggiuntivi};
  return kTutte;
}

const TabellaSuite* tabellaSuite(std::string_view nome) {
  for (const TabellaSuite* const una : tabelleSuite()) {
    if (una->nome == nome) return una;
  }
  return nullptr;
}

}  // namespace cu::schede
