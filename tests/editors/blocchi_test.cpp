// The fields locked and unlocked by the payment reason, in each layout.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

struct Causale {
  int anno;
  const char* codice;
};
std::ostream& operator<<(std::ostream& out, const Causale& c) { return out << c.anno << " " << c.codice; }

std::vector<Causale> causali() {
  std::vector<Causale> tutte;
  for (const int anno : kAnni) {
    for (const char* codice : {"N", "M", "O", "A", "M1", "n", ""}) tutte.push_back({anno, codice});
  }
  return tutte;
}

constexpr const char* kAddizionali[] = {"AddRegionAcconto", "AddRegionImposta", "AddRegionSospesa",
                                        "AddComunAcconto",  "AddComunImposta",  "AddComunSospesa"};
// In the oldest layout the labels of the locked fields.
const std::map<int, const char*> kEtichette = {
    {2, "lblField(3)"}, {3, "lblField(4)"}, {4, "lblField(5)"},          {5, "lblField(6)"},
    {6, "lblField(7)"}, {7, "lblField(8)"}, {12, "lblSommeNonSoggette"}, {15, "lblSpeseRimb"}};

class Lock : public testing::TestWithParam<Causale>, public CampiProva {
 protected:
  void SetUp() override {
    WorkRow piena = rigaPiena();
    piena["Codice"] = text(GetParam().codice);
    piena["SommeNonSoggetteARitenuta"] = amount("12");
    piena["SpeseRimborsate"] = amount("15");
    apri(GetParam().anno, piena);
  }
  std::string codice() const { return GetParam().codice; }
  void atteso(int indice, bool aperto) {
    EXPECT_EQ(importo(indice).enabled(), aperto) << indice;
    EXPECT_EQ(importo(indice).background(), aperto ? Background::Window : Background::Face) << indice;
    const auto etichetta = kEtichette.find(indice);
    if (GetParam().anno == 2014 && etichetta != kEtichette.end()) {
      EXPECT_EQ(c<Label>(etichetta->second).enabled(), aperto) << indice;
    }
  }
};

TEST_P(Lock, OfTheSurchargesOpensThemToOneReasonOnly) {
  for (int n = 2; n <= 7; ++n) {
    atteso(n, codice() == "N");
    if (codice() == "N") {
      EXPECT_EQ(importo(n).number(), riga.Get(kAddizionali[n - 2]).decimal()) << n;
    } else {
      EXPECT_EQ(importo(n).text(), "") << n;
    }
  }
}

TEST_P(Lock, OfTheSumsNotSubjectOrOfTheExpensesClosesExactlyOne) {
  const bool provvigioni = codice() == "M" || codice() == "O";
  atteso(12, !provvigioni);
  atteso(15, provvigioni);
  EXPECT_EQ(importo(12).value(), 12);
  EXPECT_EQ(importo(15).value(), 15);
}

TEST_P(Lock, LeavesEveryOtherAmountOpen) {
  for (const auto* tavola : {&tavolaModulo1(), &tavolaModuli()}) {
    for (const Campo& campo : *tavola) {
      const int n = indice(campo.controllo);
      if (!campo.nel(GetParam().anno) || campo.tipo != Tipo::Importo) continue;
      if ((n >= 2 && n <= 7) || n == 12 || n == 15) continue;
      EXPECT_TRUE(importo(n).enabled()) << n;
      EXPECT_EQ(importo(n).background(), Background::Window) << n;
    }
  }
}

TEST_P(Lock, StoresClosedSurchargesAsZeroAndTheOtherClosedFieldAsItWas) {
  const Righe prima = fotografia(riga);
  importo(20).enter("5");
  premi("cmdOk");
  Righe attese = {{"RitenuteAcconto", "5"}, {"Modificato", "-1"}};
  if (codice() != "N") {
    for (const char* colonna : kAddizionali) attese[colonna] = "0";
  }
  EXPECT_EQ(differenze(prima, fotografia(riga)), attese);
}

INSTANTIATE_TEST_SUITE_P(Reasons, Lock, testing::ValuesIn(causali()), [](const auto& caso) {
  const std::string codice = caso.param.codice;
  return std::to_string(caso.param.anno) + "_" +
         (codice.empty()  ? "none"
          : codice == "n" ? "lower_n"
                          : codice);
});

struct Locks : testing::Test, CampiProva {};

TEST_F(Locks, DoNotDependOnTheKindOfTheCommunication) {
  for (const int anno : kAnni) {
    std::vector<std::vector<bool>> aperti;
    for (const int tipo : {1, 2, 3}) {
      apri(anno, {{"Codice", text("N")}}, tipo);
      std::vector<bool>& di = aperti.emplace_back();
      for (const Campo& campo : tavolaModulo1()) {
        if (campo.nel(anno)) di.push_back(editor->find(campo.controllo)->enabled());
      }
    }
    EXPECT_EQ(aperti[0], aperti[1]) << anno;
    EXPECT_EQ(aperti[0], aperti[2]) << anno;
  }
}

// The payer's code at each fund.
struct Ente {
  const char* nome;
  Value id;
  const char* atteso;
};
class Body : public testing::TestWithParam<Ente>, public CampiProva {};

TEST_P(Body, SaysWhichCodeCampo32Shows) {
  for (const int anno : {2015, 2016}) {
    apri(anno, {{"IDCUEntePrevidenziale", GetParam().id},
                {"CodiceAzPressoENPAM", text("enpam")},
                {"CodiceAzPressoENPAPI", text("enpapi")}});
    EXPECT_EQ(testo(3).text(), GetParam().atteso) << anno;
    EXPECT_EQ(testo(22).text(), GetParam().atteso) << anno;
  }
}
INSTANTIATE_TEST_SUITE_P(Bodies, Body,
                         testing::Values(Ente{"First", whole(1), "enpam"}, Ente{"Second", whole(2), "enpapi"},
                                         Ente{"Third", whole(3), ""}, Ente{"Zero", whole(0), ""},
                                         Ente{"Null", null(), ""}),
                         [](const auto& caso) { return std::string(caso.param.nome); });

}  // namespace
}  // namespace cu::test
