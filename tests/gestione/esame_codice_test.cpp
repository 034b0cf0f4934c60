// The fiscal code while it is typed.

#include "gestione/esame_codice.h"

#include "base/codice_fiscale.h"
#include "gestione/gestione_prova.h"

namespace cu::test {
namespace {

class EsameCodiceTest : public GestioneProva {
 protected:
  EsameCodice esamina(const std::string& codice, const DatiAccanto& accanto = {}) {
    return esaminaCodice(codice, accanto, luoghi_, *Date::fromYmd(2018, 3, 5));
  }

 private:
  schede::Luoghi luoghi_{database()};
};

TEST_F(EsameCodiceTest, CountsWhatIsMissing) {
  EXPECT_EQ(esamina("").stato, "");
  EXPECT_EQ(esamina("RSSMRA80A01H5").stato, "Codice di una persona: mancano 3 caratteri.");
  EXPECT_EQ(esamina("0074311015").stato, "Codice di una ditta: manca un carattere.");
  EXPECT_EQ(esamina("RSSMRA80A01H501U9").stato,
            "Non ha la forma di un codice fiscale: 16 caratteri per una persona, 11 cifre per una ditta.");
}

TEST_F(EsameCodiceTest, NamesTheLastCharacterThatWouldBeRight) {
  EXPECT_EQ(esamina("RSSMRA80A01H501A").stato, "L'ultimo carattere dovrebbe essere U.");
  EXPECT_FALSE(esamina("RSSMRA80A01H501A").derivati);
  EXPECT_EQ(esamina("00743110158").stato, "L'ultimo carattere dovrebbe essere 7.");
}

TEST_F(EsameCodiceTest, SaysWhoThePersonIs) {
  const EsameCodice esame = esamina("RSSMRA80A01H501U");
  EXPECT_EQ(esame.stato, "Codice di un uomo nato il 01/01/1980 a Roma (RM).");
  ASSERT_TRUE(esame.derivati);
  EXPECT_EQ(esame.derivati->sesso, "M");
  EXPECT_EQ(esame.derivati->nascita, *Date::fromYmd(1980, 1, 1));
  EXPECT_EQ(esame.derivati->idComune, comune("Roma"));
  EXPECT_EQ(esame.contrasti, "");
}

TEST_F(EsameCodiceTest, ComparesItWithWhatIsWritten) {
  const EsameCodice esame = esamina("RSSMRA80A01H501U", {.cognome = "Bianchi",
                                                         .nome = "Mario",
                                                         .sesso = "F",
                                                         .nascita = *Date::fromYmd(1980, 1, 2),
                                                         .idComuneNascita = comune("Verona")});
  EXPECT_EQ(
      esame.contrasti,
      "Cognome e nome darebbero BNCMRA, il codice ha RSSMRA. Il sesso del codice è M. La data di nascita "
      "non è quella del codice. Il luogo di nascita del codice è Roma (RM).");
  EXPECT_EQ(esamina("RSSMRA80A01H501U", {.cognome = "Rossi", .nome = "Mario", .sesso = "M"}).contrasti, "");
}

TEST_F(EsameCodiceTest, KnowsCountries) {
  DatiAnagrafici dati{"Weber", "Anna", true, *Date::fromYmd(1975, 6, 9), "Z112"};
  const EsameCodice esame = esamina(codiceFiscale(dati));
  ASSERT_TRUE(esame.derivati);
  EXPECT_EQ(esame.derivati->sesso, "F");
  EXPECT_EQ(esame.derivati->idComune, 0);
  EXPECT_NE(esame.derivati->idNazione, 0);
  EXPECT_EQ(esame.stato, "Codice di una donna nata il 09/06/1975 all'estero: Germania.");
}

TEST_F(EsameCodiceTest, DropsWhatIsWrittenBetween) {
  EXPECT_EQ(codiceRipulito(" rss mra 80a01-h501.u "), "RSSMRA80A01H501U");
}

TEST_F(EsameCodiceTest, AVatNumberHasElevenDigitsAndACheckDigit) {
  EXPECT_EQ(difettoPartitaIva(""), "");
  EXPECT_EQ(difettoPartitaIva("00743110157"), "");
  EXPECT_EQ(difettoPartitaIva("00743110150"), "L'ultima cifra dovrebbe essere 7.");
  EXPECT_EQ(difettoPartitaIva("0074311"), "Una partita IVA ha 11 cifre.");
}

}  // namespace
}  // namespace cu::test
