#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "context/filtri.h"
#include "context/globali.h"
#include "data/recordset.h"

namespace cu {

class FrontEnd;
class Grid;
class UtilitaSuite;

enum class AzioneSelezione { Seleziona = 1, Deseleziona = 2, Inverti = 0 };

// The compensation worklist: the user's work table, the recordset on it and what the grid shows of it.
// Database errors rise as they are, but for those that come of another session of the same user, which has a
// table of the same name: they are kErrorRowGone.
class Compensi {
 public:
  Compensi(Globali& globali, UtilitaSuite& utilita, FrontEnd& frontEnd, Grid& griglia);

  Recordset& rsCompensi() { return rsCompensi_; }

  // Drops, creates and fills the table, and leaves rsCompensi open on it, bound to the grid.
  void sbCreaTabellaLavoro(const Filtri& filtri);
  // Lays out the grid's columns for the kind of communication: 1 ordinary, 2 annulment, 3 replacement.
  void sbFormattaGriglia(int tipoComunicazione);

  // The current row; and all rows, which then stand on the first one.
  void sbSelezionaRiga(AzioneSelezione azione);
  void sbSelezionaTutto(AzioneSelezione azione);
  // Inverts each of these rows, by position; the current row stays. The first one that fails ends it.
  void sbInvertiRighe(const std::vector<std::size_t>& posizioni);
  void sbContaSelezionati();
  bool fnNessunaSelezione();
  bool fnProtocolliMancanti();

  // Brings the current row, as an editor left it, to the work table.
  void sbAggiornaRiga();
  // Brings the changed and selected rows to the accounts.
  void sbMemorizzaModifiche();
  // Rows changed whose present values no write-back has brought to the accounts.
  std::size_t nonMemorizzate() const { return nonMemorizzate_.size(); }
  // The same pair of references on all selected rows.
  void sbAggiornaProtocolli(const std::string& protocollo, const std::string& progressivo, bool sovrascrivi);

 private:
  Connection& interna() { return globali_.gSessione->database().internalConnection(); }
  // Runs what names the work table: where another session has taken it away, the error says so.
  template <class Azione>
  auto sullaTabella(const Azione& azione);
  // A statement on the current row: one that touches none is an error.
  void eseguiSullaRiga(const std::string& testo);
  std::int64_t conta(const std::string& testo);
  std::int64_t contaInMemoria(std::string_view filtro) const;
  void mostraMemoria();  // count and rows as the recordset has them
  void mostraConteggio(std::int64_t righe);
  void scriviProtocolli(const std::string& protocollo, const std::string& progressivo, bool sovrascrivi);

  Globali& globali_;
  UtilitaSuite& utilita_;
  FrontEnd& frontEnd_;
  Grid& griglia_;
  Recordset rsCompensi_;
  std::set<Recordset::RowMark> nonMemorizzate_;
  std::map<Recordset::RowMark, std::string> aggiornamenti_;  // the last statement of each row from an editor
};

}  // namespace cu
