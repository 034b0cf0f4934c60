#include "gestione/frm_pagamento.h"

#include <cstdlib>
#include <set>
#include <utility>

#include "base/text.h"
#include "gestione/voci_elenco.h"
#include "schede/compensi.h"
#include "schede/percipienti.h"

namespace cu {
namespace {

using schede::SchedaCompenso;

constexpr const char* kComeSiScrive =
    "Imponibile, ritenuta e netto si calcolano dal compenso. Ogni cifra si può riscrivere; vuotandola torna "
    "quella calcolata.";
constexpr Decimal kMassimoImporto = Decimal::fromScaled(99'999'999'999'99'00);  // below 10^11

void scegliRiga(Selector& selettore, std::int32_t id) {
  if (id == 0 || !selettore.chooseRecord(id)) selettore.empty();
}

constexpr Cifra cifraDi(std::size_t posto) { return static_cast<Cifra>(posto); }

}  // namespace

FrmPagamento::FrmPagamento(const ContestoGestione& contesto, std::int32_t idAzienda,
                           std::optional<SchedaCompenso> prima, int anno)
    : FormScheda(contesto, "frmPagamento", prima ? "Compenso" : "Nuovo compenso"),
      fraPagamento(*this, "fraPagamento", nullptr, "Pagamento"),
      KrnCDPerc(*this, "KrnCDPerc", &fraPagamento, "Percipiente"),
      KrnCDCausale(*this, "KrnCDCausale", &fraPagamento, "Causale"),
      datPagamento(*this, "datPagamento", &fraPagamento, "Data di pagamento"),
      txtNumero(*this, "txtNumero", &fraPagamento, "Numero del documento"),
      datDocumento(*this, "datDocumento", &fraPagamento, "Data del documento"),
      lblAvvisi(*this, "lblAvvisi", nullptr),
      fraImporti(*this, "fraImporti", nullptr, "Importi"),
      ambOnorario(*this, "ambOnorario", &fraImporti, "Compenso"),
      ambQuota(*this, "ambQuota", &fraImporti, "Quota non soggetta"),
      ambImponibile(*this, "ambImponibile", &fraImporti, "Imponibile"),
      ambRitenutaAcconto(*this, "ambRitenutaAcconto", &fraImporti, "Ritenuta d'acconto"),
      ambRitenutaImposta(*this, "ambRitenutaImposta", &fraImporti, "Ritenuta d'imposta"),
      ambSommeNonSoggette(*this, "ambSommeNonSoggette", &fraImporti, "Somme non soggette (spese, bolli)"),
      ambRegimeConvenzionale(*this, "ambRegimeConvenzionale", &fraImporti, "Somme in regime convenzionale"),
      ambContributo(*this, "ambContributo", &fraImporti, "Contributo previdenziale (totale)"),
      ambContributoPercipiente(*this, "ambContributoPercipiente", &fraImporti,
                               "di cui a carico del percipiente"),
      ambLordo(*this, "ambLordo", &fraImporti, "Lordo"),
      ambNetto(*this, "ambNetto", &fraImporti, "Netto pagato"),
      cmdAltro(*this, "cmdAltro", nullptr, "Registra e &nuovo"),
      cmdOk(*this, "cmdOk", nullptr, "&Registra"),
      cmdAnnulla(*this, "cmdAnnulla", nullptr, "&Annulla"),
      idAzienda_(idAzienda),
      prima_(std::move(prima)),
      caselle_{&ambOnorario,
               &ambQuota,
               &ambSommeNonSoggette,
               &ambRegimeConvenzionale,
               &ambRitenutaAcconto,
               &ambRitenutaImposta,
               &ambContributo,
               &ambContributoPercipiente,
               &ambImponibile,
               &ambLordo,
               &ambNetto} {
  limitaTesti({&txtNumero});
  partenza_.idAzienda = idAzienda;
  const Date oggi = contesto.clock.today();
  constexpr int kDicembre = 12;
  constexpr int kUltimo = 31;
  partenza_.pagamento = anno == oggi.year() ? oggi : Date::fromYmd(anno, kDicembre, kUltimo).value_or(oggi);
  cmdAltro.setVisible(!prima_);
  cmdAltro.setEnabled(contesto.scrivibile);
  cmdAltro.onClick = [this] { registraEAltro(); };
  collegaPulsanti(cmdOk, cmdAnnulla);
}

void FrmPagamento::formLoad() {
  collegaPercipiente(KrnCDPerc, contesto_.connessione(), idAzienda_);
  collegaCausale(KrnCDCausale, contesto_.connessione());
  const int decimali = std::abs(contesto_.valuta.decimali) * 2;
  for (AmountBox* const importo : caselle_) {
    importo->setFormat(decimali, contesto_.valuta.simbolo, contesto_.valuta.separatoreDecimale,
                       contesto_.valuta.separatoreMigliaia);
    importo->setLimits(-kMassimoImporto, kMassimoImporto);
  }
  if (prima_) partenza_ = *prima_;
  mostra();
  KrnCDPerc.onChange = [this] { regolaCambiata(); };
  KrnCDCausale.onChange = [this] { regolaCambiata(); };
  for (std::size_t i = 0; i < kCifre; ++i) {
    caselle_[i]->onChange = [this, i] { scritta(cifraDi(i)); };
    caselle_[i]->onLostFocus = [this] { mostraCifre(std::nullopt); };
  }
  contesto_.utilita.prepareForm(*this);
}

void FrmPagamento::mostra() {
  mostrando_ = true;
  scegliRiga(KrnCDPerc, partenza_.idAnagrafica);
  scegliRiga(KrnCDCausale, partenza_.idCausale);
  mostraGiorno(datPagamento, partenza_.pagamento);
  txtNumero.setText(partenza_.numero);
  mostraGiorno(datDocumento, partenza_.documento);
  mostrando_ = false;
  conteggio_ = ConteggioCompenso();
  regolaCambiata();
  if (prima_) conteggio_.carica(partenza_.importi);
  mostraCifre(std::nullopt);
  mostraAvvisi();
  caricata_ = raccolta();
}

// The reason decides the usual tax; where the payee lives may decide another one.
void FrmPagamento::regolaCambiata() {
  if (mostrando_) return;
  const auto percipiente = schede::Percipienti(contesto_.connessione(), idAzienda_)
                               .cerca(static_cast<std::int32_t>(KrnCDPerc.record()));
  const bool estero = percipiente && percipiente->nonResidente && !percipiente->schumacker;
  conteggio_.setRegola(
      schede::regolaDi(KrnCDCausale.record() == 0 ? std::string() : KrnCDCausale.code(), estero));
  mostraCifre(std::nullopt);
  mostraAvvisi();
}

void FrmPagamento::scritta(Cifra cifra) {
  if (mostrando_) return;
  const AmountBox& importo = casella(cifra);
  if (trim(importo.text()).empty()) {
    conteggio_.libera(cifra);
  } else {
    conteggio_.scrivi(cifra, importo.number());
  }
  mostraCifre(cifra);
  mostraAvvisi();
}

// The box in which the user types keeps its text.
void FrmPagamento::mostraCifre(std::optional<Cifra> tranne) {
  mostrando_ = true;
  for (std::size_t i = 0; i < kCifre; ++i) {
    const Cifra cifra = cifraDi(i);
    AmountBox& importo = *caselle_[i];
    if (cifra == tranne) continue;
    const Decimal valore = conteggio_.valore(cifra);
    if (valore.isZero() && !conteggio_.aMano(cifra)) {
      importo.setNumber(Decimal());
      importo.setText("");
    } else {
      importo.setNumber(valore);
    }
  }
  mostrando_ = false;
}

void FrmPagamento::mostraAvvisi() {
  std::string testo = erroreCompenso(conteggio_.importi());
  for (const AvvisoCompenso& avviso : conteggio_.avvisi()) testo += (testo.empty() ? "" : " ") + avviso.testo;
  lblAvvisi.setCaption(testo.empty() ? kComeSiScrive : testo);
}

SchedaCompenso FrmPagamento::raccolta() const {
  SchedaCompenso compenso = partenza_;
  compenso.idAnagrafica = static_cast<std::int32_t>(KrnCDPerc.record());
  compenso.idCausale = static_cast<std::int32_t>(KrnCDCausale.record());
  compenso.pagamento = giornoDi(datPagamento);
  compenso.numero = testoDi(txtNumero);
  compenso.documento = giornoDi(datDocumento);
  compenso.importi = conteggio_.importi();
  return compenso;
}

bool FrmPagamento::cambiata() const { return !(raccolta() == caricata_); }

bool FrmPagamento::esiste(Selector& selettore, const char* nessuno) {
  const std::string_view codice = trim(selettore.code());
  const std::string_view nome = trim(selettore.description());
  if (selettore.record() != 0 || (codice.empty() && nome.empty())) return true;
  // A code whose description was emptied was not looked for again.
  if (nome.empty() && selettore.choose(selettore.findCode(std::string(codice)))) return true;
  std::string testo = nessuno;
  if (!codice.empty()) testo += " ha il codice «" + std::string(codice) + "»";
  if (!nome.empty()) testo += (codice.empty() ? " si chiama «" : " e si chiama «") + std::string(nome) + "»";
  return rifiuta(testo + ".", &selettore);
}

bool FrmPagamento::ammesso(std::vector<std::string>& avvisi) {
  if (!dataAmmessa(datPagamento, "Data di pagamento") || !dataAmmessa(datDocumento, "Data del documento")) {
    return false;
  }
  if (!esiste(KrnCDPerc, "Nessun percipiente") || !esiste(KrnCDCausale, "Nessuna causale")) return false;
  const SchedaCompenso compenso = raccolta();
  const std::vector<Finding> mancanze = schede::Compensi::controlla(compenso);
  if (!mancanze.empty()) {
    return rifiuta(mancanze.front(), {{"idAnagrafica", &KrnCDPerc},
                                      {"idCausale", &KrnCDCausale},
                                      {"pagamento", &datPagamento},
                                      {"onorario", &ambOnorario}});
  }
  const std::string errore = erroreCompenso(compenso.importi);
  if (!errore.empty()) return rifiuta(errore, &ambOnorario);
  const Date oggi = contesto_.clock.today();
  constexpr int kPrimoAnno = 1990;
  if (compenso.pagamento.year() < kPrimoAnno) {
    return rifiuta("La data di pagamento " + compenso.pagamento.toItalian() + " è troppo lontana.",
                   &datPagamento);
  }
  if (compenso.pagamento > oggi) avvisi.push_back("La data di pagamento è nel futuro.");
  if (compenso.documento > compenso.pagamento) {
    avvisi.push_back("La data del documento è dopo quella di pagamento.");
  }
  for (const AvvisoCompenso& avviso : conteggio_.avvisi()) {
    if (!avviso.arrotondamento) avvisi.push_back(avviso.testo);
  }
  avvisaCaratteri({&txtNumero}, avvisi);
  return true;
}

bool FrmPagamento::contiAmmessi(const SchedaCompenso& compenso) {
  std::set<schede::ContoToccato> conti = {schede::contoDi(compenso)};
  if (prima_) conti.insert(schede::contoDi(*prima_));
  if (schede::contiCorretti(contesto_.connessione(), idAzienda_, conti).empty()) return true;
  return contesto_.conferma(std::string(kContoCorretto) + "\r\n\r\nRegistrare il compenso?");
}

bool FrmPagamento::registra() {
  std::vector<std::string> avvisi;
  if (!ammesso(avvisi) || !accetta(avvisi)) return false;
  const SchedaCompenso compenso = raccolta();
  if (!contiAmmessi(compenso)) return false;
  const Result<SchedaCompenso> esito = contesto_.registrazione().compenso(prima_, compenso);
  if (!esito) return rifiuta(esito.refusals.front(), {{"importi", &ambOnorario}});
  ultimo_ = *esito;
  frontEnd().told((prima_ ? "Compenso cambiato: " : "Compenso aggiunto: ") + KrnCDPerc.description() + ", " +
                  compenso.pagamento.toItalian() + ".");
  return true;
}

// The next payment is often one of the same day.
void FrmPagamento::registraEAltro() {
  if (!registra()) return;
  const std::string scritto = KrnCDPerc.description() + ", " + ultimo_->pagamento.toItalian();
  SchedaCompenso seguente;
  seguente.idAzienda = idAzienda_;
  seguente.pagamento = ultimo_->pagamento;
  seguente.idCausale = ultimo_->idCausale;
  partenza_ = seguente;
  mostra();
  lblAvvisi.setCaption("Registrato: " + scritto + ".");
  setFocus(&KrnCDPerc);
}

}  // namespace cu
