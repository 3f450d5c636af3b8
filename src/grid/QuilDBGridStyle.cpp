// The grid's looks: the spacing object, the named style tables and the style questions
// and properties that choose between the raised, themed and gradient roads.
#include "grid/QuilDBGridStyle.h"

#include <QHash>
#include <initializer_list>

#include "framework/graphics/StyleScheme.h"
#include "grid/QuilDBGrid.h"
#include "support/MarlGraph.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TFixedStyle) {
  static const TEnumTypeInfo info("TFixedStyle",
                                  {"fsDefault", "fsSoft", "fsNice", "fsFlat", "fsGreat", "fsGray", "fsFine", "fsMild"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TFixedTheme) {
  static const TEnumTypeInfo info("TFixedTheme", {"ftNone", "ftDefault", "ftButtons", "ftTabs"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TFocusRect) {
  static const TEnumTypeInfo info("TFocusRect", {"frAuto", "frDefault", "frGray", "frMild", "frNone"});
  return info;
}

const TEnumTypeInfo& TypeInfo(THotButtons) {
  static const TEnumTypeInfo info("THotButtons", {"hbAuto", "hbNone", "hbBump", "hbTile", "hbLowered", "hbRaised"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TListBorder) {
  static const TEnumTypeInfo info("TListBorder", {"lbAuto", "lbDefault", "lbGray", "lbMild"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TVisualStyle) {
  static const TEnumTypeInfo info("TVisualStyle", {"vsCustom", "vsDefault", "vsStandard", "vsXPStyle"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TSystemStyleElement) {
  static const TEnumTypeInfo info("TSystemStyleElement", {"sseFixed", "sseText", "sseButton", "sseMarker", "sseData",
                                                          "sseFont", "sseClient", "sseSearch"});
  return info;
}

// --- TQuilGridStyle

const TMetaClass& TQuilGridStyle::StaticClass() {
  using S = TQuilGridStyle;
  static const TMetaClass meta =
      TMetaClass("TQuilGridStyle", &TPersistent::StaticClass())
          .Published(IntProp("DataRowSpace", &S::DataRowSpace, &S::SetDataRowSpace).StoredBy(&S::IsStyleStored))
          .Published(IntProp("HeaderRowSpace", &S::HeaderRowSpace, &S::SetHeaderRowSpace).StoredBy(&S::IsStyleStored))
          .Published(IntProp("TitleColMargin", &S::TitleColMargin, &S::SetTitleColMargin).StoredBy(&S::IsStyleStored))
          .Published(IntProp("TitleRowSpace", &S::TitleRowSpace, &S::SetTitleRowSpace).StoredBy(&S::IsStyleStored))
          .Published(IntProp("TotalColMargin", &S::TotalColMargin, &S::SetTotalColMargin).StoredBy(&S::IsStyleStored))
          .Published(IntProp("TotalRowSpace", &S::TotalRowSpace, &S::SetTotalRowSpace).StoredBy(&S::IsStyleStored))
          .Published(EnumProp("VisualStyle", &S::VisualStyle, &S::SetVisualStyle).Default(vsXPStyle));
  return meta;
}

const TMetaClass& TQuilGridStyle::ClassType() const { return StaticClass(); }

TQuilGridStyle::TQuilGridStyle(TQuilCustomDBGrid* grid) : grid_(grid) {}

TPersistent* TQuilGridStyle::GetOwner() const { return grid_; }

void TQuilGridStyle::Assign(const TPersistent* source) {
  const auto* style = dynamic_cast<const TQuilGridStyle*>(source);
  if (!style) {
    TPersistent::Assign(source);
    return;
  }
  dataRowSpace_ = style->dataRowSpace_;
  headerRowSpace_ = style->headerRowSpace_;
  titleColMargin_ = style->titleColMargin_;
  titleRowSpace_ = style->titleRowSpace_;
  totalColMargin_ = style->totalColMargin_;
  totalRowSpace_ = style->totalRowSpace_;
  visualStyle_ = style->visualStyle_;
  VisualStyleChanged(visualStyle_ == vsCustom);
}

void TQuilGridStyle::Store(int& member, int value) {
  if (value == member) return;
  member = value;
  VisualStyleChanged(true);
}

void TQuilGridStyle::VisualStyleChanged(bool custom) {
  if (custom) visualStyle_ = vsCustom;
  if (!grid_) return;
  grid_->LayoutChanged();
  grid_->InvalidateEditor();
}

void TQuilGridStyle::ApplyTable(TVisualStyle table) {
  const bool xp = table == vsXPStyle;
  dataRowSpace_ = xp ? 4 : 3;
  headerRowSpace_ = xp ? 8 : 4;
  titleColMargin_ = xp ? 1 : 0;
  titleRowSpace_ = xp ? 8 : 4;
  totalColMargin_ = 0;
  totalRowSpace_ = xp ? 8 : 4;
}

void TQuilGridStyle::SetVisualStyle(TVisualStyle value) {
  if (value == visualStyle_ && value != vsDefault) return;
  visualStyle_ = value;
  if (value == vsCustom) return;
  const bool themed = grid_ && grid_->IsGridThemed(false);
  ApplyTable(value == vsDefault ? (themed ? vsXPStyle : vsStandard) : value);
  VisualStyleChanged(false);
}

// --- The named style tables

namespace {

struct TStyleTables {
  QHash<QString, int> cellFrame;
  QHash<QString, int> fixedText;
  QHash<QString, int> selectRow;
  QHash<QString, int> flat;
  bool systemStyleEnabled = true;

  TStyleTables();
};

QString Key(const QString& name) { return name.toCaseFolded(); }

void Fill(QHash<QString, int>& table, int value, std::initializer_list<const char*> names) {
  for (const char* name : names) table.insert(Key(QString::fromLatin1(name)), value);
}

TStyleTables::TStyleTables() {
  Fill(cellFrame, 1, {"Aqua Graphite", "Golden Graphite", "Ruby Graphite", "Auric", "Carbon", "Glossy", "Glossy 2"});
  Fill(cellFrame, 2, {"Amakrits"});
  if (IsWin11()) Fill(cellFrame, 4, {"Windows"});

  Fill(fixedText, -120, {"Sterling", "Radiant"});
  Fill(fixedText, -100, {"Cyan Dusk", "Windows10"});
  Fill(fixedText, -90,
       {"Aqua Light Slate", "Emerald Light Slate", "Iceberg Classico", "Lavender Classico", "Slate Classico", "Light",
        "Silver", "Luna", "Sky", "Copper", "Aqua Light Slate 2", "Blizzard Blue", "Blizzard Blue 2", "Fiord Flat",
        "Gainsboro Sky Light", "Gainsboro Sky Light 2", "Madang", "Sky 2", "Zircon", "Zircon SE"});
  Fill(fixedText, -70, {"Puerto Rico", "Quartz", "Quartz Flat"});
  Fill(fixedText, -60, {"Material Pattens Blue", "Solitude", "Solitude DB"});
  Fill(fixedText, -55, {"Windows10 Clear Day"});
  Fill(fixedText, -50, {"Cyan Night", "Diamond", "Coral", "Tablet Light", "Lovender"});
  Fill(fixedText, -45, {"Sienna Green Light", "Sienna Green Light LB", "Windows10 Malibu"});
  Fill(fixedText, -40, {"Emerald", "Fiord", "Paradiso"});
  Fill(fixedText, -35, {"CornflowerBlue Expressive", "Wedgewood Light"});
  Fill(fixedText, -30,
       {"Vapor", "Flat UI Light", "Material White Smoke", "Material White Smoke 2", "Material White Texture",
        "Windows10 Solitude", "Windows10 WhiteSmoke"});
  Fill(fixedText, -25, {"Amethyst Kamri", "Sapphire Kamri", "Smokey Quartz Kamri"});
  Fill(fixedText, -20, {"Metro Black", "Windows10 Office Light", "Windows10 Office Light 2"});
  Fill(fixedText, -10, {"Metro Green"});
  Fill(fixedText, 20, {"Metro Blue", "Metropolis UI Blue", "Regal Blue LE"});
  Fill(fixedText, 25, {"Carbon", "Stellar", "Stellar Dark"});
  Fill(fixedText, 30, {"Onyx Blue", "Windows10 Zodiac", "Windows10 Zodiac 2", "Zodiac", "Zodiac LE"});
  Fill(fixedText, 40, {"Windows10 Blue", "Windows10 Green", "Windows10 Purple"});
  Fill(fixedText, 50, {"Charcoal Dark Slate", "CopperDark"});
  Fill(fixedText, 60, {"Madison Dark"});

  Fill(selectRow, -110, {"Amakrits", "Vapor"});
  Fill(selectRow, -75, {"Auric"});
  Fill(selectRow, -60, {"Jet", "Glow", "Windows10 SlateGray"});
  Fill(selectRow, -55, {"Fiord Flat"});
  Fill(selectRow, -50, {"Sterling", "Blizzard Blue", "Blizzard Blue 2", "Windows10 Blue Whale"});
  Fill(selectRow, -40, {"Windows10 Green"});
  Fill(selectRow, -35, {"Windows10 OxfordBlue"});
  Fill(selectRow, -10,
       {"Fiord", "Gainsboro Sky Light", "Gainsboro Sky Light 2", "Material Oxford Blue", "Material Oxford Blue 2",
        "Material Oxford Blue SE", "Quartz", "Quartz Flat", "Windows10 Clear Day"});
  Fill(selectRow, -5, {"Lovender", "Madang"});
  Fill(selectRow, 5,
       {"Calypso", "Calypso LE", "Calypso SE", "Calypso SLE", "Material Black Pearl", "Material Black Pearl 2"});
  Fill(selectRow, 10,
       {"Iceberg Classico", "Lavender Classico", "Slate Classico", "Flat UI Light", "Madison Dark",
        "Material White Smoke", "Material White Smoke 2", "Material White Texture", "Wedgewood Light",
        "Windows10 Blue Whale LE", "Windows10 Office Light", "Windows10 Office Light 2", "Windows10 WhiteSmoke"});
  Fill(selectRow, 15, {"Silver", "Luna", "Obsidian"});
  Fill(selectRow, 20, {"Regal Blue LE"});
  if (IsWin11()) Fill(selectRow, 20, {"Windows"});
  Fill(selectRow, 25, {"Puerto Rico"});

  if (IsWin08()) Fill(flat, 1, {"Windows"});
  Fill(flat, 1,
       {"Amakrits", "Metro Green", "Metro Blue", "Metro Black", "Light", "Metropolis UI Green", "Metropolis UI Blue",
        "Metropolis UI Dark", "Metropolis UI Black", "TabletDark", "Coral", "Emerald", "Glow", "Tablet Light", "Radiant",
        "Vapor", "Windows10", "Copper", "Windows10 Blue", "Windows10 Dark", "CopperDark", "Windows10 Green",
        "Windows10 Purple", "Windows10 SlateGray", "Black Rock", "Blizzard Blue", "Blizzard Blue 2", "Calypso",
        "Calypso LE", "Calypso SE", "Calypso SLE", "Charcoal Expressive", "Cloud Burst", "CornflowerBlue Expressive",
        "Dark Outlet", "Dark Outlet 2", "Dark Outlet LE", "Dark Outlet LE 2", "Fiord Flat", "Flat UI Light",
        "Lovender", "Lucky Point", "Madang", "Material Black Pearl", "Material Black Pearl 2", "Material Oxford Blue",
        "Material Oxford Blue 2", "Material Oxford Blue SE", "Material Pattens Blue", "Material White Smoke",
        "Material White Smoke 2", "Material White Texture", "Night Rider", "Night Rider 2", "Paradiso", "Puerto Rico",
        "Quartz", "Quartz Flat", "Regal Blue", "Regal Blue LE", "Sienna Green Light", "Sienna Green Light LB", "Sky 2",
        "Solitude", "Solitude DB", "Stellar", "Stellar Dark", "Windows10 BlackPearl", "Windows10 Blue Whale",
        "Windows10 Blue Whale LE", "Windows10 Clear Day", "Windows10 Malibu", "Windows10 Media", "Windows10 Media 2",
        "Windows10 Office Dark", "Windows10 Office Dark2", "Windows10 Office Light", "Windows10 Office Light 2",
        "Windows10 OxfordBlue", "Windows10 Solitude", "Windows10 Vulcan", "Windows10 Vulcan LE",
        "Windows10 WhiteSmoke", "Windows10 Zodiac", "Windows10 Zodiac 2", "Zircon", "Zircon SE", "Zodiac",
        "Zodiac LE"});

  // The library's own styles are flat. Selected fixed text is the highlight shaded
  // away from the face, so that it reads at a contrast of 4.5 to 1 or more.
  const QString light = LightStyleScheme().Name, dark = DarkStyleScheme().Name;
  for (const QString& name : {light, dark}) flat.insert(Key(name), 1);
  fixedText.insert(Key(light), -20);
  fixedText.insert(Key(dark), 70);
}

// Made on first use, which is at module start for any grid, and kept to the end.
TStyleTables& Tables() {
  static TStyleTables tables;
  return tables;
}

QString ActiveStyleName() { return TStyleManager::ActiveStyle().Name(); }

}  // namespace

int TQuilCustomDBGrid::GetCellFrameStyle(const QString& name) { return Tables().cellFrame.value(Key(name)); }
void TQuilCustomDBGrid::SetCellFrameStyle(const QString& name, int value) { Tables().cellFrame.insert(Key(name), value); }
int TQuilCustomDBGrid::GetFixedTextStyle(const QString& name) { return Tables().fixedText.value(Key(name)); }
void TQuilCustomDBGrid::SetFixedTextStyle(const QString& name, int value) { Tables().fixedText.insert(Key(name), value); }
int TQuilCustomDBGrid::GetSelectRowStyle(const QString& name) { return Tables().selectRow.value(Key(name)); }
void TQuilCustomDBGrid::SetSelectRowStyle(const QString& name, int value) { Tables().selectRow.insert(Key(name), value); }
bool TQuilCustomDBGrid::GetFlatStyle(const QString& name) { return Tables().flat.value(Key(name)) != 0; }
void TQuilCustomDBGrid::SetFlatStyle(const QString& name, bool value) { Tables().flat.insert(Key(name), value ? 1 : 0); }

int TQuilCustomDBGrid::GetCellFrameActiveStyle() { return GetCellFrameStyle(ActiveStyleName()); }
void TQuilCustomDBGrid::SetCellFrameActiveStyle(int value) { SetCellFrameStyle(ActiveStyleName(), value); }
int TQuilCustomDBGrid::GetFixedTextActiveStyle() { return GetFixedTextStyle(ActiveStyleName()); }
void TQuilCustomDBGrid::SetFixedTextActiveStyle(int value) { SetFixedTextStyle(ActiveStyleName(), value); }
int TQuilCustomDBGrid::GetSelectRowActiveStyle() { return GetSelectRowStyle(ActiveStyleName()); }
void TQuilCustomDBGrid::SetSelectRowActiveStyle(int value) { SetSelectRowStyle(ActiveStyleName(), value); }
bool TQuilCustomDBGrid::GetFlatActiveStyle() { return GetFlatStyle(ActiveStyleName()); }
void TQuilCustomDBGrid::SetFlatActiveStyle(bool value) { SetFlatStyle(ActiveStyleName(), value); }

void TQuilCustomDBGrid::GetCellFrameRect(TRect& rect) {
  const int frame = GetCellFrameActiveStyle();
  rect.Inflate(frame, frame);
}

bool TQuilCustomDBGrid::SystemStyleEnabled() { return Tables().systemStyleEnabled; }
void TQuilCustomDBGrid::SetSystemStyleEnabled(bool value) { Tables().systemStyleEnabled = value; }

// --- Questions of style

bool TQuilCustomDBGrid::IsGridThemed(bool force) const {
  return TStyleManager::IsCustomStyleActive() || (ThemesEnabled(this) && (fixedTheme_ != ftNone || force));
}

bool TQuilCustomDBGrid::IsCustomStyle(TStyleElements elements) const {
  return TStyleManager::IsCustomStyleActive() && elements.SubsetOf(StyleElements());
}

bool TQuilCustomDBGrid::IsSystemStyle(TSystemStyleElements elements) const {
  return SystemStyleEnabled() && !TStyleManager::IsCustomStyleActive() && ThemesEnabled(this) && IsVista() &&
         fixedTheme_ != ftNone && elements.SubsetOf(systemStyleElements_);
}

bool TQuilCustomDBGrid::IsSystemTheme() const {
  return (IsGridThemed(false) && fixedTheme_ == ftDefault && IsWin08()) ||
         (IsVista() && optionsExt_.Contains(dgForceSystemTheme));
}

bool TQuilCustomDBGrid::IsThemeTransparent() const {
  return fixedTheme_ == ftDefault && IsVista() && !IsWin08() && !optionsExt_.Contains(dgForceSystemTheme);
}

TGridDrawingStyle TQuilCustomDBGrid::GetDrawingStyle() const {
  if (fixedTheme_ != ftNone) return gdsThemed;
  return gradient_->Active() ? gdsGradient : gdsClassic;
}

void TQuilCustomDBGrid::SetDrawingStyle(TGridDrawingStyle value) {
  if (value == GetDrawingStyle()) return;
  SetFixedTheme(value == gdsThemed ? ftDefault : ftNone);
  gradient_->SetActive(value != gdsClassic);
  if (!ComponentState().Contains(csDesigning)) return;
  SetFixedStyle(value == gdsGradient ? fsGray : fsDefault);
  gradient_->SetOptions(value == gdsGradient ? TMarlGradientOptions{goGradient, goHotButton, goHotTrack, goHotColor}
                                             : TMarlGradientOptions{goGradient, goHotButton});
}

THotButtons TQuilCustomDBGrid::HotButtonsStyle() const {
  if (hotButtons_ != hbAuto) return hotButtons_;
  static constexpr THotButtons byFixedStyle[] = {hbBump,    hbBump,    hbRaised, hbRaised,
                                                 hbLowered, hbLowered, hbTile,   hbTile};
  return byFixedStyle[fixedStyle_];
}

TCheckBoxStyle TQuilCustomDBGrid::CheckBoxStyle(TCheckBoxStyle style) const {
  if (style != cbAuto && style != cbAutoGray && style != cbAutoLowered) return style;
  // Rows by fixed style, columns cbAuto, cbAutoGray, cbAutoLowered.
  static constexpr TCheckBoxStyle byFixedStyle[][3] = {
      {cbDefault, cbSoft, cbDefault},                 {cbSoft, cbSoft, cbSoft},
      {cbLoweredDark, cbLoweredGray, cbLoweredDark},  {cbFlat, cbGray, cbLoweredDark},
      {cbLoweredGray, cbLoweredGray, cbLoweredGray},  {cbGray, cbGray, cbLoweredGray},
      {cbLoweredMild, cbLoweredGray, cbLoweredMild},  {cbMild, cbGray, cbLoweredMild}};
  return byFixedStyle[fixedStyle_][style - cbAuto];
}

TFocusRect TQuilCustomDBGrid::FocusRectStyle() const { return focusRect_ == frAuto ? frDefault : focusRect_; }

TListBorder TQuilCustomDBGrid::ListBorderStyle() const {
  if (TStyleManager::IsCustomStyleActive()) return lbDefault;
  if (listBorder_ != lbAuto) return listBorder_;
  if (!options_.Contains(dgColLines) || !options_.Contains(dgRowLines)) return lbDefault;
  if (IsGridThemed(false)) return lbMild;
  switch (fixedStyle_) {
    case fsFine: case fsMild: return lbMild;
    case fsSoft: case fsGreat: case fsGray: return lbGray;
    default: return lbDefault;
  }
}

// --- Properties of the look

void TQuilCustomDBGrid::SetFixedStyle(TFixedStyle value) {
  if (value == fixedStyle_) return;
  fixedStyle_ = value;
  // FIXME: scrolling adjusts the scroll bars' style here while ScrollProp.ParentStyle.
  LayoutChanged();
  UpdateBorder(!IsGridThemed(false));
  if (!ComponentState().Contains(csLoading)) UpdateRowCount();
}

void TQuilCustomDBGrid::SetFixedTheme(TFixedTheme value) {
  if (value == fixedTheme_) return;
  const bool crossesNone = (value == ftNone) != (fixedTheme_ == ftNone);
  fixedTheme_ = value;
  if (crossesNone && gridStyle_->VisualStyle() == vsDefault) gridStyle_->SetVisualStyle(vsDefault);
  LayoutChanged();
  UpdateBorder(crossesNone && ThemesEnabled(this));
  // FIXME: the search panel takes the new theme here.
}

void TQuilCustomDBGrid::SetFocusRect(TFocusRect value) {
  if (value == focusRect_) return;
  focusRect_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetHotButtons(THotButtons value) {
  if (value == hotButtons_) return;
  hotButtons_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetListBorder(TListBorder value) {
  if (value == listBorder_) return;
  listBorder_ = value;
  LayoutChanged();
}

bool TQuilCustomDBGrid::FixedLinesShown() const {
  return TStyleManager::IsCustomStyleActive() || GridLineWidth() > 1;
}

// A switch of style can change what the fixed lines, the spacing and the glyphs'
// colors resolve to; the base repaints.
void TQuilCustomDBGrid::CMStyleChanged(TMessage& message) {
  ApplyBaseOptions(options_);
  if (gridStyle_->VisualStyle() == vsDefault) gridStyle_->SetVisualStyle(vsDefault);
  UpdateBorder(false);
  RecreateMarkers();
  TCustomGrid::CMStyleChanged(message);
}

}  // namespace quil
