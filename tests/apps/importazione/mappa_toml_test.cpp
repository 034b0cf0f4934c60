#include "apps/importazione/mappa_toml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "suite/profilo.h"

namespace cu {
namespace {

using intake::ColonnaCompenso;
using intake::Elenco;
using intake::Fonte;
using intake::Mappatura;
using intake::Segno;

constexpr const char* kEsempio = R"(
formato = "compensi"
impronta = "abc"
[lettura]
separatore = ";"
caratteri = "windows-1252"
riga_intestazione = 3
foglio = "Marzo"
decimali = ","
migliaia = "."
date = "gma"
salta_se = { colonna = "Descrizione", inizia = "Totale" }
[colonne]
DataPagamento = "Data pag."
Causale = { costante = "A" }
Onorario = "Imponibile"
SommeNonSoggette = ["Spese art. 15", "Bollo"]
RitenutaAcconto = { colonna = "Ritenuta", segno = "positivo" }
[valori.Causale]
"Prof." = "A"
)";

const Fonte& fonte(const Mappa& mappa, ColonnaCompenso colonna) {
  return mappa.mappatura.colonne.at(static_cast<std::uint8_t>(colonna));
}

void confronta(const Mappatura& a, const Mappatura& b) {
  EXPECT_EQ(a.lettura.separatore, b.lettura.separatore);
  EXPECT_EQ(a.lettura.caratteri, b.lettura.caratteri);
  EXPECT_EQ(a.lettura.rigaIntestazione, b.lettura.rigaIntestazione);
  EXPECT_EQ(a.lettura.foglio, b.lettura.foglio);
  EXPECT_EQ(a.decimali, b.decimali);
  EXPECT_EQ(a.migliaia, b.migliaia);
  EXPECT_EQ(a.date, b.date);
  EXPECT_EQ(a.salto.colonna, b.salto.colonna);
  EXPECT_EQ(a.salto.inizia, b.salto.inizia);
  EXPECT_EQ(a.valori, b.valori);
  ASSERT_EQ(a.colonne.size(), b.colonne.size());
  for (const auto& [rango, sua] : a.colonne) {
    const Fonte& altra = b.colonne.at(rango);
    EXPECT_EQ(sua.colonne, altra.colonne);
    EXPECT_EQ(sua.costante, altra.costante);
    EXPECT_EQ(sua.segno, altra.segno);
  }
}

TEST(Mappa, IsReadKeyByKey) {
  const Mappa mappa = analizzaMappa(kEsempio, "m.toml");
  EXPECT_EQ(mappa.elenco, Elenco::Compensi);
  EXPECT_EQ(mappa.impronta, "abc");
  const Mappatura& m = mappa.mappatura;
  EXPECT_EQ(m.lettura.separatore, ';');
  EXPECT_EQ(m.lettura.caratteri, tabelle::Caratteri::Windows1252);
  EXPECT_EQ(m.lettura.rigaIntestazione, 3U);
  EXPECT_EQ(m.lettura.foglio, "Marzo");
  EXPECT_EQ(m.decimali, ',');
  EXPECT_EQ(m.migliaia, '.');
  EXPECT_EQ(m.date, intake::OrdineData::GiornoMeseAnno);
  EXPECT_EQ(m.salto.colonna, "Descrizione");
  EXPECT_EQ(m.salto.inizia, "Totale");
  EXPECT_EQ(m.colonne.size(), 5U);
  EXPECT_EQ(fonte(mappa, ColonnaCompenso::DataPagamento).colonne, std::vector<std::string>{"Data pag."});
  EXPECT_EQ(fonte(mappa, ColonnaCompenso::Causale).costante, "A");
  EXPECT_EQ(fonte(mappa, ColonnaCompenso::SommeNonSoggette).colonne,
            (std::vector<std::string>{"Spese art. 15", "Bollo"}));
  EXPECT_EQ(fonte(mappa, ColonnaCompenso::RitenutaAcconto).segno, Segno::Positivo);
  const std::map<std::string, std::string> attesi = {{"Prof.", "A"}};
  EXPECT_EQ(m.valori.at(static_cast<std::uint8_t>(ColonnaCompenso::Causale)), attesi);
}

TEST(Mappa, NeedsItsFormatOnly) {
  const Mappa mappa = analizzaMappa("formato = \"aziende\"\n", "m.toml");
  EXPECT_EQ(mappa.elenco, Elenco::Aziende);
  EXPECT_TRUE(mappa.mappatura.colonne.empty());
  EXPECT_FALSE(mappa.mappatura.decimali);
}

TEST(Mappa, IsTheSameWhenItHasBeenWritten) {
  for (const std::string& testo :
       {std::string(kEsempio), std::string("formato = \"percipienti\"\n[lettura]\nseparatore = \"\\t\"\n"
                                           "[valori.Sesso]\n\"\" = \"M\"\n\"a\\\"b\" = \"F\"\n[colonne]\n"
                                           "Telefono = [\"Prefisso\", \"Numero\"]\n")}) {
    const Mappa prima = analizzaMappa(testo, "m.toml");
    const Mappa dopo = analizzaMappa(scriviMappa(prima), "m.toml");
    EXPECT_EQ(prima.elenco, dopo.elenco);
    EXPECT_EQ(prima.impronta, dopo.impronta);
    confronta(prima.mappatura, dopo.mappatura);
  }
}

struct Rifiuto {
  const char* testo;
  const char* messaggio;
};

TEST(Mappa, ThatIsWrongNamesFileKeyAndWhatIsExpected) {
  constexpr Rifiuto kCasi[] = {
      {"", "m.toml: formato: manca, atteso un testo tra virgolette"},
      {"formato = 5", "m.toml: formato: tipo sbagliato, atteso un testo tra virgolette"},
      {"formato = \"fatture\"",
       "m.toml: formato: valore non ammesso, atteso \"aziende\", \"percipienti\" o \"compensi\""},
      {"formato = = 5", "m.toml: riga 1, colonna 11: il testo non è TOML valido, atteso chiave = valore"},
      {"formato = \"compensi\"\nfoglio = 1",
       "m.toml: foglio: chiave sconosciuta, atteso uno di questi nomi: formato, impronta, lettura, colonne, "
       "valori"},
      {"formato = \"compensi\"\ncolonne = 1", "m.toml: colonne: tipo sbagliato, atteso una sezione"},
      {"formato = \"compensi\"\nvalori = []", "m.toml: valori: tipo sbagliato, atteso una sezione"},
      {"formato = \"compensi\"\n[lettura]\nordine = 1", "m.toml: lettura.ordine: chiave sconosciuta"},
      {"formato = \"compensi\"\n[lettura]\nseparatore = \":\"",
       "m.toml: lettura.separatore: valore non ammesso, atteso \";\", \",\", \"\\t\" o \"|\""},
      {"formato = \"compensi\"\n[lettura]\ncaratteri = \"latin\"",
       "m.toml: lettura.caratteri: valore non ammesso, atteso \"utf-8\", \"windows-1252\""},
      {"formato = \"compensi\"\n[lettura]\nriga_intestazione = 0",
       "m.toml: lettura.riga_intestazione: valore non ammesso, atteso un numero intero da 1"},
      {"formato = \"compensi\"\n[lettura]\ndecimali = \",,\"",
       "m.toml: lettura.decimali: valore non ammesso, atteso \",\" o \".\""},
      {"formato = \"compensi\"\n[lettura]\nmigliaia = \"x\"", "m.toml: lettura.migliaia: valore non ammesso"},
      {"formato = \"compensi\"\n[lettura]\ndecimali = \".\"\nmigliaia = \".\"",
       "m.toml: lettura.migliaia: valore non ammesso, atteso un segno diverso da decimali"},
      {"formato = \"compensi\"\n[lettura]\ndate = \"dmy\"",
       "m.toml: lettura.date: valore non ammesso, atteso \"gma\", \"mga\" o \"amg\""},
      {"formato = \"compensi\"\n[lettura]\nsalta_se = \"Totale\"",
       "m.toml: lettura.salta_se: tipo sbagliato"},
      {"formato = \"compensi\"\n[lettura]\nsalta_se = { colonna = \"X\" }",
       "m.toml: lettura.salta_se.inizia: manca"},
      {"formato = \"compensi\"\n[lettura]\nsalta_se = { colonna = \"X\", inizia = \"\" }",
       "m.toml: lettura.salta_se.inizia: valore non ammesso, atteso un testo non vuoto"},
      {"formato = \"compensi\"\n[colonne]\nCognome = \"X\"",
       "m.toml: colonne.Cognome: chiave sconosciuta, atteso una colonna dei compensi: CodicePercipiente, "},
      {"formato = \"compensi\"\n[colonne]\nOnorario = \"X\"\nCompenso = \"Y\"",
       "chiave ripetuta, atteso una volta sola la colonna Onorario"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = 1", "m.toml: colonne.Onorario: tipo sbagliato, atteso"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = \"\"",
       "m.toml: colonne.Onorario: tipo sbagliato, atteso"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = []", "m.toml: colonne.Onorario: valore non ammesso"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = [1]", "m.toml: colonne.Onorario: tipo sbagliato"},
      {"formato = \"compensi\"\n[colonne]\nDataPagamento = [\"a\", \"b\"]",
       "m.toml: colonne.DataPagamento: valore non ammesso, atteso una sola intestazione"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = { colonna = \"a\", costante = \"1\" }",
       "m.toml: colonne.Onorario: valore non ammesso"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = { }", "m.toml: colonne.Onorario: valore non ammesso"},
      {"formato = \"compensi\"\n[colonne]\nOnorario = { colonna = \"a\", segno = \"meno\" }",
       "m.toml: colonne.Onorario.segno: valore non ammesso, atteso \"come scritto\", \"positivo\" o "
       "\"inverso\""},
      {"formato = \"compensi\"\n[colonne]\nCausale = { colonna = \"a\", segno = \"positivo\" }",
       "m.toml: colonne.Causale.segno: chiave non ammessa, atteso solo per una colonna di importi"},
      {"formato = \"compensi\"\n[valori.Causale]\nx = 1", "m.toml: valori.Causale.x: tipo sbagliato"},
      {"formato = \"compensi\"\n[valori]\nCausale = \"A\"",
       "m.toml: valori.Causale: tipo sbagliato, atteso una sezione"},
  };
  for (const Rifiuto& caso : kCasi) {
    try {
      analizzaMappa(caso.testo, "m.toml");
      ADD_FAILURE() << "accepted: " << caso.testo;
    } catch (const ErroreProfilo& errore) {
      EXPECT_THAT(errore.what(), testing::HasSubstr(caso.messaggio));
      EXPECT_EQ(std::string(errore.what()).find('\n'), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace cu
