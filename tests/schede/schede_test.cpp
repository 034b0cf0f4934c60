#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "archive/archivio_di_prova.h"
#include "archive/archivio_vuoto_prova.h"
#include "schede/aziende.h"
#include "schede/compensi.h"
#include "schede/conteggio.h"
#include "schede/luoghi.h"
#include "schede/percipienti.h"
#include "schede/righe.h"
#include "schede/testo_riga.h"

namespace cu::schede {
namespace {

using test::EmptyArchive;
using ::testing::ElementsAre;

// What was written, in words.
class DiarioDiProva : public Diario {
 public:
  void inserita(const TabellaSuite& tabella, const Riga& riga) override { scrivi("+", tabella, riga); }
  void cambiata(const TabellaSuite& tabella, const Riga& prima, const Riga& dopo) override {
    EXPECT_EQ(testoChiave(tabella, prima), testoChiave(tabella, dopo));
    scrivi("*", tabella, dopo);
  }
  void tolta(const TabellaSuite& tabella, const Riga& riga) override { scrivi("-", tabella, riga); }
  std::vector<std::string> fatti;

 private:
  void scrivi(const char* segno, const TabellaSuite& tabella, const Riga& riga) {
    fatti.push_back(segno + std::string(tabella.nome) + " " + testoChiave(tabella, riga));
  }
};

SchedaAzienda azienda() {
  SchedaAzienda scheda;
  scheda.sede.anagrafica = "Esempio S.r.l.";
  scheda.sede.codiceFiscale = "12345670017";
  scheda.sede.idComune = 12781;
  scheda.rappresentante.anagrafica = "Rossi";
  scheda.rappresentante.nome = "Mario";
  scheda.rappresentante.codiceFiscale = "RSSMRA80A01H501U";
  scheda.idCarica = 1;
  scheda.codiceAttivita = "692011";
  scheda.primoAnno = 2016;
  scheda.ultimoAnno = 2017;
  return scheda;
}

SchedaPercipiente percipiente(std::int32_t idAzienda) {
  SchedaPercipiente scheda;
  scheda.idAzienda = idAzienda;
  scheda.codice = "P1";
  scheda.anagrafica.anagrafica = "D'Alò";
  scheda.anagrafica.codiceFiscale = "00743110157";
  return scheda;
}

SchedaCompenso compenso(std::int32_t idAzienda, std::int32_t idAnagrafica) {
  SchedaCompenso scheda;
  scheda.idAzienda = idAzienda;
  scheda.idAnagrafica = idAnagrafica;
  scheda.idCausale = 1;
  scheda.pagamento = *Date::fromYmd(2017, 3, 20);
  scheda.numero = "1/2017";
  scheda.importi[posto(Importo::Onorario)] = Decimal::fromInteger(1000);
  return scheda;
}

TEST(SchedeAziende, ComeBackAsTheyWereWritten) {
  EmptyArchive archivio;
  Scrittura scrittura(*archivio);
  const SchedaAzienda prima = Aziende::aggiungi(scrittura, azienda());
  SchedaAzienda altra = azienda();
  altra.sede.codiceFiscale = "00743110157";
  const SchedaAzienda seconda = Aziende::aggiungi(scrittura, altra);
  scrittura.chiudi();
  EXPECT_EQ(prima.id, 1);
  EXPECT_EQ(seconda.id, 2);
  EXPECT_NE(prima.sede.id, seconda.sede.id);
  const Aziende aziende(*archivio);
  EXPECT_EQ(aziende.cerca(1), prima);
  EXPECT_EQ(aziende.tutte().size(), 2U);
  EXPECT_EQ(aziende.cerca(3), std::nullopt);
  EXPECT_EQ(test::number(*archivio, "SELECT COUNT(*) FROM CodiceAttivita"), 1) << "one code for both";
}

TEST(SchedeAziende, ChangeOnlyWhatDiffers) {
  EmptyArchive archivio;
  DiarioDiProva diario;
  Scrittura scrittura(*archivio, &diario);
  SchedaAzienda scheda = Aziende::aggiungi(scrittura, azienda());
  scrittura.chiudi();
  diario.fatti.clear();
  EXPECT_FALSE(Aziende::cambia(scrittura, scheda));
  EXPECT_TRUE(diario.fatti.empty());
  scheda.codiceAttivita = "620100";
  scheda.impegno = 2;
  EXPECT_TRUE(Aziende::cambia(scrittura, scheda));
  scrittura.chiudi();
  EXPECT_THAT(diario.fatti,
              ElementsAre("+ConfigurazioneElencoCliFor 1", "+CodiceAttivita 2",
                          "*AttivitaAziendaPerPeriodoIva 1,1", "*AttivitaAziendaPerPeriodoIva 1,2"));
  EXPECT_EQ(Aziende(*archivio).cerca(1), scheda);
}

TEST(SchedeAziende, GetTheYearsThatTheyDoNotHave) {
  EmptyArchive archivio;
  Scrittura scrittura(*archivio);
  Aziende::aggiungi(scrittura, azienda());
  Aziende::assicuraAnni(scrittura, 1, {2017, 2019});
  scrittura.chiudi();
  EXPECT_EQ(test::number(*archivio, "SELECT COUNT(*) FROM PeriodoIva"), 3);
  EXPECT_EQ(Aziende(*archivio).cerca(1)->ultimoAnno, 2019);
}

TEST(SchedeAziende, GoWithAllTheirRowsUnlessSomethingDependsOnThem) {
  EmptyArchive archivio;
  Scrittura scrittura(*archivio);
  const SchedaAzienda scheda = Aziende::aggiungi(scrittura, azienda());
  const SchedaPercipiente suo = Percipienti::aggiungi(scrittura, percipiente(1));
  scrittura.chiudi();
  const Result<> rifiuto = Aziende::togli(scrittura, scheda);
  ASSERT_FALSE(rifiuto);
  EXPECT_EQ(rifiuto.refusals[0].text, "Non si può eliminare l'azienda: ne dipende un percipiente.");
  ASSERT_TRUE(Percipienti::togli(scrittura, suo));
  ASSERT_TRUE(Aziende::togli(scrittura, scheda));
  for (const TabellaSuite* tabella : {&kAzienda, &kAnagrafica, &kConfigurazioneGenerale, &kFiliale,
                                      &kPeriodoIva, &kAttivitaPerPeriodo, &kFilialePredefinita}) {
    EXPECT_EQ(test::number(*archivio, "SELECT COUNT(*) FROM " + std::string(tabella->nome)), 0)
        << tabella->nome;
  }
}

TEST(SchedePercipienti, ComeBackAndAreChangedAndRemoved) {
  EmptyArchive archivio;
  Scrittura scrittura(*archivio);
  Aziende::aggiungi(scrittura, azienda());
  SchedaPercipiente scheda = Percipienti::aggiungi(scrittura, percipiente(1));
  const SchedaCompenso suo = Compensi::aggiungi(scrittura, compenso(1, scheda.anagrafica.id));
  scrittura.chiudi();
  const Percipienti percipienti(*archivio, 1);
  EXPECT_EQ(percipienti.cerca(scheda.anagrafica.id), scheda);
  scheda.schumacker = true;
  scheda.anagrafica.email = "a@b.example";
  EXPECT_TRUE(Percipienti::cambia(scrittura, scheda));
  EXPECT_FALSE(Percipienti::cambia(scrittura, scheda));
  EXPECT_THAT(percipienti.tutti(), ElementsAre(scheda));
  EXPECT_THAT(percipienti.conCodiceFiscale(scheda.anagrafica.codiceFiscale), ElementsAre(scheda));
  EXPECT_THAT(percipienti.conCodiceFiscale("x'"), ElementsAre());
  EXPECT_THAT(Percipienti(*archivio, 2).conCodiceFiscale(scheda.anagrafica.codiceFiscale), ElementsAre());
  EXPECT_FALSE(Percipienti::togli(scrittura, scheda)) << "it has a payment";
  Compensi::togli(scrittura, suo.id);
  EXPECT_TRUE(Percipienti::togli(scrittura, scheda));
  EXPECT_TRUE(percipienti.tutti().empty());
}

TEST(SchedeCompensi, AreReadByYearsAndChanged) {
  EmptyArchive archivio;
  Scrittura scrittura(*archivio);
  SchedaCompenso primo = Compensi::aggiungi(scrittura, compenso(1, 5));
  SchedaCompenso altro = compenso(1, 5);
  altro.pagamento = *Date::fromYmd(2016, 1, 1);
  altro = Compensi::aggiungi(scrittura, altro);
  scrittura.chiudi();
  const Compensi compensi(*archivio, 1);
  EXPECT_THAT(compensi.degliAnni({2017}), ElementsAre(primo));
  EXPECT_THAT(compensi.degliAnni({2016, 2017}), ElementsAre(primo, altro));
  EXPECT_THAT(compensi.degliAnni({}), ElementsAre(primo, altro));
  EXPECT_THAT(compensi.anni(), ElementsAre(2016, 2017));
  EXPECT_THAT(Compensi(*archivio, 2).anni(), ElementsAre());
  primo.importi[posto(Importo::RitenutaAcconto)] = Decimal::fromInteger(200);
  EXPECT_TRUE(Compensi::cambia(scrittura, primo));
  EXPECT_EQ(compensi.cerca(primo.id), primo);
  Compensi::togli(scrittura, primo.id);
  EXPECT_THROW(Compensi::cambia(scrittura, primo), Error);
}

TEST(Schede, AreCheckedForWhatTheyNeed) {
  EXPECT_TRUE(Aziende::controlla(azienda()).empty());
  EXPECT_EQ(Aziende::controlla({}).size(), 7U);
  EXPECT_TRUE(Percipienti::controlla(percipiente(1)).empty());
  SchedaPercipiente persona = percipiente(1);
  persona.anagrafica.personaFisica = true;
  EXPECT_EQ(Percipienti::controlla(persona).size(), 4U);
  EXPECT_TRUE(Compensi::controlla(compenso(1, 2)).empty());
  EXPECT_EQ(Compensi::controlla({}).size(), 4U);
}

TEST(Scrittura, LeavesWhatMeansTheSame) {
  EmptyArchive archivio;
  archivio->Execute(
      "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, IDComune)"
      " VALUES (5, 'Rossi', '', -1, 0)");
  Scrittura scrittura(*archivio);
  SchedaAnagrafica scheda;
  scheda.id = 5;
  scheda.anagrafica = "Rossi";
  scheda.personaFisica = true;
  EXPECT_FALSE(scrittura.riscrivi(kAnagrafica, rigaAnagrafica(scheda)));
  scheda.cap = "37121";
  EXPECT_TRUE(scrittura.riscrivi(kAnagrafica, rigaAnagrafica(scheda)));
  const Riga riga = leggiRighe(*archivio, kAnagrafica, " WHERE IDAnagrafica = 5").at(0);
  EXPECT_EQ(testoRiga(riga), "5\t'Rossi\t'\t-1\t\t\t\t\t\t'37121\t\t\t\t\t\t0\t");
}

TEST(TestoRiga, KeepsEveryValueApart) {
  const Riga riga = {Value::ofInteger(7), Value::ofText("a\tb\\c\n'è"), Value(), Value::ofText("")};
  EXPECT_EQ(testoRiga(riga), "7\t'a\\09b\\5Cc\\0A'è\t\t'");
  EXPECT_EQ(rigaDaTesto(kComune, testoRiga({riga[0], riga[1], Value(), riga[3]})),
            (Riga{riga[0], riga[1], Value(), riga[3]}));
  const Riga corta = rigaDaTesto(kCompenso, "1\t1\t5\t1\t2017-03-20\t'x\t\t12.5");
  EXPECT_EQ(corta[4], Value::ofDate(*Date::fromYmd(2017, 3, 20)));
  EXPECT_EQ(corta[7], Value::ofDecimal(*Decimal::parse("12.5")));
  EXPECT_TRUE(corta[14].isNull()) << "a column that came later";
}

class LuoghiTest : public ::testing::Test {
 protected:
  std::string comune(std::string_view nome, std::string_view provincia = {},
                     std::optional<Date> giorno = {}) {
    std::string testo;
    for (const Luogo* luogo : luoghi_.comune(nome, provincia, giorno).trovati) testo += luogo->catasto + " ";
    return testo;
  }
  std::string nazione(std::string_view nome) {
    const Luogo* const una = luoghi_.nazione(nome).uno();
    return una == nullptr ? "" : una->nome;
  }
  EmptyArchive archivio_;
  Luoghi luoghi_{*archivio_};
};

TEST_F(LuoghiTest, MunicipalitiesAreFoundWithoutCaseAccentsAndPunctuation) {
  EXPECT_EQ(comune("forli'"), "D704 ");
  EXPECT_EQ(comune("FORLÌ"), "D704 ");
  EXPECT_EQ(comune("reggio nell emilia"), "H223 ");
  EXPECT_EQ(comune("Bolzano/Bozen"), "A952 ");
  EXPECT_EQ(comune("l781"), "L781 ");
  EXPECT_EQ(comune("Fantasia"), "");
}

TEST_F(LuoghiTest, HomonymsAreAllReportedAndTheProvinceParts) {
  EXPECT_EQ(luoghi_.comune("Castro", "", {}).trovati.size(), 2U);
  EXPECT_EQ(luoghi_.comune("Castro", "bg", {}).trovati.size(), 1U);
}

TEST_F(LuoghiTest, AFormerNameCountsForWhoWasThereBefore) {
  EXPECT_EQ(comune("Abetone"), "A012 ") << "the only one of the name";
  EXPECT_EQ(luoghi_.comune("Bellagio", "CO", Date::fromYmd(2016, 1, 1)).trovati.size(), 1U);
  EXPECT_EQ(luoghi_.comune("Bellagio", "CO", std::nullopt).uno()->soppresso, 0);
}

TEST_F(LuoghiTest, CountriesAreFoundByNameCodeAndOtherNames) {
  EXPECT_EQ(nazione("Germania"), "Germania");
  EXPECT_EQ(nazione("094"), "Germania");
  EXPECT_EQ(nazione("Z112"), "Germania");
  EXPECT_EQ(nazione("U.S.A."), "Stati Uniti d'America");
  EXPECT_EQ(nazione("Gran Bretagna"), "Regno Unito");
  EXPECT_EQ(nazione("Utopia"), "");
}

TEST(SchedeArchivio, OneThatThisProgramHasCreatedIsMarked) {
  EmptyArchive archivio;
  EXPECT_TRUE(archivioProprio(*archivio));
  const auto altro = SqliteConnection::create(":memory:");
  EXPECT_FALSE(archivioProprio(*altro));
}

TEST(NuoviId, AreNoneThatTheHistoryOfImportsKnows) {
  EmptyArchive archivio;
  archivio->Execute(
      "INSERT INTO CuImportazioneRiga (IDImportazione, Numero, Tabella, Chiave, Operazione)"
      " VALUES (1, 1, 'Anagrafica', '9', 'inserita'), (1, 2, 'Anagrafica', '12', 'inserita'),"
      " (1, 3, 'Compenso', '40', 'inserita'), (1, 4, 'ContoIndividuale', '99,1,2017', 'inserita')");
  EXPECT_EQ(Scrittura(*archivio).nuovoId(kAnagrafica), 13);
  EXPECT_EQ(Scrittura(*archivio).nuovoId(kCompenso), 41);
  EXPECT_EQ(Scrittura(*archivio).nuovoId(kAzienda), 1);
  archivio->Execute("DROP TABLE CuImportazioneRiga");
  EXPECT_EQ(Scrittura(*archivio).nuovoId(kAnagrafica), 1) << "a database without a history";
}

}  // namespace
}  // namespace cu::schede
