#include <gtest/gtest.h>

#include "lettura/lettura_prova.h"

namespace cu::lettura::prova {
namespace {

FileDiProva dueCertificati(char operazione = ' ') {
  FileDiProva file;
  file.certificato("RSSMRC71C08L781I", operazione).certificato("00743110157", operazione);
  return file.fine();
}

struct Danno {
  std::size_t riga;
  std::size_t posizione;
  const char* testo;
  const char* trovato;
};

void prova(const std::vector<Danno>& danni, char operazione = ' ') {
  for (const Danno& danno : danni) {
    FileDiProva file = dueCertificati(operazione);
    file.metti(danno.riga, danno.posizione, danno.testo);
    EXPECT_EQ(elenco(file.esamina()), Elenco{danno.trovato}) << danno.riga << ":" << danno.posizione;
  }
}

TEST(H01, TheAgentsCodeDiffersInOneRecord) {
  prova({{2, 2, "04123450234", "H01 2:2"},
         {3, 2, "04123450234", "H01 3:2"},
         {4, 2, "04123450234", "H01 4:2"},
         {5, 2, "X", "H01 5:2"},
         {6, 2, "X", "H01 6:2"}});
}

TEST(H01, TheCellOfTheAgentAgainstTheHeads) {
  FileDiProva file = dueCertificati();
  file.valore(3, "DA001001", "00743110157");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H01 3:90"});
}

TEST(H02, ThePayeeDiffersInOneRecord) {
  prova({{3, 26, "RSSMRC71C08L781Z", "H02 3:26"},
         {4, 26, "RSSMRC71C08L781Z", "H02 4:26"},
         {6, 26, "X", "H02 6:26"}});
  FileDiProva file = dueCertificati();
  file.valore(5, "DA002001", "04123450233");
  EXPECT_EQ(elenco(file.esamina()), (Elenco{"H02 5:" + std::to_string(file.posto(5, "DA002001"))}));
}

TEST(H02, ThePayeeOfAnAnnulmentAgainstItsCell) {
  FileDiProva file = dueCertificati('A');
  file.valore(3, "DA002001", "BNCMRC71C08L781");
  const std::string posto = std::to_string(file.posto(3, "DA002001"));
  EXPECT_EQ(elenco(file.esamina()), (Elenco{"H02 3:" + posto, "K03 3:" + posto}));
  file = dueCertificati('A');
  file.metti(4, 26, "04123450233     ");
  EXPECT_EQ(elenco(file.esamina()), (Elenco{"H02 4:" + std::to_string(file.posto(4, "DA002001"))}));
}

TEST(H02, TheNumberDiffersInOneRecord) {
  prova({{4, 42, "00002", "H02 4:42"},
         {6, 42, "00009", "H02 6:42"},
         {3, 42, "00005", "H02 3:42"},
         {3, 42, "00002", "H02 3:42"}});
}

TEST(H01, AForeignByteInAHeadIsTheOnlyFinding) {
  for (const Danno& danno : std::vector<Danno>{{2, 3, "\x01", "L03 2:3"},
                                               {3, 3, "\x01", "L03 3:3"},
                                               {3, 27, "\x01", "L03 3:27"},
                                               {4, 27, "\x01", "L03 4:27"},
                                               {3, 44, "\x01", "L03 3:44"},
                                               {4, 91, "\x01", "L03 4:91"}}) {
    FileDiProva file = dueCertificati();
    file.metti(danno.riga, danno.posizione, danno.testo);
    EXPECT_EQ(elenco(file.esamina()), Elenco{danno.trovato});
  }
}

TEST(H03, ASupplyThatIsNotKnown) {
  prova({{1, 16, "CUR14", "H03 1:16"},
         {1, 16, "CUS18", "H03 1:16"},
         {1, 16, "CUR1X", "H03 1:16"},
         {1, 16, "     ", "H03 1:16"}});
}

TEST(H04, ACorrectionWithoutItsReferences) {
  for (const char operazione : {'A', 'S'}) {
    prova({{3, 47, "00000000000000000", "H04 3:47"}, {3, 64, "000000", "H04 3:64"}}, operazione);
  }
}

TEST(H05, AnOrdinaryCertificateWithReferences) {
  prova({{3, 47, "18030612345678901", "H05 3:47"}, {5, 64, "000001", "H05 5:64"}});
}

TEST(H06, AnAnnulmentWithAmounts) {
  FileDiProva file;
  file.certificato("RSSMRC71C08L781I", 'A');
  file.modulo({{"AU001001", "A"},
               {"AU001004", FileDiProva::amount("10,00")},
               {"AU001008", FileDiProva::amount("10,00")}});
  EXPECT_EQ(elenco(file.fine().esamina()), Elenco{"H06 4:114"});
}

TEST(H07, AnOrdinaryCertificateAmongCorrections) {
  FileDiProva file;
  file.certificato().certificato("RSSMRC71C08L781I", 'S').certificato();
  EXPECT_EQ(elenco(file.fine().esamina()), (Elenco{"H07 3:84", "H07 7:84"}));
}

TEST(H07, ACorrectionAmongOrdinaryCertificates) {
  FileDiProva file = dueCertificati();
  file.metti(5, 84, "S").metti(5, 47, "18030612345678901").metti(5, 64, "000001");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H07 5:84"});
  file = dueCertificati();
  file.metti(3, 84, "S").metti(3, 47, "18030612345678901").metti(3, 64, "000001");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H07 3:84"});
}

TEST(H07, ASupplyThatDeclaresWhatItIsNot) {
  prova({{2, 91, "1", "H07 2:91"}, {2, 92, "1", "H07 2:92"}});
  prova({{2, 92, "0", "H07 2:92"}}, 'S');
}

TEST(H07, AFlagOfTheOtherKind) {
  FileDiProva file;
  file.certificato("RSSMRC71C08L781I", 'S').fine();
  file.metti(2, 91, "10");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H07 2:92"});
  file.metti(2, 91, "11");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H07 2:91"});
}

TEST(H07, AnAnnulmentAmongReplacementsThatAreDeclaredAlone) {
  FileDiProva file;
  file.certificato("RSSMRC71C08L781I", 'S').certificato("00743110157", 'A').fine();
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  file.metti(2, 91, "0");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H07 5:84"});
  file.metti(2, 91, "10");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"H07 3:84"});
}

TEST(F01, NumbersThatAreNotFilledWithZeros) {
  prova({{1, 21, " 1", "F01 1:21"},
         {2, 18, "       1", "F01 2:18"},
         {2, 326, " 1", "F01 2:326"},
         {2, 372, "           ", "F01 2:372"},
         {2, 402, "       2", "F01 2:402"},
         {2, 428, "X", "F01 2:428"},
         {3, 18, "1       ", "F01 3:18"},
         {3, 42, "    1", "F01 3:42"},
         {3, 47, "               00", "F01 3:47"},
         {3, 64, "     0", "F01 3:64"},
         {4, 18, "       1", "F01 4:18"},
         {4, 42, "    1", "F01 4:42"},
         {7, 16, "        1", "F01 7:16"},
         {7, 34, "        2", "F01 7:34"},
         {7, 52, "2        ", "F01 7:52"}});
}

TEST(F02, TextsThatDoNotBeginAtTheLeft) {
  prova({{1, 23, " 4123450233", "F02 1:23"},
         {2, 137, " BOTTEGA S.R.L", "F02 2:137"},
         {2, 197, " osta@", "F02 2:197"},
         {2, 297, "  0451234", "F02 2:297"}});
}

TEST(F03, DatesThatDoNotExist) {
  prova({{2, 429, "30022018", "F03 2:429"},
         {2, 429, "        ", "F03 2:429"},
         {2, 429, "20180305", "F03 2:429"},
         {2, 429, "0503201X", "F03 2:429"}});
  FileDiProva file = dueCertificati();
  file.metti(2, 429, "00000000");
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(F04, FlagsThatAreNone) {
  prova({{2, 91, "2", "F04 2:91"},
         {2, 92, "X", "F04 2:92"},
         {2, 410, "S", "F04 2:410"},
         {2, 411, "2", "F04 2:411"},
         {2, 437, "9", "F04 2:437"},
         {3, 84, "X", "F04 3:84"},
         {3, 89, "2", "F04 3:89"}});
}

TEST(F05, LowerCaseWhereCapitalsAreRequired) {
  prova({{1, 23, "rssmrc71c08l781i", "F05 1:23"},
         {2, 137, "Bottega S.R.L.", "F05 2:137"},
         {2, 310, "brtnna68d52l781k", "F05 2:310"},
         {2, 137, "BOTTEGA \xE0", "F05 2:137"}});
  FileDiProva file = dueCertificati();
  file.metti(2, 137, "Bottega");
  EXPECT_EQ(file.esamina().rilievi.errori(), 0U);
  EXPECT_EQ(file.esamina().rilievi.avvisi(), 1U);
}

TEST(F06, FillersThatAreNotBlank) {
  prova({{1, 2, "X", "F06 1:2"},
         {1, 40, "X", "F06 1:39"},
         {1, 522, "0001", "F06 1:522"},
         {1, 1897, "X", "F06 1:1698"},
         {2, 26, "0", "F06 2:26"},
         {2, 383, "0", "F06 2:383"},
         {2, 394, "0", "F06 2:394"},
         {2, 527, "0", "F06 2:527"},
         {2, 1863, "0", "F06 2:1844"},
         {3, 86, "1", "F06 3:85"},
         {3, 1890, "1", "F06 3:1890"},
         {4, 47, "0", "F06 4:47"},
         {4, 89, "0", "F06 4:89"},
         {4, 1897, "0", "F06 4:1890"},
         {7, 70, "0", "F06 7:70"},
         {7, 1000, "0", "F06 7:88"}});
}

TEST(CampiLiberi, AreTheUsers) {
  FileDiProva file = dueCertificati();
  file.metti(1, 530, "nostro").metti(2, 60, "nostro").metti(3, 70, "nostro").metti(4, 64, "nostro");
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(RecordB, HasTheLayoutOfItsYear) {
  FileDiProva vecchio("CUR16");
  vecchio.certificato().fine();
  EXPECT_EQ(elenco(vecchio.metti(2, 309, "0").esamina()), Elenco{"F06 2:309"});
  FileDiProva primo("CUR15");
  primo.certificato().fine();
  EXPECT_EQ(elenco(primo.metti(2, 394, "        ").esamina()), Elenco{"F01 2:394"});
}

}  // namespace
}  // namespace cu::lettura::prova
