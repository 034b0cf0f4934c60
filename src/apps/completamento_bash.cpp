// The completion for bash. It needs nothing but bash itself, 4.4 or later.

#include "completamento.h"

namespace cu {
namespace {

// "import payments"; "" of the program itself.
std::string percorsoDi(const CLI::App& comando, const CLI::App& programma) {
  if (&comando == &programma) return {};
  const std::string prima = percorsoDi(*comando.get_parent(), programma);
  return (prima.empty() ? prima : prima + ' ') + comando.get_name();
}

// A call of the functions below, which adds the proposals to COMPREPLY.
std::string chiamata(const Proposta& proposta) {
  std::string righe;
  const auto aggiungi = [&righe](const std::string& riga) { righe += (righe.empty() ? "" : "; ") + riga; };
  if (!proposta.parole.empty()) {
    std::string riga = "_NAME_words";
    for (const std::string& parola : proposta.parole) riga += " '" + parola + '\'';
    aggiungi(riga);
  }
  if (!proposta.estensioni.empty()) {
    std::string riga = "_NAME_files";
    for (const std::string& estensione : proposta.estensioni) riga += ' ' + estensione;
    aggiungi(riga);
  }
  if (proposta.file) aggiungi("_NAME_any_file");
  if (proposta.cartelle && proposta.estensioni.empty()) aggiungi("_NAME_folders");
  if (proposta.indirizzo) aggiungi("_NAME_address");
  return righe.empty() ? ":" : righe;
}

// The names, commands and values of a command, a line each in the two functions of the script.
struct Righe {
  std::string parole;
  std::string valori;
};

void descrivi(const CLI::App& comando, const CLI::App& programma, Righe& righe) {
  const std::string percorso = percorsoDi(comando, programma);
  std::string sotto;
  for (const CLI::App* interno : comandiMostrati(comando)) sotto += ' ' + interno->get_name();
  std::string opzioni;
  for (const CLI::Option* opzione : opzioniMostrate(comando)) {
    std::string nomi;
    for (const std::string& nome : nomiScritti(*opzione)) {
      opzioni += ' ' + nome;
      nomi += nomi.empty() ? "'" : " | '";
      nomi.append(percorso).append(":").append(nome).append("'");
    }
    if (prendeValore(*opzione)) {
      righe.valori += "    " + nomi + ") " + chiamata(propostaDi(*opzione)) + " ;;\n";
    }
  }
  righe.parole += "    '" + percorso + "') commands='" + (sotto.empty() ? sotto : sotto.substr(1)) +
                  "' options='" + opzioni.substr(1) + "' ;;\n";
  Proposta argomenti;
  for (const CLI::Option* argomento : argomentiMostrati(comando)) {
    if (argomenti.vuota()) argomenti = propostaDi(*argomento);
  }
  if (!argomenti.vuota()) righe.valori += "    '" + percorso + ":') " + chiamata(argomenti) + " ;;\n";
  for (const CLI::App* interno : comandiMostrati(comando)) descrivi(*interno, programma, righe);
}

std::string conNome(std::string testo, const std::string& nome) {
  for (std::size_t dove = testo.find("NAME"); dove != std::string::npos; dove = testo.find("NAME", dove)) {
    testo.replace(dove, 4, nome);
  }
  return testo;
}

constexpr const char* kFunzioni = R"bash(# bash completion for NAME, written from its command line

_NAME_words() {
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$*" -- "$current")
}

_NAME_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -d -- "$current")
}

_NAME_any_file() {
  compopt -o filenames 2>/dev/null
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$current")
}

# Folders, and files with one of the extensions in small or capital letters.
_NAME_files() {
  local file extension
  _NAME_folders
  while IFS= read -r file; do
    for extension in "$@"; do
      if [[ ! -d $file && ${file,,} == *."$extension" ]]; then
        COMPREPLY+=("$file")
      fi
    done
  done < <(compgen -f -- "$current")
}

# A colon ends a word for bash: after "sqlite:" only the file is completed.
_NAME_address() {
  if [[ $scheme == sqlite ]]; then
    _NAME_files db sqlite
  elif [[ -z $scheme ]]; then
    compopt -o nospace 2>/dev/null
    _NAME_words sqlite: odbc:
  fi
}

)bash";

constexpr const char* kMotore =
    R"bash(# What follows the option $2 of the command $1, or without an option its arguments.
_NAME_value() {
  case "$1:$2" in
VALUES    *) return 1 ;;
  esac
}

_NAME() {
  local commands options current scheme='' path='' option='' word i last=$((COMP_CWORD - 1))
  COMPREPLY=()
  current=${COMP_WORDS[COMP_CWORD]}
  current=${current#[\"\']}
  current=${current//\\/}
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    _NAME_names "$path"
    if [[ " $commands " == *" $word "* ]]; then
      path=${path:+$path }$word
    fi
  done
  _NAME_names "$path"
  # "--option=value" and "scheme:rest" are several words for bash.
  if [[ $current == ':' ]]; then
    scheme=${COMP_WORDS[last]} current='' last=$((last - 1))
  elif ((last > 1)) && [[ ${COMP_WORDS[last]} == ':' ]]; then
    scheme=${COMP_WORDS[last - 1]} last=$((last - 2))
  fi
  if [[ $current == '=' ]]; then
    current=''
  elif ((last > 1)) && [[ ${COMP_WORDS[last]} == '=' ]]; then
    last=$((last - 1))
  fi
  if ((last > 0)) && [[ ${COMP_WORDS[last]} == -* ]]; then
    option=${COMP_WORDS[last]}
  fi
  if [[ -n $option ]] && _NAME_value "$path" "$option"; then
    return
  fi
  if [[ $current == -* ]]; then
    _NAME_words "$options"
  elif [[ -n $commands ]]; then
    _NAME_words "$commands"
  else
    _NAME_value "$path" ''
  fi
}

complete -F _NAME NAME
)bash";

}  // namespace

void scriviBash(const CLI::App& programma, std::ostream& uscita) {
  Righe righe;
  descrivi(programma, programma, righe);
  std::string motore = kMotore;
  motore.replace(motore.find("VALUES"), 6, righe.valori);
  uscita << conNome(kFunzioni, programma.get_name())
         << conNome(
                "# The commands and options of the command $1.\n_NAME_names() {\n  commands='' options=''\n"
                "  case \"$1\" in\n" +
                    righe.parole + "  esac\n}\n\n",
                programma.get_name())
         << conNome(motore, programma.get_name());
}

}  // namespace cu
