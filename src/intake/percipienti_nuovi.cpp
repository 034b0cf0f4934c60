#include "intake/percipienti_nuovi.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "intake/campi_percipiente.h"
#include "intake/mancanti.h"
#include "intake/testo_cella.h"

namespace cu::intake {
namespace {

bool ferma(const Messaggio& uno) {
  return uno.gravita == Gravita::Errore || uno.gravita == Gravita::DaDecidere;
}

bool derivata(const RigaPiano& riga, ColonnaPercipiente colonna) {
  return std::find(riga.derivati.begin(), riga.derivati.end(), static_cast<std::uint8_t>(colonna)) !=
         riga.derivati.end();
}

}  // namespace

PercipientiNuovi::PercipientiNuovi(Piano& piano, const ArchivioLetto& archivio, const Soggetti& soggetti)
    : piano_(piano), archivio_(archivio), soggetti_(soggetti) {
  raccogliCodici();
  for (std::size_t file = 0; file < piano.letture->size(); ++file) osserva((*piano.letture)[file], file);
}

void PercipientiNuovi::raccogliCodici() {
  const auto aggiungi = [](std::vector<std::string>& codici, std::string_view codice) {
    const bool nuovo = std::none_of(codici.begin(), codici.end(),
                                    [&](const std::string& uno) { return equalsNoCase(uno, codice); });
    if (nuovo && !codice.empty()) codici.emplace_back(codice);
  };
  for (const Lettura& lettura : *piano_.letture) {
    if (!lettura.fatture) continue;
    for (const RigaLetta& cedente : lettura.fatture->percipienti.righe) {
      const Chiavi sue = chiaviDelCedente(cedente);
      if (!sue.partitaIva.empty())
        aggiungi(codiciDellIva_[lowerAscii(sue.partitaIva)].codici, sue.codiceFiscale);
    }
  }
  for (auto& [iva, suoi] : codiciDellIva_) suoi.neiDocumenti = !suoi.codici.empty();
  for (const schede::SchedaPercipiente& percipiente : archivio_.percipienti) {
    const auto suoi = codiciDellIva_.find(lowerAscii(trim(percipiente.anagrafica.partitaIva)));
    if (suoi != codiciDellIva_.end())
      aggiungi(suoi->second.codici, trim(percipiente.anagrafica.codiceFiscale));
  }
}

// The first document with a fiscal code says most of its seller.
void PercipientiNuovi::osserva(const Lettura& lettura, std::size_t file) {
  if (!lettura.fatture) return;
  const auto& cedenti = lettura.fatture->percipienti.righe;
  const auto haCodice = [](const RigaLetta& cedente) {
    return cedente.ha(ColonnaPercipiente::CodiceFiscale);
  };
  for (std::size_t i = 0; i < cedenti.size(); ++i) {
    const auto [suo, nuovo] = proposti_.try_emplace(chiave(cedenti[i]));
    Proposto& proposto = suo->second;
    if (!nuovo) {
      const auto& scelto = (*piano_.letture)[proposto.file].fatture->percipienti.righe[proposto.documento];
      if (haCodice(scelto) || !haCodice(cedenti[i])) continue;
    }
    proposto.file = file;
    proposto.documento = i;
  }
}

Chiavi PercipientiNuovi::chiavi(const RigaLetta& cedente) const {
  Chiavi sue = chiaviDelCedente(cedente);
  const auto codici = codiciDellIva_.find(lowerAscii(sue.partitaIva));
  if (codici == codiciDellIva_.end()) return sue;
  const CodiciIva& suoi = codici->second;
  if (suoi.codici.size() > 1) {
    sue.codiciDellIva = suoi.codici;
  } else if (sue.codiceFiscale.empty() && suoi.neiDocumenti) {
    sue.codiceFiscale = suoi.codici.front();
  }
  return sue;
}

std::string PercipientiNuovi::chiave(const RigaLetta& cedente) const {
  const Chiavi sue = chiavi(cedente);
  if (!sue.codiceFiscale.empty()) return "f" + lowerAscii(sue.codiceFiscale);
  if (!sue.partitaIva.empty()) return "v" + lowerAscii(sue.partitaIva);
  return "e" + lowerAscii(sue.codiceEstero);
}

bool PercipientiNuovi::proponi(RigaInCorso& corso) {
  const FattureLette& lette = *corso.lettura().fatture;
  const std::size_t documento = lette.righe[corso.riga().posizione.riga].documento;
  Proposto& proposto = proposti_.at(chiave(lette.percipienti.righe[documento]));
  if (!proposto.giudicato) giudica(corso, proposto);
  RigaPiano& riga = corso.riga();
  riga.messaggi.insert(riga.messaggi.end(), proposto.messaggi.begin(), proposto.messaggi.end());
  riga.candidati.insert(riga.candidati.end(), proposto.candidati.begin(), proposto.candidati.end());
  riga.percipienteNuovo = proposto.voce;
  return proposto.voce != kSenzaVoce;
}

// Beside the messages that stop it, each said once: with the first row.
void PercipientiNuovi::giudica(RigaInCorso& corso, Proposto& proposto) {
  proposto.giudicato = true;
  const Lettura& lettura = (*piano_.letture)[proposto.file].fatture->percipienti;
  RigaLetta letta = lettura.righe[proposto.documento];
  RigaPiano riga;
  riga.posizione = corso.riga().posizione;
  RigaInCorso suo(piano_, riga, lettura, letta);
  riga.messaggi = letta.messaggi;
  for (const Campo& campo : letta.campi) {
    if (campo.derivato) riga.derivati.push_back(campo.colonna);
  }
  const std::string_view cognome = letta.valore(ColonnaPercipiente::Cognome).text();
  const std::string_view nome = letta.valore(ColonnaPercipiente::Nome).text();
  const auto omonimi = soggetti_.omonimi(chiavi(letta), cognome, nome);
  if (!omonimi.empty() && !suo.decisione().nuovoPercipiente)
    soggetti_.candidati(suo, omonimi, "ha lo stesso nome, ma nessun codice che lo dica");
  comune(suo, letta);
  Voce<schede::SchedaPercipiente> voce;
  voce.dopo.idAzienda = piano_.richiesta.idAzienda;
  voce.riga = static_cast<std::size_t>(&corso.riga() - piano_.righe.data());
  AccantoPercipiente accanto;
  applicaCampi(suo, archivio_, voce.dopo, accanto, true);
  for (const Mancanza mancanza : mancanze(voce.dopo, archivio_.luoghi))
    suo.segnala(Codice::P11, std::string(mancanza->messaggio));
  // What else is missing is asked for once it is certain that the payee is new.
  if (std::any_of(riga.messaggi.begin(), riga.messaggi.end(), ferma))
    std::erase_if(riga.messaggi, [](const Messaggio& uno) { return !ferma(uno); });
  for (Messaggio& uno : riga.messaggi) {
    uno.testo = "percipiente nuovo " + detto(voce.dopo.anagrafica) + ": " + uno.testo;
    (ferma(uno) ? proposto.messaggi : corso.riga().messaggi).push_back(uno);
  }
  proposto.candidati = riga.candidati;
  if (!proposto.messaggi.empty()) return;
  proposto.voce = piano_.percipienti.size();
  corso.riga().spiegazioni.push_back(spiegazione(riga, voce.dopo));
  piano_.percipienti.push_back(std::move(voce));
  piano_.accantoPercipienti.push_back(std::move(accanto));
}

// An address is no reason to reject a payment: what the lists do not have stays empty.
void PercipientiNuovi::comune(RigaInCorso& corso, RigaLetta& letta) const {
  using enum ColonnaPercipiente;
  const auto togli = [&](ColonnaPercipiente colonna, const std::string& che) {
    corso.segnala(Codice::P11, colonna, mostrato(letta.valore(colonna).text()) + che);
    std::erase_if(letta.campi,
                  [&](const Campo& campo) { return campo.colonna == static_cast<std::uint8_t>(colonna); });
  };
  const bool estero = letta.valore(Provincia).text() == "EE";
  if (letta.ha(Nazione) && archivio_.luoghi.nazione(letta.valore(Nazione).text()).trovati.empty())
    togli(Nazione, " non è nell'elenco delle nazioni: la nazione resta vuota");
  if (estero || !letta.ha(Comune)) return;
  const schede::Ricerca ricerca =
      archivio_.luoghi.comune(letta.valore(Comune).text(), letta.valore(Provincia).text(), std::nullopt);
  if (ricerca.trovati.empty()) togli(Comune, " non è nell'elenco dei comuni: il comune resta vuoto");
}

std::string PercipientiNuovi::spiegazione(const RigaPiano& riga,
                                          const schede::SchedaPercipiente& nuovo) const {
  using enum ColonnaPercipiente;
  const schede::SchedaAnagrafica& a = nuovo.anagrafica;
  std::string testo = "percipiente nuovo: " + detto(a);
  std::string derivati;
  const auto aggiungi = [&](ColonnaPercipiente colonna, const std::string& che) {
    if (derivata(riga, colonna) && !che.empty()) derivati += (derivati.empty() ? "" : ", ") + che;
  };
  aggiungi(Sesso, "sesso " + a.sesso);
  if (a.nascita != Date()) aggiungi(DataNascita, "nascita " + a.nascita.toItalian());
  const schede::Luogo* luogo = archivio_.luoghi.comuneDiId(a.idComuneNascita);
  if (luogo != nullptr) aggiungi(ComuneNascita, "luogo di nascita " + luogo->nome);
  luogo = archivio_.luoghi.nazioneDiId(a.idNazionalita);
  if (luogo != nullptr) aggiungi(NazioneNascita, "nazione di nascita " + luogo->nome);
  if (!derivati.empty()) testo += "; dal codice fiscale: " + derivati;
  if (nuovo.nonResidente) testo += "; non residente, perché la sede è all'estero";
  return testo;
}

void PercipientiNuovi::codici() {
  if (piano_.percipienti.empty()) return;
  NumeriPercipienti numeri;
  for (const schede::SchedaPercipiente& uno : archivio_.percipienti) numeri.osserva(uno.codice);
  for (auto& voce : piano_.percipienti) voce.dopo.codice = numeri.prossimo();
}

}  // namespace cu::intake
