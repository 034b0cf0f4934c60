#include "editors/percipiente.h"

#include "base/text.h"

namespace cu {

Percipiente::Percipiente(Form& form, Frame* frame, const std::string& suffisso)
    : cdPercipiente(form, "cdPercipiente" + suffisso, frame, "Percipiente"),
      txtNome(form, "txtNome" + suffisso, frame, "Nome"),
      cdPagamento(form, "cdPagamento" + suffisso, frame, "Causale pagamento") {
  cdPercipiente.setEnabled(false);
  cdPagamento.setEnabled(false);
  txtNome.setEnabled(false);
  txtNome.setLocked(true);
  txtNome.setBackground(Background::Face);
}

void Percipiente::associa(const AmbienteEditor& ambiente) {
  SessioneHost& sessione = *ambiente.globali.gSessione;
  Connection& connessione = sessione.database().ownConnection();
  cdPercipiente.bind(connessione, {.table = "RepPercipienteCD",
                                   .codeField = "Codice",
                                   .descriptionField = "Anagrafica",
                                   .idField = "IDAnagrafica",
                                   .codeCaption = "Codice",
                                   .descriptionCaption = "Percipiente",
                                   .filter = "IDAzienda = " + fromInteger(sessione.IDAzienda()),
                                   .title = "",
                                   .manage = false,
                                   .search = true});
  cdPagamento.bind(connessione, {.table = "CausalePagamento",
                                 .codeField = "Codice",
                                 .descriptionField = "CausalePagamento",
                                 .idField = "IDCausalePagamento",
                                 .codeCaption = "Codice causale",
                                 .descriptionCaption = "Descrizione causale",
                                 .filter = "",
                                 .title = "Causale pagamento",
                                 .manage = false,
                                 .search = true});
}

void Percipiente::mostra(std::int32_t idAnagrafica, const std::string& nome, std::int32_t idCausale) {
  if (!cdPercipiente.chooseRecord(idAnagrafica)) cdPercipiente.empty();
  txtNome.setText(nome);
  if (!cdPagamento.chooseRecord(idCausale)) cdPagamento.empty();
}

}  // namespace cu
