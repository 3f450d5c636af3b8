#include "framework/rtl/ObjectText.h"

#include <QStringList>
#include <charconv>
#include <cmath>
#include <string_view>

#include "framework/rtl/Filer.h"
#include "framework/rtl/Parser.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

namespace {

constexpr int kLineLength = 64;    // characters of a string on one line
constexpr int kBytesPerLine = 32;  // bytes of binary data on one line
constexpr int kFixedDecimals = 18;
constexpr int kMaxNesting = 512;

// The fewest significant digits that read back as the same double, fixed with 18
// decimals when those hold every digit, else in exponent form.
QString ExtendedText(double value) {
  // Infinities and NaNs have no number form; they read back as identifiers.
  if (!std::isfinite(value)) return QString::number(value).toUpper();
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::scientific);
  const std::string_view scientific(buffer, size_t(result.ptr - buffer));
  const bool negative = scientific.front() == '-';
  const size_t exponentAt = scientific.find('e');
  std::string digits(scientific.substr(negative ? 1 : 0, exponentAt - (negative ? 1 : 0)));
  std::erase(digits, '.');
  const int exponent = std::stoi(std::string(scientific.substr(exponentAt + 1)));
  const int lastDigit = exponent - int(digits.size() - 1);  // power of ten of the last digit
  const QString sign = negative ? QStringLiteral("-") : QString();
  if (exponent <= 15 && lastDigit >= -kFixedDecimals) {
    // Place the point among the digits, padding with zeros on either side.
    int pointAt = exponent + 1;  // digits before the point
    if (pointAt <= 0) {
      digits.insert(0, size_t(1 - pointAt), '0');
      pointAt = 1;
    }
    digits.resize(size_t(pointAt + kFixedDecimals), '0');
    return sign + QString::fromStdString(digits.substr(0, size_t(pointAt)) + "." +
                                         digits.substr(size_t(pointAt)));
  }
  QString mantissa = QString(QLatin1Char(digits[0]));
  if (digits.size() > 1) mantissa += QLatin1Char('.') + QString::fromStdString(digits.substr(1));
  return sign + mantissa + QLatin1Char('E') + QString::number(exponent);
}

template <typename T>
QString ShortestText(T value) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
  return QString::fromLatin1(buffer, result.ptr - buffer);
}

bool IsPlain(QChar ch) { return ch.unicode() >= u' ' && ch != QLatin1Char('\'') && ch.unicode() <= 127; }

class TBinaryToText {
public:
  explicit TBinaryToText(TStream& input) : reader_(input) {}

  QString Convert() {
    reader_.ReadSignature();
    ConvertObject();
    return out_;
  }

private:
  void WriteIndent() { out_ += QString(2 * nesting_, QLatin1Char(' ')); }
  void NewLine() {
    out_ += sLineBreak;
    WriteIndent();
  }

  void ConvertObject() {
    ConvertHeader();
    ++nesting_;
    while (!reader_.EndOfList()) ConvertProperty();
    reader_.ReadListEnd();
    while (!reader_.EndOfList()) ConvertObject();
    reader_.ReadListEnd();
    --nesting_;
    WriteIndent();
    out_ += QStringLiteral("end") + sLineBreak;
  }

  void ConvertHeader() {
    int childPos = 0;
    const TFilerFlags flags = reader_.ReadPrefix(childPos);
    const QString className = reader_.ReadStr();
    const QString objectName = reader_.ReadStr();
    WriteIndent();
    if (flags.Contains(ffInherited)) out_ += QStringLiteral("inherited ");
    else if (flags.Contains(ffInline)) out_ += QStringLiteral("inline ");
    else out_ += QStringLiteral("object ");
    if (!objectName.isEmpty()) out_ += objectName + QStringLiteral(": ");
    out_ += className;
    if (flags.Contains(ffChildPos)) out_ += QStringLiteral(" [%1]").arg(childPos);
    out_ += sLineBreak;
  }

  void ConvertProperty() {
    WriteIndent();
    out_ += reader_.ReadStr() + QStringLiteral(" = ");
    ConvertValue();
    out_ += sLineBreak;
  }

  void ConvertValue() {
    if (++depth_ > kMaxNesting) throw EReadError(SReadError);
    switch (reader_.NextValue()) {
      case vaList: ConvertList(); break;
      case vaInt8: case vaInt16: case vaInt32: out_ += QString::number(reader_.ReadInteger()); break;
      case vaInt64: out_ += QString::number(reader_.ReadInt64()); break;
      case vaExtended: case vaDouble: out_ += ExtendedText(reader_.ReadFloat()); break;
      case vaSingle: out_ += ShortestText(reader_.ReadSingle()) + QLatin1Char('s'); break;
      case vaCurrency: out_ += QString::number(reader_.ReadCurrency().scaled) + QLatin1Char('c'); break;
      case vaDate: out_ += ShortestText(reader_.ReadDate()) + QLatin1Char('d'); break;
      case vaString: case vaLString: case vaWString: case vaUTF8String:
        ConvertString(reader_.ReadString());
        break;
      case vaIdent: case vaFalse: case vaTrue: case vaNil: case vaNull: out_ += reader_.ReadIdent(); break;
      case vaBinary: ConvertBinary(); break;
      case vaSet: ConvertSet(); break;
      case vaCollection: ConvertCollection(); break;
    }
    --depth_;
  }

  void ConvertList() {
    reader_.ReadValue();
    out_ += QLatin1Char('(');
    ++nesting_;
    while (!reader_.EndOfList()) {
      NewLine();
      ConvertValue();
    }
    reader_.ReadListEnd();
    --nesting_;
    out_ += QLatin1Char(')');
  }

  void ConvertSet() {
    reader_.ReadValue();
    QStringList members;
    for (QString name = reader_.ReadStr(); !name.isEmpty(); name = reader_.ReadStr()) members << name;
    out_ += QLatin1Char('[') + members.join(QStringLiteral(", ")) + QLatin1Char(']');
  }

  void ConvertCollection() {
    reader_.ReadValue();
    out_ += QLatin1Char('<');
    ++nesting_;
    while (!reader_.EndOfList()) {
      NewLine();
      out_ += QStringLiteral("item");
      const TValueType next = reader_.NextValue();
      if (next == vaInt8 || next == vaInt16 || next == vaInt32) {
        out_ += QStringLiteral(" [");
        ConvertValue();
        out_ += QLatin1Char(']');
      }
      out_ += sLineBreak;
      reader_.CheckValue(vaList);
      ++nesting_;
      while (!reader_.EndOfList()) ConvertProperty();
      reader_.ReadListEnd();
      --nesting_;
      WriteIndent();
      out_ += QStringLiteral("end");
    }
    reader_.ReadListEnd();
    --nesting_;
    out_ += QLatin1Char('>');
  }

  void ConvertBinary() {
    reader_.ReadValue();
    uint8_t countBytes[4];
    reader_.Read(countBytes, 4);
    int64_t count = int32_t(countBytes[0] | countBytes[1] << 8 | countBytes[2] << 16 | uint32_t(countBytes[3]) << 24);
    if (count < 0) throw EReadError(SReadError);
    const bool multiLine = count >= kBytesPerLine;
    out_ += QLatin1Char('{');
    ++nesting_;
    for (uint8_t chunk[kBytesPerLine]; count > 0;) {
      if (multiLine) NewLine();
      const int size = int(std::min<int64_t>(count, kBytesPerLine));
      reader_.Read(chunk, size);
      out_ += QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(chunk), size).toHex().toUpper());
      count -= size;
    }
    --nesting_;
    out_ += QLatin1Char('}');
  }

  // Runs of plain characters quoted, others as #n; past 64 characters " +" and a new line.
  void ConvertString(const QString& text) {
    const qsizetype length = text.size();
    if (length == 0) {
      out_ += QStringLiteral("''");
      return;
    }
    ++nesting_;
    if (length > kLineLength) NewLine();
    qsizetype pos = 0, lineStart = 0;
    while (pos < length) {
      if (IsPlain(text[pos])) {
        const qsizetype runStart = pos;
        do ++pos;
        while (pos < length && IsPlain(text[pos]) && pos - lineStart < kLineLength);
        out_ += QLatin1Char('\'') + text.mid(runStart, pos - runStart) + QLatin1Char('\'');
      } else {
        out_ += QLatin1Char('#') + QString::number(text[pos].unicode());
        ++pos;
      }
      if (pos - lineStart >= kLineLength && pos < length) {
        out_ += QStringLiteral(" +");
        NewLine();
        lineStart = pos;
      }
    }
    --nesting_;
  }

  TReader reader_;
  QString out_;
  int nesting_ = 0;  // indentation level
  int depth_ = 0;    // values within values
};

class TTextToBinary {
public:
  TTextToBinary(TStream& input, TStream& output) : parser_(input), writer_(output) {}

  void Convert() {
    writer_.WriteSignature();
    ConvertObject();
  }

private:
  void ConvertObject() {
    const bool isInherited = parser_.TokenSymbolIs(QStringLiteral("inherited"));
    const bool isInline = parser_.TokenSymbolIs(QStringLiteral("inline"));
    if (!isInherited && !isInline) parser_.CheckTokenSymbol(QStringLiteral("object"));
    parser_.NextToken();
    ConvertHeader(isInherited, isInline);
    while (!parser_.TokenSymbolIs(QStringLiteral("end")) && !IsObjectStart()) ConvertProperty();
    writer_.WriteListEnd();
    while (!parser_.TokenSymbolIs(QStringLiteral("end"))) ConvertObject();
    writer_.WriteListEnd();
    parser_.NextToken();
  }

  bool IsObjectStart() const {
    return parser_.TokenSymbolIs(QStringLiteral("object")) ||
           parser_.TokenSymbolIs(QStringLiteral("inherited")) ||
           parser_.TokenSymbolIs(QStringLiteral("inline"));
  }

  void ConvertHeader(bool isInherited, bool isInline) {
    parser_.CheckToken(toSymbol);
    QString className = parser_.TokenString();
    QString objectName;
    if (parser_.NextToken() == u':') {
      parser_.NextToken();
      parser_.CheckToken(toSymbol);
      objectName = className;
      className = parser_.TokenString();
      parser_.NextToken();
    }
    const int childPos = ConvertOrderModifier();
    TFilerFlags flags;
    if (isInherited) flags.Include(ffInherited);
    if (isInline) flags.Include(ffInline);
    if (childPos >= 0) flags.Include(ffChildPos);
    writer_.WritePrefix(flags, childPos);
    writer_.WriteStr(className);
    writer_.WriteStr(objectName);
  }

  // "[n]" after an object header or an item; -1 when there is none.
  int ConvertOrderModifier() {
    if (parser_.Token() != u'[') return -1;
    parser_.NextToken();
    parser_.CheckToken(toInteger);
    const int order = int(parser_.TokenInt());
    parser_.NextToken();
    parser_.CheckToken(u']');
    parser_.NextToken();
    return order;
  }

  void ConvertProperty() {
    parser_.CheckToken(toSymbol);
    QString name = parser_.TokenString();
    while (parser_.NextToken() == u'.') {
      parser_.NextToken();
      parser_.CheckToken(toSymbol);
      name += QLatin1Char('.') + parser_.TokenString();
    }
    writer_.WriteStr(name);
    parser_.CheckToken(u'=');
    parser_.NextToken();
    ConvertValue();
  }

  void ConvertValue() {
    if (++depth_ > kMaxNesting) parser_.Error(SReadError);
    if (parser_.Token() == toString || parser_.Token() == toWString) {
      writer_.WriteString(CombineString());
      --depth_;
      return;
    }
    switch (parser_.Token()) {
      case toSymbol: writer_.WriteIdent(parser_.TokenComponentIdent()); break;
      case toInteger: writer_.WriteInteger(parser_.TokenInt()); break;
      case toFloat: ConvertFloat(); break;
      case u'[': ConvertSet(); break;
      case u'(': ConvertList(); break;
      case u'{': writer_.WriteBinary([this](TStream& data) { parser_.HexToBinary(data); }); break;
      case u'<': ConvertCollection(); break;
      default: parser_.Error(SInvalidPropertyValue);
    }
    parser_.NextToken();
    --depth_;
  }

  QString CombineString() {
    QString text = parser_.TokenWideString();
    while (parser_.NextToken() == u'+') {
      parser_.NextToken();
      if (parser_.Token() != toString && parser_.Token() != toWString) parser_.CheckToken(toString);
      text += parser_.TokenWideString();
    }
    return text;
  }

  void ConvertFloat() {
    switch (parser_.FloatType()) {
      case u's': return writer_.WriteSingle(SingleToken());
      case u'c': return writer_.WriteCurrency(CurrencyToken());
      case u'd': return writer_.WriteDate(parser_.TokenFloat());
      default: return writer_.WriteFloat(parser_.TokenFloat());
    }
  }

  float SingleToken() const {
    const QByteArray latin = parser_.TokenString().chopped(1).toLatin1();
    float value = 0;
    const auto result = std::from_chars(latin.constData(), latin.constData() + latin.size(), value);
    if (result.ec != std::errc()) parser_.Error(Format(SInvalidFloat, {parser_.TokenString()}));
    return value;
  }

  // The text counts ten-thousandths.
  Currency CurrencyToken() const {
    bool isInteger = false;
    const qint64 scaled = parser_.TokenString().chopped(1).toLongLong(&isInteger);
    if (isInteger) return Currency::FromScaled(scaled);
    return Currency::FromScaled(std::llround(parser_.TokenFloat()));
  }

  void ConvertSet() {
    parser_.NextToken();
    writer_.WriteValue(vaSet);
    while (parser_.Token() != u']') {
      if (parser_.Token() != toInteger) parser_.CheckToken(toSymbol);
      writer_.WriteStr(parser_.TokenString());
      if (parser_.NextToken() == u']') break;
      parser_.CheckToken(u',');
      parser_.NextToken();
    }
    writer_.WriteStr(QString());
  }

  void ConvertList() {
    parser_.NextToken();
    writer_.WriteListBegin();
    while (parser_.Token() != u')') {
      if (parser_.Token() == toEOF) parser_.CheckToken(u')');
      ConvertValue();
    }
    writer_.WriteListEnd();
  }

  void ConvertCollection() {
    parser_.NextToken();
    writer_.WriteValue(vaCollection);
    while (parser_.Token() != u'>') {
      parser_.CheckTokenSymbol(QStringLiteral("item"));
      parser_.NextToken();
      const int order = ConvertOrderModifier();
      if (order >= 0) writer_.WriteInteger(order);
      writer_.WriteListBegin();
      while (!parser_.TokenSymbolIs(QStringLiteral("end"))) ConvertProperty();
      writer_.WriteListEnd();
      parser_.NextToken();
    }
    writer_.WriteListEnd();
  }

  TParser parser_;
  TWriter writer_;
  int depth_ = 0;  // values within values
};

void WriteText(TStream& output, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  output.WriteBuffer(bytes.constData(), bytes.size());
}

// The header of a component resource: 0xFF, type 10 (RCDATA), the upper-case class
// name with a zero byte, flags 0x1030 and the size of the binary stream.
void ReadResHeader(TStream& input) {
  uint8_t head[3];
  input.ReadBuffer(head, sizeof(head));
  if (head[0] != 0xFF || head[1] != 10 || head[2] != 0) throw EReadError(SInvalidImage);
  for (uint8_t ch = 1; ch != 0;) input.ReadBuffer(&ch, 1);
  uint8_t flagsAndSize[6];
  input.ReadBuffer(flagsAndSize, sizeof(flagsAndSize));
}

}  // namespace

void ObjectBinaryToText(TStream& input, TStream& output) {
  TBinaryToText converter(input);
  WriteText(output, converter.Convert());
}

void ObjectTextToBinary(TStream& input, TStream& output) {
  TTextToBinary converter(input, output);
  converter.Convert();
}

void ObjectResourceToText(TStream& input, TStream& output) {
  ReadResHeader(input);
  ObjectBinaryToText(input, output);
}

void ObjectTextToResource(TStream& input, TStream& output) {
  TMemoryStream binary;
  ObjectTextToBinary(input, binary);
  binary.SetPosition(4);
  TReader reader(binary);
  int childPos = 0;
  reader.ReadPrefix(childPos);
  const QByteArray name = reader.ReadStr().toUpper().toUtf8();
  const int32_t size = int32_t(binary.Size());
  QByteArray header;
  header.append(char(0xFF)).append(char(10)).append(char(0)).append(name).append(char(0));
  header.append(char(0x30)).append(char(0x10));
  for (int shift = 0; shift < 32; shift += 8) header.append(char(uint32_t(size) >> shift));
  output.WriteBuffer(header.constData(), header.size());
  output.CopyFrom(binary, 0);
}

}  // namespace quil
