#pragma once
// The key test of Locate and Lookup: the fields named by the key list against the
// key values, with the locate options.

#include <QString>
#include <cstdint>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TField;

class TLocateKeys {
public:
  // keyValues is one value for one field, or an array of one value per field.
  TLocateKeys(std::vector<TField*> fields, const Variant& keyValues, TLocateOptions options);

  // Whether the record the fields read now matches. A count of values that differs
  // from the count of fields matches nothing.
  bool Matches() const;

private:
  bool Matches(size_t index, const Variant& value) const;

  std::vector<TField*> fields_;
  std::vector<Variant> values_;
  // A text key that is compared whole and with case against a text field is read
  // straight into a string: the walk of a Locate makes no variant per record.
  std::vector<QString> textKeys_;
  std::vector<uint8_t> textCompare_;
  TLocateOptions options_;
};

}  // namespace quil
