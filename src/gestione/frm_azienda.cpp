#include "gestione/frm_azienda.h"

#include <utility>

#include "gestione/esame_codice.h"
#include "gestione/voci_elenco.h"
#include "schede/aziende.h"

namespace cu {
namespace {

using schede::SchedaAzienda;

}  // namespace

FrmAzienda::FrmAzienda(const ContestoGestione& contesto, std::optional<SchedaAzienda> prima)
    : FormScheda(contesto, "frmAzienda", prima ? "Azienda" : "Nuova azienda"),
      fraAzienda(*this, "fraAzienda", nullptr, "Azienda"),
      txtCodiceFiscale(*this, "txtCodiceFiscale", &fraAzienda, "Codice fiscale"),
      txtPartitaIva(*this, "txtPartitaIva", &fraAzienda, "Partita IVA"),
      chkPersonaFisica(*this, "chkPersonaFisica", &fraAzienda, "Persona fisica"),
      txtDenominazione(*this, "txtDenominazione", &fraAzienda, "Denominazione"),
      txtNome(*this, "txtNome", &fraAzienda, "Nome"),
      txtCodiceAttivita(*this, "txtCodiceAttivita", &fraAzienda, "Codice attività"),
      lblCodiceFiscale(*this, "lblCodiceFiscale", nullptr),
      fraSede(*this, "fraSede", nullptr, "Sede"),
      txtIndirizzo(*this, "txtIndirizzo", &fraSede, "Indirizzo"),
      txtCap(*this, "txtCap", &fraSede, "CAP"),
      TownComune(*this, "TownComune", &fraSede, "Comune"),
      txtTelefono(*this, "txtTelefono", &fraSede, "Telefono"),
      txtFax(*this, "txtFax", &fraSede, "Fax"),
      txtEmail(*this, "txtEmail", &fraSede, "Posta elettronica"),
      fraRappresentante(*this, "fraRappresentante", nullptr, "Rappresentante"),
      txtRappCodiceFiscale(*this, "txtRappCodiceFiscale", &fraRappresentante, "Codice fiscale"),
      txtRappCognome(*this, "txtRappCognome", &fraRappresentante, "Cognome"),
      txtRappNome(*this, "txtRappNome", &fraRappresentante, "Nome"),
      KrnCDCarica(*this, "KrnCDCarica", &fraRappresentante, "Carica"),
      lblRappresentante(*this, "lblRappresentante", nullptr),
      fraFornitura(*this, "fraFornitura", nullptr, "Per la Certificazione Unica"),
      txtCodiceFiscaleSocieta(*this, "txtCodiceFiscaleSocieta", &fraFornitura,
                              "Codice fiscale della società rappresentante"),
      cboEvento(*this, "cboEvento", &fraFornitura, "Evento eccezionale"),
      txtIntermediario(*this, "txtIntermediario", &fraFornitura, "Codice fiscale dell'intermediario"),
      cboImpegno(*this, "cboImpegno", &fraFornitura, "Impegno"),
      datImpegno(*this, "datImpegno", &fraFornitura, "Data dell'impegno"),
      cmdOk(*this, "cmdOk", nullptr, "&Registra"),
      cmdAnnulla(*this, "cmdAnnulla", nullptr, "&Annulla"),
      prima_(std::move(prima)) {
  limitaTesti({&txtCodiceFiscale, &txtPartitaIva, &txtDenominazione, &txtNome, &txtCodiceAttivita,
               &txtIndirizzo, &txtCap, &txtTelefono, &txtFax, &txtEmail, &txtRappCodiceFiscale,
               &txtRappCognome, &txtRappNome, &txtCodiceFiscaleSocieta, &txtIntermediario});
  for (TextBox* const casella : {&txtCodiceFiscale, &txtPartitaIva, &txtDenominazione, &txtNome,
                                 &txtRappCodiceFiscale, &txtRappCognome, &txtRappNome}) {
    casella->onChange = [this] { mostraControlli(); };
  }
  ripulisciCodici({&txtCodiceFiscale, &txtPartitaIva, &txtRappCodiceFiscale, &txtCodiceFiscaleSocieta,
                   &txtIntermediario});
  txtEmail.longText = true;
  chkPersonaFisica.onClick = [this] { personaCambiata(); };
  collegaPulsanti(cmdOk, cmdAnnulla);
}

void FrmAzienda::formLoad() {
  Connection& connessione = contesto_.connessione();
  luoghi_.emplace(connessione);
  collegaComune(TownComune, contesto_);
  collegaCarica(KrnCDCarica, connessione);
  riempiEventi(cboEvento, connessione);
  cboImpegno.add("", 0);
  cboImpegno.add("1 - Predisposta dal contribuente", 1);
  cboImpegno.add("2 - Predisposta da chi la invia", 2);
  if (prima_) scritta_ = *prima_;
  mostra();
  personaCambiata();
  caricata_ = raccolta();
  contesto_.utilita.prepareForm(*this);
}

void FrmAzienda::mostra() {
  const schede::SchedaAnagrafica& sede = scritta_.sede;
  txtCodiceFiscale.setText(sede.codiceFiscale);
  txtPartitaIva.setText(sede.partitaIva);
  chkPersonaFisica.setValue(sede.personaFisica);
  txtDenominazione.setText(sede.anagrafica);
  txtNome.setText(sede.nome);
  txtCodiceAttivita.setText(scritta_.codiceAttivita);
  txtIndirizzo.setText(sede.indirizzo);
  txtCap.setText(sede.cap);
  TownComune.setRecord(sede.idComune);
  txtTelefono.setText(sede.telefono);
  txtFax.setText(sede.fax);
  txtEmail.setText(sede.email);
  const schede::SchedaAnagrafica& rappresentante = scritta_.rappresentante;
  txtRappCodiceFiscale.setText(rappresentante.codiceFiscale);
  txtRappCognome.setText(rappresentante.anagrafica);
  txtRappNome.setText(rappresentante.nome);
  KrnCDCarica.chooseRecord(scritta_.idCarica != 0 ? scritta_.idCarica : 1);
  txtCodiceFiscaleSocieta.setText(scritta_.codiceFiscaleSocieta);
  scegliId(cboEvento, scritta_.idEventoEccezionale);
  txtIntermediario.setText(scritta_.intermediario);
  scegliId(cboImpegno, scritta_.impegno);
  mostraGiorno(datImpegno, scritta_.dataImpegno);
}

// A person is its own representative.
void FrmAzienda::personaCambiata() {
  const bool persona = chkPersonaFisica.value();
  txtDenominazione.setCaption(persona ? "Cognome" : "Denominazione");
  txtNome.setEnabled(persona);
  fraRappresentante.setEnabled(!persona);
  mostraControlli();
}

void FrmAzienda::mostraControlli() {
  if (!luoghi_) return;
  const Date oggi = contesto_.clock.today();
  const auto frasi = [&](const TextBox& casella, const DatiAccanto& accanto, const std::string& iva) {
    return frasiCodici(esaminaCodice(codiceDi(casella), accanto, *luoghi_, oggi), iva);
  };
  const std::string cognome = testoDi(txtDenominazione);
  const std::string nome = testoDi(txtNome);
  const bool persona = chkPersonaFisica.value();
  lblCodiceFiscale.setCaption(frasi(txtCodiceFiscale,
                                    persona ? DatiAccanto{.cognome = cognome, .nome = nome} : DatiAccanto{},
                                    codiceDi(txtPartitaIva)));
  const std::string rappCognome = testoDi(txtRappCognome);
  const std::string rappNome = testoDi(txtRappNome);
  lblRappresentante.setCaption(
      persona ? std::string("Una persona fisica non ha rappresentante.")
              : frasi(txtRappCodiceFiscale, {.cognome = rappCognome, .nome = rappNome}, {}));
}

SchedaAzienda FrmAzienda::raccolta() const {
  SchedaAzienda azienda = scritta_;
  schede::SchedaAnagrafica& sede = azienda.sede;
  sede.codiceFiscale = codiceDi(txtCodiceFiscale);
  sede.partitaIva = codiceDi(txtPartitaIva);
  sede.personaFisica = chkPersonaFisica.value();
  sede.anagrafica = testoDi(txtDenominazione);
  sede.nome = sede.personaFisica ? testoDi(txtNome) : std::string();
  azienda.codiceAttivita = codiceAttivitaDi(txtCodiceAttivita);
  sede.indirizzo = testoDi(txtIndirizzo);
  sede.cap = testoDi(txtCap);
  sede.idComune = idScelto(TownComune);
  sede.telefono = testoDi(txtTelefono);
  sede.fax = testoDi(txtFax);
  sede.email = testoDi(txtEmail);
  azienda.idCarica = 0;
  if (sede.personaFisica) {
    azienda.rappresentante = {};
  } else {
    azienda.rappresentante.personaFisica = true;
    azienda.rappresentante.codiceFiscale = codiceDi(txtRappCodiceFiscale);
    azienda.rappresentante.anagrafica = testoDi(txtRappCognome);
    azienda.rappresentante.nome = testoDi(txtRappNome);
    azienda.idCarica = static_cast<std::int32_t>(KrnCDCarica.record());
  }
  azienda.codiceFiscaleSocieta = codiceDi(txtCodiceFiscaleSocieta);
  azienda.idEventoEccezionale = idScelto(cboEvento);
  azienda.intermediario = codiceDi(txtIntermediario);
  azienda.impegno = idScelto(cboImpegno);
  azienda.dataImpegno = giornoDi(datImpegno);
  return azienda;
}

bool FrmAzienda::cambiata() const { return !(raccolta() == caricata_); }

bool FrmAzienda::ammessa(std::vector<std::string>& avvisi) {
  const SchedaAzienda azienda = raccolta();
  const std::vector<Finding> mancanze = schede::Aziende::controlla(azienda);
  if (!mancanze.empty()) {
    return rifiuta(mancanze.front(), {{"sede.codiceFiscale", &txtCodiceFiscale},
                                      {"sede.anagrafica", &txtDenominazione},
                                      {"sede.nome", &txtNome},
                                      {"sede.idComune", &TownComune},
                                      {"rappresentante.codiceFiscale", &txtRappCodiceFiscale},
                                      {"rappresentante.anagrafica", &txtRappCognome},
                                      {"rappresentante.nome", &txtRappNome},
                                      {"idCarica", &KrnCDCarica}});
  }
  const bool rappresentata = !azienda.sede.personaFisica;
  if (!codiceAmmesso(txtCodiceFiscale, "Codice fiscale", avvisi) ||
      (rappresentata && !codiceAmmesso(txtRappCodiceFiscale, "Codice fiscale del rappresentante", avvisi)) ||
      !codiceAmmesso(txtCodiceFiscaleSocieta, "Codice fiscale della società rappresentante", avvisi) ||
      !codiceAmmesso(txtIntermediario, "Codice fiscale dell'intermediario", avvisi) ||
      !dataAmmessa(datImpegno, "Data dell'impegno")) {
    return false;
  }
  avvisaPartitaIva(txtPartitaIva, avvisi);
  avvisaAttivita(txtCodiceAttivita, avvisi);
  avvisaCap(txtCap, avvisi);
  avvisaEmail(txtEmail, avvisi);
  avvisaCaratteri({&txtDenominazione, &txtNome, &txtIndirizzo, &txtRappCognome, &txtRappNome}, avvisi);
  avvisaDoppioni(azienda, avvisi);
  return true;
}

void FrmAzienda::avvisaDoppioni(const SchedaAzienda& azienda, std::vector<std::string>& avvisi) const {
  for (const SchedaAzienda& altra : schede::Aziende(contesto_.connessione()).tutte()) {
    if (altra.id == azienda.id || azienda.sede.codiceFiscale.empty() ||
        altra.sede.codiceFiscale != azienda.sede.codiceFiscale) {
      continue;
    }
    avvisi.push_back("C'è già un'azienda con questo codice fiscale: " + nominativo(altra.sede) + ".");
  }
}

bool FrmAzienda::registra() {
  std::vector<std::string> avvisi;
  if (!ammessa(avvisi) || !accetta(avvisi)) return false;
  SchedaAzienda azienda = raccolta();
  if (!prima_) {
    // The years of its activity are added with the payments.
    azienda.ultimoAnno = contesto_.clock.today().year();
    azienda.primoAnno = azienda.ultimoAnno - 1;
  }
  const Result<SchedaAzienda> esito = contesto_.registrazione().azienda(prima_, azienda);
  if (!esito) return rifiuta(esito.refusals.front(), {});
  scritta_ = *esito;
  frontEnd().told((prima_ ? "Azienda cambiata: " : "Azienda aggiunta: ") + nominativo(scritta_.sede) + ".");
  return true;
}

}  // namespace cu
