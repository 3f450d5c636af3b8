// What the grid's cells need of the search: the text, its options and the match test.
#include "grid/QuilDBGridSearch.h"

#include "grid/QuilDBGrid.h"

namespace quil {

int SearchTextPos(const QString& search, const QString& text, TQuilSearchOptions options) {
  if (search.isEmpty()) return 0;
  const Qt::CaseSensitivity sensitivity =
      options.Contains(soCaseSensitive) ? Qt::CaseSensitive : Qt::CaseInsensitive;
  for (qsizetype from = 0;;) {
    const qsizetype at = text.indexOf(search, from, sensitivity);
    if (at < 0) return 0;
    if (!options.Contains(soWholeWords)) return int(at) + 1;
    const qsizetype behind = at + search.size();
    const bool startsWord = at == 0 || !text.at(at - 1).isLetter();
    const bool endsWord = behind >= text.size() || !text.at(behind).isLetter();
    if (startsWord && endsWord) return int(at) + 1;
    from = at + 1;
  }
}

void TQuilDBGridSearch::SetActive(bool value) {
  if (value == active_) return;
  active_ = value;
  if (!text_.isEmpty()) Grid()->LayoutChanged();
}

void TQuilDBGridSearch::SetColor(TColor value) {
  if (value == color_) return;
  color_ = value;
  if (GetVisible()) Grid()->LayoutChanged();
}

// FIXME: search filters the rows anew when soFilterRows or, under a search filter, a
// matching option changes.
void TQuilDBGridSearch::SetOptions(TQuilSearchOptions value) {
  if (value == options_) return;
  options_ = value;
  if (GetVisible()) Grid()->LayoutChanged();
}

// FIXME: search filters the rows anew here with soFilterRows.
void TQuilDBGridSearch::SetText(const QString& value) {
  if (value == text_) return;
  text_ = value;
  if (active_) Grid()->LayoutChanged();
}

}  // namespace quil
