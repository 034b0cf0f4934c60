// The board of all companies as a command.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class BoardCommand : public ::testing::Test {
 protected:
  BoardCommand() : posto_(Posto::Database::Nessuno) {
    const Esecuzione creato =
        posto_.crea({"--payees", "4", "--companies", "3", "--years", "2016-2017", "--seed", "3"});
    EXPECT_EQ(creato.codice, 0) << creato.errori;
    posto_.imposta("session.today", "2018-03-08T10:30:00");
  }
  Esecuzione status(std::vector<std::string> altri) {
    altri.insert(altri.begin(), {"status", "--profile", posto_.profilo()});
    return posto_.cuctl(altri);
  }
  json righe(std::vector<std::string> altri) {
    altri.emplace_back("--json");
    const Esecuzione corsa = status(std::move(altri));
    EXPECT_EQ(corsa.codice, 0) << corsa.errori;
    return json::parse(corsa.uscita);
  }
  Posto posto_;
};

TEST_F(BoardCommand, FollowsCompaniesFromTheirAccountsToWhatWasSent) {
  const std::string cartella = posto_.cartella() / "cu";
  ASSERT_EQ(posto_
                .cuctl({"make", "--profile", posto_.profilo(), "--year", "2017", "--company", "2",
                        "--company", "3", "--folder", cartella})
                .codice,
            0);
  posto_.imposta("session.company", "2");
  ASSERT_EQ(posto_
                .cuctl({"sent", cartella + "/00000020248/CUR_00000020248_2017.cur", "--profile",
                        posto_.profilo(), "--date", "2018-03-08"})
                .codice,
            0);
  const json tutte = righe({"--all-companies"});
  ASSERT_EQ(tutte.size(), 6U);
  std::map<int, json> del2017;
  for (const json& riga : tutte) {
    if (riga.at("year") == 2017) del2017[riga.at("company").get<int>()] = riga;
  }
  const json& inviata = del2017.at(2);
  EXPECT_EQ(inviata.at("name"), "Azienda Sintetica 0002 S.p.A.");
  EXPECT_EQ(inviata.at("fiscalCode"), "00000020248");
  EXPECT_EQ(inviata.at("sent"), inviata.at("lines"));
  EXPECT_EQ(inviata.at("toSend"), 0);
  EXPECT_THAT(inviata.at("deadlines"), IsEmpty());
  const json& scritta = del2017.at(3);
  EXPECT_EQ(scritta.at("written"), scritta.at("lines"));
  EXPECT_EQ(scritta.at("sent"), 0);
  EXPECT_EQ(scritta.at("toSend"), scritta.at("lines"));
  EXPECT_EQ(scritta.at("perhapsLate"), scritta.at("lines"));
  EXPECT_EQ(scritta.at("late"), 0);
  EXPECT_EQ(scritta.at("deadlines").at(0).at("due"), "2018-03-07");
  EXPECT_EQ(scritta.at("deadlines").at(0).at("past"), true);
  EXPECT_EQ(scritta.at("deadlines").at(1).at("condition"), "se non utilizzabili nel 730");
  EXPECT_EQ(del2017.at(1).at("written"), 0);
  // What the state of one company says of its year is what the board says.
  EXPECT_EQ(righe({"--year", "2017"}).size(), inviata.at("lines").get<std::size_t>());
}

TEST_F(BoardCommand, IsATableWithASumForPeople) {
  const Esecuzione corsa = status({"--company", "3", "--year", "2016"});
  EXPECT_EQ(corsa.codice, 0) << corsa.errori;
  EXPECT_THAT(corsa.uscita, HasSubstr("Azienda | Nome"));
  EXPECT_THAT(corsa.uscita, HasSubstr("3       | Azienda Sintetica 0003 S.p.A. | 00000030247    | 2016"));
  EXPECT_THAT(corsa.uscita, HasSubstr("in ritardo"));
  EXPECT_THAT(corsa.uscita, HasSubstr("\nRighe 1, certificazioni "));
}

TEST_F(BoardCommand, AYearIsAskedForOfOneCompanyOnly) {
  const Esecuzione corsa = status({});
  EXPECT_EQ(corsa.codice, 2);
  EXPECT_THAT(corsa.errori, HasSubstr("--year: manca"));
  EXPECT_EQ(status({"--all-companies", "--year", "2001"}).codice, 0);
  EXPECT_EQ(status({"--company", "99"}).codice, 1);
}

}  // namespace
}  // namespace cu::test
