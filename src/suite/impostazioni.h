#pragma once

#include <functional>
#include <string>

#include "host/filesystem.h"
#include "host/settings.h"

namespace cu {

// Settings in a TOML file: one table per application key, with one table per section. Each write rereads the
// file under a lock and replaces it atomically; other keys and sections are kept. The first write renames an
// invalid file instead of replacing it, and reports that.
class ImpostazioniToml : public Settings {
 public:
  // `avviso` receives warnings for the user, in Italian; the same text only once.
  ImpostazioniToml(std::string file, FileSystem& files, std::function<void(const std::string&)> avviso);

  // An unreadable file is reported and counts as empty.
  std::string get(std::string_view application, std::string_view section, std::string_view name,
                  std::string_view otherwise) override;
  // Raises FileError when the settings cannot be written. A value that the file has already is not written.
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
