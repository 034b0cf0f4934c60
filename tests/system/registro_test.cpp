// The log for support: what it has of whole runs, and that it has no value of the data.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>

#include "support/umask.h"
#include "system/lettore_support.h"
#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

using Argomenti = std::vector<std::string>;

std::vector<std::string> righeDi(const std::string& testo) {
  std::vector<std::string> righe;
  std::istringstream flusso(testo);
  for (std::string riga; std::getline(flusso, riga);) righe.push_back(riga);
  return righe;
}

// A line without its moment, its process and its numbers.
std::string soloParole(const std::string& riga) {
  static const std::regex kInizio(R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d \[\d+\] )");
  static const std::regex kNumeri(R"( (volte|ms|righe|byte|numero|codice|esito)=-?\d+)");
  static const std::regex kVersione(R"(^(avvio cu\w+) \d+\.\d+\.\d+)");
  std::string parole = std::regex_replace(riga, kInizio, "");
  EXPECT_NE(parole, riga) << "senza momento";
  parole = std::regex_replace(parole, kVersione, "$1");
  return std::regex_replace(parole, kNumeri, "");
}

// Letters and digits in lower case, everything else a blank, with a blank at both ends.
std::string perConfronto(const std::string& testo) {
  std::string piano = " ";
  for (const char c : testo) {
    const auto byte = static_cast<unsigned char>(c);
    const bool parola = std::isalnum(byte) != 0 || byte >= 0x80;
    if (parola || piano.back() != ' ') piano += parola ? static_cast<char>(std::tolower(byte)) : ' ';
  }
  return piano.back() == ' ' ? piano : piano + ' ';
}

std::vector<std::string> paroleDi(const std::string& confronto) {
  std::vector<std::string> parole;
  std::istringstream flusso(confronto);
  for (std::string parola; flusso >> parola;) parole.push_back(parola);
  return parole;
}

using Parole = std::set<std::string>;

// Every word that the log may have: the program's own, and the names of tables.
Parole vocabolario(Lettore& lettore) {
  constexpr const char* kProprie =
      "avvio fine cuctl create make print validate inspect status import payees payments export su "
      "apertura database sqlite istruzione select insert update delete create exec if begin commit with "
      "fase caricamento selezione dei compensi memorizzazione delle modifiche nei conti creazione del file "
      "telematico stampa moduli controllo dati kb stampa rpt contoindividuale certificazioneunica "
      "file lettura scrittura sostituzione nuova cartella copia cambio di nome resoconto tabella "
      "importazione conteggio pagine preparazione della messaggio errore programma missing sysobjects "
      "varchar decimal smallint "
      // The table of a user's work, and the selection of prints, without their digits.
      "tmpprequadrivio tabellaricorsione";
  Parole note;
  for (const std::string& parola : paroleDi(kProprie)) note.insert(parola);
  for (const std::string& tavola : lettore.tavole()) note.insert(paroleDi(perConfronto(tavola)).front());
  return note;
}

bool tutteNote(const Parole& note, const std::string& confronto) {
  const std::vector<std::string> parole = paroleDi(confronto);
  return std::all_of(parole.begin(), parole.end(),
                     [&](const std::string& una) { return note.contains(una); });
}

// Every value of every table.
Parole valoriDi(Lettore& lettore) {
  Parole valori;
  for (const std::string& tavola : lettore.tavole()) {
    for (const auto& riga : lettore.leggi("SELECT * FROM " + tavola).righe) {
      for (const std::string& valore : riga) valori.insert(perConfronto(valore));
    }
  }
  valori.erase(" ");
  return valori;
}

struct Registro : ::testing::Test {
  Posto posto;

  std::vector<std::string> righe(const char* file = "registro.log") const {
    return righeDi(posto.cartella().read(file));
  }
  std::string parole() const {
    std::string tutte;
    for (const std::string& riga : righe()) tutte += soloParole(riga) + '\n';
    return tutte;
  }
  // With the option, at the end.
  Esecuzione conRegistro(Argomenti argomenti) {
    argomenti.insert(argomenti.end(), {"--log", "registro.log"});
    return posto.cuctl(std::move(argomenti));
  }
};

TEST_F(Registro, NonHaNessunValoreDeiDati) {
  posto.imposta("printing.engine", "\"pdf\"");
  const std::string profilo = posto.profilo();
  ASSERT_EQ(posto.crea({"--demo", "--log", "registro.log"}).codice, 0);
  EXPECT_EQ(conRegistro({"make", "--profile", profilo, "--year", "2016", "--yes"}).codice, 0);
  ASSERT_THAT(posto.file("Documenti"), Not(IsEmpty()));
  EXPECT_EQ(conRegistro({"print", "--profile", profilo, "--report", "ContoIndividuale.rpt", "--year", "2016",
                         "--output", "Rossi Mario.pdf"})
                .codice,
            0);
  for (const std::string& nome : posto.file("Documenti")) {
    if (!nome.ends_with("_2016.cur")) continue;  // a form
    const std::string file = posto.cartella() / ("Documenti/" + nome);
    EXPECT_EQ(conRegistro({"validate", file}).codice, 0);
    EXPECT_EQ(conRegistro({"inspect", file}).codice, 0);
    EXPECT_EQ(conRegistro({"status", "--profile", profilo, "--year", "2016"}).codice, 0);
  }
  posto.cartella().write("percipienti.csv",
                         "Codice;CodiceFiscaleEstero;Cognome;NonResidente;Nazione\n"
                         "SEGRETO;XESTEROX;Cognomesegreto;S;Francia\n");
  posto.cartella().write("compensi.csv",
                         "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto\n"
                         "SEGRETO;A;31/03/2016;DOCSEGRETO;1234,56;0\n");
  const std::string indirizzo = posto.indirizzo();
  EXPECT_EQ(conRegistro({"import", "payees", "percipienti.csv", "--database", indirizzo, "--company", "1",
                         "--accept", "P11", "--apply"})
                .codice,
            0);
  const Esecuzione importati =
      conRegistro({"import", "payments", "compensi.csv", "--database", indirizzo, "--company", "1",
                   "--accept", "R01", "--report", "resoconto.json", "--apply"});
  EXPECT_EQ(importati.codice, 0) << importati.errori;
  EXPECT_EQ(conRegistro({"export", "payees", "--database", indirizzo, "--company", "1", "--output", "e.csv"})
                .codice,
            0);
  const Parole valori = valoriDi(*posto.lettore());
  const Parole note = vocabolario(*posto.lettore());
  // A command that fails in a statement.
  posto.lettore()->esegui("DROP VIEW RepContoIndividuale");
  EXPECT_EQ(
      conRegistro({"print", "--profile", profilo, "--report", "ContoIndividuale.rpt", "--output", "b.pdf"})
          .codice,
      1);

  const std::string scritte = parole();
  EXPECT_THAT(scritte, AllOf(HasSubstr("avvio cuctl create\n"), HasSubstr("avvio cuctl import payments\n"),
                             HasSubstr("istruzione SELECT su=ContoIndividuale\n"),
                             HasSubstr("file scrittura\n"), HasSubstr("stampa su=ContoIndividuale.rpt\n"),
                             HasSubstr("file lettura\n"), HasSubstr("fase Caricamento dei compensi\n"),
                             HasSubstr("importazione scrittura\n"), HasSubstr("errore=database/Missing\n")));
  // No number that is not a measure: no amount, no date, no code with a digit.
  for (const std::string& riga : righeDi(scritte))
    EXPECT_TRUE(std::none_of(riga.begin(), riga.end(), [](char c) { return c >= '0' && c <= '9'; })) << riga;
  Parole diverse;
  for (const std::string& riga : righeDi(scritte)) diverse.insert(perConfronto(riga));
  for (const std::string& riga : diverse) EXPECT_TRUE(tutteNote(note, riga)) << riga;
  // A few values are words of the program, such as the province SU; all others are nowhere.
  std::size_t cercati = 0;
  for (const std::string& valore : valori) {
    if (tutteNote(note, valore)) continue;
    ++cercati;
    for (const std::string& riga : diverse) EXPECT_EQ(riga.find(valore), std::string::npos) << valore << riga;
  }
  EXPECT_GT(cercati, 8000U);
  EXPECT_TRUE(valori.contains(" cognomesegreto "));
  for (const char* nome :
       {"registro", "resoconto.json", "compensi.csv", "Documenti", "demo.db", "Mario", "utente"})
    EXPECT_THAT(scritte, Not(HasSubstr(nome)));
}

TEST_F(Registro, NonHaNienteDellAccessoAUnServer) {
  ::setenv("CU_REGISTRO_PROVA", "Passwordsegreta", 1);
  const Esecuzione esito =
      conRegistro({"check", "--database", "odbc:Driver=Ignoto;Server=macchinasegreta;UID=utentesegreto",
                   "--password-env", "CU_REGISTRO_PROVA"});
  const Esecuzione scritta =
      conRegistro({"check", "--database", "odbc:Driver=Ignoto;Server=s;PWD=Passwordsegreta"});
  ::unsetenv("CU_REGISTRO_PROVA");
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(scritta.codice, 1);
  const std::string testo = posto.cartella().read("registro.log");
  EXPECT_THAT(testo, Not(HasSubstr("segret")));
  EXPECT_THAT(testo, Not(HasSubstr("CU_REGISTRO_PROVA")));
  EXPECT_THAT(testo,
              AllOf(HasSubstr("apertura database odbc ms="), HasSubstr("errore=database/Unavailable")));
}

TEST_F(Registro, CominciaConLaVersioneEFinisceConLEsito) {
  EXPECT_EQ(conRegistro({"validate", "manca.cur"}).codice, 2);
  const std::vector<std::string> scritte = righe();
  ASSERT_EQ(scritte.size(), 2U);
  EXPECT_THAT(scritte[0], ::testing::ContainsRegex("avvio cuctl [0-9]+\\.[0-9]+\\.[0-9]+ validate$"));
  EXPECT_THAT(scritte[1], ::testing::ContainsRegex("fine ms=[0-9]+ esito=2$"));
  EXPECT_EQ(modeOf(posto.cartella() / "registro.log"), 0600U);
}

TEST_F(Registro, EQuelloDelProfiloSalvoLOpzione) {
  posto.imposta("log.file", "\"del-profilo.log\"");
  const std::string profilo = posto.profilo();
  EXPECT_EQ(posto.cuctl({"status", "--profile", profilo, "--year", "2016"}).codice, 0);
  EXPECT_THAT(righe("del-profilo.log").front(), HasSubstr("] avvio cuctl "));
  const std::size_t prima = righe("del-profilo.log").size();
  EXPECT_EQ(conRegistro({"status", "--profile", profilo, "--year", "2016"}).codice, 0);
  EXPECT_EQ(righe("del-profilo.log").size(), prima);
  EXPECT_THAT(righe(), Not(IsEmpty()));
}

TEST_F(Registro, SenzaRichiestaNonCE) {
  EXPECT_EQ(posto.cuctl({"status", "--profile", posto.profilo(), "--year", "2016"}).codice, 0);
  for (const std::string& nome : posto.file("")) EXPECT_THAT(nome, Not(HasSubstr("log")));
}

TEST_F(Registro, SeNonSiPuoScrivereIlLavoroProsegue) {
  const std::string profilo = posto.profilo();
  const Esecuzione senza = posto.cuctl({"make", "--profile", profilo, "--year", "2016", "--yes"});
  const Esecuzione con =
      posto.cuctl({"make", "--profile", profilo, "--year", "2016", "--yes", "--log", "manca/registro.log"});
  EXPECT_EQ(con.codice, senza.codice);
  EXPECT_EQ(con.uscita, senza.uscita);
  EXPECT_EQ(
      con.errori,
      senza.errori +
          "Il registro per l'assistenza non si può scrivere. Percorso non trovato: manca/registro.log\n");
}

TEST_F(Registro, NonCambiaTracciaERisposteDellaGuida) {
  const auto guidata = [this](Argomenti altri) {
    const auto processo = posto.guida(std::move(altri));
    processo->scrivi("{\"do\":\"click\",\"on\":\"frmWizard.cmdNav(1)\"}\n{\"do\":\"state\"}\n");
    processo->chiudiIngresso();
    std::string risposte = processo->resto();
    EXPECT_EQ(processo->codice(), 0);
    return std::pair(risposte + processo->errori(), posto.cartella().read("trace.sql"));
  };
  const auto senza = guidata({});
  const auto con = guidata({"--log", "registro.log"});
  EXPECT_EQ(con, senza);
  EXPECT_THAT(con.second, Not(IsEmpty()));
  EXPECT_THAT(parole(), HasSubstr("istruzione SELECT"));
}

TEST_F(Registro, DellaFinestraComeDeiComandi) {
  const Esecuzione esito = esegui({"/usr/bin/env", "QT_QPA_PLATFORM=offscreen", CU_CUWIZARD, "--profile",
                                   "manca.toml", "--log", "registro.log"},
                                  posto.cartella().path());
  EXPECT_EQ(esito.codice, 2);
  EXPECT_EQ(parole(), "avvio cuwizard\navvio errore=profilo\nfine\n");
  EXPECT_THAT(righe().back(), EndsWith(" esito=2"));
}

}  // namespace
}  // namespace cu::test
