// The window of an import with electronic invoices.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
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
  // Begins with a digit, as a person does, and ends with Enter.
  void scriviData(QTableView& righe, const char* testo) const {
    righe.setFocus();
    QTest::keyClick(&righe, Qt::Key_2);
    auto* const scritta = righe.findChild<QLineEdit*>();
    ASSERT_NE(scritta, nullptr) << "a digit begins the writing";
    scritta->setText(QString::fromUtf8(testo));
    QTest::keyClick(scritta, Qt::Key_Return);
  }
  bool aspettaData(const QTableView& righe, int quale, const char* data) const {
    return test::aspetta([&] { return cella(righe, quale, "Pagamento") == QString::fromUtf8(data); });
  }
  // Where a row is, for a click.
  static int altezza(const QTableView& righe, int quale) {
    return righe.viewport()
        ->mapTo(righe.window(), righe.visualRect(righe.model()->index(quale, 0)).topLeft())
        .y();
  }
  int rigaDi(const QTableView& vista, const char* titolo, const char* testo) const {
    for (int i = 0; i < vista.model()->rowCount(); ++i) {
      if (cella(vista, i, titolo) == QString::fromUtf8(testo)) return i;
    }
    return -1;
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
  scriviData(*righe, "28/12/2017");
  ASSERT_TRUE(aspettaData(*righe, 0, "28/12/2017"));
  EXPECT_EQ(cella(*righe, 0, "Anno"), QStringLiteral("⚠ dicembre"));
  banco.avanti();
  banco.accettaTutto();
  EXPECT_TRUE(banco.premiAspetta("Importa"));
  EXPECT_EQ(banco.passo(), Passo::Esito);
}

TEST_F(FinestraFatture, KeepsAWrongDateInItsCellToBeCorrected) {
  auto& finestra = apri(esempio("pronte/ITDMCNCL64S30F839G_00001.xml"));
  banco.avanti(3);
  auto* const righe = tabella("Righe da importare");
  ASSERT_NE(righe, nullptr);
  QString detto;
  test::alProssimoDialogo([&](QWidget& dialogo) {
    detto = dialogo.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->text();
    test::premi(dialogo, "OK");
  });
  scriviData(*righe, "31/02/2017");
  const auto scritta = [&] { return righe->findChild<QLineEdit*>(); };
  ASSERT_TRUE(test::aspetta([&] { return !detto.isEmpty() && scritta() != nullptr; }))
      << "it is corrected where it was written";
  auto* const ancora = scritta();
  EXPECT_TRUE(detto.contains(QStringLiteral("«31/02/2017» non è una data")));
  EXPECT_EQ(ancora->text(), QStringLiteral("31/02/2017"));
  ancora->setText(QStringLiteral("28/02/2017"));
  finestra.avanti();
  EXPECT_EQ(banco.passo(), Passo::Compensi) << "the date is shown first";
  EXPECT_TRUE(aspettaData(*righe, 0, "28/02/2017"));
}

TEST_F(FinestraFatture, GoesOnToTheNextPaymentThatLacksItsDateInPlace) {
  apri(esempio("pronte"));
  banco.avanti(3);
  auto* const righe = tabella("Righe da importare");
  ASSERT_NE(righe, nullptr);
  const int esclusa = rigaDi(*righe, "Stato", "− escluso");
  ASSERT_GT(esclusa, 0);
  EXPECT_EQ(cella(*righe, esclusa, "Pagamento"), QString()) << "it is no payment";
  ASSERT_EQ(cella(*righe, esclusa - 1, "Pagamento"), QStringLiteral("? manca"));
  righe->setCurrentIndex(righe->model()->index(esclusa, 0));
  QTest::keyClick(righe, Qt::Key_2);
  EXPECT_EQ(righe->findChild<QLineEdit*>(), nullptr) << "nor does it take a date";
  EXPECT_EQ(righe->currentIndex().row(), esclusa);
  righe->setCurrentIndex(righe->model()->index(esclusa - 1, 0));
  const int prima = altezza(*righe, esclusa - 1);
  scriviData(*righe, "28/12/2017");
  ASSERT_TRUE(aspettaData(*righe, esclusa - 1, "28/12/2017"));
  EXPECT_GT(righe->currentIndex().row(), esclusa);
  EXPECT_EQ(cella(*righe, righe->currentIndex().row(), "Pagamento"), QStringLiteral("? manca"));
  EXPECT_EQ(altezza(*righe, esclusa - 1), prima) << "the rows stay where they are";
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
  banco.avanti();
  ASSERT_EQ(banco.passo(), Passo::Prova);
  EXPECT_TRUE(test::dice(finestra, "1 compenso ha la data del documento, che è solo proposta"));
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
  QTest::keyClicks(giorno, QStringLiteral("10012018"));
  QTest::keyClick(giorno, Qt::Key_Return);
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_EQ(giorno->text(), QStringLiteral("10/01/2018"));
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
  EXPECT_FALSE(test::dice(*documenti->window(), "possibile:")) << "it is chosen";
  banco.indietro();
  banco.avanti();
  EXPECT_EQ(cella(*documenti, 0, "Stato"), QStringLiteral("✓ letto"));
}

TEST_F(FinestraFatture, GoesBackToTheStepsThatWereSeen) {
  auto& finestra = apri(esempio("pronte/ITDMCNCL64S30F839G_00001.xml"));
  banco.avanti(3);
  banco.indietro(3);
  ASSERT_EQ(banco.passo(), Passo::Sorgente);
  auto* const passi = banco.cerca<QListWidget>("Passi");
  ASSERT_NE(passi, nullptr);
  const auto vai = [&](Passo passo) {
    passi->setCurrentRow(static_cast<int>(passo));
    emit passi->itemActivated(passi->currentItem());
    banco.aspettaFerma();
  };
  EXPECT_TRUE(passi->item(static_cast<int>(Passo::Percipienti))->text().startsWith(u'✓'));
  vai(Passo::Compensi);
  EXPECT_EQ(banco.passo(), Passo::Compensi);
  vai(Passo::Prova);
  EXPECT_EQ(banco.passo(), Passo::Compensi) << "it was not seen yet";
  banco.indietro(3);
  finestra.aggiungi({esempio("pronte/ITRSSMRC71C08L781I_00003.xml")});
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_FALSE(passi->item(static_cast<int>(Passo::Percipienti))->text().startsWith(u'✓'))
      << "other files are read anew";
}

TEST_F(FinestraFatture, EscapeStopsTheReading) {
  auto& finestra = apri(esempio("pronte"));
  finestra.avanti();
  ASSERT_FALSE(finestra.ferma());
  QTest::keyClick(&finestra, Qt::Key_Escape);
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_TRUE(finestra.isVisible());
  EXPECT_EQ(banco.passo(), Passo::Sorgente);
  EXPECT_TRUE(test::dice(finestra, "Annullato: il database è rimasto com'era."));
  EXPECT_FALSE(banco.cerca<QListWidget>("Passi")->item(static_cast<int>(Passo::Colonne))->flags() &
               Qt::ItemIsEnabled);
  banco.avanti();
  EXPECT_EQ(banco.passo(), Passo::Colonne) << "it can be done again";
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
