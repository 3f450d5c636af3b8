#pragma once
// The numeric DisplayFormat and EditFormat of fields: up to three ";"-separated
// sections (positive, negative, zero); in a section "0" is a digit always shown, "#" a
// digit shown when significant, "." the decimal separator and "," anywhere in the
// integer part asks for thousand separators; other characters, and text in quotes,
// are copied. A negative value formatted by the first section gets a "-".

#include <QString>

namespace quil {

QString FormatNumber(const QString& format, double value);

}  // namespace quil
