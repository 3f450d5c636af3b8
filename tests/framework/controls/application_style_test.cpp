#include <gtest/gtest.h>

#include <QImage>
#include <QPalette>

#include "GridProbe.h"
#include "framework/graphics/StyleServices.h"

using namespace quil;
using quil::test::GridProbe;

namespace {

class ApplicationStyleTest : public ::testing::Test {
protected:
  void SetUp() override {
    TStyleManager::SetStyle(QStringLiteral("Quil Light"));
    form = new TForm(nullptr);
    form->SetBounds(0, 0, 300, 200);
    grid = new GridProbe(form);
    grid->SetParent(form);
    grid->SetAlign(alClient);
    grid->SetOptions(grid->Options() + goEditing);
    form->Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form->Handle()));
  }
  void TearDown() override {
    delete form;
    TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  }

  QColor CellPixel(int col, int row) {
    TRect cell = grid->CellRect(col, row);
    QImage image = grid->Handle()->grab().toImage();
    return image.pixelColor(quil::test::WidgetPoint(grid, Point(cell.Right - 2, cell.Bottom - 2)));
  }
  static QColor Rgb(TColor color) {
    color = ColorToRGB(color);
    return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
  }

  TForm* form = nullptr;
  GridProbe* grid = nullptr;
};

}  // namespace

TEST_F(ApplicationStyleTest, SwitchingStyleRepaintsTheWindowsInTheNewColors) {
  EXPECT_EQ(CellPixel(3, 3), Rgb(clWindow));
  EXPECT_EQ(CellPixel(0, 3), Rgb(clBtnFace));
  QColor light = CellPixel(3, 3);
  grid->drawn.clear();
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  Application->ProcessMessages();
  EXPECT_FALSE(grid->drawn.empty());
  EXPECT_EQ(CellPixel(3, 3), Rgb(clWindow));
  EXPECT_EQ(CellPixel(0, 3), Rgb(clBtnFace));
  EXPECT_NE(CellPixel(3, 3), light);
}

TEST_F(ApplicationStyleTest, QtWidgetsTakeTheStylePalette) {
  grid->SetFocus();
  grid->ShowEditor();
  ASSERT_NE(grid->InplaceEditor(), nullptr);
  QWidget* editor = grid->InplaceEditor()->Handle();
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_EQ(editor->palette().color(QPalette::Base), Rgb(clWindow));
  EXPECT_EQ(editor->palette().color(QPalette::Text), Rgb(clWindowText));
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_EQ(editor->palette().color(QPalette::Base), Rgb(clWindow));
}
