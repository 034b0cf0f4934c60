#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "intake/lettura_righe.h"
#include "tabelle/lettura.h"

namespace cu::intake::prova {

inline Date giorno(int anno, int mese, int giorno) { return *Date::fromYmd(anno, mese, giorno); }

inline Lettura letta(Elenco elenco, std::string_view byte, const Mappatura& mappatura = {},
                     const std::string& file = "f.csv") {
  return leggiRighe(tabelle::leggiTabella(byte, file, mappatura.lettura), elenco, mappatura,
                    giorno(2018, 3, 5));
}

// All messages as they are written for a person, those of the file first.
inline std::vector<std::string> detti(const Lettura& lettura) {
  std::vector<std::string> righe;
  for (const Messaggio& m : lettura.messaggi) {
    righe.push_back(dettoMessaggio(m));
  }
  for (const RigaLetta& riga : lettura.righe) {
    for (const Messaggio& m : riga.messaggi) {
      righe.push_back(dettoMessaggio({lettura.file, lettura.foglio, riga.numero}, m));
    }
  }
  return righe;
}

// "Causale=A|Onorario=100": the fields of a row; one to be emptied is "-", a derived one has a star.
inline std::string campi(const Lettura& lettura, const RigaLetta& riga) {
  std::string testo;
  for (const Campo& campo : riga.campi) {
    if (!testo.empty()) testo += '|';
    testo += colonne(lettura.elenco)[campo.colonna].nome;
    if (campo.derivato) testo += '*';
    testo += '=';
    testo += campo.stato == StatoCampo::Svuotato ? "-" : campo.valore.toText();
  }
  return testo;
}

inline std::vector<std::string> righe(const Lettura& lettura) {
  std::vector<std::string> tutte;
  for (const RigaLetta& riga : lettura.righe) tutte.push_back(campi(lettura, riga));
  return tutte;
}

}  // namespace cu::intake::prova
