#include "framework/db/NumberFormat.h"

#include <QStringList>
#include <cmath>

#include "framework/rtl/FormatSettings.h"

namespace quil {

namespace {

bool IsPlaceholder(QChar ch) { return ch == '0' || ch == '#' || ch == '.' || ch == ','; }

QString Literal(const QString& text) {
  QString plain = text;
  plain.remove(QLatin1Char('"'));
  plain.remove(QLatin1Char('\''));
  return plain;
}

QString GroupThousands(const QString& digits) {
  QString grouped;
  for (qsizetype index = 0; index < digits.size(); ++index) {
    if (index > 0 && (digits.size() - index) % 3 == 0) grouped += FormatSettings.ThousandSeparator;
    grouped += digits[index];
  }
  return grouped;
}

// The digits of value (not negative) by one section's placeholders.
QString FormatDigits(const QString& pattern, double value) {
  const qsizetype point = pattern.indexOf(QLatin1Char('.'));
  const QString integerPart = point < 0 ? pattern : pattern.left(point);
  const QString fraction = point < 0 ? QString() : pattern.mid(point + 1);
  const int decimals = int(fraction.count(QLatin1Char('0')) + fraction.count(QLatin1Char('#')));
  const int minDecimals = int(fraction.count(QLatin1Char('0')));
  const int minDigits = int(integerPart.count(QLatin1Char('0')));
  QString text = QString::number(value, 'f', decimals);
  QString whole = text.section(QLatin1Char('.'), 0, 0);
  QString decimalsText = text.section(QLatin1Char('.'), 1, 1);
  while (decimalsText.size() > minDecimals && decimalsText.endsWith(QLatin1Char('0'))) decimalsText.chop(1);
  if (whole == QLatin1String("0") && minDigits == 0) whole.clear();
  while (whole.size() < minDigits) whole.prepend(QLatin1Char('0'));
  if (integerPart.contains(QLatin1Char(','))) whole = GroupThousands(whole);
  if (!decimalsText.isEmpty()) whole += FormatSettings.DecimalSeparator + decimalsText;
  return whole;
}

}  // namespace

QString FormatNumber(const QString& format, double value) {
  const QStringList sections = format.split(QLatin1Char(';'));
  QString section = sections[0];
  bool sign = value < 0;
  if (value < 0 && sections.size() > 1 && !sections[1].isEmpty()) {
    section = sections[1];
    sign = false;
  } else if (value == 0 && sections.size() > 2 && !sections[2].isEmpty()) {
    section = sections[2];
  }
  qsizetype first = 0;
  while (first < section.size() && !IsPlaceholder(section[first])) ++first;
  if (first == section.size()) return Literal(section);
  qsizetype last = section.size() - 1;
  while (!IsPlaceholder(section[last])) --last;
  const QString digits = FormatDigits(section.mid(first, last - first + 1), std::fabs(value));
  const bool zero = digits.isEmpty() || digits.count(QLatin1Char('0')) + digits.count(FormatSettings.DecimalSeparator) +
                                                digits.count(FormatSettings.ThousandSeparator) == digits.size();
  return Literal(section.left(first)) + (sign && !zero ? QStringLiteral("-") : QString()) + digits +
         Literal(section.mid(last + 1));
}

}  // namespace quil
