#include "intake/lettura_fatture.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/controlli_riga.h"
#include "intake/nazione_iso.h"
#include "intake/parti_documento.h"
#include "intake/testo_cella.h"

namespace cu::intake {
namespace {

using fatture::CompensoProposto;
using fatture::EsitoFattura;
using fatture::Fattura;
using fatture::Letto;
using fatture::Soggetto;

std::string minuscola(std::string testo) {
  if (!testo.empty() && testo.front() >= 'A' && testo.front() <= 'Z') {
    testo.front() = static_cast<char>(testo.front() - 'A' + 'a');
  }
  return testo;
}

Messaggio daRilievo(const fatture::Rilievo& rilievo) {
  std::string testo = minuscola(rilievo.testo);
  if (!rilievo.posto.elemento.empty()) {
    std::string dove = "elemento " + rilievo.posto.elemento;
    if (rilievo.posto.riga > 0)
      dove += ", riga " + fromInteger(static_cast<std::int64_t>(rilievo.posto.riga));
    testo = dove + ": " + testo;
  }
  Messaggio suo = messaggio(codiceDaSigla(rilievo.codice).value_or(Codice::F03), std::move(testo));
  if (rilievo.avviso) suo.gravita = Gravita::Avviso;
  return suo;
}

bool italiano(const std::string& paese) { return paese.empty() || paese == "IT"; }

// What a tax of the other kind says of the seller.
std::string ritenutaAltrui(const Fattura& fattura) {
  const Soggetto& chi = fattura.cedente;
  const bool persona =
      !chi.cognome.empty() || !chi.nome.empty() || formaCodice(chi.codiceFiscale) == FormaCodice::Persona;
  // Without a fiscal code a name alone does not show whether it is a firm's.
  const bool certo = persona || formaCodice(chi.codiceFiscale) == FormaCodice::Numero;
  for (const fatture::Ritenuta& una : fattura.ritenute) {
    if (certo && una.tipo == (persona ? "RT02" : "RT01")) return una.tipo;
  }
  return {};
}

class LetturaFile {
 public:
  LetturaFile(Lettura& lettura, FattureLette& fatture, Date oggi)
      : lettura_(lettura), fatture_(fatture), oggi_(oggi) {}

  void leggi(Letto& letto) {
    for (const fatture::Rilievo& uno : letto.rilievi) {
      lettura_.messaggi.push_back(daRilievo(uno));
      lettura_.messaggi.back().posto = {lettura_.file, {}, 0};
    }
    switch (letto.genere) {
      case fatture::Genere::Fatture:
        fatture_.sha256Contenuto = letto.sha256Contenuto;
        for (Fattura& una : letto.fatture) documento(una);
        break;
      case fatture::Genere::Notifica:
      case fatture::Genere::Metadati:
        esclusa(letto.titolo + ": non è una fattura");
        break;
      case fatture::Genere::Altro:
        if (!letto.rilievi.empty()) break;
        lettura_.messaggi.push_back(messaggio(Codice::F02, "il file non è una fattura elettronica"));
        lettura_.messaggi.back().posto = {lettura_.file, {}, 0};
        break;
      case fatture::Genere::Illeggibile:
        break;
    }
  }

 private:
  // A text of a document is as hostile as one of a table.
  template <class C>
  void testo(RigaLetta& riga, Lettura& sua, C colonna, std::string_view scritto) {
    std::string appoggio;
    const std::string_view netto = pulito(scritto, appoggio);
    if (netto.empty()) return;
    if (const auto difetto = difettoDelTesto(netto)) {
      riga.messaggi.push_back(
          messaggio(difetto->codice, difetto->testo, sua.nomeColonna(static_cast<std::uint8_t>(colonna))));
      if (difetto->respinto) return;
    }
    mettiCampo(riga, colonna, lettura_.conserva(netto));
  }

  RigaLetta& nuova(std::size_t documento, std::size_t numero) {
    fatture_.righe.emplace_back().documento = documento;
    RigaLetta& riga = lettura_.righe.emplace_back();
    riga.numero = numero;
    return riga;
  }

  void esclusa(std::string perche) { nuova(0, 1).esclusa = std::move(perche); }

  void documento(Fattura& fattura) {
    const std::size_t quale = fatture_.documenti.size();
    const EsitoFattura esito = fatture::compensiDi(fattura);
    DocumentoLetto& letto = fatture_.documenti.emplace_back();
    letto.numero = quale + 1;
    letto.tipo = fattura.tipo;
    letto.fattura = fattura.numero;
    letto.data = fattura.data.value_or(Date());
    letto.forfettario = esito.forfettario;
    letto.ritenutaAltrui = ritenutaAltrui(fattura);
    letto.cedente = std::move(fattura.cedente);
    letto.committente = std::move(fattura.committente);
    fatture_.percipienti.righe.push_back(percipiente(letto));
    if (!esito.escluso.empty()) {
      RigaLetta& riga = nuova(quale, letto.numero);
      chiavi(riga, letto);
      riga.messaggi.clear();
      riga.esclusa = esito.escluso;
      return;
    }
    if (esito.compensi.empty()) {
      RigaLetta& riga = nuova(quale, letto.numero);
      chiavi(riga, letto);
      delDocumento(riga, fattura, esito);
    }
    for (std::size_t i = 0; i < esito.compensi.size(); ++i) {
      RigaLetta& riga = nuova(quale, letto.numero);
      chiavi(riga, letto);
      if (i == 0) delDocumento(riga, fattura, esito);
      compenso(riga, esito.compensi[i]);
      fatture_.righe.back().spese = esito.spese;
    }
  }

  static void delDocumento(RigaLetta& riga, const Fattura& fattura, const EsitoFattura& esito) {
    for (const auto* rilievi : {&fattura.rilievi, &esito.rilievi}) {
      for (const fatture::Rilievo& uno : *rilievi) riga.messaggi.push_back(daRilievo(uno));
    }
  }

  void chiavi(RigaLetta& riga, const DocumentoLetto& letto) {
    using enum ColonnaCompenso;
    testo(riga, lettura_, CodiceFiscale, letto.cedente.codiceFiscale);
    testo(riga, lettura_, PartitaIva, letto.cedente.partitaIva);
    testo(riga, lettura_, NumeroDocumento, letto.fattura);
    if (letto.data != Date()) mettiCampo(riga, DataDocumento, CellView::ofDate(letto.data));
  }

  void compenso(RigaLetta& riga, const CompensoProposto& proposto) {
    using enum ColonnaCompenso;
    RigaFattura& accanto = fatture_.righe.back();
    accanto.proposte = proposto.candidati;
    accanto.decisa = proposto.deciso && !proposto.candidati.empty();
    accanto.contributoDerivato = proposto.contributoDerivato;
    testo(riga, lettura_, Causale, proposto.causale);
    Messaggio* ultimo = nullptr;
    const std::size_t prima = riga.messaggi.size();
    for (const fatture::Rilievo& uno : proposto.rilievi) riga.messaggi.push_back(daRilievo(uno));
    for (std::size_t i = prima; i < riga.messaggi.size(); ++i) {
      if (riga.messaggi[i].codice == Codice::R02) ultimo = &riga.messaggi[i];
    }
    if (ultimo != nullptr) ultimo->testo += possibili(proposto);
    if (!accanto.proposte.empty()) mettiImporti(riga, importiDi(accanto.proposte.front().importi));
  }

  static std::string possibili(const CompensoProposto& proposto) {
    std::string testo;
    for (std::size_t i = 0; i < proposto.candidati.size(); ++i) {
      testo += (i == 0 ? "; possibile: " : "; oppure: ") + proposto.candidati[i].spiegazione;
    }
    return testo;
  }

  RigaLetta percipiente(const DocumentoLetto& letto) {
    using enum ColonnaPercipiente;
    const Soggetto& chi = letto.cedente;
    Lettura& sua = fatture_.percipienti;
    RigaLetta riga;
    riga.numero = letto.numero;
    const auto dai = [&](ColonnaPercipiente colonna, std::string_view valore) {
      testo(riga, sua, colonna, valore);
    };
    dai(CodiceFiscale, chi.codiceFiscale);
    // The number of another country is none that a file could have.
    dai(italiano(chi.paese) ? PartitaIva : CodiceFiscaleEstero, chi.partitaIva);
    if (chi.denominazione.empty()) {
      dai(Cognome, chi.cognome.empty() ? chi.nome : chi.cognome);
      if (!chi.cognome.empty()) dai(Nome, chi.nome);
    } else {
      dai(Cognome, chi.denominazione);
    }
    sede(riga, chi);
    ControlliRiga(sua, oggi_).esegui(riga);
    return riga;
  }

  void sede(RigaLetta& riga, const Soggetto& chi) {
    using enum ColonnaPercipiente;
    Lettura& sua = fatture_.percipienti;
    const fatture::Sede& dove = chi.sede;
    const bool qui = italiano(dove.nazione);
    testo(riga, sua, Indirizzo, dove.indirizzo + (dove.civico.empty() ? "" : " " + dove.civico));
    if (qui || dove.cap != "00000") testo(riga, sua, Cap, dove.cap);
    testo(riga, sua, Comune, dove.comune);
    testo(riga, sua, Provincia, qui ? dove.provincia : "EE");
    if (qui) return;
    const std::string_view catasto = catastoDiIso(dove.nazione);
    testo(riga, sua, Nazione, catasto.empty() ? std::string_view(dove.nazione) : catasto);
    if (!chi.stabileOrganizzazione) {
      mettiCampo(riga, NonResidente, CellView::ofInteger(1), true);
    }
  }

  Lettura& lettura_;
  FattureLette& fatture_;
  Date oggi_;
};

// Files of one name in several folders are named with their folders, in messages, reports and history.
class NomiRipetuti {
 public:
  void osserva(const Lettura& lettura, std::string cartella) {
    cartelle_.push_back(std::move(cartella));
    if (++quanti_[lettura.file] == 2) ripetuti_ = true;
  }
  void distingui(std::vector<Lettura>& letture) const {
    for (std::size_t i = 0; ripetuti_ && i < letture.size(); ++i) {
      if (quanti_.at(letture[i].file) > 1 && !cartelle_[i].empty())
        rinomina(letture[i], cartelle_[i] + "/" + letture[i].file);
    }
  }

 private:
  static void rinomina(Lettura& lettura, const std::string& nome) {
    for (Messaggio& messaggio : lettura.messaggi) {
      if (messaggio.posto.file == lettura.file) messaggio.posto.file = nome;
    }
    lettura.file = nome;
  }

  std::vector<std::string> cartelle_;
  std::unordered_map<std::string, std::size_t> quanti_;
  bool ripetuti_ = false;
};

}  // namespace

Lettura LettoreFatture::leggi(fatture::Letto&& letto) {
  if (!testi_) testi_ = std::make_shared<tabelle::Deposito>();
  Letto suo = std::move(letto);
  Lettura lettura;
  lettura.elenco = Elenco::Compensi;
  lettura.file = suo.nome;
  lettura.dimensione = suo.dimensione;
  lettura.sha256 = suo.sha256;
  lettura.aggiunti = testi_;
  const auto lette = std::make_shared<FattureLette>();
  lette->percipienti.elenco = Elenco::Percipienti;
  lette->percipienti.file = lettura.file;
  lette->percipienti.aggiunti = testi_;
  LetturaFile(lettura, *lette, oggi_).leggi(suo);
  lettura.fatture = lette;
  return lettura;
}

LettureFatture leggiFatture(const std::vector<std::string>& percorsi, Date oggi, ProgressSink* avanzamento,
                            const fatture::LimitiRaccolta& limiti) {
  LettureFatture tutte;
  LettoreFatture lettore(oggi);
  NomiRipetuti nomi;
  for (const std::string& percorso : percorsi) {
    const fatture::Ignorati ignorati = fatture::raccogli(
        percorso,
        [&](Letto&& letto) {
          if (avanzamento != nullptr) avanzamento->progress("Fatture", tutte.letture.size(), 0);
          std::string cartella = std::move(letto.cartella);
          tutte.letture.push_back(lettore.leggi(std::move(letto)));
          nomi.osserva(tutte.letture.back(), std::move(cartella));
          return true;
        },
        limiti);
    for (const auto& [che, quanti] : ignorati) tutte.ignorati[che] += quanti;
  }
  nomi.distingui(tutte.letture);
  return tutte;
}

}  // namespace cu::intake
