#pragma once

#ifndef _WIN32
#include <locale.h>
#endif

namespace cu::odbc {

// While it lives, the calling thread's characters are UTF-8, whatever the environment says. The driver
// manager decides by the thread's locale, when a session is allocated and when it connects, how it converts
// the driver's narrow texts for the session's whole life: names of columns, messages.
class Utf8Locale {
 public:
  Utf8Locale();
  ~Utf8Locale();
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

#ifndef _WIN32
 private:
  locale_t own_;
  locale_t before_ = nullptr;
#endif
};

}  // namespace cu::odbc
