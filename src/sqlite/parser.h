#pragma once

#include <vector>

#include "sqlite/ast.h"
#include "sqlite/tokenizer.h"

namespace cu::sqlite {

// The statements of a text, in order. SqlError names the construct that is not taken.
std::vector<StatementPtr> parseStatements(const TokenList& tokens);

// The SELECT of a view as the file keeps it ("CREATE VIEW name AS SELECT ..."), with the names of its columns
// where they are listed.
CreateViewStatement parseStoredView(const TokenList& tokens);

}  // namespace cu::sqlite
