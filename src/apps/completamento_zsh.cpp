// The completion for zsh, as a file of its completion system.

#include <algorithm>

#include "completamento.h"

namespace cu {
namespace {

std::string conTrattini(std::string percorso) {
  std::replace(percorso.begin(), percorso.end(), ' ', '-');
  return percorso;
}

// A text within single quotes; where it explains an option, brackets and colons are escaped too.
std::string traApici(const std::string& testo, bool spiegazione) {
  std::string risultato;
  for (const char c : testo) {
    if (c == '\'') {
      risultato += "'\\''";
      continue;
    }
    if (spiegazione && (c == '[' || c == ']' || c == ':' || c == '\\')) risultato += '\\';
    risultato += c;
  }
  return risultato;
}

// What completes a value: an action of _arguments.
std::string azione(const Proposta& proposta, const std::string& nome) {
  if (proposta.indirizzo) return '_' + nome + "_address";
  if (!proposta.estensioni.empty()) {
    std::string elenco;
    for (const std::string& estensione : proposta.estensioni) {
      elenco += (elenco.empty() ? "" : "|") + estensione;
    }
    return "_files -g \"*.(#i)(" + elenco + ")(-.)\"";
  }
  if (proposta.file) return "_files";
  if (proposta.cartelle) return "_files -/";
  if (proposta.parole.empty()) return " ";
  std::string parole = "(";
  for (const std::string& parola : proposta.parole) parole += (parole.size() > 1 ? " " : "") + parola;
  return parole + ')';
}

// How an option or an argument is described: 'names=[explanation]:type:action'.
std::string specifica(const CLI::Option& opzione, const std::string& programma) {
  const bool molti = opzione.get_items_expected_max() > 1;
  const std::string valore =
      ':' + traApici(opzione.get_type_name(), true) + ':' + azione(propostaDi(opzione), programma);
  if (!opzione.nonpositional()) return std::string("'") + (molti ? "*" : "") + valore + '\'';
  const std::string spiegazione =
      '[' + traApici(opzione.get_description(), true) + ']' + (prendeValore(opzione) ? valore : "") + '\'';
  const auto nomi = nomiScritti(opzione);
  if (nomi.size() == 1) {
    // "=": the value is the next word, or follows the sign.
    return '\'' + std::string(molti ? "*" : "") + nomi.front() + (prendeValore(opzione) ? "=" : "") +
           spiegazione;
  }
  std::string insieme;
  for (const std::string& nome : nomi) insieme += (insieme.empty() ? "" : ",") + nome;
  std::string esclusi = insieme;
  std::replace(esclusi.begin(), esclusi.end(), ',', ' ');
  return "'(" + esclusi + ")'{" + insieme + "}'" + spiegazione;
}

void scriviFunzione(const CLI::App& comando, const std::string& percorso, const std::string& programma,
                    std::ostream& uscita) {
  const std::string funzione = '_' + conTrattini(percorso);
  const auto interni = comandiMostrati(comando);
  uscita << funzione << "() {\n";
  if (!interni.empty()) uscita << "  local curcontext=\"$curcontext\" state line\n  typeset -A opt_args\n";
  uscita << "  _arguments" << (interni.empty() ? "" : " -C");
  for (const CLI::Option* opzione : opzioniMostrate(comando)) {
    uscita << " \\\n    " << specifica(*opzione, programma);
  }
  for (const CLI::Option* argomento : argomentiMostrati(comando)) {
    uscita << " \\\n    " << specifica(*argomento, programma);
  }
  if (interni.empty()) {
    uscita << "\n}\n\n";
  } else {
    uscita << " \\\n    '1: :->command' \\\n    '*:: :->rest'\n  case $state in\n    command)\n"
              "      local -a commands=(\n";
    for (const CLI::App* interno : interni) {
      uscita << "        '" << interno->get_name() << ':' << traApici(interno->get_description(), true)
             << "'\n";
    }
    uscita << "      )\n      _describe -t commands comando commands ;;\n    rest)\n"
              "      case $words[1] in\n";
    for (const CLI::App* interno : interni) {
      uscita << "        " << interno->get_name() << ") " << funzione << '-' << interno->get_name()
             << " ;;\n";
    }
    uscita << "      esac ;;\n  esac\n}\n\n";
  }
  for (const CLI::App* interno : interni) {
    scriviFunzione(*interno, percorso + ' ' + interno->get_name(), programma, uscita);
  }
}

}  // namespace

void scriviZsh(const CLI::App& programma, std::ostream& uscita) {
  const std::string& nome = programma.get_name();
  uscita << "#compdef " << nome << "\n# zsh completion for " << nome << ", written from its command line\n\n_"
         << nome
         << "_address() {\n  if compset -P 'sqlite:'; then\n    _files -g \"*.(#i)(db|sqlite)(-.)\"\n  else\n"
            "    compadd -S '' -- sqlite: odbc:\n  fi\n}\n\n";
  scriviFunzione(programma, nome, nome, uscita);
  uscita << '_' << nome << " \"$@\"\n";
}

}  // namespace cu
