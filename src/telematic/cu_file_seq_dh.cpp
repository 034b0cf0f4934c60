#include <algorithm>
#include <string>

#include "base/error.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "host/clock.h"
#include "telematic/catalogo.h"
#include "telematic/cu_file_seq.h"
#include "telematic/formatta.h"

namespace cu {

using namespace telematico;

namespace {

// The two frames have the same widths, and most names in common.
struct PostiQuadro {
  FieldPlace tipoRecord;
  FieldPlace sostituto;
  FieldPlace modulo;
  FieldPlace percipiente;
  FieldPlace certificazione;
  FieldPlace fine;
};

consteval PostiQuadro quadro(Tavola tavola, std::string_view fine) {
  return {.tipoRecord = posto(tavola, "Tipo Record"),
          .sostituto = posto(tavola, "Cod. Fisc. Sost. imposta"),
          .modulo = posto(tavola, "Progressivo modulo"),
          .percipiente = posto(tavola, "Cod. Fisc. Percipiente"),
          .certificazione = posto(tavola, "Progressivo Certificazione"),
          .fine = posto(tavola, fine)};
}

constexpr PostiQuadro kQuadroD = quadro(kTipoD, "Filler 3");
constexpr PostiQuadro kQuadroH = quadro(kTipoH, "Filler 7");
constexpr FieldPlace kProtocollo = posto(kTipoD, "Prot. ass. da Serv. telem.-Id. invio");
constexpr FieldPlace kProgressivo = posto(kTipoD, "Progr. ass. da Serv. telem. alla singola CU");
constexpr FieldPlace kOperazione = posto(kTipoD, "Tipo op.: ann./sost.");
constexpr FieldPlace kConferma = posto(kTipoD, "Flag conferma Singola Certif.");

void ponNumero(RecordImage& riga, FieldPlace posto, std::int32_t numero) {
  formatta(numero, riga.at(posto.offset), posto.length);
}

}  // namespace

void CUFileSeq::legaQueryPrincipale(const Columns& colonne) {
  const auto trova = [&colonne](std::string_view nome) {
    const std::size_t ordinale = colonne.find(nome);
    if (ordinale == Columns::kNone) {
      throw Error(kErrorItemNotFound, "Il campo \"" + std::string(nome) + "\" non esiste nel risultato.");
    }
    return ordinale;
  };
  scrittoreD_.lega(colonne);
  scrittoreH1_.lega(colonne);
  quadro_ = {.codiceFiscale = trova("CodiceFiscale"),
             .protocollo = trova("ProtocolloAnnSost"),
             .progressivo = trova("ProgressivoAnnSost")};
  colonne_ = &colonne;
}

void CUFileSeq::legaQueryModuli(const Columns& colonne) { scrittoreH2_.lega(colonne); }

// At most the first `n` characters of the cell.
std::string_view CUFileSeq::breve(const CellView& cella, std::size_t n) {
  appoggio_ = cella.type() == ValueType::Text ? a1252(cella.text()) : cella.toText();
  return std::string_view(appoggio_).substr(0, n);
}

void CUFileSeq::ponMaiuscolo(RecordImage& riga, FieldPlace posto, std::string_view utf8) {
  if (appoggio_.size() < utf8.size()) appoggio_.resize(utf8.size());
  const std::size_t n = std::min(a1252(utf8, appoggio_.data()), posto.length);
  maiuscolo1252(appoggio_.data(), n);
  riga.place(posto, {appoggio_.data(), n});
}

void CUFileSeq::ponPercipiente(RecordImage& riga, FieldPlace posto, const CellView& cella) {
  if (cella.type() == ValueType::Text || cella.isNull()) {
    ponMaiuscolo(riga, posto, cella.text());
  } else {
    ponMaiuscolo(riga, posto, cella.toText());
  }
}

std::string_view CUFileSeq::firma(Date DataFirma) {
  const Date giorno = DataFirma == Date() ? ambiente_.clock.today() : DataFirma;
  if (firma_.empty() || giorno != giornoFirma_) {
    giornoFirma_ = giorno;
    firma_ = giornoMeseAnno(giorno);
  }
  return firma_;
}

void CUFileSeq::fermati(const Guasto& guasto, const CellView* Fields, char tipo) const {
  const modello::Codice codice = modello::codice(*guasto.campo);
  const std::string campo(codice.begin(), codice.end());
  std::string testo;
  if (guasto.motivo == Guasto::Motivo::TroppoLungo) {
    testo = "Il valore del campo " + campo + " supera i " + fromInteger(kLunghezzaValore) +
            " caratteri che il tracciato telematico ammette.";
  } else {
    testo = "I dati non stanno nelle " + fromInteger(kCelle) + " celle del record " + tipo +
            ": non c'è posto per il campo " + campo + ".";
  }
  const std::string_view fonte = modello::fonte(*guasto.campo);
  if (!fonte.empty()) testo += " Dato: " + std::string(fonte) + ".";
  std::string nome = cella(Fields, "Anagrafica").toText();
  const std::string secondo = cella(Fields, "Nome").toText();
  if (!nome.empty() && !secondo.empty()) nome += ' ';
  testo += " Percipiente: " + nome + secondo + ", causale: " + cella(Fields, "Codice").toText() +
           ". Il file è rimasto incompleto: correggere il dato e ripetere la creazione.";
  throw Error(kErrorInvalidCall, testo);
}

void CUFileSeq::WriteRecordTipoD(const CellView* Fields, std::int32_t ProgressivoCertificazione,
                                 std::string_view CodiceFiscale, Comunicazione TipoComunicazione,
                                 Date DataFirma) {
  if (colonne_ == nullptr) throw Error(kErrorObjectNotSet, "Le colonne della query non sono note.");
  rigaD_.place(kQuadroD.tipoRecord, "D");
  ponMaiuscolo(rigaD_, kQuadroD.sostituto, CodiceFiscale);
  ponNumero(rigaD_, kQuadroD.modulo, 1);
  ponPercipiente(rigaD_, kQuadroD.percipiente, Fields[quadro_.codiceFiscale]);
  ponNumero(rigaD_, kQuadroD.certificazione, ProgressivoCertificazione);
  if (TipoComunicazione == Comunicazione::Ordinaria) {
    ponNumero(rigaD_, kProtocollo, 0);
    ponNumero(rigaD_, kProgressivo, 0);
  } else {
    // The references of the certificate that is annulled or replaced.
    formatta(breve(Fields[quadro_.protocollo], kProtocollo.length), rigaD_.at(kProtocollo.offset),
             kProtocollo.length);
    formatta(breve(Fields[quadro_.progressivo], kProgressivo.length), rigaD_.at(kProgressivo.offset),
             kProgressivo.length);
  }
  if (TipoComunicazione == Comunicazione::Annullamento) rigaD_.place(kOperazione, "A");
  if (TipoComunicazione == Comunicazione::Sostituzione) rigaD_.place(kOperazione, "S");
  rigaD_.place(kConferma, "0");
  rigaD_.place(kQuadroD.fine, "A");
  const Guasto guasto = scrittoreD_.scrivi(Fields, firma(DataFirma), celleD_);
  if (guasto.motivo != Guasto::Motivo::Nessuno) fermati(guasto, Fields, 'D');
  file_.WriteImage(rigaD_);
  ++numRecD_;
}

void CUFileSeq::WriteRecordTipoH(const CellView* Fields, std::int32_t ProgressivoCertificazione,
                                 std::int32_t ProgressivoModulo, std::string_view CodiceFiscale,
                                 const CellView* FieldsModulo) {
  if (colonne_ == nullptr) throw Error(kErrorObjectNotSet, "Le colonne della query non sono note.");
  rigaH_.place(kQuadroH.tipoRecord, "H");
  ponMaiuscolo(rigaH_, kQuadroH.sostituto, CodiceFiscale);
  ponNumero(rigaH_, kQuadroH.modulo, ProgressivoModulo);
  ponPercipiente(rigaH_, kQuadroH.percipiente, Fields[quadro_.codiceFiscale]);
  ponNumero(rigaH_, kQuadroH.certificazione, ProgressivoCertificazione);
  rigaH_.place(kQuadroH.fine, "A");
  const Guasto guasto = ProgressivoModulo < 2 ? scrittoreH1_.scrivi(Fields, {}, celleH_)
                                              : scrittoreH2_.scrivi(FieldsModulo, {}, celleH_);
  if (guasto.motivo != Guasto::Motivo::Nessuno) fermati(guasto, Fields, 'H');
  file_.WriteImage(rigaH_);
  ++numRecH_;
}

}  // namespace cu
