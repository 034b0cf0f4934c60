#include "schede/aziende.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "base/text.h"
#include "schede/conteggio.h"
#include "schede/righe.h"

namespace cu::schede {
namespace {

// Individual accounts, free certificate, ministerial form: the kinds of print that look up a branch.
constexpr std::array<std::int32_t, 3> kTipiOggetto = {246, 247, 342};

std::string di(std::int32_t idAzienda) { return " WHERE IDAzienda = " + fromInteger(idAzienda); }

Value intero(std::int32_t valore) { return Value::ofInteger(valore); }

// The activity of a company's main branch and its code in each year.
struct Attivita {
  std::int32_t id = 0;
  struct Anno {
    int anno = 0;
    std::int32_t idPeriodo = 0;
    bool collegato = false;  // to the activity
    std::int32_t idCodice = 0;
  };
  std::vector<Anno> anni;  // by year

  std::int32_t codiceCorrente() const {
    for (auto uno = anni.rbegin(); uno != anni.rend(); ++uno) {
      if (uno->collegato) return uno->idCodice;
    }
    return 0;
  }
};

Attivita attivitaDi(Connection& connessione, std::int32_t idAzienda, std::int32_t idFiliale) {
  Attivita attivita;
  perOgniRiga(connessione, kFiliale, " WHERE IDFiliale = " + fromInteger(idFiliale),
              [&](const CellView* riga) { attivita.id = idIn(riga[2]); });
  perOgniRiga(connessione, kPeriodoIva, di(idAzienda) + " ORDER BY Anno, IDPeriodoIva",
              [&](const CellView* riga) {
                attivita.anni.push_back({static_cast<int>(riga[2].integer()), idIn(riga[0]), false, 0});
              });
  perOgniRiga(connessione, kAttivitaPerPeriodo, " WHERE IDAttivitaAzienda = " + fromInteger(attivita.id),
              [&](const CellView* riga) {
                for (Attivita::Anno& anno : attivita.anni) {
                  if (anno.idPeriodo != idIn(riga[1])) continue;
                  anno.collegato = true;
                  anno.idCodice = idIn(riga[2]);
                }
              });
  return attivita;
}

std::string codiceAttivita(Connection& connessione, std::int32_t id) {
  std::string codice;
  perOgniRiga(connessione, kCodiceAttivita, " WHERE IDCodiceAttivita = " + fromInteger(id),
              [&](const CellView* riga) { codice = riga[1].toText(); });
  return codice;
}

std::int32_t idCodiceAttivita(Scrittura& scrittura, const std::string& codice) {
  if (codice.empty()) return 0;
  std::string condizione = " WHERE CodiceAttivita = ";
  appendTesto(condizione, codice);
  scrittura.chiudi();
  std::int32_t id = 0;
  perOgniRiga(scrittura.connessione(), kCodiceAttivita, condizione,
              [&](const CellView* riga) { id = idIn(riga[0]); });
  if (id != 0) return id;
  id = scrittura.nuovoId(kCodiceAttivita);
  scrittura.inserisci(kCodiceAttivita, {intero(id), testoONullo(codice)});
  return id;
}

SchedaAnagrafica anagrafica(Connection& connessione, std::int32_t id) {
  SchedaAnagrafica scheda;
  perOgniRiga(connessione, kAnagrafica, " WHERE IDAnagrafica = " + fromInteger(id),
              [&](const CellView* riga) { scheda = anagraficaDa(riga); });
  return scheda;
}

SchedaAzienda leggi(Connection& connessione, std::int32_t idAzienda, std::int32_t idAnagrafica) {
  SchedaAzienda scheda;
  scheda.id = idAzienda;
  scheda.sede = anagrafica(connessione, idAnagrafica);
  std::int32_t rappresentante = 0;
  perOgniRiga(connessione, kConfigurazioneGenerale, di(idAzienda), [&](const CellView* riga) {
    scheda.codiceFiscaleSocieta = riga[1].toText();
    rappresentante = idIn(riga[2]);
    scheda.idCarica = idIn(riga[3]);
    scheda.idFiliale = idIn(riga[4]);
  });
  if (rappresentante != 0) scheda.rappresentante = anagrafica(connessione, rappresentante);
  perOgniRiga(connessione, kConfigurazioneCompensi, di(idAzienda),
              [&](const CellView* riga) { scheda.idEventoEccezionale = idIn(riga[1]); });
  perOgniRiga(connessione, kConfigurazioneElenco, di(idAzienda), [&](const CellView* riga) {
    scheda.intermediario = riga[1].toText();
    scheda.impegno = idIn(riga[2]);
    scheda.dataImpegno = riga[3].date();
  });
  const Attivita attivita = attivitaDi(connessione, idAzienda, scheda.idFiliale);
  scheda.codiceAttivita = codiceAttivita(connessione, attivita.codiceCorrente());
  if (!attivita.anni.empty()) {
    scheda.primoAnno = attivita.anni.front().anno;
    scheda.ultimoAnno = attivita.anni.back().anno;
  }
  return scheda;
}

bool haRappresentante(const SchedaAzienda& azienda) { return !azienda.rappresentante.anagrafica.empty(); }
bool haIntermediario(const SchedaAzienda& azienda) {
  return !azienda.intermediario.empty() || azienda.impegno != 0 || azienda.dataImpegno != Date();
}

Riga rigaGenerale(const SchedaAzienda& azienda) {
  return {intero(azienda.id), testoONullo(azienda.codiceFiscaleSocieta), idONullo(azienda.rappresentante.id),
          idONullo(azienda.idCarica), idONullo(azienda.idFiliale)};
}

Riga rigaElenco(const SchedaAzienda& azienda) {
  return {intero(azienda.id), testoONullo(azienda.intermediario), idONullo(azienda.impegno),
          giornoONullo(azienda.dataImpegno)};
}

std::int32_t scriviNome(Scrittura& scrittura, SchedaAnagrafica& scheda) {
  if (scheda.id == 0) scheda.id = scrittura.nuovoId(kAnagrafica);
  scrittura.inserisci(kAnagrafica, rigaAnagrafica(scheda));
  return scheda.id;
}

// Writes the row that a company of the suite has, or changes it.
bool riscriviOAggiungi(Scrittura& scrittura, const TabellaSuite& tabella, const Riga& riga) {
  scrittura.chiudi();
  const std::vector<Riga> trovate =
      leggiRighe(scrittura.connessione(), tabella, condizioneChiave(tabella, riga));
  if (!trovate.empty()) return scrittura.cambia(tabella, trovate.front(), riga);
  scrittura.inserisci(tabella, riga);
  return true;
}

bool cambiaRappresentante(Scrittura& scrittura, SchedaAzienda& azienda) {
  if (!haRappresentante(azienda)) return false;
  if (azienda.rappresentante.id != 0) {
    return scrittura.riscrivi(kAnagrafica, rigaAnagrafica(azienda.rappresentante));
  }
  scriviNome(scrittura, azienda.rappresentante);
  return true;
}

bool cambiaCodiceAttivita(Scrittura& scrittura, const SchedaAzienda& azienda) {
  Connection& connessione = scrittura.connessione();
  const Attivita attivita = attivitaDi(connessione, azienda.id, azienda.idFiliale);
  const std::int32_t corrente = attivita.codiceCorrente();
  if (codiceAttivita(connessione, corrente) == azienda.codiceAttivita) return false;
  const std::int32_t nuovo = idCodiceAttivita(scrittura, azienda.codiceAttivita);
  for (const Attivita::Anno& anno : attivita.anni) {
    if (!anno.collegato || anno.idCodice != corrente) continue;
    scrittura.riscrivi(kAttivitaPerPeriodo, {intero(attivita.id), intero(anno.idPeriodo), idONullo(nuovo)});
  }
  return true;
}

void togliRighe(Scrittura& scrittura, const TabellaSuite& tabella, const std::string& condizione) {
  for (const Riga& riga : leggiRighe(scrittura.connessione(), tabella, condizione)) {
    scrittura.togli(tabella, riga);
  }
}

}  // namespace

std::vector<SchedaAzienda> Aziende::tutte() const {
  std::vector<SchedaAzienda> schede;
  for (const Riga& riga : leggiRighe(connessione_, kAzienda, " ORDER BY IDAzienda")) {
    schede.push_back(leggi(connessione_, idIn(riga, 0), idIn(riga, 1)));
  }
  return schede;
}

std::optional<SchedaAzienda> Aziende::cerca(std::int32_t idAzienda) const {
  const std::vector<Riga> righe = leggiRighe(connessione_, kAzienda, di(idAzienda));
  if (righe.empty()) return std::nullopt;
  return leggi(connessione_, idAzienda, idIn(righe.front(), 1));
}

std::vector<Finding> Aziende::controlla(const SchedaAzienda& azienda) {
  std::vector<Finding> mancanze;
  const auto vuole = [&](bool manca, const char* testo, const char* posto) {
    if (manca) mancanze.push_back({"manca", testo, posto});
  };
  vuole(azienda.sede.codiceFiscale.empty() && azienda.sede.partitaIva.empty(),
        "Manca il codice fiscale dell'azienda.", "sede.codiceFiscale");
  vuole(azienda.sede.anagrafica.empty(), "Manca la denominazione o il cognome.", "sede.anagrafica");
  vuole(azienda.sede.idComune == 0, "Manca il comune della sede.", "sede.idComune");
  vuole(azienda.sede.personaFisica && azienda.sede.nome.empty(), "Manca il nome.", "sede.nome");
  if (azienda.sede.personaFisica) return mancanze;
  const SchedaAnagrafica& r = azienda.rappresentante;
  vuole(r.codiceFiscale.empty(), "Manca il codice fiscale del rappresentante.",
        "rappresentante.codiceFiscale");
  vuole(r.anagrafica.empty(), "Manca il cognome del rappresentante.", "rappresentante.anagrafica");
  vuole(r.nome.empty(), "Manca il nome del rappresentante.", "rappresentante.nome");
  vuole(azienda.idCarica == 0, "Manca la carica del rappresentante.", "idCarica");
  return mancanze;
}

SchedaAzienda Aziende::aggiungi(Scrittura& scrittura, SchedaAzienda azienda) {
  if (azienda.id == 0) azienda.id = scrittura.nuovoId(kAzienda);
  if (azienda.idFiliale == 0) azienda.idFiliale = scrittura.nuovoId(kFiliale);
  const std::int32_t attivita = scrittura.nuovoId(kAttivitaAzienda);
  scriviNome(scrittura, azienda.sede);
  if (haRappresentante(azienda)) scriviNome(scrittura, azienda.rappresentante);
  scrittura.inserisci(kAzienda, {intero(azienda.id), intero(azienda.sede.id)});
  scrittura.inserisci(kConfigurazioneGenerale, rigaGenerale(azienda));
  scrittura.inserisci(kConfigurazioneCompensi, {intero(azienda.id), idONullo(azienda.idEventoEccezionale)});
  scrittura.inserisci(kConfigurazioneContabile, {intero(azienda.id), Value::ofText("1")});
  if (haIntermediario(azienda)) scrittura.inserisci(kConfigurazioneElenco, rigaElenco(azienda));
  scrittura.inserisci(kAttivitaAzienda, {intero(attivita), intero(azienda.id)});
  scrittura.inserisci(kFiliale, {intero(azienda.idFiliale), intero(azienda.id), intero(attivita)});
  const std::int32_t codice = idCodiceAttivita(scrittura, azienda.codiceAttivita);
  for (int anno = azienda.primoAnno; anno <= azienda.ultimoAnno; ++anno) {
    const std::int32_t periodo = scrittura.nuovoId(kPeriodoIva);
    scrittura.inserisci(kPeriodoIva, {intero(periodo), intero(azienda.id), intero(anno)});
    scrittura.inserisci(kAttivitaPerPeriodo, {intero(attivita), intero(periodo), idONullo(codice)});
  }
  for (const std::int32_t tipo : kTipiOggetto) {
    scrittura.inserisci(kFilialePredefinita, {intero(scrittura.nuovoId(kFilialePredefinita)), intero(tipo),
                                              intero(azienda.idFiliale)});
  }
  return azienda;
}

bool Aziende::cambia(Scrittura& scrittura, SchedaAzienda azienda) {
  bool cambiata = scrittura.riscrivi(kAnagrafica, rigaAnagrafica(azienda.sede));
  cambiata |= cambiaRappresentante(scrittura, azienda);
  cambiata |= riscriviOAggiungi(scrittura, kConfigurazioneGenerale, rigaGenerale(azienda));
  cambiata |= riscriviOAggiungi(scrittura, kConfigurazioneCompensi,
                                {intero(azienda.id), idONullo(azienda.idEventoEccezionale)});
  if (haIntermediario(azienda) ||
      quante(scrittura.connessione(), kConfigurazioneElenco.nome, di(azienda.id)) > 0) {
    cambiata |= riscriviOAggiungi(scrittura, kConfigurazioneElenco, rigaElenco(azienda));
  }
  cambiata |= cambiaCodiceAttivita(scrittura, azienda);
  return cambiata;
}

void Aziende::assicuraAnni(Scrittura& scrittura, std::int32_t idAzienda, const std::vector<int>& anni) {
  scrittura.chiudi();
  const std::optional<SchedaAzienda> azienda = Aziende(scrittura.connessione()).cerca(idAzienda);
  if (!azienda) return;
  const Attivita attivita = attivitaDi(scrittura.connessione(), idAzienda, azienda->idFiliale);
  if (attivita.id == 0) return;
  for (const int anno : anni) {
    const auto suo = std::find_if(attivita.anni.begin(), attivita.anni.end(),
                                  [&](const Attivita::Anno& uno) { return uno.anno == anno; });
    if (suo != attivita.anni.end() && suo->collegato) continue;
    std::int32_t periodo = suo == attivita.anni.end() ? 0 : suo->idPeriodo;
    if (periodo == 0) {
      periodo = scrittura.nuovoId(kPeriodoIva);
      scrittura.inserisci(kPeriodoIva, {intero(periodo), intero(idAzienda), intero(anno)});
    }
    scrittura.inserisci(kAttivitaPerPeriodo,
                        {intero(attivita.id), intero(periodo), idONullo(attivita.codiceCorrente())});
  }
}

Result<> Aziende::togli(Scrittura& scrittura, const SchedaAzienda& azienda) {
  scrittura.chiudi();
  Connection& connessione = scrittura.connessione();
  const std::string sue = di(azienda.id);
  Result<> usi = senzaUsi(
      connessione, "l'azienda",
      {{"Percipiente", sue, "un percipiente", "percipienti"},
       {"Compenso", sue, "un compenso", "compensi"},
       {"ContoIndividuale", sue, "un conto individuale", "conti individuali"},
       {"ContoIndividualeDatiAggiuntivi", sue, "dati aggiuntivi di un conto", "dati aggiuntivi di conti"},
       {"ModuloXContoIndividuale", sue, "un modulo aggiuntivo", "moduli aggiuntivi"}});
  if (!usi) return usi;
  for (const Riga& filiale : leggiRighe(connessione, kFiliale, sue)) {
    togliRighe(scrittura, kFilialePredefinita, " WHERE IDFiliale = " + fromInteger(idIn(filiale, 0)));
  }
  for (const Riga& attivita : leggiRighe(connessione, kAttivitaAzienda, sue)) {
    togliRighe(scrittura, kAttivitaPerPeriodo,
               " WHERE IDAttivitaAzienda = " + fromInteger(idIn(attivita, 0)));
  }
  for (const TabellaSuite* tabella :
       {&kFiliale, &kAttivitaAzienda, &kPeriodoIva, &kConfigurazioneGenerale, &kConfigurazioneCompensi,
        &kConfigurazioneContabile, &kConfigurazioneElenco, &kAzienda}) {
    togliRighe(scrittura, *tabella, sue);
  }
  togliAnagraficaLibera(scrittura, azienda.sede.id);
  if (azienda.rappresentante.id != 0) togliAnagraficaLibera(scrittura, azienda.rappresentante.id);
  return Done{};
}

}  // namespace cu::schede
