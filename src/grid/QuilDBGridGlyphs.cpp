#include "grid/QuilDBGridGlyphs.h"

#include <QtGlobal>
#include <cassert>

#include "framework/graphics/Canvas.h"
#include "framework/graphics/FrameDrawing.h"
#include "framework/rtl/TypInfo.h"

// The strips live in a static library, whose resource object the linker would drop
// unless something refers to it; Q_INIT_RESOURCE must stand outside any namespace.
static void InitGlyphResources() { Q_INIT_RESOURCE(QuilDBGridGlyphs); }

namespace quil {

const TEnumTypeInfo& TypeInfo(TMarkerStyle) {
  static const TEnumTypeInfo info(
      "TMarkerStyle", {"msAuto", "msAutoGray", "msDefault", "msSoft", "msRaisedDark", "msRaisedGray", "msRaisedMild",
                       "msLoweredDark", "msLoweredGray", "msLoweredMild", "msFlat", "msGray", "msMild"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TMarkerTransparent) {
  static const TEnumTypeInfo info("TMarkerTransparent", {"mtAuto", "mtFalse", "mtTrue"});
  return info;
}

namespace {

struct TStripResolution {
  const char* suffix;
  int ppi;
};

// Largest first: the first that ppi reaches is taken.
constexpr TStripResolution kResolutions[] = {{"_200", 192}, {"_175", 168}, {"_150", 144}, {"_125", 120}, {"", 96}};

// Nearest-neighbour stretching keeps the key colors exact for the recoloring.
void Rescale(TBitmap* bitmap, int ppi, int madeFor) {
  const int height = MulDiv(bitmap->Height(), ppi, madeFor);
  const int width = bitmap->Width() / bitmap->Height() * height;
  if (height < 1 || (width == bitmap->Width() && height == bitmap->Height())) return;
  TBitmap original;
  original.Assign(bitmap);
  bitmap->SetSize(width, height);
  bitmap->Canvas()->StretchDraw(Rect(0, 0, width, height), &original);
}

// The key colors of the strips, in the order of the mapping table's columns.
const std::vector<TColor> kKeyColors = {clAqua, clTeal, clBlue, clNavy, clLime, clBlack};

// Palette entry of aqua, teal, blue and navy for each resolved style; lime is always
// entry 5 (face) and black entry 6 (ink).
constexpr int kStyleMapping[][4] = {
    {0, 1, 2, 4},  // msDefault
    {0, 1, 2, 3},  // msSoft
    {1, 5, 5, 4},  // msRaisedDark
    {1, 5, 5, 3},  // msRaisedGray
    {1, 5, 5, 2},  // msRaisedMild
    {4, 5, 5, 1},  // msLoweredDark
    {3, 5, 5, 1},  // msLoweredGray
    {2, 5, 5, 1},  // msLoweredMild
    {4, 5, 5, 4},  // msFlat
    {3, 5, 5, 3},  // msGray
    {2, 5, 5, 2},  // msMild
};

// By FixedStyle, fsDefault to fsMild.
constexpr TMarkerStyle kAutoStyles[8] = {msDefault, msSoft, msRaisedDark, msFlat, msRaisedGray, msGray, msRaisedMild, msMild};
constexpr TMarkerStyle kAutoGrayStyles[8] = {msSoft, msSoft, msRaisedGray, msGray, msRaisedGray, msGray, msRaisedGray, msGray};

// Dark styles whose first alternate row color is too close to the fixed cells' face.
constexpr TColor kDarkAlternates[] = {4079166, 3158064};
constexpr TColor kDarkLight = 7368816;
constexpr TColor kDarkShadow = 2105376;

// The left and top edge and the right and bottom edge of each box style from cbLoweredDark
// on; cbDefault and cbSoft put a sunken ring around one of these.
struct TBoxEdges {
  unsigned leftTop;
  unsigned leftTopFlags;
  unsigned rightBottom;
  unsigned rightBottomFlags;
};

constexpr TBoxEdges kBoxEdges[] = {
    {BDR_SUNKENOUTER, BF_MONO, BDR_SUNKENINNER, 0},  // cbLoweredDark
    {BDR_SUNKENINNER, 0, BDR_SUNKENINNER, 0},        // cbLoweredGray
    {BDR_SUNKENOUTER, 0, BDR_SUNKENINNER, 0},        // cbLoweredMild
    {BDR_SUNKENOUTER, BF_MONO, BDR_RAISEDOUTER, BF_MONO},  // cbFlat
    {BDR_SUNKENINNER, 0, BDR_RAISEDOUTER, 0},        // cbGray
    {BDR_SUNKENOUTER, 0, BDR_RAISEDINNER, 0},        // cbMild
};

}  // namespace

void LoadGlyphStrip(TBitmap* bitmap, const QString& name, int ppi) {
  static const bool initialized = (InitGlyphResources(), true);
  (void)initialized;
  for (const TStripResolution& resolution : kResolutions) {
    if (ppi < resolution.ppi && resolution.ppi != 96) continue;
    bitmap->LoadFromResourceName(name + QLatin1String(resolution.suffix));
    if (ppi != resolution.ppi && ppi >= 1) Rescale(bitmap, ppi, resolution.ppi);
    return;
  }
}

TMarkerStyle ResolveMarkerStyle(TMarkerStyle style, bool themed, int fixedStyle) {
  assert(fixedStyle >= 0 && fixedStyle < 8 && "a FixedStyle ordinal");
  if (style == msAuto) return themed ? msRaisedMild : kAutoStyles[fixedStyle];
  if (style == msAutoGray) return themed ? msRaisedGray : kAutoGrayStyles[fixedStyle];
  return style;
}

bool ResolveMarkerTransparent(TMarkerTransparent transparent, TMarkerStyle resolved) {
  if (transparent == mtAuto) return resolved < msLoweredDark;
  return transparent == mtTrue;
}

void RecolorGlyphs(TBitmap* bitmap, TMarkerStyle style, bool transparent, bool force, bool styled) {
  assert(style >= msDefault && "a resolved marker style");
  const TColor none = GlyphTransparentColor;
  TColor palette[7] = {clWhite,      (style == msDefault || style == msSoft) ? none : cl3DLight,
                       clBtnShadow,  cl3DDkShadow,
                       clBlack,      transparent ? none : clWhite,
                       clBlack};
  if (force)
    for (int entry = 0; entry < 6; ++entry) palette[entry] = none;
  if (styled) {
    const TCustomStyleServices* services = StyleServices();
    palette[6] = services->GetStyleFontColor(sfGridItemFixedNormal);
    if (!force) {
      palette[1] = services->Scheme()[srAlternateRow1];
      palette[2] = services->Scheme()[srAlternateRow2];
      if (palette[1] == kDarkAlternates[0] || palette[1] == kDarkAlternates[1]) {
        palette[1] = kDarkLight;
      } else if (palette[2] == 0) {
        palette[2] = kDarkShadow;
        palette[1] = kDarkLight;
      }
    }
  }
  const int* mapping = kStyleMapping[style - msDefault];
  const std::vector<TColor> newColors = {palette[mapping[0]], palette[mapping[1]], palette[mapping[2]],
                                         palette[mapping[3]], palette[5],          palette[6]};
  bitmap->Assign(CreateMappedBmp(bitmap, kKeyColors, newColors).get());
}

std::unique_ptr<TImageList> MakeGlyphList(TBitmap* strip, bool expandBoxes) {
  auto list = std::make_unique<TImageList>(strip->Height(), strip->Height());
  if (expandBoxes) list->SetBkColor(GlyphTransparentColor);
  list->AddMasked(strip, GlyphTransparentColor);
  return list;
}

// The bitmap is drawn on as a mirrored canvas, which turns the glyph round, and copied
// back through the canvas' mirror, which turns it back: the glyph lands where a
// mirrored drawing puts it, but reads as drawn.
void DrawListImage(TImageList* list, TCanvas* canvas, const TRect& rect, int x, int y, int index, bool direct,
                   bool copyBackground) {
  if (!list || !canvas) return;
  if (canvas->CanvasOrientation() != coRightToLeft) return list->Draw(canvas, x, y, index);
  if (direct) return list->Draw(canvas, x + 1, y, index);
  if (rect.IsEmpty()) return;
  TBitmap buffer(rect.Width(), rect.Height());
  const TRect local = Rect(0, 0, rect.Width(), rect.Height());
  TCanvas* bufferCanvas = buffer.Canvas();
  if (copyBackground) {
    bufferCanvas->CopyRect(local, canvas, rect);
  } else {
    bufferCanvas->Brush()->Assign(canvas->Brush());
    bufferCanvas->FillRect(local);
  }
  bufferCanvas->SetCanvasOrientation(coRightToLeft);
  list->Draw(bufferCanvas, rect.Width() - list->Width() - (x - rect.Left), y - rect.Top, index);
  bufferCanvas->SetCanvasOrientation(coLeftToRight);
  canvas->CopyRect(rect, bufferCanvas, local);
}

void DrawBoxFrame(TCanvas* canvas, TRect rect, TCheckBoxStyle style) {
  assert(style >= cbDefault && "a resolved check box style");
  TBoxEdges edges = kBoxEdges[0];
  if (style == cbDefault || style == cbSoft) {
    DrawEdge(canvas->Handle(), rect, BDR_SUNKENOUTER, BF_RECT);
    rect.Inflate(-1, -1);
    if (style == cbSoft) edges = {BDR_SUNKENINNER, 0, BDR_SUNKENINNER, 0};
  } else {
    edges = kBoxEdges[style - cbLoweredDark];
  }
  DrawEdge(canvas->Handle(), rect, edges.leftTop, BF_TOPLEFT | edges.leftTopFlags);
  DrawEdge(canvas->Handle(), rect, edges.rightBottom, BF_BOTTOMRIGHT | edges.rightBottomFlags);
}

const TMetaClass& TThemedBitmap::StaticClass() {
  static const TMetaClass meta("TThemedBitmap", &TBitmap::StaticClass());
  return meta;
}

const TMetaClass& TThemedBitmap::ClassType() const { return StaticClass(); }

TThemedBitmap::TThemedBitmap(const TThemedElementDetails& details, int width, int height) : details_(details) {
  SetSize(width, height);
}

void TThemedBitmap::Draw(TCanvas* canvas, const TRect& rect) { StyleServices()->DrawElement(canvas, details_, rect); }

}  // namespace quil
