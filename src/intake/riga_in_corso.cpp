#include "intake/riga_in_corso.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "intake/testo_cella.h"

namespace cu::intake {
namespace {

std::string dettoLuogo(const schede::Luogo& luogo) {
  std::string testo = luogo.nome;
  if (!luogo.provincia.empty()) testo += " (" + luogo.provincia + ")";
  if (!luogo.catasto.empty()) testo += " " + luogo.catasto;
  if (luogo.soppresso != 0) testo += ", soppresso nel " + fromInteger(luogo.soppresso);
  return testo;
}

const Decisione& decisionePresa(const Piano& piano, const Posizione& posizione) {
  static const Decisione kNessuna;
  const auto presa = piano.richiesta.decisioni.find(posizione);
  return presa == piano.richiesta.decisioni.end() ? kNessuna : presa->second;
}

}  // namespace

RigaInCorso::RigaInCorso(Piano& piano, RigaPiano& riga)
    : RigaInCorso(piano, riga, (*piano.letture)[riga.posizione.file], piano.letta(riga)) {}

RigaInCorso::RigaInCorso(Piano& piano, RigaPiano& riga, const Lettura& lettura, const RigaLetta& letta)
    : piano_(piano),
      riga_(riga),
      lettura_(lettura),
      letta_(letta),
      decisione_(decisionePresa(piano, riga.posizione)) {}

void RigaInCorso::segnala(Codice codice, std::uint8_t colonna, std::string testo) {
  riga_.messaggi.push_back(messaggio(codice, std::move(testo), lettura_.nomeColonna(colonna)));
}

void RigaInCorso::segnala(Codice codice, std::string testo) {
  riga_.messaggi.push_back(messaggio(codice, std::move(testo)));
}

StatoRiga RigaInCorso::stato(StatoRiga altrimenti) const {
  bool daDecidere = false;
  for (const Messaggio& uno : riga_.messaggi) {
    if (uno.gravita == Gravita::Errore) return StatoRiga::Errore;
    daDecidere = daDecidere || (uno.gravita == Gravita::DaDecidere && uno.codice != Codice::R04);
  }
  return daDecidere ? StatoRiga::DaDecidere : altrimenti;
}

void RigaInCorso::uguale(const std::string& dove) {
  segnala(Codice::R03, "già presente, uguale" + (dove.empty() ? dove : ", " + dove));
  riga_.stato = stato(StatoRiga::Uguale);
}

void RigaInCorso::diverso(const std::string& cosa) {
  segnala(Codice::R04, "già presente, diverso: " + cosa);
  if (piano_.richiesta.diversi != SuDiversi::Rifiuta) riga_.messaggi.back().gravita = Gravita::Informazione;
  riga_.stato = stato(StatoRiga::Diverso);
}

bool daPianificare(RigaInCorso& corso) {
  RigaPiano& riga = corso.riga();
  riga.messaggi = corso.letta().messaggi;
  for (const Campo& campo : corso.letta().campi) {
    if (campo.derivato) riga.derivati.push_back(campo.colonna);
  }
  if (!corso.letta().esclusa.empty() || corso.decisione().esclusa) {
    riga.stato = StatoRiga::Escluso;
    riga.esclusa = corso.letta().esclusa.empty() ? "tralasciata" : corso.letta().esclusa;
    return false;
  }
  riga.stato = corso.stato(StatoRiga::Nuovo);
  return riga.stato != StatoRiga::Errore;
}

std::optional<std::int32_t> idDelCodice(RigaInCorso& corso, std::uint8_t colonna, std::string_view codice,
                                        const schede::ElencoCodici& elenco, std::string* proprio) {
  const schede::VoceElenco* const voce = elenco.diCodice(codice);
  if (voce != nullptr) return voce->id;
  if (codice.empty()) {
    corso.segnala(Codice::C01, colonna, "manca il valore, che è obbligatorio");
    return std::nullopt;
  }
  if (proprio != nullptr) {
    *proprio = std::string(codice);
    return 0;
  }
  corso.segnala(Codice::V05, colonna, mostrato(codice) + " non è fra i codici: " + elenco.codici());
  return std::nullopt;
}

std::optional<std::int32_t> scegliLuogo(RigaInCorso& corso, std::uint8_t colonna, std::string_view nome,
                                        const std::vector<const schede::Luogo*>& luoghi) {
  for (const schede::Luogo* luogo : luoghi) {
    if (luogo->id == corso.decisione().idComune) return luogo->id;
  }
  std::string elenco;
  for (const schede::Luogo* luogo : luoghi) {
    if (!elenco.empty()) elenco += "; ";
    elenco += dettoLuogo(*luogo);
    corso.riga().candidati.push_back({luogo->id, dettoLuogo(*luogo)});
  }
  corso.segnala(Codice::P08, colonna, "più luoghi si chiamano " + mostrato(nome) + ": " + elenco);
  return std::nullopt;
}

std::optional<std::int32_t> idDelComune(RigaInCorso& corso, std::uint8_t colonna, std::string_view nome,
                                        std::string_view provincia, const schede::Luoghi& luoghi) {
  const schede::Ricerca ricerca = luoghi.comune(nome, provincia, std::nullopt);
  if (const schede::Luogo* const uno = ricerca.uno()) {
    if (uno->soppresso != 0) {
      corso.segnala(Codice::P06, colonna, dettoLuogo(*uno) + ": il comune non esiste più");
    }
    return uno->id;
  }
  if (!ricerca.trovati.empty()) return scegliLuogo(corso, colonna, nome, ricerca.trovati);
  std::string dove = mostrato(nome);
  if (!provincia.empty()) dove += " (" + mostrato(provincia) + ")";
  corso.segnala(Codice::V05, colonna, dove + " non è nell'elenco dei comuni");
  return std::nullopt;
}

std::optional<std::int32_t> idDellaNazione(RigaInCorso& corso, std::uint8_t colonna, std::string_view nome,
                                           const schede::Luoghi& luoghi) {
  const schede::Ricerca ricerca = luoghi.nazione(nome);
  if (ricerca.uno() != nullptr) return ricerca.uno()->id;
  if (!ricerca.trovati.empty()) return scegliLuogo(corso, colonna, nome, ricerca.trovati);
  corso.segnala(Codice::V05, colonna, mostrato(nome) + " non è nell'elenco delle nazioni");
  return std::nullopt;
}

std::string detto(const schede::SchedaAnagrafica& scheda) {
  std::string testo = nominativo(scheda);
  const std::string& codice = scheda.codiceFiscale.empty() ? scheda.partitaIva : scheda.codiceFiscale;
  if (!codice.empty()) testo += ", " + codice;
  return testo;
}

}  // namespace cu::intake
