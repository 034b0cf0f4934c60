#include "fatture/raccolta.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fatture/archivio_prova_support.h"
#include "fatture/busta_prova_support.h"
#include "fatture/documento_prova.h"

namespace cu::fatture {
namespace {

using namespace prova;

const std::string kNotifica = "<a:RicevutaConsegna xmlns:a=\"x\"/>";
const std::string kMetadati = "<a:MetadatiInvioFile xmlns:a=\"x\"/>";

// Name and kind or first code of what was received.
struct Ricevuti {
  std::vector<std::string> voci;
  Ricevente ricevente() {
    return [this](Letto&& letto) {
      voci.push_back(
          letto.nome + ": " +
          (letto.rilievi.empty() ? std::to_string(letto.fatture.size()) : letto.rilievi[0].codice));
      return true;
    };
  }
};

class RaccoltaDiFile : public ::testing::Test {
 protected:
  void SetUp() override {
    cartella_ = std::filesystem::path(::testing::TempDir()) /
                ("fatture_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(cartella_);
    std::filesystem::create_directories(cartella_ / "sotto");
  }
  void TearDown() override { std::filesystem::remove_all(cartella_); }
  void scrivi(const std::string& nome, const std::string& byte) const {
    std::ofstream(cartella_ / nome, std::ios::binary) << byte;
  }
  std::filesystem::path cartella_;
  Ricevuti ricevuti_;
};

TEST_F(RaccoltaDiFile, WalksAFolderInTheOrderOfNamesAndCountsTheRest) {
  scrivi("b.xml", parcellaXml());
  scrivi("a.txt", firmato(parcellaXml()));
  scrivi("sotto/c.p7m", parcellaXml());
  scrivi("RC.xml", kNotifica);
  scrivi("leggimi.pdf", "%PDF-1.4 niente");
  scrivi("vuoto.xml", "");
  scrivi("rotto.xml", parcellaXml().substr(0, 300));
  scrivi("film.bin", std::string(std::size_t{30} << 20U, '\1'));
  const Ignorati ignorati = raccogli(cartella_, ricevuti_.ricevente());
  EXPECT_EQ(ricevuti_.voci,
            (std::vector<std::string>{"RC.xml: 0", "a.txt: 1", "b.xml: 1", "rotto.xml: F03", "c.p7m: 1"}));
  EXPECT_EQ(ignorati, (Ignorati{{"file che non è una fattura", 2}, {"file vuoto", 1}}));
}

// The caller's own, by what it says of their paths.
TEST_F(RaccoltaDiFile, LeavesFilesAloneThatMustNotBeOpened) {
  scrivi("a.xml", parcellaXml());
  scrivi("in uso.xml", parcellaXml());
  LimitiRaccolta limiti;
  limiti.intoccabile = [](const std::filesystem::path& file) { return file.filename() == "in uso.xml"; };
  EXPECT_EQ(raccogli(cartella_, ricevuti_.ricevente(), limiti), (Ignorati{{"file del database in uso", 1}}));
  EXPECT_EQ(ricevuti_.voci, (std::vector<std::string>{"a.xml: 1"}));
  ricevuti_.voci.clear();
  EXPECT_EQ(raccogli(cartella_ / "in uso.xml", ricevuti_.ricevente(), limiti), Ignorati());
  EXPECT_EQ(ricevuti_.voci, (std::vector<std::string>{"in uso.xml: F03"}));
}

TEST_F(RaccoltaDiFile, CountsPagesAndDocumentsOfAnOffice) {
  scrivi("pagina.html", "<!DOCTYPE html>\n<html><body>Fatture</body></html>");
  scrivi("rotta.html", "<html><br></body>");
  const std::string foglio = zipDi({{"[Content_Types].xml", "<Types/>"}, {"xl/workbook.xml", "<workbook/>"}});
  scrivi("testo.docx", zipDi({{"[Content_Types].xml", "<Types/>"}, {"word/embeddings/f.xlsx", foglio}}));
  scrivi("lotto.zip", zipDi({{"prospetto.xlsx", foglio}, {"a.xml", parcellaXml()}}));
  scrivi("cattiva.xml", "<!DOCTYPE x>" + parcellaXml().substr(parcellaXml().find("?>") + 2));
  scrivi("dtd.xml", "<!DOCTYPE FatturaElettronica [<!ENTITY a \"<foo>\">]><x/>");
  const Ignorati ignorati = raccogli(cartella_, ricevuti_.ricevente());
  EXPECT_EQ(ricevuti_.voci,
            (std::vector<std::string>{"cattiva.xml: F04", "dtd.xml: F04", "lotto.zip, a.xml: 1"}));
  EXPECT_EQ(ignorati, (Ignorati{{"file che non è una fattura", 4}}));
  ricevuti_.voci.clear();
  raccogli(cartella_ / "testo.docx", ricevuti_.ricevente());
  raccogli(cartella_ / "pagina.html", ricevuti_.ricevente());
  EXPECT_EQ(ricevuti_.voci, (std::vector<std::string>{"testo.docx: F02", "pagina.html: F04"}));
}

TEST_F(RaccoltaDiFile, GivesAFileThatTheCallerNamesWhateverItIs) {
  scrivi("x.pdf", "%PDF-1.4 niente");
  scrivi("RC.xml", kNotifica);
  EXPECT_TRUE(raccogli(cartella_ / "x.pdf", ricevuti_.ricevente()).empty());
  EXPECT_TRUE(raccogli(cartella_ / "RC.xml", ricevuti_.ricevente()).empty());
  EXPECT_TRUE(raccogli(cartella_ / "manca.xml", ricevuti_.ricevente()).empty());
  EXPECT_EQ(ricevuti_.voci, (std::vector<std::string>{"x.pdf: F02", "RC.xml: 0", "manca.xml: F03"}));
}

TEST_F(RaccoltaDiFile, StopsWhenTheReceiverSaysSo) {
  for (const char* nome : {"1.xml", "2.xml", "3.xml"}) scrivi(nome, parcellaXml());
  int quanti = 0;
  raccogli(cartella_, [&](Letto&&) { return ++quanti < 2; });
  EXPECT_EQ(quanti, 2);
}

TEST_F(RaccoltaDiFile, RejectsAFileBeyondTheLimit) {
  scrivi("grande.xml", parcellaXml() + std::string(200000, ' '));
  LimitiRaccolta limiti;
  limiti.documento.byte = 100000;
  raccogli(cartella_, ricevuti_.ricevente(), limiti);
  EXPECT_EQ(ricevuti_.voci, (std::vector<std::string>{"grande.xml: F05"}));
}

TEST(RaccoltaDaArchivio, ReadsMembersAndIgnoresTheirFolders) {
  Ricevuti ricevuti;
  const std::string zip = zipDi({{"../../etc/a.xml", parcellaXml()},
                                 {"cartella/", ""},
                                 {"cartella/b.xml.p7m", firmato(parcellaXml())},
                                 {"mt.xml", kMetadati},
                                 {"stile.xsl", "<x:stylesheet xmlns:x=\"x\"/>"},
                                 {"rotto.p7m", firmato(parcellaXml()).substr(0, 50)}});
  const Ignorati ignorati = raccogli(zip, "lotto.zip", ricevuti.ricevente());
  EXPECT_EQ(ricevuti.voci, (std::vector<std::string>{"lotto.zip, a.xml: 1", "lotto.zip, b.xml.p7m: 1",
                                                     "lotto.zip, mt.xml: 0", "lotto.zip, rotto.p7m: F03"}));
  EXPECT_EQ(ignorati, (Ignorati{{"file che non è una fattura", 1}}));
}

TEST(RaccoltaDaArchivio, DoesNotOpenAnArchiveWithinAnArchive) {
  Ricevuti ricevuti;
  raccogli(zipDi({{"dentro.zip", zipDi({{"a.xml", parcellaXml()}})}, {"b.xml", parcellaXml()}}), "x.zip",
           ricevuti.ricevente());
  EXPECT_EQ(ricevuti.voci, (std::vector<std::string>{"x.zip, dentro.zip: F02", "x.zip, b.xml: 1"}));
}

TEST(RaccoltaDaArchivio, RejectsBombsAndDamage) {
  const auto con = [](const std::string& zip, const LimitiRaccolta& limiti) {
    Ricevuti ricevuti;
    raccogli(zip, "x.zip", ricevuti.ricevente(), limiti);
    return ricevuti.voci.empty() ? std::string() : ricevuti.voci.back();
  };
  LimitiRaccolta limiti;
  const std::string bomba = zipDi(
      {{"a.xml", "<FatturaElettronica>" + std::string(std::size_t{19} << 20U, ' ')}, {"b.xml", "<x/>"}});
  EXPECT_EQ(con(bomba, limiti), "x.zip: F05");
  const std::string zip = zipDi({{"a.xml", parcellaXml()}, {"b.xml", parcellaXml()}});
  limiti.archivio.membri = 1;
  EXPECT_EQ(con(zip, limiti), "x.zip: F05");
  limiti = {};
  limiti.archivio.espansi = parcellaXml().size() + 10;
  EXPECT_EQ(con(zip, limiti), "x.zip: F05");
  limiti = {};
  limiti.documento.byte = 1000;
  EXPECT_EQ(con(zip, limiti), "x.zip, b.xml: F05");
  EXPECT_EQ(con(zip.substr(0, zip.size() / 2), {}), "x.zip: F03");
}

}  // namespace
}  // namespace cu::fatture
