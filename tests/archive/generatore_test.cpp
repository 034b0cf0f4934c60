#include "archive/generatore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "archive/archivio_di_prova.h"
#include "archive/casuale.h"
#include "archive/generatore_conti.h"
#include "archive/generatore_persone.h"
#include "base/codice_fiscale.h"
#include "support/fake_connection.h"

namespace cu {
namespace {

using test::FakeConnection;

std::vector<std::string> statements(const OpzioniGeneratore& options) {
  FakeConnection connection;
  connection.answerContaining("SELECT ", test::Table{{"Numero"}, {}});  // a table without rows
  generaAzienda(connection, options);
  return connection.texts();
}

TEST(Casuale, GivesTheNumbersOfItsDefinition) {
  Casuale random(1234567);
  EXPECT_EQ(random.prossimo(), 6457827717110365317ULL);
  EXPECT_EQ(random.prossimo(), 3203168211198807973ULL);
  EXPECT_EQ(random.prossimo(), 9817491932198370423ULL);
}

TEST(Casuale, StaysWithinItsBoundsAndReachesThem) {
  Casuale random(1);
  std::set<std::int64_t> seen;
  for (int i = 0; i < 1000; ++i) seen.insert(random.tra(-2, 2));
  EXPECT_EQ(seen, (std::set<std::int64_t>{-2, -1, 0, 1, 2}));
}

TEST(GeneraAzienda, GivesTheSameRowsForTheSameSeed) {
  EXPECT_EQ(statements({.percipienti = 60, .seme = 7}), statements({.percipienti = 60, .seme = 7}));
}

TEST(GeneraAzienda, GivesOtherRowsForAnotherSeed) {
  EXPECT_NE(statements({.percipienti = 60, .seme = 7}), statements({.percipienti = 60, .seme = 8}));
}

// The first two columns of a query's rows, of an archive made with the options.
class Synthetic {
 public:
  explicit Synthetic(const OpzioniGeneratore& options) {
    creaArchivio(*connection_, ContenutoArchivio::Sintetico, options);
  }
  std::vector<std::string> rows(const std::string& query) {
    const test::Righe read(*connection_, query);
    const std::vector<std::string> names = read.names();
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < read.size(); ++i) {
      texts.push_back(read.text(i, names.at(0)) + " " + read.text(i, names.at(1)));
    }
    return texts;
  }

 private:
  std::unique_ptr<Connection> connection_ = SqliteConnection::create(":memory:");
};

TEST(GeneraAzienda, WritesTheFirstCompanyAsIfItWereTheOnlyOne) {
  Synthetic many({.percipienti = 20, .primoAnno = 2016, .ultimoAnno = 2017, .aziende = 3});
  Synthetic alone({.percipienti = 20, .primoAnno = 2016, .ultimoAnno = 2017});
  for (const std::string table : {"ContoIndividuale", "Compenso"}) {
    const std::string query = "SELECT IDAnagrafica, OnorarioProvvigioni FROM " + table +
                              " WHERE IDAzienda = 1 ORDER BY IDAnagrafica, IDCausalePagamento, "
                              "OnorarioProvvigioni";
    EXPECT_GT(many.rows(query).size(), 20u);
    EXPECT_EQ(many.rows(query), alone.rows(query));
  }
}

TEST(GeneraAzienda, GivesEachCompanyItsPayeesAndItsVatNumber) {
  Synthetic many({.percipienti = 20, .primoAnno = 2016, .ultimoAnno = 2017, .aziende = 3});
  std::set<std::string> persons;
  std::map<std::string, int> payees;
  for (const std::string& payee : many.rows("SELECT IDAzienda, IDAnagrafica FROM Percipiente")) {
    ++payees[payee.substr(0, payee.find(' '))];
    EXPECT_TRUE(persons.insert(payee.substr(payee.find(' '))).second) << payee;
  }
  EXPECT_EQ(payees, (std::map<std::string, int>{{"1", 20}, {"2", 20}, {"3", 20}}));
  std::set<std::string> numbers;
  for (const std::string& company :
       many.rows("SELECT Azienda.IDAzienda, Anagrafica.PartitaIva FROM Azienda INNER JOIN Anagrafica ON "
                 "Azienda.IDAnagrafica = Anagrafica.IDAnagrafica")) {
    const std::string number = company.substr(company.find(' ') + 1);
    ASSERT_EQ(number.size(), 11u);
    EXPECT_EQ(cifraDiControllo(std::string_view(number).substr(0, 10)), number[10]);
    numbers.insert(number);
  }
  EXPECT_EQ(numbers.size(), 3u);
}

TEST(Inventore, InventsAPayeeWhateverWasInventedBefore) {
  const Inventore inventor;
  Casuale first(5, 40);
  const PercipienteInventato alone = inventor.inventa(40, first);
  for (std::int32_t i = 1; i < 40; ++i) {
    Casuale other(5, static_cast<std::uint64_t>(i));
    (void)inventor.inventa(i, other);
  }
  Casuale again(5, 40);
  const PercipienteInventato after = inventor.inventa(40, again);
  EXPECT_EQ(alone.anagrafica, after.anagrafica);
  EXPECT_EQ(alone.codiceFiscale, after.codiceFiscale);
  EXPECT_EQ(alone.idComune, after.idComune);
}

TEST(Inventore, InventsEveryKindWithWhatTheFileAsksForOfIt) {
  const Inventore inventor;
  std::set<TipoPercipiente> kinds;
  bool accents = false;
  for (std::int32_t i = 1; i <= 2000; ++i) {
    Casuale random(11, static_cast<std::uint64_t>(i));
    const PercipienteInventato p = inventor.inventa(i, random);
    kinds.insert(p.tipo);
    accents = accents || std::any_of(p.anagrafica.begin(), p.anagrafica.end(), [](char c) { return c < 0; });
    ASSERT_FALSE(p.anagrafica.empty());
    ASSERT_FALSE(p.codiceFiscale.empty() && p.partitaIva.empty());
    ASSERT_NE(p.idNazione, 0);
    ASSERT_FALSE(p.indirizzo.empty());
    if (!p.persona()) continue;
    ASSERT_FALSE(p.nome.empty());
    ASSERT_NE(p.nascita, Date());
    ASSERT_TRUE(p.idNazionalita != 86 || p.idComuneNascita != 0);
    ASSERT_EQ(p.codiceFiscale.size(), 16u) << p.anagrafica;
    ASSERT_EQ(carattereDiControllo(std::string_view(p.codiceFiscale).substr(0, 15)), p.codiceFiscale[15]);
  }
  EXPECT_EQ(kinds.size(), 4u);
  EXPECT_TRUE(accents);
}

TEST(Inventore, GivesFirmsNumbersWithARightCheckDigitThatNeverRepeat) {
  const Inventore inventor;
  std::set<std::string> numbers;
  for (std::int32_t i = 1; i <= 2000; ++i) {
    Casuale random(3, static_cast<std::uint64_t>(i));
    const PercipienteInventato p = inventor.inventa(i, random);
    if (p.partitaIva.empty()) continue;
    ASSERT_EQ(p.partitaIva.size(), 11u);
    ASSERT_EQ(cifraDiControllo(std::string_view(p.partitaIva).substr(0, 10)), p.partitaIva[10]);
    ASSERT_TRUE(numbers.insert(p.partitaIva).second);
  }
}

TEST(InventaCompenso, WithholdsAsTheReasonAsks) {
  Casuale random(9);
  for (int i = 0; i < 500; ++i) {
    const ImportiConto fee = inventaCompenso("A", true, random);
    EXPECT_EQ(fee.ritenutaAcconto, (fee.onorario * 20 + 50) / 100);
    EXPECT_EQ(fee.ritenutaImposta, 0);
    const ImportiConto agent = inventaCompenso("Q", true, random);
    EXPECT_EQ(agent.ritenutaAcconto, ((agent.onorario - agent.quotaNonSoggetta) * 23 + 50) / 100);
    EXPECT_GT(agent.quotaNonSoggetta, 0);
    const ImportiConto sport = inventaCompenso("N", true, random);
    EXPECT_EQ(sport.ritenutaImposta, (sport.onorario * 23 + 50) / 100);
    EXPECT_GT(sport.nonSoggette, 0);
    const ImportiConto abroad = inventaCompenso("A", false, random);
    EXPECT_EQ(abroad.ritenutaImposta, (abroad.onorario * 30 + 50) / 100);
    EXPECT_EQ(abroad.ritenutaAcconto, 0);
    const ImportiConto occasional = inventaCompenso("M", true, random);
    EXPECT_GT(occasional.contributo, occasional.contributoPercipiente);
  }
}

}  // namespace
}  // namespace cu
