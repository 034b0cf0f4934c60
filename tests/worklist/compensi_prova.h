#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/error.h"
#include "support/fake_session.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/work_table.h"
#include "worklist/compensi.h"

namespace cu::test {

inline Filtri filtriDi(const std::string& anno) {
  Filtri filtri;
  filtri.anno = anno;
  return filtri;
}

// Notes what it is shown.
class Vista : public VistaCompensi {
 public:
  void caricati(Recordset& nuove) override { righe = &nuove; }
  void contati(std::int64_t quanti) override { selezionati = quanti; }
  void cambiati() override { ++cambiamenti; }
  void sospendi() override { ++pause; }
  void riprendi() override { --pause; }

  bool disegna() const { return pause == 0; }
  std::size_t quante() const { return righe != nullptr && righe->IsOpen() ? righe->RecordCount() : 0; }
  std::size_t corrente() const { return quante() == 0 ? 0 : righe->AbsolutePosition(); }

  Recordset* righe = nullptr;
  std::int64_t selezionati = -1;
  int cambiamenti = 0;
  int pause = 0;
};

// The worklist of user 12, company 1, over a database that only notes what it is sent.
struct CompensiProva {
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
    vista.cambiamenti = 0;
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

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeDatabase database;
  FakeSession sessione{database};
  Vista vista;
  Compensi compensi{utilita, frontEnd};
};

// The key of a row of 2016 and company 1, which ends every statement on one row.
inline std::string chiave(int idAnagrafica, int idCausale) {
  return " WHERE Anno = 2016 AND IDAnagrafica = " + std::to_string(idAnagrafica) +
         " AND IDAzienda = 1 AND IDCausalePagamento = " + std::to_string(idCausale);
}

}  // namespace cu::test
