// The editors from outside: a line of each year corrected and found in the file, modules, an annulment, a
// warning, and the values' way through work table, accounts and file.

#include <gmock/gmock.h>

#include <algorithm>

#include "support/cur_reader.h"
#include "system/guidato_support.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using json = nlohmann::json;

// The H record of a payee and reason; its further modules have the same certificate number.
const CurLine& recordH(const CurFile& file, std::string codiceFiscale, const std::string& causale,
                       int modulo = 1) {
  codiceFiscale.resize(16, ' ');
  std::string certificato;
  for (const CurLine& riga : file.lines()) {
    if (riga.type() != 'H' || riga.at(26, 16) != codiceFiscale) continue;
    const int numero = std::stoi(riga.at(18, 8));
    if (numero == 1) certificato = riga.value("AU001001") == causale ? riga.at(42, 5) : "";
    if (numero == modulo && riga.at(42, 5) == certificato) return riga;
  }
  throw std::runtime_error("no record H of " + codiceFiscale + " " + causale);
}

std::string valore(const CurLine& riga, const char* codice) {
  const std::string testo = riga.value(codice);
  const std::size_t primo = testo.find_first_not_of(' ');
  return primo == std::string::npos ? "" : testo.substr(primo);
}

class AnnoCorretto : public Guidato, public testing::WithParamInterface<int> {
 protected:
  AnnoCorretto() : Guidato(false) {}
};

TEST_P(AnnoCorretto, IsConfirmedAndFoundInTheFileAndInTheAccounts) {
  const Esecuzione creato = posto_.crea({"--payees", "4", "--years", "2013-2018", "--seed", "11"});
  ASSERT_EQ(creato.codice, 0) << creato.errori;
  const std::string anno = std::to_string(GetParam());
  posto_.imposta("session.today", std::to_string(GetParam() + 1) + "-03-05T10:30:00");
  avvia();
  vaiAllaGriglia(anno);
  const std::string form = apri(1);
  EXPECT_EQ(form, GetParam() == 2014   ? "frmCompenso"
                  : GetParam() == 2015 ? "frmCompenso2016"
                                       : "frmCompenso2017");
  EXPECT_EQ(stato(form + ".lblAnno").at("caption"), anno);
  scrivi(form + ".curField(19)", "98.765,43");
  lascia(form + ".curField(19)");
  scrivi(form + ".curField(20)", "19753,09");
  const double lordo = stato(form + ".curField(10)").at("value");
  EXPECT_GE(lordo, 98765.43);
  EXPECT_EQ(clic(form + ".cmdOk").at("windows"), json({"frmWizard"}));
  const json riga = righe("frmWizard.grdCompensi", 1, 1).at(0);
  EXPECT_EQ(riga.at("AmmontareLordo"), lordo);

  const CurFile file(creaFile());
  const auto database = posto_.lettore();
  const std::string chi = riga.at("IDAnagrafica").dump();
  const CurLine& h =
      recordH(file, database->testo("SELECT CodiceFiscale FROM Anagrafica WHERE IDAnagrafica = " + chi),
              riga.at("Codice"));
  EXPECT_EQ(valore(h, "AU001008"), "98765,43");
  EXPECT_EQ(valore(h, "AU001009"), "19753,09");
  EXPECT_EQ(database->testo("SELECT RitenutaAcconto FROM ContoIndividuale WHERE Anno = " + anno +
                            " AND IDAnagrafica = " + chi +
                            " AND IDCausalePagamento = " + riga.at("IDCausalePagamento").dump()),
            "19753.09");
}

INSTANTIATE_TEST_SUITE_P(Years, AnnoCorretto, testing::Values(2013, 2014, 2015, 2016, 2017, 2018),
                         [](const auto& caso) { return std::to_string(caso.param); });

class Editing : public Guidato {};

TEST_F(Editing, AWarningIsRefusedAndThenPassed) {
  vaiAllaGriglia("2016");
  const std::string form = apri(1);
  scrivi(form + ".curField(26)", "10");
  json risposta = clic(form + ".cmdOk");
  EXPECT_EQ(
      risposta.at("modal").at("text"),
      "Attenzione! Verificare la compilazione dei seguenti campi:\r\n\r\n"
      "- Sezione \"FALLIMENTO E LIQUIDAZIONE COATTA AMMINISTRATIVA\"\r\n"
      "\"Somme corrisposte prima della data di fallimento\" (campo 41): il campo va riempito se il Codice "
      "Carica è 3 o 4\r\n\r\n"
      "In presenza di tali segnalazioni il file potrebbe non essere accettato.\r\n"
      "Proseguire ugualmente?");
  EXPECT_EQ(risposta.at("modal").at("buttons"), json({"ok", "cancel"}));
  EXPECT_EQ(risposta.at("modal").at("default"), "cancel");
  EXPECT_EQ(risposta.at("modal").at("icon"), "question");
  EXPECT_EQ(rispondi("cancel").at("windows"), json({"frmWizard", form}));
  EXPECT_EQ(stato(form + ".curField(26)").at("value"), 10);
  clic(form + ".cmdOk");
  EXPECT_EQ(rispondi("ok").at("windows"), json({"frmWizard"}));
  EXPECT_EQ(posto_.lettore()->testo("SELECT COUNT(*) FROM tmpprequadrivio12 WHERE Modificato <> 0 AND "
                                    "SommeCorrispostePreFallimento = 10"),
            "1");
}

TEST_F(Editing, AnAnnulmentShowsTheSmallDialogAlone) {
  vaiAllaGriglia("2016", 1);
  EXPECT_EQ(apri(1), "frmDatiAggiuntivi");
  json risposta = fai({{"do", "state"}});
  EXPECT_EQ(risposta.at("windows"), json({"frmWizard", "frmDatiAggiuntivi"}));
  EXPECT_TRUE(stato("frmDatiAggiuntivi").at("shrunk").get<bool>());
  EXPECT_FALSE(stato("frmDatiAggiuntivi.fraMain").at("visible").get<bool>());
  EXPECT_EQ(stato("frmDatiAggiuntivi.fraRiferimenti").at("caption"), "Riferimenti per annullamento");
  scrivi("frmDatiAggiuntivi.txtProtocollo", "");
  risposta = clic("frmDatiAggiuntivi.cmdOk");
  EXPECT_EQ(risposta.at("modal").at("text"), "Attenzione! Il protocollo è un campo obbligatorio.");
  EXPECT_EQ(rispondi("ok").at("focus"), "frmDatiAggiuntivi.txtProtocollo");
  scrivi("frmDatiAggiuntivi.txtProtocollo", "17030512345678901");
  scrivi("frmDatiAggiuntivi.txtProgressivo", "000042");
  EXPECT_EQ(clic("frmDatiAggiuntivi.cmdOk").at("windows"), json({"frmWizard"}));
}

TEST_F(Editing, AModuleIsAddedChangedAndDeletedAndReachesTheFile) {
  const auto database = posto_.lettore();
  database->esegui("DELETE FROM ModuloXContoIndividuale");
  vaiAllaGriglia("2016");
  const json riga = righe("frmWizard.grdCompensi", 1, 1).at(0);
  const auto modulo = [&](const std::string& quale) {
    const std::string form = apri(1);
    clic(form + ".cmdAltriModuli");
    if (quale == "nuovo 2" || quale == "nuovo 3") {
      clic(form + ".cmdNew");
      EXPECT_EQ(stato(form + ".numModulo").at("value"), quale == "nuovo 2" ? 2 : 3);
      fai({{"do", "choose"}, {"in", form + ".cboCodicePerNonSoggettiAltri"}, {"index", 0}});
      scrivi(form + ".curField(17)", quale == "nuovo 2" ? "10,50" : "20,25");
    } else if (quale == "cambia 2") {
      fai({{"do", "row"}, {"in", form + ".grdAltriModuli"}, {"row", 1}});
      scrivi(form + ".curField(18)", "7");
    } else {
      fai({{"do", "row"}, {"in", form + ".grdAltriModuli"}, {"row", 2}});
      clic(form + ".cmdDelete");
    }
    if (quale != "elimina 3") clic(form + ".cmdSave");
    EXPECT_EQ(clic(form + ".cmdOk").at("windows"), json({"frmWizard"}));
  };
  const auto nelDatabase = [&] {
    return database->righe(
        "SELECT NumeroModulo, SommeNonSoggette, ImponibileAnniPrec FROM ModuloXContoIndividuale "
        "ORDER BY NumeroModulo");
  };
  modulo("nuovo 2");
  EXPECT_THAT(nelDatabase(), ElementsAre(ElementsAre("2", "10.5", "0")));
  modulo("nuovo 3");
  EXPECT_THAT(nelDatabase(), ElementsAre(ElementsAre("2", "10.5", "0"), ElementsAre("3", "20.25", "0")));
  modulo("cambia 2");
  EXPECT_THAT(nelDatabase(), ElementsAre(ElementsAre("2", "10.5", "7"), ElementsAre("3", "20.25", "0")));
  modulo("elimina 3");
  EXPECT_THAT(nelDatabase(), ElementsAre(ElementsAre("2", "10.5", "7")));

  const CurFile file(creaFile());
  const std::string chi = database->testo("SELECT CodiceFiscale FROM Anagrafica WHERE IDAnagrafica = " +
                                          riga.at("IDAnagrafica").dump());
  EXPECT_EQ(valore(recordH(file, chi, riga.at("Codice"), 2), "AU001007"), "10,50");
  EXPECT_EQ(valore(recordH(file, chi, riga.at("Codice"), 2), "AU001018"), "7,00");
  EXPECT_THROW(recordH(file, chi, riga.at("Codice"), 3), std::runtime_error);
}

// What the user can enter into each unlocked field of the page, by the kind of the field.
class GiroCompleto : public Guidato {
 protected:
  static constexpr const char* kMassimo = "9.999.999.999.999,99";
  static constexpr const char* kTesto = "D'ÀÈ;--/*'\"€ß123";

  GiroCompleto() : Guidato(false) {
    posto_.imposta("session.today", "2018-03-05T10:30:00");
    // The reason N unlocks every amount but one.
    const auto database = posto_.lettore();
    database->esegui(
        "UPDATE ContoIndividuale SET IDCausalePagamento = (SELECT IDCausalePagamento FROM CausalePagamento "
        "WHERE Codice = 'N') WHERE Anno = 2017 AND IDAnagrafica = 101");
    avvia();
  }
  // These four are the addends of the gross amount, which must fit into the file.
  static bool addendo(const std::string& nome) {
    return nome == "curField(10)" || nome == "curField(11)" || nome == "curField(12)" ||
           nome == "curField(22)";
  }
  json campi(const std::string& form) {
    json aperti = json::object();
    const json albero = fai({{"do", "tree"}, {"of", form}}).at("result");
    for (const auto& [nome, campo] : albero.items()) {
      const std::string tipo = campo.at("kind");
      if ((tipo != "amount" && tipo != "text") || !campo.at("enabled").get<bool>()) continue;
      const bool altraPagina = manda({{"do", "focus"}, {"on", form + "." + nome}}).at("ok") == false;
      if (!altraPagina) aperti[nome] = campo;
    }
    return aperti;
  }
};

TEST_F(GiroCompleto, WhatIsTypedAtTheLimitsComesBackFromTheAccounts) {
  vaiAllaGriglia("2017");
  std::string form = apri(rigaDi(101));
  ASSERT_EQ(stato(form + ".cdPagamento").at("code"), "N");
  const json prima = campi(form);
  EXPECT_GT(prima.size(), 50U);
  for (const auto& [nome, campo] : prima.items()) {
    if (addendo(nome)) continue;
    scrivi(form + "." + nome, campo.at("kind") == "amount" ? kMassimo : kTesto);
    if (nome == "curField(19)") lascia(form + "." + nome);
  }
  EXPECT_EQ(stato(form + ".curField(10)").at("text"), kMassimo);
  clic(form + ".cmdOk");
  rispondi("ok");
  const CurFile file(creaFile());
  const CurLine& h = recordH(
      file, posto_.lettore()->testo("SELECT CodiceFiscale FROM Anagrafica WHERE IDAnagrafica = 101"), "N");
  for (const char* codice :
       {"AU001004", "AU001008", "AU001009", "AU001012", "AU001039", "AU001062", "AU001103", "AU001138"}) {
    EXPECT_EQ(valore(h, codice), "9999999999999,99") << codice;
  }
  EXPECT_EQ(h.value("AU001052"),
            "D'\xC0\xC8;--/*'\"\x80\xDF"
            "123");

  vaiAllaGriglia("2017");
  form = apri(rigaDi(101));
  const json dopo = campi(form);
  for (const auto& [nome, campo] : dopo.items()) {
    if (addendo(nome)) continue;
    EXPECT_EQ(campo.at("text"), campo.at("kind") == "amount" ? kMassimo : kTesto) << nome;
  }
}

TEST_F(GiroCompleto, FourPlacesAsStoredAreKeptWhereNobodyTypes) {
  vaiAllaGriglia("2017");
  const auto database = posto_.lettore();
  std::string form = apri(rigaDi(101));
  // A first confirmation creates the row of the additional data.
  scrivi(form + ".curField(23)", "-1");
  clic(form + ".cmdOk");
  creaFile();
  const char* const colonne[] = {"RitenuteSospese", "ContributiDovuti", "AltriSoggettiImponibile",
                                 "AltreIndennitaRitenuteOperate2", "PignoramentoTerziSommeNonTassate1"};
  const std::string dove =
      " WHERE Anno = 2017 AND IDAnagrafica = 101 AND IDCausalePagamento = (SELECT IDCausalePagamento FROM "
      "CausalePagamento WHERE Codice = 'N')";
  for (const char* colonna : colonne) {
    database->esegui("UPDATE ContoIndividualeDatiAggiuntivi SET " + std::string(colonna) + " = 12.3456" +
                     dove);
  }
  database->esegui("UPDATE ContoIndividualeDatiAggiuntivi SET RitenuteRimborsate = NULL" + dove);
  vaiAllaGriglia("2017");
  form = apri(rigaDi(101));
  EXPECT_EQ(stato(form + ".curField(24)").at("text"), "12,35");
  EXPECT_EQ(stato(form + ".curField(16)").at("text"), "0,00");
  scrivi(form + ".curField(23)", "-10");
  clic(form + ".cmdOk");
  rispondi("ok");
  creaFile();
  for (const char* colonna : colonne) {
    EXPECT_EQ(
        database->testo("SELECT " + std::string(colonna) + " FROM ContoIndividualeDatiAggiuntivi" + dove),
        "12.3456")
        << colonna;
  }
  EXPECT_EQ(database->testo("SELECT ImportoAltriContributi FROM ContoIndividualeDatiAggiuntivi" + dove),
            "-10");
}

}  // namespace
}  // namespace cu::test
