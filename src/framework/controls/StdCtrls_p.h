#pragma once
// Check states between the framework's controls and Qt's.

#include <Qt>

#include "framework/controls/StdCtrls.h"

namespace quil {

inline Qt::CheckState QtCheckState(TCheckBoxState state) {
  return state == cbChecked ? Qt::Checked : state == cbGrayed ? Qt::PartiallyChecked : Qt::Unchecked;
}

// The user's click: unchecked -> checked (-> grayed, when allowed) -> unchecked.
inline TCheckBoxState NextCheckBoxState(TCheckBoxState state, bool allowGrayed) {
  if (state == cbUnchecked) return cbChecked;
  if (state == cbChecked && allowGrayed) return cbGrayed;
  return cbUnchecked;
}

}  // namespace quil
