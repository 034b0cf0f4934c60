// What takes its time: each work has copies of what it needs.

#include <algorithm>
#include <string>
#include <utility>

#include "apps/comune/connessioni.h"
#include "apps/importazione/assistente.h"
#include "apps/importazione/file_importato.h"

namespace cu {
namespace {

using Compito = Assistente::Compito;

void riferisci(ProgressSink* avanzamento, const char* che, std::size_t fatti, std::size_t tutti) {
  if (avanzamento != nullptr) avanzamento->progress(che, fatti, tutti);
}

}  // namespace

std::function<void()> Assistente::seAncora(std::function<void()> accogli) {
  return [this, presa = revisione_, accogli = std::move(accogli)] {
    if (presa == revisione_) accogli();
  };
}

std::optional<Compito> Assistente::daFare() {
  if (!database_) return esamina();
  if (!daCaricare_.empty() && !fatture_) return carica();
  if (passo_ >= Passo::Lettura && daRileggere_ && !fatture_) return rileggi();
  if (passo_ >= Passo::Colonne && letture_ == nullptr) return fatture_ ? leggiFatture() : leggi();
  // The documents are shown with what becomes of them.
  const Passo conPiano = fatture_ ? Passo::Colonne : Passo::Percipienti;
  if (passo_ >= conPiano && piano_ == nullptr) return pianifica();
  if (passo_ == Passo::Prova && !prova_ && piano_->applicabile() && piano_->scrive()) return prova(false);
  return std::nullopt;
}

Compito Assistente::esamina() {
  auto letto = std::make_shared<StatoDatabase>();
  return {
      .che = "Lettura del database",
      .lavoro = [letto, database = ambiente_.database](ProgressSink*) { *letto = esaminaDatabase(database); },
      .accogli =
          [this, letto] {
            database_ = *letto;
            const auto& aziende = database_->aziende;
            const bool nota = std::any_of(aziende.begin(), aziende.end(),
                                          [&](const auto& una) { return una.id == ambiente_.azienda; });
            if (!nota && !aziende.empty()) scegliAzienda(aziende.front().id);
          }};
}

Compito Assistente::carica() {
  auto file = std::make_shared<std::vector<FileScelto>>(file_);
  auto elenco = std::make_shared<intake::Elenco>(elenco_);
  return {.che = "Lettura dei file",
          .lavoro =
              [file, elenco, quali = daCaricare_, scelto = elencoScelto_,
               cartella = ambiente_.cartellaMappe](ProgressSink* avanzamento) {
                std::size_t letti = 0;
                bool proposto = scelto;
                for (FileScelto& uno : *file) {
                  riferisci(avanzamento, "Lettura dei file", letti++, file->size());
                  if (!quali.contains(uno.percorso)) continue;
                  if (!uno.leggibile()) {
                    uno = caricaFile(uno.percorso, *elenco, cartella);
                  } else {
                    cercaProfilo(uno, *elenco, cartella);
                  }
                  if (proposto || uno.tabella == nullptr) continue;
                  proposto = true;
                  const auto probabile = elencoProbabile(*uno.tabella);
                  if (!probabile || *probabile == *elenco) continue;
                  *elenco = *probabile;
                  cercaProfilo(uno, *elenco, cartella);
                }
              },
          .accogli = seAncora([this, file, elenco] {
            file_ = *file;
            elenco_ = *elenco;
            elencoScelto_ = true;
            daCaricare_.clear();
            raggruppa();
          })};
}

Compito Assistente::rileggi() {
  auto file = std::make_shared<std::vector<FileScelto>>(file_);
  return {.che = "Lettura dei file",
          .lavoro =
              [file](ProgressSink* avanzamento) {
                std::size_t letti = 0;
                for (FileScelto& uno : *file) {
                  riferisci(avanzamento, "Lettura dei file", letti++, file->size());
                  rileggiTabella(uno);
                }
              },
          .accogli = seAncora([this, file] {
            file_ = *file;
            daRileggere_ = false;
          })};
}

Compito Assistente::leggi() {
  auto letture = std::make_shared<std::vector<intake::Lettura>>();
  return {.che = "Lettura delle righe",
          .lavoro =
              [letture, file = file_, elenco = elenco_, oggi = ambiente_.oggi](ProgressSink* avanzamento) {
                for (const FileScelto& uno : file) {
                  riferisci(avanzamento, "Lettura delle righe", letture->size(), file.size());
                  letture->push_back(leggiRigheDi(uno, elenco, oggi));
                }
              },
          .accogli = seAncora([this, letture] { letture_ = letture; })};
}

Compito Assistente::leggiFatture() {
  auto lette = std::make_shared<intake::LettureFatture>();
  std::vector<std::string> percorsi;
  for (const FileScelto& uno : file_) percorsi.push_back(uno.percorso);
  return {.che = "Lettura delle fatture",
          .lavoro =
              [lette, percorsi, oggi = ambiente_.oggi,
               tralascia = tralasciaIllegibili_](ProgressSink* avanzamento) {
                *lette = intake::leggiFatture(percorsi, oggi, avanzamento, limitiDellaRaccolta());
                if (tralascia) cu::tralasciaIllegibili(lette->letture);
              },
          .accogli = seAncora([this, lette] { accogliFatture(std::move(*lette)); })};
}

Compito Assistente::pianifica() {
  intake::RichiestaPiano richiesta = richiesta_;
  richiesta.idAzienda = elenco_ == intake::Elenco::Aziende ? 0 : ambiente_.azienda;
  richiesta.oggi = ambiente_.oggi;
  auto piano = std::make_shared<intake::Piano>();
  auto righe = std::make_shared<std::vector<RigaMostrata>>();
  return {.che = "Confronto con l'archivio",
          .lavoro =
              [piano, righe, richiesta, letture = letture_,
               database = ambiente_.database](ProgressSink* avanzamento) {
                const auto connessione = apriConnessione(database);
                *piano = intake::pianifica(*connessione, *letture, richiesta, avanzamento);
                riferisci(avanzamento, "Righe", 0, 0);
                *righe = righeMostrate(*piano);
              },
          .accogli = seAncora([this, piano, righe] {
            piano_ = piano;
            righe_ = righe;
          })};
}

Compito Assistente::prova(bool applica) {
  auto eseguita = std::make_shared<EsecuzionePiano>();
  return {.che = applica ? "Scrittura" : "Prova",
          .lavoro =
              [eseguita, piano = std::shared_ptr<const intake::Piano>(piano_), applica,
               database = ambiente_.database, utente = ambiente_.utente](ProgressSink* avanzamento) {
                DatabaseSuite suo(apriConnessione(database), nullptr);
                *eseguita = eseguiPiano(suo, *piano, {.applica = applica, .utente = utente}, avanzamento);
              },
          .accogli = applica ? std::function<void()>([this, eseguita] {
            if (!eseguita->esito.riuscita) {
              prova_ = *eseguita;
              return;
            }
            importata_ = *eseguita;
            passo_ = Passo::Esito;
            database_.reset();
          })
                             : seAncora([this, eseguita] { prova_ = *eseguita; }),
          .scrive = applica};
}

Compito Assistente::importa() { return prova(true); }

}  // namespace cu
