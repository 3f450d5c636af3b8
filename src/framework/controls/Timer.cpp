#include "framework/controls/Timer.h"

#include <QTimer>

namespace quil {

class TTimerPrivate {
public:
  explicit TTimerPrivate(TTimer* owner) {
    QObject::connect(&timer, &QTimer::timeout, &timer, [owner] { owner->Timer(); });
  }
  QTimer timer;
};

const TMetaClass& TTimer::StaticClass() {
  static const TMetaClass meta = TMetaClass("TTimer", &TComponent::StaticClass()).Creates<TTimer>();
  return meta;
}

const TMetaClass& TTimer::ClassType() const { return StaticClass(); }

TTimer::TTimer(TComponent* owner) : TComponent(owner), d_(std::make_unique<TTimerPrivate>(this)) {}

TTimer::~TTimer() = default;

void TTimer::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  UpdateTimer();
}

void TTimer::SetInterval(unsigned milliseconds) {
  if (interval_ == milliseconds) return;
  interval_ = milliseconds;
  UpdateTimer();
}

void TTimer::SetOnTimer(const TNotifyEvent& handler) {
  onTimer_ = handler;
  UpdateTimer();
}

void TTimer::UpdateTimer() {
  d_->timer.stop();
  if (enabled_ && interval_ > 0 && onTimer_) d_->timer.start(int(interval_));
}

void TTimer::Timer() {
  if (onTimer_) onTimer_(this);
}

}  // namespace quil
