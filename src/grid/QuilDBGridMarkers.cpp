// The grid's built-in glyph lists: loaded in the constructor, rebuilt by
// RecreateMarkers at each layout, on a switch of style and on a change of the system
// style elements, when the look or the pixels per inch changed. And the frames of the
// boxes that the check box glyphs leave to the grid.
#include "grid/QuilDBGrid.h"

namespace quil {

void TQuilCustomDBGrid::SetMarkerStyle(TMarkerStyle value) {
  if (markerStyle_ == value) return;
  markerStyle_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetMarkerTransparent(TMarkerTransparent value) {
  if (markerTransparent_ == value) return;
  markerTransparent_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetIndicatorImages(TImageList* value) {
  if (ReplaceReference(indicatorImages_, value) && options_.Contains(dgIndicator)) LayoutChanged();
}

void TQuilCustomDBGrid::SetTitleMarkers(TImageList* value) {
  if (ReplaceReference(titleMarkers_, value) && options_.Contains(dgTitles)) LayoutChanged();
}

TImageList* TQuilCustomDBGrid::GetIndicators() const { return indicatorImages_ ? indicatorImages_ : indicators_.get(); }

TImageList* TQuilCustomDBGrid::GetMarkers() const { return titleMarkers_ ? titleMarkers_ : markers_.get(); }

// The glyphs take the colors of the style that paints the fixed cells: a custom style,
// or the system's own look.
QString TQuilCustomDBGrid::GlyphStyleName() const {
  const bool styled = TStyleManager::IsCustomStyleActive() || IsSystemStyle({sseFixed});
  return styled ? TStyleManager::ActiveStyle().Name() : QString();
}

void TQuilCustomDBGrid::LoadIndicatorList(int ppi, const QString& styleName) {
  TBitmap strip;
  LoadGlyphStrip(&strip, SIndicatorsResource, ppi);
  RecolorGlyphs(&strip, msFlat, true, true, !styleName.isEmpty());
  indicators_ = MakeGlyphList(&strip, false);
}

void TQuilCustomDBGrid::LoadBoxLists(int ppi) {
  TBitmap strip;
  LoadGlyphStrip(&strip, SCheckBoxesResource, ppi);
  checkBoxes_ = MakeGlyphList(&strip, false);
  LoadGlyphStrip(&strip, SExpandBoxesResource, ppi);
  expandBoxes_ = MakeGlyphList(&strip, true);
}

void TQuilCustomDBGrid::RecreateMarkers() {
  TMarkerStyle style = ResolveMarkerStyle(markerStyle_, IsGridThemed(false), fixedStyle_);
  bool transparent = ResolveMarkerTransparent(markerTransparent_, style);
  bool force = optionsExt_.Contains(dgForceSystemMarker);
  const QString styleName = GlyphStyleName();
  if (!styleName.isEmpty()) {
    style = msRaisedMild;
    transparent = true;
    force = force || IsSystemStyle({sseFixed, sseMarker});
  }
  const int key = 3 * (4 * transparent) + style + 3 * (8 * force);
  const int ppi = GetCurrentPPI();
  if (key == markersKey_ && styleName == markersStyleName_ && ppi == markersPPI_) return;
  TBitmap strip;
  LoadGlyphStrip(&strip, SMarkersResource, ppi);
  RecolorGlyphs(&strip, style, transparent, force, !styleName.isEmpty());
  markers_ = MakeGlyphList(&strip, false);
  LoadIndicatorList(ppi, styleName);
  LoadBoxLists(ppi);
  markersKey_ = key;
  markersStyleName_ = styleName;
  markersPPI_ = ppi;
}

void TQuilCustomDBGrid::DrawCheckBox(TCanvas* canvas, const TRect& rect, TCheckBoxStyle style) const {
  DrawBoxFrame(canvas, rect, CheckBoxStyle(style));
}

}  // namespace quil
