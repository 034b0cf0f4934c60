#include "uso_importa.h"

#include <memory>

#include "apps/comune/argomenti.h"
#include "apps/importa/comandi_importa.h"
#include "apps/importazione/resoconto.h"
#include "apps/importazione/scrittura_tabella.h"
#include "tabelle/lettura.h"
#include "uso.h"

namespace cu {
namespace {

using intake::Elenco;

constexpr auto kElenchi = {Elenco::Aziende, Elenco::Percipienti, Elenco::Compensi};

std::string spiegazione(const char* verbo, Elenco elenco) {
  return std::string(verbo) + ' ' + std::string(intake::nome(elenco));
}

// A check with the text of what is expected.
template <class Va>
CLI::Validator atteso(Va va, const std::string& testo) {
  return {[va, testo](const std::string& valore) { return va(valore) ? std::string() : "atteso " + testo; },
          ""};
}

CLI::Option* aggiungiAzienda(CLI::App& comando, std::string& azienda) {
  return comando.add_option("--company", azienda, "Codice fiscale o numero dell'azienda")->type_name("CF|ID");
}

void aggiungiAnno(CLI::App& comando, std::optional<int>& anno, const char* testo) {
  comando.add_option("--year", anno, testo)->check(fra(1900, 2199))->type_name("ANNO");
}

void aggiungiModiDiLettura(CLI::App& comando, OpzioniImport& opzioni) {
  comando.add_option("--map", opzioni.mappa, "Mappatura delle colonne")->type_name("FILE.toml");
  comando.add_option("--sheet", opzioni.foglio, "Foglio della cartella di lavoro; senza, il primo")
      ->type_name("NOME");
  comando.add_option("--separator", opzioni.separatore, "Separatore di un testo: ; , | o tab")
      ->transform(CLI::Validator(
          [](std::string& valore) {
            if (valore == "tab" || valore == "\\t") valore = "\t";
            const bool ammesso = valore.size() == 1 && tabelle::separatoreAmmesso(valore.front());
            return ammesso ? std::string() : std::string("atteso ; , | o tab");
          },
          ""))
      ->type_name("C");
  comando
      .add_option("--charset", opzioni.caratteri,
                  "Caratteri di un testo: utf-8, windows-1252, utf-16le, utf-16be")
      ->check(atteso([](const std::string& nome) { return tabelle::caratteriDaNome(nome).has_value(); },
                     "utf-8, windows-1252, utf-16le o utf-16be"))
      ->type_name("utf-8|windows-1252|utf-16le|utf-16be");
  comando.add_option("--decimal", opzioni.decimali, "Segno dei decimali: virgola o punto")
      ->check(atteso([](const std::string& segno) { return segno == "," || segno == "."; },
                     "una virgola o un punto"))
      ->type_name("C");
  comando.add_option("--dates", opzioni.date, "Ordine delle date: dmy giorno, mese, anno; mdy; ymd")
      ->check(atteso(
          [](const std::string& ordine) { return ordine == "dmy" || ordine == "mdy" || ordine == "ymd"; },
          "dmy, mdy o ymd"))
      ->type_name("dmy|mdy|ymd");
}

// A list of codes, of which each is a warning.
CLI::Option* aggiungiAccettati(CLI::App& comando, std::set<intake::Codice>& accettati) {
  const auto leggi = [&accettati](const CLI::results_t& sigle) {
    for (const std::string& sigla : sigle) {
      const auto codice = intake::codiceDaSigla(sigla);
      if (!codice) throw CLI::ValidationError("--accept", sigla + " non è un codice");
      if (!intake::accettabile(*codice)) throw CLI::ValidationError("--accept", sigla + " non è un avviso");
      accettati.insert(*codice);
    }
    return true;
  };
  return comando.add_option("--accept", leggi, "Avvisi accettati, per codice: V04,C03")
      ->delimiter(',')
      ->type_name("CODICI")
      ->expected(1, -1);
}

void aggiungiDecisioni(CLI::App& comando, OpzioniImport& opzioni) {
  const auto diversi = [&opzioni](const CLI::results_t& valori) {
    const std::string& valore = valori.back();
    if (valore == "skip") opzioni.diversi = intake::SuDiversi::Salta;
    if (valore == "update") opzioni.diversi = intake::SuDiversi::Aggiorna;
    if (valore == "skip" || valore == "update" || valore == "refuse") return true;
    throw CLI::ValidationError("--on-duplicate", "atteso skip, update o refuse");
  };
  comando
      .add_option("--on-duplicate", diversi,
                  "Le righe già presenti con altri valori: skip le lascia, update le "
                  "aggiorna, refuse (senza indicazioni) si ferma")
      ->type_name("skip|update|refuse")
      ->expected(1);
  aggiungiAccettati(comando, opzioni.accettati);
  comando.add_flag("--skip-bad-files", opzioni.saltaFileIllegibili, "Tralascia i file che non si leggono");
  comando.add_option("--report", opzioni.resoconto, "Scrive il resoconto delle righe")
      ->check(atteso(fileDiResoconto, "un nome che finisce in .csv o .json"))
      ->type_name("FILE.csv|FILE.json");
  comando.add_flag("--foreign-database", opzioni.databaseEstraneo,
                   "Anche in un database che questo programma non ha creato");
  comando.add_flag("--apply", opzioni.applica, "Importa; senza, è una prova");
}

void aggiungiImportDi(CLI::App& import, Elenco elenco, Esecuzione& esegui) {
  CLI::App& comando =
      aggiungiComando(import, std::string(intake::nomeInglese(elenco)), spiegazione("Importa", elenco));
  auto opzioni = std::make_shared<OpzioniImport>();
  opzioni->elenco = elenco;
  comando.add_option("file", opzioni->file, "CSV o XLSX; - legge un CSV dall'ingresso standard")
      ->required()
      ->type_name("TABELLA");
  aggiungiIndirizzo(comando, opzioni->database);
  if (elenco != Elenco::Aziende) aggiungiAzienda(comando, opzioni->azienda)->required();
  aggiungiModiDiLettura(comando, *opzioni);
  if (elenco == Elenco::Compensi) {
    aggiungiAnno(comando, opzioni->anno, "Solo i compensi pagati in questo anno");
  }
  aggiungiDecisioni(comando, *opzioni);
  comando.callback([&esegui, opzioni] {
    if (std::count(opzioni->file.begin(), opzioni->file.end(), "-") > 1) {
      throw CLI::ValidationError("file", "l'ingresso standard si legge una volta sola");
    }
    esegui = [opzioni] { return comandoImport(*opzioni); };
  });
}

void aggiungiHistory(CLI::App& import, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(import, "history", "Elenca le importazioni fatte");
  auto opzioni = std::make_shared<OpzioniHistory>();
  aggiungiIndirizzo(comando, opzioni->database);
  aggiungiAzienda(comando, opzioni->azienda);
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoHistory(*opzioni); }; });
}

void aggiungiUndo(CLI::App& import, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(import, "undo", "Annulla un'importazione; senza --apply è una prova");
  auto opzioni = std::make_shared<OpzioniUndo>();
  comando.add_option("importazione", opzioni->lotto, "Il numero dell'importazione")
      ->required()
      ->check(fra(1, 2147483647))
      ->type_name("NUMERO");
  aggiungiIndirizzo(comando, opzioni->database);
  comando.add_flag("--apply", opzioni->applica, "Annulla");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoUndo(*opzioni); }; });
}

// When the invoices were paid: as the table says, on the date of each, or on one day.
void aggiungiPagamento(CLI::App& comando, OpzioniImportFatture& opzioni) {
  const auto leggi = [&opzioni](const CLI::results_t& valori) {
    using intake::FontePagamento;
    const std::string& valore = valori.back();
    opzioni.fonte = FontePagamento::Giorno;
    if (valore == "file") opzioni.fonte = FontePagamento::Tavola;
    if (valore == "document") opzioni.fonte = FontePagamento::Documento;
    if (opzioni.fonte != FontePagamento::Giorno) return true;
    opzioni.giorno = leggiData(valore);
    if (opzioni.giorno) return true;
    throw CLI::ValidationError("--payment-date", "atteso file, document o una data");
  };
  comando
      .add_option("--payment-date", leggi,
                  "La data di pagamento, che le fatture non hanno: file la prende da --dates-file, document "
                  "propone la data del documento, una data vale per tutte")
      ->required()
      ->type_name("file|document|DATA")
      ->expected(1);
  comando
      .add_option("--dates-file", opzioni.date,
                  "Tabella delle date: CodiceFiscale, PartitaIva o CodicePercipiente, NumeroDocumento, "
                  "DataDocumento, DataPagamento")
      ->type_name("TABELLA");
}

void aggiungiImportFatture(CLI::App& import, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(import, "invoices", "Importa i compensi dalle fatture elettroniche");
  auto opzioni = std::make_shared<OpzioniImportFatture>();
  OpzioniImport& comuni = opzioni->comuni;
  comando
      .add_option("file", comuni.file,
                  "Fatture (XML, anche firmate), cartelle e archivi ZIP, comunque si chiamino")
      ->required()
      ->type_name("FATTURA|CARTELLA|FILE.zip");
  aggiungiIndirizzo(comando, comuni.database);
  aggiungiAzienda(comando, comuni.azienda)->required();
  aggiungiPagamento(comando, *opzioni);
  aggiungiModiDiLettura(comando, comuni);
  aggiungiAnno(comando, comuni.anno, "Solo i compensi pagati in questo anno");
  aggiungiDecisioni(comando, comuni);
  comando.callback([&esegui, opzioni] {
    if (std::count(opzioni->comuni.file.begin(), opzioni->comuni.file.end(), "-") > 0)
      throw CLI::ValidationError("file", "le fatture non si leggono dall'ingresso standard");
    const bool tavola = opzioni->fonte == intake::FontePagamento::Tavola;
    if (tavola && opzioni->date.empty())
      throw CLI::ValidationError("--payment-date", "file richiede --dates-file");
    if (!tavola && !opzioni->date.empty())
      throw CLI::ValidationError("--dates-file", "vale solo con --payment-date file");
    esegui = [opzioni] { return comandoImportFatture(*opzioni); };
  });
}

CLI::Option* aggiungiFileTabella(CLI::App& comando, const char* nome, std::string& file) {
  return comando.add_option(nome, file, "Il file da scrivere")
      ->required()
      ->check(atteso(fileDiTabella, "un nome che finisce in .csv o .xlsx"))
      ->type_name("FILE.csv|FILE.xlsx");
}

}  // namespace

void aggiungiImport(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& import =
      aggiungiComando(programma, "import",
                      "Importa aziende, percipienti e compensi da tabelle di altri programmi e da fatture");
  import.require_subcommand(1);
  for (const Elenco elenco : kElenchi) aggiungiImportDi(import, elenco, esegui);
  aggiungiImportFatture(import, esegui);
  aggiungiHistory(import, esegui);
  aggiungiUndo(import, esegui);
}

void aggiungiExport(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& esporta =
      aggiungiComando(programma, "export", "Esporta aziende, percipienti o compensi in una tabella");
  esporta.require_subcommand(1);
  for (const Elenco elenco : kElenchi) {
    CLI::App& comando =
        aggiungiComando(esporta, std::string(intake::nomeInglese(elenco)), spiegazione("Esporta", elenco));
    auto opzioni = std::make_shared<OpzioniExport>();
    opzioni->elenco = elenco;
    aggiungiIndirizzo(comando, opzioni->database);
    CLI::Option* const azienda = aggiungiAzienda(comando, opzioni->azienda);
    if (elenco != Elenco::Aziende) azienda->required();
    if (elenco == Elenco::Compensi)
      aggiungiAnno(comando, opzioni->anno, "Solo i compensi pagati in questo anno");
    aggiungiFileTabella(comando, "--output", opzioni->file);
    comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoExport(*opzioni); }; });
  }
}

void aggiungiTemplate(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& modello =
      aggiungiComando(programma, "template", "Scrive una tabella da compilare, con un esempio");
  modello.require_subcommand(1);
  for (const Elenco elenco : kElenchi) {
    CLI::App& comando = aggiungiComando(modello, std::string(intake::nomeInglese(elenco)),
                                        spiegazione("Tabella per importare", elenco));
    auto opzioni = std::make_shared<OpzioniTemplate>();
    opzioni->elenco = elenco;
    aggiungiFileTabella(comando, "file", opzioni->file);
    comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoTemplate(*opzioni); }; });
  }
}

}  // namespace cu
