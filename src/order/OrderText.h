#pragma once
// The three text forms of an order and the free functions between them:
//   order fields  "Name,Age DESC"        what the grid produces and OrderFields holds;
//   index fields  "Name;Age:D"           a data set's index-name properties, with an
//                                        optional modifier list "asc;desc;none";
//   SQL clause    "ORDER BY Name, Age DESC" on one line of a statement.
//
// Strings are UTF-16 and string lists are TStrings, so one function serves where the
// framework had overloads on WideString and TWideStrings.
//
// The statement functions, ExtractOrderFields and ModifyOrderFields, are line-based
// by design and never parse SQL. They take as the clause the last line that holds
// "ORDER BY " (any case, with its blank on the same line), read or replace everything
// behind the keyword up to the line's end, and keep a semicolon that ended the line.
// Without such a line, ModifyOrderFields adds one at the end, moving a final
// semicolon onto it; empty fields cut the line before the keyword. So lay a
// statement out one clause per line, the outer ORDER BY on a line of its own that no
// later line holding "ORDER BY " follows, and LIMIT or OFFSET on lines after it:
//   SELECT p.Name, c.Country
//   FROM People p
//   JOIN Cities c ON c.City = p.City
//   ORDER BY p.Name
//   LIMIT 100;            <- only behind an ORDER BY line: a clause is added last
// Anything else is the application's to lay out: a sub-select whose ORDER BY stands
// on the outer clause's line or after it (with no outer clause, or once it has been
// removed, the sub-select's clause is the one rewritten), a clause that runs on over
// several lines, a LIMIT with no ORDER BY line before it. The functions will not look
// beyond the line.

#include <QString>

namespace quil {

class TStrings;
class TDataSet;

// The text of a row number; DefAutoNumberFormat may be changed by an application.
extern QString DefAutoNumberFormat;

QString CommaToSemicolon(const QString& text);
QString SemicolonToComma(const QString& text);

// Field names compare without regard to case.
bool SameFieldName(const QString& a, const QString& b);
bool SameFieldText(const QString& a, const QString& b);

// All names and the descending names of an order, each as a semicolon list. Only
// " DESC" in upper case marks a descending field.
void SplitOrderFields(const QString& order, QString& fields, QString& descFields);
// Order-fields text from a list of names and a list of descending names; an empty
// descFields with descending set makes every field descending.
QString UnifyOrderFields(const QString& fields, const QString& descFields, bool descending);

QString OrderFieldsToIndexFields(const QString& order, const QString& modifiers);
QString IndexFieldsToOrderFields(const QString& fields, const QString& modifiers);

// The text behind the first "ORDER BY " of the last line that holds one, without a final
// semicolon; the lines after that line are not read.
QString ExtractOrderFields(const TStrings* sql);
// Replaces, adds or removes the statement's ORDER BY clause; empty fields remove it.
void ModifyOrderFields(TStrings* sql, const QString& fields);

// The names of fields, semicolon-separated and spelled as the data set's fields spell
// them; unknown names stay as given and empty ones go. With first set, only the first
// name is handled. This normalises spelling; it does not filter.
QString ValidFieldNames(const TDataSet* dataSet, const QString& fields, bool first);

QString AutoNumberStr(int number);

}  // namespace quil
