// The plain rendering: titles and data cells show their text, offscreen.
#include <QDir>
#include <QImage>

#include "GridTestKit.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

class GridPaint : public GridFixture {
protected:
  QImage Grab() { return grid->Handle()->grab().toImage(); }
  // Whether a rectangle of the grab holds pixels darker than the background: text.
  static bool HasInk(const QImage& image, const TRect& rect) {
    for (int y = rect.Top; y < rect.Bottom; ++y)
      for (int x = rect.Left; x < rect.Right; ++x)
        if (qGray(image.pixel(x, y)) < 100) return true;
    return false;
  }
  TRect InClient(TRect rect) const {
    const int border = (grid->Width() - grid->ClientWidth()) / 2;
    rect.Offset(border, border);
    return rect;
  }
};

TEST_F(GridPaint, TitlesAndCellsShowTheirTextAndEmptyPlacesStayBlank) {
  Open(30);
  grid->MoveBy(3);
  const QImage image = Grab();
  const QString path = QDir::tempPath() + QStringLiteral("/quil-grid-spine.png");
  ASSERT_TRUE(image.save(path));
  EXPECT_TRUE(HasInk(image, InClient(grid->CellRect(1, 0)))) << "title of ID";
  EXPECT_TRUE(HasInk(image, InClient(grid->CellRect(2, 1)))) << "a name";
  // City is empty for every fourth record: record 4 is on row 4.
  EXPECT_FALSE(HasInk(image, InClient(grid->CellRect(3, 4))));
  EXPECT_TRUE(HasInk(image, InClient(grid->CellRect(3, 3))));
}

TEST_F(GridPaint, RightAlignedNumbersEndAtTheCellsRightEdge) {
  Open(5);
  const QImage image = Grab();
  TRect cell = InClient(grid->CellRect(1, 2));
  TRect leftHalf = cell, rightHalf = cell;
  leftHalf.Right = rightHalf.Left = cell.Left + cell.Width() / 2;
  EXPECT_TRUE(HasInk(image, rightHalf));
  EXPECT_FALSE(HasInk(image, leftHalf));
}

}  // namespace
