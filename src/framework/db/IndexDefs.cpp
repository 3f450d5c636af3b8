#include "framework/db/IndexDefs.h"

#include "framework/db/DataTypes.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TIndexOption) {
  static const TEnumTypeInfo info("TIndexOption", {"ixPrimary", "ixUnique", "ixDescending",
                                                   "ixCaseInsensitive", "ixExpression", "ixNonMaintained"});
  return info;
}

const TMetaClass& TIndexDef::StaticClass() {
  static const TMetaClass meta = TMetaClass("TIndexDef", &TCollectionItem::StaticClass())
      .Creates<TIndexDef>()
      .Published(StrProp("Name", &TIndexDef::Name, &TIndexDef::SetName))
      .Published(StrProp("Fields", &TIndexDef::Fields, &TIndexDef::SetFields))
      .Published(StrProp("DescFields", &TIndexDef::DescFields, &TIndexDef::SetDescFields))
      .Published(StrProp("CaseInsFields", &TIndexDef::CaseInsFields, &TIndexDef::SetCaseInsFields))
      .Published(SetProp("Options", &TIndexDef::Options, &TIndexDef::SetOptions).Default(TIndexOptions()))
      .Published(IntProp("GroupingLevel", &TIndexDef::GroupingLevel, &TIndexDef::SetGroupingLevel).Default(0));
  return meta;
}

const TMetaClass& TIndexDef::ClassType() const { return StaticClass(); }

void TIndexDef::Assign(const TPersistent* source) {
  const auto* other = dynamic_cast<const TIndexDef*>(source);
  if (!other) {
    TCollectionItem::Assign(source);
    return;
  }
  name_ = other->name_;
  fields_ = other->fields_;
  descFields_ = other->descFields_;
  caseInsFields_ = other->caseInsFields_;
  options_ = other->options_;
  groupingLevel_ = other->groupingLevel_;
}

const TMetaClass& TIndexDefs::StaticClass() {
  static const TMetaClass meta("TIndexDefs", &TOwnedCollection::StaticClass());
  return meta;
}

const TMetaClass& TIndexDefs::ClassType() const { return StaticClass(); }

int TIndexDefs::IndexOf(const QString& name) const {
  for (int index = 0; index < Count(); ++index)
    if (Items(index)->Name().compare(name, Qt::CaseInsensitive) == 0) return index;
  return -1;
}

TIndexDef* TIndexDefs::Find(const QString& name) const {
  const int index = IndexOf(name);
  if (index < 0) DatabaseError(Format(SIndexNotFound, {name}), nullptr);
  return Items(index);
}

}  // namespace quil
