#include "intake/lettura_fatture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "fatture_prova.h"
#include "intake/nazione_iso.h"
#include "schede/luoghi.h"
#include "support/temp_folder.h"

namespace cu::intake {
namespace {

using prova::Banco;
using prova::campi;
using prova::daRossi;
using prova::FileProva;
using prova::giorno;
using prova::lettaFattura;
using prova::lette;
using prova::numerata;
using prova::xmlDi;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string codici(const RigaLetta& riga) {
  std::string testo;
  for (const Messaggio& uno : riga.messaggi) testo += std::string(voce(uno.codice).sigla) + " ";
  return testo;
}

TEST(LetturaFatture, APaymentIsARowWithoutItsDate) {
  const Lettura lettura = lettaFattura(daRossi());
  ASSERT_EQ(lettura.righe.size(), 1U);
  EXPECT_EQ(lettura.file, "f1.xml");
  EXPECT_EQ(campi(lettura, lettura.righe[0]),
            "CodiceFiscale=RSSMRA80A01H501U|PartitaIva=" + daRossi().partitaIva +
                "|Causale=A|NumeroDocumento=12/A|DataDocumento=20/03/2017|Onorario=1000|RitenutaAcconto=200");
  ASSERT_TRUE(lettura.fatture);
  EXPECT_TRUE(lettura.fatture->righe[0].decisa);
  EXPECT_EQ(lettura.sha256, lettura.fatture->sha256Contenuto);
}

TEST(LetturaFatture, FilesOfOneNameAreNamedWithTheirFolders) {
  const test::TempFolder cartella;
  const auto scrivi = [&](const std::string& dove, const std::string& nome, const std::string& byte) {
    std::filesystem::create_directories(cartella / dove);
    std::ofstream(cartella / (dove + "/" + nome), std::ios::binary) << byte;
  };
  scrivi("aprile", "1.xml", xmlDi(daRossi()));
  scrivi("maggio", "1.xml", "<FatturaElettronica>");
  scrivi("maggio", "2.xml", xmlDi(daRossi()));
  const LettureFatture lette = leggiFatture({cartella.path()}, giorno(2018, 3, 5));
  std::vector<std::string> nomi;
  for (const Lettura& lettura : lette.letture) nomi.push_back(lettura.file);
  EXPECT_THAT(nomi, ElementsAre(cartella / "aprile/1.xml", cartella / "maggio/1.xml", "2.xml"));
  ASSERT_FALSE(lette.letture[1].messaggi.empty());
  EXPECT_EQ(lette.letture[1].messaggi[0].posto.file, cartella / "maggio/1.xml");
  EXPECT_EQ(leggiFatture({cartella / "maggio"}, giorno(2018, 3, 5)).letture[0].file, "1.xml");
}

TEST(LetturaFatture, TheSellerIsARowOfPayees) {
  const Lettura lettura = lettaFattura(daRossi());
  const Lettura& percipienti = lettura.fatture->percipienti;
  EXPECT_EQ(campi(percipienti, percipienti.righe[0]),
            "CodiceFiscale=RSSMRA80A01H501U|PartitaIva=" + daRossi().partitaIva +
                "|Cognome=Rossi|Nome=Mario|PersonaFisica*=1|Sesso*=M|DataNascita*=01/01/1980|"
                "Indirizzo=Via Roma 1|Cap=20100|Comune=Milano|Provincia=MI");
  FileProva estera = daRossi();
  estera.codiceFiscale.clear();
  estera.paese = estera.nazione = "DE";
  estera.partitaIva = "123456789";
  estera.nome = "<Denominazione>Muster GmbH</Denominazione>";
  const Lettura altra = lettaFattura(estera);
  EXPECT_EQ(campi(altra.fatture->percipienti, altra.fatture->percipienti.righe[0]),
            "Cognome=Muster GmbH|PersonaFisica*=0|Indirizzo=Via Roma 1|Cap=20100|Comune=Milano|Provincia=EE|"
            "Nazione=Z112|NonResidente*=1|CodiceFiscaleEstero=123456789");
  FileProva insieme = daRossi();
  insieme.nome = "<Denominazione>ROSSI MARIO</Denominazione>";
  const Lettura divisa = lettaFattura(insieme);
  EXPECT_THAT(campi(divisa.fatture->percipienti, divisa.fatture->percipienti.righe[0]),
              HasSubstr("|Cognome*=ROSSI|Nome*=MARIO|PersonaFisica*=1|"));
}

TEST(LetturaFatture, WhatIsNoPaymentIsOneRowWithItsReason) {
  FileProva integrazione = daRossi();
  integrazione.documenti[0].tipo = "TD17";
  FileProva ordinaria = daRossi();
  ordinaria.documenti[0].ritenute.clear();
  const std::vector<Lettura> letture =
      lette({xmlDi(integrazione), xmlDi(ordinaria), "<a:RicevutaConsegna xmlns:a=\"x\"/>",
             "<a:MetadatiInvioFile xmlns:a=\"x\"/>"});
  std::vector<std::string> esclusi;
  for (const Lettura& una : letture) {
    ASSERT_EQ(una.righe.size(), 1U);
    esclusi.push_back(una.righe[0].esclusa);
    EXPECT_THAT(una.messaggi, IsEmpty());
  }
  EXPECT_THAT(esclusi, ElementsAre("TD17: autofattura o integrazione", "documento senza ritenuta",
                                   "ricevuta di consegna: non è una fattura",
                                   "metadati di un invio: non è una fattura"));
}

TEST(LetturaFatture, AFileThatCannotBeReadSaysWhy) {
  const std::vector<Lettura> letture =
      lette({"", "%PDF-1.4", xmlDi(daRossi()).substr(0, 400),
             "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>"});
  std::vector<std::string> dette;
  for (const Lettura& una : letture) {
    EXPECT_THAT(una.righe, IsEmpty());
    ASSERT_EQ(una.messaggi.size(), 1U);
    dette.push_back(dettoMessaggio(una.messaggi[0]).substr(0, 6) + " " +
                    std::string(voce(una.messaggi[0].codice).sigla));
  }
  EXPECT_THAT(dette, ElementsAre("f1.xml F01", "f2.xml F02", "f3.xml F03", "f4.xml F04"));
}

TEST(LetturaFatture, AWrongDocumentIsARowWithItsErrors) {
  FileProva file = daRossi();
  file.documenti[0].ritenute[0].importo = "20O.00";
  file.documenti.push_back(numerata("13"));
  file.documenti[1].divisa = "USD";
  file.documenti.push_back(numerata("14", "2017-02-30"));
  const Lettura lettura = lettaFattura(file);
  ASSERT_EQ(lettura.righe.size(), 3U);
  EXPECT_EQ(codici(lettura.righe[0]), "V03 ");
  EXPECT_EQ(codici(lettura.righe[1]), "V05 ");
  EXPECT_EQ(codici(lettura.righe[2]), "V01 ");
  EXPECT_THAT(lettura.righe[0].messaggi[0].testo, HasSubstr("elemento DatiRitenuta/ImportoRitenuta, riga "));
}

TEST(LetturaFatture, TextsAreCheckedAsThoseOfTables) {
  FileProva file = daRossi(numerata(std::string(300, '9')));
  EXPECT_EQ(codici(lettaFattura(file).righe[0]), "V06 ");
  file = daRossi(numerata("7/\xC4\x8D"));  // a letter that Windows-1252 does not have
  EXPECT_EQ(codici(lettaFattura(file).righe[0]), "V07 ");
  file = daRossi();
  file.nome = "<Nome>Mario</Nome><Cognome>Rossi\xC2\x85</Cognome>";
  const Lettura lettura = lettaFattura(file);
  EXPECT_EQ(codici(lettura.righe[0]), "");
  EXPECT_EQ(codici(lettura.fatture->percipienti.righe[0]), "V10 ");
}

TEST(LetturaFatture, PlacesSayTheDocumentOfAFileWithSeveral) {
  Banco banco(prova::riempito());
  FileProva file = daRossi();
  const std::string uno = xmlDi(file);
  file.documenti = {numerata("13"), numerata("14")};
  const Piano piano = prova::pianoDi(banco, {uno, xmlDi(file)});
  ASSERT_EQ(piano.righe.size(), 3U);
  std::vector<std::string> posti;
  for (const RigaPiano& riga : piano.righe)
    posti.push_back(dettoMessaggio(piano.posto(riga), riga.messaggi[0]).substr(0, 22));
  EXPECT_EQ(posti[0], "f1.xml, colonna \"DataP");
  EXPECT_EQ(posti[1], "f2.xml, documento 1, c");
  EXPECT_EQ(posti[2], "f2.xml, documento 2, c");
}

TEST(LetturaFatture, EveryCountryOfTheTableIsInTheLists) {
  Banco banco;
  const schede::Luoghi luoghi(*banco);
  EXPECT_EQ(luoghi.nazioneDiCatasto(catastoDiIso("DE"))->nome, "Germania");
  EXPECT_EQ(catastoDiIso("QQ"), "");
  for (char prima = 'A'; prima <= 'Z'; ++prima) {
    for (char seconda = 'A'; seconda <= 'Z'; ++seconda) {
      const std::string_view catasto = catastoDiIso(std::string{prima, seconda});
      if (catasto.empty()) continue;
      EXPECT_NE(luoghi.nazioneDiCatasto(catasto), nullptr) << prima << seconda;
    }
  }
}

// The table of dates.

TEST(TavolaDelleDate, NeedsAPayeeANumberAndADate) {
  const TavolaDate tavola = leggiDate(
      "Codice fiscale;Numero documento;Data documento;Data pagamento;Banca\n"
      "RSSMRA80A01H501U;12/A;20/03/2017;22/04/2017;x\n"
      ";13;20/03/2017;22/04/2017;x\n"
      "RSSMRA80A01H501U;;20/03/2017;22/04/2017;x\n"
      "RSSMRA80A01H501U;15;20/03/2017;;x\n"
      "RSSMRA80A01H501U;16;20/03/2017;quando;x\n",
      "date.csv", {}, giorno(2018, 3, 5));
  ASSERT_EQ(tavola.date.size(), 1U);
  EXPECT_EQ(tavola.date[0].codiceFiscale, "RSSMRA80A01H501U");
  EXPECT_EQ(tavola.date[0].documento, giorno(2017, 3, 20));
  EXPECT_EQ(tavola.date[0].pagamento, giorno(2017, 4, 22));
  std::vector<std::string> detti;
  for (const Messaggio& uno : tavola.messaggi) detti.push_back(dettoMessaggio(uno));
  EXPECT_THAT(detti, ElementsAre("date.csv, riga 3: manca il percipiente (C01).",
                                 "date.csv, riga 4: manca il numero del documento (C01).",
                                 HasSubstr("date.csv, riga 6, colonna \"Data pagamento\": ")));
  const TavolaDate senza = leggiDate("CodiceFiscale;NumeroDocumento\nX;1\n", "d.csv", {}, giorno(2018, 3, 5));
  EXPECT_TRUE(senza.conErrori());
  EXPECT_TRUE(leggiDate("", "d.csv", {}, giorno(2018, 3, 5)).conErrori());
}

}  // namespace
}  // namespace cu::intake
