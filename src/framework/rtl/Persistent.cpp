#include "framework/rtl/Persistent.h"

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

const TMetaClass& TPersistent::StaticClass() {
  static const TMetaClass meta("TPersistent", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TPersistent::ClassType() const { return StaticClass(); }

namespace {
[[noreturn]] void RaiseAssignError(const QString& sourceClass, const QString& destClass) {
  throw EConvertError(Format(SAssignError, {sourceClass, destClass}));
}
}  // namespace

void TPersistent::Assign(const TPersistent* source) {
  if (!source) RaiseAssignError(QStringLiteral("nil"), ClassName());
  source->AssignTo(this);
}

void TPersistent::AssignTo(TPersistent* dest) const {
  RaiseAssignError(ClassName(), dest ? dest->ClassName() : QStringLiteral("nil"));
}

QString TPersistent::GetNamePath() const {
  QString path = ClassName();
  if (const TPersistent* owner = GetOwner()) {
    const QString ownerPath = owner->GetNamePath();
    if (!ownerPath.isEmpty()) path = ownerPath + QLatin1Char('.') + path;
  }
  return path;
}

}  // namespace quil
