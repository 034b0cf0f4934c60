#include "apps/importazione/resoconto.h"

#include <gtest/gtest.h>

namespace cu {
namespace {

using intake::Annullato;
using intake::Elenco;

TEST(Resoconto, CountsWhatTakingABatchBackDoes) {
  struct Caso {
    Annullato annullato;
    const char* detto;
  };
  const Caso casi[] = {
      {{Elenco::Compensi, 0, 0, 0}, "0 compensi tolti"},
      {{Elenco::Compensi, 1, 0, 0}, "1 compenso tolto"},
      {{Elenco::Compensi, 3, 0, 1}, "3 compensi tolti, 1 compenso ai valori di prima"},
      {{Elenco::Compensi, 0, 0, 2}, "2 compensi ai valori di prima"},
      {{Elenco::Compensi, 1, 1, 0}, "1 compenso e 1 percipiente tolti"},
      {{Elenco::Compensi, 41, 3, 0}, "41 compensi e 3 percipienti tolti"},
      {{Elenco::Percipienti, 2, 0, 1}, "2 percipienti tolti, 1 percipiente ai valori di prima"},
      {{Elenco::Aziende, 1, 0, 0}, "1 azienda tolta"},
      {{Elenco::Aziende, 2, 0, 0}, "2 aziende tolte"},
  };
  for (const Caso& caso : casi) EXPECT_EQ(dettoAnnullato(caso.annullato), caso.detto);
}

TEST(Resoconto, WritesThousandsForAWindow) {
  const Annullato molti{Elenco::Compensi, 20000, 1234, 0};
  EXPECT_EQ(dettoAnnullato(molti), "20000 compensi e 1234 percipienti tolti");
  EXPECT_EQ(dettoAnnullato(molti, Migliaia::ConPunto), "20.000 compensi e 1.234 percipienti tolti");
}

}  // namespace
}  // namespace cu
