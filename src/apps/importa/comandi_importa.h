#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "apps/comune/connessioni.h"
#include "intake/colonne.h"
#include "intake/messaggi.h"
#include "intake/opzioni_fatture.h"
#include "intake/piano.h"

// The commands that bring data in from other programs and from invoices, and out for them.
// docs/importazione.md describes their tables, messages and answers.
namespace cu {

struct OpzioniImport {
  intake::Elenco elenco = intake::Elenco::Compensi;
  std::vector<std::string> file;  // "-" is the standard input
  OpzioniDatabase database;
  std::string azienda;  // fiscal code or id
  std::string mappa;    // a mapping profile; "" for one that the headings name, or none
  std::string foglio;
  std::string separatore;
  std::string caratteri;
  std::string decimali;
  std::string date;
  std::optional<int> anno;
  intake::SuDiversi diversi = intake::SuDiversi::Rifiuta;
  std::set<intake::Codice> accettati;
  bool saltaFileIllegibili = false;
  std::string resoconto;  // .csv or .json; "" for none
  bool databaseEstraneo = false;
  bool applica = false;
};
int comandoImport(const OpzioniImport& opzioni);

struct OpzioniImportFatture {
  OpzioniImport comuni;  // its ways of reading are those of the table of dates
  intake::FontePagamento fonte = intake::FontePagamento::Nessuna;
  std::optional<Date> giorno;  // of FontePagamento::Giorno
  std::string date;            // the table of dates; of FontePagamento::Tavola
};
int comandoImportFatture(const OpzioniImportFatture& opzioni);

struct OpzioniHistory {
  OpzioniDatabase database;
  std::string azienda;  // "" for all
  bool json = false;
};
int comandoHistory(const OpzioniHistory& opzioni);

struct OpzioniUndo {
  std::int32_t lotto = 0;
  OpzioniDatabase database;
  bool applica = false;
};
int comandoUndo(const OpzioniUndo& opzioni);

struct OpzioniExport {
  intake::Elenco elenco = intake::Elenco::Compensi;
  OpzioniDatabase database;
  std::string azienda;
  std::optional<int> anno;
  std::string file;
};
int comandoExport(const OpzioniExport& opzioni);

struct OpzioniTemplate {
  intake::Elenco elenco = intake::Elenco::Compensi;
  std::string file;
};
int comandoTemplate(const OpzioniTemplate& opzioni);

}  // namespace cu
