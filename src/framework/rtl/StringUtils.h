#pragma once
// String helpers with the framework's semantics. Positions are 1-based, 0 meaning none.
// The plain functions (UpperCase, CompareText, SameText) treat only ASCII letters as
// letters; the Ansi ones handle all of Unicode and compare by a fixed US-English
// collation, so that the order is the same on every machine.

#include <QString>
#include <climits>

#include "framework/rtl/Sets.h"

namespace quil {

// Remove characters up to and including the blank (control characters too).
QString Trim(const QString& text);
QString TrimLeft(const QString& text);
QString TrimRight(const QString& text);

QString UpperCase(const QString& text);
QString LowerCase(const QString& text);
// One code point at a time ("ß" stays "ß"), so that the length and every position
// found in the result are those of the text.
QString AnsiUpperCase(const QString& text);
QString AnsiLowerCase(const QString& text);
inline QString WideUpperCase(const QString& text) { return AnsiUpperCase(text); }
inline QString WideLowerCase(const QString& text) { return AnsiLowerCase(text); }

// Below, equal to or above 0. CompareStr and CompareText go by UTF-16 code units.
int CompareStr(const QString& a, const QString& b);
int CompareText(const QString& a, const QString& b);
bool SameText(const QString& a, const QString& b);
int AnsiCompareStr(const QString& a, const QString& b);
int AnsiCompareText(const QString& a, const QString& b);
bool AnsiSameText(const QString& a, const QString& b);
inline int WideCompareText(const QString& a, const QString& b) { return AnsiCompareText(a, b); }
inline bool WideSameText(const QString& a, const QString& b) { return AnsiSameText(a, b); }

QString QuotedStr(const QString& text);
QString AnsiQuotedStr(const QString& text, QChar quote);
// The text inside the quotes with doubled quotes made single. A text that does not
// start with the quote, or that is not closed by one at its very end and yields
// nothing, comes back unchanged.
QString AnsiDequotedStr(const QString& text, QChar quote);

enum TReplaceFlag { rfReplaceAll, rfIgnoreCase };
using TReplaceFlags = TSet<TReplaceFlag>;
QString StringReplace(const QString& text, const QString& oldPattern, const QString& newPattern,
                      TReplaceFlags flags);

// Position of the first `substr` at or after `offset`; an empty substr is never found.
int Pos(const QString& substr, const QString& text, int offset = 1);
// `count` characters from `index`; an index below 1 counts as 1.
QString Copy(const QString& text, int index, int count = INT_MAX);
bool IsDelimiter(const QString& delimiters, const QString& text, int index);
int LastDelimiter(const QString& delimiters, const QString& text);
// The file name with its extension (from the last '.' of the name part on) replaced by
// `extension`, which brings its own dot; a name without one gets it appended.
QString ChangeFileExt(const QString& fileName, const QString& extension);

// Separator of list texts read by ScanStr and ScanInt when they are given none.
extern QString DefaultDelimiter;

// Cuts the first item off a delimited list: returns the text before the first
// delimiter (exact comparison) and leaves what follows it in `text`; without a
// delimiter returns all of it and leaves `text` empty. Nothing is trimmed.
QString ScanStr(QString& text, const QString& delimiter = {});
// ScanStr read as by StrToIntDef: an item that is not a number gives `defaultValue`
// and is consumed all the same.
int ScanInt(QString& text, int defaultValue, const QString& delimiter = {});

}  // namespace quil
