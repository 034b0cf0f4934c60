#include "gestione/voci_elenco.h"

#include <unordered_map>

#include "base/text.h"
#include "data/recordset.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {
namespace {

constexpr std::size_t kMassimoDescrizione = 60;

// What the codes of one of the program's own lists mean.
std::unordered_map<std::string, std::string> significati(std::string_view lista) {
  std::unordered_map<std::string, std::string> testi;
  if (lista.empty()) return testi;
  const Tabella tabella(risorsa(lista));
  for (std::size_t i = 0; i < tabella.righe(); ++i) {
    testi.emplace(tabella.campo(i, "Codice"), tabella.campo(i, "Descrizione"));
  }
  return testi;
}

std::string accorciato(const std::string& testo) {
  if (codePoints(testo) <= kMassimoDescrizione) return testo;
  return std::string(trimRight(leftCodePoints(testo, kMassimoDescrizione))) + "…";
}

}  // namespace

void riempiVoci(ListBox& elenco, Connection& connessione, std::string_view domanda, std::string_view lista) {
  const auto testi = significati(lista);
  elenco.clear();
  elenco.add("", 0);
  Recordset righe;
  for (righe.Open(connessione, domanda); !righe.Eof(); righe.MoveNext()) {
    std::string testo = righe.Get(1).toText();
    const auto suo = testi.find(testo);
    if (suo != testi.end()) testo += " - " + accorciato(suo->second);
    elenco.add(testo, righe.Get(0).integer());
  }
  elenco.setIndex(0);
}

void riempiNazioni(ListBox& elenco, Connection& connessione) {
  riempiVoci(elenco, connessione, "SELECT IDNazione, Nazione FROM Nazione ORDER BY Nazione");
}

void riempiEventi(ListBox& elenco, Connection& connessione) {
  riempiVoci(elenco, connessione,
             "SELECT IDEventoEccezionale, CodiceEventoEccezionale FROM EventoEccezionale ORDER BY "
             "IDEventoEccezionale",
             "liste/eventi_eccezionali.tsv");
}

void riempiCategorie(ListBox& elenco, Connection& connessione) {
  riempiVoci(elenco, connessione,
             "SELECT IDCategoriaParticolare, CodiceCategoriaParticolare FROM CategoriaParticolare ORDER BY "
             "IDCategoriaParticolare",
             "liste/categorie_particolari.tsv");
}

void riempiEnti(ListBox& elenco, Connection& connessione) {
  riempiVoci(
      elenco, connessione,
      "SELECT IDCUEntePrevidenziale, CUDenominazioneEntePrevidenziale FROM CUEntePrevidenziale ORDER BY "
      "CUDenominazioneEntePrevidenziale");
}

void riempiCategorieEnti(ListBox& elenco, Connection& connessione) {
  riempiVoci(elenco, connessione,
             "SELECT IDCUCategoriaEntePrevidenziale, CUCodiceCategoriaEntePrevidenziale FROM "
             "CUCategoriaEntePrevidenziale ORDER BY IDCUCategoriaEntePrevidenziale",
             "liste/categorie_enti_previdenziali.tsv");
}

std::int32_t idScelto(const ListBox& elenco) {
  return static_cast<std::int32_t>(elenco.storedRecord().value_or(0));
}

void scegliId(ListBox& elenco, std::int32_t id) { elenco.setRecord(id); }

std::int32_t idScelto(const Picker& comune) { return static_cast<std::int32_t>(comune.storedRecord()); }

void collegaComune(Picker& comune, const ContestoGestione& contesto) {
  comune.bind(contesto.connessione(), "Comuni", contesto.contestoGuida);
}

void collegaCarica(Selector& carica, Connection& connessione) {
  carica.bind(connessione, {{.table = "CodiceCarica",
                             .codeField = "Codice",
                             .descriptionField = "CodiceCarica",
                             .idField = "IDCodiceCarica",
                             .filter = {}},
                            "Codice",
                            "Carica",
                            "Carica del rappresentante"});
}

void collegaCausale(Selector& causale, Connection& connessione) {
  causale.bind(connessione, {{.table = "CausalePagamento",
                              .codeField = "Codice",
                              .descriptionField = "CausalePagamento",
                              .idField = "IDCausalePagamento",
                              .filter = {}},
                             "Codice causale",
                             "Descrizione causale",
                             "Causale pagamento"});
}

void collegaPercipiente(Selector& percipiente, Connection& connessione, std::int32_t idAzienda) {
  percipiente.bind(connessione, {{.table = "RepPercipienteCD",
                                  .codeField = "Codice",
                                  .descriptionField = "RTRIM(Anagrafica + ' ' + ISNULL(Nome, ''))",
                                  .idField = "IDAnagrafica",
                                  .filter = "IDAzienda = " + fromInteger(idAzienda)},
                                 "Codice",
                                 "Percipiente",
                                 ""});
}

}  // namespace cu
