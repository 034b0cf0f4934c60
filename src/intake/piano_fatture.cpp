#include "intake/piano_fatture.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "intake/controlli_riga.h"
#include "intake/parti_documento.h"
#include "schede/importi.h"

namespace cu::intake {
namespace {

constexpr int kUltimoAnnoForfettari = 2023;

}  // namespace

std::vector<schede::Importi> importiProposti(const RigaFattura& riga) {
  std::vector<schede::Importi> tutti;
  tutti.reserve(riga.proposte.size());
  for (const fatture::Candidato& una : riga.proposte) tutti.push_back(importiDi(una.importi));
  return tutti;
}

void dataDaDecidere(RigaInCorso& corso, const std::string& perche) {
  corso.segnala(Codice::R12, ColonnaCompenso::DataPagamento, perche);
  corso.riga().messaggi.back().gravita = Gravita::DaDecidere;
}

// A row's document and what the payee is known by.
struct PianoFatture::Documento {
  const DocumentoLetto& letto;
  const RigaFattura& accanto;
  const RigaLetta& cedente;
  Chiavi chiavi;
  const schede::SchedaPercipiente* percipiente = nullptr;
};

PianoFatture::PianoFatture(Piano& piano, const ArchivioLetto& archivio, const Soggetti& soggetti,
                           const IdentitaFatture& identita)
    : piano_(piano),
      archivio_(archivio),
      soggetti_(soggetti),
      identita_(identita),
      nuovi_(piano, archivio, soggetti),
      date_(piano.richiesta.fatture.date),
      omonimi_(date_) {
  for (const auto& [chi, causale] : piano.richiesta.fatture.causaliPercipienti)
    causali_.emplace(lowerAscii(trim(chi)), causale);
  if (piano.richiesta.fatture.fonte != FontePagamento::Tavola) return;
  for (const Lettura& lettura : *piano.letture) {
    if (!lettura.fatture) continue;
    const FattureLette& lette = *lettura.fatture;
    for (std::size_t i = 0; i < lettura.righe.size() && !lette.documenti.empty(); ++i) {
      if (!lettura.righe[i].esclusa.empty()) continue;
      const std::size_t quale = lette.righe[i].documento;
      const Chiavi chi = chiaviDelCedente(lette.percipienti.righe[quale]);
      omonimi_.aggiungi({{}, chi.codiceFiscale, chi.partitaIva, chi.codiceEstero},
                        lette.documenti[quale].fattura, lette.documenti[quale].data);
    }
  }
}

std::optional<FatturaPronta> PianoFatture::prepara(RigaInCorso& corso) {
  const FattureLette& lette = *corso.lettura().fatture;
  const std::size_t quale = corso.riga().posizione.riga;
  const RigaFattura& accanto = lette.righe[quale];
  Documento sua{lette.documenti[accanto.documento], accanto, lette.percipienti.righe[accanto.documento],
                nuovi_.chiavi(lette.percipienti.righe[accanto.documento])};
  if (!dellAzienda(corso, sua.letto) || corso.riga().stato == StatoRiga::Errore) return std::nullopt;
  FatturaPronta pronta;
  pronta.letta = corso.letta();
  const auto altra = [&](std::size_t riga) {
    return riga < lette.righe.size() && lette.righe[riga].documento == accanto.documento;
  };
  pronta.sola = !altra(quale + 1) && (quale == 0 || !altra(quale - 1));
  const bool importi = scegliProposta(corso, sua, pronta);
  const schede::SchedaPercipiente* trovato = nullptr;
  const bool chiaro = trova(corso, sua, trovato);
  sua.percipiente = trovato;
  data(corso, sua, pronta);
  const bool datata = pronta.letta.ha(ColonnaCompenso::DataPagamento);
  if (datata) {
    const Date pagamento = pronta.noto.value_or(pronta.letta.valore(ColonnaCompenso::DataPagamento).date());
    if (fuoriAnno(corso, sua, pagamento) || !dataPossibile(corso, sua, pagamento)) return std::nullopt;
  }
  causale(corso, sua, pronta);
  bool possibile = chiaro && importi && datata && pronta.letta.ha(ColonnaCompenso::Causale);
  if (chiaro && trovato == nullptr) possibile = nuovi_.proponi(corso) && possibile;
  if (!possibile) {
    corso.riga().stato = corso.stato(StatoRiga::DaDecidere);
    return std::nullopt;
  }
  pronta.idAnagrafica = trovato != nullptr ? trovato->anagrafica.id
                                           : -1 - static_cast<std::int32_t>(corso.riga().percipienteNuovo);
  return pronta;
}

void PianoFatture::tralasciata(RigaInCorso& corso) const {
  const FattureLette& lette = *corso.lettura().fatture;
  // A notification has no document.
  if (lette.documenti.empty() || archivio_.aziende.empty()) return;
  const DocumentoLetto& documento = lette.documenti[lette.righe[corso.riga().posizione.riga].documento];
  const bool emessa = eLui(documento.cedente, archivio_.aziende.front().sede);
  const bool conCommittente =
      !documento.committente.codiceFiscale.empty() || !documento.committente.partitaIva.empty();
  // What a person has left out is nobody's error.
  if (emessa || (conCommittente && !corso.decisione().esclusa)) dellAzienda(corso, documento);
}

// A company that buys and sells receives and issues: the ones issued are in the same archive.
bool PianoFatture::dellAzienda(RigaInCorso& corso, const DocumentoLetto& documento) const {
  if (archivio_.aziende.empty()) return true;
  const schede::SchedaAnagrafica& azienda = archivio_.aziende.front().sede;
  if (eLui(documento.cedente, azienda)) {
    corso.riga().messaggi.clear();
    corso.segnala(Codice::F07, "il documento è emesso dall'azienda stessa");
    corso.riga().stato = StatoRiga::Escluso;
    return false;
  }
  if (eLui(documento.committente, azienda)) return true;
  if (piano_.richiesta.fatture.tralasciaAltrui) corso.riga().messaggi.clear();
  corso.segnala(Codice::F06, "il documento è di un altro committente: " + chiE(documento.committente));
  corso.riga().stato = StatoRiga::Errore;
  if (piano_.richiesta.fatture.tralasciaAltrui) {
    corso.riga().messaggi.back().gravita = Gravita::Informazione;
    corso.riga().stato = StatoRiga::Escluso;
  }
  return false;
}

// What was decided takes the place of what was to be decided.
bool PianoFatture::scegliProposta(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta) const {
  using enum ColonnaCompenso;
  const Decisione& presa = corso.decisione();
  const auto& proposte = sua.accanto.proposte;
  const bool scelta = presa.importi || (presa.proposta && *presa.proposta < proposte.size());
  if (scelta) {
    for (Messaggio& uno : corso.riga().messaggi) {
      if (uno.codice == Codice::R02) uno.gravita = Gravita::Informazione;
    }
  }
  if (!scelta && proposte.empty()) {
    // The reading has said why, unless nothing is wrong but that no amounts were found.
    if (corso.stato(StatoRiga::Nuovo) == StatoRiga::Nuovo)
      corso.segnala(Codice::R02, "il documento non dà un compenso");
    return false;
  }
  const std::size_t quale = scelta && presa.proposta && !presa.importi ? *presa.proposta : 0;
  const schede::Importi importi = presa.importi ? *presa.importi : importiDi(proposte[quale].importi);
  mettiImporti(pronta.letta, importi);
  pronta.decisa = sua.accanto.decisa || scelta;
  std::vector<std::string>& detti = corso.riga().spiegazioni;
  if (presa.importi) {
    detti.emplace_back("importi scritti a mano");
    return true;
  }
  if (pronta.decisa) detti.push_back(proposte[quale].spiegazione);
  const Decimal contributo = importi[posto(schede::Importo::ContributoPrevidenziale)];
  if (sua.accanto.contributoDerivato && !contributo.isZero()) {
    corso.derivato(ContributoPrevidenziale);
    detti.push_back("contributo previdenziale " + schede::euro(contributo) +
                    ": tre volte la quota del percipiente, " +
                    schede::euro(importi[posto(schede::Importo::ContributoPercipiente)]));
  }
  if (!sua.accanto.spese.isZero()) {
    detti.push_back("le somme non soggette comprendono spese per " + schede::euro(sua.accanto.spese.abs()) +
                    ": se hanno un altro codice vanno in un modulo aggiuntivo");
  }
  if (!sua.letto.ritenutaAltrui.empty()) {
    detti.push_back("la ritenuta è " + sua.letto.ritenutaAltrui +
                    (sua.letto.ritenutaAltrui == "RT01" ? ", ma il percipiente non è una persona fisica"
                                                        : ", ma il percipiente è una persona fisica"));
  }
  return true;
}

bool PianoFatture::trova(RigaInCorso& corso, const Documento& sua,
                         const schede::SchedaPercipiente*& trovato) const {
  if (corso.decisione().idAnagrafica != 0) trovato = soggetti_.diId(corso.decisione().idAnagrafica);
  return trovato != nullptr || soggetti_.trova(corso, sua.chiavi, trovato);
}

void PianoFatture::data(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta) const {
  using enum ColonnaCompenso;
  const OpzioniFatture& opzioni = piano_.richiesta.fatture;
  std::string manca = "manca la data di pagamento";
  if (corso.decisione().pagamento) {
    if (opzioni.fonte == FontePagamento::Tavola) diceAltraData(corso, sua);
    return mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(*corso.decisione().pagamento));
  }
  const std::optional<Date> noto = nota(corso, sua, pronta);
  switch (opzioni.fonte) {
    case FontePagamento::Giorno:
      return mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(opzioni.giorno));
    case FontePagamento::Documento:
      mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(sua.letto.data), true);
      corso.derivato(DataPagamento);
      corso.segnala(Codice::R12, DataPagamento, "la data di pagamento è proposta: è quella del documento");
      pronta.dataProposta = true;
      pronta.noto = noto;
      return;
    case FontePagamento::Tavola: {
      const DatePagamento::Trovate trovate = nellaTavola(sua);
      manca = mancaNellaTavola(sua, trovate);
      if (manca.empty())
        return mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(trovate.date.front()));
    } break;
    case FontePagamento::Nessuna:
      break;
  }
  if (!noto) return dataDaDecidere(corso, manca);
  pronta.dataProposta = true;
  pronta.noto = noto;
  pronta.manca = std::move(manca);
  mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(*noto), true);
}

// A date that a person has written for a document goes before that of a table, but not unseen.
void PianoFatture::diceAltraData(RigaInCorso& corso, const Documento& sua) const {
  const DatePagamento::Trovate trovate = nellaTavola(sua);
  if (!mancaNellaTavola(sua, trovate).empty()) return;
  const Date altra = trovate.date.front();
  if (altra == *corso.decisione().pagamento) return;
  corso.segnala(Codice::R12, ColonnaCompenso::DataPagamento,
                "vale la data di pagamento scritta a mano, " + corso.decisione().pagamento->toItalian() +
                    "; la tabella delle date ha " + altra.toItalian());
}

// A payment that is there already has its date.
std::optional<Date> PianoFatture::nota(const RigaInCorso& corso, const Documento& sua,
                                       const FatturaPronta& pronta) const {
  using enum ColonnaCompenso;
  if (sua.percipiente == nullptr) return std::nullopt;
  Decimal lordo;
  for (const ColonnaCompenso colonna : {Onorario, SommeNonSoggette}) {
    if (pronta.letta.ha(colonna)) lordo = lordo + pronta.letta.valore(colonna).decimal();
  }
  std::string codice = causaleScelta(corso, sua);
  if (codice.empty()) codice = corso.letta().valore(Causale).text();
  const schede::VoceElenco* const voce = archivio_.elenchi.causali.diCodice(codice);
  return identita_.pagamento(
      {sua.percipiente->anagrafica.id, voce == nullptr ? 0 : voce->id, lordo < Decimal(), pronta.sola},
      sua.letto.fattura, sua.letto.data);
}

DatePagamento::Trovate PianoFatture::nellaTavola(const Documento& sua) const {
  DatePagamento::Trovate trovate =
      date_.trova({{}, sua.chiavi.codiceFiscale, sua.chiavi.partitaIva, sua.chiavi.codiceEstero},
                  sua.letto.fattura, sua.letto.data);
  const schede::SchedaPercipiente* const suo = sua.percipiente;
  if (!trovate.date.empty() || suo == nullptr) return trovate;
  return date_.trova(
      {suo->codice, suo->anagrafica.codiceFiscale, suo->anagrafica.partitaIva, suo->codiceFiscaleEstero},
      sua.letto.fattura, sua.letto.data);
}

// "" where the table has one date that can be no other document's.
std::string PianoFatture::mancaNellaTavola(const Documento& sua,
                                           const DatePagamento::Trovate& trovate) const {
  if (trovate.date.empty()) return "la tabella delle date non ha questo documento";
  std::string manca;
  if (trovate.date.size() > 1) {
    manca = "la tabella delle date ha più pagamenti di questo documento:";
    for (const Date una : trovate.date) manca += ' ' + una.toItalian();
    return manca;
  }
  if (!trovate.senzaData) return manca;
  const std::size_t quanti =
      omonimi_.quanti({{}, sua.chiavi.codiceFiscale, sua.chiavi.partitaIva, sua.chiavi.codiceEstero},
                      sua.letto.fattura, trovate.perPartita);
  if (quanti > 1) {
    manca = "nella tabella delle date la riga senza la data del documento vale per " +
            fromInteger(static_cast<std::int64_t>(quanti)) + " documenti con questo numero";
  }
  return manca;
}

// A payment is made by today; one before its document is unusual, which is said, and one a year before it a
// mistake.
bool PianoFatture::dataPossibile(RigaInCorso& corso, const Documento& sua, Date pagamento) const {
  const Date oggi = piano_.richiesta.oggi;
  if (oggi != Date() && oggi < pagamento) {
    corso.segnala(Codice::V01, ColonnaCompenso::DataPagamento,
                  "la data di pagamento " + pagamento.toItalian() + " è dopo oggi");
    corso.riga().stato = StatoRiga::Errore;
    return false;
  }
  constexpr std::int32_t kGiorniPrima = 366;
  if (sua.letto.data != Date() && pagamento.serial() + kGiorniPrima < sua.letto.data.serial()) {
    corso.segnala(Codice::V01, ColonnaCompenso::DataPagamento,
                  "la data di pagamento " + pagamento.toItalian() +
                      " è più di un anno prima di quella del documento, " + sua.letto.data.toItalian());
    corso.riga().stato = StatoRiga::Errore;
    return false;
  }
  if (sua.letto.data != Date() && pagamento < sua.letto.data) {
    corso.segnala(Codice::R12, ColonnaCompenso::DataPagamento,
                  "la data di pagamento " + pagamento.toItalian() + " è prima di quella del documento, " +
                      sua.letto.data.toItalian());
  }
  return true;
}

// Left out before anything is asked of a person: payments of other years, and those that are not certified.
bool PianoFatture::fuoriAnno(RigaInCorso& corso, const Documento& sua, Date pagamento) const {
  const int anno = pagamento.year();
  RigaPiano& riga = corso.riga();
  if (piano_.richiesta.anno && *piano_.richiesta.anno != anno) {
    corso.segnala(Codice::R05, ColonnaCompenso::DataPagamento,
                  "pagato nel " + fromInteger(anno) + ", non nel " + fromInteger(*piano_.richiesta.anno));
    riga.stato = StatoRiga::Escluso;
    return true;
  }
  if (anno <= kUltimoAnnoForfettari) return false;
  if (!sua.letto.forfettario) {
    const auto conRitenuta = std::find_if(riga.messaggi.begin(), riga.messaggi.end(),
                                          [](const Messaggio& uno) { return uno.codice == Codice::R10; });
    if (conRitenuta != riga.messaggi.end())
      conRitenuta->testo += ": dal 2024 il suo compenso si certifica solo per la ritenuta operata";
    return false;
  }
  riga.esclusa =
      "percipiente in regime " + sua.letto.cedente.regime + ": i compensi pagati dal 2024 non si certificano";
  riga.stato = StatoRiga::Escluso;
  return true;
}

const std::string* PianoFatture::causaleAbituale(const Documento& sua) const {
  std::vector<std::string_view> codici = {sua.chiavi.codiceFiscale, sua.chiavi.partitaIva,
                                          sua.chiavi.codiceEstero};
  if (sua.percipiente != nullptr) {
    for (const std::string* suo : {&sua.percipiente->codice, &sua.percipiente->anagrafica.codiceFiscale,
                                   &sua.percipiente->anagrafica.partitaIva}) {
      codici.push_back(trim(*suo));
    }
  }
  for (const std::string_view codice : codici) {
    const auto suo = codice.empty() ? causali_.end() : causali_.find(lowerAscii(codice));
    if (suo != causali_.end()) return &suo->second;
  }
  const std::string& tutti = piano_.richiesta.fatture.causaleForfettari;
  return sua.letto.forfettario && !tutti.empty() ? &tutti : nullptr;
}

std::string PianoFatture::causaleScelta(const RigaInCorso& corso, const Documento& sua) const {
  const OpzioniFatture& opzioni = piano_.richiesta.fatture;
  if (!corso.decisione().causale.empty()) return corso.decisione().causale;
  const std::string scritta(corso.letta().valore(ColonnaCompenso::Causale).text());
  if (const auto altra = opzioni.causali.find(scritta); altra != opzioni.causali.end()) return altra->second;
  const std::string* const abituale = causaleAbituale(sua);
  return abituale != nullptr && scritta.empty() ? *abituale : std::string();
}

void PianoFatture::causale(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta) {
  using enum ColonnaCompenso;
  const std::string scritta(corso.letta().valore(Causale).text());
  const std::string scelta = causaleScelta(corso, sua);
  const std::string* const abituale = causaleAbituale(sua);
  const std::string& presa = scelta.empty() ? scritta : scelta;
  if (corso.decisione().causale.empty() && abituale != nullptr && *abituale != presa)
    corso.riga().spiegazioni.push_back("causale " + presa + " del documento; nella mappatura " + *abituale);
  if (scelta.empty() || scelta == scritta) {
    if (!scritta.empty()) return;
    // What gives no payment has no reason to be asked for.
    if (sua.letto.forfettario) {
      corso.segnala(Codice::R02, Causale, "manca la causale di un percipiente in regime forfettario");
    } else if (!sua.accanto.proposte.empty()) {
      corso.segnala(Codice::R02, Causale, "il documento non dice la causale");
    }
    return;
  }
  if (scelta != corso.decisione().causale) {
    corso.derivato(Causale);
    corso.riga().spiegazioni.push_back("causale " + scelta + " dalla mappatura" +
                                       (scritta.empty() ? "" : ", nel documento " + scritta));
  }
  mettiCampo(pronta.letta, Causale, CellView::ofText(testi_.conserva(scelta)));
}

}  // namespace cu::intake
