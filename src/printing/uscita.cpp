#include "printing/uscita.h"

#include <exception>

namespace cu::stampa {
namespace {

template <class Istruzione>
void prova(const Uscita& uscita, const Istruzione& istruzione) {
  try {
    istruzione();
  } catch (const std::exception& errore) {
    uscita.frontEnd.setPointer(kPointerDefault);
    const Error detto = asError(errore);
    if (detto.number() == kErrorPrintGivenUp) return;
    uscita.frontEnd.messageBox({.text = detto.description(),
                                .title = uscita.gTitolo,
                                .icon = BoxIcon::Stop,
                                .buttons = BoxButtons::Ok,
                                .byDefault = Answer::Ok});
  }
}

void stampante(const Uscita& uscita) {
  PrinterDialog& dialogo = uscita.dialogo;
  ReportEngine& oReport = uscita.oReport;
  uscita.frontEnd.setPointer(kPointerDefault);
  prova(uscita, [&] { dialogo.setObjectType(uscita.tipoOggetto); });
  prova(uscita, [&] { dialogo.prepare(); });
  prova(uscita, [&] { dialogo.show(); });
  const bool annullata = dialogo.cancelled();
  if (!annullata) {
    prova(uscita, [&] { oReport.setCopies(dialogo.copies()); });
    prova(uscita, [&] { oReport.setPrinter(dialogo.printer(), dialogo.port()); });
  }
  uscita.frontEnd.setPointer(kPointerHourglass);
  if (!annullata) prova(uscita, [&] { oReport.print(); });
}

}  // namespace

void esegui(const Uscita& uscita, int tipo) {
  const auto codice = [&](std::int32_t valore) { prova(uscita, [&] { uscita.oReport.run(valore); }); };
  switch (tipo) {
    case 1:
      prova(uscita, [&] { uscita.oReport.preview(); });
      break;
    case 2:
      stampante(uscita);
      break;
    case 3:
      codice(1);
      break;
    case 4:
      codice(0);
      break;
    case 5:
      codice(2);
      break;
    case 6:
      codice(3);
      break;
    default:
      break;
  }
  uscita.frontEnd.setPointer(kPointerDefault);
}

}  // namespace cu::stampa
