#pragma once
// Style services: the active style answers color questions and draws themed elements.
//
// How a themed paint travels: a control asks StyleServices() for the active style,
// gets the details of an element (GetElementDetails(tbCheckBoxCheckedNormal)) and
// calls DrawElement(canvas, details, rect). The style draws it with Qt's "Fusion"
// QStyle and a QPalette made from its scheme, so the result is the same on every
// machine. Colors go the same way: ColorToRGB(clWindow) -> GetSysColor -> the active
// style's scheme. TStyleManager::SetStyle switches the scheme at run time and tells
// every registered handler, which repaints.

#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <vector>

#include "framework/graphics/Colors.h"
#include "framework/graphics/StyleScheme.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Object.h"

namespace quil {

class TCanvas;

// The order of both enumerations is the framework's, which callers may count on.
enum TStyleColor {
  scBorder, scButtonDisabled, scButtonFocused, scButtonHot, scButtonNormal, scButtonPressed,
  scCategoryButtons, scCategoryButtonsGradientBase, scCategoryButtonsGradientEnd,
  scCategoryPanelGroup, scComboBox, scComboBoxDisabled, scEdit, scEditDisabled, scGrid,
  scGenericBackground, scGenericGradientBase, scGenericGradientEnd, scHintGradientBase,
  scHintGradientEnd, scListBox, scListBoxDisabled, scListView, scPanel, scPanelDisabled,
  scSplitter, scToolBarGradientBase, scToolBarGradientEnd, scTreeView, scWindow
};

enum TStyleFont {
  sfButtonTextDisabled, sfButtonTextFocused, sfButtonTextHot, sfButtonTextNormal,
  sfButtonTextPressed, sfCaptionTextInactive, sfCaptionTextNormal,
  sfCategoryPanelGroupHeaderHot, sfCategoryPanelGroupHeaderNormal,
  sfCategoryButtonsCategoryNormal, sfCategoryButtonsCategorySelected, sfCategoryButtonsHot,
  sfCategoryButtonsNormal, sfCategoryButtonsSelected, sfCheckBoxTextDisabled,
  sfCheckBoxTextFocused, sfCheckBoxTextHot, sfCheckBoxTextNormal, sfCheckBoxTextPressed,
  sfComboBoxItemDisabled, sfComboBoxItemFocused, sfComboBoxItemHot, sfComboBoxItemNormal,
  sfComboBoxItemSelected, sfEditBoxTextDisabled, sfEditBoxTextFocused, sfEditBoxTextHot,
  sfEditBoxTextNormal, sfEditBoxTextSelected, sfGridItemFixedHot, sfGridItemFixedNormal,
  sfGridItemFixedPressed, sfGridItemNormal, sfGridItemSelected, sfGroupBoxTextDisabled,
  sfGroupBoxTextNormal, sfHeaderSectionTextDisabled, sfHeaderSectionTextHot,
  sfHeaderSectionTextNormal, sfHeaderSectionTextPressed, sfListItemTextDisabled,
  sfListItemTextFocused, sfListItemTextHot, sfListItemTextNormal, sfListItemTextSelected,
  sfMenuItemTextDisabled, sfMenuItemTextHot, sfMenuItemTextNormal, sfMenuItemTextSelected,
  sfPanelTextDisabled, sfPanelTextNormal, sfPopupMenuItemTextDisabled,
  sfPopupMenuItemTextHot, sfPopupMenuItemTextNormal, sfPopupMenuItemTextSelected,
  sfRadioButtonTextDisabled, sfRadioButtonTextFocused, sfRadioButtonTextHot,
  sfRadioButtonTextNormal, sfRadioButtonTextPressed, sfSmCaptionTextInactive,
  sfSmCaptionTextNormal, sfStatusPanelTextDisabled, sfStatusPanelTextNormal,
  sfTabTextActiveDisabled, sfTabTextActiveHot, sfTabTextActiveNormal,
  sfTabTextInactiveDisabled, sfTabTextInactiveHot, sfTabTextInactiveNormal,
  sfTextLabelDisabled, sfTextLabelFocused, sfTextLabelHot, sfTextLabelNormal,
  sfToolItemTextDisabled, sfToolItemTextHot, sfToolItemTextNormal, sfToolItemTextSelected,
  sfTreeItemTextDisabled, sfTreeItemTextFocused, sfTreeItemTextHot, sfTreeItemTextNormal,
  sfTreeItemTextSelected, sfWindowTextDisabled, sfWindowTextNormal
};

enum TElementColor {
  ecBorderColor, ecFillColor, ecTextColor, ecEdgeLightColor, ecEdgeShadowColor,
  ecEdgeFillColor, ecTransparentColor, ecGradientColor1, ecGradientColor2
};
enum TElementSize { esMinimum, esActual, esStretch };

enum TThemedElement { teButton, teComboBox, teEdit, teGrid, teHeader, teScrollBar, teTreeview, teTab };

enum TThemedButton {
  tbButtonDontCare, tbButtonRoot, tbPushButtonNormal, tbPushButtonHot, tbPushButtonPressed,
  tbPushButtonDisabled, tbPushButtonDefaulted, tbRadioButtonUncheckedNormal,
  tbRadioButtonUncheckedHot, tbRadioButtonUncheckedPressed, tbRadioButtonUncheckedDisabled,
  tbRadioButtonCheckedNormal, tbRadioButtonCheckedHot, tbRadioButtonCheckedPressed,
  tbRadioButtonCheckedDisabled, tbCheckBoxUncheckedNormal, tbCheckBoxUncheckedHot,
  tbCheckBoxUncheckedPressed, tbCheckBoxUncheckedDisabled, tbCheckBoxCheckedNormal,
  tbCheckBoxCheckedHot, tbCheckBoxCheckedPressed, tbCheckBoxCheckedDisabled,
  tbCheckBoxMixedNormal, tbCheckBoxMixedHot, tbCheckBoxMixedPressed, tbCheckBoxMixedDisabled
};
enum TThemedComboBox {
  tcComboBoxDontCare, tcComboBoxRoot, tcDropDownButtonNormal, tcDropDownButtonHot,
  tcDropDownButtonPressed, tcDropDownButtonDisabled
};
enum TThemedEdit {
  teEditDontCare, teEditRoot, teEditTextNormal, teEditTextHot, teEditTextSelected,
  teEditTextDisabled, teEditTextFocused, teEditTextReadOnly
};
enum TThemedGrid {
  tgDontCare, tgRoot, tgCellNormal, tgCellSelected, tgCellRowSelectedLeft,
  tgCellRowSelectedCenter, tgCellRowSelectedRight, tgFixedCellNormal, tgFixedCellHot,
  tgFixedCellPressed, tgGradientCellNormal, tgGradientCellSelected,
  tgGradientCellRowSelectedLeft, tgGradientCellRowSelectedCenter,
  tgGradientCellRowSelectedRight, tgGradientFixedCellNormal, tgGradientFixedCellHot,
  tgGradientFixedCellPressed, tgClassicCellNormal, tgClassicCellSelected,
  tgClassicCellRowSelectedLeft, tgClassicCellRowSelectedCenter, tgClassicCellRowSelectedRight,
  tgClassicFixedCellNormal, tgClassicFixedCellHot, tgClassicFixedCellPressed
};
enum TThemedHeader {
  thHeaderDontCare, thHeaderRoot, thHeaderItemNormal, thHeaderItemHot, thHeaderItemPressed,
  thHeaderItemLeftNormal, thHeaderItemLeftHot, thHeaderItemLeftPressed,
  thHeaderItemRightNormal, thHeaderItemRightHot, thHeaderItemRightPressed,
  thHeaderSortArrowSortedUp, thHeaderSortArrowSortedDown
};
enum TThemedScrollBar {
  tsScrollBarDontCare, tsScrollBarRoot, tsArrowBtnUpNormal, tsArrowBtnUpHot,
  tsArrowBtnUpPressed, tsArrowBtnUpDisabled, tsArrowBtnDownNormal, tsArrowBtnDownHot,
  tsArrowBtnDownPressed, tsArrowBtnDownDisabled, tsArrowBtnLeftNormal, tsArrowBtnLeftHot,
  tsArrowBtnLeftPressed, tsArrowBtnLeftDisabled, tsArrowBtnRightNormal, tsArrowBtnRightHot,
  tsArrowBtnRightPressed, tsArrowBtnRightDisabled
};
enum TThemedTreeview {
  ttTreeviewDontCare, ttTreeviewRoot, ttItemNormal, ttItemHot, ttItemSelected, ttItemDisabled,
  ttItemSelectedNotFocus, ttGlyphClosed, ttGlyphOpened, ttBranch, ttHotGlyphClosed,
  ttHotGlyphOpened
};

enum TThemedTab {
  ttTabDontCare, ttTabRoot, ttTabItemNormal, ttTabItemHot, ttTabItemSelected, ttTabItemDisabled,
  ttTabItemFocused
};

// One themed element: its family and its member of that family's enumeration.
struct TThemedElementDetails {
  TThemedElement Element = teButton;
  int Part = 0;
  friend constexpr bool operator==(const TThemedElementDetails&, const TThemedElementDetails&) = default;
};

class EStyleEngineException : public Exception {
public:
  using Exception::Exception;
};

class TCustomStyleServices : public TObject {
public:
  explicit TCustomStyleServices(TStyleScheme scheme, bool systemStyle = false);
  ~TCustomStyleServices() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& Name() const;
  // Themed drawing is always there: Qt draws every element.
  bool Enabled() const { return true; }
  bool Available() const { return true; }
  // True for the style that follows the desktop's palette.
  bool IsSystemStyle() const { return systemStyle_; }
  // The scheme in force; the system style reads the application palette again when it
  // changes.
  const TStyleScheme& Scheme() const;

  // A system color resolved in this style; any other color comes back unchanged.
  TColor GetSystemColor(TColor color) const;
  TColor GetStyleColor(TStyleColor color) const;
  TColor GetStyleFontColor(TStyleFont font) const;

  static TThemedElementDetails GetElementDetails(TThemedButton detail) { return {teButton, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedComboBox detail) { return {teComboBox, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedEdit detail) { return {teEdit, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedGrid detail) { return {teGrid, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedHeader detail) { return {teHeader, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedScrollBar detail) { return {teScrollBar, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedTreeview detail) { return {teTreeview, detail}; }
  static TThemedElementDetails GetElementDetails(TThemedTab detail) { return {teTab, detail}; }

  // Draws the element into rect, clipped to clipRect when one is given. False for an
  // element this style does not draw.
  bool DrawElement(TCanvas* canvas, const TThemedElementDetails& details, const TRect& rect,
                   const TRect* clipRect = nullptr) const;
  // False when the element has no such color; color is then left as it was.
  bool GetElementColor(const TThemedElementDetails& details, TElementColor elementColor,
                       TColor& color) const;
  // The natural size of a check box, radio button, expander glyph, scroll or drop-down
  // arrow or sort arrow, in pixels at the application's resolution; canvas may be null.
  bool GetElementSize(TCanvas* canvas, const TThemedElementDetails& details,
                      TElementSize elementSize, TSize& size) const;

private:
  mutable TStyleScheme scheme_;  // the system style refreshes it from the palette
  bool systemStyle_;
  mutable int64_t paletteKey_ = -1;  // -1: the system scheme has not been read yet
};

// The active style.
TCustomStyleServices* StyleServices();

class TStyleManager {
public:
  // The name of the style that follows the desktop.
  static QString SystemStyleName() { return QStringLiteral("Windows"); }

  static bool IsCustomStyleActive();
  static TCustomStyleServices& ActiveStyle();
  static QStringList StyleNames();

  // Makes the named style active; false when there is none of that name.
  static bool TrySetStyle(const QString& name);
  // As TrySetStyle, but raises EStyleEngineException for an unknown name.
  static void SetStyle(const QString& name);
  // Adds a custom style; raises EStyleEngineException when the name is taken.
  static void RegisterStyle(const TStyleScheme& scheme);

  // Handlers hear of every switch of the active style, with that style as sender.
  static void AddStyleChangedHandler(const TNotifyEvent& handler);
  static void RemoveStyleChangedHandler(const TNotifyEvent& handler);
};

}  // namespace quil
