// The prints as a library that the first of them loads.

#include <dlfcn.h>

#include <filesystem>
#include <string>

#include "libreria_stampe.h"
#include "stampe.h"

namespace cu {
namespace {

constexpr const char* kLibreria = "cuwizard-stampe.so";

[[noreturn]] void senzaStampe(const std::string& motivo) {
  throw Error(kErrorReportLibrary, "Le stampe non si possono fare: " + motivo +
                                       " Installare di nuovo il programma; tutto il resto funziona.");
}

// Beside the program as it is built, or where it is installed, wherever that is.
std::string libreria() {
  std::error_code ignorato;
  const std::filesystem::path programma =
      std::filesystem::read_symlink("/proc/self/exe", ignorato).parent_path();
  const std::filesystem::path installata =
      (programma / CU_LIBRARY_FROM_PROGRAM / kLibreria).lexically_normal();
  for (const std::filesystem::path& file : {programma / kLibreria, installata}) {
    if (std::filesystem::exists(file, ignorato)) return file.string();
  }
  senzaStampe("manca la libreria «" + installata.string() + "».");
}

// The library is never unloaded: its own libraries have objects that live until the process ends.
FunzioneLibreriaStampe caricata() {
  const std::string file = libreria();
  void* const aperta = ::dlopen(file.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
  if (aperta == nullptr) {
    const char* const perche = ::dlerror();
    senzaStampe("la libreria «" + file + "» non si carica (" + (perche == nullptr ? "" : perche) + ").");
  }
  void* const funzione = ::dlsym(aperta, kFunzioneLibreriaStampe);
  if (funzione == nullptr) senzaStampe("«" + file + "» non è la libreria delle stampe.");
  return reinterpret_cast<FunzioneLibreriaStampe>(funzione);
}

}  // namespace

std::unique_ptr<Impaginatore> impaginatoreDelProgramma(const ReportSurroundings& intorno) {
  static const FunzioneLibreriaStampe crea = caricata();
  std::unique_ptr<Impaginatore> impaginatore(crea(kVersioneLibreriaStampe, intorno));
  if (!impaginatore) senzaStampe("la libreria installata è di un'altra versione del programma.");
  return impaginatore;
}

}  // namespace cu
