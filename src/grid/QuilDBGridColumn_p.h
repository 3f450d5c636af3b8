#pragma once
// Helpers that the column and its title share.

#include "framework/graphics/Font.h"
#include "grid/QuilDBGridColumn.h"

namespace quil {

// Compares and stores; true when the value changed.
template <typename T>
bool Store(T& member, const T& value) {
  if (member == value) return false;
  member = value;
  return true;
}

// The common setter: compare, store, repaint the column.
template <typename T>
void StoreAndRepaint(TQuilColumn& column, T& member, const T& value) {
  if (Store(member, value)) column.Changed(false);
}

// A font that follows another is equal to it in all a cell shows of it.
inline bool SameFont(const TFont& a, const TFont& b) { return a.IsEqual(b) && a.Color() == b.Color(); }

// Copies source into target without target's change event: following a default is no
// assignment.
inline void CopyFontSilently(TFont& target, const TFont& source) {
  const TNotifyEvent handler = target.OnChange();
  target.SetOnChange(TNotifyEvent());
  target.Assign(&source);
  target.SetOnChange(handler);
}

}  // namespace quil
