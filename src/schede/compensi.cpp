#include "schede/compensi.h"

#include "base/text.h"
#include "schede/righe.h"

namespace cu::schede {

std::vector<SchedaCompenso> Compensi::degliAnni(const std::vector<int>& anni) const {
  std::string condizione = " WHERE IDAzienda = " + fromInteger(idAzienda_);
  const char* separatore = " AND (";
  for (const int anno : anni) {
    condizione += separatore;
    condizione += "Year(DataPagamento) = " + fromInteger(anno);
    separatore = " OR ";
  }
  if (!anni.empty()) condizione += ")";
  std::vector<SchedaCompenso> schede;
  perOgniRiga(connessione_, kCompenso, condizione + " ORDER BY IDCompenso",
              [&](const CellView* riga) { schede.push_back(compensoDa(riga)); });
  return schede;
}

std::vector<int> Compensi::anni() const {
  RowStore righe;
  connessione_.Query("SELECT DISTINCT Year(DataPagamento) AS Anno FROM Compenso WHERE IDAzienda = " +
                         fromInteger(idAzienda_) + " ORDER BY Anno",
                     righe);
  std::vector<int> anni;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    CellView anno;
    righe.read(i, &anno);
    anni.push_back(static_cast<int>(anno.integer()));
  }
  return anni;
}

std::optional<SchedaCompenso> Compensi::cerca(std::int32_t idCompenso) const {
  std::optional<SchedaCompenso> trovato;
  perOgniRiga(
      connessione_, kCompenso,
      " WHERE IDAzienda = " + fromInteger(idAzienda_) + " AND IDCompenso = " + fromInteger(idCompenso),
      [&](const CellView* riga) { trovato = compensoDa(riga); });
  return trovato;
}

std::vector<Finding> Compensi::controlla(const SchedaCompenso& compenso) {
  std::vector<Finding> mancanze;
  const auto vuole = [&](bool manca, const char* testo, const char* posto) {
    if (manca) mancanze.push_back({"manca", testo, posto});
  };
  const auto importo = [&](Importo quale) { return compenso.importi[posto(quale)]; };
  vuole(compenso.idAnagrafica == 0, "Manca il percipiente.", "idAnagrafica");
  vuole(compenso.idCausale == 0, "Manca la causale.", "idCausale");
  vuole(compenso.pagamento == Date(), "Manca la data di pagamento.", "pagamento");
  vuole(importo(Importo::Onorario).isZero() && importo(Importo::SommeNonSoggette).isZero() &&
            importo(Importo::RegimeConvenzionale).isZero(),
        "Manca un importo: onorario, somme non soggette o somme in regime convenzionale.", "onorario");
  return mancanze;
}

SchedaCompenso Compensi::aggiungi(Scrittura& scrittura, SchedaCompenso compenso) {
  if (compenso.id == 0) compenso.id = scrittura.nuovoId(kCompenso);
  scrittura.inserisci(kCompenso, rigaCompenso(compenso));
  return compenso;
}

bool Compensi::cambia(Scrittura& scrittura, const SchedaCompenso& compenso) {
  return scrittura.riscrivi(kCompenso, rigaCompenso(compenso));
}

void Compensi::togli(Scrittura& scrittura, std::int32_t idCompenso) {
  scrittura.chiudi();
  for (const Riga& riga :
       leggiRighe(scrittura.connessione(), kCompenso, " WHERE IDCompenso = " + fromInteger(idCompenso))) {
    scrittura.togli(kCompenso, riga);
  }
}

}  // namespace cu::schede
