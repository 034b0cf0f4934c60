#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "apps/comune/argomenti.h"
#include "apps/comune/colonne_percipienti.h"
#include "apps/comune/connessioni.h"
#include "apps/comune/riepilogo_file.h"
#include "apps/comune/sha256.h"
#include "apps/comune/tavola.h"
#include "archive/archivio.h"
#include "base/error.h"
#include "support/temp_folder.h"
#include "worklist/elenchi.h"

namespace cu {
namespace {

TEST(Argomenti, ADateHasTwoForms) {
  EXPECT_EQ(leggiData("2017-03-05"), Date::fromYmd(2017, 3, 5));
  EXPECT_EQ(leggiData("05/03/2017"), Date::fromYmd(2017, 3, 5));
  for (const char* testo : {"", "2017-3-5", "5/3/2017", "2017-02-30", "31/02/2017", "20170305", "2017/03/05",
                            "2017-03-05T10:30", "05-03-2017", "oggi"}) {
    EXPECT_FALSE(leggiData(testo).has_value()) << testo;
  }
}

TEST(Argomenti, YearsAreOneOrARange) {
  EXPECT_EQ(leggiAnni("2016"), std::pair(2016, 2016));
  EXPECT_EQ(leggiAnni("2014-2017"), std::pair(2014, 2017));
  for (const char* testo : {"", "16", "2017-2014", "2014-", "-2014", "2014-2017-2018", "20x4", "2014 2017"}) {
    EXPECT_FALSE(leggiAnni(testo).has_value()) << testo;
  }
}

TEST(RiepilogoFile, LinesAreCountedByTheirType) {
  const test::TempFolder cartella;
  std::string contenuto;
  std::string righe = "AB";
  for (int i = 0; i < 1200; ++i) righe += "DH";
  righe += "Z";
  for (const char tipo : righe) contenuto += std::string(1, tipo) + std::string(1897, ' ') + "\r\n";
  const RiepilogoFile riepilogo = riepiloga(cartella.write("f.cur", contenuto));
  EXPECT_EQ(riepilogo.byte, 2403U * 1900U);
  const std::map<char, std::uint64_t> attesi = {{'A', 1}, {'B', 1}, {'D', 1200}, {'H', 1200}, {'Z', 1}};
  EXPECT_EQ(riepilogo.record, attesi);
  ASSERT_EQ(riepilogo.prime.size(), 4U);
  EXPECT_EQ(riepilogo.prime[2].front(), 'D');
  EXPECT_EQ(riepilogo.prime[2].size(), 1898U);
}

TEST(RiepilogoFile, AFileThatIsNotThereHasNothing) {
  const RiepilogoFile riepilogo = riepiloga("/manca");
  EXPECT_EQ(riepilogo.byte, 0U);
  EXPECT_TRUE(riepilogo.record.empty());
}

// The examples of the standard.
TEST(Sha256, IsTheStandardsInOnePartAndInMany) {
  EXPECT_EQ(Sha256().cifre(), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  Sha256 intera;
  intera.aggiungi("abc");
  EXPECT_EQ(intera.cifre(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  Sha256 aPezzi;
  for (const char* pezzo : {"", "abcdbcdecdefdefgefghfghi", "ghijhijkijkljklm", "klmnlmnomnopnopq"}) {
    aPezzi.aggiungi(pezzo);
  }
  EXPECT_EQ(aPezzi.cifre(), "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

// The error for an odbc address.
std::string rifiuto(const std::string& origine, const std::string& variabile) {
  Profilo::Database database;
  database.motore = Profilo::Motore::Odbc;
  database.origine = origine;
  database.variabilePassword = variabile;
  std::string detto;
  for (const auto apri : {apriConnessione, creaConnessione}) {
    try {
      apri(database);
    } catch (const DatabaseError& errore) {
      EXPECT_EQ(errore.kind(), DatabaseErrorKind::Unavailable);
      EXPECT_TRUE(detto.empty() || detto == errore.description());
      detto = errore.description();
    }
  }
  return detto;
}

TEST(Connessioni, APasswordComesFromTheVariableThatIsNamed) {
  ::unsetenv("CU_PROVA_PASSWORD");
  const std::string indirizzo = "Driver=Nessun Driver;Server=x;UID=y";
  EXPECT_EQ(rifiuto(indirizzo, "CU_PROVA_PASSWORD"),
            "La variabile d'ambiente «CU_PROVA_PASSWORD», che deve contenere la password del database, non è "
            "impostata.");
  ::setenv("CU_PROVA_PASSWORD", "segreto", 1);
  EXPECT_EQ(rifiuto(indirizzo, "CU_PROVA_PASSWORD").substr(0, 47),
            "Il driver ODBC indicato non si può caricare. M");
  ::unsetenv("CU_PROVA_PASSWORD");
}

TEST(Connessioni, APasswordInTheAddressIsRefused) {
  EXPECT_EQ(
      rifiuto("Driver=x;UID=y;PWD=segreto", ""),
      "La password non va scritta nell'indirizzo del database: indicare in password_env del profilo, o con "
      "--password-env, il nome della variabile d'ambiente che la contiene.");
}

TEST(ColonnePercipienti, FirstNameAndFiscalCodeAreReadApart) {
  const test::TempFolder cartella;
  Profilo::Database database;
  database.origine = cartella / "demo.db";
  creaArchivio(*creaConnessione(database), ContenutoArchivio::Dimostrativo);
  LookupTable elenco = elencoPercipienti(1);
  const FurtherColumns colonne = colonnePercipienti(database, elenco);
  EXPECT_EQ(colonne.captions, (std::vector<std::string>{"Nome", "Codice fiscale"}));
  const FurtherColumns::Texts testi = colonne.read();
  const auto connessione = apriConnessione(database);
  const auto rossi = findCode(*connessione, elenco, "P001");
  ASSERT_TRUE(rossi.has_value());
  EXPECT_EQ(testi.at(rossi->record), (std::vector<std::string>{"Marco", "RSSMRC71C08L781I"}));
  const auto senzaNome = findCode(*connessione, elenco, "P008");
  ASSERT_TRUE(senzaNome.has_value());
  EXPECT_EQ(testi.at(senzaNome->record), (std::vector<std::string>{"", "02150080170"}));
  // Another company has none of these payees.
  EXPECT_TRUE(colonnePercipienti(database, elencoPercipienti(999)).read().empty());
  // Whole names have the first name.
  elenco.descriptionField = "RTRIM(Anagrafica + ' ' + ISNULL(Nome, ''))";
  const FurtherColumns senzaNomi = colonnePercipienti(database, elenco);
  EXPECT_EQ(senzaNomi.captions, (std::vector<std::string>{"Codice fiscale"}));
  EXPECT_EQ(senzaNomi.read().at(rossi->record), (std::vector<std::string>{"RSSMRC71C08L781I"}));
}

TEST(ColonnePercipienti, OtherListsAndDatabasesThatAskForAPasswordHaveNone) {
  Profilo::Database database;
  EXPECT_TRUE(colonnePercipienti(database, elencoCausali()).captions.empty());
  database.motore = Profilo::Motore::Odbc;
  database.origine = "Driver=FreeTDS;Server=s;UID=u";
  EXPECT_TRUE(colonnePercipienti(database, elencoPercipienti(1)).captions.empty());
  database.variabilePassword = "PAROLA";
  EXPECT_FALSE(colonnePercipienti(database, elencoPercipienti(1)).captions.empty());
}

TEST(Tavola, ColumnsAreAsWideAsTheirLongestCell) {
  std::ostringstream uscita;
  stampaTavola({{"A", "Bì"}, {"lungo", "x"}, {"", "più"}}, uscita);
  EXPECT_EQ(uscita.str(), "A     | Bì\nlungo | x\n      | più\n");
}

TEST(Connessioni, ADatabaseWithoutTheSuitesTablesIsToldFromTheSuites) {
  const test::TempFolder cartella;
  Profilo::Database database;
  database.origine = cartella / "d.db";
  creaConnessione(database)->Execute("CREATE TABLE Altra (a int)");
  try {
    apriConnessione(database);
    FAIL() << "a database of another kind was taken";
  } catch (const DatabaseError& errore) {
    EXPECT_EQ(errore.kind(), DatabaseErrorKind::NoSchema);
  }
}

}  // namespace
}  // namespace cu
