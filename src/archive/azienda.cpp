#include "archive/azienda.h"

#include "base/text.h"
#include "liste/risorse.h"
#include "liste/tabella.h"

namespace cu {

schede::SchedaAzienda aziendaInventata(int primoAnno, int ultimoAnno) {
  schede::SchedaAzienda azienda;
  azienda.idCarica = kRappresentanteLegale;
  azienda.codiceAttivita = "620909";  // other activities of information technology
  azienda.primoAnno = primoAnno - 1;
  azienda.ultimoAnno = ultimoAnno + 2;
  return azienda;
}

std::vector<LocalitaEstera> localitaEstere() {
  const Tabella t(risorsa("demo/localita_estere.tsv"));
  std::vector<LocalitaEstera> elenco;
  for (std::size_t i = 0; i < t.righe(); ++i) {
    elenco.push_back({static_cast<std::int32_t>(leadingInteger(t.campo(i, "ID"))), t.campo(i, "Localita"),
                      static_cast<std::int32_t>(leadingInteger(t.campo(i, "Nazione")))});
  }
  return elenco;
}

void riempiLocalitaEstere(schede::Scrittura& scrittura) {
  for (const LocalitaEstera& luogo : localitaEstere()) {
    scrittura.inserisci(schede::kComune, {Value::ofInteger(luogo.id), Value::ofText(std::string(luogo.nome)),
                                          Value(), Value()});
  }
}

}  // namespace cu
