#include "GlyphArt.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace glyphart {

namespace {

const QRgb kTransparent = qRgb(128, 128, 0);
const QRgb kAqua = qRgb(0, 255, 255);
const QRgb kTeal = qRgb(0, 128, 128);
const QRgb kBlue = qRgb(0, 0, 255);
const QRgb kNavy = qRgb(0, 0, 128);
const QRgb kLime = qRgb(0, 255, 0);
const QRgb kBlack = qRgb(0, 0, 0);

int Round(double value) { return int(std::lround(value)); }
// The odd number nearest to value, so that a shape has a middle pixel.
int Odd(double value) { return 2 * Round((value - 1) / 2) + 1; }
// The number nearest to value with the parity of like, so that two shapes share a middle.
int SameParity(double value, int like) {
  const int near = Round(value);
  return (near - like) % 2 == 0 ? near : (value > near ? near + 1 : near - 1);
}

// The pixels of one image that belong to a shape.
class Mask {
public:
  explicit Mask(int size) : size_(size), bits_(size_t(size * size), false) {}

  int Size() const { return size_; }
  bool At(int x, int y) const { return Inside(x, y) && bits_[size_t(y * size_ + x)]; }
  void Set(int x, int y, bool on = true) {
    if (Inside(x, y)) bits_[size_t(y * size_ + x)] = on;
  }
  void FillRect(int x, int y, int width, int height) {
    for (int row = y; row < y + height; ++row)
      for (int col = x; col < x + width; ++col) Set(col, row);
  }
  Mask& Add(const Mask& other) {
    for (size_t index = 0; index < bits_.size(); ++index) bits_[index] = bits_[index] || other.bits_[index];
    return *this;
  }
  // Qt rasterizes without antialiasing; a pixel belongs when it is mostly covered.
  template <typename Paint>
  Mask& Draw(Paint paint) {
    QImage image(size_, size_, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    paint(painter);
    painter.end();
    for (int y = 0; y < size_; ++y)
      for (int x = 0; x < size_; ++x)
        if (qAlpha(image.pixel(x, y)) >= 128) Set(x, y);
    return *this;
  }
  // Pixels of the shape that touch the outside (4-neighbourhood).
  Mask Outline() const {
    Mask result(size_);
    for (int y = 0; y < size_; ++y)
      for (int x = 0; x < size_; ++x)
        if (At(x, y) && (!At(x - 1, y) || !At(x + 1, y) || !At(x, y - 1) || !At(x, y + 1))) result.Set(x, y);
    return result;
  }
  // Every second pixel in a checkerboard: the shape half-toned, as a grayed mark.
  Mask Dithered() const {
    Mask result(size_);
    for (int y = 0; y < size_; ++y)
      for (int x = 0; x < size_; ++x)
        if (At(x, y) && (x + y) % 2 == 0) result.Set(x, y);
    return result;
  }
  // The smallest rectangle holding the shape.
  QRect Bounds() const {
    QRect bounds;
    for (int y = 0; y < size_; ++y)
      for (int x = 0; x < size_; ++x)
        if (At(x, y)) bounds |= QRect(x, y, 1, 1);
    return bounds;
  }
  Mask Shifted(int dx, int dy) const {
    Mask result(size_);
    for (int y = 0; y < size_; ++y)
      for (int x = 0; x < size_; ++x)
        if (At(x, y)) result.Set(x + dx, y + dy);
    return result;
  }

private:
  bool Inside(int x, int y) const { return x >= 0 && y >= 0 && x < size_ && y < size_; }
  int size_;
  std::vector<bool> bits_;
};

enum class Direction { Up, Down, Left, Right };

// A solid triangle with 45-degree sides; base is odd, depth (base + 1) / 2, and
// (x, y) is the top left of its bounding box.
Mask Triangle(int size, Direction direction, int x, int y, int base) {
  Mask mask(size);
  const int depth = (base + 1) / 2;
  for (int step = 0; step < depth; ++step) {
    const int from = depth - 1 - step, to = depth - 1 + step;
    switch (direction) {
      case Direction::Up: mask.FillRect(x + from, y + step, to - from + 1, 1); break;
      case Direction::Down: mask.FillRect(x + from, y + depth - 1 - step, to - from + 1, 1); break;
      case Direction::Left: mask.FillRect(x + step, y + from, 1, to - from + 1); break;
      case Direction::Right: mask.FillRect(x + depth - 1 - step, y + from, 1, to - from + 1); break;
    }
  }
  return mask;
}

bool Vertical(Direction direction) { return direction == Direction::Up || direction == Direction::Down; }

// A triangle in the middle of the image, moved by (dx, dy).
Mask CenteredTriangle(int size, Direction direction, int base, int dx = 0, int dy = 0) {
  const int depth = (base + 1) / 2;
  const int width = Vertical(direction) ? base : depth;
  const int height = Vertical(direction) ? depth : base;
  return Triangle(size, direction, (size - width) / 2 + dx, (size - height) / 2 + dy, base);
}

// The image as it is written: key colors on the transparent color.
class Cell {
public:
  Cell(QImage& strip, int index, int size) : strip_(strip), left_(index * size), size_(size) {}
  void Paint(const Mask& mask, QRgb color) {
    for (int y = 0; y < size_; ++y)
      for (int x = 0; x < size_; ++x)
        if (mask.At(x, y)) strip_.setPixel(left_ + x, y, color);
  }

private:
  QImage& strip_;
  int left_;
  int size_;
};

// Which way the outside of an edge pixel lies: lit when it faces up or left. Along a
// 45-degree side both neighbours count the same, and the horizontal one decides.
bool FacesLight(int right, int down) {
  const int sum = right + down;
  return sum < 0 || (sum == 0 && right < 0);
}

// A raised shape: outer and inner edges, each `thickness` pixels deep, lit or shaded
// by the side they face; the rest face color. The edges are peeled off layer by layer,
// each the outline of what the layers before it left.
void PaintRaised(Cell& cell, const Mask& shape, int thickness) {
  const int size = shape.Size();
  Mask remaining = shape;
  for (int layer = 0; layer < 2 * thickness; ++layer) {
    const Mask edge = remaining.Outline();
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x) {
        if (!edge.At(x, y)) continue;
        auto beyond = [&](int nx, int ny) { return int(!remaining.At(nx, ny)); };
        const bool lit = FacesLight(beyond(x + 1, y) - beyond(x - 1, y), beyond(x, y + 1) - beyond(x, y - 1));
        Mask pixel(size);
        pixel.Set(x, y);
        cell.Paint(pixel, layer < thickness ? (lit ? kAqua : kNavy) : (lit ? kTeal : kBlue));
      }
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        if (edge.At(x, y)) remaining.Set(x, y, false);
  }
  cell.Paint(remaining, kLime);
}

// Bold digits of 5 x 7 pixels, for the smallest markers where a face has no room.
const char* const kSmallDigits[10][7] = {
    {".###.", "##.##", "##.##", "##.##", "##.##", "##.##", ".###."},
    {"..##.", ".###.", "..##.", "..##.", "..##.", "..##.", ".####"},
    {".###.", "##.##", "...##", "..##.", ".##..", "##...", "#####"},
    {"####.", "...##", "...##", ".###.", "...##", "...##", "####."},
    {"...##", "..###", ".#.##", "#..##", "#####", "...##", "...##"},
    {"#####", "##...", "####.", "...##", "...##", "##.##", ".###."},
    {".###.", "##...", "####.", "##.##", "##.##", "##.##", ".###."},
    {"#####", "...##", "..##.", "..##.", ".##..", ".##..", ".##.."},
    {".###.", "##.##", "##.##", ".###.", "##.##", "##.##", ".###."},
    {".###.", "##.##", "##.##", ".####", "...##", "...##", ".###."},
};

Mask SmallDigit(int size, int digit, int centerX, int top, int height) {
  Mask mask(size);
  const int left = centerX - 2, first = top + (height - 7) / 2;
  for (int row = 0; row < 7; ++row)
    for (int col = 0; col < 5; ++col)
      if (kSmallDigits[digit][row][col] == '#') mask.Set(left + col, first + row);
  return mask;
}

// The digit drawn in a bold face, as large as fits height rows, centered on
// (centerX, top .. top + height).
Mask Digit(int size, int digit, int centerX, int top, int height) {
  if (height < 11) return SmallDigit(size, digit, centerX, top, height);
  const QString text = QString::number(digit);
  Mask best(size);
  for (int pixels = 6; pixels < size * 2; ++pixels) {
    Mask candidate(size);
    candidate.Draw([&](QPainter& painter) {
      QFont font(QStringLiteral("DejaVu Sans"));
      font.setBold(true);
      font.setPixelSize(pixels);
      font.setStyleStrategy(QFont::NoAntialias);
      font.setHintingPreference(QFont::PreferFullHinting);
      painter.setFont(font);
      painter.setPen(Qt::black);
      painter.drawText(QRect(0, 0, size, size), Qt::AlignCenter, text);
    });
    const QRect ink = candidate.Bounds();
    if (ink.height() > height || ink.width() > size - 2) break;
    best = candidate;
  }
  const QRect ink = best.Bounds();
  return best.Shifted(centerX - (ink.left() + ink.width() / 2), top + (height - ink.height()) / 2 - ink.top());
}

// --- Check boxes: a mark inside the frame that the grid draws around the image.

// The area a mark may take: the image less the frame and one pixel of air.
QRect MarkArea(int size) {
  const int inset = 2 + std::max(1, Round(size / 13.0));
  return QRect(inset, inset, size - 2 * inset, size - 2 * inset);
}

Mask CheckMark(int size, const QRect& area) {
  Mask mask(size);
  const int side = std::min(area.width(), area.height());
  // The short arm runs a third of the way down at 45 degrees, the long one up to the
  // top; each column holds a vertical run of `thick` pixels.
  const int shortArm = Round((side - 1) / 3.0);
  const int thick = std::min(shortArm + 1, std::max(3, Round(side * 0.34)));
  for (int col = 0; col < side; ++col) {
    const int top = col <= shortArm ? side - thick - shortArm + col : side - thick - (col - shortArm);
    mask.FillRect(area.left() + col, area.top() + top, 1, thick);
  }
  return mask;
}

Mask CrossMark(int size, const QRect& area) {
  Mask mask(size);
  const int side = std::min(area.width(), area.height());
  const int thick = std::max(2, Round(side * 2 / 7.0));
  for (int y = 0; y < side; ++y)
    for (int x = 0; x < side; ++x) {
      const int falling = x - y, rising = x + y - (side - 1);
      if ((falling >= -(thick - 1) / 2 && falling <= thick / 2) || (rising >= -(thick / 2) && rising <= (thick - 1) / 2))
        mask.Set(area.left() + x, area.top() + y);
    }
  return mask;
}

Mask FilledBox(int size, const QRect& area) {
  Mask mask(size);
  const int inset = std::max(1, Round(area.width() / 7.0));
  mask.FillRect(area.left() + inset, area.top() + inset, area.width() - 2 * inset, area.height() - 2 * inset);
  return mask;
}

void DrawCheckBoxes(QImage& strip, int size) {
  const QRect area = MarkArea(size);
  const Mask marks[3] = {CheckMark(size, area), CrossMark(size, area), FilledBox(size, area)};
  for (int kind = 0; kind < 3; ++kind) {
    Cell checked(strip, kind * 3 + 1, size);
    checked.Paint(marks[kind], kBlack);
    Cell grayed(strip, kind * 3 + 2, size);
    grayed.Paint(marks[kind].Dithered(), kBlack);
  }
}

// --- Expand boxes: a plus or minus in a thin frame, in three box sizes. The sign
// thickens on the large images and keeps the box's parity, so that it stays centered.

void DrawExpandBoxes(QImage& strip, int size) {
  const int stroke = size >= 23 ? 2 : 1;
  const double fractions[3] = {7 / 13.0, 9 / 13.0, 11 / 13.0};
  for (int boxSize = 0; boxSize < 3; ++boxSize) {
    const int box = SameParity(size * fractions[boxSize], stroke);
    const int left = (size - box) / 2;
    Mask frame(size);
    frame.FillRect(left, left, box, box);
    frame = frame.Outline();
    const int gap = 1 + std::max(1, box / 7);
    const int length = box - 2 * gap;
    const int middle = left + (box - stroke) / 2;
    Mask minus(size);
    minus.FillRect(left + gap, middle, length, stroke);
    Mask plus = minus;
    plus.FillRect(middle, left + gap, stroke, length);
    Cell collapsed(strip, boxSize * 3, size);
    collapsed.Paint(Mask(frame).Add(plus), kBlack);
    Cell expanded(strip, boxSize * 3 + 1, size);
    expanded.Paint(Mask(frame).Add(minus), kBlack);
  }
}

// --- Indicators: black marks; the grid maps every other key color away.

struct Pen {
  int size;
  double unit;  // pixels per pixel at 96 per inch
  int stroke;   // line width
};

Mask Dot(const Pen& pen, int diameter, int cx, int cy) {
  return Mask(pen.size).Draw([&](QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(QRectF(cx - diameter / 2.0, cy - diameter / 2.0, diameter, diameter));
  });
}

Mask Ring(const Pen& pen, int diameter, double cx, double cy) {
  return Mask(pen.size).Draw([&](QPainter& painter) {
    painter.setPen(QPen(Qt::black, pen.stroke));
    painter.setBrush(Qt::NoBrush);
    const double inset = pen.stroke / 2.0;
    painter.drawEllipse(QRectF(cx - diameter / 2.0 + inset, cy - diameter / 2.0 + inset, diameter - pen.stroke,
                               diameter - pen.stroke));
  });
}

Mask Lines(const Pen& pen, const std::vector<QLineF>& lines, int width) {
  return Mask(pen.size).Draw([&](QPainter& painter) {
    painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::SquareCap));
    for (const QLineF& line : lines) painter.drawLine(line);
  });
}

Mask Bars(const Pen& pen, int width, int count, int spacing) {
  Mask mask(pen.size);
  const int top = (pen.size - (count - 1) * spacing - pen.stroke) / 2;
  for (int bar = 0; bar < count; ++bar) mask.FillRect((pen.size - width) / 2, top + bar * spacing, width, pen.stroke);
  return mask;
}

// A row mark with a dot beside it: the current or anchor row that is also selected.
Mask MarkAndDot(const Pen& pen, bool hollow) {
  const int base = Odd(9 * pen.unit);
  const int depth = (base + 1) / 2;
  const int dot = Round(4 * pen.unit);
  const int gap = Round(2 * pen.unit);
  const int left = (pen.size - depth - gap - dot) / 2;
  Mask mark = Triangle(pen.size, Direction::Right, left, (pen.size - base) / 2, base);
  if (hollow) mark = mark.Outline();
  return mark.Add(Dot(pen, dot, left + depth + gap + dot / 2, pen.size / 2));
}

Mask Funnel(const Pen& pen) {
  const int top = Odd(11 * pen.unit);
  const int stem = pen.stroke == 1 ? 3 : 5;
  const int slope = (top - stem) / 2;
  const int stemRows = Round(4 * pen.unit);
  Mask mask(pen.size);
  const int y0 = (pen.size - slope - stemRows) / 2 - 1;
  const int x0 = (pen.size - top) / 2;
  for (int row = 0; row <= slope; ++row) mask.FillRect(x0 + row, y0 + row, top - 2 * row, 1);
  mask.FillRect(x0 + slope, y0 + slope, stem, stemRows + 1);
  return mask;
}

// An arrow with a stem, pointing up or down; with a bar it points at the end.
Mask StemArrow(const Pen& pen, Direction direction, bool bar) {
  const int base = Odd(9 * pen.unit);
  const int depth = (base + 1) / 2;
  const int stem = pen.stroke == 1 ? 1 : 3;
  const int stemRows = Round(4 * pen.unit);
  const int barRows = bar ? pen.stroke + Round(pen.unit) : 0;
  const int height = barRows + depth + stemRows;
  const int top = (pen.size - height) / 2;
  const int left = (pen.size - base) / 2;
  Mask mask(pen.size);
  if (direction == Direction::Up) {
    if (bar) mask.FillRect(left, top, base, pen.stroke);
    mask.Add(Triangle(pen.size, Direction::Up, left, top + barRows, base));
    mask.FillRect(left + (base - stem) / 2, top + barRows + depth, stem, stemRows);
  } else {
    mask.FillRect(left + (base - stem) / 2, top, stem, stemRows);
    mask.Add(Triangle(pen.size, Direction::Down, left, top + stemRows, base));
    if (bar) mask.FillRect(left, top + height - pen.stroke, base, pen.stroke);
  }
  return mask;
}

// A text cursor: the row is being edited.
Mask TextCursor(const Pen& pen) {
  const int size = pen.size;
  const int height = SameParity(11 * pen.unit, 1);
  const int serif = SameParity(5 * pen.unit, pen.stroke);
  const int top = (size - height) / 2;
  Mask mask(size);
  mask.FillRect((size - pen.stroke) / 2, top, pen.stroke, height);
  mask.FillRect((size - serif) / 2, top, serif, pen.stroke);
  mask.FillRect((size - serif) / 2, top + height - pen.stroke, serif, pen.stroke);
  return mask;
}

// An asterisk: a new row.
Mask Asterisk(const Pen& pen) {
  const double arm = 4 * pen.unit;
  const double center = pen.size / 2.0;
  std::vector<QLineF> lines;
  for (double degrees : {90.0, 30.0, 150.0}) {
    const double dx = arm * std::cos(degrees * M_PI / 180), dy = arm * std::sin(degrees * M_PI / 180);
    lines.emplace_back(center - dx, center - dy, center + dx, center + dy);
  }
  return Lines(pen, lines, pen.stroke + (pen.unit >= 1.5 ? 1 : 0));
}

// An ellipsis: more.
Mask Ellipsis(const Pen& pen) {
  const int dot = std::max(2, pen.stroke);
  const int spacing = dot + Round(2 * pen.unit);
  const int left = (pen.size - 2 * spacing - dot) / 2;
  Mask mask(pen.size);
  for (int count = 0; count < 3; ++count) mask.FillRect(left + count * spacing, (pen.size - dot) / 2 + 1, dot, dot);
  return mask;
}

Mask PlusOrMinus(const Pen& pen, bool plus) {
  const int size = pen.size;
  const int length = SameParity(9 * pen.unit, pen.stroke);
  Mask mask(size);
  mask.FillRect((size - length) / 2, (size - pen.stroke) / 2, length, pen.stroke);
  if (plus) mask.FillRect((size - pen.stroke) / 2, (size - length) / 2, pen.stroke, length);
  return mask;
}

// A magnifier: search.
Mask Magnifier(const Pen& pen) {
  const int lens = Round(8 * pen.unit);
  const double center = pen.size / 2.0 - pen.unit;
  const double reach = lens / 2.0 - 0.5;
  const double from = center + reach * 0.75, to = center + reach + 3.5 * pen.unit;
  return Ring(pen, lens, center, center).Add(Lines(pen, {QLineF(from, from, to, to)}, pen.stroke + 1));
}

Mask DoubleTriangle(const Pen& pen, Direction direction) {
  const int base = Odd(7 * pen.unit);
  const int depth = (base + 1) / 2;
  const int offset = (depth + 1) / 2;
  return CenteredTriangle(pen.size, direction, base, -offset)
      .Add(CenteredTriangle(pen.size, direction, base, depth - offset));
}

// A cross: close.
Mask Cross(const Pen& pen) {
  const double reach = 3.5 * pen.unit - 0.5;
  const double from = pen.size / 2.0 - reach, to = pen.size / 2.0 + reach - 1;
  return Lines(pen, {QLineF(from, from, to, to), QLineF(from, to, to, from)}, pen.stroke);
}

Mask IndicatorGlyph(const Pen& pen, int index) {
  const int size = pen.size;
  const int mark = Odd(9 * pen.unit), arrow = Odd(7 * pen.unit);
  switch (index) {
    case 0: return CenteredTriangle(size, Direction::Right, mark);
    case 1: return TextCursor(pen);
    case 2: return Asterisk(pen);
    case 3: return Dot(pen, Round(6 * pen.unit), size / 2, size / 2);
    case 4: return MarkAndDot(pen, false);
    case 5: return Bars(pen, mark, 3, Round(3 * pen.unit) + (pen.stroke - 1));
    case 6: return CenteredTriangle(size, Direction::Right, mark).Outline();
    case 7: return MarkAndDot(pen, true);
    case 8: return CenteredTriangle(size, Direction::Up, arrow);
    case 9: return CenteredTriangle(size, Direction::Down, arrow);
    case 10: return CenteredTriangle(size, Direction::Left, arrow);
    case 11: return CenteredTriangle(size, Direction::Right, arrow);
    case 12: {
      const int side = Round(9 * pen.unit);
      return CheckMark(size, QRect((size - side) / 2, (size - side) / 2, side, side));
    }
    case 13: return Ellipsis(pen);
    case 14: return PlusOrMinus(pen, true);
    case 15: return PlusOrMinus(pen, false);
    case 16: return Magnifier(pen);
    case 17: return DoubleTriangle(pen, Direction::Left);
    case 18: return DoubleTriangle(pen, Direction::Right);
    case 19: return Ring(pen, Round(8 * pen.unit), size / 2.0, size / 2.0);
    case 20: return Funnel(pen).Outline();
    case 21: return Funnel(pen);
    case 22: return StemArrow(pen, Direction::Up, false);
    case 23: return StemArrow(pen, Direction::Down, false);
    case 24: return StemArrow(pen, Direction::Up, true);
    case 25: return StemArrow(pen, Direction::Down, true);
    case 26: return Cross(pen);
  }
  return Mask(size);
}

void DrawIndicators(QImage& strip, int size) {
  const double unit = size / 16.0;
  const Pen pen{size, unit, unit >= 1.5 ? 2 : 1};
  for (int index = 0; index < 27; ++index) {
    Cell cell(strip, index, size);
    cell.Paint(IndicatorGlyph(pen, index), kBlack);
  }
}

// --- Markers: raised triangles; from image 2 on a small one with the position digit.

void DrawMarkers(QImage& strip, int size) {
  const double unit = size / 16.0;
  const int edge = std::max(1, Round(unit - 0.25));
  for (int descending = 0; descending < 2; ++descending) {
    const Direction direction = descending ? Direction::Down : Direction::Up;
    Cell cell(strip, descending, size);
    PaintRaised(cell, CenteredTriangle(size, direction, Odd(9 * unit)), edge);
  }
  const int base = Odd(7 * unit);
  const int depth = (base + 1) / 2;
  const int margin = std::max(1, Round(unit));
  const int gap = std::max(1, Round(unit));
  const int digitRows = size - 2 * margin - depth - gap;
  for (int position = 1; position <= 9; ++position)
    for (int descending = 0; descending < 2; ++descending) {
      Cell cell(strip, 2 * position + descending, size);
      const int left = (size - base) / 2;
      if (descending) {
        PaintRaised(cell, Triangle(size, Direction::Down, left, size - margin - depth, base), edge);
        cell.Paint(Digit(size, position, size / 2, margin, digitRows), kBlack);
      } else {
        PaintRaised(cell, Triangle(size, Direction::Up, left, margin, base), edge);
        cell.Paint(Digit(size, position, size / 2, margin + depth + gap, digitRows), kBlack);
      }
    }
}

}  // namespace

const std::vector<StripInfo>& Strips() {
  static const std::vector<StripInfo> strips = {
      {Strip::CheckBoxes, "QUILDBCHECKBOXES", 9, {13, 16, 20, 23, 26}},
      {Strip::ExpandBoxes, "QUILDBEXPANDBOXES", 9, {13, 16, 20, 23, 26}},
      {Strip::Indicators, "QUILDBINDICATORS", 27, {16, 20, 24, 28, 32}},
      {Strip::Markers, "QUILDBMARKERS", 20, {16, 20, 24, 28, 32}},
  };
  return strips;
}

QString Suffix(int resolution) {
  static const char* const suffixes[] = {"", "_125", "_150", "_175", "_200"};
  return QString::fromLatin1(suffixes[resolution]);
}

QImage DrawStrip(Strip strip, int size) {
  int images = 0;
  for (const StripInfo& info : Strips())
    if (info.strip == strip) images = info.images;
  QImage image(size * images, size, QImage::Format_RGB32);
  image.fill(kTransparent);
  switch (strip) {
    case Strip::CheckBoxes: DrawCheckBoxes(image, size); break;
    case Strip::ExpandBoxes: DrawExpandBoxes(image, size); break;
    case Strip::Indicators: DrawIndicators(image, size); break;
    case Strip::Markers: DrawMarkers(image, size); break;
  }
  return image;
}

}  // namespace glyphart
