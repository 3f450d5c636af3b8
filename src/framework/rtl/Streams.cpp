#include "framework/rtl/Streams.h"

#include <QFile>
#include <algorithm>
#include <cstring>

#include "framework/rtl/Filer.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

QString SWriteError = QStringLiteral("Stream write error");

// --- TStream --------------------------------------------------------------------------

const TMetaClass& TStream::StaticClass() {
  static const TMetaClass meta("TStream", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TStream::ClassType() const { return StaticClass(); }

void TStream::ReadBuffer(void* buffer, int64_t count) {
  if (count > 0 && Read(buffer, count) != count) throw EReadError(SReadError);
}

void TStream::WriteBuffer(const void* buffer, int64_t count) {
  if (count > 0 && Write(buffer, count) != count) throw EWriteError(SWriteError);
}

int64_t TStream::Size() {
  const int64_t position = Position();
  const int64_t size = Seek(0, soEnd);
  Seek(position, soBeginning);
  return size;
}

int64_t TStream::CopyFrom(TStream& source, int64_t count) {
  if (count == 0) {
    source.SetPosition(0);
    count = source.Size();
  }
  constexpr int64_t chunkSize = 64 * 1024;
  std::vector<char> chunk(size_t(std::min(count, chunkSize)));
  for (int64_t left = count; left > 0;) {
    const int64_t now = std::min(left, chunkSize);
    source.ReadBuffer(chunk.data(), now);
    WriteBuffer(chunk.data(), now);
    left -= now;
  }
  return count;
}

TComponent* TStream::ReadComponent(TComponent* instance) {
  TReader reader(*this);
  return reader.ReadRootComponent(instance);
}

void TStream::WriteComponent(TComponent* instance) {
  TWriter writer(*this);
  writer.WriteRootComponent(instance);
}

// --- TMemoryStream --------------------------------------------------------------------

const TMetaClass& TMemoryStream::StaticClass() {
  static const TMetaClass meta = TMetaClass("TMemoryStream", &TStream::StaticClass())
      .Creates<TMemoryStream>();
  return meta;
}

const TMetaClass& TMemoryStream::ClassType() const { return StaticClass(); }

int64_t TMemoryStream::Read(void* buffer, int64_t count) {
  const int64_t available = std::max<int64_t>(0, Size() - position_);
  const int64_t moved = std::clamp<int64_t>(count, 0, available);
  if (moved > 0) std::memcpy(buffer, data_.data() + position_, size_t(moved));
  position_ += moved;
  return moved;
}

int64_t TMemoryStream::Write(const void* buffer, int64_t count) {
  if (count <= 0) return 0;
  if (position_ + count > Size()) data_.resize(size_t(position_ + count));
  std::memcpy(data_.data() + position_, buffer, size_t(count));
  position_ += count;
  return count;
}

int64_t TMemoryStream::Seek(int64_t offset, TSeekOrigin origin) {
  const int64_t base = origin == soBeginning ? 0 : origin == soCurrent ? position_ : Size();
  // A position before the start is refused; one past the end is where a write extends.
  if (base + offset >= 0) position_ = base + offset;
  return position_;
}

void TMemoryStream::SetSize(int64_t size) {
  data_.resize(size_t(std::max<int64_t>(0, size)));
  position_ = std::min(position_, Size());
}

void TMemoryStream::Clear() {
  data_.clear();
  position_ = 0;
}

void TMemoryStream::SaveToStream(TStream& stream) const {
  stream.WriteBuffer(data_.data(), int64_t(data_.size()));
}

void TMemoryStream::SaveToFile(const QString& fileName) const {
  TFileStream file(fileName, fmCreate);
  SaveToStream(file);
}

void TMemoryStream::LoadFromStream(TStream& stream) {
  stream.SetPosition(0);
  const int64_t size = stream.Size();
  std::vector<char> data(static_cast<size_t>(size));
  stream.ReadBuffer(data.data(), size);
  data_ = std::move(data);
  position_ = 0;
}

void TMemoryStream::LoadFromFile(const QString& fileName) {
  TFileStream file(fileName, fmOpenRead | fmShareDenyWrite);
  LoadFromStream(file);
}

// --- TStringStream --------------------------------------------------------------------

TStringStream::TStringStream(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  Write(bytes.constData(), bytes.size());
  SetPosition(0);
}

const TMetaClass& TStringStream::StaticClass() {
  static const TMetaClass meta = TMetaClass("TStringStream", &TMemoryStream::StaticClass())
      .Creates<TStringStream>();
  return meta;
}

const TMetaClass& TStringStream::ClassType() const { return StaticClass(); }

QString TStringStream::DataString() const {
  return QString::fromUtf8(Memory(), qsizetype(const_cast<TStringStream*>(this)->Size()));
}

// --- TFileStream ----------------------------------------------------------------------

TFileStream::TFileStream(const QString& fileName, uint16_t mode)
    : fileName_(fileName), file_(std::make_unique<QFile>(fileName)) {
  if ((mode & fmCreate) == fmCreate) {
    if (!file_->open(QIODevice::ReadWrite | QIODevice::Truncate))
      throw EFCreateError(Format(SFCreateError, {fileName}));
    return;
  }
  QIODevice::OpenMode openMode = QIODevice::ReadOnly;
  if ((mode & 0x3) == fmOpenWrite) openMode = QIODevice::WriteOnly;
  if ((mode & 0x3) == fmOpenReadWrite) openMode = QIODevice::ReadWrite;
  // Opening for writing must not make a file that is not there.
  if (!file_->open(openMode | QIODevice::ExistingOnly))
    throw EFOpenError(Format(SFOpenError, {fileName}));
}

TFileStream::~TFileStream() = default;

const TMetaClass& TFileStream::StaticClass() {
  static const TMetaClass meta("TFileStream", &TStream::StaticClass());
  return meta;
}

const TMetaClass& TFileStream::ClassType() const { return StaticClass(); }

int64_t TFileStream::Read(void* buffer, int64_t count) {
  const qint64 moved = file_->read(static_cast<char*>(buffer), count);
  return moved < 0 ? 0 : moved;
}

int64_t TFileStream::Write(const void* buffer, int64_t count) {
  const qint64 moved = file_->write(static_cast<const char*>(buffer), count);
  return moved < 0 ? 0 : moved;
}

int64_t TFileStream::Seek(int64_t offset, TSeekOrigin origin) {
  const int64_t base = origin == soBeginning ? 0 : origin == soCurrent ? file_->pos() : file_->size();
  if (base + offset >= 0) file_->seek(base + offset);
  return file_->pos();
}

int64_t TFileStream::Size() { return file_->size(); }

void TFileStream::SetSize(int64_t size) {
  if (!file_->resize(size)) throw EWriteError(SWriteError);
  if (file_->pos() > size) file_->seek(size);
}

}  // namespace quil
