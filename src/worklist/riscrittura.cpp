#include "worklist/riscrittura.h"

#include "host/recordset.h"
#include "host/text.h"
#include "host/utility.h"

namespace cu {
namespace {

struct Assegnazione {
  std::string_view conto;
  std::string_view valore;
};

// The inverses of the load. SpeseRimborsate goes nowhere: a changed line of the reasons M and O loses it.
constexpr std::array<Assegnazione, 8> kConti = {{
    {"SommeNonSoggetteRegConv", "CItmp.SommeRegimeConvenzionale"},
    {"SommeNonSoggette", "CItmp.SommeNonSoggetteARitenuta"},
    {"OnorarioProvvigioni", "CItmp.Imponibile + CItmp.QuotaProvvigioniNonSoggette"},
    {"RitenutaAcconto", "CItmp.RitenuteAcconto"},
    {"RitenutaImposta", "CItmp.RitenuteImposta"},
    {"QuotaProvvigioniNonSoggette", "CItmp.QuotaProvvigioniNonSoggette"},
    {"ContributoPrevidenziale", "CItmp.ContributiCaricoAzienda + CItmp.ContributiCaricoPercipiente"},
    {"RitenutaPrevidenziale13", "CItmp.ContributiCaricoPercipiente"},
}};

constexpr std::string_view kStessaRiga =
    "CI.IDAnagrafica = CItmp.IDAnagrafica AND CI.IDCausalePagamento = CItmp.IDCausalePagamento"
    " AND CI.Anno = CItmp.Anno AND CI.IDAzienda = CItmp.IDAzienda";
constexpr std::string_view kCambiata = "CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0";

std::string valore(const ColonnaRiscritta& colonna, const Recordset& riga, const UtilitaSuite& utilita) {
  const CellView campo = riga.Get(colonna.nome);
  switch (colonna.scrittura) {
    case Scrittura::Testo:
      return utilita.literal(campo);
    case Scrittura::Assoluto:
      return utilita.absolute(campo);
    case Scrittura::Numero:
      return utilita.literalNumber(campo);
    case Scrittura::TestoNullo:
      break;
  }
  return utilita.toText(campo);
}

}  // namespace

std::string fnChiaveRiga(const Recordset& riga) {
  // As numbers, whatever another program may have put into these columns of an embedded database.
  const auto id = [&](std::string_view colonna) { return fromInteger(riga.Get(colonna).integer()); };
  return " WHERE Anno = " + id("Anno") + " AND IDAnagrafica = " + id("IDAnagrafica") +
         " AND IDAzienda = " + id("IDAzienda") + " AND IDCausalePagamento = " + id("IDCausalePagamento");
}

std::string fnAggiornaRiga(const std::string& tabella, const Recordset& riga, const UtilitaSuite& utilita) {
  std::string testo = "UPDATE " + tabella + " SET ";
  std::string_view prima;
  for (const ColonnaRiscritta& colonna : kColonneRiscritte) {
    testo.append(prima).append(colonna.nome).append(" = ").append(valore(colonna, riga, utilita));
    prima = ", ";
  }
  return testo + fnChiaveRiga(riga);
}

std::string fnAggiornaConti(const std::string& tabella) {
  std::string testo = "UPDATE ContoIndividuale SET ";
  std::string_view prima;
  for (const Assegnazione& assegnazione : kConti) {
    testo.append(prima).append(assegnazione.conto).append(" = ").append(assegnazione.valore);
    prima = ", ";
  }
  testo.append(" FROM ContoIndividuale CI INNER JOIN ")
      .append(tabella)
      .append(" CItmp ON ")
      .append(kStessaRiga);
  return testo.append(" WHERE ").append(kCambiata);
}

std::string fnAggiornaDatiAggiuntivi(const std::string& tabella) {
  std::string assegnazioni;
  std::string colonne = "IDAnagrafica, IDCausalePagamento, Anno, IDAzienda";
  std::string valori = "CItmp.IDAnagrafica, CItmp.IDCausalePagamento, CItmp.Anno, CItmp.IDAzienda";
  for (const std::string_view colonna : kDatiAggiuntivi) {
    assegnazioni.append(assegnazioni.empty() ? " " : ", ")
        .append(colonna)
        .append(" = CItmp.")
        .append(colonna);
    colonne.append(", ").append(colonna);
    valori.append(", CItmp.").append(colonna);
  }
  std::string testo = "EXEC('MERGE INTO ContoIndividualeDatiAggiuntivi CI USING ";
  testo.append(tabella).append(" CItmp ON (").append(kStessaRiga).append(")");
  testo.append(" WHEN MATCHED AND ").append(kCambiata).append(" THEN UPDATE SET").append(assegnazioni);
  testo.append(" WHEN NOT MATCHED AND ").append(kCambiata).append(" THEN INSERT (").append(colonne);
  return testo.append(") VALUES (").append(valori).append(");')");
}

}  // namespace cu
