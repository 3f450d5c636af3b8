#include "framework/rtl/IniFiles.h"

#include <QFile>

#include "framework/rtl/Conversions.h"
#include "framework/rtl/DateFormat.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/UpdateGuard.h"

namespace quil {

const TMetaClass& TCustomIniFile::StaticClass() {
  static const TMetaClass meta("TCustomIniFile", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TCustomIniFile::ClassType() const { return StaticClass(); }

void TCustomIniFile::SetLines(TStrings* list, const QStringList& lines) {
  TUpdateGuard guard(*list);
  list->Clear();
  for (const QString& line : lines) list->Add(line);
}

int TCustomIniFile::ReadInteger(const QString& section, const QString& ident, int defaultValue) const {
  QString text = ReadString(section, ident, QString());
  if (text.size() > 2 && text[0] == QLatin1Char('0') && (text[1] == QLatin1Char('x') || text[1] == QLatin1Char('X')))
    text = QLatin1Char('$') + text.mid(2);
  return StrToIntDef(text, defaultValue);
}

void TCustomIniFile::WriteInteger(const QString& section, const QString& ident, int value) {
  WriteString(section, ident, IntToStr(value));
}

bool TCustomIniFile::ReadBool(const QString& section, const QString& ident, bool defaultValue) const {
  return ReadInteger(section, ident, defaultValue ? 1 : 0) != 0;
}

void TCustomIniFile::WriteBool(const QString& section, const QString& ident, bool value) {
  WriteString(section, ident, value ? QStringLiteral("1") : QStringLiteral("0"));
}

double TCustomIniFile::ReadParsed(const QString& section, const QString& ident, double defaultValue,
                                  TryParse parse) const {
  const QString text = ReadString(section, ident, QString());
  double value = defaultValue;
  return !text.isEmpty() && parse(text, value, FormatSettings) ? value : defaultValue;
}

double TCustomIniFile::ReadFloat(const QString& section, const QString& ident, double defaultValue) const {
  return ReadParsed(section, ident, defaultValue, &TryStrToFloat);
}

void TCustomIniFile::WriteFloat(const QString& section, const QString& ident, double value) {
  WriteString(section, ident, FloatToStr(value));
}

TDateTime TCustomIniFile::ReadDate(const QString& section, const QString& ident, TDateTime defaultValue) const {
  return ReadParsed(section, ident, defaultValue, &TryStrToDate);
}

void TCustomIniFile::WriteDate(const QString& section, const QString& ident, TDateTime value) {
  WriteString(section, ident, DateToStr(value));
}

TDateTime TCustomIniFile::ReadTime(const QString& section, const QString& ident, TDateTime defaultValue) const {
  return ReadParsed(section, ident, defaultValue, &TryStrToTime);
}

void TCustomIniFile::WriteTime(const QString& section, const QString& ident, TDateTime value) {
  WriteString(section, ident, TimeToStr(value));
}

TDateTime TCustomIniFile::ReadDateTime(const QString& section, const QString& ident,
                                       TDateTime defaultValue) const {
  return ReadParsed(section, ident, defaultValue, &TryStrToDateTime);
}

void TCustomIniFile::WriteDateTime(const QString& section, const QString& ident, TDateTime value) {
  WriteString(section, ident, DateTimeToStr(value));
}

bool TCustomIniFile::SectionExists(const QString& section) const {
  TStringList keys;
  ReadSection(section, &keys);
  return keys.Count() > 0;
}

bool TCustomIniFile::ValueExists(const QString& section, const QString& ident) const {
  TStringList keys;
  ReadSection(section, &keys);
  return keys.IndexOf(ident) >= 0;
}

const TMetaClass& TMemIniFile::StaticClass() {
  static const TMetaClass meta("TMemIniFile", &TCustomIniFile::StaticClass());
  return meta;
}

const TMetaClass& TMemIniFile::ClassType() const { return StaticClass(); }

TMemIniFile::TMemIniFile(const QString& fileName)
    : TCustomIniFile(fileName), sections_(std::make_unique<TStringList>()) {
  sections_->SetOwnsObjects(true);
  LoadFile();
}

TMemIniFile::~TMemIniFile() = default;

void TMemIniFile::LoadFile() {
  if (FileName().isEmpty() || !QFile::exists(FileName())) return;
  TStringList lines;
  lines.LoadFromFile(FileName());
  SetStrings(&lines);
}

TStringList* TMemIniFile::FindSection(const QString& section) const {
  const int index = sections_->IndexOf(section);
  return index >= 0 ? static_cast<TStringList*>(sections_->Objects(index)) : nullptr;
}

TStringList* TMemIniFile::AddSection(const QString& section) {
  if (TStringList* found = FindSection(section)) return found;
  auto* entries = new TStringList;
  entries->SetCaseSensitive(caseSensitive_);
  sections_->AddObject(section, entries);
  return entries;
}

QString TMemIniFile::ReadString(const QString& section, const QString& ident,
                                const QString& defaultValue) const {
  const TStringList* entries = FindSection(section);
  const int index = entries ? entries->IndexOfName(ident) : -1;
  return index >= 0 ? entries->ValueFromIndex(index) : defaultValue;
}

void TMemIniFile::WriteString(const QString& section, const QString& ident, const QString& value) {
  TStringList* entries = AddSection(section);
  const QString line = ident + QLatin1Char('=') + value;
  const int index = entries->IndexOfName(ident);
  if (index >= 0) entries->SetStrings(index, line);
  else entries->Add(line);
}

namespace {
// Lines of a section that hold no '=' are kept for the rewrite but are no entries.
bool IsEntry(const QString& line) { return line.contains(QLatin1Char('=')); }
}  // namespace

void TMemIniFile::ReadSection(const QString& section, TStrings* keys) const {
  QStringList names;
  if (const TStringList* entries = FindSection(section))
    for (int index = 0; index < entries->Count(); ++index)
      if (IsEntry(entries->Strings(index))) names << entries->Names(index);
  SetLines(keys, names);
}

void TMemIniFile::ReadSections(TStrings* sections) const {
  QStringList names;
  for (int index = 0; index < sections_->Count(); ++index) names << sections_->Strings(index);
  SetLines(sections, names);
}

void TMemIniFile::ReadSectionValues(const QString& section, TStrings* values) const {
  QStringList lines;
  if (const TStringList* entries = FindSection(section))
    for (int index = 0; index < entries->Count(); ++index)
      if (IsEntry(entries->Strings(index))) lines << entries->Strings(index);
  SetLines(values, lines);
}

void TMemIniFile::EraseSection(const QString& section) {
  const int index = sections_->IndexOf(section);
  if (index >= 0) sections_->Delete(index);
}

void TMemIniFile::DeleteKey(const QString& section, const QString& ident) {
  TStringList* entries = FindSection(section);
  const int index = entries ? entries->IndexOfName(ident) : -1;
  if (index >= 0) entries->Delete(index);
}

void TMemIniFile::UpdateFile() {
  TStringList lines;
  GetStrings(&lines);
  lines.SaveToFile(FileName());
}

void TMemIniFile::Clear() { sections_->Clear(); }

void TMemIniFile::GetStrings(TStrings* lines) const {
  QStringList text;
  for (int sectionIndex = 0; sectionIndex < sections_->Count(); ++sectionIndex) {
    text << QLatin1Char('[') + sections_->Strings(sectionIndex) + QLatin1Char(']');
    const auto* entries = static_cast<TStringList*>(sections_->Objects(sectionIndex));
    for (int entryIndex = 0; entryIndex < entries->Count(); ++entryIndex) text << entries->Strings(entryIndex);
    text << QString();
  }
  SetLines(lines, text);
}

void TMemIniFile::SetStrings(const TStrings* lines) {
  Clear();
  TStringList* entries = nullptr;
  for (int lineIndex = 0; lineIndex < lines->Count(); ++lineIndex) {
    const QString line = Trim(lines->Strings(lineIndex));
    if (line.isEmpty() || line.startsWith(QLatin1Char(';'))) continue;
    if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
      entries = AddSection(Trim(line.mid(1, line.size() - 2)));
      continue;
    }
    if (!entries) continue;
    const qsizetype separator = line.indexOf(QLatin1Char('='));
    entries->Add(separator < 0 ? line : Trim(line.left(separator)) + QLatin1Char('=') + Trim(line.mid(separator + 1)));
  }
}

void TMemIniFile::SetCaseSensitive(bool caseSensitive) {
  if (caseSensitive_ == caseSensitive) return;
  caseSensitive_ = caseSensitive;
  sections_->SetCaseSensitive(caseSensitive);
  for (int index = 0; index < sections_->Count(); ++index)
    static_cast<TStringList*>(sections_->Objects(index))->SetCaseSensitive(caseSensitive);
}

const TMetaClass& TIniFile::StaticClass() {
  static const TMetaClass meta("TIniFile", &TCustomIniFile::StaticClass());
  return meta;
}

const TMetaClass& TIniFile::ClassType() const { return StaticClass(); }

QString TIniFile::ReadString(const QString& section, const QString& ident,
                             const QString& defaultValue) const {
  return TMemIniFile(FileName()).ReadString(section, ident, defaultValue);
}

void TIniFile::WriteString(const QString& section, const QString& ident, const QString& value) {
  Rewrite([&](TMemIniFile& file) { file.WriteString(section, ident, value); });
}

void TIniFile::ReadSection(const QString& section, TStrings* keys) const {
  TMemIniFile(FileName()).ReadSection(section, keys);
}

void TIniFile::ReadSections(TStrings* sections) const { TMemIniFile(FileName()).ReadSections(sections); }

void TIniFile::ReadSectionValues(const QString& section, TStrings* values) const {
  TMemIniFile(FileName()).ReadSectionValues(section, values);
}

void TIniFile::EraseSection(const QString& section) {
  Rewrite([&](TMemIniFile& file) { file.EraseSection(section); });
}

void TIniFile::DeleteKey(const QString& section, const QString& ident) {
  Rewrite([&](TMemIniFile& file) { file.DeleteKey(section, ident); });
}

void TIniFile::Rewrite(const std::function<void(TMemIniFile&)>& change) {
  TMemIniFile file(FileName());
  change(file);
  try {
    file.UpdateFile();
  } catch (const EStreamError&) {
    throw EIniFileException(Format(SIniFileWriteError, {FileName()}));
  }
}

}  // namespace quil
