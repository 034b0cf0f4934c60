#pragma once

#include "sqlite/rewrite.h"
#include "sqlite/writer.h"

namespace cu::sqlite {

// One function per kind of statement; each analyses the tree that it writes.
Rewritten rewriteSelect(Select& select, const std::vector<Literal>& literals, const Catalog& catalog,
                        Sorting sorting);
Rewritten rewriteInsert(InsertStatement& statement, const std::vector<Literal>& literals,
                        const Catalog& catalog);
Rewritten rewriteUpdate(UpdateStatement& statement, const std::vector<Literal>& literals,
                        const Catalog& catalog);
Rewritten rewriteDelete(DeleteStatement& statement, const std::vector<Literal>& literals,
                        const Catalog& catalog);
Rewritten rewriteMerge(MergeStatement& statement, const std::vector<Literal>& literals,
                       const Catalog& catalog);
Rewritten rewriteCreateTable(CreateTableStatement& statement, const std::vector<Literal>& literals,
                             const Catalog& catalog);
Rewritten rewriteCreateView(CreateViewStatement& statement, const std::vector<Literal>& literals,
                            const Catalog& catalog);
Rewritten rewriteCreateIndex(CreateIndexStatement& statement, const Catalog& catalog);
Rewritten rewriteDrop(const DropStatement& statement, const Catalog& catalog);

// "column = value, column = value"
void writeAssignments(Writer& writer, const std::vector<Assignment>& assignments);
Rewritten single(Piece piece);

}  // namespace cu::sqlite
