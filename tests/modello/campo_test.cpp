// One box: its code, the source of its cell, the columns that store the user's input.

#include "modello/campo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace cu::modello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Campo campo(Quadro quadro, std::int32_t numero, std::string_view colonna, Forma forma) {
  return {quadro, numero, colonna, forma, Condizione::Sempre, kTutti};
}

std::string testo(const Codice& codice) { return {codice.begin(), codice.end()}; }

using Piatta = std::tuple<std::string_view, Genere, char>;
std::vector<Piatta> colonne(const Campo& campo) {
  std::vector<Piatta> tutte;
  for (const Colonna& colonna : ColonneDiCampo(campo)) {
    tutte.emplace_back(colonna.nome, colonna.genere, colonna.parte);
  }
  return tutte;
}

TEST(Anni, HoldTheirFirstAndTheirLastYear) {
  EXPECT_TRUE(nel(2015).comprende(2015));
  EXPECT_FALSE(nel(2015).comprende(2014));
  EXPECT_FALSE(nel(2015).comprende(2016));
  EXPECT_TRUE(dal(2015).comprende(2015));
  EXPECT_TRUE(dal(2015).comprende(9999));
  EXPECT_FALSE(dal(2015).comprende(2014));
  EXPECT_TRUE(finoAl(2015).comprende(2015));
  EXPECT_TRUE(finoAl(2015).comprende(0));
  EXPECT_FALSE(finoAl(2015).comprende(2016));
  EXPECT_TRUE(kTutti.comprende(0));
}

TEST(Anni, TouchWhereAYearIsInBoth) {
  EXPECT_TRUE(siToccano(nel(2015), dal(2015)));
  EXPECT_TRUE(siToccano(finoAl(2015), dal(2015)));
  EXPECT_TRUE(siToccano(kTutti, nel(2015)));
  EXPECT_FALSE(siToccano(finoAl(2014), dal(2015)));
  EXPECT_FALSE(siToccano(dal(2015), finoAl(2014)));
  EXPECT_FALSE(siToccano(nel(2014), nel(2015)));
}

TEST(Campo, HasACodeOfItsPartAndItsNumber) {
  EXPECT_EQ(testo(codice(campo(Quadro::Azienda, 8, "TelefonoAz", Forma::Telefono))), "DA001008");
  EXPECT_EQ(testo(codice(campo(Quadro::Percipiente, 44, "X", Forma::Testo))), "DA002044");
  EXPECT_EQ(testo(codice(campo(Quadro::Firma, 1, "", Forma::DataFirma))), "DA003001");
  EXPECT_EQ(testo(codice(campo(Quadro::Autonomo, 138, "X", Forma::Importo))), "AU001138");
}

TEST(Campo, StandsInItsModulesAndYears) {
  Campo casella = campo(Quadro::Autonomo, 1, "X", Forma::Importo);
  casella.anni = dal(2015);
  EXPECT_TRUE(vale(casella, 2015, true));
  EXPECT_FALSE(vale(casella, 2015, false));
  EXPECT_FALSE(vale(casella, 2014, true));
  casella.moduli = Moduli::Altri;
  EXPECT_FALSE(vale(casella, 2015, true));
  EXPECT_TRUE(vale(casella, 2015, false));
  casella.moduli = Moduli::Ogni;
  EXPECT_TRUE(vale(casella, 2015, true));
  EXPECT_TRUE(vale(casella, 2015, false));
}

TEST(Campo, HasACellInTheRecordOfItsPartUnlessItIsKeptOutOfTheFile) {
  Campo casella = campo(Quadro::Autonomo, 71, "X", Forma::Testo);
  EXPECT_TRUE(haCella(casella, Record::H));
  EXPECT_FALSE(haCella(casella, Record::D));
  casella.condizione = Condizione::NonNelFile;
  EXPECT_FALSE(haCella(casella, Record::H));
  EXPECT_TRUE(haCella(campo(Quadro::Firma, 1, "", Forma::DataFirma), Record::D));
}

TEST(Campo, NamesTheColumnThatItsCellIsWrittenFrom) {
  EXPECT_EQ(fonte(campo(Quadro::Autonomo, 1, "X", Forma::Importo)), "X");
  EXPECT_EQ(fonte(campo(Quadro::Percipiente, 43, "X", Forma::Uno)), "");
  EXPECT_EQ(fonte(campo(Quadro::Firma, 1, "", Forma::DataFirma)), "");
  Campo ente = campo(Quadro::Autonomo, 32, "Id", Forma::CodicePressoEnte);
  ente.altre = {"Nome", "Primo", "Secondo"};
  EXPECT_EQ(fonte(ente), "Nome");
}

TEST(Campo, KeepsAValueInOneColumn) {
  EXPECT_THAT(colonne(campo(Quadro::Autonomo, 1, "X", Forma::Importo)),
              ElementsAre(Piatta("X", Genere::Importo, '\0')));
  EXPECT_THAT(colonne(campo(Quadro::Autonomo, 1, "X", Forma::ImportoConSegno)),
              ElementsAre(Piatta("X", Genere::Importo, '\0')));
  EXPECT_THAT(colonne(campo(Quadro::Autonomo, 1, "X", Forma::Flag)),
              ElementsAre(Piatta("X", Genere::Flag, '\0')));
  EXPECT_THAT(colonne(campo(Quadro::Autonomo, 1, "X", Forma::Intero)),
              ElementsAre(Piatta("X", Genere::Numero, '\0')));
  EXPECT_THAT(colonne(campo(Quadro::Autonomo, 1, "X", Forma::Maiuscolo)),
              ElementsAre(Piatta("X", Genere::Testo, '\0')));
  EXPECT_THAT(colonne(campo(Quadro::Firma, 1, "", Forma::DataFirma)), IsEmpty());
}

TEST(Campo, KeepsASumInItsTwoParts) {
  Campo somma = campo(Quadro::Autonomo, 7, "X", Forma::Somma);
  somma.altre = {"Y"};
  EXPECT_THAT(colonne(somma),
              ElementsAre(Piatta("X", Genere::Importo, 'a'), Piatta("Y", Genere::Importo, 'b')));
}

TEST(Campo, KeepsAChoiceAsItsIdAndItsText) {
  Campo scelta = campo(Quadro::Autonomo, 6, "Codice", Forma::CodiceNonSoggetti);
  scelta.elenco = "IDCodice";
  EXPECT_THAT(colonne(scelta),
              ElementsAre(Piatta("IDCodice", Genere::Elenco, '\0'), Piatta("Codice", Genere::Testo, '\0')));
}

TEST(Campo, KeepsWhatItsColumnsAre) {
  Campo scelta = campo(Quadro::Autonomo, 6, "Codice", Forma::CodiceNonSoggetti);
  scelta.elenco = "IDCodice";
  scelta.altre = {"Somme"};
  EXPECT_TRUE(tiene(scelta, "Codice"));
  EXPECT_TRUE(tiene(scelta, "IDCodice"));
  EXPECT_FALSE(tiene(scelta, "Somme"));
  EXPECT_FALSE(tiene(scelta, ""));
  Campo somma = campo(Quadro::Autonomo, 7, "X", Forma::Somma);
  somma.altre = {"Y"};
  EXPECT_TRUE(tiene(somma, "Y"));
  EXPECT_FALSE(tiene(somma, ""));
}

}  // namespace
}  // namespace cu::modello
