#include "grid/QuilDBGridSettings.h"

#include "framework/controls/Application.h"
#include "framework/rtl/Conversions.h"
#include "framework/rtl/IniFiles.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"
#include "grid/QuilDBGrid.h"

namespace quil {

QString DefaultIniFileName;
QString DefaultRegistryKey = QStringLiteral("\\Software\\Marl Software\\QuilDBGrid");

namespace {

const QString sColumns = QStringLiteral("Columns");
const QString sColumn = QStringLiteral("Column");
const QString sOrderFields = QStringLiteral("OrderFields");
const QString sLinesCount = QStringLiteral("LinesCount");
const QString sStretchMode = QStringLiteral("StretchMode");
const QString sAutoLoadLayout = QStringLiteral("AutoLoadLayout");
const QString sAutoSaveLayout = QStringLiteral("AutoSaveLayout");

QString Line(const QString& name, int value) { return name + QLatin1Char('=') + QString::number(value); }

}  // namespace

const TEnumTypeInfo& TypeInfo(TQuilSettingsOption) {
  static const TEnumTypeInfo info("TQuilSettingsOption", {"soLoadLayout", "soSaveLayout", "soUserSettings",
                                                          "soOrderFields", "soLinesCount", "soStretchMode"});
  return info;
}

const TMetaClass& TQuilDBGridSettings::StaticClass() {
  using S = TQuilDBGridSettings;
  static const TMetaClass meta =
      TMetaClass("TQuilDBGridSettings", &TPersistent::StaticClass())
          .Published(BoolProp("Active", &S::Active, &S::SetActive).Default(false))
          .Published(StrProp("FileName", &S::FileName, &S::SetFileName))
          .Published(BoolProp("IniFile", &S::IniFile, &S::SetIniFile).Default(false))
          .Published(ObjectProp("Layout", &S::Layout, &S::SetLayout).Stored(false))
          .Published(SetProp("Options", &S::Options, &S::SetOptions).Default(DefaultSettingsOptions))
          .Published(StrProp("Section", &S::Section, &S::SetSection).StoredBy(&S::IsSectionStored));
  return meta;
}

const TMetaClass& TQuilDBGridSettings::ClassType() const { return StaticClass(); }

TQuilDBGridSettings::TQuilDBGridSettings(TQuilCustomDBGrid* grid)
    : TQuilGridPart(grid), layout_(std::make_unique<TStringList>()) {}

TQuilDBGridSettings::~TQuilDBGridSettings() = default;

void TQuilDBGridSettings::Assign(const TPersistent* source) {
  const auto* settings = dynamic_cast<const TQuilDBGridSettings*>(source);
  if (!settings) {
    TQuilGridPart::Assign(source);
    return;
  }
  active_ = settings->active_;
  fileName_ = settings->fileName_;
  iniFile_ = settings->iniFile_;
  options_ = settings->options_;
  section_ = settings->section_;
}

void TQuilDBGridSettings::SwitchOptions(TQuilSettingsOptions members, bool include) {
  SetOptions(include ? options_ + members : options_ - members);
}

// --- Where the layout is kept

QString TQuilDBGridSettings::GetDefaultSection() const {
  const QString& name = Grid()->Name();
  const TComponent* owner = Grid()->Owner();
  if (name.isEmpty() || !owner || owner->Name().isEmpty()) return name;
  return owner->Name() + QLatin1Char('.') + name;
}

QString TQuilDBGridSettings::GetSection() const { return section_.isEmpty() ? GetDefaultSection() : section_; }

void TQuilDBGridSettings::SetSection(const QString& value) {
  section_ = value == GetDefaultSection() ? QString() : value;
}

QString TQuilDBGridSettings::GetDefaultFileName() const {
  if (!iniFile_) return DefaultRegistryKey;
  return DefaultIniFileName.isEmpty() ? ChangeFileExt(Application->ExeName(), QStringLiteral(".ini"))
                                      : DefaultIniFileName;
}

bool TQuilDBGridSettings::CreateIniFile(TCustomIniFile*& ini) {
  if (ini) return false;
  const QString name = fileName_.isEmpty() ? GetDefaultFileName() : fileName_;
  if (iniFile_) ini = new TIniFile(name);
  else ini = new TRegistryIniFile(name);
  return true;
}

// The store an operation works on: the one given, or one made for the operation and
// freed with it, also when the operation fails.
class TQuilDBGridSettings::TIniScope {
public:
  TIniScope(TQuilDBGridSettings& settings, TCustomIniFile* given) : ini_(given) {
    if (settings.CreateIniFile(ini_)) own_.reset(ini_);
  }
  TCustomIniFile* operator->() const { return ini_; }
  // Writes what an own store holds, so that its failure reaches the caller; a given
  // store is the caller's to write.
  void Commit() {
    if (own_) own_->UpdateFile();
  }

private:
  TCustomIniFile* ini_;
  std::unique_ptr<TCustomIniFile> own_;
};

bool TQuilDBGridSettings::LayoutExists(TCustomIniFile* ini) {
  const QString section = GetSection();
  if (section.isEmpty()) return false;
  TIniScope store(*this, ini);
  return store->SectionExists(section);
}

void TQuilDBGridSettings::EraseLayout(TCustomIniFile* ini) {
  const QString section = GetSection();
  if (section.isEmpty()) return;
  TIniScope store(*this, ini);
  if (!store->SectionExists(section)) return;
  store->EraseSection(section);
  store.Commit();
}

void TQuilDBGridSettings::ReadLayout(TCustomIniFile* ini) {
  const QString section = GetSection();
  if (section.isEmpty()) return;
  TIniScope store(*this, ini);
  layout_->Clear();
  if (store->SectionExists(section)) store->ReadSectionValues(section, layout_.get());
}

void TQuilDBGridSettings::LoadLayout(TCustomIniFile* ini) {
  if (GetSection().isEmpty()) return;
  ReadLayout(ini);
  ApplyLayout();
}

void TQuilDBGridSettings::SaveLayout(TCustomIniFile* ini) {
  const QString section = GetSection();
  if (section.isEmpty()) return;
  GetLayout();
  TIniScope store(*this, ini);
  if (store->SectionExists(section)) store->EraseSection(section);
  for (int line = 0; line < layout_->Count(); ++line) {
    // A line without a name, which an OnLayout handler may add, makes no entry.
    const QString name = layout_->Names(line);
    if (!name.isEmpty()) store->WriteString(section, name, layout_->ValueFromIndex(line));
  }
  store.Commit();
}

void TQuilDBGridSettings::ApplyLayout() { SetLayout(nullptr); }

// --- Automatic load and save

void TQuilDBGridSettings::AutoLoadLayout() {
  if (!options_.Contains(soUserSettings)) {
    if (options_.Contains(soLoadLayout)) LoadLayout();
    return;
  }
  ReadLayout();
  ReadOptionLine(sAutoLoadLayout, soLoadLayout);
  ReadOptionLine(sAutoSaveLayout, soSaveLayout);
  if (options_.Contains(soLoadLayout)) ApplyLayout();
}

void TQuilDBGridSettings::ReadOptionLine(const QString& name, TQuilSettingsOption option) {
  const bool current = options_.Contains(option);
  SwitchOptions({option}, StrToIntDef(layout_->Values(name), current ? 1 : 0) != 0);
}

void TQuilDBGridSettings::AutoSaveLayout() {
  if (options_.Contains(soSaveLayout)) SaveLayout();
}

// --- The text form

TStrings* TQuilDBGridSettings::LayoutList() const { return layout_.get(); }

TStrings* TQuilDBGridSettings::GetLayout() {
  TQuilCustomDBGrid* grid = Grid();
  layout_->Clear();
  if (options_.Contains(soUserSettings)) {
    layout_->Add(Line(sAutoLoadLayout, options_.Contains(soLoadLayout)));
    layout_->Add(Line(sAutoSaveLayout, options_.Contains(soSaveLayout)));
  }
  AddColumnLines();
  if (options_.Contains(soOrderFields)) layout_->Add(sOrderFields + QLatin1Char('=') + grid->GetOrderFields());
  if (options_.Contains(soLinesCount)) layout_->Add(Line(sLinesCount, grid->LinesCount()));
  if (options_.Contains(soStretchMode)) layout_->Add(Line(sStretchMode, grid->StretchMode()));
  DoLayout(layout_.get(), false);
  return layout_.get();
}

// The column's own flags are kept, not what its parent or its being a leaf make of
// them, so that a column comes back as the user left it when its group changes.
void TQuilDBGridSettings::AddColumnLines() {
  const TQuilDBGridColumns* columns = Grid()->Columns();
  layout_->Add(Line(sColumns, columns->Count()));
  for (const TQuilColumn* column : *columns) {
    const QStringList fields{column->FieldName(), QString::number(column->WidthBase()),
                             QString::number(column->GetVisibility()), QString::number(column->GetExpandedFlag())};
    layout_->Add(sColumn + QString::number(column->Index() + 1) + QLatin1Char('=') + fields.join(DefaultDelimiter));
  }
}

void TQuilDBGridSettings::SetLayout(const TStrings* value) {
  if (value && value != layout_.get()) layout_->Assign(value);
  TQuilCustomDBGrid* grid = Grid();
  ApplyColumnLines();
  if (options_.Contains(soOrderFields) && layout_->IndexOfName(sOrderFields) >= 0)
    grid->SetOrderFields(layout_->Values(sOrderFields));
  if (options_.Contains(soLinesCount))
    grid->SetLinesCount(StrToIntDef(layout_->Values(sLinesCount), grid->LinesCount()));
  if (options_.Contains(soStretchMode))
    grid->SetStretchMode(StrToIntDef(layout_->Values(sStretchMode), grid->StretchMode()) == 1);
  DoLayout(layout_.get(), true);
}

// A count that differs means the lines describe other columns: none is touched. A
// column is found from its place on, so that those placed already are not taken again
// and two columns of one field keep their order.
void TQuilDBGridSettings::ApplyColumnLines() {
  TQuilCustomDBGrid* grid = Grid();
  TQuilDBGridColumns* columns = grid->Columns();
  if (StrToIntDef(layout_->Values(sColumns), 0) != columns->Count()) return;
  TUpdateGuard<TQuilDBGridColumns> update(*columns);
  for (int index = 0; index < columns->Count(); ++index) {
    QString value = layout_->Values(sColumn + QString::number(index + 1));
    TQuilColumn* column = grid->FindColumn(ScanStr(value), index);
    if (!column) continue;
    column->MoveTo(index);
    column->SetWidthBase(ScanInt(value, column->WidthBase()));
    column->SetVisible(ScanInt(value, column->GetVisibility()) == 1);
    column->SetExpanded(ScanInt(value, column->GetExpandedFlag()) == 1);
  }
}

void TQuilDBGridSettings::DoLayout(TStrings* layout, bool apply) {
  TQuilCustomDBGrid* grid = Grid();
  if (grid->OnLayout) grid->OnLayout(grid, layout, apply);
}

}  // namespace quil
