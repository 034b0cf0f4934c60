#pragma once

#include <cstddef>
#include <string_view>

namespace cu::tabelle {

// A field as it is written in the text.
struct CampoGrezzo {
  std::size_t inizio = 0;  // of the content, after the opening quote
  std::size_t fine = 0;    // before the closing quote
  std::size_t coda = 0;    // where the field ends; beyond `fine` with quotes
  bool virgolette = false;
  bool doppie = false;  // the content has doubled quotes
  bool aperto = false;  // the closing quote is missing
  bool ultimo = false;  // of its record
};

// Splits a text into records and fields, without changing it.
class Scansione {
 public:
  Scansione(std::string_view testo, std::size_t riga, char separatore)
      : testo_(testo), riga_(riga), separatore_(separatore) {}

  // At the end of the text, where no further record begins.
  bool finita() const { return dove_ >= testo_.size(); }
  // The physical line of the next field.
  std::size_t riga() const { return riga_; }
  CampoGrezzo prossimo();

 private:
  void contenutoTraVirgolette(CampoGrezzo& campo);
  void saltaFineRiga();

  std::string_view testo_;
  std::size_t dove_ = 0;
  std::size_t riga_;
  char separatore_;
};

}  // namespace cu::tabelle
