#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "host/filtri.h"
#include "host/session.h"
#include "modello/modello.h"

namespace cu {

class Conversioni;
class ProgressSink;

enum class AzioneSelezione { Seleziona = 1, Deseleziona = 2, Inverti = 0 };

// The view of the worklist for the user. Every call reports an event; none changes the rows.
class VistaCompensi {
 public:
  virtual ~VistaCompensi() = default;
  virtual void caricati(Recordset& righe) = 0;  // the rows are new; their address does not change
  virtual void contati(std::int64_t selezionati) = 0;
  virtual void cambiati() = 0;  // rows have changed, or the current one
  // Between these two calls rows change without being drawn one by one.
  virtual void sospendi() = 0;
  virtual void riprendi() = 0;
};

// The compensation worklist: the user's work table and the recordset on it. Database errors propagate
// unchanged, except those caused by another session of the same user, whose table has the same name: these
// become kErrorRowGone.
class Compensi {
 public:
  Compensi(const Conversioni& utilita, ProgressSink& avanzamento)
      : utilita_(utilita), avanzamento_(avanzamento) {}
  Compensi(const Compensi&) = delete;
  Compensi& operator=(const Compensi&) = delete;

  void setVista(VistaCompensi& vista) { vista_ = &vista; }  // the view outlives it
  Recordset& rsCompensi() { return rsCompensi_; }
  const std::string& tabella() const { return tabella_; }  // of the last load; "" before the first

  // Drops, creates and fills the user's table, and leaves rsCompensi open on it. All later operations use the
  // scope's database.
  void sbCreaTabellaLavoro(const Ambito& ambito, const Filtri& filtri,
                           const modello::Modello& modello = modello::kModello);

  // Changes the selection of the current row; of all rows, after which the first row is current.
  void sbSelezionaRiga(AzioneSelezione azione);
  void sbSelezionaTutto(AzioneSelezione azione);
  // Inverts the selection of the rows at these positions; the current row does not change. Stops at the first
  // error.
  void sbInvertiRighe(const std::vector<std::size_t>& posizioni);
  void sbContaSelezionati();
  bool fnNessunaSelezione();
  bool fnProtocolliMancanti();

  // Opens the current row in an editor; stores the edited row in the work table.
  void sbApriRiga();
  void sbAggiornaRiga();
  // Raises an error where the table no longer holds the loaded rows, by their keys, selection and marks of
  // correction: it would be the rows of another session that reach the accounts and the file. Reads over the
  // connection that is not traced.
  void sbControllaTabella();
  // Writes the changed and selected rows back to the accounts; returns their number.
  std::size_t sbMemorizzaModifiche();
  // The number of changed rows whose present values have not been written back.
  std::size_t nonMemorizzate() const { return nonMemorizzate_.size(); }
  // Of these, the selected ones.
  std::size_t nonMemorizzateScelte() const;
  std::size_t nonMemorizzateConSpese() const;  // of these, with refunded expenses
  // Writes the same pair of references to all selected rows; returns the number of rows with one or both.
  std::size_t sbAggiornaProtocolli(const std::string& protocollo, const std::string& progressivo,
                                   bool sovrascrivi);

 private:
  class Pausa;
  Connection& interna() { return ambito_.database->internalConnection(); }
  // Runs statements on the work table; where another session has deleted the table, the error reports that.
  template <class Azione>
  auto sullaTabella(const Azione& azione);
  // Runs a statement on the current row; raises an error when it affects no row.
  void eseguiSullaRiga(const std::string& testo);
  void invertiNascoste(const std::vector<std::size_t>& posizioni);
  std::int64_t conta(const std::string& testo);
  std::int64_t contaInMemoria(std::string_view filtro) const;
  std::size_t contaNonMemorizzate(const std::function<bool(const Recordset& riga)>& conta) const;
  void mostra();
  void mostraMemoria();  // shows count and rows of the recordset
  void mostraConteggio(std::int64_t righe);
  bool scriviProtocolli(const std::string& protocollo, const std::string& progressivo, bool sovrascrivi);

  const Conversioni& utilita_;
  ProgressSink& avanzamento_;
  VistaCompensi* vista_ = nullptr;
  Ambito ambito_;
  std::string tabella_;
  Recordset rsCompensi_;
  std::set<Recordset::RowMark> nonMemorizzate_;
  bool proprie_ = false;    // the table has columns of the program's own boxes
  std::string rigaAperta_;  // the statement for the row as opened in the editor
};

}  // namespace cu
