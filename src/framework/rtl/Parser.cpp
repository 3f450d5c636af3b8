#include "framework/rtl/Parser.h"

#include <charconv>
#include <vector>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

QString SParseError = QStringLiteral("%s on line %d");
QString SIdentifierExpected = QStringLiteral("Identifier expected");
QString SStringExpected = QStringLiteral("String expected");
QString SNumberExpected = QStringLiteral("Number expected");
QString SCharExpected = QStringLiteral("'%s' expected");
QString SSymbolExpected = QStringLiteral("%s expected");
QString SInvalidString = QStringLiteral("Invalid string constant");
QString SInvalidBinaryText = QStringLiteral("Invalid binary value");

namespace {

bool IsIdentStart(QChar ch) {
  return ch == QLatin1Char('_') || (ch.unicode() < 128 && ch.isLetter());
}

bool IsIdentChar(QChar ch) { return IsIdentStart(ch) || (ch.unicode() < 128 && ch.isDigit()); }

bool IsDigit(QChar ch) { return ch >= QLatin1Char('0') && ch <= QLatin1Char('9'); }

int HexValue(QChar ch) {
  const char16_t code = ch.unicode();
  if (code >= u'0' && code <= u'9') return code - u'0';
  if (code >= u'a' && code <= u'f') return code - u'a' + 10;
  if (code >= u'A' && code <= u'F') return code - u'A' + 10;
  return -1;
}

}  // namespace

TParser::TParser(TStream& stream) {
  std::vector<char> bytes(size_t(std::max<int64_t>(0, stream.Size() - stream.Position())));
  stream.ReadBuffer(bytes.data(), int64_t(bytes.size()));
  text_ = QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
  if (text_.startsWith(QChar(0xFEFF))) text_.remove(0, 1);
  NextToken();
}

void TParser::Error(const QString& message) const {
  throw EParserError(Format(SParseError, {message, line_}));
}

QString TParser::TokenString() const {
  if (token_ == toString || token_ == toWString) return stringValue_;
  return text_.mid(tokenStart_, pos_ - tokenStart_);
}

int64_t TParser::TokenInt() const {
  QString digits = TokenString();
  int base = 10;
  if (digits.startsWith(QLatin1Char('$'))) {
    digits.remove(0, 1);
    base = 16;
  }
  bool ok = false;
  const int64_t value = digits.toLongLong(&ok, base);
  if (!ok) Error(Format(SInvalidInteger, {TokenString()}));
  return value;
}

double TParser::TokenFloat() const {
  QString digits = TokenString();
  if (floatType_ != 0) digits.chop(1);
  const QByteArray latin = digits.toLatin1();
  double value = 0;
  const auto [end, error] = std::from_chars(latin.constData(), latin.constData() + latin.size(), value);
  if (error != std::errc() || end != latin.constData() + latin.size())
    Error(Format(SInvalidFloat, {TokenString()}));
  return value;
}

bool TParser::TokenSymbolIs(const QString& symbol) const {
  return token_ == toSymbol && TokenString().compare(symbol, Qt::CaseInsensitive) == 0;
}

QString TParser::TokenComponentIdent() {
  CheckToken(toSymbol);
  while (At(pos_) == QLatin1Char('.')) {
    if (!IsIdentStart(At(pos_ + 1))) Error(SIdentifierExpected);
    pos_ += 2;
    while (IsIdentChar(At(pos_))) ++pos_;
  }
  return TokenString();
}

void TParser::CheckToken(char16_t token) const {
  if (token_ == token) return;
  switch (token) {
    case toSymbol: Error(SIdentifierExpected);
    case toString:
    case toWString: Error(SStringExpected);
    case toInteger:
    case toFloat: Error(SNumberExpected);
    default: Error(Format(SCharExpected, {QString(QChar(token))}));
  }
}

void TParser::CheckTokenSymbol(const QString& symbol) const {
  if (!TokenSymbolIs(symbol)) Error(Format(SSymbolExpected, {symbol}));
}

void TParser::SkipBlanks() {
  while (pos_ < text_.size() && text_[pos_].unicode() <= u' ') {
    if (text_[pos_] == QLatin1Char('\n')) ++line_;
    ++pos_;
  }
}

char16_t TParser::NextToken() {
  SkipBlanks();
  tokenStart_ = pos_;
  floatType_ = 0;
  const QChar ch = At(pos_);
  if (pos_ >= text_.size()) {
    token_ = toEOF;
  } else if (IsIdentStart(ch)) {
    while (IsIdentChar(At(pos_))) ++pos_;
    token_ = toSymbol;
  } else if (ch == QLatin1Char('\'') || ch == QLatin1Char('#')) {
    token_ = ScanString();
  } else if (ch == QLatin1Char('$')) {
    ++pos_;
    while (HexValue(At(pos_)) >= 0) ++pos_;
    token_ = toInteger;
  } else if (ch == QLatin1Char('-') || IsDigit(ch)) {
    token_ = ScanNumber();
  } else {
    ++pos_;
    token_ = ch.unicode();
  }
  return token_;
}

char16_t TParser::ScanString() {
  stringValue_.clear();
  bool wide = false;
  for (;;) {
    if (At(pos_) == QLatin1Char('#')) {
      ++pos_;
      const qsizetype start = pos_;
      const bool hex = At(pos_) == QLatin1Char('$');
      if (hex) ++pos_;
      while (hex ? HexValue(At(pos_)) >= 0 : IsDigit(At(pos_))) ++pos_;
      bool ok = false;
      const uint code = text_.mid(start + (hex ? 1 : 0), pos_ - start - (hex ? 1 : 0)).toUInt(&ok, hex ? 16 : 10);
      if (!ok || code > 0xFFFF) Error(SInvalidString);
      wide = wide || code > 0xFF;
      stringValue_ += QChar(char16_t(code));
    } else if (At(pos_) == QLatin1Char('\'')) {
      for (++pos_;; ++pos_) {
        const QChar next = At(pos_);
        if (pos_ >= text_.size() || next == QLatin1Char('\n') || next == QLatin1Char('\r'))
          Error(SInvalidString);
        if (next == QLatin1Char('\'')) {
          if (At(pos_ + 1) != QLatin1Char('\'')) break;
          ++pos_;
        }
        wide = wide || next.unicode() > 0xFF;
        stringValue_ += next;
      }
      ++pos_;
    } else {
      return wide ? toWString : toString;
    }
  }
}

char16_t TParser::ScanNumber() {
  char16_t token = toInteger;
  ++pos_;
  while (IsDigit(At(pos_))) ++pos_;
  for (QChar ch = At(pos_); IsDigit(ch) || QStringLiteral(".eE+-").contains(ch); ch = At(pos_)) {
    ++pos_;
    token = toFloat;
  }
  const QChar suffix = At(pos_).toLower();
  if (suffix == QLatin1Char('s') || suffix == QLatin1Char('c') || suffix == QLatin1Char('d')) {
    floatType_ = suffix.unicode();
    ++pos_;
    token = toFloat;
  }
  return token;
}

void TParser::HexToBinary(TStream& stream) {
  SkipBlanks();
  while (At(pos_) != QLatin1Char('}')) {
    const int high = HexValue(At(pos_));
    const int low = HexValue(At(pos_ + 1));
    if (high < 0 || low < 0) Error(SInvalidBinaryText);
    const uint8_t byte = uint8_t(high * 16 + low);
    stream.WriteBuffer(&byte, 1);
    pos_ += 2;
    SkipBlanks();
  }
  NextToken();
}

}  // namespace quil
