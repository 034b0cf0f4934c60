#include "base/text.h"
#include "sqlite/parser_state.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {

SelectPtr Parser::select() {
  const Nesting nesting(*this);
  SelectPtr first = selectCore();
  if (accept("ORDER")) {
    expect("BY");
    do {
      OrderTerm term;
      term.expr = expression();
      if (accept("DESC")) {
        term.descending = true;
      } else {
        accept("ASC");
      }
      first->orderBy.push_back(std::move(term));
    } while (accept(","));
  }
  for (const char* clause : {"UNION", "EXCEPT", "INTERSECT", "OFFSET", "FETCH", "FOR", "OPTION", "LIMIT"}) {
    if (at(clause)) refuse(clause);
  }
  return first;
}

SelectPtr Parser::selectCore() {
  auto result = std::make_unique<Select>();
  result->position = peek().position;
  expect("SELECT");
  if (accept("DISTINCT")) {
    result->distinct = true;
  } else {
    accept("ALL");
  }
  if (at("TOP")) refuse("TOP");
  do {
    result->items.push_back(selectItem());
  } while (accept(","));
  if (at("INTO")) refuse("SELECT ... INTO");
  if (accept("FROM")) result->from = from();
  if (accept("WHERE")) result->where = expression();
  if (at("GROUP")) refuse("GROUP BY");
  if (at("HAVING")) refuse("HAVING");
  return result;
}

SelectItem Parser::selectItem() {
  SelectItem item;
  item.position = peek().position;
  if (accept("*")) {
    item.star = true;
    return item;
  }
  // table.* and dbo.table.*
  std::size_t ahead = 0;
  while (peek(ahead).isName() && peek(ahead + 1).is(".")) {
    ahead += 2;
    if (!peek(ahead).is("*")) continue;
    item.star = true;
    item.qualifier = peek(ahead - 2).name();
    at_ += ahead + 1;
    return item;
  }
  if (atName() && peek(1).is("=")) {
    refuse(peek().text.front() == '@' ? "assegnazione a una variabile" : "nome davanti all'espressione");
  }
  item.expr = expression();
  item.alias = optionalAlias();
  return item;
}

std::string Parser::optionalAlias() {
  if (accept("AS")) return name();
  return atName() ? name() : std::string();
}

std::vector<Source> Parser::from() {
  std::vector<Source> sources;
  sources.push_back(source());
  joins(sources);
  if (peek().is(",")) refuse("tabelle separate da virgole");
  for (const char* clause : {"PIVOT", "UNPIVOT"}) {
    if (at(clause)) refuse(clause);
  }
  return sources;
}

void Parser::joins(std::vector<Source>& sources) {
  for (;;) {
    Source::Join join = Source::Join::Inner;
    if (accept("INNER") || at("JOIN")) {
      join = Source::Join::Inner;
    } else if (accept("LEFT")) {
      join = Source::Join::Left;
      accept("OUTER");
    } else {
      for (const char* word : {"RIGHT", "FULL", "CROSS", "OUTER"}) {
        if (at(word)) refuse(word + (" " + upperAscii(peek(1).text)));
      }
      return;
    }
    for (const char* hint : {"LOOP", "HASH", "MERGE", "REMOTE"}) {
      if (at(hint)) refuse("suggerimento " + std::string(hint) + " in una JOIN");
    }
    expect("JOIN");
    Source right = source();
    expect("ON");
    right.on = expression();
    right.join = join;
    sources.push_back(std::move(right));
  }
}

Source Parser::source() {
  const Nesting nesting(*this);
  Source result;
  result.position = peek().position;
  if (accept("(")) {
    if (!at("SELECT")) refuse("JOIN fra parentesi");
    result.select = select();
    expect(")");
    result.alias = optionalAlias();
    if (result.alias.empty()) throw SqlError(result.position, "una query fra parentesi vuole un nome");
    if (peek().is("(")) refuse("elenco di colonne di una query fra parentesi");
    return result;
  }
  result.table = objectName();
  if (peek().is("(")) refuse("suggerimento o funzione dopo un nome di tabella");
  result.alias = optionalAlias();
  // The lock of the whole table until the end of the transaction is the one that every writing transaction
  // has.
  if (at("WITH") && peek(1).is("(") && at("TABLOCKX", 2) && peek(3).is(",") && at("HOLDLOCK", 4) &&
      peek(5).is(")")) {
    at_ += 6;
  }
  if (at("WITH") || (!result.alias.empty() && peek().is("("))) refuse("suggerimento WITH (...)");
  return result;
}

}  // namespace cu::sqlite
