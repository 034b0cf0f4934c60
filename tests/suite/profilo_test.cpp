#include "suite/profilo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::string_view kCompleto = R"([session]
user = 12
company = 1
branch = 3
title = "Quadrivio"
help_folder = "/usr/share/doc/cuwizard"
help_context = 100
settings_section = "Sessione12"
processes = [ { name = "Wizard stampa", function = 247 }, { name = "Altro", function = 5 } ]
refuse_start = true
today = 2017-03-05T10:30:07
[database]
url = "sqlite:demo.db"
password_env = "CU_DB_PASSWORD"
encrypt = false
login_timeout = 3
statement_timeout = 0
[currency]
decimals = true
symbol = "€"
decimal = ","
thousands = "."
[folders]
documents = "/home/utente/Documenti"
settings = "conf/settings.toml"
[printing]
engine = "record"
[telematic]
forms = "published"
[trace]
sql = "trace.sql"
)";

constexpr std::string_view kMinimo = R"([session]
user = 12
company = 1
branch = 1
title = ""
help_folder = "guida/"
processes = []
[database]
url = "sqlite:/dati/demo.db"
[currency]
decimals = false
symbol = ""
decimal = ","
thousands = ""
[folders]
documents = "Documenti"
settings = "/altrove/settings.toml"
)";

Profilo analizza(std::string_view testo) { return analizzaProfilo(testo, "prova.toml", "/cartella"); }

std::string errore(std::string_view testo) {
  try {
    analizza(testo);
  } catch (const ErroreProfilo& rifiuto) {
    return rifiuto.what();
  }
  return "(nessun errore)";
}

// The complete profile with one line replaced; an empty replacement removes the line.
std::string con(std::string_view riga, std::string_view altra) {
  std::string testo(kCompleto);
  const std::size_t dove = testo.find(std::string(riga) + "\n");
  if (dove == std::string::npos) throw std::logic_error("no such line");
  testo.replace(dove, riga.size() + 1, altra.empty() ? "" : std::string(altra) + "\n");
  return testo;
}

TEST(Profilo, EveryKeyIsRead) {
  const Profilo profilo = analizza(kCompleto);
  EXPECT_EQ(profilo.sessione.utente, 12);
  EXPECT_EQ(profilo.sessione.azienda, 1);
  EXPECT_EQ(profilo.sessione.filiale, 3);
  EXPECT_EQ(profilo.sessione.titolo, "Quadrivio");
  EXPECT_EQ(profilo.sessione.cartellaGuida, "/usr/share/doc/cuwizard");
  EXPECT_EQ(profilo.sessione.contestoGuida, 100);
  EXPECT_EQ(profilo.sessione.sezioneImpostazioni, "Sessione12");
  ASSERT_EQ(profilo.sessione.processi.size(), 2U);
  EXPECT_EQ(profilo.sessione.processi[0].nome, "Wizard stampa");
  EXPECT_EQ(profilo.sessione.processi[0].idFunzione, 247);
  EXPECT_EQ(profilo.sessione.processi[1].nome, "Altro");
  EXPECT_EQ(profilo.sessione.processi[1].idFunzione, 5);
  EXPECT_TRUE(profilo.sessione.rifiutaAvvio);
  ASSERT_TRUE(profilo.sessione.oggi.has_value());
  EXPECT_EQ(profilo.sessione.oggi->giorno.toIso(), "2017-03-05");
  EXPECT_EQ(profilo.sessione.oggi->ora.hour, 10);
  EXPECT_EQ(profilo.sessione.oggi->ora.minute, 30);
  EXPECT_EQ(profilo.sessione.oggi->ora.second, 7);
  EXPECT_EQ(profilo.database.motore, Profilo::Motore::Sqlite);
  EXPECT_EQ(profilo.database.origine, "/cartella/demo.db");
  EXPECT_EQ(profilo.database.variabilePassword, "CU_DB_PASSWORD");
  EXPECT_FALSE(profilo.database.cifrata);
  EXPECT_EQ(profilo.database.secondiAccesso, 3);
  EXPECT_EQ(profilo.database.secondiIstruzione, 0);
  EXPECT_TRUE(profilo.valuta.decimali);
  EXPECT_EQ(profilo.valuta.simbolo, "€");
  EXPECT_EQ(profilo.valuta.separatoreDecimale, ",");
  EXPECT_EQ(profilo.valuta.separatoreMigliaia, ".");
  EXPECT_EQ(profilo.documenti, "/home/utente/Documenti");
  EXPECT_EQ(profilo.impostazioni, "/cartella/conf/settings.toml");
  EXPECT_EQ(profilo.stampa, Profilo::MotoreStampa::Registro);
  EXPECT_TRUE(profilo.moduliPubblicati);
  EXPECT_EQ(profilo.traccia, "/cartella/trace.sql");
  EXPECT_EQ(profilo.registro, "");
}

TEST(Profilo, OptionalKeysHaveTheirDefaults) {
  const Profilo profilo = analizza(kMinimo);
  EXPECT_EQ(profilo.sessione.contestoGuida, 0);
  EXPECT_EQ(profilo.sessione.sezioneImpostazioni, "");
  EXPECT_FALSE(profilo.sessione.rifiutaAvvio);
  EXPECT_FALSE(profilo.sessione.oggi.has_value());
  EXPECT_EQ(profilo.database.variabilePassword, "");
  EXPECT_TRUE(profilo.database.cifrata);
  EXPECT_EQ(profilo.database.secondiAccesso, 15);
  EXPECT_EQ(profilo.database.secondiIstruzione, 600);
  EXPECT_FALSE(profilo.moduliPubblicati);
  EXPECT_FALSE(analizza(con("forms = \"published\"", "forms = \"fixed\"")).moduliPubblicati);
  EXPECT_FALSE(analizza(con("forms = \"published\"", "")).moduliPubblicati);
  EXPECT_EQ(profilo.stampa, Profilo::MotoreStampa::Pdf);
  EXPECT_EQ(profilo.traccia, "");
  EXPECT_TRUE(profilo.sessione.processi.empty());
}

TEST(Profilo, RelativePathsBeginAtTheProfilesFolder) {
  const Profilo profilo = analizza(kMinimo);
  EXPECT_EQ(profilo.sessione.cartellaGuida, "/cartella/guida");
  EXPECT_EQ(profilo.documenti, "/cartella/Documenti");
  EXPECT_EQ(profilo.database.origine, "/dati/demo.db");
  EXPECT_EQ(profilo.impostazioni, "/altrove/settings.toml");
  EXPECT_EQ(analizza(con("sql = \"trace.sql\"", "sql = \"../t.sql\"")).traccia, "/t.sql");
  EXPECT_EQ(analizza(con("[trace]", "[log]\nfile = \"registro.txt\"\n[trace]")).registro,
            "/cartella/registro.txt");
}

TEST(Profilo, AMissingKeyIsNamedWithWhatIsExpected) {
  struct {
    const char* riga;
    const char* messaggio;
  } const casi[] = {
      {"user = 12", "prova.toml: session.user: manca, atteso un numero intero da 0 a 2147483647"},
      {"company = 1", "prova.toml: session.company: manca, atteso un numero intero da 0 a 2147483647"},
      {"branch = 3", "prova.toml: session.branch: manca, atteso un numero intero da 0 a 2147483647"},
      {"title = \"Quadrivio\"", "prova.toml: session.title: manca, atteso un testo tra virgolette"},
      {"help_folder = \"/usr/share/doc/cuwizard\"",
       "prova.toml: session.help_folder: manca, atteso un testo tra virgolette"},
      {"processes = [ { name = \"Wizard stampa\", function = 247 }, { name = \"Altro\", function = 5 } ]",
       "prova.toml: session.processes: manca, atteso un elenco come [ { name = \"Wizard stampa\", function = "
       "247 } ]"},
      {"url = \"sqlite:demo.db\"", "prova.toml: database.url: manca, atteso un testo tra virgolette"},
      {"decimals = true", "prova.toml: currency.decimals: manca, atteso true o false"},
      {"symbol = \"€\"", "prova.toml: currency.symbol: manca, atteso un testo tra virgolette"},
      {"decimal = \",\"", "prova.toml: currency.decimal: manca, atteso un testo tra virgolette"},
      {"thousands = \".\"", "prova.toml: currency.thousands: manca, atteso un testo tra virgolette"},
      {"documents = \"/home/utente/Documenti\"",
       "prova.toml: folders.documents: manca, atteso un testo tra virgolette"},
      {"settings = \"conf/settings.toml\"",
       "prova.toml: folders.settings: manca, atteso un testo tra virgolette"},
      {"engine = \"record\"", "prova.toml: printing.engine: manca, atteso un testo tra virgolette"},
      {"sql = \"trace.sql\"", "prova.toml: trace.sql: manca, atteso un testo tra virgolette"},
  };
  for (const auto& caso : casi) EXPECT_EQ(errore(con(caso.riga, "")), caso.messaggio);
}

TEST(Profilo, AMissingSectionIsNamed) {
  EXPECT_EQ(errore(""), "prova.toml: session: manca, atteso una sezione");
  EXPECT_EQ(errore("session = 3"), "prova.toml: session: tipo sbagliato, atteso una sezione");
  for (const char* sezione : {"database", "currency", "folders"}) {
    std::string testo(kMinimo);
    const std::size_t dove = testo.find("[" + std::string(sezione) + "]");
    const std::size_t fine = testo.find('[', dove + 1);
    testo.erase(dove, fine == std::string::npos ? std::string::npos : fine - dove);
    EXPECT_EQ(errore(testo), "prova.toml: " + std::string(sezione) + ": manca, atteso una sezione");
  }
}

TEST(Profilo, AMisspeltKeyIsNamedWithTheNamesThatExist) {
  EXPECT_EQ(errore(con("user = 12", "usr = 12")),
            "prova.toml: session.usr: chiave sconosciuta, atteso uno di questi nomi: user, company, branch, "
            "title, help_folder, help_context, settings_section, processes, refuse_start, today");
  EXPECT_EQ(errore(con("encrypt = false", "Encrypt = false")),
            "prova.toml: database.Encrypt: chiave sconosciuta, atteso uno di questi nomi: url, password_env, "
            "encrypt, login_timeout, statement_timeout");
  EXPECT_THAT(errore(con("decimals = true", "decimali = true")), HasSubstr("currency.decimali"));
  EXPECT_THAT(errore(con("documents = \"/home/utente/Documenti\"", "doc = \"x\"")), HasSubstr("folders.doc"));
  EXPECT_THAT(errore(con("engine = \"record\"", "motore = \"pdf\"")), HasSubstr("printing.motore"));
  EXPECT_THAT(errore(con("sql = \"trace.sql\"", "file = \"x\"")), HasSubstr("trace.file"));
  EXPECT_THAT(errore(con("[trace]", "[log]\nsql = \"x\"\n[trace]")), HasSubstr("log.sql"));
  EXPECT_THAT(errore(con("[trace]", "[log]\n[trace]")), HasSubstr("log.file: manca"));
  EXPECT_EQ(errore(std::string(kCompleto) + "[stampe]\n"),
            "prova.toml: stampe: chiave sconosciuta, atteso uno di questi nomi: session, database, currency, "
            "folders, printing, telematic, trace, log");
}

TEST(Profilo, AWrongTypeIsRefused) {
  struct {
    const char* riga;
    const char* altra;
    const char* messaggio;
  } const casi[] = {
      {"user = 12", "user = \"12\"", "session.user: tipo sbagliato, atteso un numero intero"},
      {"user = 12", "user = 12.0", "session.user: tipo sbagliato, atteso un numero intero"},
      {"title = \"Quadrivio\"", "title = 1", "session.title: tipo sbagliato, atteso un testo"},
      {"refuse_start = true", "refuse_start = 1",
       "session.refuse_start: tipo sbagliato, atteso true o false"},
      {"today = 2017-03-05T10:30:07", "today = \"2017-03-05\"",
       "session.today: tipo sbagliato, atteso una data con ora senza fuso"},
      {"today = 2017-03-05T10:30:07", "today = 2017-03-05T10:30:07Z",
       "session.today: tipo sbagliato, atteso una data con ora senza fuso"},
      {"encrypt = false", "encrypt = \"no\"", "database.encrypt: tipo sbagliato, atteso true o false"},
      {"login_timeout = 3", "login_timeout = 3.5", "database.login_timeout: tipo sbagliato"},
      {"decimals = true", "decimals = 2", "currency.decimals: tipo sbagliato, atteso true o false"},
      {"forms = \"published\"", "forms = 2021", "telematic.forms: tipo sbagliato, atteso un testo"},
      {"engine = \"record\"", "engine = true", "printing.engine: tipo sbagliato, atteso un testo"},
      {"sql = \"trace.sql\"", "sql = []", "trace.sql: tipo sbagliato, atteso un testo"},
  };
  for (const auto& caso : casi) {
    EXPECT_THAT(errore(con(caso.riga, caso.altra)), StartsWith("prova.toml: " + std::string(caso.messaggio)));
  }
}

TEST(Profilo, AValueOutOfItsRangeIsRefused) {
  EXPECT_THAT(errore(con("user = 12", "user = 2147483648")), HasSubstr("session.user: valore non ammesso"));
  EXPECT_THAT(errore(con("user = 12", "user = -1")), HasSubstr("session.user: valore non ammesso"));
  EXPECT_EQ(analizza(con("user = 12", "user = 2147483647")).sessione.utente, 2147483647);
  EXPECT_THAT(errore(con("statement_timeout = 0", "statement_timeout = -1")),
              HasSubstr("database.statement_timeout: valore non ammesso"));
  EXPECT_THAT(errore(con("url = \"sqlite:demo.db\"", "url = \"demo.db\"")),
              HasSubstr("database.url: valore non ammesso, atteso \"sqlite:FILE\" oppure \"odbc:"));
  EXPECT_THAT(errore(con("url = \"sqlite:demo.db\"", "url = \"sqlite:\"")), HasSubstr("database.url"));
  EXPECT_THAT(errore(con("url = \"sqlite:demo.db\"", "url = \"mysql:x\"")), HasSubstr("database.url"));
  EXPECT_THAT(errore(con("decimal = \",\"", "decimal = \"\"")), HasSubstr("currency.decimal: valore"));
  EXPECT_THAT(errore(con("decimal = \",\"", "decimal = \",,\"")), HasSubstr("currency.decimal: valore"));
  EXPECT_THAT(errore(con("thousands = \".\"", "thousands = \"..\"")),
              HasSubstr("currency.thousands: valore"));
  EXPECT_THAT(errore(con("engine = \"record\"", "engine = \"PDF\"")),
              HasSubstr("printing.engine: valore non ammesso, atteso \"pdf\" oppure \"record\""));
  EXPECT_THAT(errore(con("forms = \"published\"", "forms = \"2021\"")),
              HasSubstr("telematic.forms: valore non ammesso, atteso \"fixed\" oppure \"published\""));
  EXPECT_THAT(errore(con("settings = \"conf/settings.toml\"", "settings = \"\"")),
              HasSubstr("folders.settings: valore non ammesso, atteso un percorso"));
}

TEST(Profilo, AProcessWithoutItsKeysIsRefused) {
  const auto conProcessi = [](const std::string& processi) {
    return errore(con(
        "processes = [ { name = \"Wizard stampa\", function = 247 }, { name = \"Altro\", function = 5 } ]",
        "processes = " + processi));
  };
  EXPECT_THAT(conProcessi("3"), HasSubstr("session.processes: tipo sbagliato, atteso un elenco"));
  EXPECT_THAT(conProcessi("[ 3 ]"), HasSubstr("session.processes[1]: tipo sbagliato"));
  EXPECT_THAT(conProcessi("[ { name = \"a\", function = 1 }, { name = \"b\" } ]"),
              HasSubstr("session.processes[2].function: manca"));
  EXPECT_THAT(conProcessi("[ { function = 1 } ]"), HasSubstr("session.processes[1].name: manca"));
  EXPECT_THAT(conProcessi("[ { name = 1, function = 1 } ]"), HasSubstr("processes[1].name: tipo sbagliato"));
  EXPECT_THAT(conProcessi("[ { name = \"a\", function = 1, id = 2 } ]"),
              HasSubstr("session.processes[1].id: chiave sconosciuta"));
}

TEST(Profilo, AnOdbcAddressKeepsItsText) {
  const Profilo profilo =
      analizza(con("url = \"sqlite:demo.db\"", "url = \"odbc:Driver=FreeTDS;Server=localhost;Database=x\""));
  EXPECT_EQ(profilo.database.motore, Profilo::Motore::Odbc);
  EXPECT_EQ(profilo.database.origine, "Driver=FreeTDS;Server=localhost;Database=x");
}

TEST(Profilo, TextThatIsNoTomlIsToldByItsPlace) {
  EXPECT_EQ(errore("[session]\nuser = = 3\n").substr(0, 19), "prova.toml: riga 2,");
  EXPECT_THAT(errore("[session]\nuser = 1\nuser = 2\n"), HasSubstr("riga 3"));
}

TEST(Profilo, ALetterBeyondAsciiIsABlankNowhere) {
  EXPECT_THAT(errore("[session]\nusèr = 12\n"), HasSubstr("riga 2, colonna 3"));
  EXPECT_THAT(errore("a = \"è\" è\n"), HasSubstr("riga 1, colonna 9"));
  EXPECT_THAT(errore("a = 12\u034A\n"), HasSubstr("riga 1, colonna"));
  const std::string commentato = "\xEF\xBB\xBF# già così: \"\n" + std::string(kCompleto) + "# è 'tutto'\n";
  EXPECT_EQ(analizza(commentato).valuta.simbolo, "€");
  EXPECT_EQ(analizza(con("title = \"Quadrivio\"", "title = \"\"\"a\\\n \n èb\"\"\"")).sessione.titolo, "aèb");
}

TEST(Profilo, EveryErrorIsOneLine) {
  const std::string cattivo = "[session]\n\"a\\nb\\u0001c\" = 1\n";
  EXPECT_THAT(errore(cattivo), HasSubstr("session.a b c: chiave sconosciuta"));
  for (const std::string& testo :
       {cattivo, std::string("\x01\xff\n\n"), con("user = 12", "user = \"\"\"a\nb\"\"\"")}) {
    EXPECT_THAT(errore(testo), Not(HasSubstr("\n")));
    EXPECT_THAT(errore(testo), StartsWith("prova.toml: "));
  }
  const std::string lunga = errore("[session]\n" + std::string(5000, 'x') + " = 1\n");
  EXPECT_LT(lunga.size(), 400U);
}

TEST(Profilo, DeepNestingIsRefusedAndNotFollowed) {
  std::string testo = "[session]\nprocesses = ";
  testo.append(20000, '[');
  EXPECT_THAT(errore(testo), StartsWith("prova.toml: "));
}

TEST(Profilo, AFileIsReadFromTheDisk) {
  const test::TempFolder cartella;
  const Profilo profilo = leggiProfilo(cartella.write("profilo.toml", kCompleto));
  EXPECT_EQ(profilo.database.origine, cartella / "demo.db");
  EXPECT_EQ(profilo.file, cartella / "profilo.toml");
}

TEST(Profilo, AFileThatCannotBeReadIsTold) {
  const test::TempFolder cartella;
  const auto lettura = [](const std::string& file) -> std::string {
    try {
      leggiProfilo(file);
    } catch (const ErroreProfilo& rifiuto) {
      return rifiuto.what();
    }
    return "(nessun errore)";
  };
  EXPECT_EQ(lettura(cartella / "assente.toml"),
            (cartella / "assente.toml") + ": il file non esiste, atteso un profilo TOML leggibile");
  EXPECT_EQ(lettura(cartella.path()), cartella.path() + ": è una cartella, atteso un profilo TOML leggibile");
  EXPECT_THAT(lettura(cartella.write("enorme.toml", std::string((1U << 20) + 1, '#'))),
              HasSubstr("supera 1 MiB"));
}

}  // namespace
}  // namespace cu
