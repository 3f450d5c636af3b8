#include "framework/db/FilterParser.h"

#include "framework/db/FilterLexer.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/FormatSettings.h"

namespace quil {

namespace {

// An operand as read, before it knows what it is compared with: a literal still has
// to take the kind of the field on the other side.
struct TParsedOperand {
  enum class TForm { Field, Constant, Computed };

  TForm form = TForm::Constant;
  int position = 0;
  QString text;  // as written, for messages
  TFilterField field;
  Variant constant;
  TFilterOperandPtr computed;

  bool IsConstant() const { return form == TForm::Constant; }
  bool IsNull() const { return IsConstant() && VarIsNull(constant); }
  // Computed operands give text; a constant adapts to the other side.
  TFilterFieldKind Kind() const {
    if (form == TForm::Field) return field.kind;
    return form == TForm::Computed ? TFilterFieldKind::Text : TFilterFieldKind::Other;
  }
};

class TFilterParser {
public:
  TFilterParser(const QString& text, const TFilterFieldResolver& resolver, const TFilterSettings& settings)
      : lexer_(text), resolver_(resolver), settings_(settings) {}

  TFilterNodePtr Parse();

private:
  void Advance(TLocaleDecimal localeDecimal = TLocaleDecimal::Accepted) { token_ = lexer_.Next(localeDecimal); }
  bool AtKeyword(TFilterKeyword keyword) const {
    return token_.kind == TFilterTokenKind::Name && token_.keyword == keyword;
  }
  Qt::CaseSensitivity Sensitivity() const {
    return settings_.textCase == TFilterCase::Sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
  }
  QString Found() const;
  [[noreturn]] void Expected(const QString& what) const;
  void ExpectRightParen(int openPosition);

  TFilterNodePtr ParseJunction(TFilterJunction junction);
  TFilterNodePtr ParseNegation();
  TFilterNodePtr ParseCondition(TParsedOperand left);
  TFilterNodePtr ParseComparison(TParsedOperand left);
  TFilterNodePtr ParseLike(TParsedOperand left);
  TFilterNodePtr ParseIn(TParsedOperand left);
  TFilterNodePtr ParseIsNull(TParsedOperand left);
  TFilterNodePtr ParseTruth(TParsedOperand left);
  TParsedOperand ParseOperand(TLocaleDecimal localeDecimal = TLocaleDecimal::Accepted);
  TParsedOperand ParseName();
  TParsedOperand ParseCaseFunction(TFilterTextCase textCase, int position, const QString& text);
  Variant LiteralFor(const TParsedOperand& side, const TParsedOperand& literal) const;
  static TFilterOperandPtr MakeOperand(TParsedOperand operand);

  TFilterLexer lexer_;
  const TFilterFieldResolver& resolver_;
  TFilterSettings settings_;
  TFilterToken token_;
};

QString TFilterParser::Found() const {
  switch (token_.kind) {
    case TFilterTokenKind::End: return QStringLiteral("the end of the filter");
    case TFilterTokenKind::String: return QStringLiteral("the string '%1'").arg(token_.text);
    default: return QStringLiteral("'%1'").arg(token_.text);
  }
}

void TFilterParser::Expected(const QString& what) const {
  DatabaseError(QStringLiteral("Expected %1 at position %2, found %3").arg(what).arg(token_.position).arg(Found()));
}

void TFilterParser::ExpectRightParen(int openPosition) {
  if (token_.kind != TFilterTokenKind::RightParen)
    DatabaseError(QStringLiteral("Missing ')' at position %1 to close the '(' at position %2, found %3")
                      .arg(token_.position)
                      .arg(openPosition)
                      .arg(Found()));
  Advance();
}

TFilterNodePtr TFilterParser::Parse() {
  Advance();
  if (token_.kind == TFilterTokenKind::End) return nullptr;
  TFilterNodePtr root = ParseJunction(TFilterJunction::Or);
  if (token_.kind != TFilterTokenKind::End)
    DatabaseError(QStringLiteral("Filter expression incorrectly terminated: unexpected %1 at position %2")
                      .arg(Found())
                      .arg(token_.position));
  return root;
}

TFilterNodePtr TFilterParser::ParseJunction(TFilterJunction junction) {
  const bool isOr = junction == TFilterJunction::Or;
  const auto parseTerm = [&] { return isOr ? ParseJunction(TFilterJunction::And) : ParseNegation(); };
  std::vector<TFilterNodePtr> terms;
  terms.push_back(parseTerm());
  while (AtKeyword(isOr ? TFilterKeyword::Or : TFilterKeyword::And)) {
    Advance();
    terms.push_back(parseTerm());
  }
  if (terms.size() == 1) return std::move(terms.front());
  return std::make_unique<TFilterJunctionNode>(junction, std::move(terms));
}

TFilterNodePtr TFilterParser::ParseNegation() {
  if (AtKeyword(TFilterKeyword::Not)) {
    Advance();
    return std::make_unique<TFilterNotNode>(ParseNegation());
  }
  if (token_.kind == TFilterTokenKind::LeftParen) {
    const int openPosition = token_.position;
    Advance();
    TFilterNodePtr inner = ParseJunction(TFilterJunction::Or);
    ExpectRightParen(openPosition);
    return inner;
  }
  return ParseCondition(ParseOperand());
}

TFilterNodePtr TFilterParser::ParseCondition(TParsedOperand left) {
  if (token_.kind == TFilterTokenKind::Compare) return ParseComparison(std::move(left));
  if (AtKeyword(TFilterKeyword::Like)) return ParseLike(std::move(left));
  if (AtKeyword(TFilterKeyword::In)) return ParseIn(std::move(left));
  if (AtKeyword(TFilterKeyword::Is)) return ParseIsNull(std::move(left));
  if (AtKeyword(TFilterKeyword::Not)) {
    Advance();
    if (AtKeyword(TFilterKeyword::Like)) return std::make_unique<TFilterNotNode>(ParseLike(std::move(left)));
    if (AtKeyword(TFilterKeyword::In)) return std::make_unique<TFilterNotNode>(ParseIn(std::move(left)));
    Expected(QStringLiteral("LIKE or IN after NOT"));
  }
  return ParseTruth(std::move(left));
}

TFilterNodePtr TFilterParser::ParseComparison(TParsedOperand left) {
  const TFilterCompareOp op = token_.compareOp;
  Advance();
  TParsedOperand right = ParseOperand();
  const bool equality = op == TFilterCompareOp::Equal || op == TFilterCompareOp::NotEqual;
  const auto negatedIf = [&](TFilterNodePtr node) -> TFilterNodePtr {
    if (op == TFilterCompareOp::NotEqual) return std::make_unique<TFilterNotNode>(std::move(node));
    return node;
  };
  if (equality && (left.IsNull() || right.IsNull()))
    return negatedIf(std::make_unique<TFilterValueTestNode>(TFilterValueTest::IsNull,
                                                            MakeOperand(std::move(left.IsNull() ? right : left))));
  const bool partial = settings_.partialCompare == TFilterPartialCompare::TrailingAsterisk && equality &&
                       left.Kind() == TFilterFieldKind::Text && VarIsStr(right.constant) &&
                       right.constant.AsString().endsWith(QLatin1Char('*'));
  if (partial) {
    TLikePattern prefix = TLikePattern::Prefix(right.constant.AsString().chopped(1), Sensitivity());
    return negatedIf(std::make_unique<TFilterLikeNode>(MakeOperand(std::move(left)), std::move(prefix)));
  }
  right.constant = LiteralFor(left, right);
  left.constant = LiteralFor(right, left);
  return std::make_unique<TFilterCompareNode>(op, MakeOperand(std::move(left)), MakeOperand(std::move(right)),
                                              settings_.textCase);
}

TFilterNodePtr TFilterParser::ParseLike(TParsedOperand left) {
  Advance();
  if (token_.kind != TFilterTokenKind::String) Expected(QStringLiteral("a pattern in quotes after LIKE"));
  TLikePattern pattern(token_.text, Sensitivity());
  Advance();
  return std::make_unique<TFilterLikeNode>(MakeOperand(std::move(left)), std::move(pattern));
}

// Under a comma locale the builder of real-number lists writes items as "1,5, 2,5";
// every other list separates by comma alone, so only a real field reads decimal commas.
TFilterNodePtr TFilterParser::ParseIn(TParsedOperand left) {
  Advance();
  if (token_.kind != TFilterTokenKind::LeftParen) Expected(QStringLiteral("'(' after IN"));
  const int openPosition = token_.position;
  const bool localeDecimalAllowed =
      FormatSettings.DecimalSeparator != QLatin1Char(',') || left.Kind() == TFilterFieldKind::Real;
  const TLocaleDecimal localeDecimal = localeDecimalAllowed ? TLocaleDecimal::Accepted : TLocaleDecimal::Refused;
  std::vector<Variant> items;
  do {
    Advance(localeDecimal);
    const TParsedOperand item = ParseOperand(localeDecimal);
    if (!item.IsConstant())
      DatabaseError(QStringLiteral("Expected a constant in the IN list at position %1, found '%2'")
                        .arg(item.position)
                        .arg(item.text));
    items.push_back(LiteralFor(left, item));
  } while (token_.kind == TFilterTokenKind::Comma);
  ExpectRightParen(openPosition);
  return std::make_unique<TFilterInNode>(MakeOperand(std::move(left)), std::move(items), settings_.textCase);
}

TFilterNodePtr TFilterParser::ParseIsNull(TParsedOperand left) {
  Advance();
  const bool negated = AtKeyword(TFilterKeyword::Not);
  if (negated) Advance();
  if (!AtKeyword(TFilterKeyword::Null))
    Expected(negated ? QStringLiteral("NULL after IS NOT") : QStringLiteral("NULL or NOT after IS"));
  Advance();
  TFilterNodePtr node =
      std::make_unique<TFilterValueTestNode>(TFilterValueTest::IsNull, MakeOperand(std::move(left)));
  if (negated) return std::make_unique<TFilterNotNode>(std::move(node));
  return node;
}

TFilterNodePtr TFilterParser::ParseTruth(TParsedOperand left) {
  const bool boolean =
      left.IsConstant() ? left.constant.Type() == varBoolean : left.Kind() == TFilterFieldKind::Boolean;
  if (!boolean) Expected(QStringLiteral("a comparison operator, LIKE, IN or IS after '%1'").arg(left.text));
  return std::make_unique<TFilterValueTestNode>(TFilterValueTest::IsTrue, MakeOperand(std::move(left)));
}

TParsedOperand TFilterParser::ParseOperand(TLocaleDecimal localeDecimal) {
  TParsedOperand operand;
  operand.position = token_.position;
  operand.text = token_.text;
  switch (token_.kind) {
    case TFilterTokenKind::String: operand.constant = Variant(token_.text); break;
    case TFilterTokenKind::Number: operand.constant = token_.number; break;
    case TFilterTokenKind::Minus:
      Advance(localeDecimal);
      if (token_.kind != TFilterTokenKind::Number) Expected(QStringLiteral("a number after '-'"));
      operand.text += token_.text;
      operand.constant = -token_.number;
      break;
    case TFilterTokenKind::Name: return ParseName();
    default: Expected(QStringLiteral("an operand"));
  }
  Advance();
  return operand;
}

TParsedOperand TFilterParser::ParseName() {
  TParsedOperand operand;
  operand.position = token_.position;
  operand.text = token_.text;
  const TFilterKeyword keyword = token_.keyword;
  switch (keyword) {
    case TFilterKeyword::Null: operand.constant = Null(); break;
    case TFilterKeyword::True:
    case TFilterKeyword::False: operand.constant = Variant(keyword == TFilterKeyword::True); break;
    case TFilterKeyword::None: break;
    default: Expected(QStringLiteral("an operand"));
  }
  Advance();
  if (keyword != TFilterKeyword::None) return operand;
  if (token_.kind == TFilterTokenKind::LeftParen) {
    if (operand.text.compare(QLatin1String("UPPER"), Qt::CaseInsensitive) == 0)
      return ParseCaseFunction(TFilterTextCase::Upper, operand.position, operand.text);
    if (operand.text.compare(QLatin1String("LOWER"), Qt::CaseInsensitive) == 0)
      return ParseCaseFunction(TFilterTextCase::Lower, operand.position, operand.text);
  }
  const std::optional<TFilterField> field = resolver_(operand.text);
  if (!field)
    DatabaseError(QStringLiteral("Field '%1' not found at position %2").arg(operand.text).arg(operand.position));
  operand.form = TParsedOperand::TForm::Field;
  operand.field = *field;
  return operand;
}

TParsedOperand TFilterParser::ParseCaseFunction(TFilterTextCase textCase, int position, const QString& text) {
  const int openPosition = token_.position;
  Advance();
  TParsedOperand argument = ParseOperand();
  ExpectRightParen(openPosition);
  TParsedOperand operand;
  operand.form = TParsedOperand::TForm::Computed;
  operand.position = position;
  operand.text = text;
  operand.computed = std::make_unique<TFilterCaseOperand>(textCase, MakeOperand(std::move(argument)));
  return operand;
}

Variant TFilterParser::LiteralFor(const TParsedOperand& side, const TParsedOperand& literal) const {
  if (!literal.IsConstant() || side.form != TParsedOperand::TForm::Field) return literal.constant;
  return ConvertLiteralForField(literal.constant, side.field.kind, side.text, literal.position);
}

TFilterOperandPtr TFilterParser::MakeOperand(TParsedOperand operand) {
  switch (operand.form) {
    case TParsedOperand::TForm::Field: return std::make_unique<TFilterFieldOperand>(operand.field.index);
    case TParsedOperand::TForm::Computed: return std::move(operand.computed);
    case TParsedOperand::TForm::Constant: break;
  }
  return std::make_unique<TFilterConstantOperand>(operand.constant);
}

}  // namespace

TFilterNodePtr ParseFilter(const QString& text, const TFilterFieldResolver& resolver, const TFilterSettings& settings) {
  return TFilterParser(text, resolver, settings).Parse();
}

}  // namespace quil
