#include "odbc/utf8_locale.h"

namespace cu::odbc {

#ifdef _WIN32

// On Windows the driver manager converts by the system's code page, and every driver supports wide
// characters.
Utf8Locale::Utf8Locale() = default;
Utf8Locale::~Utf8Locale() = default;

#else

Utf8Locale::Utf8Locale() : own_(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
  if (own_ != nullptr) before_ = ::uselocale(own_);
}

Utf8Locale::~Utf8Locale() {
  if (own_ == nullptr) return;
  ::uselocale(before_);
  ::freelocale(own_);
}

#endif

}  // namespace cu::odbc
