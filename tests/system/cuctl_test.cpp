// The program from outside: its commands, exit codes and messages.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

using Argomenti = std::vector<std::string>;

TEST(Usage, HelpGoesToStandardOutput) {
  Posto posto(Posto::Database::Nessuno);
  for (const Argomenti& argomenti :
       {Argomenti{"--help"}, Argomenti{"create", "--help"}, Argomenti{"drive", "--help"},
        Argomenti{"make", "--help"}, Argomenti{"print", "--help"}, Argomenti{"check", "--help"}}) {
    const Esecuzione esito = posto.cuctl(argomenti);
    EXPECT_EQ(esito.codice, 0);
    EXPECT_THAT(esito.uscita, HasSubstr("Uso: cuctl"));
    EXPECT_EQ(esito.errori, "");
  }
  const std::string aiuto = posto.cuctl({"--help"}).uscita;
  for (const char* comando : {"check", "create", "drive", "make", "print"})
    EXPECT_THAT(aiuto, HasSubstr(comando));
}

TEST(Usage, HelpIsInItalianAlone) {
  Posto posto(Posto::Database::Nessuno);
  for (const Argomenti& comando : {Argomenti{},
                                   {"check"},
                                   {"create"},
                                   {"drive"},
                                   {"make"},
                                   {"print"},
                                   {"inspect"},
                                   {"validate"},
                                   {"verify"},
                                   {"diff"},
                                   {"sent"},
                                   {"discard"},
                                   {"receipt"},
                                   {"status"},
                                   {"correct"},
                                   {"upgrade"},
                                   {"backup"},
                                   {"restore"},
                                   {"import"},
                                   {"import", "companies"},
                                   {"import", "payees"},
                                   {"import", "payments"},
                                   {"import", "history"},
                                   {"import", "undo"},
                                   {"export"},
                                   {"export", "payments"},
                                   {"template"},
                                   {"template", "payees"}}) {
    Argomenti argomenti = comando;
    argomenti.push_back("--help");
    const Esecuzione esito = posto.cuctl(argomenti);
    EXPECT_EQ(esito.codice, 0);
    EXPECT_EQ(esito.errori, "");
    const std::string& aiuto = esito.uscita;
    EXPECT_THAT(aiuto, HasSubstr("Uso: cuctl" + (comando.empty() ? std::string() : ' ' + comando.front())));
    EXPECT_THAT(aiuto, HasSubstr("\nOpzioni:\n"));
    for (const char* inglese :
         {"OPTIONS", "Options", "Positionals", "TEXT", "INT", "REQUIRED", "Needs", "Excludes"})
      EXPECT_THAT(aiuto, Not(HasSubstr(inglese))) << aiuto;
  }
  EXPECT_THAT(posto.cuctl({"inspect", "--help"}).uscita,
              HasSubstr("\nArgomenti:\n  file FILE.cur (obbligatorio)"));
  EXPECT_THAT(posto.cuctl({"make", "--help"}).uscita, HasSubstr("--kind 1|2|3 "));
}

TEST(Usage, WhatIsWrongEndsWithTwoAndSaysWhat) {
  struct {
    Argomenti argomenti;
    const char* messaggio;
  } const casi[] = {
      {{}, "cuctl: manca il comando"},
      {{"nulla"}, "cuctl: comando sconosciuto: nulla"},
      {{"drive", "--nulla"}, "cuctl: argomento sconosciuto: --nulla"},
      {{"nulla", "--help"}, "cuctl: comando sconosciuto: nulla"},
      {{"import", "nulla", "--help"}, "cuctl: comando sconosciuto: nulla"},
      {{"check", "--database", "x", "uno", "due"}, "cuctl: argomenti sconosciuti: uno due"},
      {{"import", "undo", "3", "--database", "x", "uno", "due"}, "cuctl: argomenti sconosciuti: uno due"},
      {{"make", "--profile", "p", "--year", "2016", "--year", "2015"}, "cuctl: --year: indicata più volte"},
      {{"make", "--profile", "p", "--year", "2016", "--intermediary", ""},
       "cuctl: --intermediary: manca il valore"},
      {{"make", "--profile", "p", "--year", "2016", "--folder", " "}, "cuctl: --folder: manca il valore"},
      {{"make", "--profile", "p", "--year", "2016", "--from-payee", ""},
       "cuctl: --from-payee: manca il valore"},
      {{"drive"}, "cuctl: --profile: manca"},
      {{"drive", "--profile"}, "cuctl: --profile: manca il valore"},
      {{"drive", "--profile", "p", "x"}, "cuctl: argomento sconosciuto: x"},
      {{"make", "--profile", "p"}, "cuctl: --year: manca"},
      {{"make", "--profile", "p", "--year", "16"}, "cuctl: --year: atteso un anno di quattro cifre"},
      {{"make", "--profile", "p", "--year", "2016", "--kind", "4"},
       "cuctl: --kind: atteso un numero da 1 a 3"},
      {{"make", "--profile", "p", "--year", "2016", "--kind", "x"},
       "cuctl: --kind: atteso un numero da 1 a 3"},
      {{"make", "--profile", "p", "--year", "2016", "--signature-date", "2017-02-30"},
       "cuctl: valore non valido: --signature-date = 2017-02-30"},
      {{"make", "--profile", "p", "--year", "2016", "--signature-date", "5/3/2017"},
       "cuctl: valore non valido: --signature-date = 5/3/2017"},
      {{"make", "--profile", "p", "--year", "2016", "--kind", "2", "--protocol", "1"},
       "cuctl: --protocol richiede --progressive"},
      {{"make", "--profile", "p", "--year", "2016", "--protocol", "1", "--progressive", "2"},
       "cuctl: --protocol: serve solo con --kind 2 o --kind 3"},
      {{"make", "--profile", "p", "--year", "2016", "--commitment", "1"},
       "cuctl: --commitment richiede --intermediary"},
      {{"create"}, "cuctl: --database: manca"},
      {{"create", "--database", "sqlite:x", "--empty", "--demo"}, "esclude"},
      {{"create", "--database", "sqlite:x", "--empty", "--payees", "3"}, "esclude"},
      {{"create", "--database", "sqlite:x", "--years", "2016"}, "cuctl: --years richiede --payees"},
      {{"create", "--database", "sqlite:x", "--payees", "0"}, "cuctl: --payees: atteso un numero da 1 a"},
      {{"create", "--database", "sqlite:x", "--payees", "3", "--years", "2017-2014"},
       "--years: atteso un anno"},
      {{"create", "--database", "x"}, "--database: atteso \"sqlite:FILE\""},
  };
  Posto posto(Posto::Database::Nessuno);
  for (const auto& caso : casi) {
    const Esecuzione esito = posto.cuctl(caso.argomenti);
    EXPECT_EQ(esito.codice, 2) << caso.messaggio;
    EXPECT_THAT(esito.errori, HasSubstr(caso.messaggio));
    EXPECT_EQ(esito.uscita, "");
  }
}

TEST(Profile, AWrongOneEndsWithTwoAndOneLine) {
  struct {
    const char* chiave;
    const char* valore;
    const char* messaggio;
  } const casi[] = {
      {"session.user", "", "profilo.toml: session.user: manca, atteso un numero intero"},
      {"session.usr", "1", "profilo.toml: session.usr: chiave sconosciuta, atteso"},
      {"database.url", "5", "profilo.toml: database.url: tipo sbagliato, atteso un testo"},
      {"session.title", "= =", "profilo.toml: riga "},
      {"trace.sql", "\"manca/trace.sql\"", "profilo.toml: trace.sql: Percorso non trovato: "},
  };
  for (const auto& caso : casi) {
    Posto posto;
    posto.imposta(caso.chiave, caso.valore);
    for (const Argomenti& argomenti : {Argomenti{"drive", "--profile", posto.profilo()},
                                       Argomenti{"make", "--profile", posto.profilo(), "--year", "2016"}}) {
      const Esecuzione esito = posto.cuctl(argomenti);
      EXPECT_EQ(esito.codice, 2) << esito.errori;
      EXPECT_THAT(esito.errori, HasSubstr(caso.messaggio));
      EXPECT_EQ(std::count(esito.errori.begin(), esito.errori.end(), '\n'), 1) << esito.errori;
      EXPECT_EQ(esito.uscita, "");
    }
  }
  Posto posto;
  const Esecuzione assente = posto.cuctl({"drive", "--profile", "manca.toml"});
  EXPECT_EQ(assente.codice, 2);
  EXPECT_EQ(assente.errori, "manca.toml: il file non esiste, atteso un profilo TOML leggibile\n");
}

TEST(Create, ADatabaseThatHoldsTheSuiteIsNotTouched) {
  Posto posto;
  const std::string prima = posto.cartella().read("demo.db");
  const auto persone = [&] { return posto.lettore()->numero("SELECT COUNT(*) FROM Anagrafica"); };
  const std::int64_t quante = persone();
  EXPECT_GT(quante, 1);
  const Esecuzione esito = posto.sulDatabase("create", {"--empty"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(persone(), quante);
  EXPECT_THAT(esito.errori, HasSubstr("contiene già le tabelle della suite"));
  EXPECT_TRUE(posto.cartella().read("demo.db") == prima);
}

TEST(Create, WhatFailsLeavesNoFile) {
  Posto posto(Posto::Database::Nessuno);
  const Esecuzione esito = posto.cuctl({"create", "--database", "sqlite:manca/demo.db"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, Not(IsEmpty()));
  EXPECT_EQ(posto.cuctl({"create", "--database", "odbc:Driver=FreeTDS"}).codice, 1);
  EXPECT_EQ(posto.cuctl({"create", "--database", "sqlite:x.db", "--payees", "2", "--years", "1600"}).codice,
            2);
  EXPECT_THAT(posto.file(""), ElementsAre(".errori", "Documenti"));
}

TEST(Create, TheSameSeedGivesTheSameCompany) {
  Posto posto(Posto::Database::Nessuno);
  const auto file = [&](const std::string& seme) {
    EXPECT_EQ(posto.crea({"--payees", "40", "--years", "2016", "--seed", seme}).codice, 0);
    const Esecuzione esito = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016"});
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    const auto nomi = posto.file("Documenti");
    for (const std::string& each : nomi) {
      if (each.ends_with("_2016.cur")) return posto.cartella().read("Documenti/" + each);
    }
    return std::string();
  };
  const std::string primo = file("7");
  EXPECT_FALSE(primo.empty());
  EXPECT_TRUE(file("7") == primo);
  EXPECT_FALSE(file("8") == primo);
}

TEST(Make, TheFileIsMadeAndTold) {
  Posto posto;
  const Esecuzione esito = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_EQ(esito.errori, "");
  const std::string percorso = posto.cartella() / "Documenti/CUR_04123450233_2016.cur";
  const std::string contenuto = posto.cartella().read("Documenti/CUR_04123450233_2016.cur");
  ASSERT_GT(contenuto.size(), 1900U * 4);
  EXPECT_EQ(contenuto.size() % 1900, 0U);
  std::map<char, int> record;
  for (std::size_t riga = 0; riga < contenuto.size(); riga += 1900) ++record[contenuto[riga]];
  EXPECT_THAT(esito.uscita, HasSubstr("File telematico: " + percorso + "\n"));
  EXPECT_THAT(esito.uscita, HasSubstr("Certificazioni: " + std::to_string(record['D']) + "\n"));
  EXPECT_THAT(esito.uscita, HasSubstr("Record: A=1 B=1 D=" + std::to_string(record['D']) +
                                      " H=" + std::to_string(record['H']) + " Z=1\n"));
  EXPECT_THAT(esito.uscita, HasSubstr("Byte: " + std::to_string(contenuto.size()) + "\n"));
  EXPECT_THAT(esito.uscita, HasSubstr("Record A:\n  Tipo Record: A\n  Codice fornitura: CUR17\n"));
  for (const char* tipo : {"Record B:\n", "Record D:\n", "Record H:\n"}) {
    EXPECT_THAT(esito.uscita, HasSubstr(tipo));
  }
}

TEST(Make, ItBringsItsOwnProcessList) {
  Posto posto;
  posto.imposta("session.processes", "[ { name = \"Altro\", function = 1 } ]");
  EXPECT_EQ(posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016"}).codice, 0);
}

TEST(Make, TheRangeOfPayeesIsByCode) {
  Posto posto;
  const auto righe = [&](const Argomenti& estremi) {
    Argomenti argomenti = {"make", "--profile", posto.profilo(), "--year", "2016"};
    argomenti.insert(argomenti.end(), estremi.begin(), estremi.end());
    const Esecuzione esito = posto.cuctl(argomenti);
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    return esito.uscita;
  };
  EXPECT_THAT(righe({"--from-payee", "P001", "--to-payee", "P003"}), HasSubstr("Certificazioni: 4\n"));
  // A limit without a payee is a valid limit.
  EXPECT_THAT(righe({"--from-payee", "P", "--to-payee", "P0035"}), HasSubstr("Certificazioni: 4\n"));
}

TEST(Make, ASelectionWithoutLinesIsRefusedInWords) {
  Posto posto;
  const Esecuzione vuota =
      posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016", "--from-payee", "ZZZ"});
  EXPECT_EQ(vuota.codice, 1);
  EXPECT_EQ(vuota.errori, "Per poter proseguire è necessario selezionare almeno un elemento.\n");
  const Esecuzione anno = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2013"});
  EXPECT_EQ(anno.codice, 1);
  EXPECT_EQ(anno.errori, "Nessun conto individuale per l'anno 2013.\n");
  EXPECT_THAT(posto.file("Documenti"), IsEmpty());
}

TEST(Make, AWarningStopsUnlessItIsPassed) {
  Posto posto;
  Argomenti argomenti = {"make", "--profile",        posto.profilo(), "--year",
                         "2016", "--signature-date", "06/03/2017"};
  const Esecuzione fermata = posto.cuctl(argomenti);
  EXPECT_EQ(fermata.codice, 1);
  EXPECT_THAT(fermata.errori, HasSubstr("Attenzione! La data della firma non deve essere superiore alla\n"));
  EXPECT_THAT(posto.file("Documenti"), IsEmpty());
  argomenti.push_back("--yes");
  const Esecuzione passata = posto.cuctl(argomenti);
  EXPECT_EQ(passata.codice, 0);
  EXPECT_THAT(passata.errori, HasSubstr("Attenzione! La data della firma"));
  EXPECT_THAT(passata.uscita, HasSubstr("File telematico: "));
}

// The positions of the bars in a table's line, in characters.
std::vector<std::size_t> sbarre(const std::string& riga) {
  std::vector<std::size_t> posti;
  std::size_t carattere = 0;
  for (const char byte : riga) {
    if ((static_cast<unsigned char>(byte) & 0xC0U) == 0x80U) continue;
    if (byte == '|') posti.push_back(carattere);
    ++carattere;
  }
  return posti;
}

TEST(Make, MissingDataAreToldAsTheLog) {
  Posto posto;
  posto.lettore()->esegui("UPDATE Anagrafica SET Sesso = NULL WHERE Sesso = 'F'");
  const Esecuzione esito = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016"});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.uscita, StartsWith("Campo | Sezione     | Denominazione"));
  std::istringstream tavola(esito.uscita);
  std::string titoli;
  std::getline(tavola, titoli);
  EXPECT_THAT(titoli, ::testing::EndsWith(" | MessageType | Message"));
  int righe = 0;
  for (std::string riga; std::getline(tavola, riga); ++righe) {
    EXPECT_THAT(riga,
                AllOf(StartsWith("Sesso | Percipiente | "), ::testing::EndsWith(" | Sesso non presente")));
    EXPECT_EQ(sbarre(riga), sbarre(titoli));
  }
  EXPECT_GT(righe, 1);
  EXPECT_EQ(esito.errori, "Mancano dei dati: il file telematico non è stato creato.\n");
  EXPECT_THAT(posto.file("Documenti"), IsEmpty());
}

TEST(Make, AnAnnulmentNeedsItsReferences) {
  Posto posto;
  Argomenti argomenti = {"make", "--profile",    posto.profilo(), "--year",     "2016", "--kind",
                         "2",    "--from-payee", "P001",          "--to-payee", "P003"};
  const Esecuzione senza = posto.cuctl(argomenti);
  EXPECT_EQ(senza.codice, 1);
  EXPECT_THAT(senza.errori, StartsWith("Per il tipo operazione annullamento o sostituzione il\n"));
  argomenti.insert(argomenti.end(), {"--protocol", "12345678901234567", "--progressive", "000001"});
  const Esecuzione con = posto.cuctl(argomenti);
  EXPECT_EQ(con.codice, 0) << con.errori;
  EXPECT_THAT(con.uscita, HasSubstr("Record: A=1 B=1 D=4 Z=1\n"));
  argomenti[argomenti.size() - 3] = "12A";
  const Esecuzione sbagliato = posto.cuctl(argomenti);
  EXPECT_EQ(sbagliato.codice, 1);
  EXPECT_EQ(sbagliato.errori, "Il protocollo «12A» non è ammesso: al massimo 17 cifre.\n");
}

TEST(Make, AnIntermediaryGoesIntoTheFile) {
  Posto posto;
  const Esecuzione esito = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016", "--to-payee",
                                        "P003", "--intermediary", "RSSMRA70A01L781K", "--commitment", "2",
                                        "--commitment-date", "2017-03-01"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  const std::string contenuto = posto.cartella().read("Documenti/CUR_04123450233_2016.cur");
  EXPECT_EQ(contenuto.substr(20, 2), "10");
  EXPECT_EQ(contenuto.substr(22, 16), "RSSMRA70A01L781K");
}

TEST(Make, TheFolderIsChosenAndRemembered) {
  Posto posto;
  std::filesystem::create_directory(posto.cartella() / "Altra cartella");
  EXPECT_EQ(
      posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016", "--folder", "Altra cartella"})
          .codice,
      0);
  EXPECT_THAT(posto.file("Altra cartella"), ::testing::Contains("CUR_04123450233_2016.cur"));
  EXPECT_THAT(posto.cartella().read("settings.toml"),
              HasSubstr("CU_Path = \"" + (posto.cartella() / "Altra cartella") + "\""));
  const Esecuzione manca =
      posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016", "--folder", "Inesistente"});
  EXPECT_EQ(manca.codice, 1);
  EXPECT_THAT(manca.errori,
              StartsWith("Attenzione! Il percorso per il salvataggio dei files è inesistente!\n"));
}

TEST(Make, ARefusedStartAndAMissingDatabaseAreTold) {
  Posto posto(Posto::Database::Nessuno);
  const Esecuzione senza = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016"});
  EXPECT_EQ(senza.codice, 1);
  EXPECT_THAT(senza.errori, HasSubstr("demo.db"));
  posto.imposta("session.refuse_start", "true");
  const Esecuzione rifiutata = posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016"});
  EXPECT_EQ(rifiutata.codice, 1);
  EXPECT_THAT(rifiutata.errori, HasSubstr("La sessione di lavoro non può essere avviata"));
}

}  // namespace
}  // namespace cu::test
