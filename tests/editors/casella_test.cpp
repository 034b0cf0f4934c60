// A box of an editor, of each kind: the value shown, the value returned, when it is filled.

#include "editors/casella.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/table.h"

namespace cu::test {
namespace {

struct BoxKinds : testing::Test {
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  Form form{frontEnd, "frm"};
  AmountBox importo{form, "curField(10)", nullptr};
  TextBox testo{form, "txtField(11)", nullptr};
  Check flag{form, "chkAnticipazione", nullptr, ""};
  ListBox elenco{form, "cboCodice", nullptr};
  NumberBox numero{form, "numAnno", nullptr};
  Casella conImporto;
  Casella conTesto;
  Casella conFlag;
  Casella conElenco;
  Casella conNumero;

  BoxKinds() {
    importo.setFormat(2, "€", ",", ".");
    elenco.add("1 - Uno", 1);
    elenco.add("2 - Due", 2);
    conImporto.importo = &importo;
    conTesto.testo = &testo;
    conFlag.flag = &flag;
    conElenco.elenco = &elenco;
    conNumero.numero = &numero;
  }
  void mostra(Casella& casella, const Value& valore) { casella.mostra(valore.view(), utilita); }
};

TEST_F(BoxKinds, GiveBackWhatTheyShow) {
  mostra(conImporto, amount("123456789012.3456"));
  EXPECT_EQ(conImporto.valore(), amount("123456789012.3456"));
  mostra(conTesto, text("l'altro "));
  EXPECT_EQ(conTesto.valore(), text("l'altro "));
  mostra(conFlag, whole(-1));
  EXPECT_EQ(conFlag.valore(), whole(1));
  mostra(conFlag, whole(0));
  EXPECT_EQ(conFlag.valore(), whole(0));
  mostra(conElenco, whole(2));
  EXPECT_EQ(conElenco.valore(), whole(2));
  EXPECT_EQ(elenco.text(), "2 - Due");
  mostra(conNumero, whole(2016));
  EXPECT_EQ(conNumero.valore(), whole(2016));
}

TEST_F(BoxKinds, ShowNothingAsTheEmptyValueOfTheirKind) {
  for (Casella* casella : {&conImporto, &conTesto, &conFlag, &conElenco, &conNumero}) {
    mostra(*casella, null());
    EXPECT_FALSE(casella->pieno());
  }
  EXPECT_EQ(conElenco.valore(), whole(0));
  EXPECT_EQ(conNumero.valore(), whole(0));
  EXPECT_EQ(conTesto.valore(), text(""));
}

TEST_F(BoxKinds, AreFilledInByAnythingButZeroBlanksOrNoChoice) {
  mostra(conImporto, amount("-0.01"));
  EXPECT_TRUE(conImporto.pieno());
  mostra(conTesto, text("   "));
  EXPECT_FALSE(conTesto.pieno());
  mostra(conTesto, text(" x"));
  EXPECT_TRUE(conTesto.pieno());
  mostra(conFlag, whole(1));
  EXPECT_TRUE(conFlag.pieno());
  mostra(conElenco, whole(1));
  EXPECT_TRUE(conElenco.pieno());
  mostra(conElenco, whole(9));  // not in the list
  EXPECT_FALSE(conElenco.pieno());
  mostra(conNumero, whole(2));
  EXPECT_TRUE(conNumero.pieno());
}

TEST_F(BoxKinds, AreEmptiedAsTheirKindIs) {
  mostra(conImporto, amount("5"));
  mostra(conTesto, text("x"));
  mostra(conFlag, whole(1));
  mostra(conElenco, whole(1));
  mostra(conNumero, whole(7));
  for (Casella* casella : {&conImporto, &conTesto, &conFlag, &conElenco, &conNumero}) {
    casella->svuota();
    EXPECT_FALSE(casella->pieno());
  }
  EXPECT_EQ(importo.text(), "");
  EXPECT_EQ(testo.text(), "");
  EXPECT_FALSE(flag.value());
  EXPECT_EQ(elenco.index(), -1);
  EXPECT_EQ(numero.text(), "");
}

TEST_F(BoxKinds, DifferFromTheRowWhenAPersonHasChangedThem) {
  testo.setMaxLength(4);
  const Value lungo = text("Rossini");
  mostra(conTesto, lungo);
  EXPECT_FALSE(conTesto.diversa(lungo.view(), utilita)) << "stored as it is, though cut on the screen";
  testo.enter("Ross");
  EXPECT_TRUE(conTesto.diversa(lungo.view(), utilita));
  const Value ignota = whole(9);  // not in the list
  mostra(conElenco, ignota);
  EXPECT_FALSE(conElenco.diversa(ignota.view(), utilita));
  elenco.setIndex(0);
  EXPECT_TRUE(conElenco.diversa(ignota.view(), utilita));
  elenco.setIndex(-1);
  EXPECT_TRUE(conElenco.diversa(ignota.view(), utilita)) << "the choice has been taken away";
}

TEST_F(BoxKinds, WithoutAControlNothingIsShownAndNothingGivenBack) {
  Casella vuota;
  EXPECT_FALSE(vuota.presente());
  mostra(vuota, amount("5"));
  vuota.svuota();
  EXPECT_EQ(vuota.valore(), null());
  EXPECT_FALSE(vuota.pieno());
  EXPECT_TRUE(conNumero.presente());
  EXPECT_EQ(conNumero.controllo(), &numero);
}

}  // namespace
}  // namespace cu::test
