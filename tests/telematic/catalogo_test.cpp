#include "telematic/catalogo.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>

#include "telematic/engine/records.h"
#include "telematic/tracciati.h"

namespace cu::telematico {
namespace {

class Catalogo : public testing::TestWithParam<int> {
 protected:
  Catalogo() { creaCatalogo(catalogo_, GetParam()); }
  CURecords catalogo_;
};

TEST_P(Catalogo, RecordsStandInTheirOrder) {
  ASSERT_EQ(catalogo_.Count(), 5);
  int posizione = 0;
  for (const char* nome : {"TipoA", "TipoB", "TipoD", "TipoH", "TipoZ"}) {
    EXPECT_EQ(catalogo_.Item(++posizione).Name(), nome);
  }
}

TEST_P(Catalogo, FieldsHaveThePrintedNamesPlacesAndOrder) {
  for (const char tipo : {'A', 'B', 'D', 'H', 'Z'}) {
    const CURecord& record = catalogo_.Item(std::string("Tipo") + tipo);
    const test::Tracciato atteso = test::tracciato(tipo, GetParam());
    ASSERT_EQ(static_cast<std::size_t>(record.Fields().Count()), atteso.size()) << tipo;
    for (std::size_t i = 0; i < atteso.size(); ++i) {
      const IField& campo = *record.Fields().NewEnum()[i];
      EXPECT_EQ(campo.Name(), atteso[i].nome);
      EXPECT_EQ(campo.Offset(), atteso[i].posizione - 1) << campo.Name();
      EXPECT_EQ(campo.Offset(), atteso[i].offset) << campo.Name();
      EXPECT_EQ(campo.Length(), atteso[i].lunghezza) << campo.Name();
      EXPECT_EQ(campo.Value(), "") << campo.Name();
    }
  }
}

TEST_P(Catalogo, EveryRecordIs1898CharactersWideWithoutGapOrOverlap) {
  for (const IRecord* record : catalogo_.NewEnum()) {
    EXPECT_EQ(record->Length(), 1898) << record->Name();
    std::int32_t offset = 0;
    for (const IField* campo : record->Fields().NewEnum()) {
      EXPECT_EQ(campo->Offset(), offset) << record->Name() << " " << campo->Name();
      offset += campo->Length();
    }
    const IField& ultimo = record->Fields().Item(record->Fields().Count());
    EXPECT_EQ(ultimo.Offset(), 1897);
    EXPECT_EQ(ultimo.Length(), 1);
  }
}

TEST_P(Catalogo, CountsOfFields) {
  EXPECT_EQ(catalogo_.Item("TipoA").Fields().Count(), 12);
  EXPECT_EQ(catalogo_.Item("TipoB").Fields().Count(), GetParam() < 2016 ? 52 : 53);
  EXPECT_EQ(catalogo_.Item("TipoD").Fields().Count(), 88);
  EXPECT_EQ(catalogo_.Item("TipoH").Fields().Count(), 88);
  EXPECT_EQ(catalogo_.Item("TipoZ").Fields().Count(), 12);
}

TEST_P(Catalogo, TheLastCellEndsAtOffset1888AndTheMarkLiesAt1897) {
  for (const auto& [record, coda, fine] :
       {std::tuple("TipoD", "Filler 2", "Filler 3"), std::tuple("TipoH", "Filler 6", "Filler 7")}) {
    const CUFields& campi = catalogo_.Item(record).Fields();
    EXPECT_EQ(campi.Item("Campo1").Offset(), 89);
    EXPECT_EQ(campi.Item("Campo75").Offset() + campi.Item("Campo75").Length() - 1, 1888);
    EXPECT_EQ(campi.Item(coda).Offset(), 1889);
    EXPECT_EQ(campi.Item(coda).Offset() + campi.Item(coda).Length() - 1, 1896);
    EXPECT_EQ(campi.Item(fine).Offset(), 1897);
    EXPECT_THROW(campi.Item("Campo76"), Error);
  }
}

INSTANTIATE_TEST_SUITE_P(RunYears, Catalogo, testing::Range(2013, 2019), testing::PrintToStringParamName());

bool haCampo(const CURecords& catalogo, std::string_view nome) {
  for (const IField* campo : catalogo.Item("TipoB").Fields().NewEnum()) {
    if (campo->Name() == nome) return true;
  }
  return false;
}

TEST(CatalogoTipoB, BeforeTheEventCodeTheRepresentativeBeginsAt321) {
  CURecords catalogo;
  creaCatalogo(catalogo, 2015);
  const CUFields& campi = catalogo.Item("TipoB").Fields();
  EXPECT_FALSE(haCampo(catalogo, "Eventi eccezionali"));
  EXPECT_EQ(campi.Item("Cod. Fisc. rappresentante").Offset() + 1, 321);
  EXPECT_EQ(campi.Item("Filler 5").Offset() + 1, 309);
  EXPECT_EQ(campi.Item("Filler 5").Length(), 12);
}

TEST(CatalogoTipoB, From2016TheRepresentativeBeginsAt310BehindTheEventCode) {
  CURecords catalogo;
  creaCatalogo(catalogo, 2016);
  const CUFields& campi = catalogo.Item("TipoB").Fields();
  EXPECT_TRUE(haCampo(catalogo, "Eventi eccezionali"));
  EXPECT_EQ(campi.Item("Cod. Fisc. rappresentante").Offset() + 1, 310);
  EXPECT_EQ(campi.Item("Filler 5").Offset() + 1, 383);
  EXPECT_EQ(campi.Item("Filler 5").Length(), 11);
}

TEST(CatalogoTipoH, KeepsTheNameOfTheUsersSpaceWhereItStands) {
  CURecords catalogo;
  creaCatalogo(catalogo, 2016);
  const CUField& inD = catalogo.Item("TipoD").Fields().Item("Spazio a disp. utente");
  const CUField& inH = catalogo.Item("TipoH").Fields().Item("Spazio a disp. utente");
  EXPECT_EQ(inD.Offset(), 69);
  EXPECT_EQ(inD.Length(), 14);
  EXPECT_EQ(inH.Offset(), 63);
  EXPECT_EQ(inH.Length(), 6);
}

TEST(Dopo, FindsGapsAndOverlaps) {
  constexpr CampoRecord kBuchi[] = {{1, 2, "a"}, {4, 1, "b"}};
  constexpr CampoRecord kSovrapposti[] = {{1, 2, "a"}, {2, 1, "b"}};
  constexpr CampoRecord kBuoni[] = {{1, 2, "a"}, {3, 4, "b", 3}, {15, 1, "c"}};
  EXPECT_EQ(dopo(kBuchi, 1), 0);
  EXPECT_EQ(dopo(kSovrapposti, 1), 0);
  EXPECT_EQ(dopo(kBuoni, 1), 16);
}

}  // namespace
}  // namespace cu::telematico
