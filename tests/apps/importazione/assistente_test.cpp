#include "apps/importazione/assistente.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/importazione/colonne_scelte.h"
#include "apps/importazione/mappe_personali.h"
#include "apps/importazione/modello_tabella.h"
#include "apps/importazione/posto_importazione.h"
#include "apps/importazione/righe_errate.h"
#include "apps/importazione/scrittura_tabella.h"
#include "intake/storico.h"
#include "tabelle/scrittura.h"

namespace cu {
namespace {

using intake::Codice;
using intake::Elenco;
using intake::StatoRiga;
using test::avanza;
using test::finoAllaProva;
using test::svolgi;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kCompensi =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto\n"
    "P001;A;20/03/2018;1/2018;1000,00;200,00\n"
    "P002;A;21/03/2018;2/2018;500,00;100,00\n";

class AssistenteImportazione : public testing::Test {
 protected:
  Assistente con(const std::vector<std::string>& file) const {
    Assistente assistente(posto.ambiente());
    assistente.aggiungi(file);
    svolgi(assistente);
    return assistente;
  }
  Assistente conTesto(const std::string& testo) const { return con({posto.file("f.csv", testo)}); }
  static void importaTutto(Assistente& assistente) {
    Assistente::Compito compito = assistente.importa();
    compito.lavoro(nullptr);
    compito.accogli();
  }
  const test::PostoImportazione posto;
};

TEST_F(AssistenteImportazione, ImportsInSevenSteps) {
  const auto prima = test::contenutoDi(posto.database);
  Assistente assistente = conTesto(kCompensi);
  EXPECT_EQ(assistente.passo(), Passo::Sorgente);
  EXPECT_EQ(assistente.elenco(), Elenco::Compensi);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Lettura);
  ASSERT_NE(assistente.file().front().tabella, nullptr);
  EXPECT_EQ(assistente.file().front().tabella->righe.size(), 2U);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Colonne);
  ASSERT_NE(assistente.lettura(0), nullptr);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Percipienti);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Compensi);
  EXPECT_EQ(assistente.piano()->quante(StatoRiga::Nuovo), 2U);
  avanza(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Prova);
  ASSERT_TRUE(assistente.prova());
  EXPECT_TRUE(assistente.puoImportare());
  EXPECT_EQ(test::contenutoDi(posto.database), prima) << "a trial changes nothing";
  importaTutto(assistente);
  svolgi(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Esito);
  EXPECT_EQ(assistente.importata()->esito.lotto, 1);
  EXPECT_FALSE(assistente.puoTornare());
  EXPECT_NE(test::contenutoDi(posto.database), prima);
  DatabaseSuite database(apriConnessione(posto.database), nullptr);
  EXPECT_TRUE(annullaLotto(database, 1, false));
}

TEST_F(AssistenteImportazione, FindsTheKindOfDataByTheHeadings) {
  EXPECT_EQ(conTesto("Cognome;Nome;CodiceFiscale;Indirizzo\nVerdi;Anna;VRDNNA80A41L781O;Via Po 1\n").elenco(),
            Elenco::Percipienti);
  EXPECT_EQ(conTesto("CodiceFiscale;Denominazione;RappresentanteCognome\n12345670017;Alfa;Neri\n").elenco(),
            Elenco::Aziende);
  Assistente scelto(posto.ambiente());
  scelto.scegliElenco(Elenco::Compensi);
  scelto.aggiungi({posto.file("g.csv", "Cognome;Nome;Indirizzo\nVerdi;Anna;Via Po 1\n")});
  svolgi(scelto);
  EXPECT_EQ(scelto.elenco(), Elenco::Compensi) << "what a person has chosen stays";
}

TEST_F(AssistenteImportazione, LeavesOutTheStepOfPaymentsForOtherLists) {
  Assistente assistente = conTesto("CodiceFiscale;Cognome;Nome\nVRDNNA80A41L781O;Verdi;Anna\n");
  EXPECT_FALSE(assistente.comprende(Passo::Compensi));
  finoAllaProva(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Prova);
  assistente.indietro();
  EXPECT_EQ(assistente.passo(), Passo::Percipienti);
  EXPECT_EQ(titoloPasso(Passo::Percipienti, Elenco::Aziende), "Aziende");
}

TEST_F(AssistenteImportazione, KeepsWhatWasChosenOnTheWayBack) {
  Assistente assistente = conTesto(
      "CodicePercipiente;Caus;DataPagamento;NumeroDocumento;Onorario\nP001;Prof.;20/03/2018;1;1000\n"
      "P002;Prof.;21/03/2018;2;10,555\n");
  avanza(assistente);
  avanza(assistente);
  intake::Mappatura mappatura = assistente.file().front().mappatura;
  const auto causale = static_cast<std::uint8_t>(intake::ColonnaCompenso::Causale);
  cambiaFonte(mappatura, causale, {{"Caus"}, {}, intake::Segno::ComeScritto});
  cambiaSignificato(mappatura, causale, "Prof.", "A");
  assistente.cambiaMappatura(0, mappatura);
  svolgi(assistente);
  finoAllaProva(assistente);
  ASSERT_EQ(assistente.passo(), Passo::Prova);
  for (const AvvisiDiCodice& uno : avvisiPerCodice(*assistente.piano())) assistente.accetta(uno.codice, true);
  const std::vector<std::size_t> prima{0};
  assistente.decidi(prima, [](intake::Decisione& decisione) { decisione.esclusa = true; });
  svolgi(assistente);
  ASSERT_TRUE(assistente.puoImportare());
  assistente.vai(Passo::Sorgente);
  EXPECT_EQ(assistente.passo(), Passo::Sorgente);
  finoAllaProva(assistente);
  EXPECT_TRUE(assistente.puoImportare());
  EXPECT_EQ(assistente.piano()->quante(StatoRiga::Escluso), 1U);
  EXPECT_EQ(assistente.piano()->quante(StatoRiga::Nuovo), 1U);
}

TEST_F(AssistenteImportazione, DoesNotGoOnWithoutAFileOrWithOneThatCannotBeRead) {
  Assistente assistente(posto.ambiente());
  svolgi(assistente);
  EXPECT_THAT(assistente.impedimento(), HasSubstr("almeno un file"));
  assistente.aggiungi({posto.file("f.csv", kCompensi), posto.cartella / "manca.csv",
                       posto.file("vuoto.csv", ""), posto.file("atto.pdf", "%PDF-1.4 ...")});
  svolgi(assistente);
  EXPECT_FALSE(assistente.puoAvanzare());
  EXPECT_EQ(assistente.impedimento(),
            "3 file non si possono leggere: manca.csv, vuoto.csv, atto.pdf. Toglierli dall'elenco.");
  EXPECT_THAT(assistente.file()[1].guasto, HasSubstr("manca.csv"));
  EXPECT_THAT(assistente.file()[2].guasto, HasSubstr("(F01)"));
  EXPECT_THAT(assistente.file()[3].guasto, HasSubstr("(F02)"));
  for (int i = 0; i < 3; ++i) assistente.togli(1);
  svolgi(assistente);
  EXPECT_TRUE(assistente.puoAvanzare());
}

TEST_F(AssistenteImportazione, KnowsThatItsBatchWasTakenBack) {
  Assistente assistente = conTesto(kCompensi);
  finoAllaProva(assistente);
  importaTutto(assistente);
  assistente.annullata(99);
  EXPECT_FALSE(assistente.tornataIndietro()) << "another one";
  assistente.annullata(1);
  EXPECT_TRUE(assistente.tornataIndietro());
  assistente.ricomincia();
  EXPECT_FALSE(assistente.tornataIndietro());
}

TEST_F(AssistenteImportazione, ReadsAFileAsAPersonSays) {
  Assistente assistente = conTesto(
      "CodicePercipiente,Causale,DataPagamento,Onorario\nP001,A,03/05/2017,1.234\nP002,A,04/05/2017,2.345\n");
  avanza(assistente);
  avanza(assistente);
  EXPECT_THAT(assistente.impedimento(), HasSubstr("(V02)"));
  EXPECT_THAT(assistente.impedimento(), HasSubstr("nel passo Lettura"));
  intake::Mappatura mappatura = assistente.file().front().mappatura;
  mappatura.date = intake::OrdineData::MeseGiornoAnno;
  mappatura.migliaia = '.';
  assistente.cambiaMappatura(0, mappatura);
  svolgi(assistente);
  EXPECT_THAT(assistente.impedimento(), IsEmpty());
  const auto scelte = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  const ColonnaScelta& data = scelte[static_cast<std::size_t>(intake::ColonnaCompenso::DataPagamento)];
  EXPECT_EQ(data.estremi, "dal 05/03/2017 al 05/04/2017");
  const ColonnaScelta& onorario = scelte[static_cast<std::size_t>(intake::ColonnaCompenso::Onorario)];
  EXPECT_THAT(onorario.esempi, ElementsAre("1234,00", "2345,00"));
  mappatura.lettura.separatore = ';';
  assistente.vai(Passo::Lettura);
  assistente.cambiaMappatura(0, mappatura);
  svolgi(assistente);
  EXPECT_EQ(assistente.file().front().tabella->intestazione.celle.size(), 1U);
}

TEST_F(AssistenteImportazione, ReadsTheSheetThatWasChosen) {
  std::vector<tabelle::TabellaDaScrivere> fogli(2);
  const auto testo = [](const char* valore) { return Value::ofText(valore); };
  fogli[0] = {"Note", {"Appunti"}, {{testo("x")}}};
  fogli[1] = {"Marzo",
              {"CodicePercipiente", "Causale", "DataPagamento", "Onorario"},
              {{testo("P001"), testo("A"), testo("20/03/2018"), testo("1000")}}};
  const std::string file = posto.cartella.write("due.xlsx", tabelle::componiXlsx(fogli, {}));
  Assistente assistente = con({file});
  EXPECT_THAT(assistente.file().front().fogli, ElementsAre("Note", "Marzo"));
  assistente.scegliElenco(Elenco::Compensi);
  svolgi(assistente);
  avanza(assistente);
  intake::Mappatura mappatura = assistente.file().front().mappatura;
  mappatura.lettura.foglio = "Marzo";
  assistente.cambiaMappatura(0, mappatura);
  finoAllaProva(assistente);
  EXPECT_EQ(assistente.file().front().tabella->foglio, "Marzo");
  EXPECT_EQ(assistente.piano()->quante(StatoRiga::Nuovo), 1U);
}

TEST_F(AssistenteImportazione, NamesNoOptionOfTheCommandLine) {
  Assistente assistente = conTesto(
      "CodicePercipiente;Causale;DataPagamento;Onorario\nP001;A;20/03/2018;1.234\nP001;A;20/03/"
      "2018;1.234,56\n");
  finoAllaProva(assistente);
  const auto righe = assistente.righe();
  ASSERT_EQ(righe->size(), 2U);
  for (const RigaMostrata& una : *righe) {
    EXPECT_THAT(una.messaggi, HasSubstr("(V03)"));
    EXPECT_THAT(una.messaggi, HasSubstr("nel passo Lettura"));
    EXPECT_THAT(una.messaggi, testing::Not(HasSubstr("--")));
  }
}

TEST_F(AssistenteImportazione, ChangesAllFilesWithTheSameHeadingTogether) {
  const std::string altro = "Codice;Cognome;DataPagamento;Causale;Onorario\n";
  Assistente assistente =
      con({posto.file("a.csv", kCompensi), posto.file("b.csv", altro), posto.file("c.csv", kCompensi)});
  EXPECT_EQ(assistente.quantiSimili(0), 2U);
  EXPECT_EQ(assistente.quantiSimili(1), 1U);
  intake::Mappatura mappatura = assistente.file()[2].mappatura;
  mappatura.date = intake::OrdineData::GiornoMeseAnno;
  assistente.cambiaMappatura(2, mappatura);
  EXPECT_TRUE(assistente.file()[0].mappatura.date);
  EXPECT_FALSE(assistente.file()[1].mappatura.date);
}

TEST_F(AssistenteImportazione, FindsAndKeepsAProfile) {
  Assistente assistente = conTesto("Chi;Quando;Quanto\nP001;20/03/2018;1000\n");
  intake::Mappatura mappatura;
  using intake::ColonnaCompenso;
  const auto da = [&](ColonnaCompenso colonna, intake::Fonte fonte) {
    cambiaFonte(mappatura, static_cast<std::uint8_t>(colonna), std::move(fonte));
  };
  da(ColonnaCompenso::CodicePercipiente, {{"Chi"}, {}, {}});
  da(ColonnaCompenso::DataPagamento, {{"Quando"}, {}, {}});
  da(ColonnaCompenso::Onorario, {{"Quanto"}, {}, {}});
  da(ColonnaCompenso::Causale, {{}, "A", {}});
  da(ColonnaCompenso::Netto, {});
  assistente.scegliElenco(Elenco::Compensi);
  svolgi(assistente);
  assistente.cambiaMappatura(0, mappatura);
  const std::string file = salvaMappa(assistente.ambiente().cartellaMappe, assistente.profilo(0));

  Assistente altro(posto.ambiente());
  altro.scegliElenco(Elenco::Compensi);
  altro.aggiungi({posto.file("h.csv", "Chi;Quando;Quanto\nP002;21/03/2018;500\n")});
  finoAllaProva(altro);
  EXPECT_EQ(altro.file().front().profilo, file);
  EXPECT_EQ(altro.piano()->quante(StatoRiga::Nuovo), 1U);
  EXPECT_THROW(altro.usaProfilo(0, {Elenco::Aziende, "", {}}), ErroreProfilo);
}

TEST_F(AssistenteImportazione, ProposesColumnsWhoseNamesBeginAsTheHeadingsDo) {
  Assistente assistente = conTesto(
      "Cod. percipiente;Caus.;Data di pag.;Num. doc.;Compenso lordo;Ritenuta;Onorario;Note\n"
      "P001;A;20/03/2018;1/2018;x;200;1000;y\n");
  avanza(assistente);
  avanza(assistente);
  EXPECT_FALSE(assistente.puoAvanzare());
  const auto prima = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  const auto proposte = conProposte(assistente.file().front(), prima);
  ASSERT_TRUE(proposte);
  assistente.cambiaMappatura(0, *proposte);
  svolgi(assistente);
  const auto scelte = colonneScelte(assistente.file().front(), *assistente.lettura(0));
  const auto da = [&](intake::ColonnaCompenso colonna) {
    const auto& intestazioni = scelte[static_cast<std::size_t>(colonna)].intestazioni;
    return intestazioni.empty() ? std::string() : intestazioni.front();
  };
  using enum intake::ColonnaCompenso;
  EXPECT_EQ(da(CodicePercipiente), "Cod. percipiente");
  EXPECT_EQ(da(Causale), "Caus.");
  EXPECT_EQ(da(DataPagamento), "Data di pag.");
  EXPECT_EQ(da(NumeroDocumento), "Num. doc.");
  EXPECT_EQ(da(Onorario), "Onorario");
  EXPECT_EQ(da(RitenutaAcconto), "") << "it could be another one as well";
  EXPECT_TRUE(assistente.puoAvanzare());
  EXPECT_FALSE(conProposte(assistente.file().front(), scelte)) << "nothing is left to propose";
}

TEST_F(AssistenteImportazione, ReportsAProfileThatIsWrongAndReadsWithoutIt) {
  const std::string testo = kCompensi;
  const Assistente prima = conTesto(testo);
  std::filesystem::create_directories(prima.ambiente().cartellaMappe);
  test::scriviFile(prima.ambiente().cartellaMappe + "/x.toml", "formato = \"compensi\"\nimpronta = \"" +
                                                                   prima.file().front().impronta +
                                                                   "\"\n[lettura]\ndate = \"mai\"\n");
  const Assistente assistente = conTesto(testo);
  EXPECT_THAT(assistente.file().front().nota, HasSubstr("lettura.date"));
  EXPECT_TRUE(assistente.puoAvanzare());
}

TEST_F(AssistenteImportazione, LeavesNothingOfAWorkThatWasInterrupted) {
  class Interrompe : public ProgressSink {
   public:
    void setPointer(int) override {}
    void progress(const char*, std::size_t fatti, std::size_t) override {
      if (fatti == 1) throw std::runtime_error("cancelled");
    }
  };
  Assistente assistente = conTesto(kCompensi);
  finoAllaProva(assistente);
  ASSERT_TRUE(assistente.puoImportare());
  const auto prima = test::contenutoDi(posto.database);
  Interrompe interrompe;
  EXPECT_THROW(assistente.importa().lavoro(&interrompe), std::runtime_error);
  EXPECT_EQ(test::contenutoDi(posto.database), prima);
  EXPECT_EQ(assistente.passo(), Passo::Prova);
  EXPECT_TRUE(assistente.puoImportare());
}

TEST_F(AssistenteImportazione, DropsAResultThatIsOutdated) {
  Assistente assistente = conTesto(kCompensi);
  avanza(assistente);
  assistente.avanti();
  auto compito = assistente.daFare();
  ASSERT_TRUE(compito);
  compito->lavoro(nullptr);
  intake::Mappatura mappatura = assistente.file().front().mappatura;
  mappatura.decimali = '.';
  assistente.cambiaMappatura(0, mappatura);
  compito->accogli();
  EXPECT_EQ(assistente.lettura(0), nullptr);
  svolgi(assistente);
  EXPECT_NE(assistente.lettura(0), nullptr);
}

TEST_F(AssistenteImportazione, SaysWhatTheDatabaseLacks) {
  posto.esegui("DROP TABLE CuArchivio");
  Assistente estraneo = conTesto(kCompensi);
  EXPECT_THAT(estraneo.impedimento(), HasSubstr("non è stato creato da questo programma"));
  estraneo.ammettiEstraneo(true);
  finoAllaProva(estraneo);
  EXPECT_TRUE(estraneo.puoImportare());
  posto.esegui("DROP TABLE CuImportazioneRiga");
  EXPECT_THAT(conTesto(kCompensi).impedimento(), HasSubstr("tabelle delle importazioni"));
}

TEST_F(AssistenteImportazione, ReportsATrialWhoseDatabaseHasChanged) {
  Assistente assistente = conTesto(kCompensi);
  finoAllaProva(assistente);
  ASSERT_TRUE(assistente.puoImportare());
  posto.esegui("UPDATE Compenso SET SommeNonSoggette = 1 WHERE IDCompenso = 1");
  importaTutto(assistente);
  EXPECT_EQ(assistente.passo(), Passo::Prova);
  EXPECT_FALSE(assistente.puoImportare());
  ASSERT_FALSE(assistente.prova()->rifiuti.empty());
  EXPECT_THAT(assistente.prova()->rifiuti.front(), HasSubstr("è cambiato dopo la prova"));
  assistente.ripetiPiano();
  svolgi(assistente);
  EXPECT_TRUE(assistente.puoImportare());
}

TEST_F(AssistenteImportazione, GoesFromAnEmptyDatabaseToPayments) {
  test::PostoImportazione vuoto;
  vuoto.svuota();
  Assistente assistente(vuoto.ambiente());
  for (const Elenco elenco : {Elenco::Aziende, Elenco::Percipienti, Elenco::Compensi}) {
    const std::string file = vuoto.cartella / (std::string(intake::nome(elenco)) + ".xlsx");
    scriviTabelle(file, modelloTabella(elenco), NewFile::AsUsual);
    assistente.aggiungi({file});
    finoAllaProva(assistente);
    ASSERT_EQ(assistente.passo(), Passo::Prova) << assistente.impedimento();
    EXPECT_EQ(assistente.elenco(), elenco);
    for (const AvvisiDiCodice& uno : avvisiPerCodice(*assistente.piano()))
      assistente.accetta(uno.codice, true);
    svolgi(assistente);
    ASSERT_TRUE(assistente.puoImportare()) << intake::nome(elenco);
    importaTutto(assistente);
    EXPECT_EQ(assistente.passo(), Passo::Esito);
    assistente.ricomincia();
    svolgi(assistente);
    EXPECT_EQ(assistente.database()->aziende.size(), 1U);
  }
  EXPECT_EQ(intake::storico(*apriConnessione(vuoto.database), std::nullopt).size(), 3U);
}

TEST_F(AssistenteImportazione, ImportsNothingThatIsThereAlready) {
  Assistente assistente = conTesto(kCompensi);
  finoAllaProva(assistente);
  importaTutto(assistente);
  assistente.ricomincia();
  EXPECT_TRUE(assistente.file().empty());
  assistente.aggiungi({posto.cartella / "f.csv"});
  finoAllaProva(assistente);
  EXPECT_EQ(assistente.piano()->quante(StatoRiga::Uguale), 2U);
  EXPECT_FALSE(assistente.puoImportare());
}

}  // namespace
}  // namespace cu
