#include "framework/rtl/Format.h"

#include <vector>

#include <QLocale>
#include <cmath>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {
namespace {

struct Directive {
  bool leftAlign = false;
  int width = -1;      // -1: none
  int precision = -1;  // -1: none
  QChar type;
};

class Formatter {
public:
  Formatter(const QString& format, std::initializer_list<TVarRec> args)
      : format_(format), args_(args.begin(), args.end()) {}

  QString Run() {
    QString out;
    int pos = 0;
    while (pos < format_.size()) {
      const int percent = format_.indexOf(QLatin1Char('%'), pos);
      if (percent < 0) {
        out += format_.mid(pos);
        break;
      }
      out += format_.mid(pos, percent - pos);
      pos = percent + 1;
      if (pos < format_.size() && format_[pos] == QLatin1Char('%')) {
        out += QLatin1Char('%');
        ++pos;
        continue;
      }
      out += Directive(pos);
    }
    return out;
  }

private:
  [[noreturn]] void Fail() const { throw EConvertError(QString(SInvalidFormat).replace("%s", format_)); }

  const TVarRec& NextArg() {
    if (next_ >= args_.size()) Fail();
    return args_[next_++];
  }

  int Number(int& pos) {
    if (pos < format_.size() && format_[pos] == QLatin1Char('*')) {
      ++pos;
      const auto* value = std::get_if<int64_t>(&NextArg().Value());
      if (!value) Fail();
      return int(*value);
    }
    int result = -1;
    while (pos < format_.size() && format_[pos].isDigit()) {
      result = (result < 0 ? 0 : result * 10) + format_[pos].digitValue();
      ++pos;
    }
    return result;
  }

  QString Directive(int& pos) {
    struct Directive spec;
    int number = Number(pos);
    if (pos < format_.size() && format_[pos] == QLatin1Char(':')) {
      next_ = size_t(number < 0 ? 0 : number);
      ++pos;
      number = -1;
    }
    if (number < 0 && pos < format_.size() && format_[pos] == QLatin1Char('-')) {
      spec.leftAlign = true;
      ++pos;
    }
    spec.width = number >= 0 ? number : Number(pos);
    if (pos < format_.size() && format_[pos] == QLatin1Char('.')) {
      ++pos;
      spec.precision = Number(pos);
      if (spec.precision < 0) spec.precision = 0;
    }
    if (pos >= format_.size()) Fail();
    spec.type = format_[pos++].toLower();
    QString text = Convert(spec, NextArg());
    if (spec.width > text.size()) {
      const QString pad(spec.width - text.size(), QLatin1Char(' '));
      text = spec.leftAlign ? text + pad : pad + text;
    }
    return text;
  }

  QString Convert(const struct Directive& spec, const TVarRec& arg) const {
    const auto& value = arg.Value();
    const char type = char(spec.type.unicode());
    if (type == 's') {
      const auto* text = std::get_if<QString>(&value);
      if (!text) Fail();
      return spec.precision >= 0 ? text->left(spec.precision) : *text;
    }
    if (type == 'p') {
      const auto* pointer = std::get_if<const void*>(&value);
      if (!pointer) Fail();
      return QString::number(quintptr(*pointer), 16).toUpper().rightJustified(int(2 * sizeof(void*)), QLatin1Char('0'));
    }
    if (type == 'd' || type == 'u' || type == 'x') {
      const auto* integer = std::get_if<int64_t>(&value);
      if (!integer) Fail();
      return Integer(type, *integer, spec.precision);
    }
    double real;
    if (const auto* asDouble = std::get_if<double>(&value)) real = *asDouble;
    else Fail();
    return Real(type, real, spec.precision);
  }

  static QString Integer(char type, int64_t value, int precision) {
    const bool negative = type == 'd' && value < 0;
    QString digits;
    if (type == 'x') digits = QString::number(quint64(value), 16).toUpper();
    else if (type == 'u') digits = QString::number(quint64(value));
    else digits = QString::number(negative ? -quint64(value) : quint64(value));
    if (precision > digits.size()) digits = digits.rightJustified(precision, QLatin1Char('0'));
    return negative ? QLatin1Char('-') + digits : digits;
  }

  QString Real(char type, double value, int precision) const {
    if (std::isnan(value)) return QStringLiteral("NAN");
    if (std::isinf(value)) return value > 0 ? QStringLiteral("INF") : QStringLiteral("-INF");
    const int decimals = precision < 0 ? 2 : precision;
    const QLocale grouped(QLocale::English, QLocale::UnitedStates);
    switch (type) {
      case 'f':
        return QString::number(value, 'f', decimals);
      case 'n':
        return grouped.toString(value, 'f', decimals);
      case 'm':
        return grouped.toCurrencyString(value, QStringLiteral("$"), decimals);
      case 'e':
        return Scientific(value, precision < 0 ? 15 : precision);
      case 'g':
        return General(value, precision < 0 || precision > 18 ? 15 : precision);
      default:
        Fail();
    }
  }

  // Mantissa of `digits` significant digits, exponent signed with at least three digits.
  static QString Scientific(double value, int digits) {
    QString text = QString::number(value, 'e', qMax(digits, 1) - 1).toUpper();
    const int e = text.indexOf(QLatin1Char('E'));
    const QChar sign = text[e + 1];
    QString exponent = text.mid(e + 2).rightJustified(3, QLatin1Char('0'));
    return text.left(e + 1) + sign + exponent;
  }

  // Shortest of fixed and scientific, without trailing zeros.
  static QString General(double value, int digits) {
    if (value == 0) return QStringLiteral("0");
    const int magnitude = int(std::floor(std::log10(std::fabs(value))));
    if (magnitude >= digits || magnitude < -5) {
      QString mantissa = QString::number(value, 'e', digits - 1).toUpper();
      const int e = mantissa.indexOf(QLatin1Char('E'));
      QString head = mantissa.left(e);
      if (head.contains(QLatin1Char('.'))) {
        while (head.endsWith(QLatin1Char('0'))) head.chop(1);
        if (head.endsWith(QLatin1Char('.'))) head.chop(1);
      }
      const QChar sign = mantissa[e + 1];
      QString exponent = mantissa.mid(e + 2);
      while (exponent.size() > 2 && exponent.startsWith(QLatin1Char('0'))) exponent.remove(0, 1);
      return head + QLatin1Char('E') + sign + exponent;
    }
    QString fixed = QString::number(value, 'f', qMax(0, digits - 1 - magnitude));
    if (fixed.contains(QLatin1Char('.'))) {
      while (fixed.endsWith(QLatin1Char('0'))) fixed.chop(1);
      if (fixed.endsWith(QLatin1Char('.'))) fixed.chop(1);
    }
    return fixed;
  }

  const QString& format_;
  std::vector<TVarRec> args_;
  size_t next_ = 0;
};

}  // namespace

QString Format(const QString& format, std::initializer_list<TVarRec> args) {
  return Formatter(format, args).Run();
}

}  // namespace quil
