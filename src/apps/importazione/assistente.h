#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "apps/importazione/esecuzione.h"
#include "apps/importazione/file_scelto.h"
#include "apps/importazione/mappa_toml.h"
#include "apps/importazione/riepiloghi.h"
#include "apps/importazione/righe_mostrate.h"
#include "apps/importazione/stato_database.h"
#include "intake/lettura_fatture.h"
#include "intake/piano.h"

namespace cu {

enum class Passo : std::uint8_t { Sorgente, Lettura, Colonne, Percipienti, Compensi, Prova, Esito };
inline constexpr std::size_t kPassi = 7;
// "Percipienti"; for a list of companies the step of the payees is theirs, for invoices that of the columns
// is the documents'.
std::string titoloPasso(Passo passo, intake::Elenco elenco, bool fatture = false);

// An import in seven steps: what a person has chosen so far, and what follows from it. What takes its time is
// a work that is done elsewhere, and whose result is taken in afterwards; nothing that was chosen is lost on
// the way back, and what follows from a change is worked out again when its step is reached. Nothing is
// written but by `importa` and `aggiungiTabelle`.
class Assistente {
 public:
  struct Ambiente {
    Profilo::Database database;
    std::int32_t azienda = 0;
    std::string cartellaMappe;  // of the person's profiles
    std::string utente;         // for the history
    Date oggi;
  };
  // `lavoro` may run in any thread: it uses nothing that changes meanwhile. What it raises, and what its sink
  // raises, ends it with nothing written. `accogli` is called after it, in the assistant's thread.
  struct Compito {
    const char* che = "";  // "Lettura delle righe"
    std::function<void(ProgressSink* avanzamento)> lavoro;
    std::function<void()> accogli;
    bool scrive = false;
  };

  explicit Assistente(Ambiente ambiente);

  // The step at hand, and the ways out of it.
  Passo passo() const { return passo_; }
  bool comprende(Passo passo) const;  // whether the kind of data has the step
  // Why there is no next step yet, as a sentence; "" where there is nothing against it.
  std::string impedimento() const;
  bool puoAvanzare() const;
  bool puoTornare() const;
  void avanti();
  void indietro() { vai(precedente()); }
  // The furthest step that was seen: what was chosen up to it is still there.
  Passo raggiunto() const { return raggiunto_; }
  // Leaves a step that could not be shown.
  void abbandona();
  void vai(Passo passo);  // back to a step that was passed
  // What has to be worked out before the step at hand can be shown; nothing when it can.
  std::optional<Compito> daFare();

  // Source.
  const std::optional<StatoDatabase>& database() const { return database_; }
  void rileggiDatabase() { database_.reset(); }
  void ammettiEstraneo(bool ammesso);
  bool ammesso() const { return richiesta_.databaseEstraneo; }
  std::int32_t azienda() const { return ambiente_.azienda; }
  void scegliAzienda(std::int32_t azienda);
  intake::Elenco elenco() const { return elenco_; }
  void scegliElenco(intake::Elenco elenco);
  // Payments from electronic invoices: files, folders and archives instead of tables.
  bool fatture() const { return fatture_; }
  void scegliFatture();
  std::optional<int> anno() const { return richiesta_.anno; }
  void scegliAnno(std::optional<int> anno);  // payments of other years are left out
  // The kind of data follows from the headings of the first file unless it was chosen.
  void aggiungi(const std::vector<std::string>& percorsi);
  void togli(std::size_t file);
  const std::vector<FileScelto>& file() const { return file_; }

  // Reading and columns: what is changed for a file is changed for all that have the same heading.
  std::size_t quantiSimili(std::size_t file) const;  // itself among them
  void cambiaMappatura(std::size_t file, const intake::Mappatura& mappatura);
  Mappa profilo(std::size_t file) const;
  void usaProfilo(std::size_t file, const Mappa& mappa);  // of the same kind of data
  const intake::Lettura* lettura(std::size_t file) const;

  // Documents, of invoices: what they do not say. Reasons of payees come from the profile of the company, and
  // are kept in it.
  const intake::OpzioniFatture& opzioni() const { return richiesta_.fatture; }
  const fatture::Ignorati& ignorati() const { return ignorati_; }
  void scegliCausaleForfettari(const std::string& causale);
  // `chi` is the fiscal code or the VAT number of a seller; "" takes the reason away.
  void scegliCausale(const std::string& chi, const std::string& causale);
  // Writes the profile; returns its file.
  std::string ricordaCausali();
  const std::string& profiloFatture() const { return profiloFatture_; }
  const std::string& notaProfilo() const { return notaProfilo_; }
  void tralasciaAltrui(bool tralascia);
  void tralasciaIllegibili(bool tralascia);
  bool illegibiliTralasciati() const { return tralasciaIllegibili_; }

  // Payments, of invoices: when they were made.
  void scegliDate(intake::FontePagamento fonte, Date giorno = {});
  // A source that still lacks its day or its file: until it has it the dates are missing, and there is no way
  // on from the payments.
  void attendiDate(intake::FontePagamento fonte);
  const std::optional<intake::FontePagamento>& dateAttese() const { return dateAttese_; }
  // Reads a table of dates; what is wrong with it, as sentences. Raises Error where it cannot be read.
  std::vector<std::string> usaTavolaDate(const std::string& percorso);
  const std::string& tavolaDate() const { return tavolaDate_; }

  // Payees, payments and trial.
  // A window goes on showing the former ones until new ones are there.
  std::shared_ptr<const intake::Piano> piano() const { return piano_; }
  std::shared_ptr<const std::vector<RigaMostrata>> righe() const { return righe_; }
  const intake::Decisione& decisione(std::size_t riga) const;
  void decidi(std::span<const std::size_t> righe, const std::function<void(intake::Decisione&)>& come);
  // 0 for none of the candidates, but a new one.
  void scegliPercipiente(std::span<const std::size_t> righe, std::int32_t idAnagrafica);
  intake::SuDiversi suDiversi() const { return richiesta_.diversi; }
  void scegliDiversi(intake::SuDiversi diversi);
  void accetta(intake::Codice codice, bool accettato);
  void ripetiPiano() { scarta(Livello::Piano); }
  const std::optional<EsecuzionePiano>& prova() const { return prova_; }

  // Result. Only after a trial that was successful.
  bool puoImportare() const;
  Compito importa();
  const std::optional<EsecuzionePiano>& importata() const { return importata_; }
  // A batch was taken back elsewhere; whether it was this import's.
  void annullata(std::int32_t lotto);
  bool tornataIndietro() const { return tornataIndietro_; }
  // A new import into the same database: files and what follows from them are forgotten.
  void ricomincia();

  const Ambiente& ambiente() const { return ambiente_; }

 private:
  // A payment of an invoice, wherever its file is among the others.
  struct PagamentoLetto {
    std::string sha256;
    std::size_t copia = 0;      // of files with the same content
    std::size_t documento = 0;  // in its file, from 1
    std::size_t riga = 0;
    friend auto operator<=>(const PagamentoLetto&,
                            const PagamentoLetto&) = default;  // NOLINT(modernize-use-nullptr)
  };
  static std::map<intake::Posizione, PagamentoLetto> pagamentiLetti(
      const std::vector<intake::Lettura>& letture);
  // What is known only after some work, each of what comes before it.
  enum class Livello : std::uint8_t { Tabelle, Letture, Piano, Prova };
  // Forgets it and what follows from it.
  void scarta(Livello livello);
  Passo precedente() const;
  std::string impedimentoSorgente() const;
  std::string fileIlleggibili() const;
  std::string senzaFatture() const;
  std::string dateMancanti() const;
  Compito esamina();
  Compito carica();
  Compito rileggi();
  Compito leggi();
  Compito leggiFatture();
  void usaProfiloFatture();
  void accogliFatture(intake::LettureFatture&& lette);
  void ritrovaDecisioni();
  void serbaDecisioni(std::span<const std::size_t> righe);
  std::string codiceAzienda() const;
  Compito pianifica();
  Compito prova(bool applica);
  // Takes a result in unless something that it depends on has changed meanwhile.
  std::function<void()> seAncora(std::function<void()> accogli);
  void raggruppa();

  Ambiente ambiente_;
  Passo passo_ = Passo::Sorgente;
  Passo raggiunto_ = Passo::Sorgente;
  std::uint64_t revisione_ = 0;
  std::optional<StatoDatabase> database_;
  intake::Elenco elenco_ = intake::Elenco::Compensi;
  bool elencoScelto_ = false;
  bool fatture_ = false;
  fatture::Ignorati ignorati_;
  bool tralasciaIllegibili_ = false;
  std::string tavolaDate_;
  std::optional<intake::FontePagamento> dateAttese_;
  std::map<PagamentoLetto, intake::Decisione> serbate_;  // of payments of invoices
  std::optional<std::string> profiloDi_;  // the fiscal code of the company whose profile is in use
  std::string profiloFatture_;
  std::string notaProfilo_;
  std::vector<FileScelto> file_;
  std::vector<std::size_t> gruppi_;  // of each file: the first one that is like it
  std::set<std::string> daCaricare_;
  bool daRileggere_ = false;
  std::shared_ptr<const std::vector<intake::Lettura>> letture_;
  intake::RichiestaPiano richiesta_;
  std::shared_ptr<intake::Piano> piano_;
  std::shared_ptr<const std::vector<RigaMostrata>> righe_;
  std::optional<EsecuzionePiano> prova_;
  std::optional<EsecuzionePiano> importata_;
  bool tornataIndietro_ = false;
};

}  // namespace cu
