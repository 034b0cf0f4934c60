#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace cu::test {

std::size_t caratteri(const std::string& testo);  // of a text in UTF-8
std::string primi(const std::string& testo, std::size_t quanti);
std::string ripetuto(const std::string& testo, std::size_t lunghezza);
// As the file writes it: the characters outside ASCII that the texts below share with the code page, '?' for
// any other one.
std::string nelTracciato(const std::string& testo);
std::string senzaMinuscole(std::string testo);  // of ASCII
std::string senzaCodaDiBlank(std::string testo);
std::string raddoppiato(const std::string& testo);  // its quotes

struct Inserimento {
  const char* nome;
  std::string testo;
  bool nellaTavola = true;  // whether Windows-1252 has all its characters
};
inline void PrintTo(const Inserimento& inserimento, std::ostream* uscita) { *uscita << inserimento.nome; }

// What a text could do harm with; on a server, those that its columns hold. Most fields take sixteen
// characters, two of which a test may need.
const std::vector<Inserimento>& inserimenti();

}  // namespace cu::test
