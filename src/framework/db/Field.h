#pragma once
// TField: one column of a data set's records. A field holds no value: every read asks
// the data set for the value of the record that its state points at (the active
// record, the record being calculated or filtered), and every write goes back to it.
//
// Text travels two ways: Text and DisplayText read through OnGetText or GetText, and
// SetText writes through OnSetText or ApplyText. The As... accessors convert; a class
// that cannot give or take a kind raises EDatabaseError ("Cannot access field ...").

#include <QString>
#include <type_traits>
#include <utility>
#include <vector>

#include "framework/db/DataSet.h"
#include "framework/db/DataTypes.h"
#include "framework/db/FieldStore.h"
#include "framework/rtl/Alignment.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Currency.h"
#include "framework/rtl/DateTime.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TDataSet;
class TField;
class TObjectField;

using TFieldNotifyEvent = TEvent<void(TField* sender)>;
using TFieldGetTextEvent = TEvent<void(TField* sender, QString& text, bool displayText)>;
using TFieldSetTextEvent = TEvent<void(TField* sender, const QString& text)>;

class TField : public TComponent {
public:
  explicit TField(TComponent* owner);
  ~TField() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // --- Identity
  TDataSet* DataSet() const { return dataSet_; }
  // Moves the field to the top-level fields of dataSet; the data set must be closed.
  void SetDataSet(TDataSet* dataSet);
  const QString& FieldName() const { return fieldName_; }
  void SetFieldName(const QString& name);
  // The name with the names of the parent fields before it, dot-separated ("Address.City");
  // an array's element names carry their index already ("Scores[1]").
  QString FullName() const;
  // The structured field this one is a member or element of; null at the top.
  TObjectField* ParentField() const { return parentField_; }
  // Moves the field among the children of field, in field's data set; null moves it to
  // the top of its data set. The data set must be closed.
  void SetParentField(TObjectField* field);
  TFieldType DataType() const { return dataType_; }
  TNativeKind NativeKind() const { return NativeKindOf(dataType_); }
  TFieldKind FieldKind() const { return fieldKind_; }
  void SetFieldKind(TFieldKind kind);
  bool Calculated() const { return fieldKind_ == fkCalculated; }
  bool Lookup() const { return fieldKind_ == fkLookup; }
  // 1-based number of the field's definition while bound; 0 unbound, -1 calculated.
  int FieldNo() const { return fieldNo_; }
  // Position in the data set's Fields (in the parent's for a child), -1 in none;
  // setting it reorders.
  int Index() const;
  void SetIndex(int index);
  int Size() const { return size_; }
  virtual void SetSize(int size);
  TFieldLifeCycle LifeCycle() const { return lifeCycle_; }
  void SetLifeCycle(TFieldLifeCycle lifeCycle) { lifeCycle_ = lifeCycle; }

  // --- Display
  QString DisplayLabel() const { return displayLabel_.isEmpty() ? DisplayName() : displayLabel_; }
  void SetDisplayLabel(const QString& label);
  bool IsDisplayLabelStored() const { return !displayLabel_.isEmpty(); }
  QString DisplayName() const { return displayLabel_.isEmpty() ? fieldName_ : displayLabel_; }
  // Characters to show; 0 stored means the type's default.
  int DisplayWidth() const { return displayWidth_ > 0 ? displayWidth_ : DefaultWidth(); }
  void SetDisplayWidth(int width);
  bool IsDisplayWidthStored() const { return displayWidth_ > 0; }
  QString DisplayText() const;
  const QString& EditMask() const { return editMask_; }
  void SetEditMask(const QString& mask);
  TAlignment Alignment() const { return alignment_; }
  void SetAlignment(TAlignment alignment);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  // --- Values
  bool IsNull() const { return GetIsNull(); }
  void Clear() { SetData(nullptr); }
  QString AsString() const { return GetAsString(); }
  void SetAsString(const QString& value) { SetAsStringValue(value); }
  int AsInteger() const { return GetAsInteger(); }
  void SetAsInteger(int value) { SetAsIntegerValue(value); }
  int64_t AsLargeInt() const { return GetAsLargeInt(); }
  void SetAsLargeInt(int64_t value) { SetAsLargeIntValue(value); }
  double AsFloat() const { return GetAsFloat(); }
  void SetAsFloat(double value) { SetAsFloatValue(value); }
  Currency AsCurrency() const { return GetAsCurrency(); }
  void SetAsCurrency(Currency value) { SetAsCurrencyValue(value); }
  bool AsBoolean() const { return GetAsBoolean(); }
  void SetAsBoolean(bool value) { SetAsBooleanValue(value); }
  TDateTime AsDateTime() const { return GetAsDateTime(); }
  void SetAsDateTime(TDateTime value) { SetAsDateTimeValue(value); }
  // Null without a value.
  Variant AsVariant() const { return GetAsVariant(); }
  // Null or Unassigned clears the field.
  void SetAsVariant(const Variant& value);
  Variant Value() const { return GetAsVariant(); }
  void SetValue(const Variant& value) { SetAsVariant(value); }
  // The text to edit: OnGetText with displayText false, else GetText.
  QString Text() const;
  // OnSetText when assigned, else ApplyText.
  void SetText(const QString& text);

  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);
  bool Required() const { return required_; }
  void SetRequired(bool required) { required_ = required; }
  // A data field that is not read-only in a data set that can modify; never a
  // calculated or lookup field, which only OnCalcFields writes.
  virtual bool CanModify() const;
  // Whether ch may be typed into the field's text.
  virtual bool IsValidChar(QChar ch) const;

  // --- Lookup: the value of LookupResultField in LookupDataSet's record whose
  // LookupKeyFields equal this data set's KeyFields.
  const QString& KeyFields() const { return keyFields_; }
  void SetKeyFields(const QString& fields);
  TDataSet* LookupDataSet() const { return lookupDataSet_; }
  void SetLookupDataSet(TDataSet* dataSet);
  const QString& LookupKeyFields() const { return lookupKeyFields_; }
  void SetLookupKeyFields(const QString& fields);
  const QString& LookupResultField() const { return lookupResultField_; }
  void SetLookupResultField(const QString& field);
  // Keeps found results by key until RefreshLookupList or the lookup data set changes.
  bool LookupCache() const { return lookupCache_; }
  void SetLookupCache(bool cache);
  void RefreshLookupList();

  TFieldGetTextEvent OnGetText;
  TFieldSetTextEvent OnSetText;
  TFieldNotifyEvent OnValidate;
  TFieldNotifyEvent OnChange;

  // --- For data sets and data-aware code
  // Reads the native value (DataTypes.h) into buffer, which may be null to ask only
  // whether there is a value. False without a value.
  bool GetData(void* buffer) const {
    // A walk reads every field of every record through here. A browsed stored row
    // comes straight from the store that the data set gave; else one call to the data
    // set, with the rare cases out of line.
    const int row = DirectRow();
    if (row >= 0) [[likely]] return store_->Read(row, buffer);
    return GetDataFromDataSet(buffer);
  }
  // The same into a typed buffer: a store of that type is read with one move.
  template <typename T>
  bool GetData(T* buffer) const {
    if constexpr (std::is_trivially_copyable_v<T>) {
      const int row = DirectRowOf<T>();
      if (row >= 0) [[likely]] return store_->ReadAs(row, buffer);
    }
    return GetDataFromDataSet(buffer);
  }
  // The native value, T's zero without one. A stored row is read straight into the
  // result, not through memory: a walk waits on every read.
  template <typename T>
    requires std::is_trivially_copyable_v<T>
  T NativeValue() const {
    const int row = DirectRowOf<T>();
    if (row >= 0) [[likely]] return store_->ValueAs<T>(row);
    return NativeValueFromDataSet<T>();
  }
  // Writes the native value; a null buffer clears the field.
  void SetData(const void* buffer);
  // Runs OnValidate while reads of the field answer the value in buffer.
  void Validate(const void* buffer);
  // OnChange; the data set calls it after a field's value changed.
  virtual void Change();
  // Asks the data-aware controls to focus the control of this field.
  void FocusControl();
  // Fetches the value of a lookup field while its data set calculates.
  void CalcLookupValue();
  // Throws the error of a record that lacks this required field.
  [[noreturn]] void RaiseRequired() const;

protected:
  // Subclasses set their type in their constructors.
  void SetDataType(TFieldType type) { dataType_ = type; }
  virtual int DefaultWidth() const { return 10; }
  // Tells the data set that a property that controls show has changed.
  void PropertyChanged(bool layoutAffected);
  [[noreturn]] void AccessError(const char* typeName) const;
  [[noreturn]] void RangeError(double value, double minValue, double maxValue) const;
  void CheckInactive() const;

  virtual bool GetIsNull() const { return !GetData(nullptr); }
  virtual QString GetAsString() const;
  virtual void SetAsStringValue(const QString& value);
  virtual int GetAsInteger() const;
  virtual void SetAsIntegerValue(int value);
  virtual int64_t GetAsLargeInt() const { return GetAsInteger(); }
  virtual void SetAsLargeIntValue(int64_t value);
  virtual double GetAsFloat() const;
  virtual void SetAsFloatValue(double value);
  virtual Currency GetAsCurrency() const { return Currency::FromDouble(GetAsFloat()); }
  virtual void SetAsCurrencyValue(Currency value) { SetAsFloatValue(value.ToDouble()); }
  virtual bool GetAsBoolean() const;
  virtual void SetAsBooleanValue(bool value);
  virtual TDateTime GetAsDateTime() const;
  virtual void SetAsDateTimeValue(TDateTime value);
  virtual Variant GetAsVariant() const;
  // Called with a value that is neither Null nor Unassigned.
  virtual void SetVarValue(const Variant& value);
  // The field's text for display or for editing, without OnGetText.
  virtual void GetText(QString& text, bool displayText) const;
  // Takes an entered text, without OnSetText.
  virtual void ApplyText(const QString& text) { SetAsString(text); }

  void Notification(TComponent* component, TOperation operation) override;

private:
  friend class TDataSet;
  friend class TFieldDef;
  friend class TFieldList;
  friend class TFields;
  friend class TObjectField;

  // The data set's store row of the record to read, when the store may be read (GetData).
  int DirectRow() const { return store_ && !inValidate_ ? dataSet_->DirectRow() : -1; }
  // The same for a read into a T, which a store of T's size holds.
  template <typename T>
  int DirectRowOf() const {
    return store_ && store_->size == sizeof(T) ? DirectRow() : -1;
  }
  // Out of line, so that a direct read needs no frame.
  template <typename T>
  [[gnu::noinline]] T NativeValueFromDataSet() const {
    T value{};
    return GetDataFromDataSet(&value) ? value : T{};
  }
  bool GetDataFromDataSet(void* buffer) const {
    if (!dataSet_ || inValidate_) [[unlikely]] return GetDataAside(buffer);
    return dataSet_->GetFieldData(const_cast<TField*>(this), buffer);
  }
  // GetData without a data set, or while OnValidate runs.
  bool GetDataAside(void* buffer) const;
  // The fields below this one, depth-first; none but for a structured field.
  void AppendDescendants(std::vector<TField*>& list) const;
  // Gives this field and its descendants to dataSet, in no list yet.
  void AssignDataSet(TDataSet* dataSet);
  // Takes this field and its descendants out of the data set's and the parent's lists.
  void Detach();
  // Puts this field (with its descendants when the data set shows them flat) into the
  // lists its parent and data set say.
  void Attach();

  TDataSet* dataSet_ = nullptr;
  // Given by a bound data set whose records' values it holds; null otherwise.
  const TFieldStore* store_ = nullptr;
  TObjectField* parentField_ = nullptr;
  QString fieldName_;
  QString displayLabel_;
  QString editMask_;
  QString keyFields_;
  QString lookupKeyFields_;
  QString lookupResultField_;
  TDataSet* lookupDataSet_ = nullptr;
  TFieldType dataType_ = ftUnknown;
  TFieldKind fieldKind_ = fkData;
  TFieldLifeCycle lifeCycle_ = lcPersistent;
  TAlignment alignment_ = taLeftJustify;
  int fieldNo_ = 0;
  // Slot of a calculated or lookup field among the data set's calculated values; -1 else.
  int calcSlot_ = -1;
  int size_ = 0;
  int displayWidth_ = 0;
  bool visible_ = true;
  bool readOnly_ = false;
  bool required_ = false;
  bool lookupCache_ = false;
  // While OnValidate runs: reads answer this value (null: no value).
  const void* validating_ = nullptr;
  bool inValidate_ = false;
  // Results of the lookup cache: key values and their result.
  std::vector<std::pair<Variant, Variant>> lookupList_;
};

// The class a data set makes for a field of the type; null when there is none.
const TMetaClass* DefaultFieldClass(TFieldType type);

}  // namespace quil
