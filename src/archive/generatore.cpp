#include "archive/generatore.h"

#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>

#include "archive/azienda.h"
#include "archive/generatore_conti.h"
#include "archive/generatore_persone.h"
#include "archive/generatore_testi.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "data/inserimento.h"
#include "liste/liste.h"
#include "schede/aziende.h"
#include "schede/compensi.h"
#include "schede/percipienti.h"

namespace cu {
namespace {

constexpr std::int32_t kPrimoPercipiente = 101;
constexpr std::int32_t kMassimo = 9999999;
constexpr std::int32_t kMassimoAziende = 9999;
// The reason of a payee's second line of a year; never used for the first.
constexpr std::string_view kSecondaCausale = "M1";

Decimal centesimi(std::int64_t valore) { return Decimal::fromScaled(valore * 100); }

schede::SchedaAnagrafica anagraficaInventata(std::int32_t id, const PercipienteInventato& p) {
  schede::SchedaAnagrafica scheda;
  scheda.id = id;
  scheda.anagrafica = p.anagrafica;
  scheda.nome = p.nome;
  scheda.personaFisica = p.persona();
  scheda.codiceFiscale = p.codiceFiscale;
  scheda.partitaIva = p.partitaIva;
  scheda.email = p.eMail;
  scheda.telefono = p.telefono;
  scheda.cap = p.cap;
  scheda.indirizzo = p.indirizzo;
  if (p.persona()) scheda.sesso = p.femmina ? "F" : "M";
  scheda.nascita = p.nascita;
  scheda.idComuneNascita = p.idComuneNascita;
  scheda.idNazionalita = p.idNazionalita;
  scheda.idComune = p.idComune;
  scheda.idNazione = p.idNazione;
  return scheda;
}

// One line of the accounts.
struct Conto {
  std::int32_t idAnagrafica = 0;
  std::int32_t idCausale = 0;
  std::string_view causale;
  int anno = 0;
};

class Generatore {
 public:
  Generatore(Connection& connessione, const OpzioniGeneratore& opzioni);
  // The company with a number from 1, to which the payees that follow belong.
  void azienda(std::int32_t numero);
  void percipiente(std::int32_t numero);
  void chiudi();

 private:
  void scheda(std::int32_t numero, const PercipienteInventato& p, Casuale& caso);
  void conto(const Conto& conto, const PercipienteInventato& p, Casuale& caso);
  void datiAggiuntivi(const Conto& conto, Casuale& caso);
  void moduli(const Conto& conto, Casuale& caso);
  Inserimento& chiaveConto(Inserimento& inserimento, const Conto& conto);
  std::int32_t idCausale(std::string_view codice) const { return causali_.at(codice); }

  Connection& connessione_;
  OpzioniGeneratore opzioni_;
  Inventore inventore_;
  std::unordered_map<std::string_view, std::int32_t> causali_;
  std::int32_t azienda_ = 0;      // the present company
  std::int32_t primoId_ = 0;      // before those of its persons
  std::int32_t primoNumero_ = 0;  // before those of its payees, counted over all companies
  std::int32_t numeroModuli_ = 0;

  schede::Scrittura scrittura_;
  Inserimento conto_;
  // Additional data: one statement per set of fields that are filled together.
  Inserimento residenza_;
  Inserimento riferimenti_;
  Inserimento addizionali_;
  Inserimento previdenza_;
  Inserimento pignoramento_;
  Inserimento modulo_;
};

Generatore::Generatore(Connection& c, const OpzioniGeneratore& opzioni)
    : connessione_(c),
      opzioni_(opzioni),
      scrittura_(c),
      conto_(c, "ContoIndividuale",
             {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "OnorarioProvvigioni",
              "QuotaProvvigioniNonSoggette", "SommeNonSoggette", "SommeNonSoggetteRegConv", "RitenutaAcconto",
              "RitenutaImposta", "ContributoPrevidenziale", "RitenutaPrevidenziale13"}),
      residenza_(c, "ContoIndividualeDatiAggiuntivi",
                 {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "Anticipazione",
                  "RitenuteSospese", "IDComuneResidenzaAnnoPrec", "IDComuneResidenzaAnnoCorr"}),
      riferimenti_(c, "ContoIndividualeDatiAggiuntivi",
                   {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "Anticipazione",
                    "ProtocolloAnnSost", "ProgressivoAnnSost"}),
      addizionali_(
          c, "ContoIndividualeDatiAggiuntivi",
          {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "Anticipazione", "AddRegionImposta",
           "AddComunImposta", "IDComuneResidenzaAnnoPrec", "IDComuneResidenzaAnnoCorr"}),
      previdenza_(c, "ContoIndividualeDatiAggiuntivi",
                  {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "Anticipazione",
                   "AltriContributi", "ImportoAltriContributi", "ContributiDovuti", "ContributiVersati"}),
      pignoramento_(c, "ContoIndividualeDatiAggiuntivi",
                    {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda", "Anticipazione",
                     "PignoramentoTerziCodiceFiscale1", "PignoramentoTerziSommeErogate1",
                     "PignoramentoTerziRitenuteOperate1"}),
      modulo_(c, "ModuloXContoIndividuale",
              {"IDModuloXContoIndividuale", "IDAnagrafica", "IDAzienda", "IDCausalePagamento", "Anno",
               "NumeroModulo", "IDCodicePerNonSoggetti", "AnnoModulo", "SommeNonSoggette",
               "ImponibileAnniPrec", "RitenuteAnniPrec", "Anticipazione"}) {
  for (const VoceInLista& voce : causaliPagamento()) causali_.emplace(voce.codice, voce.id);
}

void Generatore::azienda(std::int32_t numero) {
  const bool prima = numero == 1;
  azienda_ = numero;
  primoId_ = (numero - 1) * (kPrimoPercipiente - 1 + opzioni_.percipienti);
  primoNumero_ = (numero - 1) * opzioni_.percipienti;
  schede::SchedaAzienda azienda = aziendaInventata(opzioni_.primoAnno, opzioni_.ultimoAnno);
  azienda.id = numero;
  azienda.idFiliale = numero;
  schede::SchedaAnagrafica& sede = azienda.sede;
  sede.id = primoId_ + kIdSede;
  sede.anagrafica =
      prima ? "Azienda Sintetica S.p.A." : unito({"Azienda Sintetica ", cifre(numero, 4), " S.p.A."});
  sede.partitaIva = prima ? "0000000023" : unito({cifre(numero, 7), "024"});
  sede.partitaIva += cifraDiControllo(sede.partitaIva);
  sede.codiceFiscale = sede.partitaIva;
  sede.email = "amministrazione@azienda.example";
  sede.telefono = "045/1234567";
  sede.cap = "37121";
  sede.indirizzo = "Via Roma 1";
  sede.idComune = idComune("L781");
  sede.idNazione = kItalia;

  schede::SchedaAnagrafica& rappresentante = azienda.rappresentante;
  rappresentante.id = primoId_ + kIdRappresentante;
  rappresentante.anagrafica = "Verdi";
  rappresentante.nome = "Giuseppina";
  rappresentante.personaFisica = true;
  rappresentante.sesso = "F";
  rappresentante.nascita = Date::fromSerial(Date::fromYmd(1960, 2, 29)->serial() + numero - 1);
  rappresentante.idComuneNascita = idComune("L781");
  rappresentante.idNazionalita = kItalia;
  rappresentante.idComune = idComune("L781");
  rappresentante.idNazione = kItalia;
  rappresentante.cap = "37121";
  rappresentante.indirizzo = "Via Roma 2";
  rappresentante.codiceFiscale =
      codiceFiscale({rappresentante.anagrafica, rappresentante.nome, true, rappresentante.nascita, "L781"});
  schede::Aziende::aggiungi(scrittura_, azienda);
  if (prima) riempiLocalitaEstere(scrittura_);
}

void Generatore::percipiente(std::int32_t numero) {
  const std::int32_t fraTutti = primoNumero_ + numero;
  Casuale caso(opzioni_.seme, static_cast<std::uint64_t>(fraTutti));
  const std::int32_t id = primoId_ + kPrimoPercipiente + numero - 1;
  const PercipienteInventato p = inventore_.inventa(fraTutti, caso);
  scheda(numero, p, caso);
  const std::string_view causale = causaleTipica(p.tipo, caso);
  for (int anno = opzioni_.primoAnno; anno <= opzioni_.ultimoAnno; ++anno) {
    if (caso.percento(97)) conto({id, idCausale(causale), causale, anno}, p, caso);
    if (caso.percento(7)) conto({id, idCausale(kSecondaCausale), kSecondaCausale, anno}, p, caso);
  }
}

void Generatore::scheda(std::int32_t numero, const PercipienteInventato& p, Casuale& caso) {
  const std::int32_t id = primoId_ + kPrimoPercipiente + numero - 1;
  const std::int32_t ente =
      p.residente() && p.persona() && caso.percento(30) ? static_cast<std::int32_t>(caso.tra(1, 9)) : 0;
  schede::SchedaPercipiente scheda;
  scheda.idAzienda = azienda_;
  scheda.anagrafica = anagraficaInventata(id, p);
  scheda.codice = cifre(numero, 7);
  scheda.nonResidente = !p.residente();
  scheda.schumacker = p.schumacker;
  scheda.codiceFiscaleEstero = p.identificazioneEstera;
  if (ente == 1) scheda.codiceEnpam = cifre(id, 8);
  if (ente == 2) scheda.codiceEnpapi = unito({"A", cifre(id % 1000, 3)});
  if (p.persona() && caso.percento(1)) {
    scheda.idCategoriaParticolare = static_cast<std::int32_t>(caso.tra(1, 29));
  }
  if (caso.percento(1)) scheda.idEventoEccezionale = 1;
  scheda.idEnte = ente;
  schede::Percipienti::aggiungi(scrittura_, std::move(scheda));
}

Inserimento& Generatore::chiaveConto(Inserimento& inserimento, const Conto& conto) {
  return inserimento.intero(conto.idAnagrafica).intero(conto.idCausale).intero(conto.anno).intero(azienda_);
}

void Generatore::conto(const Conto& conto, const PercipienteInventato& p, Casuale& caso) {
  ImportiConto totale;
  const std::int64_t quanti = caso.percento(70) ? 1 : caso.tra(2, 3);
  for (std::int64_t i = 0; i < quanti; ++i) {
    const ImportiConto importi = inventaCompenso(conto.causale, p.residente(), caso);
    totale.aggiungi(importi);
    const int mese = static_cast<int>(caso.tra(1, 12));
    const Date giorno = *Date::fromYmd(conto.anno, mese, static_cast<int>(caso.tra(1, 28)));
    schede::SchedaCompenso compenso;
    compenso.idAzienda = azienda_;
    compenso.idAnagrafica = conto.idAnagrafica;
    compenso.idCausale = conto.idCausale;
    compenso.pagamento = giorno;
    compenso.numero = unito({fromInteger(caso.tra(1, 400)), "/", fromInteger(conto.anno)});
    compenso.documento = Date::fromSerial(giorno.serial() - static_cast<std::int32_t>(caso.tra(0, 30)));
    const auto tutti = importi.tutti();
    for (std::size_t k = 0; k < tutti.size(); ++k) compenso.importi[k] = centesimi(tutti[k]);
    schede::Compensi::aggiungi(scrittura_, std::move(compenso));
  }
  chiaveConto(conto_, conto);
  for (std::int64_t importo : totale.tutti()) conto_.importo(centesimi(importo));
  conto_.riga();
  datiAggiuntivi(conto, caso);
  if (caso.percento(4)) moduli(conto, caso);
}

void Generatore::datiAggiuntivi(const Conto& conto, Casuale& caso) {
  const std::uint32_t tiro = caso.sotto(100);
  if (conto.causale == "N") {
    const std::int32_t comune = inventore_.comune(caso).id;
    chiaveConto(addizionali_, conto).flag(false).importo(centesimi(caso.tra(50, 9000)));
    addizionali_.importo(centesimi(caso.tra(10, 3000))).intero(comune).intero(comune).riga();
  } else if (tiro < 15) {
    chiaveConto(residenza_, conto).flag(tiro < 3).importo(centesimi(tiro < 2 ? caso.tra(100, 50000) : 0));
    residenza_.intero(inventore_.comune(caso).id).intero(inventore_.comune(caso).id).riga();
  } else if (tiro < 20) {
    chiaveConto(riferimenti_, conto).flag(false);
    riferimenti_.testo(unito({cifre(conto.anno % 100 + 1, 2), "030712", cifre(caso.tra(0, 999999999), 9)}));
    riferimenti_.testo(cifre(caso.tra(1, 999999), 6)).riga();
  } else if (tiro < 25) {
    const std::int64_t dovuti = caso.tra(1000, 400000);
    chiaveConto(previdenza_, conto).flag(false).flag(tiro == 20);
    previdenza_.importo(centesimi(tiro == 20 ? caso.tra(-20000, 20000) : 0));
    previdenza_.importo(centesimi(dovuti)).importo(centesimi(dovuti)).riga();
  } else if (tiro == 25) {
    const std::int64_t somma = caso.tra(5000, 300000);
    std::string debitore = unito({cifre(caso.tra(1, kMassimo), 7), "023"});
    debitore += cifraDiControllo(debitore);
    chiaveConto(pignoramento_, conto).flag(false).testo(debitore).importo(centesimi(somma));
    pignoramento_.importo(centesimi(somma / 5)).riga();
  }
}

void Generatore::moduli(const Conto& conto, Casuale& caso) {
  const std::int64_t quanti = caso.percento(70) ? 1 : caso.tra(2, 3);
  for (std::int64_t i = 0; i < quanti; ++i) {
    modulo_.intero(++numeroModuli_).intero(conto.idAnagrafica).intero(azienda_).intero(conto.idCausale);
    modulo_.intero(conto.anno).intero(i + 2);
    if (caso.percento(50)) {
      modulo_.intero(caso.tra(1, 2)).nullo().importo(centesimi(caso.tra(100, 90000))).importo({}).importo({});
    } else {
      const std::int64_t imponibile = caso.tra(10000, 900000);
      modulo_.nullo().intero(conto.anno - 1).importo({}).importo(centesimi(imponibile));
      modulo_.importo(centesimi(imponibile / 5));
    }
    modulo_.flag(caso.percento(10)).riga();
  }
}

void Generatore::chiudi() {
  scrittura_.chiudi();
  for (Inserimento* inserimento :
       {&conto_, &residenza_, &riferimenti_, &addizionali_, &previdenza_, &pignoramento_, &modulo_}) {
    inserimento->chiudi();
  }
}

}  // namespace

void controlla(const OpzioniGeneratore& opzioni) {
  if (opzioni.percipienti < 1 || opzioni.percipienti > kMassimo) {
    throw std::invalid_argument("numero di percipienti fuori dai limiti");
  }
  if (opzioni.aziende < 1 || opzioni.aziende > kMassimoAziende ||
      opzioni.percipienti > kMassimo / opzioni.aziende) {
    throw std::invalid_argument("numero di aziende fuori dai limiti");
  }
  if (opzioni.primoAnno < 1902 || opzioni.ultimoAnno > 9990 || opzioni.primoAnno > opzioni.ultimoAnno) {
    throw std::invalid_argument("anni fuori dai limiti");
  }
}

void generaAzienda(Connection& connessione, const OpzioniGeneratore& opzioni) {
  controlla(opzioni);
  Generatore generatore(connessione, opzioni);
  for (std::int32_t azienda = 1; azienda <= opzioni.aziende; ++azienda) {
    generatore.azienda(azienda);
    for (std::int32_t numero = 1; numero <= opzioni.percipienti; ++numero) generatore.percipiente(numero);
  }
  generatore.chiudi();
}

}  // namespace cu
