#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/company_answers.h"
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

// The wizard with surroundings that record their calls: user 12, company 1, 5 March 2017. The database
// answers as for a company with one complete payee; a test changes an answer by adding another one.
class WizardProva {
 public:
  static constexpr const char* kTabella = "tmpprequadrivio12";

  explicit WizardProva(const modello::Modello& modello = modello::kModello) : modello(modello) {
    factory.texts = {{80, "&Cerca"},
                     {237, "Avvio rifiutato."},
                     {829, "&Vai"},
                     {1264, "Comunicazioni"},
                     {1368, " Chiave "}};
    files.folders = {"/cu", "/documenti", "/documenti/Comunicazioni"};
    answerEditors(database);
    answerCompany(database, conteggi);
  }

  // Starts the process in a mode passed by the launcher.
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
  // Goes to the grid; to the last step.
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

  // As the user: returns false where the user cannot reach the control.
  template <class Controllo>
  bool premi(Controllo& controllo) {
    if (!controllo.available()) return false;
    controllo.form().perform(controllo, [&] { controllo.click(); });
    return true;
  }

  // The step on stage; -1 unless exactly one enabled frame is on stage next to the side band.
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

  // The statements sent, except those on the prints' table.
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

  void righe(const std::vector<WorkRow>& contenuto) {
    database.main.answer(kTabella, workTable(contenuto));
    inTabella(contenuto);
  }
  // The lines that the work table holds when they are looked at again.
  void inTabella(const std::vector<WorkRow>& contenuto) {
    database.own.answerContaining(std::string("Selezionato, Modificato FROM ") + kTabella,
                                  workTable(contenuto));
  }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeDatabase database;
  FakeFactory factory{database};
  MemorySettings settings;
  MemoryFileSystem files;
  FixedClock clock{2017, 3, 5};
  Counts conteggi;

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
  const modello::Modello& modello;
  ModMain modMain{Ambiente{.frontEnd = frontEnd,
                           .factory = factory,
                           .utilita = utilita,
                           .settings = settings,
                           .clock = clock,
                           .files = files,
                           .reports = stampe,
                           .modello = modello}};

  static Table azienda() { return completeCompany(); }
  static Table percipiente() { return completePayee(); }
};

}  // namespace cu::test
