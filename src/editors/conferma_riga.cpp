#include "editors/conferma_riga.h"

#include "host/text.h"
#include "host/utility.h"

namespace cu {

ConfermaRiga::ConfermaRiga(FrontEnd& schermo, UtilitaSuite& utilita, const std::string& nome)
    : Editor(schermo, nome, "Certificazione compensi"),
      lblPercipiente(*this, "lblPercipiente", nullptr),
      cmdOk(*this, "cmdOk", nullptr, "OK"),
      cmdAnnulla(*this, "cmdAnnulla", nullptr, "Annulla"),
      utilita_(utilita) {
  defaultButton = &cmdOk;
  cancelButton = &cmdAnnulla;
  cmdOk.onClick = [this] {
    ok_ = true;
    unload();
  };
  cmdAnnulla.onClick = [this] {
    ok_ = false;
    unload();
  };
}

void ConfermaRiga::formLoad() { utilita_.prepareForm(*this); }

void ConfermaRiga::setRecordset(cu::Recordset& righe) {
  righe_ = &righe;
  righe.SetFilter("Anno = " + righe.Get("Anno").toText() +
                  " AND IDAnagrafica = " + righe.Get("IDAnagrafica").toText() +
                  " AND IDCausalePagamento = " + righe.Get("IDCausalePagamento").toText());
  lblPercipiente.setCaption(utilita_.toText(righe.Get("AnagraficaPerc")));
}

std::unique_ptr<Editor> fnCreaEditor(std::int32_t anno, FrontEnd& frontEnd, UtilitaSuite& utilita) {
  std::string nome = "frmCompenso2017";
  if (anno == 2014) nome = "frmCompenso";
  if (anno == 2015) nome = "frmCompenso2016";
  return std::make_unique<ConfermaRiga>(frontEnd, utilita, nome);
}

}  // namespace cu
