// Values as the drivers give them, read into field values.

#include <QDateTime>
#include <gtest/gtest.h>

#include "framework/db/SqlTypes.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

struct TMomentCase {
  const char* text;
  TFieldType type;
  double expected;  // days since 1899-12-30
};

constexpr double kHour = 1.0 / 24;
// 2000-01-02 is day 36527.
const TMomentCase kMoments[] = {
    {"2000-01-02", ftDate, 36527},
    {"2000-01-02 05:30:00", ftDateTime, 36527 + 5.5 * kHour},
    {"2000-01-02T05:30", ftDateTime, 36527 + 5.5 * kHour},
    {"2000-01-02 00:00:01.5", ftDateTime, 36527 + 1.5 / 86400},
    {"2000-01-02 23:00:00+05:00", ftDateTime, 36527 + 23 * kHour},
    {"2000-01-02T06:00:00Z", ftDateTime, 36527 + 6 * kHour},
    {"1899-12-29", ftDate, -1},
    {"18:00:00", ftTime, 18 * kHour},
    {" 07:15 ", ftTime, 7.25 * kHour},
};

TEST(FromSqlValue, ReadsTheIsoTextsSQLiteKeepsDatesIn) {
  for (const TMomentCase& moment : kMoments) {
    const Variant value = FromSqlValue(QVariant(QString::fromLatin1(moment.text)), moment.type);
    EXPECT_NEAR(value.AsDateTime(), moment.expected, 1e-9) << moment.text;
  }
}

TEST(FromSqlValue, RefusesTextsThatAreNoDateNamingThem) {
  for (const char* text : {"2000-02-30", "2000-01-02 24:00:00", "2000-01-02x05:00", "12:5", "yesterday",
                           "2000-01-02 05:30:00 junk"}) {
    try {
      FromSqlValue(QVariant(QString::fromLatin1(text)), ftDateTime);
      ADD_FAILURE() << text << " was read";
    } catch (const EDatabaseError& error) {
      EXPECT_TRUE(error.Message().contains(QString::fromLatin1(text).trimmed())) << error.what();
    }
  }
}

TEST(FromSqlValue, TakesTheDriversOwnDateTypes) {
  EXPECT_NEAR(FromSqlValue(QVariant(QDate(2000, 1, 2)), ftDate).AsDateTime(), 36527, 1e-9);
  EXPECT_NEAR(FromSqlValue(QVariant(QTime(6, 0)), ftTime).AsDateTime(), 0.25, 1e-9);
  EXPECT_TRUE(VarIsNull(FromSqlValue(QVariant(QMetaType(QMetaType::QDateTime)), ftDateTime)));
}

}  // namespace
