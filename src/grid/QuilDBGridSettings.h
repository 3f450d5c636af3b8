#pragma once
// The user's column layout between runs: a list of Name=Value lines built from the grid
// and applied to it, kept in one section of an ini file or of the registry.
//
// Text form, in this order: AutoLoadLayout and AutoSaveLayout (soUserSettings),
// Columns=<count>, one Column<n>=<FieldName>,<WidthBase>,<Visible>,<Expanded> line per
// column in column order from 1, OrderFields (soOrderFields), LinesCount (soLinesCount),
// StretchMode (soStretchMode), then whatever the grid's OnLayout adds.

#include <QString>
#include <memory>

#include "framework/rtl/Events.h"
#include "framework/rtl/Sets.h"
#include "grid/QuilDBGridParts.h"

namespace quil {

class TCustomIniFile;
class TEnumTypeInfo;
class TStringList;
class TStrings;

enum TQuilSettingsOption { soLoadLayout, soSaveLayout, soUserSettings, soOrderFields, soLinesCount, soStretchMode };
using TQuilSettingsOptions = TSet<TQuilSettingsOption>;
const TEnumTypeInfo& TypeInfo(TQuilSettingsOption);

inline const TQuilSettingsOptions DefaultSettingsOptions{soLoadLayout, soSaveLayout};

// The file of the file form; empty: the program's file name with ".ini". An application
// may change it before use.
extern QString DefaultIniFileName;
// The key under the current user of the registry form; an application may change it.
extern QString DefaultRegistryKey;

// Fired with apply false when a layout has been built, so that lines can be added, and
// with apply true when one has been applied, so that they can be read.
using TQuilDBGridLayoutEvent = TEvent<void(TObject* sender, TStrings* layout, bool apply)>;

class TQuilDBGridSettings : public TQuilGridPart {
public:
  explicit TQuilDBGridSettings(TQuilCustomDBGrid* grid);
  ~TQuilDBGridSettings() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
  void Assign(const TPersistent* source) override;

  // Load at the first activation of the grid's link, save when the grid goes.
  bool Active() const { return active_; }
  void SetActive(bool value) { active_ = value; }
  // File name or registry key; empty: GetDefaultFileName.
  const QString& FileName() const { return fileName_; }
  void SetFileName(const QString& value) { fileName_ = value; }
  // True: an ini file; false: the registry.
  bool IniFile() const { return iniFile_; }
  void SetIniFile(bool value) { iniFile_ = value; }
  TQuilSettingsOptions Options() const { return options_; }
  void SetOptions(TQuilSettingsOptions value) { options_ = value; }
  void SwitchOptions(TQuilSettingsOptions members, bool include);

  // The section of the layout: the one set, else GetDefaultSection. Setting the default
  // stores nothing, so that a renamed grid follows its new name.
  QString Section() const { return GetSection(); }
  QString GetSection() const;
  void SetSection(const QString& value);
  bool IsSectionStored() const { return !section_.isEmpty(); }
  // The grid's Name, after its owner's Name and a dot when the owner has one; empty
  // for a grid without a name.
  QString GetDefaultSection() const;
  QString GetDefaultFileName() const;

  // The layout list rebuilt from the grid; writing applies the given lines.
  TStrings* Layout() { return GetLayout(); }
  TStrings* GetLayout();
  // Null applies the layout list as it stands; else the list takes value's lines first.
  void SetLayout(const TStrings* value);
  // The last layout read or built, untouched.
  TStrings* LayoutList() const;

  // Each takes the store to use, or makes its own through CreateIniFile and frees it at
  // the end; each does nothing when GetSection is empty.
  bool LayoutExists(TCustomIniFile* ini = nullptr);
  void EraseLayout(TCustomIniFile* ini = nullptr);
  // The layout list becomes the stored section, empty when there is none.
  void ReadLayout(TCustomIniFile* ini = nullptr);
  void LoadLayout(TCustomIniFile* ini = nullptr);
  // The section is erased first, so that no line of an older layout survives.
  void SaveLayout(TCustomIniFile* ini = nullptr);
  void ApplyLayout();

  virtual void AutoLoadLayout();
  virtual void AutoSaveLayout();
  // With ini null, makes the store that FileName and IniFile name, and returns true:
  // the caller frees it. With a given ini returns false.
  virtual bool CreateIniFile(TCustomIniFile*& ini);

  // Marked by Loaded; the first activation of the link loads the layout once.
  bool AutoLoadPending() const { return autoLoadPending_; }
  void SetAutoLoadPending(bool pending) { autoLoadPending_ = pending; }

protected:
  // Fires the grid's OnLayout.
  virtual void DoLayout(TStrings* layout, bool apply);

private:
  class TIniScope;

  void AddColumnLines();
  void ApplyColumnLines();
  // The layout list's flag line: non-zero includes option, zero excludes it, a missing
  // or unreadable one leaves it.
  void ReadOptionLine(const QString& name, TQuilSettingsOption option);

  std::unique_ptr<TStringList> layout_;
  bool active_ = false;
  QString fileName_;
  bool iniFile_ = false;
  TQuilSettingsOptions options_ = DefaultSettingsOptions;
  QString section_;  // empty: the default section
  bool autoLoadPending_ = false;
};

}  // namespace quil
