#include "apps/importazione/mappe_personali.h"

#include <algorithm>
#include <filesystem>

#include "apps/comune/sha256.h"
#include "intake/lettura_righe.h"
#include "platform/user_folders.h"
#include "sqlite/own_files.h"
#include "suite/lettore_toml.h"
#include "suite/platform_file.h"
#include "tabelle/errore.h"

namespace cu {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEstensione = ".toml";

bool stessaLettura(const tabelle::OpzioniLettura& a, const tabelle::OpzioniLettura& b) {
  return a.separatore == b.separatore && a.caratteri == b.caratteri && a.foglio == b.foglio &&
         a.rigaIntestazione == b.rigaIntestazione;
}

// Fingerprints of one file, read in several ways: profiles of one folder mostly agree on the way.
class ImpronteDelFile {
 public:
  ImpronteDelFile(std::string_view byte, const std::string& nome) : byte_(byte), nome_(nome) {}

  // "" for a file that cannot be read that way.
  const std::string& leggendo(const tabelle::OpzioniLettura& opzioni) {
    for (const Letta& letta : lette_) {
      if (stessaLettura(letta.opzioni, opzioni)) return letta.impronta;
    }
    std::string impronta;
    try {
      impronta = improntaIntestazione(tabelle::leggiTabella(byte_, nome_, opzioni));
    } catch (const tabelle::ErroreTabella&) {
      impronta.clear();
    }
    lette_.push_back({opzioni, std::move(impronta)});
    return lette_.back().impronta;
  }

 private:
  struct Letta {
    tabelle::OpzioniLettura opzioni;
    std::string impronta;
  };
  std::string_view byte_;
  const std::string& nome_;
  std::vector<Letta> lette_;
};

}  // namespace

std::string improntaIntestazione(const tabelle::Tabella& tabella) {
  Sha256 somma;
  for (const tabelle::Cella& cella : tabella.intestazione.celle) {
    somma.aggiungi(tabelle::normalizza(cella.testo) + '\n');
  }
  return somma.cifre();
}

std::vector<std::string> profiliDi(const std::string& cartella) {
  std::vector<std::string> file;
  std::error_code errore;
  for (const fs::directory_entry& voce : fs::directory_iterator(cartella, errore)) {
    const std::string percorso = voce.path().string();
    if (voce.path().extension() == kEstensione && !belongsToOwnDatabase(percorso)) file.push_back(percorso);
  }
  std::sort(file.begin(), file.end());
  return file;
}

std::string cartellaMappe() { return configurationFolder() + "/cuwizard/cuwizard/importazione"; }

std::optional<MappaTrovata> cercaMappa(const std::string& cartella, intake::Elenco elenco,
                                       std::string_view byte, const std::string& nome) {
  ImpronteDelFile impronte(byte, nome);
  for (const std::string& file : profiliDi(cartella)) {
    const std::string testo = leggiTestoToml(file);
    const ScopoMappa scopo = scopoMappa(testo, file);
    if (scopo.formato != intake::nome(elenco) || scopo.impronta.empty()) continue;
    Mappa mappa = analizzaMappa(testo, file);
    if (impronte.leggendo(mappa.mappatura.lettura) == mappa.impronta)
      return MappaTrovata{file, std::move(mappa)};
  }
  return std::nullopt;
}

std::string salvaMappa(const std::string& cartella, const Mappa& mappa) {
  constexpr std::size_t kCifreNelNome = 16;
  createFolders(cartella);
  std::string file = cartella + '/' + std::string(intake::nome(mappa.elenco)) + '-' +
                     mappa.impronta.substr(0, kCifreNelNome) + std::string(kEstensione);
  replaceFile(file, scriviMappa(mappa), NewFile::OwnerOnly);
  return file;
}

}  // namespace cu
