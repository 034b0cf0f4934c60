#pragma once

#include <string>
#include <vector>

#include "lettura/esame.h"
#include "tabelle/scrittura.h"

namespace cu {

// Collects a row for each certificate, and passes everything on.
class TabellaCertificati : public lettura::Ascoltatore {
 public:
  explicit TabellaCertificati(lettura::Ascoltatore* altro = nullptr);
  void fornitura(const lettura::Fornitura& fornitura) override;
  void sostituto(const lettura::Sostituto& sostituto) override;
  void certificato(const lettura::Certificato& certificato) override;

  // Raise Error where the file cannot be written.
  void scriviCsv(const std::string& percorso) const;
  void scriviXlsx(const std::string& percorso) const;

 private:
  lettura::Ascoltatore* altro_;
  std::string sostituto_;
  tabelle::TabellaDaScrivere tabella_;
};

}  // namespace cu
