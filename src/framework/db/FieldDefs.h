#pragma once
// TFieldDef and TFieldDefs: what a data set's records hold, from which it makes its
// default fields and against which it binds persistent ones.
//
// Structured types nest: an ftADT definition holds its members in ChildDefs, an ftArray
// definition its elements (named "Name[0]", "Name[1]" ...), and Size of an array is its
// element count. FieldNo numbers the definitions depth-first, a structured one before
// its children, as FieldDefList lists them.

#include <QString>
#include <memory>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/rtl/Collections.h"

namespace quil {

class TComponent;
class TDataSet;
class TField;
class TFieldDefs;
class TObjectField;

class TFieldDef : public TCollectionItem {
public:
  TFieldDef();
  ~TFieldDef() override;

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
  // 1-based position in the data set's FieldDefList; 0 outside a data set.
  int FieldNo() const;
  // The definitions of the members or elements of a structured type; made on first use.
  TFieldDefs* ChildDefs() const;
  bool HasChildDefs() const;
  TFieldDef* AddChild();
  // The structured definition this one belongs to; null at the top.
  TFieldDef* ParentDef() const;
  // The name with the parents' names before it, as the field's FullName.
  QString FullName() const;
  // Makes a field of the type's default class, owned by owner, with the children of a
  // structured type; in parentField, else in the definitions' data set. A fieldName
  // replaces Name. Raises for a type without a field class.
  TField* CreateField(TComponent* owner, TObjectField* parentField = nullptr, const QString& fieldName = {}) const;

  QString GetDisplayName() const override { return name_; }
  void Assign(const TPersistent* source) override;

private:
  QString name_;
  TFieldType dataType_ = ftUnknown;
  int size_ = 0;
  int precision_ = 0;
  bool required_ = false;
  mutable std::unique_ptr<TFieldDefs> childDefs_;
};

class TFieldDefs : public TOwnedCollection {
public:
  explicit TFieldDefs(TDataSet* dataSet);
  // The child definitions of parentDef.
  explicit TFieldDefs(TFieldDef* parentDef);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TDataSet* DataSet() const;
  // The definition whose ChildDefs these are; null for a data set's own.
  TFieldDef* ParentDef() const { return parentDef_; }
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
  // These definitions and all their children, depth-first.
  std::vector<TFieldDef*> FieldDefList() const;

protected:
  // Every change of a definition, or of the list, reaches the data set's DefChanged.
  void Update(TCollectionItem* item) override;

private:
  TDataSet* dataSet_ = nullptr;
  TFieldDef* parentDef_ = nullptr;
  bool updated_ = false;
};

// The full name of a child called name of a structured parent: dotted under an ADT,
// the parent's full name with the "[n]" of the name under an array.
QString ChildFullName(const QString& parentFullName, const QString& parentName, TFieldType parentType,
                      const QString& name);

}  // namespace quil
