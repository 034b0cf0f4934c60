#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/error.h"
#include "data/database.h"
#include "support/table.h"

namespace cu::test {

// A connection that records every text and answers by rules. Of the matching rules the newest applies; a
// query without a rule is a failure of the test, a statement is only recorded.
class FakeConnection : public Connection {
 public:
  enum class Kind { Execute, Query };
  struct Sent {
    Kind kind;
    std::string text;
    bool insideRead;
  };
  using Answer = std::function<Table(std::string_view text)>;

  std::vector<Sent> sent;
  int reads = 0;      // read scopes begun
  int readDepth = 0;  // and still open

  void answer(std::string exactly, Table table) {
    rules_.push_back({std::move(exactly), true, fixed(std::move(table))});
  }
  void answerContaining(std::string piece, Table table) {
    rules_.push_back({std::move(piece), false, fixed(std::move(table))});
  }
  void answerContaining(std::string piece, Answer answer) {
    rules_.push_back({std::move(piece), false, std::move(answer)});
  }
  // Rejects any text, query or statement, that contains the piece.
  void refuseContaining(std::string piece, DatabaseErrorKind kind = DatabaseErrorKind::Other,
                        std::string message = "Il database ha rifiutato l'istruzione.") {
    rules_.push_back({std::move(piece), false, [kind, message](std::string_view) -> Table {
                        throw DatabaseError(kind, 0, "", message);
                      }});
  }

  // A statement that contains the piece affects that number of rows; for others the number is unknown.
  void touchContaining(std::string piece, std::int64_t rows) {
    touched_.emplace_back(std::move(piece), rows);
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> result;
    for (const Sent& each : sent) result.push_back(each.text);
    return result;
  }
  std::vector<std::string> texts(Kind kind) const {
    std::vector<std::string> result;
    for (const Sent& each : sent) {
      if (each.kind == kind) result.push_back(each.text);
    }
    return result;
  }

  std::int64_t Execute(std::string_view statement) override {
    sent.push_back({Kind::Execute, std::string(statement), readDepth > 0});
    if (const Rule* rule = fitting(statement)) rule->answer(statement);
    for (auto count = touched_.rbegin(); count != touched_.rend(); ++count) {
      if (statement.find(count->first) != std::string_view::npos) return count->second;
    }
    return -1;
  }
  void Query(std::string_view source, RowStore& rows) override {
    sent.push_back({Kind::Query, std::string(source), readDepth > 0});
    const Rule* rule = fitting(source);
    if (rule == nullptr) throw std::logic_error("no answer was given for: " + std::string(source));
    rule->answer(source).fill(rows);
  }
  void BeginRead() override {
    ++reads;
    ++readDepth;
  }
  void EndRead() noexcept override { --readDepth; }

 private:
  struct Rule {
    std::string text;
    bool exactly;
    Answer answer;
  };
  static Answer fixed(Table table) {
    auto shared = std::make_shared<const Table>(std::move(table));
    return [shared](std::string_view) { return *shared; };
  }
  const Rule* fitting(std::string_view text) const {
    for (auto rule = rules_.rbegin(); rule != rules_.rend(); ++rule) {
      const bool fits = rule->exactly ? text == rule->text : text.find(rule->text) != std::string_view::npos;
      if (fits) return &*rule;
    }
    return nullptr;
  }

  std::vector<Rule> rules_;
  std::vector<std::pair<std::string, std::int64_t>> touched_;
};

}  // namespace cu::test
