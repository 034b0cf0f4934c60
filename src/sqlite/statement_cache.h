#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/rowstore.h"
#include "sqlite/handle.h"
#include "sqlite/rewrite.h"
#include "sqlite/shape.h"

namespace cu::sqlite {

// A prepared statement that can be run with other values.
struct PreparedPiece {
  Piece::Role role = Piece::Role::Run;
  StatementHandle statement;
  std::vector<Parameter> parameters;
};

struct PreparedStatement {
  std::string kind;
  std::vector<PreparedPiece> pieces;
  bool query = false;
  bool definition = false;
  bool writes = false;
  std::vector<ValueKind> kinds;            // of the columns of a query
  std::shared_ptr<const Columns> columns;  // shared by all its results
  std::vector<OrderColumn> order;          // of its rows, which are sorted when they have been read
};

// The most recently used statements, by shape.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

  // Returns the statement for a text of a known shape, and the literals of the text; or null.
  PreparedStatement* find(std::string_view text, std::vector<Literal>& literals);
  PreparedStatement* add(Shape shape, std::unique_ptr<PreparedStatement> statement);
  void clear() { entries_.clear(); }
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    Shape shape;
    std::unique_ptr<PreparedStatement> statement;
  };
  std::size_t capacity_;
  std::vector<std::unique_ptr<Entry>> entries_;  // most recently used first
};

}  // namespace cu::sqlite
