// TRegistryIniFile over QSettings' native store. Sections are child groups of the root,
// keys the values in them; names are matched case-insensitively on every platform,
// as the registry matches them.
//
// QSettings reads '/' (and on Windows '\') in a name as a group separator, where the
// registry allows both in a value name and '/' in a key name. So names are stored
// with '%', '/' and, in keys, '\' escaped as "%25", "%2F" and "%5C". A backslash in
// a section is left to the store: in the registry it is the path to a subkey.

#include <QSettings>
#include <QStringList>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/IniFiles.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Strings.h"

namespace quil {

namespace {

std::unique_ptr<QSettings> OpenRoot(const QString& rootKey) {
  QStringList names = rootKey.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
#ifdef _WIN32
  return std::make_unique<QSettings>(QStringLiteral("HKEY_CURRENT_USER\\") + names.join(QLatin1Char('\\')),
                                     QSettings::NativeFormat);
#else
  if (!names.isEmpty() && names.first().compare(QLatin1String("Software"), Qt::CaseInsensitive) == 0)
    names.removeFirst();
  const QString organization = names.value(0);
  const QString application = names.mid(1).join(QLatin1Char('/'));
  return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, organization,
                                     application);
#endif
}

enum TNameKind { nkSection, nkKey };

QString EncodeName(const QString& name, TNameKind kind) {
  QString stored;
  for (const QChar ch : name) {
    if (ch == u'%') stored += QLatin1String("%25");
    else if (ch == u'/') stored += QLatin1String("%2F");
    else if (ch == u'\\' && kind == nkKey) stored += QLatin1String("%5C");
    else stored += ch;
  }
  return stored;
}

// The character an escape at the start of code stands for, or a null character.
QChar Unescaped(QStringView code) {
  if (code.size() < 3 || code[0] != u'%') return {};
  const QString hex = code.mid(1, 2).toString().toUpper();
  if (hex == QLatin1String("25")) return u'%';
  if (hex == QLatin1String("2F")) return u'/';
  if (hex == QLatin1String("5C")) return u'\\';
  return {};
}

QString DecodeName(const QString& stored) {
  QString name;
  for (qsizetype pos = 0; pos < stored.size(); ++pos) {
    const QChar escaped = Unescaped(QStringView(stored).mid(pos));
    name += escaped.isNull() ? stored[pos] : escaped;
    if (!escaped.isNull()) pos += 2;
  }
  return name;
}

QStringList DecodeNames(const QStringList& stored) {
  QStringList names;
  for (const QString& name : stored) names << DecodeName(name);
  return names;
}

// The stored spelling of name, matched without regard to case; a new name is encoded.
QString FindName(const QStringList& stored, const QString& name, TNameKind kind) {
  for (const QString& candidate : stored)
    if (DecodeName(candidate).compare(name, Qt::CaseInsensitive) == 0) return candidate;
  return EncodeName(name, kind);
}

}  // namespace

const TMetaClass& TRegistryIniFile::StaticClass() {
  static const TMetaClass meta("TRegistryIniFile", &TCustomIniFile::StaticClass());
  return meta;
}

const TMetaClass& TRegistryIniFile::ClassType() const { return StaticClass(); }

TRegistryIniFile::TRegistryIniFile(const QString& rootKey)
    : TCustomIniFile(rootKey), settings_(OpenRoot(rootKey)) {}

TRegistryIniFile::~TRegistryIniFile() = default;

QString TRegistryIniFile::StoredSection(const QString& section) const {
  return FindName(settings_->childGroups(), section, nkSection);
}

QString TRegistryIniFile::StoredPath(const QString& section, const QString& ident) const {
  const QString storedSection = StoredSection(section);
  settings_->beginGroup(storedSection);
  const QStringList keys = settings_->childKeys();
  settings_->endGroup();
  return storedSection + QLatin1Char('/') + FindName(keys, ident, nkKey);
}

QString TRegistryIniFile::ReadString(const QString& section, const QString& ident,
                                     const QString& defaultValue) const {
  const QString path = StoredPath(section, ident);
  return settings_->contains(path) ? settings_->value(path).toString() : defaultValue;
}

void TRegistryIniFile::WriteString(const QString& section, const QString& ident, const QString& value) {
  settings_->setValue(StoredPath(section, ident), value);
}

void TRegistryIniFile::WriteInteger(const QString& section, const QString& ident, int value) {
  settings_->setValue(StoredPath(section, ident), value);
}

void TRegistryIniFile::ReadSection(const QString& section, TStrings* keys) const {
  settings_->beginGroup(StoredSection(section));
  const QStringList stored = settings_->childKeys();
  settings_->endGroup();
  SetLines(keys, DecodeNames(stored));
}

void TRegistryIniFile::ReadSections(TStrings* sections) const {
  SetLines(sections, DecodeNames(settings_->childGroups()));
}

void TRegistryIniFile::ReadSectionValues(const QString& section, TStrings* values) const {
  settings_->beginGroup(StoredSection(section));
  QStringList lines;
  for (const QString& key : settings_->childKeys())
    lines << DecodeName(key) + QLatin1Char('=') + settings_->value(key).toString();
  settings_->endGroup();
  SetLines(values, lines);
}

void TRegistryIniFile::EraseSection(const QString& section) {
  const QString storedSection = StoredSection(section);
  if (settings_->childGroups().contains(storedSection)) settings_->remove(storedSection);
}

void TRegistryIniFile::DeleteKey(const QString& section, const QString& ident) {
  settings_->remove(StoredPath(section, ident));
}

void TRegistryIniFile::UpdateFile() {
  settings_->sync();
  if (settings_->status() != QSettings::NoError) throw EIniFileException(Format(SIniFileWriteError, {FileName()}));
}

}  // namespace quil
