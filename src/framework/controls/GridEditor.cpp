// TCustomGrid's editing and TInplaceEdit, the editor it places on the current cell.

#include <QWidget>

#include "framework/controls/Application.h"
#include "framework/controls/Grids.h"

namespace quil {

TInplaceEdit* TCustomGrid::CreateEditor() { return new TInplaceEdit(this); }

bool TCustomGrid::CanEditShow() {
  return options_.Contains(goEditing) && !options_.Contains(goRowSelect) && editorMode_ &&
         !ComponentState().Contains(csDesigning) && HandleAllocated() &&
         (options_.Contains(goAlwaysShowEditor) || IsActiveControl());
}

void TCustomGrid::SetEditorMode(bool editorMode) {
  if (editorMode) ShowEditor();
  else HideEditor();
}

void TCustomGrid::ShowEditor() {
  // Without goEditing the grid does not go into editor mode at all.
  if (!options_.Contains(goEditing)) return;
  editorMode_ = true;
  UpdateEdit();
}

void TCustomGrid::HideEditor() {
  editorMode_ = false;
  HideEdit();
}

void TCustomGrid::InvalidateEditor() {
  inplaceCol_ = -1;
  inplaceRow_ = -1;
  UpdateEdit();
}

void TCustomGrid::UpdateEdit() {
  if (!CanEditShow()) return;
  if (!inplaceEdit_) {
    inplaceEdit_ = CreateEditor();
    inplaceEdit_->SetGrid(this);
    inplaceEdit_->SetParent(this);
  } else if (current_.X == inplaceCol_ && current_.Y == inplaceRow_) {
    inplaceEdit_->Move(CellRect(current_.X, current_.Y));
    return;
  } else {
    HideEdit();
  }
  inplaceCol_ = current_.X;
  inplaceRow_ = current_.Y;
  // A limit of -1 forbids any change; the editor's MaxLength cannot say so (0 is no limit).
  canEditModify_ = GetEditLimit() != -1;
  inplaceEdit_->UpdateContents();
  inplaceEdit_->SelectAll();
  // The new contents may change the answer, as for a cell whose editor reads its value.
  if (CanEditShow()) inplaceEdit_->Move(CellRect(current_.X, current_.Y));
}

bool TCustomGrid::EditorShowing() const {
  return inplaceEdit_ && inplaceEdit_->Visible() && inplaceCol_ == current_.X && inplaceRow_ == current_.Y;
}

void TCustomGrid::HideEdit() {
  if (!inplaceEdit_) return;
  UpdateText();
  inplaceCol_ = -1;
  inplaceRow_ = -1;
  inplaceEdit_->Hide();
}

void TCustomGrid::UpdateText() {
  if (inplaceEdit_ && inplaceCol_ >= 0 && inplaceRow_ >= 0)
    SetEditText(inplaceCol_, inplaceRow_, inplaceEdit_->Text());
}

bool TCustomGrid::IsInplaceEditor(WPARAM window) const {
  return inplaceEdit_ && window == WPARAM(static_cast<TWinControl*>(inplaceEdit_));
}

// Focus handed back by the editor changes nothing: the editor is closing or moving.
void TCustomGrid::WMSetFocus(TMessage& message) {
  TCustomControl::WMSetFocus(message);
  if (IsInplaceEditor(message.WParam)) return;
  InvalidateGridRect(Selection());
  UpdateEdit();
}

// The editor stays only while the focus is in the grid or in the editor itself.
void TCustomGrid::WMKillFocus(TMessage& message) {
  TCustomControl::WMKillFocus(message);
  InvalidateGridRect(Selection());
  if (inplaceEdit_ && !IsInplaceEditor(message.WParam)) inplaceEdit_->Hide();
}

const TMetaClass& TInplaceEdit::StaticClass() {
  static const TMetaClass meta = TMetaClass("TInplaceEdit", &TCustomMaskEdit::StaticClass());
  return meta;
}

const TMetaClass& TInplaceEdit::ClassType() const { return StaticClass(); }

TInplaceEdit::TInplaceEdit(TComponent* owner) : TCustomMaskEdit(owner) {
  SetBorderStyle(bsNone);
  SetInitialVisible(false);
  SetTabStop(false);
}

TInplaceEdit::~TInplaceEdit() = default;

void TInplaceEdit::Move(const TRect& rect) {
  if (rect.IsEmpty()) {
    Hide();
    return;
  }
  SetBoundsRect(rect);
  BoundsChanged();
  SetVisible(true);
  if (grid_ && grid_->IsActiveControl() && !Focused()) SetFocus();
}

void TInplaceEdit::Hide() {
  if (!Visible()) return;
  bool hadFocus = Focused();
  SetVisible(false);
  if (hadFocus && grid_ && grid_->CanFocus()) grid_->SetFocus();
}

void TInplaceEdit::Invalidate() {
  TCustomMaskEdit::Invalidate();
  if (grid_ && grid_->HandleAllocated()) grid_->InvalidateRect(BoundsRect());
}

void TInplaceEdit::UpdateLoc(const TRect& rect) { Move(rect); }

bool TInplaceEdit::PosEqual(const TRect& rect) const { return BoundsRect() == rect; }

void TInplaceEdit::UpdateContents() {
  if (!grid_) return;
  int limit = grid_->GetEditLimit();
  SetMaxLength(limit > 0 ? limit : 0);
  SetReadOnly(limit == -1);
  SetEditMask(grid_->GetEditMask(grid_->Col(), grid_->Row()));
  SetText(grid_->GetEditText(grid_->Col(), grid_->Row()));
  SetFont(grid_->Font());
}

// No selection, the caret after the text.
void TInplaceEdit::Deselect() { SetSelStart(int(EditText().size())); }

void TInplaceEdit::SetFocus() {
  if (CanFocus()) TCustomMaskEdit::SetFocus();
}

bool TInplaceEdit::CaretAtStart() const { return SelLength() == 0 && SelStart() == 0; }

bool TInplaceEdit::CaretAtEnd() const { return SelLength() == 0 && SelStart() >= Text().size(); }

void TInplaceEdit::SendToParent(uint16_t& key, TShiftState shift) {
  grid_->KeyDown(key, shift);
  key = 0;
}

// Keys that move between cells belong to the grid; the others edit the text.
void TInplaceEdit::KeyDown(uint16_t& key, TShiftState shift) {
  if (!grid_) {
    TCustomMaskEdit::KeyDown(key, shift);
    return;
  }
  bool caretMoves = grid_->Options().Contains(goAlwaysShowEditor);
  bool toGrid = false;
  switch (key) {
    case VK_UP: case VK_DOWN: case VK_PRIOR: case VK_NEXT: case VK_ESCAPE: case VK_TAB:
      toGrid = true;
      break;
    case VK_INSERT: toGrid = shift.Empty(); break;
    case VK_LEFT: case VK_HOME: toGrid = shift.Contains(ssCtrl) || (caretMoves && CaretAtStart()); break;
    case VK_RIGHT: case VK_END: toGrid = shift.Contains(ssCtrl) || (caretMoves && CaretAtEnd()); break;
    case VK_DELETE: toGrid = shift.Contains(ssCtrl); break;
    default: break;
  }
  if (toGrid) {
    SendToParent(key, shift);
    return;
  }
  // A key the editor keeps still reaches the grid's OnKeyDown, which may take it.
  if (grid_->OnKeyDown()) grid_->OnKeyDown()(grid_, key, shift);
  if (key == VK_F2) {
    Deselect();
    key = 0;
  }
  if (key != 0) TCustomMaskEdit::KeyDown(key, shift);
}

void TInplaceEdit::KeyPress(QChar& key) {
  if (!grid_) {
    TCustomMaskEdit::KeyPress(key);
    return;
  }
  grid_->KeyPress(key);
  ushort code = key.unicode();
  if (code >= 0x20 && !grid_->CanEditAcceptKey(key)) {
    key = QChar();
    MessageBeep(0);
  }
  // Where the editor always shows, Enter does not close it: it selects all or nothing.
  if (code == 0x0D && grid_->Options().Contains(goAlwaysShowEditor)) {
    if (SelLength() == int(EditText().size())) Deselect();
    else SelectAll();
  }
  if (code == 0x09 || code == 0x1B || code == 0x0D) key = QChar();
  if (!key.isNull()) TCustomMaskEdit::KeyPress(key);
}

void TInplaceEdit::KeyUp(uint16_t& key, TShiftState shift) {
  if (grid_) grid_->KeyUp(key, shift);
  else TCustomMaskEdit::KeyUp(key, shift);
}

void TInplaceEdit::DblClick() {
  if (grid_) grid_->DblClick();
  else TCustomMaskEdit::DblClick();
}

bool TInplaceEdit::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
  return grid_ ? grid_->DoMouseWheel(shift, wheelDelta, mousePos) : TCustomMaskEdit::DoMouseWheel(shift, wheelDelta, mousePos);
}

bool TInplaceEdit::EditCanModify() { return !grid_ || grid_->CanEditModify(); }

void TInplaceEdit::Change() {
  TCustomMaskEdit::Change();
  if (grid_ && Modified()) grid_->UpdateText();
}

void TInplaceEdit::WMGetDlgCode(TMessage& message) {
  message.Result = DLGC_WANTARROWS | DLGC_WANTCHARS;
  if (grid_ && grid_->Options().Contains(goTabs)) message.Result |= DLGC_WANTTAB;
}

}  // namespace quil
