// The state of a year, from the accounts to the answer of the authority.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <QAbstractButton>
#include <QLabel>
#include <QTableView>
#include <set>

#include "apps/strumenti/casella_cerca.h"
#include "apps/strumenti/dialoghi_stato.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/stato_letto.h"
#include "apps/strumenti/tabella_vista.h"
#include "azienda_support.h"

namespace cu::strumenti {
namespace {

using riscontro::Operazione;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::size_t quante(const StatoLetto& stato, Operazione operazione) {
  return stato.quante.at(static_cast<std::size_t>(operazione));
}

// The answer for the first certificates of a state: all accepted but the last.
std::vector<riscontro::RigaRicevuta> risposta(const StatoLetto& stato, std::size_t righe) {
  std::vector<riscontro::RigaRicevuta> ricevuta;
  for (std::size_t i = 0; i < righe; ++i) {
    const VoceMostrata& voce = stato.voci[i];
    const bool scartata = i + 1 == righe;
    const std::string numero = std::to_string(i + 1);
    ricevuta.push_back({static_cast<std::int64_t>(i) + 2, voce.percipiente, voce.causale,
                        scartata ? "" : "18030612345678901",
                        scartata ? "" : std::string(6 - numero.size(), '0') + numero,
                        scartata ? "scartata" : "accettata", scartata ? "Codice fiscale errato" : ""});
  }
  return ricevuta;
}

bool si(const std::string& /*avviso*/) { return true; }

TEST(State, FollowsAYearFromTheAccountsToTheReceiptAndToACorrection) {
  const test::Azienda azienda;
  const StatoLetto prima = leggiStato(azienda.profilo, std::nullopt);
  ASSERT_TRUE(prima.tabelle);
  EXPECT_EQ(prima.anno, prima.anni.front()) << "the newest";
  const StatoLetto nuove = leggiStato(azienda.profilo, 2016);
  EXPECT_EQ(quante(nuove, Operazione::Nuova), nuove.voci.size());
  EXPECT_EQ(nuove.voci.front().stato, "mai scritta");

  const std::string file = azienda.scrivi(2016);
  EXPECT_TRUE(segnaInviato(azienda.profilo, file, Date::fromYmd(2018, 3, 6), si).riuscito);
  EXPECT_EQ(quante(leggiStato(azienda.profilo, 2016), Operazione::Attesa), nuove.voci.size());

  const auto ricevuta = risposta(nuove, 3);
  EXPECT_TRUE(pianoRicevuta(azienda.profilo, ricevuta).applicabile());
  EXPECT_EQ(quante(leggiStato(azienda.profilo, 2016), Operazione::Attesa), nuove.voci.size())
      << "a plan changes nothing";
  EXPECT_TRUE(registraRicevuta(azienda.profilo, ricevuta));
  StatoLetto dopo = leggiStato(azienda.profilo, 2016);
  EXPECT_EQ(quante(dopo, Operazione::Nessuna), 2U);
  EXPECT_EQ(quante(dopo, Operazione::Nuova), 1U) << "the rejected one is sent anew";
  EXPECT_EQ(dopo.voci[2].motivo, "Codice fiscale errato");
  EXPECT_EQ(dopo.voci[0].progressivo, "000001");

  auto sbagliata = ricevuta;
  sbagliata[0].esito = "forse";
  EXPECT_FALSE(pianoRicevuta(azienda.profilo, sbagliata).applicabile());
  EXPECT_FALSE(registraRicevuta(azienda.profilo, sbagliata));
}

TEST(Corrections, ReportTheirProgressAndCanBeLeftBetweenTwoSteps) {
  const test::Azienda azienda;
  std::set<std::string> passi;
  std::size_t scritte = 0;
  RichiestaCorreggi richiesta{
      .anno = 2016, .cartella = azienda.cartella / "uscita", .firma = {}, .prosegue = [](const std::string&) {
        return true;
      }};
  richiesta.avanzamento = [&](const char* che, std::size_t fatto, std::size_t totale) {
    passi.insert(che);
    if (std::string(che).starts_with("Creazione")) scritte = std::max(scritte, fatto);
    EXPECT_TRUE(totale == 0 || fatto <= totale) << che;
  };
  int domande = 0;
  richiesta.continua = [&] { return ++domande < 3; };
  const EsitoCorreggi lasciato = correggi(azienda.profilo, richiesta);
  EXPECT_TRUE(lasciato.interrotto);
  EXPECT_FALSE(lasciato.riuscito);
  EXPECT_TRUE(lasciato.file.empty());
  EXPECT_EQ(scritte, 0U);
  EXPECT_EQ(quante(leggiStato(azienda.profilo, 2016), Operazione::Nuova),
            leggiStato(azienda.profilo, 2016).voci.size())
      << "nothing is on record";
  richiesta.continua = [] { return true; };
  const EsitoCorreggi finito = correggi(azienda.profilo, richiesta);
  EXPECT_FALSE(finito.interrotto);
  ASSERT_EQ(finito.file.size(), 1U);
  EXPECT_EQ(scritte, finito.file.front().file.certificazioni);
  for (const char* che : {"Lettura dei conti e degli invii", "Caricamento dei compensi",
                          "Creazione del file telematico", "Registrazione delle certificazioni"}) {
    EXPECT_TRUE(passi.contains(che)) << che;
  }
}

TEST(State, WithoutTheTablesSaysSoAndAddsThem) {
  const test::Azienda azienda;
  azienda.esegui("DROP TABLE CuCertificazione");
  azienda.esegui("DROP TABLE CuInvio");
  EXPECT_FALSE(leggiStato(azienda.profilo, std::nullopt).tabelle);
  FinestraStato finestra(azienda.profilo);
  finestra.setAttribute(Qt::WA_DeleteOnClose, false);
  finestra.show();
  ASSERT_TRUE(test::aspetta([&] { return !finestra.lavora(); }));
  QAbstractButton* aggiungi = nullptr;
  for (auto* uno : finestra.findChildren<QAbstractButton*>()) {
    if (uno->text().contains(QStringLiteral("ggiungi le tabelle"))) aggiungi = uno;
  }
  ASSERT_NE(aggiungi, nullptr);
  EXPECT_TRUE(aggiungi->isVisible());
  EXPECT_EQ(finestra.focusWidget(), aggiungi) << "the next thing to do";
  test::alProssimoDialogo([](QWidget& domanda) { EXPECT_TRUE(test::premi(domanda, "Annulla")); });
  aggiungi->click();
  EXPECT_FALSE(finestra.lavora());
  EXPECT_FALSE(leggiStato(azienda.profilo, std::nullopt).tabelle) << "not without the answer";
  test::alProssimoDialogo([](QWidget& domanda) { EXPECT_TRUE(test::premi(domanda, "Aggiungi le tabelle")); });
  aggiungi->click();
  ASSERT_TRUE(test::aspetta([&] { return !finestra.lavora() && !aggiungi->isVisible(); }));
  EXPECT_TRUE(leggiStato(azienda.profilo, std::nullopt).tabelle);
  EXPECT_TRUE(test::dice(finestra, "sono state aggiunte"));
  EXPECT_NE(dynamic_cast<Tabella*>(finestra.focusWidget()), nullptr);
}

// The window of a year's state, read.
class SchermoStato {
 public:
  explicit SchermoStato(const test::Azienda& azienda) : finestra_(azienda.profilo) {
    finestra_.setAttribute(Qt::WA_DeleteOnClose, false);
    finestra_.show();
    finita();
  }
  FinestraStato& operator*() { return finestra_; }
  FinestraStato* operator->() { return &finestra_; }
  void finita() {
    EXPECT_TRUE(test::aspetta([this] { return !finestra_.lavora(); }));
  }

 private:
  FinestraStato finestra_;
};

TEST(StateWindow, SaysWhatWasMarkedAsSent) {
  const test::Azienda azienda;
  const std::string file = azienda.scrivi(2016);
  SchermoStato schermo(azienda);
  const auto segna = [&] {
    test::alProssimoDialogo([&file](QWidget& dialogo) {
      dynamic_cast<DialogoInviato&>(dialogo).scegli(qs(file));
      EXPECT_TRUE(test::premi(dialogo, "Segna"));
    });
    EXPECT_TRUE(test::premi(*schermo, "Segna come inviato"));
    schermo.finita();
  };
  segna();
  EXPECT_TRUE(test::dice(*schermo, "Segnato come inviato il 05/03/2018 il file CUR_"));
  EXPECT_TRUE(test::dice(*schermo, "del 2016."));
  segna();
  EXPECT_TRUE(test::dice(*schermo, "era già segnato come inviato il 05/03/2018"));
}

TEST(StateWindow, TakesAFileThatWillNotBeSentOutOfTheRecordOnceConfirmed) {
  const test::Azienda azienda;
  const std::string file = azienda.scrivi(2016);
  SchermoStato schermo(azienda);
  const auto togli = [&](const char* risposta) {
    test::alProssimoDialogo([risposta](QWidget& dialogo) { EXPECT_TRUE(test::premi(dialogo, risposta)); });
    schermo->togliDalRegistro(qs(file));
    schermo.finita();
  };
  togli("Annulla");
  EXPECT_FALSE(test::dice(*schermo, "Tolto dal registro"));
  togli("Togli dal registro");
  EXPECT_TRUE(test::dice(*schermo, "Tolto dal registro il file CUR_"));
  EXPECT_FALSE(segnaInviato(azienda.profilo, file, std::nullopt, si).riuscito);
}

TEST(StateWindow, ShowsTheReasonOfARejectionAlsoAfterTheCorrection) {
  const test::Azienda azienda;
  const StatoLetto nuove = leggiStato(azienda.profilo, std::nullopt);
  const std::string file = azienda.scrivi(nuove.anno);
  EXPECT_TRUE(segnaInviato(azienda.profilo, file, std::nullopt, si).riuscito);
  EXPECT_TRUE(registraRicevuta(azienda.profilo, risposta(nuove, 1)));
  EXPECT_TRUE(segnaInviato(azienda.profilo, azienda.scrivi(nuove.anno), std::nullopt, si).riuscito);
  SchermoStato schermo(azienda);
  EXPECT_TRUE(test::dice(*schermo, "Motivo dell'ultimo scarto: Codice fiscale errato"));
}

TEST(StateWindow, TellsAReceiptOfOthersFromOneWithoutRows) {
  const test::Azienda azienda;
  SchermoStato schermo(azienda);
  const auto frase = [&](const char* contenuto) {
    const std::string tabella = test::scritto(azienda.cartella / "ricevuta.csv", contenuto);
    QString letta;
    bool chiuso = false;
    test::alProssimoDialogo([&](QWidget& dialogo) {
      for (auto* una : dialogo.findChildren<QLabel*>()) letta += una->text() + u'\n';
      dialogo.close();
      chiuso = true;
    });
    schermo->leggiRicevuta(qs(tabella));
    EXPECT_TRUE(test::aspetta([&] { return chiuso && !schermo->lavora(); }));
    return letta.toStdString();
  };
  using ::testing::HasSubstr;
  EXPECT_THAT(frase("CodiceFiscale;Protocollo;Progressivo;Esito\n"
                    "BNCLCU80A01L781X;18030612345678901;000001;accettata\n"),
              HasSubstr("Nessuna riga corrisponde"));
  EXPECT_THAT(frase("CodiceFiscale;Protocollo;Progressivo;Esito\n"), HasSubstr("nessuna riga"));
  EXPECT_THAT(frase("a;b\n1;2\n"), HasSubstr("non è la tabella di una ricevuta"));
}

TEST(StateWindow, CorrectionsCanBeInterruptedAndSayWhatWasWritten) {
  const test::Azienda azienda;
  SchermoStato schermo(azienda);
  const auto correzioni = [&](bool interrompi) {
    schermo->scriviCorrezioni(qs(azienda.cartella / "uscita"));
    if (interrompi) {
      EXPECT_TRUE(test::premi(*schermo, "Interrompi"));
    }
    DialogoCorrezioni* dialogo = nullptr;
    EXPECT_TRUE(test::aspetta([&] {
      for (auto* uno : schermo->findChildren<QDialog*>()) {
        if (auto* const suo = dynamic_cast<DialogoCorrezioni*>(uno)) dialogo = suo;
      }
      return dialogo != nullptr && !schermo->lavora();
    }));
    std::string testo;
    for (auto* una : dialogo->findChildren<QLabel*>()) testo += una->text().toStdString() + "\n";
    delete dialogo;
    return testo;
  };
  using ::testing::HasSubstr;
  EXPECT_THAT(correzioni(true), HasSubstr("Interrotto: non è stato scritto nessun file."));
  EXPECT_FALSE(std::filesystem::exists(azienda.cartella / "uscita"));
  EXPECT_THAT(correzioni(false), HasSubstr("Certificazioni nuove: "));
}

TEST(StateWindow, EverythingThatCanBeReachedHasAName) {
  const test::Azienda azienda;
  SchermoStato schermo(azienda);
  std::multiset<QChar> lettere;
  for (auto* uno : schermo->findChildren<QWidget*>()) {
    auto* const pulsante = qobject_cast<QAbstractButton*>(uno);
    auto* const scritta = qobject_cast<QLabel*>(uno);
    const QString testo = pulsante != nullptr ? pulsante->text() : scritta != nullptr ? scritta->text() : "";
    const qsizetype posto = testo.indexOf(u'&');
    if (posto >= 0) lettere.insert(testo[posto + 1].toLower());
    if ((uno->focusPolicy() & Qt::TabFocus) == 0 || !uno->isVisibleTo(&*schermo)) continue;
    EXPECT_TRUE(!uno->accessibleName().isEmpty() || !testo.isEmpty()) << uno->metaObject()->className();
  }
  for (const QChar lettera : lettere) EXPECT_EQ(lettere.count(lettera), 1U) << QString(lettera).toStdString();
}

TEST(StateWindow, CountsTheOperationsAndFiltersByThem) {
  const test::Azienda azienda;
  const std::size_t tutte = leggiStato(azienda.profilo, std::nullopt).voci.size();
  FinestraStato finestra(azienda.profilo);
  finestra.setAttribute(Qt::WA_DeleteOnClose, false);
  finestra.show();
  ASSERT_TRUE(test::aspetta([&] { return !finestra.lavora(); }));
  Tabella* voci = nullptr;
  for (auto* una : finestra.findChildren<QTableView*>()) {
    if (una->accessibleName().startsWith(QStringLiteral("Certificazioni")))
      voci = dynamic_cast<Tabella*>(una);
  }
  ASSERT_NE(voci, nullptr);
  EXPECT_EQ(voci->mostrate(), tutte);
  const auto premi = [&](const QString& testo) {
    for (auto* uno : finestra.findChildren<QAbstractButton*>()) {
      if (uno->text() == testo) uno->click();
    }
  };
  premi(QStringLiteral("S&ostituzioni (0)"));
  EXPECT_EQ(voci->mostrate(), 0U);
  premi(QStringLiteral("N&uove (%1)").arg(tutte));
  EXPECT_EQ(voci->mostrate(), tutte);
}

TEST(State, ADayThatCannotWellBeTrueIsAskedAndCanBeCorrected) {
  const test::Azienda azienda;  // on the fifth of March 2018
  const std::string file = azienda.scrivi(2016);
  std::vector<std::string> avvisi;
  const auto segna = [&](std::optional<Date> giorno, bool risposta) {
    return segnaInviato(azienda.profilo, file, giorno, [&](const std::string& avviso) {
      avvisi.push_back(avviso);
      return risposta;
    });
  };
  EXPECT_FALSE(segna(Date::fromYmd(2019, 3, 6), false).riuscito);
  EXPECT_FALSE(segna(Date::fromYmd(2017, 1, 2), false).riuscito);
  EXPECT_THAT(avvisi, ElementsAre("Il 06/03/2019 deve ancora venire.",
                                  "Il 02/01/2017 il file non c'era ancora: è stato scritto il 05/03/2018."));
  avvisi.clear();
  EXPECT_TRUE(segna(Date::fromYmd(2018, 3, 5), false).cambiato);
  EXPECT_FALSE(segna(std::nullopt, false).cambiato) << "marked already";
  EXPECT_FALSE(segna(Date::fromYmd(2018, 3, 5), false).cambiato) << "on the same day";
  EXPECT_THAT(avvisi, IsEmpty());
  const EsitoInvio corretto = segna(Date::fromYmd(2018, 3, 4), true);
  EXPECT_TRUE(corretto.cambiato);
  EXPECT_THAT(corretto.testo, HasSubstr("giorno dell'invio corretto, 04/03/2018 invece di 05/03/2018"));
  EXPECT_THAT(avvisi.front(),
              HasSubstr("è già segnato come inviato il 05/03/2018: il giorno diventerebbe il 04/03/2018."));
}

TEST(ReceiptDialog, NamesTheFileOfEachRowAndThoseThatItMarksAsSent) {
  const test::Azienda azienda;
  const StatoLetto nuove = leggiStato(azienda.profilo, 2016);
  azienda.scrivi(2016);
  const riscontro::PianoRicevuta piano = pianoRicevuta(azienda.profilo, risposta(nuove, 3));
  ASSERT_EQ(piano.daSegnare.size(), 1U);
  const std::string nome = piano.invio(piano.daSegnare.front()).nome;
  DialogoRicevuta dialogo(nullptr, QStringLiteral("ricevuta.csv"), piano);
  EXPECT_TRUE(test::dice(dialogo, ("Il file " + nome + " verrà anche segnato come inviato.").c_str()));
  EXPECT_TRUE(test::dice(dialogo, "accettate, 1 scartata)"));
  const QAbstractItemModel& righe = *dialogo.findChild<QTableView*>()->model();
  QStringList prima;
  for (int colonna = 0; colonna < righe.columnCount(); ++colonna)
    prima += righe.index(0, colonna).data().toString();
  EXPECT_TRUE(prima.contains(qs(nome)));
  EXPECT_TRUE(prima.contains(QStringLiteral("2016")));
}

TEST(StateWindow, ADatabaseThatIsGoneIsASentence) {
  test::Azienda azienda;
  azienda.profilo.database.origine = azienda.cartella / "manca.db";
  EXPECT_THROW(leggiStato(azienda.profilo, std::nullopt), DatabaseError);
}

TEST(ReceiptDialog, RegistersOnlyWhatCanBeApplied) {
  riscontro::PianoRicevuta piano;
  piano.righe.resize(2);
  piano.registrate.resize(1);
  piano.invii.resize(1);
  const auto registra = [](const riscontro::PianoRicevuta& suo) {
    DialogoRicevuta dialogo(nullptr, QStringLiteral("ricevuta.csv"), suo);
    for (auto* uno : dialogo.findChildren<QAbstractButton*>()) {
      if (uno->text() == QStringLiteral("&Registra")) return uno->isEnabled();
    }
    return false;
  };
  EXPECT_TRUE(registra(piano));
  piano.righe[1].esito = riscontro::EsitoRiga::DaDecidere;
  EXPECT_FALSE(registra(piano));
  piano.righe[0].esito = piano.righe[1].esito = riscontro::EsitoRiga::Uguale;
  EXPECT_FALSE(registra(piano)) << "there is nothing to register";
}

TEST(SentDialog, TakesOnlyADayThatExists) {
  DialogoInviato dialogo(nullptr, QDate(2018, 3, 6), {});
  auto* const segna = dialogo.findChild<QDialogButtonBox*>()->buttons().first();
  QLineEdit* giorno = nullptr;
  for (auto* una : dialogo.findChildren<QLineEdit*>()) {
    if (una->accessibleName() == QStringLiteral("Inviato il giorno")) giorno = una;
  }
  ASSERT_NE(giorno, nullptr);
  EXPECT_FALSE(segna->isEnabled());
  dialogo.scegli(QStringLiteral("/tmp/file.cur"));
  EXPECT_TRUE(segna->isEnabled());
  for (const char* forma : {"05/03/2018", "5/3/2018", "05032018", " 05/03/2018 "}) {
    giorno->setText(QString::fromLatin1(forma));
    EXPECT_EQ(dialogo.giorno(), QDate(2018, 3, 5)) << forma;
    EXPECT_TRUE(segna->isEnabled());
  }
  for (const char* forma : {"31/02/2018", "", "domani", "5/3/18"}) {
    giorno->setText(QString::fromLatin1(forma));
    EXPECT_FALSE(dialogo.giorno().isValid()) << forma;
    EXPECT_FALSE(segna->isEnabled()) << forma;
  }
}

TEST(SearchBox, IsEmptiedByEscBeforeTheWindowCloses) {
  QDialog finestra;
  auto* const cerca = new CasellaCerca(&finestra);
  cerca->setText(QStringLiteral("conti"));
  finestra.show();
  QTest::keyClick(cerca, Qt::Key_Escape);
  EXPECT_EQ(cerca->text(), QString());
  EXPECT_TRUE(finestra.isVisible());
  QTest::keyClick(cerca, Qt::Key_Escape);
  EXPECT_FALSE(finestra.isVisible());
}

}  // namespace
}  // namespace cu::strumenti
