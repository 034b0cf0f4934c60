// From nothing to a telematic file, as the guide's first chapter does it: a company by its form, payees and
// payments from the tables of docs/esempio.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "system/guidato_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using Argomenti = std::vector<std::string>;

constexpr const char* kAziendaDellaGuida = "04123450126";

class DalNulla : public Guidato {
 protected:
  DalNulla() : Guidato(false) {}

  void scriviAzienda() {
    processo_ = posto_.guida({"--start", "archivi"});
    leggi();
    clic("frmArchivi.cmdNuova");
    scrivi("frmAzienda.txtCodiceFiscale", kAziendaDellaGuida);
    scrivi("frmAzienda.txtDenominazione", "Officina Valpolicella S.r.l.");
    scrivi("frmAzienda.txtCodiceAttivita", "251100");
    scrivi("frmAzienda.txtIndirizzo", "Via Mazzini 12");
    scrivi("frmAzienda.txtCap", "37121");
    scrivi("frmAzienda.txtTelefono", "045 1234567");
    scrivi("frmAzienda.txtEmail", "amministrazione@officina.example");
    const std::int64_t verona =
        posto_.lettore()->numero("SELECT IDComune FROM Comune WHERE Comune = 'Verona'");
    fai({{"do", "choose"}, {"in", "frmAzienda.TownComune"}, {"record", verona}});
    scrivi("frmAzienda.txtRappCodiceFiscale", "GZZLRA75C52L781Z");
    scrivi("frmAzienda.txtRappCognome", "Guizzi");
    scrivi("frmAzienda.txtRappNome", "Laura");
    EXPECT_TRUE(clic("frmAzienda.cmdOk").at("modal").is_null());
    EXPECT_TRUE(clic("frmArchivi.cmdChiudi").at("ended").get<bool>());
    EXPECT_EQ(processo_->codice(), 0) << processo_->errori();
  }

  // Tests the import of a table, and applies it; returns what it says then.
  std::string importa(const std::string& elenco, const std::string& file) {
    Argomenti argomenti = {"import",
                           elenco,
                           std::string(CU_ESEMPIO) + "/" + file,
                           "--database",
                           posto_.indirizzo(),
                           "--company",
                           kAziendaDellaGuida};
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
};

TEST_F(DalNulla, ACompanyAndTwoTablesBecomeAFileThatIsValid) {
  ASSERT_EQ(posto_.crea({"--empty"}).codice, 0);
  ASSERT_NO_FATAL_FAILURE(scriviAzienda());
  EXPECT_EQ(importa("payees", "percipienti.csv"),
            "Importazione 1: 30 nuovi, 0 uguali, 0 da decidere, 0 errori.\n");
  EXPECT_EQ(importa("payments", "compensi.csv"),
            "Importazione 2: 200 nuovi, 0 uguali, 0 da decidere, 0 errori.\n");

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

  const json visto = json::parse(posto_.cuctl({"inspect", file, "--json"}).uscita);
  EXPECT_EQ(visto.at("totals").at("D"), 30);
  EXPECT_TRUE(visto.at("findings").empty());
  // The seven payments of payee F001, added up by hand.
  const json& certificati = visto.at("agents")[0].at("certificates");
  const auto suo = std::find_if(certificati.begin(), certificati.end(),
                                [](const json& uno) { return uno.at("payee") == "CLAGNN71H57L781T"; });
  ASSERT_NE(suo, certificati.end());
  EXPECT_EQ(suo->at("modules")[0].at("cells"), json({{"AU001001", "A"},
                                                     {"AU001004", "10611,80"},
                                                     {"AU001006", "7"},
                                                     {"AU001007", "36,80"},
                                                     {"AU001008", "10575,00"},
                                                     {"AU001009", "2115,00"}}));
}

}  // namespace
}  // namespace cu::test
