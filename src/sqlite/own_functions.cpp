#include "sqlite/own_functions.h"

#include <new>
#include <string>

#include "base/collation.h"
#include "base/error.h"
#include "sqlite/amount.h"
#include "sqlite/errors.h"
#include "sqlite/handle.h"
#include "sqlite/letter_case.h"
#include "sqlite/object_name.h"

namespace cu::sqlite {
namespace {

bool isNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

void answer(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void failCall(sqlite3_context* context, const char* message) { sqlite3_result_error(context, message, -1); }

Decimal amountArgument(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) return amountOf(sqlite3_value_double(value));
  return Decimal::fromInteger(sqlite3_value_int64(value));
}

void answer(sqlite3_context* context, Decimal amount) {
  if (amount.scaled() % 10000 == 0) {
    sqlite3_result_int64(context, amount.scaled() / 10000);
  } else {
    sqlite3_result_double(context, amount.toDouble());
  }
}

int compare(void*, int lengthA, const void* a, int lengthB, const void* b) {
  return compareItalian({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

// No exception may propagate through the engine.
template <class Body>
void guarded(sqlite3_context* context, Body body) {
  try {
    body();
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    failCall(context, error.what());
  }
}

void upperFunction(sqlite3_context* context, int, sqlite3_value** args) {
  if (!isNull(args[0])) guarded(context, [&] { answer(context, upperCase(valueText(args[0]))); });
}

// A calculated amount at its four places.
void amountFunction(sqlite3_context* context, int, sqlite3_value** args) {
  if (sqlite3_value_type(args[0]) != SQLITE_FLOAT) {
    sqlite3_result_value(context, args[0]);
    return;
  }
  guarded(context, [&] { answer(context, amountOf(sqlite3_value_double(args[0]))); });
}

// What goes into a key that the engine would number by itself.
void requiredFunction(sqlite3_context* context, int, sqlite3_value** args) {
  if (!isNull(args[0])) {
    sqlite3_result_value(context, args[0]);
    return;
  }
  failCall(context, "NOT NULL constraint failed: chiave");
  sqlite3_result_error_code(context, SQLITE_CONSTRAINT_NOTNULL);
}

// "[dbo].[name]" -> "name"
void objectFunction(sqlite3_context* context, int, sqlite3_value** args) {
  if (isNull(args[0])) return;
  guarded(context, [&] { answer(context, objectOf(valueText(args[0]))); });
}

struct Sum {
  Decimal total;
  bool any = false;
};

void sumStep(sqlite3_context* context, int, sqlite3_value** args) {
  if (isNull(args[0])) return;
  auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
  if (sum == nullptr) {
    sqlite3_result_error_nomem(context);
    return;
  }
  guarded(context, [&] {
    sum->total = sum->total + amountArgument(args[0]);
    sum->any = true;
  });
}

void sumFinal(sqlite3_context* context) {
  const auto* sum = static_cast<const Sum*>(sqlite3_aggregate_context(context, 0));
  if (sum != nullptr && sum->any) answer(context, sum->total);
}

using ScalarFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

void install(sqlite3* database, const char* name, int arguments, ScalarFunction function, int more = 0) {
  const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | more;
  if (sqlite3_create_function_v2(database, name, arguments, flags, nullptr, function, nullptr, nullptr,
                                 nullptr) != SQLITE_OK) {
    raise(database, "");
  }
}

}  // namespace

void installFunctions(sqlite3* database) {
  if (sqlite3_create_collation_v2(database, "NOCASE", SQLITE_UTF8, nullptr, compare, nullptr) != SQLITE_OK) {
    raise(database, "");
  }
  install(database, "upper", 1, upperFunction, SQLITE_INNOCUOUS);
  install(database, "cu_amount", 1, amountFunction);
  install(database, "cu_required", 1, requiredFunction);
  install(database, "cu_object", 1, objectFunction);
  if (sqlite3_create_function_v2(database, "cu_sum", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, nullptr,
                                 sumStep, sumFinal, nullptr) != SQLITE_OK) {
    raise(database, "");
  }
}

}  // namespace cu::sqlite
