#pragma once
// TFieldDataLink: the link of a control that shows one field, such as an edit box.

#include "framework/db/DataSource.h"

namespace quil {

class TFieldDataLink : public TDataLink {
public:
  TFieldDataLink() = default;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TField* Field() const { return field_; }
  const QString& FieldName() const { return fieldName_; }
  void SetFieldName(const QString& name);
  // The control this link serves; the link does not own it.
  TComponent* Control() const { return control_; }
  void SetControl(TComponent* control) { control_ = control; }
  bool CanModify() const;
  bool Edit() override;
  // The control's text differs from the field's value.
  bool Modified() const { return modified_; }
  void SetModified() { modified_ = true; }
  // Throws away the control's text: the field's value comes back.
  void Reset() { RecordChanged(nullptr); }

  TNotifyEvent OnDataChange;
  TNotifyEvent OnEditingChange;
  TNotifyEvent OnUpdateData;
  TNotifyEvent OnActiveChange;
  // Puts the focus on Control; answers whether it took it. The link cannot reach a
  // control's focus itself, so a control that wants the focus for its field sets this.
  TEvent<bool(TFieldDataLink* link)> OnFocusControl;

protected:
  void ActiveChanged() override;
  void EditingChanged() override;
  // Takes the request when it is for this link's field and the control took the
  // focus, then clears field so that no other control takes it too.
  void FocusControl(TField*& field) override;
  void LayoutChanged() override { UpdateField(); }
  void RecordChanged(TField* field) override;
  void UpdateData() override;

private:
  void UpdateField();
  void SetField(TField* field);
  void SetFieldEditing(bool editing);

  TField* field_ = nullptr;
  QString fieldName_;
  TComponent* control_ = nullptr;
  bool editing_ = false;
  bool modified_ = false;
};

}  // namespace quil
