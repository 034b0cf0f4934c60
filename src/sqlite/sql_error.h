#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace cu::sqlite {

// A text that cannot be taken: what is wrong, in Italian and without any value of the text, and where.
class SqlError : public std::runtime_error {
 public:
  SqlError(std::size_t position, const std::string& message)
      : std::runtime_error(message), position_(position) {}
  std::size_t position() const { return position_; }  // bytes from the head of the text

 private:
  std::size_t position_;
};

// A table or a view that is not there.
class UnknownTable : public SqlError {
 public:
  using SqlError::SqlError;
};

}  // namespace cu::sqlite
