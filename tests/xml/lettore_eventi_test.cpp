#include "xml/lettore_eventi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace cu::xml {
namespace {

// The text in pieces of so many bytes.
LettoreEventi::Sorgente aPezzi(std::string testo, std::size_t quanti) {
  return [testo = std::move(testo), quanti, dove = std::size_t{0}](char* in, std::size_t massimo) mutable {
    const std::size_t ora = std::min({quanti, massimo, testo.size() - dove});
    std::memcpy(in, testo.data() + dove, ora);
    dove += ora;
    return ora;
  };
}

// "<a x=1>", "</a>", "text", and how the document ends.
std::string eventi(const std::string& testo, Spazi spazi = Spazi::UnoAUno, std::size_t pezzi = 1 << 20,
                   const char* codifica = nullptr) {
  LettoreEventi lettore(aPezzi(testo, pezzi), spazi, codifica);
  std::string tutto;
  for (;;) {
    switch (lettore.avanza()) {
      case Segno::Inizio: {
        tutto += '<' + std::string(lettore.nome());
        if (const auto x = lettore.attributo("x"); !x.empty()) tutto += " x=" + std::string(x);
        if (const auto y = lettore.attributoDi("/y", "x"); !y.empty()) tutto += " y:x=" + std::string(y);
        tutto += '>';
        break;
      }
      case Segno::Fine:
        tutto += "</" + std::string(lettore.nome()) + '>';
        break;
      case Segno::Testo:
        tutto += lettore.testo();
        break;
      case Segno::Dtd:
        return tutto + "|dtd " + std::to_string(lettore.riga());
      case Segno::FineDocumento:
        EXPECT_EQ(lettore.avanza(), Segno::FineDocumento) << "and nothing follows";
        return tutto;
      case Segno::Incompleto:
        return tutto + "|incompleto";
      case Segno::EntitaIgnota:
        return tutto + "|entità " + std::to_string(lettore.riga());
      case Segno::Malformato:
        EXPECT_EQ(lettore.avanza(), Segno::Malformato) << "and nothing follows";
        return tutto + "|malformato " + std::to_string(lettore.riga());
    }
  }
}

TEST(LettoreEventi, GivesElementsTextsAndAttributesHoweverTheBytesCome) {
  const std::string testo =
      "<?xml version=\"1.0\"?><!-- c --><a x=\"1 &lt; 2\"><b/>uno &amp; due &#233;<![CDATA[<c>]]></a>\n";
  for (const std::size_t pezzi : {1U, 2U, 7U, 1000U}) {
    EXPECT_EQ(eventi(testo, Spazi::UnoAUno, pezzi), "<a x=1 < 2><b></b>uno & due é<c></a>") << pezzi;
  }
}

TEST(LettoreEventi, ResolvesPrefixesOrLeavesThem) {
  const std::string testo = "<p:a xmlns:p=\"http://p\" xmlns:y=\"http://e/y\" x=\"1\" y:x=\"2\"/>";
  EXPECT_EQ(eventi(testo, Spazi::Risolti), "<a x=1 y:x=2></a>");
  EXPECT_EQ(eventi(testo), "<p:a x=1></p:a>");
  EXPECT_EQ(eventi("<p:a/>"), "<p:a></p:a>");
  EXPECT_EQ(eventi("<p:a/>", Spazi::Risolti), "|malformato 1");
}

TEST(LettoreEventi, TellsHowATextEnds) {
  EXPECT_EQ(eventi(""), "|incompleto");
  EXPECT_EQ(eventi("<a><b>"), "<a><b>|incompleto");
  EXPECT_EQ(eventi("<a>\n</b>"), "<a>\n|malformato 2");
  EXPECT_EQ(eventi("<a/>altro"), "<a></a>|malformato 1");
  EXPECT_EQ(eventi("<a>\n\n&che;</a>"), "<a>\n\n|entità 3");
  EXPECT_EQ(eventi("\n<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>"), "|dtd 2");
  EXPECT_EQ(eventi("<a>\x01</a>"), "<a>|malformato 1");
  EXPECT_EQ(eventi("<a>\xff</a>"), "<a>|malformato 1");
}

TEST(LettoreEventi, FollowsTheDeclaredEncodingUnlessAnotherIsGiven) {
  const std::string testo = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xe8</a>";
  EXPECT_EQ(eventi(testo), "<a>è</a>");
  EXPECT_EQ(eventi("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>è</a>", Spazi::UnoAUno, 100, "UTF-8"),
            "<a>è</a>");
}

TEST(LettoreEventi, CountsTheLineInWhichATagEnds) {
  LettoreEventi lettore(aPezzi("<a>\r\n<b\nx='1'\n>\r</b></a>", 100), Spazi::UnoAUno);
  const auto riga = [&](Segno segno, const char* nome) {
    while (lettore.avanza() == Segno::Testo) {
    }
    EXPECT_EQ(lettore.segno(), segno);
    EXPECT_EQ(lettore.nome(), nome);
    return lettore.riga();
  };
  EXPECT_EQ(riga(Segno::Inizio, "a"), 1U);
  EXPECT_EQ(riga(Segno::Inizio, "b"), 4U);
  EXPECT_EQ(riga(Segno::Fine, "b"), 5U);
  EXPECT_EQ(riga(Segno::Fine, "a"), 5U);
}

TEST(LettoreEventi, LetsTheSourcesErrorThrough) {
  LettoreEventi lettore([](char*, std::size_t) -> std::size_t { throw std::runtime_error("rotto"); },
                        Spazi::Risolti);
  EXPECT_THROW(lettore.avanza(), std::runtime_error);
}

}  // namespace
}  // namespace cu::xml
