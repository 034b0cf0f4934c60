#include "apps/importazione/mappe_personali.h"

#include <gtest/gtest.h>

#include <fstream>

#include "suite/profilo.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using intake::Elenco;

std::string impronta(std::string_view byte, const tabelle::OpzioniLettura& opzioni = {}) {
  return improntaIntestazione(tabelle::leggiTabella(byte, "f.csv", opzioni));
}

class MappePersonali : public testing::Test {
 protected:
  std::string cartella() const { return cartella_.path() + "/importazione"; }
  void scrivi(const std::string& nome, const std::string& testo) const {
    std::filesystem::create_directories(cartella());
    std::ofstream(cartella() + '/' + nome) << testo;
  }
  std::string trovata(std::string_view byte, Elenco elenco = Elenco::Compensi) const {
    const auto mappa = cercaMappa(cartella(), elenco, byte, "f.csv");
    return mappa ? mappa->file.substr(cartella().size() + 1) : "none";
  }

  test::TempFolder cartella_;
};

TEST(Impronta, IsThatOfTheHeadingAsItsNamesAreCompared) {
  const std::string prima = impronta("Data pag.;Importo\n1;2\n");
  EXPECT_EQ(prima.size(), 64U);
  EXPECT_EQ(impronta("DATA PAG,importo\n3,4\n5,6\n"), prima);
  EXPECT_NE(impronta("Importo;Data pag.\n"), prima);
  EXPECT_NE(impronta("Data pag.Importo\n"), prima);
  EXPECT_NE(impronta("Data pag.;Importo;Note\n"), prima);
}

TEST_F(MappePersonali, AreFoundByTheHeading) {
  const std::string byte = "Data;Importo\n1;2\n";
  EXPECT_EQ(trovata(byte), "none");
  scrivi("b.toml", "formato = \"compensi\"\nimpronta = \"" + impronta(byte) + "\"\n");
  EXPECT_EQ(trovata(byte), "b.toml");
  EXPECT_EQ(trovata("Data;Altro\n1;2\n"), "none");
  EXPECT_EQ(trovata(byte, Elenco::Percipienti), "none");
  scrivi("a.toml", "formato = \"percipienti\"\nimpronta = \"" + impronta(byte) + "\"\n");
  EXPECT_EQ(trovata(byte), "b.toml");
  EXPECT_EQ(trovata(byte, Elenco::Percipienti), "a.toml");
  scrivi("altro.txt", "= =");
  EXPECT_EQ(trovata(byte), "b.toml");
}

TEST_F(MappePersonali, SayThemselvesWhereTheHeadingIs) {
  const std::string byte = "Compensi dello studio\n\nData;Importo\n1;2\n";
  tabelle::OpzioniLettura terza;
  terza.rigaIntestazione = 3;
  scrivi("m.toml", "formato = \"compensi\"\nimpronta = \"" + impronta(byte, terza) +
                       "\"\n[lettura]\nriga_intestazione = 3\n");
  EXPECT_EQ(trovata(byte), "m.toml");
  EXPECT_EQ(trovata("Data;Importo\n"), "none");
}

TEST_F(MappePersonali, ThatAreMeantAndWrongAreReported) {
  const std::string byte = "Data;Importo\n1;2\n";
  scrivi("m.toml", "formato = \"compensi\"\nimpronta = \"" + impronta(byte) + "\"\nordine = 1\n");
  EXPECT_THROW(trovata(byte), ErroreProfilo);
  EXPECT_EQ(trovata(byte, Elenco::Percipienti), "none");
}

TEST_F(MappePersonali, AreKeptUnderANameOfTheirOwn) {
  const std::string byte = "Data;Importo\n1;2\n";
  Mappa mappa;
  mappa.impronta = impronta(byte);
  mappa.mappatura.decimali = ',';
  const std::string file = salvaMappa(cartella(), mappa);
  EXPECT_EQ(file, cartella() + "/compensi-" + mappa.impronta.substr(0, 16) + ".toml");
  const auto trovata = cercaMappa(cartella(), Elenco::Compensi, byte, "f.csv");
  ASSERT_TRUE(trovata);
  EXPECT_EQ(trovata->mappa.mappatura.decimali, ',');
  mappa.mappatura.decimali = '.';
  EXPECT_EQ(salvaMappa(cartella(), mappa), file);
  EXPECT_EQ(cercaMappa(cartella(), Elenco::Compensi, byte, "f.csv")->mappa.mappatura.decimali, '.');
}

}  // namespace
}  // namespace cu
