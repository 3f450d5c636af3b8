#include "framework/db/FilterNodes.h"

namespace quil {

namespace {

bool IsAbsent(const Variant& value) { return VarIsNull(value) || VarIsEmpty(value); }

int FieldOf(const TFilterOperand& operand) {
  const auto* field = dynamic_cast<const TFilterFieldOperand*>(&operand);
  return field ? field->FieldIndex() : -1;
}

const Variant* ConstantOf(const TFilterOperand& operand) {
  const auto* constant = dynamic_cast<const TFilterConstantOperand*>(&operand);
  return constant ? &constant->Constant() : nullptr;
}

template <typename T>
int Ordered(T field, T constant, bool fieldFirst) {
  const T& a = fieldFirst ? field : constant;
  const T& b = fieldFirst ? constant : field;
  return a < b ? -1 : (b < a ? 1 : 0);
}

}  // namespace

TFilterNativeConstant TFilterNativeConstant::Of(const Variant& value) {
  TFilterNativeConstant constant;
  switch (value.Type()) {
    case varSmallint: case varInteger: case varInt64:
      constant.kind = TKind::Integer;
      constant.integer = value.AsInt64();
      constant.real = value.AsDouble();
      break;
    case varDouble:
      constant.kind = TKind::Real;
      constant.real = value.AsDouble();
      break;
    case varString:
      constant.kind = TKind::Text;
      constant.text = value.AsString();
      break;
    default: break;
  }
  return constant;
}

// The cases of CompareFilterValues that a native value and a constant can meet: Null
// compares with nothing, two integers as integers, a real with a number as reals, and
// text with text.
bool CompareNative(const TFilterNativeValue& field, const TFilterNativeConstant& constant, bool fieldFirst,
                   TFilterCase textCase, std::optional<int>& sign) {
  using TKind = TFilterNativeValue::TKind;
  using TConstantKind = TFilterNativeConstant::TKind;
  switch (field.kind) {
    case TKind::Unknown: return false;
    case TKind::Null: sign.reset(); return true;
    case TKind::Integer:
      if (constant.kind == TConstantKind::Integer) sign = Ordered(field.integer, constant.integer, fieldFirst);
      else if (constant.kind == TConstantKind::Real) sign = Ordered(double(field.integer), constant.real, fieldFirst);
      else return false;
      return true;
    case TKind::Real:
      if (constant.kind != TConstantKind::Integer && constant.kind != TConstantKind::Real) return false;
      sign = Ordered(field.real, constant.real, fieldFirst);
      return true;
    case TKind::Text: {
      if (constant.kind != TConstantKind::Text) return false;
      const auto sensitivity = textCase == TFilterCase::Sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
      const int compared = fieldFirst ? QString::compare(*field.text, constant.text, sensitivity)
                                      : QString::compare(constant.text, *field.text, sensitivity);
      sign = compared < 0 ? -1 : (compared > 0 ? 1 : 0);
      return true;
    }
  }
  return false;
}

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

TFilterCompareNode::TFilterCompareNode(TFilterCompareOp op, TFilterOperandPtr left, TFilterOperandPtr right,
                                       TFilterCase textCase)
    : op_(op), left_(std::move(left)), right_(std::move(right)), textCase_(textCase) {
  const Variant* constant = ConstantOf(*right_);
  nativeField_ = FieldOf(*left_);
  if (nativeField_ < 0 || !constant) {
    constant = ConstantOf(*left_);
    nativeField_ = FieldOf(*right_);
    fieldFirst_ = false;
  }
  if (nativeField_ >= 0 && constant) constant_ = TFilterNativeConstant::Of(*constant);
  if (constant_.kind == TFilterNativeConstant::TKind::None) nativeField_ = -1;
}

bool TFilterCompareNode::Test(const TFilterValueSource& record) const {
  if (nativeField_ >= 0) {
    std::optional<int> sign;
    if (CompareNative(record.FieldNative(nativeField_), constant_, fieldFirst_, textCase_, sign))
      return sign && ApplyCompareOp(op_, *sign);
  }
  Variant leftScratch;
  Variant rightScratch;
  const std::optional<int> sign =
      CompareFilterValues(left_->Value(record, leftScratch), right_->Value(record, rightScratch), textCase_);
  return sign && ApplyCompareOp(op_, *sign);
}

TFilterLikeNode::TFilterLikeNode(TFilterOperandPtr operand, TLikePattern pattern)
    : operand_(std::move(operand)), pattern_(std::move(pattern)), nativeField_(FieldOf(*operand_)) {}

bool TFilterLikeNode::Test(const TFilterValueSource& record) const {
  if (nativeField_ >= 0) {
    const TFilterNativeValue value = record.FieldNative(nativeField_);
    if (value.kind == TFilterNativeValue::TKind::Null) return false;
    if (value.kind == TFilterNativeValue::TKind::Text) return pattern_.Matches(*value.text);
  }
  Variant scratch;
  const Variant& value = operand_->Value(record, scratch);
  if (IsAbsent(value)) return false;
  return pattern_.Matches(VarToStr(value));
}

TFilterInNode::TFilterInNode(TFilterOperandPtr operand, std::vector<Variant> items, TFilterCase textCase)
    : operand_(std::move(operand)), items_(std::move(items)), textCase_(textCase), nativeField_(FieldOf(*operand_)) {
  for (const Variant& item : items_) {
    nativeItems_.push_back(TFilterNativeConstant::Of(item));
    if (nativeItems_.back().kind == TFilterNativeConstant::TKind::None) nativeField_ = -1;
  }
}

bool TFilterInNode::Test(const TFilterValueSource& record) const {
  if (nativeField_ >= 0) {
    const TFilterNativeValue value = record.FieldNative(nativeField_);
    bool native = true;
    for (size_t item = 0; item < nativeItems_.size() && native; ++item) {
      std::optional<int> sign;
      native = CompareNative(value, nativeItems_[item], true, textCase_, sign);
      if (native && sign == 0) return true;
    }
    // An item that needs the general rules sends the whole test there, which finds the
    // same answer for the items before it.
    if (native) return false;
  }
  Variant scratch;
  const Variant& value = operand_->Value(record, scratch);
  for (const Variant& item : items_)
    if (CompareFilterValues(value, item, textCase_) == 0) return true;
  return false;
}

TFilterValueTestNode::TFilterValueTestNode(TFilterValueTest test, TFilterOperandPtr operand)
    : test_(test), operand_(std::move(operand)), nativeField_(FieldOf(*operand_)) {}

bool TFilterValueTestNode::Test(const TFilterValueSource& record) const {
  if (test_ == TFilterValueTest::IsNull && nativeField_ >= 0) {
    const TFilterNativeValue::TKind kind = record.FieldNative(nativeField_).kind;
    if (kind != TFilterNativeValue::TKind::Unknown) return kind == TFilterNativeValue::TKind::Null;
  }
  Variant scratch;
  const Variant& value = operand_->Value(record, scratch);
  if (test_ == TFilterValueTest::IsNull) return IsAbsent(value);
  return !IsAbsent(value) && value.AsBoolean();
}

}  // namespace quil
