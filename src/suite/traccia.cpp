#include "suite/traccia.h"

#include <filesystem>
#include <fstream>

#include "base/text.h"

namespace cu {
namespace {

void escape(std::string& json, char32_t character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (character) {
    case U'"':
      json += "\\\"";
      return;
    case U'\\':
      json += "\\\\";
      return;
    case U'\n':
      json += "\\n";
      return;
    case U'\r':
      json += "\\r";
      return;
    case U'\t':
      json += "\\t";
      return;
  }
  if (character >= 0x20) {
    appendUtf8(json, character);
    return;
  }
  json += "\\u00";
  json += kDigits[character >> 4];
  json += kDigits[character & 0x0F];
}

// Whether the run before may have written the file: every line of a trace begins with a quote.
bool maybeTrace(const std::string& path) {
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(path, unknown)) return true;
  char first = '"';
  std::ifstream(path, std::ios::binary).get(first);
  return first == '"';
}

const std::string& checkedForTrace(const std::string& path) {
  if (!maybeTrace(path)) throw FileError(kErrorPathAccess, "Il file non è una traccia: " + path);
  return path;
}

}  // namespace

TracciaSql::TracciaSql(const std::string& path)
    : path_(path), file_(openForWriting(checkedForTrace(path), NewFile::OwnerOnly)) {}

std::string stringaJson(std::string_view testo) {
  std::string json = "\"";
  json.reserve(testo.size() + 2);
  for (std::size_t at = 0; at < testo.size();) escape(json, nextCodePoint(testo, at));
  return json += '"';
}

void TracciaSql::scrivi(std::string_view istruzione) {
  const std::string riga = stringaJson(istruzione) + "\n";
  int codice = 0;
  if (file_.write(riga, codice) < riga.size()) throw fileError(codice, path_);
}

DatabaseSuite::DatabaseSuite(std::unique_ptr<Connection> connessione, TracciaSql* traccia)
    : connessione_(std::move(connessione)) {
  if (traccia != nullptr) tracciata_ = std::make_unique<ConnessioneTracciata>(*connessione_, *traccia);
}

std::unique_ptr<Rowset> DatabaseSuite::CreateRowset() {
  return std::make_unique<ConnectionRowset>(connection());
}

}  // namespace cu
