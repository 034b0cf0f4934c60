#include "archive/ricostruzione.h"

#include <array>
#include <map>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "data/recordset.h"
#include "data/transazione.h"

namespace cu {
namespace {

// The payments, with the column names that the filter uses.
constexpr std::string_view kPagamenti =
    "(SELECT Comp.IDAzienda, Comp.IDAnagrafica, Comp.IDCausalePagamento, Comp.DataPagamento,"
    " Perc.Codice AS CodicePercipiente, Anag.Anagrafica, Causale.Codice AS CodiceCausalePagamento"
    " FROM Compenso Comp"
    " LEFT JOIN Percipiente Perc ON Comp.IDAzienda = Perc.IDAzienda AND Comp.IDAnagrafica = Perc.IDAnagrafica"
    " LEFT JOIN Anagrafica Anag ON Comp.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN CausalePagamento Causale ON Comp.IDCausalePagamento = Causale.IDCausalePagamento) Pagamenti";

// The amounts of each account of a year, by payee and reason. A null amount counts as zero.
using Conti = std::map<std::pair<std::int64_t, std::int64_t>, std::array<Decimal, std::size(kImportiConto)>>;

Conti leggiConti(Connection& connessione, std::int32_t idAzienda, int anno) {
  std::string testo = "SELECT IDAnagrafica, IDCausalePagamento";
  for (std::string_view importo : kImportiConto) testo.append(", ").append(importo);
  testo += " FROM ContoIndividuale WHERE IDAzienda = " + fromInteger(idAzienda) +
           " AND Anno = " + fromInteger(anno);
  Recordset righe;
  righe.Open(connessione, testo);
  Conti conti;
  for (; !righe.Eof(); righe.MoveNext()) {
    auto& importi = conti[{righe.Get(0).integer(), righe.Get(1).integer()}];
    for (std::size_t i = 0; i < importi.size(); ++i) importi[i] = righe.Get(i + 2).decimal();
  }
  return conti;
}

std::size_t diversi(const Conti& prima, const Conti& dopo) {
  std::size_t quanti = 0;
  for (const auto& [conto, importi] : dopo) {
    const auto trovato = prima.find(conto);
    if (trovato == prima.end() || trovato->second != importi) ++quanti;
  }
  return quanti;
}

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
  const Conti prima = leggiConti(connessione, idAzienda_, anno);
  sommaCompensi(connessione, idAzienda_, anno, filtro_);
  const std::size_t cambiati = diversi(prima, leggiConti(connessione, idAzienda_, anno));
  transazione.conferma();
  cambiati_ = cambiati;
}

}  // namespace cu
