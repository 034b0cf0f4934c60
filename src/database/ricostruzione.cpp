#include "database/ricostruzione.h"

#include "database/transazione.h"
#include "host/error.h"
#include "host/text.h"

namespace cu {
namespace {

// The payments under the names that the filter uses.
constexpr std::string_view kPagamenti =
    "(SELECT Comp.IDAzienda, Comp.IDAnagrafica, Comp.IDCausalePagamento, Comp.DataPagamento,"
    " Perc.Codice AS CodicePercipiente, Anag.Anagrafica, Causale.Codice AS CodiceCausalePagamento"
    " FROM Compenso Comp"
    " LEFT JOIN Percipiente Perc ON Comp.IDAzienda = Perc.IDAzienda AND Comp.IDAnagrafica = Perc.IDAnagrafica"
    " LEFT JOIN Anagrafica Anag ON Comp.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN CausalePagamento Causale ON Comp.IDCausalePagamento = Causale.IDCausalePagamento) Pagamenti";

}  // namespace

void sommaCompensi(Connection& connessione, std::int32_t idAzienda, int anno, std::string_view filtro) {
  const std::string azienda = fromInteger(idAzienda);
  const std::string testoAnno = fromInteger(anno);
  std::string scelti = " FROM ";
  scelti += kPagamenti;
  scelti += " WHERE IDAzienda = " + azienda + " AND Year(DataPagamento) = " + testoAnno;
  scelti += filtro;

  connessione.Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
      "QuotaProvvigioniNonSoggette)"
      " SELECT DISTINCT IDAnagrafica, IDCausalePagamento, " +
      testoAnno + ", IDAzienda, 0" + scelti +
      " AND NOT EXISTS (SELECT * FROM ContoIndividuale CI WHERE CI.IDAnagrafica = Pagamenti.IDAnagrafica"
      " AND CI.IDCausalePagamento = Pagamenti.IDCausalePagamento AND CI.Anno = " +
      testoAnno + " AND CI.IDAzienda = Pagamenti.IDAzienda)");

  std::string aggiorna = "UPDATE ContoIndividuale SET";
  const char* separatore = " ";
  for (std::string_view importo : kImportiConto) {
    aggiorna += separatore;
    aggiorna += importo;
    aggiorna += " = (SELECT ISNULL(SUM(ISNULL(Comp.";
    aggiorna += importo;
    aggiorna +=
        ", 0)), 0) FROM Compenso Comp WHERE Comp.IDAzienda = ContoIndividuale.IDAzienda"
        " AND Comp.IDAnagrafica = ContoIndividuale.IDAnagrafica"
        " AND Comp.IDCausalePagamento = ContoIndividuale.IDCausalePagamento"
        " AND Year(Comp.DataPagamento) = " +
        testoAnno + ")";
    separatore = ", ";
  }
  aggiorna += " WHERE ContoIndividuale.IDAzienda = " + azienda + " AND ContoIndividuale.Anno = " + testoAnno +
              " AND EXISTS (SELECT *" + scelti +
              " AND Pagamenti.IDAnagrafica = ContoIndividuale.IDAnagrafica"
              " AND Pagamenti.IDCausalePagamento = ContoIndividuale.IDCausalePagamento)";
  connessione.Execute(aggiorna);
}

void RicostruzioneContiIndividuali::ricostruisci(std::int16_t anno) {
  if (database_ == nullptr) throw Error(kErrorObjectNotSet, "Alla ricostruzione manca il database.");
  Connection& connessione = database_->ownConnection();
  Transazione transazione(connessione);
  sommaCompensi(connessione, idAzienda_, anno, filtro_);
  transazione.conferma();
}

}  // namespace cu
