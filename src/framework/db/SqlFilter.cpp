#include "framework/db/SqlFilter.h"

#include "framework/db/FilterBinding.h"
#include "framework/db/FilterNodes.h"
#include "framework/db/FilterParser.h"

namespace quil {

namespace {

class TFilterTranslator {
public:
  TFilterTranslator(const std::vector<TSQLColumn>& columns, TSQLDialect dialect)
      : columns_(columns), dialect_(dialect) {}

  QString Node(const TFilterNode& node);
  std::vector<QVariant>& Values() { return values_; }

private:
  QString Junction(const TFilterJunctionNode& node);
  QString Compare(const TFilterCompareNode& node);
  QString Like(const TFilterLikeNode& node);
  QString In(const TFilterInNode& node);
  QString ValueTest(const TFilterValueTestNode& node);
  // An operand's SQL; a constant binds in the type of `hint`, the column on the other side.
  QString Operand(const TFilterOperand& operand, const TFilterOperand* hint, bool lower);
  QString Bind(const Variant& value, const TFilterOperand* hint, bool lower);
  const TSQLColumn* ColumnOf(const TFilterOperand* operand) const;
  bool IsText(const TFilterOperand& operand) const;

  const std::vector<TSQLColumn>& columns_;
  TSQLDialect dialect_;
  std::vector<QVariant> values_;
};

QString TFilterTranslator::Node(const TFilterNode& node) {
  if (auto* junction = dynamic_cast<const TFilterJunctionNode*>(&node)) return Junction(*junction);
  if (auto* negation = dynamic_cast<const TFilterNotNode*>(&node))
    return QStringLiteral("NOT COALESCE(%1, 1=0)").arg(Node(negation->Term()));
  if (auto* compare = dynamic_cast<const TFilterCompareNode*>(&node)) return Compare(*compare);
  if (auto* like = dynamic_cast<const TFilterLikeNode*>(&node)) return Like(*like);
  if (auto* in = dynamic_cast<const TFilterInNode*>(&node)) return In(*in);
  if (auto* test = dynamic_cast<const TFilterValueTestNode*>(&node)) return ValueTest(*test);
  DatabaseError(QStringLiteral("The filter cannot be run by the database"), nullptr);
}

QString TFilterTranslator::Junction(const TFilterJunctionNode& node) {
  QStringList terms;
  for (const TFilterNodePtr& term : node.Terms()) terms.append(Node(*term));
  const QString glue = node.Junction() == TFilterJunction::And ? QStringLiteral(" AND ") : QStringLiteral(" OR ");
  return QLatin1Char('(') + terms.join(glue) + QLatin1Char(')');
}

QString TFilterTranslator::Compare(const TFilterCompareNode& node) {
  static const char* const ops[] = {"=", "<>", "<", "<=", ">", ">="};
  const bool text = IsText(node.Left()) || IsText(node.Right());
  const bool lower = text && node.TextCase() == TFilterCase::Insensitive;
  const bool ordering = node.Op() != TFilterCompareOp::Equal && node.Op() != TFilterCompareOp::NotEqual;
  // Ranges of text compare code point by code point, as in memory, not by the locale.
  const QString collate = text && ordering && dialect_ == TSQLDialect::PostgreSQL ? QStringLiteral(" COLLATE \"C\"") : QString();
  const QString left = Operand(node.Left(), &node.Right(), lower);
  const QString right = Operand(node.Right(), &node.Left(), lower);
  return QStringLiteral("(%1%2 %3 %4%2)").arg(left, collate, QLatin1String(ops[int(node.Op())]), right);
}

QString EscapeLike(QString text) {
  return text.replace(QLatin1String("\\"), QLatin1String("\\\\"))
      .replace(QLatin1String("%"), QLatin1String("\\%"))
      .replace(QLatin1String("_"), QLatin1String("\\_"));
}

QString LikeToGlob(const QString& pattern, bool literal) {
  QString glob;
  for (const QChar ch : pattern) {
    if (ch == QLatin1Char('*') || ch == QLatin1Char('?') || ch == QLatin1Char('[')) glob += QLatin1Char('[') + ch + QLatin1Char(']');
    else if (!literal && ch == QLatin1Char('%')) glob += QLatin1Char('*');
    else if (!literal && ch == QLatin1Char('_')) glob += QLatin1Char('?');
    else glob += ch;
  }
  return glob;
}

QString TFilterTranslator::Like(const TFilterLikeNode& node) {
  const TLikePattern& pattern = node.Pattern();
  const bool lower = pattern.Sensitivity() == Qt::CaseInsensitive;
  const QString operand = Operand(node.Operand(), nullptr, lower);
  const QString text = lower ? pattern.Text().toLower() : pattern.Text();
  if (dialect_ == TSQLDialect::SQLite && !lower) {
    // SQLite compiles a statement anew whenever the pattern bound to GLOB changes, and a
    // rebind with the same value counts as a change: written in, the statement stays prepared.
    const QString glob = LikeToGlob(text, pattern.IsPrefix()) + (pattern.IsPrefix() ? QStringLiteral("*") : QString());
    if (!glob.contains(QChar(0))) return QStringLiteral("(%1 GLOB %2)").arg(operand, QuoteText(glob));
    values_.emplace_back(glob);
    return QStringLiteral("(%1 GLOB ?)").arg(operand);
  }
  if (pattern.IsPrefix()) {
    values_.emplace_back(EscapeLike(text) + QLatin1Char('%'));
    return QStringLiteral("(%1 LIKE ? ESCAPE '\\')").arg(operand);
  }
  values_.emplace_back(text);
  if (dialect_ == TSQLDialect::PostgreSQL) return QStringLiteral("(%1 LIKE ? ESCAPE '')").arg(operand);
  return QStringLiteral("(%1 LIKE ?)").arg(operand);
}

QString TFilterTranslator::In(const TFilterInNode& node) {
  const bool lower = node.TextCase() == TFilterCase::Insensitive && IsText(node.Operand());
  const QString operand = Operand(node.Operand(), nullptr, lower);
  QStringList items;
  for (const Variant& item : node.Items()) items.append(Bind(item, &node.Operand(), lower));
  return QStringLiteral("(%1 IN (%2))").arg(operand, items.join(QLatin1String(", ")));
}

QString TFilterTranslator::ValueTest(const TFilterValueTestNode& node) {
  if (auto* constant = dynamic_cast<const TFilterConstantOperand*>(&node.Operand())) {
    const Variant& value = constant->Constant();
    const bool absent = VarIsNull(value) || VarIsEmpty(value);
    const bool holds = node.ValueTest() == TFilterValueTest::IsNull ? absent : !absent && value.AsBoolean();
    return holds ? QStringLiteral("1=1") : QStringLiteral("1=0");
  }
  const QString operand = Operand(node.Operand(), nullptr, false);
  if (node.ValueTest() == TFilterValueTest::IsNull) return QStringLiteral("(%1 IS NULL)").arg(operand);
  values_.emplace_back(true);
  return QStringLiteral("(%1 = ?)").arg(operand);
}

QString TFilterTranslator::Operand(const TFilterOperand& operand, const TFilterOperand* hint, bool lower) {
  if (auto* field = dynamic_cast<const TFilterFieldOperand*>(&operand)) {
    const QString column = QuoteIdentifier(columns_[size_t(field->FieldIndex())].name);
    return lower ? QStringLiteral("LOWER(%1)").arg(column) : column;
  }
  if (auto* constant = dynamic_cast<const TFilterConstantOperand*>(&operand)) return Bind(constant->Constant(), hint, lower);
  auto* textCase = dynamic_cast<const TFilterCaseOperand*>(&operand);
  const QString inner = Operand(textCase->Operand(), nullptr, false);
  const QString function = lower || textCase->TextCase() == TFilterTextCase::Lower ? QStringLiteral("LOWER") : QStringLiteral("UPPER");
  return QStringLiteral("%1(%2)").arg(function, inner);
}

QString TFilterTranslator::Bind(const Variant& value, const TFilterOperand* hint, bool lower) {
  const TSQLColumn* column = ColumnOf(hint);
  TFieldType type = column ? column->type : ftUnknown;
  if (!column) {
    switch (value.Type()) {
      case varBoolean: type = ftBoolean; break;
      case varDate: type = ftDateTime; break;
      case varDouble: type = ftFloat; break;
      case varSmallint: case varInteger: case varInt64: type = ftLargeint; break;
      default: type = ftString; break;
    }
  }
  QVariant bound = ToSqlValue(value, type, dialect_);
  if (lower && bound.typeId() == QMetaType::QString) bound = bound.toString().toLower();
  values_.push_back(bound);
  return QStringLiteral("?");
}

const TSQLColumn* TFilterTranslator::ColumnOf(const TFilterOperand* operand) const {
  auto* field = dynamic_cast<const TFilterFieldOperand*>(operand);
  return field ? &columns_[size_t(field->FieldIndex())] : nullptr;
}

bool TFilterTranslator::IsText(const TFilterOperand& operand) const {
  if (dynamic_cast<const TFilterCaseOperand*>(&operand)) return true;
  if (auto* constant = dynamic_cast<const TFilterConstantOperand*>(&operand)) return VarIsStr(constant->Constant());
  const TSQLColumn* column = ColumnOf(&operand);
  return column && FilterFieldKind(column->type) == TFilterFieldKind::Text;
}

}  // namespace

TSQLClause TranslateFilter(const QString& text, const std::vector<TSQLColumn>& columns, TFilterOptions options,
                           TSQLDialect dialect) {
  const TFilterFieldResolver resolver = [&](const QString& name) -> std::optional<TFilterField> {
    for (size_t index = 0; index < columns.size(); ++index)
      if (columns[index].name.compare(name, Qt::CaseInsensitive) == 0)
        return TFilterField{int(index), FilterFieldKind(columns[index].type)};
    return std::nullopt;
  };
  const TFilterNodePtr root = ParseFilter(text, resolver, FilterSettingsFor(options));
  if (!root) return {};
  TFilterTranslator translator(columns, dialect);
  TSQLClause clause;
  clause.sql = translator.Node(*root);
  clause.values = std::move(translator.Values());
  return clause;
}

}  // namespace quil
