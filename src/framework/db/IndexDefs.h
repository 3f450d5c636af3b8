#pragma once
// TIndexDef and TIndexDefs: the named orders of an in-memory data set.

#include <QString>

#include "framework/rtl/Collections.h"
#include "framework/rtl/Sets.h"

namespace quil {

class TEnumTypeInfo;

enum TIndexOption {
  ixPrimary, ixUnique, ixDescending, ixCaseInsensitive, ixExpression, ixNonMaintained
};
using TIndexOptions = TSet<TIndexOption>;
const TEnumTypeInfo& TypeInfo(TIndexOption);

class TIndexDef : public TCollectionItem {
public:
  TIndexDef() = default;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& Name() const { return name_; }
  void SetName(const QString& name) { name_ = name; }
  // ";"-separated field names, in order of significance.
  const QString& Fields() const { return fields_; }
  void SetFields(const QString& fields) { fields_ = fields; }
  // Those of Fields that sort descending (all of them with ixDescending).
  const QString& DescFields() const { return descFields_; }
  void SetDescFields(const QString& fields) { descFields_ = fields; }
  // Those of Fields that compare text without case (all with ixCaseInsensitive).
  const QString& CaseInsFields() const { return caseInsFields_; }
  void SetCaseInsFields(const QString& fields) { caseInsFields_ = fields; }
  TIndexOptions Options() const { return options_; }
  void SetOptions(TIndexOptions options) { options_ = options; }
  int GroupingLevel() const { return groupingLevel_; }
  void SetGroupingLevel(int level) { groupingLevel_ = level; }

  QString GetDisplayName() const override { return name_; }
  void Assign(const TPersistent* source) override;

private:
  QString name_;
  QString fields_;
  QString descFields_;
  QString caseInsFields_;
  TIndexOptions options_;
  int groupingLevel_ = 0;
};

class TIndexDefs : public TOwnedCollection {
public:
  explicit TIndexDefs(TPersistent* owner) : TOwnedCollection(owner, TIndexDef::StaticClass()) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TIndexDef* Items(int index) const { return static_cast<TIndexDef*>(TCollection::Items(index)); }
  TIndexDef* AddIndexDef() { return static_cast<TIndexDef*>(TCollection::Add()); }
  int IndexOf(const QString& name) const;  // case-insensitive, -1 when absent
  TIndexDef* Find(const QString& name) const;  // raises SIndexNotFound
  // False after a definition changed, until Update. An in-memory data set keeps its
  // definitions as they are given, so Update has nothing to read again; callers that
  // work with other data sets call it before reading the definitions, as for any.
  bool Updated() const { return updated_; }
  void SetUpdated(bool updated) { updated_ = updated; }
  void Update() { updated_ = true; }

protected:
  void Update(TCollectionItem* item) override { updated_ = false; }

private:
  bool updated_ = true;
};

}  // namespace quil
