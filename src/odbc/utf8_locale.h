#pragma once

#ifndef _WIN32
#include <locale.h>
#endif

namespace cu::odbc {

// During its lifetime the calling thread's character set is UTF-8, whatever the environment specifies. When a
// session is allocated and when it connects, the driver manager selects by the thread's locale how it
// converts the driver's narrow texts (column names, messages) for the session's lifetime.
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
