#pragma once
// TCustomMaskEdit: a one-line edit over QLineEdit with the framework's edit mask. A mask has
// up to three fields separated by ';': the mask characters, whether Text keeps the
// literal characters ("1", the default) or not ("0"), and the character that shows an
// empty position ("_" by default). Mask characters: 0 digit, 9 optional digit, # optional
// digit or sign, L letter, l optional letter, A letter or digit, a optional letter or
// digit, C any character, c optional any character, > upper case from here, < lower case
// from here, <> no case change, \ the next character is literal, ! (leading blanks)
// accepted and ignored; every other character is a literal.

#include <QString>

#include "framework/controls/Controls.h"

namespace quil {

// The mask as Qt's input mask, with the two other fields of the framework's mask.
struct TEditMaskInfo {
  QString InputMask;           // empty for no mask
  bool SaveLiterals = true;    // Text keeps the literal characters
  QChar Blank = QLatin1Char('_');
  QString LiteralPositions;    // 'L' at each position that holds a literal, ' ' elsewhere
};
TEditMaskInfo ParseEditMask(const QString& editMask);

class TCustomMaskEdit : public TWinControl {
public:
  explicit TCustomMaskEdit(TComponent* owner);
  ~TCustomMaskEdit() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The value: with a mask that does not save literals, without them.
  QString Text() const;
  void SetText(const QString& text);
  // What the user sees, literals and blanks included.
  QString EditText() const;
  const QString& EditMask() const { return editMask_; }
  void SetEditMask(const QString& editMask);
  bool IsMasked() const { return !mask_.InputMask.isEmpty(); }
  // 0 for no limit.
  int MaxLength() const { return maxLength_; }
  void SetMaxLength(int maxLength);
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);
  TBorderStyle BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(TBorderStyle style);
  bool AutoSelect() const { return autoSelect_; }
  void SetAutoSelect(bool autoSelect) { autoSelect_ = autoSelect; }
  bool Modified() const { return modified_; }
  void SetModified(bool modified) { modified_ = modified; }

  int SelStart() const;
  void SetSelStart(int start);
  int SelLength() const;
  void SetSelLength(int length);
  QString SelText() const;
  void SelectAll();

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }

protected:
  QWidget* CreateWidget() override;
  void CreateWnd() override;
  virtual void Change();
  // False keeps the user from changing the text.
  virtual bool EditCanModify() { return true; }
  void KeyPress(QChar& key) override;
  void Dispatch(TMessage& message) override;
  void CMEnter(TMessage& message) override;
  void WMKeyDown(TMessage& message) override;
  void WMContextMenu(TMessage& message) override;
  // Every change through the clipboard or undo arrives as one of these, so that a
  // descendant can refuse or adjust it; each asks EditCanModify first.
  virtual void WMCut(TMessage& message);
  virtual void WMPaste(TMessage& message);
  virtual void WMClear(TMessage& message);
  virtual void WMUndo(TMessage& message);

private:
  void TextChanged();
  // The message that a clipboard or undo key stands for; 0 for other keys.
  static UINT EditCommand(uint16_t key, TShiftState shift);
  static bool IsRedoKey(uint16_t key, TShiftState shift);
  void ShowEditMenu(TPoint screen);

  QString text_;  // the text while there is no window
  QString editMask_;
  TEditMaskInfo mask_;
  int maxLength_ = 0;
  bool readOnly_ = false;
  TBorderStyle borderStyle_ = bsSingle;
  bool autoSelect_ = true;
  bool modified_ = false;
  // Set while the text is changed by the program, not by the user.
  bool settingText_ = false;
  TNotifyEvent onChange_;
};

}  // namespace quil
