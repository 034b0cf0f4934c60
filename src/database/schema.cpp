#include "database/schema.h"

#include <string>

#include "database/inserimento.h"
#include "database/risorse.h"

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

// The name behind "CREATE TABLE [dbo].[" or "CREATE VIEW [dbo].["; empty for anything else.
std::string_view nomeCreato(std::string_view istruzione) {
  for (std::string_view inizio : {"CREATE TABLE [dbo].[", "CREATE VIEW [dbo].["}) {
    if (istruzione.substr(0, inizio.size()) == inizio) {
      istruzione.remove_prefix(inizio.size());
      return istruzione.substr(0, istruzione.find(']'));
    }
  }
  return {};
}

}  // namespace

std::vector<std::string_view> istruzioniSchema() {
  constexpr std::string_view kFine = "\nGO\n";
  std::vector<std::string_view> istruzioni;
  std::string_view testo = risorsa("schema/suite.sql");
  for (;;) {
    const std::size_t fine = testo.find(kFine);
    const std::string_view istruzione = senzaRigheVuoteECommenti(testo.substr(0, fine));
    if (!istruzione.empty()) istruzioni.push_back(istruzione);
    if (fine == std::string_view::npos) return istruzioni;
    testo.remove_prefix(fine + kFine.size());
  }
}

std::vector<std::string_view> nomiSchema() {
  std::vector<std::string_view> nomi;
  for (std::string_view istruzione : istruzioniSchema()) {
    if (const std::string_view nome = nomeCreato(istruzione); !nome.empty()) nomi.push_back(nome);
  }
  return nomi;
}

bool contieneSuite(Connection& connessione) {
  std::string domanda = "SELECT COUNT(*) FROM dbo.sysobjects WHERE type IN ('U', 'V') AND name IN (";
  const char* separatore = "";
  for (std::string_view nome : nomiSchema()) {
    domanda += separatore;
    appendTesto(domanda, nome);
    separatore = ", ";
  }
  domanda += ")";
  RowStore righe;
  connessione.Query(domanda, righe);
  CellView quante;
  righe.read(0, &quante);
  return quante.integer() > 0;
}

void creaSchema(Connection& connessione) {
  for (std::string_view istruzione : istruzioniSchema()) connessione.Execute(istruzione);
}

}  // namespace cu
