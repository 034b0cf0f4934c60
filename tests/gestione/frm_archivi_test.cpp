// The companies of a database.

#include "gestione/frm_archivi.h"

#include <gmock/gmock.h>

#include "gestione/frm_azienda.h"
#include "gestione/gestione_prova.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

class FrmArchiviTest : public GestioneProva {
 protected:
  void mostra(const std::function<void(FrmArchivi&)>& atti) {
    FrmArchivi form(contesto);
    form.show();
    atti(form);
    form.unload();
  }
};

TEST_F(FrmArchiviTest, AnEmptyDatabaseOffersANewCompanyFirst) {
  mostra([&](FrmArchivi& f) {
    EXPECT_EQ(f.focus(), &f.cmdNuova);
    EXPECT_EQ(f.defaultButton, &f.cmdNuova);
    EXPECT_THAT(f.lblStato.caption(), HasSubstr("«Nuova azienda»"));
    for (const Button* const altro :
         {&f.cmdModifica, &f.cmdElimina, &f.cmdPercipienti, &f.cmdCompensi, &f.cmdRicalcola}) {
      EXPECT_FALSE(altro->available()) << altro->name();
    }
  });
}

TEST_F(FrmArchiviTest, ListsCompaniesWithTheCountsOfTheirRows) {
  const auto una = azienda();
  compenso(percipiente(una.id, "P001", "Rossi"), "20/03/2017", 1000, 200);
  mostra([&](FrmArchivi& f) {
    EXPECT_EQ(f.grdAziende.rows()->Get("Denominazione").text(), "Studio Prova S.r.l.");
    EXPECT_EQ(f.grdAziende.rows()->Get("Percipienti").integer(), 1);
    EXPECT_EQ(f.grdAziende.rows()->Get("Compensi").integer(), 1);
    EXPECT_EQ(f.defaultButton, nullptr);
  });
}

TEST_F(FrmArchiviTest, ACompanyWithRowsIsNotDeleted) {
  const auto una = azienda();
  const auto rossi = percipiente(una.id, "P001", "Rossi");
  mostra([&](FrmArchivi& f) {
    clic(f.cmdElimina);
    EXPECT_THAT(ultimoBox(), HasSubstr("Non si può eliminare l'azienda: ne dipende un percipiente."));
    EXPECT_EQ(quante("Azienda"), 1);
    EXPECT_TRUE(contesto.registrazione().togliPercipiente(rossi));
    clic(f.cmdElimina);
    EXPECT_EQ(f.grdAziende.rowCount(), 0U);
  });
  for (const char* tabella : {"Azienda", "Anagrafica", "Filiale", "PeriodoIva", "ConfigurazioneGenerale"}) {
    EXPECT_EQ(quante(tabella), 0) << tabella;
  }
}

TEST_F(FrmArchiviTest, AnotherDatabaseOffersNothingThatWrites) {
  azienda();
  contesto.scrivibile = false;
  mostra([&](FrmArchivi& f) {
    EXPECT_EQ(f.lblStato.caption(), kSoloLettura);
    EXPECT_FALSE(f.cmdNuova.available());
    EXPECT_FALSE(f.cmdElimina.available());
    EXPECT_FALSE(f.cmdRicalcola.available());
    EXPECT_EQ(f.cmdModifica.caption(), "&Apri...");
    EXPECT_TRUE(f.cmdPercipienti.available());
  });
}

TEST_F(FrmArchiviTest, TheAccountsAreSummedAgain) {
  const auto una = azienda();
  compenso(percipiente(una.id, "P001", "Rossi"), "20/03/2017", 1000, 200);
  compenso(percipiente(una.id, "P002", "Bianchi"), "20/03/2017", 500, 100);
  database().Execute("UPDATE ContoIndividuale SET OnorarioProvvigioni = 1 WHERE OnorarioProvvigioni = 500");
  database().Execute("DELETE FROM ContoIndividuale WHERE OnorarioProvvigioni = 1000");
  schermo.answers = {Answer::Cancel};
  mostra([&](FrmArchivi& f) {
    clic(f.cmdRicalcola);
    EXPECT_THAT(ultimoBox(), HasSubstr("Un conto è stato corretto a mano"));
    EXPECT_EQ(quante("ContoIndividuale"), 1);
    schermo.answers = {Answer::No};
    clic(f.cmdRicalcola);
    EXPECT_EQ(ultimoBox(), "È cambiato un conto.");
    EXPECT_EQ(quante("ContoIndividuale WHERE OnorarioProvvigioni = 1000"), 1);
    EXPECT_EQ(quante("ContoIndividuale WHERE OnorarioProvvigioni = 1"), 1);
    schermo.answers = {Answer::Yes};
    clic(f.cmdRicalcola);
    EXPECT_EQ(quante("ContoIndividuale WHERE OnorarioProvvigioni = 500"), 1);
    clic(f.cmdRicalcola);
    EXPECT_THAT(ultimoBox(), HasSubstr("non è cambiato nulla"));
  });
}

TEST_F(FrmArchiviTest, SummingTheAccountsShowsItsYearsAndCanBeInterrupted) {
  const auto una = azienda();
  const auto rossi = percipiente(una.id, "P001", "Rossi");
  compenso(rossi, "20/03/2016", 1000, 200);
  compenso(rossi, "20/03/2017", 500, 100);
  database().Execute("DELETE FROM ContoIndividuale");
  mostra([&](FrmArchivi& f) {
    std::vector<std::string> stati;
    contesto.interrotto = [&] {
      stati.push_back(f.lblStato.caption());
      return stati.size() == 2;
    };
    clic(f.cmdRicalcola);
    EXPECT_THAT(stati, testing::ElementsAre("I conti vengono ricalcolati: anno 1 di 2. Esc interrompe.",
                                            "I conti vengono ricalcolati: anno 2 di 2. Esc interrompe."));
    EXPECT_THAT(ultimoBox(), HasSubstr("interrotto"));
    EXPECT_EQ(quante("ContoIndividuale"), 0) << "the first year is taken back too";
    EXPECT_EQ(f.lblStato.caption(), "Le aziende di questo archivio.");
    contesto.interrotto = {};
    clic(f.cmdRicalcola);
    EXPECT_EQ(quante("ContoIndividuale"), 2);
  });
}

}  // namespace
}  // namespace cu::test
