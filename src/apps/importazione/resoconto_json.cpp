#include <nlohmann/json.hpp>

#include "apps/importazione/resoconto.h"

namespace cu {
namespace {

using intake::Gravita;
using intake::Messaggio;
using intake::Piano;
using intake::RigaPiano;
using Json = nlohmann::ordered_json;

// A file's name may hold bytes that are no UTF-8: each becomes U+FFFD.
std::string inTesto(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

// What has to be decided stops the import as an error does.
const char* severita(const Messaggio& messaggio) {
  switch (messaggio.gravita) {
    case Gravita::DaDecidere:
      // The state of the row has what is missing; the code itself is an information.
      if (intake::voce(messaggio.codice).gravita == Gravita::Informazione) break;
      return "error";
    case Gravita::Errore:
      return "error";
    case Gravita::Avviso:
      return "warning";
    case Gravita::Informazione:
      break;
  }
  return "info";
}

Json jsonMessaggio(const Messaggio& messaggio) {
  return {{"code", intake::voce(messaggio.codice).sigla},
          {"severity", severita(messaggio)},
          {"column", messaggio.colonna},
          {"text", messaggio.testo}};
}

Json jsonValori(const intake::ValoriRiga& valori) {
  Json json = Json::object();
  for (const auto& [nome, valore] : valori) json[nome] = valore;
  return json;
}

Json jsonRiga(const Piano& piano, const RigaPiano& riga) {
  Json derivati = Json::array();
  for (const std::uint8_t colonna : riga.derivati)
    derivati.push_back(intake::colonne(piano.elenco)[colonna].nome);
  Json messaggi = Json::array();
  for (const Messaggio& messaggio : riga.messaggi) messaggi.push_back(jsonMessaggio(messaggio));
  const intake::Lettura& lettura = (*piano.letture)[riga.posizione.file];
  Json json = {{"file", lettura.file},
               {"row", lettura.righe[riga.posizione.riga].numero},
               {"state", intake::nome(riga.stato)},
               {"key", jsonValori(intake::chiave(piano, riga))},
               {"values", jsonValori(intake::valori(piano, riga))},
               {"derived", std::move(derivati)},
               {"messages", std::move(messaggi)}};
  if (lettura.fatture == nullptr) return json;
  json["explanations"] = spiegazioni(piano, riga);
  const intake::ValoriRiga nuovo = intake::valoriPercipienteNuovo(piano, riga);
  if (!nuovo.empty()) json["new_payee"] = jsonValori(nuovo);
  return json;
}

Json jsonConto(const intake::ContoPiano& conto) {
  return {{"payee", conto.percipiente},
          {"reason", conto.causale},
          {"year", conto.anno},
          {"before", conto.prima ? jsonValori(intake::importi(*conto.prima)) : Json()},
          {"after", jsonValori(intake::importi(conto.dopo))}};
}

Json jsonGenerale(const Messaggio& messaggio) {
  Json json = jsonMessaggio(messaggio);
  json["file"] = messaggio.posto.file;
  if (messaggio.posto.riga > 0) json["row"] = messaggio.posto.riga;
  return json;
}

// The text goes on as soon as there is a block of it: a report can be hundreds of times a block.
class Testo {
 public:
  explicit Testo(const std::function<void(std::string_view)>& scrivi) : scrivi_(scrivi) {}
  Testo& operator<<(std::string_view pezzo) {
    constexpr std::size_t kBlocco = std::size_t{1} << 16U;
    testo_ += pezzo;
    if (testo_.size() >= kBlocco) fine();
    return *this;
  }
  void fine() {
    scrivi_(testo_);
    testo_.clear();
  }

 private:
  const std::function<void(std::string_view)>& scrivi_;
  std::string testo_;
};

template <class Voci, class Fai>
void aggiungiElenco(Testo& testo, std::string_view nome, const Voci& voci, Fai fai) {
  testo << ",\n\"" << nome << "\": [";
  bool prima = true;
  for (const auto& voce : voci) {
    testo << (prima ? "\n" : ",\n") << inTesto(fai(voce));
    prima = false;
  }
  testo << "]";
}

}  // namespace

void resocontoJson(const Piano& piano, const EsitoImportazione& esito,
                   const std::function<void(std::string_view)>& scrivi) {
  Json conteggi = Json::object();
  const auto quanti = piano.conteggi();
  for (std::size_t i = 0; i < quanti.size(); ++i) {
    conteggi[std::string(intake::nome(static_cast<intake::StatoRiga>(i)))] = quanti[i];
  }
  Testo testo(scrivi);
  testo << "{\"batch\": " << (esito.lotto ? std::to_string(*esito.lotto) : std::string("null"));
  testo << (esito.applicata ? ", \"applied\": true" : ", \"applied\": false");
  testo << ", \"kind\": " << inTesto(intake::nomeInglese(piano.elenco));
  testo << ", \"counts\": " << inTesto(conteggi);
  aggiungiElenco(testo, "rows", piano.righe, [&](const RigaPiano& riga) { return jsonRiga(piano, riga); });
  aggiungiElenco(testo, "accounts", piano.conti, jsonConto);
  aggiungiElenco(testo, "missing", piano.mancanti, [](const intake::MancantePiano& mancante) {
    return Json{{"payee", mancante.percipiente}, {"check", mancante.controllo}, {"text", mancante.testo}};
  });
  aggiungiElenco(testo, "messages", piano.messaggi, jsonGenerale);
  testo << "}\n";
  testo.fine();
}

}  // namespace cu
