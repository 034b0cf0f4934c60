#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cu::odbc {

// Whose driver it is, as far as its words differ.
enum class DriverFamily { FreeTds, Microsoft, Other };

// By a driver's registered name or its library's.
DriverFamily familyOf(std::string_view driver);

// A connection text: "Driver=FreeTDS;Server=localhost;UID=cu". Keywords are compared without regard to case.
class ConnectionText {
 public:
  // DatabaseError for a text that is no list of keywords and values, and for one that holds a password: it
  // would stand in profiles, histories and process lists.
  explicit ConnectionText(std::string_view text);

  // The value of the first keyword of the list that is there; "" when none is.
  std::string value(std::initializer_list<std::string_view> keywords) const;
  bool has(std::initializer_list<std::string_view> keywords) const;
  void set(std::string_view keyword, std::string_view value);  // in its place, or at the end
  // Whether the server is to know the user by the system's own sign-on, so that there is no password.
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

// Sets the driver's keyword so that the connection is encrypted or, when `encrypt` is false, is not. Of a
// driver of another family nothing is known: the text stays. DatabaseError when encryption is wanted and the
// text itself turns it off.
void setEncryption(ConnectionText& text, DriverFamily family, bool encrypt);

// FreeTDS, left to find out the version of the protocol, ends with one that sends the login in the clear, and
// never comes back from a server that does not answer it. Every SQL Server of today speaks the version that
// is set here, unless the text names another.
void setProtocol(ConnectionText& text, DriverFamily family);

// PostgreSQL's driver takes the code page of narrow texts from the process's locale, unless the text says
// which one it is. `driver`: its registered name or its library's.
void setNarrowTexts(ConnectionText& text, std::string_view driver);

}  // namespace cu::odbc
