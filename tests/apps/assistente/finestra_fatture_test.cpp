// The window of an import with electronic invoices.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

#include "apps/assistente/pagina_documenti.h"
#include "apps/assistente/riquadro_date.h"
#include "finestra_support.h"

namespace cu::assistente {
namespace {

using test::BancoAssistente;

class FinestraFatture : public testing::Test {
 protected:
  FinestraAssistente& apri(const QString& percorso) {
    banco.file = percorso;
    return banco.apri();
  }
  strumenti::Tabella* tabella(const char* nome) const {
    return dynamic_cast<strumenti::Tabella*>(banco.cerca<QTableView>(nome));
  }
  static QString esempio(const char* resto) {
    return QStringLiteral(CU_ESEMPIO "/fatture/") + QString::fromUtf8(resto);
  }
  // The text of a row's cell by the heading of its column.
  static QString cella(const QTableView& vista, int riga, const char* titolo) {
    const QAbstractItemModel& modello = *vista.model();
    for (int i = 0; i < modello.columnCount(); ++i) {
      if (modello.headerData(i, Qt::Horizontal).toString() == QString::fromUtf8(titolo))
        return modello.index(riga, i).data().toString();
    }
    return QStringLiteral("?");
  }

  BancoAssistente banco;
};

TEST_F(FinestraFatture, WritesADateInTheTableAndImports) {
  apri(esempio("pronte/ITDMCNCL64S30F839G_00001.xml"));
  auto* const dati = banco.cerca<QComboBox>("Che cosa contengono i file");
  ASSERT_NE(dati, nullptr);
  EXPECT_EQ(dati->currentText(), QStringLiteral("Fatture elettroniche"));
  banco.avanti();
  ASSERT_EQ(banco.passo(), Passo::Colonne);
  auto* const documenti = tabella("Documenti letti");
  ASSERT_NE(documenti, nullptr);
  EXPECT_EQ(cella(*documenti, 0, "Stato"), QStringLiteral("✓ letto"));
  EXPECT_EQ(cella(*documenti, 0, "Lordo"), QStringLiteral("2.450,00"));
  banco.avanti(2);
  ASSERT_EQ(banco.passo(), Passo::Compensi);
  auto* const righe = tabella("Righe da importare");
  ASSERT_NE(righe, nullptr);
  EXPECT_EQ(cella(*righe, 0, "Pagamento"), QStringLiteral("? manca"));
  righe->setFocus();
  QTest::keyClick(righe, Qt::Key_2);
  auto* const scritta = righe->findChild<QLineEdit*>();
  ASSERT_NE(scritta, nullptr) << "a digit begins the writing";
  scritta->setText(QStringLiteral("28/12/2017"));
  QTest::keyClick(scritta, Qt::Key_Return);
  QTest::qWait(20);
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_EQ(cella(*righe, 0, "Pagamento"), QStringLiteral("28/12/2017"));
  EXPECT_EQ(cella(*righe, 0, "Anno"), QStringLiteral("⚠ dicembre"));
  banco.avanti();
  banco.accettaTutto();
  EXPECT_TRUE(banco.premiAspetta("Importa"));
  EXPECT_EQ(banco.passo(), Passo::Esito);
}

TEST_F(FinestraFatture, ShowsProposedDatesAsProposals) {
  auto& finestra = apri(esempio("pronte/ITDMCNCL64S30F839G_00001.xml"));
  banco.avanti(3);
  auto* const fonte = banco.cerca<QComboBox>("Da dove vengono le date di pagamento");
  ASSERT_NE(fonte, nullptr);
  fonte->setCurrentIndex(2);
  emit fonte->activated(2);
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_EQ(cella(*tabella("Righe da importare"), 0, "Pagamento"), QStringLiteral("≈ 20/03/2017 (proposta)"));
  EXPECT_TRUE(test::dice(finestra, "Pagati nel 2017: 1 compenso"));
  EXPECT_TRUE(test::dice(finestra, "con la data solo proposta"));
}

TEST_F(FinestraFatture, AsksForTheFileOfDatesAndForTheDayBesideTheList) {
  auto& finestra = apri(esempio("pronte/ITDMCNCL64S30F839G_00001.xml"));
  banco.avanti(3);
  auto* const fonte = banco.cerca<QComboBox>("Da dove vengono le date di pagamento");
  ASSERT_NE(fonte, nullptr);
  const auto scegli = [&](int quale) {
    fonte->setCurrentIndex(quale);
    emit fonte->activated(quale);
  };
  scegli(1);
  EXPECT_EQ(finestra.assistente().opzioni().fonte, intake::FontePagamento::Nessuna) << "there is no file yet";
  ASSERT_NE(banco.bottone("File delle date…"), nullptr);
  auto* const riquadro = &banco.pagina<RiquadroDate>();
  riquadro->usaTavola(QStringLiteral(CU_ESEMPIO "/date_pagamento.csv"));
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_EQ(cella(*tabella("Righe da importare"), 0, "Pagamento"), QStringLiteral("09/04/2017"));
  scegli(3);
  auto* const giorno = banco.cerca<QLineEdit>("Giorno del pagamento");
  ASSERT_NE(giorno, nullptr);
  giorno->setFocus();
  QTest::keyClicks(giorno, QStringLiteral("10/01/2018"));
  QTest::keyClick(giorno, Qt::Key_Return);
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_EQ(cella(*tabella("Righe da importare"), 0, "Anno"), QStringLiteral("⚠ gennaio"));
}

TEST_F(FinestraFatture, StaysAtThePaymentsUntilTheDayIsWritten) {
  auto& finestra = apri(esempio("pronte/ITDMCNCL64S30F839G_00001.xml"));
  banco.avanti(3);
  auto* const fonte = banco.cerca<QComboBox>("Da dove vengono le date di pagamento");
  ASSERT_NE(fonte, nullptr);
  for (const int quale : {2, 3}) {
    fonte->setCurrentIndex(quale);
    emit fonte->activated(quale);
    ASSERT_TRUE(banco.aspettaFerma());
  }
  EXPECT_EQ(fonte->currentIndex(), 3);
  EXPECT_EQ(cella(*tabella("Righe da importare"), 0, "Pagamento"), QStringLiteral("? manca"));
  EXPECT_FALSE(banco.bottone("Avanti")->isEnabled());
  finestra.avanti();
  EXPECT_EQ(banco.passo(), Passo::Compensi);
}

TEST_F(FinestraFatture, IsNoTallerForManyNotes) {
  auto& finestra = apri(QStringLiteral(CU_ESEMPIO "/fatture"));
  const int alta = finestra.height();
  for (int i = 0; i < 4; ++i) {
    banco.avanti();
    EXPECT_LE(finestra.height(), alta) << i;
    EXPECT_LE(finestra.minimumSizeHint().height(), alta) << i;
  }
  EXPECT_EQ(banco.passo(), Passo::Prova);
}

TEST_F(FinestraFatture, LetsAPersonChooseWhatADocumentMeans) {
  apri(esempio("da_vedere/ITDLLGLI83A59F205I_00045.xml"));
  banco.avanti();
  auto* const documenti = tabella("Documenti letti");
  ASSERT_NE(documenti, nullptr);
  EXPECT_EQ(cella(*documenti, 0, "Stato"), QStringLiteral("? da scegliere"));
  auto* const proposte = banco.cerca<QComboBox>("Che cosa può significare il documento");
  ASSERT_NE(proposte, nullptr);
  ASSERT_GE(proposte->count(), 2);
  proposte->setCurrentIndex(1);
  banco.bottone("Scegli")->setFocus();
  ASSERT_TRUE(banco.premiAspetta("Scegli"));
  EXPECT_EQ(cella(*documenti, 0, "Stato"), QStringLiteral("✓ letto"));
  EXPECT_EQ(documenti->window()->focusWidget(), documenti) << "the list is where the work goes on";
  banco.indietro();
  banco.avanti();
  EXPECT_EQ(cella(*documenti, 0, "Stato"), QStringLiteral("✓ letto"));
}

TEST_F(FinestraFatture, LeavesOutWhatCannotBeReadWhenAskedTo) {
  apri(esempio("da_vedere"));
  banco.avanti();
  QCheckBox* illeggibili = nullptr;
  for (QCheckBox* una : banco.pagina<PaginaDocumenti>().findChildren<QCheckBox*>()) {
    if (una->text().remove(u'&').startsWith(QStringLiteral("Tralascia i file"))) illeggibili = una;
  }
  ASSERT_TRUE(illeggibili != nullptr && illeggibili->isVisible());
  illeggibili->click();
  ASSERT_TRUE(banco.aspettaFerma());
  auto* const documenti = tabella("Documenti letti");
  for (int i = 0; i < documenti->model()->rowCount(); ++i) {
    if (cella(*documenti, i, "File").contains(QStringLiteral("00055"))) {
      EXPECT_EQ(cella(*documenti, i, "Stato"), QStringLiteral("− escluso"));
    }
  }
}

}  // namespace
}  // namespace cu::assistente
