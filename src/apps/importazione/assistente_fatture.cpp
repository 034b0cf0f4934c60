// What the assistant keeps of electronic invoices beside what it keeps of tables.

#include "apps/importazione/assistente.h"
#include "apps/importazione/file_importato.h"
#include "apps/importazione/mappa_fatture.h"
#include "apps/importazione/parole_finestra.h"
#include "suite/profilo.h"

namespace cu {

std::string Assistente::codiceAzienda() const {
  if (!database_) return {};
  for (const AziendaDelDatabase& una : database_->aziende) {
    if (una.id == ambiente_.azienda) return una.codiceFiscale;
  }
  return {};
}

// Once for each company, so that what a person has changed since stays.
void Assistente::usaProfiloFatture() {
  const std::string azienda = codiceAzienda();
  if (profiloDi_ == azienda) return;
  profiloDi_ = azienda;
  profiloFatture_.clear();
  notaProfilo_.clear();
  richiesta_.fatture.causali.clear();
  richiesta_.fatture.causaliPercipienti.clear();
  richiesta_.fatture.causaleForfettari.clear();
  try {
    const auto trovata = cercaMappaFatture(ambiente_.cartellaMappe, azienda);
    if (!trovata) return;
    profiloFatture_ = trovata->file;
    applicaMappa(trovata->mappa, richiesta_.fatture);
  } catch (const Error& errore) {
    notaProfilo_ = "Il profilo delle fatture non si può usare: " + errore.description();
  } catch (const ErroreProfilo& errore) {
    notaProfilo_ = std::string("Il profilo delle fatture non si può usare: ") + errore.what();
  }
}

void Assistente::scegliCausaleForfettari(const std::string& causale) {
  if (richiesta_.fatture.causaleForfettari == causale) return;
  richiesta_.fatture.causaleForfettari = causale;
  scarta(Livello::Piano);
}

void Assistente::scegliCausale(const std::string& chi, const std::string& causale) {
  if (chi.empty()) return;
  auto& causali = richiesta_.fatture.causaliPercipienti;
  if (causale.empty()) {
    causali.erase(chi);
  } else {
    causali[chi] = causale;
  }
  scarta(Livello::Piano);
}

std::string Assistente::ricordaCausali() {
  MappaFatture mappa;
  const std::string azienda = codiceAzienda();
  // What a person does not choose here stays as the profile has it.
  if (const auto trovata = cercaMappaFatture(ambiente_.cartellaMappe, azienda)) mappa = trovata->mappa;
  mappa.azienda = azienda;
  mappa.causali = richiesta_.fatture.causali;
  mappa.causaliPercipienti = richiesta_.fatture.causaliPercipienti;
  mappa.causaleForfettari = richiesta_.fatture.causaleForfettari;
  profiloFatture_ = salvaMappaFatture(ambiente_.cartellaMappe, mappa);
  return profiloFatture_;
}

void Assistente::tralasciaAltrui(bool tralascia) {
  if (richiesta_.fatture.tralasciaAltrui == tralascia) return;
  richiesta_.fatture.tralasciaAltrui = tralascia;
  scarta(Livello::Piano);
}

void Assistente::tralasciaIllegibili(bool tralascia) {
  if (tralasciaIllegibili_ == tralascia) return;
  tralasciaIllegibili_ = tralascia;
  scarta(Livello::Letture);
}

void Assistente::scegliDate(intake::FontePagamento fonte, Date giorno) {
  richiesta_.fatture.fonte = fonte;
  richiesta_.fatture.giorno = giorno;
  dateAttese_.reset();
  scarta(Livello::Piano);
}

void Assistente::attendiDate(intake::FontePagamento fonte) {
  if (richiesta_.fatture.fonte != intake::FontePagamento::Nessuna)
    scegliDate(intake::FontePagamento::Nessuna);
  dateAttese_ = fonte;
}

std::string Assistente::dateMancanti() const {
  return dateAttese_ == intake::FontePagamento::Giorno
             ? "Manca il giorno del pagamento: scriverlo, o scegliere da dove altro vengono le date."
             : "Manca il file delle date: sceglierlo, o scegliere da dove altro vengono le date.";
}

// Once they were looked for.
std::string Assistente::senzaFatture() const {
  if (letture_ == nullptr || !letture_->empty()) return {};
  std::string testo = "Non c'è nessuna fattura elettronica in ciò che è stato scelto";
  const char* segno = ": contiene soltanto ";
  for (const auto& [che, quanti] : ignorati_) {
    testo += segno + std::to_string(quanti) + ' ' + che;
    segno = ", ";
  }
  return testo + ". Scegliere altri file o un'altra cartella.";
}

void Assistente::accogliFatture(intake::LettureFatture&& lette) {
  letture_ = std::make_shared<const std::vector<intake::Lettura>>(std::move(lette.letture));
  ignorati_ = std::move(lette.ignorati);
  if (letture_->empty()) {
    passo_ = Passo::Sorgente;
    raggiunto_ = passo_;
    return;
  }
  usaProfiloFatture();
  ritrovaDecisioni();
}

std::map<intake::Posizione, Assistente::PagamentoLetto> Assistente::pagamentiLetti(
    const std::vector<intake::Lettura>& letture) {
  std::map<intake::Posizione, PagamentoLetto> letti;
  std::map<std::string, std::size_t> copie;
  for (std::size_t i = 0; i < letture.size(); ++i) {
    const auto& fatture = letture[i].fatture;
    if (fatture == nullptr || fatture->sha256Contenuto.empty()) continue;
    const std::size_t copia = copie[fatture->sha256Contenuto]++;
    for (std::size_t k = 0; k < fatture->righe.size(); ++k) {
      const std::size_t quale = fatture->righe[k].documento;
      const std::size_t documento = quale < fatture->documenti.size() ? fatture->documenti[quale].numero : 0;
      letti[{i, k}] = {fatture->sha256Contenuto, copia, documento, k};
    }
  }
  return letti;
}

void Assistente::serbaDecisioni(std::span<const std::size_t> righe) {
  const auto letti = pagamentiLetti(*piano_->letture);
  for (const std::size_t riga : righe) {
    const intake::Posizione posizione = piano_->righe.at(riga).posizione;
    if (const auto suo = letti.find(posizione); suo != letti.end())
      serbate_[suo->second] = richiesta_.decisioni[posizione];
  }
}

// Files may have come and gone since.
void Assistente::ritrovaDecisioni() {
  richiesta_.decisioni.clear();
  if (serbate_.empty()) return;
  for (const auto& [posizione, letto] : pagamentiLetti(*letture_)) {
    if (const auto sua = serbate_.find(letto); sua != serbate_.end())
      richiesta_.decisioni[posizione] = sua->second;
  }
}

std::vector<std::string> Assistente::usaTavolaDate(const std::string& percorso) {
  const FileImportatoInMemoria file = leggiFileImportato(percorso);
  intake::TavolaDate tavola = intake::leggiDate(file.byte, file.nome, {}, ambiente_.oggi);
  std::vector<std::string> contro;
  for (const intake::Messaggio& uno : tavola.messaggi) {
    if (uno.gravita == intake::Gravita::Errore) contro.push_back(perLaFinestra(intake::dettoMessaggio(uno)));
  }
  if (!contro.empty()) return contro;
  tavolaDate_ = file.nome;
  richiesta_.fatture.date = std::move(tavola.date);
  scegliDate(intake::FontePagamento::Tavola);
  return contro;
}

}  // namespace cu
