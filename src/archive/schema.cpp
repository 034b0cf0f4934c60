#include "archive/schema.h"

#include <string>

#include "base/text.h"
#include "data/inserimento.h"
#include "data/presenza.h"
#include "liste/risorse.h"

namespace cu {
namespace {

std::string_view senzaRigheVuoteECommenti(std::string_view testo) {
  while (!testo.empty()) {
    const std::size_t fine = testo.find('\n');
    const std::string_view linea = testo.substr(0, fine);
    if (!linea.empty() && linea.substr(0, 2) != "--") break;
    testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
  }
  while (!testo.empty() && (testo.back() == '\n' || testo.back() == ' ')) testo.remove_suffix(1);
  return testo;
}

// The name in brackets after `inizio`; empty where there is none.
std::string_view nomeDopo(std::string_view istruzione, std::string_view inizio) {
  if (!istruzione.starts_with(inizio)) return {};
  istruzione.remove_prefix(inizio.size());
  return istruzione.substr(0, istruzione.find(']'));
}

// "SELECT name ..." of the tables and views of the suite.
std::string domandaSui(std::string_view colonne) {
  std::string domanda = "SELECT ";
  domanda += colonne;
  domanda += " FROM dbo.sysobjects WHERE type IN ('U', 'V') AND name IN (";
  const char* separatore = "";
  for (std::string_view nome : nomiSchema()) {
    domanda += separatore;
    appendTesto(domanda, nome);
    separatore = ", ";
  }
  return domanda + ")";
}

std::vector<std::string_view> istruzioniDi(std::string_view nome) {
  constexpr std::string_view kFine = "\nGO\n";
  std::vector<std::string_view> istruzioni;
  std::string_view testo = risorsa(nome);
  for (;;) {
    const std::size_t fine = testo.find(kFine);
    const std::string_view istruzione = senzaRigheVuoteECommenti(testo.substr(0, fine));
    if (!istruzione.empty()) istruzioni.push_back(istruzione);
    if (fine == std::string_view::npos) return istruzioni;
    testo.remove_prefix(fine + kFine.size());
  }
}

constexpr std::string_view kCreaTabella = "CREATE TABLE [dbo].[";

}  // namespace

std::vector<std::string_view> istruzioniSchema() { return istruzioniDi("schema/suite.sql"); }

std::vector<OggettoSchema> oggettiSchema() {
  std::vector<OggettoSchema> oggetti;
  for (std::string_view istruzione : istruzioniSchema()) {
    if (const auto tabella = nomeDopo(istruzione, kCreaTabella); !tabella.empty()) {
      oggetti.push_back({tabella, false});
    } else if (const auto vista = nomeDopo(istruzione, "CREATE VIEW [dbo].["); !vista.empty()) {
      oggetti.push_back({vista, true});
    }
  }
  return oggetti;
}

std::vector<TipoSchema> tipiSchema() {
  constexpr std::string_view kBase = "] FROM ";
  std::vector<TipoSchema> tipi;
  for (std::string_view istruzione : istruzioniSchema()) {
    const std::string_view nome = nomeDopo(istruzione, "CREATE TYPE [dbo].[");
    if (nome.empty()) continue;
    istruzione.remove_prefix(istruzione.find(kBase) + kBase.size());
    std::string definizione(istruzione.substr(0, istruzione.rfind(" NULL")));
    std::erase_if(definizione, [](char c) { return c == '[' || c == ']'; });
    tipi.push_back({std::string(nome), definizione});
  }
  return tipi;
}

std::vector<std::string_view> nomiSchema() {
  std::vector<std::string_view> nomi;
  for (const OggettoSchema& oggetto : oggettiSchema()) nomi.push_back(oggetto.nome);
  return nomi;
}

bool contieneSuite(Connection& connessione) {
  RowStore righe;
  connessione.Query(domandaSui("COUNT(*)"), righe);
  CellView quante;
  righe.read(0, &quante);
  return quante.integer() > 0;
}

void creaSchema(Connection& connessione) {
  for (std::string_view istruzione : istruzioniSchema()) connessione.Execute(istruzione);
}

std::size_t creaRegistro(Connection& connessione) {
  std::size_t create = 0;
  bool nuova = false;
  for (const char* const schema :
       {"schema/registro.sql", "schema/restituzioni.sql", "schema/importazioni.sql"}) {
    for (std::string_view istruzione : istruzioniDi(schema)) {
      if (const std::string_view tabella = nomeDopo(istruzione, kCreaTabella); !tabella.empty()) {
        nuova = !haTabella(connessione, tabella);
        if (nuova) ++create;
      }
      if (nuova) connessione.Execute(istruzione);
    }
  }
  return create;
}

void creaMarca(Connection& connessione) {
  for (std::string_view istruzione : istruzioniDi("schema/archivio.sql")) connessione.Execute(istruzione);
}

}  // namespace cu
