#pragma once
// What a data set hands the filter engine: the kind of each field type and the
// settings its FilterOptions stand for. The engine itself knows no data set.

#include "framework/db/DataTypes.h"
#include "framework/db/FilterExpression.h"

namespace quil {

TFilterFieldKind FilterFieldKind(TFieldType type);

// Without foNoPartialCompare a trailing "*" makes "=" a prefix test, as data sets
// have always done; foCaseInsensitive makes every text test ignore case.
TFilterSettings FilterSettingsFor(TFilterOptions options);

}  // namespace quil
