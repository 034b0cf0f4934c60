#include "suite/testo_profilo.h"

#include <string_view>

#include "base/text.h"

namespace cu {
namespace {

// A text between quotation marks.
std::string fraVirgolette(std::string_view testo) {
  constexpr std::string_view kCifre = "0123456789abcdef";
  std::string scritto = "\"";
  for (const char c : testo) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      scritto += '\\';
      scritto += c;
    } else if (byte < 0x20 || byte == 0x7F) {
      scritto += "\\u00";
      scritto += kCifre[byte >> 4U];
      scritto += kCifre[byte & 0xFU];
    } else {
      scritto += c;
    }
  }
  return scritto + '"';
}

std::string vero(bool valore) { return valore ? "true" : "false"; }

std::string sessione(const Profilo::Sessione& sessione) {
  std::string testo =
      "# L'utente dà il nome alla tabella di lavoro; azienda e filiale sono quelle su cui si lavora.\n"
      "[session]\n";
  testo += "user = " + fromInteger(sessione.utente) + '\n';
  testo += "company = " + fromInteger(sessione.azienda) + '\n';
  testo += "branch = " + fromInteger(sessione.filiale) + '\n';
  testo += "title = " + fraVirgolette(sessione.titolo) + '\n';
  testo += "# La guida installata con il programma.\n";
  testo += "help_folder = " + fraVirgolette(sessione.cartellaGuida) + '\n';
  if (sessione.contestoGuida != 0) testo += "help_context = " + fromInteger(sessione.contestoGuida) + '\n';
  if (!sessione.sezioneImpostazioni.empty())
    testo += "settings_section = " + fraVirgolette(sessione.sezioneImpostazioni) + '\n';
  testo += "# 247: certificazioni e Certificazione Unica; 246: conti individuali.\n";
  testo += "processes = [";
  const char* fra = " ";
  for (const ProcessoHost& processo : sessione.processi) {
    testo += fra;
    testo += "{ name = " + fraVirgolette(processo.nome) + ", function = " + fromInteger(processo.idFunzione) +
             " }";
    fra = ", ";
  }
  return testo + " ]\n";
}

std::string database(const Profilo::Database& database) {
  const bool server = database.motore == Profilo::Motore::Odbc;
  std::string testo = "\n[database]\n";
  if (server) {
    testo +=
        "# Il database della suite. La password non si scrive qui: si dà al terminale o nella finestra, "
        "oppure,\n"
        "# per i lavori senza nessuno davanti, in una variabile d'ambiente di cui qui c'è il nome.\n";
  }
  testo += "url = " + fraVirgolette((server ? "odbc:" : "sqlite:") + database.origine) + '\n';
  if (!database.variabilePassword.empty()) {
    testo += "password_env = " + fraVirgolette(database.variabilePassword) + '\n';
  } else if (server) {
    testo += "# password_env = \"CU_DB_PASSWORD\"\n";
  }
  if (server) {
    testo += "encrypt = " + vero(database.cifrata) + '\n';
    testo += "# Secondi concessi all'accesso e a un'istruzione.\n";
    testo += "login_timeout = " + fromInteger(database.secondiAccesso) + '\n';
    testo += "statement_timeout = " + fromInteger(database.secondiIstruzione) + '\n';
  }
  return testo;
}

}  // namespace

std::string testoProfilo(const Profilo& profilo) {
  std::string testo =
      "# Un profilo per cuwizard e cuctl; ogni chiave è spiegata da «man cuwizard-profile».\n\n";
  testo += sessione(profilo.sessione);
  testo += database(profilo.database);
  testo += "\n[currency]\n";
  testo += "decimals = " + vero(profilo.valuta.decimali) + '\n';
  testo += "symbol = " + fraVirgolette(profilo.valuta.simbolo) + '\n';
  testo += "decimal = " + fraVirgolette(profilo.valuta.separatoreDecimale) + '\n';
  testo += "thousands = " + fraVirgolette(profilo.valuta.separatoreMigliaia) + '\n';
  testo +=
      "\n# La cartella dei documenti, dove si scrivono file e stampe, e il file delle "
      "impostazioni.\n[folders]\n";
  testo += "documents = " + fraVirgolette(profilo.documenti) + '\n';
  testo += "settings = " + fraVirgolette(profilo.impostazioni) + '\n';
  if (profilo.moduliPubblicati) {
    testo += "\n# Gli anni dal 2019 nei moduli pubblicati per loro.\n[telematic]\nforms = \"published\"\n";
  }
  if (profilo.stampa == Profilo::MotoreStampa::Registro) testo += "\n[printing]\nengine = \"record\"\n";
  if (!profilo.traccia.empty()) testo += "\n[trace]\nsql = " + fraVirgolette(profilo.traccia) + '\n';
  if (!profilo.registro.empty()) testo += "\n[log]\nfile = " + fraVirgolette(profilo.registro) + '\n';
  return testo;
}

}  // namespace cu
