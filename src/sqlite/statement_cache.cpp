#include "sqlite/statement_cache.h"

#include <algorithm>

namespace cu::sqlite {

PreparedStatement* StatementCache::find(std::string_view text, std::vector<Literal>& literals) {
  for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
    if (!(*entry)->shape.matches(text, literals)) continue;
    std::rotate(entries_.begin(), entry, entry + 1);
    return entries_.front()->statement.get();
  }
  return nullptr;
}

PreparedStatement* StatementCache::add(Shape shape, std::unique_ptr<PreparedStatement> statement) {
  if (entries_.size() == capacity_) entries_.pop_back();
  entries_.insert(entries_.begin(), std::make_unique<Entry>(Entry{std::move(shape), std::move(statement)}));
  return entries_.front()->statement.get();
}

}  // namespace cu::sqlite
