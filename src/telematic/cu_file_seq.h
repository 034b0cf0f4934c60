#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/per_chiamanti.h"
#include "base/value.h"
#include "data/rowstore.h"
#include "host/modi.h"
#include "telematic/ambiente_telematico.h"
#include "telematic/celle.h"
#include "telematic/engine/file_seq.h"
#include "telematic/engine/record_image.h"
#include "telematic/engine/records.h"
#include "telematic/scrittore_celle.h"

namespace cu {

// The writer of one telematic file: one operation per record type. An object serves one file, because its
// counters are never reset; the run year is fixed at construction.
//
// Rows are those of the main query and of the module query, whose columns are made known once with lega...
// and must live as long as rows are written; texts are UTF-8. Errors of the file rise as they are; a value
// that does not fit its field's cells is Error 5 with a text for the clerk, and the record is not written.
class CUFileSeq : public per_chiamanti::DiCUFileSeq<CUFileSeq> {
 public:
  explicit CUFileSeq(const AmbienteTelematico& ambiente);
  ~CUFileSeq();
  CUFileSeq(const CUFileSeq&) = delete;
  CUFileSeq& operator=(const CUFileSeq&) = delete;

  void setFileName(std::string_view name) { file_.setFileName(name); }
  void setFilePathName(std::string_view path) { file_.setFilePathName(path); }

  // Returns false when the file cannot be opened; rifiuto() then returns the reason for the user, which is
  // empty except for a missing path.
  [[nodiscard]] bool OpenFile();
  const std::string& rifiuto() const { return rifiuto_; }
  void CloseFile() { file_.CloseFile(); }

  // Raises Error 3265 when a column required by the run year is missing.
  void legaQueryPrincipale(const Columns& colonne);
  void legaQueryModuli(const Columns& colonne);

  void WriteRecordTipoA(bool UsoIntermediari, std::string_view CodiceFiscale);
  // NumeroComunicazioni is the number of certificates in the file.
  void WriteRecordTipoB(const CellView* Fields, std::int32_t NumeroComunicazioni,
                        std::string_view CodiceFiscale, Comunicazione TipoComunicazione,
                        std::string_view CodiceFiscaleIntermediario, bool UsoIntermediari,
                        std::string_view TipoComIntermediario, Date DataImpegno);
  void WriteRecordTipoD(const CellView* Fields, std::int32_t ProgressivoCertificazione,
                        std::string_view CodiceFiscale, Comunicazione TipoComunicazione, Date DataFirma);
  // FieldsModulo is the row of the module query from module 2 on, null for module 1.
  void WriteRecordTipoH(const CellView* Fields, std::int32_t ProgressivoCertificazione,
                        std::int32_t ProgressivoModulo, std::string_view CodiceFiscale,
                        const CellView* FieldsModulo);
  // Writes the counters; the arguments are unused.
  void WriteRecordTipoZ(const CellView* Fields, Date Data, std::int32_t Riservato1, std::int32_t Riservato2);

 private:
  friend per_chiamanti::DiCUFileSeq<CUFileSeq>;

  // Columns of the main query that the frames need.
  struct ColonneQuadro {
    std::size_t codiceFiscale = 0;
    std::size_t protocollo = 0;
    std::size_t progressivo = 0;
  };

  const CUFields& campi(std::string_view record) const { return catalogo_.Item(record).Fields(); }
  CellView cella(const CellView* Fields, std::string_view colonna) const;
  std::string fnNZ(const CellView* Fields, std::string_view colonna) const;
  std::string_view breve(const CellView& cella, std::size_t n);
  void ponMaiuscolo(RecordImage& riga, FieldPlace posto, std::string_view utf8);
  void ponPercipiente(RecordImage& riga, FieldPlace posto, const CellView& cella);
  std::string_view firma(Date DataFirma);
  [[noreturn]] void fermati(const telematico::Guasto& guasto, const CellView* Fields, char tipo) const;

  const AmbienteTelematico ambiente_;
  const std::int32_t gAnno_;
  const std::int32_t tracciato_;  // the year whose layout the file has
  FileSeq file_;
  std::string rifiuto_;
  CURecords catalogo_;
  std::int32_t numRecD_ = 0;
  std::int32_t numRecH_ = 0;

  // The lines of the two records written for each certificate, reused from one to the next.
  RecordImage rigaD_;
  RecordImage rigaH_;
  telematico::Celle celleD_;
  telematico::Celle celleH_;
  telematico::ScrittoreCelle scrittoreD_;
  telematico::ScrittoreCelle scrittoreH1_;
  telematico::ScrittoreCelle scrittoreH2_;

  const Columns* colonne_ = nullptr;  // of the main query
  ColonneQuadro quadro_;
  std::string appoggio_;
  std::string firma_;
  Date giornoFirma_;
};

}  // namespace cu
