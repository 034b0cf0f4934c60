// The form of a file's certificate against the print of the accounts.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>

#include "apps/comune/sessione_comando.h"
#include "apps/strumenti/file_esaminato.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/modulo_disegnato.h"
#include "azienda_support.h"
#include "fornitura/corsa.h"
#include "host/testi_programma.h"
#include "lettura/lettura_prova.h"
#include "reporting/pdf_reports.h"

namespace cu::strumenti {
namespace {

using lettura::prova::FileDiProva;
using ::testing::HasSubstr;
using ::testing::Not;

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

// How often each word is there; the file has names in capitals.
void conta(const std::string& testo, std::map<std::string, int>& parole) {
  std::istringstream flusso(testo);
  for (std::string parola; flusso >> parola;) ++parole[qs(parola).toUpper().toStdString()];
}

std::string uscitaDi(const std::string& comando) {
  FILE* const uscita = ::popen(comando.c_str(), "r");
  if (uscita == nullptr) return {};
  std::string testo;
  std::array<char, 4096> blocco{};
  while (const std::size_t letti = std::fread(blocco.data(), 1, blocco.size(), uscita)) {
    testo.append(blocco.data(), letti);
  }
  EXPECT_EQ(::pclose(uscita), 0);
  return testo;
}

std::string testoPdf(const std::string& pdf) { return uscitaDi("pdftotext -layout '" + pdf + "' -"); }

// The form of a certificate; the company's code at a fund is blank where the file repeats the fund instead.
reporting::FormOfFile comeStampato(const lettura::Certificato& certificato,
                                   const lettura::Sostituto& sostituto, std::int32_t anno) {
  reporting::FormOfFile modulo = moduloDi(certificato, sostituto, anno);
  for (reporting::FormOfFile::Cells& celle : modulo.modules) {
    std::string ente;
    std::erase_if(celle, [&](const reporting::FormOfFile::Cell& cella) {
      if (cella.code == "AU001030") ente = cella.text;
      if (cella.code == "AU001031" && anno == 2015) ente = cella.text;
      return cella.code == "AU001032" && cella.text == ente;
    });
  }
  return modulo;
}

// The file of a year, and the forms that the same run has printed from the accounts.
struct Corsa {
  std::string file;
  std::string moduli;
};
Corsa corri(const test::Azienda& azienda, std::int32_t anno) {
  Terminale terminale;
  terminale.passaAvvisi = true;
  Surroundings surroundings(azienda.profilo, terminale, PdfReports::crea);
  SessioneComando sessione(surroundings, terminale);
  Corsa corsa;
  const std::string dove = azienda.cartella / std::to_string(anno);
  std::filesystem::create_directory(dove);
  sessione.esegui([&] {
    Compensi compensi(surroundings.utilita(), terminale);
    fornitura::RichiestaCU richiesta;
    richiesta.anno = std::to_string(anno);
    richiesta.cartella = dove;
    richiesta.cartellaDocumenti = sessione.testi().text(1264);
    richiesta.stampaCumulativa = true;
    richiesta.modulo = surroundings.stampe().reports(fnModoCU()).front();
    richiesta.prosegue = [](const Finding&) { return true; };
    richiesta.guasto = [](const std::string& testo) { ADD_FAILURE() << testo; };
    const auto esito = fornitura::creaCU(sessione.intorno(), compensi, richiesta);
    for (const Finding& rifiuto : esito.refusals) ADD_FAILURE() << rifiuto.code << ' ' << rifiuto.text;
    if (esito->file) corsa.file = esito->file->percorso;
  });
  for (const std::string& messaggio : terminale.messaggi) ADD_FAILURE() << messaggio;
  for (std::size_t i = 0; i < terminale.stampe.size(); ++i) {
    const StampeAnnotate::Una stampa = terminale.stampe[i];
    if (stampa.fatta) corsa.moduli = stampa.file;
  }
  return corsa;
}

TEST(FormOfFile, PrintsWhatTheAccountsPrint) {
  for (const std::int32_t anno : {2014, 2015, 2016, 2017}) {
    const test::Azienda azienda;
    const Corsa corsa = corri(azienda, anno);
    ASSERT_FALSE(corsa.moduli.empty()) << anno;
    std::map<std::string, int> attese;
    conta(testoPdf(corsa.moduli), attese);
    std::map<std::string, int> trovate;
    const FileEsaminato file = FileEsaminato::leggi(corsa.file, {});
    EXPECT_GT(file.certificati().size(), 40U);
    for (std::size_t i = 0; i < file.certificati().size(); ++i) {
      const auto pagine =
          reporting::drawFormOfFile(comeStampato(file.rileggi(i), file.sostituti().front(), anno), "prova");
      for (const std::string& pagina : pagine->preview().pages) conta(pagina, trovate);
    }
    std::vector<std::string> diverse;
    for (const auto& [parola, volte] : attese) {
      const int sue = trovate.contains(parola) ? trovate[parola] : 0;
      if (sue != volte) diverse.push_back(parola + " " + std::to_string(volte) + " " + std::to_string(sue));
    }
    for (const auto& [parola, volte] : trovate) {
      if (!attese.contains(parola)) diverse.push_back(parola + " 0 " + std::to_string(volte));
    }
    EXPECT_THAT(diverse, ::testing::IsEmpty()) << anno;
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

// The text in a rectangle of a page, in points.
std::string testoIn(const std::string& pdf, const reporting::FormPlace& posto) {
  constexpr double kPunti = 72 / 25.4;
  const auto punti = [](double millimetri) { return std::to_string(std::lround(millimetri * kPunti)); };
  const std::string pagina = std::to_string(posto.page + 1);
  const std::string comando = "pdftotext -r 72 -f " + pagina + " -l " + pagina + " -x " +
                              punti(posto.place.x) + " -y " + punti(posto.place.y) + " -W " +
                              punti(posto.place.width) + " -H " + punti(posto.place.height) + " '" + pdf +
                              "' -";
  return uscitaDi(comando);
}

TEST(FormOfFile, SaysWhereItsBoxesAre) {
  FileDiProva prova;
  prova.certificato().fine();
  lettura::Sostituto sostituto;
  const lettura::Certificato certificato = certificatoDi(prova, sostituto);
  std::vector<reporting::FormPlace> posti;
  const auto pagine = disegna(certificato, sostituto, 2017, &posti);
  const auto testo = [&](const std::string& codice) {
    const auto posto =
        std::find_if(posti.begin(), posti.end(), [&](const auto& uno) { return uno.code == codice; });
    return posto == posti.end() ? "no box" : testoIn(pagine->preview().file, *posto);
  };
  EXPECT_THAT(testo("AU001004"), HasSubstr("1.234,50"));
  EXPECT_THAT(testo("AU001008"), HasSubstr("1.000,00"));
  EXPECT_THAT(testo("AU001008"), Not(HasSubstr("1.234,50")));
  EXPECT_THAT(testo("DA002001"), HasSubstr("RSSMRC71C08L781I"));
  EXPECT_EQ(testo("ZZ001001"), "no box");
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
