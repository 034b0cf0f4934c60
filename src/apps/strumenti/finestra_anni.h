#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "apps/strumenti/finestra.h"

class QButtonGroup;
class QComboBox;

namespace cu::strumenti {

class Ricerca;

// A window over one table of several years: above it the year, a search, and buttons that choose among the
// rows, each with the number of its rows and a sign on the one that is pressed.
class FinestraAnni : public Finestra {
 protected:
  // `scritte` are the captions of the buttons; the first one is that of all rows.
  FinestraAnni(const QString& nome, std::vector<const char*> scritte);

  // Called by the subclass at the beginning of its construction.
  QWidget* sopra();
  QWidget* scelte();

  virtual std::uint64_t quante(std::size_t scelta) const = 0;
  // The user has chosen another year.
  virtual void annoScelto() = 0;
  // The search or the buttons have chosen other rows.
  virtual void righeScelte() = 0;

  void scriviScelte();
  std::size_t scelta() const { return scelta_; }
  QComboBox& anni() const { return *anni_; }
  Ricerca& ricerca() const { return *ricerca_; }

 private:
  std::vector<const char*> scritte_;
  std::size_t scelta_ = 0;
  QComboBox* anni_ = nullptr;
  Ricerca* ricerca_ = nullptr;
  QButtonGroup* filtri_ = nullptr;
};

}  // namespace cu::strumenti
