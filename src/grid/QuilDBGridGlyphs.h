#pragma once
// The grid's glyphs: check boxes, expand boxes, row marks and sort markers. They come
// from bitmap strips kept as Qt resources in five resolutions (drawn by apps/glyphgen),
// each a row of square images in six key colors on the transparent olive.
//
// How a strip reaches the screen: InternalLayout calls RecreateMarkers, which resolves
// the marker style and stops when its cache key, style name and pixels per inch are
// unchanged. Otherwise LoadGlyphStrip picks the resolution for the pixels per inch and
// rescales it to whole images, RecolorGlyphs maps the key colors through
// CreateMappedBmp, and MakeGlyphList cuts the strip into an image list. Painting takes
// the lists from GetIndicators and GetMarkers and draws with DrawListImage, which
// keeps a glyph's orientation on a mirrored canvas.
//
// How a box reaches a cell: the default drawing of a check box or expand box column
// asks the column for its image (GetCheckBoxImage, GetExpandBoxImage). The column works
// out the box's state from the field's value or the row's expansion; under a theme it
// gives a TThemedBitmap, which the cell's image drawing turns into the style's element,
// otherwise a copy of the built-in list's image, a check box with the frame that
// DrawBoxFrame draws around it in the resolved CheckBoxStyle.

#include <QString>
#include <memory>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/ImageList.h"
#include "framework/graphics/StyleServices.h"
#include "grid/QuilDBGridColumnTypes.h"

namespace quil {

class TEnumTypeInfo;

enum TMarkerStyle {
  msAuto, msAutoGray, msDefault, msSoft, msRaisedDark, msRaisedGray, msRaisedMild,
  msLoweredDark, msLoweredGray, msLoweredMild, msFlat, msGray, msMild
};
enum TMarkerTransparent { mtAuto, mtFalse, mtTrue };

const TEnumTypeInfo& TypeInfo(TMarkerStyle);
const TEnumTypeInfo& TypeInfo(TMarkerTransparent);

// The resources; a suffix "_125" ... "_200" names a larger resolution.
inline const QString SCheckBoxesResource = QStringLiteral("QUILDBCHECKBOXES");
inline const QString SExpandBoxesResource = QStringLiteral("QUILDBEXPANDBOXES");
inline const QString SIndicatorsResource = QStringLiteral("QUILDBINDICATORS");
inline const QString SMarkersResource = QStringLiteral("QUILDBMARKERS");

// The olive that every strip is transparent in (clOlive).
constexpr TColor GlyphTransparentColor = 32896;

// Loads the strip of name for ppi: the largest resolution made for at most ppi, or the
// plain one, stretched to ppi when it was made for another; the result still holds a
// whole number of square images.
void LoadGlyphStrip(TBitmap* bitmap, const QString& name, int ppi);

// The style of the look, for the tables of RecreateMarkers: fixed is the grid's
// FixedStyle as an index (fsDefault = 0 ... fsMild = 7).
TMarkerStyle ResolveMarkerStyle(TMarkerStyle style, bool themed, int fixedStyle);
bool ResolveMarkerTransparent(TMarkerTransparent transparent, TMarkerStyle resolved);

// Maps the six key colors for a resolved style. Transparent turns the face into the
// transparent color; force leaves only the ink; styled takes the ink (and without
// force the two inner shades) from the active style.
void RecolorGlyphs(TBitmap* bitmap, TMarkerStyle style, bool transparent, bool force, bool styled);

// A list of the strip's square images, the transparent color masked out. Expand boxes
// keep it as their background, so that a bitmap taken from the list is transparent
// in the same color.
std::unique_ptr<TImageList> MakeGlyphList(TBitmap* strip, bool expandBoxes);

// Draws image index of list at (x, y). On a mirrored canvas a glyph with no left or
// right sense (direct) is drawn in place, a pixel on; any other goes through a bitmap
// of rect, over a copy of the canvas or its brush color, and keeps its orientation.
void DrawListImage(TImageList* list, TCanvas* canvas, const TRect& rect, int x, int y, int index, bool direct,
                   bool copyBackground);

// Draws the edges of a box around rect in a resolved style (cbDefault ... cbMild): the
// two-ring styles fill rect's outer pixel ring and the one inside it, the others only
// the outer ring.
void DrawBoxFrame(TCanvas* canvas, TRect rect, TCheckBoxStyle style);

// A bitmap that stands for a theme element: drawing it asks the active style to draw
// the element into the bitmap's place instead of copying pixels.
class TThemedBitmap : public TBitmap {
public:
  TThemedBitmap(const TThemedElementDetails& details, int width, int height);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const TThemedElementDetails& Details() const { return details_; }
  void SetDetails(const TThemedElementDetails& details) { details_ = details; }

protected:
  void Draw(TCanvas* canvas, const TRect& rect) override;

private:
  TThemedElementDetails details_;
};

}  // namespace quil
