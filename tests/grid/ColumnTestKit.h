#pragma once
// Shared pieces of the column tests: the field names of a collection in order, and a
// grid fixture that finds a column by its field.

#include <QStringList>

#include "GridTestKit.h"

namespace gridtest {

inline QStringList FieldNames(const quil::TQuilDBGridColumns* columns) {
  QStringList names;
  for (quil::TQuilColumn* column : *columns) names << column->FieldName();
  return names;
}

class ColumnFixture : public GridFixture {
protected:
  // The first column bound to fieldName; the test fails on a missing one.
  quil::TQuilColumn* ColumnOf(const char* fieldName) {
    const int index = int(FieldNames(grid->Columns()).indexOf(QLatin1String(fieldName)));
    EXPECT_GE(index, 0) << "no column for " << fieldName;
    return index < 0 ? nullptr : grid->Columns()->Items(index);
  }
};

}  // namespace gridtest
