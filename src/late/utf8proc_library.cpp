// The headings of tables, reduced to be recognised: utf8proc.

#include <utf8proc.h>

#include "late/late_function.h"

namespace {

constexpr cu::LateLibrary kUtf8proc(CU_LIBRARY_UTF8PROC, "Le intestazioni delle tabelle da leggere");

}  // namespace

CU_LATE_0(kUtf8proc, utf8proc_version)
CU_LATE_1(kUtf8proc, utf8proc_category)
CU_LATE_5(kUtf8proc, utf8proc_decompose_char)
