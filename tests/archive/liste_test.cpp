#include "liste/liste.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>
#include <string>

#include "archive/riempi_liste.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "liste/risorse.h"
#include "liste/tabella.h"
#include "support/fake_connection.h"

namespace cu {
namespace {

const std::map<std::string_view, ComuneInLista>& perCatasto() {
  static const std::map<std::string_view, ComuneInLista> all = [] {
    std::map<std::string_view, ComuneInLista> map;
    for (const ComuneInLista& comune : comuni()) map.emplace(comune.catasto, comune);
    return map;
  }();
  return all;
}

TEST(Comuni, AreAllOfItalyAndThoseSuppressed) {
  std::size_t active = 0;
  for (const ComuneInLista& comune : comuni()) active += comune.soppresso ? 0 : 1;
  EXPECT_GE(active, 7890u);
  EXPECT_LE(active, 7920u);
  EXPECT_GT(comuni().size(), active + 400);
}

TEST(Comuni, HaveTheirPublicCodes) {
  struct Row {
    std::string_view catasto, nome, provincia;
  };
  constexpr Row kRows[] = {
      {"L781", "Verona", "VR"},
      {"H501", "Roma", "RM"},
      {"F205", "Milano", "MI"},
      {"L219", "Torino", "TO"},
      {"F839", "Napoli", "NA"},
      {"G273", "Palermo", "PA"},
      {"D969", "Genova", "GE"},
      {"A944", "Bologna", "BO"},
      {"D612", "Firenze", "FI"},
      {"A662", "Bari", "BA"},
      {"L736", "Venezia", "VE"},
      {"D704", "Forlì", "FC"},
      {"A345", "L'Aquila", "AQ"},
      {"A326", "Aosta", "AO"},
      {"A952", "Bolzano", "BZ"},
      {"B354", "Cagliari", "CA"},
      {"H223", "Reggio nell'Emilia", "RE"},
  };
  for (const Row& row : kRows) {
    ASSERT_TRUE(perCatasto().contains(row.catasto)) << row.nome;
    EXPECT_EQ(perCatasto().at(row.catasto).nome, row.nome);
    EXPECT_EQ(perCatasto().at(row.catasto).provincia, row.provincia);
    EXPECT_FALSE(perCatasto().at(row.catasto).soppresso);
  }
}

TEST(Comuni, ThatMergedAreMarked) {
  EXPECT_TRUE(perCatasto().at("A012").soppresso);   // Abetone, until 2016
  EXPECT_FALSE(perCatasto().at("M376").soppresso);  // Abetone Cutigliano
}

TEST(Comuni, HaveDistinctCodesAndIds) {
  std::set<std::int32_t> ids;
  for (const ComuneInLista& comune : comuni()) EXPECT_TRUE(ids.insert(comune.id).second) << comune.nome;
  EXPECT_EQ(perCatasto().size(), comuni().size());
}

TEST(Comuni, LieInAProvinceOfTheList) {
  const Tabella province(risorsa("liste/province.tsv"));
  EXPECT_EQ(province.righe(), 107u);
  std::set<std::string_view> signs;
  for (std::size_t i = 0; i < province.righe(); ++i) signs.insert(province.campo(i, "Provincia"));
  EXPECT_EQ(signs.size(), province.righe());
  for (const ComuneInLista& comune : comuni()) EXPECT_TRUE(signs.contains(comune.provincia)) << comune.nome;
}

TEST(IdComune, IsTheCodeAsANumber) {
  EXPECT_EQ(idComune("A001"), 1001);
  EXPECT_EQ(idComune("L781"), 12781);
  EXPECT_EQ(idComune("M999"), 13999);
}

TEST(IdComune, RefusesWhatIsNoCode) {
  for (std::string_view wrong : {"", "L78", "L7812", "l781", "1781", "LX81"}) {
    EXPECT_THROW((void)idComune(wrong), std::invalid_argument) << wrong;
  }
}

TEST(Nazioni, HaveTheCodesOfTheAgenzia) {
  struct Row {
    std::string_view codice, nome, catasto;
  };
  constexpr Row kRows[] = {
      {"086", "Italia", ""},
      {"029", "Francia", "Z110"},
      {"094", "Germania", "Z112"},
      {"008", "Austria", "Z102"},
      {"067", "Spagna", "Z131"},
      {"031", "Regno Unito", "Z114"},
      {"071", "Svizzera", "Z133"},
      {"037", "San Marino", "Z130"},
      {"069", "Stati Uniti d'America", "Z404"},
      {"261", "Croazia", "Z149"},
      {"260", "Slovenia", "Z150"},
      {"061", "Romania", "Z129"},
      {"093", "Città del Vaticano", "Z106"},
  };
  std::map<std::string_view, NazioneInLista> byCode;
  for (const NazioneInLista& nazione : nazioni()) byCode.emplace(nazione.codice, nazione);
  EXPECT_EQ(byCode.size(), nazioni().size());
  EXPECT_GT(byCode.size(), 200u);
  for (const Row& row : kRows) {
    ASSERT_TRUE(byCode.contains(row.codice)) << row.nome;
    EXPECT_EQ(byCode.at(row.codice).nome, row.nome);
    EXPECT_EQ(byCode.at(row.codice).catasto, row.catasto);
    EXPECT_EQ(byCode.at(row.codice).id, leadingInteger(row.codice));
  }
  for (const auto& [code, nazione] : byCode) EXPECT_EQ(code.size(), 3u) << nazione.nome;
}

TEST(CausaliPagamento, AreThoseOfTheForms) {
  std::set<std::string_view> codes;
  for (const VoceInLista& voce : causaliPagamento()) codes.insert(voce.codice);
  EXPECT_EQ(codes, (std::set<std::string_view>{"A", "B",  "C",  "D",  "E",  "G",  "H", "I", "L", "L1",
                                               "M", "M1", "M2", "N",  "O",  "O1", "P", "Q", "R", "S",
                                               "T", "U",  "V",  "V1", "V2", "W",  "X", "Y", "Z", "ZO"}));
}

TEST(CodiciPerNonSoggetti, HoldTheDerivedCodesOfEachYear) {
  const Tabella t(risorsa("liste/codici_non_soggetti.tsv"));
  std::set<std::string_view> codes;
  for (std::size_t i = 0; i < t.righe(); ++i) codes.insert(t.campo(i, "Codice"));
  for (std::string_view code : {"1", "2", "3", "5", "6", "7", "8"}) EXPECT_TRUE(codes.contains(code)) << code;
}

TEST(CodiciCarica, RunFromOneToFifteen) {
  const Tabella t(risorsa("liste/codici_carica.tsv"));
  ASSERT_EQ(t.righe(), 15u);
  for (std::size_t i = 0; i < t.righe(); ++i) {
    EXPECT_EQ(t.campo(i, "Codice"), fromInteger(static_cast<std::int64_t>(i) + 1));
  }
}

TEST(EntiPrevidenziali, BeginWithTheTwoWhoseCompanyCodesAreKept) {
  const Tabella t(risorsa("liste/enti_previdenziali.tsv"));
  EXPECT_EQ(t.campo(0, "ID"), "1");
  EXPECT_EQ(t.campo(0, "Denominazione"), "ENPAM");
  EXPECT_EQ(t.campo(1, "ID"), "2");
  EXPECT_EQ(t.campo(1, "Denominazione"), "ENPAPI");
}

TEST(EntiPrevidenziali, HaveFiscalCodesWithARightCheckDigit) {
  const Tabella t(risorsa("liste/enti_previdenziali.tsv"));
  for (std::size_t i = 0; i < t.righe(); ++i) {
    const std::string_view code = t.campo(i, "CodiceFiscale");
    ASSERT_EQ(code.size(), 11u);
    EXPECT_EQ(cifraDiControllo(code.substr(0, 10)), code[10]) << t.campo(i, "Denominazione");
  }
}

// Every text has to fit its column and the character set of the telematic file.
TEST(Risorse, HoldTextsThatTheDatabaseAndTheFileCanCarry) {
  const std::set<char32_t> beyondLatin1 = {0x152, 0x153, 0x160, 0x161, 0x178, 0x17D, 0x17E, 0x2019, 0x20AC};
  for (const RisorsaIncorporata& resource : risorseIncorporate()) {
    if (!resource.nome.ends_with(".tsv")) continue;
    const Tabella t(risorsa(resource.nome));
    EXPECT_GT(t.righe(), 0u) << resource.nome;
    for (std::size_t row = 0; row < t.righe(); ++row) {
      for (std::size_t column = 0; column < t.colonne().size(); ++column) {
        const std::string_view field = t.campo(row, column);
        EXPECT_EQ(field, trim(field)) << resource.nome;
        EXPECT_LE(codePoints(field), 255u) << resource.nome << ": " << field;
        for (std::size_t at = 0; at < field.size();) {
          const char32_t c = nextCodePoint(field, at);
          EXPECT_TRUE(c <= 0xFF || beyondLatin1.contains(c)) << resource.nome << ": " << field;
        }
      }
    }
  }
}

TEST(Risorsa, RefusesANameThatIsNotCarried) {
  EXPECT_THROW((void)risorsa("liste/altro.tsv"), std::out_of_range);
}

TEST(RiempiListe, FillsEachTableOfTheListsAndNoOther) {
  test::FakeConnection connection;
  riempiListe(connection);
  std::set<std::string> tables;
  for (const std::string& text : connection.texts()) {
    ASSERT_EQ(text.substr(0, 12), "INSERT INTO ");
    tables.insert(text.substr(12, text.find(' ', 12) - 12));
  }
  EXPECT_EQ(tables, (std::set<std::string>{"Provincia", "Comune", "Nazione", "CausalePagamento",
                                           "CodicePerNonSoggetti", "CodiceCarica", "CategoriaParticolare",
                                           "EventoEccezionale", "CUEntePrevidenziale",
                                           "CUCategoriaEntePrevidenziale"}));
}

TEST(RiempiListe, WritesIdsAsIntegersAndDoublesQuotes) {
  test::FakeConnection connection;
  riempiListe(connection);
  bool found = false;
  for (const std::string& text : connection.texts()) {
    found = found || text.find("(1345, 'L''Aquila', 66, 'A345')") != std::string::npos;
  }
  EXPECT_TRUE(found);
}

TEST(CausaliPagamento, EachHasADescription) {
  for (const VoceInLista& voce : causaliPagamento())
    EXPECT_FALSE(descrizioneCausale(voce.codice).empty()) << voce.codice;
  EXPECT_EQ(descrizioneCausale("A"), "Lavoro autonomo nell'esercizio di arte o professione abituale");
  EXPECT_EQ(descrizioneCausale("a"), "");
  EXPECT_EQ(descrizioneCausale(""), "");
}

}  // namespace
}  // namespace cu
