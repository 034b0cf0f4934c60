#include "schede/conteggio.h"

#include "base/text.h"

namespace cu::schede {

std::int64_t quante(Connection& connessione, std::string_view tabella, std::string_view condizione) {
  std::string domanda = "SELECT COUNT(*) FROM ";
  domanda.append(tabella).append(condizione);
  RowStore righe;
  connessione.Query(domanda, righe);
  CellView numero;
  righe.read(0, &numero);
  return numero.integer();
}

Result<> senzaUsi(Connection& connessione, std::string_view chi, std::initializer_list<Uso> usi) {
  Result<> esito = Done{};
  for (const Uso& uso : usi) {
    const std::int64_t trovati = quante(connessione, uso.tabella, uso.condizione);
    if (trovati == 0) continue;
    esito.refusals.push_back({"usato",
                              "Non si può eliminare " + std::string(chi) + ": ne dipendono " +
                                  fromInteger(trovati) + " " + std::string(uso.nome) + ".",
                              ""});
  }
  return esito;
}

void togliAnagraficaLibera(Scrittura& scrittura, std::int32_t idAnagrafica) {
  const std::string id = fromInteger(idAnagrafica);
  Connection& connessione = scrittura.connessione();
  scrittura.chiudi();
  if (quante(connessione, "Azienda", " WHERE IDAnagrafica = " + id) > 0) return;
  if (quante(connessione, "ConfigurazioneGenerale", " WHERE IDAnagraficaRappresentante = " + id) > 0) return;
  if (quante(connessione, "Percipiente", " WHERE IDAnagrafica = " + id) > 0) return;
  for (const Riga& riga : leggiRighe(connessione, kAnagrafica, " WHERE IDAnagrafica = " + id)) {
    scrittura.togli(kAnagrafica, riga);
  }
}

}  // namespace cu::schede
