#include "telematic/cu_ele.h"

#include <exception>

#include "data/recordset.h"
#include "host/conversioni.h"
#include "host/progress.h"
#include "host/session.h"
#include "telematic/query_cu.h"

namespace cu {

CUEle::CUEle(const AmbienteTelematico& ambiente) : ambiente_(ambiente), file_(ambiente) {}

std::string CUEle::fnQueryPrincipale() const { return telematico::queryPrincipale(ambiente_.tabella); }

bool CUEle::Create(Date DataFirma) {
  Connection& connection = ambiente_.database.internalConnection();
  const ReadScope oneState(connection);
  Recordset principale;
  principale.Open(connection, ambiente_.utilita.fnAnsi2jet(fnQueryPrincipale()));
  if (principale.RecordCount() == 0) return true;
  if (!file_.OpenFile()) return false;
  try {
    scriviFile(connection, principale, DataFirma);
  } catch (...) {
    // Flush at once: after an error the file without its Z is the evidence.
    try {
      file_.CloseFile();
    } catch (const std::exception&) {
      // The first error is the one to report.
    }
    throw;
  }
  return true;
}

void CUEle::scriviFile(Connection& connection, Recordset& principale, Date DataFirma) {
  file_.legaQueryPrincipale(principale.Fields());
  const Chiave chiave = {.anno = principale.Ordinal("Anno"),
                         .idAnagrafica = principale.Ordinal("IDAnagrafica"),
                         .idAzienda = principale.Ordinal("IDAzienda"),
                         .idCausalePagamento = principale.Ordinal("IDCausalePagamento")};

  file_.WriteRecordTipoA(dati_.UsoIntermediari, dati_.UsoIntermediari ? dati_.CodiceFiscaleIntermediario
                                                                      : dati_.CodiceFiscaleAzienda);
  file_.WriteRecordTipoB(principale.Row(), static_cast<std::int32_t>(principale.RecordCount()),
                         dati_.CodiceFiscaleAzienda, dati_.TipoComunicazione,
                         dati_.CodiceFiscaleIntermediario, dati_.UsoIntermediari, dati_.TipoComIntermediario,
                         dati_.DataImpegnoIntermediario);

  std::int32_t NumeroCertificazione = 0;
  const std::size_t certificazioni = principale.RecordCount();
  for (; !principale.Eof(); principale.MoveNext()) {
    ambiente_.avanzamento.progress("Creazione del file telematico", principale.AbsolutePosition(),
                                   certificazioni);
    const CellView* const riga = principale.Row();
    ++NumeroCertificazione;
    file_.WriteRecordTipoD(riga, NumeroCertificazione, dati_.CodiceFiscaleAzienda, dati_.TipoComunicazione,
                           DataFirma);
    if (dati_.TipoComunicazione == Comunicazione::Annullamento) continue;  // an annulment has no amounts
    file_.WriteRecordTipoH(riga, NumeroCertificazione, 1, dati_.CodiceFiscaleAzienda, nullptr);
    scriviModuli(connection, riga, chiave, NumeroCertificazione);
  }
  principale.MovePrevious();
  file_.WriteRecordTipoZ(principale.Row(), DataFirma, 0, 0);
  file_.CloseFile();
  certificazioni_ = certificazioni;
}

void CUEle::scriviModuli(Connection& connection, const CellView* riga, const Chiave& chiave,
                         std::int32_t certificazione) {
  Recordset moduli;
  moduli.Open(connection, ambiente_.utilita.fnAnsi2jet(telematico::queryModuli(
                              riga[chiave.anno].integer(), riga[chiave.idAnagrafica].integer(),
                              riga[chiave.idAzienda].integer(), riga[chiave.idCausalePagamento].integer())));
  if (moduli.Eof()) return;
  file_.legaQueryModuli(moduli.Fields());
  for (std::int32_t modulo = 2; !moduli.Eof(); moduli.MoveNext(), ++modulo) {
    file_.WriteRecordTipoH(riga, certificazione, modulo, dati_.CodiceFiscaleAzienda, moduli.Row());
  }
}

}  // namespace cu
