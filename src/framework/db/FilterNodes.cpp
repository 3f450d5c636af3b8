#include "framework/db/FilterNodes.h"

namespace quil {

namespace {

bool IsAbsent(const Variant& value) { return VarIsNull(value) || VarIsEmpty(value); }

}  // namespace

const Variant& TFilterCaseOperand::Value(const TFilterValueSource& record, Variant& scratch) const {
  const Variant& value = operand_->Value(record, scratch);
  if (IsAbsent(value)) return value;
  const QString text = VarToStr(value);
  return scratch = Variant(textCase_ == TFilterTextCase::Upper ? text.toUpper() : text.toLower());
}

bool TFilterJunctionNode::Test(const TFilterValueSource& record) const {
  const bool decisive = junction_ == TFilterJunction::Or;
  for (const TFilterNodePtr& term : terms_)
    if (term->Test(record) == decisive) return decisive;
  return !decisive;
}

bool TFilterCompareNode::Test(const TFilterValueSource& record) const {
  Variant leftScratch;
  Variant rightScratch;
  const std::optional<int> sign =
      CompareFilterValues(left_->Value(record, leftScratch), right_->Value(record, rightScratch), textCase_);
  return sign && ApplyCompareOp(op_, *sign);
}

bool TFilterLikeNode::Test(const TFilterValueSource& record) const {
  Variant scratch;
  const Variant& value = operand_->Value(record, scratch);
  if (IsAbsent(value)) return false;
  return pattern_.Matches(VarToStr(value));
}

bool TFilterInNode::Test(const TFilterValueSource& record) const {
  Variant scratch;
  const Variant& value = operand_->Value(record, scratch);
  for (const Variant& item : items_)
    if (CompareFilterValues(value, item, textCase_) == 0) return true;
  return false;
}

bool TFilterValueTestNode::Test(const TFilterValueSource& record) const {
  Variant scratch;
  const Variant& value = operand_->Value(record, scratch);
  if (test_ == TFilterValueTest::IsNull) return IsAbsent(value);
  return !IsAbsent(value) && value.AsBoolean();
}

}  // namespace quil
