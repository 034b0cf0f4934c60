// The window of an import, from its files to the batch.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTableWidget>

#include "apps/assistente/pagina_colonne.h"
#include "apps/assistente/pagina_prova.h"
#include "apps/importa/comandi_importa.h"
#include "finestra_support.h"

namespace cu::assistente {
namespace {

using intake::StatoRiga;
using test::BancoAssistente;
using testing::HasSubstr;

// What the command writes for the same file, into a copy of the database.
std::vector<std::string> comeIlComando(const BancoAssistente& banco) {
  const Profilo::Database copia = banco.posto.copia();
  OpzioniImport opzioni;
  opzioni.elenco = intake::Elenco::Compensi;
  opzioni.file = {banco.file.toStdString()};
  opzioni.database.indirizzo = "sqlite:" + copia.origine;
  opzioni.azienda = "1";
  opzioni.accettati = {intake::Codice::C03, intake::Codice::V04, intake::Codice::R01};
  opzioni.applica = true;
  EXPECT_EQ(comandoImport(opzioni), 0);
  return test::contenutoDi(copia);
}

TEST(ImportWindow, WalksForwardAndBackAndWritesWhatTheCommandDoes) {
  BancoAssistente banco;
  const auto prima = test::contenutoDi(banco.posto.database);
  const auto atteso = comeIlComando(banco);
  banco.apri();
  EXPECT_EQ(banco.passo(), Passo::Sorgente);
  banco.avanti(5);
  ASSERT_EQ(banco.passo(), Passo::Prova);
  EXPECT_FALSE(banco.bottone("Importa")->isEnabled()) << "warnings are not accepted yet";
  banco.accettaTutto();
  EXPECT_TRUE(banco.bottone("Importa")->isEnabled());
  banco.indietro(5);
  EXPECT_EQ(banco.passo(), Passo::Sorgente);
  banco.indietro();
  EXPECT_EQ(banco.passo(), Passo::Sorgente);
  banco.avanti(5);
  EXPECT_EQ(banco.passo(), Passo::Prova);
  EXPECT_EQ(test::contenutoDi(banco.posto.database), prima) << "nothing was written yet";
  ASSERT_TRUE(banco.premiAspetta("Importa")) << "what was accepted stays so";
  EXPECT_EQ(banco.passo(), Passo::Esito);
  EXPECT_EQ(test::contenutoDi(banco.posto.database), atteso);
  ASSERT_TRUE(banco.premiAspetta("Nuova importazione"));
  EXPECT_EQ(banco.passo(), Passo::Sorgente);
}

TEST(ImportWindow, LeavesTheDatabaseAsItWasWhenCancelled) {
  std::string testo = "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario\n";
  for (int i = 1; i <= 3000; ++i) testo += "P001;A;20/03/2018;" + std::to_string(i) + ";10,00\n";
  BancoAssistente banco(testo);
  banco.apri();
  banco.avanti(5);
  banco.accettaTutto();
  ASSERT_NE(banco.bottone("Importa"), nullptr);
  ASSERT_TRUE(banco.bottone("Importa")->isEnabled());
  const auto prima = test::contenutoDi(banco.posto.database);
  banco.bottone("Importa")->click();
  ASSERT_NE(banco.bottone("Annulla"), nullptr);
  banco.bottone("Annulla")->click();
  ASSERT_TRUE(banco.aspettaFerma());
  EXPECT_EQ(banco.passo(), Passo::Prova);
  EXPECT_EQ(test::contenutoDi(banco.posto.database), prima);
  EXPECT_TRUE(banco.premiAspetta("Importa")) << "it can be done again";
  EXPECT_EQ(banco.passo(), Passo::Esito);
}

TEST(ImportWindow, MapsTheColumnsOfAFileByHand) {
  BancoAssistente banco("Chi;Quando;Quanto;Motivo\nP001;20/03/2018;1000;Prof.\n");
  auto& finestra = banco.apri();
  auto* const dati = banco.cerca<QComboBox>("Che cosa contengono i file");
  ASSERT_NE(dati, nullptr);
  EXPECT_EQ(dati->currentText(), QStringLiteral("Compensi pagati"));
  banco.avanti(2);
  ASSERT_EQ(banco.passo(), Passo::Colonne);
  EXPECT_FALSE(banco.bottone("Avanti")->isEnabled());
  auto* const colonne = dynamic_cast<strumenti::Tabella*>(banco.cerca<QTableView>("Colonne da importare"));
  auto* const titoli = banco.cerca<QListWidget>("Colonne del file");
  ASSERT_TRUE(colonne != nullptr && titoli != nullptr);
  const auto abbina = [&](intake::ColonnaCompenso colonna, int titolo) {
    colonne->scegli(static_cast<std::size_t>(colonna));
    titoli->item(titolo)->setCheckState(Qt::Checked);
    banco.aspettaFerma();
  };
  abbina(intake::ColonnaCompenso::CodicePercipiente, 0);
  abbina(intake::ColonnaCompenso::DataPagamento, 1);
  abbina(intake::ColonnaCompenso::Onorario, 2);
  abbina(intake::ColonnaCompenso::Causale, 3);
  EXPECT_TRUE(banco.bottone("Avanti")->isEnabled());
  test::alProssimoDialogo([](QWidget& dialogo) {
    auto* const tabella = dialogo.findChild<QTableWidget*>();
    ASSERT_NE(tabella, nullptr);
    EXPECT_EQ(tabella->item(0, 0)->text(), QStringLiteral("Prof."));
    tabella->item(0, 1)->setText(QStringLiteral("A"));
    test::premi(dialogo, "Conferma");
  });
  banco.premiAspetta("Significati…");
  const std::string mappa = banco.posto.cartella / "mia.toml";
  banco.pagina<PaginaColonne>().salvaProfilo(QString::fromStdString(mappa));
  EXPECT_THAT(test::leggiFile(mappa), HasSubstr("DataPagamento = 'Quando'"));
  banco.avanti(3);
  EXPECT_EQ(banco.passo(), Passo::Prova);
  EXPECT_EQ(finestra.assistente().piano()->quante(StatoRiga::Nuovo), 1U);

  BancoAssistente altro("Chi;Quando;Quanto;Motivo\nP002;21/03/2018;500;Prof.\n");
  auto& seconda = altro.apri();
  altro.avanti(2);
  altro.pagina<PaginaColonne>().caricaProfilo(QString::fromStdString(mappa));
  altro.aspettaFerma();
  altro.avanti(3);
  EXPECT_EQ(seconda.assistente().piano()->quante(StatoRiga::Nuovo), 1U);
}

TEST(ImportWindow, LeavesOutRowsAndSavesThoseWithErrors) {
  BancoAssistente banco(
      "CodicePercipiente;Causale;DataPagamento;Onorario\nP001;A;20/03/2018;1000\nP999;A;21/03/2018;7\n");
  auto& finestra = banco.apri();
  banco.avanti(5);
  ASSERT_EQ(banco.passo(), Passo::Prova);
  PaginaProva& prova = banco.pagina<PaginaProva>();
  const QString errori = QString::fromStdString(banco.posto.cartella / "errori.csv");
  prova.salvaErrori(errori);
  EXPECT_THAT(test::leggiFile(errori.toStdString()), HasSubstr("Errore\r\nP999;A;21/03/2018;7;"));
  prova.salvaResoconto(QString::fromStdString(banco.posto.cartella / "r.json"));
  EXPECT_THAT(test::leggiFile(banco.posto.cartella / "r.json"), HasSubstr("\"P12\""));
  banco.indietro();
  auto* const righe = dynamic_cast<strumenti::Tabella*>(banco.cerca<QTableView>("Righe da importare"));
  ASSERT_NE(righe, nullptr);
  righe->scegli(1);
  EXPECT_TRUE(test::dice(finestra, "(P12)"));
  ASSERT_TRUE(banco.premiAspetta("Escludi le righe evidenziate"));
  EXPECT_EQ(finestra.assistente().piano()->quante(StatoRiga::Escluso), 1U);
  EXPECT_NE(banco.bottone("Riprendi le righe evidenziate"), nullptr);
  banco.avanti();
  banco.accettaTutto();
  EXPECT_TRUE(banco.bottone("Importa")->isEnabled());
}

// Rows of payees have no payments beside them.
TEST(ImportWindow, ImportsPayeesToTheEnd) {
  BancoAssistente banco("Codice;Cognome;Nome;CodiceFiscale\nF001;Calò;Giovanna;CLAGNN71H57L781T\n");
  auto& finestra = banco.apri();
  banco.avanti(4);
  ASSERT_EQ(banco.passo(), Passo::Prova);
  ASSERT_EQ(finestra.assistente().piano()->elenco, intake::Elenco::Percipienti);
  banco.accettaTutto();
  ASSERT_TRUE(banco.premiAspetta("Importa"));
  EXPECT_EQ(banco.passo(), Passo::Esito);
}

TEST(ImportWindow, FiltersRowsByStateAndText) {
  BancoAssistente banco;
  banco.apri();
  banco.avanti(4);
  auto* const righe = dynamic_cast<strumenti::Tabella*>(banco.cerca<QTableView>("Righe da importare"));
  ASSERT_NE(righe, nullptr);
  EXPECT_EQ(righe->mostrate(), 3U);
  banco.cerca<QLineEdit>("Cerca fra le righe")->setText(QStringLiteral("500,56"));
  EXPECT_EQ(righe->mostrate(), 1U);
}

TEST(ImportWindow, TakesACandidateOfSeveral) {
  BancoAssistente banco(
      "CodicePercipiente;Causale;DataPagamento;Onorario;RitenutaAcconto\nP001;A;20/03/2018;100;20\n");
  banco.posto.esegui("UPDATE Percipiente SET Codice = 'P001' WHERE Codice = 'P003'");
  auto& finestra = banco.apri();
  banco.avanti(3);
  ASSERT_EQ(banco.passo(), Passo::Percipienti);
  auto* const possibili = banco.cerca<QComboBox>("Percipienti possibili");
  ASSERT_NE(possibili, nullptr);
  ASSERT_EQ(possibili->count(), 2);
  possibili->setCurrentIndex(1);
  ASSERT_TRUE(banco.premiAspetta("Scegli"));
  EXPECT_EQ(finestra.assistente().piano()->quante(StatoRiga::DaDecidere), 0U);
  banco.avanti(2);
  EXPECT_TRUE(banco.premiAspetta("Importa"));
}

TEST(ImportWindow, OffersToMakeADatabaseReady) {
  BancoAssistente banco;
  banco.posto.esegui("DROP TABLE CuImportazioneRiga");
  banco.posto.esegui("DROP TABLE CuArchivio");
  auto& finestra = banco.apri();
  EXPECT_FALSE(banco.bottone("Avanti")->isEnabled());
  test::alProssimoDialogo([](QWidget& dialogo) { test::premi(dialogo, "Aggiungi le tabelle"); });
  ASSERT_TRUE(banco.premiAspetta("Aggiungi le tabelle"));
  EXPECT_TRUE(finestra.assistente().database()->storico);
  EXPECT_FALSE(banco.bottone("Avanti")->isEnabled()) << "it is a foreign one still";
  test::alProssimoDialogo([](QWidget& dialogo) { test::premi(dialogo, "Importa lo stesso"); });
  ASSERT_TRUE(banco.premiAspetta("Importa lo stesso in questo database…"));
  EXPECT_TRUE(banco.bottone("Avanti")->isEnabled());
}

TEST(ImportWindow, AsksBeforeItIsClosedHalfWay) {
  BancoAssistente banco;
  auto& finestra = banco.apri();
  banco.avanti(2);
  bool chiesto = false;
  test::alProssimoDialogo([&](QWidget& dialogo) {
    chiesto = true;
    test::premi(dialogo, "Annulla");
  });
  finestra.close();
  EXPECT_TRUE(chiesto);
  EXPECT_TRUE(finestra.isVisible());
  EXPECT_EQ(banco.passo(), Passo::Colonne);
  banco.indietro(2);
  EXPECT_TRUE(finestra.close()) << "nothing is lost at the first step";
}

TEST(ImportWindow, SaysWhyThereIsNoWayOn) {
  BancoAssistente banco("");
  auto& finestra = banco.apri();
  EXPECT_FALSE(banco.bottone("Avanti")->isEnabled());
  EXPECT_TRUE(test::dice(finestra, "f.csv non si può leggere"));
}

TEST(ImportWindow, GoesBackToTheStepFromWhichTheDatabaseCouldNotBeRead) {
  BancoAssistente banco;
  auto& finestra = banco.apri();
  banco.avanti(2);
  ASSERT_EQ(banco.passo(), Passo::Colonne);
  const std::string via = banco.posto.database.origine + ".via";
  std::filesystem::rename(banco.posto.database.origine, via);
  QString detto;
  test::alProssimoDialogo([&](QWidget& dialogo) {
    for (const auto* uno : dialogo.findChildren<QLabel*>()) detto += uno->text();
    test::premi(dialogo, "OK");
  });
  banco.avanti();
  EXPECT_EQ(banco.passo(), Passo::Colonne);
  EXPECT_FALSE(detto.isEmpty());
  std::filesystem::rename(via, banco.posto.database.origine);
  banco.avanti();
  EXPECT_EQ(banco.passo(), Passo::Percipienti);
  EXPECT_NE(finestra.assistente().piano(), nullptr);
}

}  // namespace
}  // namespace cu::assistente
