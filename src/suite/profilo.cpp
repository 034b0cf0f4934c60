#include "suite/profilo.h"

#include <filesystem>

#include "base/text.h"
#include "suite/file_distinti.h"
#include "suite/lettore_toml.h"

namespace cu {
namespace {

constexpr std::string_view kAttesaData = "una data con ora senza fuso, come 2017-03-05T10:30:00";
constexpr std::string_view kAttesiProcessi =
    "un elenco come [ { name = \"Wizard stampa\", function = 247 } ]";

std::vector<ProcessoHost> processi(const LettoreToml& sessione) {
  const toml::array* const elenco = sessione.nodo("processes", kAttesiProcessi).as_array();
  if (elenco == nullptr) sessione.rifiuta("processes", "tipo sbagliato", kAttesiProcessi);
  std::vector<ProcessoHost> risultato;
  for (const toml::node& elemento : *elenco) {
    const std::string nome =
        "processes[" + fromInteger(static_cast<std::int64_t>(risultato.size()) + 1) + "]";
    const toml::table* const tabella = elemento.as_table();
    if (tabella == nullptr) sessione.rifiuta(nome, "tipo sbagliato", "una tabella con name e function");
    const LettoreToml processo(*tabella, sessione.file(), "session." + nome + ".");
    processo.soloChiavi({"name", "function"});
    risultato.push_back({processo.testo("name"), processo.intero("function", 0)});
  }
  return risultato;
}

std::optional<Profilo::Istante> oggi(const LettoreToml& sessione) {
  if (!sessione.presente("today")) return {};
  const auto* const valore = sessione.nodo("today", kAttesaData).as_date_time();
  if (valore == nullptr || !valore->get().is_local()) {
    sessione.rifiuta("today", "tipo sbagliato", kAttesaData);
  }
  const toml::date_time& istante = valore->get();
  const auto giorno = Date::fromYmd(istante.date.year, istante.date.month, istante.date.day);
  if (!giorno) sessione.rifiuta("today", "valore non ammesso", kAttesaData);
  return Profilo::Istante{*giorno, {istante.time.hour, istante.time.minute, istante.time.second}};
}

// Without a trailing separator; may be empty.
std::string cartellaGuida(const LettoreToml& sessione, const std::string& cartella) {
  if (sessione.testo("help_folder").empty()) return {};
  std::string percorso = sessione.percorso("help_folder", cartella);
  while (percorso.size() > 1 && percorso.back() == '/') percorso.pop_back();
  return percorso;
}

Profilo::Sessione leggiSessione(const LettoreToml& chiavi, const std::string& cartella) {
  chiavi.soloChiavi({"user", "company", "branch", "title", "help_folder", "help_context", "settings_section",
                     "processes", "refuse_start", "today"});
  Profilo::Sessione sessione;
  sessione.utente = chiavi.intero("user", 0);
  sessione.azienda = chiavi.intero("company", 0);
  sessione.filiale = chiavi.intero("branch", 0);
  sessione.titolo = chiavi.testo("title");
  sessione.cartellaGuida = cartellaGuida(chiavi, cartella);
  sessione.contestoGuida = chiavi.intero("help_context", 0, 0);
  sessione.sezioneImpostazioni = chiavi.testo("settings_section", "");
  sessione.processi = processi(chiavi);
  sessione.rifiutaAvvio = chiavi.vero("refuse_start", false);
  sessione.oggi = oggi(chiavi);
  return sessione;
}

Profilo::Database leggiDatabase(const LettoreToml& chiavi, const std::string& cartella) {
  chiavi.soloChiavi({"url", "password_env", "encrypt", "login_timeout", "statement_timeout"});
  const auto indirizzo = analizzaIndirizzo(chiavi.testo("url"), cartella);
  if (!indirizzo) {
    chiavi.rifiuta("url", "valore non ammesso", "\"sqlite:FILE\" oppure \"odbc:Driver=...;Server=...\"");
  }
  Profilo::Database database = *indirizzo;
  database.variabilePassword = chiavi.testo("password_env", "");
  database.cifrata = chiavi.vero("encrypt", true);
  database.secondiAccesso = chiavi.intero("login_timeout", 0, database.secondiAccesso);
  database.secondiIstruzione = chiavi.intero("statement_timeout", 0, database.secondiIstruzione);
  return database;
}

Profilo::Valuta leggiValuta(const LettoreToml& chiavi) {
  chiavi.soloChiavi({"decimals", "symbol", "decimal", "thousands"});
  Profilo::Valuta valuta;
  valuta.decimali = chiavi.vero("decimals");
  valuta.simbolo = chiavi.testo("symbol");
  valuta.separatoreDecimale = chiavi.segno("decimal", 1);
  valuta.separatoreMigliaia = chiavi.segno("thousands", 0);
  return valuta;
}

Profilo::MotoreStampa leggiStampa(const LettoreToml& chiavi) {
  chiavi.soloChiavi({"engine"});
  const std::string motore = chiavi.testo("engine");
  if (motore == "record") return Profilo::MotoreStampa::Registro;
  if (motore != "pdf") chiavi.rifiuta("engine", "valore non ammesso", "\"pdf\" oppure \"record\"");
  return Profilo::MotoreStampa::Pdf;
}

bool leggiModuli(const LettoreToml& chiavi) {
  chiavi.soloChiavi({"forms"});
  const std::string moduli = chiavi.testo("forms", "fixed");
  if (moduli != "fixed" && moduli != "published") {
    chiavi.rifiuta("forms", "valore non ammesso", "\"fixed\" oppure \"published\"");
  }
  return moduli == "published";
}

}  // namespace

std::optional<Profilo::Database> analizzaIndirizzo(std::string_view indirizzo, const std::string& cartella) {
  const std::size_t fine = indirizzo.find(':');
  if (fine == std::string_view::npos || indirizzo.find('\0') != std::string_view::npos) return {};
  const std::string_view motore = indirizzo.substr(0, fine);
  const std::string origine(indirizzo.substr(fine + 1));
  if (origine.empty()) return {};
  Profilo::Database database;
  if (motore == "sqlite") {
    database.origine = completa(origine, cartella);
  } else if (motore == "odbc") {
    database.motore = Profilo::Motore::Odbc;
    database.origine = origine;
  } else {
    return {};
  }
  return database;
}

Profilo analizzaProfilo(std::string_view testo, const std::string& file, const std::string& cartella) {
  const toml::parse_result letto = toml::parse(testo, std::string_view(file));
  if (!letto) {
    const toml::source_position dove = letto.error().source().begin;
    throw ErroreProfilo(unaRiga(file) + ": riga " + fromInteger(dove.line) + ", colonna " +
                        fromInteger(dove.column) + ": il testo non è TOML valido, atteso chiave = valore");
  }
  const LettoreToml radice(letto.table(), file);
  radice.soloChiavi({"session", "database", "currency", "folders", "printing", "telematic", "trace", "log"});
  Profilo profilo;
  profilo.file = file;
  profilo.sessione = leggiSessione(radice.sezione("session"), cartella);
  profilo.database = leggiDatabase(radice.sezione("database"), cartella);
  profilo.valuta = leggiValuta(radice.sezione("currency"));
  const LettoreToml cartelle = radice.sezione("folders");
  cartelle.soloChiavi({"documents", "settings"});
  profilo.documenti = cartelle.percorso("documents", cartella);
  profilo.impostazioni = cartelle.percorso("settings", cartella);
  if (radice.presente("printing")) profilo.stampa = leggiStampa(radice.sezione("printing"));
  if (radice.presente("telematic")) profilo.moduliPubblicati = leggiModuli(radice.sezione("telematic"));
  if (radice.presente("trace")) {
    const LettoreToml traccia = radice.sezione("trace");
    traccia.soloChiavi({"sql"});
    profilo.traccia = traccia.percorso("sql", cartella);
  }
  if (radice.presente("log")) {
    const LettoreToml registro = radice.sezione("log");
    registro.soloChiavi({"file"});
    profilo.registro = registro.percorso("file", cartella);
  }
  return profilo;
}

Profilo leggiProfilo(const std::string& file) {
  Profilo profilo =
      analizzaProfilo(leggiTestoToml(file), file, std::filesystem::absolute(file).parent_path().string());
  controllaFileDistinti(profilo);
  return profilo;
}

}  // namespace cu
