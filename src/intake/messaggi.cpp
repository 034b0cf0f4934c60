#include "intake/messaggi.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace cu::intake {

std::optional<Codice> codiceDaSigla(std::string_view sigla) {
  const auto* const trovata = std::find_if(kVociCodici.begin(), kVociCodici.end(),
                                           [&](const VoceCodice& voce) { return voce.sigla == sigla; });
  if (trovata == kVociCodici.end()) return std::nullopt;
  return trovata->codice;
}

std::string_view nome(Gravita gravita) {
  switch (gravita) {
    case Gravita::Errore:
      return "errore";
    case Gravita::DaDecidere:
      return "da decidere";
    case Gravita::Avviso:
      return "avviso";
    case Gravita::Informazione:
      break;
  }
  return "informazione";
}

Messaggio messaggio(Codice codice, std::string testo, std::string colonna) {
  return {codice, voce(codice).gravita, std::move(colonna), std::move(testo), {}};
}

std::string dettoMessaggio(const PostoMessaggio& posto, const Messaggio& messaggio) {
  std::string testo = posto.file;
  const auto aggiungi = [&testo](const std::string& parte) {
    if (!testo.empty()) testo += ", ";
    testo += parte;
  };
  if (!posto.foglio.empty()) aggiungi("foglio \"" + posto.foglio + '"');
  if (posto.documento > 0) aggiungi("documento " + fromInteger(static_cast<std::int64_t>(posto.documento)));
  if (posto.riga > 0) aggiungi("riga " + fromInteger(static_cast<std::int64_t>(posto.riga)));
  if (!messaggio.colonna.empty()) aggiungi("colonna \"" + messaggio.colonna + '"');
  if (!testo.empty()) testo += ": ";
  testo += messaggio.testo + " (" + std::string(voce(messaggio.codice).sigla) + ").";
  // Names in a file may have line ends.
  for (char& c : testo) {
    if (static_cast<unsigned char>(c) < 0x20) c = ' ';
  }
  return testo;
}

std::string dettoMessaggio(const Messaggio& messaggio) { return dettoMessaggio(messaggio.posto, messaggio); }

}  // namespace cu::intake
