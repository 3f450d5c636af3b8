#include "grid/QuilDBGridCellDraw.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "framework/db/BinaryFields.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Picture.h"
#include "grid/QuilDBGridGlyphs.h"

namespace quil {

namespace {

const QString SEllipsis = QStringLiteral("...");

bool IsLineEnd(QChar ch) { return ch == QLatin1Char('\r') || ch == QLatin1Char('\n'); }

// The CJK ideographs: each one is a place to break by itself.
bool IsIdeograph(QChar ch) {
  const char16_t code = ch.unicode();
  return (code >= 0x3400 && code <= 0x4DBF) || (code >= 0x4E00 && code <= 0x9FFF) || (code >= 0xF900 && code <= 0xFAFF);
}

bool IsBreakPlace(QChar ch) { return ch == QLatin1Char(' ') || IsIdeograph(ch); }

// The lines of text; a closing line end opens no line of its own, and an empty text is
// one empty line, so that its cell is still filled.
std::vector<QString> SplitLines(const QString& text) {
  std::vector<QString> lines;
  qsizetype start = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (!IsLineEnd(text.at(at))) continue;
    lines.push_back(text.mid(start, at - start));
    if (text.at(at) == QLatin1Char('\r') && at + 1 < text.size() && text.at(at + 1) == QLatin1Char('\n')) ++at;
    start = at + 1;
  }
  if (start < text.size() || lines.empty()) lines.push_back(text.mid(start));
  return lines;
}

TAlignment Mirrored(TAlignment alignment) {
  if (alignment == taLeftJustify) return taRightJustify;
  if (alignment == taRightJustify) return taLeftJustify;
  return alignment;
}

}  // namespace

QString CutTextToWidth(TCanvas* canvas, const QString& text, int width) {
  if (canvas->TextWidth(text) <= width) return text;
  int room = width - canvas->TextWidth(SEllipsis);
  qsizetype count = 0;
  while (count < text.size() && room >= 0) room -= canvas->TextWidth(QString(text.at(count++)));
  return text.left(std::max<qsizetype>(count - 1, 1)) + SEllipsis;
}

QString BreakTextLines(TCanvas* canvas, const QString& source, int width, int limit) {
  QString text = source;
  qsizetype lineStart = 0;
  while (lineStart < text.size() && limit != 0) {
    qsizetype breakPlace = -1;
    qsizetype at = lineStart;
    bool broken = false;
    for (; at < text.size() && !IsLineEnd(text.at(at)); ++at) {
      if (breakPlace >= 0 && canvas->TextWidth(text.mid(lineStart, at - lineStart + 1)) > width) {
        if (text.at(at) == QLatin1Char(' ')) breakPlace = at;
        if (text.at(breakPlace) == QLatin1Char(' ')) {
          text[breakPlace] = QLatin1Char('\r');
          lineStart = breakPlace + 1;
        } else {
          text.insert(breakPlace + 1, QLatin1Char('\r'));
          lineStart = breakPlace + 2;
        }
        if (limit > 0) --limit;
        broken = true;
        break;
      }
      if (IsBreakPlace(text.at(at))) breakPlace = at;
    }
    if (broken) continue;
    if (at >= text.size()) break;
    if (text.at(at) == QLatin1Char('\r') && at + 1 < text.size() && text.at(at + 1) == QLatin1Char('\n')) ++at;
    lineStart = at + 1;
  }
  return text;
}

TCellTextMatch CellTextOut(TCanvas* canvas, TRect rect, int marginX, int marginY, const QString& text,
                           TAlignment alignment, bool rightToLeft, bool ellipsis, bool wordWrap,
                           TVAlignment vAlignment, const QString& searchText, TQuilSearchOptions searchOptions) {
  TCellTextMatch match;
  if (canvas->CanvasOrientation() == coRightToLeft && !rightToLeft) alignment = Mirrored(alignment);
  const int wrapMargin = alignment == taLeftJustify ? marginX : alignment == taRightJustify ? marginX + 1 : 0;
  const int lineHeight = std::max(canvas->TextHeight(QStringLiteral("Wg")), 1);
  const int height = rect.Height();
  const int room = std::max((height - 2 * marginY + 1) / lineHeight, 0);
  if (room == 0) vAlignment = tvTopJustify;
  const int lineWidth = rect.Width() - wrapMargin;
  const QString laidOut =
      wordWrap ? BreakTextLines(canvas, text, lineWidth, ellipsis ? std::max(room, 1) - 1 : -1) : text;
  const std::vector<QString> lines = SplitLines(laidOut);
  const int count = std::min(int(lines.size()), std::max(room, 1));
  const int spare = std::max(0, height - 2 * marginY - count * lineHeight);
  if (vAlignment == tvBottomJustify) marginY += spare;
  else if (vAlignment == tvCenter) marginY += spare / 2;
  for (int index = 0; index < count; ++index) {
    const QString line = ellipsis ? CutTextToWidth(canvas, lines[index], lineWidth) : lines[index];
    const int textWidth = canvas->TextWidth(line);
    int x = rect.Left + marginX;
    if (alignment == taRightJustify) x = rect.Right - textWidth - marginX - 1;
    else if (alignment == taCenter) x = rect.Left + (rect.Right - rect.Left) / 2 - textWidth / 2;
    const int y = rect.Top + marginY;
    canvas->TextRect(rect, x, y, line);
    if (!searchText.isEmpty() && match.rect.IsEmpty() && line.size() >= searchText.size()) {
      if (const int position = SearchTextPos(searchText, line, searchOptions); position > 0) {
        const int matchX = x + canvas->TextWidth(line.left(position - 1));
        match.text = line.mid(position - 1, searchText.size());
        match.rect = Rect(matchX, y, matchX + canvas->TextWidth(match.text) - 1, y + lineHeight);
      }
    }
    rect.Top += marginY + lineHeight;
    marginY = 0;
  }
  return match;
}

TRect CellTextRect(const TRect& cell, int imageMargin, int level, bool mirrored) {
  if (imageMargin < 1) return cell;
  TRect rect = cell;
  const int offset = imageMargin + imageMargin * level + 1;
  if (mirrored) rect.Right = std::max(cell.Left, cell.Right - offset);
  else rect.Left = std::min(cell.Right, cell.Left + offset);
  return rect;
}

TRect CellImageRect(const TRect& cell, int imageMargin, int level, bool mirrored) {
  if (imageMargin < 1) return cell;
  TRect rect = cell;
  const int indent = imageMargin * level;
  if (mirrored) {
    rect.Right = std::max(cell.Left, cell.Right - indent);
    rect.Left = std::max(cell.Left, rect.Right - imageMargin);
  } else {
    rect.Left = std::min(cell.Right, cell.Left + indent);
    rect.Right = std::min(cell.Right, rect.Left + imageMargin);
  }
  return rect;
}

namespace {

// The graphic to draw: a copy in a picture, or a themed bitmap as it is, since it draws
// its element rather than pixels. None when the data holds no picture.
TGraphic* PictureOf(TPersistent* source, TPicture& picture, bool transparent) {
  if (auto* themed = dynamic_cast<TThemedBitmap*>(source)) return themed;
  if (auto* field = dynamic_cast<TBlobField*>(source)) {
    try {
      picture.LoadFromData(field->AsBytes());
    } catch (const Exception&) {
      return nullptr;
    }
  } else {
    picture.Assign(source);
  }
  // Qt keeps no palettes, so QuickDraw has nothing to skip.
  TGraphic* graphic = picture.Graphic();
  if (!graphic || graphic->Empty()) return nullptr;
  graphic->SetTransparent(transparent);
  return graphic;
}

// Where one edge of a picture of size goes in room, by alignment, as idAlignment does.
int PlaceAlong(int room, int size, int offset, bool nearEdge, bool farEdge) {
  if (nearEdge) return offset;
  if (farEdge) return room - size - offset;
  return (room - size) / 2 + offset;
}

// The picture's rectangle inside a bitmap of width by height, for every kind but tiles.
TRect PlacePicture(const TGraphic* graphic, int width, int height, TAlignment alignment, TVAlignment vAlignment,
                   const TCellImageLayout& layout) {
  if (layout.imageDraw == idScaled || layout.imageDraw == idStretch) {
    TRect room = Rect(0, 0, width, height);
    room.Inflate(-layout.offsetX, -layout.offsetY);
    if (layout.imageDraw == idStretch) return room;
    const double scale = std::min(double(room.Width()) / graphic->Width(), double(room.Height()) / graphic->Height());
    const int scaledWidth = int(graphic->Width() * scale);
    const int scaledHeight = int(graphic->Height() * scale);
    const int left = room.Left + (room.Width() - scaledWidth) / 2;
    const int top = room.Top + (room.Height() - scaledHeight) / 2;
    return Rect(left, top, left + scaledWidth, top + scaledHeight);
  }
  const int x = PlaceAlong(width, graphic->Width(), layout.offsetX, alignment == taLeftJustify,
                           alignment == taRightJustify);
  const int y = PlaceAlong(height, graphic->Height(), layout.offsetY, vAlignment == tvTopJustify,
                           vAlignment == tvBottomJustify);
  return Rect(x, y, x + graphic->Width(), y + graphic->Height());
}

// The first tile's place along an axis: the phase of the origin, moved by offset and
// taken modulo the picture's size, so that the first tile starts at or before 0.
int TileStart(int origin, int offset, int size) {
  const int phase = ((origin - offset) % size + size) % size;
  return -phase;
}

// The bitmap holds the cell as the canvas' coordinates run: copied onto a mirrored canvas
// it shows mirrored, so that there the pattern runs from the right edge of the cell or
// of the grid.
void FillWithTiles(TCanvas* target, int width, int height, TGraphic* graphic, const TRect& cell,
                   const TCellImageLayout& layout) {
  const int tileWidth = graphic->Width();
  const int tileHeight = graphic->Height();
  if (tileWidth <= 0 || tileHeight <= 0) return;
  const bool gridX = layout.imageDraw == idTileGrid || layout.imageDraw == idTileRow;
  const bool gridY = layout.imageDraw == idTileGrid || layout.imageDraw == idTileCol;
  const int originX = gridX ? cell.Left : 0;
  const int originY = gridY ? cell.Top : 0;
  for (int y = TileStart(originY, layout.offsetY, tileHeight); y < height; y += tileHeight)
    for (int x = TileStart(originX, layout.offsetX, tileWidth); x < width; x += tileWidth) target->Draw(x, y, graphic);
}

}  // namespace

void CellDrawImage(TCanvas* canvas, const TRect& rect, TPersistent* source, const TCellImageLayout& layout) {
  if (rect.IsEmpty() || !source) return;
  const bool mirrored = canvas->CanvasOrientation() == coRightToLeft;
  TAlignment alignment = mirrored && layout.rightToLeft ? Mirrored(layout.alignment) : layout.alignment;
  TVAlignment vAlignment = layout.vAlignment;
  TPicture picture;
  TGraphic* graphic = PictureOf(source, picture, layout.transparent);
  if (!graphic) return;
  if (layout.imageDraw == idOpposite) {
    alignment = Mirrored(alignment);
    if (vAlignment != tvCenter) vAlignment = vAlignment == tvTopJustify ? tvBottomJustify : tvTopJustify;
  } else if (layout.imageDraw == idCenter) {
    alignment = taCenter;
    vAlignment = tvCenter;
  }
  const int width = rect.Width();
  const int height = rect.Height();
  TBitmap buffer;
  buffer.Canvas()->Brush()->SetColor(canvas->Brush()->Color());
  buffer.SetSize(width, height);
  const TRect whole = Rect(0, 0, width, height);
  if (layout.copyBackground) buffer.Canvas()->CopyRect(whole, canvas, rect);
  else buffer.Canvas()->FillRect(whole);
  const bool tiled = layout.imageDraw >= idTileCell;
  if (tiled) FillWithTiles(buffer.Canvas(), width, height, graphic, rect, layout);
  else buffer.Canvas()->StretchDraw(PlacePicture(graphic, width, height, alignment, vAlignment, layout), graphic);
  canvas->CopyRect(rect, buffer.Canvas(), whole);
}

}  // namespace quil
