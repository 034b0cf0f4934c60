#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "tabelle/errore.h"
#include "tabelle/scrittura.h"

namespace cu::tabelle {
namespace {

constexpr std::size_t kRigheXlsx = 1048576;
constexpr std::size_t kColonneXlsx = 16384;
constexpr std::size_t kCaratteriNomeFoglio = 31;
constexpr std::size_t kLarghezzaMassima = 60;
constexpr std::int64_t kMassimoEsatto = 999'999'999'999'999;  // 15 digits
constexpr Date kPrimoGiorno = Date::fromSerial(61);           // 1 March 1900

// The library formats numbers by the process's locale; the file format requires a decimal point.
class NumeriConPunto {
 public:
  NumeriConPunto() : prima_(std::setlocale(LC_NUMERIC, nullptr)) { std::setlocale(LC_NUMERIC, "C"); }
  ~NumeriConPunto() { std::setlocale(LC_NUMERIC, prima_.c_str()); }
  NumeriConPunto(const NumeriConPunto&) = delete;
  NumeriConPunto& operator=(const NumeriConPunto&) = delete;

 private:
  std::string prima_;
};

// A file in memory. The library writes to a path alone, and tells of one that it cannot write in words of its
// own: whoever wants the workbook on a disk replaces the file with the bytes.
class FileInMemoria {
 public:
  FileInMemoria() : numero_(::memfd_create("xlsx", MFD_CLOEXEC)) {}
  ~FileInMemoria() {
    if (numero_ >= 0) ::close(numero_);
  }
  FileInMemoria(const FileInMemoria&) = delete;
  FileInMemoria& operator=(const FileInMemoria&) = delete;

  std::string percorso() const { return "/proc/self/fd/" + fromInteger(numero_); }
  // "" where it cannot be read.
  std::string contenuto() const {
    const off_t byte = ::lseek(numero_, 0, SEEK_END);
    std::string letto(byte > 0 ? static_cast<std::size_t>(byte) : 0, '\0');
    std::size_t fatti = 0;
    while (fatti < letto.size()) {
      const ssize_t passo =
          ::pread(numero_, letto.data() + fatti, letto.size() - fatti, static_cast<off_t>(fatti));
      if (passo < 0 && errno == EINTR) continue;
      if (passo <= 0) return {};
      fatti += static_cast<std::size_t>(passo);
    }
    return letto;
  }

 private:
  int numero_;
};

std::string nomeFoglioXlsx(std::string_view voluto) {
  std::string nome;
  for (const char c : voluto) {
    const bool ammesso = static_cast<unsigned char>(c) >= 0x20 &&
                         std::string_view("[]:*?/\\'").find(c) == std::string_view::npos;
    nome += ammesso ? c : ' ';
  }
  const std::string_view tagliato = trim(leftCodePoints(trim(nome), kCaratteriNomeFoglio));
  return tagliato.empty() ? "Foglio1" : std::string(tagliato);
}

// The format has characters that XML cannot have as _xHHHH_; the library does not mark a text that looks like
// that.
std::string conSequenze(std::string_view contenuto) {
  constexpr std::size_t kLunghezza = 7;
  std::string scritto;
  for (std::size_t i = 0; i < contenuto.size(); ++i) {
    const std::string_view tratto = contenuto.substr(i, kLunghezza);
    if (tratto.size() == kLunghezza && tratto.starts_with("_x") && tratto.ends_with('_') &&
        tratto.find_first_not_of("0123456789abcdefABCDEF", 2) == kLunghezza - 1) {
      scritto += "_x005F";
    }
    scritto += contenuto[i];
  }
  return scritto;
}

class ScrittoreXlsx {
 public:
  ScrittoreXlsx(const std::string& file, const OpzioniXlsx& opzioni) : posto_{opzioni.file, {}, 0, 0} {
    // Rows are freed from memory as the next one begins.
    lxw_workbook_options come = {};
    come.constant_memory = LXW_TRUE;
    cartella_ = workbook_new_opt(file.c_str(), &come);
    if (cartella_ == nullptr) verifica(LXW_ERROR_MEMORY_MALLOC_FAILED);
    proprieta(opzioni);
    testata_ = workbook_add_format(cartella_);
    format_set_bold(testata_);
    format_set_bottom(testata_, LXW_BORDER_THIN);
    importo_ = formato("#,##0.00");
    importoLungo_ = formato("#,##0.00##");
    data_ = formato("dd/mm/yyyy");
    // As a text format, so that a code which is typed in such a cell later keeps its zeros.
    testo_ = formato("@");
  }
  ~ScrittoreXlsx() {
    if (cartella_ != nullptr) workbook_close(cartella_);
  }
  ScrittoreXlsx(const ScrittoreXlsx&) = delete;
  ScrittoreXlsx& operator=(const ScrittoreXlsx&) = delete;

  void scrivi(const TabellaDaScrivere& tabella) {
    foglio_ = workbook_add_worksheet(cartella_, nomeFoglioXlsx(tabella.foglio).c_str());
    if (foglio_ == nullptr) verifica(LXW_ERROR_MEMORY_MALLOC_FAILED);
    worksheet_freeze_panes(foglio_, 1, 0);
    larghezze_.assign(tabella.colonne.size(), 0);
    for (std::size_t i = 0; i < tabella.colonne.size(); ++i) {
      vai(0, i);
      testo(tabella.colonne[i], testata_);
    }
    for (std::size_t riga = 0; riga < tabella.righe.size(); ++riga) {
      const std::vector<Value>& valori = tabella.righe[riga];
      for (std::size_t i = 0; i < std::min(valori.size(), tabella.colonne.size()); ++i) {
        vai(riga + 1, i);
        valore(valori[i].view());
      }
    }
    for (std::size_t i = 0; i < larghezze_.size(); ++i) {
      const auto colonna = static_cast<lxw_col_t>(i);
      const double larghezza = static_cast<double>(std::min(larghezze_[i], kLarghezzaMassima)) + 2;
      verifica(worksheet_set_column(foglio_, colonna, colonna, larghezza, nullptr));
    }
    posto_.riga = posto_.colonna = 0;
  }

  void chiudi() {
    lxw_workbook* const chiusa = cartella_;
    cartella_ = nullptr;
    verifica(workbook_close(chiusa));
  }

 private:
  void verifica(lxw_error codice) const {
    if (codice == LXW_NO_ERROR) return;
    if (codice == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED) {
      throw ErroreTabella("F05", posto_, "La cella ha più di 32767 caratteri");
    }
    throw ErroreTabella(
        "F03", posto_,
        "Il foglio elettronico non si può comporre: errore " + fromInteger(codice) + " della libreria");
  }

  lxw_format* formato(const char* codice) {
    lxw_format* const nuovo = workbook_add_format(cartella_);
    format_set_num_format(nuovo, codice);
    return nuovo;
  }

  void proprieta(const OpzioniXlsx& opzioni) {
    constexpr std::int32_t kPrimoUnix = 25569;  // 1 January 1970
    std::string autore = opzioni.autore;
    lxw_doc_properties dati = {};
    dati.author = autore.data();
    if (opzioni.creata != Date()) {
      dati.created = static_cast<std::time_t>(opzioni.creata.serial() - kPrimoUnix) * 86400;
    }
    verifica(workbook_set_properties(cartella_, &dati));
  }

  void vai(std::size_t riga, std::size_t colonna) {
    posto_.riga = riga + 1;
    posto_.colonna = colonna + 1;
    if (posto_.riga > kRigheXlsx || posto_.colonna > kColonneXlsx) {
      throw ErroreTabella("F05", posto_, "La tabella ha più righe o colonne di quante un foglio ne contenga");
    }
  }
  lxw_row_t riga() const { return static_cast<lxw_row_t>(posto_.riga - 1); }
  lxw_col_t colonna() const { return static_cast<lxw_col_t>(posto_.colonna - 1); }
  void misura(std::size_t caratteri) {
    std::size_t& larghezza = larghezze_[posto_.colonna - 1];
    larghezza = std::max(larghezza, caratteri);
  }

  void testo(std::string_view contenuto, lxw_format* come) {
    if (contenuto.empty()) return;
    misura(codePoints(contenuto));
    verifica(worksheet_write_string(foglio_, riga(), colonna(), conSequenze(contenuto).c_str(), come));
  }
  void numero(double quanto, std::size_t caratteri, lxw_format* come) {
    misura(caratteri);
    verifica(worksheet_write_number(foglio_, riga(), colonna(), quanto, come));
  }

  void valore(const CellView& cella) {
    const std::string scritto = cella.type() == ValueType::Text ? std::string() : cella.toText();
    switch (cella.type()) {
      case ValueType::Null:
        return;
      case ValueType::Text:
        testo(cella.text(), testo_);
        return;
      case ValueType::Integer:
        if (cella.integer() < -kMassimoEsatto || cella.integer() > kMassimoEsatto) {
          testo(scritto, testo_);
        } else {
          numero(static_cast<double>(cella.integer()), scritto.size(), nullptr);
        }
        return;
      case ValueType::Decimal: {
        const Decimal quanto = cella.decimal();
        if (quanto.scaled() < -kMassimoEsatto || quanto.scaled() > kMassimoEsatto) {
          testo(scritto, testo_);
        } else {
          const std::string conMigliaia = quanto.toFixed(2, ',');
          numero(quanto.toDouble(), conMigliaia.size() + conMigliaia.size() / 3,
                 quanto.rounded(2) == quanto ? importo_ : importoLungo_);
        }
        return;
      }
      case ValueType::Date:
        if (cella.date() == Date()) return;
        if (cella.date() < kPrimoGiorno) {
          testo(cella.date().toIso(), testo_);
        } else {
          numero(cella.date().serial(), scritto.size(), data_);
        }
        return;
    }
  }

  Posto posto_;
  std::vector<std::size_t> larghezze_;
  lxw_workbook* cartella_ = nullptr;
  lxw_worksheet* foglio_ = nullptr;
  lxw_format* testata_ = nullptr;
  lxw_format* importo_ = nullptr;
  lxw_format* importoLungo_ = nullptr;
  lxw_format* data_ = nullptr;
  lxw_format* testo_ = nullptr;
};

}  // namespace

std::string componiXlsx(const TabellaDaScrivere& tabella, const OpzioniXlsx& opzioni) {
  return componiXlsx(std::span(&tabella, 1), opzioni);
}

std::string componiXlsx(std::span<const TabellaDaScrivere> fogli, const OpzioniXlsx& opzioni) {
  const NumeriConPunto numeri;
  const FileInMemoria file;
  ScrittoreXlsx scrittore(file.percorso(), opzioni);
  for (const TabellaDaScrivere& foglio : fogli) scrittore.scrivi(foglio);
  scrittore.chiudi();
  std::string byte = file.contenuto();
  if (byte.empty()) {
    throw ErroreTabella("F03", {opzioni.file, {}, 0, 0},
                        "Il foglio elettronico composto non si può rileggere");
  }
  return byte;
}

}  // namespace cu::tabelle
