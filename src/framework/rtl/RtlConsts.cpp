#include "framework/rtl/RtlConsts.h"

namespace quil {

QString STextTrue = QStringLiteral("True");
QString STextFalse = QStringLiteral("False");
QString STooManyColumns = QStringLiteral("Grid requested to display more than 256 columns");
QString SFieldNotFound = QStringLiteral("Field '%s' not found");
QString SCircularDataLink = QStringLiteral("Circular datalinks are not allowed");
QString SDataSetUnidirectional = QStringLiteral("Operation not allowed on a unidirectional dataset");
QString SDataSetClosed = QStringLiteral("Cannot perform this operation on a closed dataset");
QString SNotEditing = QStringLiteral("Dataset not in edit or insert mode");
QString SDataSetEmpty = QStringLiteral("Cannot perform this operation on an empty dataset");
QString SDeleteRecordQuestion = QStringLiteral("Delete record?");
QString SDeleteMultipleRecordsQuestion = QStringLiteral("Delete all selected records?");
QString SListIndexError = QStringLiteral("List index out of bounds (%d)");
QString SDuplicateString = QStringLiteral("String list does not allow duplicates");
QString SSortedListError = QStringLiteral("Operation not allowed on sorted list");
QString SListCapacityError = QStringLiteral("List capacity out of bounds (%d)");
QString SListCountError = QStringLiteral("List count out of bounds (%d)");
QString SIniFileWriteError = QStringLiteral("Unable to write to %s");
QString SDuplicateName = QStringLiteral("A component named %s already exists");
QString SInvalidName = QStringLiteral("''%s'' is not a valid component name");
QString SAssignError = QStringLiteral("Cannot assign a %s to a %s");
QString SInvalidPropertyPath = QStringLiteral("Invalid property path");
QString SUnknownProperty = QStringLiteral("Property %s does not exist");
QString SInvalidPropertyValue = QStringLiteral("Invalid property value");
QString SClassNotFound = QStringLiteral("Class %s not found");
QString SInvalidImage = QStringLiteral("Invalid stream format");
QString SReadError = QStringLiteral("Stream read error");
QString SFOpenError = QStringLiteral("Cannot open file \"%s\"");
QString SFCreateError = QStringLiteral("Cannot create file \"%s\"");
QString SInvalidInteger = QStringLiteral("'%s' is not a valid integer value");
QString SInvalidFloat = QStringLiteral("'%s' is not a valid floating point value");
QString SInvalidDate = QStringLiteral("'%s' is not a valid date");
QString SInvalidDateTime = QStringLiteral("'%s' is not a valid date and time");
QString SDateEncodeError = QStringLiteral("Invalid argument to date encode");
QString STimeEncodeError = QStringLiteral("Invalid argument to time encode");
QString SInvalidVarCast = QStringLiteral("Invalid variant type conversion");
QString SInvalidFormat = QStringLiteral("Format '%s' invalid or incompatible with argument");
QString SArgumentMissing = QStringLiteral("No argument for format '%s'");
QString SInvalidTime = QStringLiteral("'%s' is not a valid time");
QString SInvalidBoolean = QStringLiteral("'%s' is not a valid boolean value");
QString SInvalidGUID = QStringLiteral("'%s' is not a valid GUID value");
QString SOverflow = QStringLiteral("Arithmetic overflow");
QString SDivByZero = QStringLiteral("Division by zero");
QString SInvalidVarOp = QStringLiteral("Invalid variant operation");
QString SVarNotArray = QStringLiteral("Variant is not an array");
QString SVarArrayBounds = QStringLiteral("Variant or safe array index out of bounds");

QString SFieldReadOnly = QStringLiteral("Field '%s' cannot be modified");
QString SFieldRequired = QStringLiteral("Field '%s' must have a value");
QString SDataSetReadOnly = QStringLiteral("Cannot modify a read-only dataset");
QString SDataSetOpen = QStringLiteral("Cannot perform this operation on an open dataset");
QString SRecordNotFound = QStringLiteral("Record not found");
QString SSearchWhileFetching =
    QStringLiteral("Cannot search the data set while it calculates or filters a record of its own");
QString SUnknownFieldType = QStringLiteral("Field '%s' is of an unknown type");
QString SFieldIndexError = QStringLiteral("Field index out of range");
QString SDuplicateFieldName = QStringLiteral("Duplicate field name '%s'");
QString SDataSourceChange = QStringLiteral("DataSource cannot be changed");
QString SDataSetMissing = QStringLiteral("Field '%s' has no dataset");
QString SFieldTypeMismatch = QStringLiteral("Type mismatch for field '%s', expecting: %s actual: %s");
QString SInvalidIntegerValue = QStringLiteral("'%s' is not a valid integer value for field '%s'");
QString SInvalidFloatValue = QStringLiteral("'%s' is not a valid floating point value for field '%s'");
QString SInvalidBoolValue = QStringLiteral("'%s' is not a valid boolean value for field '%s'");
QString SFieldRangeError = QStringLiteral("%s is not a valid value for field '%s'. The allowed range is %s to %s");
QString SLookupInfoError = QStringLiteral("Lookup information for field '%s' is incomplete");
QString SIndexNotFound = QStringLiteral("Index '%s' not found");
QString SDuplicateIndexName = QStringLiteral("Duplicate index name '%s'");
QString SNoFieldIndexes = QStringLiteral("No index currently active");
QString SMissingDataPacket = QStringLiteral("Missing data provider or data packet");
QString SInvalidDataPacket = QStringLiteral("Invalid data packet");
QString SFieldNameMissing = QStringLiteral("Field name missing");
QString SNoFieldDefs = QStringLiteral("No field definitions");
QString SFieldAccessError = QStringLiteral("Cannot access field '%s' as type %s");

}  // namespace quil
