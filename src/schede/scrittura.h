#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"
#include "data/inserimento.h"
#include "schede/tabelle_suite.h"

namespace cu::schede {

// Informed of each row written, before the next one is.
class Diario {
 public:
  virtual ~Diario() = default;
  virtual void inserita(const TabellaSuite& tabella, const Riga& riga) = 0;
  // Both rows whole; they differ in at least one column that is no key.
  virtual void cambiata(const TabellaSuite& tabella, const Riga& prima, const Riga& dopo) = 0;
  virtual void tolta(const TabellaSuite& tabella, const Riga& riga) = 0;
};

// Writes rows within the caller's transaction. Inserted rows are collected and sent together: chiudi() sends
// the rest, and so does a change or a removal. Every call may raise DatabaseError.
class Scrittura {
 public:
  explicit Scrittura(Connection& connessione, Diario* diario = nullptr)
      : connessione_(connessione), diario_(diario) {}

  Connection& connessione() { return connessione_; }

  // The next free id of a table with a key of one column: the greatest one plus 1, of the rows that
  // are there and of those that imports inserted and that are gone. The first call of a transaction locks the
  // table until its end, so that no other program gives the same one.
  std::int32_t nuovoId(const TabellaSuite& tabella, std::int32_t almeno = 1);

  void inserisci(const TabellaSuite& tabella, const Riga& riga);
  // Writes the columns that mean something else; returns false, and writes nothing, when there are none.
  // `prima` is the row as the database has it.
  bool cambia(const TabellaSuite& tabella, const Riga& prima, const Riga& dopo);
  // Writes every column that differs in any way, null and empty included.
  void ripristina(const TabellaSuite& tabella, const Riga& prima, const Riga& dopo);
  // The same as cambia of a row found by its key; raises Error where it is no longer there.
  bool riscrivi(const TabellaSuite& tabella, const Riga& dopo);
  void togli(const TabellaSuite& tabella, const Riga& riga);
  void chiudi();

 private:
  Connection& connessione_;
  Diario* diario_;
  std::map<const TabellaSuite*, std::unique_ptr<Inserimento>> inserimenti_;
  std::map<const TabellaSuite*, std::int32_t> ultimi_;
};

// The rows of the table as the database has them; `condizione` follows the table's name, such as " WHERE ..."
// or " INNER JOIN ...".
std::vector<Riga> leggiRighe(Connection& connessione, const TabellaSuite& tabella,
                             std::string_view condizione = {});
// The same, a row at a time and without a copy: one view for each column.
void perOgniRiga(Connection& connessione, const TabellaSuite& tabella, std::string_view condizione,
                 const std::function<void(const CellView*)>& funzione);
// The condition that finds a row by its key.
std::string condizioneChiave(const TabellaSuite& tabella, const Riga& riga);
// A value as a literal in the server's dialect.
void appendValore(std::string& istruzione, const Value& valore);

}  // namespace cu::schede
