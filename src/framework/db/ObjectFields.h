#pragma once
// Structured fields: an ADT's members and an array's elements are fields of their own,
// children of the structured field, each bound to its own definition and read from the
// record like any other field. The structured field holds no value itself: its value
// is the array of its children's values, and it is Null when all of them are.
//
// A nested data set (TDataSetField) and a reference to a row of another table
// (TReferenceField) are structured fields whose value is another data set; the data
// set of this library keeps them as fields without storage.

#include <QString>
#include <memory>

#include "framework/db/Field.h"
#include "framework/db/Fields.h"

namespace quil {

class TObjectField : public TField {
public:
  ~TObjectField() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The children, in their order.
  TFields* Fields() const { return fields_.get(); }
  int FieldCount() const { return fields_->Count(); }
  // A child's value by its index; raises out of range.
  Variant FieldValues(int index) const;
  void SetFieldValues(int index, const Variant& value);
  // The name of the structured type, as the database names it.
  const QString& ObjectType() const { return objectType_; }
  void SetObjectType(const QString& type) { objectType_ = type; }

protected:
  TObjectField(TComponent* owner, TFieldType type);
  int DefaultWidth() const override;
  bool GetIsNull() const override;
  // "(" the children's texts joined by ", " ")".
  QString GetAsString() const override;
  // An array of the children's values.
  Variant GetAsVariant() const override;
  // An array of values goes to the children in order; anything else raises.
  void SetVarValue(const Variant& value) override;

private:
  std::unique_ptr<TFields> fields_;
  QString objectType_;
};

class TADTField : public TObjectField {
public:
  explicit TADTField(TComponent* owner) : TObjectField(owner, ftADT) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// Size is the element count, the children "Name[0]" .. "Name[Size-1]".
class TArrayField : public TObjectField {
public:
  explicit TArrayField(TComponent* owner) : TObjectField(owner, ftArray) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TDataSetField : public TObjectField {
public:
  explicit TDataSetField(TComponent* owner) : TDataSetField(owner, ftDataSet) {}
  ~TDataSetField() override;
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The data set that shows the nested rows of the current record; null while none does.
  TDataSet* NestedDataSet() const { return nestedDataSet_; }
  void SetNestedDataSet(TDataSet* dataSet);
  // Whether the nested data set shows the object field itself as a column.
  bool IncludeObjectField() const { return includeObjectField_; }
  void SetIncludeObjectField(bool value);

protected:
  TDataSetField(TComponent* owner, TFieldType type) : TObjectField(owner, type) {}
  bool GetIsNull() const override;
  QString GetAsString() const override;
  Variant GetAsVariant() const override;
  void Notification(TComponent* component, TOperation operation) override;

private:
  TDataSet* nestedDataSet_ = nullptr;
  bool includeObjectField_ = false;
};

class TReferenceField : public TDataSetField {
public:
  explicit TReferenceField(TComponent* owner) : TDataSetField(owner, ftReference) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The table whose row the reference names.
  const QString& ReferenceTableName() const { return referenceTableName_; }
  void SetReferenceTableName(const QString& name) { referenceTableName_ = name; }

protected:
  QString GetAsString() const override;

private:
  QString referenceTableName_;
};

}  // namespace quil
