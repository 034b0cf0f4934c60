#pragma once

#include <vector>

#include "sqlite/ast.h"
#include "sqlite/tokenizer.h"

namespace cu::sqlite {

// Parses the statements of a text, in order. SqlError names the unsupported construct.
std::vector<StatementPtr> parseStatements(const TokenList& tokens);

// Parses the SELECT of a view as stored in the file ("CREATE VIEW name AS SELECT ..."), with its column names
// where they are listed.
CreateViewStatement parseStoredView(const TokenList& tokens);

}  // namespace cu::sqlite
