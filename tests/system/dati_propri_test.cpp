// Own data by hand, driven from outside: from an empty database to a telematic file, and what may go wrong.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/guidato_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class DatiPropri : public Guidato {
 protected:
  DatiPropri() : Guidato(false) {}

  json avviaArchivi() {
    processo_ = posto_.guida({"--start", "archivi"});
    return leggi();
  }
  json scegli(const std::string& controllo, const char* come, const json& che) {
    return fai({{"do", "choose"}, {"in", controllo}, {come, che}});
  }
  void nuovaAzienda() {
    clic("frmArchivi.cmdNuova");
    scrivi("frmAzienda.txtCodiceFiscale", "12345670017");
    scrivi("frmAzienda.txtDenominazione", "Studio Prova S.r.l.");
    scrivi("frmAzienda.txtCodiceAttivita", "692011");
    scrivi("frmAzienda.txtIndirizzo", "Via Roma 1");
    scrivi("frmAzienda.txtCap", "37121");
    scrivi("frmAzienda.txtTelefono", "045 123456");
    scrivi("frmAzienda.txtEmail", "studio@prova.example");
    scegli("frmAzienda.TownComune", "record", kVerona);
    scrivi("frmAzienda.txtRappCodiceFiscale", "RSSMRA80A01H501U");
    scrivi("frmAzienda.txtRappCognome", "Rossi");
    scrivi("frmAzienda.txtRappNome", "Mario");
    clic("frmAzienda.cmdOk");
  }
  void nuovoPercipiente() {
    clic("frmArchivi.cmdPercipienti");
    clic("frmPercipienti.cmdNuovo");
    scrivi("frmPercipiente.txtCodiceFiscale", "bncnna75h49l781v");
    scrivi("frmPercipiente.txtCognome", "Bianchi");
    scrivi("frmPercipiente.txtNome", "Anna");
    scrivi("frmPercipiente.txtIndirizzo", "Via Garibaldi 7");
    scrivi("frmPercipiente.txtCap", "37121");
    scegli("frmPercipiente.TownComune", "record", kVerona);
  }

  static constexpr int kVerona = 12781;
};

TEST_F(DatiPropri, FromNothingToATelematicFile) {
  ASSERT_EQ(posto_.crea({"--empty"}).codice, 0);
  const json inizio = avviaArchivi();
  EXPECT_EQ(inizio.at("windows"), json({"frmArchivi"}));
  EXPECT_EQ(inizio.at("focus"), "frmArchivi.cmdNuova");
  nuovaAzienda();
  EXPECT_EQ(stato("frmArchivi.grdAziende").at("rows"), 1);

  nuovoPercipiente();
  EXPECT_EQ(stato("frmPercipiente.lblCodiceFiscale").at("caption"),
            "Codice di una donna nata il 09/06/1975 a Verona (VR).");
  EXPECT_EQ(stato("frmPercipiente.datNascita").at("text"), "09/06/1975");
  EXPECT_EQ(clic("frmPercipiente.cmdOk").at("modal"), json());
  clic("frmPercipienti.cmdChiudi");

  clic("frmArchivi.cmdCompensi");
  clic("frmCompensi.cmdNuovo");
  scegli("frmPagamento.KrnCDPerc", "code", "P001");
  scegli("frmPagamento.KrnCDCausale", "code", "A");
  scrivi("frmPagamento.datPagamento", "20/03/2016");
  scrivi("frmPagamento.ambOnorario", "1000");
  EXPECT_EQ(stato("frmPagamento.ambRitenutaAcconto").at("value"), 200.0);
  EXPECT_EQ(stato("frmPagamento.ambNetto").at("value"), 800.0);
  EXPECT_EQ(clic("frmPagamento.cmdOk").at("modal"), json());
  EXPECT_EQ(righe("frmCompensi.grdTotali", 1, 1).at(0).at("Lordo"), 1000.0);
  clic("frmCompensi.cmdChiudi");
  EXPECT_TRUE(clic("frmArchivi.cmdChiudi").at("ended").get<bool>());
  EXPECT_EQ(processo_->codice(), 0) << processo_->errori();

  const Esecuzione file = posto_.cuctl({"make", "--profile", posto_.profilo(), "--year", "2016", "--yes"});
  ASSERT_EQ(file.codice, 0) << file.errori;
  std::string scritto;
  for (const std::string& nome : posto_.file("Documenti")) {
    if (nome.starts_with("CUR_") && nome.ends_with(".cur") && scritto.empty()) scritto = nome;
  }
  ASSERT_FALSE(scritto.empty()) << file.uscita;
  const Esecuzione esame = posto_.cuctl({"validate", "Documenti/" + scritto});
  EXPECT_EQ(esame.codice, 0) << esame.uscita << esame.errori;
}

TEST_F(DatiPropri, WithoutTheOptionTheWizardStarts) {
  for (const std::vector<std::string>& altri : {std::vector<std::string>{}, {"--start", "wizard"}}) {
    processo_ = posto_.guida(altri);
    EXPECT_EQ(leggi().at("windows"), json({"frmWizard"}));
  }
  const Esecuzione esito = posto_.cuctl({"drive", "--profile", posto_.profilo(), "--start", "altro"});
  EXPECT_EQ(esito.codice, 2);
  EXPECT_THAT(esito.errori, StartsWith("cuctl: --start: atteso wizard o archivi"));
}

TEST_F(DatiPropri, TheDemonstrationCompanyCanBeKept) {
  avviaArchivi();
  EXPECT_GT(righe("frmArchivi.grdAziende", 1, 1).at(0).at("Percipienti").get<int>(), 3);
  clic("frmArchivi.cmdPercipienti");
  const int tutti = stato("frmPercipienti.grdPercipienti").at("rows").get<int>();
  scrivi("frmPercipienti.txtCerca", "nessuno così");
  EXPECT_EQ(stato("frmPercipienti.grdPercipienti").at("rows"), 0);
  scrivi("frmPercipienti.txtCerca", "");
  EXPECT_EQ(stato("frmPercipienti.grdPercipienti").at("rows"), tutti);
  // Opening and writing every payee as it is changes nothing.
  const auto prima = posto_.lettore()->righe("SELECT * FROM Anagrafica ORDER BY IDAnagrafica");
  for (int riga = 1; riga <= tutti; ++riga) {
    fai({{"do", "row"}, {"in", "frmPercipienti.grdPercipienti"}, {"row", riga}});
    clic("frmPercipienti.cmdModifica");
    json risposta = clic("frmPercipiente.cmdOk");
    if (!risposta.at("modal").is_null()) risposta = rispondi(risposta["modal"]["buttons"][0]);
    if (risposta.at("windows").back() == "frmPercipiente") clic("frmPercipiente.cmdAnnulla");
  }
  EXPECT_EQ(posto_.lettore()->righe("SELECT * FROM Anagrafica ORDER BY IDAnagrafica"), prima);
}

TEST(DatiPropriOccupati, ALockedDatabaseIsToldAndTheFormKeepsWhatWasTyped) {
  // A file of the embedded engine, whatever database the other tests use.
  Posto posto(Posto::Database::Nessuno);
  ASSERT_EQ(posto.cuctl({"create", "--database", "sqlite:demo.db", "--empty"}).codice, 0);
  const auto processo = posto.guida({"--start", "archivi"});
  using nlohmann::json;
  const auto leggi = [&] { return json::parse(processo->riga().value()); };
  const auto fai = [&](const json& comando) {
    processo->scrivi(comando.dump() + "\n");
    json risposta = leggi();
    EXPECT_TRUE(risposta.at("ok").get<bool>()) << risposta;
    return risposta;
  };
  const auto scrivi = [&](const char* dove, const char* testo) {
    fai({{"do", "enter"}, {"in", dove}, {"text", testo}});
  };
  leggi();
  fai({{"do", "click"}, {"on", "frmArchivi.cmdNuova"}});
  scrivi("frmAzienda.txtCodiceFiscale", "12345670017");
  scrivi("frmAzienda.txtDenominazione", "Studio Prova");
  fai({{"do", "choose"}, {"in", "frmAzienda.TownComune"}, {"record", 12781}});
  scrivi("frmAzienda.txtRappCodiceFiscale", "RSSMRA80A01H501U");
  scrivi("frmAzienda.txtRappCognome", "Rossi");
  scrivi("frmAzienda.txtRappNome", "Mario");
  const json registra = {{"do", "click"}, {"on", "frmAzienda.cmdOk"}};
  {
    const auto altro = posto.lettore();
    altro->esegui("BEGIN EXCLUSIVE");
    const json modale = fai(registra).at("modal");
    ASSERT_EQ(modale.at("kind"), "error");
    EXPECT_THAT(modale.at("text").get<std::string>(), HasSubstr("occupato da un altro programma"));
    const json dopo = fai({{"do", "answer"}, {"with", "ok"}});
    EXPECT_EQ(dopo.at("windows"), json({"frmArchivi", "frmAzienda"}));
    const json casella = fai({{"do", "get"}, {"of", "frmAzienda.txtDenominazione"}}).at("result");
    EXPECT_EQ(casella.at("text"), "Studio Prova");
    altro->esegui("ROLLBACK");
  }
  EXPECT_EQ(fai(registra).at("windows"), json({"frmArchivi"}));
}

}  // namespace
}  // namespace cu::test
