#include "framework/db/BinaryFields.h"
#include "framework/db/BooleanField.h"
#include "framework/db/DateTimeFields.h"
#include "framework/db/NumericFields.h"
#include "framework/db/ObjectFields.h"
#include "framework/db/StringFields.h"
#include "framework/db/VariantField.h"

namespace quil {

const TMetaClass* DefaultFieldClass(TFieldType type) {
  switch (type) {
    case ftString: case ftFixedChar: return &TStringField::StaticClass();
    case ftWideString: case ftFixedWideChar: return &TWideStringField::StaticClass();
    case ftGuid: return &TGuidField::StaticClass();
    case ftSmallint: return &TSmallintField::StaticClass();
    case ftInteger: return &TIntegerField::StaticClass();
    case ftWord: return &TWordField::StaticClass();
    case ftAutoInc: return &TAutoIncField::StaticClass();
    case ftShortint: return &TShortintField::StaticClass();
    case ftByte: return &TByteField::StaticClass();
    case ftLargeint: return &TLargeintField::StaticClass();
    case ftLongWord: return &TLongWordField::StaticClass();
    case ftFloat: return &TFloatField::StaticClass();
    case ftCurrency: return &TCurrencyField::StaticClass();
    case ftSingle: return &TSingleField::StaticClass();
    case ftExtended: return &TExtendedField::StaticClass();
    case ftFMTBcd: return &TFMTBCDField::StaticClass();
    case ftBCD: return &TBCDField::StaticClass();
    case ftBoolean: return &TBooleanField::StaticClass();
    case ftDate: return &TDateField::StaticClass();
    case ftTime: return &TTimeField::StaticClass();
    case ftDateTime: return &TDateTimeField::StaticClass();
    case ftTimeStamp: case ftOraTimeStamp: return &TSQLTimeStampField::StaticClass();
    case ftTimeStampOffset: return &TSQLTimeStampOffsetField::StaticClass();
    case ftBytes: return &TBytesField::StaticClass();
    case ftVarBytes: return &TVarBytesField::StaticClass();
    case ftBlob: case ftTypedBinary: case ftParadoxOle: case ftDBaseOle: case ftOraBlob:
      return &TBlobField::StaticClass();
    case ftMemo: case ftFmtMemo: case ftOraClob: return &TMemoField::StaticClass();
    case ftWideMemo: return &TWideMemoField::StaticClass();
    case ftGraphic: return &TGraphicField::StaticClass();
    case ftVariant: return &TVariantField::StaticClass();
    case ftADT: return &TADTField::StaticClass();
    case ftArray: return &TArrayField::StaticClass();
    case ftDataSet: return &TDataSetField::StaticClass();
    case ftReference: return &TReferenceField::StaticClass();
    default: return nullptr;
  }
}

}  // namespace quil
