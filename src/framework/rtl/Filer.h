#pragma once
// The component stream: TWriter writes a component, its published properties and its
// children in the binary format, and TReader makes them again.
//
//   stream    = "TPF0" component
//   component = [0xF0|flags [child position]] class-name name property* vaNull
//               component* vaNull
//   property  = name value        (names and identifiers: a length byte, then UTF-8)
//
// Values begin with a TValueType byte; numbers are little-endian. Integers take the
// smallest of vaInt8/16/32 (vaInt64 beyond); floats are 10-byte extended; booleans
// vaFalse/vaTrue; enumerations vaIdent; sets vaSet with member names up to an empty
// name; lists vaList .. vaNull; collections vaCollection, then per item [order] vaList
// properties vaNull, then vaNull; binary data vaBinary with a 32-bit length. Strings in
// ASCII are vaString (vaLString past 255 bytes), any others vaUTF8String; the reader
// also takes vaWString.
//
// An object property holding a component is written as the component's name (vaIdent)
// and resolved once the whole root is read; one holding any other persistent (a font)
// is written as its own properties under a dotted name ("Font.Name"); a collection as
// vaCollection. Properties equal to their default, or not stored, are left out.
//
// Reading: ReadRootComponent sets csLoading and csReading on every component it reads,
// clears csReading after each, then calls Loaded on all of them, root first. Writing
// sets csWriting on each component while it is written.

#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

#include "framework/rtl/Currency.h"
#include "framework/rtl/Object.h"
#include "framework/rtl/Sets.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TStream;
class TReader;
class TWriter;
class TPersistent;
class TComponent;
class TCollection;
class TPropInfo;
class TMethodPropInfo;
class TSetTypeInfo;

extern QString SPropertyException;  // %s%s%s: object, ".", property; %s: the message
extern QString SInvalidBinary;
extern QString SMethodNotFound;     // %s: the method name
extern QString SAncestorNotFound;   // %s: the component name
extern QString SUnsupportedVariant;

enum TValueType : uint8_t {
  vaNull, vaList, vaInt8, vaInt16, vaInt32, vaExtended, vaString, vaIdent, vaFalse, vaTrue,
  vaBinary, vaSet, vaLString, vaNil, vaCollection, vaSingle, vaCurrency, vaDate, vaWString,
  vaInt64, vaUTF8String, vaDouble
};

enum TFilerFlag { ffInherited, ffChildPos, ffInline };
using TFilerFlags = TSet<TFilerFlag>;

using TReaderProc = std::function<void(TReader& reader)>;
using TWriterProc = std::function<void(TWriter& writer)>;
using TStreamProc = std::function<void(TStream& stream)>;

class TFiler : public TObject {
public:
  explicit TFiler(TStream& stream) : stream_(stream) {}
  TFiler(const TFiler&) = delete;
  TFiler& operator=(const TFiler&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TStream& Stream() const { return stream_; }
  // The component whose owned components names refer to.
  TComponent* Root() const { return root_; }
  void SetRoot(TComponent* root) { root_ = root; }
  // What an inherited form's component looked like in its ancestor; a writer leaves out
  // what equals it. Null when there is no ancestor.
  TPersistent* Ancestor() const { return ancestor_; }
  void SetAncestor(TPersistent* ancestor) { ancestor_ = ancestor; }

  // Data with no published property (TPersistent::DefineProperties): a writer writes
  // it under name when hasData; a reader reads it when name is the property it reads.
  virtual void DefineProperty(const QString& name, const TReaderProc& readData,
                              const TWriterProc& writeData, bool hasData) = 0;
  virtual void DefineBinaryProperty(const QString& name, const TStreamProc& readData,
                                    const TStreamProc& writeData, bool hasData) = 0;

protected:
  TStream& stream_;
  TComponent* root_ = nullptr;
  TPersistent* ancestor_ = nullptr;
};

// Event handlers are streamed by name. A writer asks FindMethodName for the name of an
// assigned handler and leaves the property out when there is none; a reader hands a
// name to BindMethod, which assigns the handler through the typed TEventPropInfo.
using TFindMethodName = std::function<QString(const TObject* instance, const TMethodPropInfo& prop)>;
using TBindMethod =
    std::function<void(TObject* instance, const TMethodPropInfo& prop, const QString& name)>;

class TWriter : public TFiler {
public:
  explicit TWriter(TStream& stream) : TFiler(stream) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  void DefineProperty(const QString& name, const TReaderProc& readData,
                      const TWriterProc& writeData, bool hasData) override;
  void DefineBinaryProperty(const QString& name, const TStreamProc& readData,
                            const TStreamProc& writeData, bool hasData) override;

  // The signature, then root as the component that names refer to.
  void WriteRootComponent(TComponent* root);
  void WriteSignature();
  void WriteComponent(TComponent* component);
  void WritePrefix(TFilerFlags flags, int childPos);
  void WriteProperties(const TPersistent* instance);
  void WriteProperty(const TPersistent* instance, const TPropInfo& prop);
  void WriteCollection(const TCollection* collection);

  void WriteValue(TValueType value);
  void WriteListBegin() { WriteValue(vaList); }
  void WriteListEnd() { WriteValue(vaNull); }
  // A length byte and UTF-8, cut at 255 bytes: names of classes, components, properties.
  void WriteStr(const QString& value);
  // "False", "True", "nil" and "Null" become their own value types.
  void WriteIdent(const QString& value);
  void WriteString(const QString& value);
  void WriteWideString(const QString& value);
  void WriteInteger(int64_t value);
  void WriteBoolean(bool value) { WriteValue(value ? vaTrue : vaFalse); }
  void WriteFloat(double value);  // vaExtended
  void WriteDouble(double value);
  void WriteSingle(float value);
  void WriteCurrency(Currency value);
  void WriteDate(double value);
  void WriteSet(const TSetTypeInfo& type, uint64_t value);
  void WriteBinary(const TStreamProc& writeData);
  // Unassigned as vaNil, Null as vaNull; raises EWriteError for arrays.
  void WriteVariant(const Variant& value);
  void Write(const void* buffer, int64_t count);

  TFindMethodName FindMethodName;

private:
  void WriteData(TComponent* component);
  void WriteOrdProp(const TPersistent* instance, const TPropInfo& prop);
  void WriteObjectProp(const TPersistent* instance, const TPropInfo& prop);
  void WriteMethodProp(const TPersistent* instance, const TPropInfo& prop);
  void WritePropName(const QString& name);
  QString ComponentReference(const TComponent* component) const;

  QString propPath_;  // "Font." while a subobject's properties are written
};

class TReader : public TFiler {
public:
  explicit TReader(TStream& stream) : TFiler(stream) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  void DefineProperty(const QString& name, const TReaderProc& readData,
                      const TWriterProc& writeData, bool hasData) override;
  void DefineBinaryProperty(const QString& name, const TStreamProc& readData,
                            const TStreamProc& writeData, bool hasData) override;

  // Reads into root, or makes the root of the class the stream names (which must be
  // registered) when root is null. A root made here is freed again when reading fails.
  TComponent* ReadRootComponent(TComponent* root);
  void ReadSignature();
  // Reads into component, or makes one with Owner() as owner when it is null.
  TComponent* ReadComponent(TComponent* component);
  // The properties and children of a component whose header has been read.
  void ReadData(TComponent* instance);
  void ReadProperty(TPersistent* instance);
  void ReadCollection(TCollection* collection);
  TFilerFlags ReadPrefix(int& childPos);

  TValueType NextValue();
  TValueType ReadValue();
  // Raises EReadError unless the next value is of that type, which it consumes.
  void CheckValue(TValueType value);
  bool EndOfList() { return NextValue() == vaNull; }
  void ReadListBegin() { CheckValue(vaList); }
  void ReadListEnd() { CheckValue(vaNull); }
  QString ReadStr();
  // Also "False", "True", "nil" and "Null" for those value types.
  QString ReadIdent();
  QString ReadString();
  int ReadInteger();
  int64_t ReadInt64();
  bool ReadBoolean();
  // Any float or integer form.
  double ReadFloat();
  float ReadSingle();
  Currency ReadCurrency();
  double ReadDate();
  uint64_t ReadSet(const TSetTypeInfo& type);
  Variant ReadVariant();
  void SkipValue();
  void Read(void* buffer, int64_t count);

  TComponent* Owner() const { return owner_; }
  void SetOwner(TComponent* owner) { owner_ = owner; }
  TComponent* Parent() const { return parent_; }
  void SetParent(TComponent* parent) { parent_ = parent; }

  TBindMethod BindMethod;

private:
  struct TFixup {
    TPersistent* instance;
    const TPropInfo* prop;
    QString name;
  };

  void ReadDataInner(TComponent* instance);
  void ReadChildren(TComponent* instance);
  TComponent* CreateComponent(const QString& className);
  TPersistent* ResolvePropPath(TPersistent* instance, const QString& path);
  void ReadPropValue(TPersistent* instance, const TPropInfo& prop);
  void ReadOrdValue(TPersistent* instance, const TPropInfo& prop);
  void ReadObjectValue(TPersistent* instance, const TPropInfo& prop);
  void ReadMethodValue(TPersistent* instance, const TPropInfo& prop);
  void DoFixupReferences();
  TComponent* FindNestedComponent(const QString& path) const;
  [[noreturn]] void PropValueError();
  void SkipSetBody();
  void SkipBytes(int64_t count);

  TComponent* owner_ = nullptr;
  TComponent* parent_ = nullptr;
  QString propName_;  // the defined property wanted, emptied once one has read it
  std::vector<TFixup> fixups_;
  int fixupDepth_ = 0;  // ReadData nesting; the outermost resolves the references
  std::vector<TComponent*> loaded_;
  int nesting_ = 0;  // components and skipped lists being read
};

}  // namespace quil
