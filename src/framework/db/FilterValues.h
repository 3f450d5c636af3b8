#pragma once
// Value rules of the filter language: how two values compare, and how a literal takes
// the kind of the field it is compared with. See FilterExpression.h for the rules.

#include <optional>

#include "framework/db/FilterExpression.h"

namespace quil {

enum class TFilterCompareOp { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };

// The sign of a - b, or no value when either is Null or Unassigned or the two cannot be
// brought to one kind (text that spells no number against a number, and the like).
std::optional<int> CompareFilterValues(const Variant& a, const Variant& b, TFilterCase textCase);

bool ApplyCompareOp(TFilterCompareOp op, int sign);

// Converts the literal to the field's kind; raises EDatabaseError naming the field and
// the literal's 1-based position when the text spells no value of that kind.
Variant ConvertLiteralForField(const Variant& literal, TFilterFieldKind kind, const QString& fieldName,
                               int position);

}  // namespace quil
