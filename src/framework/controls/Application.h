#pragma once
// The application, the screen and the mouse: one of each per process, reached through
// the global pointers Application, Screen and Mouse.

#include <QString>

#include "framework/controls/Controls.h"
#include "framework/controls/Hints.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"

namespace quil {

class Exception;
using TExceptionEvent = TEvent<void(TObject* sender, const Exception& error)>;

class TApplication : public TComponent {
public:
  explicit TApplication(TComponent* owner);
  ~TApplication() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Gives every window the active style's colors and repaints it; the style manager
  // calls this when the style switches.
  void StyleChanged(TObject* sender);

  // Delivers what is waiting: Qt's events, then the posted messages.
  void ProcessMessages();
  // Runs the event loop until the last window closes, then frees the owned forms.
  void Run();
  void Terminate();

  // Takes the exception in flight (call it inside a catch block) that no caller can
  // take: EAbort goes silently, any other to OnException, or without one to
  // ShowException. The application installs this as the runtime's handler
  // (ApplicationHandleException), so a data set's InternalHandleException ends here.
  void HandleException(TObject* sender);
  // Shows the error's message in a modal box titled with Title.
  void ShowException(const Exception& error);
  const TExceptionEvent& OnException() const { return onException_; }
  void SetOnException(const TExceptionEvent& handler) { onException_ = handler; }

  // The full path of the running program's file.
  QString ExeName() const;

  const QString& Title() const { return title_; }
  void SetTitle(const QString& title) { title_ = title; }

  // Milliseconds before a hint shows, and before it hides again.
  int HintPause() const { return hintPause_; }
  void SetHintPause(int milliseconds) { hintPause_ = milliseconds; }
  int HintHidePause() const { return hintHidePause_; }
  void SetHintHidePause(int milliseconds) { hintHidePause_ = milliseconds; }
  int HintShortPause() const { return hintShortPause_; }
  void SetHintShortPause(int milliseconds) { hintShortPause_ = milliseconds; }
  bool ShowHint() const { return showHint_; }
  void SetShowHint(bool showHint) { showHint_ = showHint; }
  // The hint of the control under the mouse; setting it fires OnHint.
  const QString& Hint() const { return hint_; }
  void SetHint(const QString& hint);
  void CancelHint() { SetHint(QString()); }

  const TNotifyEvent& OnHint() const { return onHint_; }
  void SetOnHint(const TNotifyEvent& handler) { onHint_ = handler; }

  // The mouse moved to a client point of control: a hint may be due (see Hints.h).
  void HintMouseMessage(TControl* control, TPoint clientPos);
  // Asks the control under the mouse for its hint now and shows it.
  void ActivateHint(TPoint cursorPos);
  // Hides the hint window; the next hint waits for the full pause again.
  void HideHint();
  // The window that shows the hint, null while none shows.
  THintWindow* HintWindow() const;

protected:
  void Notification(TComponent* component, TOperation operation) override;

private:
  void SetHintControl(TControl* control);
  void StartHintTimer(int milliseconds);
  void HintTimerTick(TObject* sender);
  void HideTimerTick(TObject* sender);
  THintWindow* MakeHintWindow(THintWindowClass windowClass);

  QString title_;
  QString hint_;
  int hintPause_ = 500;
  int hintHidePause_ = 2500;
  int hintShortPause_ = 50;
  bool showHint_ = true;
  TNotifyEvent onHint_;
  TExceptionEvent onException_;
  // The hint machinery; owned as components, so that they outlive nothing at exit.
  TControl* hintControl_ = nullptr;  // the control with ShowHint under the mouse
  TRect hintCursorRect_;             // where the hint shown is good, in its client
  TPoint hintMousePos_;              // screen point of the last mouse move
  THintWindow* hintWindow_ = nullptr;
  THintWindowClass hintWindowClass_ = nullptr;
  TTimer* hintTimer_ = nullptr;
  TTimer* hideTimer_ = nullptr;
};

class TScreen : public TComponent {
public:
  explicit TScreen(TComponent* owner) : TComponent(owner) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Logical pixels per inch of the primary screen, 96 without one.
  int PixelsPerInch() const;
  // Tests pin the resolution here; 0 goes back to the screen's.
  void SetPixelsPerInchOverride(int pixelsPerInch) { pixelsPerInchOverride_ = pixelsPerInch; }
  int Width() const;
  int Height() const;

  // crDefault lets each control show its own cursor; any other shows everywhere.
  TCursor Cursor() const { return cursor_; }
  void SetCursor(TCursor cursor);

  // The control that has the keyboard focus, null when none of ours has.
  TWinControl* ActiveControl() const;

private:
  int pixelsPerInchOverride_ = 0;
  TCursor cursor_ = crDefault;
};

class TMouse {
public:
  TPoint CursorPos() const;
  void SetCursorPos(TPoint point);
  TControl* Capture() const { return GetCaptureControl(); }
  void SetCapture(TControl* control) { SetCaptureControl(control); }
  int WheelScrollLines() const;
  int DragThreshold() const;
};

extern TApplication* const Application;
extern TScreen* const Screen;
extern TMouse* const Mouse;

// Sounds the system beep; uType is the framework's sound kind, which Qt cannot tell apart.
bool MessageBeep(unsigned uType);
// How many beeps sounded since the start, for tests that expect one.
int MessageBeepCount();

}  // namespace quil
