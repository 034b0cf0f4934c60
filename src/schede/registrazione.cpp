#include "schede/registrazione.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/text.h"
#include "data/transazione.h"
#include "schede/aziende.h"
#include "schede/compensi.h"
#include "schede/conteggio.h"
#include "schede/importi.h"
#include "schede/luoghi.h"
#include "schede/percipienti.h"
#include "schede/righe.h"

namespace cu::schede {
namespace {

constexpr std::int32_t kPrimaLocalitaEstera = 100001;  // beyond the ids of all municipalities

Finding cambiatoDaAltri(const char* che) {
  return {"cambiato",
          std::string(che) +
              " nel frattempo è stato cambiato o eliminato da un'altra sessione: chiudere la finestra e "
              "riaprirla per vedere i dati attuali.",
          ""};
}

std::string condizioneConto(std::int32_t idAzienda, const ContoToccato& conto) {
  return " WHERE IDAzienda = " + fromInteger(idAzienda) +
         " AND IDAnagrafica = " + fromInteger(conto.idAnagrafica) +
         " AND IDCausalePagamento = " + fromInteger(conto.idCausale);
}
std::string condizioneCompensi(std::int32_t idAzienda, const ContoToccato& conto) {
  return condizioneConto(idAzienda, conto) + " AND Year(DataPagamento) = " + fromInteger(conto.anno);
}
std::string condizioneRigaConto(std::int32_t idAzienda, const ContoToccato& conto) {
  return condizioneConto(idAzienda, conto) + " AND Anno = " + fromInteger(conto.anno);
}

Importi importiDelConto(const CellView* riga) {
  Importi importi;
  for (std::size_t i = 0; i < kImporti; ++i) importi[i] = riga[kConto.chiavi + i].decimal();
  return importi;
}

void aggiungiA(Importi& somma, const Importi& importi) {
  for (std::size_t i = 0; i < kImporti; ++i) somma[i] = somma[i] + importi[i];
}

// What is wrong with the sums of an account; "" for nothing.
std::string oltreLeSomme(const Importi& importi) {
  if (std::any_of(importi.begin(), importi.end(), [](Decimal uno) { return uno < Decimal(); })) {
    return "una somma diventa negativa";
  }
  return oltreIlCompenso(importi);
}

Result<> controllaConto(Connection& connessione, std::int32_t idAzienda, const ContoToccato& conto) {
  std::string difetto;
  perOgniRiga(connessione, kConto, condizioneRigaConto(idAzienda, conto),
              [&](const CellView* riga) { difetto = oltreLeSomme(importiDelConto(riga)); });
  if (difetto.empty()) return Done{};
  return Result<>::refused({"conto",
                            "Nel conto del percipiente per questa causale e l'anno " +
                                fromInteger(conto.anno) + " " + difetto + ": non è stato registrato nulla.",
                            "importi"});
}

// An account without payments goes, unless the user has given it more than amounts.
void svuotaConto(Scrittura& scrittura, std::int32_t idAzienda, const ContoToccato& conto) {
  Connection& connessione = scrittura.connessione();
  const std::string suoi = condizioneRigaConto(idAzienda, conto);
  const bool usato = quante(connessione, "ContoIndividualeDatiAggiuntivi", suoi) > 0 ||
                     quante(connessione, "ModuloXContoIndividuale", suoi) > 0;
  for (const Riga& riga : leggiRighe(connessione, kConto, suoi)) {
    if (!usato) {
      scrittura.togli(kConto, riga);
      continue;
    }
    Riga zero = riga;
    for (std::size_t i = 0; i < kImporti; ++i) zero[kConto.chiavi + i] = Value::ofDecimal(Decimal());
    scrittura.cambia(kConto, riga, zero);
  }
}

bool codiceUsato(Connection& connessione, const SchedaPercipiente& percipiente) {
  std::string condizione = " WHERE IDAzienda = " + fromInteger(percipiente.idAzienda) + " AND Codice = ";
  appendTesto(condizione, percipiente.codice);
  condizione += " AND IDAnagrafica <> " + fromInteger(percipiente.anagrafica.id);
  return quante(connessione, kPercipiente.nome, condizione) > 0;
}

std::int32_t idLocalita(Scrittura& scrittura, const std::string& nome) {
  const Luoghi luoghi(scrittura.connessione());
  if (const Luogo* const nota = luoghi.localitaEstera(nome)) return nota->id;
  const std::int32_t id = scrittura.nuovoId(kComune, kPrimaLocalitaEstera);
  scrittura.inserisci(kComune, {Value::ofInteger(id), testoONullo(nome), Value(), Value()});
  return id;
}

template <class T>
Result<T> rifiutato(const Result<>& esito) {
  return Result<T>::refused(esito.refusals.front());
}

}  // namespace

ContoToccato contoDi(const SchedaCompenso& compenso) {
  return {compenso.idAnagrafica, compenso.idCausale, compenso.pagamento.year()};
}

std::vector<ContoToccato> contiCorretti(Connection& connessione, std::int32_t idAzienda,
                                        const std::set<ContoToccato>& conti) {
  std::vector<ContoToccato> corretti;
  for (const ContoToccato& conto : conti) {
    std::optional<Importi> scritti;
    perOgniRiga(connessione, kConto, condizioneRigaConto(idAzienda, conto),
                [&](const CellView* riga) { scritti = importiDelConto(riga); });
    if (!scritti) continue;
    Importi somma{};
    perOgniRiga(connessione, kCompenso, condizioneCompensi(idAzienda, conto),
                [&](const CellView* riga) { aggiungiA(somma, compensoDa(riga).importi); });
    if (*scritti != somma) corretti.push_back(conto);
  }
  return corretti;
}

std::vector<ContoToccato> contiCorretti(Connection& connessione, std::int32_t idAzienda) {
  std::map<ContoToccato, Importi> somme;
  for (const SchedaCompenso& compenso : Compensi(connessione, idAzienda).degliAnni({})) {
    aggiungiA(somme[contoDi(compenso)], compenso.importi);
  }
  std::vector<ContoToccato> corretti;
  perOgniRiga(connessione, kConto, " WHERE IDAzienda = " + fromInteger(idAzienda), [&](const CellView* riga) {
    const ContoToccato conto{idIn(riga[0]), idIn(riga[1]), static_cast<int>(riga[2].integer())};
    const auto somma = somme.find(conto);
    if (somma != somme.end() && somma->second != importiDelConto(riga)) corretti.push_back(conto);
  });
  return corretti;
}

Result<SchedaAzienda> Registrazione::azienda(const std::optional<SchedaAzienda>& prima, SchedaAzienda dopo) {
  Transazione transazione(connessione());
  Scrittura scrittura(connessione());
  if (!prima) {
    dopo = Aziende::aggiungi(scrittura, std::move(dopo));
  } else {
    if (Aziende(connessione()).cerca(prima->id) != prima) {
      return Result<SchedaAzienda>::refused(cambiatoDaAltri("L'azienda"));
    }
    Aziende::cambia(scrittura, dopo);
    const std::int32_t vecchio = prima->rappresentante.id;
    if (vecchio != 0 && vecchio != dopo.rappresentante.id) togliAnagraficaLibera(scrittura, vecchio);
  }
  scrittura.chiudi();
  // Ids that the change has given.
  const std::optional<SchedaAzienda> scritta = Aziende(connessione()).cerca(dopo.id);
  transazione.conferma();
  return scritta.value_or(dopo);
}

Result<> Registrazione::togliAzienda(const SchedaAzienda& prima) {
  Transazione transazione(connessione());
  Scrittura scrittura(connessione());
  Result<> esito = Aziende::togli(scrittura, prima);
  if (!esito) return esito;
  scrittura.chiudi();
  transazione.conferma();
  return esito;
}

Result<SchedaPercipiente> Registrazione::percipiente(const std::optional<SchedaPercipiente>& prima,
                                                     SchedaPercipiente dopo,
                                                     const std::string& localitaEstera) {
  using Esito = Result<SchedaPercipiente>;
  Transazione transazione(connessione());
  Scrittura scrittura(connessione());
  if (prima && Percipienti(connessione(), prima->idAzienda).cerca(prima->anagrafica.id) != prima) {
    return Esito::refused(cambiatoDaAltri("Il percipiente"));
  }
  if (codiceUsato(connessione(), dopo)) {
    return Esito::refused(
        {"codice", "Il codice " + dopo.codice + " è già di un altro percipiente.", "codice"});
  }
  if (!localitaEstera.empty()) dopo.anagrafica.idComune = idLocalita(scrittura, localitaEstera);
  if (prima) {
    Percipienti::cambia(scrittura, dopo);
  } else {
    dopo = Percipienti::aggiungi(scrittura, std::move(dopo));
  }
  scrittura.chiudi();
  transazione.conferma();
  return dopo;
}

Result<> Registrazione::togliPercipiente(const SchedaPercipiente& prima) {
  Transazione transazione(connessione());
  Scrittura scrittura(connessione());
  Result<> esito = Percipienti::togli(scrittura, prima);
  if (!esito) return esito;
  scrittura.chiudi();
  transazione.conferma();
  return esito;
}

Result<SchedaCompenso> Registrazione::compenso(const std::optional<SchedaCompenso>& prima,
                                               SchedaCompenso dopo) {
  Transazione transazione(connessione());
  Scrittura scrittura(connessione());
  std::set<ContoToccato> conti = {contoDi(dopo)};
  if (prima) {
    if (Compensi(connessione(), prima->idAzienda).cerca(prima->id) != prima) {
      return Result<SchedaCompenso>::refused(cambiatoDaAltri("Il compenso"));
    }
    conti.insert(contoDi(*prima));
    Compensi::cambia(scrittura, dopo);
  } else {
    dopo = Compensi::aggiungi(scrittura, std::move(dopo));
  }
  Aziende::assicuraAnni(scrittura, dopo.idAzienda, {dopo.pagamento.year()});
  const Result<> esito = aggiornaConti(scrittura, dopo.idAzienda, conti);
  if (!esito) return rifiutato<SchedaCompenso>(esito);
  transazione.conferma();
  return dopo;
}

Result<> Registrazione::togliCompenso(const SchedaCompenso& prima) {
  Transazione transazione(connessione());
  Scrittura scrittura(connessione());
  if (Compensi(connessione(), prima.idAzienda).cerca(prima.id) != prima) {
    return Result<>::refused(cambiatoDaAltri("Il compenso"));
  }
  Compensi::togli(scrittura, prima.id);
  Result<> esito = aggiornaConti(scrittura, prima.idAzienda, {contoDi(prima)});
  if (!esito) return esito;
  transazione.conferma();
  return esito;
}

Result<> Registrazione::aggiornaConti(Scrittura& scrittura, std::int32_t idAzienda,
                                      const std::set<ContoToccato>& conti) {
  scrittura.chiudi();
  for (const ContoToccato& conto : conti) {
    if (quante(connessione(), kCompenso.nome, condizioneCompensi(idAzienda, conto)) == 0) {
      svuotaConto(scrittura, idAzienda, conto);
      continue;
    }
    ricostruisci(idAzienda, conto.anno,
                 " AND IDAnagrafica = " + fromInteger(conto.idAnagrafica) +
                     " AND IDCausalePagamento = " + fromInteger(conto.idCausale));
    Result<> esito = controllaConto(connessione(), idAzienda, conto);
    if (!esito) return esito;
  }
  return Done{};
}

std::size_t Registrazione::ricostruisci(std::int32_t idAzienda, int anno, const std::string& filtro) {
  const auto ricostruzione = factory_.createRicostruzione();
  ricostruzione->setDatabase(database_);
  ricostruzione->setAzienda(idAzienda);
  ricostruzione->setFiltro(filtro);
  ricostruzione->ricostruisci(static_cast<std::int16_t>(anno));
  return ricostruzione->contiCambiati();
}

std::size_t Registrazione::ricalcola(std::int32_t idAzienda, const std::vector<ContoToccato>& tranne,
                                     ProgressSink* avanzamento) {
  Transazione transazione(connessione());
  std::size_t cambiati = 0;
  std::size_t fatti = 0;
  const std::vector<int> anni = Compensi(connessione(), idAzienda).anni();
  for (const int anno : anni) {
    if (avanzamento != nullptr) avanzamento->progress("Conti", fatti++, anni.size());
    std::string filtro;
    for (const ContoToccato& conto : tranne) {
      if (conto.anno != anno) continue;
      filtro += " AND (IDAnagrafica <> " + fromInteger(conto.idAnagrafica) + " OR IDCausalePagamento <> " +
                fromInteger(conto.idCausale) + ")";
    }
    cambiati += ricostruisci(idAzienda, anno, filtro);
  }
  transazione.conferma();
  return cambiati;
}

}  // namespace cu::schede
