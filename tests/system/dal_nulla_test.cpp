// From nothing to a telematic file, on the tables that the guide's first chapter follows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using Argomenti = std::vector<std::string>;

constexpr const char* kAziendaDellaGuida = "04123450126";

class DalNulla : public ::testing::Test {
 protected:
  DalNulla() : posto_(Posto::Database::Vuoto) {}

  static std::string esempio(const std::string& nome) { return std::string(CU_ESEMPIO) + "/" + nome; }

  // The result in words of a test, and of the import itself.
  std::string importa(const std::string& elenco, const std::string& file) {
    Argomenti argomenti = {"import", elenco, esempio(file), "--database", posto_.indirizzo()};
    if (elenco != "companies") argomenti.insert(argomenti.end(), {"--company", kAziendaDellaGuida});
    if (posto_.databaseDelServer() != nullptr) {
      argomenti.insert(argomenti.end(), {"--password-env", kVariabilePassword});
    }
    const Esecuzione prova = posto_.cuctl(argomenti);
    EXPECT_EQ(prova.codice, 0) << prova.errori;
    EXPECT_EQ(prova.errori, "");
    EXPECT_THAT(prova.uscita, HasSubstr("Non è stato scritto nulla."));
    argomenti.emplace_back("--apply");
    const Esecuzione fatta = posto_.cuctl(argomenti);
    EXPECT_EQ(fatta.codice, 0) << fatta.errori;
    return fatta.uscita;
  }

  Posto posto_;
};

TEST_F(DalNulla, ThreeTablesBecomeAFileThatIsValid) {
  EXPECT_EQ(importa("companies", "azienda.csv"),
            "Importazione 1: 1 nuovo, 0 uguali, 0 da decidere, 0 errori.\n");
  EXPECT_EQ(importa("payees", "percipienti.csv"),
            "Importazione 2: 30 nuovi, 0 uguali, 0 da decidere, 0 errori.\n");
  EXPECT_EQ(importa("payments", "compensi.csv"),
            "Importazione 3: 200 nuovi, 0 uguali, 0 da decidere, 0 errori.\n");

  posto_.imposta("session.today", "2018-03-05T10:30:00");
  const std::string profilo = posto_.profilo();
  const Esecuzione creato = posto_.cuctl({"make", "--profile", profilo, "--year", "2017", "--signature-date",
                                          "2018-03-05", "--folder", posto_.cartella() / "Documenti"});
  ASSERT_EQ(creato.codice, 0) << creato.uscita << creato.errori;
  const std::string file =
      posto_.cartella() / ("Documenti/CUR_" + std::string(kAziendaDellaGuida) + "_2017.cur");
  const Esecuzione valido = posto_.cuctl({"validate", file, "--strict"});
  EXPECT_EQ(valido.codice, 0) << valido.uscita << valido.errori;
  const Esecuzione uguale = posto_.cuctl({"verify", file, "--profile", profilo});
  EXPECT_EQ(uguale.codice, 0) << uguale.uscita << uguale.errori;

  const auto visto = nlohmann::json::parse(posto_.cuctl({"inspect", file, "--json"}).uscita);
  EXPECT_EQ(visto.at("totals").at("D"), 30);
  EXPECT_TRUE(visto.at("findings").empty());
  // The seven payments of payee F001, added up by hand.
  const auto& certificati = visto.at("agents")[0].at("certificates");
  const auto suo = std::find_if(certificati.begin(), certificati.end(),
                                [](const auto& uno) { return uno.at("payee") == "CLAGNN71H57L781T"; });
  ASSERT_NE(suo, certificati.end());
  EXPECT_EQ(suo->at("modules")[0].at("cells"), nlohmann::json({{"AU001001", "A"},
                                                               {"AU001004", "10611,80"},
                                                               {"AU001006", "7"},
                                                               {"AU001007", "36,80"},
                                                               {"AU001008", "10575,00"},
                                                               {"AU001009", "2115,00"}}));
}

}  // namespace
}  // namespace cu::test
