#pragma once
#include <QString>

#include "framework/graphics/Colors.h"
#include "framework/rtl/Sets.h"
#include "grid/QuilDBGridParts.h"

namespace quil {

enum TQuilSearchOption { soCaseSensitive, soWholeWords, soWrapAround, soSkipMessage, soCurrentCol, soFilterRows };
using TQuilSearchOptions = TSet<TQuilSearchOption>;

// The 1-based place of search in text, 0 for none. A whole word has no letter on
// either side; a refused match goes on searching behind it.
int SearchTextPos(const QString& search, const QString& text, TQuilSearchOptions options);

// The searched text and how cells show a match.
// FIXME: search adds the panel, the record walk and its row filter; until then nothing
// searches and the text only marks matches in the cells.
class TQuilDBGridSearch : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;

  bool Active() const { return active_; }
  void SetActive(bool value);
  // clDefault: DefaultColor.
  TColor Color() const { return color_; }
  void SetColor(TColor value);
  TColor DefaultColor() const { return TColor(0x0000AAFF); }
  TQuilSearchOptions Options() const { return options_; }
  void SetOptions(TQuilSearchOptions value);
  const QString& Text() const { return text_; }
  void SetText(const QString& value);
  // Cells mark the matches of Text.
  bool GetVisible() const { return active_ && !text_.isEmpty(); }
  // The panel is to show; a grid loaded with it shows it.
  bool PanelVisible() const { return panelVisible_; }
  void SetPanelVisible(bool value) { panelVisible_ = value; }
  // The search hides the rows that do not match.
  bool FilterActive() const { return false; }

private:
  bool active_ = true;
  bool panelVisible_ = false;
  TColor color_ = clDefault;
  TQuilSearchOptions options_;
  QString text_;
};

}  // namespace quil
