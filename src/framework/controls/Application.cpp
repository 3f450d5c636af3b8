#include "framework/controls/Application.h"

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QStyleHints>
#include <vector>

#include "framework/controls/Controls_p.h"
#include "framework/controls/Cursors_p.h"
#include "framework/controls/MessageQueue.h"
#include "framework/rtl/ExceptionHandler.h"
#include "framework/rtl/Exceptions.h"

namespace quil {

namespace {

TApplication applicationInstance(nullptr);
TScreen screenInstance(nullptr);
TMouse mouseInstance;
int beepCount = 0;

// The window controls that hold widget, innermost first.
std::vector<TWinControl*> ControlChain(QWidget* widget) {
  std::vector<TWinControl*> chain;
  for (; widget; widget = widget->parentWidget())
    if (TWinControl* control = FindControl(widget)) chain.push_back(control);
  return chain;
}

bool Contains(const std::vector<TWinControl*>& chain, TWinControl* control) {
  return std::find(chain.begin(), chain.end(), control) != chain.end();
}

}  // namespace

TApplication* const Application = &applicationInstance;
TScreen* const Screen = &screenInstance;
TMouse* const Mouse = &mouseInstance;

const TMetaClass& TApplication::StaticClass() {
  static const TMetaClass meta = TMetaClass("TApplication", &TComponent::StaticClass());
  return meta;
}

const TMetaClass& TApplication::ClassType() const { return StaticClass(); }

TApplication::TApplication(TComponent* owner) : TComponent(owner) {
  ApplicationHandleException() = TExceptionHandler(this, &TApplication::HandleException);
}

TApplication::~TApplication() {
  if (ApplicationHandleException() == TExceptionHandler(this, &TApplication::HandleException))
    ApplicationHandleException() = nullptr;
  // At process exit Qt is gone already: forms still owned here are let go, not freed,
  // because freeing a widget now would touch a dead application.
  while (ComponentCount() > 0) RemoveComponent(Components(ComponentCount() - 1));
}

void TApplication::ProcessMessages() {
  QCoreApplication::processEvents();
  DeliverPostedMessages();
}

void TApplication::Run() {
  QApplication::exec();
  while (ComponentCount() > 0) delete Components(ComponentCount() - 1);
}

void TApplication::Terminate() { QCoreApplication::quit(); }

QString TApplication::ExeName() const { return QCoreApplication::applicationFilePath(); }

void TApplication::HandleException(TObject* sender) {
  const auto report = [&](const Exception& error) {
    if (onException_) onException_(sender, error);
    else ShowException(error);
  };
  try {
    throw;
  } catch (const EAbort&) {
  } catch (const Exception& error) {
    report(error);
  } catch (const std::exception& error) {
    report(Exception(QString::fromUtf8(error.what())));
  }
}

void TApplication::ShowException(const Exception& error) {
  QString message = error.Message();
  if (!message.isEmpty() && !message.endsWith(QLatin1Char('.'))) message += QLatin1Char('.');
  const QString title = title_.isEmpty() ? QCoreApplication::applicationName() : title_;
  QMessageBox::critical(nullptr, title, message);
}

void TApplication::SetHint(const QString& hint) {
  if (hint_ == hint) return;
  hint_ = hint;
  if (onHint_) onHint_(this);
}

const TMetaClass& TScreen::StaticClass() {
  static const TMetaClass meta = TMetaClass("TScreen", &TComponent::StaticClass());
  return meta;
}

const TMetaClass& TScreen::ClassType() const { return StaticClass(); }

int TScreen::PixelsPerInch() const {
  if (pixelsPerInchOverride_ > 0) return pixelsPerInchOverride_;
  QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? qRound(screen->logicalDotsPerInch()) : 96;
}

int TScreen::Width() const {
  QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->geometry().width() : 0;
}

int TScreen::Height() const {
  QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->geometry().height() : 0;
}

void TScreen::SetCursor(TCursor cursor) {
  if (cursor_ == cursor) return;
  if (cursor_ != crDefault) QApplication::restoreOverrideCursor();
  cursor_ = cursor;
  if (cursor != crDefault) QApplication::setOverrideCursor(QCursor(CursorShapeOf(cursor)));
}

TWinControl* TScreen::ActiveControl() const { return FindControl(QApplication::focusWidget()); }

TPoint TMouse::CursorPos() const {
  QPoint pos = QCursor::pos();
  return Point(pos.x(), pos.y());
}

void TMouse::SetCursorPos(TPoint point) { QCursor::setPos(point.X, point.Y); }

int TMouse::WheelScrollLines() const { return QApplication::wheelScrollLines(); }

int TMouse::DragThreshold() const { return QApplication::startDragDistance(); }

bool MessageBeep(unsigned uType) {
  ++beepCount;
  QApplication::beep();
  return true;
}

int MessageBeepCount() { return beepCount; }

void WatchFocusChanges() {
  static bool watching = false;
  auto* app = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (watching || !app) return;
  watching = true;
  // The focus leaving the application entirely is no exit: it comes back to the same
  // control, as it does to the framework's form's active control.
  static QPointer<QWidget> lastFocus;
  QObject::connect(app, &QApplication::focusChanged, app, [](QWidget* old, QWidget* now) {
    // What the control losing the focus tracks (a dropped-down list, a drag) ends. The
    // sender is the control that takes the focus in the same window; none when the
    // window or the application is deactivated.
    std::vector<TWinControl*> leaving = ControlChain(old);
    if (!leaving.empty()) {
      const bool sameWindow = now && now->window() == old->window();
      std::vector<TWinControl*> taking = sameWindow ? ControlChain(now) : std::vector<TWinControl*>();
      TControl* sender = taking.empty() ? nullptr : taking.front();
      leaving.front()->Perform(CM_CANCELMODE, 0, LPARAM(sender));
    }
    if (!now) return;
    std::vector<TWinControl*> left = ControlChain(lastFocus);
    std::vector<TWinControl*> entered = ControlChain(now);
    lastFocus = now;
    for (TWinControl* control : left)
      if (!Contains(entered, control)) control->Perform(CM_EXIT, 0, 0);
    for (auto control = entered.rbegin(); control != entered.rend(); ++control)
      if (!Contains(left, *control)) (*control)->Perform(CM_ENTER, 0, 0);
  });
}

Qt::CursorShape CursorShapeOf(TCursor cursor) {
  switch (cursor) {
    case crNone: return Qt::BlankCursor;
    case crCross: return Qt::CrossCursor;
    case crIBeam: return Qt::IBeamCursor;
    case crSizeNESW: return Qt::SizeBDiagCursor;
    case crSizeNS: return Qt::SizeVerCursor;
    case crSizeNWSE: return Qt::SizeFDiagCursor;
    case crSizeWE: return Qt::SizeHorCursor;
    case crUpArrow: return Qt::UpArrowCursor;
    case crHourGlass:
    case crSQLWait: return Qt::WaitCursor;
    case crDrag:
    case crMultiDrag: return Qt::DragMoveCursor;
    case crNoDrop:
    case crNo: return Qt::ForbiddenCursor;
    case crHSplit: return Qt::SplitHCursor;
    case crVSplit: return Qt::SplitVCursor;
    case crAppStart: return Qt::BusyCursor;
    case crHelp: return Qt::WhatsThisCursor;
    case crHandPoint: return Qt::PointingHandCursor;
    case crSizeAll: return Qt::SizeAllCursor;
    default: return Qt::ArrowCursor;
  }
}

}  // namespace quil
