// Hostile texts in every field. Each text is entered in every place of every form that accepts a text, with
// the places taken from the form's own description; a harmless text of the same length is entered in a
// parallel run. The text is found unchanged, truncated or replaced where required, in control, work table,
// accounts and file; and the statements of the two runs differ only in their values.

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "support/cur_reader.h"
#include "system/forma_support.h"
#include "system/inserimenti_support.h"
#include "system/scena_ostile_support.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using json = nlohmann::json;

// One run through all forms with one text.
class Corsa : public ScenaOstile {
 public:
  explicit Corsa(std::string testo, bool conNulli = false) : ScenaOstile(std::move(testo), conNulli) {
    // A payee and a reason with that name, with a line in every year.
    database_ = posto_.lettore();
    database_->esegui(std::string("UPDATE Percipiente SET Codice = ? WHERE IDAnagrafica = ") + kChi,
                      {testo_});
    database_->esegui(
        std::string("UPDATE Anagrafica SET Anagrafica = ?, Nome = ? WHERE IDAnagrafica = ") + kChi,
        {breve_, breve_});
    database_->esegui(
        std::string(
            "UPDATE CausalePagamento SET Codice = ?, CausalePagamento = ? WHERE IDCausalePagamento = ") +
            kCausale,
        {breve_, testo_});
    database_->esegui("DELETE FROM ModuloXContoIndividuale; DELETE FROM ConfigurazioneElencoCliFor");
  }
  void TestBody() override {}

  void percorri() {
    avvia();
    stampa();
    clic("frmWizard.optstType(1)");
    clic("frmWizard.optTipoComunicazione(2)");
    opzioni();
    for (const char* anno : {"2014", "2015", "2017"}) percorri(anno);
    chiudi();
    tutteRaggiunte();
    // The stored settings are read again.
    avvia();
    EXPECT_EQ(stato("frmWizard.txtPercorsoCU").at("text"), cartella_);
    chiudi();
  }

  const std::vector<std::string>& forme() const { return forme_; }
  std::vector<std::string> righeDelleTabelle() const {
    std::vector<std::string> righe;
    for (const std::string& tabella : database_->tavole()) {
      righe.push_back(tabella + " " + database_->testo("SELECT COUNT(*) FROM " + tabella));
    }
    return righe;
  }

 private:
  void chiudi() {
    processo_->chiudiIngresso();
    processo_->resto();
    EXPECT_EQ(processo_->codice(), 0) << processo_->errori();
    EXPECT_THAT(processo_->errori(), IsEmpty());
    for (const std::string& istruzione : istruzioniDi(posto_.cartella().read("trace.sql"))) {
      forme_.push_back(formaDi(istruzione));
    }
  }

  // The print of the certificates, on a printer that does not exist.
  void stampa() {
    scegliRiga("2016");
    clic("frmWizard.cmdNav(3)");
    scena("frmWizard");
    fai({{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"output", 2}});
    ASSERT_EQ(clic("frmWizard.cmdNav(4)").at("modal").at("kind"), "printer");
    if (conNulli_) negaIlNullo({{"do", "answer"}, {"with", {{"printer", kNullo}, {"copies", 1}}}});
    const json stampato = fai({{"do", "answer"}, {"with", {{"printer", testo_}, {"copies", 1}}}})
                              .at("effects")
                              .at(0)
                              .at("printed");
    EXPECT_EQ(stampato.at("printer"), testo_);
    EXPECT_THAT(stampato.at("formula").get<std::string>(), HasSubstr("'" + raddoppiato(breve_) + "'"));
    clic("frmWizard.cmdNav(2)");
  }

  void opzioni() {
    clic("frmWizard.cmdOpzioni");
    scena("frmOption");
    clic("frmOption.chkPrintInter");
    scena("frmOption");
    clic("frmOption.cmdOk");
  }

  void percorri(const std::string& anno) {
    SCOPED_TRACE(anno);
    scena("frmWizard");
    allaGriglia(anno);
    scena("frmWizard");
    clic("frmWizard.cmdProtocollo");
    scena("frmProtocollo");
    clic("frmProtocollo.cmdOk");
    trovati("frmProtocollo", lavoro(), {});
    correggi(anno);
    const auto lavorate = trovati("frmCompenso", lavoro(), {});
    const auto aggiuntive = trovati("frmDatiAggiuntivi", lavoro(), fusioniPerdute(anno));
    trovati("modulo", modulo(), {});

    clic("frmWizard.cmdNav(3)");
    if (!stato("frmWizard.chkIntermediari").at("value").get<bool>()) clic("frmWizard.chkIntermediari");
    scena("frmWizard");
    cartella();
    scriviLeDate();
    const std::string fatto = creaIlFile();

    const auto conto = database_->riga("SELECT * FROM ContoIndividualeDatiAggiuntivi" + dove(anno));
    for (const auto* colonne : {&lavorate, &aggiuntive}) {
      for (const auto& [colonna, testo] : *colonne) EXPECT_EQ(conto.at(colonna), testo) << colonna;
    }
    intermediario();
    if (fatto.empty()) {
      nelFile(anno);
    } else {
      // Only a long text does not fit.
      EXPECT_GT(caratteri(testo_), 200U) << fatto;
      EXPECT_EQ(anno, "2017") << fatto;
      EXPECT_THAT(fatto, HasSubstr("75 celle del record D"));
    }
  }

  void scegliRiga(const std::string& anno) {
    fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", anno}});
    for (const char* lato : {"(0)", "(1)"}) {
      fai({{"do", "choose"}, {"in", std::string("frmWizard.KrnCDPerc") + lato}, {"code", testo_}});
      fai({{"do", "choose"}, {"in", std::string("frmWizard.KrnCDCausContrib") + lato}, {"code", breve_}});
    }
  }

  // Once by codes, once by names: either way it is the one line. The accounts are rebuilt before.
  void allaGriglia(const std::string& anno) {
    clic("frmWizard.optCode");
    scegliRiga(anno);
    clic("frmWizard.chkRicostruzione");
    clic("frmWizard.cmdNav(3)");
    unaRiga();
    clic("frmWizard.cmdNav(2)");
    rispondi("no");
    clic("frmWizard.optName");
    clic("frmWizard.cmdNav(3)");
    unaRiga();
    clic("frmWizard.cmdNav(2)");
    rispondi("no");
    clic("frmWizard.chkRicostruzione");
    clic("frmWizard.cmdNav(3)");
    unaRiga();
  }
  void unaRiga() {
    ASSERT_EQ(stato("frmWizard.grdCompensi").at("rows"), 1);
    const json riga = righe("frmWizard.grdCompensi", 1, 1).at(0);
    EXPECT_EQ(riga.at("Codice"), senzaCodaDiBlank(breve_));
    EXPECT_EQ(riga.at("AnagraficaPerc"), senzaCodaDiBlank(breve_ + " " + breve_));
  }

  void correggi(const std::string& anno) {
    const std::string form = apri(1);
    if (anno != "2014") {
      clic(form + ".cmdDatiAggiuntivi");
      scena("frmDatiAggiuntivi");
      clic("frmDatiAggiuntivi.cmdOk");
    }
    scena(form);
    if (anno == "2014") {
      fai({{"do", "choose"}, {"in", form + ".stbMain"}, {"index", 2}});
    } else {
      clic(form + ".cmdAltriModuli");
    }
    clic(form + ".cmdNew");
    scena(form, "modulo");
    passa(clic(form + ".cmdSave"));
    EXPECT_EQ(passa(clic(form + ".cmdOk")).at("windows"), json({"frmWizard"}));
    // The same line again, as it is shown now.
    apri(1);
    mostrati(form, "frmCompenso", {});
    mostrati(form, "modulo", {});
    if (anno != "2014") {
      clic(form + ".cmdDatiAggiuntivi");
      mostrati("frmDatiAggiuntivi", "frmDatiAggiuntivi", fusioniPerdute(anno));
      clic("frmDatiAggiuntivi.cmdAnnulla");
    }
    clic(form + ".cmdAnnulla");
  }

  void mostrati(const std::string& form, const std::string& gruppo, const std::set<std::string>& perduti) {
    for (const auto& [nome, testo] : campi_[gruppo]) {
      EXPECT_EQ(stato(form + "." + nome).at("text"), perduti.contains(nome) ? "" : testo) << nome;
    }
  }

  // Confirms all boxes.
  json passa(json risposta) {
    while (!risposta.at("modal").is_null() && risposta.at("modal").at("kind") == "message")
      risposta = rispondi("ok");
    EXPECT_TRUE(risposta.at("modal").is_null()) << risposta;
    return risposta;
  }

  void cartella() {
    std::string nome = breve_;
    std::replace(nome.begin(), nome.end(), '/', '-');
    nomeCartella_ = nome;
    cartella_ = posto_.cartella() / nome;
    std::filesystem::create_directories(cartella_);
    ASSERT_EQ(clic("frmWizard.cmdSfoglia").at("modal").at("kind"), "folder");
    if (conNulli_) negaIlNullo({{"do", "answer"}, {"with", {{"folder", cartella_ + kNullo}}}});
    fai({{"do", "answer"}, {"with", {{"folder", cartella_}}}});
    EXPECT_EQ(stato("frmWizard.txtPercorsoCU").at("text"), cartella_);
  }

  // A text that is no date stays in its box, counts as empty, and is reported as missing.
  void scriviLeDate() {
    const json registro = clic("frmWizard.cmdNav(4)").at("modal");
    ASSERT_EQ(registro.at("kind"), "log");
    std::vector<std::string> mancanti;
    for (const json& riga : registro.at("rows")) mancanti.push_back(riga.at(0));
    EXPECT_THAT(mancanti, ElementsAre("Data della firma", "Data dell'impegno"));
    rispondi("ok");
    for (const std::string nome : {"dtDataFirma", "dtDataImpegno"}) {
      EXPECT_EQ(stato("frmWizard." + nome).at("text"), campi_["frmWizard"].at(nome));
      fai({{"do", "enter"}, {"in", "frmWizard." + nome}, {"text", "05/03/2017"}});
      campi_["frmWizard"][nome] = "05/03/2017";
    }
  }

  // The message that has stopped the run; "" when the file was made.
  std::string creaIlFile() {
    json risposta = clic("frmWizard.cmdNav(4)");
    std::string fermata;
    for (;;) {
      const json& modale = risposta.at("modal");
      for (const json& effetto : risposta.at("effects")) stampato(effetto);
      if (!modale.is_null() && modale.at("kind") == "error") fermata = modale.at("text");
      if (!modale.is_null()) {
        EXPECT_NE(modale.at("kind"), "log") << modale;
        risposta = rispondi("ok");
      } else if (risposta.at("windows").back() == "frmMsgLink") {
        risposta = clic("frmMsgLink.Command1");
      } else {
        break;
      }
    }
    if (!fermata.empty()) clic("frmWizard.cmdNav(2)");
    return fermata;
  }
  void stampato(const json& effetto) {
    if (!effetto.contains("printed")) return;
    EXPECT_THAT(effetto.at("printed").at("file").get<std::string>(), HasSubstr("_" + testo_ + "_"));
  }

  void intermediario() {
    const auto salvato = database_->riga("SELECT * FROM ConfigurazioneElencoCliFor WHERE IDAzienda = 1");
    EXPECT_EQ(salvato.at("CodiceFiscaleIntermediario"), campi_["frmWizard"].at("txtCodiceFiscale"));
    EXPECT_EQ(salvato.at("DataImpegno"), "2017-03-05");
  }

  void nelFile(const std::string& anno) {
    const CurFile file(posto_.cartella().read(nomeCartella_ + "/CUR_04123450233_" + anno + ".cur"));
    ASSERT_EQ(file.types(), "ABDHHZ");
    std::string intermediario = senzaMinuscole(nelTracciato(campi_["frmWizard"].at("txtCodiceFiscale")));
    intermediario.resize(16, ' ');
    EXPECT_EQ(database_->testo("SELECT Path3 FROM TabellaRicorsione2"),
              campi_["frmWizard"].at("dtDataFirma"));
    EXPECT_EQ(file.line('A').at(23, 16), intermediario);
    EXPECT_EQ(file.line('B').at(412, 16), intermediario);
    const CurLine& d = file.line('D');
    EXPECT_EQ(d.value("DA002002"), senzaMinuscole(nelTracciato(breve_)));
    EXPECT_EQ(file.line('H').value("AU001001"), senzaMinuscole(nelTracciato(breve_)));

    auto nelRigo = campi_["frmCompenso"];
    if (anno != "2014") nelRigo.merge(campi_["frmDatiAggiuntivi"]);
    EXPECT_EQ(d.at(47, 17), aDestra(nelRigo.extract("txtProtocollo").mapped(), 17));
    EXPECT_EQ(d.at(64, 6), aDestra(nelRigo.extract("txtProgressivo").mapped(), 6));
    for (const auto& [nome, testo] : nelRigo) {
      const int attese = fusioniPerdute(anno).contains(nome) ? 0 : 1;
      EXPECT_EQ(celle(d, testo) + celle(file.line('H'), testo), attese) << nome;
    }
    for (const auto& [nome, testo] : campi_["modulo"]) EXPECT_EQ(celle(file.line('H', 2), testo), 1) << nome;
  }
  static std::string aDestra(const std::string& testo, std::size_t larghezza) {
    const std::string scritto = nelTracciato(primi(testo, larghezza));
    return std::string(larghezza - scritto.size(), ' ') + scritto;
  }
  // The number of cells with the text; record H is in upper case.
  static int celle(const CurLine& record, const std::string& testo) {
    std::string scritto = senzaCodaDiBlank(nelTracciato(testo));
    if (record.type() == 'H') scritto = senzaMinuscole(std::move(scritto));
    int trovate = 0;
    for (const auto& [codice, valore] : record.values()) trovate += valore == scritto ? 1 : 0;
    return trovate;
  }

  std::string dove(const std::string& anno) const {
    return std::string(" WHERE Anno = ") + anno + " AND IDAnagrafica = " + kChi +
           " AND IDCausalePagamento = " + kCausale;
  }
  std::map<std::string, std::string> lavoro() { return database_->riga("SELECT * FROM tmpprequadrivio12"); }
  std::map<std::string, std::string> modulo() {
    return database_->riga("SELECT * FROM ModuloXContoIndividuale ORDER BY IDModuloXContoIndividuale DESC");
  }
  // The layout of 2015 has no merger notes; its dialog shows them nevertheless.
  static std::set<std::string> fusioniPerdute(const std::string& anno) {
    if (anno != "2015") return {};
    return {"txtFusioneComuni", "txtFusioneComuniAnnoPrec"};
  }

  // Each text of a form is in one column of the row; returns the columns and their texts.
  std::map<std::string, std::string> trovati(const std::string& gruppo,
                                             const std::map<std::string, std::string>& riga,
                                             const std::set<std::string>& perduti) {
    std::map<std::string, std::string> colonne;
    for (const auto& [nome, testo] : campi_[gruppo]) {
      int quante = 0;
      for (const auto& [colonna, valore] : riga) {
        if (valore != testo) continue;
        ++quante;
        colonne[colonna] = testo;
      }
      EXPECT_EQ(quante, perduti.contains(nome) ? 0 : 1) << gruppo << "." << nome;
    }
    return colonne;
  }

  std::unique_ptr<Lettore> database_;
  std::string cartella_;
  std::string nomeCartella_;
  std::vector<std::string> forme_;
};

// The results of a run with a harmless text of that length; created once for each length.
const Corsa& innocua(std::size_t lunghezza) {
  static std::map<std::size_t, std::unique_ptr<Corsa>> corse;
  std::unique_ptr<Corsa>& corsa = corse[lunghezza];
  if (corsa == nullptr) {
    SCOPED_TRACE("the harmless run");
    corsa = std::make_unique<Corsa>(std::string(lunghezza, 'X'));
    corsa->percorri();
  }
  return *corsa;
}

class InserimentoOstile : public testing::TestWithParam<Inserimento> {};

TEST_P(InserimentoOstile, IsKeptAsItIsAndChangesNoStatement) {
  Corsa ostile(GetParam().testo);
  ostile.percorri();
  const Corsa& altra = innocua(caratteri(GetParam().testo));
  const auto [sua, attesa] =
      std::mismatch(ostile.forme().begin(), ostile.forme().end(), altra.forme().begin(), altra.forme().end());
  EXPECT_TRUE(sua == ostile.forme().end() && attesa == altra.forme().end())
      << (sua == ostile.forme().end() ? "(end)" : *sua) << "\ninstead of\n"
      << (attesa == altra.forme().end() ? "(end)" : *attesa);
  EXPECT_GT(ostile.forme().size(), 100U);
  EXPECT_EQ(ostile.righeDelleTabelle(), altra.righeDelleTabelle());
}

// The database cannot store a text with a zero character; the message appears before any change.
TEST(InserimentoNullo, IsRefusedInWordsEverywhere) {
  Corsa corsa(std::string(6, '\''), true);
  corsa.percorri();
}

INSTANTIATE_TEST_SUITE_P(Texts, InserimentoOstile, testing::ValuesIn(inserimenti()),
                         [](const auto& caso) { return std::string(caso.param.nome); });

}  // namespace
}  // namespace cu::test
