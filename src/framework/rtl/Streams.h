#pragma once
// Byte streams: the abstract TStream, a stream in memory and a stream over a file.
// Read and Write move as many bytes as they can and say how many; ReadBuffer and
// WriteBuffer move all or raise. A stream also reads and writes components in the
// component stream format (Filer.h).

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Object.h"

class QFile;

namespace quil {

class EFCreateError : public EStreamError {
public:
  using EStreamError::EStreamError;
};

extern QString SWriteError;

class TComponent;

enum TSeekOrigin { soBeginning, soCurrent, soEnd };
// The word constants, equal to the TSeekOrigin members.
inline constexpr TSeekOrigin soFromBeginning = soBeginning;
inline constexpr TSeekOrigin soFromCurrent = soCurrent;
inline constexpr TSeekOrigin soFromEnd = soEnd;

class TStream : public TObject {
public:
  TStream() = default;
  TStream(const TStream&) = delete;
  TStream& operator=(const TStream&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The number of bytes moved; fewer than count at the end of the data.
  virtual int64_t Read(void* buffer, int64_t count) = 0;
  virtual int64_t Write(const void* buffer, int64_t count) = 0;
  // The new position from the start.
  virtual int64_t Seek(int64_t offset, TSeekOrigin origin) = 0;

  // Raise EReadError / EWriteError unless all count bytes move.
  void ReadBuffer(void* buffer, int64_t count);
  void WriteBuffer(const void* buffer, int64_t count);

  int64_t Position() { return Seek(0, soCurrent); }
  void SetPosition(int64_t position) { Seek(position, soBeginning); }
  virtual int64_t Size();
  virtual void SetSize(int64_t size) = 0;

  // Copies count bytes from source's position; count 0 copies all of source from its
  // start. Returns the bytes copied.
  int64_t CopyFrom(TStream& source, int64_t count);

  // The component stream, from this stream's position: ReadComponent fills instance, or
  // makes the component the stream names when instance is null (its class registered).
  TComponent* ReadComponent(TComponent* instance);
  void WriteComponent(TComponent* instance);
};

class TMemoryStream : public TStream {
public:
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int64_t Read(void* buffer, int64_t count) override;
  int64_t Write(const void* buffer, int64_t count) override;
  int64_t Seek(int64_t offset, TSeekOrigin origin) override;
  int64_t Size() override { return int64_t(data_.size()); }
  void SetSize(int64_t size) override;

  // Valid until the size changes.
  char* Memory() { return data_.data(); }
  const char* Memory() const { return data_.data(); }
  void Clear();

  // The whole contents, whatever the position.
  void SaveToStream(TStream& stream) const;
  void SaveToFile(const QString& fileName) const;
  // Replaces the contents with all of stream from its start; the position goes to 0.
  void LoadFromStream(TStream& stream);
  void LoadFromFile(const QString& fileName);

private:
  std::vector<char> data_;
  int64_t position_ = 0;
};

// Text kept as UTF-8 bytes.
class TStringStream : public TMemoryStream {
public:
  explicit TStringStream(const QString& text = QString());
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  QString DataString() const;
};

// Open modes; one access mode, or fmCreate, combined with one share mode. Share modes
// are accepted for compatibility: the platform gives no mandatory locks.
enum : uint16_t {
  fmOpenRead = 0x0000,
  fmOpenWrite = 0x0001,
  fmOpenReadWrite = 0x0002,
  fmShareCompat = 0x0000,
  fmShareExclusive = 0x0010,
  fmShareDenyWrite = 0x0020,
  fmShareDenyRead = 0x0030,
  fmShareDenyNone = 0x0040,
  fmCreate = 0xFF00,  // create or truncate, then read and write
};

class TFileStream : public TStream {
public:
  // Raises EFCreateError or EFOpenError with the file name.
  TFileStream(const QString& fileName, uint16_t mode);
  ~TFileStream() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int64_t Read(void* buffer, int64_t count) override;
  int64_t Write(const void* buffer, int64_t count) override;
  int64_t Seek(int64_t offset, TSeekOrigin origin) override;
  int64_t Size() override;
  void SetSize(int64_t size) override;
  const QString& FileName() const { return fileName_; }

private:
  QString fileName_;
  std::unique_ptr<QFile> file_;
};

}  // namespace quil
