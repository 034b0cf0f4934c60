// Every statement sent by the wizard, compared with a reviewed list next to this file: a changed statement
// causes a difference, and is reviewed before the list is updated. Of texts that differ only in their values
// the first one is listed.

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "system/forma_support.h"
#include "system/guidato_support.h"

namespace cu::test {
namespace {

using nlohmann::json;

// The compared part of a list. A server determines which line of the work table comes first, and with it the
// values of the statements on a line.
std::string daConfrontare(const std::string& elenco) {
  if (!sulServer()) return elenco;
  std::string forme;
  std::istringstream righe(elenco);
  for (std::string riga; std::getline(righe, riga);) {
    forme += (riga.starts_with('"') ? formaDi(json::parse(riga).get<std::string>()) : riga) + "\n";
  }
  return forme;
}

class Istruzioni : public Guidato {
 protected:
  Istruzioni() : Guidato(false) {}

  // Runs the wizard in a mode and adds its statements, under a heading.
  void giro(const std::string& titolo, int funzione, const std::function<void()>& gesti) {
    posto_.imposta("session.processes",
                   "[ { name = \"Wizard stampa\", function = " + std::to_string(funzione) + " } ]");
    avvia();
    gesti();
    processo_->chiudiIngresso();
    processo_->resto();
    EXPECT_EQ(processo_->codice(), 0) << processo_->errori();
    elenco_ += "== " + titolo + "\n";
    std::istringstream traccia(posto_.cartella().read("trace.sql"));
    for (std::string riga; std::getline(traccia, riga);) {
      if (viste_.insert(formaDi(json::parse(riga).get<std::string>())).second) elenco_ += riga + "\n";
    }
  }

  void scegliPercipienti() {
    clic("frmWizard.optCode");
    fai({{"do", "choose"}, {"in", "frmWizard.KrnCDPerc(0)"}, {"code", "P001"}});
    fai({{"do", "choose"}, {"in", "frmWizard.KrnCDPerc(1)"}, {"code", "P003"}});
    fai({{"do", "choose"}, {"in", "frmWizard.KrnCDCausContrib(0)"}, {"code", "A"}});
    fai({{"do", "choose"}, {"in", "frmWizard.KrnCDCausContrib(1)"}, {"code", "Z"}});
  }
  void modulo(const std::string& form, const std::string& importo) {
    // The first editor has its pages under tabs.
    if (form == "frmCompenso") {
      fai({{"do", "choose"}, {"in", form + ".stbMain"}, {"index", 2}});
    } else {
      clic(form + ".cmdAltriModuli");
    }
    clic(form + ".cmdNew");
    fai({{"do", "choose"}, {"in", form + ".cboCodicePerNonSoggettiAltri"}, {"index", 0}});
    scrivi(form + ".curField(17)", importo);
    clic(form + ".cmdSave");
  }
  void conferma(const std::string& form) {
    if (!clic(form + ".cmdOk").at("modal").is_null()) rispondi("ok");
  }
  void intermediario() {
    clic("frmWizard.chkIntermediari");
    scrivi("frmWizard.txtCodiceFiscale", "MRARSS60A01L781Z");
    fai({{"do", "choose"}, {"in", "frmWizard.cboxTipoComunicazione"}, {"index", 1}});
    scrivi("frmWizard.dtDataImpegno", "01/03/2017");
  }

  std::string elenco_;
  std::set<std::string> viste_;
};

TEST_F(Istruzioni, AreThoseOfTheReviewedList) {
  const auto database = posto_.lettore();
  database->esegui("DELETE FROM ModuloXContoIndividuale; DELETE FROM ConfigurazioneElencoCliFor");
  const std::int64_t comune = database->numero("SELECT MIN(IDComune) FROM Comune WHERE IDProvincia > 0");
  const auto stampa = [&] {
    scegliPercipienti();
    clic("frmWizard.cmdNav(3)");
    clic("frmWizard.cmdNav(4)");
  };
  giro("conti individuali", 246, [&] {
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2014"}});
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(1)"}, {"text", "2016"}});
    stampa();
  });
  giro("certificazione dei compensi", 247, [&] {
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
    clic("frmWizard.optName");
    stampa();
  });
  giro("comunicazione", 247, [&] {
    clic("frmWizard.optstType(1)");
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
    scegliPercipienti();
    clic("frmWizard.cmdNav(3)");
    fai({{"do", "press"}, {"in", "frmWizard.grdCompensi"}, {"row", rigaDi(102)}, {"column", "Selezionato"}});
    clic("frmWizard.cmdSelect(1)");
    clic("frmWizard.cmdSelect(0)");
    std::string form = apri(rigaDi(101));
    scrivi(form + ".curField(19)", "1.234,56");
    modulo(form, "10,50");
    conferma(form);
    form = apri(rigaDi(101));
    modulo(form, "20,25");
    fai({{"do", "row"}, {"in", form + ".grdAltriModuli"}, {"row", 1}});
    scrivi(form + ".curField(18)", "7");
    clic(form + ".cmdSave");
    conferma(form);
    form = apri(rigaDi(101));
    clic(form + ".cmdAltriModuli");
    fai({{"do", "row"}, {"in", form + ".grdAltriModuli"}, {"row", 2}});
    clic(form + ".cmdDelete");
    conferma(form);
    clic("frmWizard.cmdNav(3)");
    intermediario();
    json risposta = clic("frmWizard.cmdNav(4)");
    while (risposta.at("windows").back() == "frmMsgLink") risposta = clic("frmMsgLink.Command1");
    EXPECT_TRUE(risposta.at("modal").is_null()) << risposta;
    clic("frmWizard.cmdNav(3)");
    // Back to the first step, keeping the changes.
    risposta = clic("frmWizard.cmdNav(2)");
    if (!risposta.at("modal").is_null()) rispondi("yes");
  });
  giro("sostituzione", 247, [&] {
    vaiAllaGriglia("2015", 2);
    clic("frmWizard.cmdProtocollo");
    scrivi("frmProtocollo.txtProtocollo", "17030512345678901");
    scrivi("frmProtocollo.txtProgressivo", "000042");
    clic("frmProtocollo.cmdOk");
    conferma(apri(rigaDi(101)));
    clic("frmWizard.cmdNav(3)");
    intermediario();
    clic("frmWizard.optStampaTracciato(1)");
    json risposta = clic("frmWizard.cmdNav(4)");
    while (risposta.at("windows").back() == "frmMsgLink") risposta = clic("frmMsgLink.Command1");
    EXPECT_TRUE(risposta.at("modal").is_null()) << risposta;
  });
  giro("anno 2014", 247, [&] {
    vaiAllaGriglia("2014");
    std::string form = apri(rigaDi(101));
    fai({{"do", "choose"}, {"in", form + ".TownComuneResidenzaAnnoCorr"}, {"record", comune}});
    modulo(form, "10,50");
    conferma(form);
    form = apri(rigaDi(101));
    modulo(form, "20,25");
    fai({{"do", "row"}, {"in", form + ".grdAltriModuli"}, {"row", 1}});
    scrivi(form + ".curField(18)", "7");
    clic(form + ".cmdSave");
    conferma(form);
  });
  giro("annullamento, per nome", 247, [&] {
    clic("frmWizard.optstType(1)");
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
    clic("frmWizard.optTipoComunicazione(1)");
    clic("frmWizard.optName");
    fai({{"do", "choose"}, {"in", "frmWizard.KrnCDPerc(0)"}, {"code", "P001"}});
    fai({{"do", "choose"}, {"in", "frmWizard.KrnCDPerc(1)"}, {"code", "P001"}});
    clic("frmWizard.cmdNav(3)");
    apri(rigaDi(101));
    scrivi("frmDatiAggiuntivi.txtProtocollo", "17030512345678901");
    scrivi("frmDatiAggiuntivi.txtProgressivo", "000042");
    clic("frmDatiAggiuntivi.cmdOk");
  });
  std::ifstream file(CU_ISTRUZIONI);
  std::ostringstream letto;
  letto << file.rdbuf();
  if (daConfrontare(letto.str()) == daConfrontare(elenco_)) return;
  const std::string trovate = std::string(CU_TROVATE) + "/istruzioni_trovate.txt";
  std::ofstream(trovate) << elenco_;
  std::istringstream attese(daConfrontare(letto.str()));
  std::istringstream mandate(daConfrontare(elenco_));
  std::string attesa;
  std::string mandata;
  do {
    attesa = mandata = "(end)";
    std::getline(attese, attesa);
    std::getline(mandate, mandata);
  } while (attesa == mandata && attese && mandate);
  FAIL() << "expected: " << attesa << "\n    sent: " << mandata << "\nAll that was sent is in " << trovate
         << "; what is meant belongs into " << CU_ISTRUZIONI;
}

}  // namespace
}  // namespace cu::test
