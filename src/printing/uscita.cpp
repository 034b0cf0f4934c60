#include "printing/uscita.h"

#include <exception>
#include <utility>

#include "base/error.h"
#include "host/print_interrupted.h"

namespace cu::stampa {
namespace {

template <class Istruzione>
void prova(const Lancio& lancio, const Istruzione& istruzione) {
  try {
    istruzione();
  } catch (const PrintInterrupted&) {
    lancio.avanzamento.setPointer(kPointerDefault);
    if (lancio.interrotta) lancio.interrotta();
  } catch (const std::exception& errore) {
    lancio.avanzamento.setPointer(kPointerDefault);
    const Error detto = asError(errore);
    if (detto.number() == kErrorPrintGivenUp) return;
    lancio.guasto(detto.description());
  }
}

void stampante(const Lancio& lancio) {
  PrinterDialog& dialogo = lancio.dialogo;
  ReportEngine& oReport = lancio.oReport;
  lancio.avanzamento.setPointer(kPointerDefault);
  prova(lancio, [&] { dialogo.setObjectType(lancio.tipoOggetto); });
  prova(lancio, [&] { dialogo.prepare(); });
  prova(lancio, [&] { dialogo.show(); });
  const bool annullata = dialogo.cancelled();
  if (!annullata) {
    prova(lancio, [&] { oReport.setCopies(dialogo.copies()); });
    prova(lancio, [&] { oReport.setPrinter(dialogo.printer(), dialogo.port()); });
  }
  lancio.avanzamento.setPointer(kPointerHourglass);
  if (!annullata) prova(lancio, [&] { oReport.print(); });
}

constexpr std::int32_t kInFile = 3;

class NonIniziata final : public BegunPrint {
 public:
  // NOLINTNEXTLINE(bugprone-throw-keyword-missing): it is kept, and raised by finish()
  explicit NonIniziata(std::exception_ptr perche) : perche_(std::move(perche)) {}
  void finish() override { std::rethrow_exception(perche_); }

 private:
  std::exception_ptr perche_;
};

}  // namespace

std::unique_ptr<BegunPrint> inizia(ReportEngine& oReport) {
  try {
    return oReport.begin(kInFile);
  } catch (const std::exception&) {
    return std::make_unique<NonIniziata>(std::current_exception());
  }
}

void concludi(const Lancio& lancio, BegunPrint& iniziata) {
  prova(lancio, [&] { iniziata.finish(); });
  lancio.avanzamento.setPointer(kPointerDefault);
}

void esegui(const Lancio& lancio, Uscita tipo) {
  const auto codice = [&](std::int32_t valore) { prova(lancio, [&] { lancio.oReport.run(valore); }); };
  switch (tipo) {
    case Uscita::Anteprima:
      prova(lancio, [&] { lancio.oReport.preview(); });
      break;
    case Uscita::Stampante:
      stampante(lancio);
      break;
    case Uscita::Pdf:
      codice(1);
      break;
    case Uscita::Foglio:
      codice(0);
      break;
    case Uscita::Posta:
      codice(2);
      break;
    case Uscita::File:
      codice(kInFile);
      break;
  }
  lancio.avanzamento.setPointer(kPointerDefault);
}

}  // namespace cu::stampa
