#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Extended.h"
#include "framework/rtl/Streams.h"

using namespace quil;

namespace {

std::string Contents(TMemoryStream& stream) {
  return std::string(stream.Memory(), size_t(stream.Size()));
}

}  // namespace

TEST(TMemoryStream, WritesReadsAndSeeksFromEachOrigin) {
  TMemoryStream stream;
  EXPECT_EQ(stream.Write("abcdef", 6), 6);
  EXPECT_EQ(stream.Position(), 6);
  EXPECT_EQ(stream.Size(), 6);
  EXPECT_EQ(stream.Seek(2, soFromBeginning), 2);
  EXPECT_EQ(stream.Seek(1, soFromCurrent), 3);
  char buffer[8] = {};
  EXPECT_EQ(stream.Read(buffer, 8), 3);  // only what is left
  EXPECT_STREQ(buffer, "def");
  EXPECT_EQ(stream.Seek(-2, soFromEnd), 4);
  stream.Write("XYZ", 3);  // overwrites and extends
  EXPECT_EQ(Contents(stream), "abcdXYZ");
  EXPECT_EQ(stream.Seek(-1, soBeginning), 7);  // refused: before the start
}

TEST(TMemoryStream, WritingPastTheEndFillsTheGapWithZeros) {
  TMemoryStream stream;
  stream.SetPosition(3);
  stream.Write("x", 1);
  EXPECT_EQ(Contents(stream), std::string("\0\0\0x", 4));
  stream.SetSize(2);
  EXPECT_EQ(stream.Position(), 2);
  stream.Clear();
  EXPECT_EQ(stream.Size(), 0);
  EXPECT_EQ(stream.Position(), 0);
}

TEST(TStream, ReadBufferAndWriteBufferRaiseWhenShort) {
  TMemoryStream stream;
  stream.Write("ab", 2);
  stream.SetPosition(0);
  char buffer[4];
  EXPECT_THROW(stream.ReadBuffer(buffer, 3), EReadError);
  stream.SetPosition(0);
  stream.ReadBuffer(buffer, 2);
  EXPECT_EQ(std::memcmp(buffer, "ab", 2), 0);
}

TEST(TStream, CopyFromCopiesACountOrAllOfTheSource) {
  TMemoryStream source, target;
  source.Write("0123456789", 10);
  source.SetPosition(4);
  EXPECT_EQ(target.CopyFrom(source, 3), 3);
  EXPECT_EQ(Contents(target), "456");
  EXPECT_EQ(target.CopyFrom(source, 0), 10);  // 0: all of it, from its start
  EXPECT_EQ(Contents(target), "4560123456789");
  source.SetPosition(8);
  EXPECT_THROW(target.CopyFrom(source, 5), EReadError);
}

TEST(TStringStream, HoldsTextAsUtf8) {
  TStringStream stream(QStringLiteral("gr\u00fc\u00df"));
  EXPECT_EQ(stream.Size(), 6);
  EXPECT_EQ(stream.Position(), 0);
  EXPECT_EQ(stream.DataString(), QStringLiteral("gr\u00fc\u00df"));
}

TEST(TFileStream, CreatesWritesAndReopensAFile) {
  QTemporaryDir dir;
  const QString name = dir.filePath("data.bin");
  {
    TFileStream file(name, fmCreate);
    file.WriteBuffer("hello", 5);
    EXPECT_EQ(file.Size(), 5);
    file.SetPosition(1);
    file.WriteBuffer("E", 1);
  }
  TFileStream file(name, fmOpenRead | fmShareDenyWrite);
  EXPECT_EQ(file.FileName(), name);
  EXPECT_EQ(file.Size(), 5);
  char buffer[5];
  file.ReadBuffer(buffer, 5);
  EXPECT_EQ(std::string(buffer, 5), "hEllo");
  EXPECT_EQ(file.Read(buffer, 1), 0);
  EXPECT_THROW(file.WriteBuffer("x", 1), EWriteError);
}

TEST(TFileStream, RaisesWithTheFileNameWhenItCannotOpenOrCreate) {
  QTemporaryDir dir;
  const QString missing = dir.filePath("missing.bin");
  try {
    TFileStream file(missing, fmOpenReadWrite);
    FAIL() << "opened a missing file";
  } catch (const EFOpenError& error) {
    EXPECT_TRUE(error.Message().contains(missing));
  }
  EXPECT_FALSE(QFile::exists(missing));  // opening for writing made nothing
  EXPECT_THROW(TFileStream(dir.filePath("no/such/dir/x.bin"), fmCreate), EFCreateError);
}

TEST(TMemoryStream, SavesToAndLoadsFromFiles) {
  QTemporaryDir dir;
  TMemoryStream stream;
  stream.Write("payload", 7);
  stream.SaveToFile(dir.filePath("m.bin"));
  TMemoryStream loaded;
  loaded.Write("old contents", 12);
  loaded.LoadFromFile(dir.filePath("m.bin"));
  EXPECT_EQ(Contents(loaded), "payload");
  EXPECT_EQ(loaded.Position(), 0);
  EXPECT_THROW(loaded.LoadFromFile(dir.filePath("none.bin")), EFOpenError);
}

TEST(Extended, ConvertsDoublesToTheTenByteForm) {
  // 1.5: significand 0xC000000000000000, exponent 0x3FFF.
  const TExtended80 oneAndHalf = {0, 0, 0, 0, 0, 0, 0, 0xC0, 0xFF, 0x3F};
  EXPECT_EQ(DoubleToExtended(1.5), oneAndHalf);
  // -0.1: 0xCCCCCCCCCCCCD000 with exponent 0x3FFB and the sign.
  const TExtended80 minusTenth = {0x00, 0xD0, 0xCC, 0xCC, 0xCC, 0xCC, 0xCC, 0xCC, 0xFB, 0xBF};
  EXPECT_EQ(DoubleToExtended(-0.1), minusTenth);
  EXPECT_EQ(DoubleToExtended(0.0), TExtended80{});
  // The smallest denormal double, 2^-1074, is a normal extended.
  const TExtended80 tiny = {0, 0, 0, 0, 0, 0, 0, 0x80, 0xCD, 0x3B};
  EXPECT_EQ(DoubleToExtended(std::numeric_limits<double>::denorm_min()), tiny);
}

TEST(Extended, RoundTripsEveryKindOfDouble) {
  const double values[] = {1.5, -0.1, 1e308, -1e-308, 123456789.125, 5e-324, 2.2250738585072014e-308,
                           std::numeric_limits<double>::max(), -0.0,
                           std::numeric_limits<double>::infinity()};
  for (double value : values) {
    const double back = ExtendedToDouble(DoubleToExtended(value));
    EXPECT_EQ(std::bit_cast<uint64_t>(back), std::bit_cast<uint64_t>(value)) << value;
  }
  EXPECT_TRUE(std::isnan(ExtendedToDouble(DoubleToExtended(std::nan("")))));
}

TEST(Extended, RoundsExtraBitsToNearestEven) {
  // 1 + 2^-53 lies halfway between 1 and the next double: ties go to even, to 1.
  TExtended80 halfway = {0, 0x04, 0, 0, 0, 0, 0, 0x80, 0xFF, 0x3F};
  EXPECT_EQ(ExtendedToDouble(halfway), 1.0);
  // A little above halfway rounds up.
  TExtended80 above = {1, 0x04, 0, 0, 0, 0, 0, 0x80, 0xFF, 0x3F};
  EXPECT_EQ(ExtendedToDouble(above), 1.0 + std::numeric_limits<double>::epsilon());
  // (1 + 2^-52) + 2^-53 is halfway too, and rounds up to the even neighbour.
  TExtended80 oddHalfway = {0, 0x0C, 0, 0, 0, 0, 0, 0x80, 0xFF, 0x3F};
  EXPECT_EQ(ExtendedToDouble(oddHalfway), 1.0 + 2 * std::numeric_limits<double>::epsilon());
  // Beyond the double range: infinity; far below: zero.
  TExtended80 huge = {0, 0, 0, 0, 0, 0, 0, 0x80, 0xFF, 0x7F - 1};
  EXPECT_TRUE(std::isinf(ExtendedToDouble(huge)));
  TExtended80 small = {0, 0, 0, 0, 0, 0, 0, 0x80, 0x00, 0x01};
  EXPECT_EQ(ExtendedToDouble(small), 0.0);
}
