// One user in two sessions, whose work tables have the same name.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <thread>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;

constexpr const char* kGriglia = "frmWizard.grdCompensi";

class Sessione {
 public:
  explicit Sessione(std::unique_ptr<Processo> processo) : processo_(std::move(processo)) { leggi(); }

  json fai(const json& comando) {
    processo_->scrivi(comando.dump() + "\n");
    json risposta = leggi();
    EXPECT_TRUE(risposta.at("ok").get<bool>()) << comando << " " << risposta;
    return risposta;
  }
  json clic(const std::string& controllo) { return fai({{"do", "click"}, {"on", controllo}}); }
  json stato(const std::string& controllo) { return fai({{"do", "get"}, {"of", controllo}}).at("result"); }
  json premi(int riga) {
    return fai({{"do", "press"}, {"in", kGriglia}, {"row", riga}, {"column", "Selezionato"}});
  }
  json riga(int quale) {
    return fai({{"do", "rows"}, {"in", kGriglia}, {"from", quale}, {"count", 1}}).at("result").at(0);
  }
  std::string didascalia() { return stato(kGriglia).at("columns").at(0).at("caption"); }
  // The text of the error that waits, which is then closed.
  std::string errore(const json& risposta) {
    const json& modale = risposta.at("modal");
    if (modale.is_null()) return {};
    EXPECT_EQ(modale.at("kind"), "error") << modale;
    fai({{"do", "answer"}, {"with", "ok"}});
    return modale.at("text");
  }
  json vaiAllaGriglia(const std::string& anno) {
    clic("frmWizard.optstType(1)");
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", anno}});
    return clic("frmWizard.cmdNav(3)");
  }
  json correggi(int riga, const std::string& ritenute) {
    const std::string editor =
        fai({{"do", "doubleclick"}, {"in", kGriglia}, {"row", riga}}).at("windows").back();
    fai({{"do", "enter"}, {"in", editor + ".curField(20)"}, {"text", ritenute}});
    return clic(editor + ".cmdOk");
  }

 private:
  json leggi() {
    const auto riga = processo_->riga();
    if (!riga) throw std::runtime_error("the program has ended: " + processo_->errori());
    return json::parse(*riga);
  }
  std::unique_ptr<Processo> processo_;
};

class TwoSessions : public testing::Test {
 protected:
  Sessione sessione() {
    posto_.imposta("trace.sql", "\"traccia" + std::to_string(++quante_) + ".sql\"");
    return Sessione(posto_.guida());
  }
  Posto posto_;
  int quante_ = 0;
};

TEST_F(TwoSessions, ALineThatTheOtherHasTakenAwayIsToldAndStaysAsItIs) {
  Sessione una = sessione();
  una.vaiAllaGriglia("2016");
  const std::string didascalia = una.didascalia();
  Sessione altra = sessione();
  altra.vaiAllaGriglia("2015");  // another year: none of the first one's lines exists
  const json prima = una.riga(1);
  EXPECT_EQ(una.errore(una.premi(1)),
            "La tabella di lavoro non contiene più questa riga: un'altra sessione dello stesso utente l'ha "
            "ricreata. Chiudere l'altra sessione, tornare al primo passo e ricaricare i compensi.");
  EXPECT_EQ(una.riga(1), prima);
  EXPECT_EQ(una.didascalia(), didascalia);
  EXPECT_NE(una.errore(una.clic("frmWizard.cmdSelect(1)")), "");
  EXPECT_EQ(una.riga(1), prima);
  EXPECT_EQ(una.didascalia(), didascalia);
}

TEST_F(TwoSessions, AnEditorWhoseLineIsGoneStaysOpenWithWhatWasTyped) {
  Sessione una = sessione();
  una.vaiAllaGriglia("2016");
  Sessione altra = sessione();
  altra.vaiAllaGriglia("2015");
  const json prima = una.riga(1);
  EXPECT_NE(una.errore(una.correggi(1, "12,5")).find("non contiene più questa riga"), std::string::npos);
  EXPECT_EQ(una.stato("frmCompenso2017.curField(20)").at("text"), "12,50");
  una.clic("frmCompenso2017.cmdAnnulla");
  EXPECT_EQ(una.riga(1), prima);
}

TEST_F(TwoSessions, CorrectionsThatTheOtherHasDroppedAreToldAtTheWriteBackAndNoFileIsMade) {
  Sessione una = sessione();
  una.vaiAllaGriglia("2016");
  EXPECT_EQ(una.errore(una.correggi(1, "12,5")), "");
  EXPECT_EQ(una.errore(una.correggi(2, "7")), "");
  Sessione altra = sessione();
  altra.vaiAllaGriglia("2016");
  EXPECT_EQ(una.errore(una.correggi(3, "8")), "") << "the line is in the new table too";
  una.clic("frmWizard.cmdNav(3)");
  const std::string testo = una.errore(una.clic("frmWizard.cmdNav(4)"));
  EXPECT_NE(testo.find("ne sono state memorizzate 1 su 3. Un'altra sessione dello stesso utente"),
            std::string::npos)
      << testo;
  EXPECT_TRUE(posto_.file("Documenti").empty());
}

TEST_F(TwoSessions, AloneNothingIsMissedAtTheWriteBack) {
  Sessione una = sessione();
  una.vaiAllaGriglia("2016");
  una.correggi(1, "12,5");
  una.correggi(2, "7");
  EXPECT_EQ(una.errore(una.premi(2)), "");  // a deselected line is not written back
  una.clic("frmWizard.cmdNav(3)");
  json risposta = una.clic("frmWizard.cmdNav(4)");
  EXPECT_EQ(risposta.at("windows").back(), "frmMsgLink") << risposta;
}

TEST_F(TwoSessions, ATableThatIsBeingMadeAnewIsToldInWords) {
  Sessione una = sessione();
  una.vaiAllaGriglia("2016");
  posto_.lettore()->esegui("DROP TABLE tmpprequadrivio12");
  const json prima = una.riga(1);
  const std::string testo = una.errore(una.premi(1));
  EXPECT_NE(testo.find("un'altra sessione dello stesso utente la sta ricreando"), std::string::npos) << testo;
  EXPECT_EQ(una.riga(1), prima);
}

// Whatever coincides, the result is a success or a text without the engine's words.
TEST_F(TwoSessions, StartsAtTheSameTimeSpeakToTheUser) {
  Sessione una = sessione();
  Sessione altra = sessione();
  for (int volta = 0; volta < 5; ++volta) {
    json risposte[2];
    std::thread insieme([&] { risposte[0] = altra.vaiAllaGriglia("2016"); });
    risposte[1] = una.vaiAllaGriglia("2016");
    insieme.join();
    Sessione* const chi[] = {&altra, &una};
    for (int i = 0; i < 2; ++i) {
      const std::string testo = chi[i]->errore(risposte[i]);
      for (const char* parola : {"tmpprequadrivio", "table", "Messaggio del server", "istruzione"}) {
        EXPECT_EQ(testo.find(parola), std::string::npos) << testo;
      }
      if (!testo.empty()) continue;
      chi[i]->clic("frmWizard.cmdNav(2)");
      chi[i]->fai({{"do", "answer"}, {"with", "no"}});
    }
  }
}

}  // namespace
}  // namespace cu::test
