#include "telematic/elabora_compensi.h"

#include "data/recordset.h"
#include "host/filesystem.h"
#include "host/session.h"

namespace cu {

ElaboraCompensi::ElaboraCompensi(const AmbienteTelematico& ambiente) : ambiente_(ambiente) {}
ElaboraCompensi::~ElaboraCompensi() = default;

void ElaboraCompensi::setRsMain(const Recordset& worklist) { rsMain_ = worklist.Clone(); }

bool ElaboraCompensi::CreaFiles(Date DataFirma) {
  FileSystem& files = ambiente_.files;
  if (!files.folderExists(folderPathNameMyDocuments_)) files.createFolder(folderPathNameMyDocuments_);

  cuEle_.reset();  // closes its file before the next one is opened
  cuEle_ = std::make_unique<CUEle>(ambiente_);
  cuEle_->setConnection(ambiente_.database.connection());
  cuEle_->setFileName(fileName_);
  cuEle_->setFilePathName(filePathName_);
  cuEle_->setDati(dati_);

  const bool riuscito = cuEle_->Create(DataFirma);
  if (riuscito && filePathNameMyDocuments_ != filePathName_) {
    files.copy(filePathName_, filePathNameMyDocuments_);
  }
  return riuscito;
}

}  // namespace cu
