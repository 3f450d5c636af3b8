#pragma once
// Initialization files: sections of Key=Value entries, reached through one interface
// whatever holds them.
//
// TMemIniFile holds the whole file in memory and writes it on UpdateFile. TIniFile
// goes to the file for every call, as the platform's profile functions do, so that
// several objects on one file see each other's writes. TRegistryIniFile keeps the
// sections as subkeys of a root key in the platform's settings store: the registry
// on Windows, a native settings file elsewhere.
//
// Text form: "[Section]" lines, each followed by its "Key=Value" lines. On reading,
// lines are trimmed, key and value are trimmed around the first '=', and lines that
// are blank, start with ';' or stand before the first section are dropped; so
// comments do not survive a rewrite. A line in a section without '=' is kept and
// written back, but holds no key: values come only from Key=Value lines. Sections
// and keys are found case-insensitively and keep their order.

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "framework/rtl/DateTime.h"
#include "framework/rtl/Object.h"

class QSettings;

namespace quil {

struct TFormatSettings;
class TStrings;
class TStringList;

class TCustomIniFile : public TObject {
public:
  explicit TCustomIniFile(const QString& fileName) : fileName_(fileName) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& FileName() const { return fileName_; }

  // A missing key reads as defaultValue; a key with an empty value reads as empty.
  virtual QString ReadString(const QString& section, const QString& ident,
                             const QString& defaultValue) const = 0;
  virtual void WriteString(const QString& section, const QString& ident, const QString& value) = 0;
  // Decimal, or hexadecimal after "$" or "0x"; anything else reads as defaultValue.
  virtual int ReadInteger(const QString& section, const QString& ident, int defaultValue) const;
  virtual void WriteInteger(const QString& section, const QString& ident, int value);
  // An integer, non-zero meaning true; written as "1" or "0".
  bool ReadBool(const QString& section, const QString& ident, bool defaultValue) const;
  void WriteBool(const QString& section, const QString& ident, bool value);
  // In the current format settings; text that is no number reads as defaultValue.
  double ReadFloat(const QString& section, const QString& ident, double defaultValue) const;
  void WriteFloat(const QString& section, const QString& ident, double value);
  // As DateToStr, TimeToStr and DateTimeToStr write them; unreadable text reads as
  // defaultValue.
  TDateTime ReadDate(const QString& section, const QString& ident, TDateTime defaultValue) const;
  void WriteDate(const QString& section, const QString& ident, TDateTime value);
  TDateTime ReadTime(const QString& section, const QString& ident, TDateTime defaultValue) const;
  void WriteTime(const QString& section, const QString& ident, TDateTime value);
  TDateTime ReadDateTime(const QString& section, const QString& ident, TDateTime defaultValue) const;
  void WriteDateTime(const QString& section, const QString& ident, TDateTime value);

  // Each clears its list first. Keys of a section; names of all sections; the
  // section's entries as "Key=Value" lines.
  virtual void ReadSection(const QString& section, TStrings* keys) const = 0;
  virtual void ReadSections(TStrings* sections) const = 0;
  virtual void ReadSectionValues(const QString& section, TStrings* values) const = 0;
  // A section exists when it holds at least one key.
  bool SectionExists(const QString& section) const;
  bool ValueExists(const QString& section, const QString& ident) const;

  virtual void EraseSection(const QString& section) = 0;
  virtual void DeleteKey(const QString& section, const QString& ident) = 0;
  // Writes what is pending. A file that cannot be written raises EFCreateError from
  // TMemIniFile, EIniFileException from the others.
  virtual void UpdateFile() = 0;

protected:
  // Replaces the content of list with lines, in one update.
  static void SetLines(TStrings* list, const QStringList& lines);

private:
  // Text read by parse, or defaultValue when it is missing, empty or unreadable.
  using TryParse = bool (*)(const QString& text, double& value, const TFormatSettings& settings);
  double ReadParsed(const QString& section, const QString& ident, double defaultValue, TryParse parse) const;

  QString fileName_;
};

class TMemIniFile : public TCustomIniFile {
public:
  // Reads the file when it exists; raises EFOpenError when it exists but cannot be read.
  explicit TMemIniFile(const QString& fileName);
  ~TMemIniFile() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  QString ReadString(const QString& section, const QString& ident,
                     const QString& defaultValue) const override;
  void WriteString(const QString& section, const QString& ident, const QString& value) override;
  void ReadSection(const QString& section, TStrings* keys) const override;
  void ReadSections(TStrings* sections) const override;
  void ReadSectionValues(const QString& section, TStrings* values) const override;
  void EraseSection(const QString& section) override;
  void DeleteKey(const QString& section, const QString& ident) override;
  void UpdateFile() override;

  void Clear();
  // The text form, one line each, and back.
  void GetStrings(TStrings* lines) const;
  void SetStrings(const TStrings* lines);
  // False by default.
  bool CaseSensitive() const { return caseSensitive_; }
  void SetCaseSensitive(bool caseSensitive);

private:
  TStringList* FindSection(const QString& section) const;  // nullptr when none
  TStringList* AddSection(const QString& section);
  void LoadFile();

  std::unique_ptr<TStringList> sections_;  // section names, each owning its entry lines
  bool caseSensitive_ = false;
};

class TIniFile : public TCustomIniFile {
public:
  using TCustomIniFile::TCustomIniFile;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  QString ReadString(const QString& section, const QString& ident,
                     const QString& defaultValue) const override;
  void WriteString(const QString& section, const QString& ident, const QString& value) override;
  void ReadSection(const QString& section, TStrings* keys) const override;
  void ReadSections(TStrings* sections) const override;
  void ReadSectionValues(const QString& section, TStrings* values) const override;
  void EraseSection(const QString& section) override;
  void DeleteKey(const QString& section, const QString& ident) override;
  // Every write is on disk already.
  void UpdateFile() override {}

private:
  // Rereads the file, applies change and writes the file back; a failed write raises
  // EIniFileException.
  void Rewrite(const std::function<void(TMemIniFile&)>& change);
};

class TRegistryIniFile : public TCustomIniFile {
public:
  // rootKey: a key under the current user, such as "\Software\Company\Product". On
  // Windows that is the registry key; elsewhere the first name after "Software" is
  // the organization and the rest the application of a user-scope native settings
  // file (QSettings::setPath moves it).
  explicit TRegistryIniFile(const QString& rootKey);
  ~TRegistryIniFile() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  QString ReadString(const QString& section, const QString& ident,
                     const QString& defaultValue) const override;
  void WriteString(const QString& section, const QString& ident, const QString& value) override;
  // Stored as a number, as the registry's integer values are.
  void WriteInteger(const QString& section, const QString& ident, int value) override;
  void ReadSection(const QString& section, TStrings* keys) const override;
  void ReadSections(TStrings* sections) const override;
  void ReadSectionValues(const QString& section, TStrings* values) const override;
  void EraseSection(const QString& section) override;
  void DeleteKey(const QString& section, const QString& ident) override;
  void UpdateFile() override;

private:
  // The stored spelling of a section, or of section and key as a settings path,
  // matched case-insensitively; a name not stored yet stays as given.
  QString StoredSection(const QString& section) const;
  QString StoredPath(const QString& section, const QString& ident) const;

  std::unique_ptr<QSettings> settings_;
};

}  // namespace quil
