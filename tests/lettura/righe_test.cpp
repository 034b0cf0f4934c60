#include "lettura/righe.h"

#include <gtest/gtest.h>

#include "lettura/lettura_prova.h"

namespace cu::lettura {
namespace {

std::vector<std::string> lette(const std::string& testo, std::size_t alla_volta) {
  prova::TestoLetto sorgente(testo, alla_volta);
  LettoreRighe righe(sorgente);
  std::vector<std::string> lette;
  for (Riga riga; righe.prossima(riga);) {
    const char* const fine = riga.fine == FineRiga::CrLf ? "CRLF" : riga.fine == FineRiga::Lf ? "LF" : "-";
    lette.push_back(std::to_string(riga.numero) + " " + std::to_string(riga.lunghezza) + " " +
                    std::string(riga.testo.substr(0, 5)) + " " + fine);
  }
  EXPECT_EQ(righe.byteLetti(), testo.size());
  return lette;
}

TEST(Righe, AreSplitWhateverTheBlocks) {
  for (const std::size_t alla_volta : {1U, 2U, 3U, 7U, 1000U}) {
    EXPECT_EQ(
        lette("AAA\r\nBB\nC\rC\r\n\r\nfine", alla_volta),
        (std::vector<std::string>{"1 3 AAA CRLF", "2 2 BB LF", "3 3 C\rC CRLF", "4 0  CRLF", "5 4 fine -"}));
  }
}

TEST(Righe, OfAnEmptyFileAreNone) { EXPECT_TRUE(lette("", 10).empty()); }

TEST(Righe, ALoneEndIsAnEmptyLine) { EXPECT_EQ(lette("\n", 10), std::vector<std::string>{"1 0  LF"}); }

TEST(Righe, ALineLongerThanTheBlockIsCountedAndItsHeadKept) {
  const std::string lunga = "LUNGA" + std::string(900000, 'x');
  for (const std::size_t alla_volta : {4096U, 100000U, 1000000U}) {
    EXPECT_EQ(lette(lunga + "\r\nDOPO\r\n", alla_volta),
              (std::vector<std::string>{"1 900005 LUNGA CRLF", "2 4 DOPO CRLF"}));
    EXPECT_EQ(lette(lunga + "\nDOPO", alla_volta),
              (std::vector<std::string>{"1 900005 LUNGA LF", "2 4 DOPO -"}));
    EXPECT_EQ(lette(lunga, alla_volta), (std::vector<std::string>{"1 900005 LUNGA -"}));
  }
}

TEST(Righe, NoMoreThanTheHeadOfALineIsKept) {
  prova::TestoLetto sorgente(std::string(10000, 'x') + "\r\n");
  LettoreRighe righe(sorgente);
  Riga riga;
  ASSERT_TRUE(righe.prossima(riga));
  EXPECT_EQ(riga.lunghezza, 10000U);
  EXPECT_EQ(riga.testo.size(), kRigaMassima);
}

}  // namespace
}  // namespace cu::lettura
