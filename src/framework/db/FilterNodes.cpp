#include "framework/db/FilterNodes.h"

namespace quil {

namespace {

bool IsAbsent(const Variant& value) { return VarIsNull(value) || VarIsEmpty(value); }

}  // namespace

Variant TFilterCaseOperand::Value(const TFilterValueSource& record) const {
  const Variant value = operand_->Value(record);
  if (IsAbsent(value)) return value;
  const QString text = VarToStr(value);
  return Variant(textCase_ == TFilterTextCase::Upper ? text.toUpper() : text.toLower());
}

bool TFilterJunctionNode::Test(const TFilterValueSource& record) const {
  const bool decisive = junction_ == TFilterJunction::Or;
  for (const TFilterNodePtr& term : terms_)
    if (term->Test(record) == decisive) return decisive;
  return !decisive;
}

bool TFilterCompareNode::Test(const TFilterValueSource& record) const {
  const std::optional<int> sign = CompareFilterValues(left_->Value(record), right_->Value(record), textCase_);
  return sign && ApplyCompareOp(op_, *sign);
}

bool TFilterLikeNode::Test(const TFilterValueSource& record) const {
  const Variant value = operand_->Value(record);
  if (IsAbsent(value)) return false;
  return pattern_.Matches(VarToStr(value));
}

bool TFilterInNode::Test(const TFilterValueSource& record) const {
  const Variant value = operand_->Value(record);
  for (const Variant& item : items_)
    if (CompareFilterValues(value, item, textCase_) == 0) return true;
  return false;
}

bool TFilterIsNullNode::Test(const TFilterValueSource& record) const { return IsAbsent(operand_->Value(record)); }

bool TFilterTruthNode::Test(const TFilterValueSource& record) const {
  const Variant value = operand_->Value(record);
  return !IsAbsent(value) && value.AsBoolean();
}

}  // namespace quil
