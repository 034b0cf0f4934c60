// The statement on the further modules of an account, word for word.

#include "modello/moduli.h"

#include <gtest/gtest.h>

namespace cu::modello {
namespace {

constexpr ChiaveConto kConto = {
    {{"Anno", 2016}, {"IDAnagrafica", 7}, {"IDAzienda", 1}, {"IDCausalePagamento", 3}}};

TEST(Modules, AreThoseOfTheAccount) {
  EXPECT_EQ(fnDoveConto(kConto),
            " WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 AND IDCausalePagamento = 3");
  EXPECT_EQ(fnDoveConto({{{"Anno", 2016}, {"IDAzienda", -1}, {"IDAnagrafica", 0}, {"IDCausalePagamento", 3}}},
                        "T."),
            " WHERE T.Anno = 2016 AND T.IDAzienda = -1 AND T.IDAnagrafica = 0 AND T.IDCausalePagamento = 3");
}

TEST(Modules, AreReadWithTheirCodes) {
  EXPECT_EQ(
      fnSelectModuli(kConto),
      "SELECT ModuloXContoIndividuale.*, CodicePerNonSoggetti.Codice AS CodicePerNonSoggetti FROM "
      "ModuloXContoIndividuale LEFT JOIN CodicePerNonSoggetti ON "
      "ModuloXContoIndividuale.IDCodicePerNonSoggetti = CodicePerNonSoggetti.IDCodicePerNonSoggetti WHERE "
      "ModuloXContoIndividuale.Anno = 2016 AND ModuloXContoIndividuale.IDAnagrafica = 7 AND "
      "ModuloXContoIndividuale.IDAzienda = 1 AND ModuloXContoIndividuale.IDCausalePagamento = 3");
}

TEST(Modules, AreReadWithWhatElseIsJoined) {
  const std::string testo = fnSelectModuli(kConto, ", Altra", " INNER JOIN Tavola ON 1 = 1");
  EXPECT_NE(testo.find("AS CodicePerNonSoggetti, Altra FROM ModuloXContoIndividuale LEFT JOIN"),
            std::string::npos);
  EXPECT_NE(testo.find("= CodicePerNonSoggetti.IDCodicePerNonSoggetti INNER JOIN Tavola ON 1 = 1 WHERE "),
            std::string::npos);
}

}  // namespace
}  // namespace cu::modello
