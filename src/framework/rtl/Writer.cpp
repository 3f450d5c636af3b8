#include <bit>

#include "framework/rtl/Collections.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Extended.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

namespace {

constexpr char kSignature[4] = {'T', 'P', 'F', '0'};

bool IsAscii(const QString& text) {
  for (QChar ch : text)
    if (ch.unicode() > 0x7F) return false;
  return true;
}

// Little-endian, whatever the host.
template <typename T>
void WriteLE(TWriter& writer, T value) {
  uint8_t bytes[sizeof(T)];
  for (size_t index = 0; index < sizeof(T); ++index) bytes[index] = uint8_t(uint64_t(value) >> (8 * index));
  writer.Write(bytes, sizeof(T));
}

}  // namespace

const TMetaClass& TFiler::StaticClass() {
  static const TMetaClass meta("TFiler", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TFiler::ClassType() const { return StaticClass(); }

const TMetaClass& TWriter::StaticClass() {
  static const TMetaClass meta("TWriter", &TFiler::StaticClass());
  return meta;
}

const TMetaClass& TWriter::ClassType() const { return StaticClass(); }

void TWriter::DefineProperty(const QString& name, const TReaderProc& readData,
                             const TWriterProc& writeData, bool hasData) {
  if (!hasData || !writeData) return;
  WritePropName(name);
  writeData(*this);
}

void TWriter::DefineBinaryProperty(const QString& name, const TStreamProc& readData,
                                   const TStreamProc& writeData, bool hasData) {
  if (!hasData || !writeData) return;
  WritePropName(name);
  WriteBinary(writeData);
}

// --- Components -----------------------------------------------------------------------

void TWriter::WriteRootComponent(TComponent* root) {
  root_ = root;
  WriteSignature();
  WriteComponent(root);
}

void TWriter::WriteSignature() { Write(kSignature, sizeof(kSignature)); }

void TWriter::WriteComponent(TComponent* component) {
  component->IncludeState(csWriting);
  TScopeExit done([component] { component->ExcludeState(csWriting); });
  WriteData(component);
}

void TWriter::WriteData(TComponent* component) {
  WritePrefix(TFilerFlags(), 0);
  WriteStr(component->ClassName());
  WriteStr(component->Name());
  WriteProperties(component);
  WriteListEnd();
  component->GetChildren([this](TComponent* child) { WriteComponent(child); }, root_);
  WriteListEnd();
}

void TWriter::WritePrefix(TFilerFlags flags, int childPos) {
  if (flags.Empty()) return;
  const uint8_t prefix = uint8_t(0xF0 | flags.ToInt());
  Write(&prefix, 1);
  if (flags.Contains(ffChildPos)) WriteInteger(childPos);
}

// --- Properties -----------------------------------------------------------------------

void TWriter::WriteProperties(const TPersistent* instance) {
  const TMetaClass& meta = instance->ClassType();
  for (int index = 0; index < meta.PropertyCount(); ++index) {
    const TPropInfo& prop = *meta.Property(index);
    if (prop.IsStored(instance)) WriteProperty(instance, prop);
  }
  // Defined properties only read through the filer; the instance stays as it was.
  const_cast<TPersistent*>(instance)->DefineProperties(this);
}

void TWriter::WriteProperty(const TPersistent* instance, const TPropInfo& prop) {
  // Only what can be read back is written.
  if (prop.IsReadOnly()) return;
  switch (prop.Kind()) {
    case tkInteger:
    case tkInt64:
    case tkWChar:
    case tkEnumeration:
    case tkSet:
      WriteOrdProp(instance, prop);
      break;
    case tkFloat:
      if (prop.IsDefaultValue(instance)) return;
      WritePropName(prop.Name());
      WriteFloat(dynamic_cast<const TFloatPropInfo&>(prop).Get(instance));
      break;
    case tkString:
    case tkLString:
    case tkWString:
    case tkUString:
      if (prop.IsDefaultValue(instance)) return;
      WritePropName(prop.Name());
      WriteString(dynamic_cast<const TStrPropInfo&>(prop).Get(instance));
      break;
    case tkClass:
      WriteObjectProp(instance, prop);
      break;
    case tkVariant:
      if (prop.IsDefaultValue(instance)) return;
      WritePropName(prop.Name());
      WriteVariant(dynamic_cast<const TVariantPropInfo&>(prop).Get(instance));
      break;
    case tkMethod:
      WriteMethodProp(instance, prop);
      break;
    default:
      break;
  }
}

void TWriter::WriteOrdProp(const TPersistent* instance, const TPropInfo& prop) {
  if (prop.IsDefaultValue(instance)) return;
  const int64_t value = dynamic_cast<const TOrdPropInfo&>(prop).Get(instance);
  WritePropName(prop.Name());
  const TTypeInfo& type = prop.PropType();
  if (auto* enumType = dynamic_cast<const TEnumTypeInfo*>(&type)) {
    WriteIdent(enumType->NameOf(value));  // booleans become vaFalse and vaTrue here
  } else if (auto* setType = dynamic_cast<const TSetTypeInfo*>(&type)) {
    WriteSet(*setType, uint64_t(value));
  } else if (type.Kind() == tkWChar) {
    WriteString(QString(QChar(char16_t(value))));
  } else {
    auto* intType = dynamic_cast<const TIntegerTypeInfo*>(&type);
    const std::optional<QString> ident = intType ? intType->IntToIdent(value) : std::nullopt;
    if (ident) WriteIdent(*ident);
    else WriteInteger(value);
  }
}

void TWriter::WriteObjectProp(const TPersistent* instance, const TPropInfo& prop) {
  TObject* value = dynamic_cast<const TClassPropInfo&>(prop).Get(instance);
  if (auto* component = dynamic_cast<TComponent*>(value)) {
    const QString reference = ComponentReference(component);
    if (reference.isEmpty()) return;
    WritePropName(prop.Name());
    WriteIdent(reference);
  } else if (auto* collection = dynamic_cast<TCollection*>(value)) {
    WritePropName(prop.Name());
    WriteCollection(collection);
  } else if (auto* persistent = dynamic_cast<TPersistent*>(value)) {
    const QString savedPath = propPath_;
    TScopeExit restore([&] { propPath_ = savedPath; });
    propPath_ += prop.Name() + QLatin1Char('.');
    WriteProperties(persistent);
  }
}

void TWriter::WriteMethodProp(const TPersistent* instance, const TPropInfo& prop) {
  const auto& method = dynamic_cast<const TMethodPropInfo&>(prop);
  if (!method.Assigned(instance) || !FindMethodName) return;
  const QString name = FindMethodName(instance, method);
  if (name.isEmpty()) return;
  WritePropName(prop.Name());
  WriteIdent(name);
}

// The name by which the reader finds component again from the root.
QString TWriter::ComponentReference(const TComponent* component) const {
  if (component->Owner() == root_) return component->Name();
  if (component == root_) return QStringLiteral("Owner");
  const TComponent* owner = component->Owner();
  if (owner && !owner->Name().isEmpty() && !component->Name().isEmpty())
    return owner->Name() + QLatin1Char('.') + component->Name();
  if (!component->Name().isEmpty()) return component->Name() + QStringLiteral(".Owner");
  return QString();
}

void TWriter::WriteCollection(const TCollection* collection) {
  WriteValue(vaCollection);
  const QString savedPath = propPath_;
  TScopeExit restore([&] { propPath_ = savedPath; });
  propPath_.clear();
  for (int index = 0; index < collection->Count(); ++index) {
    WriteListBegin();
    WriteProperties(collection->Items(index));
    WriteListEnd();
  }
  WriteListEnd();
}

void TWriter::WritePropName(const QString& name) { WriteStr(propPath_ + name); }

// --- Values ---------------------------------------------------------------------------

void TWriter::Write(const void* buffer, int64_t count) { stream_.WriteBuffer(buffer, count); }

void TWriter::WriteValue(TValueType value) {
  const uint8_t byte = value;
  Write(&byte, 1);
}

void TWriter::WriteStr(const QString& value) {
  QByteArray bytes = value.toUtf8();
  if (bytes.size() > 255) {
    qsizetype cut = 255;
    while (cut > 0 && (uint8_t(bytes[cut]) & 0xC0) == 0x80) --cut;  // not inside a character
    bytes.truncate(cut);
  }
  const uint8_t length = uint8_t(bytes.size());
  Write(&length, 1);
  Write(bytes.constData(), bytes.size());
}

void TWriter::WriteIdent(const QString& value) {
  if (value.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return WriteValue(vaFalse);
  if (value.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return WriteValue(vaTrue);
  if (value.compare(QLatin1String("Null"), Qt::CaseInsensitive) == 0) return WriteValue(vaNull);
  if (value.compare(QLatin1String("nil"), Qt::CaseInsensitive) == 0) return WriteValue(vaNil);
  WriteValue(vaIdent);
  WriteStr(value);
}

void TWriter::WriteString(const QString& value) {
  if (!IsAscii(value)) {
    const QByteArray bytes = value.toUtf8();
    WriteValue(vaUTF8String);
    WriteLE<int32_t>(*this, int32_t(bytes.size()));
    Write(bytes.constData(), bytes.size());
    return;
  }
  const QByteArray bytes = value.toLatin1();
  if (bytes.size() <= 255) {
    WriteValue(vaString);
    WriteLE<uint8_t>(*this, uint8_t(bytes.size()));
  } else {
    WriteValue(vaLString);
    WriteLE<int32_t>(*this, int32_t(bytes.size()));
  }
  Write(bytes.constData(), bytes.size());
}

void TWriter::WriteWideString(const QString& value) {
  WriteValue(vaWString);
  WriteLE<int32_t>(*this, int32_t(value.size()));
  for (QChar ch : value) WriteLE<uint16_t>(*this, ch.unicode());
}

void TWriter::WriteInteger(int64_t value) {
  if (value >= INT8_MIN && value <= INT8_MAX) {
    WriteValue(vaInt8);
    WriteLE<int8_t>(*this, int8_t(value));
  } else if (value >= INT16_MIN && value <= INT16_MAX) {
    WriteValue(vaInt16);
    WriteLE<int16_t>(*this, int16_t(value));
  } else if (value >= INT32_MIN && value <= INT32_MAX) {
    WriteValue(vaInt32);
    WriteLE<int32_t>(*this, int32_t(value));
  } else {
    WriteValue(vaInt64);
    WriteLE<int64_t>(*this, value);
  }
}

void TWriter::WriteFloat(double value) {
  WriteValue(vaExtended);
  const TExtended80 bytes = DoubleToExtended(value);
  Write(bytes.data(), int64_t(bytes.size()));
}

void TWriter::WriteDouble(double value) {
  WriteValue(vaDouble);
  WriteLE<uint64_t>(*this, std::bit_cast<uint64_t>(value));
}

void TWriter::WriteSingle(float value) {
  WriteValue(vaSingle);
  WriteLE<uint32_t>(*this, std::bit_cast<uint32_t>(value));
}

void TWriter::WriteCurrency(Currency value) {
  WriteValue(vaCurrency);
  WriteLE<int64_t>(*this, value.scaled);
}

void TWriter::WriteDate(double value) {
  WriteValue(vaDate);
  WriteLE<uint64_t>(*this, std::bit_cast<uint64_t>(value));
}

void TWriter::WriteSet(const TSetTypeInfo& type, uint64_t value) {
  WriteValue(vaSet);
  for (int ordinal = 0; ordinal < type.CompType().Count(); ++ordinal)
    if (value & (uint64_t{1} << ordinal)) WriteStr(type.CompType().NameOf(ordinal));
  WriteStr(QString());
}

void TWriter::WriteBinary(const TStreamProc& writeData) {
  TMemoryStream data;
  writeData(data);
  WriteValue(vaBinary);
  WriteLE<int32_t>(*this, int32_t(data.Size()));
  Write(data.Memory(), data.Size());
}

void TWriter::WriteVariant(const Variant& value) {
  switch (VarType(value)) {
    case varEmpty: return WriteValue(vaNil);
    case varNull: return WriteValue(vaNull);
    case varSmallint:
    case varInteger:
    case varInt64: return WriteInteger(value.AsInt64());
    case varDouble: return WriteFloat(value.AsDouble());
    case varCurrency: return WriteCurrency(value.AsCurrency());
    case varDate: return WriteDate(value.AsDateTime());
    case varBoolean: return WriteBoolean(value.AsBoolean());
    case varString: return WriteString(value.AsString());
    default: throw EWriteError(SUnsupportedVariant);
  }
}

}  // namespace quil
