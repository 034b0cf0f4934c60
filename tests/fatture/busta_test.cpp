#include "fatture/busta.h"

#include <gtest/gtest.h>

#include <string>

#include "fatture/busta_prova_support.h"
#include "fatture/documento_prova.h"
#include "fatture/errore.h"

namespace cu::fatture {
namespace {

using namespace prova;

std::string aperta(const std::string& byte) { return apriBusta(byte, {"prova.xml.p7m", 0, 0, {}}).contenuto; }

std::string codiceDi(const std::string& byte, const Limiti& limiti = {}) {
  try {
    apriBusta(byte, {"prova.xml.p7m", 0, 0, {}}, limiti);
  } catch (const ErroreFattura& errore) {
    EXPECT_EQ(errore.rilievo().posto.file, "prova.xml.p7m");
    return errore.rilievo().codice;
  }
  return "";
}

TEST(Busta, LeavesAPlainTextAsItIs) {
  const std::string xml = parcellaXml();
  EXPECT_EQ(aperta(xml), xml);
  EXPECT_EQ(aperta("\xef\xbb\xbf\n " + xml), "\xef\xbb\xbf\n " + xml);
}

TEST(Busta, OpensASignedEnvelopeInDerAndBer) {
  const std::string xml = parcellaXml();
  EXPECT_EQ(aperta(firmato(xml)), xml);
  const std::string ber = firmato(xml, true);
  ASSERT_EQ(static_cast<unsigned char>(ber[1]), 0x80);
  EXPECT_EQ(aperta(ber), xml);
}

TEST(Busta, OpensBase64WithAndWithoutLinesAndPadding) {
  const std::string xml = parcellaXml();
  const std::string busta = firmato(xml);
  EXPECT_EQ(aperta(base64(busta)), xml);
  EXPECT_EQ(aperta(base64(busta, 64, "\n")), xml);
  EXPECT_EQ(aperta(base64(busta, 76, "\r\n")), xml);
  std::string senza = base64(busta + (busta.size() % 3 == 0 ? "\n" : ""));
  ASSERT_EQ(senza.back(), '=');
  while (senza.back() == '=') senza.pop_back();
  EXPECT_EQ(aperta(senza), xml);
  EXPECT_EQ(aperta(inPem(busta)), xml);
}

TEST(Busta, OpensEnvelopesWithinEnvelopes) {
  const std::string xml = parcellaXml();
  EXPECT_EQ(aperta(base64(base64(firmato(xml)), 64)), xml);
  EXPECT_EQ(aperta(firmato(firmato(xml))), xml);
  EXPECT_EQ(aperta(firmato(base64(xml))), xml);
  EXPECT_EQ(codiceDi(firmato(firmato(firmato(firmato(firmato(xml)))))), "F05");
}

TEST(Busta, ReportsWhatCannotBeOpened) {
  const std::string busta = firmato(parcellaXml());
  EXPECT_EQ(codiceDi(""), "F01");
  EXPECT_EQ(codiceDi(" \r\n"), "F01");
  EXPECT_EQ(codiceDi("PDF e altro, non una fattura"), "F02");
  EXPECT_EQ(codiceDi(busta.substr(0, 40)), "F03");
  EXPECT_EQ(codiceDi(soloFirma(parcellaXml())), "F03");
  EXPECT_EQ(codiceDi(inPem(busta).substr(0, 300)), "F03");
  Limiti stretti;
  stretti.byte = 100;
  EXPECT_EQ(codiceDi(busta, stretti), "F05");
}

TEST(Busta, SaysThatAnEnvelopeConvertedAsATextIsLost) {
  const std::string busta = firmato(parcellaXml());
  std::string convertita;
  for (const char c : busta) {
    const auto u = static_cast<unsigned char>(c);
    if (u < 0x80) {
      convertita += c;
    } else {
      convertita += static_cast<char>(0xc0U | u >> 6U);
      convertita += static_cast<char>(0x80U | (u & 0x3fU));
    }
  }
  try {
    aperta(convertita);
    FAIL();
  } catch (const ErroreFattura& errore) {
    EXPECT_EQ(errore.rilievo().codice, "F03");
    EXPECT_NE(errore.rilievo().testo.find("convertita"), std::string::npos);
  }
}

TEST(Busta, CutsTheDocumentOutOfADamagedEnvelopeWithAWarning) {
  const std::string xml = parcellaXml();
  for (const bool indefinita : {false, true}) {
    std::string busta = firmato(xml, indefinita);
    busta.resize(busta.size() - 30);
    const BustaAperta esito = apriBusta(busta, {"prova.p7m", 0, 0, {}});
    EXPECT_EQ(esito.contenuto, xml.substr(0, xml.size() - 1)) << indefinita;  // without its last line end
    ASSERT_EQ(esito.rilievi.size(), 1U);
    EXPECT_EQ(esito.rilievi[0].codice, "F03");
    EXPECT_TRUE(esito.rilievi[0].avviso);
  }
}

TEST(Busta, JoinsTheSegmentsOfADamagedEnvelope) {
  const std::string xml = parcellaXml();
  std::string busta = "\x30\x80\x06\x09 rotta \x24\x80";
  for (std::size_t i = 0; i < xml.size(); i += 100) {
    const std::string parte = xml.substr(i, 100);
    busta += '\x04';
    busta += static_cast<char>(parte.size());
    busta += parte;
  }
  busta += std::string("\0\0\0\0", 4);
  EXPECT_EQ(aperta(busta), xml.substr(0, xml.size() - 1));
}

TEST(Busta, RecognisesAFileByItsContent) {
  EXPECT_EQ(forma(parcellaXml()), Forma::Xml);
  EXPECT_EQ(forma(firmato("x")), Forma::Busta);
  const std::string chiave =
      std::string("\x30\x82\x08\x65\x02\x01\x03\x30\x82\x08\x2b\xff", 12) + std::string(200, '\x81');
  EXPECT_EQ(forma(chiave), Forma::Altra);
  EXPECT_EQ(forma("PK\3\4"), Forma::Zip);
  EXPECT_EQ(forma("%PDF-1.4 ..."), Forma::Altra);
  EXPECT_EQ(forma("0123;4567;un testo qualunque che comincia con uno zero"), Forma::Altra);
  EXPECT_EQ(forma("\xef\xbb\xbf"), Forma::Vuota);
}

TEST(Busta, GivesTheDigestOfBytes) {
  EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

}  // namespace
}  // namespace cu::fatture
