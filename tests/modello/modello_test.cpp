// The form as a whole: the form of each year, finding a box, and the invariants of a form.

#include "modello/modello.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "modello/coerenza.h"
#include "modello/regole.h"

namespace cu::modello {
namespace {

TEST(Years, OnScreenAndPaperFollowTheNewestUnlessTheyAreKnown) {
  EXPECT_EQ(annoDisposizione(2013), 2017);
  EXPECT_EQ(annoDisposizione(2014), 2014);
  EXPECT_EQ(annoDisposizione(2015), 2015);
  EXPECT_EQ(annoDisposizione(2016), 2016);
  EXPECT_EQ(annoDisposizione(2017), 2017);
  EXPECT_EQ(annoDisposizione(2018), 2017);
}

TEST(Years, InTheFileFollowTheNewestOnlyBehindIt) {
  EXPECT_EQ(annoTracciato(2013), 2013);
  EXPECT_EQ(annoTracciato(2014), 2014);
  EXPECT_EQ(annoTracciato(2017), 2017);
  EXPECT_EQ(annoTracciato(2018), 2017);
}

TEST(Years, AreTheirOwnInThePublishedForms) {
  for (std::int32_t anno = 2014; anno <= 2025; ++anno) {
    EXPECT_EQ(annoDisposizione(anno, kModelloPubblicato), anno);
    EXPECT_EQ(annoTracciato(anno, kModelloPubblicato), anno);
  }
  EXPECT_EQ(annoTracciato(2026, kModelloPubblicato), 2025);
  EXPECT_EQ(annoTracciato(2025), 2017);
}

TEST(Years, ShareTheirBoxesUpTo2018) {
  for (std::int32_t anno = 2013; anno <= 2018; ++anno) {
    for (const Campo& campo : kCampi) {
      EXPECT_EQ(campo.anni.comprende(annoTracciato(anno)),
                campo.anni.comprende(annoTracciato(anno, kModelloPubblicato)))
          << anno << " " << campo.colonna;
    }
  }
}

// Of a published form no code is taken for granted.
TEST(Years, HaveNoCodeOfSumsNotSubjectFrom2019On) {
  EXPECT_EQ(codiceNonSoggetti(2018, kModelloPubblicato), "7");
  for (std::int32_t anno = 2019; anno <= 2030; ++anno) {
    EXPECT_EQ(codiceNonSoggetti(anno, kModelloPubblicato), "") << anno;
    EXPECT_TRUE(codiceDaScegliere(anno, kModelloPubblicato)) << anno;
    EXPECT_EQ(codiceNonSoggetti(anno), "7") << anno;
    EXPECT_FALSE(codiceDaScegliere(anno)) << anno;
  }
}

int numeroDi(std::string_view colonna, std::int32_t anno, Record dove = Record::H) {
  const Trovato trovato = trova(kModelloPubblicato, dove, colonna, anno, true);
  return trovato.campo == nullptr ? 0 : trovato.campo->numero;
}

TEST(PublishedBoxes, OfAForeignPayeeMoveIn2024) {
  for (const std::int32_t anno : {2019, 2023}) {
    EXPECT_EQ(numeroDi("Indirizzo", anno, Record::D), 42) << anno;
    EXPECT_EQ(numeroDi("NonResidenteSchumacker", anno, Record::D), 43) << anno;
    EXPECT_EQ(numeroDi("PrefissoInternazionaleRes", anno, Record::D), 44) << anno;
  }
  for (const std::int32_t anno : {2024, 2025}) {
    EXPECT_EQ(numeroDi("ComuneRes", anno, Record::D), 41) << anno;
    EXPECT_EQ(numeroDi("Indirizzo", anno, Record::D), 43) << anno;
    EXPECT_EQ(numeroDi("NonResidenteSchumacker", anno, Record::D), 0) << anno;
    EXPECT_EQ(numeroDi("PrefissoInternazionaleRes", anno, Record::D), 45) << anno;
  }
}

TEST(PublishedBoxes, EndWithTheLastYearForWhichTheyAreAttested) {
  EXPECT_EQ(numeroDi("RitenuteRimborsate", 2023), 21);
  EXPECT_EQ(numeroDi("RitenuteRimborsate", 2024), 0);
  EXPECT_EQ(numeroDi("SommeCorrispostePreFallimento", 2023), 41);
  EXPECT_EQ(numeroDi("SommeCorrispostePreFallimento", 2024), 0);
  EXPECT_EQ(numeroDi("IndennitaEsproprioSommeCorrisposte1", 2021), 131);
  EXPECT_EQ(numeroDi("IndennitaEsproprioSommeCorrisposte1", 2022), 0);
  EXPECT_EQ(numeroDi("PignoramentoTerziSommeErogate1", 2025), 102);
  EXPECT_EQ(numeroDi("AltriSoggettiImponibile", 2025), 53);
}

TEST(Years, HaveACodeOfSumsNotSubjectOfTheirOwn) {
  EXPECT_EQ(codiceNonSoggetti(0), "3");
  EXPECT_EQ(codiceNonSoggetti(2015), "3");
  EXPECT_EQ(codiceNonSoggetti(2016), "6");
  EXPECT_EQ(codiceNonSoggetti(2017), "7");
  EXPECT_EQ(codiceNonSoggetti(9999), "7");
}

TEST(Boxes, AreFoundByAnyOfTheColumnsThatKeepThem) {
  const Trovato lordo = trova(kModello, Record::H, "AmmontareLordo", 2016, true);
  ASSERT_NE(lordo.campo, nullptr);
  EXPECT_EQ(lordo.campo->numero, 4);
  const Trovato scelta = trova(kModello, Record::H, "IDCodicePerNonSoggetti", 2016, false);
  ASSERT_NE(scelta.campo, nullptr);
  EXPECT_EQ(scelta.campo->numero, 6);
  EXPECT_EQ(scelta.colonna.genere, Genere::Elenco);
  const Trovato quota = trova(kModello, Record::H, "QuotaProvvigioniNonSoggette", 2016, true);
  ASSERT_NE(quota.campo, nullptr);
  EXPECT_EQ(quota.campo->numero, 7);
  EXPECT_EQ(quota.colonna.parte, 'b');
}

TEST(Boxes, MoveWithTheYears) {
  const auto numero = [](std::string_view colonna, std::int32_t anno) {
    const Record dove = colonna.starts_with("Comune") ? Record::D : Record::H;
    const Trovato trovato = trova(kModello, dove, colonna, anno, true);
    return trovato.campo == nullptr ? 0 : trovato.campo->numero;
  };
  EXPECT_EQ(numero("ContributiCaricoAzienda", 2013), 0);
  EXPECT_EQ(numero("ContributiCaricoAzienda", 2014), 20);
  EXPECT_EQ(numero("ContributiCaricoAzienda", 2015), 34);
  EXPECT_EQ(numero("ComuneResidenzaAnnoCorr", 2016), 23);
  EXPECT_EQ(numero("ComuneResidenzaAnnoCorr", 2017), 24);
  EXPECT_EQ(numero("PignoramentoTerziSommeNonTassate1", 2015), 0);
}

TEST(Boxes, AreFoundByTheirNumber) {
  const Campo* const anno = trovaNumero(kModello, Quadro::Autonomo, 2, 2016, false);
  ASSERT_NE(anno, nullptr);
  EXPECT_EQ(anno->colonna, "AnnoModulo");
  EXPECT_EQ(trovaNumero(kModello, Quadro::Autonomo, 4, 2016, false), nullptr);
}

TEST(Boxes, AreNotLookedForInAColumnThatTwoOfThemKeep) {
  EXPECT_THROW(trova(kModello, Record::H, "CUDenominazioneEntePrevidenziale", 2016, false), std::logic_error);
}

// The addends of the gross amount are boxes of the form, and each counts once.
TEST(Gross, IsMadeOfAmountsOfTheForm) {
  for (const std::string_view addendo : kAddendiLordo) {
    const Trovato trovato = trova(kModello, Record::H, addendo, 2017, true);
    ASSERT_NE(trovato.campo, nullptr) << addendo;
    EXPECT_EQ(trovato.colonna.genere, Genere::Importo) << addendo;
  }
  EXPECT_EQ(trova(kModello, Record::H, kAddendoLordoDelModulo, 2017, false).campo->numero, 7);
  EXPECT_EQ(trova(kModello, Record::H, kLordo, 2017, true).campo->numero, 4);
}

// A form with one more row or one changed row.
class Guasti : public testing::Test {
 protected:
  Guasti() : campi_(kModello.campi.begin(), kModello.campi.end()) {}
  bool buono(Anni noti = kModello.noti) const { return coerente({campi_, noti, kModello.codiciNonSoggetti}); }
  Campo& somme(std::int32_t numero) {
    for (Campo& campo : campi_) {
      if (campo.quadro == Quadro::Autonomo && campo.numero == numero) return campo;
    }
    throw std::runtime_error("no such box");
  }
  std::vector<Campo> campi_;
};

TEST_F(Guasti, NoneIsGood) { EXPECT_TRUE(buono()); }

TEST_F(Guasti, ANumberThatStandsTwiceInAYear) {
  somme(20).anni = kTutti;
  EXPECT_FALSE(buono());
}

TEST_F(Guasti, ANumberOutOfItsOrder) {
  somme(9).numero = 200;
  EXPECT_FALSE(buono());
}

TEST_F(Guasti, ANumberThatNoCodeHolds) {
  somme(138).numero = 1000;
  EXPECT_FALSE(buono());
}

TEST_F(Guasti, TwoWaysOfWritingBackOneColumn) {
  somme(22).riscrittura = Riscrittura::Dati;
  EXPECT_FALSE(buono());
}

TEST_F(Guasti, AYearWithoutACodeOfSumsNotSubject) {
  constexpr CodiceAnnuo kSolo[] = {{finoAl(2016), "3"}};
  EXPECT_FALSE(coerente({campi_, kModello.noti, kSolo}));
}

}  // namespace
}  // namespace cu::modello
