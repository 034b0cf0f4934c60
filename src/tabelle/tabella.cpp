#include "tabelle/tabella.h"

#include <utility>

#include "base/text.h"
#include "tabelle/errore.h"

namespace cu::tabelle {
namespace {

// Names in a file may have line ends.
std::string inUnaRiga(std::string testo) {
  for (char& c : testo) {
    if (static_cast<unsigned char>(c) < 0x20) c = ' ';
  }
  return testo;
}

std::string rigaDiErrore(const std::string& codice, const Posto& posto, const std::string& testo) {
  const std::string dove = descrizione(posto);
  return inUnaRiga((dove.empty() ? "" : dove + ": ") + testo + " (" + codice + ").");
}

}  // namespace

std::string descrizione(const Posto& posto) {
  std::string testo = posto.file;
  const auto aggiungi = [&testo](const std::string& parte) {
    if (!testo.empty()) testo += ", ";
    testo += parte;
  };
  if (!posto.foglio.empty()) aggiungi("foglio \"" + posto.foglio + "\"");
  if (posto.riga > 0) aggiungi("riga " + fromInteger(static_cast<std::int64_t>(posto.riga)));
  if (posto.colonna > 0) aggiungi("colonna " + letteraColonna(posto.colonna));
  return inUnaRiga(testo);
}

std::string letteraColonna(std::size_t colonna) {
  std::string lettere;
  for (; colonna > 0; colonna = (colonna - 1) / 26) {
    lettere.insert(lettere.begin(), static_cast<char>('A' + (colonna - 1) % 26));
  }
  return lettere;
}

std::string motivoSenzaValore(const Cella& cella) {
  const std::string testo = inUnaRiga(std::string(cella.testo));
  if (cella.genere == Genere::FormulaMaiCalcolata) {
    return "la formula " + testo +
           " non è mai stata calcolata: aprire il file con il foglio di calcolo e salvarlo";
  }
  if (cella.genere != Genere::Errore) return {};
  if (testo.starts_with('#')) return "la cella mostra l'errore " + testo;
  return "la cella ha il formato di una data, ma " + testo + " non è una data";
}

ErroreTabella::ErroreTabella(std::string codice, Posto posto, std::string testo)
    : Error(kErrorBadFile, rigaDiErrore(codice, posto, testo)),
      codice_(std::move(codice)),
      posto_(std::move(posto)),
      testo_(std::move(testo)) {}

}  // namespace cu::tabelle
