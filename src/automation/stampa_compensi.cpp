#include "automation/stampa_compensi.h"

#include "automation/gestures.h"
#include "controls/form.h"

namespace cu {

bool stampaCompensi(Form& wizard, Walker& walker, const RichiestaStampa& richiesta) {
  constexpr int kUltimoPasso = 2;
  constexpr std::int64_t kFilePdf = 3;
  walker.savedFile = richiesta.file;
  Percorso percorso(wizard, walker);
  return percorri(walker, [&] {
    percorso.premi("optCode");
    if (richiesta.anno) percorso.scegliAnno("KRNCboEsCont(0)", *richiesta.anno);
    if (richiesta.adAnno) percorso.scegliAnno("KRNCboEsCont(1)", *richiesta.adAnno);
    percorso.estremi(richiesta.estremi);
    percorso.avanti(kUltimoPasso);
    Choice stampa;
    stampa.report = richiesta.report;
    stampa.output = kFilePdf;
    choose(percorso.controllo("WizPrint"), stampa);
    percorso.premi("cmdNav(4)");
    return !walker.prints.empty();
  });
}

}  // namespace cu
