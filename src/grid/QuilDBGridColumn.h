#pragma once
// TQuilColumn: one column of the grid. It binds one field by name (or none), carries
// the column's look, editor and list settings, its title and total cells, and its place
// in the tree of expandable columns.
//
// Assigned or default: Alignment, Color, Font, ReadOnly, ImeMode, ImeName and Width
// follow a default (the field's, the grid's) until they are set on the column; the
// set AssignedValues says which were, and a stream stores only those that differ from
// their default.
//
// Depth: the flat collection holds a forest. A column owns the ExpandCols columns
// behind it (or, for object fields, the columns of its child fields); an expanded
// column gives its room to its children and shows only a title over them.

#include <QString>
#include <memory>

#include "framework/controls/EditTypes.h"
#include "framework/db/DataTypes.h"
#include "framework/graphics/Colors.h"
#include "framework/rtl/Alignment.h"
#include "framework/rtl/Collections.h"
#include "grid/QuilDBGridColumnTitle.h"
#include "grid/QuilDBGridColumnTypes.h"
#include "grid/QuilDBGridTotalCells.h"

namespace quil {

class TBitmap;
class TDataSet;
class TField;
class TFont;
class TImageList;
class TPopupMenu;
class TStrings;
class TQuilCustomDBGrid;
class TQuilDBGridColumns;

// The format of FormatPickText when a column has none, "%1:s - %0:s"; an application
// may change it before use.
extern QString DefPickTextFormat;

class TQuilColumn : public TCollectionItem {
public:
  TQuilColumn();
  ~TQuilColumn() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilDBGridColumns* Columns() const;
  // The owning grid; none outside a grid's collection.
  TQuilCustomDBGrid* Grid() const;

  void Assign(const TPersistent* source) override;
  QString GetDisplayName() const override;
  void SetIndex(int value) override;
  // Back to the values of the constructor on every member but the field.
  virtual void RestoreDefaults();

  // --- Members that are no property
  // A column the application defined; false for one the grid made from a field.
  bool Stored() const { return stored_; }
  void SetStored(bool value) { stored_ = value; }
  TQuilColumnValues AssignedValues() const { return assignedValues_; }
  // The owner in the tree of expandable columns; the layout keeps it.
  TQuilColumn* ParentColumn() const { return parentColumn_; }
  void SetParentColumn(TQuilColumn* value) { parentColumn_ = value; }
  // The length of the chain of parent columns.
  int Depth() const;
  // The bookmark of the record whose expand box toggles, only during ToggleExpandBox.
  const TBookmark& ExpandBookmark() const { return expandBookmark_; }
  // Held by stretching: 0 free, 1 at WidthMin, 2 at WidthMax, 3 at StretchWidthMin, 4 at
  // StretchWidthMax.
  uint8_t StretchStatus() const { return stretchStatus_; }
  void SetStretchStatus(uint8_t value) { stretchStatus_ = value; }

  // --- Field binding
  const QString& FieldName() const { return fieldName_; }
  void SetFieldName(const QString& value);
  // The bound field, found lazily by FieldName; SetField(nullptr) only drops the cache.
  TField* Field() const;
  virtual void SetField(TField* value);
  // The field as cached now, without looking it up.
  TField* BoundField() const { return field_; }

  // --- Assigned-or-default values
  TAlignment Alignment() const;
  virtual void SetAlignment(TAlignment value);
  TColor Color() const;
  void SetColor(TColor value);
  // The column's font; while unassigned it is kept equal to DefaultFont.
  TFont* Font() const;
  TFont* GetFont() const { return Font(); }
  void SetFont(TFont* value);
  TImeMode ImeMode() const;
  virtual void SetImeMode(TImeMode value);
  TImeName ImeName() const;
  virtual void SetImeName(const TImeName& value);
  bool ReadOnly() const;
  virtual void SetReadOnly(bool value);

  TAlignment DefaultAlignment() const;
  TColor DefaultColor() const;
  TFont* DefaultFont() const;
  TImeMode DefaultImeMode() const;
  TImeName DefaultImeName() const;
  bool DefaultReadOnly() const;
  int DefaultWidth() const;
  bool IsAlignmentStored() const;
  bool IsColorStored() const;
  bool IsFontStored() const;
  bool IsImeModeStored() const;
  bool IsImeNameStored() const;
  bool IsReadOnlyStored() const;
  bool IsWidthStored() const;
  bool IsCheckBoxValuesStored() const;
  // Copies DefaultFont into the own font while cvFont is unset, without the change event.
  void RefreshDefaultFont() const;

  // --- Width
  // The width in pixels the base grid gives the column; see GetWidth in the .cpp.
  int Width() const { return GetWidth(); }
  int GetWidth() const;
  virtual void SetWidth(int value);
  // Assigned Width, else DefaultWidth.
  int GetTrueWidth() const;
  int WidthBase() const;
  void SetWidthBase(int value);
  // -1 for no limit.
  int WidthMax() const { return p_.widthMax; }
  void SetWidthMax(int value);
  int WidthMin() const { return p_.widthMin; }
  void SetWidthMin(int value);

  // --- Depth and visibility
  bool Visible() const;
  void SetVisible(bool value);
  bool GetVisible() const;
  // The stored visible flag alone.
  bool GetVisibility() const { return p_.visible; }
  bool Expanded() const;
  void SetExpanded(bool value);
  // The stored expanded flag alone, whether or not the column can expand.
  bool GetExpandedFlag() const { return p_.expanded; }
  bool GetExpanded() const;
  bool GetExpandable() const;
  bool GetShowing() const;
  int GetExpandIndex() const;
  int GetExpandWidth() const;
  // The owner of the column at index: by the field's parent field, else by ExpandCols.
  TQuilColumn* GetParentColumn(int index) const;
  int ExpandCols() const { return p_.expandCols; }
  void SetExpandCols(int value);
  TQuilColumnExpandStyle ExpandStyle() const { return p_.expandStyle; }
  void SetExpandStyle(TQuilColumnExpandStyle value);
  virtual bool IsExpandableBox() const;
  virtual bool IsExpandedBox() const;

  // --- Check box, expand box, auto number
  bool AutoNumber() const { return p_.autoNumber; }
  void SetAutoNumber(bool value);
  bool CheckBox() const { return p_.checkBox; }
  void SetCheckBox(bool value);
  TCheckBoxKind CheckBoxKind() const { return p_.checkBoxKind; }
  void SetCheckBoxKind(TCheckBoxKind value);
  TCheckBoxStyle CheckBoxStyle() const { return p_.checkBoxStyle; }
  void SetCheckBoxStyle(TCheckBoxStyle value);
  bool CheckBoxThemed() const { return p_.checkBoxThemed; }
  void SetCheckBoxThemed(bool value);
  TCheckBoxToggle CheckBoxToggle() const { return p_.checkBoxToggle; }
  void SetCheckBoxToggle(TCheckBoxToggle value);
  // A true text and a false text divided by ";".
  QString CheckBoxValues() const;
  void SetCheckBoxValues(const QString& value);
  static QString DefaultCheckBoxValues();
  // Whether the cell's value is the true text (checked) or the false text.
  bool IsCheckBoxValue(bool checked) const;
  void ToggleCheckBoxValue();
  bool ExpandBox() const { return p_.expandBox; }
  void SetExpandBox(bool value);
  TExpandBoxSize ExpandBoxSize() const { return p_.expandBoxSize; }
  void SetExpandBoxSize(TExpandBoxSize value);
  bool ExpandBoxThemed() const { return p_.expandBoxThemed; }
  void SetExpandBoxThemed(bool value);
  TExpandBoxToggle ExpandBoxToggle() const { return p_.expandBoxToggle; }
  void SetExpandBoxToggle(TExpandBoxToggle value);
  bool ExpandBoxTree() const { return p_.expandBoxTree; }
  void SetExpandBoxTree(bool value);
  virtual void ToggleExpandBox();

  // --- Box glyphs (QuilDBGridColumnBoxes.cpp)
  // The check box image: 1 checked, 0 unchecked, 2 neither, plus 3 x CheckBoxKind; the
  // state alone where Images or the theme has no image of that kind.
  int GetCheckBoxImageIndex() const;
  // The box of the record being painted: the theme's element, or the built-in image in
  // its frame; none on an empty data set.
  std::unique_ptr<TBitmap> GetCheckBoxImage() const;
  // The expand box image: 0 collapsed, 1 expanded, 2 no box, which CalcImageIndex may
  // change among them, plus 3 x ExpandBoxSize; the same fallback as check boxes.
  int GetExpandBoxImageIndex() const;
  // The theme's tree glyph, or the built-in image; none on an empty data set.
  std::unique_ptr<TBitmap> GetExpandBoxImage() const;

  // --- Images
  TImageDraw ImageDraw() const { return p_.imageDraw; }
  void SetImageDraw(TImageDraw value);
  int ImageMargin() const { return p_.imageMargin; }
  void SetImageMargin(int value);
  int ImageOffsetX() const { return p_.imageOffsetX; }
  void SetImageOffsetX(int value);
  int ImageOffsetY() const { return p_.imageOffsetY; }
  void SetImageOffsetY(int value);
  TImageList* Images() const { return p_.images; }
  void SetImages(TImageList* value);
  bool QuickDraw() const { return p_.quickDraw; }
  void SetQuickDraw(bool value);
  bool Transparent() const { return p_.transparent; }
  void SetTransparent(bool value);
  TColor TransparentColor() const { return p_.transparentColor; }
  void SetTransparentColor(TColor value);
  bool Wallpaper() const { return p_.wallpaper; }
  void SetWallpaper(bool value);
  // The image of the cell in Images, -1 for none.
  int GetImageIndex() const;
  // A copy of image index of Images, greyed over the fixed color in a disabled grid;
  // none for an index outside the list.
  std::unique_ptr<TBitmap> GetImage(int index) const;
  // The picture of a graphic field: the field itself; none for any other field.
  TPersistent* GetGraphicImage() const;
  // The tree level of the row for a tree box column, else 0.
  int GetImageLevel() const;

  // --- Text and look
  TQuilColumnButtonStyle ButtonStyle() const { return p_.buttonStyle; }
  void SetButtonStyle(TQuilColumnButtonStyle value);
  TCalendarDepth CalendarDepth() const { return p_.calendarDepth; }
  void SetCalendarDepth(TCalendarDepth value);
  TEditCharCase CharCase() const { return p_.charCase; }
  void SetCharCase(TEditCharCase value);
  QChar DelimiterChar() const { return p_.delimiterChar; }
  void SetDelimiterChar(QChar value);
  bool DelimiterLine() const { return p_.delimiterLine; }
  void SetDelimiterLine(bool value);
  TDialogOptions DialogOptions() const { return p_.dialogOptions; }
  void SetDialogOptions(TDialogOptions value);
  TPopupMenu* DropDownMenu() const { return p_.dropDownMenu; }
  void SetDropDownMenu(TPopupMenu* value);
  int DropDownRows() const { return p_.dropDownRows; }
  void SetDropDownRows(int value);
  int DropDownWidth() const { return p_.dropDownWidth; }
  void SetDropDownWidth(int value);
  bool EditMemo() const { return p_.editMemo; }
  void SetEditMemo(bool value);
  const QString& EditorHint() const { return p_.editorHint; }
  void SetEditorHint(const QString& value);
  bool Ellipsis() const { return p_.ellipsis; }
  void SetEllipsis(bool value);
  const QString& Hint() const { return p_.hint; }
  void SetHint(const QString& value);
  TMultiSelectText MultiSelectText() const { return p_.multiSelectText; }
  void SetMultiSelectText(TMultiSelectText value);
  TPopupMenu* PopupMenu() const { return p_.popupMenu; }
  void SetPopupMenu(TPopupMenu* value);
  bool ShowBlob() const { return p_.showBlob; }
  void SetShowBlob(bool value);
  bool ShowEdit() const { return p_.showEdit; }
  void SetShowEdit(bool value);
  bool SuppressRTL() const { return p_.suppressRTL; }
  void SetSuppressRTL(bool value);
  bool ToolTips() const { return p_.toolTips; }
  void SetToolTips(bool value);
  TToolTipsWidth ToolTipsWidth() const { return p_.toolTipsWidth; }
  void SetToolTipsWidth(TToolTipsWidth value);
  TVAlignment VAlignment() const { return p_.vAlignment; }
  void SetVAlignment(TVAlignment value);
  bool WordWrap() const { return p_.wordWrap; }
  void SetWordWrap(bool value);
  // The shown text of a multi-select list cell.
  virtual QString FormatText(const QString& text) const;
  // The cell's text and the editor's, from the field through the grid's ColGetText
  // (QuilDBGridColumnText.cpp); empty without a field unless the grid makes one.
  QString GetDisplayText() const;
  QString GetEditText() const;
  // Writes an edited text through the grid's ColSetText into the field; the field's
  // own refusal raises.
  void SetEditText(const QString& value);

  // --- Filter
  // Made on first read.
  TStrings* FilterList() const;
  void SetFilterList(TStrings* value);
  const QString& FilterText() const { return p_.filterText; }
  void SetFilterText(const QString& value);
  bool GetFiltered() const;
  virtual void FilterChanged();
  bool IsFilterListStored() const;

  // --- Lists
  TQuilListOptions ListOptions() const { return p_.listOptions; }
  void SetListOptions(TQuilListOptions value);
  void SwitchListOptions(TQuilListOptions options, bool on);
  TQuilPickOptions PickOptions() const { return p_.pickOptions; }
  void SetPickOptions(TQuilPickOptions value);
  void SwitchPickOptions(TQuilPickOptions options, bool on);
  // Made on first read.
  TStrings* PickList() const;
  void SetPickList(TStrings* value);
  TStrings* PickText() const;
  void SetPickText(TStrings* value);
  const QString& PickTextFormat() const { return p_.pickTextFormat; }
  void SetPickTextFormat(const QString& value);
  bool IsPickListStored() const;
  bool IsPickTextStored() const;
  bool GetPickListActive() const;
  bool GetPickDataActive() const;
  bool GetPickTextActive() const;
  bool GetCalendarActive() const;
  virtual bool GetMultiSelectList() const;
  bool MultiSelectList() const { return GetMultiSelectList(); }
  // A pick row: PickTextFormat, or DefPickTextFormat when empty, of the text, the value
  // and index; empty for a negative index.
  QString FormatPickText(int index) const;
  // The pick data changed: cells and an open list show it anew.
  void PickDataChanged();

  // --- Lookup
  TQuilLookupColumn LookupColumn() const { return GetLookupColumn(); }
  TQuilLookupColumn GetLookupColumn() const;
  bool GetLookupActive() const { return GetLookupColumn() != lcNotDefined; }
  TDataSet* LookupDataSet() const;
  void SetLookupDataSet(TDataSet* value);
  QString KeyField() const;
  void SetKeyField(const QString& value);
  QString LookupKeyField() const;
  void SetLookupKeyField(const QString& value);
  const QString& LookupParentField() const { return p_.lookupParentField; }
  void SetLookupParentField(const QString& value);
  QString LookupResultField() const;
  void SetLookupResultField(const QString& value);
  const QString& LookupTreeViewField() const { return p_.lookupTreeViewField; }
  void SetLookupTreeViewField(const QString& value);
  QString LookupListFields() const;
  void SetLookupListFields(const QString& value);
  const QString& LookupListTitles() const { return p_.lookupListTitles; }
  void SetLookupListTitles(const QString& value);
  const QString& LookupListWidths() const { return p_.lookupListWidths; }
  void SetLookupListWidths(const QString& value);
  bool IsLookupDataSetStored() const;
  bool IsKeyFieldStored() const { return !p_.keyField.isEmpty(); }
  bool IsLookupKeyFieldStored() const { return !p_.lookupKeyField.isEmpty(); }
  bool IsLookupResultFieldStored() const { return !p_.lookupResultField.isEmpty(); }
  bool IsLookupListFieldsStored() const { return !p_.lookupListFields.isEmpty(); }

  // --- Editing
  virtual bool CanEditShow() const;
  virtual bool CanCellTrack() const { return p_.checkBox; }

  // --- Title buttons
  bool HasExpandableButton() const;
  bool HasDropDownButton() const;
  bool HasAutoFilterButton() const;
  bool HasFilterButton() const;
  bool HasExpandButton() const;

  // --- Owned parts
  // The parts are made by their factories on first read, so that a descendant's
  // factories take effect; the totals all four at once.
  TQuilColumnTitle* Title() const;
  void SetTitle(TQuilColumnTitle* value);
  TQuilColumnTotalHeader* TotalHeader() const;
  void SetTotalHeader(TQuilColumnTotalHeader* value);
  TQuilColumnTotalValues* TotalValues() const;
  void SetTotalValues(TQuilColumnTotalValues* value);
  TQuilColumnTotalFields* TotalFields() const;
  void SetTotalFields(TQuilColumnTotalFields* value);
  TQuilColumnTotalFooter* TotalFooter() const;
  void SetTotalFooter(TQuilColumnTotalFooter* value);
  bool IsTotalValuesStored() const;
  virtual void TotalChanged();

  // Copies Expanded, Visible and Width to the same column of a master grid.
  void Synchronize();
  // Moves the column, and the master grid's column of the old index with it.
  void MoveTo(int index);
  // Repaints the column (false) or lays the grid out (true).
  void Changed(bool allItems) { TCollectionItem::Changed(allItems); }

protected:
  virtual TQuilColumnTitle* CreateTitle();
  virtual TQuilColumnTotalHeader* CreateTotalHeader();
  virtual TQuilColumnTotalValues* CreateTotalValues();
  virtual TQuilColumnTotalFields* CreateTotalFields();
  virtual TQuilColumnTotalFooter* CreateTotalFooter();

private:
  friend class TQuilColumnTitle;

  // The grid for work on the grid itself (layout, cursor, stretching); none for a
  // column of a collection that the grid does not show.
  TQuilCustomDBGrid* ShowingGrid() const;
  void FontChanged(TObject* sender);
  void MarkAssigned(TQuilColumnValue member) { assignedValues_.Include(member); }
  bool IsAssigned(TQuilColumnValue member) const { return assignedValues_.Contains(member); }
  // Not Stored, the link active and a field bound: some values go to the field.
  bool WritesToField() const;
  // The grid is writing its columns to a stream: widths and flags read raw.
  bool GridWriting() const;
  bool GridStreaming() const;
  void MakeTotals() const;
  // What an expand box brings with it, whether or not it was on: no check box, a
  // transparent cell and an image draw that places a box.
  void TakeExpandBoxLook();
  void ResetMembers();
  void CopyMembers(const TQuilColumn& source);
  void FreeLists();
  void SetWidthToField(int value);
  void StoreWidth(int value);
  // The bound field's text through the grid's ColGetText, as an editor gets it.
  QString CheckBoxText() const;
  // Index as the list that shows it can: the state alone (index modulo 3) when Images,
  // or a themed box, has no image of the index.
  int ShownBoxIndex(int index, bool themed) const;
  // A copy of a built-in box image, blended with the fixed color in a disabled grid.
  std::unique_ptr<TBitmap> BuiltInBoxImage(TImageList* list, int index) const;
  void MoveGroup(int target);
  void MoveByField(int target);
  void ExpandWithGrid(bool value);
  // The field whose text measures DefaultWidth and aligns the cell.
  TField* MeasureField() const;
  int MeasuredWidth(TField* field) const;
  int TitleMinWidth() const;

  bool stored_ = true;
  TQuilColumnValues assignedValues_;
  QString fieldName_;
  mutable TField* field_ = nullptr;
  TQuilColumn* parentColumn_ = nullptr;
  TBookmark expandBookmark_;
  uint8_t stretchStatus_ = 0;

  // The plain published values, reset as a whole by RestoreDefaults; an empty
  // checkBoxValues stands for the default texts.
  struct TValues {
    TAlignment alignment = taLeftJustify;
    TColor color = clWindow;
    TImeMode imeMode = imDontCare;
    // The screen's default input method: Qt picks the platform's own and names none.
    TImeName imeName;
    bool readOnly = false;
    int width = 64;
    int widthBase = 64;
    int widthMax = -1;
    int widthMin = -1;
    bool visible = true;
    bool expanded = true;
    int expandCols = 0;
    TQuilColumnExpandStyle expandStyle = cesAuto;
    bool autoNumber = false;
    bool checkBox = false;
    TCheckBoxKind checkBoxKind = ckCheck;
    TCheckBoxStyle checkBoxStyle = cbAuto;
    bool checkBoxThemed = false;
    TCheckBoxToggle checkBoxToggle = ctOnCellClick;
    QString checkBoxValues;
    bool expandBox = false;
    TExpandBoxSize expandBoxSize = ebLarge;
    bool expandBoxThemed = false;
    TExpandBoxToggle expandBoxToggle = etOnCellClick;
    bool expandBoxTree = false;
    TImageDraw imageDraw = idCenter;
    int imageMargin = 0;
    int imageOffsetX = 0;
    int imageOffsetY = 0;
    TImageList* images = nullptr;
    bool quickDraw = true;
    bool transparent = false;
    TColor transparentColor = clNone;
    bool wallpaper = false;
    TQuilColumnButtonStyle buttonStyle = cbsAuto;
    TCalendarDepth calendarDepth = cdDecade;
    TEditCharCase charCase = ecNormal;
    QChar delimiterChar = QLatin1Char(',');
    bool delimiterLine = false;
    TDialogOptions dialogOptions{doShowColumn, doItemEnabled};
    TPopupMenu* dropDownMenu = nullptr;
    int dropDownRows = 0;
    int dropDownWidth = 0;
    bool editMemo = true;
    QString editorHint;
    bool ellipsis = true;
    QString hint;
    TMultiSelectText multiSelectText = mstEllipsis;
    TPopupMenu* popupMenu = nullptr;
    bool showBlob = true;
    bool showEdit = true;
    bool suppressRTL = false;
    bool toolTips = true;
    TToolTipsWidth toolTipsWidth = ttAutoWidth;
    TVAlignment vAlignment = tvCenter;
    bool wordWrap = true;
    QString filterText;
    TQuilListOptions listOptions = DefaultColumnListOptions;
    TQuilPickOptions pickOptions = DefaultPickOptions;
    QString pickTextFormat;
    TDataSet* lookupDataSet = nullptr;
    QString keyField;
    QString lookupKeyField;
    QString lookupParentField;
    QString lookupResultField;
    QString lookupTreeViewField;
    QString lookupListFields;
    QString lookupListTitles;
    QString lookupListWidths;
  };
  TValues p_;
  std::unique_ptr<TFont> font_;
  mutable std::unique_ptr<TStrings> filterList_;
  mutable std::unique_ptr<TStrings> pickList_;
  mutable std::unique_ptr<TStrings> pickText_;

  mutable std::unique_ptr<TQuilColumnTitle> title_;
  mutable std::unique_ptr<TQuilColumnTotalHeader> totalHeader_;
  mutable std::unique_ptr<TQuilColumnTotalValues> totalValues_;
  mutable std::unique_ptr<TQuilColumnTotalFields> totalFields_;
  mutable std::unique_ptr<TQuilColumnTotalFooter> totalFooter_;
};

// Visits the column's total cells: header, each value, fields, footer.
template <typename Visit>
void ForEachTotalCell(const TQuilColumn* column, Visit visit) {
  visit(column->TotalHeader());
  for (int index = 0; index < column->TotalValues()->Count(); ++index) visit(column->TotalValues()->Value(index));
  visit(column->TotalFields());
  visit(column->TotalFooter());
}

}  // namespace quil
