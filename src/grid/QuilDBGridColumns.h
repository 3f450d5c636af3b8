#pragma once
// TQuilDBGridColumns: the grid's columns. Default columns mirror the data set's visible
// fields, made by the grid and not stored; customized columns are defined by the
// application (or built from the fields by RebuildColumns) and stored with the form or
// in a column stream. Three automatic service columns (record number, selection check
// box, expand box) can stand in front.

#include <QString>
#include <cstddef>
#include <iterator>
#include <vector>

#include "framework/rtl/Collections.h"
#include "grid/QuilDBGridColumn.h"

namespace quil {

class TFields;
class TStream;
class TQuilCustomDBGrid;

enum TDBGridColumnsState { csDefault, csCustomized };
// The name the grid used before the collection had its own type.
using TQuilDBGridColumnsState = TDBGridColumnsState;

// Titles and widths of the automatic columns; an application may change them before
// the columns are built.
extern QString DefAutoNumberTitle;
extern int DefAutoNumberWidth;
extern QString DefAutoSelectTitle;
extern int DefAutoSelectWidth;
extern QString DefAutoExpandTitle;
extern int DefAutoExpandWidth;

// Walks a list of columns; Restart goes back before the first.
class TQuilColumnEnumerator {
public:
  virtual ~TQuilColumnEnumerator() = default;
  virtual TQuilColumn* GetCurrent() const = 0;
  virtual bool MoveNext() = 0;
  void Restart() { index_ = -1; }

protected:
  int index_ = -1;
};

class TQuilDBGridColumns;

class TQuilDBGridColumnsEnumerator : public TQuilColumnEnumerator {
public:
  explicit TQuilDBGridColumnsEnumerator(const TQuilDBGridColumns* columns) : columns_(columns) {}
  TQuilColumn* GetCurrent() const override;
  bool MoveNext() override;

private:
  const TQuilDBGridColumns* columns_;
};

class TQuilDBGridColumns : public TCollection {
public:
  TQuilDBGridColumns(TQuilCustomDBGrid* grid, const TMetaClass& columnClass);
  explicit TQuilDBGridColumns(TQuilCustomDBGrid* grid) : TQuilDBGridColumns(grid, TQuilColumn::StaticClass()) {}
  ~TQuilDBGridColumns() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilCustomDBGrid* Grid() const { return grid_; }
  // The grid's own columns, whose changes reach the grid; false for a collection made
  // from the grid, as a column stream is read into, which has the grid only to read
  // values as the grid's own columns would.
  bool ShownByGrid() const;
  TPersistent* GetOwner() const override;

  TQuilColumn* Columns(int index) const { return static_cast<TQuilColumn*>(TCollection::Items(index)); }
  TQuilColumn* Items(int index) const { return Columns(index); }
  TQuilColumn* operator[](int index) const { return Columns(index); }
  void SetColumn(int index, const TQuilColumn* value) { Columns(index)->Assign(value); }

  // A column the application defines: Stored.
  TQuilColumn* Add() { return static_cast<TQuilColumn*>(TCollection::Add()); }
  // A column the grid makes by itself from a field: not Stored.
  TQuilColumn* InternalAdd();
  TQuilColumn* AddAutoExpand();
  TQuilColumn* AddAutoSelect();
  TQuilColumn* AddAutoNumber();

  // From a collection, the copy does not stretch until it is whole.
  void Assign(const TPersistent* source) override;
  void BeginDesignUpdate();
  void EndDesignUpdate();
  // Above 0 turns off the design-time guard against moving columns of groups.
  int DesignUpdateCount() const { return designUpdateCount_; }

  // Customized when the last column is Stored.
  TDBGridColumnsState State() const;
  TDBGridColumnsState GetState() const { return State(); }
  // Customized builds stored columns from the fields; default drops all columns.
  void SetState(TDBGridColumnsState value);
  // Stored columns for the data set's fields in their order, with the automatic ones.
  void RebuildColumns();
  void RestoreDefaults();

  // The framework's component stream, with a TQuilColumnsWrapper as its component.
  void SaveToStream(TStream& stream) const;
  void LoadFromStream(TStream& stream);
  void SaveToFile(const QString& fileName) const;
  void LoadFromFile(const QString& fileName);

  TQuilDBGridColumnsEnumerator GetEnumerator() const { return TQuilDBGridColumnsEnumerator(this); }
  // Range-for over the columns.
  class iterator;
  iterator begin() const;
  iterator end() const;

  // The columns whose titles carry an order marker, in the order's sequence.
  const std::vector<TQuilColumn*>& OrderList() const { return orderList_; }
  void RemoveFromOrder(TQuilColumn* column);
  void RemoveMarkers();
  // FIXME: ordering rebuilds the order list and the marker indexes from the markers.
  void UpdateMarkers() {}

  // Sets each column's ParentColumn; the layout runs it before it reads depths.
  void UpdateParentColumns();
  bool AnyExpandable() const;
  // The same columns with the same stored properties.
  bool Equals(const TQuilDBGridColumns* other) const;
  // Raises std::logic_error when the tree of groups is broken: a parent that is not an
  // earlier column of this collection, a group that reaches past the end.
  void CheckConsistency() const;

protected:
  void Update(TCollectionItem* item) override;
  void Notify(TCollectionItem* item, TCollectionNotification action) override;

private:
  void AddFieldColumns(const TFields* fields);
  void SetAutoColumn(TQuilColumn* column, TAlignment alignment, const QString& title, int width);

  TQuilCustomDBGrid* grid_;
  std::vector<TQuilColumn*> orderList_;
  int designUpdateCount_ = 0;
};

class TQuilDBGridColumns::iterator {
public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = TQuilColumn*;
  using difference_type = std::ptrdiff_t;
  using pointer = TQuilColumn**;
  using reference = TQuilColumn*;

  iterator(const TQuilDBGridColumns* columns, int index) : columns_(columns), index_(index) {}
  TQuilColumn* operator*() const { return columns_->Columns(index_); }
  iterator& operator++() {
    ++index_;
    return *this;
  }
  bool operator==(const iterator& other) const { return index_ == other.index_; }
  iterator operator++(int) {
    iterator before = *this;
    ++index_;
    return before;
  }

private:
  const TQuilDBGridColumns* columns_;
  int index_;
};

inline TQuilDBGridColumns::iterator TQuilDBGridColumns::begin() const { return iterator(this, 0); }
inline TQuilDBGridColumns::iterator TQuilDBGridColumns::end() const { return iterator(this, Count()); }

}  // namespace quil
