#include "sqlite/tokenizer.h"

#include <gtest/gtest.h>

#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

std::string shown(std::string_view text) {
  std::string result;
  for (const Token& token : tokenize(text).tokens) {
    if (!result.empty()) result += ' ';
    switch (token.kind) {
      case TokenKind::End:
        result += "end";
        break;
      case TokenKind::Word:
        result += "word:" + token.name();
        break;
      case TokenKind::Quoted:
        result += "name:" + token.name();
        break;
      case TokenKind::Text:
        result += "text:" + std::string(token.text);
        break;
      case TokenKind::Number:
        result += "number:" + std::string(token.text);
        break;
      case TokenKind::Symbol:
        result += std::string(token.text);
        break;
    }
  }
  return result;
}

struct Case {
  const char* text;
  const char* tokens;
};

TEST(Tokenizer, SplitsEveryKindOfToken) {
  const Case cases[] = {
      {"", "end"},
      {"SELECT *", "word:SELECT * end"},
      {"[dbo].[tmp 1]", "name:dbo . name:tmp 1 end"},
      {"[a]]b]", "name:a]b end"},
      {"[a\"\"b]", "name:a\"\"b end"},
      {"\"a\"\"b\"", "name:a\"b end"},
      {"N'U'", "text:U end"},
      {"n'x' 'y'", "text:x text:y end"},
      {"'D''Amico'", "text:D''Amico end"},
      {"''", "text: end"},
      {"''''", "text:'' end"},
      {"12 12.5 .5 5. 1e3 1.5E-2", "number:12 number:12.5 number:.5 number:5. number:1e3 number:1.5E-2 end"},
      {"a<>b<=c>=d!=e!<f!>g", "word:a <> word:b <= word:c >= word:d != word:e !< word:f !> word:g end"},
      {"a.b", "word:a . word:b end"},
      {"-5", "- number:5 end"},
      {"a - - b", "word:a - - word:b end"},
      {"CI.Anno=2016", "word:CI . word:Anno = number:2016 end"},
      {"a -- note\n+ b", "word:a + word:b end"},
      {"a /* one /* two */ 'x' */ b", "word:a word:b end"},
      {"a\t\r\n\v\fb", "word:a word:b end"},
      {"Città", "word:Città end"},
      {"@x #t a$b", "word:@x word:#t word:a$b end"},
  };
  for (const Case& each : cases) EXPECT_EQ(shown(each.text), each.tokens) << each.text;
}

TEST(Tokenizer, NumbersLiteralsInTheOrderOfTheText) {
  const TokenList list = tokenize("UPDATE t SET a = 'x''y', b = 2.5 WHERE c IN (1, N'z')");
  ASSERT_EQ(list.literals.size(), 4u);
  EXPECT_EQ(list.literals[0].text, "x''y");
  EXPECT_TRUE(list.literals[0].doubled);
  EXPECT_EQ(plainText(list.literals[0]), "x'y");
  EXPECT_EQ(list.literals[1].text, "2.5");
  EXPECT_EQ(list.literals[2].kind, Literal::Kind::Number);
  EXPECT_EQ(list.literals[3].text, "z");
  EXPECT_FALSE(list.literals[3].doubled);
}

struct Fault {
  const char* text;
  std::size_t position;
  const char* message;
};

TEST(Tokenizer, RefusesWhatBeginsNothingOrHasNoEnd) {
  const Fault faults[] = {
      {"SELECT 'abc", 7, "testo senza apice di chiusura"},
      {"SELECT 'abc''", 7, "testo senza apice di chiusura"},
      {"SELECT [abc", 7, "nome senza parentesi o virgolette di chiusura"},
      {"SELECT \"abc", 7, "nome senza parentesi o virgolette di chiusura"},
      {"SELECT []", 7, "nome vuoto o non valido"},
      {"a /* b", 2, "commento senza fine"},
      {"a /* b /* c */", 2, "commento senza fine"},
      {"1abc", 0, "numero scritto male"},
      {"0x10", 0, "numero scritto male"},
      {"1e", 0, "numero scritto male"},
      {"1.2.3", 0, "numero scritto male"},
      {"a ? b", 2, "carattere non ammesso"},
      {"a || b", 2, "carattere non ammesso"},
      {"\x01", 0, "carattere non ammesso"},
      {"a{b", 1, "carattere non ammesso"},
  };
  for (const Fault& fault : faults) {
    try {
      tokenize(fault.text);
      ADD_FAILURE() << fault.text;
    } catch (const SqlError& error) {
      EXPECT_EQ(error.position(), fault.position) << fault.text;
      EXPECT_STREQ(error.what(), fault.message) << fault.text;
    }
  }
}

TEST(Tokenizer, RefusesANullCharacterWhereverItStands) {
  for (const std::string& text :
       {std::string("a\0b", 3), std::string("'a\0b'", 5), std::string("[a\0b]", 5)}) {
    EXPECT_THROW(tokenize(text), SqlError);
  }
}

TEST(Tokenizer, KnowsTheDoubleBarInStoredTextsOnly) {
  EXPECT_EQ(tokenize("a || b", Dialect::Stored).tokens.size(), 4u);
}

TEST(Tokenizer, StandsEverySingleByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = std::string("SELECT a") + static_cast<char>(byte) + "1 ";
    try {
      EXPECT_GE(tokenize(text).tokens.size(), 2u);
    } catch (const SqlError& error) {
      EXPECT_LE(error.position(), text.size());
    }
  }
}

}  // namespace
}  // namespace cu::sqlite
