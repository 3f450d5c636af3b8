#include "framework/db/BinaryFields.h"

namespace quil {

const TMetaClass& TBinaryField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBinaryField", &TField::StaticClass());
  return meta;
}

const TMetaClass& TBinaryField::ClassType() const { return StaticClass(); }

TBinaryField::TBinaryField(TComponent* owner, TFieldType type) : TField(owner) { SetDataType(type); }

QByteArray TBinaryField::AsBytes() const {
  if (NativeKind() == TNativeKind::String) return GetAsString().toUtf8();
  QByteArray value;
  GetData(&value);
  return value;
}

void TBinaryField::SetAsBytes(const QByteArray& value) {
  if (value.isEmpty() && EmptyIsNull()) Clear();
  else if (NativeKind() == TNativeKind::String) SetAsString(QString::fromUtf8(value));
  else SetData(&value);
}

QString TBinaryField::GetAsString() const { return QString::fromLatin1(AsBytes()); }
void TBinaryField::SetAsStringValue(const QString& value) { SetAsBytes(value.toLatin1()); }

const TMetaClass& TBytesField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBytesField", &TBinaryField::StaticClass()).Creates<TBytesField>();
  return meta;
}

const TMetaClass& TBytesField::ClassType() const { return StaticClass(); }

const TMetaClass& TVarBytesField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TVarBytesField", &TBinaryField::StaticClass()).Creates<TVarBytesField>();
  return meta;
}

const TMetaClass& TVarBytesField::ClassType() const { return StaticClass(); }

const TMetaClass& TBlobField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBlobField", &TBinaryField::StaticClass()).Creates<TBlobField>();
  return meta;
}

const TMetaClass& TBlobField::ClassType() const { return StaticClass(); }

QString TBlobField::GetAsString() const {
  if (NativeKind() != TNativeKind::String) return TBinaryField::GetAsString();
  QString value;
  GetData(&value);
  return value;
}

void TBlobField::SetAsStringValue(const QString& value) {
  if (value.isEmpty()) Clear();
  else if (NativeKind() != TNativeKind::String) TBinaryField::SetAsStringValue(value);
  else SetData(&value);
}

void TBlobField::GetText(QString& text, bool displayText) const {
  if (!displayText) {
    text = GetAsString();
    return;
  }
  const QString name = QLatin1Char('(') + BlobTypeName() + QLatin1Char(')');
  text = IsNull() ? name.toLower() : name;
}

const TMetaClass& TMemoField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TMemoField", &TBlobField::StaticClass()).Creates<TMemoField>();
  return meta;
}

const TMetaClass& TMemoField::ClassType() const { return StaticClass(); }

const TMetaClass& TWideMemoField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TWideMemoField", &TMemoField::StaticClass()).Creates<TWideMemoField>();
  return meta;
}

const TMetaClass& TWideMemoField::ClassType() const { return StaticClass(); }

const TMetaClass& TGraphicField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TGraphicField", &TBlobField::StaticClass()).Creates<TGraphicField>();
  return meta;
}

const TMetaClass& TGraphicField::ClassType() const { return StaticClass(); }

}  // namespace quil
