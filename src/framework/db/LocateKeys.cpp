#include "framework/db/LocateKeys.h"

#include "framework/db/Field.h"
#include "framework/rtl/StringUtils.h"

namespace quil {

TLocateKeys::TLocateKeys(std::vector<TField*> fields, const Variant& keyValues, TLocateOptions options)
    : fields_(std::move(fields)), options_(options) {
  if (!VarIsArray(keyValues)) {
    values_.push_back(keyValues);
    return;
  }
  for (int index = keyValues.LowBound(); index <= keyValues.HighBound(); ++index)
    values_.push_back(keyValues[index]);
}

bool TLocateKeys::Matches() const {
  if (values_.size() != fields_.size()) return false;
  for (size_t index = 0; index < fields_.size(); ++index)
    if (!Matches(index, fields_[index]->AsVariant())) return false;
  return true;
}

bool TLocateKeys::Matches(size_t index, const Variant& value) const {
  const Variant& key = values_[index];
  const bool partial = options_.Contains(loPartialKey) && index + 1 == values_.size();
  const bool caseInsensitive = options_.Contains(loCaseInsensitive);
  if ((caseInsensitive || partial) && VarIsStr(key) && VarIsStr(value)) {
    const QString keyText = key.AsString();
    QString text = value.AsString();
    if (partial) text.truncate(keyText.size());
    return caseInsensitive ? AnsiSameText(text, keyText) : text == keyText;
  }
  return VarSameValue(value, key);
}

}  // namespace quil
