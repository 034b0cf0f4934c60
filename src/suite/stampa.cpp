#include "suite/stampa.h"

#include <exception>
#include <filesystem>

#include "base/text.h"
#include "host/print_interrupted.h"
#include "suite/support_log.h"

namespace cu {
namespace {

constexpr std::int32_t kTabella = 0;
constexpr std::int32_t kDialogo = 1;
constexpr std::int32_t kPosta = 2;
constexpr std::int32_t kFile = 3;

// The output kind of a code.
int tipoUscita(std::int32_t codice) {
  switch (codice) {
    case kDialogo:
      return 3;
    case kTabella:
      return 4;
    case kPosta:
      return 5;
    case kFile:
      return 6;
    default:
      throw Error(kErrorInvalidCall, "Il codice di uscita della stampa non esiste.");
  }
}

std::string unisci(const std::string& cartella, const std::string& nome) {
  return (std::filesystem::path(cartella) / nome).string();
}

}  // namespace

void StampaSuite::setSession(std::int32_t idUtente, std::int32_t idAzienda, std::int32_t idFiliale) {
  if (impaginatore_) impaginatore_->setSession(idUtente, idAzienda, idFiliale);
}

void StampaSuite::setConnection(Connection& connection) {
  if (impaginatore_) impaginatore_->setConnection(connection);
}

void StampaSuite::setObjectType(std::int32_t type) {
  if (impaginatore_) impaginatore_->setObjectType(type);
}

void StampaSuite::setSelectionFormula(const std::string& formula) {
  nota_.formula = formula;
  if (impaginatore_) impaginatore_->setSelectionFormula(formula);
}

void StampaSuite::setReportFile(const std::string& name) {
  nota_.report = name;
  if (impaginatore_) impaginatore_->setReportFile(name);
}

void StampaSuite::setDefinition(std::int32_t number) {
  if (impaginatore_) impaginatore_->setDefinition(number);
}

void StampaSuite::setOutputMode(std::int32_t mode) {
  if (impaginatore_) impaginatore_->setOutputMode(mode);
}

void StampaSuite::setOutputPath(const std::string& path) {
  nota_.file = path;
  if (impaginatore_) impaginatore_->setOutputPath(path);
}

void StampaSuite::setOutputFormat(std::int32_t format) {
  if (impaginatore_) impaginatore_->setOutputFormat(format);
}

void StampaSuite::setCopies(std::int32_t copies) {
  nota_.copies = copies;
  if (impaginatore_) impaginatore_->setCopies(copies);
}

void StampaSuite::setPrinter(const std::string& name, const std::string& port) {
  nota_.printer = name;
  if (impaginatore_) impaginatore_->setPrinter(name, port);
}

void StampaSuite::preview() {
  nota_.kind = 1;
  nota_.code.reset();
  frontEnd_.printed(nota_);
  if (!impaginatore_) return;
  // No duration: it would be that of the user's reading.
  if (SupportLog* const log = SupportLog::active(); log != nullptr)
    log->record({.operation = "anteprima", .object = nota_.report});
  impaginatore_->preview();
}

void StampaSuite::print() {
  nota_.kind = 2;
  nota_.code.reset();
  esegui([this] {
    if (impaginatore_) impaginatore_->print();
  });
}

void StampaSuite::run(std::int32_t code) {
  nota_.kind = tipoUscita(code);
  nota_.code = code;
  if (nota_.file.empty()) trovaNome(code);
  esegui([this, code] {
    if (impaginatore_) impaginatore_->run(code);
  });
}

class StampaSuite::Iniziata final : public BegunPrint {
 public:
  Iniziata(StampaSuite& stampa, std::int32_t codice) : stampa_(stampa) {
    if (!stampa_.impaginatore_) return;
    try {
      impaginata_ = stampa_.impaginatore_->begin(codice);
    } catch (const std::exception&) {
      guasto_ = std::current_exception();
    }
  }
  void finish() override {
    stampa_.esegui([this] {
      if (guasto_) std::rethrow_exception(guasto_);
      if (impaginata_) impaginata_->finish();
    });
  }

 private:
  StampaSuite& stampa_;
  std::unique_ptr<BegunPrint> impaginata_;
  std::exception_ptr guasto_;
};

std::unique_ptr<BegunPrint> StampaSuite::begin(std::int32_t code) {
  nota_.kind = tipoUscita(code);
  nota_.code = code;
  if (nota_.file.empty()) trovaNome(code);
  return std::make_unique<Iniziata>(*this, code);
}

template <class Impaginazione>
void StampaSuite::esegui(const Impaginazione& impaginazione) {
  nota_.written = false;
  nota_.interrupted = false;
  try {
    logged({.operation = "stampa", .object = nota_.report}, impaginazione);
  } catch (const std::exception& errore) {
    nota_.interrupted = dynamic_cast<const PrintInterrupted*>(&errore) != nullptr;
    frontEnd_.printed(nota_);
    throw;
  }
  nota_.written = impaginatore_ != nullptr;
  frontEnd_.printed(nota_);
}

void StampaSuite::trovaNome(std::int32_t codice) {
  setOutputMode(0);
  if (codice == kPosta) {
    setOutputPath(nomeNuovo());
  } else if (codice == kTabella) {
    setOutputPath(chiediNome(".xlsx", "Foglio di calcolo (*.xlsx)"));
  } else {
    setOutputPath(chiediNome(".pdf", "File PDF (*.pdf)"));
  }
  setOutputFormat(0);
}

std::string StampaSuite::chiediNome(const std::string& estensione, const std::string& filtro) {
  const auto scelto = frontEnd_.chooseFileToSave("Salva la stampa con nome",
                                                 unisci(documenti_, nomeProposto() + estensione), filtro);
  if (!scelto || scelto->empty()) throw Error(kErrorPrintGivenUp, "La stampa è stata annullata.");
  return std::filesystem::path(*scelto).has_extension() ? *scelto : *scelto + estensione;
}

std::string StampaSuite::nomeNuovo() const {
  const std::string nome = unisci(documenti_, nomeProposto() + "_" + orologio_.now().toHhmm());
  std::string percorso = nome + ".pdf";
  std::error_code errore;
  for (int numero = 2; std::filesystem::exists(percorso, errore); ++numero) {
    percorso = nome + "_" + fromInteger(numero) + ".pdf";
  }
  return percorso;
}

std::string StampaSuite::nomeProposto() const {
  return nota_.report.substr(0, nota_.report.rfind('.')) + "_" + orologio_.today().toCompact();
}

}  // namespace cu
