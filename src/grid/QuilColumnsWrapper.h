#pragma once
// TQuilColumnsWrapper: the component a column stream holds. It carries a column
// collection and the order text, so that both travel in the framework's component
// stream format and its text form.

#include <QString>
#include <memory>

#include "framework/rtl/Component.h"

namespace quil {

class TQuilDBGridColumns;

class TQuilColumnsWrapper : public TComponent {
public:
  explicit TQuilColumnsWrapper(TComponent* owner);
  ~TQuilColumnsWrapper() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The collection written or read; none until one is attached or adopted.
  TQuilDBGridColumns* Columns() const { return columns_; }
  // A stream reads into the attached collection; setting copies into it.
  void SetColumns(TQuilDBGridColumns* value);
  // Refers to columns without owning them.
  void Attach(TQuilDBGridColumns* columns) { columns_ = columns; }
  // Takes columns over; they go with the wrapper.
  void Adopt(TQuilDBGridColumns* columns);

  const QString& OrderFields() const { return orderFields_; }
  void SetOrderFields(const QString& value) { orderFields_ = value; }

private:
  TQuilDBGridColumns* columns_ = nullptr;
  std::unique_ptr<TQuilDBGridColumns> owned_;
  QString orderFields_;
};

}  // namespace quil
