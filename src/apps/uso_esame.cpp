#include "uso_esame.h"

#include <memory>

#include "apps/aziende/comando_tabellone.h"
#include "apps/esame/comandi_esame.h"
#include "uso.h"
#include "uso_aziende.h"

namespace cu {
namespace {

void aggiungiProfilo(CLI::App& comando, std::string& profilo) {
  comando.add_option("--profile", profilo, "Il profilo TOML")->required()->type_name("FILE.toml");
}

}  // namespace

void aggiungiInspect(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(programma, "inspect", "Mostra che cosa contiene un file telematico");
  auto opzioni = std::make_shared<OpzioniInspect>();
  comando.add_option("file", opzioni->file, "Il file telematico")->required()->type_name("FILE.cur");
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando
      .add_option("--certificate", opzioni->certificazione,
                  "Solo questa certificazione, contata dall'inizio del file")
      ->check(fra(1, 2000000000))
      ->type_name("N");
  comando.add_option("--csv", opzioni->csv, "Scrive le certificazioni in una tabella")->type_name("FILE.csv");
  comando.add_option("--xlsx", opzioni->xlsx, "Le scrive in un foglio elettronico")->type_name("FILE.xlsx");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoInspect(*opzioni); }; });
}

void aggiungiValidate(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(programma, "validate", "Controlla uno o più file telematici");
  auto opzioni = std::make_shared<OpzioniValidate>();
  comando.add_option("file", opzioni->file, "I file telematici")->required()->type_name("FILE.cur");
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando.add_flag("--strict", opzioni->severo, "Anche un avviso dà codice d'uscita 1");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoValidate(*opzioni); }; });
}

void aggiungiDiff(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "diff", "Confronta due file telematici, certificazione per certificazione");
  auto opzioni = std::make_shared<OpzioniDiff>();
  comando.add_option("prima", opzioni->vecchio, "Il file di prima")->required()->type_name("FILE.cur");
  comando.add_option("dopo", opzioni->nuovo, "Il file di dopo")->required()->type_name("FILE.cur");
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoDiff(*opzioni); }; });
}

void aggiungiVerify(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "verify", "Confronta un file telematico con i conti del suo anno");
  auto opzioni = std::make_shared<OpzioniVerify>();
  comando.add_option("file", opzioni->file, "Il file telematico")->required()->type_name("FILE.cur");
  aggiungiProfilo(comando, opzioni->profilo);
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoVerify(*opzioni); }; });
}

void aggiungiSent(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(programma, "sent", "Segna come inviato un file telematico scritto");
  auto opzioni = std::make_shared<OpzioniSent>();
  comando.add_option("file", opzioni->file, "Il file telematico")->required()->type_name("FILE.cur");
  aggiungiProfilo(comando, opzioni->profilo);
  aggiungiData(comando, "--date", opzioni->giorno, "Il giorno dell'invio; senza, oggi");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoSent(*opzioni); }; });
}

void aggiungiReceipt(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "receipt", "Legge una ricevuta; senza --apply la prova soltanto");
  auto opzioni = std::make_shared<OpzioniReceipt>();
  comando
      .add_option("tabella", opzioni->tabella,
                  "Tabella con CodiceFiscale, Causale, Protocollo, Progressivo, Esito, Motivo")
      ->required()
      ->type_name("TABELLA");
  aggiungiProfilo(comando, opzioni->profilo);
  comando.add_flag("--apply", opzioni->applica, "Registra le risposte");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoReceipt(*opzioni); }; });
}

void aggiungiStatus(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(
      programma, "status", "Dice a che punto è ogni certificazione di un anno, o il quadro di più aziende");
  auto opzioni = std::make_shared<OpzioniTabellone>();
  auto aziende = std::make_shared<SceltaAziende>();
  aggiungiProfilo(comando, opzioni->profilo);
  comando
      .add_option("--year", opzioni->anno, "Anno di pagamento dei compensi; per il quadro si può tralasciare")
      ->check(fra(1900, 2199))
      ->type_name("ANNO");
  comando.add_flag("--json", opzioni->json, "In JSON");
  aggiungiAziende(comando, *aziende);
  comando.callback([&esegui, opzioni, aziende] {
    if (const auto scelta = aziende->scelta()) {
      opzioni->aziende = *scelta;
      esegui = [opzioni] { return comandoTabellone(*opzioni); };
      return;
    }
    if (!opzioni->anno) throw CLI::ValidationError("--year", "manca");
    esegui = [opzioni] { return comandoStatus({opzioni->profilo, *opzioni->anno, opzioni->json}); };
  });
}

}  // namespace cu
