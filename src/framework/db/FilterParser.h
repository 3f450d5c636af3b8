#pragma once
// The recursive-descent parser of the filter language. Grammar, loosest first:
//
//   expression := conjunction { OR conjunction }
//   conjunction := negation { AND negation }
//   negation   := NOT negation | "(" expression ")" | operand condition
//   condition  := compare-op operand | [NOT] LIKE string | [NOT] IN "(" constant {"," constant} ")"
//               | IS [NOT] NULL | nothing (a Boolean operand alone)
//   operand    := name | "[" name "]" | string | ["-"] number | TRUE | FALSE | NULL
//               | UPPER "(" operand ")" | LOWER "(" operand ")"

#include "framework/db/FilterNodes.h"

namespace quil {

// Null for a blank text; raises EDatabaseError on anything it cannot read.
TFilterNodePtr ParseFilter(const QString& text, const TFilterFieldResolver& resolver, const TFilterSettings& settings);

}  // namespace quil
