#include "editors/percipiente.h"

#include "worklist/elenchi.h"

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
  cdPercipiente.bind(connessione, {elencoPercipienti(sessione.IDAzienda()), "Codice", "Percipiente", ""});
  cdPagamento.bind(connessione,
                   {elencoCausali(), "Codice causale", "Descrizione causale", "Causale pagamento"});
}

void Percipiente::mostra(std::int32_t idAnagrafica, const std::string& nome, std::int32_t idCausale) {
  if (!cdPercipiente.chooseRecord(idAnagrafica)) cdPercipiente.empty();
  txtNome.setText(nome);
  if (!cdPagamento.chooseRecord(idCausale)) cdPagamento.empty();
}

}  // namespace cu
