#pragma once
// A LIKE pattern compiled once: "%" matches any text, "_" any one UTF-16 code unit, and
// everything else itself. There is no escape character. The usual shapes (exact text,
// a prefix, a suffix, a part) run as plain string searches.

#include <QString>
#include <QStringView>

namespace quil {

class TLikePattern {
public:
  TLikePattern(const QString& pattern, Qt::CaseSensitivity sensitivity);
  // Text that starts with `prefix`, wildcards in it included.
  static TLikePattern Prefix(const QString& prefix, Qt::CaseSensitivity sensitivity);

  bool Matches(QStringView text) const;
  // The pattern as written; for Prefix, the prefix, whose wildcards match themselves.
  const QString& Text() const { return text_; }
  bool IsPrefix() const { return prefix_; }
  Qt::CaseSensitivity Sensitivity() const { return sensitivity_; }

private:
  enum class TShape { Exact, Prefix, Suffix, Part, AnyText, Wildcards };

  TLikePattern(TShape shape, const QString& literal, Qt::CaseSensitivity sensitivity);
  bool MatchWildcards(QStringView text) const;
  bool SameChar(QChar patternChar, QChar textChar) const;

  TShape shape_;
  // The text between the leading and trailing "%" for the plain shapes; the whole
  // pattern, case-folded when the case is ignored, for Wildcards.
  QString literal_;
  Qt::CaseSensitivity sensitivity_;
  QString text_;
  bool prefix_ = false;
};

}  // namespace quil
