#include "framework/db/LikePattern.h"

namespace quil {

namespace {

constexpr QChar AnyText = QLatin1Char('%');
constexpr QChar AnyChar = QLatin1Char('_');

}  // namespace

TLikePattern::TLikePattern(TShape shape, const QString& literal, Qt::CaseSensitivity sensitivity)
    : shape_(shape), literal_(literal), sensitivity_(sensitivity) {}

TLikePattern::TLikePattern(const QString& pattern, Qt::CaseSensitivity sensitivity)
    : shape_(TShape::Wildcards), literal_(pattern), sensitivity_(sensitivity), text_(pattern) {
  qsizetype first = 0;
  qsizetype last = pattern.size();
  while (first < last && pattern[first] == AnyText) ++first;
  while (last > first && pattern[last - 1] == AnyText) --last;
  const QString middle = pattern.mid(first, last - first);
  const bool leading = first > 0;
  const bool trailing = last < pattern.size();
  if (middle.contains(AnyChar) || middle.contains(AnyText)) {
    if (sensitivity == Qt::CaseInsensitive) literal_ = pattern.toCaseFolded();
    return;
  }
  literal_ = middle;
  if (middle.isEmpty() && leading) shape_ = TShape::AnyText;
  else if (leading && trailing) shape_ = TShape::Part;
  else if (leading) shape_ = TShape::Suffix;
  else if (trailing) shape_ = TShape::Prefix;
  else shape_ = TShape::Exact;
}

TLikePattern TLikePattern::Prefix(const QString& prefix, Qt::CaseSensitivity sensitivity) {
  TLikePattern pattern(TShape::Prefix, prefix, sensitivity);
  pattern.text_ = prefix;
  pattern.prefix_ = true;
  return pattern;
}

bool TLikePattern::Matches(QStringView text) const {
  switch (shape_) {
    case TShape::Exact: return text.compare(literal_, sensitivity_) == 0;
    case TShape::Prefix: return text.startsWith(literal_, sensitivity_);
    case TShape::Suffix: return text.endsWith(literal_, sensitivity_);
    case TShape::Part: return text.contains(literal_, sensitivity_);
    case TShape::AnyText: return true;
    case TShape::Wildcards: return MatchWildcards(text);
  }
  return false;
}

bool TLikePattern::SameChar(QChar patternChar, QChar textChar) const {
  return patternChar == textChar || (sensitivity_ == Qt::CaseInsensitive && patternChar == textChar.toCaseFolded());
}

// Greedy with one back-track point: on a mismatch the last "%" takes one more
// character. Linear in practice and never worse than text times pattern.
bool TLikePattern::MatchWildcards(QStringView text) const {
  const QStringView pattern(literal_);
  qsizetype patternPos = 0;
  qsizetype textPos = 0;
  qsizetype starPatternPos = -1;  // -1: no "%" seen yet
  qsizetype starTextPos = 0;
  while (textPos < text.size()) {
    if (patternPos < pattern.size() && pattern[patternPos] == AnyText) {
      starPatternPos = patternPos++;
      starTextPos = textPos;
    } else if (patternPos < pattern.size() &&
               (pattern[patternPos] == AnyChar || SameChar(pattern[patternPos], text[textPos]))) {
      ++patternPos;
      ++textPos;
    } else if (starPatternPos >= 0) {
      patternPos = starPatternPos + 1;
      textPos = ++starTextPos;
    } else {
      return false;
    }
  }
  while (patternPos < pattern.size() && pattern[patternPos] == AnyText) ++patternPos;
  return patternPos == pattern.size();
}

}  // namespace quil
