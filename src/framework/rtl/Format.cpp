#include "framework/rtl/Format.h"

#include <vector>

#include "framework/rtl/Conversions.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Variants.h"

namespace quil {

TVarRec::TVarRec(const Variant& value) : value_(std::make_shared<const Variant>(value)) {}

namespace {

struct FormatItem {
  bool leftAlign = false;
  int width = -1;      // -1: none
  int precision = -1;  // -1: none
  char type = 0;       // lower case
};

class Formatter {
public:
  Formatter(const QString& format, std::initializer_list<TVarRec> args, const TFormatSettings& settings)
      : format_(format), args_(args.begin(), args.end()), settings_(settings) {}

  QString Run() {
    QString out;
    qsizetype pos = 0;
    while (pos < format_.size()) {
      const qsizetype percent = format_.indexOf(u'%', pos);
      if (percent < 0) {
        out += QStringView(format_).mid(pos);
        break;
      }
      out += QStringView(format_).mid(pos, percent - pos);
      pos = percent + 1;
      if (pos < format_.size() && format_[pos] == u'%') {
        out += u'%';
        ++pos;
        continue;
      }
      out += Directive(pos);
    }
    return out;
  }

private:
  // The messages take the format by plain replacement, so that a faulty translation of
  // them cannot fail again.
  [[noreturn]] void Fail() const { throw EConvertError(QString(SInvalidFormat).replace(QStringLiteral("%s"), format_)); }

  const TVarRec& NextArg() {
    if (next_ >= args_.size()) throw EConvertError(QString(SArgumentMissing).replace(QStringLiteral("%s"), format_));
    return args_[next_++];
  }

  bool At(qsizetype pos, char16_t ch) const { return pos < format_.size() && format_[pos] == ch; }

  // A decimal number or "*" for the next argument; -1 when there is neither.
  int Number(qsizetype& pos) {
    if (At(pos, u'*')) {
      ++pos;
      const TVarRec& arg = NextArg();
      const auto* value = std::get_if<int64_t>(&arg.Value());
      if (!value) Fail();
      return int(*value);
    }
    int result = -1;
    for (; pos < format_.size() && format_[pos] >= u'0' && format_[pos] <= u'9'; ++pos) {
      result = (result < 0 ? 0 : result * 10) + (format_[pos].unicode() - u'0');
      if (result > 0xFFFFF) Fail();
    }
    return result;
  }

  QString Directive(qsizetype& pos) {
    FormatItem item;
    int number = Number(pos);
    if (At(pos, u':')) {
      next_ = size_t(qMax(number, 0));
      ++pos;
      number = -1;
    }
    if (number < 0 && At(pos, u'-')) {
      item.leftAlign = true;
      ++pos;
    }
    item.width = number >= 0 ? number : Number(pos);
    if (At(pos, u'.')) {
      ++pos;
      item.precision = qMax(Number(pos), 0);
    }
    if (pos >= format_.size() || format_[pos].unicode() > 0x7F) Fail();
    item.type = char(format_[pos++].toLower().unicode());
    QString text = Convert(item, NextArg());
    if (item.width > text.size()) {
      const QString pad(item.width - text.size(), u' ');
      text = item.leftAlign ? text + pad : pad + text;
    }
    return text;
  }

  QString Convert(const FormatItem& item, const TVarRec& arg) const {
    const auto& value = arg.Value();
    const auto* variant = std::get_if<std::shared_ptr<const Variant>>(&value);
    switch (item.type) {
      case 's': {
        if (variant) return Truncated(VarToStr(**variant), item.precision);
        const auto* text = std::get_if<QString>(&value);
        if (!text) Fail();
        return Truncated(*text, item.precision);
      }
      case 'p': {
        const auto* pointer = std::get_if<const void*>(&value);
        if (!pointer) Fail();
        return IntToHex(quintptr(*pointer), int(2 * sizeof(void*)));
      }
      case 'd': case 'u': case 'x': {
        if (variant) return Integer(item, (*variant)->AsInt64(), false);
        const auto* integer = std::get_if<int64_t>(&value);
        if (!integer) Fail();
        return Integer(item, *integer, arg.IsNarrow());
      }
      case 'e': case 'f': case 'g': case 'n': case 'm': {
        if (variant) return Real(item, (*variant)->AsDouble());
        const auto* real = std::get_if<double>(&value);
        if (!real) Fail();
        return Real(item, *real);
      }
      default:
        Fail();
    }
  }

  static QString Truncated(const QString& text, int precision) {
    return precision >= 0 ? text.left(precision) : text;
  }

  static QString Integer(const FormatItem& item, int64_t value, bool narrow) {
    const uint64_t bits = narrow ? uint64_t(uint32_t(value)) : uint64_t(value);
    const bool negative = item.type == 'd' && value < 0;
    QString digits;
    if (item.type == 'x') digits = QString::number(bits, 16).toUpper();
    else if (item.type == 'u') digits = QString::number(bits);
    else digits = QString::number(negative ? 0 - uint64_t(value) : uint64_t(value));
    if (item.precision > digits.size()) digits = digits.rightJustified(item.precision, u'0');
    return negative ? u'-' + digits : digits;
  }

  // Fixed forms read 18 significant digits before rounding to the decimals, as an
  // 80-bit extended formatter does.
  QString Real(const FormatItem& item, double value) const {
    const int precision = item.precision;
    switch (item.type) {
      case 'e':
        return FloatToStrF(value, ffExponent, precision < 0 ? 15 : precision, 3, settings_);
      case 'f':
        return FloatToStrF(value, ffFixed, 18, precision < 0 ? 2 : precision, settings_);
      case 'g':
        return FloatToStrF(value, ffGeneral, precision < 0 ? 15 : precision, 0, settings_);
      case 'n':
        return FloatToStrF(value, ffNumber, 18, precision < 0 ? 2 : precision, settings_);
      default:
        return FloatToStrF(value, ffCurrency, 18, precision < 0 ? settings_.CurrencyDecimals : precision,
                           settings_);
    }
  }

  const QString& format_;
  std::vector<TVarRec> args_;
  const TFormatSettings& settings_;
  size_t next_ = 0;
};

}  // namespace

QString Format(const QString& format, std::initializer_list<TVarRec> args) {
  return Formatter(format, args, FormatSettings).Run();
}

QString Format(const QString& format, std::initializer_list<TVarRec> args, const TFormatSettings& settings) {
  return Formatter(format, args, settings).Run();
}

}  // namespace quil
