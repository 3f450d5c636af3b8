#include "framework/db/VariantField.h"

#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TVariantField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TVariantField", &TField::StaticClass()).Creates<TVariantField>();
  return meta;
}

const TMetaClass& TVariantField::ClassType() const { return StaticClass(); }

TVariantField::TVariantField(TComponent* owner) : TField(owner) { SetDataType(ftVariant); }

}  // namespace quil
