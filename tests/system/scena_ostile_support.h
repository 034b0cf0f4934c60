#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "system/guidato_support.h"
#include "system/inserimenti_support.h"

namespace cu::test {

// A wizard into whose forms one text is put, in every place that takes a text. The places are those that the
// form tells. A payee and a reason of the database bear the text.
class ScenaOstile : public Guidato {
 protected:
  static constexpr const char* kChi = "101";    // the payee, whose code is the text
  static constexpr const char* kCausale = "1";  // the reason, whose code is the short text
  static const std::string kNullo;              // with a zero character

  explicit ScenaOstile(std::string testo, bool conNulli)
      : Guidato(false), testo_(std::move(testo)), breve_(primi(testo_, 40)), conNulli_(conNulli) {}

  // Every place of the form gets the text, whatever its kind makes of it; what cannot be reached or is locked
  // stays as it is. What the fields hold then is found in campi_ under the group.
  void scena(const std::string& form, const std::string& gruppo);
  void scena(const std::string& form) { scena(form, form.starts_with("frmCompenso") ? "frmCompenso" : form); }
  // Every place that a form has told was reached, or is known to be closed.
  void tutteRaggiunte() const;

  // The command is refused in words, and nothing opens.
  void nega(const json& comando);
  void negaIlNullo(const json& comando);

  std::string testo_;
  std::string breve_;  // for what the file must have room for
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
