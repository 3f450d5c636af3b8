#pragma once
// The QLineEdit behind a mask edit, for the files that implement it.

#include <QLineEdit>

#include "framework/controls/Controls_p.h"

namespace quil {

inline QLineEdit* LineEdit(const TWinControl* control) {
  return static_cast<QLineEdit*>(control->Private()->Widget());
}

}  // namespace quil
