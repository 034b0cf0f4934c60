// The worked example of docs/formato.md.

#include <gtest/gtest.h>

#include <string>

#include "telematic/cu_file_seq.h"
#include "telematic/prova.h"

namespace cu {
namespace {

using test::amount;
using test::text;
using test::whole;

TEST(Formato, TheWorkedExampleOfTheDocument) {
  const test::Righe righe(test::rispostaPrincipale({{{"CodiceFiscaleAz", text("01234567890")},
                                                     {"AnagraficaAz", text("Alfa S.r.l.")},
                                                     {"ComuneAz", text("Verona")},
                                                     {"SiglaProvinciaAz", text("VR")},
                                                     {"CodiceFiscale", text("RSSNCL80B01L781X")},
                                                     {"Anagrafica", text("Rossi")},
                                                     {"Nome", text("Nicolò")},
                                                     {"PersonaFisica", whole(1)},
                                                     {"Sesso", text("M")},
                                                     {"DataNascita", test::day(1980, 2, 1)},
                                                     {"ComuneNascita", text("Verona")},
                                                     {"ProvinciaNascita", text("VR")},
                                                     {"Codice", text("A")},
                                                     {"Anno", whole(2016)},
                                                     {"AmmontareLordo", amount("1234.5")},
                                                     {"SommeNonSoggetteARitenuta", amount("234.5")},
                                                     {"Imponibile", amount("1000")},
                                                     {"RitenuteAcconto", amount("200")}}}));
  test::Prova prova(2016);
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/esempio.cur");
  ASSERT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  file.WriteRecordTipoD(righe[0], 1, "01234567890", Comunicazione::Ordinaria,
                        Date::fromYmd(2017, 2, 28).value());
  file.WriteRecordTipoH(righe[0], 1, 1, "01234567890", nullptr);
  file.CloseFile();

  const auto linea = [](const std::string& inizio, std::size_t fino) {
    return inizio + std::string(fino - inizio.size(), ' ') + "A\r\n";
  };
  const std::string d =
      "D"
      "01234567890     "
      "00000001"
      "RSSNCL80B01L781X"
      "00001"
      "00000000000000000"
      "000000"
      "                   "
      "0"
      "DA00100101234567890     "
      "DA001002ALFA S.R.L.     "
      "DA001004Verona          "
      "DA001005VR              "
      "DA002001RSSNCL80B01L781X"
      "DA002002ROSSI           "
      "DA002003NICOL\xD2          "
      "DA002004M               "
      "DA002005        01021980"
      "DA002006Verona          "
      "DA002007VR              "
      "DA003001        28022017"
      "DA003002               1";
  const std::string h =
      "H"
      "01234567890     "
      "00000001"
      "RSSNCL80B01L781X"
      "00001"
      "                                           "
      "AU001001A               "
      "AU001004         1234,50"
      "AU001006               6"
      "AU001007          234,50"
      "AU001008         1000,00"
      "AU001009          200,00";
  EXPECT_EQ(prova.files.files.at("/esempio.cur"), linea(d, 1897) + linea(h, 1897));
}

}  // namespace
}  // namespace cu
