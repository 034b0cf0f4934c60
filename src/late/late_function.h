#pragma once

#include <cstddef>
#include <tuple>

#include "late/late_library.h"

// Definitions of a library's functions for a program that does not link the library: each loads it where that
// has not been done, and calls the library's own. They have the declarations of the library's header, so that
// a wrong number of parameters does not compile.

namespace cu {

template <typename Function>
struct LateSignature;
template <typename R, typename... A>
struct LateSignature<R(A...)> {
  using Result = R;
  template <std::size_t N>
  using Argument = std::tuple_element_t<N, std::tuple<A...>>;
};

}  // namespace cu

// NOLINTBEGIN(bugprone-macro-parentheses): names of types and functions
#define CU_LATE_RESULT(name) cu::LateSignature<decltype(name)>::Result
#define CU_LATE_ARGUMENT(name, n) cu::LateSignature<decltype(name)>::Argument<n>
#define CU_LATE_CALL(library, name)                                                      \
  static auto* const own = reinterpret_cast<decltype(name)*>((library).function(#name)); \
  return own

#define CU_LATE_0(library, name) \
  CU_LATE_RESULT(name) name() { CU_LATE_CALL(library, name)(); }
#define CU_LATE_1(library, name) \
  CU_LATE_RESULT(name) name(CU_LATE_ARGUMENT(name, 0) a) { CU_LATE_CALL(library, name)(a); }
#define CU_LATE_2(library, name)                                                        \
  CU_LATE_RESULT(name) name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b) { \
    CU_LATE_CALL(library, name)(a, b);                                                  \
  }
#define CU_LATE_3(library, name)                                                                \
  CU_LATE_RESULT(name)                                                                          \
  name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b, CU_LATE_ARGUMENT(name, 2) c) { \
    CU_LATE_CALL(library, name)(a, b, c);                                                       \
  }
#define CU_LATE_4(library, name)                                                              \
  CU_LATE_RESULT(name)                                                                        \
  name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b, CU_LATE_ARGUMENT(name, 2) c, \
       CU_LATE_ARGUMENT(name, 3) d) {                                                         \
    CU_LATE_CALL(library, name)(a, b, c, d);                                                  \
  }
#define CU_LATE_5(library, name)                                                              \
  CU_LATE_RESULT(name)                                                                        \
  name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b, CU_LATE_ARGUMENT(name, 2) c, \
       CU_LATE_ARGUMENT(name, 3) d, CU_LATE_ARGUMENT(name, 4) e) {                            \
    CU_LATE_CALL(library, name)(a, b, c, d, e);                                               \
  }
#define CU_LATE_6(library, name)                                                                \
  CU_LATE_RESULT(name)                                                                          \
  name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b, CU_LATE_ARGUMENT(name, 2) c,   \
       CU_LATE_ARGUMENT(name, 3) d, CU_LATE_ARGUMENT(name, 4) e, CU_LATE_ARGUMENT(name, 5) f) { \
    CU_LATE_CALL(library, name)(a, b, c, d, e, f);                                              \
  }
#define CU_LATE_8(library, name)                                                              \
  CU_LATE_RESULT(name)                                                                        \
  name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b, CU_LATE_ARGUMENT(name, 2) c, \
       CU_LATE_ARGUMENT(name, 3) d, CU_LATE_ARGUMENT(name, 4) e, CU_LATE_ARGUMENT(name, 5) f, \
       CU_LATE_ARGUMENT(name, 6) g, CU_LATE_ARGUMENT(name, 7) h) {                            \
    CU_LATE_CALL(library, name)(a, b, c, d, e, f, g, h);                                      \
  }
#define CU_LATE_9(library, name)                                                                \
  CU_LATE_RESULT(name)                                                                          \
  name(CU_LATE_ARGUMENT(name, 0) a, CU_LATE_ARGUMENT(name, 1) b, CU_LATE_ARGUMENT(name, 2) c,   \
       CU_LATE_ARGUMENT(name, 3) d, CU_LATE_ARGUMENT(name, 4) e, CU_LATE_ARGUMENT(name, 5) f,   \
       CU_LATE_ARGUMENT(name, 6) g, CU_LATE_ARGUMENT(name, 7) h, CU_LATE_ARGUMENT(name, 8) i) { \
    CU_LATE_CALL(library, name)(a, b, c, d, e, f, g, h, i);                                     \
  }
// NOLINTEND(bugprone-macro-parentheses)
