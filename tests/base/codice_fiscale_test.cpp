#include "base/codice_fiscale.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace cu {
namespace {

std::string codice(std::string_view cognome, std::string_view nome, bool femmina, int anno, int mese,
                   int giorno, std::string_view luogo) {
  return codiceFiscale({cognome, nome, femmina, *Date::fromYmd(anno, mese, giorno), luogo});
}

TEST(CodiceFiscale, OfWellKnownExamples) {
  EXPECT_EQ(codice("Rossi", "Mario", false, 1980, 1, 1, "H501"), "RSSMRA80A01H501U");
  EXPECT_EQ(codice("Rossi", "Mario", false, 1985, 12, 10, "A562"), "RSSMRA85T10A562S");
  EXPECT_EQ(codice("Moretti", "Matteo", false, 1991, 4, 8, "F205"), "MRTMTT91D08F205J");
}

TEST(CodiceFiscale, OfAWomanAddsFortyToTheDay) {
  EXPECT_EQ(codice("Bianchi", "Anna", true, 1970, 5, 3, "L781").substr(0, 15), "BNCNNA70E43L781");
}

TEST(CodiceFiscale, SkipsTheSecondOfFourConsonantsOfTheName) {
  EXPECT_EQ(codice("Fo", "Gianfranco", false, 1950, 12, 31, "F205").substr(0, 6), "FOXGFR");
}

TEST(CodiceFiscale, FillsShortNamesWithVowelsAndX) {
  EXPECT_EQ(codice("Re", "Al", false, 2001, 3, 9, "Z112").substr(0, 15), "REXLAX01C09Z112");
}

TEST(CodiceFiscale, CountsNeitherBlanksNorApostrophesNorAccents) {
  EXPECT_EQ(codice("D'Amico", "Niccolò", false, 1964, 11, 30, "F839").substr(0, 6), "DMCNCL");
  EXPECT_EQ(codice("De Luca", "Zoë", true, 1964, 1, 1, "F839").substr(0, 6), "DLCZOE");
  EXPECT_EQ(codice("Žagar", "Müller", false, 1964, 1, 1, "Z150").substr(0, 6), "ZGRMLR");
  EXPECT_EQ(codice("Großmann", "Hélène", true, 1964, 1, 1, "Z112").substr(0, 6), "GRSHLN");
}

TEST(CodiceFiscale, HasALetterForEachMonth) {
  const std::string_view months = "ABCDEHLMPRST";
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(codice("Rossi", "Mario", false, 1980, month, 1, "H501")[8],
              months[static_cast<std::size_t>(month - 1)]);
  }
}

TEST(CodiceFiscale, CheckCharacterRefusesWhatIsNotFifteenLettersAndDigits) {
  EXPECT_THROW((void)carattereDiControllo("RSSMRA80A01H50"), std::invalid_argument);
  EXPECT_THROW((void)carattereDiControllo("RSSMRA80A01H50!"), std::invalid_argument);
}

TEST(CifraDiControllo, OfPublicNumbers) {
  EXPECT_EQ(cifraDiControllo("0636339100"), '1');  // Agenzia delle Entrate
  EXPECT_EQ(cifraDiControllo("8007875058"), '7');  // INPS
  EXPECT_EQ(cifraDiControllo("0000000000"), '0');
}

TEST(CifraDiControllo, RefusesWhatIsNotTenDigits) {
  EXPECT_THROW((void)cifraDiControllo("063633910"), std::invalid_argument);
  EXPECT_THROW((void)cifraDiControllo("06363391O0"), std::invalid_argument);
}

TEST(LettereDiCodice, AreCapitalsWithoutMarks) {
  EXPECT_EQ(lettereDiCodice("Sant'Àngelo d’Ìschia 2"), "SANTANGELODISCHIA");
  EXPECT_EQ(lettereDiCodice(""), "");
}

TEST(FormaCodice, TellsPersonsFromNumbers) {
  for (const char* persona : {"MRTNTN23M02D969P", "RCCMNL83S18D969H", "CNTCHR83T41D969D", "FOXDRA26C24H872Y",
                              "MAILCU91A25F839D", "MRSMSR81D60Z611H", "RSSMRA45C12F205C", "RSSMRA45C12F20RX",
                              "RSSMRA45C12F2L5N", "RSSMRA45C12F2LRI", "RSSMRAQRCMNFNLRG"}) {
    EXPECT_EQ(formaCodice(persona), FormaCodice::Persona) << persona;
    EXPECT_TRUE(controlloGiusto(persona)) << persona;
  }
  for (const char* numero : {"00743110157", "04123450233", "07643520567", "12345670017", "05979361218",
                             "02182030391", "80015110580", "97151870587"}) {
    EXPECT_EQ(formaCodice(numero), FormaCodice::Numero) << numero;
    EXPECT_TRUE(controlloGiusto(numero)) << numero;
  }
}

TEST(FormaCodice, HasNoMonthIAndNoDayBeyondTheMonth) {
  EXPECT_EQ(formaCodice("CSTNGL22I10D086I"), FormaCodice::Nessuna);
  EXPECT_EQ(formaCodice("CNTCHR83T32D969H"), FormaCodice::Nessuna);
  EXPECT_EQ(formaCodice("CNTCHR83T00D969H"), FormaCodice::Nessuna);
  EXPECT_EQ(formaCodice("CNTCHR83T72D969H"), FormaCodice::Nessuna);
}

TEST(FormaCodice, OfAnythingElseIsNone) {
  for (const char* testo : {"", "RSSMRA45C12F205", "rssmra45c12f205c", "RSSMRA45C12F205CC", "0074311015",
                            "007431101577", "0074311015A", "RSSMRA45C12F20*C", "1SSMRA45C12F205C"}) {
    EXPECT_EQ(formaCodice(testo), FormaCodice::Nessuna) << testo;
  }
}

TEST(ControlloGiusto, SeesAWrongLastCharacter) {
  EXPECT_FALSE(controlloGiusto("FOXDRA26C24H872A"));
  EXPECT_FALSE(controlloGiusto("00743110158"));
  EXPECT_FALSE(controlloGiusto("01234567890"));
  EXPECT_FALSE(controlloGiusto("00000000000"));
}

TEST(DatiNelCodice, AreSexBirthAndPlace) {
  const auto donna = datiNelCodice("MRSMSR81D60Z611H");
  ASSERT_TRUE(donna);
  EXPECT_TRUE(donna->femmina);
  EXPECT_EQ(donna->anno, 81);
  EXPECT_EQ(donna->mese, 4);
  EXPECT_EQ(donna->giorno, 20);
  EXPECT_EQ(donna->luogo, "Z611");
  const auto omocodo = datiNelCodice("RSSMRAQRCMNFNLRG");
  ASSERT_TRUE(omocodo);
  EXPECT_FALSE(omocodo->femmina);
  EXPECT_EQ(omocodo->anno, 45);
  EXPECT_EQ(omocodo->mese, 3);
  EXPECT_EQ(omocodo->giorno, 12);
  EXPECT_EQ(omocodo->luogo, "F205");
  EXPECT_FALSE(datiNelCodice("00743110157"));
}

}  // namespace
}  // namespace cu
