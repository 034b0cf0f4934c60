#include "telematic/catalogo.h"

#include <string>

#include "base/text.h"
#include "telematic/engine/records.h"

namespace cu::telematico {
namespace {

void aggiungiRighe(CURecord& record, Tavola righe) {
  for (const CampoRecord& riga : righe) {
    if (riga.volte == 1) {
      record.Fields().Add(riga.nome, riga.posizione - 1, riga.lunghezza);
      continue;
    }
    for (int n = 1; n <= riga.volte; ++n) {
      const int offset = riga.posizione - 1 + riga.lunghezza * (n - 1);
      record.Fields().Add(std::string(riga.nome) + fromInteger(n), offset, riga.lunghezza);
    }
  }
}

}  // namespace

void creaCatalogo(CURecords& catalogo, std::int32_t gAnno, const modello::Modello& modello) {
  aggiungiRighe(catalogo.Add("TipoA"), kTipoA);
  CURecord& tipoB = catalogo.Add("TipoB");
  for (const Tavola parte : modello::tipoB(gAnno, modello)) aggiungiRighe(tipoB, parte);
  aggiungiRighe(catalogo.Add("TipoD"), kTipoD);
  aggiungiRighe(catalogo.Add("TipoH"), kTipoH);
  aggiungiRighe(catalogo.Add("TipoZ"), kTipoZ);
}

}  // namespace cu::telematico
