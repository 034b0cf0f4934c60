// The supplies that the state of a year asks for, as they are written.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <utility>

#include "system/vita_invii_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kNome = "/CUR_04123450233_2017.cur";

class Correzioni : public VitaInvii {
 protected:
  // A file that was accepted whole.
  json accettato(const std::vector<std::string>& altre = {}) {
    const std::string file = crea(altre);
    applicata(ricevuta(file, "18030612345678901", {}));
    return certificati(file);
  }
  // A euro more of tax in the account of a payee, by the fiscal code.
  void cambiaRitenuta(const std::string& percipiente) {
    posto_.lettore()->esegui(
        "UPDATE ContoIndividuale SET RitenutaAcconto = RitenutaAcconto + 1 WHERE Anno = 2017 AND "
        "IDAnagrafica IN"
        " (SELECT IDAnagrafica FROM Anagrafica WHERE CodiceFiscale = '" +
        percipiente + "')");
  }
  void correggi() {
    const Esecuzione esecuzione = cuctl({"correct", "--year", kAnno, "--folder", in("c"), "--yes"});
    EXPECT_EQ(esecuzione.codice, 0) << esecuzione.errori;
  }
  json fornitura(const std::string& file) {
    return json::parse(posto_.cuctl({"inspect", file, "--json"}).uscita).at("supply");
  }
};

TEST_F(Correzioni, ARejectedCorrectionLeavesTheAcceptanceBeforeIt) {
  const std::string file = crea();
  applicata(ricevuta(file, "18030612345678901", {}));  // marks the file as sent
  const auto archivio = posto_.lettore();
  archivio->esegui(
      "UPDATE ContoIndividuale SET RitenutaAcconto = RitenutaAcconto + 1 WHERE Anno = 2017 AND"
      " IDAnagrafica = 101 AND IDCausalePagamento = 1");
  const auto quante = static_cast<int>(status().size());
  ASSERT_EQ(operazioni(), (std::map<std::string, int>{{"sostituzione", 1}, {"nessuna", quante - 1}}));
  ASSERT_EQ(cuctl({"correct", "--year", kAnno, "--folder", in("c"), "--yes"}).codice, 0);
  applicata(ricevuta(in("c") + "/sostituzioni/CUR_04123450233_2017.cur", "18041012345678903", {0}));
  EXPECT_EQ(operazioni(), (std::map<std::string, int>{{"sostituzione", 1}, {"nessuna", quante - 1}}));
  for (const json& voce : status()) {
    if (voce.at("operation") != "sostituzione") continue;
    EXPECT_EQ(voce.at("protocol"), "18030612345678901");
  }
}

TEST_F(Correzioni, ADiscardedFileIsAsIfItHadNotBeenWritten) {
  const std::string file = crea();
  applicata(ricevuta(file, "18030612345678901", {}));
  posto_.lettore()->esegui(
      "UPDATE ContoIndividuale SET RitenutaAcconto = RitenutaAcconto + 1 WHERE Anno = 2017 AND"
      " IDAnagrafica = 101 AND IDCausalePagamento = 1");
  const json prima = status();
  const auto quante = static_cast<int>(prima.size());
  ASSERT_EQ(cuctl({"correct", "--year", kAnno, "--folder", in("c"), "--yes"}).codice, 0);
  const std::string sostituzione = in("c") + "/sostituzioni/CUR_04123450233_2017.cur";
  const json dopo = status();
  ASSERT_EQ(operazioni(), (std::map<std::string, int>{{"attesa", 1}, {"nessuna", quante - 1}}));

  const Esecuzione prova = cuctl({"discard", sostituzione});
  EXPECT_EQ(prova.codice, 1);
  EXPECT_THAT(prova.errori, HasSubstr("verrebbe tolto dal registro"));
  EXPECT_THAT(prova.errori, HasSubstr("Non è stato tolto nulla."));
  EXPECT_EQ(status(), dopo);

  const Esecuzione vera = cuctl({"discard", sostituzione, "--yes"});
  EXPECT_EQ(vera.codice, 0) << vera.errori;
  EXPECT_THAT(vera.uscita, HasSubstr("tolto dal registro, certificazioni 1."));
  EXPECT_TRUE(std::filesystem::exists(sostituzione));
  EXPECT_EQ(status(), prima);
  EXPECT_THAT(posto_.lettore()->righe("SELECT * FROM CuModulo WHERE IDCertificazione NOT IN"
                                      " (SELECT IDCertificazione FROM CuCertificazione)"),
              IsEmpty());
  EXPECT_EQ(cuctl({"discard", sostituzione, "--yes"}).codice, 1);
  ASSERT_EQ(cuctl({"correct", "--year", kAnno, "--folder", in("c"), "--yes"}).codice, 0);
  EXPECT_EQ(status(), dopo);
}

TEST_F(Correzioni, AReplacementKeepsTheRefundedExpensesOfReasonsMAndO) {
  const json prime = accettato();
  std::map<std::pair<std::string, std::string>, json> conSpese;  // by payee and reason
  for (const json& prima : prime) {
    const json& celle = prima.at("modules").at(0).at("cells");
    const std::string causale = prima.at("reason");
    if ((causale == "M" || causale == "O") && celle.contains("AU001020"))
      conSpese[{prima.at("payee"), causale}] = celle;
  }
  ASSERT_GE(conSpese.size(), 2U);
  for (const auto& [chiave, celle] : conSpese) cambiaRitenuta(chiave.first);
  correggi();
  const std::string sostituzione = in("c") + "/sostituzioni" + kNome;
  EXPECT_EQ(posto_.cuctl({"validate", sostituzione}).codice, 0);
  const json sostituite = certificati(sostituzione);
  std::size_t trovate = 0;  // the same payees have other reasons, too
  for (const json& una : sostituite) {
    const auto prima = conSpese.find({una.at("payee"), una.at("reason")});
    if (prima == conSpese.end()) continue;
    ++trovate;
    json dopo = una.at("modules").at(0).at("cells");
    EXPECT_NE(dopo.at("AU001009"), prima->second.at("AU001009"));
    for (json* celle : {&prima->second, &dopo}) celle->erase("AU001009");
    EXPECT_EQ(dopo, prima->second) << "the expenses in 20 among them";
  }
  EXPECT_EQ(trovate, conSpese.size());
}

TEST_F(Correzioni, GoThroughTheIntermediaryOfTheLastSupply) {
  const json prime = accettato(
      {"--intermediary", "RSSMRA80A01H501U", "--commitment", "2", "--commitment-date", "2018-03-01"});
  const std::string tolto = prime.at(3).at("payee");
  cambiaRitenuta(prime.at(0).at("payee"));
  posto_.lettore()->esegui(
      "DELETE FROM ContoIndividuale WHERE Anno = 2017 AND IDAnagrafica IN"
      " (SELECT IDAnagrafica FROM Anagrafica WHERE CodiceFiscale = '" +
      tolto + "')");
  correggi();
  const auto riga = [this](const char* cartella, std::size_t quale) {
    std::ifstream file(in("c") + "/" + cartella + kNome, std::ios::binary);
    std::string letta;
    for (std::size_t i = 0; i <= quale; ++i) std::getline(file, letta);
    return letta;
  };
  std::ifstream ordinaria(in("cu") + kNome, std::ios::binary);
  std::string a;
  std::string b;
  std::getline(ordinaria, a);
  std::getline(ordinaria, b);
  EXPECT_THAT(b, HasSubstr("RSSMRA80A01H501U"));
  const std::size_t dove = b.find("RSSMRA80A01H501U");
  for (const char* cartella : {"sostituzioni", "annullamenti"}) {
    SCOPED_TRACE(cartella);
    EXPECT_EQ(fornitura(in("c") + "/" + cartella + kNome).at("senderType"), "10");
    EXPECT_EQ(riga(cartella, 0), a);
    // The code, the commitment and its date, side by side.
    EXPECT_EQ(riga(cartella, 1).substr(dove, 30), b.substr(dove, 30));
  }
}

}  // namespace
}  // namespace cu::test
