#pragma once

#include <functional>
#include <string>

#include "host/filesystem.h"
#include "host/settings.h"

namespace cu {

// Settings in a TOML file: a table for each application key, in it one for each section. Each write reads the
// file afresh under a lock and replaces it as a whole; keys and sections that it does not concern stay. A
// file that is no TOML is put aside beside it at the first write, and told.
class ImpostazioniToml : public Settings {
 public:
  // `avviso` is told, in Italian, what a person should know; the same text once.
  ImpostazioniToml(std::string file, FileSystem& files, std::function<void(const std::string&)> avviso);

  // A file that cannot be read is told and counts as empty.
  std::string get(std::string_view application, std::string_view section, std::string_view name,
                  std::string_view otherwise) override;
  // FileError when the settings cannot be written.
  void set(std::string_view application, std::string_view section, std::string_view name,
           std::string_view value) override;
  void deleteSection(std::string_view application, std::string_view section) override;

 private:
  struct Contenuto;  // of the file
  Contenuto leggi(bool mettiDaParte);
  void scrivi(const Contenuto& contenuto);
  void avvisa(const std::string& testo);

  std::string file_;
  FileSystem& files_;
  std::function<void(const std::string&)> avviso_;
  std::string ultimoAvviso_;
};

}  // namespace cu
