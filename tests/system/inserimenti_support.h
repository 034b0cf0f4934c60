#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace cu::test {

std::size_t caratteri(const std::string& testo);  // of a text in UTF-8
std::string primi(const std::string& testo, std::size_t quanti);
std::string ripetuto(const std::string& testo, std::size_t lunghezza);
// In the file's characters: of the characters outside ASCII those shared by the texts below and the code page
// are kept, any other becomes '?'.
std::string nelTracciato(const std::string& testo);
std::string senzaMinuscole(std::string testo);  // for ASCII
std::string senzaCodaDiBlank(std::string testo);
std::string raddoppiato(const std::string& testo);  // doubles its quotes

struct Inserimento {
  const char* nome;
  std::string testo;
  bool nellaTavola = true;  // whether Windows-1252 has all its characters
};
inline void PrintTo(const Inserimento& inserimento, std::ostream* uscita) { *uscita << inserimento.nome; }

// Texts that could do harm; on a server, those that its columns can store. Most fields accept sixteen
// characters, two of which a test may need.
const std::vector<Inserimento>& inserimenti();

}  // namespace cu::test
