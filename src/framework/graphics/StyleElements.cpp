// Themed elements of the style services, drawn by Qt's Fusion style with the palette
// of the style in question.

#include <QApplication>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPointer>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <optional>

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/StyleServices_p.h"

namespace quil {

QStyle* ElementStyle() {
  static QPointer<QStyle> style;
  if (!style) {
    style = QStyleFactory::create(QStringLiteral("Fusion"));
    if (style && qApp) style->setParent(qApp);
  }
  return style;
}

QPalette StylePalette(const TCustomStyleServices& style) {
  if (style.IsSystemStyle()) return QGuiApplication::palette();
  const TStyleScheme& scheme = style.Scheme();
  auto color = [&](TSchemeRole role) { return ToQColor(scheme[role]); };
  QPalette palette(color(srFaceText), color(srFace), color(srLight), color(srShadow),
                   color(srMidlight), color(srWindowText), color(srLight), color(srWindow), color(srFace));
  palette.setColor(QPalette::Shadow, color(srDarkShadow));
  palette.setColor(QPalette::AlternateBase, color(srAlternateRow1));
  palette.setColor(QPalette::Highlight, color(srHighlight));
  palette.setColor(QPalette::HighlightedText, color(srHighlightText));
  palette.setColor(QPalette::ToolTipBase, color(srInfoBk));
  palette.setColor(QPalette::ToolTipText, color(srInfoText));
  palette.setColor(QPalette::Link, color(srHotLight));
  palette.setColor(QPalette::PlaceholderText, color(srGrayText));
  for (QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, color(srGrayText));
  return palette;
}

namespace {
// Most element families come in fours: normal, hot, pressed, disabled.
enum class Look { Normal, Hot, Pressed, Disabled };

Look LookOf(int offset) { return Look(offset % 4); }

QStyle::State StateOf(Look look) {
  QStyle::State state = look == Look::Disabled ? QStyle::State_None : QStyle::State_Enabled;
  if (look == Look::Hot) state |= QStyle::State_MouseOver;
  state |= look == Look::Pressed ? QStyle::State_Sunken : QStyle::State_Raised;
  return state;
}

struct Target {
  QPainter* painter;
  QRect rect;
  QPalette palette;
  Qt::LayoutDirection direction;
  const TStyleScheme& scheme;

  void Prepare(QStyleOption& option, QStyle::State state) const {
    option.rect = rect;
    option.palette = palette;
    option.state = state;
    option.direction = direction;
  }
  QColor Color(TSchemeRole role) const { return ToQColor(scheme[role]); }
};

void DrawBevel(const Target& target, Look look) {
  QStyleOptionButton option;
  target.Prepare(option, StateOf(look));
  ElementStyle()->drawControl(QStyle::CE_PushButtonBevel, &option, target.painter);
}

void DrawArrow(const Target& target, QStyle::PrimitiveElement arrow, Look look) {
  QStyleOption option;
  target.Prepare(option, StateOf(look));
  ElementStyle()->drawPrimitive(arrow, &option, target.painter);
}

bool DrawButton(const Target& target, int part) {
  if (part >= tbPushButtonNormal && part <= tbPushButtonDefaulted) {
    DrawBevel(target, part == tbPushButtonDefaulted ? Look::Normal : LookOf(part - tbPushButtonNormal));
    return true;
  }
  const bool radio = part >= tbRadioButtonUncheckedNormal && part <= tbRadioButtonCheckedDisabled;
  const int first = radio ? tbRadioButtonUncheckedNormal : tbCheckBoxUncheckedNormal;
  if (part < first || part > tbCheckBoxMixedDisabled) return false;
  const int checkState = (part - first) / 4;
  QStyle::State state = StateOf(LookOf(part - first)) & ~QStyle::State_Raised;
  state |= checkState == 0 ? QStyle::State_Off : checkState == 1 ? QStyle::State_On : QStyle::State_NoChange;
  QStyleOptionButton option;
  target.Prepare(option, state);
  // The box's outline is a shade darker than the window color, which leaves it unseen
  // on a dark window: the light shade keeps it visible on light and dark faces alike.
  option.palette.setColor(QPalette::Window, target.Color(srLight));
  ElementStyle()->drawPrimitive(radio ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox, &option,
                                target.painter);
  return true;
}

bool DrawComboBox(const Target& target, int part) {
  if (part < tcDropDownButtonNormal || part > tcDropDownButtonDisabled) return false;
  const Look look = LookOf(part - tcDropDownButtonNormal);
  DrawBevel(target, look);
  DrawArrow(target, QStyle::PE_IndicatorArrowDown, look);
  return true;
}

bool DrawEdit(const Target& target, int part) {
  if (part < teEditTextNormal || part > teEditTextReadOnly) return false;
  QStyleOptionFrame option;
  QStyle::State state = part == teEditTextDisabled ? QStyle::State_None : QStyle::State_Enabled;
  if (part == teEditTextFocused) state |= QStyle::State_HasFocus;
  if (part == teEditTextHot) state |= QStyle::State_MouseOver;
  if (part == teEditTextReadOnly) state |= QStyle::State_ReadOnly;
  target.Prepare(option, state);
  option.lineWidth = 1;
  target.painter->fillRect(target.rect, target.Color(part == teEditTextDisabled ? srFace : srWindow));
  ElementStyle()->drawPrimitive(QStyle::PE_FrameLineEdit, &option, target.painter);
  return true;
}

bool DrawHeaderSection(const Target& target, Look look, QStyleOptionHeader::SectionPosition position) {
  QStyleOptionHeader option;
  target.Prepare(option, StateOf(look) | QStyle::State_Horizontal);
  option.position = position;
  option.orientation = Qt::Horizontal;
  ElementStyle()->drawControl(QStyle::CE_HeaderSection, &option, target.painter);
  return true;
}

bool DrawHeader(const Target& target, int part) {
  if (part == thHeaderSortArrowSortedUp || part == thHeaderSortArrowSortedDown) {
    QStyleOptionHeader option;
    target.Prepare(option, QStyle::State_Enabled);
    option.sortIndicator = part == thHeaderSortArrowSortedUp ? QStyleOptionHeader::SortUp : QStyleOptionHeader::SortDown;
    ElementStyle()->drawPrimitive(QStyle::PE_IndicatorHeaderArrow, &option, target.painter);
    return true;
  }
  if (part < thHeaderItemNormal || part > thHeaderItemRightPressed) return false;
  const int offset = part - thHeaderItemNormal;
  static constexpr QStyleOptionHeader::SectionPosition kPositions[] = {
      QStyleOptionHeader::Middle, QStyleOptionHeader::Beginning, QStyleOptionHeader::End};
  return DrawHeaderSection(target, Look(offset % 3), kPositions[offset / 3]);
}

bool DrawScrollBar(const Target& target, int part) {
  if (part < tsArrowBtnUpNormal || part > tsArrowBtnRightDisabled) return false;
  static constexpr QStyle::PrimitiveElement kArrows[] = {QStyle::PE_IndicatorArrowUp, QStyle::PE_IndicatorArrowDown,
                                                         QStyle::PE_IndicatorArrowLeft, QStyle::PE_IndicatorArrowRight};
  const Look look = LookOf(part - tsArrowBtnUpNormal);
  DrawBevel(target, look);
  DrawArrow(target, kArrows[(part - tsArrowBtnUpNormal) / 4], look);
  return true;
}

bool DrawTreeview(const Target& target, int part) {
  if (part == ttGlyphClosed || part == ttGlyphOpened || part == ttHotGlyphClosed || part == ttHotGlyphOpened) {
    QStyleOption option;
    QStyle::State state = QStyle::State_Enabled | QStyle::State_Children | QStyle::State_Item;
    if (part == ttGlyphOpened || part == ttHotGlyphOpened) state |= QStyle::State_Open;
    if (part == ttHotGlyphClosed || part == ttHotGlyphOpened) state |= QStyle::State_MouseOver;
    target.Prepare(option, state);
    ElementStyle()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, target.painter);
    return true;
  }
  if (part < ttItemNormal || part > ttItemSelectedNotFocus) return false;
  const bool selected = part == ttItemSelected || part == ttItemSelectedNotFocus;
  target.painter->fillRect(target.rect, target.Color(selected ? srHighlight : part == ttItemHot ? srRowSelected : srWindow));
  return true;
}

// Tabs: normal, hot, selected (the pressed look), disabled, focused.
bool DrawTab(const Target& target, int part) {
  if (part < ttTabItemNormal || part > ttTabItemFocused) return false;
  QStyleOptionTab option;
  QStyle::State state = part == ttTabItemDisabled ? QStyle::State_None : QStyle::State_Enabled;
  if (part == ttTabItemHot) state |= QStyle::State_MouseOver;
  if (part == ttTabItemSelected) state |= QStyle::State_Selected;
  if (part == ttTabItemFocused) state |= QStyle::State_HasFocus;
  target.Prepare(option, state);
  option.shape = QTabBar::RoundedNorth;
  option.position = QStyleOptionTab::Middle;
  ElementStyle()->drawControl(QStyle::CE_TabBarTabShape, &option, target.painter);
  return true;
}

void FillVertical(const Target& target, TSchemeRole top, TSchemeRole bottom) {
  QLinearGradient gradient(target.rect.topLeft(), target.rect.bottomLeft());
  gradient.setColorAt(0, target.Color(top));
  gradient.setColorAt(1, target.Color(bottom));
  target.painter->fillRect(target.rect, gradient);
}

void DrawClassicFixed(const Target& target, Look look) {
  const QRect& rect = target.rect;
  target.painter->fillRect(rect, target.Color(look == Look::Hot ? srButtonHot : srFace));
  const QColor light = target.Color(look == Look::Pressed ? srShadow : srLight);
  const QColor dark = target.Color(look == Look::Pressed ? srLight : srShadow);
  target.painter->fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), light);
  target.painter->fillRect(QRect(rect.left(), rect.top(), 1, rect.height()), light);
  target.painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), dark);
  target.painter->fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), dark);
}

std::optional<TSchemeRole> GridCellFill(int part);

bool DrawGrid(const Target& target, int part) {
  if (part >= tgFixedCellNormal && part <= tgFixedCellPressed)
    return DrawHeaderSection(target, Look(part - tgFixedCellNormal), QStyleOptionHeader::Middle);
  if (part >= tgGradientFixedCellNormal && part <= tgGradientFixedCellPressed) {
    const Look look = Look(part - tgGradientFixedCellNormal);
    if (look == Look::Pressed) FillVertical(target, srHeaderGradientEnd, srHeaderGradientBase);
    else FillVertical(target, look == Look::Hot ? srButtonHot : srHeaderGradientBase, srHeaderGradientEnd);
    return true;
  }
  if (part >= tgClassicFixedCellNormal && part <= tgClassicFixedCellPressed) {
    DrawClassicFixed(target, Look(part - tgClassicFixedCellNormal));
    return true;
  }
  const std::optional<TSchemeRole> fill = GridCellFill(part);
  if (!fill) return false;
  if (part >= tgGradientCellSelected && part <= tgGradientCellRowSelectedRight) FillVertical(target, srRowSelected, *fill);
  else target.painter->fillRect(target.rect, target.Color(*fill));
  return true;
}

// The fill of a data cell element: the window, the selected cell or the selected row.
std::optional<TSchemeRole> GridCellFill(int part) {
  switch (part) {
    case tgCellNormal: case tgGradientCellNormal: case tgClassicCellNormal: return srWindow;
    case tgCellSelected: case tgGradientCellSelected: case tgClassicCellSelected: return srHighlight;
    case tgCellRowSelectedLeft: case tgCellRowSelectedCenter: case tgCellRowSelectedRight:
    case tgGradientCellRowSelectedLeft: case tgGradientCellRowSelectedCenter:
    case tgGradientCellRowSelectedRight: case tgClassicCellRowSelectedLeft:
    case tgClassicCellRowSelectedCenter: case tgClassicCellRowSelectedRight: return srRowSelected;
    default: return std::nullopt;
  }
}

bool DrawAny(const Target& target, const TThemedElementDetails& details) {
  switch (details.Element) {
    case teButton: return DrawButton(target, details.Part);
    case teComboBox: return DrawComboBox(target, details.Part);
    case teEdit: return DrawEdit(target, details.Part);
    case teGrid: return DrawGrid(target, details.Part);
    case teHeader: return DrawHeader(target, details.Part);
    case teScrollBar: return DrawScrollBar(target, details.Part);
    case teTreeview: return DrawTreeview(target, details.Part);
    case teTab: return DrawTab(target, details.Part);
  }
  return false;
}

// The fixed cell families of the grid, as normal, hot or pressed; none for data cells.
std::optional<Look> FixedCellLook(int part) {
  for (int first : {int(tgFixedCellNormal), int(tgGradientFixedCellNormal), int(tgClassicFixedCellNormal)})
    if (part >= first && part < first + 3) return Look(part - first);
  return std::nullopt;
}

TSchemeRole FaceRole(Look look) {
  switch (look) {
    case Look::Hot: return srButtonHot;
    case Look::Pressed: return srButtonPressed;
    default: return srFace;
  }
}

bool Disabled(const TThemedElementDetails& details) {
  switch (details.Element) {
    case teButton:
      return details.Part == tbPushButtonDisabled ||
             (details.Part >= tbRadioButtonUncheckedNormal && (details.Part - tbRadioButtonUncheckedNormal) % 4 == 3);
    case teComboBox: return details.Part == tcDropDownButtonDisabled;
    case teEdit: return details.Part == teEditTextDisabled;
    case teScrollBar: return details.Part >= tsArrowBtnUpNormal && (details.Part - tsArrowBtnUpNormal) % 4 == 3;
    case teTreeview: return details.Part == ttItemDisabled;
    case teTab: return details.Part == ttTabItemDisabled;
    default: return false;
  }
}

bool Selected(const TThemedElementDetails& details) {
  if (details.Element == teTreeview) return details.Part == ttItemSelected || details.Part == ttItemSelectedNotFocus;
  return details.Element == teGrid && GridCellFill(details.Part) == srHighlight;
}

std::optional<TSchemeRole> FillRole(const TThemedElementDetails& details) {
  const int part = details.Part;
  switch (details.Element) {
    case teGrid:
      if (std::optional<Look> look = FixedCellLook(part)) return FaceRole(*look);
      return GridCellFill(part);
    case teButton:
      if (part >= tbPushButtonNormal && part <= tbPushButtonDefaulted) return FaceRole(LookOf(part - tbPushButtonNormal));
      return Disabled(details) ? srFace : srWindow;
    case teComboBox:
      if (part < tcDropDownButtonNormal) return std::nullopt;
      return FaceRole(LookOf(part - tcDropDownButtonNormal));
    case teScrollBar:
      if (part < tsArrowBtnUpNormal) return std::nullopt;
      return FaceRole(LookOf(part - tsArrowBtnUpNormal));
    case teHeader:
      if (part < thHeaderItemNormal) return std::nullopt;
      return part >= thHeaderSortArrowSortedUp ? srFace : FaceRole(Look((part - thHeaderItemNormal) % 3));
    case teEdit: return Disabled(details) ? srFace : srWindow;
    case teTreeview: return Selected(details) ? srHighlight : part == ttItemHot ? srRowSelected : srWindow;
    case teTab:
      if (part < ttTabItemNormal) return std::nullopt;
      return part == ttTabItemHot ? srButtonHot : part == ttTabItemSelected ? srWindow : srFace;
  }
  return std::nullopt;
}

TSchemeRole TextRole(const TThemedElementDetails& details) {
  if (Disabled(details)) return srGrayText;
  if (Selected(details)) return srHighlightText;
  const bool face = details.Element == teHeader || details.Element == teComboBox || details.Element == teScrollBar ||
                    details.Element == teTab ||
                    (details.Element == teGrid && FixedCellLook(details.Part)) ||
                    (details.Element == teButton && details.Part <= tbPushButtonDefaulted);
  return face ? srFaceText : srWindowText;
}

// The two ends of an element's gradient: title cells run from the gradient base to its
// end, data cells give the two alternate row colors, selections their own pair.
std::optional<std::pair<TSchemeRole, TSchemeRole>> GradientRoles(const TThemedElementDetails& details) {
  if (details.Element == teHeader) return std::pair(srHeaderGradientBase, srHeaderGradientEnd);
  if (details.Element != teGrid) return std::nullopt;
  if (std::optional<Look> look = FixedCellLook(details.Part)) {
    if (*look == Look::Pressed) return std::pair(srHeaderGradientEnd, srHeaderGradientBase);
    return std::pair(*look == Look::Hot ? srButtonHot : srHeaderGradientBase, srHeaderGradientEnd);
  }
  const std::optional<TSchemeRole> fill = GridCellFill(details.Part);
  if (fill == srWindow) return std::pair(srAlternateRow1, srAlternateRow2);
  if (fill) return std::pair(srRowSelected, *fill);
  return std::nullopt;
}

std::optional<TSchemeRole> ElementColorRole(const TThemedElementDetails& details, TElementColor elementColor) {
  if (!FillRole(details)) return std::nullopt;
  switch (elementColor) {
    case ecFillColor: return FillRole(details);
    case ecTextColor: return TextRole(details);
    case ecBorderColor:
      return details.Element == teGrid && !FixedCellLook(details.Part) ? srGridLine : srBorder;
    case ecEdgeLightColor: return srLight;
    case ecEdgeShadowColor: return srShadow;
    case ecEdgeFillColor: return srFace;
    case ecGradientColor1:
      if (auto roles = GradientRoles(details)) return roles->first;
      return std::nullopt;
    case ecGradientColor2:
      if (auto roles = GradientRoles(details)) return roles->second;
      return std::nullopt;
    default: return std::nullopt;
  }
}

// The natural size of the elements that have one, at the application's resolution.
std::optional<TSize> ElementExtent(const TThemedElementDetails& details) {
  QStyle* style = ElementStyle();
  const int part = details.Part;
  if (details.Element == teButton && part >= tbRadioButtonUncheckedNormal) {
    const bool radio = part <= tbRadioButtonCheckedDisabled;
    return TSize{style->pixelMetric(radio ? QStyle::PM_ExclusiveIndicatorWidth : QStyle::PM_IndicatorWidth),
                 style->pixelMetric(radio ? QStyle::PM_ExclusiveIndicatorHeight : QStyle::PM_IndicatorHeight)};
  }
  if (details.Element == teTreeview && part >= ttGlyphClosed && part != ttBranch) return TSize{9, 9};
  if (details.Element == teScrollBar || details.Element == teComboBox) {
    const int extent = style->pixelMetric(QStyle::PM_ScrollBarExtent);
    return TSize{extent, extent};
  }
  if (details.Element == teHeader && part >= thHeaderSortArrowSortedUp) {
    const int mark = style->pixelMetric(QStyle::PM_HeaderMarkSize);
    return TSize{mark, mark / 2};
  }
  return std::nullopt;
}
}  // namespace

bool TCustomStyleServices::DrawElement(TCanvas* canvas, const TThemedElementDetails& details, const TRect& rect,
                                       const TRect* clipRect) const {
  TCanvasPrivate* d = canvas ? TCanvasPrivate::Get(canvas) : nullptr;
  QPainter* painter = d ? d->Painter() : nullptr;
  if (!painter || rect.IsEmpty() || !ElementStyle()) return false;
  painter->save();
  if (clipRect) painter->setClipRect(d->Map(*clipRect), painter->hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
  const Qt::LayoutDirection direction = canvas->CanvasOrientation() == coRightToLeft ? Qt::RightToLeft : Qt::LeftToRight;
  const bool drawn = DrawAny(Target{painter, d->Map(rect), StylePalette(*this), direction, Scheme()}, details);
  painter->restore();
  return drawn;
}


bool TCustomStyleServices::GetElementColor(const TThemedElementDetails& details, TElementColor elementColor,
                                           TColor& color) const {
  const std::optional<TSchemeRole> role = ElementColorRole(details, elementColor);
  if (!role) return false;
  color = Scheme()[*role];
  return true;
}

bool TCustomStyleServices::GetElementSize(TCanvas*, const TThemedElementDetails& details, TElementSize,
                                          TSize& size) const {
  if (!ElementStyle()) return false;
  const std::optional<TSize> extent = ElementExtent(details);
  if (!extent) return false;
  size = *extent;
  return true;
}

}  // namespace quil
