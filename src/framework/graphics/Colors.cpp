#include "framework/graphics/Colors.h"

#include <array>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

namespace {
struct ColorIdent {
  TColor color;
  const char* name;
};

constexpr std::array<ColorIdent, 54> kColorIdents{{
    {clBlack, "clBlack"}, {clMaroon, "clMaroon"}, {clGreen, "clGreen"}, {clOlive, "clOlive"},
    {clNavy, "clNavy"}, {clPurple, "clPurple"}, {clTeal, "clTeal"}, {clGray, "clGray"},
    {clSilver, "clSilver"}, {clRed, "clRed"}, {clLime, "clLime"}, {clYellow, "clYellow"},
    {clBlue, "clBlue"}, {clFuchsia, "clFuchsia"}, {clAqua, "clAqua"}, {clWhite, "clWhite"},
    {clMoneyGreen, "clMoneyGreen"}, {clSkyBlue, "clSkyBlue"}, {clCream, "clCream"},
    {clMedGray, "clMedGray"}, {clActiveBorder, "clActiveBorder"},
    {clActiveCaption, "clActiveCaption"}, {clAppWorkSpace, "clAppWorkSpace"},
    {clBackground, "clBackground"}, {clBtnFace, "clBtnFace"}, {clBtnHighlight, "clBtnHighlight"},
    {clBtnShadow, "clBtnShadow"}, {clBtnText, "clBtnText"}, {clCaptionText, "clCaptionText"},
    {clGrayText, "clGrayText"}, {clHighlight, "clHighlight"},
    {clHighlightText, "clHighlightText"}, {clInactiveBorder, "clInactiveBorder"},
    {clInactiveCaption, "clInactiveCaption"}, {clInactiveCaptionText, "clInactiveCaptionText"},
    {clInfoBk, "clInfoBk"}, {clInfoText, "clInfoText"}, {clMenu, "clMenu"},
    {clMenuText, "clMenuText"}, {clScrollBar, "clScrollBar"}, {cl3DDkShadow, "cl3DDkShadow"},
    {cl3DLight, "cl3DLight"}, {clWindow, "clWindow"}, {clWindowFrame, "clWindowFrame"},
    {clWindowText, "clWindowText"}, {clHotLight, "clHotLight"},
    {clGradientActiveCaption, "clGradientActiveCaption"},
    {clGradientInactiveCaption, "clGradientInactiveCaption"},
    {clMenuHighlight, "clMenuHighlight"}, {clMenuBar, "clMenuBar"}, {clNone, "clNone"},
    {clDefault, "clDefault"}, {clLtGray, "clLtGray"}, {clDkGray, "clDkGray"},
}};

// "$hex" or "0xhex" or a decimal number, as the framework's StrToInt reads it.
bool ParseInteger(const QString& text, TColor& value) {
  const QString trimmed = text.trimmed();
  bool ok = false;
  qlonglong parsed = 0;
  if (trimmed.startsWith(QLatin1Char('$')))
    parsed = trimmed.mid(1).toLongLong(&ok, 16);
  else if (trimmed.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
    parsed = trimmed.mid(2).toLongLong(&ok, 16);
  else
    parsed = trimmed.toLongLong(&ok, 10);
  if (!ok || parsed < INT32_MIN || parsed > UINT32_MAX) return false;
  value = TColor(uint32_t(parsed));
  return true;
}
}  // namespace

TColor ColorToRGB(TColor color) {
  return IsSystemColor(color) ? GetSysColor(color & 0xFF) : color;
}

bool IdentToColor(const QString& ident, TColor& color) {
  for (const ColorIdent& entry : kColorIdents) {
    if (ident.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0) {
      color = entry.color;
      return true;
    }
  }
  return false;
}

bool ColorToIdent(TColor color, QString& ident) {
  for (const ColorIdent& entry : kColorIdents) {
    if (entry.color == color) {
      ident = QLatin1String(entry.name);
      return true;
    }
  }
  return false;
}

QString ColorToString(TColor color) {
  QString ident;
  if (ColorToIdent(color, ident)) return ident;
  return QLatin1Char('$') + QString::number(uint32_t(color), 16).toUpper().rightJustified(8, QLatin1Char('0'));
}

TColor StringToColor(const QString& text) {
  TColor color = 0;
  if (IdentToColor(text, color) || ParseInteger(text, color)) return color;
  throw EConvertError(Format(SInvalidInteger, {text}));
}

const TIntegerTypeInfo& ColorTypeInfo() {
  static const TIntegerTypeInfo info(
      tkInteger, QStringLiteral("TColor"),
      [](int64_t value) -> std::optional<QString> {
        QString ident;
        if (ColorToIdent(TColor(value), ident)) return ident;
        return std::nullopt;
      },
      [](const QString& ident) -> std::optional<int64_t> {
        TColor color = 0;
        if (IdentToColor(ident, color)) return color;
        return std::nullopt;
      });
  return info;
}

}  // namespace quil
