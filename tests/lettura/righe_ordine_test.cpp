#include <gtest/gtest.h>

#include "lettura/lettura_prova.h"

namespace cu::lettura::prova {
namespace {

FileDiProva treCertificati() {
  FileDiProva file;
  file.certificato().certificato("00743110157").certificato();
  return file.fine();
}
// Lines: 1 A, 2 B, 3 D, 4 H, 5 D, 6 H, 7 D, 8 H, 9 Z.

TEST(FileBuono, HasNoFindings) {
  EXPECT_EQ(elenco(treCertificati().esamina()), Elenco{});
  for (const char* codice : {"CUR15", "CUR16", "CUR17", "CUR18", "CUR19"}) {
    FileDiProva file(codice);
    file.certificato();
    EXPECT_EQ(elenco(file.fine().esamina()), Elenco{}) << codice;
  }
}

TEST(FileBuono, OfEachCorrectionHasNoFindings) {
  for (const char operazione : {'A', 'S'}) {
    FileDiProva file;
    file.certificato("RSSMRC71C08L781I", operazione).certificato("00743110157", operazione);
    EXPECT_EQ(elenco(file.fine().esamina()), Elenco{}) << operazione;
  }
}

TEST(FileBuono, MayHaveAnnulmentsAndReplacementsTogether) {
  FileDiProva file;
  file.certificato("RSSMRC71C08L781I", 'A').certificato("00743110157", 'S');
  EXPECT_EQ(elenco(file.fine().esamina()), Elenco{});
}

TEST(FileBuono, MayHaveSeveralAgentsAndGapsInTheNumbers) {
  FileDiProva file = treCertificati();
  const std::vector<std::string> uno(file.righe.begin() + 1, file.righe.end() - 1);
  file.righe.insert(file.righe.end() - 1, uno.begin(), uno.end());
  FileDiProva::metti(file.righe.back(), 16, "000000002000000000000000006000000000000000006");
  for (std::size_t riga : {7U, 8U}) file.metti(riga, 42, "00009");
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(L01, AShortLineAtItsFirstMissingCharacter) {
  FileDiProva file = treCertificati();
  file.righe[3].erase(1000, 1);
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L01 4:1898"});
}

TEST(L01, ALongLineAtItsFirstSuperfluousCharacter) {
  FileDiProva file = treCertificati();
  file.righe[3].insert(1000, "   ");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L01 4:1899"});
}

TEST(L01, ALineThatEndsWithLineFeedAlone) {
  std::string testo = treCertificati().testo();
  testo.erase(4 * 1900 - 2, 1);
  EXPECT_EQ(elenco(FileDiProva::esaminaTesto(testo)), Elenco{"L01 4:1899"});
}

TEST(L01, TheLastLineWithoutAnEnd) {
  std::string testo = treCertificati().testo();
  testo.resize(testo.size() - 2);
  EXPECT_EQ(elenco(FileDiProva::esaminaTesto(testo)), Elenco{"L01 9:1899"});
}

TEST(L01, AnEmptyLine) {
  FileDiProva file = treCertificati();
  file.righe.insert(file.righe.begin() + 4, "");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L01 5:1"});
}

TEST(L01, WhateverLineIsShort) {
  for (std::size_t riga = 0; riga < 9; ++riga) {
    FileDiProva file = treCertificati();
    file.righe[riga].erase(60, 1);
    EXPECT_EQ(elenco(file.esamina()), Elenco{"L01 " + std::to_string(riga + 1) + ":1898"});
  }
}

TEST(L02, ALineWithoutTheMark) {
  for (std::size_t riga = 1; riga <= 9; ++riga) {
    FileDiProva file = treCertificati();
    file.metti(riga, 1898, " ");
    EXPECT_EQ(elenco(file.esamina()), Elenco{"L02 " + std::to_string(riga) + ":1898"});
  }
}

TEST(L03, BytesThatAreNoCharacters) {
  for (const char byte : {'\t', '\0', '\x1A', '\x7F', '\x81', '\x8D', '\x8F', '\x90', '\x9D'}) {
    FileDiProva file = treCertificati();
    const std::size_t posto = file.posto(3, "DA002002") + 10;
    file.metti(3, posto, std::string(1, byte));
    EXPECT_EQ(elenco(file.esamina()), Elenco{"L03 3:" + std::to_string(posto)}) << int{byte};
  }
}

TEST(L03, InAnAmountIsTheOnlyFinding) {
  FileDiProva file = treCertificati();
  const std::size_t posto = file.posto(4, "AU001004") + 20;
  file.metti(4, posto, "\x01");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L03 4:" + std::to_string(posto)});
}

TEST(L03, LettersWithAccentsAreCharacters) {
  FileDiProva file = treCertificati();
  file.valore(3, "DA002002", "NICOL\xD2 \x80\x9F");
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(L04, AFileWithoutItsEndOnTheLastLine) {
  FileDiProva file = treCertificati();
  file.righe.pop_back();
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L04 8:1"});
}

TEST(L04, ALineBehindTheEnd) {
  FileDiProva file = treCertificati();
  file.righe.push_back(file.righe[7]);
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L04 10:1"});
}

TEST(L04, ASecondEndAndAFileBehindAFile) {
  FileDiProva file = treCertificati();
  file.righe.push_back(file.righe.back());
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L04 10:1"});
  file = treCertificati();
  file.righe.insert(file.righe.begin() + 4, file.righe.back());
  EXPECT_EQ(elenco(file.esamina()), Elenco{"L04 10:1"});
}

TEST(L01, TwoLinesWithoutAnEndBetweenThem) {
  for (std::size_t riga = 1; riga <= 8; ++riga) {
    for (const std::size_t tolti : {1U, 2U}) {
      std::string testo = treCertificati().testo();
      testo.erase(riga * 1900 - tolti, tolti);
      if (tolti == 1) testo.erase(riga * 1900 - 2, 1);
      EXPECT_EQ(elenco(FileDiProva::esaminaTesto(testo)), Elenco{"L01 " + std::to_string(riga) + ":1899"});
    }
  }
}

TEST(L04, AnEmptyFile) { EXPECT_EQ(elenco(FileDiProva::esaminaTesto("")), Elenco{"L04 1:1"}); }

TEST(O01, AFileWithoutItsHead) {
  FileDiProva file = treCertificati();
  file.righe.erase(file.righe.begin());
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O01 1:1"});
  file = treCertificati();
  file.metti(1, 1, "X");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O01 1:1"});
}

TEST(O02, RecordsOutOfOrder) {
  FileDiProva file = treCertificati();
  file.righe.insert(file.righe.begin() + 4, file.righe[0]);  // a second A
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O02 5:1"});
  file = treCertificati();
  std::swap(file.righe[1], file.righe[2]);  // D before B
  EXPECT_EQ(elenco(file.esamina()).front(), "O02 2:1");
  file = treCertificati();
  file.righe.insert(file.righe.begin() + 2, file.righe[3]);  // H behind B
  FileDiProva::metti(file.righe.back(), 52, "000000004");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O02 3:1"});
}

TEST(O02, AModuleBeforeAnyCertificate) {
  FileDiProva file = treCertificati();
  std::swap(file.righe[2], file.righe[3]);
  const Elenco trovati = elenco(file.esamina());
  ASSERT_FALSE(trovati.empty());
  EXPECT_EQ(trovati.front(), "O02 3:1");
}

TEST(O03, ARecordThatTheSupplyHasNot) {
  FileDiProva file = treCertificati();
  file.metti(6, 1, "X");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O03 6:1"});
  file = treCertificati();
  file.metti(5, 1, "d");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O03 5:1"});
  file = treCertificati();
  file.righe.insert(file.righe.begin() + 4, "Q" + file.righe[4].substr(1));
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O03 5:1"});
  for (const char* lettera : {"C", "G", "L"}) {
    file = treCertificati();
    file.metti(6, 1, lettera);
    EXPECT_EQ(elenco(file.esamina()), Elenco{"O03 6:1"}) << lettera;
  }
}

TEST(O04, CountsThatDiffer) {
  for (const std::size_t posizione : {24U, 33U, 42U, 51U, 60U, 69U}) {
    FileDiProva file = treCertificati();
    file.metti(9, posizione, "8");
    EXPECT_EQ(elenco(file.esamina()), Elenco{"O04 9:1"}) << posizione;
  }
}

TEST(O05, TheNumberOfCertificatesOfTheAgent) {
  FileDiProva file = treCertificati();
  file.metti(2, 409, "4");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O05 2:1"});
  file.metti(2, 409, "2");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O05 2:1"});
}

TEST(O06, NumbersThatDoNotIncrease) {
  FileDiProva file = treCertificati();
  file.metti(5, 42, "00001").metti(6, 42, "00001");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O06 5:1"});
  file = treCertificati();
  file.metti(3, 42, "00007").metti(4, 42, "00007");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"O06 5:1"});
}

TEST(O07, ModulesThatAreNotCounted) {
  FileDiProva file;
  file.certificato().modulo({{"AU001002", "            2015"}, {"AU001003", "               1"}});
  file.modulo({{"AU001018", FileDiProva::amount("10,00")}}).fine();
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  FileDiProva salto = file;
  salto.metti(5, 25, "7");
  EXPECT_EQ(elenco(salto.esamina()), Elenco{"O07 5:1"});
  FileDiProva primo = file;
  primo.metti(4, 25, "4");
  EXPECT_EQ(elenco(primo.esamina()), Elenco{"O07 4:1"});
  FileDiProva diD = file;
  diD.metti(3, 25, "0");
  EXPECT_EQ(elenco(diD.esamina()), Elenco{"O07 3:1"});
  diD.metti(3, 25, "2");
  EXPECT_EQ(elenco(diD.esamina()), Elenco{"O07 3:1"});
}

TEST(Rilievi, OfOneRuleAreListedUpToAThousandAndAllCounted) {
  FileDiProva file;
  for (int i = 0; i < 1200; ++i) file.certificato();
  file.fine();
  for (std::size_t riga = 4; riga < file.righe.size(); riga += 2) file.metti(riga, 1898, "B");
  const Esito esito = file.esamina();
  EXPECT_EQ(esito.rilievi.ordinati().size(), 1000U);
  EXPECT_EQ(esito.rilievi.quanti(Regola::L02), 1200U);
  EXPECT_EQ(esito.rilievi.errori(), 1200U);
  EXPECT_EQ(esito.rilievi.avvisi(), 0U);
}

}  // namespace
}  // namespace cu::lettura::prova
