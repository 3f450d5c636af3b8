#include "grid/QuilDBGridTotalCells.h"

#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"
#include "grid/QuilDBGridColumn.h"

namespace quil {

const TMetaClass& TQuilColumnTotal::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TQuilColumnTotal", &TCollectionItem::StaticClass()).Creates<TQuilColumnTotal>();
  return meta;
}
const TMetaClass& TQuilColumnTotal::ClassType() const { return StaticClass(); }

const TMetaClass& TQuilColumnTotalFields::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TQuilColumnTotalFields", &TQuilColumnTotal::StaticClass()).Creates<TQuilColumnTotalFields>();
  return meta;
}
const TMetaClass& TQuilColumnTotalFields::ClassType() const { return StaticClass(); }

const TMetaClass& TQuilColumnTotalValue::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TQuilColumnTotalValue", &TQuilColumnTotal::StaticClass()).Creates<TQuilColumnTotalValue>();
  return meta;
}
const TMetaClass& TQuilColumnTotalValue::ClassType() const { return StaticClass(); }

const TMetaClass& TQuilColumnTotalHeader::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TQuilColumnTotalHeader", &TQuilColumnTotalValue::StaticClass()).Creates<TQuilColumnTotalHeader>();
  return meta;
}
const TMetaClass& TQuilColumnTotalHeader::ClassType() const { return StaticClass(); }

const TMetaClass& TQuilColumnTotalFooter::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TQuilColumnTotalFooter", &TQuilColumnTotalValue::StaticClass()).Creates<TQuilColumnTotalFooter>();
  return meta;
}
const TMetaClass& TQuilColumnTotalFooter::ClassType() const { return StaticClass(); }

void TQuilColumnTotal::Assign(const TPersistent* source) {
  if (!dynamic_cast<const TQuilColumnTotal*>(source)) TCollectionItem::Assign(source);
}

TQuilColumn* TQuilColumnTotal::Column() const {
  if (column_) return column_;
  auto* values = dynamic_cast<TQuilColumnTotalValues*>(Collection());
  return values ? values->Column() : nullptr;
}

const TMetaClass& TQuilColumnTotalValues::StaticClass() {
  static const TMetaClass meta("TQuilColumnTotalValues", &TCollection::StaticClass());
  return meta;
}
const TMetaClass& TQuilColumnTotalValues::ClassType() const { return StaticClass(); }

TQuilColumnTotalValues::TQuilColumnTotalValues(TQuilColumn* column)
    : TCollection(TQuilColumnTotalValue::StaticClass()), column_(column) {}

TPersistent* TQuilColumnTotalValues::GetOwner() const { return column_; }

void TQuilColumnTotalValues::RestoreDefaults() {
  TUpdateGuard<TCollection> update(*this);
  for (int index = 0; index < Count(); ++index) Value(index)->RestoreDefaults();
}

void TQuilColumnTotalValues::Update(TCollectionItem*) {
  if (column_) column_->TotalChanged();
}

}  // namespace quil
