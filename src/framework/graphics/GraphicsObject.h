#pragma once
// TGraphicsObject: the common root of font, brush and pen. A canvas listens to
// OnChange and applies the new settings to its painter the next time it draws.

#include "framework/rtl/Events.h"
#include "framework/rtl/Persistent.h"

namespace quil {

class TGraphicsObject : public TPersistent {
public:
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

protected:
  virtual void Changed();

private:
  TNotifyEvent onChange_;
};

}  // namespace quil
