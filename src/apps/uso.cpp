#include "uso.h"

#include <charconv>

#include "host/text.h"

namespace cu {
namespace {

struct Frase {
  CLI::ExitCodes errore;
  const char* inglese;   // a piece of the library's sentence
  const char* italiano;  // what stands for it
};

constexpr Frase kFrasi[] = {
    {CLI::ExitCodes::RequiredError, "A subcommand is required", "manca il comando"},
    {CLI::ExitCodes::RequiredError, " is required", ": manca"},
    {CLI::ExitCodes::ExtrasError, "The following arguments were not expected: ", "argomenti sconosciuti: "},
    {CLI::ExitCodes::ExtrasError, "The following argument was not expected: ", "argomento sconosciuto: "},
    {CLI::ExitCodes::ConversionError, "Could not convert: ", "valore non valido: "},
    {CLI::ExitCodes::RequiresError, " requires ", " richiede "},
    {CLI::ExitCodes::ExcludesError, " excludes ", " esclude "},
};

}  // namespace

void parlaItaliano(CLI::App& programma) {
  programma.set_help_flag("-h,--help", "Mostra questo aiuto");
  const auto forma = programma.get_formatter();
  forma->label("Usage", "Uso");
  forma->label("OPTIONS", "OPZIONI");
  forma->label("SUBCOMMAND", "COMANDO");
  forma->label("REQUIRED", "(obbligatoria)");
  forma->label("Needs", "Con");
  forma->label("Excludes", "Senza");
  programma.get_help_ptr()->group("Opzioni");
  programma.option_defaults()->group("Opzioni");
}

CLI::App& aggiungiComando(CLI::App& programma, const std::string& nome, const std::string& spiegazione) {
  CLI::App* const comando = programma.add_subcommand(nome, spiegazione)->group("Comandi");
  comando->get_help_ptr()->group("Opzioni");
  return *comando;
}

std::string erroreUso(const CLI::App& programma, const CLI::ParseError& errore) {
  // What is missing is looked at before what nobody knows, and may be missing because of it.
  const bool manca = errore.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
  if (const auto ignoti = programma.remaining(true); manca && !ignoti.empty()) {
    return (programma.get_subcommands().empty() ? "comando sconosciuto: " : "argomento sconosciuto: ") +
           ignoti.front();
  }
  std::string testo = errore.what();
  for (const Frase& frase : kFrasi) {
    const std::size_t dove = testo.find(frase.inglese);
    if (errore.get_exit_code() != static_cast<int>(frase.errore) || dove == std::string::npos) continue;
    return testo.replace(dove, std::string_view(frase.inglese).size(), frase.italiano);
  }
  if (errore.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch)) {
    const bool troppi = testo.find("At Most") != std::string::npos;
    return testo.substr(0, testo.find(':')) + (troppi ? ": indicata più volte" : ": manca il valore");
  }
  return testo;
}

void rifiutaVuoti(const CLI::App& programma) {
  for (const CLI::App* comando : programma.get_subcommands()) {
    for (const CLI::Option* opzione : comando->get_options()) {
      for (const std::string& valore : opzione->results()) {
        if (trim(valore).empty()) throw CLI::ValidationError(opzione->get_name(), "manca il valore");
      }
    }
  }
}

CLI::Validator fra(int minimo, int massimo) {
  const std::string limiti = fromInteger(minimo) + " a " + fromInteger(massimo);
  return {[minimo, massimo, limiti](const std::string& testo) -> std::string {
            int numero = 0;
            const char* const fine = testo.data() + testo.size();
            const auto letto = std::from_chars(testo.data(), fine, numero);
            const bool valido =
                letto.ec == std::errc() && letto.ptr == fine && numero >= minimo && numero <= massimo;
            return valido ? std::string() : "atteso un numero da " + limiti;
          },
          "da " + limiti};
}

}  // namespace cu
