// SaveToFile and LoadFromFile of TCustomClientDataSet, in the JSON form that
// ClientDataSet.h describes. A file is read whole and checked before anything of the
// data set changes.

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "framework/db/ClientDataSet.h"
#include "framework/db/FieldDefs.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

namespace {

constexpr double kExactIntegerLimit = 9007199254740992.0;  // 2^53

QJsonValue ToJson(TNativeKind kind, const Variant& value) {
  if (VarIsNull(value) || VarIsEmpty(value)) return QJsonValue::Null;
  switch (kind) {
    case TNativeKind::Int32: return value.AsInteger();
    case TNativeKind::Int64: {
      const int64_t number = value.AsInt64();
      if (std::abs(double(number)) < kExactIntegerLimit) return double(number);
      return QString::number(number);
    }
    case TNativeKind::Double: case TNativeKind::Currency: return value.AsDouble();
    case TNativeKind::Boolean: return value.AsBoolean();
    case TNativeKind::Bytes: return QString::fromLatin1(value.AsString().toLatin1().toBase64());
    default: return value.AsString();
  }
}

[[noreturn]] void BadPacket(const QString& fileName) {
  DatabaseError(SInvalidDataPacket + QStringLiteral(" in \"") + fileName + QStringLiteral("\""));
}

Variant FromJson(TNativeKind kind, const QJsonValue& json, const QString& fileName) {
  if (json.isNull()) return Null();
  switch (kind) {
    case TNativeKind::Int32: case TNativeKind::Int64:
      if (json.isString()) {
        bool ok = false;
        const qint64 number = json.toString().toLongLong(&ok);
        if (!ok) BadPacket(fileName);
        return Variant(static_cast<long long>(number));
      }
      if (!json.isDouble()) BadPacket(fileName);
      return Variant(static_cast<long long>(json.toDouble()));
    case TNativeKind::Double: case TNativeKind::Currency:
      if (!json.isDouble()) BadPacket(fileName);
      return Variant(json.toDouble());
    case TNativeKind::Boolean:
      if (!json.isBool()) BadPacket(fileName);
      return Variant(json.toBool());
    case TNativeKind::Bytes:
      if (!json.isString()) BadPacket(fileName);
      return Variant(QString::fromLatin1(QByteArray::fromBase64(json.toString().toLatin1())));
    default:
      if (!json.isString()) BadPacket(fileName);
      return Variant(json.toString());
  }
}

QJsonArray OptionNames(TIndexOptions options) {
  QJsonArray names;
  for (int option = 0; option <= TypeInfo(TIndexOption()).MaxValue(); ++option)
    if (options.Contains(TIndexOption(option))) names.append(TypeInfo(TIndexOption()).NameOf(option));
  return names;
}

}  // namespace

// What a file holds, read and checked, before it replaces the data set's own.
class TClientDataSetFile {
public:
  static TClientDataSetFile Read(const QString& fileName);
  static QJsonObject Write(const TCustomClientDataSet& dataSet);
  void ApplyTo(TCustomClientDataSet& dataSet) const;

private:
  void ReadFields(const QJsonArray& fields, const QString& fileName);
  void ReadIndexes(const QJsonArray& indexes, const QString& fileName);

  std::vector<TCustomClientDataSet::TColumnDef> columnDefs_;
  struct TIndex {
    QString name, fields, descFields, caseInsFields;
    TIndexOptions options;
  };
  std::vector<TIndex> indexes_;
  std::vector<std::vector<Variant>> rows_;
};

TClientDataSetFile TClientDataSetFile::Read(const QString& fileName) {
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) DatabaseError(Format(SFOpenError, {fileName}));
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
  const QJsonObject root = document.object();
  if (error.error != QJsonParseError::NoError || root.value("format").toString() != "quil-dataset" ||
      root.value("version").toInt() != 1)
    BadPacket(fileName);
  TClientDataSetFile packet;
  packet.ReadFields(root.value("fields").toArray(), fileName);
  packet.ReadIndexes(root.value("indexes").toArray(), fileName);
  for (const QJsonValue& rowJson : root.value("rows").toArray()) {
    const QJsonArray cells = rowJson.toArray();
    if (!rowJson.isArray() || cells.size() != qsizetype(packet.columnDefs_.size())) BadPacket(fileName);
    std::vector<Variant> row;
    for (qsizetype column = 0; column < cells.size(); ++column)
      row.push_back(FromJson(NativeKindOf(packet.columnDefs_[size_t(column)].type), cells[column], fileName));
    packet.rows_.push_back(std::move(row));
  }
  return packet;
}

void TClientDataSetFile::ReadFields(const QJsonArray& fields, const QString& fileName) {
  if (fields.isEmpty()) BadPacket(fileName);
  for (const QJsonValue& value : fields) {
    const QJsonObject field = value.toObject();
    const int type = TypeInfo(TFieldType()).ValueOf(field.value("type").toString());
    const QString name = field.value("name").toString();
    const bool structured = type == ftADT || type == ftArray;
    const int parent = field.value("parent").toInt(-1);
    const bool parentFits = parent < 0 || (size_t(parent) < columnDefs_.size() &&
                                           (columnDefs_[size_t(parent)].type == ftADT ||
                                            columnDefs_[size_t(parent)].type == ftArray));
    if (type < 0 || (NativeKindOf(TFieldType(type)) == TNativeKind::None && !structured) || name.isEmpty() ||
        !parentFits)
      BadPacket(fileName);
    columnDefs_.push_back(
        {TFieldType(type), name, field.value("size").toInt(), field.value("required").toBool(), parent});
  }
}

void TClientDataSetFile::ReadIndexes(const QJsonArray& indexes, const QString& fileName) {
  for (const QJsonValue& value : indexes) {
    const QJsonObject index = value.toObject();
    TIndex def{index.value("name").toString(), index.value("fields").toString(),
               index.value("descFields").toString(), index.value("caseInsFields").toString(), {}};
    for (const QJsonValue& option : index.value("options").toArray()) {
      const int ordinal = TypeInfo(TIndexOption()).ValueOf(option.toString());
      if (ordinal < 0) BadPacket(fileName);
      def.options.Include(TIndexOption(ordinal));
    }
    if (def.name.isEmpty()) BadPacket(fileName);
    indexes_.push_back(def);
  }
}

QJsonObject TClientDataSetFile::Write(const TCustomClientDataSet& dataSet) {
  QJsonArray fields;
  for (const TCustomClientDataSet::TColumnDef& def : dataSet.columnDefs_) {
    QJsonObject field{{"name", def.name}, {"type", TypeInfo(TFieldType()).NameOf(def.type)}, {"size", def.size},
                      {"required", def.required}};
    if (def.parent >= 0) field.insert("parent", def.parent);
    fields.append(field);
  }
  QJsonArray indexes;
  for (int index = 0; index < dataSet.indexDefs_->Count(); ++index) {
    const TIndexDef* def = dataSet.indexDefs_->Items(index);
    indexes.append(QJsonObject{{"name", def->Name()}, {"fields", def->Fields()}, {"descFields", def->DescFields()},
                               {"caseInsFields", def->CaseInsFields()}, {"options", OptionNames(def->Options())}});
  }
  QJsonArray rows;
  for (int32_t row : dataSet.natural_) {
    QJsonArray cells;
    for (const TClientColumn& column : dataSet.columns_) cells.append(ToJson(column.Kind(), column.Value(row)));
    rows.append(cells);
  }
  return QJsonObject{{"format", "quil-dataset"}, {"version", 1}, {"fields", fields}, {"indexes", indexes},
                     {"rows", rows}};
}

void TClientDataSetFile::ApplyTo(TCustomClientDataSet& dataSet) const {
  dataSet.TakeColumnDefs(columnDefs_);
  dataSet.ResetStore();
  for (const std::vector<Variant>& row : rows_) dataSet.natural_.push_back(dataSet.AppendRow(row));
  dataSet.IndexDefs()->Clear();
  for (const TIndex& index : indexes_) {
    TIndexDef* def = dataSet.IndexDefs()->AddIndexDef();
    def->SetName(index.name);
    def->SetFields(index.fields);
    def->SetDescFields(index.descFields);
    def->SetCaseInsFields(index.caseInsFields);
    def->SetOptions(index.options);
  }
  dataSet.FieldDefs()->Clear();
}

// --- The data set's side --------------------------------------------------------------

void TCustomClientDataSet::ReadFile(const QString& fileName) { TClientDataSetFile::Read(fileName).ApplyTo(*this); }

void TCustomClientDataSet::LoadFromFile(const QString& fileName) {
  const QString path = fileName.isEmpty() ? fileName_ : fileName;
  const TClientDataSetFile packet = TClientDataSetFile::Read(path);
  Close();
  packet.ApplyTo(*this);
  Open();
}

void TCustomClientDataSet::SaveToFile(const QString& fileName) {
  if (!hasData_) DatabaseError(SMissingDataPacket, this);
  if (Active()) CheckBrowseMode();
  const QString path = fileName.isEmpty() ? fileName_ : fileName;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) DatabaseError(Format(SFCreateError, {path}), this);
  file.write(QJsonDocument(TClientDataSetFile::Write(*this)).toJson(QJsonDocument::Compact));
}

}  // namespace quil
