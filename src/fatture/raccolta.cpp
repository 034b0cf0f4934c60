#include "fatture/raccolta.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "base/text.h"
#include "fatture/busta.h"
#include "fatture/errore.h"
#include "fatture/lettura_fattura.h"
#include "tabelle/archivio_zip.h"
#include "tabelle/errore.h"

namespace cu::fatture {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAltro = "file che non è una fattura";
constexpr const char* kInUso = "file del database in uso";

Rilievo soloFile(const char* codice, const std::string& nome, std::string testo) {
  return {codice, {nome, 0, 0, {}}, std::move(testo), false};
}

std::string nomeDi(const fs::path& percorso) {
  const std::u8string nome = percorso.filename().u8string();
  return {nome.begin(), nome.end()};
}

std::string megabyte(std::size_t byte) { return fromInteger(static_cast<std::int64_t>(byte >> 20U)) + " MB"; }

// An XML text whose root is none of an invoice, as far as it shows before anything is parsed: a page, a
// style sheet. The name of an invoice must be nowhere in it.
bool paginaAltrui(std::string_view byte) {
  if (forma(byte) != Forma::Xml) return false;
  std::string testo(byte);
  std::erase(testo, '\0');  // of two bytes a character
  if (testo.find("FatturaElettronica") != std::string::npos) return false;
  for (std::size_t i = testo.find('<'); i != std::string::npos; i = testo.find('<', i + 1)) {
    const std::size_t fine = testo.find_first_of(" \t\r\n/>", i + 1);
    if (fine == std::string::npos) return false;
    const char primo = fine == i + 1 ? '/' : testo[i + 1];
    if (primo != '!' && primo != '?') return primo != '/';
  }
  return false;
}

// A text or a sheet of an office: an archive by its form only.
bool documentoUfficio(tabelle::ArchivioZip& zip) {
  return zip.trova("[Content_Types].xml").has_value() || zip.trova("mimetype").has_value();
}

class Raccolta {
 public:
  Raccolta(const Ricevente& ricevente, const LimitiRaccolta& limiti)
      : ricevente_(ricevente), limiti_(limiti) {}

  void percorso(const fs::path& dove) {
    std::error_code errore;
    if (fs::is_directory(dove, errore)) {
      cartella(dove, 1);
    } else {
      file(dove, nomeDi(dove), true);
    }
  }

  void byte(std::string_view byte, const std::string& nome, bool nominato) {
    if (forma(byte) == Forma::Zip) return archivio(byte, nome, nominato);
    documento(byte, nome, nominato);
  }

  Ignorati& ignorati() { return ignorati_; }

 private:
  void dai(Letto&& letto) {
    letto.cartella = cartella_;
    continua_ = continua_ && ricevente_(std::move(letto));
  }
  void fallito(const std::string& nome, const Rilievo& rilievo) { dai(letturaFallita(nome, rilievo)); }

  void documento(std::string_view byte, const std::string& nome, bool nominato) {
    if (!nominato && (forma(byte) == Forma::Altra || forma(byte) == Forma::Vuota)) {
      ++ignorati_[forma(byte) == Forma::Vuota ? "file vuoto" : kAltro];
      return;
    }
    Letto letto = leggiFattura(byte, nome, limiti_.documento);
    const bool estraneo =
        letto.genere == Genere::Altro || (letto.genere == Genere::Illeggibile && paginaAltrui(byte));
    if (estraneo && !nominato) {
      ++ignorati_[kAltro];
      return;
    }
    dai(std::move(letto));
  }

  void archivio(std::string_view byte, const std::string& nome, bool nominato) {
    try {
      tabelle::ArchivioZip zip(byte, nome, limiti_.archivio);
      if (documentoUfficio(zip)) {
        if (nominato)
          return fallito(nome, soloFile("F02", nome, "Il file non è una fattura elettronica né un archivio"));
        ++ignorati_[kAltro];
        return;
      }
      for (std::size_t i = 0; i < zip.membri() && continua_; ++i) membro(zip, i, nome);
    } catch (const tabelle::ErroreTabella& errore) {
      fallito(nome, {errore.codice(), {nome, 0, 0, {}}, errore.testo(), false});
    }
  }

  // A name without its folders: it is shown, and no file is made by it.
  static std::string nomeMembro(const std::string& intero) {
    const std::size_t barra = intero.find_last_of("/\\");
    return barra == std::string::npos ? intero : intero.substr(barra + 1);
  }

  void membro(tabelle::ArchivioZip& zip, std::size_t indice, const std::string& archivio) {
    const std::string intero = zip.nomeMembro(indice);
    if (intero.ends_with('/')) return;
    const std::string nome = archivio + ", " + nomeMembro(intero);
    std::string contenuto;
    bool troppo = false;
    try {
      tabelle::ArchivioZip::Membro aperto = zip.apri(indice);
      constexpr std::size_t kTratto = std::size_t{64} << 10U;
      std::vector<char> tratto(kTratto);
      while (const std::size_t letti = aperto.leggi(tratto.data(), tratto.size())) {
        contenuto.append(tratto.data(), letti);
        troppo = contenuto.size() > limiti_.documento.byte;
        if (troppo) break;
      }
    } catch (const tabelle::ErroreTabella& errore) {
      // Beyond a limit of the archive the other members are not read either.
      if (errore.codice() == "F05") throw;
      return fallito(nome, {errore.codice(), {nome, 0, 0, {}}, errore.testo(), false});
    }
    if (troppo)
      return fallito(nome, soloFile("F05", nome, "Il file supera " + megabyte(limiti_.documento.byte)));
    if (forma(contenuto) == Forma::Zip) {
      if (ufficio(contenuto, nome)) {
        ++ignorati_[kAltro];
        return;
      }
      return fallito(nome,
                     soloFile("F02", nome, "Un archivio dentro un archivio non si legge: estrarlo prima"));
    }
    documento(contenuto, nome, false);
  }

  bool ufficio(std::string_view byte, const std::string& nome) const {
    try {
      tabelle::ArchivioZip zip(byte, nome, limiti_.archivio);
      return documentoUfficio(zip);
    } catch (const tabelle::ErroreTabella&) {
      return false;
    }
  }

  void cartella(const fs::path& dove, int profondita) {
    if (profondita > limiti_.profondita)
      return fallito(nomeDi(dove), soloFile("F05", nomeDi(dove), "Le cartelle sono troppo annidate"));
    std::error_code errore;
    std::vector<fs::path> voci;
    for (fs::directory_iterator voce(dove, errore); !errore && voce != fs::directory_iterator();
         voce.increment(errore)) {
      voci.push_back(voce->path());
      if (voci.size() > limiti_.file)
        return fallito(nomeDi(dove), soloFile("F05", nomeDi(dove), "La cartella ha troppi file"));
    }
    if (errore) return fallito(nomeDi(dove), soloFile("F03", nomeDi(dove), "La cartella non si può leggere"));
    std::sort(voci.begin(), voci.end());
    for (const fs::path& voce : voci) {
      if (!continua_) return;
      std::error_code stato;
      // A link could lead back to a folder above.
      if (fs::is_directory(voce, stato)) {
        if (!fs::is_symlink(voce, stato)) cartella(voce, profondita + 1);
      } else if (fs::is_regular_file(voce, stato)) {
        if (++file_ > limiti_.file)
          return fallito(nomeDi(dove), soloFile("F05", nomeDi(dove), "La cartella ha troppi file"));
        file(voce, nomeDi(voce), false);
      }
    }
  }

  // Only what can be an invoice is read whole: a folder may have films.
  void file(const fs::path& percorso, const std::string& nome, bool nominato) {
    const std::u8string cartella = percorso.parent_path().generic_u8string();
    cartella_.assign(cartella.begin(), cartella.end());
    if (limiti_.intoccabile && limiti_.intoccabile(percorso)) {
      if (nominato)
        return fallito(
            nome, soloFile("F03", nome, "È il database in uso, o un suo file di lavoro: non si importa"));
      ++ignorati_[kInUso];
      return;
    }
    std::ifstream flusso(percorso, std::ios::binary);
    std::string contenuto(kTesta, '\0');
    flusso.read(contenuto.data(), static_cast<std::streamsize>(contenuto.size()));
    if (!flusso && !flusso.eof())
      return fallito(nome, soloFile("F03", nome, "Il file non esiste o non si può leggere"));
    contenuto.resize(static_cast<std::size_t>(flusso.gcount()));
    if (flusso && !nominato && forma(contenuto) == Forma::Altra) {
      ++ignorati_[kAltro];
      return;
    }
    const std::size_t limite =
        forma(contenuto) == Forma::Zip ? limiti_.archivio.byte : limiti_.documento.byte;
    while (flusso) {
      const std::size_t letti = contenuto.size();
      if (letti > limite) return fallito(nome, soloFile("F05", nome, "Il file supera " + megabyte(limite)));
      contenuto.resize(letti * 2);
      flusso.read(contenuto.data() + letti, static_cast<std::streamsize>(letti));
      contenuto.resize(letti + static_cast<std::size_t>(flusso.gcount()));
    }
    if (flusso.bad()) return fallito(nome, soloFile("F03", nome, "Il file non si può leggere"));
    if (contenuto.size() > limite)
      return fallito(nome, soloFile("F05", nome, "Il file supera " + megabyte(limite)));
    byte(contenuto, nome, nominato);
  }

  static constexpr std::size_t kTesta = std::size_t{64} << 10U;

  const Ricevente& ricevente_;
  const LimitiRaccolta& limiti_;
  Ignorati ignorati_;
  std::string cartella_;  // of the file being read
  std::size_t file_ = 0;
  bool continua_ = true;
};

}  // namespace

Ignorati raccogli(const fs::path& percorso, const Ricevente& ricevente, const LimitiRaccolta& limiti) {
  Raccolta raccolta(ricevente, limiti);
  raccolta.percorso(percorso);
  return std::move(raccolta.ignorati());
}

Ignorati raccogli(std::string_view byte, const std::string& nome, const Ricevente& ricevente,
                  const LimitiRaccolta& limiti) {
  Raccolta raccolta(ricevente, limiti);
  raccolta.byte(byte, nome, true);
  return std::move(raccolta.ignorati());
}

}  // namespace cu::fatture
