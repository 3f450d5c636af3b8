#pragma once
// The in-memory data set's filter language, compiled once and tested per record.
//
//   Compile(text, resolver) -> lexer -> recursive-descent parser -> node tree
//   Matches(record)         -> the tree reads fields by pre-resolved index
//
// The language: comparisons = <> < > <= >=, LIKE and NOT LIKE with "%" (any text) and
// "_" (one character) and no escape character, IN (...) and NOT IN (...), IS NULL and
// IS NOT NULL (also written "= NULL" and "<> NULL"), AND over OR, NOT, brackets,
// UPPER(...) and LOWER(...), and a Boolean field or True/False standing alone.
// Operands: field names bare or in square brackets ("[Unit Price]"), strings in single
// quotes with '' for a quote, numbers with "." or the locale's decimal separator (in a
// list a comma is the item separator unless it stands between digits and the field is
// a real, so "1,5, 2,5" is two items under a comma locale), True, False and Null.
// Keywords are case-insensitive.
//
// Semantics. Two-valued: a comparison, LIKE or IN with Null on either side is false,
// and NOT is plain negation, so "NOT City LIKE 'a%'" keeps the rows without a City
// while "City <> 'a'" drops them. A literal compared with a field takes the field's
// kind when the expression is compiled: text becomes a date by the locale's short
// formats, a number, or a Boolean, and raises EDatabaseError when it cannot. Text
// compares code unit by code unit (case-sensitive) unless the settings say otherwise;
// numbers and dates compare by value; False is less than True, and a number against a
// Boolean counts as True when it is not zero.
//
// Every failure raises EDatabaseError naming the 1-based position in the text.

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "framework/rtl/Variants.h"

namespace quil {

class TFilterNode;

// The kind of a field's values, as far as the filter converts literals for it.
enum class TFilterFieldKind { Text, Integer, Real, Boolean, Date, Time, DateTime, Other };

struct TFilterField {
  int index = -1;  // the caller's own field index, handed back to FieldValue
  TFilterFieldKind kind = TFilterFieldKind::Other;
};

// Finds a field by name while compiling; no value means there is no such field.
using TFilterFieldResolver = std::function<std::optional<TFilterField>(const QString& fieldName)>;

// A field's value as a source keeps it, for a test that can do without a Variant. It
// stands for what FieldValue would give: Integer for an integral Variant, Real for a
// varDouble, Text for a varString. Unknown sends the test to FieldValue.
struct TFilterNativeValue {
  enum class TKind : uint8_t { Unknown, Null, Integer, Real, Text };
  TKind kind = TKind::Unknown;
  union {
    int64_t integer = 0;
    double real;
    const QString* text;  // valid until the source changes
  };
};

// The record under test.
class TFilterValueSource {
public:
  virtual ~TFilterValueSource() = default;
  virtual Variant FieldValue(int fieldIndex) const = 0;
  // A source that keeps values in a native form answers here, saving a filter over many
  // records a Variant per field it reads.
  virtual TFilterNativeValue FieldNative(int fieldIndex) const { return {}; }
};

enum class TFilterCase { Sensitive, Insensitive };
// TrailingAsterisk makes "Name = 'Sm*'" a prefix test and "<>" its negation.
enum class TFilterPartialCompare { Off, TrailingAsterisk };

struct TFilterSettings {
  TFilterCase textCase = TFilterCase::Sensitive;
  TFilterPartialCompare partialCompare = TFilterPartialCompare::Off;
};

class TFilterExpression {
public:
  // The empty expression: every record matches.
  TFilterExpression();
  TFilterExpression(TFilterExpression&&) noexcept;
  TFilterExpression& operator=(TFilterExpression&&) noexcept;
  ~TFilterExpression();

  // A blank text gives the empty expression.
  static TFilterExpression Compile(const QString& text, const TFilterFieldResolver& resolver,
                                   const TFilterSettings& settings = {});

  bool IsEmpty() const { return !root_; }
  bool Matches(const TFilterValueSource& record) const;

private:
  explicit TFilterExpression(std::unique_ptr<const TFilterNode> root);

  std::unique_ptr<const TFilterNode> root_;
};

}  // namespace quil
