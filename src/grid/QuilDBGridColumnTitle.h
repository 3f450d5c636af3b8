#pragma once
// TQuilColumnTitle: the caption, look and sort marker of a column's title, and the
// header bands above it. Its Alignment, Caption, Color and Font follow defaults until
// they are set; the column's AssignedValues says which are.

#include <QString>
#include <memory>

#include "framework/graphics/Colors.h"
#include "framework/rtl/Alignment.h"
#include "framework/rtl/Persistent.h"
#include "grid/QuilDBGridColumnTypes.h"

namespace quil {

class TFont;
class TPopupMenu;
class TQuilColumn;
class TQuilCustomDBGrid;

class TQuilColumnTitle : public TPersistent {
public:
  explicit TQuilColumnTitle(TQuilColumn* column);
  ~TQuilColumnTitle() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilColumn* Column() const { return column_; }
  TQuilCustomDBGrid* Grid() const;
  TPersistent* GetOwner() const override;
  void Assign(const TPersistent* source) override;
  // Back to the values after construction; a changed font relays out.
  void RestoreDefaults();

  TAlignment Alignment() const;
  void SetAlignment(TAlignment value);
  bool AutoFilter() const { return autoFilter_; }
  void SetAutoFilter(bool value);
  TFilterStyles AutoFilters() const { return autoFilters_; }
  void SetAutoFilters(TFilterStyles value);
  void SwitchAutoFilters(TFilterStyles filters, bool on);
  bool AutoToggle() const { return autoToggle_; }
  void SetAutoToggle(bool value) { autoToggle_ = value; }
  bool Button() const { return button_; }
  void SetButton(bool value);
  QString Caption() const;
  virtual void SetCaption(const QString& value);
  TColor Color() const;
  void SetColor(TColor value);
  TPopupMenu* DropDownMenu() const { return dropDownMenu_; }
  void SetDropDownMenu(TPopupMenu* value);
  bool Ellipsis() const { return ellipsis_; }
  void SetEllipsis(bool value);
  // The title's font; while unassigned it is kept equal to DefaultFont.
  TFont* Font() const;
  void SetFont(TFont* value);
  const QString& Header() const { return header_; }
  void SetHeader(const QString& value);
  const QString& HeaderHint() const { return headerHint_; }
  void SetHeaderHint(const QString& value) { headerHint_ = value; }
  const QString& Hint() const { return hint_; }
  void SetHint(const QString& value) { hint_ = value; }
  int ImageIndex() const { return imageIndex_; }
  void SetImageIndex(int value);
  TMarker Marker() const { return marker_; }
  void SetMarker(TMarker value);
  int MarkerIndex() const { return markerIndex_; }
  void SetMarkerIndex(int value);
  // The place in the order: MarkerIndex / 2, or MarkerIndex when negative.
  int OrderIndex() const { return markerIndex_ >= 0 ? markerIndex_ / 2 : markerIndex_; }
  TPopupMenu* PopupMenu() const { return popupMenu_; }
  void SetPopupMenu(TPopupMenu* value);
  TVAlignment VAlignment() const { return vAlignment_; }
  void SetVAlignment(TVAlignment value);
  bool WordWrap() const { return wordWrap_; }
  void SetWordWrap(bool value);

  TAlignment DefaultAlignment() const { return taLeftJustify; }
  TColor DefaultColor() const;
  TFont* DefaultFont() const;
  QString DefaultCaption() const;
  bool IsAlignmentStored() const;
  bool IsCaptionStored() const;
  bool IsColorStored() const;
  bool IsFontStored() const;
  // Copies DefaultFont into the own font while it is unassigned, without its change event.
  void RefreshDefaultFont() const;

  // Bands of Header, divided by "|": 0 for an empty Header.
  int GetHeaderRowCount() const;
  QString GetHeaderRows(int index) const { return GetHeaderText(header_, index); }
  QString GetHeaderHintRows(int index) const { return GetHeaderText(headerHint_, index); }
  static QString GetHeaderText(const QString& text, int index);
  // The visible sibling beside this column that shares band row with it; none at the end
  // of the band (QuilDBGridTitleRects.cpp).
  TQuilColumn* HeaderLeft(int row) const { return HeaderNeighbour(row, -1); }
  TQuilColumn* HeaderRight(int row) const { return HeaderNeighbour(row, 1); }

private:
  TQuilColumn* HeaderNeighbour(int row, int direction) const;
  void Changed(bool allItems);
  // A parent's title spans its children, so a change of it lays out.
  void ChangedLook();
  void FontChanged(TObject* sender);
  bool IsAssigned(TQuilColumnValue member) const;
  void MarkAssigned(TQuilColumnValue member);

  TQuilColumn* column_;
  TAlignment alignment_ = taLeftJustify;
  bool autoFilter_ = true;
  TFilterStyles autoFilters_{fsFilterList, fsFilterForm};
  bool autoToggle_ = true;
  bool button_ = true;
  QString caption_;
  TColor color_ = clBtnFace;
  TPopupMenu* dropDownMenu_ = nullptr;
  bool ellipsis_ = true;
  std::unique_ptr<TFont> font_;
  QString header_;
  QString headerHint_;
  QString hint_;
  int imageIndex_ = -1;
  TMarker marker_ = tmNone;
  int markerIndex_ = -1;  // -1: no marker image
  TPopupMenu* popupMenu_ = nullptr;
  TVAlignment vAlignment_ = tvCenter;
  bool wordWrap_ = true;
};

}  // namespace quil
