#include "intake/applica.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "data/transazione.h"
#include "intake/archivio_letto.h"
#include "intake/conti_lotto.h"
#include "intake/conti_toccati.h"
#include "intake/diario_lotto.h"
#include "intake/storico.h"
#include "schede/aziende.h"
#include "schede/compensi.h"
#include "schede/conteggio.h"
#include "schede/percipienti.h"
#include "schede/righe.h"

namespace cu::intake {
namespace {

// Ids of a database's own entries of lists begin here: below, the lists have room to grow.
constexpr std::int32_t kPrimoCodiceProprio = 100;
constexpr std::int32_t kPrimaLocalitaPropria = 100001;

class Applicazione {
 public:
  Applicazione(DatabaseHost& database, RicostruzioneConti& ricostruzione, const Piano& piano,
               schede::Scrittura& scrittura, DiarioLotto& diario, std::int32_t lotto,
               ProgressSink* avanzamento)
      : database_(database),
        ricostruzione_(ricostruzione),
        piano_(piano),
        scrittura_(scrittura),
        diario_(diario),
        lotto_(lotto),
        avanzamento_(avanzamento) {}

  void esegui() {
    switch (piano_.elenco) {
      case Elenco::Aziende:
        perOgniRigaScritta([&](const RigaPiano& riga) {
          azienda(piano_.aziende[riga.voce], piano_.accantoAziende[riga.voce]);
        });
        break;
      case Elenco::Percipienti:
        perOgniRigaScritta([&](const RigaPiano& riga) {
          percipiente(piano_.percipienti[riga.voce], piano_.accantoPercipienti[riga.voce]);
        });
        break;
      case Elenco::Compensi:
        compensi();
        break;
    }
    scrittura_.chiudi();
    diario_.chiudi();
  }

 private:
  template <class Fai>
  void perOgniRigaScritta(const Fai& fai) {
    std::size_t fatte = 0;
    for (const RigaPiano& riga : piano_.righe) {
      if (avanzamento_ != nullptr) avanzamento_->progress("Scrittura", fatte++, piano_.righe.size());
      if (scritta(piano_, riga)) fai(riga);
    }
  }

  void azienda(const Voce<schede::SchedaAzienda>& voce, const AccantoAzienda& accanto) {
    schede::SchedaAzienda scheda = voce.dopo;
    if (!accanto.evento.empty())
      scheda.idEventoEccezionale = codice(schede::kEventoEccezionale, accanto.evento);
    if (voce.prima) {
      schede::Aziende::cambia(scrittura_, scheda);
    } else {
      schede::Aziende::aggiungi(scrittura_, scheda);
    }
  }

  // Returns its IDAnagrafica.
  std::int32_t percipiente(const Voce<schede::SchedaPercipiente>& voce, const AccantoPercipiente& accanto) {
    schede::SchedaPercipiente scheda = voce.dopo;
    if (!accanto.localitaEstera.empty()) scheda.anagrafica.idComune = localita(accanto.localitaEstera);
    if (!accanto.enteNome.empty()) scheda.idEnte = ente(accanto);
    if (!accanto.categoria.empty())
      scheda.idCategoriaEnte = codice(schede::kCategoriaEnte, accanto.categoria);
    if (!accanto.categoriaParticolare.empty())
      scheda.idCategoriaParticolare = codice(schede::kCategoriaParticolare, accanto.categoriaParticolare);
    if (!accanto.evento.empty())
      scheda.idEventoEccezionale = codice(schede::kEventoEccezionale, accanto.evento);
    if (!voce.prima) return schede::Percipienti::aggiungi(scrittura_, std::move(scheda)).anagrafica.id;
    schede::Percipienti::cambia(scrittura_, scheda);
    return scheda.anagrafica.id;
  }

  std::int32_t localita(const std::string& nome) {
    return aggiunto(schede::kComune, nome, kPrimaLocalitaPropria, {Value::ofText(nome), Value(), Value()});
  }
  std::int32_t ente(const AccantoPercipiente& accanto) {
    const auto testo = [](const std::string& valore) {
      return valore.empty() ? Value() : Value::ofText(valore);
    };
    return aggiunto(schede::kEnte,
                    accanto.enteCodiceFiscale + "\t" + accanto.enteCodice + "\t" + accanto.enteNome,
                    kPrimoCodiceProprio,
                    {testo(accanto.enteCodiceFiscale), testo(accanto.enteNome), testo(accanto.enteCodice)});
  }
  // In a list that has codes only.
  std::int32_t codice(const schede::TabellaSuite& tabella, const std::string& codice) {
    return aggiunto(tabella, codice, kPrimoCodiceProprio, {Value::ofText(codice)});
  }
  // An entry of a list, added once for all the rows that name it.
  std::int32_t aggiunto(const schede::TabellaSuite& tabella, const std::string& chiave, std::int32_t almeno,
                        std::vector<Value> valori) {
    const auto [suo, nuovo] = aggiunti_.try_emplace({&tabella, chiave}, 0);
    if (!nuovo) return suo->second;
    suo->second = scrittura_.nuovoId(tabella, almeno);
    valori.insert(valori.begin(), Value::ofInteger(suo->second));
    scrittura_.inserisci(tabella, valori);
    return suo->second;
  }

  // The new payees of payments that are written; their ids take the place of the plan's.
  void percipientiNuovi() {
    for (const RigaPiano& riga : piano_.righe) {
      if (!scritta(piano_, riga)) continue;
      const std::int32_t provvisorio = piano_.compensi[riga.voce].dopo.idAnagrafica;
      if (provvisorio >= 0) continue;
      const auto [suo, nuovo] = nuovi_.try_emplace(provvisorio, 0);
      const auto quale = static_cast<std::size_t>(-1 - provvisorio);
      if (nuovo) suo->second = percipiente(piano_.percipienti[quale], piano_.accantoPercipienti[quale]);
    }
    conti_ = piano_.conti;
    for (ContoPiano& conto : conti_) conto.idAnagrafica = definitivo(conto.idAnagrafica);
  }
  std::int32_t definitivo(std::int32_t idAnagrafica) const {
    return idAnagrafica < 0 ? nuovi_.at(idAnagrafica) : idAnagrafica;
  }

  void compensi() {
    percipientiNuovi();
    ContiLotto conti(database_, ricostruzione_, piano_.richiesta.idAzienda, lotto_);
    conti.ricorda(conti_);
    perOgniRigaScritta([&](const RigaPiano& riga) {
      const Voce<schede::SchedaCompenso>& voce = piano_.compensi[riga.voce];
      diario_.riferimento(piano_.accantoCompensi[riga.voce].riferimento);
      schede::SchedaCompenso scheda = voce.dopo;
      scheda.idAnagrafica = definitivo(scheda.idAnagrafica);
      if (voce.prima) {
        schede::Compensi::cambia(scrittura_, scheda);
      } else {
        schede::Compensi::aggiungi(scrittura_, std::move(scheda));
      }
    });
    codiciNonSoggette();
    if (schede::archivioProprio(scrittura_.connessione())) anni();
    scrittura_.chiudi();
    conti.ricostruisci(avanzamento_);
    conti.confronta(conti_);
  }

  // A year without a period of the activity gives no certificates.
  void anni() {
    std::set<int> anni;
    for (const ContoPiano& conto : conti_) anni.insert(conto.anno);
    schede::Aziende::assicuraAnni(scrittura_, piano_.richiesta.idAzienda, {anni.begin(), anni.end()});
  }

  void codiciNonSoggette() {
    for (const ContoPiano& conto : conti_) {
      if (conto.codiceDopo == conto.codicePrima) continue;
      const auto letto = piano_.archivio->conti.find({conto.idAnagrafica, conto.idCausale, conto.anno});
      const bool ha = letto != piano_.archivio->conti.end() && letto->second.haDatiAggiuntivi;
      schede::Riga riga = {Value::ofInteger(conto.idAnagrafica),
                           Value::ofInteger(conto.idCausale),
                           Value::ofInteger(conto.anno),
                           Value::ofInteger(piano_.richiesta.idAzienda),
                           Value::ofInteger(0),
                           schede::idONullo(conto.codiceDopo)};
      if (!ha) {
        scrittura_.inserisci(schede::kDatiAggiuntivi, riga);
        continue;
      }
      scrittura_.chiudi();
      const schede::Riga prima = schede::leggiRighe(scrittura_.connessione(), schede::kDatiAggiuntivi,
                                                    schede::condizioneChiave(schede::kDatiAggiuntivi, riga))
                                     .at(0);
      riga[4] = prima[4];
      scrittura_.cambia(schede::kDatiAggiuntivi, prima, riga);
    }
  }

  DatabaseHost& database_;
  RicostruzioneConti& ricostruzione_;
  const Piano& piano_;
  schede::Scrittura& scrittura_;
  DiarioLotto& diario_;
  std::int32_t lotto_;
  ProgressSink* avanzamento_;
  std::map<std::int32_t, std::int32_t> nuovi_;
  std::vector<ContoPiano> conti_;  // with the ids of the database
  std::map<std::pair<const schede::TabellaSuite*, std::string>, std::int32_t> aggiunti_;
};

std::string perche(const Piano& piano) {
  if (piano.quante(StatoRiga::Errore) > 0) return "ci sono errori";
  if (piano.quante(StatoRiga::DaDecidere) > 0) return "ci sono righe da decidere";
  std::string avvisi;
  for (const Codice codice : piano.avvisiDaAccettare()) {
    avvisi += (avvisi.empty() ? "" : ", ") + std::string(voce(codice).sigla);
  }
  if (!avvisi.empty()) return "ci sono avvisi da accettare (" + avvisi + ")";
  return "ci sono righe già presenti con altri dati";
}

}  // namespace

Result<Applicato> applica(DatabaseHost& database, RicostruzioneConti& ricostruzione, const Piano& piano,
                          const RichiestaApplica& richiesta, ProgressSink* avanzamento) {
  if (!piano.applicabile()) {
    return Result<Applicato>::refused(
        {"non applicabile", "L'importazione non è possibile: " + perche(piano) + ".", ""});
  }
  if (!piano.scrive()) return Applicato{};
  Connection& connessione = database.ownConnection();
  Transazione transazione(connessione);
  schede::Scrittura ids(connessione);
  const std::int32_t lotto = ids.nuovoId(kImportazione);
  if (ArchivioLetto(connessione, piano.elenco, piano.richiesta, piano.archivio->luoghiLetti).impronta() !=
      piano.archivio->impronta()) {
    return Result<Applicato>::refused(
        {"cambiato", "Il database è cambiato dopo la prova: ripeterla. Non è stato scritto nulla.", ""});
  }
  DiarioLotto diario(connessione, lotto, piano, richiesta.utente, richiesta.momento);
  schede::Scrittura scrittura(connessione, &diario);
  Applicazione(database, ricostruzione, piano, scrittura, diario, lotto, avanzamento).esegui();
  if (richiesta.prova) return Applicato{};
  transazione.conferma();
  return Applicato{lotto};
}

}  // namespace cu::intake
