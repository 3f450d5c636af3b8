// The grid's colors: how a color property resolves, the defaults behind clDefault, and
// the colors that the style in force decides.
#include "grid/QuilDBGrid.h"
#include "support/MarlGraph.h"

namespace quil {

TColor GetTrueColor(TColor color, TColor defaultColor, TColor alternate) {
  if (color == clDefault) return defaultColor;
  if (color != clNone) return color;
  return alternate == clDefault ? defaultColor : alternate;
}

void TQuilCustomDBGrid::SetDrawingColor(TColor& member, TColor value, TGridDrawingOption option) {
  if (value == member) return;
  member = value;
  drawingOptions_.Switch(option, value != clNone);
  LayoutChanged();
}

// The editor reads its color when it opens; nothing on screen changes now.
void TQuilCustomDBGrid::SetEditorColor(TColor value) {
  editorColor_ = value;
  drawingOptions_.Switch(gdoEditorColor, value != clNone);
}

void TQuilCustomDBGrid::SetFixedColor(TColor value) {
  const TColor old = FixedColor();
  if (value == old) return;
  if (fillerColor_ == old) fillerColor_ = value;
  if (HeaderColor() == old) SetHeaderColor(value);
  if (totals_->Color() == old) totals_->SetColor(value);
  TCustomGrid::SetFixedColor(value);
}

void TQuilCustomDBGrid::SetFillerColor(TColor value) {
  if (value == fillerColor_) return;
  fillerColor_ = value;
  if (options_.Contains(dgTitles) && options_.Contains(dgIndicator)) InvalidateTitle(nullptr);
}

// --- Defaults

TSelectionColors TQuilCustomDBGrid::DefaultSelectionColors(TSystemGeneration generation,
                                                                              bool gradientActive) {
  switch (generation) {
    case sgWin11:
      return {.selection = clHighlight,
              .selectRow = TMarlGradient::ShadowColor(clHighlight, 20),
              .selectCell = TMarlGradient::ShadowColor(clHighlight, -10)};
    case sgVista:
      if (gradientActive) return {.selection = 16743699, .selectRow = 14982776, .selectCell = 15230976};
      return {.selection = 16749885, .selectRow = 15448477, .selectCell = 16743699};
    case sgBeforeVista: break;
  }
  return {.selection = clGradientActiveCaption, .selectRow = clGradientInactiveCaption, .selectCell = clHighlight};
}

TColor TQuilCustomDBGrid::DefaultSelectCellColor() const {
  return DefaultSelectionColors(SystemGeneration(), gradient_->Active()).selectCell;
}

TColor TQuilCustomDBGrid::DefaultSelectRowColor() const {
  return DefaultSelectionColors(SystemGeneration(), gradient_->Active()).selectRow;
}

TColor TQuilCustomDBGrid::DefaultSelectionColor() const {
  return DefaultSelectionColors(SystemGeneration(), gradient_->Active()).selection;
}

// Lines must stand out from a silver background.
TColor TQuilCustomDBGrid::DefaultDataLineColor() const {
  return ColorToRGB(Color()) == clSilver ? clGray : clSilver;
}

TColor TQuilCustomDBGrid::GetFixedLineColor() const {
  if (IsSystemTheme()) return clBtnFace;
  if (IsGridThemed(false)) return DefaultDataLineColor();
  switch (fixedStyle_) {
    case fsSoft: case fsGreat: case fsGray: return cl3DDkShadow;
    case fsFine: case fsMild: return clBtnShadow;
    default: return clBlack;
  }
}

TColor TQuilCustomDBGrid::GetStyleFontColor(TStyleFont styleFont, TThemedGrid element) const {
  const TCustomStyleServices* style = StyleServices();
  TColor color = clNone;
  if (style->GetElementColor(TCustomStyleServices::GetElementDetails(element), ecTextColor, color) &&
      color != clNone)
    return color;
  return style->GetStyleFontColor(styleFont);
}

TColor TQuilCustomDBGrid::GetFixedTextSelected() {
  const TColor highlight = StyleServices()->GetSystemColor(clHighlight);
  if (const int shade = GetFixedTextActiveStyle(); shade != 0) return TMarlGradient::ShadowColor(highlight, shade);
  struct TNamedColor {
    const char* name;
    TColor color;
  };
  static constexpr TNamedColor fixedColors[] = {
      {"Aqua Graphite", 16755712}, {"Golden Graphite", 44287},   {"Ruby Graphite", 255},
      {"Amakrits", 11649620},      {"Cobalt XEMedia", 12089127}, {"Auric", 5620951},
      {"Turquoise Gray", 14659110}, {"Sterling", 11640457},      {"Black Rock", 11707242}};
  const QString name = TStyleManager::ActiveStyle().Name();
  for (const TNamedColor& entry : fixedColors)
    if (name.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0) return entry.color;
  return highlight;
}

TColor TQuilCustomDBGrid::GetSelectRowSelected() {
  const TColor highlight = StyleServices()->GetSystemColor(clHighlight);
  const int shade = GetSelectRowActiveStyle();
  return shade != 0 ? TMarlGradient::ShadowColor(highlight, shade) : highlight;
}

}  // namespace quil
