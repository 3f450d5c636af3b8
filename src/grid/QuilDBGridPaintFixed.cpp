// The face that every fixed cell shares: the background by theme, gradient or plain fill,
// and the frame of FixedStyle with its black lines, raised edges, the merged total cells
// and the pressed or hot title.
//
// A fixed cell travels: DrawCell works out FixedLook -> the indicator, title or total
// cell sets font and brush -> FixedBackground (ThemedFixedBackground by FixedTheme, or
// GradientFixedBackground) or a plain fill -> its content -> DrawFixedFrame.
#include "framework/controls/ScrollBars.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/FrameDrawing.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridPaint_p.h"
#include "support/MarlGraph.h"

namespace quil {

namespace {

// What a merged element shows of its neighbour's side, so that its ends do not show.
constexpr int MergedOverlap = 4;
// The line the system's look draws under a fixed cell from Windows 8 on.
constexpr TColor SystemFixedBottomLine = 15066597;  // RGB 229, 229, 229

bool SoftFixedStyle(TFixedStyle style) { return style == fsFlat || style == fsGray || style == fsMild; }

// The offset of a state's element from the normal one in the grid's fixed cell families.
int StateOffset(TFixedCellState state) {
  switch (state) {
    case TFixedCellState::Hot: return 1;
    case TFixedCellState::Pressed: return 2;
    default: return 0;
  }
}

TThemedTab TabElement(TFixedCellState state) {
  switch (state) {
    case TFixedCellState::Hot: return ttTabItemHot;
    case TFixedCellState::Pressed: return ttTabItemSelected;
    case TFixedCellState::Disabled: return ttTabItemDisabled;
    default: return ttTabItemNormal;
  }
}

TThemedButton PushButtonElement(TFixedCellState state) {
  switch (state) {
    case TFixedCellState::Hot: return tbPushButtonHot;
    case TFixedCellState::Pressed: return tbPushButtonPressed;
    case TFixedCellState::Disabled: return tbPushButtonDisabled;
    default: return tbPushButtonNormal;
  }
}

TThemedHeader HeaderElement(TFixedCellState state) {
  return TThemedHeader(thHeaderItemNormal + StateOffset(state));
}

void Edge(TCanvas* canvas, TRect rect, unsigned edge, unsigned flags) { DrawEdge(canvas->Handle(), rect, edge, flags); }

}  // namespace

void DrawFixedLine(TCanvas* canvas, TColor color, int x1, int y1, int x2, int y2) {
  DrawPenLines(canvas, color, pmCopy, Point(x1, y1), Point(x2, y2));
}

void DrawCenteredImage(TImageList* list, TCanvas* canvas, const TRect& rect, int index, bool direct,
                       bool copyBackground) {
  const int x = rect.Left + (rect.Width() - list->Width()) / 2;
  const int y = rect.Top + (rect.Height() - list->Height()) / 2;
  DrawListImage(list, canvas, rect, x, y, index, direct, copyBackground);
}

// The edges of each FixedStyle, and which parts take the system's or the style's look.
void TQuilCustomDBGrid::FixedLook(TCellLook& look) const {
  look.softFlag = SoftFixedStyle(fixedStyle_) ? BF_SOFT : 0;
  look.flatFlag = fixedStyle_ >= fsNice ? BF_FLAT : 0;
  look.outerEdge = fixedStyle_ == fsSoft || fixedStyle_ >= fsGreat;
  look.custom = TStyleManager::IsCustomStyleActive();
  look.systemFixed = IsSystemStyle({sseFixed});
  look.systemText = IsSystemStyle({sseFixed, sseText});
  look.optionButton = optionsExt_.Contains(dgForceSystemButton);
  look.optionMarker = optionsExt_.Contains(dgForceSystemMarker);
  look.forceButton = IsSystemStyle({sseFixed, sseButton}) || (look.custom && look.optionButton);
  look.forceMarker = IsSystemStyle({sseFixed, sseMarker}) || (look.custom && look.optionMarker);
  look.gradientEdge = look.gradient && look.softFlag != 0;
}

// Only the tracking title is pressed or hot, and not while the press or the mouse is on
// its button, which shows the state itself.
TFixedCellState TQuilCustomDBGrid::FixedState(const TQuilColumn* column, bool pressable,
                                              const TCellLook& look) const {
  if (!Enabled()) return TFixedCellState::Disabled;
  if (!pressable || !column || column != hotColumn_ || look.dataRow >= 0 || hotExpand_) return TFixedCellState::Normal;
  if (titlePressed_) return TFixedCellState::Pressed;
  return hotTitle_ ? TFixedCellState::Hot : TFixedCellState::Normal;
}

bool TQuilCustomDBGrid::FixedBackground(const TRect& rect, TQuilColumn* column, bool pressable,
                                        const TCellLook& look) {
  if (look.themed) ThemedFixedBackground(rect, column, pressable, look);
  else if (look.gradient) GradientFixedBackground(rect, column, pressable, look);
  else return false;
  return true;
}

// --- Themed backgrounds

// The element over the cell's lines as well; the text goes on top of it.
void TQuilCustomDBGrid::ThemedFixedBackground(TRect rect, const TQuilColumn* column, bool pressable,
                                              const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const TFixedCellState state = FixedState(column, pressable, look);
  const TRect cell = rect;
  rect.Inflate(1, 1);
  if (look.custom || look.systemFixed) {
    StyledFixedBackground(rect, state, look);
  } else if (fixedTheme_ == ftTabs) {
    TabFixedBackground(rect, column, state, look);
  } else if (fixedTheme_ == ftButtons) {
    ButtonFixedBackground(rect, state, look);
  } else {
    // The system's header: the normal item under the state's.
    rect.Right += 1;
    rect.Bottom += 1;
    DrawFixedElement(TCustomStyleServices::GetElementDetails(thHeaderItemNormal), rect, state, look);
    rect.Right -= 1;
    if (state != TFixedCellState::Normal && state != TFixedCellState::Disabled)
      StyleServices()->DrawElement(canvas, TCustomStyleServices::GetElementDetails(HeaderElement(state)), rect);
  }
  if (look.hasBox) {
    TRect box = cell;
    box.Inflate(-1, -1);
    if (look.merged && !look.mergedFirst) box.Left -= 1;
    Edge(canvas, box, BDR_SUNKENOUTER, BF_RECT);
  }
  canvas->Brush()->SetStyle(bsClear);
}

// The grid's own fixed cell element of the drawing style, in the system's look or a
// custom style's; the font follows the element.
void TQuilCustomDBGrid::StyledFixedBackground(TRect rect, TFixedCellState state, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const TThemedGrid normal = GridElement(tgFixedCellNormal);
  const auto stateElement = TCustomStyleServices::GetElementDetails(TThemedGrid(normal + StateOffset(state)));
  const bool shown = state == TFixedCellState::Hot || state == TFixedCellState::Pressed;
  if (look.systemFixed) {
    rect.Right += 1;
    rect.Bottom += 1;
    DrawFixedElement(TCustomStyleServices::GetElementDetails(normal), rect, state, look);
    rect.Right -= 1;
    if (shown) StyleServices()->DrawElement(canvas, stateElement, rect);
    if (IsWin08()) {
      canvas->Brush()->SetColor(SystemFixedBottomLine);
      canvas->FillRect(Rect(rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom));
    }
  } else {
    switch (GetDrawingStyle()) {
      case gdsClassic: {
        TColor fill = canvas->Brush()->Color();
        StyleServices()->GetElementColor(stateElement, ecFillColor, fill);
        canvas->Brush()->SetColor(fill);
        canvas->FillRect(rect);
        if (state == TFixedCellState::Pressed) StyleServices()->DrawElement(canvas, stateElement, rect);
        break;
      }
      case gdsGradient: {
        TColor from = clNone, to = clNone;
        StyleServices()->GetElementColor(stateElement, ecGradientColor1, from);
        StyleServices()->GetElementColor(stateElement, ecGradientColor2, to);
        TMarlGradient::FillCanvas(canvas, from, to, rect, gdVertical);
        break;
      }
      default: {
        TRect over = rect;
        over.Right += 1;
        over.Bottom += 1;
        DrawFixedElement(TCustomStyleServices::GetElementDetails(normal), over, state, look);
        if (shown) StyleServices()->DrawElement(canvas, stateElement, rect);
        break;
      }
    }
  }
  TFont* font = canvas->Font();
  TColor text = clNone;
  if (font->Color() == canvas->Brush()->Color()) font->SetColor(GetFixedTextSelected());
  else if (look.systemText) font->SetColor(GetStyleFontColor(sfGridItemFixedNormal, normal));
  else if (StyleServices()->GetElementColor(stateElement, ecTextColor, text) && text != clNone) font->SetColor(text);
}

void TQuilCustomDBGrid::TabFixedBackground(TRect rect, const TQuilColumn* column, TFixedCellState state,
                                           const TCellLook& look) {
  TCanvas* canvas = Canvas();
  if (look.dataRow >= 0) rect.Top -= 1;
  rect.Right += 1;
  rect.Bottom += 1;
  // The tab's rounded corners show what lies under them: the cell's color, not the
  // places of lines that no one draws under a theme.
  canvas->FillRect(rect);
  const int saved = canvas->SaveDC();
  if (state == TFixedCellState::Hot || state == TFixedCellState::Pressed) {
    StyleServices()->DrawElement(canvas, TCustomStyleServices::GetElementDetails(ttTabItemNormal), rect);
    TRect inside = rect;
    inside.Inflate(-1, -1);
    canvas->IntersectClipRect(inside);
  }
  DrawFixedElement(TCustomStyleServices::GetElementDetails(TabElement(state)), rect, state, look);
  canvas->RestoreDC(saved);
  // The tabs stand on a line that closes the titles off from the data, and the grid
  // at its foot.
  const bool titleFoot = look.dataRow < 0 && column && column->Index() >= fixedCols_ &&
                         (paint_.rawRow == titleOffset_ - 1 || !column->GetExpanded());
  if (titleFoot || paint_.rawRow == RowCount() - 1)
    DrawFixedLine(canvas, DefaultDataLineColor(), rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom - 1);
}

void TQuilCustomDBGrid::ButtonFixedBackground(TRect rect, TFixedCellState state, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  rect.Inflate(2, 2);
  if (paint_.rawCol == 0) rect.Left += 1;
  if (paint_.rawRow == 0) rect.Top += 1;
  const int saved = canvas->SaveDC();
  TRect inside = rect;
  inside.Inflate(-1, -1);
  canvas->IntersectClipRect(inside);
  if (state == TFixedCellState::Hot || state == TFixedCellState::Pressed) {
    StyleServices()->DrawElement(canvas, TCustomStyleServices::GetElementDetails(tbPushButtonNormal), rect);
    inside.Inflate(-1, -1);
    canvas->IntersectClipRect(inside);
  }
  DrawFixedElement(TCustomStyleServices::GetElementDetails(PushButtonElement(state)), rect, state, look);
  canvas->RestoreDC(saved);
}

// A merged total cell draws its element wider on the sides of its merged neighbours and
// clipped to itself, so that the run reads as one element.
void TQuilCustomDBGrid::DrawFixedElement(const TThemedElementDetails& details, const TRect& rect,
                                         TFixedCellState state, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  if (!look.merged || state != TFixedCellState::Normal) {
    StyleServices()->DrawElement(canvas, details, rect);
    return;
  }
  TRect wider = rect;
  if (!look.mergedFirst) wider.Left -= MergedOverlap;
  if (!look.mergedLast) wider.Right += MergedOverlap;
  StyleServices()->DrawElement(canvas, details, wider, &rect);
}

// --- Gradient background

void TQuilCustomDBGrid::GradientFixedBackground(TRect rect, const TQuilColumn* column, bool pressable,
                                                const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const TFixedCellState state = FixedState(column, pressable, look);
  const bool hot = state == TFixedCellState::Hot || state == TFixedCellState::Pressed;
  const TColor color = canvas->Brush()->Color();
  if (look.gradientEdge) rect.Inflate(1, 1);
  if (look.gradientEdge && hot && gradient_->Options().Contains(goHotTrack)) {
    gradient_->FillRect(canvas, rect, color, false, false);
    rect.Inflate(-1, -1);
  }
  if (look.merged && !look.gradientEdge) rect.Inflate(1, 0);
  gradient_->FillRect(canvas, rect, color, hot, state == TFixedCellState::Pressed);
  canvas->Brush()->SetStyle(bsClear);
}

// --- The frame

bool TQuilCustomDBGrid::MirroredEdgeFix(const TCellLook& look) const {
  return Canvas()->CanvasOrientation() == coRightToLeft && (Ctl3D() || BorderStyle() == bsNone) &&
         options_.Contains(dgColLines) && !look.themed;
}

// The black lines where the base grid draws none, and the raised edges of FixedStyle.
// It draws on an unmirrored canvas, so that left and right edges keep their light.
void TQuilCustomDBGrid::DrawFixedFrame(TRect rect, const TQuilColumn* column, bool title, const TCellLook& look) {
  if (!look.fixed || look.themed) return;
  TCanvas* canvas = Canvas();
  const bool mirrored = canvas->CanvasOrientation() == coRightToLeft;
  if (mirrored) {
    ChangeGridOrientation(false);
    rect = Rect(ClientWidth() - rect.Right, rect.Top, ClientWidth() - rect.Left, rect.Bottom);
  }
  TScopeExit orientation([&] {
    if (mirrored) ChangeGridOrientation(true);
  });
  const int rl = options_.Contains(dgRowLines) ? 1 : 0;
  const int cl = options_.Contains(dgColLines) ? 1 : 0;
  const bool bothLines = rl && cl;
  const bool softLines = fixedStyle_ == fsSoft || fixedStyle_ == fsGreat || fixedStyle_ == fsGray ||
                         fixedStyle_ == fsFine || fixedStyle_ == fsMild;
  if (!(bothLines && softLines)) {
    if (rl) DrawFixedLine(canvas, clBlack, rect.Left - cl, rect.Bottom + cl, rect.Right + cl, rect.Bottom + cl);
    if (cl && !(look.merged && mirrored))
      DrawFixedLine(canvas, clBlack, rect.Right + rl, rect.Top - rl, rect.Right + rl, rect.Bottom + 2 * rl);
  }
  const TColor lineColor = bothLines ? GetFixedLineColor() : clBlack;
  const bool blankRowShows = RowHeights(titleOffset_ + look.lastRow) > 0;
  if (rl && look.dataRow == look.lastRow + 1 &&
      (DoubleBuffered() || ComponentState().Contains(csDesigning) || blankRowShows))
    DrawFixedLine(canvas, lineColor, rect.Left - cl, rect.Top - cl - 1, rect.Right + cl + 1, rect.Top - cl - 1);
  if (mirrored && cl)
    DrawFixedLine(canvas, lineColor, rect.Left - rl - 1, rect.Top - rl, rect.Left - rl - 1, rect.Bottom + 2 * rl);
  if (bothLines) {
    rect.Inflate(1, 1);
    DrawFrameEdges(rect, mirrored, look);
  }
  // FIXME: totals draw the box's edges here in Totals.BoxStyle with DrawCheckBox, two
  // pixels wide for a lowered style in rows of a TotalRowSpace of 6 and more.
  if (look.gradient && gradient_->Options().Contains(goHotTrack)) return;
  if (title && column && column == hotColumn_ && look.dataRow < 0) DrawTitleStateFrame(rect, mirrored, look);
}

// The cell's edges within its own rectangle, and the outer edge over its lines.
void TQuilCustomDBGrid::DrawFrameEdges(const TRect& rect, bool mirrored, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  if (look.outerEdge) {
    TRect outer = rect;
    outer.Inflate(1, 1);
    const bool darkOuter = fixedStyle_ == fsSoft || fixedStyle_ == fsGreat || fixedStyle_ == fsGray;
    Edge(canvas, outer, darkOuter ? BDR_RAISEDOUTER : BDR_RAISEDINNER,
         look.merged && mirrored ? BF_BOTTOM : BF_BOTTOMRIGHT);
  }
  if (look.gradientEdge) return;
  if (look.merged) return DrawMergedEdges(rect, mirrored, look);
  if (FixedColor() != clBtnFace && SoftFixedStyle(fixedStyle_)) {
    canvas->FrameRect(rect);
    return;
  }
  Edge(canvas, rect, BDR_RAISEDINNER, BF_BOTTOMRIGHT | look.flatFlag);
  Edge(canvas, rect, BDR_RAISEDINNER, BF_TOPLEFT | look.softFlag);
}

// A run of merged total cells reads as one raised cell: the inner ends of its cells are
// painted over in the brush.
void TQuilCustomDBGrid::DrawMergedEdges(const TRect& rect, bool mirrored, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const bool first = look.mergedFirst;
  const bool last = look.mergedLast;
  const TColor brush = canvas->Brush()->Color();
  if (!mirrored) {
    Edge(canvas, rect, BDR_RAISEDINNER, (first || last ? BF_BOTTOMRIGHT : BF_BOTTOM) | look.flatFlag);
    Edge(canvas, rect, BDR_RAISEDINNER, (first ? BF_TOPLEFT : BF_TOP) | look.softFlag);
    if (first || look.gradient) return;
    DrawFixedLine(canvas, brush, rect.Left, rect.Top + 1, rect.Left, rect.Bottom - 1);
    if (!last) DrawFixedLine(canvas, brush, rect.Right - 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1);
    return;
  }
  Edge(canvas, rect, BDR_RAISEDINNER, (first ? BF_BOTTOMRIGHT : BF_BOTTOM) | look.flatFlag);
  Edge(canvas, rect, BDR_RAISEDINNER, (last ? BF_TOPLEFT : BF_TOP) | look.softFlag);
  if (look.gradient) return;
  if (!first) DrawFixedLine(canvas, brush, rect.Right - 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1);
  if (!first && !last) DrawFixedLine(canvas, brush, rect.Left, rect.Top + 1, rect.Left, rect.Bottom - 1);
}

// The pressed title sinks; a title under the mouse takes the hot frame of its style.
// Either narrows to the button while the press or the mouse is there.
void TQuilCustomDBGrid::DrawTitleStateFrame(TRect rect, bool mirrored, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  if (hotExpand_) {
    const int width = GetSystemMetrics(SM_CXHSCROLL) + 2;
    if (mirrored) rect.Right = rect.Left + width;
    else rect.Left = rect.Right - width;
  }
  const bool bothLines = options_.Contains(dgRowLines) && options_.Contains(dgColLines);
  if (titlePressed_) {
    if (bothLines && !look.outerEdge) {
      TRect outer = rect;
      outer.Inflate(1, 1);
      Edge(canvas, outer, BDR_RAISEDOUTER, BF_BOTTOMRIGHT);
    }
    Edge(canvas, rect, BDR_SUNKENINNER, BF_RECT);
    return;
  }
  if (!hotTitle_) return;
  switch (HotButtonsStyle()) {
    case hbBump: Edge(canvas, rect, EDGE_BUMP, BF_RECT); break;
    case hbTile: Edge(canvas, Rect(rect.Left + 1, rect.Top + 1, rect.Right, rect.Bottom), EDGE_ETCHED, BF_RECT); break;
    case hbLowered: Edge(canvas, rect, BDR_SUNKENOUTER, BF_RECT); break;
    case hbRaised:
      if (fixedStyle_ == fsFine) {
        Edge(canvas, rect, EDGE_RAISED, BF_TOPLEFT);
        Edge(canvas, Rect(rect.Left + 1, rect.Top + 1, rect.Right, rect.Bottom), BDR_RAISEDOUTER, BF_BOTTOMRIGHT);
      } else if (fixedStyle_ == fsMild) {
        Edge(canvas, Rect(rect.Left, rect.Top, rect.Right + 1, rect.Bottom + 1), BDR_RAISEDINNER, BF_RECT);
      } else {
        Edge(canvas, rect, fixedStyle_ == fsDefault || fixedStyle_ == fsSoft ? EDGE_RAISED : BDR_RAISEDINNER,
             BF_RECT);
      }
      break;
    default: break;
  }
}

}  // namespace quil
