#include "order/OrderText.h"

#include <QStringList>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/FieldNames.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/Strings.h"

namespace quil {

QString DefAutoNumberFormat = QStringLiteral("%d.");

namespace {
const QString kDesc = QStringLiteral(" DESC");
const QString kOrderBy = QStringLiteral("ORDER BY ");

// Calls visit for each name of a semicolon list, in order, empty names included.
template <typename Visit>
void ForEachFieldName(const QString& list, Visit visit) {
  int pos = 1;
  while (pos <= list.size()) visit(ExtractFieldName(list, pos));
}

void AppendItem(QString& list, const QString& item, QChar separator) {
  if (!list.isEmpty()) list += separator;
  list += item;
}

// The index of the last line holding "ORDER BY " in any case, -1 when none does.
int FindOrderByLine(const TStrings& sql, int& keywordPos) {
  for (int line = sql.Count() - 1; line >= 0; --line) {
    keywordPos = AnsiUpperCase(sql.Strings(line)).indexOf(kOrderBy);
    if (keywordPos >= 0) return line;
  }
  return -1;
}

bool EndsWithSemicolon(const QString& line) { return TrimRight(line).endsWith(QLatin1Char(';')); }
}  // namespace

QString CommaToSemicolon(const QString& text) {
  return QString(text).replace(QLatin1Char(','), QLatin1Char(';'));
}

QString SemicolonToComma(const QString& text) {
  return QString(text).replace(QLatin1Char(';'), QLatin1Char(','));
}

bool SameFieldName(const QString& a, const QString& b) { return WideCompareText(a, b) == 0; }
bool SameFieldText(const QString& a, const QString& b) { return WideCompareText(a, b) == 0; }

void SplitOrderFields(const QString& order, QString& fields, QString& descFields) {
  fields.clear();
  descFields.clear();
  ForEachFieldName(CommaToSemicolon(order), [&](const QString& item) {
    QString name = item;
    const int desc = item.indexOf(kDesc);
    if (desc >= 0) {
      name = Trim(item.left(desc));
      AppendItem(descFields, name, QLatin1Char(';'));
    }
    AppendItem(fields, name, QLatin1Char(';'));
  });
}

QString UnifyOrderFields(const QString& fields, const QString& descFields, bool descending) {
  const QString descList = descFields.isEmpty() && descending ? fields : descFields;
  QString search = QStringLiteral(";");
  ForEachFieldName(descList, [&](const QString& name) { search += name + QLatin1Char(';'); });
  QString result;
  ForEachFieldName(fields, [&](const QString& name) {
    const bool isDesc = search.contains(QLatin1Char(';') + name + QLatin1Char(';'));
    AppendItem(result, isDesc ? name + kDesc : name, QLatin1Char(','));
  });
  return result;
}

QString OrderFieldsToIndexFields(const QString& order, const QString& modifiers) {
  const QString list = CommaToSemicolon(order);
  if (modifiers.isEmpty()) return list;
  QString tokens = modifiers;
  ScanStr(tokens, QStringLiteral(";"));
  const QString descSuffix = ScanStr(tokens, QStringLiteral(";"));
  QString result;
  ForEachFieldName(list, [&](const QString& item) {
    const int desc = item.indexOf(kDesc);
    AppendItem(result, desc >= 0 ? Trim(item.left(desc)) + descSuffix : item, QLatin1Char(';'));
  });
  return result;
}

QString IndexFieldsToOrderFields(const QString& fields, const QString& modifiers) {
  if (modifiers.isEmpty()) return SemicolonToComma(fields);
  QString tokens = modifiers;
  const QString ascToken = AnsiUpperCase(ScanStr(tokens, QStringLiteral(";")));
  const QString descToken = AnsiUpperCase(ScanStr(tokens, QStringLiteral(";")));
  const QString noneToken = AnsiUpperCase(tokens);
  // An empty token is found nowhere, as an empty search text is.
  auto find = [](const QString& upper, const QString& token) {
    return token.isEmpty() ? -1 : upper.indexOf(token);
  };
  QString result;
  ForEachFieldName(fields, [&](const QString& item) {
    const QString upper = AnsiUpperCase(item);
    QString text = item;
    if (int at = find(upper, descToken); at >= 0) text = Trim(item.left(at)) + kDesc;
    else if ((at = find(upper, ascToken)) >= 0) text = Trim(item.left(at));
    else if ((at = find(upper, noneToken)) >= 0) text = Trim(item.left(at));
    AppendItem(result, text, QLatin1Char(','));
  });
  return result;
}

QString ExtractOrderFields(const TStrings* sql) {
  if (!sql) return {};
  int keywordPos = -1;
  const int line = FindOrderByLine(*sql, keywordPos);
  if (line < 0) return {};
  QString text = Trim(sql->Strings(line).mid(keywordPos + kOrderBy.size()));
  if (text.endsWith(QLatin1Char(';'))) text = Trim(text.chopped(1));
  return text;
}

void ModifyOrderFields(TStrings* sql, const QString& fields) {
  if (!sql) return;
  QString order = Trim(fields);
  if (AnsiUpperCase(order) == QLatin1String("DESC")) order.clear();
  int keywordPos = -1;
  const int line = FindOrderByLine(*sql, keywordPos);
  if (line >= 0) {
    const QString old = sql->Strings(line);
    QString text = order.isEmpty() ? old.left(keywordPos)
                                   : old.left(keywordPos + kOrderBy.size()) + order;
    if (EndsWithSemicolon(old)) text += QLatin1Char(';');
    sql->SetStrings(line, text);
    return;
  }
  if (order.isEmpty()) return;
  while (sql->Count() > 0 && Trim(sql->Strings(sql->Count() - 1)).isEmpty()) sql->Delete(sql->Count() - 1);
  if (sql->Count() == 0) return;
  const int last = sql->Count() - 1;
  if (EndsWithSemicolon(sql->Strings(last))) {
    sql->SetStrings(last, TrimRight(sql->Strings(last)).chopped(1));
    sql->Add(kOrderBy + order + QLatin1Char(';'));
  } else {
    sql->Add(kOrderBy + order);
  }
}

QString ValidFieldNames(const TDataSet* dataSet, const QString& fields, bool first) {
  if (!dataSet) return fields;
  QString result;
  int pos = 1;
  while (pos <= fields.size()) {
    const QString name = ExtractFieldName(fields, pos);
    if (name.isEmpty()) continue;
    const TField* field = dataSet->FindField(name);
    AppendItem(result, field ? field->FieldName() : name, QLatin1Char(';'));
    if (first) break;
  }
  return result;
}

QString AutoNumberStr(int number) {
  return number >= 1 ? Format(DefAutoNumberFormat, {number}) : QString();
}

}  // namespace quil
