#include <gtest/gtest.h>

#include "tabelle/errore.h"
#include "tabelle/lettura.h"

namespace cu::tabelle {
namespace {

TEST(Intestazione, IsComparedWithoutCaseAccentsBlanksAndMarks) {
  const std::pair<const char*, const char*> casi[] = {
      {"CodiceFiscale", "codicefiscale"},
      {" Codice  fiscale ", "codicefiscale"},
      {"CODICE_FISCALE", "codicefiscale"},
      {"Cod. Fisc.", "codfisc"},
      {"Codice\r\nfiscale", "codicefiscale"},
      {"Codice\xc2\xa0\x66iscale", "codicefiscale"},
      {"\xef\xbb\xbf\x43odice", "codice"},
      {"Attività", "attivita"},
      {"ATTIVITÀ", "attivita"},
      {"Attivita'", "attivita"},
      {"Attivita\xcc\x80", "attivita"},
      {"Data dell’operazione", "datadelloperazione"},
      {"N° documento", "n°documento"},
      {"Quota %", "quota%"},
      {"Straße", "straße"},
      {"STRAẞE", "straße"},
      {"ﬁne Ⅳ ½", "fineiv1⁄2"},
      {"ΑΊΑΣ", "αιασ"},
      {"\xed\x95\x9c", "\xe1\x84\x92\xe1\x85\xa1\xe1\x86\xab"},
      {"Ｎｏｍｅ＇", "nome"},
      {"", ""},
      {" ._", ""},
      {"\xff", "\xef\xbf\xbd"},
  };
  for (const auto& [scritta, attesa] : casi) EXPECT_EQ(normalizza(scritta), attesa) << scritta;
}

TEST(Colonna, HasLettersAsInASheet) {
  const std::pair<std::size_t, const char*> casi[] = {{0, ""},     {1, "A"},     {26, "Z"},     {27, "AA"},
                                                      {702, "ZZ"}, {703, "AAA"}, {16384, "XFD"}};
  for (const auto& [numero, lettere] : casi) EXPECT_EQ(letteraColonna(numero), lettere);
}

TEST(ErroreTabella, NamesWhatIsKnownOfThePlace) {
  const ErroreTabella intero("F05", {"f.xlsx", "Dati", 14, 3}, "Troppo");
  EXPECT_STREQ(intero.what(), "f.xlsx, foglio \"Dati\", riga 14, colonna C: Troppo (F05).");
  EXPECT_EQ(intero.codice(), "F05");
  EXPECT_EQ(intero.posto().riga, 14U);
  EXPECT_EQ(intero.testo(), "Troppo");
  EXPECT_EQ(intero.number(), kErrorBadFile);
  EXPECT_STREQ(ErroreTabella("F01", {}, "Vuoto").what(), "Vuoto (F01).");
  EXPECT_EQ(descrizione({"", "", 2, 0}), "riga 2");
  EXPECT_EQ(descrizione({"f", "a\nb", 0, 0}), "f, foglio \"a b\"");
}

}  // namespace
}  // namespace cu::tabelle
