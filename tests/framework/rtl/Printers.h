#pragma once
// Lets gtest show QString and QStringList values as text in failure messages.

#include <QStringList>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

inline void PrintTo(const QStringList& list, std::ostream* out) {
  *out << '{';
  for (qsizetype index = 0; index < list.size(); ++index) {
    if (index > 0) *out << ", ";
    PrintTo(list[index], out);
  }
  *out << '}';
}
