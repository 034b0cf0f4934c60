#include "telematic/cu_file_seq.h"

#include <exception>

#include "base/error.h"
#include "base/windows1252.h"
#include "host/filesystem.h"
#include "modello/modello.h"
#include "telematic/catalogo.h"
#include "telematic/formatta.h"

namespace cu {

using namespace telematico;

namespace {

CURecords& riempito(CURecords& catalogo, const AmbienteTelematico& ambiente) {
  creaCatalogo(catalogo, ambiente.anno, ambiente.modello);
  return catalogo;
}

// The last field of every record marks its end.
constexpr std::string_view kFineRecord = "A";

}  // namespace

CUFileSeq::CUFileSeq(const AmbienteTelematico& ambiente)
    : ambiente_(ambiente),
      gAnno_(ambiente.anno),
      tracciato_(modello::annoTracciato(ambiente.anno, ambiente.modello)),
      file_(ambiente.files, ambiente.visore),
      rigaD_(riempito(catalogo_, ambiente_).Item("TipoD")),
      rigaH_(catalogo_.Item("TipoH")),
      celleD_(rigaD_),
      celleH_(rigaH_),
      scrittoreD_(ambiente_.modello, modello::Record::D, gAnno_, true),
      scrittoreH1_(ambiente_.modello, modello::Record::H, gAnno_, true),
      scrittoreH2_(ambiente_.modello, modello::Record::H, gAnno_, false) {}

CUFileSeq::~CUFileSeq() {
  try {
    file_.CloseFile();
  } catch (const std::exception&) {
    // No caller is left to report to; the file lacks its record Z.
  }
}

bool CUFileSeq::OpenFile() {
  rifiuto_.clear();
  try {
    file_.OpenFile(FileSeq::kSequentialOutput);
    return true;
  } catch (const Error& error) {
    if (error.number() == kErrorPathNotFound) {
      rifiuto_ = "Attenzione! Il percorso per il salvataggio dei files è inesistente!";
    }
  } catch (const std::exception&) {
    // Any other failure: false, without a text.
  }
  return false;
}

void CUFileSeq::WriteRecordTipoA(bool UsoIntermediari, std::string_view CodiceFiscale) {
  const CUFields& campo = campi("TipoA");
  campo.Item("Tipo Record").setValue("A");
  // The supply contains the year of filing.
  const std::string anno = fnFormatta(gAnno_ + 1, "0000");
  campo.Item("Codice fornitura").setValue("CUR" + anno.substr(2));
  campo.Item("Tipo fornitore").setValue(UsoIntermediari ? "10" : "01");
  campo.Item("Cod. Fisc. fornitore").setValue(maiuscolo1252(a1252(CodiceFiscale)));
  campo.Item("Filler 6").setValue(kFineRecord);
  file_.WriteRecord(catalogo_.Item("TipoA"));
}

void CUFileSeq::WriteRecordTipoZ(const CellView* /*Fields*/, Date /*Data*/, std::int32_t /*Riservato1*/,
                                 std::int32_t /*Riservato2*/) {
  constexpr std::string_view kNoveCifre = "000000000";
  const CUFields& campo = campi("TipoZ");
  campo.Item("Tipo Record").setValue("Z");
  campo.Item("N° rec. Tipo B").setValue(fnFormatta(1, kNoveCifre));
  campo.Item("N° rec. Tipo C").setValue(fnFormatta(0, kNoveCifre));
  campo.Item("N° rec. Tipo D").setValue(fnFormatta(numRecD_, kNoveCifre));
  campo.Item("N° rec. Tipo G").setValue(fnFormatta(0, kNoveCifre));
  campo.Item("N° rec. Tipo H").setValue(fnFormatta(numRecH_, kNoveCifre));
  campo.Item("N° rec. Tipo L").setValue(fnFormatta(0, kNoveCifre));
  CUField& coda = campo.Item("Filler 5");
  coda.setValue(std::string(static_cast<std::size_t>(coda.Length()), ' '));
  campo.Item("Filler 6").setValue(kFineRecord);
  file_.WriteRecord(catalogo_.Item("TipoZ"));
}

}  // namespace cu
