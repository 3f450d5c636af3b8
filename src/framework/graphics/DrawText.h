#pragma once
// DrawText with the framework's format flags: alignment, word wrap, ellipses, prefixes,
// tabs, measuring (DT_CALCRECT). Lines break at CR, LF and CR LF; a word wider than
// the rectangle stays whole unless DT_EDITCONTROL is given. Vertical alignment works
// on single lines only, as the framework's call does.

#include <QString>

#include "framework/graphics/Canvas.h"

namespace quil {

constexpr unsigned DT_TOP = 0x00000000;
constexpr unsigned DT_LEFT = 0x00000000;
constexpr unsigned DT_CENTER = 0x00000001;
constexpr unsigned DT_RIGHT = 0x00000002;
constexpr unsigned DT_VCENTER = 0x00000004;
constexpr unsigned DT_BOTTOM = 0x00000008;
constexpr unsigned DT_WORDBREAK = 0x00000010;
constexpr unsigned DT_SINGLELINE = 0x00000020;
constexpr unsigned DT_EXPANDTABS = 0x00000040;
constexpr unsigned DT_TABSTOP = 0x00000080;
constexpr unsigned DT_NOCLIP = 0x00000100;
constexpr unsigned DT_EXTERNALLEADING = 0x00000200;
constexpr unsigned DT_CALCRECT = 0x00000400;
constexpr unsigned DT_NOPREFIX = 0x00000800;
constexpr unsigned DT_INTERNAL = 0x00001000;
constexpr unsigned DT_EDITCONTROL = 0x00002000;
constexpr unsigned DT_PATH_ELLIPSIS = 0x00004000;
constexpr unsigned DT_END_ELLIPSIS = 0x00008000;
constexpr unsigned DT_MODIFYSTRING = 0x00010000;
constexpr unsigned DT_RTLREADING = 0x00020000;
constexpr unsigned DT_WORD_ELLIPSIS = 0x00040000;
constexpr unsigned DT_NOFULLWIDTHCHARBREAK = 0x00080000;
constexpr unsigned DT_HIDEPREFIX = 0x00100000;
constexpr unsigned DT_PREFIXONLY = 0x00200000;

// Draws count characters of text (all of it for a negative count) in rect with the
// canvas font; the brush, unless clear, fills behind each line. Returns the height
// of the text, or with DT_VCENTER or DT_BOTTOM the distance from rect's top to the
// bottom of the text. DT_CALCRECT draws nothing and sets rect's Right and Bottom to
// what the text needs.
int DrawText(HDC dc, const QString& text, int count, TRect& rect, unsigned format);
inline int DrawTextW(HDC dc, const QString& text, int count, TRect& rect, unsigned format) {
  return DrawText(dc, text, count, rect, format);
}

// The DT_ flags of a text format.
unsigned TextFormatFlags(TTextFormat format);

}  // namespace quil
