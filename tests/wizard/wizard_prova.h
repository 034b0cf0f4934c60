#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/editor_answers.h"
#include "support/fake_factory.h"
#include "support/fixed_clock.h"
#include "support/memory_file_system.h"
#include "support/memory_settings.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/work_table.h"
#include "wizard/mod_main.h"

namespace cu::test {

// The wizard in surroundings that note what they are asked: user 12, company 1, 5 March 2017. The database
// answers what a company with one complete payee would; a test changes an answer by giving another one.
class WizardProva {
 public:
  static constexpr const char* kTabella = "tmpprequadrivio12";

  WizardProva() {
    factory.texts = {{80, "&Cerca"},
                     {237, "Avvio rifiutato."},
                     {829, "&Vai"},
                     {1264, "Comunicazioni"},
                     {1368, " Chiave "}};
    files.folders = {"/cu", "/documenti", "/documenti/Comunicazioni"};
    rispondi();
  }

  // Starts the process in a mode that the launcher hands over.
  FrmWizard& avvia(std::int32_t modo = 247) {
    factory.prepareSession = [modo](FakeSession& sessione) {
      sessione.processes = {{"Wizard stampa", modo}};
    };
    modMain.main();
    return form();
  }
  // On the first step of the telematic file, with the year 2016 chosen.
  FrmWizard& avviaCU() {
    avvia(247);
    premi(form().optstType[1]);
    form().KRNCboEsCont0.setIndex(0);
    return form();
  }
  // On the grid; and on the last step.
  FrmWizard& vaiAllaGriglia() {
    avviaCU();
    premi(form().cmdNav[3]);
    return form();
  }
  FrmWizard& vaiAllaFine() {
    vaiAllaGriglia();
    premi(form().cmdNav[3]);
    return form();
  }

  FrmWizard& form() { return *modMain.wizard(); }
  Globali& globali() { return modMain.globali(); }

  // As a person's hand: false where it cannot reach the control.
  template <class Controllo>
  bool premi(Controllo& controllo) {
    if (!controllo.available()) return false;
    controllo.form().perform(controllo, [&] { controllo.click(); });
    return true;
  }

  // The step on the stage; -1 when not exactly one stands beside the side band, enabled.
  int passo() {
    int trovato = -1;
    for (int i = 0; i < 3; ++i) {
      const Frame& cornice = form().fraStep[static_cast<std::size_t>(i)];
      if (cornice.left() == Frame::kOffStage) continue;
      if (trovato >= 0 || cornice.left() != SideBand::kWidth || !cornice.enabled()) return -1;
      trovato = i;
    }
    return trovato;
  }

  // What was sent for the work itself: the prints' table aside.
  std::vector<std::string> istruzioni() const {
    std::vector<std::string> testi;
    for (const std::string& testo : database.internal.texts(FakeConnection::Kind::Execute)) {
      if (testo.find("TabellaRicorsione2") == std::string::npos) testi.push_back(testo);
    }
    return testi;
  }
  void dimentica() {
    for (FakeConnection* connessione : {&database.main, &database.internal, &database.own}) {
      connessione->sent.clear();
    }
    utilita.adapted.clear();
    frontEnd.boxes.clear();
    frontEnd.pointers.clear();
  }

  void righe(const std::vector<WorkRow>& contenuto) { database.main.answer(kTabella, workTable(contenuto)); }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeDatabase database;
  FakeFactory factory{database};
  MemorySettings settings;
  MemoryFileSystem files;
  FixedClock clock{2017, 3, 5};
  int selezionate = 1;      // what the table counts
  int senzaProtocollo = 0;  // of these

  class Stampe : public ReportCatalogue {
   public:
    std::vector<ReportInfo> reports(std::int32_t tipo) const override {
      if (tipo == 246) return {{"ContoIndividuale.rpt", 1}};
      if (tipo == 247)
        return {{"CertificazioneCompensiSintetico.rpt", 2}, {"CertificazioneCompensiAnalitico.rpt", 3}};
      return {{"Modulo.rpt", 4}};
    }
  };
  Stampe stampe;
  ModMain modMain{Ambiente{.frontEnd = frontEnd,
                           .factory = factory,
                           .utilita = utilita,
                           .settings = settings,
                           .clock = clock,
                           .files = files,
                           .reports = stampe}};

 private:
  void rispondi() {
    answerEditors(database);
    database.own.answerContaining(
        "SELECT DISTINCT ContoIndividuale.Anno",
        Table({"Anno"}, {{whole(2016)}, {whole(2015)}, {whole(2014)}, {whole(2013)}}));
    database.main.answerContaining("DefaultFilialePerTipoOggetto",
                                   Table({"IDDefaultFilialePerTipoOggetto"}, {}));
    database.main.answerContaining("FROM Anagrafica", Table({"IDAnagrafica", "Nome"}, {}));
    // The test whether anything would be printed.
    database.main.answerContaining("FROM RepContoIndividuale", Table({"IDAzienda"}, {}));
    database.main.answerContaining("FROM RepCompenso", Table({"IDAzienda"}, {}));
    database.main.answerContaining("SELECT COUNT(Selezionato)", [this](std::string_view testo) {
      const bool protocolli = testo.find("ISNULL") != std::string_view::npos;
      return Table({"COUNT"}, {{whole(protocolli ? senzaProtocollo : selezionate)}});
    });
    righe({workRow(1, 1), workRow(2, 1)});
    database.internal.answerContaining("AS CodFisc", azienda());
    database.internal.answerContaining("SELECT DISTINCT Anag.Sesso", percipiente());
    database.internal.answerContaining("ORDER BY Anag.Anagrafica", Table({"Anno"}, {}));
    database.internal.answerContaining("FROM ConfigurazioneElencoCliFor", Table({"IDAzienda"}, {}));
  }

 public:
  static Table azienda() {
    return Table({"CodFisc", "AnagAz", "PersonaFisicaAz", "NomeAz", "ComuneAz", "SiglaProvinciaAz",
                  "AnagraficaRapp", "NomeRapp", "CodiceFiscaleRapp", "CodiceCarica"},
                 {{text("01234567890"), text("Quadrivio SRL"), whole(0), null(), text("Roma"), text("RM"),
                   text("Bianchi"), text("Ada"), text("BNCDAA70A41H501X"), text("1")}});
  }
  static Table percipiente() {
    return Table({"Sesso", "DataNascita", "NonResidente", "Indirizzo", "PersonaFisica", "Anagrafica", "Nome",
                  "AnagPercipiente", "CodiceFiscale", "ComuneNascita", "ComuneRes", "NazioneNascita",
                  "CodiceIdentificazioneFiscaleEstero", "PrefissoInternazionaleRes"},
                 {{text("M"), day(1970, 1, 1), whole(0), text("Via Roma 1"), whole(1), text("Rossi"),
                   text("Mario"), text("Rossi Mario"), text("RSSMRA70A01H501U"), text("Roma"), text("Roma"),
                   text("Italia"), null(), null()}});
  }
};

}  // namespace cu::test
