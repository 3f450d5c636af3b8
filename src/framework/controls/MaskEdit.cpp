#include "framework/controls/MaskEdit.h"

#include <QLineEdit>

#include "framework/controls/Controls_p.h"
#include "framework/controls/KeyMapping.h"
#include "framework/controls/MaskEdit_p.h"
#include "framework/rtl/FormatSettings.h"

namespace quil {

namespace {

// Qt's code for each mask character; a null char for a literal.
QChar QtMaskChar(QChar ch) {
  switch (ch.unicode()) {
    case '0': return QLatin1Char('9');
    case '9': return QLatin1Char('0');
    case '#': return QLatin1Char('#');
    case 'L': return QLatin1Char('A');
    case 'l': return QLatin1Char('a');
    case 'A': return QLatin1Char('N');
    case 'a': return QLatin1Char('n');
    case 'C': return QLatin1Char('X');
    case 'c': return QLatin1Char('x');
    default: return QChar();
  }
}

// Characters that Qt's input mask reads as codes and the framework's mask as literals.
bool IsQtMeta(QChar ch) { return QStringLiteral("AaNnXx90Dd#HhBb><![]{}\\").contains(ch); }

// The literal an unescaped mask character stands for: a blank for '_', and the
// separators of the format settings in force for ':' and '/', so that one time or date
// mask serves every locale.
QChar MaskLiteral(QChar ch) {
  switch (ch.unicode()) {
    case '_': return QLatin1Char(' ');
    case ':': return FormatSettings.TimeSeparator;
    case '/': return FormatSettings.DateSeparator;
    default: return ch;
  }
}

}  // namespace

TEditMaskInfo ParseEditMask(const QString& editMask) {
  TEditMaskInfo info;
  QStringList fields = editMask.split(QLatin1Char(';'));
  const QString& mask = fields.value(0);
  if (fields.size() > 1) info.SaveLiterals = fields[1].trimmed() != QLatin1String("0");
  if (fields.size() > 2 && !fields[2].isEmpty()) info.Blank = fields[2][0];
  for (qsizetype index = 0; index < mask.size(); ++index) {
    QChar ch = mask[index];
    if (ch == QLatin1Char('!')) continue;
    if (ch == QLatin1Char('>') || ch == QLatin1Char('<')) {
      bool caseOff = ch == QLatin1Char('<') && index + 1 < mask.size() && mask[index + 1] == QLatin1Char('>');
      info.InputMask += caseOff ? QLatin1Char('!') : ch;
      if (caseOff) ++index;
      continue;
    }
    if (ch == QLatin1Char('\\') && index + 1 < mask.size()) {
      ch = mask[++index];
    } else if (QChar code = QtMaskChar(ch); !code.isNull()) {
      info.InputMask += code;
      info.LiteralPositions += QLatin1Char(' ');
      continue;
    } else {
      ch = MaskLiteral(ch);
    }
    if (IsQtMeta(ch)) info.InputMask += QLatin1Char('\\');
    info.InputMask += ch;
    info.LiteralPositions += QLatin1Char('L');
  }
  if (!info.InputMask.isEmpty()) info.InputMask += QLatin1Char(';') + info.Blank;
  return info;
}

const TMetaClass& TCustomMaskEdit::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCustomMaskEdit", &TWinControl::StaticClass());
  return meta;
}

const TMetaClass& TCustomMaskEdit::ClassType() const { return StaticClass(); }

TCustomMaskEdit::TCustomMaskEdit(TComponent* owner) : TWinControl(owner) {
  SetTabStop(true);
  SetColor(clWindow);
  SetBounds(0, 0, 121, 21);
  SetCursor(crIBeam);
}

TCustomMaskEdit::~TCustomMaskEdit() = default;

QWidget* TCustomMaskEdit::CreateWidget() { return new TWindowWidget<QLineEdit>(Private()); }

void TCustomMaskEdit::CreateWnd() {
  TWinControl::CreateWnd();
  QLineEdit* edit = LineEdit(this);
  // The edit paints itself; the opaque flag of custom-painted controls does not fit it.
  edit->setAttribute(Qt::WA_OpaquePaintEvent, false);
  edit->setFrame(borderStyle_ == bsSingle);
  edit->setReadOnly(readOnly_);
  edit->setInputMask(mask_.InputMask);
  if (maxLength_ > 0) edit->setMaxLength(maxLength_);
  settingText_ = true;
  edit->setText(text_);
  settingText_ = false;
  // The edit's own menu would change the text behind EditCanModify; WMContextMenu shows it.
  edit->setContextMenuPolicy(Qt::PreventContextMenu);
  QObject::connect(edit, &QLineEdit::textChanged, edit, [this] { TextChanged(); });
}

QString TCustomMaskEdit::EditText() const {
  QLineEdit* edit = LineEdit(this);
  return edit ? edit->displayText() : text_;
}

QString TCustomMaskEdit::Text() const {
  QLineEdit* edit = LineEdit(this);
  if (!edit) return text_;
  if (!IsMasked()) return edit->text();
  QString shown = edit->displayText();
  QString value;
  for (qsizetype index = 0; index < shown.size(); ++index) {
    bool literal = index < mask_.LiteralPositions.size() && mask_.LiteralPositions[index] == QLatin1Char('L');
    if (literal && !mask_.SaveLiterals) continue;
    value += !literal && shown[index] == mask_.Blank ? QLatin1Char(' ') : shown[index];
  }
  while (value.endsWith(QLatin1Char(' '))) value.chop(1);
  return value;
}

void TCustomMaskEdit::SetText(const QString& text) {
  text_ = text;
  if (QLineEdit* edit = LineEdit(this)) {
    settingText_ = true;
    edit->setText(text);
    settingText_ = false;
  }
  modified_ = false;
}

void TCustomMaskEdit::SetEditMask(const QString& editMask) {
  if (editMask_ == editMask) return;
  editMask_ = editMask;
  mask_ = ParseEditMask(editMask);
  if (QLineEdit* edit = LineEdit(this)) edit->setInputMask(mask_.InputMask);
}

void TCustomMaskEdit::SetMaxLength(int maxLength) {
  maxLength_ = std::max(maxLength, 0);
  if (QLineEdit* edit = LineEdit(this)) edit->setMaxLength(maxLength_ > 0 ? maxLength_ : 32767);
}

void TCustomMaskEdit::SetReadOnly(bool readOnly) {
  readOnly_ = readOnly;
  if (QLineEdit* edit = LineEdit(this)) edit->setReadOnly(readOnly);
}

void TCustomMaskEdit::SetBorderStyle(TBorderStyle style) {
  borderStyle_ = style;
  if (QLineEdit* edit = LineEdit(this)) edit->setFrame(style == bsSingle);
}

int TCustomMaskEdit::SelStart() const {
  QLineEdit* edit = LineEdit(this);
  if (!edit) return 0;
  return edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
}

void TCustomMaskEdit::SetSelStart(int start) {
  if (QLineEdit* edit = LineEdit(this)) edit->setCursorPosition(start);
}

int TCustomMaskEdit::SelLength() const {
  QLineEdit* edit = LineEdit(this);
  return edit ? int(edit->selectedText().size()) : 0;
}

void TCustomMaskEdit::SetSelLength(int length) {
  if (QLineEdit* edit = LineEdit(this)) edit->setSelection(SelStart(), length);
}

QString TCustomMaskEdit::SelText() const {
  QLineEdit* edit = LineEdit(this);
  return edit ? edit->selectedText() : QString();
}

void TCustomMaskEdit::SelectAll() {
  if (QLineEdit* edit = LineEdit(this)) edit->selectAll();
}

void TCustomMaskEdit::TextChanged() {
  if (!settingText_) modified_ = true;
  Change();
}

void TCustomMaskEdit::Change() {
  if (onChange_) onChange_(this);
}

void TCustomMaskEdit::KeyPress(QChar& key) {
  TWinControl::KeyPress(key);
  // Characters that would change the text stop here when it may not change.
  if ((key.unicode() >= 0x20 || key.unicode() == 0x08) && !EditCanModify()) key = QChar();
}

void TCustomMaskEdit::WMKeyDown(TMessage& message) {
  // Deleting and redo keys change the text without a character, so they ask first too.
  TShiftState shift = KeyDataToShiftState(message.LParam);
  bool deletes = message.WParam == VK_DELETE || message.WParam == VK_BACK ||
                 IsRedoKey(uint16_t(message.WParam), shift);
  if (DoKeyDown(message)) return;
  if (UINT command = EditCommand(uint16_t(message.WParam), shift)) {
    Perform(command, 0, 0);
    return;
  }
  if (deletes && !EditCanModify()) return;
  DefaultHandler(message);
}

void TCustomMaskEdit::CMEnter(TMessage& message) {
  if (autoSelect_ && GetKeyState(VK_LBUTTON) >= 0) SelectAll();
  TWinControl::CMEnter(message);
}

}  // namespace quil
