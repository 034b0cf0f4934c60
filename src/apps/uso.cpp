#include "uso.h"

#include "apps/comune/argomenti.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/text.h"

namespace cu {
namespace {

constexpr const char* kRegistro = "--log";

using OpzioniLinea = std::vector<const CLI::Option*>;

// The innermost command of the line.
const CLI::App& comandoIndicato(const CLI::App& programma) {
  const CLI::App* comando = &programma;
  for (auto interni = comando->get_subcommands(); !interni.empty(); interni = comando->get_subcommands()) {
    comando = interni.front();
  }
  return *comando;
}

OpzioniLinea opzioniDelComando(const CLI::App& programma) { return comandoIndicato(programma).get_options(); }

bool indicata(const CLI::Option* opzione) { return opzione->count() > 0; }

std::optional<std::string> mancante(const OpzioniLinea& opzioni) {
  for (const CLI::Option* opzione : opzioni) {
    if (opzione->get_required() && !indicata(opzione)) return opzione->get_name() + ": manca";
  }
  return {};
}

std::optional<std::string> senzaCompagna(const OpzioniLinea& opzioni) {
  for (const CLI::Option* opzione : opzioni) {
    for (const CLI::Option* altra : opzione->get_needs()) {
      if (indicata(opzione) && !indicata(altra))
        return opzione->get_name() + " richiede " + altra->get_name();
    }
  }
  return {};
}

std::optional<std::string> inconciliabile(const OpzioniLinea& opzioni) {
  for (const CLI::Option* opzione : opzioni) {
    for (const CLI::Option* altra : opzione->get_excludes()) {
      if (indicata(opzione) && indicata(altra)) return opzione->get_name() + " esclude " + altra->get_name();
    }
  }
  return {};
}

std::optional<std::string> ignoti(const CLI::App& programma) {
  std::vector<std::string> parole = programma.remaining();
  if (parole.empty()) parole = comandoIndicato(programma).remaining();
  if (parole.empty()) return {};
  std::string testo = parole.size() > 1 ? "argomenti sconosciuti:" : "argomento sconosciuto:";
  for (const std::string& parola : parole) testo += ' ' + parola;
  return testo;
}

// For these two errors the library provides only a sentence: "...: option = value" and "option: ...".
std::optional<std::string> nonValido(std::string_view frase) {
  const std::size_t segno = frase.find(": ");
  if (segno == std::string_view::npos) return {};
  return "valore non valido" + std::string(frase.substr(segno));
}

std::string senzaValore(std::string_view frase, const OpzioniLinea& opzioni) {
  const std::string nome(frase.substr(0, frase.find(':')));
  const bool troppi = std::any_of(opzioni.begin(), opzioni.end(), [&nome](const CLI::Option* opzione) {
    return opzione->get_name() == nome &&
           opzione->count() > static_cast<std::size_t>(opzione->get_items_expected_max());
  });
  return nome + (troppi ? ": indicata più volte" : ": manca il valore");
}

std::optional<std::string> inItaliano(const CLI::App& programma, const CLI::ParseError& errore) {
  const OpzioniLinea opzioni = opzioniDelComando(programma);
  switch (static_cast<CLI::ExitCodes>(errore.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
      return mancante(opzioni).value_or("manca il comando");
    case CLI::ExitCodes::ExtrasError:
      return ignoti(programma);
    case CLI::ExitCodes::RequiresError:
      return senzaCompagna(opzioni);
    case CLI::ExitCodes::ExcludesError:
      return inconciliabile(opzioni);
    case CLI::ExitCodes::ConversionError:
      return nonValido(errore.what());
    case CLI::ExitCodes::ArgumentMismatch:
      return senzaValore(errore.what(), opzioni);
    default:
      return {};
  }
}

}  // namespace

void parlaItaliano(CLI::App& programma) {
  programma.set_help_flag("-h,--help", "Mostra questo aiuto");
  const auto forma = programma.get_formatter();
  forma->label("Usage", "Uso");
  forma->label("OPTIONS", "OPZIONI");
  forma->label("SUBCOMMAND", "COMANDO");
  forma->label("Positionals", "Argomenti");
  forma->label("REQUIRED", "(obbligatorio)");
  forma->label("Needs", "Con");
  forma->label("Excludes", "Senza");
  programma.get_help_ptr()->group("Opzioni");
  programma.option_defaults()->group("Opzioni");
}

void aggiungiVersione(CLI::App& programma, const std::function<std::string()>& versione) {
  programma.set_version_flag("--version", versione, "Mostra la versione, con quelle delle librerie")
      ->group("Opzioni");
}

CLI::App& aggiungiComando(CLI::App& programma, const std::string& nome, const std::string& spiegazione) {
  CLI::App* const comando = programma.add_subcommand(nome, spiegazione)->group("Comandi");
  comando->get_help_ptr()->group("Opzioni");
  aggiungiRegistro(*comando);
  return *comando;
}

std::string nomeComando(const CLI::App& programma) {
  std::string nome;
  for (auto interni = programma.get_subcommands(); !interni.empty();
       interni = interni.front()->get_subcommands()) {
    if (!nome.empty()) nome += ' ';
    nome += interni.front()->get_name();
  }
  return nome;
}

void aggiungiRegistro(CLI::App& comando) {
  const std::string spiegazione = "Scrive in FILE un registro per l'assistenza, senza dati";
  comando.add_option(kRegistro, spiegazione)->type_name("FILE")->group("Opzioni");
}

std::string fileRegistro(const CLI::App& programma) {
  // A group of commands has the option too.
  for (const CLI::App* comando = &comandoIndicato(programma); comando != nullptr;
       comando = comando->get_parent()) {
    const CLI::Option* const opzione = comando->get_option_no_throw(kRegistro);
    if (opzione != nullptr && opzione->count() > 0) return opzione->results().back();
  }
  return {};
}

void aggiungiIndirizzo(CLI::App& comando, OpzioniDatabase& database) {
  comando.add_option("--database", database.indirizzo, "sqlite:FILE oppure odbc:Driver=...;Server=...")
      ->required()
      ->type_name("URL");
  comando
      .add_option("--password-env", database.variabilePassword, "Variabile con la password di un url odbc")
      ->type_name("NOME");
  comando.add_flag("--no-encrypt", database.inChiaro, "Non cifra la connessione di un url odbc");
}

std::optional<std::string> comandoIgnoto(const CLI::App& programma) {
  const auto parole = programma.remaining(true);
  const auto tutti = [](const CLI::App*) { return true; };
  if (parole.empty() || comandoIndicato(programma).get_subcommands(tutti).empty()) return {};
  return "comando sconosciuto: " + parole.front();
}

std::string erroreUso(const CLI::App& programma, const CLI::ParseError& errore) {
  // Missing options are reported before unknown ones, which may be their cause.
  const bool manca = errore.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
  if (const auto parole = programma.remaining(true); manca && !parole.empty()) {
    return comandoIgnoto(programma).value_or("argomento sconosciuto: " + parole.front());
  }
  return inItaliano(programma, errore).value_or(errore.what());
}

void rifiutaVuoti(const CLI::App& programma) {
  for (const CLI::Option* opzione : comandoIndicato(programma).get_options()) {
    for (const std::string& valore : opzione->results()) {
      if (trim(valore).empty()) throw CLI::ValidationError(opzione->get_name(), "manca il valore");
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
          ""};
}

CLI::Option* aggiungiData(CLI::App& comando, const std::string& nome, std::optional<Date>& dove,
                          const std::string& spiegazione) {
  const auto leggi = [&dove](const CLI::results_t& valori) {
    dove = leggiData(valori.back());
    return dove.has_value();
  };
  return comando.add_option(nome, leggi, spiegazione)->type_name("AAAA-MM-GG o GG/MM/AAAA")->expected(1);
}

}  // namespace cu
