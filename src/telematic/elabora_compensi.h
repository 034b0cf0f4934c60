#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/per_chiamanti.h"
#include "telematic/ambiente_telematico.h"
#include "telematic/cu_ele.h"

namespace cu {

class Recordset;

// The wizard's hand on the generation of a file: it is filled with settings and called.
class ElaboraCompensi : public per_chiamanti::DiElaboraCompensi {
 public:
  explicit ElaboraCompensi(const AmbienteTelematico& ambiente);
  ~ElaboraCompensi();

  // Stores a clone of the worklist; the generation reads with its own query.
  void setRsMain(const Recordset& worklist);
  const std::string& FileName() const { return fileName_; }
  void setFileName(std::string_view name) { fileName_ = name; }
  const std::string& FilePathName() const { return filePathName_; }
  void setFilePathName(std::string_view path) { filePathName_ = path; }
  void setFilePathNameMyDocuments(std::string_view path) { filePathNameMyDocuments_ = path; }
  void setFolderPathNameMyDocuments(std::string_view path) { folderPathNameMyDocuments_ = path; }
  void setDati(const DatiFornitura& dati) { dati_ = dati; }

  // Called before each file; it has nothing to do.
  void sbWriteRecord() {}

  // Returns true when the run completed, false when the file could not be opened. The documents folder is
  // created where it is missing, and receives a copy of a file from any other folder. Errors propagate
  // unchanged.
  [[nodiscard]] bool CreaFiles(Date DataFirma);
  // The number written by the last run. With 0 no file was made.
  std::size_t certificazioni() const { return cuEle_ == nullptr ? 0 : cuEle_->certificazioni(); }
  // Why the last run could not open its file, for the user; may be empty.
  std::string rifiuto() const { return cuEle_ == nullptr ? std::string() : cuEle_->rifiuto(); }

 private:
  const AmbienteTelematico ambiente_;
  std::unique_ptr<Recordset> rsMain_;
  std::string fileName_;
  std::string filePathName_;
  std::string filePathNameMyDocuments_;
  std::string folderPathNameMyDocuments_;
  DatiFornitura dati_;
  std::unique_ptr<CUEle> cuEle_;
};

}  // namespace cu
