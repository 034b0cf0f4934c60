#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tabelle/archivio_zip.h"
#include "tabelle/deposito.h"
#include "tabelle/lettura.h"
#include "tabelle/numeri.h"

namespace cu::tabelle {

struct FoglioXlsx {
  Foglio foglio;
  std::string parte;  // its member of the archive
};

// The parts of a workbook that are common to its sheets. The functions raise ErroreTabella.
class CartellaXlsx {
 public:
  // Reads the list of sheets. F02 for an archive that is no workbook of this format.
  CartellaXlsx(std::string_view byte, std::string_view nome, const Limiti& limiti);

  const std::vector<FoglioXlsx>& fogli() const { return fogli_; }
  // By name without regard to case and accents; "" for the first that is not hidden. F02 for none.
  const FoglioXlsx& scegli(const std::string& nome) const;
  bool dal1904() const { return dal1904_; }
  // The results that are stored with the formulas need not be true: the writer had not calculated them.
  bool daRicalcolare() const { return daRicalcolare_; }

  // Reads the formats and the texts that the cells refer to; the texts are put into the store.
  void leggiStiliETesti(Deposito& deposito);
  // By the cell's style; a style that does not exist shows a plain number.
  Formato formato(std::size_t stile) const;
  std::optional<std::string_view> testo(std::size_t indice) const;

  ArchivioZip& archivio() { return archivio_; }
  std::size_t membro(const std::string& parte) const;

 private:
  void leggiCartella();
  void leggiRelazioni();
  void leggiStili(std::size_t membro);
  void leggiTesti(std::size_t membro, Deposito& deposito);
  [[noreturn]] void rifiutaArchivio() const;
  Posto posto() const { return {nome_, {}, 0, 0}; }

  std::string nome_;
  Limiti limiti_;
  ArchivioZip archivio_;
  std::vector<FoglioXlsx> fogli_;
  std::vector<std::string> relazioniDeiFogli_;
  std::map<std::string, std::string> parti_;  // by the relationship's identifier
  std::string parteStili_;
  std::string parteTesti_;
  std::vector<Formato> formati_;
  std::vector<std::string_view> testi_;
  bool dal1904_ = false;
  bool daRicalcolare_ = false;
};

}  // namespace cu::tabelle
