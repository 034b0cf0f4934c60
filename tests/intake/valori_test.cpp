#include <gtest/gtest.h>

#include "intake/letta.h"

namespace cu::intake {
namespace {

using namespace std::string_literals;
using prova::detti;
using prova::letta;
using prova::righe;
using Righe = std::vector<std::string>;

// One payee with a value in one more column.
Lettura conValore(const std::string& colonna, const std::string& valore) {
  return letta(Elenco::Percipienti,
               "Codice;PartitaIva;Cognome;" + colonna + "\nP1;00743110157;Verdi;" + valore + "\n");
}

struct CasoValore {
  const char* nome;
  std::string colonna;
  std::string valore;
  std::string letto;      // the field's text; "none" for no field, "-" for one that is emptied
  std::string messaggio;  // "" for none
};

class ValoreScritto : public testing::TestWithParam<CasoValore> {};

TEST_P(ValoreScritto, IsReadOrReported) {
  const Lettura lettura = conValore(GetParam().colonna, GetParam().valore);
  const auto rango = cercaColonna(Elenco::Percipienti, GetParam().colonna);
  ASSERT_TRUE(rango);
  const Campo* const campo = lettura.righe[0].campo(*rango);
  std::string letto = "none";
  if (campo != nullptr) letto = campo->stato == StatoCampo::Svuotato ? "-" : campo->valore.toText();
  EXPECT_EQ(letto, GetParam().letto);
  const Righe messaggi = detti(lettura);
  std::string atteso;
  if (!GetParam().messaggio.empty()) {
    atteso = "f.csv, riga 2, colonna \"" + GetParam().colonna + "\": " + GetParam().messaggio;
  }
  EXPECT_EQ(messaggi.empty() ? "" : messaggi.front(), atteso);
  EXPECT_LE(messaggi.size(), 1U);
}

const std::string kLungo(255, 'x');

const CasoValore kCasiValore[] = {
    {"text", "Indirizzo", "Via Roma 1", "Via Roma 1", ""},
    {"blanksAround", "Indirizzo", "  Via Roma 1 \t", "Via Roma 1", ""},
    {"blanksWithin", "Indirizzo", "Via   Roma\t1", "Via Roma 1", ""},
    {"noBreakSpace", "Indirizzo", "\xc2\xa0Via\xc2\xa0Roma\xc2\xa0", "Via Roma", ""},
    {"lineEndWithin", "Indirizzo", "\"Via Roma\r\n1\"", "Via Roma 1", ""},
    {"empty", "Indirizzo", "", "none", ""},
    {"blank", "Indirizzo", "  ", "none", ""},
    {"hyphen", "Indirizzo", " - ", "-", ""},
    {"twoHyphens", "Indirizzo", "--", "--", ""},
    {"longest", "Indirizzo", kLungo, kLungo, ""},
    {"longestOfAccents", "Nome", "è" + kLungo.substr(1), "è" + kLungo.substr(1), ""},
    {"tooLong", "Indirizzo", kLungo + "y", "none", "il testo ha 256 caratteri, al più 255 (V06)."},
    {"outsideWindows1252", "Indirizzo", "Šibenik, Đorđa 5", "Šibenik, Đorđa 5",
     "il carattere Đ nel file telematico diventa un punto interrogativo (V07)."},
    {"withinWindows1252", "Indirizzo", "Perché – „così“ €?", "Perché – „così“ €?", ""},
    {"controlCharacter", "Indirizzo", "Via\x07Roma", "none", "il testo ha caratteri di controllo (V10)."},
    {"controlCharacterOfTwoBytes", "Indirizzo", "Via\xc2\x85Roma", "none",
     "il testo ha caratteri di controllo (V10)."},
    {"digitsLost", "Telefono", "1,23457E+10", "none",
     "1,23457E+10 è un numero di cui il foglio elettronico ha perso le cifre (V09)."},
    {"digitsLostWithPoint", "Telefono", "1.23457E+10", "none",
     "1.23457E+10 è un numero di cui il foglio elettronico ha perso le cifre (V09)."},
    {"digitsNotLost", "Indirizzo", "Scala 1E+1", "Scala 1E+1", ""},
    {"spreadsheetError", "Indirizzo", "#N/A", "none", "la cella mostra l'errore #N/A (V08)."},
    {"spreadsheetErrorItalian", "Indirizzo", "#RIF!", "none", "la cella mostra l'errore #RIF! (V08)."},
    {"cellTooNarrow", "Indirizzo", "########", "none", "la cella mostra l'errore ######## (V08)."},
    {"noError", "Indirizzo", "#1", "#1", ""},
    {"upperCase", "Provincia", "vr", "VR", ""},
    {"cap", "Cap", "37131", "37131", ""},
    {"capWithoutZeros", "Cap", "184", "00184", "184 ha perso gli zeri iniziali: letto come 00184 (V09)."},
    {"capOfLetters", "Cap", "EC2N", "EC2N", ""},
    {"sex", "Sesso", "f", "F", ""},
    {"sexAsWord", "Sesso", "Maschio", "M", ""},
    {"noSex", "Sesso", "X", "none", "X non è un sesso: serve M o F (V05)."},
    {"flagS", "Schumacker", "S", "1", ""},
    {"flagSi", "Schumacker", "sì", "1", ""},
    {"flagOne", "Schumacker", "1", "1", ""},
    {"flagX", "Schumacker", "x", "1", ""},
    {"flagTrue", "Schumacker", "TRUE", "1", ""},
    {"flagVero", "Schumacker", "Vero", "1", ""},
    {"flagN", "Schumacker", "N", "0", ""},
    {"flagNo", "Schumacker", "no", "0", ""},
    {"flagZero", "Schumacker", "0", "0", ""},
    {"flagFalse", "Schumacker", "false", "0", ""},
    {"flagHyphen", "Schumacker", "-", "-", ""},
    {"noFlag", "Schumacker", "forse", "none", "forse non è né sì né no: serve S o N (V05)."},
};

INSTANTIATE_TEST_SUITE_P(Valori, ValoreScritto, testing::ValuesIn(kCasiValore),
                         [](const auto& caso) { return caso.param.nome; });

TEST(Croci, MakeAnEmptyCellANo) {
  const Lettura lettura = letta(Elenco::Percipienti,
                                "Codice;PartitaIva;Cognome;Schumacker;NonResidente\n"
                                "P1;00743110157;A;X;S\nP2;00743110157;B;;\n");
  EXPECT_TRUE(lettura.righe[0].valore(ColonnaPercipiente::Schumacker).flag());
  EXPECT_EQ(lettura.righe[1].valore(ColonnaPercipiente::Schumacker).toText(), "0");
  EXPECT_FALSE(lettura.righe[1].ha(ColonnaPercipiente::NonResidente));
}

TEST(CampoSvuotato, DiffersFromOneThatIsAbsent) {
  const Lettura lettura =
      letta(Elenco::Percipienti, "Codice;PartitaIva;Cognome;Email;Fax\nP1;00743110157;A;-;\n");
  EXPECT_TRUE(lettura.righe[0].svuota(ColonnaPercipiente::Email));
  EXPECT_FALSE(lettura.righe[0].ha(ColonnaPercipiente::Email));
  EXPECT_FALSE(lettura.righe[0].svuota(ColonnaPercipiente::Fax));
  EXPECT_EQ(lettura.righe[0].campo(ColonnaPercipiente::Fax), nullptr);
  EXPECT_EQ(lettura.righe[0].campo(ColonnaPercipiente::Telefono), nullptr);
}

// A payment with amounts in further columns.
Lettura conImporti(const std::string& colonne, const std::string& valori) {
  return letta(Elenco::Compensi, "CodicePercipiente;Causale;DataPagamento;Onorario;" + colonne +
                                     "\nP1;A;2017-03-05;100;" + valori + "\n");
}

TEST(Importi, AreReportedByKindOfFault) {
  const auto primo = [](const std::string& valore) {
    const Righe messaggi = detti(conImporti("Ritenuta Acconto", valore));
    return messaggi.empty() ? std::string() : messaggi.front();
  };
  const std::string dove = "f.csv, riga 2, colonna \"Ritenuta Acconto\": ";
  EXPECT_EQ(primo("199,9O"), dove + "199,9O non è un importo (V03).");
  EXPECT_EQ(primo("1.234,56"), dove +
                                   "1.234,56 non è un importo: i segni delle migliaia si indicano nella "
                                   "mappatura (migliaia) (V03).");
  EXPECT_EQ(primo("100000000000"), dove + "100000000000 supera l'importo massimo, 99999999999,99 (V03).");
  EXPECT_EQ(primo("$ 12"), dove + "$ 12 non è in euro (V05).");
  EXPECT_EQ(primo("0,125"), dove + "0,125 ha più di due decimali: arrotondato a 0,13 (V04).");
  EXPECT_EQ(primo("1,23457E+10"), dove + "1,23457E+10 non è un importo (V03).");
  EXPECT_EQ(primo("#DIV/0!"), dove + "la cella mostra l'errore #DIV/0! (V08).");
  EXPECT_EQ(primo("€ 12,00"), "");
}

TEST(Percentuali, AreFromZeroToAHundred) {
  const auto letta = [](const std::string& valore) {
    const Lettura lettura = conImporti("AliquotaRitenuta", valore);
    const Righe messaggi = detti(lettura);
    return messaggi.empty() ? lettura.righe[0].valore(ColonnaCompenso::AliquotaRitenuta).toText()
                            : messaggi.front();
  };
  EXPECT_EQ(letta("20"), "20");
  EXPECT_EQ(letta("20 %"), "20");
  EXPECT_EQ(letta("11,505%"), "11.505");
  EXPECT_EQ(letta("0"), "0");
  EXPECT_EQ(letta("101"),
            "f.csv, riga 2, colonna \"AliquotaRitenuta\": 101 non è una percentuale da 0 a 100 (V05).");
  EXPECT_EQ(letta("-1"),
            "f.csv, riga 2, colonna \"AliquotaRitenuta\": -1 non è una percentuale da 0 a 100 (V05).");
  EXPECT_EQ(letta("venti"), "f.csv, riga 2, colonna \"AliquotaRitenuta\": venti non è un importo (V03).");
}

TEST(NotaDiCredito, MakesAmountsNegative) {
  const Lettura positiva = conImporti("RitenutaAcconto;Tipo", "20;Nota di credito");
  EXPECT_EQ(righe(positiva)[0],
            "CodicePercipiente=P1|Causale=A|DataPagamento=05/03/2017|Onorario=-100|RitenutaAcconto=-20|"
            "Tipo=Nota di credito");
  EXPECT_EQ(detti(positiva),
            Righe{"f.csv, riga 2, colonna \"Tipo\": nota di credito: gli importi sono presi in "
                  "negativo e riducono i compensi del percipiente (R06)."});
  const Lettura negativa = letta(
      Elenco::Compensi, "CodicePercipiente;Causale;DataPagamento;Onorario;Tipo\nP1;A;2017-03-05;-100;N.C.\n");
  EXPECT_EQ(negativa.righe[0].valore(ColonnaCompenso::Onorario).toText(), "-100");
  EXPECT_EQ(detti(negativa), Righe{"f.csv, riga 2, colonna \"Tipo\": nota di credito: riduce i compensi del "
                                   "percipiente (R06)."});
  EXPECT_EQ(detti(conImporti("Tipo", "Fattura")), Righe{});
  EXPECT_EQ(detti(conImporti("Tipo", "TD99")),
            Righe{"f.csv, riga 2, colonna \"Tipo\": TD99 non è ammesso: fattura, "
                  "parcella, ricevuta o nota di credito (V05)."});
}

TEST(Impegno, IsOneOrTwo) {
  const auto messaggi = [](const std::string& valore) {
    return detti(letta(Elenco::Aziende,
                       "CodiceFiscale;Cognome;Nome;Comune;Provincia;Impegno\nRSSMRA80A01H501U;R;M;Roma;RM;" +
                           valore + "\n"));
  };
  EXPECT_EQ(messaggi("1"), Righe{});
  EXPECT_EQ(messaggi("2"), Righe{});
  EXPECT_EQ(messaggi("3"), Righe{"f.csv, riga 2, colonna \"Impegno\": 3 non è ammesso: serve 1 o 2 (V05)."});
}

}  // namespace
}  // namespace cu::intake
