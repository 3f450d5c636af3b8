#include "framework/db/FilterLexer.h"

#include <array>
#include <utility>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/FormatSettings.h"

namespace quil {

namespace {

bool IsDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

bool IsNameStart(QChar c) { return c.isLetter() || c == QLatin1Char('_'); }

bool IsNamePart(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }

TFilterKeyword KeywordOf(const QString& name) {
  static const std::array<std::pair<QLatin1String, TFilterKeyword>, 9> keywords = {{
      {QLatin1String("AND"), TFilterKeyword::And},
      {QLatin1String("OR"), TFilterKeyword::Or},
      {QLatin1String("NOT"), TFilterKeyword::Not},
      {QLatin1String("LIKE"), TFilterKeyword::Like},
      {QLatin1String("IN"), TFilterKeyword::In},
      {QLatin1String("IS"), TFilterKeyword::Is},
      {QLatin1String("NULL"), TFilterKeyword::Null},
      {QLatin1String("TRUE"), TFilterKeyword::True},
      {QLatin1String("FALSE"), TFilterKeyword::False},
  }};
  for (const auto& [word, keyword] : keywords)
    if (name.compare(word, Qt::CaseInsensitive) == 0) return keyword;
  return TFilterKeyword::None;
}

}  // namespace

TFilterLexer::TFilterLexer(const QString& text) : text_(text) {}

QChar TFilterLexer::At(qsizetype index) const { return index < text_.size() ? text_[index] : QChar(); }

TFilterToken TFilterLexer::Make(TFilterTokenKind kind, qsizetype start, const QString& text) {
  TFilterToken token;
  token.kind = kind;
  token.position = int(start) + 1;
  token.text = text;
  return token;
}

TFilterToken TFilterLexer::Next(TLocaleDecimal localeDecimal) {
  while (pos_ < text_.size() && text_[pos_].isSpace()) ++pos_;
  const qsizetype start = pos_;
  const QChar c = At(start);
  if (start >= text_.size()) return Make(TFilterTokenKind::End, start, QString());
  if (IsNameStart(c)) return LexName(start);
  if (c == QLatin1Char('[')) return LexBracketName(start);
  if (c == QLatin1Char('\'')) return LexString(start);
  if (IsDigit(c) || (c == QLatin1Char('.') && IsDigit(At(start + 1)))) return LexNumber(start, localeDecimal);
  return LexSymbol(start);
}

TFilterToken TFilterLexer::LexName(qsizetype start) {
  while (pos_ < text_.size() && IsNamePart(text_[pos_])) ++pos_;
  TFilterToken token = Make(TFilterTokenKind::Name, start, text_.mid(start, pos_ - start));
  token.keyword = KeywordOf(token.text);
  return token;
}

TFilterToken TFilterLexer::LexBracketName(qsizetype start) {
  const qsizetype close = text_.indexOf(QLatin1Char(']'), start + 1);
  if (close < 0)
    DatabaseError(QStringLiteral("Missing ']' after the field name that starts at position %1").arg(start + 1));
  pos_ = close + 1;
  return Make(TFilterTokenKind::Name, start, text_.mid(start + 1, close - start - 1));
}

TFilterToken TFilterLexer::LexString(qsizetype start) {
  const QChar quote = QLatin1Char('\'');
  QString value;
  for (pos_ = start + 1; pos_ < text_.size(); ++pos_) {
    if (text_[pos_] != quote) {
      value += text_[pos_];
    } else if (At(pos_ + 1) == quote) {
      value += quote;
      ++pos_;
    } else {
      ++pos_;
      return Make(TFilterTokenKind::String, start, value);
    }
  }
  DatabaseError(QStringLiteral("Missing closing quote of the string that starts at position %1").arg(start + 1));
}

TFilterToken TFilterLexer::LexNumber(qsizetype start, TLocaleDecimal localeDecimal) {
  const QChar localeSeparator = FormatSettings.DecimalSeparator;
  QString digits;
  bool fraction = false;
  for (; pos_ < text_.size(); ++pos_) {
    const QChar c = text_[pos_];
    const bool separator = c == QLatin1Char('.') ||
                           (c == localeSeparator && localeDecimal == TLocaleDecimal::Accepted);
    if (IsDigit(c)) {
      digits += c;
    } else if (separator && !fraction && IsDigit(At(pos_ + 1))) {
      digits += QLatin1Char('.');
      fraction = true;
    } else {
      break;
    }
  }
  TFilterToken token = Make(TFilterTokenKind::Number, start, text_.mid(start, pos_ - start));
  bool integral = false;
  const qlonglong integer = fraction ? 0 : digits.toLongLong(&integral);
  token.number = integral ? Variant(integer) : Variant(digits.toDouble());
  return token;
}

TFilterToken TFilterLexer::LexSymbol(qsizetype start) {
  const QChar c = text_[start];
  const QChar following = At(start + 1);
  pos_ = start + 1;
  const auto compare = [&](TFilterCompareOp op, int length) {
    pos_ = start + length;
    TFilterToken token = Make(TFilterTokenKind::Compare, start, text_.mid(start, length));
    token.compareOp = op;
    return token;
  };
  switch (c.unicode()) {
    case '(': return Make(TFilterTokenKind::LeftParen, start, QStringLiteral("("));
    case ')': return Make(TFilterTokenKind::RightParen, start, QStringLiteral(")"));
    case ',': return Make(TFilterTokenKind::Comma, start, QStringLiteral(","));
    case '-': return Make(TFilterTokenKind::Minus, start, QStringLiteral("-"));
    case '=': return compare(TFilterCompareOp::Equal, 1);
    case '<':
      if (following == QLatin1Char('>')) return compare(TFilterCompareOp::NotEqual, 2);
      if (following == QLatin1Char('=')) return compare(TFilterCompareOp::LessEqual, 2);
      return compare(TFilterCompareOp::Less, 1);
    case '>':
      if (following == QLatin1Char('=')) return compare(TFilterCompareOp::GreaterEqual, 2);
      return compare(TFilterCompareOp::Greater, 1);
    default: break;
  }
  DatabaseError(QStringLiteral("Invalid character '%1' at position %2").arg(c).arg(start + 1));
}

}  // namespace quil
