// Box 22 of the forms from CU 2023 on: from the editor to the file, kept where the suite has no column for
// it.

#include <gmock/gmock.h>

#include <algorithm>

#include "support/cur_reader.h"
#include "system/guidato_support.h"
#include "system/pubblicati_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using json = nlohmann::json;

constexpr const char* kDidascalia = "22 Somme restituite al netto della ritenuta subita";

class SommeRestituite : public Guidato, public testing::WithParamInterface<int> {
 protected:
  SommeRestituite() : Guidato(false), anno_(std::to_string(GetParam())) {
    const Esecuzione creato = posto_.crea({"--payees", "3", "--years", anno_, "--seed", "4"});
    EXPECT_EQ(creato.codice, 0) << creato.errori;
    usaModelliPubblicati(posto_);
    posto_.lettore()->esegui("UPDATE Percipiente SET NonResidente = 0");
  }

  // Enters the amount for the first line and makes the file; returns the line.
  json scritta(const std::string& importo) {
    avvia();
    vaiAllaGriglia(anno_);
    const std::string form = apri(1);
    EXPECT_EQ(stato(form + ".curSommeRestituite").at("caption"), kDidascalia);
    scrivi(form + ".curSommeRestituite", importo);
    lascia(form + ".curSommeRestituite");
    clic(form + ".cmdOk");
    json riga = righe("frmWizard.grdCompensi", 1, 1).at(0);
    return riga;
  }
  std::vector<std::string> celle(const std::string& file) const {
    std::vector<std::string> valori;
    const CurFile letto(file);
    for (const CurLine& riga : letto.lines()) {
      if (riga.type() != 'H') continue;
      const std::string testo = riga.value("AU001022");
      const std::size_t primo = testo.find_first_not_of(' ');
      if (primo != std::string::npos) valori.push_back(testo.substr(primo));
    }
    return valori;
  }
  std::string crea() {
    const Esecuzione fatto =
        posto_.cuctl({"make", "--profile", posto_.profilo(), "--year", anno_, "--folder",
                      posto_.cartella() / "Documenti", "--signature-date", "2027-03-01", "--yes"});
    EXPECT_EQ(fatto.codice, 0) << fatto.uscita << fatto.errori;
    return posto_.cartella().read("Documenti/" + nome());
  }
  std::string nome() const {
    for (const std::string& uno : posto_.file("Documenti")) {
      if (uno.starts_with("CUR_") && std::count(uno.begin(), uno.end(), '_') == 2) return uno;
    }
    return {};
  }
  std::string verifica() {
    const Esecuzione fatto = posto_.cuctl(
        {"verify", posto_.cartella() / ("Documenti/" + nome()), "--profile", posto_.profilo(), "--json"});
    return std::to_string(fatto.codice) + fatto.uscita;
  }
  std::string memorizzata() const {
    return posto_.lettore()->testo("SELECT SUM(SommeRestituite) FROM CuRestituzione");
  }

  const std::string anno_;
};

TEST_P(SommeRestituite, AreWrittenKeptComparedAndTakenOutAgain) {
  const json riga = scritta("1.234,50");
  EXPECT_EQ(celle(creaFile()), std::vector<std::string>{"1234,50"});
  EXPECT_THAT(memorizzata(), HasSubstr("1234.5"));
  EXPECT_EQ(posto_.lettore()->testo("SELECT IDAnagrafica FROM CuRestituzione"),
            riga.at("IDAnagrafica").dump());
  EXPECT_EQ(verifica().substr(0, 1), "0");
  EXPECT_EQ(posto_.cuctl({"validate", "--strict", posto_.cartella() / ("Documenti/" + nome())}).codice, 0);

  // The next run has it from the database.
  EXPECT_EQ(celle(crea()), std::vector<std::string>{"1234,50"});
  posto_.lettore()->esegui("UPDATE CuRestituzione SET SommeRestituite = 1234.51");
  EXPECT_THAT(verifica(), HasSubstr(R"("field":"AU001022","old":"1234,50","new":"1234,51")"));
  // A profile without the key neither reads nor shows it.
  posto_.imposta("telematic.forms", "");
  EXPECT_EQ(celle(crea()), std::vector<std::string>());
  EXPECT_THAT(memorizzata(), HasSubstr("1234.51"));
  avvia();
  vaiAllaGriglia(anno_);
  const std::string form = apri(1);
  EXPECT_FALSE(manda({{"do", "get"}, {"of", form + ".curSommeRestituite"}}).at("ok").get<bool>());
  posto_.imposta("telematic.forms", "\"published\"");
  scritta("0");
  EXPECT_EQ(celle(creaFile()), std::vector<std::string>());
  EXPECT_EQ(posto_.lettore()->testo("SELECT COUNT(*) FROM CuRestituzione"), "0");
}

TEST_P(SommeRestituite, AreOnTheForm) {
  posto_.imposta("printing.engine", "\"pdf\"");
  scritta("1.234,50");
  creaFile();
  processo_.reset();
  const auto stampa = [&] {
    std::string testo;
    for (const std::string& uno : posto_.file("Documenti")) {
      if (uno == nome() || !uno.ends_with(".cur")) continue;
      const std::string percorso = posto_.cartella() / ("Documenti/" + uno);
      testo +=
          esegui({"/usr/bin/env", "pdftotext", "-layout", percorso, "-"}, posto_.cartella().path()).uscita;
    }
    return testo;
  };
  EXPECT_THAT(stampa(), HasSubstr("Somme restituite al netto"));
  EXPECT_THAT(stampa(), HasSubstr("1.234,50"));
}

TEST_P(SommeRestituite, AreRefusedWhereTheirTableIsMissing) {
  posto_.lettore()->esegui("DROP TABLE CuRestituzione");
  const auto prima = posto_.lettore()->righe("SELECT * FROM ContoIndividuale");
  EXPECT_EQ(celle(crea()), std::vector<std::string>()) << "nothing depends on the table";
  scritta("10");
  clic("frmWizard.cmdNav(3)");
  const json risposta = clic("frmWizard.cmdNav(4)");
  EXPECT_THAT(risposta.at("modal").at("text").get<std::string>(), HasSubstr("cuctl upgrade"));
  rispondi("ok");
  EXPECT_EQ(posto_.lettore()->righe("SELECT * FROM ContoIndividuale"), prima);
  EXPECT_EQ(posto_.sulDatabase("upgrade").codice, 0);
  clic("frmWizard.cmdNav(4)");
  EXPECT_THAT(memorizzata(), HasSubstr("10"));
}

INSTANTIATE_TEST_SUITE_P(Years, SommeRestituite, testing::Values(2022, 2025),
                         [](const auto& caso) { return std::to_string(caso.param); });

class SenzaSommeRestituite : public SommeRestituite {};

TEST_P(SenzaSommeRestituite, TheEditorHasNoBoxForThem) {
  avvia();
  vaiAllaGriglia(anno_);
  const std::string form = apri(1);
  EXPECT_FALSE(manda({{"do", "get"}, {"of", form + ".curSommeRestituite"}}).at("ok").get<bool>());
}

INSTANTIATE_TEST_SUITE_P(Years, SenzaSommeRestituite, testing::Values(2018, 2021),
                         [](const auto& caso) { return std::to_string(caso.param); });

}  // namespace
}  // namespace cu::test
