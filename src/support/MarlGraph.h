#pragma once
// MarlGraph: the library's gradients and the questions about the platform and its
// themes that painting code asks.
//
// How a gradient paint travels: a control owns a TMarlGradient and hands it a canvas.
// FillRect works out the two colors from the settings, the hot and pressed state and the
// canvas' orientation, and ends in FillCanvas, which builds the two vertices and one
// rectangle mesh of the framework's GradientFill. FillBack puts such a gradient behind
// what is already drawn by lifting the drawing off first and laying it back with its
// plain background color made transparent.

#include <cstdint>

#include "framework/graphics/Colors.h"
#include "framework/graphics/Gradient.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Persistent.h"
#include "framework/rtl/Sets.h"

namespace quil {

class TCanvas;
class TControl;
class TWinControl;

enum TMarlGradientCell { gcSelectedCell, gcSelectedRow, gcMultiSelected, gcStripedRows };
using TMarlGradientCells = TSet<TMarlGradientCell>;

enum TMarlGradientOption { goGradient, goHotButton, goHotTrack, goHotColor };
using TMarlGradientOptions = TSet<TMarlGradientOption>;

class TEnumTypeInfo;
const TEnumTypeInfo& TypeInfo(TMarlGradientCell);
const TEnumTypeInfo& TypeInfo(TMarlGradientOption);

// Read by the navigator's buttons.
enum TFineTheme { ftNoChange, ftBorder, ftUnderline };
enum TButtonDrawingStyle { bdsClassic, bdsThemed, bdsGradient };

using TControlNeedsInvalidate = bool (*)(TControl* control);

// False turns every gradient off; the plain fills stand in.
extern bool GradientEnabled;
// Whether a control must repaint when what lies behind it changes; code outside the
// library may replace it.
extern TControlNeedsInvalidate NeedsInvalidate;

inline constexpr TMarlGradientCells AllGradientCells{gcSelectedCell, gcSelectedRow, gcMultiSelected,
                                                      gcStripedRows};

// The settings of a control's gradient, with the operations that paint it.
class TMarlGradient : public TPersistent {
public:
  // The control is not owned; it answers whether themes are on for it.
  explicit TMarlGradient(TControl* control);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TControl* Control() const { return control_; }
  TPersistent* GetOwner() const override;

  bool Active() const { return active_; }
  void SetActive(bool value) { Store(active_, value); }
  TGradientDirection Direction() const { return direction_; }
  void SetDirection(TGradientDirection value) { Store(direction_, value); }
  TMarlGradientOptions Options() const { return options_; }
  void SetOptions(TMarlGradientOptions value) { Store(options_, value); }
  void SwitchOptions(TMarlGradientOptions options, bool on);
  bool SwapColors() const { return swapColors_; }
  void SetSwapColors(bool value) { Store(swapColors_, value); }
  TColor StartColor() const { return startColor_; }
  void SetStartColor(TColor value) { Store(startColor_, value); }
  // clDefault: the color the caller passes.
  TColor EndColor() const { return endColor_; }
  void SetEndColor(TColor value) { Store(endColor_, value); }
  // clDefault: DefaultHotColor.
  TColor HotColor() const { return hotColor_; }
  void SetHotColor(TColor value) { Store(hotColor_, value); }
  // The end color of FillStep.
  TColor StepColor() const { return stepColor_; }
  void SetStepColor(TColor value) { Store(stepColor_, value); }
  // The selection states of a data cell that get the gradient.
  TMarlGradientCells Cells() const { return cells_; }
  void SetCells(TMarlGradientCells value) { Store(cells_, value); }
  // The shade of the far end of FillRect's gradient.
  int32_t ShadowFactor() const { return shadowFactor_; }
  void SetShadowFactor(int32_t value) { Store(shadowFactor_, value); }

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

  // Copies the settings without telling anyone.
  void Assign(const TPersistent* source) override;
  // Takes the settings of source when any differs, and tells; true when it did.
  virtual bool Change(const TMarlGradient* source);
  virtual TColor DefaultHotColor() const;

  // The platform's gradient fill is there. Always so here: the framework draws it.
  static bool IsAvailable();
  // A gradient gives way to themes unless force holds.
  bool IsActive(bool force) const;
  bool IsHotActive(bool force) const;

  static void FillCanvas(TCanvas* canvas, TColor startColor, TColor endColor, const TRect& rect,
                         TGradientDirection direction);
  // Factor 0 gives color; the shade never turns white into black's opposite: a darker
  // shade is never pure white, a lighter one never pure black.
  static TColor ShadowColor(TColor color, int factor);

  // A selection or stripe cell; flat fills plainly with one lighter shade.
  virtual void FillCell(TCanvas* canvas, const TRect& rect, TColor color, bool flat);
  // A button face: hot and pressed states, the hot frame and the gradient.
  virtual void FillRect(TCanvas* canvas, const TRect& rect, TColor color, bool hot, bool pressed);
  // Puts a gradient behind what is drawn on canvas over the plain background color.
  virtual void FillBack(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                        bool pressed, bool grow);
  // FillBack ending in StepColor.
  virtual void FillStep(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                        bool pressed, bool grow);
  // FillBack with the custom style's button elements.
  virtual void FillStyleBack(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot,
                             bool pressed, bool grow);
  virtual void FillStyleRect(TCanvas* canvas, const TRect& rect, TColor color);

protected:
  // Runs OnChange.
  virtual void Changed();

private:
  enum class TBackKind { Plain, Style };
  template <typename T>
  void Store(T& member, const T& value) {
    if (member == value) return;
    member = value;
    Changed();
  }
  bool SameSettings(const TMarlGradient& other) const;
  void FillBehind(TCanvas* canvas, const TRect& rect, TColor color, int frame, int margin, bool hot, bool pressed,
                  bool grow, TBackKind kind);
  void FillStyleElement(TCanvas* canvas, const TRect& rect, bool hot, bool pressed);

  TControl* control_;
  bool active_ = true;
  TGradientDirection direction_ = gdVertical;
  TMarlGradientOptions options_{goGradient};
  bool swapColors_ = false;
  TColor startColor_ = clWindow;
  TColor endColor_ = clDefault;
  TColor hotColor_ = clDefault;
  TColor stepColor_ = clDefault;
  TNotifyEvent onChange_;
  TMarlGradientCells cells_ = AllGradientCells;
  int32_t shadowFactor_ = -25;
};

// A gradient with the defaults of a button: its hot state reverses the gradient.
class TMarlGradientButton : public TMarlGradient {
public:
  explicit TMarlGradientButton(TControl* control);
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// The platform questions. The framework draws every themed element itself in the
// current flat manner, so it answers as the newest system generation; the questions of
// a given version stay open for callers that hold one.
bool IsVista();
bool IsWin08();
bool IsWin11();
bool IsWin08Version(int major, int minor);
bool IsWin11Version(int major, int build);
// The generations whose default colors differ: before Vista, Vista up to the last
// before Windows 11, and Windows 11 on.
enum TSystemGeneration { sgBeforeVista, sgVista, sgWin11 };
TSystemGeneration SystemGeneration();

// A custom style is active.
bool StylesEnabled();
// Themes are on for the control, or with none for the application.
bool ThemesEnabled(const TControl* control = nullptr);
// Prepares a control's background before it paints transparently over its parent: its
// client area on dc takes the parent's color, which is all that erasing through the
// parent gives here, as no window of the framework draws another background. Nothing
// without a parent; there is no stock brush to hand back.
void ClearBackground(TWinControl* control, TCanvas* dc);
void SetupParentBackground(TControl* control, bool on);
// Without themes: the control's published "Transparent", or for a control with a
// "Gradient" its "ParentBackground", is on.
bool ControlNeedsInvalidate(TControl* control);

}  // namespace quil
