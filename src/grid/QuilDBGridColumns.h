#pragma once
// TQuilColumn and TQuilDBGridColumns: the columns of a grid, each bound to a field by
// name. Default columns mirror the data set's visible fields and are not stored;
// customized columns are defined by the application and stored with the form.

#include <QString>

#include "framework/rtl/Collections.h"

namespace quil {

class TDataSet;
class TField;
class TQuilCustomDBGrid;
class TQuilDBGridColumns;

enum TQuilDBGridColumnsState { csDefault, csCustomized };
enum TQuilLookupColumn { lcNotDefined, lcLookupField, lcLookupKeyField, lcLookupResultField, lcLookupValueField };

class TQuilColumn : public TCollectionItem {
public:
  TQuilColumn() = default;
  ~TQuilColumn() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilDBGridColumns* Columns() const;
  TQuilCustomDBGrid* Grid() const;

  const QString& FieldName() const { return fieldName_; }
  void SetFieldName(const QString& name);
  // The bound field; found again by FieldName after SetField(nullptr) cleared it.
  TField* Field() const;
  void SetField(TField* field);
  // The field as bound now, without looking it up.
  TField* BoundField() const { return field_; }

  // An explicitly set width, or -1 for the field's display width.
  int Width() const { return width_; }
  void SetWidth(int width);
  // The width the column takes in the grid, in pixels.
  int GetWidth() const;
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  // Shown in the grid.
  bool GetShowing() const { return visible_; }
  // Defined by the application; default columns are made by the grid and not stored.
  bool Stored() const { return stored_; }
  void SetStored(bool stored) { stored_ = stored; }

  // FIXME: column groups give depth, expansion and ancestors; a plain column is a
  // top-level leaf of its own.
  int Depth() const { return 0; }
  int GetExpandIndex() const { return Index(); }

  // A column can look its value up itself: KeyField of the grid's data set is found as
  // LookupKeyField in LookupDataSet, whose LookupResultField gives the value.
  const QString& KeyField() const { return keyField_; }
  void SetKeyField(const QString& name) { keyField_ = name; }
  TDataSet* LookupDataSet() const { return lookupDataSet_; }
  void SetLookupDataSet(TDataSet* dataSet);
  const QString& LookupKeyField() const { return lookupKeyField_; }
  void SetLookupKeyField(const QString& name) { lookupKeyField_ = name; }
  const QString& LookupResultField() const { return lookupResultField_; }
  void SetLookupResultField(const QString& name) { lookupResultField_ = name; }
  TQuilLookupColumn GetLookupColumn() const;

  QString GetDisplayName() const override;
  // The caption of the column's title.
  QString TitleCaption() const;

private:
  QString fieldName_;
  mutable TField* field_ = nullptr;
  int width_ = -1;
  bool visible_ = true;
  bool stored_ = true;
  QString keyField_;
  TDataSet* lookupDataSet_ = nullptr;
  QString lookupKeyField_;
  QString lookupResultField_;
};

class TQuilDBGridColumns : public TOwnedCollection {
public:
  explicit TQuilDBGridColumns(TQuilCustomDBGrid* grid);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilCustomDBGrid* Grid() const { return grid_; }
  TQuilColumn* operator[](int index) const { return Items(index); }
  TQuilColumn* Items(int index) const { return static_cast<TQuilColumn*>(TCollection::Items(index)); }
  TQuilColumn* Add() { return static_cast<TQuilColumn*>(TCollection::Add()); }
  // A default column, made by the grid's layout and not stored.
  TQuilColumn* InternalAdd();

  // Customized when the first column is stored.
  TQuilDBGridColumnsState State() const;
  // Turns default columns into stored ones, or throws customized ones away.
  void SetState(TQuilDBGridColumnsState state);
  // The same columns with the same stored properties.
  bool Equals(const TQuilDBGridColumns* other) const;

protected:
  TCollectionItem* CreateItem() const override;
  void Update(TCollectionItem* item) override;

private:
  TQuilCustomDBGrid* grid_;
};

}  // namespace quil
