#pragma once

#include <functional>
#include <optional>
#include <string>

#include "automation/walker.h"
#include "controls/control.h"

namespace cu {

// Bounds of the ranges, by code; a code that no row has is a bound all the same.
struct Estremi {
  std::optional<std::string> daPercipiente;
  std::optional<std::string> aPercipiente;
  std::optional<std::string> daCausale;
  std::optional<std::string> aCausale;
};

// A person's way through the wizard, by its controls alone. It goes on only while nothing is refused: each
// step raises Refused, with an empty reason where the walker's messages tell it already.
class Percorso {
 public:
  Percorso(Form& wizard, Walker& walker) : wizard_(wizard), walker_(walker) {}

  static Control& controllo(const Form& form, const std::string& nome);
  Control& controllo(const std::string& nome) { return controllo(wizard_, nome); }
  // The step on the stage, from 0; -1 when none is.
  int passo() const;

  void premi(const std::string& nome);
  void avanti(int atteso);
  // Typed as a person would; what the box does not take as it was given is refused.
  static void scrivi(Control& casella, const std::string& testo);
  void scegliAnno(const std::string& elenco, const std::string& anno);
  void estremi(const Estremi& scelti);

 private:
  void estremo(const std::string& nome, const std::optional<std::string>& codice);

  Form& wizard_;
  Walker& walker_;
};

// Runs the way as one event; what it refuses is told to the walker. True when it came to its end and that
// was the one wanted.
[[nodiscard]] bool percorri(Walker& walker, const std::function<bool()>& percorso);

}  // namespace cu
