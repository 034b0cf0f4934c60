#include "base/text.h"
#include "sqlite/parser_state.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {

SelectPtr Parser::select() {
  const Nesting nesting(*this);
  SelectPtr first = selectCore();
  Select* last = first.get();
  int parts = 1;
  while (at("UNION") || at("EXCEPT") || at("INTERSECT")) {
    if (!accept("UNION")) refuse(peek().text);
    if (++parts > 100) throw SqlError(peek().position, "troppe UNION");
    last->compound = accept("ALL") ? Compound::UnionAll : Compound::Union;
    if (peek().is("(")) refuse("UNION con parentesi");
    last->next = selectCore();
    last = last->next.get();
  }
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
  for (const char* clause : {"OFFSET", "FETCH", "FOR", "OPTION", "LIMIT"}) {
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
  if (accept("GROUP")) {
    expect("BY");
    do {
      result->groupBy.push_back(expression());
    } while (accept(","));
    if (at("WITH")) refuse("GROUP BY ... WITH");
  }
  if (accept("HAVING")) result->having = expression();
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
  // alias = expression
  if (atName() && peek(1).is("=")) {
    if (peek().text.front() == '@') refuse("assegnazione a una variabile");
    item.alias = name();
    take();
    item.expr = expression();
    return item;
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
  while (accept(",")) {
    Source next = source();
    next.join = Source::Join::Comma;
    sources.push_back(std::move(next));
    joins(sources);
  }
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
    } else if (accept("RIGHT")) {
      join = Source::Join::Right;
    } else if (accept("FULL")) {
      join = Source::Join::Full;
    } else if (accept("CROSS")) {
      if (at("APPLY")) refuse("CROSS APPLY");
      join = Source::Join::Cross;
    } else if (at("OUTER")) {
      refuse("OUTER APPLY");
    } else {
      return;
    }
    if (join == Source::Join::Left || join == Source::Join::Right || join == Source::Join::Full)
      accept("OUTER");
    for (const char* hint : {"LOOP", "HASH", "MERGE", "REMOTE"}) {
      if (at(hint)) refuse("suggerimento " + std::string(hint) + " in una JOIN");
    }
    expect("JOIN");
    Source right = source();
    if (join != Source::Join::Cross) {
      // a JOIN b JOIN c ON ... ON ...: the inner pair is joined first.
      if (!at("ON")) {
        const Nesting nesting(*this);
        Source group;
        group.position = right.position;
        group.group.push_back(std::move(right));
        joins(group.group);
        right = std::move(group);
      }
      expect("ON");
      right.on = expression();
    }
    right.join = join;
    sources.push_back(std::move(right));
    // The ON of an enclosing join follows.
    if (at("ON")) return;
  }
}

Source Parser::source() {
  const Nesting nesting(*this);
  Source result;
  result.position = peek().position;
  if (accept("(")) {
    if (at("SELECT")) {
      result.select = select();
      expect(")");
      result.alias = optionalAlias();
      if (result.alias.empty()) throw SqlError(result.position, "una query fra parentesi vuole un nome");
      if (peek().is("(")) refuse("elenco di colonne di una query fra parentesi");
      return result;
    }
    result.group.push_back(source());
    joins(result.group);
    expect(")");
    return result;
  }
  result.table = objectName();
  if (peek().is("(")) refuse("suggerimento o funzione dopo un nome di tabella");
  result.alias = optionalAlias();
  if (at("WITH") || (!result.alias.empty() && peek().is("("))) refuse("suggerimento WITH (...)");
  return result;
}

}  // namespace cu::sqlite
