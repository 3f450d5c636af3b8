#include "framework/graphics/Gradient.h"

#include <QLinearGradient>

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

namespace {
QColor VertexColor(const TTriVertex& vertex) { return QColor(vertex.Red >> 8, vertex.Green >> 8, vertex.Blue >> 8); }

TTriVertex Vertex(int x, int y, TColor color) {
  const TColor rgb = ColorToRGB(color);
  return TTriVertex{x, y, uint16_t(GetRValue(rgb) << 8), uint16_t(GetGValue(rgb) << 8),
                    uint16_t(GetBValue(rgb) << 8), 0};
}
}  // namespace

const TEnumTypeInfo& TypeInfo(TGradientDirection) {
  static const TEnumTypeInfo info("TGradientDirection", {"gdHorizontal", "gdVertical"});
  return info;
}

bool GradientFill(HDC dc, const TTriVertex* vertices, uint32_t vertexCount, const TGradientRect* mesh,
                  uint32_t meshCount, uint32_t mode) {
  if (!dc || !vertices || !mesh || (mode != GRADIENT_FILL_RECT_H && mode != GRADIENT_FILL_RECT_V)) return false;
  TCanvasPrivate* d = TCanvasPrivate::Get(dc);
  QPainter* painter = d->Painter();
  if (!painter) return false;
  for (uint32_t index = 0; index < meshCount; ++index) {
    if (mesh[index].UpperLeft >= vertexCount || mesh[index].LowerRight >= vertexCount) return false;
    const TTriVertex& first = vertices[mesh[index].UpperLeft];
    const TTriVertex& last = vertices[mesh[index].LowerRight];
    const TRect logical = Rect(first.x, first.y, last.x, last.y);
    if (logical.IsEmpty()) continue;
    // Pixel centres of the first and last column (row) carry the vertex colors; in a
    // mirrored canvas the logical left is the device's right.
    const QRectF area = QRectF(d->Map(logical)).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool mirrored = dc->CanvasOrientation() == coRightToLeft;
    QLinearGradient gradient = mode == GRADIENT_FILL_RECT_H
        ? QLinearGradient(mirrored ? area.topRight() : area.topLeft(), mirrored ? area.topLeft() : area.topRight())
        : QLinearGradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, VertexColor(first));
    gradient.setColorAt(1, VertexColor(last));
    painter->fillRect(d->Map(logical), gradient);
  }
  return true;
}

void GradientFillCanvas(TCanvas* canvas, TColor startColor, TColor endColor, const TRect& rect,
                        TGradientDirection direction) {
  const TTriVertex vertices[2] = {Vertex(rect.Left, rect.Top, startColor), Vertex(rect.Right, rect.Bottom, endColor)};
  const TGradientRect mesh{0, 1};
  GradientFill(canvas, vertices, 2, &mesh, 1, direction == gdHorizontal ? GRADIENT_FILL_RECT_H : GRADIENT_FILL_RECT_V);
}

}  // namespace quil
