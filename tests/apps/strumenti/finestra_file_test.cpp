// The window of a telematic file.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <set>

#include "apps/strumenti/esportazione.h"
#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/frase.h"
#include "apps/strumenti/tabella_vista.h"
#include "azienda_support.h"
#include "desktop/page_view.h"
#include "lettura/lettura_prova.h"

namespace cu::strumenti {
namespace {

using lettura::prova::FileDiProva;

// A window that is destroyed with the object.
class Schermo {
 public:
  explicit Schermo(const std::string& percorso) : finestra_(new FinestraFile(qs(percorso), {})) {
    finestra_->setAttribute(Qt::WA_DeleteOnClose, false);
    finestra_->show();
    finita();
  }
  FinestraFile* operator->() const { return finestra_.get(); }
  void finita() const {
    EXPECT_TRUE(test::aspetta([this] { return !finestra_->lavora(); }));
  }
  Tabella& tabella(const char* nome) const {
    for (auto* una : finestra_->findChildren<QTableView*>()) {
      if (una->accessibleName() == QString::fromUtf8(nome)) return *dynamic_cast<Tabella*>(una);
    }
    throw std::runtime_error(nome);
  }
  Tabella& certificati() const { return tabella("Certificazioni"); }
  Tabella& rilievi() const { return tabella("Rilievi"); }
  Tabella& caselle() const { return tabella("Caselle della certificazione"); }
  desktop::PageView& modulo() const {
    for (auto* uno : finestra_->findChildren<QWidget*>()) {
      if (auto* const vista = dynamic_cast<desktop::PageView*>(uno)) return *vista;
    }
    throw std::runtime_error("no pages");
  }
  QString cella(Tabella& tabella, std::size_t riga, int colonna) const {
    return tabella.modello().index(static_cast<int>(riga), colonna).data().toString();
  }
  bool dice(const char* testo) const {
    for (auto* una : finestra_->findChildren<QLabel*>()) {
      if (una->isVisibleTo(finestra_.get()) && una->text().contains(QString::fromUtf8(testo))) return true;
    }
    return false;
  }

 private:
  std::unique_ptr<FinestraFile> finestra_;
};

std::string treCertificati(const test::TempFolder& cartella) {
  FileDiProva prova;
  prova.certificato().certificato("BNCLCU80A01L781X").certificato("VRDGNN75B41L781W").fine();
  prova.valore(6, "AU001008", FileDiProva::amount("999,00"));
  prova.valore(8, "AU001004", FileDiProva::amount("12,3X"));
  return test::scritto(cartella / "tre.cur", prova.testo());
}

TEST(FileWindow, SearchesAndKeepsTheChoiceThatIsStillShown) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  EXPECT_EQ(schermo.certificati().mostrate(), 3U);
  EXPECT_EQ(schermo.certificati().corrente(), std::optional<std::size_t>(0));
  schermo.certificati().scegli(1);
  auto* const cerca = schermo->findChild<QLineEdit*>();
  cerca->setText(QStringLiteral("bnclcu"));
  EXPECT_EQ(schermo.certificati().mostrate(), 1U);
  EXPECT_EQ(schermo.certificati().corrente(), std::optional<std::size_t>(1));
  cerca->setText(QStringLiteral("vrdg"));
  EXPECT_EQ(schermo.certificati().corrente(), std::optional<std::size_t>(2));
  cerca->setText(QStringLiteral("nessuno"));
  EXPECT_EQ(schermo.certificati().mostrate(), 0U);
  EXPECT_EQ(schermo.caselle().mostrate(), 0U);
  EXPECT_TRUE(schermo.modulo().pages().sentence().contains(QStringLiteral("ricerca")));
  EXPECT_EQ(schermo.certificati().accessibleDescription(),
            QStringLiteral("Nessuna riga corrisponde a ciò che si cerca."));
  cerca->clear();
  EXPECT_EQ(schermo.certificati().mostrate(), 3U);
  EXPECT_EQ(schermo.certificati().accessibleDescription(), QString());
  EXPECT_EQ(schermo.certificati().corrente(), std::optional<std::size_t>(1))
      << "the row from which the search has led away";
}

TEST(FileWindow, GoesBackToNoRowThatThePersonHasLeft) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  auto* const cerca = schermo->findChild<QLineEdit*>();
  cerca->setText(QStringLiteral("1l781"));
  const auto trovata = schermo.certificati().corrente();
  ASSERT_EQ(schermo.certificati().mostrate(), 2U);
  schermo.certificati().setCurrentIndex(schermo.certificati().model()->index(1, 0));
  const auto andata = schermo.certificati().corrente();
  ASSERT_NE(andata, trovata);
  cerca->clear();
  EXPECT_EQ(schermo.certificati().corrente(), andata);
}

TEST(FileWindow, LeavesRoomForTheFormOnALowScreen) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  schermo->resize(1000, 540);
  QTest::qWait(50);
  EXPECT_GT(schermo.modulo().height(), 260);
  auto* const rilievi = schermo->findChild<QComboBox*>();
  ASSERT_NE(rilievi, nullptr);
  const auto alti = [&](const QWidget& uno) { return uno.mapTo(schermo.operator->(), QPoint()).x(); };
  EXPECT_LT(alti(*rilievi), alti(schermo.modulo())) << "the findings are below the certificates";
  EXPECT_TRUE(rilievi->isVisible());
  schermo->resize(1320, 780);
  QTest::qWait(50);
  EXPECT_GE(alti(*rilievi), alti(schermo.modulo()));
}

// As on a small screen with letters of double size.
TEST(FileWindow, FitsAScreenThatIsLowerStill) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  schermo->resize(1000, 300);
  QTest::qWait(50);
  EXPECT_LE(schermo->height(), 320) << "its buttons are on the screen";
}

// The words are in the table itself: it is not only empty.
TEST(FileWindow, DrawsThatNothingWasFound) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  auto* const cerca = schermo->findChild<QLineEdit*>();
  cerca->setText(QStringLiteral("nessuno"));
  const QImage vuota = schermo.certificati().viewport()->grab().toImage();
  int scritti = 0;
  for (int y = 0; y < vuota.height(); ++y)
    for (int x = 0; x < vuota.width(); ++x) scritti += vuota.pixel(x, y) == vuota.pixel(0, 0) ? 0 : 1;
  EXPECT_GT(scritti, 100);
}

TEST(FileWindow, ShowsOnlyThoseWithFindingsAndSortsWithoutLosingTheChoice) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  schermo->findChild<QCheckBox*>()->setChecked(true);
  const std::size_t conRilievi = schermo.certificati().mostrate();
  EXPECT_LT(conRilievi, 4U);
  EXPECT_GT(conRilievi, 1U);
  schermo.certificati().scegli(2);
  constexpr int kLordo = 5;
  for (const Qt::SortOrder ordine : {Qt::DescendingOrder, Qt::AscendingOrder}) {
    schermo.certificati().sortByColumn(kLordo, ordine);
    EXPECT_EQ(schermo.certificati().corrente(), std::optional<std::size_t>(2));
  }
}

TEST(FileWindow, AFindingLeadsToItsCertificateItsCellAndItsPage) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  const FileEsaminato file = FileEsaminato::leggi(cartella / "tre.cur", {});
  std::optional<std::size_t> importo;
  for (std::size_t i = 0; i < file.rilievi().size(); ++i) {
    if (file.rilievi()[i].regola == lettura::Regola::K03) importo = i;
  }
  ASSERT_TRUE(importo);
  schermo->findChild<QComboBox*>()->setCurrentIndex(1);
  schermo->findChild<QLineEdit*>()->setText(QStringLiteral("rossi"));
  schermo->vaiAlRilievo(*importo);
  EXPECT_EQ(schermo.certificati().corrente(), std::optional<std::size_t>(2)) << "the filter gives way";
  const auto casella = schermo.caselle().corrente();
  ASSERT_TRUE(casella);
  EXPECT_EQ(schermo.cella(schermo.caselle(), *casella, 1), QStringLiteral("AU001004"));
  EXPECT_EQ(schermo.cella(schermo.caselle(), *casella, 2), QStringLiteral("12,3X"));
  EXPECT_EQ(schermo.modulo().pages().page(), 1) << "the page of module 1";
  auto* const tratto = schermo->findChild<QPlainTextEdit*>();
  ASSERT_EQ(tratto->extraSelections().size(), 1);
  EXPECT_TRUE(tratto->extraSelections()[0].cursor.selectedText().contains(QStringLiteral("12,3X")));
}

TEST(FileWindow, AFindingIsMarkedAndScrolledToOnTheForm) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  schermo->resize(700, 500);
  const FileEsaminato file = FileEsaminato::leggi(cartella / "tre.cur", {});
  std::optional<std::size_t> importo;
  for (std::size_t i = 0; i < file.rilievi().size(); ++i) {
    if (file.rilievi()[i].regola == lettura::Regola::K03) importo = i;
  }
  ASSERT_TRUE(importo);
  schermo->vaiAlRilievo(*importo);
  desktop::Pages& pagine = schermo.modulo().pages();
  ASSERT_TRUE(test::aspetta([&] { return pagine.pictures() && pagine.mark(); }));
  EXPECT_EQ(pagine.mark()->page, 1);
  EXPECT_TRUE(pagine.mark()->spoken.contains(QStringLiteral("AU001004")));
  for (int i = 0; i < 6; ++i) pagine.larger();
  pagine.setMark(pagine.mark());
  EXPECT_TRUE(test::aspetta([&] { return pagine.seen().contains(pagine.mark()->place.center()); }));
  // A box that is chosen in the table is marked too, and another certificate has no mark.
  schermo.caselle().setFocus();
  schermo.caselle().aperta(0);
  EXPECT_EQ(pagine.mark()->page, 0);
  schermo.certificati().scegli(0);
  EXPECT_TRUE(test::aspetta([&] { return !pagine.mark(); }));
}

TEST(FileWindow, FindingsOfTheWholeFileAreShownWithEveryCertificate) {
  const test::TempFolder cartella;
  FileDiProva prova;
  prova.certificato().certificato("BNCLCU80A01L781X").fine();
  prova.metti(2, 402, "00000099");
  const Schermo schermo(test::scritto(cartella / "b.cur", prova.testo()));
  constexpr int kDove = 3;
  for (const std::size_t quale : {0U, 1U}) {
    schermo.certificati().scegli(quale);
    ASSERT_GE(schermo.rilievi().mostrate(), 1U);
    EXPECT_EQ(schermo.rilievi().model()->index(0, kDove).data().toString(),
              QStringLiteral("di tutto il file"));
  }
  schermo->findChild<QCheckBox*>()->setChecked(true);
  EXPECT_EQ(schermo.rilievi().model()->index(0, kDove).data().toString(), QStringLiteral("di tutto il file"))
      << "with the filter on";
  schermo.rilievi().scegli(0);
  EXPECT_TRUE(schermo.dice("Di tutto il file: "));
}

TEST(FileWindow, ALongSentenceDoesNotCoverTheTable) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  auto* const frase = new Frase(schermo.operator->());
  frase->resize(120, 10);
  frase->dici(QStringLiteral("Una frase lunga che in poco spazio ha bisogno di più righe per stare intera"));
  EXPECT_GE(frase->minimumHeight(), frase->fontMetrics().height() * 3);
  frase->resize(900, 10);
  EXPECT_LT(frase->minimumHeight(), frase->fontMetrics().height() * 2);
}

TEST(FileWindow, DownAndEnterLeadFromTheSearchToTheTable) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  auto* const cerca = schermo->findChild<QLineEdit*>();
  for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_Return}) {
    cerca->setFocus();
    QTest::keyClick(cerca, tasto);
    EXPECT_EQ(schermo->focusWidget(), &schermo.certificati());
  }
}

TEST(FileWindow, AfterSortingTheChoiceIsInSightAndNumbersAreWhole) {
  const test::TempFolder cartella;
  FileDiProva prova;
  for (int i = 0; i < 1200; ++i) prova.certificato();
  prova.fine();
  const Schermo schermo(test::scritto(cartella / "molti.cur", prova.testo()));
  Tabella& tabella = schermo.certificati();
  const QString ultimo = schermo.cella(tabella, 1199, 0);
  EXPECT_GE(tabella.columnWidth(0), tabella.fontMetrics().horizontalAdvance(ultimo) + 6);
  tabella.scegli(0);
  tabella.sortByColumn(0, Qt::DescendingOrder);
  const QRect dove = tabella.visualRect(tabella.currentIndex());
  EXPECT_EQ(tabella.corrente(), std::optional<std::size_t>(0));
  EXPECT_TRUE(tabella.viewport()->rect().intersects(dove));
  EXPECT_TRUE(schermo.dice("1.200 certificazioni"));
}

TEST(FileDialogs, RememberTheFolderAsLongAsItIsThere) {
  const auto uso = QStringLiteral("prova");
  {
    const test::TempFolder cartella;
    ricordaCartella(uso, qs(cartella.path()));
    EXPECT_EQ(cartellaRicordata(uso), qs(cartella.path()));
  }
  EXPECT_EQ(cartellaRicordata(uso, QStringLiteral("/altrove")), QStringLiteral("/altrove"));
}

TEST(FileWindow, AFindingOfNoCertificateShowsItsStretch) {
  const test::TempFolder cartella;
  FileDiProva prova;
  prova.certificato().fine();
  prova.metti(2, 402, "00000099");
  const Schermo schermo(test::scritto(cartella / "b.cur", prova.testo()));
  schermo->findChild<QComboBox*>()->setCurrentIndex(1);
  ASSERT_GE(schermo.rilievi().mostrate(), 1U);
  schermo->vaiAlRilievo(0);
  auto* const tratto = schermo->findChild<QPlainTextEdit*>();
  EXPECT_TRUE(tratto->isVisibleTo(schermo.operator->()));
  EXPECT_TRUE(schermo.dice("99"));
}

TEST(FileWindow, WhateverTheFileIsThereIsASentence) {
  const test::TempFolder cartella;
  const Schermo manca(cartella / "manca.cur");
  EXPECT_TRUE(manca.dice("il file non esiste"));
  const Schermo directory(cartella.path());
  EXPECT_TRUE(directory.dice("è una cartella"));
  const Schermo vuoto(test::scritto(cartella / "vuoto.cur", ""));
  EXPECT_TRUE(vuoto.dice("Il file è vuoto."));
  const Schermo pdf(
      test::scritto(cartella / "a.pdf", "%PDF-1.7\n\x01\x02\x81\n" + std::string(100000, '\0')));
  EXPECT_TRUE(pdf.dice("un documento PDF, non un file telematico"));
  EXPECT_EQ(pdf.rilievi().mostrate(), 0U) << "the sentence says it all";
  FileDiProva senzaAnno("XYZ99");
  senzaAnno.certificato().fine();
  const Schermo ignoto(test::scritto(cartella / "ignoto.cur", senzaAnno.testo()));
  EXPECT_EQ(ignoto.certificati().mostrate(), 1U);
  EXPECT_GT(ignoto.caselle().mostrate(), 5U);
  EXPECT_TRUE(test::aspetta(
      [&] { return ignoto.modulo().pages().sentence().contains(QStringLiteral("di quale anno")); }));
}

TEST(FileWindow, TheFormIsDrawnAfterTheChoice) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  EXPECT_TRUE(test::aspetta([&] { return schermo.modulo().pages().pages() == 2; }));
}

TEST(FileWindow, ReadsAgainWhatHasChanged) {
  const test::TempFolder cartella;
  const std::string percorso = treCertificati(cartella);
  const Schermo schermo(percorso);
  FileDiProva uno;
  uno.certificato().fine();
  test::scritto(percorso, uno.testo());
  schermo.certificati().scegli(2);
  EXPECT_TRUE(schermo.modulo().pages().sentence().contains(QStringLiteral("cambiato")));
  schermo->apri(qs(percorso));
  schermo.finita();
  EXPECT_EQ(schermo.certificati().mostrate(), 1U);
  std::filesystem::remove(percorso);
  schermo->apri(qs(percorso));
  schermo.finita();
  EXPECT_TRUE(schermo.dice("il file non esiste"));
  EXPECT_EQ(schermo.certificati().mostrate(), 1U) << "what was read stays";
}

TEST(FileWindow, EachLetterPressesOneThing) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  std::multiset<QChar> lettere;
  const auto conta = [&](const QString& testo) {
    const qsizetype posto = testo.indexOf(u'&');
    if (posto >= 0) lettere.insert(testo[posto + 1].toLower());
  };
  for (auto* uno : schermo->findChildren<QAbstractButton*>()) conta(uno->text());
  for (auto* una : schermo->findChildren<QLabel*>()) conta(una->text());
  for (const QChar lettera : lettere) EXPECT_EQ(lettere.count(lettera), 1U) << QString(lettera).toStdString();
}

TEST(FileWindow, EverythingThatCanBeReachedHasAName) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  for (auto* uno : schermo->findChildren<QWidget*>()) {
    if ((uno->focusPolicy() & Qt::TabFocus) == 0 || !uno->isVisibleTo(schermo.operator->())) continue;
    auto* const pulsante = qobject_cast<QAbstractButton*>(uno);
    const bool detto =
        !uno->accessibleName().isEmpty() || (pulsante != nullptr && !pulsante->text().isEmpty());
    EXPECT_TRUE(detto) << uno->metaObject()->className();
  }
}

TEST(FileWindow, WritesTheTableForASpreadsheet) {
  const test::TempFolder cartella;
  const Schermo schermo(treCertificati(cartella));
  const std::string dove = cartella / "tabella.csv";
  EXPECT_EQ(scriviTabella(schermo.certificati().modello(), qs(dove)), QString());
  const std::string testo = test::letto(dove);
  EXPECT_TRUE(testo.starts_with("\xEF\xBB\xBFN.;Rilievi;Codice fiscale;Nome;Caus.;Lordo;"));
  EXPECT_THAT(testo, ::testing::HasSubstr(
                         R"(;RSSMRC71C08L781I;ROSSI MARCO;A;"1.234,50";"234,50";"1.000,00";"200,00";)"));
  EXPECT_EQ(std::count(testo.begin(), testo.end(), '\n'), 4);
  const std::string foglio = cartella / "tabella.xlsx";
  EXPECT_EQ(scriviTabella(schermo.certificati().modello(), qs(foglio)), QString());
  EXPECT_TRUE(test::letto(foglio).starts_with("PK"));
  for (const char* nome : {"manca/tabella.csv", "manca/tabella.xlsx"}) {
    EXPECT_NE(scriviTabella(schermo.certificati().modello(), qs(cartella / nome)), QString()) << nome;
  }
}

}  // namespace
}  // namespace cu::strumenti
