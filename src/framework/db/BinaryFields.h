#pragma once
// Byte and blob fields. Bytes and blobs are native QByteArray; memos are native
// QString. As text, bytes read as Latin-1. A blob's display text names its kind,
// "(BLOB)", or "(blob)" when it is empty, as grids show it.
//
// A blob has no empty value apart from Null: writing no bytes or an empty text to a
// blob, memo or graphic clears it. Fixed and variable byte fields keep an empty value.

#include <QByteArray>

#include "framework/db/Field.h"

namespace quil {

class TBinaryField : public TField {
public:
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  QByteArray AsBytes() const;
  void SetAsBytes(const QByteArray& value);

protected:
  TBinaryField(TComponent* owner, TFieldType type);
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  void SetVarValue(const Variant& value) override { SetAsString(value.AsString()); }
  // Whether an empty value is stored as Null.
  virtual bool EmptyIsNull() const { return false; }
};

class TBytesField : public TBinaryField {
public:
  explicit TBytesField(TComponent* owner) : TBinaryField(owner, ftBytes) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TVarBytesField : public TBinaryField {
public:
  explicit TVarBytesField(TComponent* owner) : TBinaryField(owner, ftVarBytes) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TBlobField : public TBinaryField {
public:
  explicit TBlobField(TComponent* owner) : TBlobField(owner, ftBlob) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The kind's name in display texts.
  virtual QString BlobTypeName() const { return QStringLiteral("BLOB"); }

protected:
  TBlobField(TComponent* owner, TFieldType type) : TBinaryField(owner, type) {}
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  void GetText(QString& text, bool displayText) const override;
  bool EmptyIsNull() const override { return true; }
};

class TMemoField : public TBlobField {
public:
  explicit TMemoField(TComponent* owner) : TBlobField(owner, ftMemo) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
  QString BlobTypeName() const override { return QStringLiteral("MEMO"); }

protected:
  TMemoField(TComponent* owner, TFieldType type) : TBlobField(owner, type) {}
};

class TWideMemoField : public TMemoField {
public:
  explicit TWideMemoField(TComponent* owner) : TMemoField(owner, ftWideMemo) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
  QString BlobTypeName() const override { return QStringLiteral("WIDEMEMO"); }
};

class TGraphicField : public TBlobField {
public:
  explicit TGraphicField(TComponent* owner) : TBlobField(owner, ftGraphic) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
  QString BlobTypeName() const override { return QStringLiteral("GRAPHIC"); }
};

}  // namespace quil
