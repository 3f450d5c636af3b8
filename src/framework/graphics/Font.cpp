#include "framework/graphics/Font.h"

#include <QFontMetricsF>
#include <cmath>

#include "framework/graphics/Font_p.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TFontStyle) {
  static const TEnumTypeInfo info("TFontStyle", {"fsBold", "fsItalic", "fsUnderline", "fsStrikeOut"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TFontPitch) {
  static const TEnumTypeInfo info("TFontPitch", {"fpDefault", "fpVariable", "fpFixed"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TFontQuality) {
  static const TEnumTypeInfo info("TFontQuality", {"fqDefault", "fqDraft", "fqProof", "fqNonAntialiased",
                                                   "fqAntialiased", "fqClearType", "fqClearTypeNatural"});
  return info;
}

namespace {
struct CharsetIdent {
  TFontCharset charset;
  const char* name;
};
constexpr CharsetIdent kCharsetIdents[] = {{ANSI_CHARSET, "ANSI_CHARSET"},
                                           {DEFAULT_CHARSET, "DEFAULT_CHARSET"},
                                           {SYMBOL_CHARSET, "SYMBOL_CHARSET"},
                                           {OEM_CHARSET, "OEM_CHARSET"}};
}  // namespace

const TIntegerTypeInfo& CharsetTypeInfo() {
  static const TIntegerTypeInfo info(
      tkInteger, QStringLiteral("TFontCharset"),
      [](int64_t value) -> std::optional<QString> {
        for (const CharsetIdent& entry : kCharsetIdents)
          if (entry.charset == value) return QString::fromLatin1(entry.name);
        return std::nullopt;
      },
      [](const QString& ident) -> std::optional<int64_t> {
        for (const CharsetIdent& entry : kCharsetIdents)
          if (ident.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0) return entry.charset;
        return std::nullopt;
      });
  return info;
}

// Size is not stored: Height says the same in pixels and reads back exactly.
const TMetaClass& TFont::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TFont", &TGraphicsObject::StaticClass())
          .Creates<TFont>()
          .Published(IntProp("Charset", &TFont::Charset, &TFont::SetCharset).OfType(CharsetTypeInfo()))
          .Published(IntProp("Color", &TFont::Color, &TFont::SetColor).OfType(ColorTypeInfo()))
          .Published(IntProp("Height", &TFont::Height, &TFont::SetHeight))
          .Published(StrProp("Name", &TFont::Name, &TFont::SetName))
          .Published(IntProp("Orientation", &TFont::Orientation, &TFont::SetOrientation).Default(0))
          .Published(EnumProp("Pitch", &TFont::Pitch, &TFont::SetPitch).Default(fpDefault))
          .Published(IntProp("Size", &TFont::Size, &TFont::SetSize).Stored(false))
          .Published(SetProp("Style", &TFont::Style, &TFont::SetStyle))
          .Published(EnumProp("Quality", &TFont::Quality, &TFont::SetQuality).Default(fqDefault));
  return meta;
}

const TMetaClass& TFont::ClassType() const { return StaticClass(); }

QString TFont::DefaultName() { return QStringLiteral("DejaVu Sans"); }

TFont::TFont()
    : name_(DefaultName()), height_(-MulDiv(DefaultSize, 96, 72)), d_(std::make_unique<TFontPrivate>()) {}

TFont::~TFont() = default;

void TFont::Changed() {
  d_->Invalidate();
  TGraphicsObject::Changed();
}

void TFont::Assign(const TPersistent* source) {
  const auto* other = dynamic_cast<const TFont*>(source);
  if (!other) return TGraphicsObject::Assign(source);
  name_ = other->name_;
  // A font from another resolution keeps its point size here.
  height_ = other->pixelsPerInch_ == pixelsPerInch_
                ? other->height_
                : -MulDiv(other->Size(), pixelsPerInch_, 72);
  color_ = other->color_;
  style_ = other->style_;
  charset_ = other->charset_;
  pitch_ = other->pitch_;
  quality_ = other->quality_;
  orientation_ = other->orientation_;
  Changed();
}

void TFont::SetName(const QString& name) {
  if (name.isEmpty() || name_ == name) return;
  name_ = name;
  Changed();
}

int TFont::Size() const { return -MulDiv(height_, 72, pixelsPerInch_); }

void TFont::SetSize(int points) { SetHeight(-MulDiv(points, pixelsPerInch_, 72)); }

void TFont::SetHeight(int pixels) {
  if (height_ == pixels) return;
  height_ = pixels;
  Changed();
}

void TFont::SetPixelsPerInch(int pixelsPerInch) {
  if (pixelsPerInch <= 0 || pixelsPerInch_ == pixelsPerInch) return;
  const int points = Size();
  pixelsPerInch_ = pixelsPerInch;
  height_ = -MulDiv(points, pixelsPerInch_, 72);
  Changed();
}

void TFont::SetColor(TColor color) {
  if (color_ == color) return;
  color_ = color;
  Changed();
}

void TFont::SetStyle(TFontStyles style) {
  if (style_ == style) return;
  style_ = style;
  Changed();
}

void TFont::SetCharset(TFontCharset charset) {
  if (charset_ == charset) return;
  charset_ = charset;
  Changed();
}

void TFont::SetPitch(TFontPitch pitch) {
  if (pitch_ == pitch) return;
  pitch_ = pitch;
  Changed();
}

void TFont::SetQuality(TFontQuality quality) {
  if (quality_ == quality) return;
  quality_ = quality;
  Changed();
}

void TFont::SetOrientation(int tenthsOfDegree) {
  if (orientation_ == tenthsOfDegree) return;
  orientation_ = tenthsOfDegree;
  Changed();
}

bool TFont::IsEqual(const TFont& other) const {
  return name_ == other.name_ && height_ == other.height_ && style_ == other.style_ &&
         pitch_ == other.pitch_ && quality_ == other.quality_ && orientation_ == other.orientation_;
}

namespace {
QFont::StyleStrategy StrategyOf(TFontQuality quality) {
  switch (quality) {
    case fqNonAntialiased:
    case fqDraft: return QFont::NoAntialias;
    case fqAntialiased:
    case fqClearType:
    case fqClearTypeNatural: return QFont::PreferAntialias;
    default: return QFont::PreferDefault;
  }
}

// A positive height is the cell height, ascent plus descent; Qt wants the em size.
int PixelSizeOf(const QFont& face, int height) {
  if (height < 0) return -height;
  if (height == 0) return 12;
  QFont probe(face);
  probe.setPixelSize(height);
  const qreal cell = QFontMetricsF(probe).height();
  return cell > 0 ? std::max(1, int(std::lround(height * height / cell))) : height;
}

QFont BuildQFont(const TFont& font) {
  QFont face(font.Name());
  face.setPixelSize(PixelSizeOf(face, font.Height()));
  face.setBold(font.Style().Contains(fsBold));
  face.setItalic(font.Style().Contains(fsItalic));
  face.setUnderline(font.Style().Contains(fsUnderline));
  face.setStrikeOut(font.Style().Contains(fsStrikeOut));
  if (font.Pitch() == fpFixed) {
    face.setFixedPitch(true);
    face.setStyleHint(QFont::Monospace);
  }
  face.setStyleStrategy(StrategyOf(font.Quality()));
  return face;
}
}  // namespace

const QFont& TFontPrivate::QtFont(const TFont& font) {
  std::optional<QFont>& cached = font.d_->cached_;
  if (!cached) cached = BuildQFont(font);
  return *cached;
}

}  // namespace quil
