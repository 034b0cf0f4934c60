#include <gtest/gtest.h>

#include "intake/letta.h"

namespace cu::intake {
namespace {

using prova::detti;
using prova::letta;
using prova::righe;
using Righe = std::vector<std::string>;

struct CasoPersona {
  const char* nome;
  const char* colonne;
  const char* valori;
  const char* campi;
  Righe messaggi{};
};

class Percipiente : public testing::TestWithParam<CasoPersona> {};

TEST_P(Percipiente, IsCheckedAndCompletedByItsFiscalCode) {
  const CasoPersona& caso = GetParam();
  const Lettura lettura = letta(Elenco::Percipienti, std::string(caso.colonne) + "\n" + caso.valori + "\n");
  EXPECT_EQ(righe(lettura)[0], caso.campi);
  Righe attesi;
  for (const std::string& messaggio : caso.messaggi) attesi.push_back("f.csv, riga 2, colonna " + messaggio);
  EXPECT_EQ(detti(lettura), attesi);
}

const CasoPersona kCasiPersona[] = {
    {"person", "CodiceFiscale;Cognome;Nome", "RSSMRA80A01H501U;Rossi;Mario",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "1980"},
    {"woman", "CodiceFiscale;Cognome;Nome", "MRSMSR81D60Z611H;Morisi;Mesoria",
     "CodiceFiscale=MRSMSR81D60Z611H|Cognome=Morisi|Nome=Mesoria|PersonaFisica*=1|Sesso*=F|DataNascita*=20/"
     "04/1981"},
    {"homonym", "CodiceFiscale;Cognome;Nome", "RSSMRAQRCMNFNLRG;Rossi;Mario",
     "CodiceFiscale=RSSMRAQRCMNFNLRG|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=12/03/"
     "1945"},
    {"bornInThisCentury", "CodiceFiscale;Cognome;Nome", "RSSMRA03A01H501F;Rossi;Mario",
     "CodiceFiscale=RSSMRA03A01H501F|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "2003"},
    {"tooYoungForThisCentury", "CodiceFiscale;Cognome;Nome", "RSSMRA04H01H501W;Rossi;Mario",
     "CodiceFiscale=RSSMRA04H01H501W|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/06/"
     "1904"},
    {"noSuchDayInEitherCentury",
     "CodiceFiscale;Cognome;Nome",
     "RSSMRA81B30H501Y;Rossi;Mario",
     "CodiceFiscale=RSSMRA81B30H501Y|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M",
     {"\"DataNascita\": il codice fiscale non dà una data di nascita che esista (P05)."}},
    {"lowerCaseWithBlanks", "CodiceFiscale;Cognome;Nome", "rss mra 80a01 h501u;Rossi;Mario",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "1980"},
    {"givenAndEqual", "CodiceFiscale;Cognome;Nome;PersonaFisica;Sesso;DataNascita",
     "RSSMRA80A01H501U;Rossi;Mario;S;M;1980-01-01",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|Nome=Mario|PersonaFisica=1|Sesso=M|DataNascita=01/01/"
     "1980"},
    {"givenAndDifferent",
     "CodiceFiscale;Cognome;Nome;Sesso;DataNascita",
     "RSSMRA80A01H501U;Rossini;Mario;F;1980-01-02",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossini|Nome=Mario|PersonaFisica*=1|Sesso=F|DataNascita=02/01/"
     "1980",
     {"\"Sesso\": il sesso del codice fiscale è M (P04).",
      "\"DataNascita\": 02/01/1980 non è la data di nascita del codice fiscale (P05)."}},
    {"otherName",
     "CodiceFiscale;Cognome;Nome",
     "RSSMRA80A01H501U;Bianchi;Mario",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Bianchi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "1980",
     {"\"Cognome\": Bianchi Mario dà le lettere BNCMRA, il codice fiscale ha RSSMRA (P03)."}},
    {"accentsAndApostrophes", "CodiceFiscale;Cognome;Nome", "DNGNCL80A01H501A;D'Angiò;Niccolò",
     "CodiceFiscale=DNGNCL80A01H501A|Cognome=D'Angiò|Nome=Niccolò|PersonaFisica*=1|Sesso*=M|DataNascita*=01/"
     "01/1980"},
    {"wrongControlLetter",
     "CodiceFiscale;Cognome;Nome",
     "RSSMRA80A01H501X;Rossi;Mario",
     "CodiceFiscale=RSSMRA80A01H501X|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "1980",
     {"\"CodiceFiscale\": l'ultimo carattere di RSSMRA80A01H501X dovrebbe essere U (P02)."}},
    {"shapeOfNoCode",
     "CodiceFiscale;Cognome",
     "RSSMRA80A01H501;Rossi",
     "CodiceFiscale=RSSMRA80A01H501|Cognome=Rossi|PersonaFisica*=0",
     {"\"CodiceFiscale\": RSSMRA80A01H501 non ha la forma di un codice fiscale (P01)."}},
    {"monthLetter",
     "CodiceFiscale;Cognome",
     "CSTNGL22I10D086I;Costa",
     "CodiceFiscale=CSTNGL22I10D086I|Cognome=Costa|PersonaFisica*=0",
     {"\"CodiceFiscale\": CSTNGL22I10D086I non ha la forma di un codice fiscale (P01)."}},
    {"dayOfTheCode",
     "CodiceFiscale;Cognome",
     "CNTCHR83T32D969H;Conti",
     "CodiceFiscale=CNTCHR83T32D969H|Cognome=Conti|PersonaFisica*=0",
     {"\"CodiceFiscale\": CNTCHR83T32D969H non ha la forma di un codice fiscale (P01)."}},
    {"firm", "CodiceFiscale;PartitaIva;Cognome", "00743110157;IT00743110157;Ditta S.p.A.",
     "CodiceFiscale=00743110157|PartitaIva=00743110157|Cognome=Ditta S.p.A.|PersonaFisica*=0"},
    {"firmWrongDigit",
     "CodiceFiscale;PartitaIva;Cognome",
     "00743110158;00743110158;Ditta",
     "CodiceFiscale=00743110158|PartitaIva=00743110158|Cognome=Ditta|PersonaFisica*=0",
     {"\"CodiceFiscale\": l'ultimo carattere di 00743110158 dovrebbe essere 7 (P02).",
      "\"PartitaIva\": l'ultima cifra di 00743110158 dovrebbe essere 7 (P07)."}},
    {"onlyZeros",
     "CodiceFiscale;PartitaIva;Cognome",
     "00000000000;00000000000;Ditta",
     "CodiceFiscale=00000000000|PartitaIva=00000000000|Cognome=Ditta|PersonaFisica*=0",
     {"\"CodiceFiscale\": 00000000000 non ha la forma di un codice fiscale (P01).",
      "\"PartitaIva\": 00000000000 non è una partita IVA, che ha 11 cifre (P07)."}},
    {"zerosLost",
     "PartitaIva;Cognome",
     "743110157;Ditta",
     "PartitaIva=00743110157|Cognome=Ditta|PersonaFisica*=0",
     {"\"PartitaIva\": 743110157 ha perso gli zeri iniziali: letta come 00743110157 (V09)."}},
    {"zerosOfTheFiscalCodeLost",
     "CodiceFiscale;Cognome",
     "743110157;Ditta",
     "CodiceFiscale=00743110157|Cognome=Ditta|PersonaFisica*=0",
     {"\"CodiceFiscale\": 743110157 ha perso gli zeri iniziali: letto come 00743110157 (V09)."}},
    {"tooShortForZeros",
     "PartitaIva;Cognome",
     "743110;Ditta",
     "PartitaIva=743110|Cognome=Ditta|PersonaFisica*=0",
     {"\"PartitaIva\": 743110 non è una partita IVA, che ha 11 cifre (P07)."}},
    {"digitsLost",
     "PartitaIva;Cognome",
     "1,23457E+10;Ditta",
     "Cognome=Ditta|PersonaFisica*=0",
     {"\"PartitaIva\": 1,23457E+10 è un numero di cui il foglio elettronico ha perso le cifre (V09)."}},
    {"foreignVatNumber", "PartitaIva;Cognome;Nazione;Cap", "DE812345678;Bauer GmbH;Germania;8080",
     "PartitaIva=DE812345678|Cognome=Bauer GmbH|PersonaFisica*=0|Cap=8080|Nazione=Germania"},
    {"personOfAFirmsFlag",
     "CodiceFiscale;Cognome;PersonaFisica",
     "RSSMRA80A01H501U;Rossi;N",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|PersonaFisica=0",
     {"\"PersonaFisica\": il codice fiscale è di una persona fisica (P03)."}},
    {"foreignPerson", "Cognome;Nome;NonResidente", "Bauer;Hans;S",
     "Cognome=Bauer|Nome=Hans|PersonaFisica*=1|NonResidente=1"},
    {"nameInOneColumn", "CodiceFiscale;Nominativo", "RSSMRA80A01H501U;Rossi Mario",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome*=Rossi|Nome*=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "1980"},
    {"doubleSurnameInOneColumn", "CodiceFiscale;Nominativo", "DLCMRA80A01H501F;De Luca Mario",
     "CodiceFiscale=DLCMRA80A01H501F|Cognome*=De "
     "Luca|Nome*=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/1980"},
    {"nameInOneColumnThatDoesNotFit", "CodiceFiscale;Nominativo", "RSSMRA80A01H501U;Mario Rossi",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Mario Rossi|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/1980"},
    {"representative",
     "CodiceFiscale;Cognome;Nome;CodiceFiscaleRappresentante",
     "RSSMRA80A01H501U;Rossi;Mario;ABC",
     "CodiceFiscale=RSSMRA80A01H501U|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/"
     "1980|"
     "CodiceFiscaleRappresentante=ABC",
     {"\"CodiceFiscaleRappresentante\": ABC non ha la forma di un codice fiscale (P01)."}},
};

INSTANTIATE_TEST_SUITE_P(Persone, Percipiente, testing::ValuesIn(kCasiPersona),
                         [](const auto& caso) { return caso.param.nome; });

TEST(AziendaLetta, HasItsCodesChecked) {
  const Lettura lettura =
      letta(Elenco::Aziende,
            "CodiceFiscale;PartitaIva;Denominazione;Comune;Provincia;Cap;RappresentanteCodiceFiscale;"
            "RappresentanteCognome;RappresentanteNome;RappresentanteCarica;IntermediarioCodiceFiscale\n"
            "IT 04123450233;4123450233;Bottega;Verona;vr;37121;RSSMRA80A01H501X;Rossi;Mario;1;X\n");
  EXPECT_EQ(lettura.righe[0].valore(ColonnaAzienda::CodiceFiscale).text(), "04123450233");
  EXPECT_EQ(lettura.righe[0].valore(ColonnaAzienda::Provincia).text(), "VR");
  EXPECT_EQ(
      detti(lettura),
      (Righe{"f.csv, riga 2, colonna \"RappresentanteCodiceFiscale\": l'ultimo carattere di RSSMRA80A01H501X "
             "dovrebbe essere U (P02).",
             "f.csv, riga 2, colonna \"IntermediarioCodiceFiscale\": X non ha la forma di un codice fiscale "
             "(P01).",
             "f.csv, riga 2, colonna \"PartitaIva\": 4123450233 ha perso gli zeri iniziali: letta come "
             "04123450233 (V09)."}));
}

TEST(ChiaviDelCompenso, AreReducedToTheirFormAndNotChecked) {
  const Lettura lettura =
      letta(Elenco::Compensi,
            "CodiceFiscale;PartitaIva;Causale;DataPagamento;Onorario\n"
            "rssmra80a01h501x;it 00743110157;a;2017-03-05;1\n;743110157;a;2017-03-05;1\n");
  EXPECT_EQ(
      righe(lettura)[0],
      "CodiceFiscale=RSSMRA80A01H501X|PartitaIva=00743110157|Causale=A|DataPagamento=05/03/2017|Onorario=1");
  EXPECT_EQ(detti(lettura),
            Righe{"f.csv, riga 3, colonna \"PartitaIva\": 743110157 ha perso gli zeri iniziali: "
                  "letta come 00743110157 (V09)."});
}

TEST(Avvisi, OfZerosThatWereLostAreNoErrors) {
  const Lettura lettura = letta(Elenco::Percipienti, "PartitaIva;Cognome\n743110157;Ditta\n");
  EXPECT_EQ(lettura.righe[0].messaggi[0].gravita, Gravita::Avviso);
  EXPECT_FALSE(lettura.conErrori());
}

}  // namespace
}  // namespace cu::intake
