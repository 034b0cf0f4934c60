#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "apps/comune/connessioni.h"
#include "apps/importazione/assistente.h"
#include "archive/archivio.h"
#include "archive/archivio_di_prova.h"
#include "archive/schema.h"
#include "support/temp_folder.h"

namespace cu::test {

inline std::string scriviFile(const std::string& percorso, const std::string& testo) {
  std::ofstream(percorso, std::ios::binary) << testo;
  return percorso;
}
inline std::string leggiFile(const std::string& percorso) {
  std::ifstream file(percorso, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// All rows of a database, the moments of the batches aside.
inline std::vector<std::string> contenutoDi(const Profilo::Database& database) {
  const auto connessione = apriConnessione(database);
  std::vector<std::string> contenuto;
  for (const OggettoSchema& oggetto : oggettiSchema()) {
    if (oggetto.vista) continue;
    // Imports add towns to the municipalities, and change none.
    const bool comuni = oggetto.nome == "Comune";
    const Righe lette(*connessione, comuni ? "SELECT * FROM Comune WHERE IDComune > 13999" : oggetto.nome);
    for (std::size_t i = 0; i < lette.size(); ++i) {
      std::string riga(oggetto.nome);
      for (const std::string& colonna : lette.names()) {
        const bool tralasciata = colonna == "Momento" || colonna == "Utente";
        riga += tralasciata ? "\t-" : lette.isNull(i, colonna) ? "\tnull" : "\t'" + lette.text(i, colonna);
      }
      contenuto.push_back(riga);
    }
  }
  std::sort(contenuto.begin(), contenuto.end());
  return contenuto;
}

// A database of its own with the demonstration company, and files for it.
class PostoImportazione {
 public:
  PostoImportazione() {
    database.origine = cartella / "archivio.db";
    std::filesystem::copy_file(modello().origine, database.origine);
  }
  // Without any company.
  void svuota() {
    database.origine = cartella / "vuoto.db";
    creaArchivio(*creaConnessione(database), ContenutoArchivio::Vuoto);
  }
  Assistente::Ambiente ambiente() const {
    return {.database = database,
            .azienda = 1,
            .cartellaMappe = cartella / "mappe",
            .utente = "prova",
            .oggi = Date::fromYmd(2026, 3, 5).value()};
  }
  std::string file(const std::string& nome, const std::string& testo) const {
    return scriviFile(cartella / nome, testo);
  }
  // A copy of the database as it is now.
  Profilo::Database copia() const {
    Profilo::Database altro = database;
    altro.origine = cartella / "copia.db";
    std::filesystem::copy_file(database.origine, altro.origine,
                               std::filesystem::copy_options::overwrite_existing);
    return altro;
  }
  void esegui(const std::string& istruzione) const { apriConnessione(database)->Execute(istruzione); }

  TempFolder cartella;
  Profilo::Database database;

 private:
  // Made once.
  static const Profilo::Database& modello() {
    static const TempFolder kCartella;
    static const Profilo::Database kModello = [] {
      Profilo::Database suo;
      suo.origine = kCartella / "modello.db";
      creaArchivio(*creaConnessione(suo), ContenutoArchivio::Dimostrativo);
      return suo;
    }();
    return kModello;
  }
};

// Does what has to be done for the step at hand.
inline void svolgi(Assistente& assistente) {
  while (auto compito = assistente.daFare()) {
    compito->lavoro(nullptr);
    compito->accogli();
  }
}
inline void avanza(Assistente& assistente) {
  assistente.avanti();
  svolgi(assistente);
}
// Up to the trial, or to the step that cannot be left.
inline void finoAllaProva(Assistente& assistente) {
  svolgi(assistente);
  for (std::size_t i = 0; i < kPassi && assistente.puoAvanzare(); ++i) avanza(assistente);
}

}  // namespace cu::test
