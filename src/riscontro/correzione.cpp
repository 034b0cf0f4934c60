#include "riscontro/correzione.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "fornitura/carico.h"
#include "fornitura/scrittura.h"
#include "fornitura/selezione.h"
#include "lettura/testate.h"
#include "riscontro/annullamenti.h"

namespace cu::riscontro {
namespace {

using Riferimenti = std::pair<std::string, std::string>;  // protocol and progressive
using Scelte =
    std::map<std::pair<std::int64_t, std::int64_t>, std::optional<Riferimenti>>;  // by payee and reason

// Who sent the last supply, if it was an intermediary.
struct Intermediario {
  std::string codiceFiscale;
  std::string impegno;
  std::optional<Date> data;
};

class Correzione {
 public:
  Correzione(const fornitura::Intorno& intorno, Compensi& compensi, Registro& registro,
             const RichiestaCorrezione& richiesta)
      : intorno_(intorno), compensi_(compensi), registro_(registro), richiesta_(richiesta) {}

  Result<EsitoCorrezione> esegui() {
    const Esercizio esercizio{intorno_.ambito.idAzienda, richiesta_.anno, intorno_.modello};
    const std::vector<VoceStato> voci =
        statoEsercizio(registro_, esercizio, intorno_.utilita, [this](std::size_t conti) {
          intorno_.avanzamento.progress("Lettura dei conti e degli invii", conti, 0);
        });
    if (!continua()) return std::move(esito_);
    sCodFisc_ = codiceFiscaleAzienda(registro_.connessione(), esercizio.idAzienda);
    ultimoInvio();
    Scelte nuove;
    Scelte sostituite;
    std::vector<Registrata> annullate;
    for (const VoceStato& voce : voci) {
      if (voce.operazione == Operazione::Nuova) nuove[chiave(*voce.conto)] = std::nullopt;
      if (voce.operazione == Operazione::Sostituzione) {
        sostituite[chiave(*voce.conto)] =
            Riferimenti{voce.accettata->protocollo, voce.accettata->progressivo};
      }
      if (voce.operazione == Operazione::Annullamento) annullate.push_back(*voce.accettata);
    }
    if (!nuove.empty() && !daiConti(Comunicazione::Ordinaria, nuove)) return fine();
    if (!sostituite.empty() && !daiConti(Comunicazione::Sostituzione, sostituite)) return fine();
    if (!annullate.empty() && continua()) scriviAnnullamenti(std::move(annullate));
    return fine();
  }

 private:
  static std::pair<std::int64_t, std::int64_t> chiave(const Conto& conto) {
    return {conto.idAnagrafica, conto.idCausale};
  }

  template <class T>
  bool riuscito(const Result<T>& passo) {
    esito_.refusals.insert(esito_.refusals.end(), passo.refusals.begin(), passo.refusals.end());
    return static_cast<bool>(passo);
  }

  bool continua() {
    if (!richiesta_.continua || richiesta_.continua()) return true;
    esito_->interrotto = true;
    return false;
  }

  bool confermato(const Finding& avviso) {
    esito_.warnings.push_back(avviso);
    if (richiesta_.prosegue && richiesta_.prosegue(avviso)) return true;
    esito_.refusals.push_back({avviso.code, "", avviso.place});
    return false;
  }

  bool confermati(const std::vector<Finding>& avvisi) {
    return std::all_of(avvisi.begin(), avvisi.end(),
                       [this](const Finding& avviso) { return confermato(avviso); });
  }

  Filtri filtri() const {
    Filtri filtri;
    filtri.anno = fromInteger(richiesta_.anno);
    filtri.adAnno = filtri.anno;
    return filtri;
  }

  void ultimoInvio() {
    for (Invio& invio : registro_.invii(intorno_.ambito.idAzienda)) {
      if (invio.anno == richiesta_.anno && invio.recordA.size() > 22) ultimo_ = std::move(invio);
    }
    const std::string a = a1252(ultimo_.recordA);
    const std::string b = a1252(ultimo_.recordB);
    if (a.size() != modello::kLarghezzaRecord || b.size() != modello::kLarghezzaRecord) return;
    const auto campo = [](const std::string& riga, modello::Tavola tavola, std::string_view nome) {
      return da1252(trim(lettura::leggi(riga, lettura::tratto(tavola, nome))));
    };
    if (campo(a, modello::kTipoA, "Tipo fornitore") != "10") return;
    const std::string data = campo(b, modello::kTipoBFine, "Data dell'impegno");
    intermediario_ = Intermediario{
        campo(b, modello::kTipoBFine, "Cod. Fisc. intermediario"),
        campo(b, modello::kTipoBFine, "Impegno a trasmettere via telem. dich."),
        Date::parseItalian(
            data.size() == 8 ? data.substr(0, 2) + "/" + data.substr(2, 2) + "/" + data.substr(4) : "")};
  }

  // The folder of a kind, made where it is missing; nothing where the user does not want a file in it
  // replaced.
  std::optional<std::string> cartella(Comunicazione tipo) {
    FileSystem& files = intorno_.files;
    for (const std::string& una : {richiesta_.cartella, files.join(richiesta_.cartella, cartellaDi(tipo))}) {
      if (!files.folderExists(una)) files.createFolder(una);
    }
    std::string sua = files.join(richiesta_.cartella, cartellaDi(tipo));
    const std::string percorso =
        files.join(sua, fornitura::fnNomeFile(sCodFisc_, fromInteger(richiesta_.anno)));
    if (files.fileExists(percorso) &&
        !confermato(
            {"file-esistente", "Il file " + percorso + " esiste già e verrebbe sostituito.", percorso})) {
      return std::nullopt;
    }
    return sua;
  }

  // Loads the accounts and selects the chosen ones, each with its references.
  bool scegli(const Scelte& scelte) {
    if (!riuscito(fornitura::carica(intorno_, compensi_, filtri())) || !continua()) return false;
    if (!riuscito(fornitura::seleziona(compensi_, {.azione = AzioneSelezione::Deseleziona, .tutte = true})))
      return false;
    Recordset& righe = compensi_.rsCompensi();
    std::vector<std::size_t> posizioni;
    for (righe.MoveFirst(); !righe.Eof(); righe.MoveNext()) {
      const auto scelta =
          scelte.find({righe.Get("IDAnagrafica").integer(), righe.Get("IDCausalePagamento").integer()});
      if (scelta == scelte.end()) continue;
      posizioni.push_back(righe.AbsolutePosition());
      if (scelta->second && !riferisci(righe, *scelta->second)) return false;
    }
    righe.MoveFirst();
    return riuscito(fornitura::seleziona(compensi_, {.posizioni = posizioni}));
  }

  bool riferisci(Recordset& righe, const Riferimenti& riferimenti) {
    righe.Set("ProtocolloAnnSost", Value::ofText(riferimenti.first));
    righe.Set("ProgressivoAnnSost", Value::ofText(riferimenti.second));
    righe.Update();
    return riuscito(fornitura::correggi(compensi_));
  }

  bool controllati(Comunicazione tipo) {
    const std::string impegno =
        intermediario_ && intermediario_->data ? intermediario_->data->toItalian() : "";
    const auto controllo = fornitura::controlla(
        intorno_,
        {.dataFirma = richiesta_.firma.toItalian(),
         .usoIntermediari = intermediario_.has_value(),
         .codiceFiscaleIntermediario = intermediario_ ? intermediario_->codiceFiscale : "",
         .dataImpegno = impegno,
         .tipo = tipo},
        compensi_.tabella());
    esito_->mancanti = controllo->mancanti;
    if (!riuscito(controllo) || !confermati(controllo.warnings)) return false;
    if (std::exchange(dateViste_, true)) return true;
    const auto date = fornitura::controllaDate(
        {richiesta_.firma, intermediario_ ? intermediario_->data : std::nullopt}, intorno_.clock.today());
    return confermati(date.warnings);
  }

  bool daiConti(Comunicazione tipo, const Scelte& scelte) {
    if (!continua() || !scegli(scelte) || !riuscito(fornitura::controllaSelezione(compensi_, tipo)) ||
        !controllati(tipo))
      return false;
    const auto dove = cartella(tipo);
    if (!dove || !continua()) return false;
    const auto file = fornitura::scrivi(
        intorno_, compensi_,
        {.anno = fromInteger(richiesta_.anno),
         .cartella = *dove,
         .cartellaDocumenti = richiesta_.cartellaDocumenti,
         .firma = richiesta_.firma,
         .dati = {.UsoIntermediari = intermediario_.has_value(),
                  .CodiceFiscaleAzienda = sCodFisc_,
                  .CodiceFiscaleIntermediario = intermediario_ ? intermediario_->codiceFiscale : "",
                  .TipoComIntermediario = intermediario_ ? intermediario_->impegno : "0",
                  .DataImpegnoIntermediario = intermediario_ ? intermediario_->data.value_or(Date()) : Date(),
                  .TipoComunicazione = tipo}});
    if (!riuscito(file)) return false;
    fatto({tipo, file->percorso, file->certificazioni});
    return true;
  }

  void scriviAnnullamenti(std::vector<Registrata> annullate) {
    const auto dove = cartella(Comunicazione::Annullamento);
    if (!dove) return;
    const std::string percorso =
        intorno_.files.join(*dove, fornitura::fnNomeFile(sCodFisc_, fromInteger(richiesta_.anno)));
    const std::size_t quante = annullate.size();
    const auto file = intorno_.files.openForOutput(percorso);
    const std::vector<std::string> righe =
        righeAnnullamenti({ultimo_, std::move(annullate), richiesta_.firma});
    for (const std::string& riga : righe) {
      file->write(riga + "\r\n");
    }
    file->close();
    fatto({Comunicazione::Annullamento, percorso, quante});
  }

  void fatto(FileCorretto file) {
    if (richiesta_.scritto) richiesta_.scritto(file);
    esito_->file.push_back(std::move(file));
  }

  Result<EsitoCorrezione> fine() {
    // The references stay in no table: they belong to this supply alone.
    static_cast<void>(riuscito(fornitura::carica(intorno_, compensi_, filtri())));
    return std::move(esito_);
  }

  const fornitura::Intorno& intorno_;
  Compensi& compensi_;
  Registro& registro_;
  const RichiestaCorrezione& richiesta_;
  Result<EsitoCorrezione> esito_{EsitoCorrezione{}};
  std::string sCodFisc_;
  Invio ultimo_;
  std::optional<Intermediario> intermediario_;
  bool dateViste_ = false;
};

}  // namespace

std::string cartellaDi(Comunicazione tipo) {
  switch (tipo) {
    case Comunicazione::Ordinaria:
      return "ordinarie";
    case Comunicazione::Annullamento:
      return "annullamenti";
    case Comunicazione::Sostituzione:
    case Comunicazione::Nessuna:
      break;
  }
  return "sostituzioni";
}

Result<EsitoCorrezione> scriviCorrezioni(const fornitura::Intorno& intorno, Compensi& compensi,
                                         Registro& registro, const RichiestaCorrezione& richiesta) {
  return Correzione(intorno, compensi, registro, richiesta).esegui();
}

}  // namespace cu::riscontro
