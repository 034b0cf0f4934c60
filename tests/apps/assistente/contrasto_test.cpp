// Every text of the windows of an import as it is drawn, in both looks.

#include <gtest/gtest.h>

#include <QTableView>

#include "finestra_support.h"
#include "support/drawn_contrast.h"

namespace cu::assistente {
namespace {

TEST(DrawnContrast, OfEachPageOfAnImport) {
  test::BancoAssistente banco(
      "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto;Note\n"
      "P001;A;20/03/2018;1/2018;1000,00;200,00;\n"
      "P002;A;21/03/2018;2/2018;500,555;100,11;\n"
      "P003;A;22/03/2018;3/2018;xx;150,00;bassa\n");
  QWidget& finestra = banco.apri();
  for (const Passo passo :
       {Passo::Sorgente, Passo::Lettura, Passo::Colonne, Passo::Percipienti, Passo::Compensi, Passo::Prova}) {
    ASSERT_EQ(banco.passo(), passo);
    test::expectReadable(finestra, 15);
    for (auto* const tabella : finestra.findChildren<QTableView*>()) {
      if (tabella->isVisible()) tabella->selectAll();
    }
    test::expectReadable(finestra, 15);
    banco.avanti();
  }
}

}  // namespace
}  // namespace cu::assistente
