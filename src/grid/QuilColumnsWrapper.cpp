// The column stream: the wrapper component and the collection's stream and file forms.
#include "grid/QuilColumnsWrapper.h"

#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumns.h"

namespace quil {

const TMetaClass& TQuilColumnsWrapper::StaticClass() {
  using T = TQuilColumnsWrapper;
  static const TMetaClass meta = TMetaClass("TQuilColumnsWrapper", &TComponent::StaticClass())
                                     .Creates<TQuilColumnsWrapper>()
                                     .Published(ObjectProp("Columns", &T::Columns, &T::SetColumns))
                                     .Published(StrProp("OrderFields", &T::OrderFields, &T::SetOrderFields));
  return meta;
}

const TMetaClass& TQuilColumnsWrapper::ClassType() const { return StaticClass(); }

TQuilColumnsWrapper::TQuilColumnsWrapper(TComponent* owner) : TComponent(owner) {}

TQuilColumnsWrapper::~TQuilColumnsWrapper() = default;

void TQuilColumnsWrapper::SetColumns(TQuilDBGridColumns* value) {
  if (columns_ && value != columns_) columns_->Assign(value);
}

void TQuilColumnsWrapper::Adopt(TQuilDBGridColumns* columns) {
  owned_.reset(columns);
  columns_ = columns;
}

// --- The collection's stream forms

namespace {

// The grid's streaming state for the length of one stream operation.
class TStreamingScope {
public:
  TStreamingScope(TQuilCustomDBGrid* grid, TGridStreaming member) : grid_(grid), member_(member) {
    if (grid_) grid_->SetStreamingState(grid_->StreamingState() + member_);
  }
  ~TStreamingScope() {
    if (grid_) grid_->SetStreamingState(grid_->StreamingState() - member_);
  }
  TStreamingScope(const TStreamingScope&) = delete;
  TStreamingScope& operator=(const TStreamingScope&) = delete;

private:
  TQuilCustomDBGrid* grid_;
  TGridStreaming member_;
};

}  // namespace

void TQuilDBGridColumns::SaveToStream(TStream& stream) const {
  TQuilColumnsWrapper wrapper(nullptr);
  wrapper.Attach(const_cast<TQuilDBGridColumns*>(this));
  if (grid_) wrapper.SetOrderFields(grid_->GetOrderFields());
  TStreamingScope writing(grid_, gsWriting);
  stream.WriteComponent(&wrapper);
}

// The stream is read into a collection of the grid's own kind, and only a whole read
// replaces these columns.
void TQuilDBGridColumns::LoadFromStream(TStream& stream) {
  TQuilColumnsWrapper wrapper(nullptr);
  wrapper.Adopt(grid_ ? grid_->MakeColumns() : new TQuilDBGridColumns(nullptr, ItemClass()));
  if (grid_) grid_->BeginOrderUpdate();
  TScopeExit endOrder([this] {
    if (grid_) grid_->EndOrderUpdate();
  });
  orderList_.clear();
  {
    TStreamingScope reading(grid_, gsReading);
    stream.ReadComponent(&wrapper);
  }
  orderList_.clear();
  Assign(wrapper.Columns());
  if (grid_) grid_->SetOrderFields(wrapper.OrderFields());
}

void TQuilDBGridColumns::SaveToFile(const QString& fileName) const {
  TFileStream stream(fileName, fmCreate);
  SaveToStream(stream);
}

void TQuilDBGridColumns::LoadFromFile(const QString& fileName) {
  TFileStream stream(fileName, fmOpenRead | fmShareDenyWrite);
  LoadFromStream(stream);
}

}  // namespace quil
