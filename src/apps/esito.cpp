#include "esito.h"

#include <iostream>
#include <memory>
#include <utility>

#include "apps/comune/tavola.h"
#include "fornitura/controllo.h"

namespace cu {
namespace {

// Prints the log as a table with its column names.
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

}  // namespace

std::string righeDiTesto(const std::string& testo) {
  std::string risultato;
  for (const char c : testo) {
    if (c != '\r') risultato += c;
  }
  while (!risultato.empty() && risultato.back() == '\n') risultato.pop_back();
  return risultato;
}

void scriviRifiuti(const std::vector<Finding>& rifiuti, Terminale& terminale) {
  for (const Finding& rifiuto : rifiuti) {
    if (!rifiuto.text.empty()) terminale.messaggi.push_back(rifiuto.text);
  }
}

void scriviAvvisi(const Terminale& terminale) {
  for (const Terminale::Avviso& avviso : terminale.avvisi) {
    std::cerr << righeDiTesto(avviso.testo)
              << (avviso.passato ? " Sì (--yes)\n" : " No (--yes per proseguire)\n");
  }
}

void scriviMessaggi(const Terminale& terminale) {
  for (const std::string& messaggio : terminale.messaggi) std::cerr << righeDiTesto(messaggio) << '\n';
}

void registra(const std::vector<DatoMancante>& mancanti, HostFactory& factory) {
  if (mancanti.empty()) return;
  const std::unique_ptr<LogGrid> registro = factory.createLogGrid();
  fornitura::riempiLog(*registro, 0, mancanti);
  registro->show(0);
}

void scriviRegistri(const Terminale& terminale) {
  for (const LogTable& registro : terminale.registri) stampaRegistro(registro);
}

void scriviStampe(const Terminale& terminale, const Profilo& profilo) {
  const bool registrate = profilo.stampa == Profilo::MotoreStampa::Registro;
  for (std::size_t i = 0; i < terminale.stampe.size(); ++i) {
    const StampeAnnotate::Una stampa = terminale.stampe[i];
    if (!stampa.fatta && !registrate) continue;
    std::cout << (stampa.fatta ? "Stampa: " : "Stampa registrata, non impaginata: ") << stampa.file << " ("
              << stampa.report << ")\n";
  }
}

}  // namespace cu
