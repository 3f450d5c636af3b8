#pragma once
// How the SQL data sets see the database's columns: a field type for each column, and
// values converted between Qt SQL's QVariant and the framework's Variant.
//
// SQLite keeps values by affinity, not by declared type, and its driver reports most
// columns as text; the declared type ("NUMERIC(12,2)", "DATE") decides the field type
// there. Dates and times live in SQLite as ISO text ("2024-03-05", "2024-03-05 14:30:00"),
// the form its date functions read, and bind back in the same form.

#include <QString>
#include <QVariant>

#include "framework/db/DataTypes.h"
#include "framework/db/SqlConnection.h"
#include "framework/rtl/Variants.h"

class QSqlField;

namespace quil {

struct TSQLColumn {
  QString name;
  TFieldType type = ftUnknown;
  int size = 0;  // characters of a string, decimals of a BCD; 0 otherwise
};

// The field type for a declared column type such as "VARCHAR(60)" or "numeric(12,2)".
TSQLColumn ColumnForDeclaredType(const QString& name, const QString& declared);
// The field type from what the driver reports of a result column.
TSQLColumn ColumnForSqlField(const QSqlField& field);

// Null for a null value; raises EDatabaseError when the text of a date is no date.
Variant FromSqlValue(const QVariant& value, TFieldType type);
// The value to bind for a column of the type; Null binds as a typed null.
QVariant ToSqlValue(const Variant& value, TFieldType type, TSQLDialect dialect);

}  // namespace quil
