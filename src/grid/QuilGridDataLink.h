#pragma once
// TQuilGridDataLink: the grid's view of its data set. It maps grid positions to the
// data set's fields and routes the data events to the grid.

#include <QString>
#include <vector>

#include "framework/db/DataSource.h"

namespace quil {

class TQuilCustomDBGrid;

class TQuilGridDataLink : public TDataLink {
public:
  explicit TQuilGridDataLink(TQuilCustomDBGrid* grid);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TQuilCustomDBGrid* Grid() const { return grid_; }

  // Appends the named field to the map (-1 when a sparse map lacks it). Always true.
  bool AddMapping(const QString& fieldName);
  void ClearMapping();
  int FieldCount() const { return fieldCount_; }
  // Null outside the map or for an entry without a field.
  TField* GetFields(int index) const;
  // The index in the data set's field list, -1 out of range or without a field.
  int GetMappedIndex(int index) const;
  // The data set has default fields (or there is none) and no map entry is missing.
  bool GetDefaultFields() const;
  // The map was built from the columns, so entries may lack a field.
  bool SparseMap() const { return sparseMap_; }
  void SetSparseMap(bool sparse) { sparseMap_ = sparse; }

  // The cell being edited has text not yet written to its field.
  bool IsModified() const { return modified_; }
  void Modified() { modified_ = true; }
  // Cancels the data set under the grid's position lock.
  void Cancel();
  // Puts the editor's text back from the field, or cancels when nothing was typed.
  void Reset();

protected:
  void ActiveChanged() override;
  void DataSetChanged() override;
  void DataSetScrolled(int distance) override;
  void EditingChanged() override;
  void FocusControl(TField*& field) override;
  void LayoutChanged() override;
  void RecordChanged(TField* field) override;
  void UpdateData() override;

private:
  TQuilCustomDBGrid* grid_;
  int fieldCount_ = 0;
  std::vector<int> fieldMap_;  // index in the field list, -1 when the field is missing
  bool modified_ = false;
  bool inUpdateData_ = false;
  bool sparseMap_ = false;
};

}  // namespace quil
