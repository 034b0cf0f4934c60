#include <string>

#include "base/error.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "telematic/catalogo.h"
#include "telematic/cu_file_seq.h"
#include "telematic/formatta.h"

namespace cu {

using namespace telematico;

namespace {

std::string maiuscolo(const std::string& testo, std::size_t caratteri) {
  return maiuscolo1252(std::string_view(testo).substr(0, caratteri));
}

std::string zeroSeVuoto(std::string testo) { return testo.empty() ? "0" : std::move(testo); }

// A phone number is truncated before it is cleaned; a fax number is written unchanged.
std::string telefonoOFax(const std::string& telefono, const std::string& fax) {
  constexpr std::size_t kCaratteri = 12;
  if (trim(telefono).empty()) return fax.substr(0, kCaratteri);
  return togliSeparatori(telefono.substr(0, kCaratteri));
}

}  // namespace

CellView CUFileSeq::cella(const CellView* Fields, std::string_view colonna) const {
  if (colonne_ == nullptr) throw Error(kErrorObjectNotSet, "Le colonne della query non sono note.");
  const std::size_t ordinale = colonne_->find(colonna);
  if (ordinale == Columns::kNone) {
    throw Error(kErrorItemNotFound, "Il campo \"" + std::string(colonna) + "\" non esiste nel risultato.");
  }
  return Fields[ordinale];
}

std::string CUFileSeq::fnNZ(const CellView* Fields, std::string_view colonna) const {
  return a1252(cella(Fields, colonna).toText());
}

void CUFileSeq::WriteRecordTipoB(const CellView* Fields, std::int32_t NumeroComunicazioni,
                                 std::string_view CodiceFiscale, Comunicazione TipoComunicazione,
                                 std::string_view CodiceFiscaleIntermediario, bool UsoIntermediari,
                                 std::string_view TipoComIntermediario, Date DataImpegno) {
  const CUFields& campo = campi("TipoB");
  const auto valore = [&](std::string_view colonna) { return fnNZ(Fields, colonna); };

  campo.Item("Tipo Record").setValue("B");
  campo.Item("Cod. Fisc. Sost. imposta").setValue(maiuscolo1252(a1252(CodiceFiscale)));
  campo.Item("Progressivo modulo").setValue("00000001");
  campo.Item("Id. prod. software (Cod. Fisc.)").setValue(modello::kCodiceFiscaleProduttore);
  campo.Item("Fornitura rel. invio certif. da ann.")
      .setValue(TipoComunicazione == Comunicazione::Annullamento ? "1" : "0");
  campo.Item("Fornitura rel. invio certif. da sost.")
      .setValue(TipoComunicazione == Comunicazione::Sostituzione ? "1" : "0");

  if (cella(Fields, "PersonaFisicaAz").flag()) {
    campo.Item("Cognome").setValue(maiuscolo(valore("AnagraficaAz"), 24));
    campo.Item("Nome").setValue(maiuscolo(valore("NomeAz"), 20));
  } else {
    campo.Item("Denominazione").setValue(maiuscolo(valore("AnagraficaAz"), 60));
  }
  campo.Item("Indirizzo posta elettronica").setValue(valore("EMailInternetAz").substr(0, 100));
  campo.Item("Telefono/Fax").setValue(telefonoOFax(valore("TelefonoAz"), valore("FaxAz")));

  if (modello::haEventiEccezionali(tracciato_)) {
    const std::string evento = valore("CodiceEventoEccezionaleAz");
    CUField& suo = campo.Item(modello::kEventiEccezionali);
    if (suo.Length() > 1) {
      suo.setValue(fnFormatta(zeroSeVuoto(maiuscolo1252(trim(evento))), "00"));
    } else {
      suo.setValue(trim(evento).empty() ? "0" : maiuscolo1252(evento));
    }
  }
  if (modello::haCasiParticolari(tracciato_)) campo.Item(modello::kCasiParticolari).setValue("0");

  campo.Item("Cod. Fisc. rappresentante").setValue(maiuscolo1252(valore("CodiceFiscaleRapp")));
  campo.Item("Cod. carica rappresentante")
      .setValue(fnFormatta(zeroSeVuoto(maiuscolo1252(valore("CodiceCarica"))), "00"));
  campo.Item("Cognome rappresentante").setValue(maiuscolo(valore("AnagraficaRapp"), 24));
  campo.Item("Nome rappresentante").setValue(maiuscolo(valore("NomeRapp"), 20));
  campo.Item("Cod. Fisc. soc. o ente dich.")
      .setValue(fnFormatta(zeroSeVuoto(maiuscolo1252(valore("CodiceFiscaleSocieta"))), "00000000000"));

  if (modello::kContaDipendenti.comprende(tracciato_)) {
    campo.Item("N° comun. certif. lav. dip. e assim.").setValue(fnFormatta(0, "00000000"));
  }
  campo.Item("N° comun. certif. lav. aut. e provv.").setValue(fnFormatta(NumeroComunicazioni, "00000000"));
  campo.Item("Casella Quadro CT").setValue("0");
  campo.Item("Firma").setValue("1");

  campo.Item("Cod. Fisc. intermediario").setValue(maiuscolo1252(a1252(CodiceFiscaleIntermediario)));
  campo.Item("Impegno a trasmettere via telem. dich.").setValue(a1252(TipoComIntermediario));
  campo.Item("Data dell'impegno")
      .setValue(DataImpegno.serial() <= 0 ? std::string("00000000") : giornoMeseAnno(DataImpegno));
  campo.Item("Firma intermediario").setValue(UsoIntermediari ? "1" : "0");
  campo.Item("Filler 26").setValue("A");
  file_.WriteRecord(catalogo_.Item("TipoB"));
}

}  // namespace cu
