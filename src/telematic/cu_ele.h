#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/per_chiamanti.h"
#include "data/database.h"
#include "host/modi.h"
#include "telematic/ambiente_telematico.h"
#include "telematic/cu_file_seq.h"

namespace cu {

class Recordset;

// The settings of a supply, from the screen.
struct DatiFornitura {
  bool UsoIntermediari = false;
  std::string CodiceFiscaleAzienda;
  std::string CodiceFiscaleIntermediario;
  std::string TipoComIntermediario;
  Date DataImpegnoIntermediario;
  Comunicazione TipoComunicazione = Comunicazione::Ordinaria;
};

// Makes one telematic file of the selected rows of the work table.
class CUEle : public per_chiamanti::DiCUEle<CUEle> {
 public:
  explicit CUEle(const AmbienteTelematico& ambiente);

  void setConnection(Connection& connection) {
    connection_ = &connection;
  }  // stored only; Create uses its own
  void setDati(const DatiFornitura& dati) { dati_ = dati; }
  void setFileName(std::string_view name) { file_.setFileName(name); }
  void setFilePathName(std::string_view path) { file_.setFilePathName(path); }

  // Returns true when the run completed, also when there was nothing to write; false when the file could not
  // be opened. Errors propagate; the file keeps the lines written before and has no record Z.
  [[nodiscard]] bool Create(Date DataFirma);
  std::size_t certificazioni() const { return certificazioni_; }  // written by Create
  const std::string& rifiuto() const { return file_.rifiuto(); }

 private:
  friend per_chiamanti::DiCUEle<CUEle>;

  // Columns of the main query that name the modules of a row.
  struct Chiave {
    std::size_t anno = 0;
    std::size_t idAnagrafica = 0;
    std::size_t idAzienda = 0;
    std::size_t idCausalePagamento = 0;
  };

  std::string fnQueryPrincipale() const;
  void scriviFile(Connection& connection, Recordset& principale, Date DataFirma);
  void scriviModuli(Connection& connection, const CellView* riga, const Chiave& chiave,
                    std::int32_t certificazione);

  const AmbienteTelematico ambiente_;
  CUFileSeq file_;
  DatiFornitura dati_;
  Connection* connection_ = nullptr;
  std::size_t certificazioni_ = 0;
};

}  // namespace cu
