#pragma once
// TFields: the fields of a data set in their order, or the children of a structured
// field; TFieldList: all fields of a data set, the children of structured fields right
// behind their parents, depth-first, as field access walks them.
//
// A data set with ObjectView lists only its top-level fields in Fields; without it, the
// children stand in Fields too, flat behind their parents.

#include <QString>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Object.h"

namespace quil {

class TDataSet;
class TField;
class TObjectField;

class TFields : public TObject {
public:
  explicit TFields(TDataSet* dataSet, TObjectField* parentField = nullptr)
      : dataSet_(dataSet), parentField_(parentField) {}
  TFields(const TFields&) = delete;
  TFields& operator=(const TFields&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TDataSet* DataSet() const { return dataSet_; }
  int Count() const { return int(list_.size()); }
  // Raises EDatabaseError (SFieldIndexError) out of range.
  TField* Fields(int index) const;
  TField* operator[](int index) const { return Fields(index); }
  int IndexOf(const TField* field) const;
  TField* FindField(const QString& fieldName) const;  // case-insensitive
  TField* FieldByName(const QString& fieldName) const;
  TField* FieldByNumber(int fieldNo) const;
  // Which life cycles the fields have: [lcAutomatic] for default fields alone.
  TFieldLifeCycles LifeCycles() const;

  // The structured field whose children these are; null for a data set's fields.
  TObjectField* ParentField() const { return parentField_; }

  // Adds and removes without freeing; the field's SetDataSet calls these.
  void Add(TField* field);
  void Insert(int index, TField* field);
  void Remove(TField* field);
  // Raises for an empty name or one that another field of the same level has.
  void CheckFieldName(const QString& fieldName, const TField* except = nullptr) const;
  void SetFieldIndex(TField* field, int index);

  TNotifyEvent OnChange;

  std::vector<TField*>::const_iterator begin() const { return list_.begin(); }
  std::vector<TField*>::const_iterator end() const { return list_.end(); }

private:
  friend class TDataSet;
  friend class TField;

  void Changed();

  TDataSet* dataSet_;
  TObjectField* parentField_;
  std::vector<TField*> list_;
};

class TFieldList : public TObject {
public:
  explicit TFieldList(TDataSet* dataSet) : dataSet_(dataSet) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int Count() const;
  TField* Fields(int index) const;
  TField* operator[](int index) const { return Fields(index); }
  int IndexOf(const TField* field) const;
  TField* Find(const QString& fieldName) const;
  TField* FieldByName(const QString& fieldName) const;
  // False after the data set's fields changed; the next access rebuilds the list.
  bool Updated() const { return updated_; }
  void SetUpdated(bool updated) { updated_ = updated; }
  void Update() const;

private:
  TDataSet* dataSet_;
  mutable std::vector<TField*> list_;
  mutable bool updated_ = false;
};

}  // namespace quil
