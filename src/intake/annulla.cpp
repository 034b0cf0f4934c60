#include "intake/annulla.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/text.h"
#include "data/inserimento.h"
#include "data/transazione.h"
#include "intake/altri_dati.h"
#include "intake/conti_lotto.h"
#include "intake/nomi_righe.h"
#include "intake/storico.h"
#include "schede/conteggio.h"
#include "schede/righe.h"
#include "schede/testo_riga.h"

namespace cu::intake {
namespace {

using schede::TabellaSuite;

// A row that the batch wrote: as it was before its first writing and as it was after its last one.
struct RigaLotto {
  const TabellaSuite* tabella = nullptr;
  std::string prima;  // "" for a row that was not there
  std::string dopo;   // "" for one that was removed
};
using RigheLotto = std::map<std::pair<std::string, std::string>, RigaLotto>;  // by table and key

// A column in which other rows name a row of a table.
struct Riferimento {
  std::string_view tabella;
  std::string_view daTabella;
  std::string_view daColonna;
};
constexpr auto kRiferimenti = std::to_array<Riferimento>({
    {"Anagrafica", "Azienda", "IDAnagrafica"},
    {"Anagrafica", "ConfigurazioneGenerale", "IDAnagraficaRappresentante"},
    {"Anagrafica", "Percipiente", "IDAnagrafica"},
    {"Anagrafica", "Compenso", "IDAnagrafica"},
    {"Anagrafica", "ContoIndividuale", "IDAnagrafica"},
    {"Anagrafica", "ContoIndividualeDatiAggiuntivi", "IDAnagrafica"},
    {"Anagrafica", "ModuloXContoIndividuale", "IDAnagrafica"},
    {"Azienda", "Percipiente", "IDAzienda"},
    {"Azienda", "Compenso", "IDAzienda"},
    {"Azienda", "ContoIndividuale", "IDAzienda"},
    {"Azienda", "ContoIndividualeDatiAggiuntivi", "IDAzienda"},
    {"Azienda", "ModuloXContoIndividuale", "IDAzienda"},
    {"Azienda", "PeriodoIva", "IDAzienda"},
    {"Azienda", "CuInvio", "IDAzienda"},
    {"Comune", "Anagrafica", "IDComune"},
    {"Comune", "Anagrafica", "IDComuneNascita"},
    {"Comune", "ContoIndividualeDatiAggiuntivi", "IDComuneResidenzaAnnoPrec"},
    {"Comune", "ContoIndividualeDatiAggiuntivi", "IDComuneResidenzaAnnoCorr"},
    {"CUEntePrevidenziale", "Percipiente", "IDCUEntePrevidenziale"},
    {"CUCategoriaEntePrevidenziale", "Percipiente", "IDCUCategoriaEntePrevidenziale"},
    {"CodiceAttivita", "AttivitaAziendaPerPeriodoIva", "IDCodiceAttivita"},
    {"Filiale", "ConfigurazioneGenerale", "IDFilialePrevalente"},
});

class Annullamento {
 public:
  Annullamento(DatabaseHost& database, RicostruzioneConti& ricostruzione, const Lotto& lotto)
      : connessione_(database.ownConnection()),
        lotto_(lotto),
        conti_(database, ricostruzione, lotto.idAzienda, lotto.id),
        scrittura_(connessione_),
        nomi_(connessione_) {}

  Result<Annullato> esegui() {
    leggi();
    controllaRighe();
    if (lotto_.elenco == Elenco::Compensi) controllaConti();
    if (!rifiuti_.empty()) return rifiutato();
    lasciaAnniUsati();
    riporta();
    conta();
    if (lotto_.elenco == Elenco::Compensi) conti_.riporta();
    controllaUsi();
    if (!rifiuti_.empty()) return rifiutato();
    return fatto_;
  }

 private:
  // Rows that are one thing to a clerk, such as both of a payee, are reported once.
  void rifiuta(const char* codice, std::string testo) {
    if (testo.ends_with("..")) testo.pop_back();  // of a name such as "S.r.l."
    if (detti_.insert(testo).second) rifiuti_.push_back({codice, std::move(testo), ""});
  }
  Result<Annullato> rifiutato() {
    Result<Annullato> esito = Annullato{};
    esito.refusals = std::move(rifiuti_);
    return esito;
  }

  void leggi() {
    RowStore righe;
    connessione_.Query(
        "SELECT Tabella, Chiave, Operazione, Prima, Dopo FROM CuImportazioneRiga WHERE IDImportazione = " +
            fromInteger(lotto_.id) + " ORDER BY Numero",
        righe);
    std::array<CellView, 5> celle;
    for (std::size_t i = 0; i < righe.size(); ++i) {
      righe.read(i, celle.data());
      const TabellaSuite* const tabella = schede::tabellaSuite(celle[0].text());
      if (tabella == nullptr) continue;
      const auto [riga, nuova] = righe_.try_emplace({celle[0].toText(), celle[1].toText()});
      if (nuova) riga->second = {tabella, celle[3].toText(), {}};
      riga->second.dopo = celle[4].toText();
    }
  }

  // The rows of a table as they are, by key: the whole table where the batch wrote many of them.
  const std::unordered_map<std::string, schede::Riga>& attuali(const TabellaSuite& tabella) {
    const auto [sue, nuove] = attuali_.try_emplace(&tabella);
    if (!nuove) return sue->second;
    const bool dellAzienda = std::any_of(tabella.colonne.begin(), tabella.colonne.end(),
                                         [](const auto& colonna) { return colonna.nome == "IDAzienda"; });
    std::string condizione;
    if (dellAzienda && lotto_.idAzienda != 0)
      condizione = " WHERE IDAzienda = " + fromInteger(lotto_.idAzienda);
    for (schede::Riga& riga : schede::leggiRighe(connessione_, tabella, condizione)) {
      std::string chiave = schede::testoChiave(tabella, riga);
      if (righe_.contains({std::string(tabella.nome), chiave}))
        sue->second.emplace(std::move(chiave), std::move(riga));
    }
    return sue->second;
  }

  void controllaRighe() {
    for (const auto& [chiave, riga] : righe_) {
      const auto& sue = attuali(*riga.tabella);
      const auto suo = sue.find(chiave.second);
      const bool ce = suo != sue.end();
      if (!ce && riga.dopo.empty()) continue;
      if (!ce) {
        rifiuta("eliminata", "Eliminato dopo l'importazione: " + quale(riga) + ".");
      } else if (schede::testoRiga(suo->second) != riga.dopo) {
        rifiuta("modificata", "Modificato dopo l'importazione: " + quale(riga) + ".");
      } else if (riga.prima.empty() && riga.tabella == &schede::kDatiAggiuntivi &&
                 quantiAltriDati(connessione_,
                                 schede::condizioneChiave(schede::kDatiAggiuntivi, suo->second)) > 0) {
        rifiuta("modificata", "Completato con altri dati dopo l'importazione: " + quale(riga) + ".");
      }
    }
  }

  // A row in words: as the batch has written it, or as it was before where the batch has removed it.
  std::string quale(const RigaLotto& riga) {
    return nomi_.riga(*riga.tabella,
                      schede::rigaDaTesto(*riga.tabella, riga.dopo.empty() ? riga.prima : riga.dopo));
  }

  void controllaConti() {
    for (const ContiLotto::Corretto& uno : conti_.corretti()) {
      rifiuta("conto",
              (uno.eliminato ? "Eliminato dopo l'importazione: " : "Corretto a mano dopo l'importazione: ") +
                  nomi_.conto(uno.chiave) + ".");
    }
  }

  // A year that has payments of other batches goes on needing its period.
  void lasciaAnniUsati() {
    if (lotto_.elenco != Elenco::Compensi) return;
    std::set<int> usati;
    schede::perOgniRiga(connessione_, schede::kCompenso,
                        " WHERE IDAzienda = " + fromInteger(lotto_.idAzienda), [&](const CellView* riga) {
                          const auto sua = righe_.find({"Compenso", riga[0].toText()});
                          const bool tolta = sua != righe_.end() && sua->second.prima.empty();
                          if (!tolta) usati.insert(riga[4].date().year());
                        });
    std::set<std::string> periodi;
    std::erase_if(righe_, [&](const auto& una) {
      if (una.second.tabella != &schede::kPeriodoIva) return false;
      const schede::Riga riga = schede::rigaDaTesto(schede::kPeriodoIva, una.second.dopo);
      if (!usati.contains(schede::idIn(riga, 2))) return false;
      periodi.insert(una.first.second);
      return true;
    });
    std::erase_if(righe_, [&](const auto& una) {
      if (una.second.tabella != &schede::kAttivitaPerPeriodo) return false;
      const schede::Riga riga = schede::rigaDaTesto(schede::kAttivitaPerPeriodo, una.second.dopo);
      return periodi.contains(riga[1].view().toText());
    });
  }

  void riporta() {
    std::map<const TabellaSuite*, std::vector<std::string>> daTogliere;
    for (const auto& [chiave, riga] : righe_) {
      if (riga.prima.empty() && riga.dopo.empty()) continue;
      if (riga.prima.empty()) {
        daTogliere[riga.tabella].push_back(chiave.second);
        continue;
      }
      const schede::Riga prima = schede::rigaDaTesto(*riga.tabella, riga.prima);
      if (riga.dopo.empty()) {
        scrittura_.inserisci(*riga.tabella, prima);
      } else {
        scrittura_.ripristina(*riga.tabella, attuali(*riga.tabella).at(chiave.second), prima);
      }
    }
    scrittura_.chiudi();
    for (const auto& [tabella, chiavi] : daTogliere) togli(*tabella, chiavi);
  }

  // Records as a clerk counts them: one of them may be rows of several tables.
  void conta() {
    fatto_.elenco = lotto_.elenco;
    std::set<std::int32_t> percipienti;
    bool altro = false;
    for (const auto& [chiave, riga] : righe_) {
      const bool principale = riga.tabella == &schede::kCompenso || riga.tabella == &schede::kPercipiente ||
                              riga.tabella == &schede::kAzienda;
      if (riga.prima.empty()) {
        const bool accanto = riga.tabella == &schede::kPercipiente && lotto_.elenco == Elenco::Compensi;
        if (principale && !riga.dopo.empty()) ++(accanto ? fatto_.percipienti : fatto_.tolti);
        continue;
      }
      altro = true;
      if (riga.tabella == &schede::kCompenso) ++fatto_.riportati;
      const bool suo = riga.tabella == &schede::kPercipiente || riga.tabella == &schede::kAnagrafica;
      if (!suo || lotto_.elenco != Elenco::Percipienti) continue;
      const schede::Riga prima = schede::rigaDaTesto(*riga.tabella, riga.prima);
      percipienti.insert(schede::idIn(prima, riga.tabella == &schede::kPercipiente ? 1 : 0));
    }
    if (lotto_.elenco == Elenco::Percipienti) fatto_.riportati = percipienti.size();
    // A company is many rows: as many were changed as were planned.
    if (lotto_.elenco == Elenco::Aziende && altro)
      fatto_.riportati = lotto_.conteggi[static_cast<std::size_t>(StatoRiga::Diverso)];
  }

  void togli(const TabellaSuite& tabella, const std::vector<std::string>& chiavi) {
    constexpr std::size_t kPerIstruzione = 100;
    if (tabella.chiavi > 1) {
      for (const std::string& chiave : chiavi) scrittura_.togli(tabella, attuali(tabella).at(chiave));
      return;
    }
    for (std::size_t i = 0; i < chiavi.size(); i += kPerIstruzione) {
      std::string istruzione = "DELETE FROM " + std::string(tabella.nome) + " WHERE ";
      istruzione.append(tabella.colonne[0].nome).append(" IN (");
      for (std::size_t k = i; k < std::min(chiavi.size(), i + kPerIstruzione); ++k) {
        istruzione.append(k == i ? "" : ", ").append(chiavi[k]);
      }
      connessione_.Execute(istruzione + ")");
    }
  }

  // What other rows, or other batches, still name.
  void controllaUsi() {
    std::map<std::string, std::set<std::string>> tolte;
    for (const auto& [chiave, riga] : righe_) {
      if (riga.prima.empty()) tolte[chiave.first].insert(chiave.second);
    }
    std::map<RigheLotto::key_type, std::map<std::string_view, std::size_t>> usi;
    for (const Riferimento& uno : kRiferimenti) {
      const auto sue = tolte.find(std::string(uno.tabella));
      if (sue == tolte.end() || !presente(uno.daTabella)) continue;
      RowStore righe;
      connessione_.Query("SELECT " + std::string(uno.daColonna) + " FROM " + std::string(uno.daTabella),
                         righe);
      CellView id;
      for (std::size_t i = 0; i < righe.size(); ++i) {
        righe.readFirst(i, 1, &id);
        if (sue->second.contains(id.toText())) ++usi[{sue->first, id.toText()}][uno.daTabella];
      }
    }
    for (const auto& [chiave, suoi] : usi) {
      std::string testo;
      std::size_t quanti = 0;
      for (const auto& [tabella, quante] : suoi) {
        testo += (testo.empty() ? "" : ", ") + detteRighe(tabella, quante);
        quanti += quante;
      }
      rifiuta("usata", "Non si può togliere " + quale(righe_.at(chiave)) +
                           (quanti == 1 ? ": ne dipende " : ": ne dipendono ") + testo + ".");
    }
    altriLotti(tolte);
  }

  bool presente(std::string_view tabella) {
    return schede::quante(connessione_, "dbo.sysobjects",
                          " WHERE type = 'U' AND name = '" + std::string(tabella) + "'") > 0;
  }

  void altriLotti(const std::map<std::string, std::set<std::string>>& tolte) {
    RowStore righe;
    connessione_.Query(
        "SELECT DISTINCT R.Tabella, R.Chiave, R.IDImportazione FROM CuImportazioneRiga R"
        " INNER JOIN CuImportazione L ON R.IDImportazione = L.IDImportazione"
        " WHERE L.Stato = 'applicata' AND R.IDImportazione <> " +
            fromInteger(lotto_.id),
        righe);
    std::array<CellView, 3> celle;
    for (std::size_t i = 0; i < righe.size(); ++i) {
      righe.read(i, celle.data());
      const auto sue = tolte.find(celle[0].toText());
      if (sue == tolte.end() || !sue->second.contains(celle[1].toText())) continue;
      const RigheLotto::key_type chiave{celle[0].toText(), celle[1].toText()};
      rifiuta("lotto", "Scritto anche dall'importazione " + celle[2].toText() +
                           ", che va annullata prima: " + quale(righe_.at(chiave)) + ".");
    }
  }

  Connection& connessione_;
  const Lotto& lotto_;
  ContiLotto conti_;
  schede::Scrittura scrittura_;
  RigheLotto righe_;
  std::map<const TabellaSuite*, std::unordered_map<std::string, schede::Riga>> attuali_;
  NomiRighe nomi_;
  std::set<std::string> detti_;
  std::vector<Finding> rifiuti_;
  Annullato fatto_;
};

}  // namespace

Result<Annullato> annulla(DatabaseHost& database, RicostruzioneConti& ricostruzione,
                          const RichiestaAnnulla& richiesta) {
  Connection& connessione = database.ownConnection();
  Transazione transazione(connessione);
  const std::vector<Lotto> lotti = storico(connessione, std::nullopt);
  const auto suo = std::find_if(lotti.begin(), lotti.end(),
                                [&](const Lotto& lotto) { return lotto.id == richiesta.lotto; });
  const std::string quale = "L'importazione " + fromInteger(richiesta.lotto);
  if (suo == lotti.end()) return Result<Annullato>::refused({"sconosciuta", quale + " non esiste.", ""});
  if (suo->annullato) return Result<Annullato>::refused({"annullata", quale + " è già annullata.", ""});
  Result<Annullato> esito = Annullamento(database, ricostruzione, *suo).esegui();
  if (!esito || richiesta.prova) return esito;
  std::string istruzione = "UPDATE CuImportazione SET Stato = 'annullata', MomentoAnnullamento = ";
  appendTesto(istruzione, richiesta.momento);
  connessione.Execute(istruzione + " WHERE IDImportazione = " + fromInteger(richiesta.lotto));
  transazione.conferma();
  return esito;
}

}  // namespace cu::intake
