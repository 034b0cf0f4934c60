#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"
#include "intake/archivio_letto.h"
#include "intake/soggetti.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class PianoPercipientiTest : public ::testing::Test {
 protected:
  Piano piano(const std::string& byte) { return banco.piano(Elenco::Percipienti, byte); }
  // The record of the first row.
  const schede::SchedaPercipiente& primo(const std::string& byte) {
    piano_ = piano(byte);
    return piano_.percipienti.at(0).dopo;
  }
  std::vector<std::string> detti() const { return Banco::messaggi(piano_); }
  std::string comune(std::int32_t id) const {
    const schede::Luogo* const luogo = piano_.archivio->luoghi.comuneDiId(id);
    return luogo == nullptr ? "" : luogo->nome + " " + luogo->catasto;
  }
  std::string nazione(std::int32_t id) const {
    const schede::Luogo* const luogo = piano_.archivio->luoghi.nazioneDiId(id);
    return luogo == nullptr ? "" : luogo->nome;
  }

  Banco banco{prova::riempito()};
  Piano piano_;
};

TEST(NumeriPercipienti, ContinueTheCodesOfTheCompany) {
  const auto seguenti = [](const std::vector<std::string>& codici) {
    NumeriPercipienti numeri;
    for (const std::string& uno : codici) numeri.osserva(uno);
    std::string primo = numeri.prossimo();
    return primo + " " + numeri.prossimo();
  };
  EXPECT_EQ(seguenti({}), "00001 00002");
  EXPECT_EQ(seguenti({"P001", "P045", "P007"}), "P046 P047");
  EXPECT_EQ(seguenti({"F9", "f12"}), "f13 f14") << "case does not tell codes apart";
  EXPECT_EQ(seguenti({"7", "P003"}), "P004 P005") << "the last one counts";
  EXPECT_EQ(seguenti({"7", "ROSSI"}), "00008 00009") << "a code without a number is no beginning";
  EXPECT_EQ(seguenti({"0000120"}), "0000121 0000122");
  EXPECT_EQ(seguenti({"P999"}), "P1000 P1001");
}

TEST_F(PianoPercipientiTest, APersonIsCompletedFromTheFiscalCode) {
  const auto& p =
      primo("CodiceFiscale;Cognome;Nome;Comune;Provincia\nMRTNTN23M02D969P;Moretti;Antonio;Genova;GE\n");
  EXPECT_TRUE(p.anagrafica.personaFisica);
  EXPECT_EQ(p.anagrafica.sesso, "M");
  EXPECT_EQ(p.anagrafica.nascita.toIso(), "1923-08-02");
  EXPECT_EQ(comune(p.anagrafica.idComuneNascita), "Genova D969");
  EXPECT_EQ(nazione(p.anagrafica.idNazionalita), "Italia");
  EXPECT_EQ(comune(p.anagrafica.idComune), "Genova D969");
  EXPECT_EQ(p.codice, "P3") << "made when absent, after those of the company";
  EXPECT_THAT(piano_.righe[0].derivati,
              Contains(static_cast<std::uint8_t>(ColonnaPercipiente::ComuneNascita)));
  EXPECT_THAT(piano_.righe[0].derivati, Contains(static_cast<std::uint8_t>(ColonnaPercipiente::Codice)));
  EXPECT_THAT(detti(), Not(Contains(HasSubstr("P11"))));
}

TEST_F(PianoPercipientiTest, SomeoneBornAbroadHasACountry) {
  const auto& p = primo("CodiceFiscale;Cognome;Nome\nMRSMSR81D60Z611H;Amaris;Maserati;\n");
  EXPECT_EQ(p.anagrafica.idComuneNascita, 0);
  EXPECT_EQ(nazione(p.anagrafica.idNazionalita), "Perù");
}

TEST_F(PianoPercipientiTest, AMatchIsTheFirstKeyThatHits) {
  EXPECT_EQ(Banco::stati(piano("Codice;CodiceFiscale;Cognome;Nome\nP1;RSSMRA80A01H501U;Rossi;Mario\n")),
            "uguale");
  const Piano suo = piano("Codice;CodiceFiscale;Cognome;Nome\nX;RSSMRA80A01H501U;Rossi;Mario\n");
  EXPECT_EQ(Banco::stati(suo), "diverso");
  EXPECT_THAT(Banco::messaggi(suo), ElementsAre("2: R04: già presente, diverso: codice"));
  EXPECT_EQ(Banco::stati(piano("Codice;CodiceFiscale;Cognome\nP1;00743110157;Rossi\n")), "errore");
}

TEST_F(PianoPercipientiTest, AColumnThatIsNotThereLeavesWhatIsAndADashEmptiesIt) {
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  const auto& p =
      primo("Codice;CodiceFiscale;Cognome;Nome;Cap;Email\nP1;RSSMRA80A01H501U;Rossi;Mario;-;a@b.example\n");
  EXPECT_EQ(p.anagrafica.cap, "");
  EXPECT_EQ(p.anagrafica.email, "a@b.example");
  EXPECT_EQ(p.anagrafica.indirizzo, "Via Garibaldi 7");
  ASSERT_TRUE(banco.applica(piano_)->lotto);
  EXPECT_EQ(banco.uno("SELECT Indirizzo FROM Anagrafica WHERE EMailInternet = 'a@b.example'"),
            "Via Garibaldi 7");
  EXPECT_EQ(banco.uno("SELECT Cap FROM Anagrafica WHERE EMailInternet = 'a@b.example'"), "");
}

TEST_F(PianoPercipientiTest, ANameAloneNeverMatches) {
  ASSERT_THAT(
      banco.importa(Elenco::Percipienti, "Codice;Cognome;Nazione;NonResidente\nE1;Müller GmbH;Germania;S\n"),
      IsEmpty());
  const std::string riga = "Codice;Cognome;Nazione;NonResidente\n;MÜLLER GMBH;Germania;S\n";
  Piano suo = piano(riga);
  EXPECT_EQ(Banco::stati(suo), "da decidere");
  EXPECT_THAT(Banco::messaggi(suo),
              Contains(HasSubstr(
                  "P09: il nome è già in archivio, e nessun codice dice se è lo stesso percipiente: E1 ")));
  ASSERT_EQ(suo.righe[0].candidati.size(), 1U);
  banco.richiesta.decisioni[{0, 0}].idAnagrafica = suo.righe[0].candidati[0].id;
  EXPECT_EQ(Banco::stati(piano(riga)), "diverso");
  banco.richiesta.decisioni[{0, 0}] = {};
  banco.richiesta.decisioni[{0, 0}].nuovoPercipiente = true;
  EXPECT_EQ(Banco::stati(piano(riga)), "nuovo");
  banco.richiesta.decisioni[{0, 0}] = {};
  banco.richiesta.decisioni[{0, 0}].esclusa = true;
  EXPECT_EQ(Banco::stati(piano(riga)), "escluso");
}

TEST_F(PianoPercipientiTest, AHomonymWithAnotherFiscalCodeIsAnotherPerson) {
  EXPECT_EQ(Banco::stati(piano("CodiceFiscale;Cognome;Nome\nRSSMRA85T10A562S;Rossi;Mario\n")), "nuovo");
}

TEST_F(PianoPercipientiTest, AVatNumberOfAnotherFiscalCodeIsNoKey) {
  ASSERT_THAT(
      banco.importa(Elenco::Percipienti,
                    "Codice;CodiceFiscale;PartitaIva;Cognome\nG1;07643520567;12345670017;Gruppo Uno\n"),
      IsEmpty());
  EXPECT_EQ(
      Banco::stati(piano("Codice;CodiceFiscale;PartitaIva;Cognome\nG2;05979361218;12345670017;Gruppo Due\n")),
      "nuovo");
  EXPECT_EQ(Banco::stati(piano("PartitaIva;Cognome\n12345670017;Gruppo Uno\n")), "uguale");
}

TEST_F(PianoPercipientiTest, HomonymousPlacesAreLeftToThePerson) {
  piano_ = piano("CodiceFiscale;Cognome;Comune;Provincia\n07643520567;Ditta Uno;Castro;\n");
  EXPECT_EQ(Banco::stati(piano_), "da decidere");
  EXPECT_THAT(detti(), Contains(HasSubstr("P08 Comune: più luoghi si chiamano")));
  ASSERT_EQ(piano_.righe[0].candidati.size(), 2U);
  banco.richiesta.decisioni[{0, 0}].idComune = piano_.righe[0].candidati[1].id;
  EXPECT_EQ(Banco::stati(piano("CodiceFiscale;Cognome;Comune;Provincia\n07643520567;Ditta Uno;Castro;\n")),
            "nuovo");
  banco.richiesta.decisioni.clear();
  EXPECT_EQ(Banco::stati(piano("CodiceFiscale;Cognome;Comune;Provincia\n07643520567;Ditta Uno;Castro;BG\n")),
            "nuovo");
}

TEST_F(PianoPercipientiTest, AFormerMunicipalityIsFoundByTheDayOfBirth) {
  // Bellagio has one code until 2014 and another one since.
  const auto nato = [&](const char* data) {
    const auto& p = primo(std::string("Codice;Cognome;Nome;PersonaFisica;Sesso;DataNascita;ComuneNascita;"
                                      "ProvinciaNascita;NonResidente;Nazione\nE;Bianchi;Luca;S;M;") +
                          data + ";Bellagio;CO;S;Francia\n");
    return comune(p.anagrafica.idComuneNascita);
  };
  EXPECT_EQ(nato("2016-05-01"), "Bellagio M335");
  EXPECT_EQ(nato("1980-05-01"), "Bellagio A744");
  EXPECT_EQ(piano_.righe[0].candidati.size(), 0U);
}

TEST_F(PianoPercipientiTest, AMunicipalityThatNoLongerExistsIsAWarning) {
  const std::string colonne =
      "Codice;PartitaIva;Cognome;Nome;PersonaFisica;Sesso;DataNascita;ComuneNascita;Comune;Provincia\n"
      "E;00743110158;Bianchi;Luca;S;M;";
  primo(colonne + "1950-05-01;Banco;Roma;RM\n");
  EXPECT_THAT(detti(), Not(Contains(HasSubstr("non esiste più"))));
  primo(colonne + "1990-05-01;Banco;Roma;RM\n");
  EXPECT_THAT(detti(), Contains(HasSubstr("P06 ComuneNascita: ")));
  primo(colonne + "1950-05-01;Roma;Banco;\n");
  EXPECT_THAT(detti(), Contains(HasSubstr("il comune non esiste più")));
}

TEST_F(PianoPercipientiTest, AProvinceOfBirthThatContradictsTheCodeIsAWarning) {
  primo(
      "CodiceFiscale;Cognome;Nome;ComuneNascita;ProvinciaNascita\nMRTNTN23M02D969P;Moretti;Antonio;Genova;"
      "TO\n");
  EXPECT_THAT(detti(), Contains("2: P06 ProvinciaNascita: Genova è in provincia di GE, non di TO"));
  EXPECT_EQ(comune(piano_.percipienti.at(0).dopo.anagrafica.idComuneNascita), "Genova D969");
}

TEST_F(PianoPercipientiTest, ABirthplaceOtherThanTheCodesIsAWarning) {
  primo(
      "CodiceFiscale;Cognome;Nome;ComuneNascita;ProvinciaNascita\nMRTNTN23M02D969P;Moretti;Antonio;Roma;"
      "RM\n");
  EXPECT_THAT(detti(), Contains("2: P06 ComuneNascita: Roma ha il codice H501, il codice fiscale ha D969"));
  primo("CodiceFiscale;Cognome;Nome;ComuneNascita\nMRTNTN23M02D969P;Moretti;Antonio;Fantasia\n");
  EXPECT_THAT(detti(), Contains(HasSubstr("P06 ComuneNascita: ")));
}

TEST_F(PianoPercipientiTest, WhatIsMissingForTheFileIsSaid) {
  piano_ = piano("Codice;Cognome;Nome;NonResidente;CodiceFiscaleEstero\nE;Smith;John;S;UK1\n");
  EXPECT_THAT(detti(), Contains("2: P11: Sesso non presente"));
  EXPECT_THAT(detti(), Contains("2: P11: Codice nazione di residenza non presente"));
  ASSERT_FALSE(piano_.mancanti.empty());
  EXPECT_EQ(piano_.mancanti[0].percipiente, "E");
  EXPECT_EQ(piano_.mancanti[0].controllo, 12);
}

TEST_F(PianoPercipientiTest, ACodeThatNoListHasIsAnError) {
  piano_ = piano(
      "CodiceFiscale;Cognome;CategoriaParticolare;Nazione;EntePrevidenziale;Comune\n"
      "07643520567;Ditta Uno;QQ;Utopia;Cassa Ignota;\n05979361218;Ditta Due;;;ENPAM;Fantasia\n");
  EXPECT_EQ(Banco::stati(piano_), "errore errore");
  EXPECT_THAT(detti(), Contains(HasSubstr("2: V05 CategoriaParticolare")));
  EXPECT_THAT(detti(), Contains(HasSubstr("2: V05 Nazione")));
  EXPECT_THAT(detti(), Contains(HasSubstr("2: V05 EntePrevidenziale")));
  EXPECT_THAT(detti(), Contains(HasSubstr("3: V05 Comune")));
}

TEST_F(PianoPercipientiTest, AFundOfOnesOwnAndATownAbroadAreAddedOnce) {
  ASSERT_THAT(banco.importa(
                  Elenco::Percipienti,
                  "Codice;CodiceFiscale;Cognome;Comune;Nazione;NonResidente;EntePrevidenziale;"
                  "CodiceFiscaleEnte;CodiceEnte;CategoriaEnte\n"
                  "E1;07643520567;Ditta Uno;Springfield;Stati Uniti d'America;S;Fondo Mio;02159000583;99;Z\n"
                  "E2;05979361218;Ditta Due;Springfield;USA;S;Fondo Mio;02159000583;99;Z\n"),
              IsEmpty());
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM Comune WHERE Comune = 'Springfield'"), "1");
  EXPECT_EQ(banco.uno("SELECT IDComune FROM Comune WHERE Comune = 'Springfield'"), "100001");
  EXPECT_EQ(
      banco.uno(
          "SELECT IDCUEntePrevidenziale FROM CUEntePrevidenziale WHERE CUCodiceFiscale = '02159000583'"),
      "100");
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM Percipiente WHERE IDCUEntePrevidenziale = 100"
                      " AND IDCUCategoriaEntePrevidenziale = 100"),
            "2");
}

TEST_F(PianoPercipientiTest, CodesOfOnesOwnAreAddedOnlyWhereTheRowSaysSo) {
  const std::string testa = "Codice;CodiceFiscale;Cognome;EventoEccezionale;CodiciPropri\n";
  piano_ = piano(testa + "E1;07643520567;Ditta Uno;9;N\nE2;05979361218;Ditta Due;9;\n");
  EXPECT_EQ(Banco::stati(piano_), "errore errore");
  EXPECT_THAT(detti(), Contains(HasSubstr("2: V05 EventoEccezionale")));
  ASSERT_THAT(banco.importa(Elenco::Percipienti,
                            testa + "E1;07643520567;Ditta Uno;9;S\nE2;05979361218;Ditta Due;9;S\n"),
              IsEmpty());
  const std::int32_t lotto = storico(*banco, 1).back().id;
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM EventoEccezionale WHERE CodiceEventoEccezionale = '9'"), "1");
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM Percipiente WHERE IDEventoEccezionale = 100"), "2");
  ASSERT_TRUE(banco.annulla(lotto));
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM EventoEccezionale WHERE CodiceEventoEccezionale = '9'"), "0");
}

TEST_F(PianoPercipientiTest, TheSamePayeeTwiceInTheFile) {
  EXPECT_EQ(Banco::stati(
                piano("CodiceFiscale;Cognome;Email\n07643520567;Uno;\n07643520567;Uno;\n07643520567;Due;\n")),
            "nuovo uguale errore");
}

TEST_F(PianoPercipientiTest, TheSameVatNumberOrTheSameRowTwiceIsOnePayee) {
  const Piano iva =
      piano("PartitaIva;Cognome;Cap\n00743110157;Ditta;1\n00743110157;Ditta;1\n00743110157;Ditta;2\n");
  EXPECT_EQ(Banco::stati(iva), "nuovo uguale errore");
  EXPECT_THAT(Banco::messaggi(iva), Contains("3: R03: già presente, uguale, nella riga 2"));
  EXPECT_THAT(Banco::messaggi(iva),
              Contains("4: P10: lo stesso percipiente, con altri dati, è nella riga 2"));
  EXPECT_EQ(Banco::stati(piano("CodiceFiscale;PartitaIva;Cognome\n05979361218;12345670017;Gruppo Uno\n"
                               "04123450233;12345670017;Gruppo Due\n")),
            "nuovo nuovo");
  EXPECT_EQ(Banco::stati(piano("Cognome;NonResidente;Nazione\nBauer;S;Germania\nBauer;S;Germania\n"
                               "Bauer;S;Austria\n")),
            "nuovo uguale nuovo");
}

TEST_F(PianoPercipientiTest, AVatNumberOfSeveralPayeesIsNoKey) {
  ASSERT_THAT(
      banco.importa(Elenco::Percipienti,
                    "Codice;PartitaIva;Cognome\nG1;12345670017;Gruppo Uno\nG2;12345670017;Gruppo Due\n"),
      IsEmpty());
  const Piano suo = piano(
      "Codice;CodiceFiscale;PartitaIva;Cognome\nP2;00743110157;12345670017;Ditta S.n.c.\n"
      "G3;;12345670017;Gruppo Tre\n;;12345670017;Gruppo Due\n");
  EXPECT_EQ(Banco::stati(suo), "diverso nuovo da decidere");
  EXPECT_THAT(Banco::messaggi(suo), Not(Contains(HasSubstr("P10"))));
}

}  // namespace
}  // namespace cu::intake
