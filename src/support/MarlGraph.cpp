#include "support/MarlGraph.h"

#include "framework/controls/Controls.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/ColorProps.h"
#include "framework/graphics/GraphUtil.h"
#include "framework/graphics/StyleServices.h"
#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

bool GradientEnabled = true;
TControlNeedsInvalidate NeedsInvalidate = ControlNeedsInvalidate;

namespace {

// The shades FillCell works out, kept for the last color given: it runs for every
// selected cell of every paint. The color is kept resolved, so that a system color
// whose value a style switch changed is worked out again.
struct TCellShades {
  TColor color = clNone;  // clNone: nothing worked out yet
  TColor top = clNone;
  TColor bottom = clNone;
};
TCellShades flatShades;
TCellShades raisedShades;

bool ShadesToWhite(TColor color, int factor) { return GetShadowColor(color, factor) == clWhite; }

// Restores the canvas' brush color and style when it goes out of scope.
class TBrushKeeper {
public:
  explicit TBrushKeeper(TCanvas* canvas)
      : canvas_(canvas), color_(canvas->Brush()->Color()), style_(canvas->Brush()->Style()) {}
  ~TBrushKeeper() {
    canvas_->Brush()->SetColor(color_);
    canvas_->Brush()->SetStyle(style_);
  }

private:
  TCanvas* canvas_;
  TColor color_;
  TBrushStyle style_;
};

void PlainFill(TCanvas* canvas, const TRect& rect, TColor color) {
  canvas->Brush()->SetStyle(bsSolid);
  canvas->Brush()->SetColor(color);
  canvas->FillRect(rect);
}

// The platform generation the framework's look follows: current and flat.
constexpr int PlatformMajor = 10;
constexpr int PlatformMinor = 0;
constexpr int PlatformBuild = 22631;

}  // namespace

const TEnumTypeInfo& TypeInfo(TMarlGradientCell) {
  static const TEnumTypeInfo info("TMarlGradientCell",
                                  {"gcSelectedCell", "gcSelectedRow", "gcMultiSelected", "gcStripedRows"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TMarlGradientOption) {
  static const TEnumTypeInfo info("TMarlGradientOption", {"goGradient", "goHotButton", "goHotTrack", "goHotColor"});
  return info;
}

// --- TMarlGradient

const TMetaClass& TMarlGradient::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TMarlGradient", &TPersistent::StaticClass())
          .Published(BoolProp("Active", &TMarlGradient::Active, &TMarlGradient::SetActive).Default(true));
  return meta;
}

const TMetaClass& TMarlGradient::ClassType() const { return StaticClass(); }

TMarlGradient::TMarlGradient(TControl* control) : control_(control) {}

TPersistent* TMarlGradient::GetOwner() const { return control_; }

void TMarlGradient::SwitchOptions(TMarlGradientOptions options, bool on) {
  SetOptions(on ? options_ + options : options_ - options);
}

void TMarlGradient::Changed() {
  if (onChange_) onChange_(this);
}

void TMarlGradient::Assign(const TPersistent* source) {
  const auto* gradient = dynamic_cast<const TMarlGradient*>(source);
  if (!gradient) {
    TPersistent::Assign(source);
    return;
  }
  active_ = gradient->active_;
  direction_ = gradient->direction_;
  options_ = gradient->options_;
  swapColors_ = gradient->swapColors_;
  startColor_ = gradient->startColor_;
  endColor_ = gradient->endColor_;
  hotColor_ = gradient->hotColor_;
  stepColor_ = gradient->stepColor_;
  cells_ = gradient->cells_;
  shadowFactor_ = gradient->shadowFactor_;
}

bool TMarlGradient::SameSettings(const TMarlGradient& other) const {
  return active_ == other.active_ && direction_ == other.direction_ && options_ == other.options_ &&
         swapColors_ == other.swapColors_ && startColor_ == other.startColor_ && endColor_ == other.endColor_ &&
         hotColor_ == other.hotColor_ && stepColor_ == other.stepColor_ && cells_ == other.cells_ &&
         shadowFactor_ == other.shadowFactor_;
}

bool TMarlGradient::Change(const TMarlGradient* source) {
  if (!source || SameSettings(*source)) return false;
  Assign(source);
  Changed();
  return true;
}

TColor TMarlGradient::DefaultHotColor() const { return TColor(0xEFD3C6); }

bool TMarlGradient::IsAvailable() { return true; }

bool TMarlGradient::IsActive(bool force) const {
  if (!GradientEnabled || !IsAvailable() || !active_) return false;
  return force || !ThemesEnabled(control_);
}

bool TMarlGradient::IsHotActive(bool force) const {
  return IsActive(force) && options_.Intersects({goHotButton, goHotTrack, goHotColor});
}

void TMarlGradient::FillCanvas(TCanvas* canvas, TColor startColor, TColor endColor, const TRect& rect,
                               TGradientDirection direction) {
  if (!canvas || !IsAvailable()) return;
  const TColor start = ColorToRGB(startColor), end = ColorToRGB(endColor);
  const TTriVertex vertices[2] = {
      {rect.Left, rect.Top, uint16_t(GetRValue(start) << 8), uint16_t(GetGValue(start) << 8),
       uint16_t(GetBValue(start) << 8), 0},
      {rect.Right, rect.Bottom, uint16_t(GetRValue(end) << 8), uint16_t(GetGValue(end) << 8),
       uint16_t(GetBValue(end) << 8), 0}};
  const TGradientRect mesh{0, 1};
  GradientFill(canvas->Handle(), vertices, 2, &mesh, 1,
               direction == gdHorizontal ? GRADIENT_FILL_RECT_H : GRADIENT_FILL_RECT_V);
}

TColor TMarlGradient::ShadowColor(TColor color, int factor) {
  if (factor == 0) return color;
  const TColor shade = GetShadowColor(color, factor);
  if (factor < 0 && shade == clWhite) return clBlack;
  if (factor > 0 && shade == clBlack) return clWhite;
  return shade;
}

void TMarlGradient::FillCell(TCanvas* canvas, const TRect& rect, TColor color, bool flat) {
  TCellShades& shades = flat ? flatShades : raisedShades;
  const TColor rgb = ColorToRGB(color);
  if (shades.color != rgb) {
    shades.color = rgb;
    if (flat) {
      TColor fill = GetShadowColor(rgb, 20);
      if (ShadesToWhite(fill, 10)) {
        fill = GetShadowColor(rgb, 10);
        if (ShadesToWhite(fill, 10)) fill = rgb;
      }
      shades.top = shades.bottom = fill;
    } else {
      shades.top = GetShadowColor(rgb, 35);
      shades.bottom = GetShadowColor(rgb, 10);
      if (ShadesToWhite(shades.bottom, 10)) shades.bottom = rgb;
    }
  }
  if (flat) {
    TBrushKeeper keep(canvas);
    PlainFill(canvas, rect, shades.top);
  } else {
    FillCanvas(canvas, shades.top, shades.bottom, rect, gdVertical);
  }
}

void TMarlGradient::FillRect(TCanvas* canvas, const TRect& rect, TColor color, bool hot, bool pressed) {
  const bool hotNow = hot && options_.Intersects({goHotButton, goHotTrack, goHotColor});
  TColor face = endColor_ != clDefault ? endColor_ : color;
  if (hotNow && options_.Contains(goHotColor)) face = hotColor_ != clDefault ? hotColor_ : DefaultHotColor();
  TRect area = rect;
  if (hotNow && options_.Contains(goHotTrack)) {
    TBrushKeeper keep(canvas);
    PlainFill(canvas, area, ShadowColor(face, -50));
    if (pressed) face = ShadowColor(face, -25);
    area.Inflate(-1, -1);
    if (!options_.Contains(goHotButton)) {
      PlainFill(canvas, area, face);
      return;
    }
  }
  if (!options_.Contains(goGradient) && !(hotNow && options_.Contains(goHotButton))) {
    TBrushKeeper keep(canvas);
    PlainFill(canvas, area, face);
    return;
  }
  const TColor shade = ShadowColor(face, shadowFactor_);
  const bool mirroredAcross = canvas->CanvasOrientation() == coRightToLeft && direction_ == gdHorizontal;
  const bool reverse = swapColors_ ^ (hotNow && options_.Contains(goHotButton)) ^
                       (!options_.Contains(goGradient) || (hotNow && options_.Contains(goHotTrack))) ^ mirroredAcross;
  if (reverse) FillCanvas(canvas, shade, startColor_, area, direction_);
  else FillCanvas(canvas, startColor_, shade, area, direction_);
}

void TMarlGradient::FillBehind(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                               bool pressed, bool grow, TBackKind kind) {
  TRect area = rect;
  area.Inflate(-frame, -frame);
  TRect kept = area;
  if (grow) {
    const bool tracked = hot && options_.Contains(goHotTrack);
    if (kind == TBackKind::Style) {
      if (hot) area.Inflate(1, 1);
    } else {
      if (pressed || tracked) {
        ++area.Right;
        ++area.Bottom;
      }
      if (!pressed || tracked) {
        --area.Left;
        --area.Top;
      }
    }
  }
  kept.Inflate(-margin, -margin);
  if (kept.IsEmpty()) return;
  TBitmap drawing(kept.Width(), kept.Height());
  drawing.Canvas()->CopyRect(Rect(0, 0, kept.Width(), kept.Height()), canvas, kept);
  if (kind == TBackKind::Style) FillStyleElement(canvas, area, hot, pressed);
  else FillRect(canvas, area, color, hot, pressed);
  drawing.SetTransparentColor(color);
  drawing.SetTransparentMode(tmFixed);
  drawing.SetTransparent(true);
  canvas->Draw(kept.Left, kept.Top, &drawing);
}

void TMarlGradient::FillBack(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                             bool pressed, bool grow) {
  FillBehind(canvas, rect, color, frame, margin, hot, pressed, grow, TBackKind::Plain);
}

void TMarlGradient::FillStep(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                             bool pressed, bool grow) {
  const TColor endColor = endColor_;
  endColor_ = stepColor_;
  TScopeExit restore([this, endColor] { endColor_ = endColor; });
  FillBack(canvas, rect, color, frame, margin, hot, pressed, grow);
}

void TMarlGradient::FillStyleBack(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                                  bool pressed, bool grow) {
  FillBehind(canvas, rect, color, frame, margin, hot, pressed, grow, TBackKind::Style);
}

// The style's fixed grid cell of the state: its gradient pair when gradients are on,
// else its fill.
void TMarlGradient::FillStyleElement(TCanvas* canvas, const TRect& rect, bool hot, bool pressed) {
  const TCustomStyleServices* style = StyleServices();
  if (IsActive(true) && options_.Contains(goGradient)) {
    const TThemedGrid part = pressed ? tgGradientFixedCellPressed : hot ? tgGradientFixedCellHot : tgGradientFixedCellNormal;
    const TThemedElementDetails details = TCustomStyleServices::GetElementDetails(part);
    TColor first = clNone, second = clNone;
    style->GetElementColor(details, ecGradientColor1, first);
    style->GetElementColor(details, ecGradientColor2, second);
    FillCanvas(canvas, first, second, rect, direction_);
    return;
  }
  const TThemedGrid part = pressed ? tgClassicFixedCellPressed : hot ? tgClassicFixedCellHot : tgClassicFixedCellNormal;
  TColor fill = clNone;
  style->GetElementColor(TCustomStyleServices::GetElementDetails(part), ecFillColor, fill);
  TBrushKeeper keep(canvas);
  PlainFill(canvas, rect, fill);
}

void TMarlGradient::FillStyleRect(TCanvas* canvas, const TRect& rect, TColor color) {
  if (IsActive(true) && options_.Contains(goGradient)) {
    const TColor light = ShadowColor(color, 12), dark = ShadowColor(color, -12);
    if (swapColors_) FillCanvas(canvas, dark, light, rect, direction_);
    else FillCanvas(canvas, light, dark, rect, direction_);
    return;
  }
  PlainFill(canvas, rect, color);
}

// --- TMarlGradientButton

const TMetaClass& TMarlGradientButton::StaticClass() {
  using G = TMarlGradientButton;
  static const TMetaClass meta =
      TMetaClass("TMarlGradientButton", &TMarlGradient::StaticClass())
          .Published(EnumProp("Direction", &G::Direction, &G::SetDirection).Default(gdVertical))
          .Published(SetProp("Options", &G::Options, &G::SetOptions)
                         .Default(TMarlGradientOptions{goGradient, goHotButton}))
          .Published(BoolProp("SwapColors", &G::SwapColors, &G::SetSwapColors).Default(false))
          .Published(ColorProp("StartColor", &G::StartColor, &G::SetStartColor).Default(clWindow))
          .Published(ColorProp("EndColor", &G::EndColor, &G::SetEndColor).Default(clDefault))
          .Published(ColorProp("HotColor", &G::HotColor, &G::SetHotColor).Default(clDefault))
          .Published(IntProp("ShadowFactor", &G::ShadowFactor, &G::SetShadowFactor).Default(-25));
  return meta;
}

const TMetaClass& TMarlGradientButton::ClassType() const { return StaticClass(); }

TMarlGradientButton::TMarlGradientButton(TControl* control) : TMarlGradient(control) {
  SetOptions({goGradient, goHotButton});
}

// --- The platform

bool IsWin08Version(int major, int minor) { return major > 6 || (major == 6 && minor >= 2); }

bool IsWin11Version(int major, int build) {
  return major >= 10 && build >= 22000;
}

bool IsVista() { return true; }

bool IsWin08() {
  static const bool answer = IsWin08Version(PlatformMajor, PlatformMinor);
  return answer;
}

// True everywhere: the framework draws the current flat look on every platform, and the grid follows it.
bool IsWin11() {
  static const bool answer = IsWin11Version(PlatformMajor, PlatformBuild);
  return answer;
}

TSystemGeneration SystemGeneration() {
  if (IsWin11()) return sgWin11;
  return IsVista() ? sgVista : sgBeforeVista;
}

bool StylesEnabled() { return TStyleManager::IsCustomStyleActive(); }

bool ThemesEnabled(const TControl*) { return StyleServices()->Enabled(); }

void ClearBackground(TWinControl* control, TCanvas* dc) {
  if (!control || !dc || !control->Parent()) return;
  // The parent's background is its color: no window of the framework erases otherwise.
  TBrushKeeper keep(dc);
  PlainFill(dc, control->ClientRect(), control->Parent()->Color());
}

void SetupParentBackground(TControl* control, bool on) {
  TControlStyle style = control->ControlStyle();
  style.Switch(csParentBackground, on);
  control->SetControlStyle(style);
}

bool ControlNeedsInvalidate(TControl* control) {
  if (!control || ThemesEnabled(control)) return false;
  const TPropInfo* prop = GetPropInfo(control, QStringLiteral("Transparent"));
  if (!prop && GetPropInfo(control, QStringLiteral("Gradient")))
    prop = GetPropInfo(control, QStringLiteral("ParentBackground"));
  return prop && GetOrdProp(control, prop) != 0;
}

}  // namespace quil
