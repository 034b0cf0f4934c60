// The user's whole path through a replacement: deselected lines, references, intermediary, missing data, a
// warning, the file, and the accounts afterwards.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/guidato_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;

constexpr const char* kProtocollo = "17030512345678901";

class Sostituzione : public Guidato {
 protected:
  std::string conteggio() { return stato("frmWizard.grdCompensi").at("columns").at(0).at("caption"); }
};

TEST_F(Sostituzione, IsStoppedMendedWarnedAndWritten) {
  clic("frmWizard.optstType(1)");
  fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
  clic("frmWizard.optTipoComunicazione(2)");
  clic("frmWizard.cmdNav(3)");

  // Deselects two lines.
  const int righe = stato("frmWizard.grdCompensi").at("rows");
  const json prime =
      fai({{"do", "rows"}, {"in", "frmWizard.grdCompensi"}, {"from", 1}, {"count", 2}}).at("result");
  for (const int riga : {1, 2}) {
    fai({{"do", "press"}, {"in", "frmWizard.grdCompensi"}, {"row", riga}, {"column", "Selezionato"}});
  }
  EXPECT_EQ(conteggio(), "[ " + std::to_string(righe - 2) + " ]");

  // Without references the step is rejected.
  const auto altro = posto_.lettore();
  json risposta = clic("frmWizard.cmdNav(3)");
  EXPECT_EQ(
      risposta.at("modal").at("text"),
      "Per il tipo operazione annullamento o sostituzione il\r\nprotocollo è obbligatorio. Verificare che in "
      "tutti gli\r\nelementi selezionati sia stato correttamente indicato.");
  rispondi("ok");

  risposta = clic("frmWizard.cmdProtocollo");
  EXPECT_EQ(risposta.at("windows"), json({"frmWizard", "frmProtocollo"}));
  EXPECT_FALSE(stato("frmProtocollo.cmdOk").at("enabled").get<bool>());
  risposta = scrivi("frmProtocollo.txtProtocollo", "1703051x2345678901");
  EXPECT_EQ(risposta.at("effects"), json::parse(R"([{"beep":1}])"));
  EXPECT_EQ(stato("frmProtocollo.txtProtocollo").at("text"), kProtocollo);
  scrivi("frmProtocollo.txtProgressivo", "000042");
  risposta = clic("frmProtocollo.cmdOk");
  EXPECT_EQ(risposta.at("windows"), json({"frmWizard"}));
  clic("frmWizard.cmdNav(3)");
  EXPECT_EQ(stato("frmWizard").at("caption"), "Autocomposizione Quadrivio - Passo 3 di 3 - Fine");

  // Three data are missing: only the log is shown.
  altro->esegui(
      "UPDATE Anagrafica SET Sesso = NULL WHERE IDAnagrafica = (SELECT MAX(IDAnagrafica) FROM "
      "tmpprequadrivio12 WHERE Selezionato <> 0 AND IDAnagrafica IN (SELECT IDAnagrafica FROM Anagrafica "
      "WHERE PersonaFisica <> 0))");
  clic("frmWizard.chkIntermediari");
  risposta = clic("frmWizard.cmdNav(4)");
  const json registro = risposta.at("modal");
  EXPECT_EQ(registro.at("kind"), "log");
  EXPECT_EQ(registro.at("columns"),
            json({"Campo", "Sezione", "Denominazione", "Codice fiscale", "MessageType", "Message"}));
  ASSERT_EQ(registro.at("rows").size(), 3U);
  EXPECT_EQ(registro.at("rows").at(0), json({"Codice fiscale", "Intermediario", "", "", 2,
                                             "Codice fiscale intermediario non presente"}));
  EXPECT_EQ(registro.at("rows").at(1),
            json({"Data dell'impegno", "Intermediario", "", "", 2, "Data dell'impegno non presente"}));
  EXPECT_EQ(registro.at("rows").at(2).at(0), "Sesso");
  EXPECT_EQ(registro.at("rows").at(2).at(5), "Sesso non presente");
  rispondi("ok");
  EXPECT_EQ(posto_.file("Documenti").size(), 0U);
  // The corrections were stored before the checks.
  EXPECT_EQ(
      altro->numero(std::string("SELECT COUNT(*) FROM ContoIndividualeDatiAggiuntivi WHERE Anno = 2016 AND "
                                "ProtocolloAnnSost = '") +
                    kProtocollo + "' AND ProgressivoAnnSost = '000042'"),
      righe - 2);

  // Corrected; the date of the commitment is in an earlier year.
  altro->esegui("UPDATE Anagrafica SET Sesso = 'F' WHERE PersonaFisica <> 0 AND Sesso IS NULL");
  scrivi("frmWizard.txtCodiceFiscale", "MRARSS60A01L781Z");
  fai({{"do", "choose"}, {"in", "frmWizard.cboxTipoComunicazione"}, {"index", 1}});
  scrivi("frmWizard.dtDataImpegno", "31/12/2016");
  risposta = clic("frmWizard.cmdNav(4)");
  EXPECT_EQ(
      risposta.at("modal").at("text"),
      "Attenzione! La data dell'impegno deve appartenere all'anno in\r\ncorso, altrimenti il file generato "
      "potrebbe essere scartato.\r\nSi vuole continuare ugualmente?");
  EXPECT_EQ(risposta.at("modal").at("buttons"), json({"ok", "cancel"}));
  EXPECT_EQ(risposta.at("modal").at("default"), "cancel");
  risposta = rispondi("cancel");
  EXPECT_EQ(risposta.at("focus"), "frmWizard.dtDataImpegno");
  EXPECT_EQ(posto_.file("Documenti").size(), 0U);

  clic("frmWizard.cmdNav(4)");
  risposta = rispondi("ok");
  EXPECT_EQ(risposta.at("windows"), json({"frmWizard", "frmMsgLink"}));
  EXPECT_EQ(risposta.at("effects").size(), static_cast<std::size_t>(righe - 2));
  clic("frmMsgLink.Command1");
  EXPECT_EQ(stato("frmWizard").at("caption"), "Autocomposizione Quadrivio - Passo 1 di 3 - Inizio");

  // The file.
  std::string nome;
  for (const std::string& file : posto_.file("Documenti")) {
    if (file.starts_with("CUR_")) nome = file;
  }
  const std::string contenuto = posto_.cartella().read("Documenti/" + nome);
  ASSERT_EQ(contenuto.size() % 1900, 0U);
  EXPECT_EQ(contenuto.substr(15, 5), "CUR17");
  EXPECT_EQ(contenuto.substr(20, 18), "10MRARSS60A01L781Z");
  EXPECT_EQ(contenuto.substr(1900 + 90, 2), "01");
  EXPECT_EQ(contenuto.substr(1900 + 411, 16 + 1 + 8 + 1), "MRARSS60A01L781Z2311220161");
  int certificazioni = 0;
  for (std::size_t riga = 0; riga < contenuto.size(); riga += 1900) {
    EXPECT_EQ(contenuto.substr(riga + 1897, 3), "A\r\n");
    if (contenuto[riga] != 'D') continue;
    ++certificazioni;
    EXPECT_EQ(contenuto.substr(riga + 46, 17 + 6), std::string(kProtocollo) + "000042");
    EXPECT_EQ(contenuto[riga + 83], 'S');
  }
  EXPECT_EQ(certificazioni, righe - 2);

  // The accounts: the references of the lines in the file, and the intermediary.
  for (const json& riga : prime) {
    const auto righeConto = altro->righe(
        "SELECT ProtocolloAnnSost FROM ContoIndividualeDatiAggiuntivi WHERE Anno = 2016 AND IDAnagrafica = " +
        riga.at("IDAnagrafica").dump() + " AND IDCausalePagamento = " + riga.at("IDCausalePagamento").dump());
    for (const auto& conto : righeConto) EXPECT_NE(conto.front(), kProtocollo);
  }
  const auto intermediario = altro->righe(
      "SELECT CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno FROM ConfigurazioneElencoCliFor "
      "WHERE "
      "IDAzienda = 1");
  EXPECT_THAT(intermediario, ElementsAre(ElementsAre("MRARSS60A01L781Z", "2", "2016-12-31")));
}

}  // namespace
}  // namespace cu::test
