#include <filesystem>
#include <fstream>
#include <iostream>

#include "apps/comune/registro_programma.h"
#include "apps/comune/sessione_comando.h"
#include "comandi.h"
#include "esito.h"
#include "host/testi_programma.h"
#include "sqlite/own_files.h"
#include "stampe.h"

namespace cu {
namespace {

fornitura::RichiestaReport completaStampa(const OpzioniPrint& opzioni, const Surroundings& surroundings,
                                          Terminale& terminale) {
  const bool conti = opzioni.report == kStampaConti;
  fornitura::RichiestaReport richiesta = opzioni.richiesta;
  richiesta.modo = conti ? ModoCorsa::ContiIndividuali : ModoCorsa::Certificazione;
  richiesta.tipoOggetto = conti ? fnModoContiIndividuali() : fnModoCertificazione();
  for (const ReportInfo& report : surroundings.stampe().reports(richiesta.tipoOggetto)) {
    if (report.name == opzioni.report) richiesta.report = report;
  }
  richiesta.guasto = [&terminale](const std::string& testo) { terminale.messaggi.push_back(testo); };
  return richiesta;
}

// Whether a file holds something that is no print: a print replaces an earlier one without a question, but
// never a database or a file of another kind.
bool altroCheUnaStampa(const std::filesystem::path& file) {
  if (belongsToOwnDatabase(file.string())) return true;
  std::error_code ignorato;
  std::ifstream stream(file, std::ios::binary);
  // What cannot be read may be anything.
  if (!stream) return std::filesystem::is_regular_file(file, ignorato);
  std::string inizio(5, '\0');
  stream.read(inizio.data(), static_cast<std::streamsize>(inizio.size()));
  inizio.resize(static_cast<std::size_t>(stream.gcount()));
  return !inizio.empty() && inizio != "%PDF-";
}

// Why the print cannot have this file; "" where it can.
std::string fileRifiutato(const std::string& file) {
  std::filesystem::path percorso(file);
  std::error_code ignorato;
  if (std::filesystem::is_directory(percorso, ignorato)) {
    return "«" + file + "» è una cartella: per la stampa serve il nome di un file.";
  }
  if (!percorso.has_extension()) percorso += ".pdf";  // as the suite's dialog does
  if (std::filesystem::is_directory(percorso, ignorato)) {
    return "«" + percorso.string() + "» è una cartella: per la stampa serve il nome di un file.";
  }
  if (!altroCheUnaStampa(percorso)) return {};
  return "Il file «" + percorso.string() + "» esiste già e non è un PDF: non viene sostituito.";
}

}  // namespace

int comandoPrint(const OpzioniPrint& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  if (const std::string motivo = fileRifiutato(opzioni.file); !motivo.empty()) {
    std::cerr << motivo << '\n';
    return kRifiutato;
  }
  Terminale terminale;
  terminale.fileDaSalvare = opzioni.file;
  Surroundings surroundings(profilo, terminale, impaginatoreDelProgramma);
  SessioneComando sessione(surroundings, terminale);
  sessione.esegui([&] {
    const auto esito =
        fornitura::stampaReport(sessione.intorno(), completaStampa(opzioni, surroundings, terminale));
    scriviRifiuti(esito.refusals, terminale);
  });

  scriviMessaggi(terminale);
  scriviStampe(terminale, profilo);
  if (!terminale.stampe.empty() && terminale.messaggi.empty()) return kRiuscito;
  if (terminale.messaggi.empty()) std::cerr << "La procedura si è fermata prima della fine.\n";
  return kRifiutato;
}

}  // namespace cu
