#include "apps/importazione/documenti_mostrati.h"

#include <algorithm>
#include <array>

#include "apps/importazione/parole_finestra.h"
#include "apps/importazione/riepiloghi.h"
#include "base/text.h"
#include "intake/conti_toccati.h"
#include "intake/data_cella.h"
#include "intake/lettura_fatture.h"

namespace cu {
namespace {

using intake::Codice;
using intake::Messaggio;
using intake::Piano;
using intake::RigaPiano;
using intake::StatoRiga;
using Stato = DocumentoMostrato::Stato;
using Origine = PagamentoMostrato::Origine;

struct ParolaTipo {
  std::string_view tipo;
  std::string_view parola;
};
constexpr auto kTipi = std::to_array<ParolaTipo>({{"TD01", "fattura"},
                                                  {"TD02", "acconto su fattura"},
                                                  {"TD03", "acconto su parcella"},
                                                  {"TD04", "nota di credito"},
                                                  {"TD05", "nota di debito"},
                                                  {"TD06", "parcella"},
                                                  {"TD07", "fattura semplificata"},
                                                  {"TD08", "nota di credito semplificata"},
                                                  {"TD09", "nota di debito semplificata"},
                                                  {"TD16", "integrazione"},
                                                  {"TD17", "integrazione"},
                                                  {"TD18", "integrazione"},
                                                  {"TD19", "integrazione"},
                                                  {"TD20", "autofattura"},
                                                  {"TD21", "autofattura"},
                                                  {"TD22", "estrazione da deposito"},
                                                  {"TD23", "estrazione da deposito"},
                                                  {"TD24", "fattura differita"},
                                                  {"TD25", "fattura differita"},
                                                  {"TD26", "cessione di beni"},
                                                  {"TD27", "autofattura"},
                                                  {"TD28", "acquisto da San Marino"}});

std::string parolaDelTipo(const std::string& tipo) {
  const auto sua =
      std::find_if(kTipi.begin(), kTipi.end(), [&](const ParolaTipo& una) { return una.tipo == tipo; });
  return sua == kTipi.end() ? tipo : std::string(sua->parola);
}

const intake::FattureLette* fattureDi(const Piano& piano, const RigaPiano& riga) {
  return (*piano.letture)[riga.posizione.file].fatture.get();
}

const intake::RigaFattura* accantoA(const Piano& piano, const RigaPiano& riga) {
  const intake::FattureLette* const lette = fattureDi(piano, riga);
  return lette == nullptr ? nullptr : &lette->righe[riga.posizione.riga];
}

const intake::Decisione& presaPer(const Piano& piano, const RigaPiano& riga) {
  static const intake::Decisione kNiente;
  const auto presa = piano.richiesta.decisioni.find(riga.posizione);
  return presa == piano.richiesta.decisioni.end() ? kNiente : presa->second;
}

std::string unitoDa(const std::vector<Messaggio>& messaggi) {
  std::string testo;
  for (const Messaggio& uno : messaggi) {
    if (!testo.empty()) testo += "; ";
    testo += testoMostrato(uno) + " (" + std::string(intake::voce(uno.codice).sigla) + ")";
  }
  return testo;
}

Decimal lordoDi(const schede::Importi& importi) { return lordo(importi); }
Decimal lordoDi(const fatture::ImportiFattura& importi) {
  return importi.onorario + importi.sommeNonSoggette;
}

void mettiImporti(DocumentoMostrato& mostrato, const schede::Importi& importi) {
  const auto di = [&](schede::Importo quale) { return importi[schede::posto(quale)]; };
  mostrato.lordo = lordo(importi);
  mostrato.imponibile = di(schede::Importo::Onorario) - di(schede::Importo::QuotaNonSoggetta);
  mostrato.ritenute = ritenute(importi);
}

void mettiImporti(DocumentoMostrato& mostrato, const fatture::ImportiFattura& importi) {
  mostrato.lordo = lordoDi(importi);
  mostrato.imponibile = importi.onorario - importi.quotaNonSoggetta;
  mostrato.ritenute = importi.ritenutaAcconto + importi.ritenutaImposta;
}

// What the plan has planned of it, what was chosen of its proposals, or the only one.
template <class F>
void conImporti(const Piano& piano, const RigaPiano& riga, const intake::RigaFattura& accanto, F&& fa) {
  const intake::Decisione& presa = presaPer(piano, riga);
  if (riga.voce != intake::kSenzaVoce) return fa(piano.compensi[riga.voce].dopo.importi);
  if (presa.importi) return fa(*presa.importi);
  const std::size_t quale = presa.proposta.value_or(0);
  const bool certi = accanto.decisa || presa.proposta;
  if (certi && quale < accanto.proposte.size()) fa(accanto.proposte[quale].importi);
}

std::string causaleScritta(const Piano& piano, const RigaPiano& riga) {
  const std::string_view nome = intake::colonna(intake::ColonnaCompenso::Causale).nome;
  for (const auto& [colonna, valore] : intake::valori(piano, riga)) {
    if (colonna == nome) return valore;
  }
  return {};
}

// As the plan takes it, which has no payment as long as a date is missing.
std::string causaleDi(const Piano& piano, const RigaPiano& riga) {
  std::string delDocumento = causaleScritta(piano, riga);
  const intake::DocumentoLetto* const documento = documentoDellaRiga(piano, riga);
  if (riga.voce != intake::kSenzaVoce || documento == nullptr) return delDocumento;
  if (const std::string& scelta = presaPer(piano, riga).causale; !scelta.empty()) return scelta;
  const intake::OpzioniFatture& opzioni = piano.richiesta.fatture;
  for (const std::string* chi : {&documento->cedente.codiceFiscale, &documento->cedente.partitaIva}) {
    for (const auto& [codice, causale] : opzioni.causaliPercipienti) {
      if (!chi->empty() && equalsNoCase(codice, *chi)) return causale;
    }
  }
  if (documento->forfettario && !opzioni.causaleForfettari.empty()) return opzioni.causaleForfettari;
  const auto altra = opzioni.causali.find(delDocumento);
  return altra == opzioni.causali.end() ? delDocumento : altra->second;
}

bool mancaLaCausale(const RigaPiano& riga) {
  const std::string_view nome = intake::colonna(intake::ColonnaCompenso::Causale).nome;
  return std::any_of(riga.messaggi.begin(), riga.messaggi.end(), [&](const Messaggio& uno) {
    return uno.gravita == intake::Gravita::DaDecidere && uno.codice == Codice::R02 && uno.colonna == nome;
  });
}

Stato statoDi(const Piano& piano, const RigaPiano& riga, const intake::RigaFattura& accanto) {
  const intake::Decisione& presa = presaPer(piano, riga);
  if (riga.stato == StatoRiga::Escluso) return Stato::Escluso;
  if (riga.stato == StatoRiga::Errore) return Stato::Errore;
  if (riga.stato == StatoRiga::Uguale) return Stato::Letto;
  if (!accanto.decisa && !presa.proposta && !presa.importi) return Stato::DaScegliere;
  return mancaLaCausale(riga) ? Stato::SenzaCausale : Stato::Letto;
}

DocumentoMostrato mostra(const Piano& piano, std::size_t quale) {
  const RigaPiano& riga = piano.righe[quale];
  const intake::Lettura& lettura = (*piano.letture)[riga.posizione.file];
  const intake::RigaFattura& accanto = *accantoA(piano, riga);
  DocumentoMostrato mostrato;
  mostrato.riga = quale;
  mostrato.file = lettura.file;
  if (const intake::DocumentoLetto* const documento = documentoDellaRiga(piano, riga)) {
    if (lettura.fatture->documenti.size() > 1)
      mostrato.file += ", documento " + std::to_string(documento->numero);
    mostrato.cedente = documento->cedente.nominativo();
    mostrato.codice = chiaveCedente(piano, riga);
    mostrato.tipo = parolaDelTipo(documento->tipo);
    mostrato.numero = documento->fattura;
    mostrato.data = documento->data;
  }
  mostrato.stato = statoDi(piano, riga, accanto);
  mostrato.causale = causaleDi(piano, riga);
  // An error of a date or of a payee leaves the amounts as they were read.
  if (mostrato.stato != Stato::Escluso && mostrato.stato != Stato::DaScegliere)
    conImporti(piano, riga, accanto, [&](const auto& importi) { mettiImporti(mostrato, importi); });
  mostrato.spiegazioni = riga.spiegazioni;
  if (!accanto.decisa) {
    for (const fatture::Candidato& una : accanto.proposte) mostrato.proposte.push_back(una.spiegazione);
  }
  mostrato.scelta = presaPer(piano, riga).proposta;
  mostrato.messaggi = unitoDa(riga.messaggi);
  const std::string& perche = riga.esclusa.empty() ? piano.letta(riga).esclusa : riga.esclusa;
  if (!perche.empty())
    mostrato.messaggi = perche + (mostrato.messaggi.empty() ? "" : "; ") + mostrato.messaggi;
  return mostrato;
}

// A flat-rate payee of these years, or a payment outside the year that is imported.
bool esclusaPerLaData(const Piano& piano, const RigaPiano& riga) {
  const bool delPiano = !riga.esclusa.empty() && piano.letta(riga).esclusa.empty();
  return (delPiano && !presaPer(piano, riga).esclusa) || haCodice(riga, Codice::R05);
}

bool conPagamento(const Piano& piano, const RigaPiano& riga, bool datato) {
  if (riga.stato == StatoRiga::Escluso) return esclusaPerLaData(piano, riga);
  return riga.stato != StatoRiga::Errore || datato;
}

}  // namespace

const intake::DocumentoLetto* documentoDellaRiga(const Piano& piano, const RigaPiano& riga) {
  const intake::RigaFattura* const accanto = accantoA(piano, riga);
  if (accanto == nullptr) return nullptr;
  const auto& documenti = fattureDi(piano, riga)->documenti;
  return accanto->documento < documenti.size() ? &documenti[accanto->documento] : nullptr;
}

std::optional<Decimal> lordoDelDocumento(const Piano& piano, const RigaPiano& riga) {
  std::optional<Decimal> suo;
  if (const intake::RigaFattura* const accanto = accantoA(piano, riga))
    conImporti(piano, riga, *accanto, [&](const auto& importi) { suo = lordoDi(importi); });
  return suo;
}

std::string testoMostrato(const Messaggio& messaggio) {
  std::string testo = perLaFinestra(messaggio.testo);
  const bool scelta = messaggio.codice == Codice::R02 && messaggio.gravita == intake::Gravita::Informazione;
  if (const std::size_t proposte = testo.find("; possibile: "); scelta && proposte != std::string::npos)
    testo.resize(proposte);
  return testo;
}

std::string chiaveCedente(const Piano& piano, const RigaPiano& riga) {
  const intake::DocumentoLetto* const documento = documentoDellaRiga(piano, riga);
  if (documento == nullptr) return {};
  const fatture::Soggetto& chi = documento->cedente;
  return chi.codiceFiscale.empty() ? chi.partitaIva : chi.codiceFiscale;
}

std::vector<DocumentoMostrato> documentiMostrati(const Piano& piano) {
  std::vector<DocumentoMostrato> mostrati;
  for (const intake::Lettura& lettura : *piano.letture) {
    if (!lettura.righe.empty() || lettura.messaggi.empty()) continue;
    const bool errore =
        std::any_of(lettura.messaggi.begin(), lettura.messaggi.end(),
                    [](const Messaggio& uno) { return uno.gravita == intake::Gravita::Errore; });
    DocumentoMostrato& uno = mostrati.emplace_back();
    uno.stato = errore ? Stato::Errore : Stato::Escluso;
    uno.file = lettura.file;
    uno.messaggi = unitoDa(lettura.messaggi);
  }
  for (std::size_t i = 0; i < piano.righe.size(); ++i) {
    if (fattureDi(piano, piano.righe[i]) != nullptr) mostrati.push_back(mostra(piano, i));
  }
  return mostrati;
}

std::string detto(Stato stato) {
  switch (stato) {
    case Stato::DaScegliere:
      return "? da scegliere";
    case Stato::SenzaCausale:
      return "? manca la causale";
    case Stato::Errore:
      return "✖ errore";
    case Stato::Letto:
      return "✓ letto";
    case Stato::Escluso:
      break;
  }
  return "− escluso";
}

std::vector<PagamentoMostrato> pagamentiMostrati(const Piano& piano) {
  std::vector<PagamentoMostrato> mostrati;
  if (piano.elenco != intake::Elenco::Compensi) return mostrati;
  mostrati.reserve(piano.righe.size());
  for (const RigaPiano& riga : piano.righe) {
    PagamentoMostrato& suo = mostrati.emplace_back();
    const intake::OpzioniFatture& opzioni = piano.richiesta.fatture;
    const intake::DocumentoLetto* const documento = documentoDellaRiga(piano, riga);
    const intake::Decisione& presa = presaPer(piano, riga);
    if (presa.pagamento) {
      suo.giorno = *presa.pagamento;
      suo.origine = Origine::Data;
    } else if (riga.voce != intake::kSenzaVoce) {
      suo.giorno = piano.compensi[riga.voce].dopo.pagamento;
      const bool proposta = opzioni.fonte == intake::FontePagamento::Documento;
      suo.origine = proposta ? Origine::Proposta : Origine::Data;
    } else if (opzioni.fonte == intake::FontePagamento::Giorno) {
      suo.giorno = opzioni.giorno;
      suo.origine = Origine::Data;
    } else if (opzioni.fonte == intake::FontePagamento::Documento && documento != nullptr) {
      suo.giorno = documento->data;
      suo.origine = Origine::Proposta;
    }
    if (suo.giorno == Date())
      suo.origine = riga.stato == StatoRiga::Escluso ? Origine::Nessuna : Origine::Manca;
    suo.scrivibile = conPagamento(piano, riga, suo.giorno != Date());
    if (!suo.scrivibile) continue;
    constexpr int kDicembre = 12;
    suo.indietro = suo.giorno != Date() && suo.giorno.month() == kDicembre;
    suo.avanti = suo.giorno != Date() && suo.giorno.month() == 1;
  }
  return mostrati;
}

std::vector<SommaAnno> sommePerAnno(const Piano& piano) {
  if (piano.elenco != intake::Elenco::Compensi) return {};
  const std::vector<PagamentoMostrato> pagamenti = pagamentiMostrati(piano);
  std::map<int, SommaAnno> somme;
  for (std::size_t i = 0; i < piano.righe.size(); ++i) {
    const RigaPiano& riga = piano.righe[i];
    if (!intake::scritta(piano, riga)) continue;
    const schede::SchedaCompenso& compenso = piano.compensi[riga.voce].dopo;
    SommaAnno& sua = somme[compenso.pagamento.year()];
    sua.anno = compenso.pagamento.year();
    ++sua.pagamenti;
    if (pagamenti[i].origine == Origine::Proposta) ++sua.proposti;
    if (pagamenti[i].avanti || pagamenti[i].indietro) ++sua.alConfine;
    sua.lordo = sua.lordo + lordo(compenso.importi);
    sua.ritenute = sua.ritenute + ritenute(compenso.importi);
  }
  std::vector<SommaAnno> ordinate;
  ordinate.reserve(somme.size());
  for (const auto& [anno, sua] : somme) ordinate.push_back(sua);
  return ordinate;
}

std::optional<Date> giornoScritto(std::string_view testo, int ultimoAnno) {
  const intake::DataScritta scritta = intake::leggiScritta(testo, tabelle::Genere::Testo, false, ultimoAnno);
  return intake::risolta(scritta, intake::OrdineData::GiornoMeseAnno, ultimoAnno);
}

}  // namespace cu
