#pragma once
// TFont: the framework's font description. Height is in pixels (negative: the character
// height without internal leading); Size is in points, and the two are tied by
// Height = -MulDiv(Size, PixelsPerInch, 72). The default face is "DejaVu Sans" at
// 9 points, a face every Linux desktop with the DejaVu core fonts has.

#include <QString>
#include <cstdint>
#include <memory>

#include "framework/graphics/Colors.h"
#include "framework/graphics/GraphicsObject.h"
#include "framework/rtl/Sets.h"

namespace quil {

enum TFontStyle { fsBold, fsItalic, fsUnderline, fsStrikeOut };
using TFontStyles = TSet<TFontStyle>;
enum TFontPitch { fpDefault, fpVariable, fpFixed };
enum TFontQuality {
  fqDefault, fqDraft, fqProof, fqNonAntialiased, fqAntialiased, fqClearType, fqClearTypeNatural
};
using TFontCharset = uint8_t;
constexpr TFontCharset ANSI_CHARSET = 0;
constexpr TFontCharset DEFAULT_CHARSET = 1;
constexpr TFontCharset SYMBOL_CHARSET = 2;
constexpr TFontCharset OEM_CHARSET = 255;

class TEnumTypeInfo;
class TIntegerTypeInfo;
const TEnumTypeInfo& TypeInfo(TFontStyle);
const TEnumTypeInfo& TypeInfo(TFontPitch);
const TEnumTypeInfo& TypeInfo(TFontQuality);
// Streams write the named character sets by their names.
const TIntegerTypeInfo& CharsetTypeInfo();

class TFontPrivate;

class TFont : public TGraphicsObject {
public:
  TFont();
  ~TFont() override;
  TFont(const TFont&) = delete;
  TFont& operator=(const TFont&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
  static QString DefaultName();
  static constexpr int DefaultSize = 9;

  void Assign(const TPersistent* source) override;

  const QString& Name() const { return name_; }
  void SetName(const QString& name);
  int Size() const;
  void SetSize(int points);
  int Height() const { return height_; }
  void SetHeight(int pixels);
  // Changing the resolution keeps Size, so Height follows.
  int PixelsPerInch() const { return pixelsPerInch_; }
  void SetPixelsPerInch(int pixelsPerInch);
  TColor Color() const { return color_; }
  void SetColor(TColor color);
  TFontStyles Style() const { return style_; }
  void SetStyle(TFontStyles style);
  TFontCharset Charset() const { return charset_; }
  void SetCharset(TFontCharset charset);
  TFontPitch Pitch() const { return pitch_; }
  void SetPitch(TFontPitch pitch);
  TFontQuality Quality() const { return quality_; }
  void SetQuality(TFontQuality quality);
  // Escapement of the text in tenths of a degree, counterclockwise.
  int Orientation() const { return orientation_; }
  void SetOrientation(int tenthsOfDegree);

  // Same face, size, style, pitch, quality and orientation; color and charset aside.
  bool IsEqual(const TFont& other) const;

private:
  friend class TFontPrivate;
  void Changed() override;

  QString name_;
  int height_;
  int pixelsPerInch_ = 96;
  TColor color_ = clWindowText;
  TFontStyles style_;
  TFontCharset charset_ = DEFAULT_CHARSET;
  TFontPitch pitch_ = fpDefault;
  TFontQuality quality_ = fqDefault;
  int orientation_ = 0;
  std::unique_ptr<TFontPrivate> d_;
};

}  // namespace quil
