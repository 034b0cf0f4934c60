// The command line program.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iostream>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "apps/comune/argomenti.h"
#include "apps/comune/permessi_database.h"
#include "apps/comune/registro_programma.h"
#include "apps/esame/comandi_esame.h"
#include "apps/versione/versione.h"
#include "comandi.h"
#include "completamento.h"
#include "standard_streams.h"
#include "suite/profilo.h"
#include "uso.h"
#include "uso_aziende.h"
#include "uso_copia.h"
#include "uso_esame.h"
#include "uso_finestra.h"
#include "uso_importa.h"

namespace cu {
namespace {

void aggiungiCheck(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "check", "Dice che cosa occorre di un database e che cosa manca");
  auto opzioni = std::make_shared<OpzioniDatabase>();
  aggiungiIndirizzo(comando, *opzioni);
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoCheck(*opzioni); }; });
}

void aggiungiCreate(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "create", "Crea il database della suite, con un'azienda o senza");
  auto opzioni = std::make_shared<OpzioniCreate>();
  aggiungiIndirizzo(comando, opzioni->database);
  CLI::Option* const vuoto = comando.add_flag("--empty", opzioni->vuoto, "Solo le liste, nessuna azienda");
  CLI::Option* const demo = comando
                                .add_flag("--demo", opzioni->dimostrativo,
                                          "L'azienda dimostrativa; è quanto vale senza indicazioni")
                                ->excludes(vuoto);
  CLI::Option* const percipienti =
      comando.add_option("--payees", opzioni->percipienti, "Un'azienda sintetica con tanti percipienti")
          ->check(fra(1, 9999999))
          ->type_name("N")
          ->excludes(vuoto)
          ->excludes(demo);
  comando
      .add_option("--companies", opzioni->aziende, "Tante aziende sintetiche, ognuna con tanti percipienti")
      ->check(fra(1, 9999))
      ->type_name("N")
      ->needs(percipienti);
  comando.add_option("--years", opzioni->anni, "Gli anni dell'azienda sintetica, come 2014-2017")
      ->type_name("ANNI")
      ->needs(percipienti);
  comando.add_option("--seed", opzioni->seme, "Lo stesso seme dà la stessa azienda")
      ->type_name("S")
      ->needs(percipienti);
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoCreate(*opzioni); }; });
}

std::string inizioNoto(const std::string& inizio) {
  return inizio == kInizioWizard || inizio == kInizioArchivi ? std::string() : "atteso wizard o archivi";
}

void aggiungiDrive(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(
      programma, "drive", "Guida la procedura con comandi JSON, una riga ciascuno, da un altro programma");
  auto opzioni = std::make_shared<OpzioniDrive>();
  comando.add_option("--profile", opzioni->profilo, "Il profilo TOML")->required()->type_name("FILE.toml");
  comando
      .add_option("--start", opzioni->inizio,
                  "wizard: la procedura, come senza indicazioni; archivi: aziende, percipienti e compensi")
      ->check(inizioNoto)
      ->type_name("wizard|archivi");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoDrive(*opzioni); }; });
}

// Options whose place in the request depends on other options.
struct OpzioniSciolte {
  int tipo = 1;
  std::string protocollo;
  std::string progressivo;
  bool mantieni = false;
  std::string intermediario;
  std::optional<int> impegno;
  std::optional<Date> dataImpegno;
};

std::string annoSingolo(const std::string& anno) {
  return leggiAnni(anno) && anno.size() == 4 ? std::string() : "atteso un anno di quattro cifre";
}

void aggiungiEstremi(CLI::App& comando, fornitura::Estremi& estremi) {
  comando.add_option("--from-payee", estremi.daPercipiente, "Dal percipiente")->type_name("CODICE");
  comando.add_option("--to-payee", estremi.aPercipiente, "Al percipiente")->type_name("CODICE");
  comando.add_option("--from-reason", estremi.daCausale, "Dalla causale pagamento")->type_name("CAUSALE");
  comando.add_option("--to-reason", estremi.aCausale, "Alla causale pagamento")->type_name("CAUSALE");
}

void aggiungiRiferimenti(CLI::App& comando, OpzioniSciolte& sciolte) {
  CLI::Option* const protocollo =
      comando.add_option("--protocol", sciolte.protocollo, "Protocollo dell'invio da annullare o sostituire")
          ->type_name("TESTO");
  CLI::Option* const progressivo =
      comando.add_option("--progressive", sciolte.progressivo, "Progressivo nell'invio")
          ->type_name("TESTO")
          ->needs(protocollo);
  protocollo->needs(progressivo);
  comando.add_flag("--keep-present", sciolte.mantieni, "Lascia i riferimenti già presenti")
      ->needs(protocollo);
}

void aggiungiIntermediario(CLI::App& comando, OpzioniSciolte& sciolte) {
  CLI::Option* const intermediario =
      comando.add_option("--intermediary", sciolte.intermediario, "Codice fiscale dell'intermediario")
          ->type_name("CF");
  comando.add_option("--commitment", sciolte.impegno, "1: predisposta dal contribuente, 2: da chi invia")
      ->check(fra(1, 2))
      ->type_name("1|2")
      ->needs(intermediario);
  aggiungiData(comando, "--commitment-date", sciolte.dataImpegno, "Data dell'impegno")->needs(intermediario);
}

void raccogli(const OpzioniSciolte& sciolte, fornitura::RichiestaCU& richiesta) {
  richiesta.tipo = static_cast<Comunicazione>(sciolte.tipo);
  if (!sciolte.protocollo.empty() || !sciolte.progressivo.empty()) {
    richiesta.riferimenti = {sciolte.protocollo, sciolte.progressivo, !sciolte.mantieni};
  }
  if (!sciolte.intermediario.empty()) {
    richiesta.intermediario = {sciolte.intermediario, sciolte.impegno, sciolte.dataImpegno};
  }
}

void aggiungiMake(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "make", "Crea il file telematico di un anno e le stampe dei moduli");
  auto opzioni = std::make_shared<OpzioniMake>();
  auto sciolte = std::make_shared<OpzioniSciolte>();
  fornitura::RichiestaCU& richiesta = opzioni->richiesta;
  comando.add_option("--profile", opzioni->profilo, "Il profilo TOML")->required()->type_name("FILE.toml");
  comando.add_option("--year", richiesta.anno, "Anno di pagamento dei compensi")
      ->required()
      ->check(annoSingolo)
      ->type_name("ANNO");
  comando.add_option("--kind", sciolte->tipo, "1 comunicazione, 2 annullamento, 3 sostituzione")
      ->check(fra(1, 3))
      ->type_name("1|2|3");
  aggiungiEstremi(comando, richiesta.estremi);
  comando.add_option("--folder", richiesta.cartella, "Cartella del file")->type_name("CARTELLA");
  aggiungiData(comando, "--signature-date", richiesta.firma, "Data della firma");
  aggiungiRiferimenti(comando, *sciolte);
  aggiungiIntermediario(comando, *sciolte);
  comando.add_flag("--cumulative", richiesta.stampaCumulativa, "Una stampa sola per tutti i percipienti");
  comando.add_flag("--yes", opzioni->passaAvvisi, "Prosegue davanti agli avvisi");
  auto aziende = std::make_shared<SceltaAziende>();
  aggiungiAziende(comando, *aziende);
  aggiungiSoloMancanti(comando, *aziende, {"--from-payee", "--to-payee", "--from-reason", "--to-reason"});
  aggiungiLavori(comando, opzioni->lavori,
                 "Quante aziende alla volta, o moduli di una sola; senza, uno per unità di calcolo");
  comando.callback([&esegui, opzioni, sciolte, aziende] {
    opzioni->aziende = aziende->scelta();
    if (sciolte->tipo == 1 && !sciolte->protocollo.empty()) {
      throw CLI::ValidationError("--protocol", "serve solo con --kind 2 o --kind 3");
    }
    raccogli(*sciolte, opzioni->richiesta);
    if (!opzioni->richiesta.cartella.empty()) {
      opzioni->richiesta.cartella = std::filesystem::absolute(opzioni->richiesta.cartella).string();
    }
    esegui = [opzioni] { return comandoMake(*opzioni); };
  });
}

std::string stampaNota(const std::string& report) {
  for (const char* nota : kStampe) {
    if (report == nota) return {};
  }
  return std::string("atteso ") + kStampe[0] + ", " + kStampe[1] + " o " + kStampe[2];
}

void aggiungiPrint(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "print", "Stampa i conti individuali o una certificazione in un file PDF");
  auto opzioni = std::make_shared<OpzioniPrint>();
  fornitura::RichiestaReport& richiesta = opzioni->richiesta;
  comando.add_option("--profile", opzioni->profilo, "Il profilo TOML")->required()->type_name("FILE.toml");
  comando
      .add_option("--report", opzioni->report,
                  "ContoIndividuale.rpt, CertificazioneCompensiSintetico.rpt o "
                  "CertificazioneCompensiAnalitico.rpt")
      ->required()
      ->check(stampaNota)
      ->type_name("STAMPA");
  comando.add_option("--year", richiesta.anno, "Anno; dei conti il primo")
      ->check(annoSingolo)
      ->type_name("ANNO");
  comando.add_option("--to-year", richiesta.adAnno, "Dei conti, l'ultimo anno")
      ->check(annoSingolo)
      ->type_name("ANNO");
  aggiungiEstremi(comando, richiesta.estremi);
  comando.add_option("--output", opzioni->file, "Il file da scrivere")->required()->type_name("FILE.pdf");
  comando.callback([&esegui, opzioni] {
    if (opzioni->richiesta.adAnno && opzioni->report != kStampaConti) {
      throw CLI::ValidationError("--to-year", std::string("serve solo con --report ") + kStampaConti);
    }
    if (opzioni->file.empty()) throw CLI::ValidationError("--output", "manca il nome del file");
    opzioni->file = std::filesystem::absolute(opzioni->file).string();
    esegui = [opzioni] { return comandoPrint(*opzioni); };
  });
}

void aggiungiCorrect(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(programma, "correct",
                      "Scrive i file che lo stato di un anno chiede: nuove, sostituzioni, annullamenti");
  auto opzioni = std::make_shared<OpzioniCorrect>();
  comando.add_option("--profile", opzioni->profilo, "Il profilo TOML")->required()->type_name("FILE.toml");
  comando.add_option("--year", opzioni->anno, "Anno di pagamento dei compensi")
      ->required()
      ->check(fra(1900, 2199))
      ->type_name("ANNO");
  comando.add_option("--folder", opzioni->cartella, "Cartella dei file")->required()->type_name("CARTELLA");
  aggiungiData(comando, "--signature-date", opzioni->firma, "Data della firma");
  comando.add_flag("--yes", opzioni->passaAvvisi, "Prosegue davanti agli avvisi");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoCorrect(*opzioni); }; });
}

void aggiungiDiscard(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(
      programma, "discard", "Toglie dal registro un file scritto che non verrà inviato; il file resta");
  auto opzioni = std::make_shared<OpzioniDiscard>();
  comando.add_option("file", opzioni->file, "Il file telematico")->required()->type_name("FILE.cur");
  comando.add_option("--profile", opzioni->profilo, "Il profilo TOML")->required()->type_name("FILE.toml");
  comando.add_flag("--yes", opzioni->passaAvvisi, "Toglie il file senza chiedere conferma");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoDiscard(*opzioni); }; });
}

void aggiungiUpgrade(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(
      programma, "upgrade", "Aggiunge a un database le tabelle per seguire gli invii e le importazioni");
  auto opzioni = std::make_shared<OpzioniUpgrade>();
  aggiungiIndirizzo(comando, opzioni->database);
  comando.add_flag(
      "--codes", opzioni->codici,
      "Aggiunge anche le causali e i codici dei moduli dal 2019, a un archivio di questo programma");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoUpgrade(*opzioni); }; });
}

// For the build, which installs what it writes: not in the help.
void aggiungiCompletion(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando =
      *programma.add_subcommand("completion", "Scrive il completamento di una shell")->group("");
  auto shell = std::make_shared<std::string>();
  auto nome = std::make_shared<std::string>();
  comando.add_option("shell", *shell, "La shell")->required()->check(CLI::IsMember({"bash", "zsh"}));
  comando.add_option("program", *nome, "Il programma")
      ->required()
      ->check(CLI::IsMember({"cuctl", "cuwizard"}));
  comando.callback([&programma, &esegui, shell, nome] {
    esegui = [&programma, shell, nome] {
      CLI::App finestra("", "cuwizard");
      OpzioniFinestra opzioni;
      descriviFinestra(finestra, opzioni, {});
      const CLI::App& scelto = *nome == "cuctl" ? programma : finestra;
      *shell == "bash" ? scriviBash(scelto, std::cout) : scriviZsh(scelto, std::cout);
      std::cout.flush();
      return std::cout ? kRiuscito : kRifiutato;
    };
  });
}

constexpr const char* kDescrizione = "Certificazione Unica e stampe dei compensi, senza finestra";
constexpr const char* kDoveAiuto = "\nPer l'aiuto: cuctl --help, cuctl COMANDO --help\n";

// The commands in the order of the help; each adds its definition, or those of one kind.
struct VoceComando {
  std::string_view nome;
  void (*aggiungi)(CLI::App& programma, Esecuzione& esegui);
};
constexpr auto kComandi = std::to_array<VoceComando>({
    {"check", aggiungiCheck},       {"create", aggiungiCreate},     {"drive", aggiungiDrive},
    {"make", aggiungiMake},         {"print", aggiungiPrint},       {"inspect", aggiungiInspect},
    {"validate", aggiungiValidate}, {"diff", aggiungiDiff},         {"verify", aggiungiVerify},
    {"sent", aggiungiSent},         {"receipt", aggiungiReceipt},   {"status", aggiungiStatus},
    {"correct", aggiungiCorrect},   {"discard", aggiungiDiscard},   {"upgrade", aggiungiUpgrade},
    {"backup", aggiungiBackup},     {"restore", aggiungiRestore},   {"import", aggiungiImport},
    {"export", aggiungiExport},     {"template", aggiungiTemplate},
});

void descriviProgramma(CLI::App& programma) {
  parlaItaliano(programma);
  aggiungiVersione(programma, [] { return testoVersione("cuctl"); });
  programma.require_subcommand(1);
}

// What a line asks for: the command, its name and the file of the log for support.
struct Lavoro {
  Esecuzione esegui;
  std::string nome;
  std::string registro;
};

Lavoro lavoroDi(const CLI::App& programma, const Esecuzione& esegui) {
  return {esegui, nomeComando(programma), fileRegistro(programma)};
}

int eseguiLavoro(const Lavoro& lavoro) {
  const auto avvisa = [](const std::string& avviso) { std::cerr << avviso << std::endl; };
  ascoltaPermessi(avvisa);
  RegistroProgramma registro(std::string("cuctl ") + versioneBreve() + ' ' + lavoro.nome, avvisa);
  registro.apri(lavoro.registro);
  try {
    const int esito = lavoro.esegui();
    registro.fine(esito);
    return esito;
  } catch (const ErroreProfilo& errore) {
    registro.fine(errore);
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  } catch (const std::exception& errore) {
    registro.fine(errore);
    throw;
  }
}

const VoceComando* voceDi(std::string_view nome) {
  const auto* const voce = std::find_if(kComandi.begin(), kComandi.end(),
                                        [&](const VoceComando& una) { return una.nome == nome; });
  return voce == kComandi.end() ? nullptr : voce;
}

// Runs what a correct line asks for, or shows the help of its command, by the definition of that command
// alone: to define them all takes longer than many a command. nullopt, with nothing done, for any other line;
// what there is to say of it is said with all commands.
std::optional<int> eseguiConUnComando(const std::vector<std::string_view>& parole, int quanti,
                                      char** argomenti) {
  const VoceComando* const voce = parole.empty() ? nullptr : voceDi(parole.front());
  if (voce == nullptr) return std::nullopt;
  CLI::App programma(kDescrizione, "cuctl");
  descriviProgramma(programma);
  Esecuzione esegui;
  voce->aggiungi(programma, esegui);
  try {
    programma.parse(quanti, argomenti);
    rifiutaVuoti(programma);
  } catch (const CLI::CallForHelp& aiuto) {
    // A second command of the line would be the one to explain.
    if (comandoIgnoto(programma) || std::any_of(parole.begin() + 1, parole.end(), voceDi))
      return std::nullopt;
    programma.exit(aiuto);
    return kRiuscito;
  } catch (const CLI::Error&) {
    return std::nullopt;
  }
  return eseguiLavoro(lavoroDi(programma, esegui));
}

int eseguiProgramma(int quanti, char** argomenti) {
  const std::vector<std::string_view> parole(argomenti + std::min(quanti, 1), argomenti + quanti);
  if (const auto esito = eseguiConUnComando(parole, quanti, argomenti)) return *esito;
  if (parole.size() == 1 && parole.front() == "--version") {
    std::cout << testoVersione("cuctl") << std::endl;
    return kRiuscito;
  }
  CLI::App programma(kDescrizione, "cuctl");
  descriviProgramma(programma);
  Esecuzione lavoro;
  for (const VoceComando& voce : kComandi) voce.aggiungi(programma, lavoro);
  aggiungiCompletion(programma, lavoro);
  try {
    programma.parse(quanti, argomenti);
    rifiutaVuoti(programma);
  } catch (const CLI::Success& aiuto) {
    // The help of a command that does not exist would be that of another one.
    if (const auto ignoto = comandoIgnoto(programma)) {
      std::cerr << "cuctl: " << *ignoto << kDoveAiuto;
      return kUsoSbagliato;
    }
    programma.exit(aiuto);
    return kRiuscito;
  } catch (const CLI::ParseError& errore) {
    std::cerr << "cuctl: " << erroreUso(programma, errore) << kDoveAiuto;
    return kUsoSbagliato;
  }
  return eseguiLavoro(lavoroDi(programma, lavoro));
}

}  // namespace
}  // namespace cu

int main(int argc, char** argv) {
#ifdef SIGPIPE
  // The reader of the output may close it: the stream then reports the error, and the run ends in order.
  std::signal(SIGPIPE, SIG_IGN);
#endif
  std::ios::sync_with_stdio(false);
  cu::reportInWords();
  cu::StandardStreams flussi;
  int esito = cu::kRifiutato;
  try {
    esito = cu::eseguiProgramma(argc, argv);
  } catch (const std::bad_alloc&) {
    throw;  // what is there to say of it is said without asking for memory
  } catch (const std::exception& errore) {
    std::cerr << errore.what() << '\n';
  }
  return flussi.finished(esito);
}
