// The codes of the later forms in an archive.

#include "archive/codici_pubblicati.h"

#include <gtest/gtest.h>

#include <set>

#include "archive/archivio_vuoto_prova.h"
#include "data/recordset.h"

namespace cu::test {
namespace {

std::set<std::string> codes(Connection& connection, const std::string& table, const std::string& column) {
  std::set<std::string> found;
  Recordset rows;
  rows.Open(connection, "SELECT " + column + " FROM " + table);
  for (; !rows.Eof(); rows.MoveNext()) found.insert(rows.Get(0).toText());
  return found;
}

TEST(PublishedCodes, AreMissingFromAnArchiveUntilTheyAreAdded) {
  EmptyArchive archive;
  EXPECT_FALSE(codes(*archive, "CausalePagamento", "Codice").contains("J"));
  EXPECT_FALSE(codes(*archive, "CodicePerNonSoggetti", "Codice").contains("21"));
  EXPECT_EQ(aggiungiCodiciPubblicati(*archive), 18U);
  const std::set<std::string> reasons = codes(*archive, "CausalePagamento", "Codice");
  for (const char* code : {"A", "F", "J", "K", "ZO"}) EXPECT_TRUE(reasons.contains(code)) << code;
  EXPECT_FALSE(reasons.contains("N1")) << "it cannot be certified";
  const std::set<std::string> sums = codes(*archive, "CodicePerNonSoggetti", "Codice");
  for (const char* code : {"7", "9", "12", "13", "21", "22", "23", "24"})
    EXPECT_TRUE(sums.contains(code)) << code;
  EXPECT_TRUE(
      codes(*archive, "CUCategoriaEntePrevidenziale", "CUCodiceCategoriaEntePrevidenziale").contains("R"));
  EXPECT_EQ(aggiungiCodiciPubblicati(*archive), 0U);
}

TEST(PublishedCodes, TakeNoIdThatIsInUse) {
  EmptyArchive archive;
  archive->Execute("INSERT INTO CodicePerNonSoggetti (IDCodicePerNonSoggetti, Codice) VALUES (21, 'X')");
  EXPECT_EQ(aggiungiCodiciPubblicati(*archive), 18U);
  EXPECT_EQ(codes(*archive, "CodicePerNonSoggetti", "IDCodicePerNonSoggetti").size(),
            codes(*archive, "CodicePerNonSoggetti", "Codice").size());
  EXPECT_TRUE(codes(*archive, "CodicePerNonSoggetti", "Codice").contains("21"));
}

}  // namespace
}  // namespace cu::test
