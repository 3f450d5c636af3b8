#pragma once
// The framework's resource strings that the library shows or raises. They are
// variables so that an application may translate them before use.

#include <QString>

namespace quil {

extern QString STextTrue;
extern QString STextFalse;
extern QString STooManyColumns;
extern QString SFieldNotFound;        // %s: the field name
extern QString SCircularDataLink;
extern QString SDataSetUnidirectional;
extern QString SDataSetClosed;
extern QString SNotEditing;
extern QString SDataSetEmpty;
extern QString SDeleteRecordQuestion;
extern QString SDeleteMultipleRecordsQuestion;
extern QString SListIndexError;       // %d: the index
extern QString SDuplicateString;
extern QString SSortedListError;
extern QString SListCapacityError;   // %d: the capacity
extern QString SListCountError;      // %d: the count
extern QString SIniFileWriteError;   // %s: the file name
extern QString SDuplicateName;        // %s: the name
extern QString SInvalidName;          // %s: the name
extern QString SAssignError;          // %s, %s: source and destination classes
extern QString SInvalidPropertyPath;
extern QString SUnknownProperty;      // %s: the property name
extern QString SInvalidPropertyValue;
extern QString SClassNotFound;        // %s: the class name
extern QString SInvalidImage;
extern QString SReadError;
extern QString SFOpenError;           // %s: the file name
extern QString SFCreateError;         // %s: the file name
extern QString SInvalidInteger;       // %s: the text
extern QString SInvalidFloat;         // %s: the text
extern QString SInvalidDate;          // %s: the text
extern QString SInvalidDateTime;      // %s: the text
extern QString SDateEncodeError;
extern QString STimeEncodeError;
extern QString SInvalidVarCast;
extern QString SInvalidFormat;        // %s: the format
extern QString SArgumentMissing;      // %s: the format
extern QString SInvalidTime;          // %s: the text
extern QString SInvalidBoolean;       // %s: the text
extern QString SInvalidGUID;          // %s: the text
extern QString SOverflow;
extern QString SDivByZero;
extern QString SInvalidVarOp;
extern QString SVarNotArray;
extern QString SVarArrayBounds;

// The data classes.
extern QString SFieldReadOnly;  // %s: the field's display name
extern QString SFieldRequired;  // %s: the field's display name
extern QString SDataSetReadOnly;
extern QString SDataSetOpen;
extern QString SRecordNotFound;
// A Locate or Lookup from a handler that runs while the data set fetches a record.
extern QString SSearchWhileFetching;
extern QString SUnknownFieldType;  // %s: the field's display name
extern QString SFieldIndexError;
extern QString SDuplicateFieldName;  // %s: the field name
extern QString SDataSourceChange;
extern QString SDataSetMissing;  // %s: the field's display name
extern QString SFieldTypeMismatch;  // field, expected and actual type
extern QString SInvalidIntegerValue;  // the text, the field
extern QString SInvalidFloatValue;  // the text, the field
extern QString SInvalidBoolValue;  // the text, the field
extern QString SFieldRangeError;  // value, field, bounds
extern QString SLookupInfoError;  // %s: the field's display name
extern QString SIndexNotFound;  // %s: the index name
extern QString SDuplicateIndexName;  // %s: the index name
extern QString SNoFieldIndexes;
extern QString SMissingDataPacket;
extern QString SInvalidDataPacket;
extern QString SFieldNameMissing;
extern QString SNoFieldDefs;
extern QString SFieldAccessError;  // %s, %s: the field, the type

}  // namespace quil
