#include "intake/piano_fatture.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "intake/controlli_riga.h"
#include "intake/valori_scheda.h"
#include "schede/importi.h"

namespace cu::intake {
namespace {

constexpr int kUltimoAnnoForfettari = 2023;

void mettiCampo(RigaLetta& riga, ColonnaCompenso colonna, CellView valore, bool derivato = false) {
  const auto rango = static_cast<std::uint8_t>(colonna);
  campoDi(riga, rango) = {rango, StatoCampo::Dato, derivato, valore};
}

schede::Importi importiDaFattura(const fatture::ImportiFattura& importi) {
  using enum schede::Importo;
  schede::Importi suoi{};
  suoi[posto(Onorario)] = importi.onorario;
  suoi[posto(QuotaNonSoggetta)] = importi.quotaNonSoggetta;
  suoi[posto(SommeNonSoggette)] = importi.sommeNonSoggette;
  suoi[posto(RitenutaAcconto)] = importi.ritenutaAcconto;
  suoi[posto(RitenutaImposta)] = importi.ritenutaImposta;
  suoi[posto(ContributoPrevidenziale)] = importi.contributoPrevidenziale;
  suoi[posto(ContributoPercipiente)] = importi.contributoPercipiente;
  return suoi;
}

// The fiscal code decides: members of a VAT group have the number in common.
bool eLui(const fatture::Soggetto& chi, const schede::SchedaAnagrafica& azienda) {
  const auto uno = [](const std::string& codice, const std::string& altro) {
    return !codice.empty() && equalsNoCase(codice, trim(altro));
  };
  if (!chi.codiceFiscale.empty() &&
      (!azienda.codiceFiscale.empty() || !uno(chi.partitaIva, azienda.partitaIva))) {
    return uno(chi.codiceFiscale, azienda.codiceFiscale) || uno(chi.codiceFiscale, azienda.partitaIva);
  }
  return uno(chi.partitaIva, azienda.partitaIva) || uno(chi.partitaIva, azienda.codiceFiscale);
}

std::string chiE(const fatture::Soggetto& chi) {
  const std::string& codice = chi.codiceFiscale.empty() ? chi.partitaIva : chi.codiceFiscale;
  const std::string nome = chi.nominativo();
  return nome.empty() ? codice : nome + (codice.empty() ? "" : ", " + codice);
}

}  // namespace

std::vector<schede::Importi> importiProposti(const RigaFattura& riga) {
  std::vector<schede::Importi> tutti;
  tutti.reserve(riga.proposte.size());
  for (const fatture::Candidato& una : riga.proposte) tutti.push_back(importiDaFattura(una.importi));
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
      date_(piano.richiesta.fatture.date) {
  for (const auto& [chi, causale] : piano.richiesta.fatture.causaliPercipienti)
    causali_.emplace(lowerAscii(trim(chi)), causale);
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
  if (datata && fuoriAnno(corso, sua,
                          pronta.noto.value_or(pronta.letta.valore(ColonnaCompenso::DataPagamento).date()))) {
    return std::nullopt;
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
  const std::size_t documento = lette.righe[corso.riga().posizione.riga].documento;
  if (eLui(lette.documenti[documento].cedente, archivio_.aziende.front().sede))
    dellAzienda(corso, lette.documenti[documento]);
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
  const schede::Importi importi = presa.importi ? *presa.importi : importiDaFattura(proposte[quale].importi);
  for (std::size_t i = 0; i < kColonneImporti.size(); ++i) {
    const auto colonna = static_cast<std::uint8_t>(kColonneImporti[i]);
    std::erase_if(pronta.letta.campi, [&](const Campo& campo) { return campo.colonna == colonna; });
    if (!importi[i].isZero() || kColonneImporti[i] == Onorario)
      mettiCampo(pronta.letta, kColonneImporti[i], CellView::ofDecimal(importi[i]));
  }
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
    detti.push_back("le somme non soggette comprendono spese per " + schede::euro(sua.accanto.spese) +
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
    case FontePagamento::Tavola:
      if (const std::vector<Date> date = nellaTavola(sua); date.size() == 1) {
        return mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(date.front()));
      } else if (date.empty()) {
        manca = "la tavola delle date non ha questo documento";
      } else {
        manca = "la tavola delle date ha più pagamenti di questo documento:";
        for (const Date una : date) manca += ' ' + una.toItalian();
      }
      break;
    case FontePagamento::Nessuna:
      break;
  }
  if (!noto) return dataDaDecidere(corso, manca);
  pronta.dataProposta = true;
  pronta.noto = noto;
  pronta.manca = std::move(manca);
  mettiCampo(pronta.letta, DataPagamento, CellView::ofDate(*noto), true);
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

std::vector<Date> PianoFatture::nellaTavola(const Documento& sua) const {
  const std::vector<Date> date =
      date_.trova({{}, sua.chiavi.codiceFiscale, sua.chiavi.partitaIva, sua.chiavi.codiceEstero},
                  sua.letto.fattura, sua.letto.data);
  const schede::SchedaPercipiente* const suo = sua.percipiente;
  if (!date.empty() || suo == nullptr) return date;
  return date_.trova(
      {suo->codice, suo->anagrafica.codiceFiscale, suo->anagrafica.partitaIva, suo->codiceFiscaleEstero},
      sua.letto.fattura, sua.letto.data);
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
  if (!sua.letto.forfettario || anno <= kUltimoAnnoForfettari) return false;
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
  return nullptr;
}

std::string PianoFatture::causaleScelta(const RigaInCorso& corso, const Documento& sua) const {
  const OpzioniFatture& opzioni = piano_.richiesta.fatture;
  if (!corso.decisione().causale.empty()) return corso.decisione().causale;
  if (const std::string* const abituale = causaleAbituale(sua)) return *abituale;
  if (sua.letto.forfettario && !opzioni.causaleForfettari.empty()) return opzioni.causaleForfettari;
  const auto altra = opzioni.causali.find(std::string(corso.letta().valore(ColonnaCompenso::Causale).text()));
  return altra == opzioni.causali.end() ? std::string() : altra->second;
}

void PianoFatture::causale(RigaInCorso& corso, const Documento& sua, FatturaPronta& pronta) {
  using enum ColonnaCompenso;
  const std::string scritta(corso.letta().valore(Causale).text());
  const std::string scelta = causaleScelta(corso, sua);
  if (scelta.empty() || scelta == scritta) {
    if (!scritta.empty()) return;
    corso.segnala(Codice::R02, Causale, "manca la causale di un percipiente in regime forfettario");
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
