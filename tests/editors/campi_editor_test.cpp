// The editor's fields, derived from the form and from the controls: number, kind and years.

#include "editors/campi_editor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "editors/disposizione.h"
#include "editors/editor.h"
#include "editors/tavole.h"
#include "modello/forma_2031.h"

namespace cu::test {
namespace {

using modello::kModello;

std::string nome(const CampoEditor& campo) {
  return std::string(campo.controllo) + (campo.indice < 0 ? "" : "(" + std::to_string(campo.indice) + ")");
}

Genere genere(Tipo tipo) {
  switch (tipo) {
    case Tipo::Importo:
      return Genere::Importo;
    case Tipo::Testo:
      return Genere::Testo;
    case Tipo::Flag:
      return Genere::Flag;
    case Tipo::Elenco:
      return Genere::Elenco;
    case Tipo::Numero:
      break;
  }
  return Genere::Numero;
}

class Fields : public testing::TestWithParam<int> {
 protected:
  // The layout of 2014 shows no numbers.
  void confronta(const std::vector<CampoEditor>& campi, const std::vector<Campo>& tavola) {
    std::size_t attesi = 0;
    for (const Campo& atteso : tavola) {
      const auto trovato = std::find_if(campi.begin(), campi.end(), [&](const CampoEditor& campo) {
        return nome(campo) == atteso.controllo && campo.colonna == atteso.colonna;
      });
      ASSERT_EQ(trovato != campi.end(), atteso.nel(GetParam())) << atteso.controllo;
      if (trovato == campi.end()) continue;
      ++attesi;
      EXPECT_EQ(trovato->genere, genere(atteso.tipo)) << atteso.controllo;
      if (GetParam() == 2014) continue;
      EXPECT_EQ(numeroScritto(*trovato), atteso.campo) << atteso.controllo;
    }
    const auto conControllo = std::count_if(
        campi.begin(), campi.end(), [](const CampoEditor& campo) { return !campo.controllo.empty(); });
    EXPECT_EQ(static_cast<std::size_t>(conControllo), attesi);
  }
};

TEST_P(Fields, OfTheModule1AreThoseOfTheForm) {
  confronta(campiEditor(Pagina::Modulo1, GetParam()), tavolaModulo1());
}

TEST_P(Fields, OfTheOtherModulesAreThoseOfTheForm) {
  confronta(campiEditor(Pagina::AltriModuli, GetParam()), tavolaModuli());
}

INSTANTIATE_TEST_SUITE_P(EachLayout, Fields, testing::ValuesIn(kAnni));

TEST(Fields, OfContributionsMayBeNegative) {
  for (const Pagina pagina : {Pagina::Modulo1, Pagina::AltriModuli}) {
    std::vector<int> numeri;
    for (const CampoEditor& campo : campiEditor(pagina, 2016)) {
      if (campo.conSegno) numeri.push_back(campo.numero);
    }
    EXPECT_EQ(numeri, (std::vector<int>{37, 38, 39}));
  }
}

TEST(Fields, OfSurchargesAreKnown) {
  std::vector<int> numeri;
  for (const CampoEditor& campo : campiEditor(Pagina::Modulo1, 2014)) {
    if (campo.addizionale) numeri.push_back(campo.numero);
  }
  EXPECT_EQ(numeri, (std::vector<int>{12, 13, 14, 15, 16, 17}));
}

TEST(Layouts, EveryKnownYearHasOne) {
  for (int anno = kModello.noti.primo; anno <= kModello.noti.ultimo; ++anno) {
    EXPECT_EQ(std::count_if(kDisposizioni.begin(), kDisposizioni.end(),
                            [&](const Disposizione& d) { return d.anni.comprende(anno); }),
              1)
        << anno;
  }
}

TEST(Layouts, AnAnnulmentIsFinishedInTheDialogSinceTheSecondForm) {
  for (const int anno : {2015, 2016, 2017, 2018}) EXPECT_TRUE(fnAnnullaNelDialogo(anno)) << anno;
  for (const int anno : {0, 2013, 2014}) EXPECT_FALSE(fnAnnullaNelDialogo(anno)) << anno;
}

// Tables rejected by the build.
class Agreement : public testing::Test {
 protected:
  ControlloCampo& campo(std::string_view colonna) {
    return *std::find_if(campi_.begin(), campi_.end(),
                         [&](const ControlloCampo& c) { return c.colonna == colonna; });
  }
  std::vector<ControlloCampo> campi_{std::begin(kControlliModulo1), std::end(kControlliModulo1)};
};

TEST_F(Agreement, HoldsForBothPages) {
  EXPECT_TRUE(concorda(kModello, kControlliModulo1, Pagina::Modulo1));
  EXPECT_TRUE(concorda(kModello, kControlliAltriModuli, Pagina::AltriModuli));
  EXPECT_FALSE(concorda(kModello, kControlliAltriModuli, Pagina::Modulo1));
}

TEST_F(Agreement, LacksTheControlOfABox) {
  campi_.pop_back();
  EXPECT_FALSE(concorda(kModello, campi_, Pagina::Modulo1));
}

TEST_F(Agreement, LacksTheControlOfAPartOfABox) {
  campi_.erase(campi_.begin() + (&campo("QuotaProvvigioniNonSoggette") - campi_.data()));
  EXPECT_FALSE(concorda(kModello, campi_, Pagina::Modulo1));
}

TEST_F(Agreement, HasAControlOfNoBox) {
  campi_.push_back({"curField", 99, "AltraColonna", Sezione::Somme, "Altra"});
  EXPECT_FALSE(concorda(kModello, campi_, Pagina::Modulo1));
}

TEST_F(Agreement, HasAControlOfABoxThatNobodyChanges) {
  campi_.push_back({"txtField", 99, "CUCodiceFiscale", Sezione::Previdenza, "Codice fiscale"});
  EXPECT_FALSE(concorda(kModello, campi_, Pagina::Modulo1));
}

TEST_F(Agreement, HasAColumnThatTwoBoxesOfAYearKeep) {
  std::vector<modello::Campo> doppi(kModello.campi.begin(), kModello.campi.end());
  doppi.push_back(doppi.back());
  doppi.back().numero = 150;
  const modello::Modello doppio = {doppi, kModello.noti, kModello.codiciNonSoggetti};
  EXPECT_FALSE(concorda(doppio, campi_, Pagina::Modulo1));
}

// A box that no form of the suite has is shown where the file's form has it, whatever the layout.
TEST(OwnBoxes, AreThoseOfTheFilesForm) {
  const auto proprio = [](const ModelloDelFile& file) {
    std::string trovato;
    for (const CampoEditor& campo : campiEditor(Pagina::Modulo1, 2017, file)) {
      if (campo.colonna == "SommeRestituite") trovato = std::string(campo.controllo) + numeroScritto(campo);
    }
    return trovato;
  };
  for (const int anno : {2022, 2023, 2025, 2026}) {
    EXPECT_EQ(proprio({anno, modello::kModelloPubblicato}), "curSommeRestituite22") << anno;
    EXPECT_EQ(proprio({anno, kModello}), "") << anno;
  }
  for (const int anno : {2014, 2018, 2021}) {
    EXPECT_EQ(proprio({anno, modello::kModelloPubblicato}), "") << anno;
  }
  EXPECT_EQ(campiEditor(Pagina::AltriModuli, 2017, {2022, modello::kModelloPubblicato}).size(),
            campiEditor(Pagina::AltriModuli, 2017).size());
}

// The new year's box has a control as soon as the table of controls has one; the removed box is there until
// then.
TEST(NewYear, HasItsOwnFields) {
  for (const Pagina pagina : {Pagina::Modulo1, Pagina::AltriModuli}) {
    std::vector<ControlloCampo> controlli;
    if (pagina == Pagina::Modulo1) {
      controlli.assign(std::begin(kControlliModulo1), std::end(kControlliModulo1));
    } else {
      controlli.assign(std::begin(kControlliAltriModuli), std::end(kControlliAltriModuli));
    }
    // It is derived from the form of 2017, without the boxes that only published forms have.
    std::erase_if(controlli, [](const ControlloCampo& controllo) {
      return trova(kModello2031, controllo.colonna).campo == nullptr;
    });
    EXPECT_FALSE(concorda(kModello2031, controlli, pagina));
    controlli.push_back({"curField", 100, kColonnaNuova, Sezione::Esproprio, "Nuova indennità"});
    EXPECT_TRUE(concorda(kModello2031, controlli, pagina));
    const auto numeri = [&](int anno) {
      std::vector<int> trovati;
      for (const CampoEditor& campo : campiEditor(kModello2031, controlli, pagina, anno)) {
        if (campo.numero > 136) trovati.push_back(campo.numero);
      }
      std::sort(trovati.begin(), trovati.end());
      return trovati;
    };
    EXPECT_EQ(numeri(2017), (std::vector<int>{137, kNumeroTolto}));
    EXPECT_EQ(numeri(kAnnoNuovo - 1), (std::vector<int>{137, kNumeroTolto}));
    EXPECT_EQ(numeri(kAnnoNuovo), (std::vector<int>{137, kNumeroNuovo}));
    EXPECT_EQ(campiEditor(kModello2031, controlli, pagina, kAnnoNuovo).back().genere, Genere::Importo);
  }
}

}  // namespace
}  // namespace cu::test
