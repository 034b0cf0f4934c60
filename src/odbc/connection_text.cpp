#include "odbc/connection_text.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/error.h"
#include "base/text.h"

namespace cu::odbc {
namespace {

[[noreturn]] void refuseAddress(const std::string& why) {
  throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "", why);
}

[[noreturn]] void malformed() {
  refuseAddress(
      "L'indirizzo odbc del database non è valido: atteso un elenco di chiavi e valori, come "
      "\"odbc:Driver=FreeTDS;Server=...;Database=...;UID=...\".");
}

bool contains(std::string_view text, std::string_view piece) {
  return text.find(piece) != std::string_view::npos;
}

// Removes the value at the head of `text`, with its semicolon, and returns it.
std::string takeValue(std::string_view& text) {
  std::string value;
  if (text.empty() || text.front() != '{') {
    const std::size_t end = std::min(text.find(';'), text.size());
    value = trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return value;
  }
  std::size_t at = 1;
  for (;; ++at) {
    if (at >= text.size()) malformed();
    if (text[at] == '}') {
      if (at + 1 >= text.size() || text[at + 1] != '}') break;
      ++at;
    }
    value += text[at];
  }
  text = trim(text.substr(at + 1));
  if (!text.empty() && text.front() != ';') malformed();
  if (!text.empty()) text.remove_prefix(1);
  return value;
}

// Braces only where required: drivers differ in parsing them.
std::string written(const std::string& value) {
  const bool plain = std::all_of(value.begin(), value.end(), [](char c) {
    return isLetter(c) || isDigit(c) || contains("-_.,:/\\", std::string_view(&c, 1)) ||
           static_cast<unsigned char>(c) >= 0x80;
  });
  if (plain) return value;
  std::string quoted = "{";
  for (const char c : value) {
    if (c == '}') quoted += '}';
    quoted += c;
  }
  return quoted + "}";
}

}  // namespace

DriverFamily familyOf(std::string_view driver) {
  const std::string name = lowerAscii(driver);
  if (contains(name, "freetds") || contains(name, "tdsodbc")) return DriverFamily::FreeTds;
  for (const char* const own : {"msodbcsql", "sqlncli", "sqlsrv32", "for sql server", "sql server native"}) {
    if (contains(name, own)) return DriverFamily::Microsoft;
  }
  return name == "sql server" ? DriverFamily::Microsoft : DriverFamily::Other;
}

ConnectionText::ConnectionText(std::string_view text) {
  for (text = trim(text); !text.empty(); text = trim(text)) {
    if (text.front() == ';') {
      text.remove_prefix(1);
      continue;
    }
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) malformed();
    const std::string keyword(trim(text.substr(0, equals)));
    if (keyword.empty() || contains(keyword, ";") || contains(keyword, "{")) malformed();
    text = trim(text.substr(equals + 1));
    entries_.push_back({keyword, takeValue(text)});
  }
  if (entries_.empty()) malformed();
  if (has({"PWD", "Password"})) {
    refuseAddress(
        "La password non va scritta nell'indirizzo del database: indicare in password_env del profilo, o con "
        "--password-env, il nome della variabile d'ambiente che la contiene.");
  }
}

const ConnectionText::Entry* ConnectionText::find(std::string_view keyword) const {
  for (const Entry& entry : entries_) {
    if (equalsNoCase(entry.keyword, keyword)) return &entry;
  }
  return nullptr;
}

bool ConnectionText::has(std::initializer_list<std::string_view> keywords) const {
  return std::any_of(keywords.begin(), keywords.end(),
                     [this](std::string_view keyword) { return find(keyword) != nullptr; });
}

std::string ConnectionText::value(std::initializer_list<std::string_view> keywords) const {
  for (const std::string_view keyword : keywords) {
    if (const Entry* const entry = find(keyword)) return entry->value;
  }
  return {};
}

void ConnectionText::set(std::string_view keyword, std::string_view value) {
  for (Entry& entry : entries_) {
    if (equalsNoCase(entry.keyword, keyword)) {
      entry.value = value;
      return;
    }
  }
  entries_.push_back({std::string(keyword), std::string(value)});
}

bool ConnectionText::signsOnByItself() const {
  const std::string trusted = lowerAscii(value({"Trusted_Connection"}));
  const std::string authentication = lowerAscii(value({"Authentication"}));
  return trusted == "yes" || trusted == "true" || contains(authentication, "integrated");
}

std::string ConnectionText::text() const {
  std::string text;
  for (const Entry& entry : entries_) text += entry.keyword + "=" + written(entry.value) + ";";
  return text;
}

void setEncryption(ConnectionText& text, DriverFamily family, bool encrypt) {
  struct Words {
    const char* keyword;
    const char* on;
    const char* off;
  };
  constexpr Words kFreeTds = {"Encryption", "require", "off"};
  constexpr Words kMicrosoft = {"Encrypt", "yes", "no"};
  if (family == DriverFamily::Other) return;
  const Words& words = family == DriverFamily::FreeTds ? kFreeTds : kMicrosoft;
  if (!encrypt) {
    text.set(words.keyword, words.off);
    return;
  }
  constexpr std::string_view kStrictEnough[] = {"require", "strict", "yes", "mandatory", "true"};
  for (const char* const keyword : {"Encryption", "Encrypt"}) {
    const std::string own = lowerAscii(text.value({keyword}));
    if (own.empty() || std::ranges::find(kStrictEnough, own) != std::end(kStrictEnough)) continue;
    refuseAddress("L'indirizzo del database toglie la cifratura (" + std::string(keyword) +
                  "): toglierne la chiave, o scrivere encrypt = false nel profilo.");
  }
  if (!text.has({words.keyword})) text.set(words.keyword, words.on);
}

void setProtocol(ConnectionText& text, DriverFamily family) {
  if (family != DriverFamily::FreeTds) return;
  const std::string own = lowerAscii(text.value({"TDS_Version"}));
  if (own.empty() || own == "auto") text.set("TDS_Version", "7.4");
}

void setNarrowTexts(ConnectionText& text, std::string_view driver) {
  const std::string name = lowerAscii(driver);
  if (!contains(name, "postgresql") && !contains(name, "psqlodbc")) return;
  if (!text.has({"ConnSettings"})) text.set("ConnSettings", "SET client_encoding TO 'UTF8'");
}

}  // namespace cu::odbc
