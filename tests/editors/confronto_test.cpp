// What an open editor knows of the values read for it, for a window only.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

class LoadedValues : public testing::TestWithParam<int>, public CampiProva {
 protected:
  std::optional<Control::Loaded> letto(const char* nome) { return c<Control>(nome).differs(); }
  std::string nota() { return importo(10).note(); }
};

TEST_P(LoadedValues, AreGivenForABoxThatDiffersAndEnteredAsByHand) {
  apri(GetParam(), {{"Imponibile", amount("1000.5")}, {"AmmontareLordo", amount("1000.5")}});
  EXPECT_FALSE(letto("curField(19)"));
  importo(19).enter("77");
  const auto prima = letto("curField(19)");
  ASSERT_TRUE(prima);
  EXPECT_EQ(prima->text, "1.000,50");
  prima->enter();
  EXPECT_EQ(importo(19).text(), "1000,5") << "as typed, until the box is left";
  EXPECT_FALSE(letto("curField(19)"));
}

TEST_P(LoadedValues, ThatTheBoxCannotTakeAreOnlyShown) {
  apri(GetParam(), {{"Imponibile", amount("8000.0001")}});
  importo(19).enter("8000");
  const auto prima = letto("curField(19)");
  ASSERT_TRUE(prima);
  EXPECT_EQ(prima->text, "8.000,0001");
  EXPECT_FALSE(prima->enter);
}

TEST_P(LoadedValues, AreThoseOfTheDatabaseAlsoAfterACorrection) {
  apri(GetParam(), {{"Imponibile", amount("10")}});
  importo(19).enter("77");
  premi("cmdOk");
  ASSERT_TRUE(modificata());
  editor = fnCreaEditor(GetParam(), {frontEnd, globali, utilita, settings});
  editor->setRecordset(riga);
  EXPECT_EQ(importo(19).text(), "77,00");
  ASSERT_TRUE(letto("curField(19)"));
  EXPECT_EQ(letto("curField(19)")->text, "10,00");
  EXPECT_EQ(editor->rowWork(), "") << "nothing was typed since";
}

TEST_P(LoadedValues, OfALockedBoxAreNotGiven) {
  apri(GetParam(), {{"Codice", text("A")}, {"AddRegionAcconto", amount("5")}});
  EXPECT_FALSE(importo(2).enabled());
  EXPECT_FALSE(letto("curField(2)"));
}

TEST_P(LoadedValues, OfAModuleAreThoseOfTheDatabase) {
  moduli({modulo(7, 2, {{"SommeNonSoggette", amount("100")}, {"IDCodicePerNonSoggetti", whole(1)}})});
  apri(GetParam());
  EXPECT_FALSE(letto("curField(17)"));
  importo(17).enter("150");
  ASSERT_TRUE(letto("curField(17)"));
  EXPECT_EQ(letto("curField(17)")->text, "100,00");
  premi("cmdNew");
  importo(17).enter("3");
  EXPECT_FALSE(letto("curField(17)")) << "the database has no such module yet";
}

TEST_P(LoadedValues, GiveTheSumBesideTheGrossAmount) {
  moduli({modulo(7, 2, {{"SommeNonSoggette", amount("100")}, {"IDCodicePerNonSoggetti", whole(1)}})});
  apri(GetParam(), {{"Imponibile", amount("1000")}, {"AmmontareLordo", amount("1100")}});
  EXPECT_EQ(nota(), "5 + 7 + 8 + moduli = 1.100,00\r\ndifferenza: 0,00");
  importo(19).enter("1001");
  EXPECT_EQ(nota(), "5 + 7 + 8 + moduli = 1.101,00\r\ndifferenza: -1,00");
  EXPECT_EQ(importo(10).text(), "1.100,00");
  lascia(importo(19));
  EXPECT_EQ(nota(), "5 + 7 + 8 + moduli = 1.101,00\r\ndifferenza: 0,00");
  premi("cmdDelete");
  EXPECT_EQ(nota(), "5 + 7 + 8 = 1.001,00\r\ndifferenza: 0,00");
}

TEST_P(LoadedValues, NameTheWorkThatAnnullaDiscards) {
  moduli({modulo(7, 2, {{"SommeNonSoggette", amount("100")}, {"IDCodicePerNonSoggetti", whole(1)}})});
  apri(GetParam(), {{"Imponibile", amount("1000")}});
  EXPECT_EQ(editor->rowWork(), "");
  importo(19).enter("1");
  EXPECT_EQ(editor->rowWork(), "Il compenso è stato modificato e non confermato con OK.");
  importo(19).enter("1000");
  EXPECT_EQ(editor->rowWork(), "");
  importo(17).enter("5");
  EXPECT_EQ(editor->rowWork(), "Il modulo n. 2 è stato modificato ma non salvato con il pulsante «Salva».");
  premi("cmdSave");
  EXPECT_EQ(editor->rowWork(), "Il compenso è stato modificato e non confermato con OK.");
}

INSTANTIATE_TEST_SUITE_P(Layouts, LoadedValues, testing::ValuesIn(kAnni),
                         [](const auto& caso) { return std::to_string(caso.param); });

class LoadedReferences : public testing::Test, public CampiProva {};

TEST_F(LoadedReferences, OfTheOldestPageAreWorkToo) {
  apri(2014, {}, 3);
  EXPECT_EQ(editor->rowWork(), "");
  c<TextBox>("txtProtocollo").enter("17");
  EXPECT_EQ(editor->rowWork(), "Il compenso è stato modificato e non confermato con OK.");
}

}  // namespace
}  // namespace cu::test
