// The form of a file's certificate against the print of the accounts.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "apps/strumenti/file_esaminato.h"
#include "apps/strumenti/modulo_disegnato.h"
#include "azienda_support.h"
#include "lettura/lettura_prova.h"
#include "reporting/pdf_reports.h"
#include "suite/file_system.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"

namespace cu::strumenti {
namespace {

using lettura::prova::FileDiProva;
using ::testing::HasSubstr;
using ::testing::Not;

// Words without their places.
std::vector<std::string> parole(const std::string& testo) {
  std::istringstream flusso(testo);
  std::vector<std::string> parole;
  for (std::string parola; flusso >> parola;) parole.push_back(parola);
  return parole;
}

lettura::Certificato certificatoDi(const FileDiProva& prova, lettura::Sostituto& sostituto) {
  const test::TempFolder cartella;
  const FileEsaminato file = FileEsaminato::leggi(test::scritto(cartella / "p.cur", prova.testo()), {});
  sostituto = file.sostituti().front();
  return file.rileggi(0);
}

std::string testoDi(const FileDiProva& prova) {
  lettura::Sostituto sostituto;
  const lettura::Certificato certificato = certificatoDi(prova, sostituto);
  const auto pagine = disegna(certificato, sostituto, 2017);
  std::string testo;
  for (const std::string& pagina : pagine->preview().pages) testo += pagina + "\f";
  return testo;
}

TEST(FormOfFile, PrintsWhatTheAccountsPrint) {
  const test::Azienda azienda;
  for (const std::int32_t anno : {2014, 2015, 2016, 2017}) {
    const std::string percorso = azienda.scrivi(anno);
    ASSERT_FALSE(percorso.empty()) << anno;
    const FileEsaminato file = FileEsaminato::leggi(percorso, {});
    const auto connessione = apriConnessione(azienda.profilo.database);
    test::ScriptedFrontEnd schermo;
    test::FixedClock orologio{2018, 3, 5};
    FileSystemPiattaforma disco;
    PdfReports stampe(ReportSurroundings{schermo, disco, orologio, "cuwizard"});
    const auto motore = stampe.create();
    motore->setConnection(*connessione);
    motore->setSession(12, 1, 1);
    motore->setObjectType(342);
    motore->setDefinition(3421);
    motore->setReportFile("CertificazioneUnica.rpt");
    motore->setSelectionFormula("{RepCertificazioneUnica.IDUtente} = 12");
    motore->preview();
    std::map<std::string, int> attese;
    std::map<std::string, int> trovate;
    ASSERT_EQ(schermo.previews.size(), 1U);
    for (const std::string& pagina : schermo.previews.front()) {
      for (const std::string& parola : parole(pagina)) ++attese[parola];
    }
    for (std::size_t i = 0; i < file.certificati().size(); ++i) {
      const auto pagine = disegna(file.rileggi(i), file.sostituti().front(), anno);
      for (const std::string& pagina : pagine->preview().pages) {
        for (const std::string& parola : parole(pagina)) ++trovate[parola];
      }
    }
    EXPECT_EQ(trovate, attese) << anno;
  }
}

TEST(FormOfFile, ShowsACellAndNothingThatFollowsFromOthers) {
  FileDiProva prova;
  prova.certificato().fine();
  prova.togli(4, "AU001006");
  EXPECT_THAT(testoDi(prova), HasSubstr("1.234,50"));
  prova.valore(4, "AU001004", "12,3X");
  const std::string testo = testoDi(prova);
  EXPECT_THAT(testo, HasSubstr("12,3X")) << "what is no amount is shown as it is";
  EXPECT_THAT(testo, Not(HasSubstr("1.234,50")));
}

TEST(FormOfFile, AnAnnulmentHasItsReferenceAndOnePage) {
  FileDiProva prova;
  prova.certificato("RSSMRC71C08L781I", 'A').fine();
  lettura::Sostituto sostituto;
  const lettura::Certificato certificato = certificatoDi(prova, sostituto);
  const auto pagine = disegna(certificato, sostituto, 2017);
  ASSERT_EQ(pagine->preview().pages.size(), 1U);
  EXPECT_THAT(pagine->preview().pages[0], HasSubstr("ANNULLAMENTO"));
  EXPECT_THAT(pagine->preview().pages[0], HasSubstr("18030612345678901"));
}

TEST(FormOfFile, TheTableNamesTheBoxesOfTheYear) {
  EXPECT_EQ(nomeCasella("AU001004", 2017), "4 - Ammontare lordo corrisposto");
  EXPECT_EQ(nomeCasella("AU001022", 2017), "") << "moved after 2014";
  EXPECT_NE(nomeCasella("AU001022", 2014), "");
  FileDiProva prova;
  prova.certificato().modulo({{"AU001007", FileDiProva::amount("1,00")}}).fine();
  lettura::Sostituto sostituto;
  const std::vector<CasellaMostrata> caselle = caselleDi(certificatoDi(prova, sostituto), 2017);
  EXPECT_EQ(caselle.front().modulo, 0);
  EXPECT_EQ(caselle.back().modulo, 2);
  EXPECT_EQ(caselle.back().testo, "1,00");
}

}  // namespace
}  // namespace cu::strumenti
