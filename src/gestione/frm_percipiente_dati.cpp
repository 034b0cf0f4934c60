// What the form of a payee derives, checks and writes.

#include <algorithm>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "gestione/frm_percipiente.h"
#include "gestione/voci_elenco.h"
#include "schede/percipienti.h"

namespace cu {
namespace {

using schede::SchedaPercipiente;

// "P" and "007" of "P007".
std::size_t doveIlNumero(std::string_view codice) {
  std::size_t posto = codice.size();
  while (posto > 0 && isDigit(codice[posto - 1])) --posto;
  return posto;
}

}  // namespace

std::string codiceSeguente(const std::vector<SchedaPercipiente>& percipienti) {
  if (percipienti.empty()) return "P001";
  constexpr std::size_t kMassimeCifre = 15;
  const std::string& ultimo = percipienti.back().codice;
  const std::string prefisso = ultimo.substr(0, doveIlNumero(ultimo));
  std::int64_t massimo = 0;
  std::size_t cifre = 3;
  for (const SchedaPercipiente& uno : percipienti) {
    const std::string& codice = uno.codice;
    const std::size_t numero = doveIlNumero(codice);
    if (codice.substr(0, numero) != prefisso || numero == codice.size()) continue;
    if (codice.size() - numero > kMassimeCifre) continue;
    const std::int64_t valore = leadingInteger(std::string_view(codice).substr(numero));
    if (valore < massimo) continue;
    massimo = valore;
    cifre = codice.size() - numero;
  }
  std::string seguente = fromInteger(massimo + 1);
  if (seguente.size() < cifre) seguente.insert(0, cifre - seguente.size(), '0');
  return prefisso + seguente;
}

DatiAccanto FrmPercipiente::accanto(const SchedaPercipiente& percipiente) const {
  const schede::SchedaAnagrafica& a = percipiente.anagrafica;
  return {.cognome = a.anagrafica,
          .nome = a.nome,
          .sesso = a.sesso,
          .nascita = a.nascita,
          .idComuneNascita = a.idComuneNascita,
          .idNazioneNascita = a.idNazionalita};
}

void FrmPercipiente::mostraEsame() {
  const SchedaPercipiente percipiente = raccolta();
  esame_ = esaminaCodice(percipiente.anagrafica.codiceFiscale, accanto(percipiente), *luoghi_,
                         contesto_.clock.today());
  lblCodiceFiscale.setCaption(
      frasiCodici(esame_, percipiente.nonResidente ? std::string() : percipiente.anagrafica.partitaIva));
}

void FrmPercipiente::codiceCambiato() {
  mostraEsame();
  const FormaCodice forma = formaCodice(codiceDi(txtCodiceFiscale));
  if (forma != FormaCodice::Nessuna && derivato_[kPersona]) {
    derivando_ = true;
    chkPersonaFisica.setValue(forma == FormaCodice::Persona);
    derivando_ = false;
  }
  if (esame_.derivati) deriva(*esame_.derivati);
  mostraEsame();
}

bool FrmPercipiente::vuoto(Derivabile campo) const {
  switch (campo) {
    case kSesso:
      return cboSesso.index() <= 0;
    case kNascita:
      return trim(datNascita.text()).empty();
    case kComune:
      return TownComuneNascita.record() == 0;
    case kNazione:
      return idScelto(cboNazioneNascita) == 0;
    case kPersona:
    case kDerivabili:
      break;
  }
  return false;
}

// Only into fields that are empty, or that an earlier code has filled.
void FrmPercipiente::deriva(const DatiDerivati& dati) {
  derivando_ = true;
  const auto libero = [&](Derivabile campo) { return derivato_[campo] || vuoto(campo); };
  if (libero(kSesso)) {
    cboSesso.setIndex(dati.sesso == "F" ? 2 : 1);
    derivato_[kSesso] = true;
  }
  if (libero(kNascita)) {
    mostraGiorno(datNascita, dati.nascita);
    derivato_[kNascita] = dati.nascita != Date();
  }
  // Municipality and country belong together: one that the user has written keeps the other.
  if (libero(kComune) && libero(kNazione)) {
    TownComuneNascita.setRecord(dati.idComune);
    scegliId(cboNazioneNascita, dati.idNazione);
    derivato_[kComune] = dati.idComune != 0;
    derivato_[kNazione] = dati.idNazione != 0;
  }
  derivando_ = false;
  for (const Derivabile campo : {kSesso, kNascita, kComune, kNazione}) mostraDerivato(campo);
}

void FrmPercipiente::scrittoAMano(Derivabile campo) {
  if (derivando_) return;
  derivato_[campo] = false;
  mostraDerivato(campo);
  if (campo == kComune && TownComuneNascita.record() != 0 && vuoto(kNazione)) {
    scegliId(cboNazioneNascita, luoghi_->italia());
  }
  mostraEsame();
}

void FrmPercipiente::mostraDerivato(Derivabile campo) {
  const char* const coda = derivato_[campo] ? " (dal codice fiscale)" : "";
  switch (campo) {
    case kSesso:
      return cboSesso.setCaption(std::string("Sesso") + coda);
    case kNascita:
      return datNascita.setCaption(std::string("Data") + coda);
    case kComune:
      return TownComuneNascita.setCaption(std::string("Comune") + coda);
    case kNazione:
      return cboNazioneNascita.setCaption(std::string("Nazione") + coda);
    case kPersona:
    case kDerivabili:
      return;
  }
}

std::string FrmPercipiente::localitaScritta() const {
  return txtLocalita.enabled() ? testoDi(txtLocalita) : std::string();
}

SchedaPercipiente FrmPercipiente::raccolta() const {
  SchedaPercipiente percipiente = scritta_;
  schede::SchedaAnagrafica& a = percipiente.anagrafica;
  percipiente.codice = testoDi(txtCodice);
  a.codiceFiscale = codiceDi(txtCodiceFiscale);
  a.partitaIva = codiceDi(txtPartitaIva);
  a.personaFisica = chkPersonaFisica.value();
  a.anagrafica = testoDi(txtCognome);
  a.nome = a.personaFisica ? testoDi(txtNome) : std::string();
  a.sesso = !a.personaFisica || cboSesso.index() <= 0 ? "" : cboSesso.index() == 1 ? "M" : "F";
  a.nascita = a.personaFisica ? giornoDi(datNascita) : Date();
  a.idComuneNascita = a.personaFisica ? idScelto(TownComuneNascita) : 0;
  a.idNazionalita = a.personaFisica ? idScelto(cboNazioneNascita) : 0;
  a.indirizzo = testoDi(txtIndirizzo);
  a.cap = testoDi(txtCap);
  a.idNazione = idScelto(cboNazione);
  if (TownComune.enabled()) {
    a.idComune = idScelto(TownComune);
  } else if (localitaScritta() != localitaCaricata_) {
    a.idComune = 0;  // written with its name
  }
  a.email = testoDi(txtEmail);
  a.telefono = testoDi(txtTelefono);
  a.fax = testoDi(txtFax);
  percipiente.nonResidente = chkNonResidente.value();
  percipiente.schumacker = chkSchumacker.value();
  percipiente.codiceFiscaleEstero = testoDi(txtCodiceFiscaleEstero);
  percipiente.codiceFiscaleRappresentante = codiceDi(txtRappresentante);
  percipiente.idCategoriaParticolare = idScelto(cboCategoria);
  percipiente.idEventoEccezionale = idScelto(cboEvento);
  percipiente.idEnte = idScelto(cboEnte);
  percipiente.idCategoriaEnte = idScelto(cboCategoriaEnte);
  percipiente.codiceEnpam = testoDi(txtEnpam);
  percipiente.codiceEnpapi = testoDi(txtEnpapi);
  return percipiente;
}

bool FrmPercipiente::cambiata() const {
  return !(raccolta() == caricata_) || localitaScritta() != localitaCaricata_;
}

void FrmPercipiente::avvisaDoppioni(const SchedaPercipiente& percipiente,
                                    std::vector<std::string>& avvisi) const {
  const std::string& codice = percipiente.anagrafica.codiceFiscale;
  if (codice.empty()) return;
  for (const SchedaPercipiente& altro :
       schede::Percipienti(contesto_.connessione(), idAzienda_).conCodiceFiscale(codice)) {
    if (altro.anagrafica.id == percipiente.anagrafica.id) continue;
    avvisi.push_back("C'è già un percipiente con questo codice fiscale: " + altro.codice + ", " +
                     nominativo(altro.anagrafica) + ".");
  }
}

bool FrmPercipiente::ammesso(std::vector<std::string>& avvisi) {
  if (!dataAmmessa(datNascita, "Data di nascita")) return false;
  const SchedaPercipiente percipiente = raccolta();
  const std::vector<Finding> mancanze = schede::Percipienti::controlla(percipiente);
  if (!mancanze.empty()) {
    return rifiuta(mancanze.front(), {{"anagrafica", &txtCognome},
                                      {"codice", &txtCodice},
                                      {"codiceFiscale", &txtCodiceFiscale},
                                      {"nome", &txtNome},
                                      {"sesso", &cboSesso},
                                      {"nascita", &datNascita},
                                      {"idComuneNascita", &TownComuneNascita}});
  }
  if (!codiceAmmesso(txtCodiceFiscale, "Codice fiscale", avvisi)) return false;
  if (!percipiente.nonResidente) avvisaPartitaIva(txtPartitaIva, avvisi);
  if (!codiceAmmesso(txtRappresentante, "Codice fiscale del rappresentante", avvisi)) return false;
  mostraEsame();
  if (percipiente.anagrafica.personaFisica && !esame_.contrasti.empty()) avvisi.push_back(esame_.contrasti);
  if (!percipiente.anagrafica.personaFisica && esame_.derivati) {
    avvisi.push_back("Il codice fiscale è di una persona fisica.");
  }
  if (TownComune.enabled()) avvisaCap(txtCap, avvisi);
  avvisaCaratteri({&txtCognome, &txtNome, &txtIndirizzo, &txtLocalita}, avvisi);
  avvisaDoppioni(percipiente, avvisi);
  return true;
}

bool FrmPercipiente::registra() {
  std::vector<std::string> avvisi;
  if (!ammesso(avvisi) || !accetta(avvisi)) return false;
  const std::string localita = localitaScritta();
  const Result<SchedaPercipiente> esito = contesto_.registrazione().percipiente(
      prima_, raccolta(), localita == localitaCaricata_ ? std::string() : localita);
  if (!esito) return rifiuta(esito.refusals.front(), {{"codice", &txtCodice}});
  scritta_ = *esito;
  frontEnd().told((prima_ ? "Percipiente cambiato: " : "Percipiente aggiunto: ") + scritta_.codice + ", " +
                  nominativo(scritta_.anagrafica) + ".");
  return true;
}

}  // namespace cu
