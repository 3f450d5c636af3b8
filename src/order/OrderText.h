#pragma once
// The three text forms of an order and the free functions between them:
//   order fields  "Name,Age DESC"        what the grid produces and OrderFields holds;
//   index fields  "Name;Age:D"           a data set's index-name properties, with an
//                                        optional modifier list "asc;desc;none";
//   SQL clause    "ORDER BY Name, Age DESC" on one line of a statement.
// The statement functions are line-based on purpose: they look for the last line that
// holds "ORDER BY " and never parse SQL. A statement whose outer ORDER BY is not the
// last one in its text (a sub-select's clause on a later line, say) is the
// application's to lay out, one clause per line.

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

// The text behind the last "ORDER BY " of the statement, without a final semicolon.
QString ExtractOrderFields(const TStrings* sql);
// Replaces, adds or removes the statement's ORDER BY clause; empty fields remove it.
void ModifyOrderFields(TStrings* sql, const QString& fields);

// The names of fields, semicolon-separated and spelled as the data set's fields spell
// them; unknown names stay as given and empty ones go. With first set, only the first
// name is handled. This normalises spelling; it does not filter.
QString ValidFieldNames(const TDataSet* dataSet, const QString& fields, bool first);

QString AutoNumberStr(int number);

}  // namespace quil
