#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "host/filtri.h"
#include "host/session.h"

namespace cu {

class Conversioni;
class ProgressSink;

enum class AzioneSelezione { Seleziona = 1, Deseleziona = 2, Inverti = 0 };

// Shows the worklist to a person. Every call reports what has happened; none changes the rows.
class VistaCompensi {
 public:
  virtual ~VistaCompensi() = default;
  virtual void caricati(Recordset& righe) = 0;  // the rows are new; they stay at this address
  virtual void contati(std::int64_t selezionati) = 0;
  virtual void cambiati() = 0;  // rows, or the current one
  // Between the two, rows change that nobody has to see one by one.
  virtual void sospendi() = 0;
  virtual void riprendi() = 0;
};

// The compensation worklist: the user's work table and the recordset on it.
// Database errors rise as they are, but for those that come of another session of the same user, which has a
// table of the same name: they are kErrorRowGone.
class Compensi {
 public:
  Compensi(const Conversioni& utilita, ProgressSink& avanzamento)
      : utilita_(utilita), avanzamento_(avanzamento) {}
  Compensi(const Compensi&) = delete;
  Compensi& operator=(const Compensi&) = delete;

  void setVista(VistaCompensi& vista) { vista_ = &vista; }  // outlives it
  Recordset& rsCompensi() { return rsCompensi_; }
  const std::string& tabella() const { return tabella_; }  // of the last load; "" before the first one

  // Drops, creates and fills the user's table, and leaves rsCompensi open on it. The database of the scope is
  // the one that everything after it works on.
  void sbCreaTabellaLavoro(const Ambito& ambito, const Filtri& filtri);

  // The current row; and all rows, which then stand on the first one.
  void sbSelezionaRiga(AzioneSelezione azione);
  void sbSelezionaTutto(AzioneSelezione azione);
  // Inverts each of these rows, by position; the current row stays. The first one that fails ends it.
  void sbInvertiRighe(const std::vector<std::size_t>& posizioni);
  void sbContaSelezionati();
  bool fnNessunaSelezione();
  bool fnProtocolliMancanti();

  // The current row goes to an editor; and comes to the work table as the editor left it.
  void sbApriRiga();
  void sbAggiornaRiga();
  // Brings the changed and selected rows to the accounts; returns how many.
  std::size_t sbMemorizzaModifiche();
  // Rows changed whose present values no write-back has brought to the accounts.
  std::size_t nonMemorizzate() const { return nonMemorizzate_.size(); }
  // The same pair of references on all selected rows; returns how many rows have got one or both.
  std::size_t sbAggiornaProtocolli(const std::string& protocollo, const std::string& progressivo,
                                   bool sovrascrivi);

 private:
  class Pausa;
  Connection& interna() { return ambito_.database->internalConnection(); }
  // Runs what names the work table: where another session has taken it away, the error says so.
  template <class Azione>
  auto sullaTabella(const Azione& azione);
  // A statement on the current row: one that touches none is an error.
  void eseguiSullaRiga(const std::string& testo);
  void invertiNascoste(const std::vector<std::size_t>& posizioni);
  std::int64_t conta(const std::string& testo);
  std::int64_t contaInMemoria(std::string_view filtro) const;
  void mostra();
  void mostraMemoria();  // count and rows as the recordset has them
  void mostraConteggio(std::int64_t righe);
  bool scriviProtocolli(const std::string& protocollo, const std::string& progressivo, bool sovrascrivi);

  const Conversioni& utilita_;
  ProgressSink& avanzamento_;
  VistaCompensi* vista_ = nullptr;
  Ambito ambito_;
  std::string tabella_;
  Recordset rsCompensi_;
  std::set<Recordset::RowMark> nonMemorizzate_;
  std::string rigaAperta_;  // what the row in the editor holds, as its statement
};

}  // namespace cu
