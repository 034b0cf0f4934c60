#include "tabelle/composizione.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "base/text.h"
#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

std::string inCifre(std::size_t numero) { return fromInteger(static_cast<std::int64_t>(numero)); }

std::vector<RigaTabella>::iterator trovaIntestazione(std::vector<RigaTabella>& righe,
                                                     const OpzioniLettura& opzioni, const Posto& posto) {
  if (righe.empty() && opzioni.rigaIntestazione == 0) {
    throw ErroreTabella("F01", posto,
                        posto.foglio.empty() ? "Il file non ha righe" : "Il foglio non ha righe");
  }
  if (opzioni.rigaIntestazione == 0) return righe.begin();
  const auto trovata = std::find_if(righe.begin(), righe.end(), [&](const RigaTabella& riga) {
    return riga.numero == opzioni.rigaIntestazione;
  });
  if (trovata == righe.end()) {
    Posto dove = posto;
    dove.riga = opzioni.rigaIntestazione;
    throw ErroreTabella("F01", dove, "La riga, che deve avere le intestazioni, non c'è o è vuota");
  }
  return trovata;
}

// Reports the first cell with content beyond the headings.
void segnalaOltre(Tabella& tabella, const RigaTabella& riga) {
  const std::size_t larghezza = tabella.intestazione.celle.size();
  for (std::size_t i = larghezza; i < riga.celle.size(); ++i) {
    if (soloBianchi(riga.celle[i].testo)) continue;
    tabella.rilievi.push_back({"F03",
                               {tabella.file, tabella.foglio, riga.numero, i + 1},
                               "La riga ha una cella oltre l'ultima intestazione, che è nella colonna " +
                                   letteraColonna(larghezza)});
    return;
  }
}

}  // namespace

bool soloBianchi(std::string_view testo) {
  for (std::size_t i = 0; i < testo.size(); ++i) {
    const char c = testo[i];
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
    if (testo.substr(i, 2) != "\xc2\xa0") return false;
    ++i;
  }
  return true;
}

bool haContenuto(const RigaTabella& riga) {
  return std::any_of(riga.celle.begin(), riga.celle.end(),
                     [](const Cella& cella) { return !soloBianchi(cella.testo); });
}

void componi(Tabella& tabella, std::vector<RigaTabella> righe, const OpzioniLettura& opzioni) {
  const auto intestazione = trovaIntestazione(righe, opzioni, {tabella.file, tabella.foglio, 0, 0});
  tabella.intestazione = std::move(*intestazione);
  auto& celle = tabella.intestazione.celle;
  while (!celle.empty() && soloBianchi(celle.back().testo)) celle.pop_back();
  righe.erase(righe.begin(), std::next(intestazione));
  tabella.righe = std::move(righe);
  const std::size_t prima = tabella.intestazione.numero;
  std::erase_if(tabella.rilievi, [&](const Rilievo& rilievo) { return rilievo.posto.riga < prima; });
  for (const RigaTabella& riga : tabella.righe) segnalaOltre(tabella, riga);
  std::stable_sort(tabella.rilievi.begin(), tabella.rilievi.end(),
                   [](const Rilievo& a, const Rilievo& b) { return a.posto.riga < b.posto.riga; });
}

void verificaLunghezza(std::string_view testo, const Limiti& limiti, const Posto& posto,
                       const std::string& consiglio) {
  if (testo.size() <= limiti.caratteri || codePoints(testo) <= limiti.caratteri) return;
  throw ErroreTabella("F05", posto,
                      "La cella ha più di " + inCifre(limiti.caratteri) + " caratteri" + consiglio);
}

void troppeColonne(const Limiti& limiti, const Posto& posto) {
  throw ErroreTabella("F05", posto, "La tabella ha più di " + inCifre(limiti.colonne) + " colonne");
}

void troppeRighe(const Limiti& limiti, const Posto& posto) {
  throw ErroreTabella("F05", posto, "La tabella ha più di " + inCifre(limiti.righe) + " righe");
}

}  // namespace cu::tabelle
