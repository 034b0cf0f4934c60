#include "apps/importazione/mappa_fatture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "intake/colonne.h"
#include "suite/profilo.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using intake::ColonnaCompenso;
using ::testing::ElementsAre;
using ::testing::Pair;

constexpr const char* kTutto = R"(
formato = "fatture"
azienda = "04123450233"
altri_committenti = "escludi"
[lettura]
separatore = ";"
date = "gma"
[colonne]
Causale = { costante = "A" }
DataPagamento = "Data pag."
[valori.Causale]
Z = "ZO"
[percipienti.tmmlri88d57l781h]
causale = "M"
[percipienti.P036]
causale = "B"
)";

MappaFatture analizza(const std::string& testo) { return analizzaMappaFatture(testo, "fatture.toml"); }

std::string erroreDi(const std::string& testo) {
  try {
    analizza(testo);
  } catch (const ErroreProfilo& errore) {
    return errore.what();
  }
  return "no error";
}

void attendiTutto(const MappaFatture& mappa) {
  EXPECT_EQ(mappa.azienda, "04123450233");
  EXPECT_TRUE(mappa.tralasciaAltrui);
  EXPECT_EQ(mappa.causaleForfettari, "A");
  EXPECT_THAT(mappa.causali, ElementsAre(Pair("Z", "ZO")));
  EXPECT_THAT(mappa.causaliPercipienti, ElementsAre(Pair("P036", "B"), Pair("TMMLRI88D57L781H", "M")));
  EXPECT_EQ(mappa.date.lettura.separatore, ';');
  EXPECT_EQ(mappa.date.date, intake::OrdineData::GiornoMeseAnno);
  const auto rango = static_cast<std::uint8_t>(ColonnaCompenso::DataPagamento);
  EXPECT_THAT(mappa.date.colonne.at(rango).colonne, ElementsAre("Data pag."));
  EXPECT_EQ(mappa.date.colonne.size(), 1U);
}

TEST(MappaDelleFatture, SaysWhatTheDocumentsDoNot) { attendiTutto(analizza(kTutto)); }

TEST(MappaDelleFatture, IsWrittenAsItIsRead) { attendiTutto(analizza(scriviMappaFatture(analizza(kTutto)))); }

TEST(MappaDelleFatture, NeedsNothingButItsFormat) {
  const MappaFatture mappa = analizza("formato = \"fatture\"");
  EXPECT_EQ(mappa.azienda + mappa.causaleForfettari, "");
  EXPECT_FALSE(mappa.tralasciaAltrui);
  EXPECT_EQ(scriviMappaFatture(mappa), "formato = 'fatture'\n");
}

TEST(MappaDelleFatture, ReachesTheOptionsOfAPlan) {
  intake::OpzioniFatture opzioni;
  applicaMappa(analizza(kTutto), opzioni);
  EXPECT_EQ(opzioni.causaleForfettari, "A");
  EXPECT_EQ(opzioni.causali.at("Z"), "ZO");
  EXPECT_EQ(opzioni.causaliPercipienti.at("TMMLRI88D57L781H"), "M");
  EXPECT_TRUE(opzioni.tralasciaAltrui);
  EXPECT_EQ(opzioni.fonte, intake::FontePagamento::Nessuna);
}

TEST(MappaDelleFatture, RejectsAWrongKeyWithWhatIsExpected) {
  const struct {
    const char* testo;
    const char* errore;
  } casi[] = {
      {"formato = \"compensi\"", "fatture.toml: formato: valore non ammesso, atteso \"fatture\""},
      {"formato = \"fatture\"\naltri_committenti = \"forse\"",
       "fatture.toml: altri_committenti: valore non ammesso, atteso \"errore\" o \"escludi\""},
      {"formato = \"fatture\"\n[colonne]\nOnorario = \"Imponibile\"",
       "fatture.toml: colonne.Onorario: chiave sconosciuta, atteso una di Causale, CodicePercipiente, "
       "CodiceFiscale, PartitaIva, NumeroDocumento, DataDocumento, DataPagamento"},
      {"formato = \"fatture\"\n[colonne]\nCausale = \"Causale\"",
       "fatture.toml: colonne.Causale: valore non ammesso, atteso { costante = \"A\" }: la causale dei "
       "forfettari"},
      {"formato = \"fatture\"\n[valori.DataPagamento]\n\"x\" = \"y\"",
       "fatture.toml: valori.DataPagamento: chiave non ammessa, atteso solo Causale"},
      {"formato = \"fatture\"\n[percipienti.P001]\nregime = \"RF19\"",
       "fatture.toml: percipienti.P001.regime: chiave sconosciuta, atteso uno di questi nomi: causale"},
      {"formato = \"fatture\"\n[percipienti.P001]\ncausale = \"\"",
       "fatture.toml: percipienti.P001.causale: valore non ammesso, atteso una causale, per esempio \"A\""},
      {"formato = \"fatture\"\n[percipienti.TMMLRI88D57L781H]\ncausale = \"A\"\n"
       "[percipienti.tmmlri88d57l781h]\ncausale = \"B\"",
       "fatture.toml: percipienti.tmmlri88d57l781h: chiave ripetuta, atteso una volta sola ogni percipiente"},
  };
  for (const auto& caso : casi) EXPECT_EQ(erroreDi(caso.testo), caso.errore);
}

class MappeFatturePersonali : public ::testing::Test {
 protected:
  std::string cartella() const { return cartella_.path() + "/importazione"; }
  test::TempFolder cartella_;
};

TEST_F(MappeFatturePersonali, AreKeptForACompany) {
  EXPECT_FALSE(cercaMappaFatture(cartella(), "04123450233"));
  const std::string file = salvaMappaFatture(cartella(), analizza(kTutto));
  const auto trovata = cercaMappaFatture(cartella(), "04123450233");
  ASSERT_TRUE(trovata);
  EXPECT_EQ(trovata->file, file);
  attendiTutto(trovata->mappa);
  EXPECT_FALSE(cercaMappaFatture(cartella(), "02150010235"));
  EXPECT_FALSE(cercaMappaFatture(cartella(), ""));
  MappaFatture altra;
  altra.azienda = "04123450233";
  EXPECT_EQ(salvaMappaFatture(cartella(), altra), file);
  EXPECT_EQ(cercaMappaFatture(cartella(), "04123450233")->mappa.causaleForfettari, "");
}

TEST_F(MappeFatturePersonali, AWrongOneThatIsMeantIsReported) {
  std::filesystem::create_directories(cartella());
  std::ofstream(cartella() + "/una.toml")
      << "formato = \"fatture\"\nazienda = \"04123450233\"\nsbagliata = 1\n";
  EXPECT_THROW(cercaMappaFatture(cartella(), "04123450233"), ErroreProfilo);
  EXPECT_FALSE(cercaMappaFatture(cartella(), "02150010235"));
}

}  // namespace
}  // namespace cu
