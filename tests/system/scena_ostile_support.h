#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "system/guidato_support.h"
#include "system/inserimenti_support.h"

namespace cu::test {

// A wizard into whose forms one text is entered, in every place that accepts a text. The places are taken
// from the form's own description. A payee and a reason of the database have the text as name.
class ScenaOstile : public Guidato {
 protected:
  static constexpr const char* kChi = "101";    // the payee, whose code is the text
  static constexpr const char* kCausale = "1";  // the reason, whose code is the short text
  static const std::string kNullo;              // with a zero character

  explicit ScenaOstile(std::string testo, bool conNulli)
      : Guidato(false), testo_(std::move(testo)), breve_(primi(testo_, 40)), conNulli_(conNulli) {}

  // Enters the text in every place of the form, with the effect that its kind has; unreachable or locked ones
  // do not change. The fields' contents are then stored in campi_ under the group.
  void scena(const std::string& form, const std::string& gruppo);
  void scena(const std::string& form) { scena(form, form.starts_with("frmCompenso") ? "frmCompenso" : form); }
  // Every place described by a form was reached, or is known to be locked.
  void tutteRaggiunte() const;

  // The command is rejected with a text, and nothing opens.
  void nega(const json& comando);
  void negaIlNullo(const json& comando);

  std::string testo_;
  std::string breve_;  // for places with limited space in the file
  bool conNulli_;      // whether a text with a zero character is tried everywhere
  std::map<std::string, std::map<std::string, std::string>> campi_;  // texts by group, then by name

 private:
  void tenta(const std::string& chi, const std::string& nome, const std::string& gruppo, const json& prima);
  std::string conSegno(const std::string& chi, std::size_t massimo);
  std::string scriviTesto(const std::string& chi, const std::string& nome, const json& prima);
  void scriviNumero(const std::string& chi, const json& prima);
  void scegli(const std::string& chi, const json& prima);
  void nonHa(const std::string& chi, const std::string& tipo);
  void nonPrende(const std::string& chi, const std::string& tipo);
  void rifiutaINulli(const std::string& chi, const std::string& tipo);

  std::map<std::string, std::size_t> segni_;
  std::set<std::string> viste_;
  std::set<std::string> raggiunte_;
};

}  // namespace cu::test
