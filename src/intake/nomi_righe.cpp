#include "intake/nomi_righe.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "intake/storico.h"
#include "schede/righe.h"
#include "schede/scrittura.h"
#include "schede/testo_riga.h"

namespace cu::intake {
namespace {

using schede::idIn;
using schede::Riga;
using schede::TabellaSuite;

// What a row of a table is to a clerk.
struct ParoleTabella {
  std::string_view tabella;
  std::string_view riga;  // with its article
  std::string_view una;
  std::string_view piu;
};
constexpr auto kParoleTabelle = std::to_array<ParoleTabella>({
    {"Azienda", "l'azienda", "azienda", "aziende"},
    {"Anagrafica", "l'anagrafica di", "anagrafica", "anagrafiche"},
    {"Comune", "la località", "località", "località"},
    {"ConfigurazioneGenerale", "i dati dell'azienda", "azienda", "aziende"},
    {"ConfigurazioneCompensiATerzi", "l'evento eccezionale dell'azienda", "azienda", "aziende"},
    {"ConfigurazioneContabile", "i dati dell'azienda", "azienda", "aziende"},
    {"ConfigurazioneElencoCliFor", "l'impegno a trasmettere dell'azienda", "azienda", "aziende"},
    {"Filiale", "la sede dell'azienda", "sede", "sedi"},
    {"AttivitaAzienda", "l'attività dell'azienda", "attività", "attività"},
    {"AttivitaAziendaPerPeriodoIva", "l'attività dell'azienda in un anno", "anno di attività",
     "anni di attività"},
    {"PeriodoIva", "l'anno di attività", "anno di attività", "anni di attività"},
    {"CodiceAttivita", "il codice di attività", "codice di attività", "codici di attività"},
    {"DefaultFilialePerTipoOggetto", "la sede dell'azienda", "sede", "sedi"},
    {"CUEntePrevidenziale", "l'ente previdenziale", "ente previdenziale", "enti previdenziali"},
    {"CUCategoriaEntePrevidenziale", "la categoria dell'ente previdenziale", "categoria di un ente",
     "categorie di enti"},
    {"CategoriaParticolare", "la categoria particolare", "categoria particolare", "categorie particolari"},
    {"EventoEccezionale", "l'evento eccezionale", "evento eccezionale", "eventi eccezionali"},
    {"Percipiente", "il percipiente", "percipiente", "percipienti"},
    {"Compenso", "il compenso di", "compenso", "compensi"},
    {"ContoIndividuale", "il conto di", "conto", "conti"},
    {"ContoIndividualeDatiAggiuntivi", "i dati aggiuntivi del conto di", "conto con dati aggiuntivi",
     "conti con dati aggiuntivi"},
    {"ModuloXContoIndividuale", "il modulo aggiuntivo di", "modulo aggiuntivo", "moduli aggiuntivi"},
    {"CuInvio", "il file telematico", "file telematico", "file telematici"},
});

const ParoleTabella& paroleDi(std::string_view tabella) {
  static constexpr ParoleTabella kAltra = {"", "un dato dell'archivio", "altro dato", "altri dati"};
  const auto sue = std::find_if(kParoleTabelle.begin(), kParoleTabelle.end(),
                                [&](const ParoleTabella& una) { return una.tabella == tabella; });
  return sue == kParoleTabelle.end() ? kAltra : *sue;
}

std::string nomeIntero(std::string_view cognome, std::string_view nome) {
  return nome.empty() ? std::string(cognome) : std::string(cognome) + ' ' + std::string(nome);
}

std::string conNome(std::string_view parole, const std::string& nome) {
  return nome.empty() ? std::string(parole) : std::string(parole) + ' ' + nome;
}

}  // namespace

// Rows that are there take precedence over those that imports have written.
const NomiRighe::Nomi& NomiRighe::nomi() {
  if (nomi_) return *nomi_;
  Nomi& trovati = nomi_.emplace(connessione_);
  schede::perOgniRiga(connessione_, schede::kAnagrafica, {}, [&](const CellView* riga) {
    trovati.anagrafiche.emplace(idIn(riga[0]), nomeIntero(riga[1].text(), riga[2].text()));
  });
  schede::perOgniRiga(connessione_, schede::kPercipiente, {},
                      [&](const CellView* riga) { trovati.codici.emplace(idIn(riga[1]), riga[2].toText()); });
  schede::perOgniRiga(connessione_, schede::kAzienda, {},
                      [&](const CellView* riga) { trovati.aziende.emplace(idIn(riga[0]), idIn(riga[1])); });
  if (haStoricoLeggibile(connessione_)) daStorico(trovati);
  return trovati;
}

void NomiRighe::daStorico(Nomi& nomi) {
  const auto leggi = [&](const TabellaSuite& tabella, const auto& conRiga) {
    RowStore righe;
    connessione_.Query("SELECT Dopo FROM CuImportazioneRiga WHERE Operazione = 'inserita' AND Tabella = '" +
                           std::string(tabella.nome) + "'",
                       righe);
    CellView testo;
    for (std::size_t i = 0; i < righe.size(); ++i) {
      righe.read(i, &testo);
      conRiga(schede::rigaDaTesto(tabella, testo.text()));
    }
  };
  leggi(schede::kAnagrafica, [&](const Riga& riga) {
    nomi.anagrafiche.emplace(idIn(riga, 0), nomeIntero(riga[1].view().text(), riga[2].view().text()));
  });
  leggi(schede::kPercipiente,
        [&](const Riga& riga) { nomi.codici.emplace(idIn(riga, 1), riga[2].view().toText()); });
  leggi(schede::kAzienda, [&](const Riga& riga) { nomi.aziende.emplace(idIn(riga, 0), idIn(riga, 1)); });
}

std::string NomiRighe::anagrafica(std::int32_t id) {
  const auto suo = nomi().anagrafiche.find(id);
  return suo == nomi().anagrafiche.end() ? std::string() : suo->second;
}

// "P001 Rossi Mario"
std::string NomiRighe::percipiente(std::int32_t id) {
  const auto suo = nomi().codici.find(id);
  std::string nome = anagrafica(id);
  if (suo == nomi().codici.end()) return nome;
  return nome.empty() ? suo->second : suo->second + ' ' + nome;
}

std::string NomiRighe::azienda(std::int32_t id) {
  const auto sua = nomi().aziende.find(id);
  return sua == nomi().aziende.end() ? std::string() : anagrafica(sua->second);
}

std::string NomiRighe::conto(const ChiaveConto& chiave) {
  return "il conto di " + percipiente(chiave.idAnagrafica) + ", causale " +
         nomi().elenchi.causali.codice(chiave.idCausale) + ", anno " + fromInteger(chiave.anno);
}

std::string NomiRighe::compenso(const Riga& riga) {
  constexpr std::size_t kNumero = 5;
  const std::string numero = riga[kNumero].view().toText();
  return "il compenso di " + percipiente(idIn(riga, 2)) + ", causale " +
         nomi().elenchi.causali.codice(idIn(riga, 3)) + ", del " + riga[4].view().date().toItalian() +
         (numero.empty() ? std::string() : ", documento " + numero);
}

std::string NomiRighe::riga(const TabellaSuite& tabella, const Riga& riga) {
  std::string parole(paroleDi(tabella.nome).riga);
  if (&tabella == &schede::kCompenso) return compenso(riga);
  if (&tabella == &schede::kConto) return conto({idIn(riga, 0), idIn(riga, 1), idIn(riga, 2)});
  if (&tabella == &schede::kDatiAggiuntivi)
    return "i dati aggiuntivi per " + conto({idIn(riga, 0), idIn(riga, 1), idIn(riga, 2)});
  if (&tabella == &schede::kPercipiente) return conNome(parole, percipiente(idIn(riga, 1)));
  if (&tabella == &schede::kAnagrafica) {
    const std::int32_t id = idIn(riga, 0);
    return nomi().codici.contains(id) ? "il percipiente " + percipiente(id) : conNome(parole, anagrafica(id));
  }
  if (&tabella == &schede::kPeriodoIva) return conNome(parole, riga[2].view().toText());
  const bool nominata = &tabella == &schede::kComune || &tabella == &schede::kCategoriaEnte ||
                        &tabella == &schede::kCategoriaParticolare ||
                        &tabella == &schede::kEventoEccezionale || &tabella == &schede::kCodiceAttivita;
  if (nominata) return conNome(parole, riga[1].view().toText());
  if (&tabella == &schede::kEnte) return conNome(parole, riga[2].view().toText());
  // The other tables are the company's.
  const auto colonna =
      std::find_if(tabella.colonne.begin(), tabella.colonne.end(),
                   [](const schede::ColonnaSuite& una) { return una.nome == std::string_view("IDAzienda"); });
  if (colonna == tabella.colonne.end()) return parole;
  return conNome(parole, azienda(idIn(riga, static_cast<std::size_t>(colonna - tabella.colonne.begin()))));
}

std::string detteRighe(std::string_view tabella, std::size_t quante) {
  const ParoleTabella& parole = paroleDi(tabella);
  return fromInteger(static_cast<std::int64_t>(quante)) + ' ' +
         std::string(quante == 1 ? parole.una : parole.piu);
}

}  // namespace cu::intake
