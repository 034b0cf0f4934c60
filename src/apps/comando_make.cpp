#include <algorithm>
#include <iostream>
#include <vector>

#include "apps/comune/impianto.h"
#include "apps/comune/riepilogo_file.h"
#include "apps/comune/tavola.h"
#include "automation/walker.h"
#include "base/text.h"
#include "comandi.h"
#include "esito.h"
#include "telematic/lettura.h"

namespace cu {
namespace {

// The log as a table whose columns stand under their names.
void stampaRegistro(const LogTable& registro) {
  std::vector<std::vector<std::string>> tavola = {registro.columns};
  for (const auto& riga : registro.rows) {
    std::vector<std::string> celle;
    celle.reserve(riga.size());
    for (const Value& valore : riga) celle.push_back(valore.view().toText());
    tavola.push_back(std::move(celle));
  }
  stampaTavola(tavola, std::cout);
}

void stampaRecord(const std::string& riga, std::int32_t anno) {
  std::cout << "Record " << riga.front() << ":\n";
  for (const std::string& campo : telematico::decodifica(riga, anno)) std::cout << "  " << campo << '\n';
}

void stampaFile(const std::string& percorso, std::int32_t anno) {
  const RiepilogoFile riepilogo = riepiloga(percorso);
  std::cout << "File telematico: " << percorso << '\n';
  const auto certificazioni = riepilogo.record.find('D');
  std::cout << "Certificazioni: " << (certificazioni == riepilogo.record.end() ? 0 : certificazioni->second)
            << '\n';
  std::cout << "Record:";
  for (const auto& [tipo, quanti] : riepilogo.record) std::cout << ' ' << tipo << '=' << quanti;
  std::cout << "\nByte: " << riepilogo.byte << '\n';
  for (const std::string& riga : riepilogo.prime) stampaRecord(riga, anno);
}

// The file written that is no print.
std::optional<std::string> fileTelematico(const std::vector<std::string>& scritti,
                                          const std::vector<PrintNote>& stampe) {
  for (const std::string& percorso : scritti) {
    const bool stampa = std::any_of(stampe.begin(), stampe.end(),
                                    [&](const PrintNote& nota) { return nota.file == percorso; });
    if (!stampa) return percorso;
  }
  return {};
}

}  // namespace

int comandoMake(const OpzioniMake& opzioni) {
  Profilo profilo = leggiProfilo(opzioni.profilo);
  profilo.sessione.processi = {{"Wizard stampa", 247}};
  Walker walker;
  walker.passWarnings = opzioni.passaAvvisi;
  Impianto impianto(profilo, walker);
  walker.runEvent([&] { impianto.programma().main(); });
  const bool riuscito = walker.shown != nullptr && walker.messages.empty() &&
                        creaFileCU(*walker.shown, walker, opzioni.richiesta);
  if (walker.shown != nullptr) walker.runEvent([&] { walker.shown->close(); });

  for (const Walker::Warning& avviso : walker.warnings) {
    std::cerr << righeDiTesto(avviso.text)
              << (avviso.passed ? " Sì (--yes)\n" : " No (--yes per proseguire)\n");
  }
  scriviMessaggi(walker);
  for (const LogTable& registro : walker.logs) stampaRegistro(registro);
  if (!walker.logs.empty()) std::cerr << "Mancano dei dati: il file telematico non è stato creato.\n";
  if (!riuscito) {
    const bool detto = !walker.messages.empty() || !walker.logs.empty() || !walker.warnings.empty();
    if (!detto) std::cerr << "La procedura si è fermata prima della fine.\n";
    return kRifiutato;
  }
  const auto scritto = fileTelematico(impianto.fileScritti(), walker.prints);
  if (!scritto) {
    std::cerr << "La selezione non dà certificazioni: nessun file telematico è stato creato.\n";
    return kRifiutato;
  }
  stampaFile(*scritto, impianto.programma().globali().gAnno);
  scriviStampe(walker, profilo);
  return walker.messages.empty() ? kRiuscito : kRifiutato;
}

}  // namespace cu
