#pragma once
// Translates a filter text (the language of FilterExpression.h, read by the same
// parser) into a WHERE condition that the database runs, with every constant bound as
// a parameter.
//
// The in-memory language is two-valued: a test on Null is false, and NOT is plain
// negation. SQL's third value only matters under NOT, so each NOT reads
// "NOT COALESCE((...), 1=0)"; elsewhere an unknown row is dropped as a false one would be.
// Text tests are case-sensitive unless foCaseInsensitive (then both sides go through
// LOWER); a case-sensitive LIKE on SQLite, whose LIKE ignores case, runs as GLOB.

#include <QString>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/db/SqlStatement.h"
#include "framework/db/SqlTypes.h"

namespace quil {

// An empty clause for a blank text; raises EDatabaseError for a text it cannot read or
// a field that is not among the columns.
TSQLClause TranslateFilter(const QString& text, const std::vector<TSQLColumn>& columns, TFilterOptions options,
                           TSQLDialect dialect);

}  // namespace quil
