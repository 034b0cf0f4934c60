#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "apps/aziende/tabellone_letto.h"
#include "apps/strumenti/finestra_anni.h"

namespace cu::strumenti {

class Frase;
class Tabella;

// The board of an office: every year of every company of a database, in numbers, and what is due when. A
// double click or Enter opens the state of the company's year.
class FinestraTabellone : public FinestraAnni {
 public:
  explicit FinestraTabellone(Profilo profilo);

 protected:
  QString capitolo() const override { return QStringLiteral("Il quadro delle aziende"); }
  std::uint64_t quante(std::size_t scelta) const override;
  void annoScelto() override;
  void righeScelte() override { diceFrase(); }

 private:
  // What the buttons choose among the lines.
  enum class Scelta : std::uint8_t { Tutte, DaInviare, InRitardo, Mancanti, Scartate };
  static bool corrisponde(const VoceTabellone& voce, Scelta scelta);

  QWidget* pulsanti();
  void componiTabella();
  void leggi();
  void mostra();
  void mostraAnni();
  bool nellAnno(const VoceTabellone& voce) const;
  void diceFrase();
  void dettaglia(std::optional<std::size_t> quale);
  void apri(std::size_t quale);
  void esporta();
  void abilita();

  Profilo profilo_;
  std::shared_ptr<const std::vector<VoceTabellone>> voci_;
  Date oggi_;

  Frase* frase_ = nullptr;
  Tabella* tabella_ = nullptr;
  Frase* dettaglio_ = nullptr;
  QPushButton* apri_ = nullptr;
  QPushButton* esporta_ = nullptr;
  QPushButton* ricarica_ = nullptr;
};

}  // namespace cu::strumenti
