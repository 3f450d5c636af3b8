#pragma once
// TParser: the tokens of the text form of component streams. A token is a symbol
// (identifier), a string ('quoted' parts and #nnn or #$hh characters, joined), an
// integer (decimal, or hexadecimal after '$'), a float (with a fraction, an exponent,
// or one of the suffixes s, c, d for single, currency and date), or any other single
// character, which is the token itself.

#include <QString>
#include <cstdint>

namespace quil {

class TStream;

extern QString SParseError;         // %s: the message, %d: the line
extern QString SIdentifierExpected;
extern QString SStringExpected;
extern QString SNumberExpected;
extern QString SCharExpected;       // %s: the character
extern QString SSymbolExpected;     // %s: the symbol
extern QString SInvalidString;
extern QString SInvalidBinaryText;

inline constexpr char16_t toEOF = 0;
inline constexpr char16_t toSymbol = 1;
inline constexpr char16_t toString = 2;
inline constexpr char16_t toInteger = 3;
inline constexpr char16_t toFloat = 4;
inline constexpr char16_t toWString = 5;  // a string with a character beyond Latin-1

class TParser {
public:
  // Reads the rest of stream as UTF-8 text and moves to the first token.
  explicit TParser(TStream& stream);

  char16_t Token() const { return token_; }
  // The text of a symbol or number as written; the value of a string.
  QString TokenString() const;
  QString TokenWideString() const { return TokenString(); }
  int64_t TokenInt() const;
  double TokenFloat() const;
  // 's', 'c' or 'd' after a float, otherwise 0.
  char16_t FloatType() const { return floatType_; }
  bool TokenSymbolIs(const QString& symbol) const;
  // The symbol with any ".Name" parts that follow it: "Owner.Button1".
  QString TokenComponentIdent();
  // Raise EParserError unless the token is the one given.
  void CheckToken(char16_t token) const;
  void CheckTokenSymbol(const QString& symbol) const;
  char16_t NextToken();
  // The bytes of hexadecimal digit pairs up to '}', which becomes the token.
  void HexToBinary(TStream& stream);
  int SourceLine() const { return line_; }
  [[noreturn]] void Error(const QString& message) const;

private:
  void SkipBlanks();
  char16_t ScanString();
  char16_t ScanNumber();
  QChar At(qsizetype pos) const { return pos < text_.size() ? text_[pos] : QChar(); }

  QString text_;
  qsizetype pos_ = 0;         // the next character to scan
  qsizetype tokenStart_ = 0;  // the text of the token, for symbols and numbers
  int line_ = 1;
  char16_t token_ = toEOF;
  char16_t floatType_ = 0;
  QString stringValue_;       // the value of a string token
};

}  // namespace quil
