#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/esame/confronti.h"
#include "apps/strumenti/file_esaminato.h"
#include "suite/profilo.h"

namespace cu::strumenti {

// A certificate that was compared. Of a certificate of a file its place there is kept, of one that only the
// accounts have the certificate itself. The first row may be the heads of the whole file where they differ
// from the company's data; it has neither.
struct RigaConfronto {
  std::string percipiente;
  std::string nome;
  std::string causale;
  EsitoConfronto esito = EsitoConfronto::Uguale;
  std::optional<std::size_t> vecchio;
  std::optional<std::size_t> nuovo;
  std::optional<lettura::Certificato> conto;
  std::vector<lettura::CasellaDiversa> caselle;
};

// A box of both sides.
struct CasellaConfrontata {
  int modulo = 0;  // 0 for record D
  std::string codice;
  std::string nome;
  std::string vecchio;
  std::string nuovo;
  bool diversa = false;
};

// Two files, or a file and the accounts of its year.
class Confronto {
 public:
  static Confronto diFile(const std::string& vecchio, const std::string& nuovo,
                          const FileEsaminato::Avanza& avanza);
  // Where the file hardly belongs to the accounts nothing is compared, unless `comunque`. Error where the
  // file does not give its year; errors of the database rise as they are.
  static Confronto conConti(const std::string& file, const Profilo& profilo,
                            const FileEsaminato::Avanza& avanza, bool comunque = false);

  bool haConti() const { return !nuovo_; }
  // Why the two sides hardly belong together: another company, another year; "" where they do.
  const std::string& estraneita() const { return estraneita_; }
  bool confrontati() const { return confrontati_; }
  const std::vector<RigaConfronto>& righe() const { return righe_; }
  // Whether the first row is the heads of the file.
  bool testateDiverse() const { return testateDiverse_; }
  std::size_t quante(EsitoConfronto esito) const { return quante_.at(static_cast<std::size_t>(esito)); }
  // All boxes of a certificate but the signature. Error where a file has changed since.
  std::vector<CasellaConfrontata> caselle(std::size_t riga) const;

 private:
  void aggiungi(const Coppia& coppia);
  std::string estraneiFraLoro() const;
  std::string estraneoAiConti(Connection& connessione, std::int32_t azienda) const;

  std::optional<FileEsaminato> vecchio_;
  std::optional<FileEsaminato> nuovo_;  // none where the other side are the accounts
  std::vector<RigaConfronto> righe_;
  std::array<std::size_t, 4> quante_{};
  std::string estraneita_;
  bool confrontati_ = true;
  bool testateDiverse_ = false;
};

// "= uguale", "≠ diversa", "− manca nei conti": a sign and words.
std::string detto(EsitoConfronto esito, bool conConti);

}  // namespace cu::strumenti
