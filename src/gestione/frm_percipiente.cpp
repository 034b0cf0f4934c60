#include "gestione/frm_percipiente.h"

#include <utility>

#include "gestione/voci_elenco.h"

namespace cu {

FrmPercipiente::FrmPercipiente(const ContestoGestione& contesto, std::int32_t idAzienda,
                               std::optional<schede::SchedaPercipiente> prima, std::string codiceProposto)
    : FormScheda(contesto, "frmPercipiente", prima ? "Percipiente" : "Nuovo percipiente"),
      fraPercipiente(*this, "fraPercipiente", nullptr, "Percipiente"),
      txtCodice(*this, "txtCodice", &fraPercipiente, "Codice"),
      txtCodiceFiscale(*this, "txtCodiceFiscale", &fraPercipiente, "Codice fiscale"),
      txtPartitaIva(*this, "txtPartitaIva", &fraPercipiente, "Partita IVA"),
      chkPersonaFisica(*this, "chkPersonaFisica", &fraPercipiente, "Persona fisica", true),
      txtCognome(*this, "txtCognome", &fraPercipiente, "Cognome"),
      txtNome(*this, "txtNome", &fraPercipiente, "Nome"),
      lblCodiceFiscale(*this, "lblCodiceFiscale", nullptr),
      fraNascita(*this, "fraNascita", nullptr, "Nascita"),
      cboSesso(*this, "cboSesso", &fraNascita),
      datNascita(*this, "datNascita", &fraNascita),
      TownComuneNascita(*this, "TownComuneNascita", &fraNascita),
      cboNazioneNascita(*this, "cboNazioneNascita", &fraNascita),
      fraDomicilio(*this, "fraDomicilio", nullptr, "Domicilio fiscale"),
      txtIndirizzo(*this, "txtIndirizzo", &fraDomicilio, "Indirizzo"),
      txtCap(*this, "txtCap", &fraDomicilio, "CAP"),
      TownComune(*this, "TownComune", &fraDomicilio, "Comune"),
      cboNazione(*this, "cboNazione", &fraDomicilio, "Nazione"),
      txtLocalita(*this, "txtLocalita", &fraDomicilio, "Località estera"),
      txtEmail(*this, "txtEmail", &fraDomicilio, "Posta elettronica"),
      txtTelefono(*this, "txtTelefono", &fraDomicilio, "Telefono"),
      txtFax(*this, "txtFax", &fraDomicilio, "Fax"),
      fraFornitura(*this, "fraFornitura", nullptr, "Per la Certificazione Unica"),
      chkNonResidente(*this, "chkNonResidente", &fraFornitura, "Non residente"),
      chkSchumacker(*this, "chkSchumacker", &fraFornitura, "Non residente Schumacker"),
      txtCodiceFiscaleEstero(*this, "txtCodiceFiscaleEstero", &fraFornitura, "Codice fiscale estero"),
      txtRappresentante(*this, "txtRappresentante", &fraFornitura, "Codice fiscale del rappresentante"),
      cboCategoria(*this, "cboCategoria", &fraFornitura, "Categoria particolare"),
      cboEvento(*this, "cboEvento", &fraFornitura, "Evento eccezionale"),
      cboEnte(*this, "cboEnte", &fraFornitura, "Ente previdenziale"),
      cboCategoriaEnte(*this, "cboCategoriaEnte", &fraFornitura, "Categoria dell'ente"),
      txtEnpam(*this, "txtEnpam", &fraFornitura, "Codice azienda ENPAM"),
      txtEnpapi(*this, "txtEnpapi", &fraFornitura, "Codice azienda ENPAPI"),
      cmdOk(*this, "cmdOk", nullptr, "&Registra"),
      cmdAnnulla(*this, "cmdAnnulla", nullptr, "&Annulla"),
      idAzienda_(idAzienda),
      prima_(std::move(prima)) {
  limitaTesti({&txtCodice, &txtCodiceFiscale, &txtPartitaIva, &txtCognome, &txtNome, &txtIndirizzo, &txtCap,
               &txtLocalita, &txtEmail, &txtTelefono, &txtFax, &txtCodiceFiscaleEstero, &txtRappresentante,
               &txtEnpam, &txtEnpapi});
  scritta_.idAzienda = idAzienda;
  scritta_.codice = std::move(codiceProposto);
  scritta_.anagrafica.personaFisica = true;
  collegaPulsanti(cmdOk, cmdAnnulla);
}

void FrmPercipiente::formLoad() {
  luoghi_.emplace(contesto_.connessione());
  riempiElenchi();
  if (prima_) {
    scritta_ = *prima_;
  } else {
    scritta_.anagrafica.idNazione = luoghi_->italia();
  }
  mostra();
  derivato_[kPersona] = !prima_;
  for (const Derivabile campo : {kSesso, kNascita, kComune, kNazione}) mostraDerivato(campo);
  collegaCampi();
  personaCambiata();
  nazioneCambiata();
  mostraEsame();
  localitaCaricata_ = localitaScritta();
  caricata_ = raccolta();
  contesto_.utilita.prepareForm(*this);
}

void FrmPercipiente::riempiElenchi() {
  Connection& connessione = contesto_.connessione();
  cboSesso.add("");
  cboSesso.add("M - Maschio");
  cboSesso.add("F - Femmina");
  collegaComune(TownComuneNascita, contesto_);
  collegaComune(TownComune, contesto_);
  riempiNazioni(cboNazioneNascita, connessione);
  riempiNazioni(cboNazione, connessione);
  riempiCategorie(cboCategoria, connessione);
  riempiEventi(cboEvento, connessione);
  riempiEnti(cboEnte, connessione);
  riempiCategorieEnti(cboCategoriaEnte, connessione);
}

// The events are connected once the record is shown: what it has was not typed.
void FrmPercipiente::collegaCampi() {
  txtCodiceFiscale.onChange = [this] { codiceCambiato(); };
  txtPartitaIva.onChange = [this] { mostraEsame(); };
  txtCognome.onChange = [this] { mostraEsame(); };
  txtNome.onChange = [this] { mostraEsame(); };
  ripulisciCodici({&txtCodiceFiscale, &txtPartitaIva, &txtRappresentante});
  cboSesso.onChange = [this] { scrittoAMano(kSesso); };
  datNascita.onChange = [this] { scrittoAMano(kNascita); };
  TownComuneNascita.onChange = [this] { scrittoAMano(kComune); };
  cboNazioneNascita.onChange = [this] { scrittoAMano(kNazione); };
  chkPersonaFisica.onClick = [this] {
    personaCambiata();
    scrittoAMano(kPersona);
  };
  cboNazione.onChange = [this] { nazioneCambiata(); };
}

void FrmPercipiente::mostra() {
  const schede::SchedaAnagrafica& a = scritta_.anagrafica;
  txtCodice.setText(scritta_.codice);
  txtCodiceFiscale.setText(a.codiceFiscale);
  txtPartitaIva.setText(a.partitaIva);
  chkPersonaFisica.setValue(a.personaFisica);
  txtCognome.setText(a.anagrafica);
  txtNome.setText(a.nome);
  cboSesso.setIndex(a.sesso == "M" ? 1 : a.sesso == "F" ? 2 : 0);
  mostraGiorno(datNascita, a.nascita);
  TownComuneNascita.setRecord(a.idComuneNascita);
  scegliId(cboNazioneNascita, a.idNazionalita);
  mostraAltri();
}

void FrmPercipiente::mostraAltri() {
  const schede::SchedaAnagrafica& a = scritta_.anagrafica;
  txtIndirizzo.setText(a.indirizzo);
  txtCap.setText(a.cap);
  scegliId(cboNazione, a.idNazione);
  const schede::Luogo* const luogo = luoghi_->comuneDiId(a.idComune);
  const bool estero = luogo != nullptr && luogo->provincia.empty() && luogo->catasto.empty();
  TownComune.setRecord(estero ? 0 : a.idComune);
  txtLocalita.setText(estero ? luogo->nome : std::string());
  txtEmail.setText(a.email);
  txtTelefono.setText(a.telefono);
  txtFax.setText(a.fax);
  chkNonResidente.setValue(scritta_.nonResidente);
  chkSchumacker.setValue(scritta_.schumacker);
  txtCodiceFiscaleEstero.setText(scritta_.codiceFiscaleEstero);
  txtRappresentante.setText(scritta_.codiceFiscaleRappresentante);
  scegliId(cboCategoria, scritta_.idCategoriaParticolare);
  scegliId(cboEvento, scritta_.idEventoEccezionale);
  scegliId(cboEnte, scritta_.idEnte);
  scegliId(cboCategoriaEnte, scritta_.idCategoriaEnte);
  txtEnpam.setText(scritta_.codiceEnpam);
  txtEnpapi.setText(scritta_.codiceEnpapi);
}

void FrmPercipiente::personaCambiata() {
  const bool persona = chkPersonaFisica.value();
  txtCognome.setCaption(persona ? "Cognome" : "Denominazione");
  txtNome.setEnabled(persona);
  fraNascita.setEnabled(persona);
}

// Abroad there are no municipalities, only places.
void FrmPercipiente::nazioneCambiata() {
  const std::int32_t nazione = idScelto(cboNazione);
  const bool estero = nazione != 0 && nazione != luoghi_->italia();
  TownComune.setEnabled(!estero);
  txtLocalita.setEnabled(estero);
}

}  // namespace cu
