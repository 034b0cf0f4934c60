#pragma once

#include <string>

#include "editors/editor.h"

namespace cu {

// Shows the line and confirms or cancels it; it has no field that changes it.
class ConfermaRiga : public Editor {
 public:
  ConfermaRiga(FrontEnd& frontEnd, UtilitaSuite& utilita, const std::string& nome);

  void setRecordset(cu::Recordset& righe) override;
  cu::Recordset& Recordset() override { return *righe_; }
  void setTipoComunicazione(std::int32_t tipo) override { tipo_ = tipo; }
  void ApriDatiAggiuntivi() override { showModal(); }
  bool OK() const override { return ok_; }

  Label lblPercipiente;
  Button cmdOk;
  Button cmdAnnulla;

 private:
  void formLoad() override;

  UtilitaSuite& utilita_;
  cu::Recordset* righe_ = nullptr;
  std::int32_t tipo_ = 0;
  bool ok_ = false;
};

}  // namespace cu
