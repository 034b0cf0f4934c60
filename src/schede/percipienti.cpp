#include "schede/percipienti.h"

#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "schede/conteggio.h"
#include "schede/righe.h"

namespace cu::schede {
namespace {

std::string dellAzienda(std::int32_t idAzienda) {
  return " WHERE Percipiente.IDAzienda = " + fromInteger(idAzienda);
}

// The payees that have a name, of two statements.
std::vector<SchedaPercipiente> uniti(Connection& connessione, const std::string& condizione,
                                     const std::string& condizioneNomi) {
  std::unordered_map<std::int32_t, SchedaAnagrafica> nomi;
  perOgniRiga(connessione, kAnagrafica, condizioneNomi, [&](const CellView* riga) {
    SchedaAnagrafica nome = anagraficaDa(riga);
    nomi.emplace(nome.id, std::move(nome));
  });
  std::vector<SchedaPercipiente> schede;
  schede.reserve(nomi.size());
  perOgniRiga(connessione, kPercipiente, condizione, [&](const CellView* riga) {
    const auto suo = nomi.find(idIn(riga[1]));
    if (suo != nomi.end()) schede.push_back(percipienteDa(riga, std::move(suo->second)));
  });
  return schede;
}

}  // namespace

std::vector<SchedaPercipiente> Percipienti::tutti() const {
  return uniti(connessione_, dellAzienda(idAzienda_) + " ORDER BY IDAnagrafica",
               " INNER JOIN Percipiente ON Anagrafica.IDAnagrafica = Percipiente.IDAnagrafica" +
                   dellAzienda(idAzienda_));
}

std::optional<SchedaPercipiente> Percipienti::cerca(std::int32_t idAnagrafica) const {
  const std::string id = fromInteger(idAnagrafica);
  std::vector<SchedaPercipiente> trovati = uniti(
      connessione_, dellAzienda(idAzienda_) + " AND IDAnagrafica = " + id, " WHERE IDAnagrafica = " + id);
  if (trovati.empty()) return std::nullopt;
  return std::move(trovati.front());
}

std::vector<SchedaPercipiente> Percipienti::conCodiceFiscale(std::string_view codice) const {
  std::string condizione = " WHERE CodiceFiscale = ";
  appendTesto(condizione, codice);
  std::vector<std::int32_t> nomi;
  perOgniRiga(connessione_, kAnagrafica, condizione + " ORDER BY IDAnagrafica",
              [&](const CellView* riga) { nomi.push_back(anagraficaDa(riga).id); });
  std::vector<SchedaPercipiente> schede;
  for (const std::int32_t nome : nomi) {
    if (auto scheda = cerca(nome)) schede.push_back(*std::move(scheda));
  }
  return schede;
}

std::vector<Finding> Percipienti::controlla(const SchedaPercipiente& percipiente) {
  std::vector<Finding> mancanze;
  const auto vuole = [&](bool manca, const char* testo, const char* posto) {
    if (manca) mancanze.push_back({"manca", testo, posto});
  };
  const SchedaAnagrafica& a = percipiente.anagrafica;
  vuole(a.anagrafica.empty(), "Manca il cognome o la denominazione del percipiente.", "anagrafica");
  vuole(percipiente.codice.empty(), "Manca il codice del percipiente.", "codice");
  vuole(!percipiente.nonResidente && a.codiceFiscale.empty() && a.partitaIva.empty(),
        "Manca il codice fiscale o la partita IVA del percipiente.", "codiceFiscale");
  if (!a.personaFisica) return mancanze;
  vuole(a.nome.empty(), "Manca il nome del percipiente.", "nome");
  vuole(a.sesso != "M" && a.sesso != "F", "Manca il sesso del percipiente.", "sesso");
  vuole(a.nascita == Date(), "Manca la data di nascita del percipiente.", "nascita");
  vuole(a.idComuneNascita == 0 && a.idNazionalita == 0, "Manca il luogo di nascita del percipiente.",
        "idComuneNascita");
  return mancanze;
}

SchedaPercipiente Percipienti::aggiungi(Scrittura& scrittura, SchedaPercipiente percipiente) {
  if (percipiente.anagrafica.id == 0) percipiente.anagrafica.id = scrittura.nuovoId(kAnagrafica);
  scrittura.inserisci(kAnagrafica, rigaAnagrafica(percipiente.anagrafica));
  scrittura.inserisci(kPercipiente, rigaPercipiente(percipiente));
  return percipiente;
}

bool Percipienti::cambia(Scrittura& scrittura, const SchedaPercipiente& percipiente) {
  const bool nome = scrittura.riscrivi(kAnagrafica, rigaAnagrafica(percipiente.anagrafica));
  return scrittura.riscrivi(kPercipiente, rigaPercipiente(percipiente)) || nome;
}

Result<> Percipienti::togli(Scrittura& scrittura, const SchedaPercipiente& percipiente) {
  const std::string id = fromInteger(percipiente.anagrafica.id);
  const std::string suoi =
      " WHERE IDAzienda = " + fromInteger(percipiente.idAzienda) + " AND IDAnagrafica = " + id;
  scrittura.chiudi();
  Connection& connessione = scrittura.connessione();
  Result<> usi = senzaUsi(
      connessione, "il percipiente",
      {{"Compenso", suoi, "un compenso", "compensi"},
       {"ContoIndividuale", suoi, "un conto individuale", "conti individuali"},
       {"ContoIndividualeDatiAggiuntivi", suoi, "dati aggiuntivi di un conto", "dati aggiuntivi di conti"},
       {"ModuloXContoIndividuale", suoi, "un modulo aggiuntivo", "moduli aggiuntivi"}});
  if (!usi) return usi;
  for (const Riga& riga : leggiRighe(connessione, kPercipiente, suoi)) scrittura.togli(kPercipiente, riga);
  togliAnagraficaLibera(scrittura, percipiente.anagrafica.id);
  return Done{};
}

}  // namespace cu::schede
