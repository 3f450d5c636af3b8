#include "framework/db/FilterExpression.h"

#include "framework/db/FilterParser.h"

namespace quil {

TFilterExpression::TFilterExpression() = default;
TFilterExpression::TFilterExpression(std::unique_ptr<const TFilterNode> root) : root_(std::move(root)) {}
TFilterExpression::TFilterExpression(TFilterExpression&&) noexcept = default;
TFilterExpression& TFilterExpression::operator=(TFilterExpression&&) noexcept = default;
TFilterExpression::~TFilterExpression() = default;

TFilterExpression TFilterExpression::Compile(const QString& text, const TFilterFieldResolver& resolver,
                                             const TFilterSettings& settings) {
  return TFilterExpression(ParseFilter(text, resolver, settings));
}

bool TFilterExpression::Matches(const TFilterValueSource& record) const { return !root_ || root_->Test(record); }

}  // namespace quil
