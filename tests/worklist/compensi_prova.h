#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "support/fake_session.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/work_table.h"
#include "wizard/griglia_compensi.h"
#include "worklist/compensi.h"

namespace cu::test {

inline Filtri filtriDi(const std::string& anno) {
  Filtri filtri;
  filtri.anno = anno;
  return filtri;
}

// The worklist of user 12, company 1, on a database that only records its statements.
struct CompensiProva {
  class Finestra : public Form {
   public:
    explicit Finestra(FrontEnd& schermo)
        : Form(schermo, "frmWizard"), griglia(*this, "grdCompensi", nullptr) {}
    Grid griglia;
  };

  CompensiProva() {
    compensi.setVista(vista);
    contate("SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1", 0);
  }

  // The rows of the work table for the next load, and that load.
  void carica(const std::vector<WorkRow>& righe) {
    database.main.answer("tmpprequadrivio12", workTable(righe));
    caricaAnno(filtriDi("2016"));
    database.main.sent.clear();
    database.internal.sent.clear();
    utilita.adapted.clear();
    frontEnd.pointers.clear();
  }
  void caricaAnno(const Filtri& filtri) { compensi.sbCreaTabellaLavoro(ambitoDi(sessione), filtri); }
  void contate(const std::string& testo, std::int64_t righe) {
    database.main.answer(testo, Table({"COUNT"}, {{whole(righe)}}));
  }
  std::vector<std::string> istruzioni() const { return database.internal.texts(); }
  // An error raised by an operation itself, not by the database.
  template <class Operazione>
  std::string erroreDi(const Operazione& operazione) {
    try {
      operazione();
    } catch (const DatabaseError& errore) {
      ADD_FAILURE() << "the database's own error: " << errore.description();
    } catch (const Error& errore) {
      EXPECT_EQ(errore.number(), kErrorRowGone);
      return errore.description();
    }
    return {};
  }
  std::string valore(const char* campo) { return compensi.rsCompensi().Get(campo).toText(); }
  std::string didascaliaConteggio() { return finestra.griglia.column("Selezionato")->caption; }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeDatabase database;
  FakeSession sessione{database};
  Finestra finestra{frontEnd};
  GrigliaCompensi vista{finestra.griglia};
  Compensi compensi{utilita, frontEnd};
};

// The key of a row of 2016 and company 1, which ends every statement on one row.
inline std::string chiave(int idAnagrafica, int idCausale) {
  return " WHERE Anno = 2016 AND IDAnagrafica = " + std::to_string(idAnagrafica) +
         " AND IDAzienda = 1 AND IDCausalePagamento = " + std::to_string(idCausale);
}

}  // namespace cu::test
