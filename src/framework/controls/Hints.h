#pragma once
// Hints. THintWindow is the small window that shows a hint; TCustomHint shows one where
// the program asks. THintInfo is what CM_HINTSHOW hands the control under the mouse
// (LParam points to it), so that the control can change the text, the window class,
// the place and the rectangle the hint is good for; a result other than 0 shows none.
//
// How a hint travels: a mouse move reaches TApplication::HintMouseMessage -> a control
// with ShowHint is under the mouse -> CM_HINTSHOWPAUSE lets it change the pause -> the
// pause passes -> ActivateHint: CM_HINTSHOW fills THintInfo -> the window class makes a
// hint window, CalcHintRect measures, ActivateHintData shows it at HintPos. Leaving
// CursorRect, a key, a button or HideTimeout hides it.

#include <QString>
#include <memory>

#include "framework/controls/Controls.h"

namespace quil {

class THintWindow;
class TTimer;

// Makes a hint window of one class; HintWindowClassOf<T> gives T's.
using THintWindowClass = THintWindow* (*)(TComponent* owner);
template <typename T>
THintWindow* MakeHintWindow(TComponent* owner) { return new T(owner); }
template <typename T>
constexpr THintWindowClass HintWindowClassOf() { return &MakeHintWindow<T>; }

struct THintInfo {
  TControl* HintControl = nullptr;
  THintWindowClass HintWindowClass = nullptr;  // null: THintWindow
  TPoint HintPos;          // screen point of the window's top left
  int HintMaxWidth = 0;    // pixels the text may take before it wraps
  TColor HintColor = clInfoBk;
  TRect CursorRect;        // HintControl's client rectangle the hint is good for
  TPoint CursorPos;        // the mouse, in HintControl's client coordinates
  int ReshowTimeout = 0;   // milliseconds before the hint is asked for again; 0 never
  int HideTimeout = 0;     // milliseconds until the hint hides
  QString HintStr;
  void* HintData = nullptr;  // for the window class's CalcHintRect and Paint
};

class THintWindow : public TCustomControl {
public:
  explicit THintWindow(TComponent* owner);
  ~THintWindow() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Shows hint in rect, in screen coordinates, without taking the focus.
  void ActivateHint(const TRect& rect, const QString& hint);
  virtual void ActivateHintData(const TRect& rect, const QString& hint, void* data);
  // The size the hint needs at most maxWidth wide, as a rectangle at (0, 0).
  virtual TRect CalcHintRect(int maxWidth, const QString& hint, void* data);
  // Hides the window.
  void ReleaseHandle();

protected:
  void CreateWnd() override;
  void Paint() override;
};

// A hint shown by the program, above or below a place on the screen.
class TCustomHint : public TComponent {
public:
  explicit TCustomHint(TComponent* owner);
  ~TCustomHint() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& Title() const { return title_; }
  void SetTitle(const QString& title) { title_ = title; }
  const QString& Description() const { return description_; }
  void SetDescription(const QString& description) { description_ = description; }
  // Milliseconds until the hint hides; 0 keeps it until HideHint.
  int HideAfter() const { return hideAfter_; }
  void SetHideAfter(int milliseconds) { hideAfter_ = milliseconds; }

  // Shows Title and Description with the window's top left at a screen point.
  virtual void ShowHint(TPoint screenPoint);
  // Shows it under a screen rectangle, as for a cell or a control.
  void ShowHint(const TRect& screenRect);
  // Shows it under the control.
  void ShowHint(TControl* control);
  virtual void HideHint();
  bool Showing() const;
  // The text shown: the title, and the description on the lines under it.
  QString Text() const;

private:
  void HideTimerTick(TObject* sender);

  QString title_;
  QString description_;
  int hideAfter_ = 0;
  std::unique_ptr<THintWindow> window_;
  std::unique_ptr<TTimer> hideTimer_;
};

}  // namespace quil
