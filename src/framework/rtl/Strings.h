#pragma once
// TStrings, the abstract list of strings with an object beside each, and TStringList,
// its stored, optionally sorted form.
//
// Besides plain lines a list holds name=value pairs (Names, Values, ValueFromIndex)
// and converts to and from one text: Text (one line each), CommaText and
// DelimitedText (quoted where a string holds a delimiter, the quote or, unless
// StrictDelimiter, a blank or control character).

#include <QString>
#include <functional>
#include <vector>

#include "framework/rtl/Events.h"
#include "framework/rtl/Persistent.h"

namespace quil {

class TStream;

// The line break Text puts after every line: CR LF on every platform, since texts are
// cut at CR and split at CR LF further on. Reading accepts LF and lone CR as well.
inline const QString sLineBreak = QStringLiteral("\r\n");

class TStrings : public TPersistent {
public:
  TStrings() = default;
  TStrings(const TStrings&) = delete;
  TStrings& operator=(const TStrings&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int Count() const { return GetCount(); }
  QString Strings(int index) const { return Get(index); }
  void SetStrings(int index, const QString& value) { Put(index, value); }
  TObject* Objects(int index) const { return GetObject(index); }
  void SetObjects(int index, TObject* object) { PutObject(index, object); }

  virtual int Add(const QString& value);  // the index it went to
  virtual int AddObject(const QString& value, TObject* object);
  virtual void Insert(int index, const QString& value) = 0;
  void InsertObject(int index, const QString& value, TObject* object);
  virtual void Delete(int index) = 0;
  virtual void Clear() = 0;
  virtual void AddStrings(const TStrings* strings);
  virtual void Exchange(int index1, int index2);
  virtual void Move(int curIndex, int newIndex);

  // -1 when not there; comparisons go through CompareStrings.
  virtual int IndexOf(const QString& value) const;
  int IndexOfName(const QString& name) const;
  int IndexOfObject(const TObject* object) const;

  // The part before the first NameValueSeparator; empty when the line has none.
  QString Names(int index) const;
  // The value of the first line whose name is name; empty when there is none.
  QString Values(const QString& name) const;
  // An empty value deletes the line; otherwise the line is replaced or added.
  void SetValues(const QString& name, const QString& value);
  // The part after the first NameValueSeparator; empty when the line has none.
  QString ValueFromIndex(int index) const;
  // Like SetValues: an empty value deletes the line, a negative index adds one.
  void SetValueFromIndex(int index, const QString& value);
  QChar NameValueSeparator() const { return nameValueSeparator_; }
  void SetNameValueSeparator(QChar separator) { nameValueSeparator_ = separator; }

  // Every line followed by sLineBreak. Setting splits at CR, LF and CR LF; a break at
  // the very end starts no further line.
  QString Text() const;
  virtual void SetText(const QString& text);
  // DelimitedText with ',' and '"', not strict, whatever this list's settings.
  QString CommaText() const;
  void SetCommaText(const QString& text);
  QString DelimitedText() const;
  void SetDelimitedText(const QString& text);
  QChar Delimiter() const { return delimiter_; }
  void SetDelimiter(QChar delimiter) { delimiter_ = delimiter; }
  QChar QuoteChar() const { return quoteChar_; }
  void SetQuoteChar(QChar quote) { quoteChar_ = quote; }
  // When true only the delimiter separates; blanks belong to the strings.
  bool StrictDelimiter() const { return strictDelimiter_; }
  void SetStrictDelimiter(bool strict) { strictDelimiter_ = strict; }

  // Text as UTF-8 without a byte order mark. Loading reads from the stream's position
  // to its end, in the encoding a byte order mark names, else UTF-8, and sets Text.
  // The file forms raise EFCreateError or EFOpenError.
  virtual void SaveToStream(TStream& stream) const;
  virtual void LoadFromStream(TStream& stream);
  void SaveToFile(const QString& fileName) const;
  void LoadFromFile(const QString& fileName);

  // Counted; the list hears SetUpdateState(true) at the outermost BeginUpdate and
  // SetUpdateState(false) at the outermost EndUpdate.
  void BeginUpdate();
  void EndUpdate();
  int UpdateCount() const { return updateCount_; }

  // From other strings: their lines, objects and text settings, in one update.
  void Assign(const TPersistent* source) override;
  // Same count and the same strings, compared exactly.
  bool Equals(const TStrings* strings) const;
  // Component streams hold the lines as the defined property "Strings", a list of
  // strings, written when there is at least one.
  void DefineProperties(TFiler* filer) override;

protected:
  virtual int GetCount() const = 0;
  virtual QString Get(int index) const = 0;
  // Replaces by deleting and inserting, keeping the object.
  virtual void Put(int index, const QString& value);
  virtual TObject* GetObject(int index) const { return nullptr; }
  virtual void PutObject(int index, TObject* object) {}
  virtual void SetUpdateState(bool updating) {}
  // Case-insensitive here; negative, 0 or positive.
  virtual int CompareStrings(const QString& string1, const QString& string2) const;

private:
  QString JoinDelimited(QChar delimiter, QChar quote, bool strict) const;
  void SplitDelimited(const QString& text, QChar delimiter, QChar quote, bool strict);

  int updateCount_ = 0;
  QChar nameValueSeparator_ = QLatin1Char('=');
  QChar delimiter_ = QLatin1Char(',');
  QChar quoteChar_ = QLatin1Char('"');
  bool strictDelimiter_ = false;
};

enum TDuplicates { dupIgnore, dupAccept, dupError };

class TStringList;
// Negative when the string at index1 sorts before the one at index2.
using TStringListSortCompare = std::function<int(TStringList* list, int index1, int index2)>;

class TStringList : public TStrings {
public:
  TStringList() = default;
  ~TStringList() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // When sorted, Add and AddObject insert in order and obey Duplicates.
  int Add(const QString& value) override;
  int AddObject(const QString& value, TObject* object) override;
  // Raises EStringListError on a sorted list.
  void Insert(int index, const QString& value) override;
  void Delete(int index) override;
  void Clear() override;
  void Exchange(int index1, int index2) override;
  void Move(int curIndex, int newIndex) override;
  int IndexOf(const QString& value) const override;

  // Binary search of a sorted list: true when found; index is the match (the first
  // one with dupAccept) or where value would be inserted.
  bool Find(const QString& value, int& index) const;
  // Sorts an unsorted list; a sorted one is in order already.
  void Sort();
  void CustomSort(const TStringListSortCompare& compare);

  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted);
  TDuplicates Duplicates() const { return duplicates_; }
  void SetDuplicates(TDuplicates duplicates) { duplicates_ = duplicates; }
  // False by default; a sorted list re-sorts when it changes.
  bool CaseSensitive() const { return caseSensitive_; }
  void SetCaseSensitive(bool caseSensitive);
  // When true the list frees the object of every line it deletes, and at its end.
  bool OwnsObjects() const { return ownsObjects_; }
  void SetOwnsObjects(bool owns) { ownsObjects_ = owns; }

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }
  const TNotifyEvent& OnChanging() const { return onChanging_; }
  void SetOnChanging(const TNotifyEvent& handler) { onChanging_ = handler; }

  // Also takes Sorted, Duplicates and CaseSensitive from another string list.
  void Assign(const TPersistent* source) override;

protected:
  int GetCount() const override { return int(items_.size()); }
  QString Get(int index) const override;
  void Put(int index, const QString& value) override;
  TObject* GetObject(int index) const override;
  void PutObject(int index, TObject* object) override;
  void SetUpdateState(bool updating) override;
  int CompareStrings(const QString& string1, const QString& string2) const override;

  // Fire OnChanging and OnChange, outside BeginUpdate/EndUpdate only.
  virtual void Changing();
  virtual void Changed();

private:
  struct Item {
    QString string;
    TObject* object = nullptr;
  };

  void CheckIndex(int index) const;
  void InsertItem(int index, const QString& value, TObject* object);
  int AddSorted(const QString& value, TObject* object);

  std::vector<Item> items_;
  bool sorted_ = false;
  TDuplicates duplicates_ = dupIgnore;
  bool caseSensitive_ = false;
  bool ownsObjects_ = false;
  TNotifyEvent onChange_;
  TNotifyEvent onChanging_;
};

// QString is already the wide string, so the wide lists are the lists themselves.
using TWideStrings = TStrings;
using TWideStringList = TStringList;

}  // namespace quil
