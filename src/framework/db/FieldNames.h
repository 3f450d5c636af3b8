#pragma once
// Scanning of semicolon-separated field lists, as the data classes take them.

#include <QString>

namespace quil {

// Returns the trimmed name that starts at the 1-based position pos and ends before the
// next ';', and moves pos past that semicolon. Loop while pos <= fields.size().
QString ExtractFieldName(const QString& fields, int& pos);

}  // namespace quil
