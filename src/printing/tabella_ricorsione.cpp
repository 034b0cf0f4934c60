#include "printing/tabella_ricorsione.h"

#include "base/text.h"
#include "host/conversioni.h"
#include "host/testi_programma.h"

namespace cu {
namespace ricorsione {

std::string elimina(std::int32_t idUtente) {
  return "DELETE FROM TabellaRicorsione2 WHERE IDUtente = " + fromInteger(idUtente) +
         " AND IDFunzione = " + fromInteger(fnModoCU());
}

std::string inserisci(const Recordset& riga, const Corsa& corsa, const Conversioni& utilita) {
  const auto id = [&](const char* colonna) { return fromInteger(riga.Get(colonna).integer()); };
  return "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
         "Path3)"
         " VALUES (" +
         id("IDAnagrafica") + "," + id("IDCausalePagamento") + "," + fromInteger(corsa.idUtente) + "," +
         fromInteger(fnModoCU()) + "," + id("IDAzienda") + "," + corsa.sTipoCom + "," +
         (corsa.intermediari ? "1" : "0") + "," + utilita.literal(corsa.dataFirma) + ")";
}

}  // namespace ricorsione

std::string NomeModulo::diRiga(const Recordset& riga, const Conversioni& utilita) const {
  std::string nome = "CUR_" + sCodFisc;
  const auto aggiungi = [&nome](const std::string& parte) {
    nome += '_';
    nome += parte;
  };
  aggiungi(utilita.toText(riga.Get("CodiceFiscale")));
  aggiungi(utilita.toText(riga.Get("CodicePercipiente")));
  aggiungi(anno);
  aggiungi(utilita.toText(riga.Get("Codice")));
  aggiungi(oggi.toDdmmyyyy());
  aggiungi(ora.toHhmm());
  nome += ".cur";
  return nome;
}

std::string NomeModulo::cumulativo() const {
  return "CUR_" + sCodFisc + "_" + anno + "_" + oggi.toDdmmyyyy() + "_" + ora.toHhmm() + ".cur";
}

}  // namespace cu
