// Planning and applying that a person cancels: the sink's exception ends them, and nothing is written.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using prova::letta;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Fermata {};

// Stops at a call.
class Interruttore : public ProgressSink {
 public:
  explicit Interruttore(std::size_t chiamata = static_cast<std::size_t>(-1)) : ultima_(chiamata) {}
  void setPointer(int /*pointer*/) override {}
  void progress(const char* cosa, std::size_t /*done*/, std::size_t /*total*/) override {
    cose.insert(cosa);
    if (chiamate++ == ultima_) throw Fermata();
  }
  std::size_t chiamate = 0;
  std::set<std::string> cose;

 private:
  std::size_t ultima_;
};

constexpr std::string_view kNuovi =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;SommeNonSoggette;CodiceNonSoggette\n"
    "P1;A;2017-09-20;31;100;;\nP2;A;2017-09-20;32;100;;\nP2;M;2018-01-10;33;70;10;7\n";

class Interrotta : public ::testing::Test {
 protected:
  Piano piano(ProgressSink* sink) {
    std::vector<Lettura> letture;
    letture.push_back(letta(Elenco::Compensi, kNuovi));
    return pianifica(*banco, std::move(letture), banco.richiesta, sink);
  }
  Result<Applicato> applica(const Piano& suo, ProgressSink* sink) {
    RicostruzioneContiIndividuali ricostruzione;
    return intake::applica(banco.host(), ricostruzione, suo,
                           {.prova = false, .utente = "anna", .momento = "2018-03-05 10:30:00"}, sink);
  }
  // The suite's tables, and the number of rows of the history's.
  std::vector<std::string> tutto() {
    std::vector<std::string> righe = banco.contenuto();
    for (const char* tabella : {"CuImportazione", "CuImportazioneFile", "CuImportazioneContenuto",
                                "CuImportazioneRiga", "CuImportazioneConto"}) {
      righe.push_back(tabella + std::to_string(banco.quante(tabella)));
    }
    return righe;
  }

  Banco banco{prova::riempito()};
};

TEST_F(Interrotta, PlanningChangesNothingAtAnyMoment) {
  const std::vector<std::string> prima = tutto();
  Interruttore intera;
  ASSERT_TRUE(piano(&intera).applicabile());
  EXPECT_THAT(intera.cose, ElementsAre("Compensi"));
  ASSERT_GE(intera.chiamate, 3U);
  for (std::size_t i = 0; i < intera.chiamate; ++i) {
    Interruttore sink(i);
    EXPECT_THROW(piano(&sink), Fermata) << i;
    EXPECT_EQ(tutto(), prima) << i;
  }
  EXPECT_TRUE(applica(piano(nullptr), nullptr)->lotto);
}

TEST_F(Interrotta, ApplyingIsTakenBackAtAnyMoment) {
  const std::vector<std::string> prima = tutto();
  const Piano suo = piano(nullptr);
  const std::size_t chiamate = [&] {
    Banco altro{prova::riempito()};
    RicostruzioneContiIndividuali ricostruzione;
    Interruttore intera;
    EXPECT_TRUE(intake::applica(altro.host(), ricostruzione, suo,
                                {.prova = true, .utente = "anna", .momento = "2018-03-05 10:30:00"},
                                &intera));
    EXPECT_THAT(intera.cose, ElementsAre("Conti", "Scrittura"));
    return intera.chiamate;
  }();
  ASSERT_GE(chiamate, 5U) << "each row, and each year of the accounts";
  for (std::size_t i = 0; i < chiamate; ++i) {
    Interruttore sink(i);
    EXPECT_THROW(static_cast<void>(applica(suo, &sink)), Fermata) << i;
    EXPECT_EQ(tutto(), prima) << i;
  }
  EXPECT_TRUE(applica(suo, nullptr)->lotto) << "the same plan can still be applied";
  EXPECT_EQ(banco.quante("Compenso"), 6);
}

}  // namespace
}  // namespace cu::intake
