#include "framework/db/FieldNames.h"

#include "framework/rtl/StringUtils.h"

namespace quil {

QString ExtractFieldName(const QString& fields, int& pos) {
  int end = qMax(pos, 1);
  while (end <= fields.size() && fields[end - 1] != QLatin1Char(';')) ++end;
  const QString name = Trim(fields.mid(pos - 1, end - pos));
  if (end <= fields.size()) ++end;
  pos = end;
  return name;
}

}  // namespace quil
