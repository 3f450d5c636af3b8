#pragma once
// TFieldDef and TFieldDefs: what a data set's records hold, from which it makes its
// default fields and against which it binds persistent ones.

#include <QString>

#include "framework/db/DataTypes.h"
#include "framework/rtl/Collections.h"

namespace quil {

class TComponent;
class TDataSet;
class TField;

class TFieldDef : public TCollectionItem {
public:
  TFieldDef() = default;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& Name() const { return name_; }
  void SetName(const QString& name);
  TFieldType DataType() const { return dataType_; }
  void SetDataType(TFieldType type);
  int Size() const { return size_; }
  void SetSize(int size);
  int Precision() const { return precision_; }
  void SetPrecision(int precision);
  bool Required() const { return required_; }
  void SetRequired(bool required);
  // 1-based position among the definitions.
  int FieldNo() const { return Index() + 1; }
  // Makes a field of the type's default class, owned by owner and in the definitions'
  // data set; raises for a type without a field class.
  TField* CreateField(TComponent* owner) const;

  QString GetDisplayName() const override { return name_; }
  void Assign(const TPersistent* source) override;

private:
  QString name_;
  TFieldType dataType_ = ftUnknown;
  int size_ = 0;
  int precision_ = 0;
  bool required_ = false;
};

class TFieldDefs : public TOwnedCollection {
public:
  explicit TFieldDefs(TDataSet* dataSet);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TDataSet* DataSet() const { return dataSet_; }
  TFieldDef* Items(int index) const { return static_cast<TFieldDef*>(TCollection::Items(index)); }
  TFieldDef* AddFieldDef() { return static_cast<TFieldDef*>(TCollection::Add()); }
  // Raises for a duplicate name.
  TFieldDef* Add(const QString& name, TFieldType type, int size = 0, bool required = false);
  TFieldDef* Find(const QString& name) const;  // raises SFieldNotFound
  int IndexOf(const QString& name) const;      // case-insensitive, -1 when absent
  // False when the definitions must be read again from the data set.
  bool Updated() const { return updated_; }
  void SetUpdated(bool updated) { updated_ = updated; }
  // Reads the definitions from the data set unless they are up to date.
  void Update();

protected:
  // Every change of a definition, or of the list, reaches the data set's DefChanged.
  void Update(TCollectionItem* item) override;

private:
  TDataSet* dataSet_;
  bool updated_ = false;
};

}  // namespace quil
