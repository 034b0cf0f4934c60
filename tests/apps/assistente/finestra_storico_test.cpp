#include "apps/assistente/finestra_storico.h"

#include <gtest/gtest.h>

#include "finestra_support.h"

namespace cu::assistente {
namespace {

using test::BancoAssistente;

TEST(HistoryWindow, TakesABatchBackAfterAskingForIt) {
  BancoAssistente banco;
  const auto prima = test::contenutoDi(banco.posto.database);
  banco.apri();
  banco.avanti(5);
  banco.accettaTutto();
  ASSERT_TRUE(banco.premiAspetta("Importa"));
  FinestraStorico storico(banco.profilo);
  storico.setAttribute(Qt::WA_DeleteOnClose, false);
  storico.show();
  ASSERT_TRUE(test::aspetta([&] { return !storico.lavora(); }));
  auto* const tabella = storico.findChild<QTableView*>();
  ASSERT_EQ(tabella->model()->rowCount(), 1);
  bool annullata = false;
  storico.annullata = [&](std::int32_t lotto) { annullata = lotto == 1; };
  test::alProssimoDialogo([](QWidget& dialogo) {
    EXPECT_TRUE(test::dice(dialogo, "3 compensi tolti"));
    test::premi(dialogo, "Torna com'era prima");
  });
  EXPECT_TRUE(test::premi(storico, "Annulla l'importazione"));
  ASSERT_TRUE(test::aspetta([&] { return annullata && !storico.lavora(); }));
  EXPECT_TRUE(test::dice(storico, "Importazione 1 annullata"));
  auto dopo = test::contenutoDi(banco.posto.database);
  std::erase_if(dopo, [](const std::string& riga) { return riga.starts_with("CuImportazione"); });
  auto atteso = prima;
  std::erase_if(atteso, [](const std::string& riga) { return riga.starts_with("CuImportazione"); });
  EXPECT_EQ(dopo, atteso);
}

TEST(HistoryWindow, SaysWhyABatchCannotBeTakenBack) {
  BancoAssistente banco;
  banco.apri();
  banco.avanti(5);
  banco.accettaTutto();
  ASSERT_TRUE(banco.premiAspetta("Importa"));
  banco.posto.esegui(
      "UPDATE Compenso SET RitenutaAcconto = 1 WHERE NumeroDocumento = '1/2018' AND "
      "RitenutaAcconto = 200");
  FinestraStorico storico(banco.profilo);
  storico.setAttribute(Qt::WA_DeleteOnClose, false);
  storico.show();
  ASSERT_TRUE(test::aspetta([&] { return !storico.lavora(); }));
  bool detto = false;
  test::alProssimoDialogo([&](QWidget& dialogo) {
    detto = test::dice(dialogo, "non si può annullare");
    test::premi(dialogo, "OK");
  });
  EXPECT_TRUE(test::premi(storico, "Annulla l'importazione"));
  ASSERT_TRUE(test::aspetta([&] { return detto && !storico.lavora(); }));
}

}  // namespace
}  // namespace cu::assistente
