#include "fornitura/scrittura.h"

#include "telematic/elabora_compensi.h"

namespace cu::fornitura {

std::string fnNomeFile(const std::string& sCodFisc, const std::string& anno) {
  return "CUR_" + sCodFisc + "_" + anno + ".cur";
}

Result<FileScritto> scrivi(const Intorno& intorno, Compensi& compensi, const RichiestaFile& richiesta) {
  FileSystem& files = intorno.files;
  ElaboraCompensi elabora({.database = *intorno.ambito.database,
                           .utilita = intorno.utilita,
                           .files = files,
                           .avanzamento = intorno.avanzamento,
                           .visore = intorno.visore,
                           .clock = intorno.clock,
                           .tabella = compensi.tabella(),
                           .anno = intorno.utilita.toLong(richiesta.anno),
                           .modello = intorno.modello});
  elabora.setDati(richiesta.dati);
  elabora.setFileName(fnNomeFile(richiesta.dati.CodiceFiscaleAzienda, richiesta.anno));
  elabora.setFilePathName(files.join(richiesta.cartella, elabora.FileName()));
  elabora.setFilePathNameMyDocuments(elabora.FilePathName());
  elabora.setFolderPathNameMyDocuments(
      files.join(intorno.utilita.documentsFolder(), richiesta.cartellaDocumenti));
  elabora.setRsMain(compensi.rsCompensi());
  elabora.sbWriteRecord();
  if (elabora.CreaFiles(richiesta.firma)) {
    return FileScritto{elabora.FileName(), elabora.FilePathName(), elabora.certificazioni()};
  }
  const std::string rifiuto = elabora.rifiuto();
  return Result<FileScritto>::refused(
      {rifiuto.empty() ? "file-non-scritto" : "percorso-inesistente", rifiuto, "txtPercorsoCU"});
}

}  // namespace cu::fornitura
