#include "fornitura/corsa.h"

#include <utility>

#include "base/text.h"
#include "data/recordset.h"
#include "fornitura/carico.h"
#include "host/testi_programma.h"
#include "telematic/intermediario.h"
#include "worklist/elenchi.h"

namespace cu::fornitura {
namespace {

bool esisteAnno(const Intorno& intorno, const std::string& anno) {
  Recordset anni;
  anni.Open(intorno.ambito.database->ownConnection(), fnOrigineAnni(intorno.ambito.idAzienda, false));
  for (; !anni.Eof(); anni.MoveNext()) {
    if (anni.Get("Anno").toText() == anno) return true;
  }
  return false;
}

Finding annoSenzaConti(const std::string& anno, const char* elenco) {
  return {"anno-senza-conti", "Nessun conto individuale per l'anno " + anno + ".", elenco};
}

// A range limit as resolved by the selector of the first step: the row's values, or the code as given without
// a row.
LookupRow estremo(const Intorno& intorno, const LookupTable& tabella,
                  const std::optional<std::string>& codice) {
  if (!codice) return {};
  const auto riga = findCode(intorno.ambito.database->ownConnection(), tabella, *codice);
  return riga.value_or(LookupRow{0, *codice, ""});
}

Filtri filtriDi(const Intorno& intorno, const Estremi& estremi) {
  Filtri filtri;
  filtri.perCodice = true;
  filtri.perNome = false;
  const auto percipiente = [&](const std::optional<std::string>& codice) {
    LookupRow riga = estremo(intorno, elencoPercipienti(intorno.ambito.idAzienda), codice);
    // The form shows the first name next to the box as soon as the limit changes.
    const bool cambiato = riga.record != 0 || !riga.code.empty() || !riga.description.empty();
    if (cambiato) static_cast<void>(FindName(intorno, riga.record));
    return riga;
  };
  const LookupRow da = percipiente(estremi.daPercipiente);
  const LookupRow a = percipiente(estremi.aPercipiente);
  filtri.codiceDa = da.code;
  filtri.descrizioneDa = da.description;
  filtri.codiceA = a.code;
  filtri.descrizioneA = a.description;
  filtri.causaleDa = estremo(intorno, elencoCausali(), estremi.daCausale).code;
  filtri.causaleA = estremo(intorno, elencoCausali(), estremi.aCausale).code;
  return filtri;
}

class CorsaCU {
 public:
  CorsaCU(const Intorno& intorno, Compensi& compensi, const RichiestaCU& richiesta)
      : intorno_(intorno), compensi_(compensi), richiesta_(richiesta) {}

  Result<EsitoCU> esegui() {
    if (primoPasso() && secondoPasso() && ultimoPasso()) avvia();
    return std::move(esito_);
  }

 private:
  template <class T>
  bool riuscito(const Result<T>& passo) {
    esito_.refusals.insert(esito_.refusals.end(), passo.refusals.begin(), passo.refusals.end());
    return static_cast<bool>(passo);
  }

  bool primoPasso() {
    if (!esisteAnno(intorno_, richiesta_.anno)) {
      esito_.refusals.push_back(annoSenzaConti(richiesta_.anno, "KRNCboEsCont(0)"));
      return false;
    }
    filtri_ = filtriDi(intorno_, richiesta_.estremi);
    filtri_.anno = richiesta_.anno;
    filtri_.adAnno = richiesta_.anno;
    return riuscito(controllaFiltri(ModoCorsa::CU, filtri_)) &&
           riuscito(carica(intorno_, compensi_, filtri_));
  }

  bool secondoPasso() {
    if (richiesta_.riferimenti) {
      if (!riuscito(controllaRiferimenti(*richiesta_.riferimenti))) return false;
      if (!riuscito(correggiRiferimenti(compensi_, *richiesta_.riferimenti))) return false;
    }
    if (!riuscito(controllaSelezione(compensi_, richiesta_.tipo))) return false;
    static_cast<void>(fnFilialePredefinita(intorno_, fnModoCU()));
    return true;
  }

  bool ultimoPasso() {
    if (richiesta_.cartellaScelta) richiesta_.cartellaScelta(richiesta_.cartella);
    firma_ = richiesta_.firma.value_or(intorno_.clock.today());
    if (!richiesta_.intermediario) return true;
    const RichiestaCU::Intermediario& dato = *richiesta_.intermediario;
    const auto salvato = fnLeggiIntermediario(intorno_.ambito.database->internalConnection(),
                                              intorno_.ambito.idAzienda, intorno_.utilita);
    if (salvato) intermediario_ = *salvato;
    if (!riuscito(controllaCodiceIntermediario(dato.codiceFiscale))) return false;
    intermediario_.codiceFiscale = dato.codiceFiscale;
    if (dato.impegno) intermediario_.indiceImpegno = *dato.impegno - 1;
    impegno_ = dato.data ? dato.data : Date::parseItalian(trim(intermediario_.dataImpegno));
    intermediario_.dataImpegno = impegno_ ? impegno_->toItalian() : std::string();
    return true;
  }

  void avvia() {
    if (!riuscito(memorizza(compensi_))) return;
    if (richiesta_.intermediario) {
      sbScriviIntermediario(intorno_.ambito.database->internalConnection(), intorno_.ambito.idAzienda,
                            intermediario_, intorno_.utilita);
    }
    const auto controllo = controlla(intorno_,
                                     {.dataFirma = firma_.toItalian(),
                                      .usoIntermediari = richiesta_.intermediario.has_value(),
                                      .codiceFiscaleIntermediario = intermediario_.codiceFiscale,
                                      .dataImpegno = intermediario_.dataImpegno,
                                      .tipo = richiesta_.tipo},
                                     compensi_.tabella());
    esito_->mancanti = controllo->mancanti;
    if (!riuscito(controllo) || !confermati(controllo.warnings) || !dateConfermate()) return;
    const auto file = scrivi(intorno_, compensi_, richiestaFile(controllo->sCodFisc));
    if (!riuscito(file)) return;
    esito_->file = *file;
    if (!riuscito(stampaModuli(intorno_, compensi_, richiestaModuli(controllo->sCodFisc)))) return;
    static_cast<void>(riuscito(carica(intorno_, compensi_, filtri_)));
  }

  bool dateConfermate() {
    const auto date =
        controllaDate({firma_, richiesta_.intermediario ? impegno_ : std::nullopt}, intorno_.clock.today());
    return confermati(date.warnings);
  }

  bool confermati(const std::vector<Finding>& avvisi) {
    for (const Finding& avviso : avvisi) {
      esito_.warnings.push_back(avviso);
      if (richiesta_.prosegue && richiesta_.prosegue(avviso)) continue;
      esito_.refusals.push_back({avviso.code, "", avviso.place});
      return false;
    }
    return true;
  }

  RichiestaFile richiestaFile(const std::string& sCodFisc) const {
    const bool inElenco = intermediario_.indiceImpegno >= 0 &&
                          intermediario_.indiceImpegno < static_cast<std::int64_t>(kImpegni.size());
    return {.anno = richiesta_.anno,
            .cartella = richiesta_.cartella,
            .cartellaDocumenti = richiesta_.cartellaDocumenti,
            .firma = firma_,
            .dati = {.UsoIntermediari = richiesta_.intermediario.has_value(),
                     .CodiceFiscaleAzienda = sCodFisc,
                     .CodiceFiscaleIntermediario = intermediario_.codiceFiscale,
                     .TipoComIntermediario = fromInteger(inElenco ? intermediario_.indiceImpegno + 1 : 0),
                     .DataImpegnoIntermediario = impegno_.value_or(Date()),
                     .TipoComunicazione = richiesta_.tipo}};
  }

  RichiestaModuli richiestaModuli(const std::string& sCodFisc) const {
    const Ambito& ambito = intorno_.ambito;
    return {.stampa = {.dati = {.modo = ModoCorsa::CU,
                                .report = richiesta_.modulo.name,
                                .filtri = filtri_,
                                .idAzienda = ambito.idAzienda,
                                .idUtente = ambito.idUtente},
                       .tipoOggetto = fnModoCU(),
                       .definizione = richiesta_.modulo.definition,
                       .uscita = Uscita::File,
                       .percorso = {},
                       .guasto = richiesta_.guasto},
            .sCodFisc = sCodFisc,
            .cartella = richiesta_.cartella,
            .tipo = richiesta_.tipo,
            .intermediari = richiesta_.intermediario.has_value(),
            .dataFirma = firma_.toItalian(),
            .cumulativa = richiesta_.stampaCumulativa};
  }

  const Intorno& intorno_;
  Compensi& compensi_;
  const RichiestaCU& richiesta_;
  Result<EsitoCU> esito_{EsitoCU{}};
  Filtri filtri_;
  Date firma_;
  Intermediario intermediario_;
  std::optional<Date> impegno_;
};

}  // namespace

Result<EsitoCU> creaCU(const Intorno& intorno, Compensi& compensi, const RichiestaCU& richiesta) {
  return CorsaCU(intorno, compensi, richiesta).esegui();
}

Result<> stampaReport(const Intorno& intorno, const RichiestaReport& richiesta) {
  for (const auto& [anno, elenco] :
       {std::pair{&richiesta.anno, "KRNCboEsCont(0)"}, std::pair{&richiesta.adAnno, "KRNCboEsCont(1)"}}) {
    if (*anno && !esisteAnno(intorno, **anno)) return Result<>::refused(annoSenzaConti(**anno, elenco));
  }
  Filtri filtri = filtriDi(intorno, richiesta.estremi);
  filtri.anno = richiesta.anno.value_or("");
  filtri.adAnno = richiesta.adAnno.value_or("");
  Result<> esito = controllaFiltri(richiesta.modo, filtri);
  if (!esito) return esito;
  static_cast<void>(fnFilialePredefinita(intorno, richiesta.tipoOggetto));
  const RichiestaStampa una{.dati = {.modo = richiesta.modo,
                                     .report = richiesta.report.name,
                                     .filtri = filtri,
                                     .idAzienda = intorno.ambito.idAzienda,
                                     .idUtente = intorno.ambito.idUtente},
                            .tipoOggetto = richiesta.tipoOggetto,
                            .definizione = richiesta.report.definition,
                            .uscita = Uscita::Pdf,
                            .percorso = {},
                            .guasto = richiesta.guasto};
  esito = controllaStampa(intorno, una.dati, richiesta.guasto);
  return esito ? stampa(intorno, una) : esito;
}

}  // namespace cu::fornitura
