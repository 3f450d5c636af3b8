#include <QStringList>
#include <bit>
#include <cstring>
#include <memory>

#include "framework/rtl/Collections.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Extended.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"

namespace quil {

QString SPropertyException = QStringLiteral("Error reading %s%s%s: %s");
QString SInvalidBinary = QStringLiteral("Invalid binary value");
QString SMethodNotFound = QStringLiteral("Method %s not found");
QString SAncestorNotFound = QStringLiteral("Ancestor for '%s' not found");
QString SUnsupportedVariant = QStringLiteral("Unsupported variant type");

namespace {

constexpr char kSignature[4] = {'T', 'P', 'F', '0'};
// Deeper nesting than this is damaged or hostile input: refused before the stack ends.
constexpr int kMaxNesting = 512;

class TNestingGuard {
public:
  explicit TNestingGuard(int& depth) : depth_(depth) {
    if (++depth_ > kMaxNesting) {
      --depth_;
      throw EReadError(SReadError);
    }
  }
  TNestingGuard(const TNestingGuard&) = delete;
  TNestingGuard& operator=(const TNestingGuard&) = delete;
  ~TNestingGuard() { --depth_; }

private:
  int& depth_;
};

template <typename T>
T ReadLE(TReader& reader) {
  uint8_t bytes[sizeof(T)];
  reader.Read(bytes, sizeof(T));
  uint64_t value = 0;
  for (size_t index = sizeof(T); index-- > 0;) value = (value << 8) | bytes[index];
  return T(value);
}

QString InstanceName(const TPersistent* instance) {
  auto* component = dynamic_cast<const TComponent*>(instance);
  if (component && !component->Name().isEmpty()) return component->Name();
  return instance->ClassName();
}

bool IsIntegerValue(TValueType value) {
  return value == vaInt8 || value == vaInt16 || value == vaInt32 || value == vaInt64;
}

}  // namespace

const TMetaClass& TReader::StaticClass() {
  static const TMetaClass meta("TReader", &TFiler::StaticClass());
  return meta;
}

const TMetaClass& TReader::ClassType() const { return StaticClass(); }

void TReader::DefineProperty(const QString& name, const TReaderProc& readData,
                             const TWriterProc& writeData, bool hasData) {
  if (!readData || name.compare(propName_, Qt::CaseInsensitive) != 0) return;
  readData(*this);
  propName_.clear();
}

void TReader::DefineBinaryProperty(const QString& name, const TStreamProc& readData,
                                   const TStreamProc& writeData, bool hasData) {
  if (!readData || name.compare(propName_, Qt::CaseInsensitive) != 0) return;
  if (NextValue() != vaBinary) {
    SkipValue();
    throw EReadError(SInvalidBinary);
  }
  ReadValue();
  const int32_t count = ReadLE<int32_t>(*this);
  if (count < 0 || count > stream_.Size() - stream_.Position()) throw EReadError(SReadError);
  TMemoryStream data;
  data.SetSize(count);
  Read(data.Memory(), count);
  readData(data);
  propName_.clear();
}

// --- Components -----------------------------------------------------------------------

TComponent* TReader::ReadRootComponent(TComponent* root) {
  ReadSignature();
  int childPos = 0;
  ReadPrefix(childPos);
  std::unique_ptr<TComponent> created;
  if (!root) {
    created.reset(CreateComponent(ReadStr()));
    root = created.get();
  } else {
    ReadStr();  // the class is the one given
  }
  root->Loading();
  root->IncludeState(csReading);
  loaded_ = {root};
  // A given root outlives a failure, and must not stay marked as loading.
  TScopeExit cleanUp([&] {
    if (created || loaded_.empty()) return;
    root->ExcludeState(csReading);
    root->ExcludeState(csLoading);
    loaded_.clear();
  });
  root->SetName(ReadStr());
  root_ = root;
  owner_ = root;
  ReadData(root);
  root->ExcludeState(csReading);
  const std::vector<TComponent*> loaded = std::move(loaded_);
  loaded_.clear();
  for (TComponent* component : loaded) component->Loaded();
  return created ? created.release() : root;
}

void TReader::ReadSignature() {
  char signature[4];
  Read(signature, sizeof(signature));
  if (std::memcmp(signature, kSignature, sizeof(signature)) != 0) throw EReadError(SInvalidImage);
}

TFilerFlags TReader::ReadPrefix(int& childPos) {
  uint8_t prefix = 0;
  Read(&prefix, 1);
  if ((prefix & 0xF0) != 0xF0) {
    stream_.Seek(-1, soCurrent);
    return TFilerFlags();
  }
  const TFilerFlags flags = TFilerFlags::FromInt(prefix & 0x0F);
  if (flags.Contains(ffChildPos)) childPos = ReadInteger();
  return flags;
}

TComponent* TReader::ReadComponent(TComponent* component) {
  TNestingGuard nesting(nesting_);
  int childPos = 0;
  const TFilerFlags flags = ReadPrefix(childPos);
  const QString className = ReadStr();
  const QString name = ReadStr();
  std::unique_ptr<TComponent> created;
  if (!component && flags.Contains(ffInherited)) {
    component = owner_ ? owner_->FindComponent(name) : nullptr;
    if (!component) throw EReadError(Format(SAncestorNotFound, {name}));
  } else if (!component) {
    created.reset(CreateComponent(className));
    component = created.get();
  }
  component->Loading();
  if (!flags.Contains(ffInherited)) component->SetName(name);
  component->IncludeState(csReading);
  if (parent_) component->SetParentComponent(parent_);
  ReadData(component);
  component->ExcludeState(csReading);
  loaded_.push_back(component);
  created.release();
  return component;
}

TComponent* TReader::CreateComponent(const QString& className) {
  const TMetaClass& meta = FindClass(className);
  if (!meta.InheritsFrom(TComponent::StaticClass()))
    throw EClassNotFound(Format(SClassNotFound, {className}));
  return static_cast<TComponent*>(meta.Create(owner_));
}

void TReader::ReadData(TComponent* instance) {
  ++fixupDepth_;
  // After a failure the fixups name objects that may be gone.
  TScopeExit leave([this] {
    if (--fixupDepth_ == 0) fixups_.clear();
  });
  ReadDataInner(instance);
  if (fixupDepth_ == 1) DoFixupReferences();
}

void TReader::ReadDataInner(TComponent* instance) {
  while (!EndOfList()) ReadProperty(instance);
  ReadListEnd();
  ReadChildren(instance);
}

void TReader::ReadChildren(TComponent* instance) {
  TComponent* const savedParent = parent_;
  TComponent* const savedOwner = owner_;
  TScopeExit restore([&] {
    parent_ = savedParent;
    owner_ = savedOwner;
  });
  parent_ = instance->GetChildParent();
  owner_ = instance->GetChildOwner();
  if (!owner_) owner_ = root_;
  while (!EndOfList()) ReadComponent(nullptr);
  ReadListEnd();
}

// --- Properties -----------------------------------------------------------------------

void TReader::ReadProperty(TPersistent* instance) {
  const QString path = ReadStr();
  try {
    TPersistent* target = ResolvePropPath(instance, path);
    if (const TPropInfo* prop = target->ClassType().FindProperty(propName_)) {
      ReadPropValue(target, *prop);
      return;
    }
    target->DefineProperties(this);
    if (!propName_.isEmpty()) {
      SkipValue();
      throw EReadError(Format(SUnknownProperty, {propName_}));
    }
  } catch (const Exception& error) {
    throw EReadError(Format(SPropertyException,
                            {InstanceName(instance), QStringLiteral("."), path, error.Message()}));
  }
}

// The object that holds the last name of path, which goes to propName_.
TPersistent* TReader::ResolvePropPath(TPersistent* instance, const QString& path) {
  const QStringList names = path.split(QLatin1Char('.'));
  propName_ = names.last();
  TPersistent* current = instance;
  for (qsizetype index = 0; index + 1 < names.size(); ++index) {
    auto* prop = dynamic_cast<const TClassPropInfo*>(current->ClassType().FindProperty(names[index]));
    current = prop ? dynamic_cast<TPersistent*>(prop->Get(current)) : nullptr;
    if (!current) {
      SkipValue();
      throw EReadError(Format(SUnknownProperty, {names[index]}));
    }
  }
  return current;
}

void TReader::ReadPropValue(TPersistent* instance, const TPropInfo& prop) {
  // An object property may be read-only: its object takes the values in place.
  if (prop.IsReadOnly() && prop.Kind() != tkClass) {
    SkipValue();
    throw EReadError(SReadOnlyProperty);
  }
  switch (prop.Kind()) {
    case tkInteger:
    case tkInt64:
    case tkWChar:
    case tkEnumeration:
    case tkSet:
      return ReadOrdValue(instance, prop);
    case tkFloat:
      return dynamic_cast<const TFloatPropInfo&>(prop).Set(instance, ReadFloat());
    case tkString:
    case tkLString:
    case tkWString:
    case tkUString:
      return dynamic_cast<const TStrPropInfo&>(prop).Set(instance, ReadString());
    case tkClass:
      return ReadObjectValue(instance, prop);
    case tkMethod:
      return ReadMethodValue(instance, prop);
    case tkVariant:
      return dynamic_cast<const TVariantPropInfo&>(prop).Set(instance, ReadVariant());
    default:
      SkipValue();
      throw EReadError(Format(SInvalidPropertyType, {prop.Name()}));
  }
}

void TReader::ReadOrdValue(TPersistent* instance, const TPropInfo& prop) {
  const TTypeInfo& type = prop.PropType();
  int64_t value = 0;
  if (auto* enumType = dynamic_cast<const TEnumTypeInfo*>(&type)) {
    value = enumType->ValueOf(ReadIdent());
    if (value < 0) PropValueError();
  } else if (auto* setType = dynamic_cast<const TSetTypeInfo*>(&type)) {
    value = int64_t(ReadSet(*setType));
  } else if (type.Kind() == tkWChar) {
    const QString text = ReadString();
    if (text.size() != 1) PropValueError();
    value = text.at(0).unicode();
  } else if (NextValue() == vaIdent) {
    auto* intType = dynamic_cast<const TIntegerTypeInfo*>(&type);
    const std::optional<int64_t> named = intType ? intType->IdentToInt(ReadIdent()) : std::nullopt;
    if (!named) PropValueError();
    value = *named;
  } else {
    value = type.Kind() == tkInt64 ? ReadInt64() : ReadInteger();
  }
  dynamic_cast<const TOrdPropInfo&>(prop).Set(instance, value);
}

void TReader::ReadObjectValue(TPersistent* instance, const TPropInfo& prop) {
  const auto& objectProp = dynamic_cast<const TClassPropInfo&>(prop);
  switch (NextValue()) {
    case vaNil:
      ReadValue();
      objectProp.Set(instance, nullptr);
      return;
    case vaCollection: {
      auto* collection = dynamic_cast<TCollection*>(objectProp.Get(instance));
      if (!collection) {
        SkipValue();
        PropValueError();
      }
      ReadValue();
      ReadCollection(collection);
      return;
    }
    default:
      // The component may come later in the stream: resolved when the root is read.
      const QString name = ReadIdent();
      if (prop.IsReadOnly()) throw EReadError(SReadOnlyProperty);
      fixups_.push_back({instance, &prop, name});
  }
}

void TReader::ReadMethodValue(TPersistent* instance, const TPropInfo& prop) {
  const auto& method = dynamic_cast<const TMethodPropInfo&>(prop);
  if (NextValue() == vaNil) {
    ReadValue();
    method.Clear(instance);
    return;
  }
  const QString name = ReadIdent();
  if (!BindMethod) throw EReadError(Format(SMethodNotFound, {name}));
  BindMethod(instance, method, name);
}

void TReader::ReadCollection(TCollection* collection) {
  TUpdateGuard<TCollection> update(*collection);
  if (!EndOfList()) collection->Clear();
  while (!EndOfList()) {
    if (IsIntegerValue(NextValue())) ReadInteger();  // the order of an inherited item
    TCollectionItem* item = collection->Add();
    ReadListBegin();
    while (!EndOfList()) ReadProperty(item);
    ReadListEnd();
  }
  ReadListEnd();
}

void TReader::DoFixupReferences() {
  const std::vector<TFixup> fixups = std::move(fixups_);
  fixups_.clear();
  for (const TFixup& fixup : fixups) {
    TComponent* reference = FindNestedComponent(fixup.name);
    // Names of components outside this root stay unresolved, and the property unset.
    if (!reference) continue;
    try {
      dynamic_cast<const TClassPropInfo&>(*fixup.prop).Set(fixup.instance, reference);
    } catch (const Exception& error) {
      throw EReadError(Format(SPropertyException, {InstanceName(fixup.instance),
                                                   QStringLiteral("."), fixup.prop->Name(),
                                                   error.Message()}));
    }
  }
}

// "Name", "Name.SubName", or "Owner" for the component the path has reached.
TComponent* TReader::FindNestedComponent(const QString& path) const {
  TComponent* current = root_;
  for (const QString& name : path.split(QLatin1Char('.'))) {
    TComponent* found = current->FindComponent(name);
    if (!found && name.compare(QLatin1String("Owner"), Qt::CaseInsensitive) == 0) found = current;
    if (!found) return nullptr;
    current = found;
  }
  return current;
}

// --- Values ---------------------------------------------------------------------------

void TReader::Read(void* buffer, int64_t count) { stream_.ReadBuffer(buffer, count); }

// Unchecked: the byte may be a component's flags prefix, which is no value type.
TValueType TReader::NextValue() {
  uint8_t value = 0;
  Read(&value, 1);
  stream_.Seek(-1, soCurrent);
  return TValueType(value);
}

TValueType TReader::ReadValue() {
  uint8_t value = 0;
  Read(&value, 1);
  if (value > vaDouble) PropValueError();
  return TValueType(value);
}

void TReader::CheckValue(TValueType value) {
  if (ReadValue() != value) {
    stream_.Seek(-1, soCurrent);
    SkipValue();
    PropValueError();
  }
}

void TReader::PropValueError() { throw EReadError(SInvalidPropertyValue); }

QString TReader::ReadStr() {
  uint8_t length = 0;
  Read(&length, 1);
  QByteArray bytes(length, Qt::Uninitialized);
  Read(bytes.data(), length);
  return QString::fromUtf8(bytes);
}

QString TReader::ReadIdent() {
  switch (ReadValue()) {
    case vaIdent: return ReadStr();
    case vaFalse: return QStringLiteral("False");
    case vaTrue: return QStringLiteral("True");
    case vaNil: return QStringLiteral("nil");
    case vaNull: return QStringLiteral("Null");
    default: PropValueError();
  }
}

QString TReader::ReadString() {
  const TValueType type = ReadValue();
  int64_t length = 0;
  switch (type) {
    case vaString: length = ReadLE<uint8_t>(*this); break;
    case vaLString:
    case vaUTF8String: length = ReadLE<int32_t>(*this); break;
    case vaWString: length = int64_t(ReadLE<int32_t>(*this)) * 2; break;
    default: PropValueError();
  }
  // A damaged length must not make a huge buffer before the read fails.
  if (length < 0 || length > stream_.Size() - stream_.Position()) throw EReadError(SReadError);
  QByteArray bytes(qsizetype(length), Qt::Uninitialized);
  Read(bytes.data(), length);
  if (type == vaUTF8String) return QString::fromUtf8(bytes);
  if (type != vaWString) return QString::fromLatin1(bytes);  // ANSI text of older writers
  QString text(qsizetype(length / 2), Qt::Uninitialized);
  for (qsizetype index = 0; index < text.size(); ++index)
    text[index] = QChar(uint16_t(uint8_t(bytes[2 * index]) | (uint8_t(bytes[2 * index + 1]) << 8)));
  return text;
}

int TReader::ReadInteger() {
  switch (ReadValue()) {
    case vaInt8: return ReadLE<int8_t>(*this);
    case vaInt16: return ReadLE<int16_t>(*this);
    case vaInt32: return ReadLE<int32_t>(*this);
    default: PropValueError();
  }
}

int64_t TReader::ReadInt64() {
  if (NextValue() != vaInt64) return ReadInteger();
  ReadValue();
  return ReadLE<int64_t>(*this);
}

bool TReader::ReadBoolean() {
  const TValueType value = ReadValue();
  if (value != vaTrue && value != vaFalse) PropValueError();
  return value == vaTrue;
}

double TReader::ReadFloat() {
  switch (NextValue()) {
    case vaExtended: {
      ReadValue();
      TExtended80 bytes;
      Read(bytes.data(), int64_t(bytes.size()));
      return ExtendedToDouble(bytes);
    }
    case vaDouble:
    case vaDate:
      ReadValue();
      return std::bit_cast<double>(ReadLE<uint64_t>(*this));
    case vaSingle:
      return ReadSingle();
    default:
      return double(ReadInt64());
  }
}

float TReader::ReadSingle() {
  if (NextValue() != vaSingle) return float(ReadInt64());
  ReadValue();
  return std::bit_cast<float>(ReadLE<uint32_t>(*this));
}

Currency TReader::ReadCurrency() {
  if (NextValue() != vaCurrency) return Currency::FromScaled(ReadInt64() * Currency::Scale);
  ReadValue();
  return Currency::FromScaled(ReadLE<int64_t>(*this));
}

double TReader::ReadDate() {
  if (NextValue() != vaDate) return double(ReadInt64());
  ReadValue();
  return std::bit_cast<double>(ReadLE<uint64_t>(*this));
}

uint64_t TReader::ReadSet(const TSetTypeInfo& type) {
  if (ReadValue() != vaSet) {
    stream_.Seek(-1, soCurrent);
    SkipValue();
    PropValueError();
  }
  uint64_t bits = 0;
  for (QString name = ReadStr(); !name.isEmpty(); name = ReadStr()) {
    const int ordinal = type.CompType().ValueOf(name);
    if (ordinal < 0) {
      SkipSetBody();
      PropValueError();
    }
    bits |= uint64_t{1} << ordinal;
  }
  return bits;
}

Variant TReader::ReadVariant() {
  switch (NextValue()) {
    case vaNil:
      ReadValue();
      return Unassigned();
    case vaNull:
      ReadValue();
      return Null();
    case vaInt8:
    case vaInt16:
    case vaInt32:
      return Variant(ReadInteger());
    case vaInt64:
      return Variant(static_cast<long long>(ReadInt64()));
    case vaExtended:
    case vaDouble:
    case vaSingle:
      return Variant(ReadFloat());
    case vaCurrency:
      return Variant(ReadCurrency());
    case vaDate:
      return VarFromDateTime(ReadDate());
    case vaFalse:
    case vaTrue:
      return Variant(ReadBoolean());
    case vaString:
    case vaLString:
    case vaWString:
    case vaUTF8String:
      return Variant(ReadString());
    default:
      SkipValue();
      throw EReadError(SUnsupportedVariant);
  }
}

void TReader::SkipSetBody() {
  while (!ReadStr().isEmpty()) {
  }
}

void TReader::SkipBytes(int64_t count) {
  if (count < 0 || count > stream_.Size() - stream_.Position()) throw EReadError(SReadError);
  stream_.Seek(count, soCurrent);
}

void TReader::SkipValue() {
  TNestingGuard nesting(nesting_);
  switch (ReadValue()) {
    case vaNull: case vaFalse: case vaTrue: case vaNil: return;
    case vaList:
      while (!EndOfList()) SkipValue();
      return ReadListEnd();
    case vaInt8: return SkipBytes(1);
    case vaInt16: return SkipBytes(2);
    case vaInt32: case vaSingle: return SkipBytes(4);
    case vaInt64: case vaDouble: case vaCurrency: case vaDate: return SkipBytes(8);
    case vaExtended: return SkipBytes(10);
    case vaString: case vaIdent: return SkipBytes(ReadLE<uint8_t>(*this));
    case vaBinary: case vaLString: case vaUTF8String: return SkipBytes(ReadLE<int32_t>(*this));
    case vaWString: return SkipBytes(int64_t(ReadLE<int32_t>(*this)) * 2);
    case vaSet: return SkipSetBody();
    case vaCollection:
      while (!EndOfList()) {
        if (IsIntegerValue(NextValue())) SkipValue();
        ReadListBegin();
        while (!EndOfList()) {
          ReadStr();
          SkipValue();
        }
        ReadListEnd();
      }
      return ReadListEnd();
  }
}

}  // namespace quil
