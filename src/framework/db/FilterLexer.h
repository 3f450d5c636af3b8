#pragma once
// Cuts a filter text into tokens, one at a time as the parser asks, because only the
// parser knows whether a comma after digits may be a decimal comma (see Next).

#include <QString>

#include "framework/db/FilterValues.h"

namespace quil {

enum class TFilterTokenKind { End, Name, String, Number, Compare, LeftParen, RightParen, Comma, Minus };

enum class TFilterKeyword { None, And, Or, Not, Like, In, Is, Null, True, False };

struct TFilterToken {
  TFilterTokenKind kind = TFilterTokenKind::End;
  int position = 0;  // 1-based, of the token's first character
  // A name without its brackets, a string without quotes and with '' undone, or the
  // other tokens as written.
  QString text;
  TFilterKeyword keyword = TFilterKeyword::None;  // bare names only
  TFilterCompareOp compareOp = TFilterCompareOp::Equal;
  Variant number;
};

// Whether the locale's decimal separator may end the digits of a number.
enum class TLocaleDecimal { Accepted, Refused };

class TFilterLexer {
public:
  explicit TFilterLexer(const QString& text);

  // "." followed by a digit always continues a number; the locale's separator does so
  // too when followed by a digit, if `localeDecimal` accepts it.
  TFilterToken Next(TLocaleDecimal localeDecimal);

private:
  QChar At(qsizetype index) const;
  TFilterToken LexName(qsizetype start);
  TFilterToken LexBracketName(qsizetype start);
  TFilterToken LexString(qsizetype start);
  TFilterToken LexNumber(qsizetype start, TLocaleDecimal localeDecimal);
  TFilterToken LexSymbol(qsizetype start);
  TFilterToken Make(TFilterTokenKind kind, qsizetype start, const QString& text);

  QString text_;
  qsizetype pos_ = 0;  // 0-based index of the next character to read
};

}  // namespace quil
