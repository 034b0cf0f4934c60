#include "apps/esame/json_lettura.h"

namespace cu {

using nlohmann::ordered_json;

namespace {

ordered_json celle(const std::vector<lettura::Valore>& valori) {
  ordered_json celle = ordered_json::object();
  for (const lettura::Valore& valore : valori) celle[valore.codice] = valore.testo;
  return celle;
}

}  // namespace

ordered_json jsonRilievo(const lettura::Rilievo& rilievo) {
  const lettura::VoceRegola& voce = lettura::voce(rilievo.regola);
  return {{"line", rilievo.riga},
          {"position", rilievo.posizione},
          {"length", rilievo.lunghezza},
          {"record", rilievo.record == '\0' ? std::string() : std::string(1, rilievo.record)},
          {"field", rilievo.campo},
          {"code", voce.codice},
          {"severity", voce.gravita == lettura::Gravita::Errore ? "error" : "warning"},
          {"text", rilievo.testo}};
}

ordered_json jsonRilievi(const lettura::Rilievi& rilievi) {
  ordered_json lista = ordered_json::array();
  for (const lettura::Rilievo& rilievo : rilievi.ordinati()) lista.push_back(jsonRilievo(rilievo));
  return lista;
}

ordered_json jsonConteggi(const lettura::Rilievi& rilievi) {
  ordered_json conteggi = ordered_json::object();
  for (const lettura::VoceRegola& voce : lettura::kVociRegole) {
    if (const std::size_t quanti = rilievi.quanti(voce.regola); quanti > 0)
      conteggi[std::string(voce.codice)] = quanti;
  }
  return conteggi;
}

ordered_json jsonCertificato(const lettura::Certificato& certificato) {
  ordered_json moduli = ordered_json::array();
  for (const lettura::Modulo& modulo : certificato.moduli) {
    moduli.push_back({{"number", modulo.numero}, {"line", modulo.riga}, {"cells", celle(modulo.celle)}});
  }
  return {{"number", certificato.numero},       {"line", certificato.riga},
          {"payee", certificato.percipiente},   {"name", certificato.nome},
          {"reason", certificato.causale()},    {"operation", certificato.operazione},
          {"protocol", certificato.protocollo}, {"progressive", certificato.progressivo},
          {"modules", std::move(moduli)},       {"cells", celle(certificato.celle)}};
}

std::string tipoFornitura(bool annullamenti, bool sostituzioni) {
  if (annullamenti && sostituzioni) return "annullamento e sostituzione";
  if (annullamenti) return "annullamento";
  return sostituzioni ? "sostituzione" : "ordinaria";
}

ordered_json jsonFornitura(const lettura::Fornitura& fornitura, bool annullamenti, bool sostituzioni) {
  ordered_json json = {{"code", fornitura.codice},
                       {"taxYear", nullptr},
                       {"sender", fornitura.mittente},
                       {"senderType", fornitura.tipoMittente},
                       {"kind", tipoFornitura(annullamenti, sostituzioni)}};
  if (fornitura.annoFiscale) json["taxYear"] = *fornitura.annoFiscale;
  return json;
}

}  // namespace cu
