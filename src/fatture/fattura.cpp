#include "fatture/fattura.h"

#include <algorithm>

#include "base/text.h"

namespace cu::fatture {
namespace {

bool qualcheErrore(const std::vector<Rilievo>& rilievi) {
  return std::any_of(rilievi.begin(), rilievi.end(), [](const Rilievo& uno) { return !uno.avviso; });
}

}  // namespace

std::string descrizione(const Posto& posto) {
  std::string testo = posto.file;
  const auto aggiungi = [&testo](const std::string& parte) {
    if (!testo.empty()) testo += ", ";
    testo += parte;
  };
  if (posto.documento > 0) aggiungi("documento " + fromInteger(static_cast<std::int64_t>(posto.documento)));
  if (posto.riga > 0) aggiungi("riga " + fromInteger(static_cast<std::int64_t>(posto.riga)));
  if (!posto.elemento.empty()) aggiungi("elemento " + posto.elemento);
  return testo;
}

std::string detto(const Rilievo& rilievo) {
  std::string testo = descrizione(rilievo.posto);
  if (!testo.empty()) testo += ": ";
  testo += rilievo.testo + " (" + rilievo.codice + ").";
  // Names of files and values of a document may have line ends.
  for (char& c : testo) {
    if (static_cast<unsigned char>(c) < 0x20) c = ' ';
  }
  return testo;
}

std::string Soggetto::nominativo() const {
  if (!denominazione.empty()) return denominazione;
  return cognome + (cognome.empty() || nome.empty() ? "" : " ") + nome;
}

bool Fattura::conErrori() const { return qualcheErrore(rilievi); }

bool Letto::conErrori() const {
  return qualcheErrore(rilievi) ||
         std::any_of(fatture.begin(), fatture.end(), [](const Fattura& una) { return una.conErrori(); });
}

}  // namespace cu::fatture
