#include "framework/rtl/Strings.h"

#include <algorithm>
#include <numeric>

#include <QStringConverter>
#include <QStringList>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/Lists.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/UpdateGuard.h"

namespace quil {

namespace {

// Reads a quoted string starting at the quote at pos; a doubled quote stands for one.
// Leaves pos behind the closing quote, or at the end when there is none.
QString ExtractQuoted(const QString& text, qsizetype& pos, qsizetype end, QChar quote) {
  QString result;
  ++pos;
  while (pos < end) {
    if (text[pos] != quote) {
      result += text[pos++];
    } else if (pos + 1 < end && text[pos + 1] == quote) {
      result += quote;
      pos += 2;
    } else {
      ++pos;
      break;
    }
  }
  return result;
}

bool IsBlank(QChar ch) { return ch.unicode() >= 1 && ch.unicode() <= 32; }

}  // namespace

const TMetaClass& TStrings::StaticClass() {
  static const TMetaClass meta("TStrings", &TPersistent::StaticClass());
  return meta;
}

const TMetaClass& TStrings::ClassType() const { return StaticClass(); }

int TStrings::Add(const QString& value) {
  const int index = GetCount();
  Insert(index, value);
  return index;
}

int TStrings::AddObject(const QString& value, TObject* object) {
  const int index = Add(value);
  PutObject(index, object);
  return index;
}

void TStrings::InsertObject(int index, const QString& value, TObject* object) {
  Insert(index, value);
  PutObject(index, object);
}

void TStrings::AddStrings(const TStrings* strings) {
  TUpdateGuard guard(*this);
  for (int index = 0; index < strings->Count(); ++index)
    AddObject(strings->Get(index), strings->GetObject(index));
}

void TStrings::Put(int index, const QString& value) {
  TUpdateGuard guard(*this);
  TObject* object = GetObject(index);
  Delete(index);
  InsertObject(index, value, object);
}

void TStrings::Exchange(int index1, int index2) {
  TUpdateGuard guard(*this);
  const QString string1 = Get(index1);
  TObject* object1 = GetObject(index1);
  Put(index1, Get(index2));
  PutObject(index1, GetObject(index2));
  Put(index2, string1);
  PutObject(index2, object1);
}

void TStrings::Move(int curIndex, int newIndex) {
  if (curIndex == newIndex) return;
  TUpdateGuard guard(*this);
  const QString value = Get(curIndex);
  TObject* object = GetObject(curIndex);
  Delete(curIndex);
  InsertObject(newIndex, value, object);
}

int TStrings::IndexOf(const QString& value) const {
  for (int index = 0; index < GetCount(); ++index)
    if (CompareStrings(Get(index), value) == 0) return index;
  return -1;
}

int TStrings::IndexOfName(const QString& name) const {
  for (int index = 0; index < GetCount(); ++index) {
    const QString line = Get(index);
    const qsizetype separator = line.indexOf(nameValueSeparator_);
    if (separator >= 0 && CompareStrings(line.left(separator), name) == 0) return index;
  }
  return -1;
}

int TStrings::IndexOfObject(const TObject* object) const {
  for (int index = 0; index < GetCount(); ++index)
    if (GetObject(index) == object) return index;
  return -1;
}

QString TStrings::Names(int index) const {
  const QString line = Get(index);
  const qsizetype separator = line.indexOf(nameValueSeparator_);
  return separator >= 0 ? line.left(separator) : QString();
}

QString TStrings::Values(const QString& name) const {
  const int index = IndexOfName(name);
  return index >= 0 ? ValueFromIndex(index) : QString();
}

void TStrings::SetValues(const QString& name, const QString& value) {
  int index = IndexOfName(name);
  if (value.isEmpty()) {
    if (index >= 0) Delete(index);
    return;
  }
  if (index < 0) index = Add(QString());
  Put(index, name + nameValueSeparator_ + value);
}

QString TStrings::ValueFromIndex(int index) const {
  const QString line = Get(index);
  const qsizetype separator = line.indexOf(nameValueSeparator_);
  return separator >= 0 ? line.mid(separator + 1) : QString();
}

void TStrings::SetValueFromIndex(int index, const QString& value) {
  if (value.isEmpty()) {
    if (index >= 0) Delete(index);
    return;
  }
  if (index < 0) index = Add(QString());
  Put(index, Names(index) + nameValueSeparator_ + value);
}

QString TStrings::Text() const {
  QString text;
  for (int index = 0; index < GetCount(); ++index) text += Get(index) + sLineBreak;
  return text;
}

void TStrings::SetText(const QString& text) {
  TUpdateGuard guard(*this);
  Clear();
  qsizetype lineStart = 0;
  for (qsizetype pos = 0; pos < text.size(); ++pos) {
    const QChar ch = text[pos];
    if (ch != QLatin1Char('\r') && ch != QLatin1Char('\n')) continue;
    Add(text.mid(lineStart, pos - lineStart));
    if (ch == QLatin1Char('\r') && pos + 1 < text.size() && text[pos + 1] == QLatin1Char('\n')) ++pos;
    lineStart = pos + 1;
  }
  if (lineStart < text.size()) Add(text.mid(lineStart));
}

QString TStrings::CommaText() const {
  return JoinDelimited(QLatin1Char(','), QLatin1Char('"'), false);
}

void TStrings::SetCommaText(const QString& text) {
  SplitDelimited(text, QLatin1Char(','), QLatin1Char('"'), false);
}

QString TStrings::DelimitedText() const { return JoinDelimited(delimiter_, quoteChar_, strictDelimiter_); }

void TStrings::SetDelimitedText(const QString& text) {
  SplitDelimited(text, delimiter_, quoteChar_, strictDelimiter_);
}

QString TStrings::JoinDelimited(QChar delimiter, QChar quote, bool strict) const {
  // A lone empty string must not read back as no string at all.
  if (GetCount() == 1 && Get(0).isEmpty()) return QString(2, quote);
  auto needsQuotes = [&](QChar ch) { return ch == quote || ch == delimiter || (!strict && IsBlank(ch)); };
  QStringList parts;
  for (int index = 0; index < GetCount(); ++index) {
    const QString value = Get(index);
    const bool quoted = std::any_of(value.begin(), value.end(), needsQuotes);
    parts.append(quoted ? AnsiQuotedStr(value, quote) : value);
  }
  return parts.join(delimiter);
}

void TStrings::SplitDelimited(const QString& text, QChar delimiter, QChar quote, bool strict) {
  TUpdateGuard guard(*this);
  Clear();
  // A NUL ends the text, as it ends a null-terminated one.
  const qsizetype end = text.contains(QChar(0)) ? text.indexOf(QChar(0)) : text.size();
  qsizetype pos = 0;
  auto skipBlanks = [&] {
    while (!strict && pos < end && IsBlank(text[pos])) ++pos;
  };
  skipBlanks();
  while (pos < end) {
    if (text[pos] == quote) {
      Add(ExtractQuoted(text, pos, end, quote));
    } else {
      const qsizetype start = pos;
      while (pos < end && (strict || !IsBlank(text[pos])) && text[pos] != delimiter) ++pos;
      Add(text.mid(start, pos - start));
    }
    skipBlanks();
    if (pos < end && text[pos] == delimiter) {
      if (pos + 1 == end) Add(QString());
      ++pos;
      skipBlanks();
    }
  }
}

void TStrings::SaveToStream(TStream& stream) const {
  const QByteArray bytes = Text().toUtf8();
  stream.WriteBuffer(bytes.constData(), bytes.size());
}

void TStrings::LoadFromStream(TStream& stream) {
  QByteArray bytes(qsizetype(stream.Size() - stream.Position()), Qt::Uninitialized);
  stream.ReadBuffer(bytes.data(), bytes.size());
  QStringDecoder decoder(QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8));
  SetText(decoder.decode(bytes));
}

void TStrings::SaveToFile(const QString& fileName) const {
  TFileStream stream(fileName, fmCreate);
  SaveToStream(stream);
}

void TStrings::LoadFromFile(const QString& fileName) {
  TFileStream stream(fileName, fmOpenRead | fmShareDenyWrite);
  LoadFromStream(stream);
}

void TStrings::BeginUpdate() {
  if (updateCount_ == 0) SetUpdateState(true);
  ++updateCount_;
}

void TStrings::EndUpdate() {
  --updateCount_;
  if (updateCount_ == 0) SetUpdateState(false);
}

void TStrings::Assign(const TPersistent* source) {
  const auto* strings = dynamic_cast<const TStrings*>(source);
  if (!strings) {
    TPersistent::Assign(source);
    return;
  }
  if (strings == this) return;
  TUpdateGuard guard(*this);
  Clear();
  nameValueSeparator_ = strings->nameValueSeparator_;
  delimiter_ = strings->delimiter_;
  quoteChar_ = strings->quoteChar_;
  strictDelimiter_ = strings->strictDelimiter_;
  AddStrings(strings);
}

bool TStrings::Equals(const TStrings* strings) const {
  if (GetCount() != strings->GetCount()) return false;
  for (int index = 0; index < GetCount(); ++index)
    if (Get(index) != strings->Get(index)) return false;
  return true;
}

void TStrings::DefineProperties(TFiler* filer) {
  auto readData = [this](TReader& reader) {
    reader.ReadListBegin();
    {
      TUpdateGuard<TStrings> update(*this);
      Clear();
      while (!reader.EndOfList()) Add(reader.ReadString());
    }
    reader.ReadListEnd();
  };
  auto writeData = [this](TWriter& writer) {
    writer.WriteListBegin();
    for (int index = 0; index < Count(); ++index) writer.WriteString(Get(index));
    writer.WriteListEnd();
  };
  filer->DefineProperty(QStringLiteral("Strings"), readData, writeData, Count() > 0);
}

int TStrings::CompareStrings(const QString& string1, const QString& string2) const {
  return AnsiCompareText(string1, string2);
}

const TMetaClass& TStringList::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TStringList", &TStrings::StaticClass()).Creates<TStringList>();
  return meta;
}

const TMetaClass& TStringList::ClassType() const { return StaticClass(); }

TStringList::~TStringList() {
  onChange_.Clear();
  onChanging_.Clear();
  if (ownsObjects_)
    for (Item& item : items_) delete item.object;
}

void TStringList::CheckIndex(int index) const {
  if (index < 0 || index >= GetCount()) RaiseListIndexError<EStringListError>(index);
}

int TStringList::Add(const QString& value) { return AddObject(value, nullptr); }

int TStringList::AddObject(const QString& value, TObject* object) {
  if (sorted_) return AddSorted(value, object);
  const int index = GetCount();
  InsertItem(index, value, object);
  return index;
}

int TStringList::AddSorted(const QString& value, TObject* object) {
  int index = 0;
  if (Find(value, index)) {
    if (duplicates_ == dupIgnore) return index;
    if (duplicates_ == dupError) throw EStringListError(SDuplicateString);
  }
  InsertItem(index, value, object);
  return index;
}

void TStringList::Insert(int index, const QString& value) {
  if (sorted_) throw EStringListError(SSortedListError);
  if (index < 0 || index > GetCount()) RaiseListIndexError<EStringListError>(index);
  InsertItem(index, value, nullptr);
}

void TStringList::InsertItem(int index, const QString& value, TObject* object) {
  Changing();
  items_.insert(items_.begin() + index, Item{value, object});
  Changed();
}

void TStringList::Delete(int index) {
  CheckIndex(index);
  Changing();
  TObject* object = items_[size_t(index)].object;
  items_.erase(items_.begin() + index);
  if (ownsObjects_) delete object;
  Changed();
}

void TStringList::Clear() {
  if (items_.empty()) return;
  Changing();
  std::vector<Item> removed;
  removed.swap(items_);
  if (ownsObjects_)
    for (Item& item : removed) delete item.object;
  Changed();
}

void TStringList::Exchange(int index1, int index2) {
  CheckIndex(index1);
  CheckIndex(index2);
  Changing();
  std::swap(items_[size_t(index1)], items_[size_t(index2)]);
  Changed();
}

void TStringList::Move(int curIndex, int newIndex) {
  if (curIndex == newIndex) return;
  // Checked before anything moves, so a sorted list does not lose the line.
  if (sorted_) throw EStringListError(SSortedListError);
  CheckIndex(curIndex);
  CheckIndex(newIndex);
  Changing();
  Item item = std::move(items_[size_t(curIndex)]);
  items_.erase(items_.begin() + curIndex);
  items_.insert(items_.begin() + newIndex, std::move(item));
  Changed();
}

int TStringList::IndexOf(const QString& value) const {
  if (!sorted_) return TStrings::IndexOf(value);
  int index = 0;
  return Find(value, index) ? index : -1;
}

bool TStringList::Find(const QString& value, int& index) const {
  bool found = false;
  int low = 0, high = GetCount() - 1;
  while (low <= high) {
    const int middle = (low + high) / 2;
    const int order = CompareStrings(items_[size_t(middle)].string, value);
    if (order < 0) {
      low = middle + 1;
      continue;
    }
    high = middle - 1;
    if (order == 0) {
      found = true;
      // Without duplicates the first match is the only one; with them, keep halving
      // towards the first.
      if (duplicates_ != dupAccept) low = middle;
    }
  }
  index = low;
  return found;
}

void TStringList::Sort() {
  CustomSort([](TStringList* list, int index1, int index2) {
    return list->CompareStrings(list->items_[size_t(index1)].string, list->items_[size_t(index2)].string);
  });
}

void TStringList::CustomSort(const TStringListSortCompare& compare) {
  if (sorted_ || GetCount() < 2) return;
  Changing();
  // Sort positions against the untouched list, so compare always sees valid indexes.
  std::vector<int> order(items_.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](int index1, int index2) { return compare(this, index1, index2) < 0; });
  std::vector<Item> sorted;
  sorted.reserve(items_.size());
  for (int index : order) sorted.push_back(std::move(items_[size_t(index)]));
  items_.swap(sorted);
  Changed();
}

void TStringList::SetSorted(bool sorted) {
  if (sorted_ == sorted) return;
  if (sorted) Sort();
  sorted_ = sorted;
}

void TStringList::SetCaseSensitive(bool caseSensitive) {
  if (caseSensitive_ == caseSensitive) return;
  caseSensitive_ = caseSensitive;
  if (!sorted_) return;
  sorted_ = false;
  SetSorted(true);
}

void TStringList::Assign(const TPersistent* source) {
  const auto* list = dynamic_cast<const TStringList*>(source);
  if (!list || list == this) {
    TStrings::Assign(source);
    return;
  }
  TUpdateGuard guard(*this);
  // Unsorted while the lines arrive, so they keep the source's order.
  sorted_ = false;
  caseSensitive_ = list->caseSensitive_;
  duplicates_ = list->duplicates_;
  TStrings::Assign(source);
  SetSorted(list->sorted_);
}

QString TStringList::Get(int index) const {
  CheckIndex(index);
  return items_[size_t(index)].string;
}

void TStringList::Put(int index, const QString& value) {
  if (sorted_) throw EStringListError(SSortedListError);
  CheckIndex(index);
  Changing();
  items_[size_t(index)].string = value;
  Changed();
}

TObject* TStringList::GetObject(int index) const {
  CheckIndex(index);
  return items_[size_t(index)].object;
}

void TStringList::PutObject(int index, TObject* object) {
  CheckIndex(index);
  Changing();
  items_[size_t(index)].object = object;
  Changed();
}

void TStringList::SetUpdateState(bool updating) {
  if (updating) Changing();
  else Changed();
}

int TStringList::CompareStrings(const QString& string1, const QString& string2) const {
  return caseSensitive_ ? AnsiCompareStr(string1, string2) : AnsiCompareText(string1, string2);
}

void TStringList::Changing() {
  if (UpdateCount() == 0 && onChanging_) onChanging_(this);
}

void TStringList::Changed() {
  if (UpdateCount() == 0 && onChange_) onChange_(this);
}

}  // namespace quil
