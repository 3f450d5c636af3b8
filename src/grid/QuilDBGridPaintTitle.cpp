// A title cell: its header bands, the caption with its button, image and sort marker.
//
// A title paints its whole extent from every cell it covers: FullTitleRect lays it out,
// CalcTitleRect clips it to what shows. DrawTitleCell -> each band (DrawHeaderBand:
// background, centered text, frame, the line under it) -> the title's background -> the
// button (DrawTitleButton) -> image -> marker and theme arrows -> caption -> frame.
#include <QRegularExpression>
#include <algorithm>

#include "framework/controls/ScrollBars.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Types.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridCellDraw.h"
#include "grid/QuilDBGridPaint_p.h"
#include "support/MarlGraph.h"

namespace quil {

namespace {

constexpr TColor BandLineColor = 14474460;  // RGB 220, 220, 220
// The glyphs of the indicator list that title buttons and arrows show.
constexpr int DropDownGlyph = 9;
constexpr int ExpandGlyph = 11;  // 10 points the other way
constexpr int FilterGlyph = 20;  // 21 once filtered
constexpr int ArrowUpGlyph = 8;
constexpr int ArrowDownGlyph = 9;
constexpr int ButtonGlyphsNeeded = 12;

int ButtonGlyph(const TQuilColumn* column, bool expanded) {
  if (column->HasFilterButton()) return FilterGlyph + (column->GetFiltered() ? 1 : 0);
  if (column->HasDropDownButton()) return DropDownGlyph;
  return ExpandGlyph - (expanded ? 1 : 0);
}

// The width of the caption's widest line as it is laid out in width.
int CaptionWidth(TCanvas* canvas, const QString& caption, int width, bool wordWrap) {
  const QString laidOut = wordWrap ? BreakTextLines(canvas, caption, width, -1) : caption;
  int widest = 0;
  for (const QString& line : laidOut.split(QRegularExpression(QStringLiteral("\r\n|\r|\n"))))
    widest = std::max(widest, canvas->TextWidth(line));
  return std::min(widest, width);
}

}  // namespace

void TQuilCustomDBGrid::DrawTitleCell(const TRect& cellRect, TQuilColumn* column, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const int titleRow = paint_.rawRow;
  TQuilColumn* master = nullptr;
  TRect full = FullTitleRect(column, titleRow, master);
  if (!master) {
    canvas->Brush()->SetColor(FixedColor());
    canvas->FillRect(cellRect);
    return;
  }
  TRect visible = CalcTitleRect(column, titleRow, master);
  const int shift = visible.Left - full.Left;
  if (MirroredEdgeFix(look)) {
    if (full.Left == 0) full.Left = 1;
    if (visible.Left == 0) visible.Left = 1;
  }
  const TQuilColumnTitle* title = master->Title();
  const int bands = options_.Contains(dgTitleHeaders) ? title->GetHeaderRowCount() : 0;
  for (int band = 0; band < bands; ++band) DrawHeaderBand(master, band, full, shift, look);
  full.Top += bands * titleLineHeight_;
  visible.Top += bands * titleLineHeight_;
  canvas->SetFont(title->Font());
  canvas->Brush()->SetColor(title->Color());
  if (options_.Contains(dgColLines) && options_.Contains(dgRowLines)) visible.Inflate(-1, -1);
  if (!FixedBackground(visible, master, true, look)) canvas->FillRect(visible);

  const bool pressed = master == hotColumn_ && titlePressed_;
  const TPoint offset = pressed ? TitlePressOffset(look) : TPoint{};
  TRect titleRect = full;
  titleRect.Offset(offset.X, offset.Y);
  TRect text = titleRect;
  if (pressed && hotExpand_) text.Offset(-offset.X, -offset.Y);
  const int buttonWidth = GetSystemMetrics(SM_CXHSCROLL);
  if (text.Width() >= buttonWidth && master->HasExpandButton()) {
    text.Right -= buttonWidth;
    DrawTitleButton(Rect(text.Right, text.Top, text.Right + buttonWidth, text.Bottom), master, look);
  }
  text.Left += gridStyle_->TitleColMargin();
  text.Right -= gridStyle_->TitleColMargin();
  TImageList* markers = GetMarkers();
  const bool hasMarker = markers && title->MarkerIndex() >= 0 && title->MarkerIndex() < markers->Count();
  DrawTitleImage(text, titleRect, title, hasMarker, look);
  if (hasMarker) DrawTitleMarker(text, titleRect, title, look);
  const int saved = canvas->SaveDC();
  canvas->IntersectClipRect(visible);
  if (text.Width() > 0)
    CellTextOut(canvas, text, look.textMargin, look.textMargin, title->Caption(), title->Alignment(),
                UseRightToLeftAlignment(), title->Ellipsis(), title->WordWrap(), title->VAlignment(), QString(), {});
  canvas->RestoreDC(saved);
  DrawFixedFrame(visible, master, true, look);
}

// A band across the columns that share it, in the header font and color, its text
// centered on the whole band and clipped to what shows.
void TQuilCustomDBGrid::DrawHeaderBand(TQuilColumn* master, int band, const TRect& titleRect, int shift,
                                       const TCellLook& look) {
  TCanvas* canvas = Canvas();
  TRect visible;
  TRect rect = HeaderRect(master, band, titleRect, visible);
  visible.Left += shift;
  if (options_.Contains(dgRowLines)) {
    rect.Bottom -= GridLineWidth();
    visible.Bottom -= GridLineWidth();
  }
  if (options_.Contains(dgColLines) && options_.Contains(dgRowLines)) {
    rect.Inflate(-1, -1);
    visible.Inflate(-1, -1);
  }
  canvas->SetFont(headerFont_.get());
  canvas->Brush()->SetColor(headerColor_);
  FixedBackground(visible, nullptr, false, look);
  const int saved = canvas->SaveDC();
  canvas->IntersectClipRect(visible);
  CellTextOut(canvas, rect, look.textMargin, look.textMargin, master->Title()->GetHeaderRows(band), taCenter,
              UseRightToLeftAlignment(), true, true, tvCenter, QString(), {});
  canvas->RestoreDC(saved);
  DrawFixedFrame(visible, nullptr, false, look);
  if (options_.Contains(dgRowLines)) DrawBandLines(visible, look);
}

// The line under a band, one for each pixel of the grid's line width.
void TQuilCustomDBGrid::DrawBandLines(TRect rect, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  for (int line = 1; line <= GridLineWidth(); ++line, ++rect.Bottom) {
    const bool wide = line >= 2;
    if (look.custom && (fixedTheme_ == ftNone || wide)) {
      TColor border = clBlack;
      StyleServices()->GetElementColor(TCustomStyleServices::GetElementDetails(tgClassicFixedCellNormal),
                                       ecBorderColor, border);
      DrawFixedLine(canvas, border, rect.Left - 1, rect.Bottom + 1, rect.Right + 1, rect.Bottom + 1);
    } else if (look.themed && wide) {
      DrawFixedLine(canvas, BandLineColor, rect.Left - 1, rect.Bottom + 1, rect.Right + 1, rect.Bottom + 1);
    } else if (!look.themed && wide) {
      DrawFixedLine(canvas, BandLineColor, rect.Left, rect.Bottom, rect.Right, rect.Bottom);
    } else if (!look.themed && !look.outerEdge) {
      DrawFixedLine(canvas, clBlack, rect.Left, rect.Bottom, rect.Right, rect.Bottom);
    }
  }
}

// A pressed title moves its content by a pixel, unless its look shows the press itself.
TPoint TQuilCustomDBGrid::TitlePressOffset(const TCellLook& look) const {
  const bool classicStyle = (look.custom || look.systemFixed) && GetDrawingStyle() == gdsClassic;
  if (!classicStyle && (look.themed || (look.gradient && gradient_->Options().Contains(goHotTrack)))) return {};
  return {1, 1};
}

// --- Title buttons

void TQuilCustomDBGrid::DrawTitleButton(TRect rect, TQuilColumn* column, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const bool mirrored = canvas->CanvasOrientation() == coRightToLeft;
  const bool filter = column->HasFilterButton();
  if (look.custom || look.forceButton || ((look.optionButton || filter) && look.themed)) {
    const int saved = canvas->SaveDC();
    if (mirrored) rect.Offset(1, 0);
    DrawButton(rect, column, false, look);
    canvas->RestoreDC(saved);
    return;
  }
  if (!look.themed) {
    TImageList* glyphs = GetIndicators();
    if (!glyphs || glyphs->Count() < ButtonGlyphsNeeded) return;
    const bool onButton = Enabled() && column == hotColumn_ && hotExpand_ && (titlePressed_ || hotTitle_);
    if (look.gradient && onButton) {
      TRect hot = rect;
      if (look.gradientEdge && hotButtons_ == hbNone && !gradient_->Options().Contains(goHotTrack)) hot.Inflate(1, 1);
      gradient_->FillRect(canvas, hot, column->Title()->Color(), true, titlePressed_);
    }
    const int glyph = ButtonGlyph(column, mirrored != column->GetExpanded());
    DrawCenteredImage(glyphs, canvas, rect, glyph, false, look.gradient);
    return;
  }
  TRect clip;
  // A push button face on the first title row starts a pixel lower, and its button with it.
  const bool banded = options_.Contains(dgTitleHeaders) && column->Title()->GetHeaderRowCount() > 0;
  if (look.systemFixed) rect.Top -= 1;
  else if (fixedTheme_ == ftTabs || (fixedTheme_ == ftButtons && !column->ParentColumn() && !banded)) rect.Top += 1;
  if (column->HasDropDownButton() || filter) {
    rect.Top += 1;
    clip = Rect(rect.Left + 1, rect.Top, rect.Right - 1, rect.Bottom - 1);
  } else if (column->GetExpanded()) {
    rect.Right -= 1;
    rect.Bottom -= 1;
    clip = Rect(rect.Left + 1, rect.Top + 1, rect.Right, rect.Bottom);
  } else {
    rect.Left += 1;
    rect.Bottom -= 1;
    clip = Rect(rect.Left, rect.Top + 1, rect.Right - 1, rect.Bottom);
  }
  const int saved = canvas->SaveDC();
  canvas->IntersectClipRect(clip);
  DrawButton(rect, column, true, look);
  canvas->RestoreDC(saved);
}

// The theme's scroll arrow, or with the system's buttons a fixed cell's face in the
// button's state under the glyph of the indicator list.
void TQuilCustomDBGrid::DrawButton(TRect rect, TQuilColumn* column, bool pressable, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const bool mirrored = canvas->CanvasOrientation() == coRightToLeft;
  TFixedCellState state = TFixedCellState::Normal;
  if (!Enabled()) state = TFixedCellState::Disabled;
  else if (column == hotColumn_ && hotExpand_ && titlePressed_) state = TFixedCellState::Pressed;
  else if (column == hotColumn_ && hotExpand_ && hotTitle_) state = TFixedCellState::Hot;
  const bool expanded = look.custom ? column->GetExpanded() : column->GetExpanded() != mirrored;
  const int stateOffset = state == TFixedCellState::Hot ? 1 : state == TFixedCellState::Pressed ? 2
                          : state == TFixedCellState::Disabled ? 3 : 0;
  if (!look.forceButton && !look.optionButton && !column->HasFilterButton()) {
    TThemedElementDetails arrow;
    if (column->HasDropDownButton() && !pressable)
      arrow = TCustomStyleServices::GetElementDetails(TThemedComboBox(tcDropDownButtonNormal + stateOffset));
    else if (column->HasDropDownButton())
      arrow = TCustomStyleServices::GetElementDetails(TThemedScrollBar(tsArrowBtnDownNormal + stateOffset));
    else
      arrow = TCustomStyleServices::GetElementDetails(
          TThemedScrollBar((expanded ? tsArrowBtnLeftNormal : tsArrowBtnRightNormal) + stateOffset));
    StyleServices()->DrawElement(canvas, arrow, rect);
    return;
  }
  rect.Inflate(0, 1);
  if (!look.systemFixed && !look.custom && (fixedTheme_ == ftButtons || fixedTheme_ == ftTabs)) rect.Top += 1;
  if (mirrored) rect.Left -= 1;
  else rect.Right += 1;
  if (state == TFixedCellState::Hot || state == TFixedCellState::Pressed)
    StyleServices()->DrawElement(
        canvas, TCustomStyleServices::GetElementDetails(TThemedGrid(GridElement(tgFixedCellNormal) + stateOffset)),
        rect);
  TImageList* glyphs = GetIndicators();
  if (glyphs && glyphs->Count() >= ButtonGlyphsNeeded)
    DrawCenteredImage(glyphs, canvas, rect, ButtonGlyph(column, expanded), false, true);
}

// --- Image and marker

// The title's image from TitleImages at the caption's left; alone, it takes the middle.
void TQuilCustomDBGrid::DrawTitleImage(TRect& textRect, const TRect& titleRect, const TQuilColumnTitle* title,
                                       bool hasMarker, const TCellLook& look) {
  const int index = title->ImageIndex();
  if (!titleImages_ || index < 0 || index >= titleImages_->Count()) return;
  const int width = titleImages_->Width();
  int x = textRect.Left + look.textMargin;
  if (title->Caption().trimmed().isEmpty() && !hasMarker) {
    x = textRect.Left + (textRect.Width() - width) / 2;
    textRect.Right = textRect.Left;
  } else {
    textRect.Left += width + MulDiv(2, GetCurrentPPI(), 96);
  }
  const int y = titleRect.Top + (titleRect.Height() - titleImages_->Height()) / 2;
  DrawListImage(titleImages_, Canvas(), Bounds(x, y, width, titleImages_->Height()), x, y, index, false,
                look.themed || look.gradient);
}

// The sort marker at the caption's right, or beside the caption with dgMarkerAutoAlign;
// the theme's arrows stand over it where the system's markers are forced.
void TQuilCustomDBGrid::DrawTitleMarker(TRect& textRect, const TRect& titleRect, const TQuilColumnTitle* title,
                                        const TCellLook& look) {
  TCanvas* canvas = Canvas();
  TImageList* markers = GetMarkers();
  if (textRect.Width() <= 0) return;
  const int margin = look.textMargin;
  textRect.Right -= markers->Width() + MulDiv(2, GetCurrentPPI(), 96);
  int left = std::max(textRect.Right, textRect.Left + (margin == 2 ? 2 : 0));
  const TAlignment alignment = title->Alignment();
  if (options_.Contains(dgMarkerAutoAlign) && alignment != taRightJustify) {
    const int captionWidth = CaptionWidth(canvas, title->Caption(), std::max(textRect.Width(), 0), title->WordWrap());
    const int x = alignment == taLeftJustify ? textRect.Left + margin + captionWidth + margin + 1
                                             : textRect.Left + textRect.Width() / 2 + captionWidth / 2 + margin + 1;
    if (x < textRect.Right) {
      if (alignment == taCenter) textRect.Left += textRect.Right - x;
      textRect.Right = x;
      left = x;
    }
  }
  if (canvas->CanvasOrientation() == coRightToLeft) left += 2;
  const int x = left - margin + 2;
  const int y = titleRect.Top + (titleRect.Height() - markers->Height()) / 2;
  const TRect place = Bounds(x, y, markers->Width(), markers->Height());
  DrawListImage(markers, canvas, place, x, y, title->MarkerIndex(), false, look.themed || look.gradient);
  if ((look.forceMarker || look.optionMarker) && !titleMarkers_) {
    TRect arrows = place;
    arrows.Inflate(1, 1);
    DrawThemeArrows(arrows, title->MarkerIndex(), look);
  }
}

// The theme's sort arrow in place of a plain marker: in the middle for the marker of a
// single column, above or below the position number for a numbered one. Its height grows
// with the pixels per inch, as the markers it stands over do.
void TQuilCustomDBGrid::DrawThemeArrows(const TRect& rect, int markerIndex, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const bool descending = markerIndex % 2 == 1;
  const int ppi = GetCurrentPPI();
  const int height = MulDiv(6, ppi, 96);
  TRect arrow = rect;
  if (markerIndex < 2) arrow.Top = rect.Top + rect.Height() / 2 - MulDiv(2, ppi, 96);
  else if (descending) arrow.Top = rect.Bottom - height + 1;
  else arrow.Top = rect.Top - 1;
  arrow.Bottom = arrow.Top + height;
  if (look.systemFixed) {
    StyleServices()->DrawElement(
        canvas,
        TCustomStyleServices::GetElementDetails(descending ? thHeaderSortArrowSortedDown : thHeaderSortArrowSortedUp),
        arrow);
    return;
  }
  TImageList* indicators = GetIndicators();
  if (!indicators || indicators->Count() <= ArrowDownGlyph) return;
  if (descending) arrow.Offset(0, -1);
  DrawCenteredImage(indicators, canvas, arrow, descending ? ArrowDownGlyph : ArrowUpGlyph, false, true);
}

}  // namespace quil
