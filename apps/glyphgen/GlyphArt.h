#pragma once
// The grid's glyph strips, drawn pixel by pixel for each resolution. Every strip uses
// six key colors on the transparent olive; the grid maps the key colors to the colors
// of the look in force when it loads a strip, so the art only says which part of a
// glyph a pixel belongs to:
//
//   aqua   lit outer edge      teal   lit inner edge
//   navy   shaded outer edge   blue   shaded inner edge
//   lime   face                black  ink (marks, digits)
//
// Check boxes and expand boxes are not remapped and use black ink alone.

#include <QImage>
#include <QString>
#include <vector>

namespace glyphart {

enum class Strip { CheckBoxes, ExpandBoxes, Indicators, Markers };

struct StripInfo {
  Strip strip;
  const char* name;      // resource name without the resolution suffix
  int images;            // images in the strip
  int sizes[5];          // image side at 96, 120, 144, 168 and 192 pixels per inch
};

const std::vector<StripInfo>& Strips();
// "", "_125", "_150", "_175", "_200" for resolution 0 to 4.
QString Suffix(int resolution);
// The strip at one resolution: images side by side, each size x size pixels.
QImage DrawStrip(Strip strip, int size);

}  // namespace glyphart
