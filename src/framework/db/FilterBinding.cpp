#include "framework/db/FilterBinding.h"

namespace quil {

TFilterFieldKind FilterFieldKind(TFieldType type) {
  switch (type) {
    case ftString: case ftFixedChar: case ftWideString: case ftFixedWideChar: case ftGuid:
    case ftMemo: case ftWideMemo: case ftFmtMemo: case ftOraClob:
      return TFilterFieldKind::Text;
    case ftSmallint: case ftInteger: case ftWord: case ftAutoInc: case ftShortint: case ftByte:
    case ftLargeint: case ftLongWord:
      return TFilterFieldKind::Integer;
    case ftFloat: case ftCurrency: case ftBCD: case ftFMTBcd: case ftExtended: case ftSingle:
      return TFilterFieldKind::Real;
    case ftBoolean: return TFilterFieldKind::Boolean;
    case ftDate: return TFilterFieldKind::Date;
    case ftTime: return TFilterFieldKind::Time;
    case ftDateTime: case ftTimeStamp: case ftOraTimeStamp: case ftTimeStampOffset:
      return TFilterFieldKind::DateTime;
    default: return TFilterFieldKind::Other;
  }
}

TFilterSettings FilterSettingsFor(TFilterOptions options) {
  TFilterSettings settings;
  if (options.Contains(foCaseInsensitive)) settings.textCase = TFilterCase::Insensitive;
  if (!options.Contains(foNoPartialCompare)) settings.partialCompare = TFilterPartialCompare::TrailingAsterisk;
  return settings;
}

}  // namespace quil
