#pragma once
// The compiled tree of a filter expression. Operands give values, nodes give truth;
// both read the record only through field indices fixed at compile time.

#include <memory>
#include <vector>

#include "framework/db/FilterExpression.h"
#include "framework/db/FilterValues.h"
#include "framework/db/LikePattern.h"

namespace quil {

class TFilterOperand {
public:
  virtual ~TFilterOperand() = default;
  // The value for the record: a constant by reference, anything else made in
  // `scratch`, so that testing a record copies no constant.
  virtual const Variant& Value(const TFilterValueSource& record, Variant& scratch) const = 0;
};

using TFilterOperandPtr = std::unique_ptr<const TFilterOperand>;

class TFilterFieldOperand final : public TFilterOperand {
public:
  explicit TFilterFieldOperand(int fieldIndex) : fieldIndex_(fieldIndex) {}
  const Variant& Value(const TFilterValueSource& record, Variant& scratch) const override {
    return scratch = record.FieldValue(fieldIndex_);
  }
  int FieldIndex() const { return fieldIndex_; }

private:
  int fieldIndex_;
};

class TFilterConstantOperand final : public TFilterOperand {
public:
  explicit TFilterConstantOperand(Variant value) : value_(std::move(value)) {}
  const Variant& Value(const TFilterValueSource&, Variant&) const override { return value_; }
  const Variant& Constant() const { return value_; }

private:
  Variant value_;
};

enum class TFilterTextCase { Upper, Lower };

// UPPER(...) and LOWER(...): the operand's text in one case; Null stays Null.
class TFilterCaseOperand final : public TFilterOperand {
public:
  TFilterCaseOperand(TFilterTextCase textCase, TFilterOperandPtr operand)
      : textCase_(textCase), operand_(std::move(operand)) {}
  const Variant& Value(const TFilterValueSource& record, Variant& scratch) const override;
  TFilterTextCase TextCase() const { return textCase_; }
  const TFilterOperand& Operand() const { return *operand_; }

private:
  TFilterTextCase textCase_;
  TFilterOperandPtr operand_;
};

// A constant in the form that a field's native value compares with (TFilterNativeValue),
// so that a test of a field against constants needs no Variant; None for the kinds
// that need the general rules.
struct TFilterNativeConstant {
  enum class TKind : uint8_t { None, Integer, Real, Text };
  TKind kind = TKind::None;
  int64_t integer = 0;
  double real = 0;  // an Integer's value too, for a Real field
  QString text;

  static TFilterNativeConstant Of(const Variant& value);
};

// The sign of field - constant (constant - field unless fieldFirst), as
// CompareFilterValues would give it; false when the value needs the general rules.
bool CompareNative(const TFilterNativeValue& field, const TFilterNativeConstant& constant, bool fieldFirst,
                   TFilterCase textCase, std::optional<int>& sign);

class TFilterNode {
public:
  virtual ~TFilterNode() = default;
  virtual bool Test(const TFilterValueSource& record) const = 0;
};

using TFilterNodePtr = std::unique_ptr<const TFilterNode>;

enum class TFilterJunction { And, Or };

// A chain of AND or of OR, tested left to right until the outcome is known.
class TFilterJunctionNode final : public TFilterNode {
public:
  TFilterJunctionNode(TFilterJunction junction, std::vector<TFilterNodePtr> terms)
      : junction_(junction), terms_(std::move(terms)) {}
  bool Test(const TFilterValueSource& record) const override;
  TFilterJunction Junction() const { return junction_; }
  const std::vector<TFilterNodePtr>& Terms() const { return terms_; }

private:
  TFilterJunction junction_;
  std::vector<TFilterNodePtr> terms_;
};

class TFilterNotNode final : public TFilterNode {
public:
  explicit TFilterNotNode(TFilterNodePtr term) : term_(std::move(term)) {}
  bool Test(const TFilterValueSource& record) const override { return !term_->Test(record); }
  const TFilterNode& Term() const { return *term_; }

private:
  TFilterNodePtr term_;
};

class TFilterCompareNode final : public TFilterNode {
public:
  TFilterCompareNode(TFilterCompareOp op, TFilterOperandPtr left, TFilterOperandPtr right, TFilterCase textCase);
  bool Test(const TFilterValueSource& record) const override;
  TFilterCompareOp Op() const { return op_; }
  const TFilterOperand& Left() const { return *left_; }
  const TFilterOperand& Right() const { return *right_; }
  TFilterCase TextCase() const { return textCase_; }

private:
  TFilterCompareOp op_;
  TFilterOperandPtr left_;
  TFilterOperandPtr right_;
  TFilterCase textCase_;
  // A field against a constant: the field's index (-1 otherwise), its side, and the
  // constant in native form.
  int nativeField_ = -1;
  bool fieldFirst_ = true;
  TFilterNativeConstant constant_;
};

class TFilterLikeNode final : public TFilterNode {
public:
  TFilterLikeNode(TFilterOperandPtr operand, TLikePattern pattern);
  bool Test(const TFilterValueSource& record) const override;
  const TFilterOperand& Operand() const { return *operand_; }
  const TLikePattern& Pattern() const { return pattern_; }

private:
  TFilterOperandPtr operand_;
  TLikePattern pattern_;
  int nativeField_ = -1;  // the operand's field, -1 when it is none
};

class TFilterInNode final : public TFilterNode {
public:
  TFilterInNode(TFilterOperandPtr operand, std::vector<Variant> items, TFilterCase textCase);
  bool Test(const TFilterValueSource& record) const override;
  const TFilterOperand& Operand() const { return *operand_; }
  const std::vector<Variant>& Items() const { return items_; }
  TFilterCase TextCase() const { return textCase_; }

private:
  TFilterOperandPtr operand_;
  std::vector<Variant> items_;
  TFilterCase textCase_;
  int nativeField_ = -1;  // the operand's field, -1 when it is none
  std::vector<TFilterNativeConstant> nativeItems_;
};

enum class TFilterValueTest { IsNull, IsTrue };

// IS NULL, or a Boolean field or constant standing as a condition of its own (Null is
// not true).
class TFilterValueTestNode final : public TFilterNode {
public:
  TFilterValueTestNode(TFilterValueTest test, TFilterOperandPtr operand);
  bool Test(const TFilterValueSource& record) const override;
  TFilterValueTest ValueTest() const { return test_; }
  const TFilterOperand& Operand() const { return *operand_; }

private:
  TFilterValueTest test_;
  TFilterOperandPtr operand_;
  int nativeField_ = -1;  // the operand's field, -1 when it is none
};

}  // namespace quil
