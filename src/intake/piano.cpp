#include "intake/piano.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "intake/archivio_letto.h"
#include "intake/conti_toccati.h"
#include "intake/lettura_fatture.h"
#include "intake/riga_in_corso.h"
#include "intake/storico.h"
#include "intake/valori_scheda.h"

namespace cu::intake {
namespace {

void mettiRighe(Piano& piano) {
  std::size_t quante = 0;
  for (const Lettura& lettura : *piano.letture) quante += lettura.righe.size();
  piano.righe.reserve(quante);
  std::set<std::string> impronte;  // of the files before, in this import
  for (std::size_t file = 0; file < piano.letture->size(); ++file) {
    const Lettura& lettura = (*piano.letture)[file];
    for (const Messaggio& uno : lettura.messaggi) piano.messaggi.push_back(uno);
    const std::string& impronta = lettura.fatture ? lettura.fatture->sha256Contenuto : lettura.sha256;
    if (piano.archivio->impronte.contains(impronta)) {
      piano.messaggi.push_back(messaggio(Codice::F08, "il file è già stato importato"));
      piano.messaggi.back().posto = {lettura.file, lettura.foglio, 0};
    }
    if (!impronta.empty() && !impronte.insert(impronta).second) {
      piano.messaggi.push_back(
          messaggio(Codice::F08, std::string(lettura.fatture ? "un altro file ha lo stesso contenuto"
                                                             : "il file è indicato due volte") +
                                     ": le sue righe si contano una volta sola"));
      piano.messaggi.back().posto = {lettura.file, lettura.foglio, 0};
      continue;
    }
    for (std::size_t i = 0; i < lettura.righe.size(); ++i) {
      piano.righe.emplace_back().posizione = {file, i};
    }
  }
}

ValoriRiga nominati(Elenco elenco, const std::vector<Value>& valori) {
  ValoriRiga nominati;
  for (std::size_t i = 0; i < valori.size(); ++i) {
    if (valori[i].isNull()) continue;
    const CellView cella = valori[i].view();
    nominati.emplace_back(colonne(elenco)[i].nome,
                          valori[i].type() == ValueType::Date ? cella.date().toIso() : cella.toText());
  }
  return nominati;
}

std::vector<Value> valoriPianificati(const Piano& piano, const RigaPiano& riga) {
  const ArchivioLetto& archivio = *piano.archivio;
  switch (piano.elenco) {
    case Elenco::Aziende:
      return valoriAzienda(piano.aziende[riga.voce].dopo, piano.accantoAziende[riga.voce], archivio.luoghi,
                           archivio.elenchi);
    case Elenco::Percipienti:
      return valoriPercipiente(piano.percipienti[riga.voce].dopo, piano.accantoPercipienti[riga.voce],
                               archivio.luoghi, archivio.elenchi);
    case Elenco::Compensi:
      break;
  }
  const schede::SchedaCompenso& compenso = piano.compensi[riga.voce].dopo;
  return valoriCompenso(compenso, piano.percipiente(compenso.idAnagrafica),
                        piano.accantoCompensi[riga.voce].idCodiceNonSoggette.value_or(0), archivio.elenchi);
}

// The columns that identify a row of the list.
std::size_t colonneChiave(Elenco elenco) {
  switch (elenco) {
    case Elenco::Aziende:
      return 2;
    case Elenco::Percipienti:
      return 3;
    case Elenco::Compensi:
      break;
  }
  return 7;
}

}  // namespace

std::string_view nome(StatoRiga stato) {
  constexpr std::array<std::string_view, kStatiRiga> kNomi = {"nuovo",       "uguale", "diverso",
                                                              "da decidere", "errore", "escluso"};
  return kNomi[static_cast<std::size_t>(stato)];
}

std::array<std::size_t, kStatiRiga> Piano::conteggi() const {
  std::array<std::size_t, kStatiRiga> quante{};
  for (const RigaPiano& riga : righe) ++quante[static_cast<std::size_t>(riga.stato)];
  return quante;
}

PostoMessaggio Piano::posto(const RigaPiano& riga) const {
  const Lettura& lettura = (*letture)[riga.posizione.file];
  const std::size_t numero = lettura.righe[riga.posizione.riga].numero;
  if (lettura.fatture == nullptr) return {lettura.file, lettura.foglio, numero};
  return {lettura.file, {}, 0, lettura.fatture->documenti.size() > 1 ? numero : 0};
}

const schede::SchedaPercipiente* Piano::percipiente(std::int32_t id) const {
  if (id < 0) return &percipienti[static_cast<std::size_t>(-1 - id)].dopo;
  const auto suo = std::lower_bound(
      archivio->percipienti.begin(), archivio->percipienti.end(), id,
      [](const schede::SchedaPercipiente& p, std::int32_t quale) { return p.anagrafica.id < quale; });
  return suo != archivio->percipienti.end() && suo->anagrafica.id == id ? &*suo : nullptr;
}

bool Piano::scrive() const {
  return std::any_of(righe.begin(), righe.end(), [&](const RigaPiano& riga) { return scritta(*this, riga); });
}

std::set<Codice> Piano::avvisiDaAccettare() const {
  std::set<Codice> codici;
  if (!scrive()) return codici;
  const auto raccogli = [&](const std::vector<Messaggio>& suoi) {
    for (const Messaggio& uno : suoi) {
      if (uno.gravita == Gravita::Avviso && !richiesta.accettati.contains(uno.codice))
        codici.insert(uno.codice);
    }
  };
  raccogli(messaggi);
  for (const RigaPiano& riga : righe) {
    if (scritta(*this, riga)) raccogli(riga.messaggi);
  }
  return codici;
}

bool Piano::applicabile() const {
  const bool errori = std::any_of(messaggi.begin(), messaggi.end(),
                                  [](const Messaggio& uno) { return uno.gravita == Gravita::Errore; });
  if (errori) return false;
  const auto quante = conteggi();
  const auto di = [&](StatoRiga stato) { return quante[static_cast<std::size_t>(stato)]; };
  if (di(StatoRiga::Errore) > 0 || di(StatoRiga::DaDecidere) > 0) return false;
  if (di(StatoRiga::Diverso) > 0 && richiesta.diversi == SuDiversi::Rifiuta) return false;
  return avvisiDaAccettare().empty();
}

ValoriRiga valori(const Piano& piano, const RigaPiano& riga) {
  if (riga.voce != kSenzaVoce) return nominati(piano.elenco, valoriPianificati(piano, riga));
  std::vector<Value> letti(colonne(piano.elenco).size());
  for (const Campo& campo : piano.letta(riga).campi) letti[campo.colonna] = Value::of(campo.valore);
  return nominati(piano.elenco, letti);
}

ValoriRiga valoriPercipienteNuovo(const Piano& piano, const RigaPiano& riga) {
  if (riga.percipienteNuovo == kSenzaVoce) return {};
  const ArchivioLetto& archivio = *piano.archivio;
  return nominati(Elenco::Percipienti, valoriPercipiente(piano.percipienti[riga.percipienteNuovo].dopo,
                                                         piano.accantoPercipienti[riga.percipienteNuovo],
                                                         archivio.luoghi, archivio.elenchi));
}

ValoriRiga chiave(const Piano& piano, const RigaPiano& riga) {
  ValoriRiga tutti = valori(piano, riga);
  const auto nomi = colonne(piano.elenco).first(colonneChiave(piano.elenco));
  std::erase_if(tutti, [&](const auto& uno) {
    return std::none_of(nomi.begin(), nomi.end(), [&](const Colonna& c) { return c.nome == uno.first; });
  });
  return tutti;
}

ValoriRiga importi(const schede::Importi& importi) {
  ValoriRiga nominati;
  for (std::size_t i = 0; i < kColonneImporti.size(); ++i) {
    nominati.emplace_back(colonna(kColonneImporti[i]).nome, importi[i].toText());
  }
  return nominati;
}

Piano pianifica(Connection& connessione, std::vector<Lettura> letture, const RichiestaPiano& richiesta,
                ProgressSink* avanzamento) {
  Piano piano;
  piano.richiesta = richiesta;
  if (!letture.empty()) piano.elenco = letture.front().elenco;
  const Result<> pronto = prontoPerImportare(connessione, piano.elenco, richiesta);
  if (!pronto) throw Error(kErrorDatabase, pronto.refusals.front().text);
  piano.letture = std::make_shared<const std::vector<Lettura>>(std::move(letture));
  const ReadScope lettura(connessione);
  piano.archivio = std::make_shared<const ArchivioLetto>(connessione, piano.elenco, richiesta);
  mettiRighe(piano);
  switch (piano.elenco) {
    case Elenco::Aziende:
      pianificaAziende(piano, *piano.archivio, avanzamento);
      break;
    case Elenco::Percipienti:
      pianificaPercipienti(piano, *piano.archivio, avanzamento);
      break;
    case Elenco::Compensi:
      pianificaCompensi(piano, *piano.archivio, avanzamento);
      break;
  }
  return piano;
}

}  // namespace cu::intake
