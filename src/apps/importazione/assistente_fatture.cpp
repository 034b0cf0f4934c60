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
  mappa.tralasciaAltrui = richiesta_.fatture.tralasciaAltrui;
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
  scarta(Livello::Piano);
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
