#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace cu::sqlite {

// A text that cannot be adapted: the reason, in Italian and without any value of the text, and the position.
class SqlError : public std::runtime_error {
 public:
  SqlError(std::size_t position, const std::string& message)
      : std::runtime_error(message), position_(position) {}
  std::size_t position() const { return position_; }  // byte offset in the text

 private:
  std::size_t position_;
};

// A missing table or view.
class UnknownTable : public SqlError {
 public:
  using SqlError::SqlError;
};

}  // namespace cu::sqlite
