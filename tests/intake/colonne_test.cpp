#include <gtest/gtest.h>

#include <set>

#include "intake/letta.h"

namespace cu::intake {
namespace {

using prova::detti;
using prova::letta;
using prova::righe;
using Righe = std::vector<std::string>;

constexpr Elenco kElenchi[] = {Elenco::Aziende, Elenco::Percipienti, Elenco::Compensi};

TEST(Colonne, HaveNamesThatNoOtherColumnOfTheTableHas) {
  for (const Elenco elenco : kElenchi) {
    std::set<std::string> visti;
    for (const Colonna& colonna : colonne(elenco)) {
      EXPECT_TRUE(visti.insert(tabelle::normalizza(colonna.nome)).second) << colonna.nome;
      for (const std::string_view altro : colonna.altriNomi) {
        if (altro.empty()) continue;
        EXPECT_TRUE(visti.insert(tabelle::normalizza(altro)).second) << altro;
      }
    }
  }
}

struct Intestazione {
  Elenco elenco;
  const char* scritta;
  const char* nome;
};

TEST(Colonne, AreFoundByNameAndAlias) {
  constexpr Intestazione kCasiColonna[] = {
      {Elenco::Aziende, "codice fiscale", "CodiceFiscale"},
      {Elenco::Aziende, "PARTITA_IVA", "PartitaIva"},
      {Elenco::Aziende, "Cognome", "Denominazione"},
      {Elenco::Aziende, "Ragione Sociale", "Denominazione"},
      {Elenco::Aziende, "Codice attività", "CodiceAttivita"},
      {Elenco::Percipienti, "Denominazione", "Cognome"},
      {Elenco::Percipienti, "ragione.sociale", "Cognome"},
      {Elenco::Percipienti, "Nominativo", "Cognome"},
      {Elenco::Compensi, "Compenso", "Onorario"},
      {Elenco::Compensi, " Spese ", "SommeNonSoggette"},
      {Elenco::Compensi, "bollo", "SommeNonSoggette"},
  };
  for (const Intestazione& caso : kCasiColonna) {
    const auto rango = cercaColonna(caso.elenco, caso.scritta);
    ASSERT_TRUE(rango) << caso.scritta;
    EXPECT_EQ(colonne(caso.elenco)[*rango].nome, caso.nome);
  }
  EXPECT_FALSE(cercaColonna(Elenco::Compensi, "Denominazione"));
  EXPECT_FALSE(cercaColonna(Elenco::Compensi, ""));
}

TEST(Elenchi, HaveTwoNames) {
  for (const Elenco elenco : kElenchi) {
    EXPECT_EQ(elencoDaNome(nome(elenco)), elenco);
    EXPECT_EQ(elencoDaNomeInglese(nomeInglese(elenco)), elenco);
  }
  EXPECT_FALSE(elencoDaNome("fatture"));
  EXPECT_FALSE(elencoDaNomeInglese("invoices"));
}

struct CasoColonna {
  const char* nome;
  Elenco elenco;
  const char* testo;
  Righe messaggi;
};

class TabellaConColonne : public testing::TestWithParam<CasoColonna> {};

TEST_P(TabellaConColonne, ReportsThem) {
  EXPECT_EQ(detti(letta(GetParam().elenco, GetParam().testo)), GetParam().messaggi);
}

const CasoColonna kCasiColonna[] = {
    {"allRequired",
     Elenco::Compensi,
     "Compenso;CF;Codice_Percipiente;causale;Data Pagamento\n1;;P1;A;2017-03-05\n",
     {"f.csv, colonna \"CF\": la colonna non si importa e viene ignorata (C03)."}},
    {"requiredMissing",
     Elenco::Compensi,
     "CodicePercipiente;Onorario\nP1;1\nP2;2\n",
     {"f.csv, colonna \"Causale\": manca la colonna, che è obbligatoria (C01).",
      "f.csv, colonna \"DataPagamento\": manca la colonna, che è obbligatoria (C01)."}},
    {"noKey",
     Elenco::Compensi,
     "Causale;DataPagamento;Onorario\nA;2017-03-05;1\n",
     {"f.csv: manca il percipiente: serve una delle colonne CodicePercipiente, CodiceFiscale, PartitaIva "
      "(C01)."}},
    {"noAmount",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;RitenutaAcconto\nP1;A;2017-03-05;1\n",
     {"f.csv: manca l'importo: serve una delle colonne Onorario, SommeNonSoggette, SommeRegimeConvenzionale, "
      "Lordo (C01)."}},
    {"emptyRequiredCell",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario\nP1; ;2017-03-05;1\n",
     {"f.csv, riga 2, colonna \"Causale\": manca il valore, che è obbligatorio (C01)."}},
    {"emptiedRequiredCell",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;-;2017-03-05;1\n",
     {"f.csv, riga 2, colonna \"Causale\": manca il valore, che è obbligatorio (C01)."}},
    {"emptyKeyAndAmount",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario\n;A;2017-03-05;\n",
     {"f.csv, riga 2: manca il percipiente (C01).", "f.csv, riga 2: manca l'importo (C01)."}},
    {"onlyHyphens",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario;RitenutaAcconto\n-;A;2017-03-05;-;10\n",
     {"f.csv, riga 2: manca il percipiente (C01).", "f.csv, riga 2: manca l'importo (C01)."}},
    {"hyphenBesideWhatIsNeeded",
     Elenco::Compensi,
     "CodicePercipiente;CodiceFiscale;Causale;DataPagamento;Onorario;Spese\n-;X;A;2017-03-05;-;10\n",
     {}},
    {"hyphenForTheFiscalCode",
     Elenco::Percipienti,
     "CodiceFiscale;PartitaIva;Cognome\n-;-;Rossi\n",
     {"f.csv, riga 2, colonna \"CodiceFiscale\": manca il valore, che è obbligatorio (C01)."}},
    {"wrongAmountIsNotMissing",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;A;2017-03-05;x\n",
     {"f.csv, riga 2, colonna \"Onorario\": x non è un importo (V03)."}},
    {"givenTwice",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario;Compenso;CAUSALE\nP1;A;2017-03-05;1;2;B\n",
     {"f.csv, colonna \"Compenso\": la colonna Onorario è data due volte (C02).",
      "f.csv, colonna \"CAUSALE\": la colonna Causale è data due volte (C02)."}},
    {"sameExpensesTwice",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Spese;spese\nP1;A;2017-03-05;1;2\n",
     {"f.csv, colonna \"spese\": la colonna SommeNonSoggette è data due volte (C02)."}},
    {"unknownOnce",
     Elenco::Compensi,
     "CodicePercipiente;Causale;DataPagamento;Onorario;Note;Note\nP1;A;2017-03-05;1;x;y\nP1;A;2017-03-05;1;z;"
     "\n",
     {"f.csv, colonna \"Note\": la colonna non si importa e viene ignorata (C03)."}},
    {"emptyHeading",
     Elenco::Compensi,
     "CodicePercipiente;;Causale;DataPagamento;Onorario\nP1;;A;2017-03-05;1\n",
     {}},
    {"companyOfAFirmWhichMayBeThereAlready",
     Elenco::Aziende,
     "CodiceFiscale;Denominazione;Comune;Provincia;RappresentanteCognome\n04123450233;Bottega;Verona;VR;"
     "Bertoldi\n",
     {}},
    {"companyOfAPerson",
     Elenco::Aziende,
     "CodiceFiscale;Cognome;Nome;Comune;Provincia\nRSSMRA80A01H501U;Rossi;Mario;Roma;RM\n",
     {}},
    {"companyThatIsAPersonByItsCode",
     Elenco::Aziende,
     "CodiceFiscale;Cognome;Comune;Provincia\nRSSMRA80A01H501U;Rossi;Roma;RM\n",
     {}},
    {"payeeWithoutCodes",
     Elenco::Percipienti,
     "Codice;Cognome\nP1;Rossi\n",
     {"f.csv, colonna \"CodiceFiscale\": manca la colonna, che è obbligatoria (C01)."}},
    {"payeeByVatNumber", Elenco::Percipienti, "PartitaIva;Cognome\n00743110157;Rossi\n", {}},
    {"payeeWithoutAValue",
     Elenco::Percipienti,
     "PartitaIva;CodiceFiscale;Cognome\n;;Rossi\n",
     {"f.csv, riga 2, colonna \"CodiceFiscale\": manca il valore, che è obbligatorio (C01)."}},
    {"payeeOfAnotherCountry",
     Elenco::Percipienti,
     "Cognome;Nazione;NonResidente;CodiceFiscaleEstero\nBauer;Germania;;\nGarcía;;S;\nSmith;;;GB123\nNeri;"
     "Italia;;\n",
     {"f.csv, riga 5, colonna \"CodiceFiscale\": manca il valore, che è obbligatorio (C01)."}},
};

INSTANTIATE_TEST_SUITE_P(Colonne, TabellaConColonne, testing::ValuesIn(kCasiColonna),
                         [](const auto& caso) { return caso.param.nome; });

TEST(ColonneDiSomme, AddUp) {
  const Lettura lettura = letta(Elenco::Compensi,
                                "CodicePercipiente;Causale;DataPagamento;Spese;Bollo;SommeNonSoggette\n"
                                "P1;A;2017-03-05;10,50;2;1\nP1;A;2017-03-05;;2;\nP1;A;2017-03-05;x;2;1\n");
  EXPECT_EQ(righe(lettura)[0],
            "CodicePercipiente=P1|Causale=A|DataPagamento=05/03/2017|SommeNonSoggette=13.5");
  EXPECT_EQ(righe(lettura)[1], "CodicePercipiente=P1|Causale=A|DataPagamento=05/03/2017|SommeNonSoggette=2");
  EXPECT_EQ(detti(lettura),
            Righe{"f.csv, riga 4, colonna \"Spese + Bollo + SommeNonSoggette\": x non è un importo (V03)."});
}

TEST(ColonneDiSomme, StayBelowTheLimitTogether) {
  EXPECT_EQ(
      detti(letta(Elenco::Compensi,
                  "CodicePercipiente;Causale;DataPagamento;Spese;Bollo\n"
                  "P1;A;2017-03-05;99999999999,99;0,01\nP1;A;2017-03-05;99999999999,99;0,00\n")),
      Righe{"f.csv, riga 2, colonna \"Spese + Bollo\": la somma supera l'importo massimo, 99999999999,99 "
            "(V03)."});
}

TEST(RigheCorteELunghe, AreReadAndReported) {
  const Lettura lettura = letta(Elenco::Compensi,
                                "CodicePercipiente;Causale;DataPagamento;Onorario;NumeroDocumento\n"
                                "P1;A;2017-03-05;1\nP1;A;2017-03-05;1;7;8\n");
  EXPECT_EQ(righe(lettura)[0], "CodicePercipiente=P1|Causale=A|DataPagamento=05/03/2017|Onorario=1");
  EXPECT_EQ(detti(lettura), Righe{"f.csv, riga 3, colonna \"F\": la riga ha una cella oltre l'ultima "
                                  "intestazione, che è nella colonna E (F03)."});
}

Mappatura conMappa() {
  Mappatura mappatura;
  const auto rango = [](ColonnaCompenso c) { return static_cast<std::uint8_t>(c); };
  mappatura.lettura.rigaIntestazione = 3;
  mappatura.salto = {"Descrizione", "Totale"};
  mappatura.colonne[rango(ColonnaCompenso::CodicePercipiente)] = {{"Fornitore"}, {}, Segno::ComeScritto};
  mappatura.colonne[rango(ColonnaCompenso::Causale)] = {{}, "A", Segno::ComeScritto};
  mappatura.colonne[rango(ColonnaCompenso::DataPagamento)] = {{"Data pag."}, {}, Segno::ComeScritto};
  mappatura.colonne[rango(ColonnaCompenso::Onorario)] = {{"Imponibile"}, {}, Segno::ComeScritto};
  mappatura.colonne[rango(ColonnaCompenso::SommeNonSoggette)] = {
      {"Spese art. 15", "Bollo"}, {}, Segno::ComeScritto};
  mappatura.colonne[rango(ColonnaCompenso::RitenutaAcconto)] = {{"Ritenuta"}, {}, Segno::Positivo};
  return mappatura;
}

TEST(Mappa, FindsColumnsAndLeavesTotalsOut) {
  const Lettura lettura = letta(Elenco::Compensi,
                                "Elenco dei compensi\n\n"
                                "Descrizione;Fornitore;Data pag.;Imponibile;Spese art. 15;Bollo;Ritenuta\n"
                                "Parcella 1;P1;25/03/2017;1000;10;2;-200,00\n"
                                "TOTALE generale;;;1000;10;2;-200,00\n",
                                conMappa());
  EXPECT_EQ(detti(lettura), Righe{});
  EXPECT_EQ(
      righe(lettura),
      (Righe{"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|Onorario=1000|SommeNonSoggette=12|"
             "RitenutaAcconto=200",
             ""}));
  EXPECT_EQ(lettura.righe[0].numero, 4U);
  EXPECT_EQ(lettura.righe[0].esclusa, "");
  EXPECT_EQ(lettura.righe[1].esclusa, "la colonna Descrizione comincia con Totale");
}

TEST(Mappa, ReportsColumnsThatTheFileLacks) {
  const Lettura lettura =
      letta(Elenco::Compensi, "x\n\nFornitore;Data pag.;Imponibile;Bollo;Ritenuta\nP1;25/03/2017;1000;2;0\n",
            conMappa());
  EXPECT_EQ(
      detti(lettura),
      (Righe{
          "f.csv, colonna \"Spese art. 15\": il file non ha la colonna, che la mappatura indica per "
          "SommeNonSoggette (C01).",
          "f.csv, colonna \"Descrizione\": il file non ha la colonna, che la mappatura indica per salta_se "
          "(C01)."}));
}

TEST(Mappa, ReportsAColumnThatTheFileHasTwice) {
  Mappatura mappatura;
  mappatura.colonne[static_cast<std::uint8_t>(ColonnaCompenso::Onorario)] = {
      {"Importo"}, {}, Segno::ComeScritto};
  EXPECT_EQ(detti(letta(Elenco::Compensi,
                        "CodicePercipiente;Causale;DataPagamento;Importo;importo\nP1;A;2017-03-05;1;2\n",
                        mappatura)),
            Righe{"f.csv, colonna \"Importo\": il file ha due colonne con questo nome (C02)."});
}

TEST(Mappa, TranslatesValues) {
  Mappatura mappatura;
  const auto causale = static_cast<std::uint8_t>(ColonnaCompenso::Causale);
  mappatura.valori[causale] = {{"Prof.", "a"}, {"", "M"}};
  mappatura.colonne[static_cast<std::uint8_t>(ColonnaCompenso::RitenutaAcconto)] = {
      {"R"}, {}, Segno::Inverso};
  const Lettura lettura = letta(Elenco::Compensi,
                                "CodicePercipiente;Causale;DataPagamento;Onorario;R\n"
                                "P1;prof;2017-03-05;1;-2\nP1;;2017-03-05;1;2\nP1;S;2017-03-05;1;\n",
                                mappatura);
  EXPECT_EQ(detti(lettura), Righe{});
  EXPECT_EQ(righe(lettura),
            (Righe{"CodicePercipiente=P1|Causale=A|DataPagamento=05/03/2017|Onorario=1|RitenutaAcconto=2",
                   "CodicePercipiente=P1|Causale=M|DataPagamento=05/03/2017|Onorario=1|RitenutaAcconto=-2",
                   "CodicePercipiente=P1|Causale=S|DataPagamento=05/03/2017|Onorario=1"}));
}

}  // namespace
}  // namespace cu::intake
