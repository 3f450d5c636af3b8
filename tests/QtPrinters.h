#pragma once
// Readable failure messages for Qt values in gtest assertions.

#include <QString>
#include <QStringList>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& lines, std::ostream* os) {
  *os << '{';
  for (qsizetype index = 0; index < lines.size(); ++index)
    *os << (index ? ", \"" : "\"") << lines[index].toStdString() << '"';
  *os << '}';
}
QT_END_NAMESPACE
