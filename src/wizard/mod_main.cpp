#include "wizard/mod_main.h"

#include "base/error.h"
#include "base/text.h"
#include "host/testi_programma.h"

namespace cu {
namespace {

constexpr const char* kProcesso = "Wizard stampa";

}  // namespace

ModMain::ModMain(const Ambiente& ambiente) : ambiente_(ambiente) {}
ModMain::~ModMain() = default;

void ModMain::main() {
  try {
    entry();
  } catch (const Error& errore) {
    if (errore.number() == kErrorSessionRefused) {
      refused_ = true;
      std::string titolo = globali_.gSessione->title();
      if (titolo.empty()) titolo = kNomeProgramma;
      ambiente_.utilita.refusedStart(globali_.gTesti->text(237), titolo);
      wizard_->unload();
      return;
    }
    // The error is raised again with its number. An object's error keeps nothing else; an error of database
    // or files keeps its text, which states the remedy.
    if (errore.number() == kErrorProcessName) {
      throw Error(errore.number(), "Errore definito dall'applicazione o dall'oggetto.");
    }
    throw;
  }
}

void ModMain::entry() {
  globali_.gTesti = ambiente_.factory.createTesti();
  globali_.gChiaveImpostazioni = std::string(trim(globali_.gTesti->text(1368)));
  globali_.gSessione = ambiente_.factory.createSessione();
  globali_.gSessione->setProgramName(std::string(kNomeProgramma));
  wizard_ = std::make_unique<FrmWizard>(ambiente_, globali_);
  wizard_->load();
  globali_.gSessione->start(0);

  auto valute = ambiente_.factory.createValuta();
  const Valuta valuta = valute->valuta(globali_.gSessione->database().connection(), ambiente_.clock.today(),
                                       globali_.gSessione->IDUtente(), globali_.gSessione->IDAzienda());
  globali_.gDecimaliValuta = valuta.decimali;
  globali_.gSimboloValuta = valuta.simbolo;
  globali_.gSeparatoreDecimale = valuta.separatoreDecimale;
  globali_.gSeparatoreMigliaia = valuta.separatoreMigliaia;
  valute.reset();

  globali_.gTitolo = globali_.gSessione->title();
  globali_.helpFile = ambiente_.files.join(globali_.gSessione->helpFolder(), "Velatura.chm");
  controllaProcessi();
}

void ModMain::controllaProcessi() {
  for (const ProcessoHost& processo : globali_.gSessione->processi()) {
    if (processo.nome != kProcesso) {
      throw Error(kErrorProcessName,
                  "No processes to execute\r\nThis application is able to execute these processes:\r\n");
    }
    wizard_->sbInitWizard();
    wizard_->show();
  }
}

}  // namespace cu
