#pragma once
// TTimer: fires OnTimer every Interval milliseconds while Enabled, through the event
// loop. An Interval of 0 or no OnTimer stops it.

#include <memory>

#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"

namespace quil {

class TTimerPrivate;

class TTimer : public TComponent {
public:
  explicit TTimer(TComponent* owner);
  ~TTimer() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  unsigned Interval() const { return interval_; }
  void SetInterval(unsigned milliseconds);
  const TNotifyEvent& OnTimer() const { return onTimer_; }
  void SetOnTimer(const TNotifyEvent& handler);

protected:
  virtual void Timer();

private:
  friend class TTimerPrivate;
  void UpdateTimer();

  bool enabled_ = true;
  unsigned interval_ = 1000;
  TNotifyEvent onTimer_;
  std::unique_ptr<TTimerPrivate> d_;
};

}  // namespace quil
