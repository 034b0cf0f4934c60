#include "fornitura/scrittura.h"

#include "telematic/elabora_compensi.h"

namespace cu::fornitura {

std::string fnNomeFile(const std::string& sCodFisc, const std::string& anno) {
  return "CUR_" + sCodFisc + "_" + anno + ".cur";
}

Result<FileScritto> scrivi(const Ambiente& ambiente, Compensi& compensi, const RichiestaFile& richiesta) {
  FileSystem& files = ambiente.files;
  ElaboraCompensi elabora({.database = *ambiente.ambito.database,
                           .utilita = ambiente.utilita,
                           .files = files,
                           .avanzamento = ambiente.avanzamento,
                           .visore = ambiente.visore,
                           .clock = ambiente.clock,
                           .tabella = compensi.tabella(),
                           .anno = ambiente.utilita.toLong(richiesta.anno)});
  elabora.setDati(richiesta.dati);
  elabora.setFileName(fnNomeFile(richiesta.dati.CodiceFiscaleAzienda, richiesta.anno));
  elabora.setFilePathName(files.join(richiesta.cartella, elabora.FileName()));
  elabora.setFilePathNameMyDocuments(elabora.FilePathName());
  elabora.setFolderPathNameMyDocuments(
      files.join(ambiente.utilita.documentsFolder(), richiesta.cartellaDocumenti));
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
