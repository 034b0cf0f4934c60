// The order of the certificates in the file, starting from the accounts.

#include <gmock/gmock.h>

#include "support/cur_reader.h"
#include "system/posto_support.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> causali(const CurFile& file) {
  std::vector<std::string> trovate;
  for (const CurLine& riga : file.lines()) {
    if (riga.type() != 'H') continue;
    const std::string valore = riga.value("AU001001");
    trovate.push_back(valore.substr(0, valore.find_last_not_of(' ') + 1));
  }
  return trovate;
}

TEST(FileOrder, ReasonsOfOnePayeeFollowTheirCodesAndNotTheirIds) {
  Posto posto;
  const auto lettore = posto.lettore();
  const std::string perc = lettore->testo("SELECT IDAnagrafica FROM Percipiente WHERE Codice = 'P001'");
  lettore->esegui("DELETE FROM ContoIndividuale WHERE IDAnagrafica = " + perc);
  for (const char* codice : {"Z", "A", "ZO", "B"}) {
    lettore->esegui(
        "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
        "OnorarioProvvigioni, QuotaProvvigioniNonSoggette) SELECT " +
        perc + ", IDCausalePagamento, 2016, 1, 100, 0 FROM CausalePagamento WHERE Codice = '" + codice + "'");
  }
  // In the program's lists only one pair has ids in the opposite order of its codes; a company's own list may
  // have any order.
  lettore->esegui("UPDATE CausalePagamento SET Codice = 'S' WHERE Codice = 'A'");
  const Esecuzione esito = posto.cuctl(
      {"make", "--profile", posto.profilo(), "--year", "2016", "--from-payee", "P001", "--to-payee", "P001"});
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_THAT(causali(CurFile(posto.cartella().read("Documenti/CUR_04123450233_2016.cur"))),
              ElementsAre("B", "S", "Z", "ZO"));
}

}  // namespace
}  // namespace cu::test
