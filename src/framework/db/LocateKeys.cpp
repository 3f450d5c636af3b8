#include "framework/db/LocateKeys.h"

#include "framework/db/Field.h"
#include "framework/rtl/StringUtils.h"

namespace quil {

TLocateKeys::TLocateKeys(std::vector<TField*> fields, const Variant& keyValues, TLocateOptions options)
    : fields_(std::move(fields)), options_(options) {
  if (!VarIsArray(keyValues)) {
    values_.push_back(keyValues);
  } else {
    for (int index = keyValues.LowBound(); index <= keyValues.HighBound(); ++index)
      values_.push_back(keyValues[index]);
  }
  if (values_.size() != fields_.size()) return;
  for (size_t index = 0; index < values_.size(); ++index) {
    const bool partial = options_.Contains(loPartialKey) && index + 1 == values_.size();
    const bool whole = !partial && !options_.Contains(loCaseInsensitive);
    textCompare_.push_back(whole && VarIsStr(values_[index]) && fields_[index]->NativeKind() == TNativeKind::String);
    textKeys_.push_back(textCompare_.back() ? values_[index].AsString() : QString());
  }
}

bool TLocateKeys::Matches() const {
  if (values_.size() != fields_.size()) return false;
  for (size_t index = 0; index < fields_.size(); ++index) {
    if (textCompare_[index]) {
      QString text;
      if (!fields_[index]->GetData(&text) || text != textKeys_[index]) return false;
    } else if (!Matches(index, fields_[index]->AsVariant())) {
      return false;
    }
  }
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
