#include "archive/codici_pubblicati.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "data/inserimento.h"
#include "data/recordset.h"
#include "liste/codici_per_anno.h"
#include "schede/conteggio.h"

namespace cu {
namespace {

// A list of the database; the columns without a place in it are empty.
struct ListaAperta {
  std::string tabella;
  std::string id;
  std::string codice;
  std::string significato;
  std::string gruppo;
};

struct Presenti {
  std::set<std::string, std::less<>> codici;
  std::int64_t ultimo = 0;
  std::set<std::int64_t> id;
};

Presenti presenti(Connection& connessione, const ListaAperta& lista) {
  Presenti trovati;
  Recordset righe;
  righe.Open(connessione, "SELECT " + lista.id + ", " + lista.codice + " FROM " + lista.tabella);
  for (; !righe.Eof(); righe.MoveNext()) {
    const std::int64_t id = righe.Get(0).integer();
    trovati.id.insert(id);
    trovati.ultimo = std::max(trovati.ultimo, id);
    trovati.codici.insert(std::string(trim(righe.Get(1).toText())));
  }
  return trovati;
}

std::size_t aggiungi(Connection& connessione, const ListaAperta& lista, const CodiciPerAnno& codici) {
  Presenti gia = presenti(connessione, lista);
  std::vector<std::string> colonne = {lista.id, lista.codice};
  if (!lista.significato.empty()) colonne.push_back(lista.significato);
  if (!lista.gruppo.empty()) colonne.push_back(lista.gruppo);
  Inserimento inserimento(connessione, lista.tabella, colonne);
  for (const CodiciPerAnno::Aggiunta& nuova : codici.aggiunte()) {
    if (gia.codici.contains(nuova.codice)) continue;
    const std::int64_t id = gia.id.contains(nuova.id) ? gia.ultimo + 1 : nuova.id;
    gia.id.insert(id);
    gia.ultimo = std::max(gia.ultimo, id);
    inserimento.intero(id).testo(nuova.codice);
    if (!lista.significato.empty()) inserimento.testo(nuova.significato);
    if (!lista.gruppo.empty()) inserimento.intero(nuova.gruppo);
    inserimento.riga();
  }
  inserimento.chiudi();
  return inserimento.righe();
}

// The version of the mark of an own database.
constexpr std::int64_t kVersionePubblicati = 2;

}  // namespace

void segnaModuliPubblicati(Connection& connessione) {
  connessione.Execute("UPDATE CuArchivio SET Versione = " + fromInteger(kVersionePubblicati));
}

bool perModuliPubblicati(Connection& connessione) {
  if (!schede::archivioProprio(connessione)) return false;
  Recordset righe;
  righe.Open(connessione, "SELECT MAX(Versione) FROM CuArchivio");
  return !righe.Eof() && righe.Get(0).integer() >= kVersionePubblicati;
}

std::size_t aggiungiCodiciPubblicati(Connection& connessione) {
  return aggiungi(connessione,
                  {"CausalePagamento", "IDCausalePagamento", "Codice", "CausalePagamento",
                   "IDTipoCausalePagamento"},
                  causaliPerAnno()) +
         aggiungi(connessione,
                  {"CodicePerNonSoggetti", "IDCodicePerNonSoggetti", "Codice", "Descrizione", ""},
                  codiciNonSoggettiPerAnno()) +
         aggiungi(connessione,
                  {"CUCategoriaEntePrevidenziale", "IDCUCategoriaEntePrevidenziale",
                   "CUCodiceCategoriaEntePrevidenziale", "", ""},
                  categorieEntiPerAnno());
}

}  // namespace cu
