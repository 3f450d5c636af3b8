#pragma once
// Shared pieces of the data class tests: a people table in an in-memory data set, a
// data link that logs what it hears and checks the record window at every event, and
// a data set that notices a field read outside its window.

#include <QString>
#include <QStringList>
#include <initializer_list>
#include <memory>
#include <utility>

#include "QtPrinters.h"

#include "framework/db/ClientDataSet.h"
#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/StringFields.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/FormatSettings.h"
#include "framework/rtl/SysUtils.h"

namespace dbtest {

// Persistent data fields of these names and types, made before the data set opens.
inline void AddDataFields(quil::TDataSet& dataSet,
                          std::initializer_list<std::pair<const char*, quil::TFieldType>> fields) {
  for (auto [name, type] : fields) {
    auto* field = static_cast<quil::TField*>(quil::DefaultFieldClass(type)->Create(&dataSet));
    field->SetFieldName(name);
    field->SetDataSet(&dataSet);
  }
}

// A persistent string lookup field: the result field of the lookup data set's record
// whose lookup key matches this data set's key.
inline quil::TField* AddLookupField(quil::TDataSet& dataSet, const char* name, const char* keyFields,
                                    quil::TDataSet* lookupDataSet, const char* lookupKeyFields,
                                    const char* resultField) {
  auto* field = new quil::TStringField(&dataSet);
  field->SetFieldName(name);
  field->SetFieldKind(quil::fkLookup);
  field->SetKeyFields(keyFields);
  field->SetLookupDataSet(lookupDataSet);
  field->SetLookupKeyFields(lookupKeyFields);
  field->SetLookupResultField(resultField);
  field->SetDataSet(&dataSet);
  return field;
}

// Counts field reads and fails loudly on one that lands outside the record window.
// Overriding GetFieldData, it turns direct reads from the columns off, so that every
// read passes here.
class TWindowCheckedDataSet : public quil::TClientDataSet {
public:
  explicit TWindowCheckedDataSet(quil::TComponent* owner) : TClientDataSet(owner) { SetDirectFieldReads(false); }
  using TClientDataSet::SetDirectFieldReads;
  bool GetFieldData(quil::TField* field, void* buffer) override {
    ++reads;
    if ((State() == quil::dsBrowse || State() == quil::dsEdit) && !IsEmpty() &&
        (ActiveRecord() < 0 || ActiveRecord() >= BufferedCount()))
      throw std::logic_error("a field read outside the record window");
    return TClientDataSet::GetFieldData(field, buffer);
  }
  using TClientDataSet::BufferCount;
  using TClientDataSet::BufferedCount;
  int reads = 0;
};

inline const char* const kCities[] = {"Berlin", "Oslo", "Paris", nullptr};

// ID 1..rows, Name "Name001".., City cycling Berlin, Oslo, Paris, none; Amount ID * 1.5.
inline void FillPeople(quil::TClientDataSet& dataSet, int rows) {
  dataSet.FieldDefs()->Add("ID", quil::ftInteger);
  dataSet.FieldDefs()->Add("Name", quil::ftString, 20);
  dataSet.FieldDefs()->Add("City", quil::ftString, 20);
  dataSet.FieldDefs()->Add("Amount", quil::ftFloat);
  dataSet.CreateDataSet();
  dataSet.DisableControls();
  for (int id = 1; id <= rows; ++id) {
    const char* city = kCities[(id - 1) % 4];
    dataSet.AppendRecord({id, QString("Name%1").arg(id, 3, 10, QChar('0')),
                          city ? quil::Variant(city) : quil::Null(), id * 1.5});
  }
  dataSet.EnableControls();
  dataSet.First();
}

// Logs each event it hears as a short word, and checks the window meanwhile.
class TRecordingLink : public quil::TDataLink {
public:
  QStringList log;
  void Clear() { log.clear(); }

protected:
  // A state change comes before the window is refilled, so only data events check it.
  void ActiveChanged() override { log << QString("active:%1").arg(Active()); }
  void DataSetChanged() override { Note("changed"); }
  void DataSetScrolled(int distance) override { Note(QString("scrolled:%1").arg(distance)); }
  void EditingChanged() override { log << QString("editing:%1").arg(Editing()); }
  void LayoutChanged() override { Note("layout"); }
  void RecordChanged(quil::TField* field) override {
    Note(field ? "field:" + field->FieldName() : QString("record"));
  }
  void UpdateData() override { Note("update"); }

private:
  void Note(const QString& what) {
    log << what;
    if (DataSet() && DataSet()->Active()) DataSet()->CheckConsistency();
  }
};

// A data set of people and a data source with one recording link of bufferCount rows.
template <typename TPeopleDataSet = TWindowCheckedDataSet>
struct TPeopleIn {
  explicit TPeopleIn(int rows, int bufferCount = 1) {
    source.SetDataSet(&dataSet);
    link.SetDataSource(&source);
    link.SetBufferCount(bufferCount);
    FillPeople(dataSet, rows);
    link.Clear();
  }
  int Id() const { return dataSet.FieldByName("ID")->AsInteger(); }

  TPeopleDataSet dataSet{nullptr};
  quil::TDataSource source{nullptr};
  TRecordingLink link;
};
using TPeople = TPeopleIn<>;

// Day-first dates with dots and a 24-hour clock while it lives: unlike the default
// locale, so that a format taken from the wrong place shows.
class TDottedDateLocale {
public:
  TDottedDateLocale() : saved_(quil::FormatSettings) {
    quil::FormatSettings.DateSeparator = QLatin1Char('.');
    quil::FormatSettings.ShortDateFormat = QStringLiteral("dd.mm.yyyy");
    quil::FormatSettings.TimeSeparator = QLatin1Char(':');
    quil::FormatSettings.LongTimeFormat = QStringLiteral("hh:nn:ss");
    quil::FormatSettings.DecimalSeparator = QLatin1Char('.');
  }
  ~TDottedDateLocale() { quil::FormatSettings = saved_; }
  TDottedDateLocale(const TDottedDateLocale&) = delete;
  TDottedDateLocale& operator=(const TDottedDateLocale&) = delete;

private:
  quil::TFormatSettings saved_;
};

}  // namespace dbtest
