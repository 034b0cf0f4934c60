#include "schede/conteggio.h"

#include <string>
#include <vector>

#include "base/text.h"

namespace cu::schede {

std::int64_t quante(Connection& connessione, std::string_view tabella, std::string_view condizione) {
  std::string domanda = "SELECT COUNT(*) FROM ";
  domanda.append(tabella).append(condizione);
  RowStore righe;
  connessione.Query(domanda, righe);
  CellView numero;
  if (righe.size() == 0) return 0;  // a connection that only records has no answers
  righe.read(0, &numero);
  return numero.integer();
}

bool haTabella(Connection& connessione, std::string_view nome) {
  return quante(connessione, "dbo.sysobjects", " WHERE type = 'U' AND name = '" + std::string(nome) + "'") >
         0;
}

bool archivioProprio(Connection& connessione) { return haTabella(connessione, "CuArchivio"); }

Result<> senzaUsi(Connection& connessione, std::string_view chi, std::initializer_list<Uso> usi) {
  std::vector<std::string> trovati;
  std::int64_t tutti = 0;
  for (const Uso& uso : usi) {
    const std::int64_t righe = quante(connessione, uso.tabella, uso.condizione);
    if (righe == 0) continue;
    trovati.push_back(righe == 1 ? std::string(uso.uno) : fromInteger(righe) + " " + std::string(uso.piu));
    tutti += righe;
  }
  if (trovati.empty()) return Done{};
  std::string testo = "Non si può eliminare " + std::string(chi) + ": ne ";
  testo += tutti == 1 ? "dipende " : "dipendono ";
  for (std::size_t i = 0; i < trovati.size(); ++i) {
    if (i > 0) testo += i + 1 == trovati.size() ? " e " : ", ";
    testo += trovati[i];
  }
  return Result<>::refused({"usato", testo + ".", ""});
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
