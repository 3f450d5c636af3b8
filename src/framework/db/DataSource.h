#pragma once
// TDataSource connects a data set to the data links of controls; TDataLink is a
// control's view of the data set's record window.
//
// A link sees BufferCount rows of the window starting at its first record; the data
// set keeps as many buffers as its largest link wants. On deDataSetScroll the link
// shifts its first record by the window's rotation and then by as much as keeps the
// active record among its rows; that last shift is the Distance its DataSetScrolled
// hears, so a grid scrolls exactly when its visible rows moved.

#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Persistent.h"

namespace quil {

class TDataLink;
class TDataSet;
class TField;

using TDataChangeEvent = TEvent<void(TObject* sender, TField* field)>;

class TDataSource : public TComponent {
public:
  explicit TDataSource(TComponent* owner);
  ~TDataSource() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TDataSet* DataSet() const { return dataSet_; }
  // Raises SCircularDataLink when the data set is a detail of this source.
  void SetDataSet(TDataSet* dataSet);
  // dsInactive while disabled or without a data set.
  TDataSetState State() const { return state_; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  // Whether Edit on a link puts a browsing data set into dsEdit.
  bool AutoEdit() const { return autoEdit_; }
  void SetAutoEdit(bool autoEdit) { autoEdit_ = autoEdit; }
  void Edit();
  bool IsLinkedTo(const TDataSet* dataSet) const;

  int DataLinkCount() const { return int(dataLinks_.size()); }
  TDataLink* DataLinks(int index) const { return dataLinks_.at(size_t(index)); }

  // The field that changed, or null for the record or the data set as a whole.
  TDataChangeEvent OnDataChange;
  TNotifyEvent OnStateChange;
  TNotifyEvent OnUpdateData;

protected:
  void Notification(TComponent* component, TOperation operation) override;

private:
  friend class TDataLink;
  friend class TDataSet;

  void AddDataLink(TDataLink* link);
  void RemoveDataLink(TDataLink* link);
  void DataEvent(TDataEvent event, intptr_t info);
  void NotifyDataLinks(TDataEvent event, intptr_t info);
  void UpdateState();
  void SetState(TDataSetState state);

  TDataSet* dataSet_ = nullptr;
  std::vector<TDataLink*> dataLinks_;
  TDataSetState state_ = dsInactive;
  bool enabled_ = true;
  bool autoEdit_ = true;
};

class TDataLink : public TPersistent {
public:
  TDataLink() = default;
  ~TDataLink() override;
  TDataLink(const TDataLink&) = delete;
  TDataLink& operator=(const TDataLink&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  bool Active() const { return active_; }
  // The active record among this link's rows; setting it makes field reads answer
  // that buffered record, without moving the cursor.
  int ActiveRecord() const;
  void SetActiveRecord(int value);
  int BufferCount() const { return bufferCount_; }
  void SetBufferCount(int value);
  // Rows this link sees filled, at most BufferCount.
  int RecordCount() const;
  TDataSet* DataSet() const;
  TDataSource* DataSource() const { return dataSource_; }
  // Raises when DataSourceFixed holds.
  void SetDataSource(TDataSource* dataSource);
  bool DataSourceFixed() const { return dataSourceFixed_; }
  void SetDataSourceFixed(bool fixed) { dataSourceFixed_ = fixed; }
  bool Editing() const { return editing_; }
  // Puts the data set in dsEdit through the source's AutoEdit; answers Editing.
  virtual bool Edit();
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);
  // UpdateData, marked so that the record changes it causes do not come back here.
  void UpdateRecord();
  int MoveBy(int distance);
  bool Bof() const;
  bool Eof() const;
  // A control that shows data (a grid), as opposed to one that only acts on it.
  bool VisualControl() const { return visualControl_; }
  void SetVisualControl(bool visual) { visualControl_ = visual; }

protected:
  virtual void ActiveChanged() {}
  virtual void CheckBrowseMode() {}
  virtual void DataSetChanged() { RecordChanged(nullptr); }
  virtual void DataSetScrolled(int distance) { DataSetChanged(); }
  virtual void EditingChanged() {}
  // Clears field when the control that shows it took the focus.
  virtual void FocusControl(TField*& field) {}
  virtual void LayoutChanged() { DataSetChanged(); }
  virtual void RecordChanged(TField* field) {}
  virtual void UpdateData() {}
  virtual void DataEvent(TDataEvent event, intptr_t info);

private:
  friend class TDataSet;
  friend class TDataSource;

  void UpdateState();
  void SetActive(bool active);
  void SetEditing(bool editing);
  // Keeps the first record where the link's rows still hold the active record.
  void UpdateRange();

  TDataSource* dataSource_ = nullptr;
  int bufferCount_ = 1;
  int firstRecord_ = 0;  // the window buffer shown in this link's row 0
  bool active_ = false;
  bool editing_ = false;
  bool readOnly_ = false;
  bool updating_ = false;
  bool dataSourceFixed_ = false;
  bool visualControl_ = false;
};

}  // namespace quil
