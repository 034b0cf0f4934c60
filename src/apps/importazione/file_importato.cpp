#include "apps/importazione/file_importato.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>

#include "apps/comune/file_letto.h"
#include "apps/comune/sha256.h"
#include "sqlite/own_files.h"
#include "tabelle/lettura.h"

namespace cu {
namespace {

using Leggi = std::function<std::size_t(char* dove, std::size_t quanti)>;

// A file beyond the limit is cut off behind it: the reading rejects it.
std::string leggiTutto(const Leggi& leggi) {
  constexpr std::size_t kBlocco = std::size_t{1} << 20U;
  const std::size_t massimo = tabelle::Limiti().byte + 1;
  std::string byte;
  while (byte.size() < massimo) {
    const std::size_t prima = byte.size();
    byte.resize(prima + std::min(kBlocco, massimo - prima));
    const std::size_t letti = leggi(byte.data() + prima, byte.size() - prima);
    byte.resize(prima + letti);
    if (letti == 0) break;
  }
  return byte;
}

}  // namespace

FileImportatoInMemoria leggiFileImportato(const std::string& percorso) {
  FileImportatoInMemoria file;
  if (percorso == "-") {
    file.nome = "ingresso standard";
    file.byte = leggiTutto([](char* dove, std::size_t quanti) {
      std::cin.read(dove, static_cast<std::streamsize>(quanti));
      if (std::cin.bad()) throw FileIlleggibile("ingresso standard: la lettura si è interrotta.");
      return static_cast<std::size_t>(std::cin.gcount());
    });
  } else {
    FileLetto letto(percorso);
    file.nome = std::filesystem::path(percorso).filename().string();
    file.byte = leggiTutto([&](char* dove, std::size_t quanti) { return letto.leggi(dove, quanti); });
  }
  Sha256 somma;
  somma.aggiungi(file.byte);
  file.sha256 = somma.cifre();
  return file;
}

fatture::LimitiRaccolta limitiDellaRaccolta() {
  fatture::LimitiRaccolta limiti;
  limiti.intoccabile = [](const std::filesystem::path& file) { return belongsToOwnDatabase(file.string()); };
  return limiti;
}

}  // namespace cu
