#include "framework/rtl/StringUtils.h"

#include <QCollator>
#include <QLocale>

#include "framework/rtl/Conversions.h"

namespace quil {

QString DefaultDelimiter = QStringLiteral(",");

namespace {

bool IsBlank(QChar ch) { return ch.unicode() <= u' '; }

QChar AsciiUpper(QChar ch) { return ch >= u'a' && ch <= u'z' ? QChar(ch.unicode() - 32) : ch; }
QChar AsciiLower(QChar ch) { return ch >= u'A' && ch <= u'Z' ? QChar(ch.unicode() + 32) : ch; }

template <typename Map>
QString MapChars(QString text, Map map) {
  for (QChar& ch : text) ch = map(ch);
  return text;
}

// Maps each code point on its own (simple case mapping), so that the result has the
// length of the text and a position found in it is a position in the text: full
// mapping would turn "ß" into "SS" and shift every position behind it.
template <typename Map>
QString MapCodePoints(QString text, Map map) {
  for (qsizetype index = 0; index < text.size(); ++index) {
    const bool pair = text[index].isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
    if (!pair) {
      const char32_t mapped = map(char32_t(text[index].unicode()));
      if (!QChar::requiresSurrogates(mapped)) text[index] = QChar(char16_t(mapped));
      continue;
    }
    const char32_t mapped = map(QChar::surrogateToUcs4(text[index], text[index + 1]));
    if (QChar::requiresSurrogates(mapped)) {
      text[index] = QChar(QChar::highSurrogate(mapped));
      text[index + 1] = QChar(QChar::lowSurrogate(mapped));
    }
    ++index;
  }
  return text;
}

template <typename Map>
int CompareMapped(const QString& a, const QString& b, Map map) {
  const qsizetype common = qMin(a.size(), b.size());
  for (qsizetype index = 0; index < common; ++index) {
    const int difference = int(map(a[index]).unicode()) - int(map(b[index]).unicode());
    if (difference != 0) return difference;
  }
  return int(a.size() - b.size());
}

QCollator MakeCollator(Qt::CaseSensitivity sensitivity) {
  QCollator collator{QLocale(QLocale::English, QLocale::UnitedStates)};
  collator.setCaseSensitivity(sensitivity);
  return collator;
}

// Collation can call different texts equal; code units then decide, so that only
// equal texts compare equal.
int Collate(const QString& a, const QString& b, Qt::CaseSensitivity sensitivity) {
  static const QCollator sensitive = MakeCollator(Qt::CaseSensitive);
  static const QCollator insensitive = MakeCollator(Qt::CaseInsensitive);
  const int order = (sensitivity == Qt::CaseSensitive ? sensitive : insensitive).compare(a, b);
  if (order != 0) return order;
  return sensitivity == Qt::CaseSensitive ? CompareStr(a, b) : a.compare(b, Qt::CaseInsensitive);
}

}  // namespace

QString Trim(const QString& text) { return TrimRight(TrimLeft(text)); }

QString TrimLeft(const QString& text) {
  qsizetype start = 0;
  while (start < text.size() && IsBlank(text[start])) ++start;
  return text.mid(start);
}

QString TrimRight(const QString& text) {
  qsizetype end = text.size();
  while (end > 0 && IsBlank(text[end - 1])) --end;
  return text.left(end);
}

QString UpperCase(const QString& text) { return MapChars(text, AsciiUpper); }
QString LowerCase(const QString& text) { return MapChars(text, AsciiLower); }
QString AnsiUpperCase(const QString& text) {
  return MapCodePoints(text, [](char32_t ch) { return QChar::toUpper(ch); });
}
QString AnsiLowerCase(const QString& text) {
  return MapCodePoints(text, [](char32_t ch) { return QChar::toLower(ch); });
}

int CompareStr(const QString& a, const QString& b) {
  return CompareMapped(a, b, [](QChar ch) { return ch; });
}
int CompareText(const QString& a, const QString& b) { return CompareMapped(a, b, AsciiUpper); }
bool SameText(const QString& a, const QString& b) { return CompareText(a, b) == 0; }
int AnsiCompareStr(const QString& a, const QString& b) { return Collate(a, b, Qt::CaseSensitive); }
int AnsiCompareText(const QString& a, const QString& b) { return Collate(a, b, Qt::CaseInsensitive); }
bool AnsiSameText(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

QString QuotedStr(const QString& text) { return AnsiQuotedStr(text, u'\''); }

QString AnsiQuotedStr(const QString& text, QChar quote) {
  QString doubled = text;
  doubled.replace(quote, QString(2, quote));
  return quote + doubled + quote;
}

QString AnsiDequotedStr(const QString& text, QChar quote) {
  if (text.isEmpty() || text[0] != quote) return text;
  QString inner;
  qsizetype pos = 1;
  for (; pos < text.size(); ++pos) {
    if (text[pos] != quote) {
      inner += text[pos];
    } else if (pos + 1 < text.size() && text[pos + 1] == quote) {
      inner += quote;
      ++pos;
    } else {
      ++pos;
      break;
    }
  }
  const bool consumedAll = pos >= text.size();
  if ((inner.isEmpty() || consumedAll) && text.back() != quote) return text;
  return inner;
}

QString StringReplace(const QString& text, const QString& oldPattern, const QString& newPattern,
                      TReplaceFlags flags) {
  if (oldPattern.isEmpty()) return text;
  const Qt::CaseSensitivity sensitivity = flags.Contains(rfIgnoreCase) ? Qt::CaseInsensitive : Qt::CaseSensitive;
  QString result;
  qsizetype from = 0;
  for (qsizetype found; (found = text.indexOf(oldPattern, from, sensitivity)) >= 0;) {
    result += QStringView(text).mid(from, found - from);
    result += newPattern;
    from = found + oldPattern.size();
    if (!flags.Contains(rfReplaceAll)) break;
  }
  result += QStringView(text).mid(from);
  return result;
}

int Pos(const QString& substr, const QString& text, int offset) {
  if (substr.isEmpty() || offset < 1) return 0;
  return int(text.indexOf(substr, offset - 1)) + 1;
}

QString Copy(const QString& text, int index, int count) {
  if (count <= 0) return {};
  const qsizetype start = qMax(index, 1) - 1;
  if (start >= text.size()) return {};
  return text.mid(start, qMin<qsizetype>(count, text.size() - start));
}

bool IsDelimiter(const QString& delimiters, const QString& text, int index) {
  return index >= 1 && index <= text.size() && delimiters.contains(text[index - 1]);
}

int LastDelimiter(const QString& delimiters, const QString& text) {
  for (qsizetype index = text.size(); index > 0; --index)
    if (delimiters.contains(text[index - 1])) return int(index);
  return 0;
}

QString ChangeFileExt(const QString& fileName, const QString& extension) {
  const int found = LastDelimiter(QStringLiteral(".\\/:"), fileName);
  if (found > 0 && fileName[found - 1] == u'.') return fileName.left(found - 1) + extension;
  return fileName + extension;
}

QString ScanStr(QString& text, const QString& delimiter) {
  const QString& separator = delimiter.isEmpty() ? DefaultDelimiter : delimiter;
  const qsizetype found = separator.isEmpty() ? -1 : text.indexOf(separator);
  QString item;
  if (found < 0) {
    item = text;
    text.clear();
  } else {
    item = text.left(found);
    text.remove(0, found + separator.size());
  }
  return item;
}

int ScanInt(QString& text, int defaultValue, const QString& delimiter) {
  return StrToIntDef(ScanStr(text, delimiter), defaultValue);
}

}  // namespace quil
