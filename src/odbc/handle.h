#pragma once

#include <cstdint>
#include <utility>

#include "odbc/api.h"

namespace cu::odbc {

// One handle of the API: an environment, a connection or a statement.
template <SQLSMALLINT Kind>
class Handle {
 public:
  Handle() = default;
  // Empty when the parent cannot allocate it.
  explicit Handle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &handle_))) handle_ = nullptr;
  }
  ~Handle() { free(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) {
      free();
      handle_ = std::exchange(other.handle_, nullptr);
    }
    return *this;
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  void free() noexcept {
    if (handle_ == nullptr) return;
    if constexpr (Kind == SQL_HANDLE_DBC) SQLDisconnect(handle_);
    SQLFreeHandle(Kind, handle_);
    handle_ = nullptr;
  }
  SQLHANDLE handle_ = nullptr;
};

using Environment = Handle<SQL_HANDLE_ENV>;
using Session = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

// A numeric attribute, as the pointer that the API requires.
inline SQLPOINTER number(std::uintptr_t value) {
  return reinterpret_cast<SQLPOINTER>(value);  // NOLINT: the API's own way
}

}  // namespace cu::odbc
