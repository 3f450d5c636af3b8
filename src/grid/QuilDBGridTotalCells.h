#pragma once
// The total cells a column owns: one header, one fields and one footer cell, and the
// collection of value cells.

#include "framework/rtl/Collections.h"

namespace quil {

class TField;
class TQuilColumn;

// What a total cell shows: nothing, its caption, a field of the grid's data set, a field
// of the totals' data set, or a calculated value.
enum TTotalResult { trNone, trCaption, trDataField, trTotalField, trCalcValue };

// FIXME: totals replace these with the cells' published properties, their assigned
// values, texts and calculation; until then a cell only holds the field it shows.
class TQuilColumnTotal : public TCollectionItem {
public:
  TQuilColumnTotal() = default;
  explicit TQuilColumnTotal(TQuilColumn* column) : column_(column) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  void Assign(const TPersistent* source) override;
  // The owning column: given at construction, or that of the value collection.
  TQuilColumn* Column() const;
  TField* Field() const { return field_; }
  virtual void SetField(TField* field) { field_ = field; }
  virtual void RestoreDefaults() {}

private:
  TQuilColumn* column_ = nullptr;
  TField* field_ = nullptr;
};

class TQuilColumnTotalFields : public TQuilColumnTotal {
public:
  using TQuilColumnTotal::TQuilColumnTotal;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TQuilColumnTotalValue : public TQuilColumnTotal {
public:
  using TQuilColumnTotal::TQuilColumnTotal;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TQuilColumnTotalHeader : public TQuilColumnTotalValue {
public:
  using TQuilColumnTotalValue::TQuilColumnTotalValue;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TQuilColumnTotalFooter : public TQuilColumnTotalValue {
public:
  using TQuilColumnTotalValue::TQuilColumnTotalValue;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// The value rows of one column.
class TQuilColumnTotalValues : public TCollection {
public:
  explicit TQuilColumnTotalValues(TQuilColumn* column);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilColumn* Column() const { return column_; }
  TQuilColumnTotalValue* Add() { return static_cast<TQuilColumnTotalValue*>(TCollection::Add()); }
  TQuilColumnTotalValue* Value(int index) const { return static_cast<TQuilColumnTotalValue*>(Items(index)); }
  void RestoreDefaults();
  TPersistent* GetOwner() const override;

protected:
  void Update(TCollectionItem* item) override;

private:
  TQuilColumn* column_;
};

}  // namespace quil
