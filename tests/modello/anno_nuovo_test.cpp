// A year unknown to the program, in a table of the test: everything derived from the table changes with it.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "modello/forma_2031.h"
#include "telematic/engine/records.h"
#include "telematic/prova.h"
#include "telematic/scrittore_celle.h"

namespace cu::test {
namespace {

TEST(NewYear, IsItsOwnOnScreenAndPaperAndTheYearsBehindFollowIt) {
  using modello::annoDisposizione;
  EXPECT_EQ(annoDisposizione(kAnnoNuovo, kModello2031), kAnnoNuovo);
  EXPECT_EQ(annoDisposizione(kAnnoNuovo + 1, kModello2031), kAnnoNuovo);
  EXPECT_EQ(annoDisposizione(kAnnoNuovo - 1, kModello2031), kAnnoNuovo - 1);
  EXPECT_EQ(annoDisposizione(2013, kModello2031), kAnnoNuovo);
  EXPECT_EQ(annoDisposizione(kAnnoNuovo), 2017) << "the program's own form does not know it";
}

// The cells of record H for a row with a value in each column.
std::set<std::string> celle(std::int32_t anno, bool primoModulo) {
  std::vector<std::string> colonne;
  Contenuti riga;
  for (const modello::Campo& campo : kModello2031.campi) {
    if (record(campo.quadro) != modello::Record::H) continue;
    for (const std::string_view nome : {campo.colonna, campo.altre[0], campo.altre[1], campo.altre[2]}) {
      if (nome.empty() || !riga.emplace(nome, amount("1")).second) continue;
      colonne.emplace_back(nome);
    }
  }
  riga["Codice"] = text("N");
  riga["CodicePerNonSoggetti"] = Value();
  riga["Anno"] = whole(anno);
  const Righe righe(risposta(colonne, {riga}));
  CURecords catalogo;
  telematico::creaCatalogo(catalogo, anno);
  RecordImage immagine(catalogo.Item("TipoH"));
  telematico::Celle celle(immagine);
  telematico::ScrittoreCelle scrittore(kModello2031, modello::Record::H, anno, primoModulo);
  scrittore.lega(righe.colonne());
  EXPECT_EQ(scrittore.scrivi(righe[0], {}, celle).motivo, telematico::Guasto::Motivo::Nessuno);
  std::set<std::string> scritte;
  for (std::size_t n = 0; n < telematico::kCelle; ++n) {
    const auto posto = static_cast<std::size_t>(telematico::kPrimaCella - 1) +
                       n * static_cast<std::size_t>(telematico::kLarghezzaCella);
    const std::string cella(immagine.line().substr(posto, telematico::kLarghezzaCella));
    if (cella.front() == ' ') break;
    scritte.insert(cella.starts_with("AU001006") ? cella : cella.substr(0, 8));
  }
  return scritte;
}

TEST(NewYear, HasItsOwnCells) {
  for (const bool primoModulo : {true, false}) {
    const std::set<std::string> prima = celle(kAnnoNuovo - 1, primoModulo);
    const std::set<std::string> nuova = celle(kAnnoNuovo, primoModulo);
    const std::set<std::string> dopo = celle(kAnnoNuovo + 1, primoModulo);
    EXPECT_FALSE(prima.contains("AU001140"));
    EXPECT_TRUE(prima.contains("AU001138"));
    EXPECT_TRUE(nuova.contains("AU001140"));
    EXPECT_FALSE(nuova.contains("AU001138"));
    EXPECT_TRUE(nuova.contains("AU001137"));
    EXPECT_EQ(nuova.size(), prima.size());
    EXPECT_TRUE(dopo.contains("AU001140"));
    EXPECT_FALSE(dopo.contains("AU001138"));
  }
}

TEST(NewYear, HasItsOwnCodeOfSumsNotSubject) {
  EXPECT_TRUE(celle(kAnnoNuovo - 1, true).contains("AU001006               7"));
  EXPECT_TRUE(celle(kAnnoNuovo, true).contains("AU001006               9"));
}

}  // namespace
}  // namespace cu::test
