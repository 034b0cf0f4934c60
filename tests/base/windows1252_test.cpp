#include "base/windows1252.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace cu {
namespace {

std::string carattere(int byte) { return {static_cast<char>(static_cast<unsigned char>(byte))}; }

// The second half of the code page, as published; "" where it has no character.
const std::vector<std::string> kDa80 = {
    "€", "",  "‚", "ƒ", "„", "…", "†", "‡",      "ˆ", "‰", "Š", "‹", "Œ", "",       "Ž", "",  "",  "‘", "’",
    "“", "”", "•", "–", "—", "˜", "™", "š",      "›", "œ", "",  "ž", "Ÿ", "\u00A0", "¡", "¢", "£", "¤", "¥",
    "¦", "§", "¨", "©", "ª", "«", "¬", "\u00AD", "®", "¯", "°", "±", "²", "³",      "´", "µ", "¶", "·", "¸",
    "¹", "º", "»", "¼", "½", "¾", "¿", "À",      "Á", "Â", "Ã", "Ä", "Å", "Æ",      "Ç", "È", "É", "Ê", "Ë",
    "Ì", "Í", "Î", "Ï", "Ð", "Ñ", "Ò", "Ó",      "Ô", "Õ", "Ö", "×", "Ø", "Ù",      "Ú", "Û", "Ü", "Ý", "Þ",
    "ß", "à", "á", "â", "ã", "ä", "å", "æ",      "ç", "è", "é", "ê", "ë", "ì",      "í", "î", "ï", "ð", "ñ",
    "ò", "ó", "ô", "õ", "ö", "÷", "ø", "ù",      "ú", "û", "ü", "ý", "þ", "ÿ"};

TEST(Testo1252, EveryCharacterOfTheCodePageBecomesItsOneByteAndComesBack) {
  for (int byte = 0; byte < 0x80; ++byte) {
    EXPECT_EQ(a1252(carattere(byte)), carattere(byte));
    EXPECT_EQ(da1252(carattere(byte)), carattere(byte));
  }
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const std::string& utf8 = kDa80.at(static_cast<std::size_t>(byte - 0x80));
    if (utf8.empty()) {
      EXPECT_EQ(da1252(carattere(byte)), "\uFFFD") << byte;
    } else {
      EXPECT_EQ(a1252(utf8), carattere(byte)) << utf8;
      EXPECT_EQ(da1252(carattere(byte)), utf8) << byte;
    }
  }
}

TEST(Testo1252, WhatHasNoPlaceIsOneQuestionMarkACodePoint) {
  EXPECT_EQ(a1252("Kołodziej"), "Ko?odziej");
  EXPECT_EQ(a1252("日本"), "??");
  EXPECT_EQ(a1252("a😀b"), "a?b");
  EXPECT_EQ(a1252("e\u0301"), "e?");
  EXPECT_EQ(a1252("\u0081\u0085"), "??");
  EXPECT_EQ(a1252("\uFFFD"), "?");
}

TEST(Testo1252, BytesThatAreNoUtf8AreOneQuestionMarkEach) {
  EXPECT_EQ(a1252("a\xE0 b"), "a? b");
  EXPECT_EQ(a1252("\xC3"), "?");
  EXPECT_EQ(a1252("\xFF\xFE"), "??");
}

TEST(Testo1252, ALongTextWithOneAccentAnywhereIsConvertedRight) {
  for (std::size_t lunghezza = 1; lunghezza <= 40; ++lunghezza) {
    EXPECT_EQ(a1252(std::string(lunghezza, 'x')), std::string(lunghezza, 'x'));
    for (std::size_t dove = 0; dove < lunghezza; ++dove) {
      const std::string utf8 = std::string(dove, 'x') + "à" + std::string(lunghezza - dove - 1, 'y');
      const std::string atteso = std::string(dove, 'x') + "\xE0" + std::string(lunghezza - dove - 1, 'y');
      EXPECT_FALSE(soloAscii(utf8));
      EXPECT_EQ(a1252(utf8), atteso);
    }
  }
  EXPECT_TRUE(soloAscii(""));
  EXPECT_EQ(a1252(""), "");
}

TEST(Testo1252, UpperCaseIsThatOfTheCodePage) {
  const std::vector<std::pair<std::string, std::string>> coppie = {
      {"abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ", "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ"},
      {"šœžÿ", "ŠŒŽŸ"},
      {"ßµƒ÷×ªº", "ßµƒ÷×ªº"},
      {"0123456789 !/@[`{~", "0123456789 !/@[`{~"},
      {"NICOLÒ", "NICOLÒ"},
      {"Nicolò dell'Aquilà", "NICOLÒ DELL'AQUILÀ"}};
  for (const auto& [piccole, grandi] : coppie) EXPECT_EQ(da1252(maiuscolo1252(a1252(piccole))), grandi);
}

TEST(Testo1252, UpperCaseChangesNoOtherByte) {
  const std::string conMaiuscola = a1252("abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ");
  int cambiati = 0;
  for (int byte = 0; byte < 0x100; ++byte) {
    const char c = carattere(byte)[0];
    const bool cambia = maiuscola1252(c) != c;
    EXPECT_EQ(cambia, conMaiuscola.find(c) != std::string::npos) << byte;
    cambiati += cambia ? 1 : 0;
    EXPECT_EQ(maiuscola1252(maiuscola1252(c)), maiuscola1252(c)) << byte;
  }
  EXPECT_EQ(cambiati, 60);
}

}  // namespace
}  // namespace cu
