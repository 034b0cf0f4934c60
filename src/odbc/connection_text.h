#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cu::odbc {

// Drivers grouped by their keywords.
enum class DriverFamily { FreeTds, Microsoft, Other };

// From a driver's registered name or its library's.
DriverFamily familyOf(std::string_view driver);

// A connection text: "Driver=FreeTDS;Server=localhost;UID=cu". Keywords are compared without case.
class ConnectionText {
 public:
  // Raises DatabaseError for a text that is not a list of keywords and values, and for one that contains a
  // password: it would appear in profiles, histories and process lists.
  explicit ConnectionText(std::string_view text);

  // The value of the first of these keywords that is present; "" when none is.
  std::string value(std::initializer_list<std::string_view> keywords) const;
  bool has(std::initializer_list<std::string_view> keywords) const;
  void set(std::string_view keyword, std::string_view value);  // replaces it in place, or appends it
  // Whether the server identifies the user by the system's sign-on, without a password.
  bool signsOnByItself() const;
  std::string text() const;

 private:
  struct Entry {
    std::string keyword;
    std::string value;
  };
  const Entry* find(std::string_view keyword) const;
  std::vector<Entry> entries_;
};

// Sets the driver's keyword so that the connection is encrypted or, when `encrypt` is false, is not. The
// keyword of other driver families is unknown: the text is not changed. Raises DatabaseError when encryption
// is required and the text itself disables it.
void setEncryption(ConnectionText& text, DriverFamily family, bool encrypt);

// When FreeTDS detects the protocol version itself, it may select one that sends the login unencrypted, and
// it never returns from a server that does not answer. The version set here is supported by every current SQL
// Server; a version in the text has precedence.
void setProtocol(ConnectionText& text, DriverFamily family);

// PostgreSQL's driver takes the code page of narrow texts from the process's locale, unless the text
// specifies it. `driver` is its registered name or its library's.
void setNarrowTexts(ConnectionText& text, std::string_view driver);

}  // namespace cu::odbc
