#include <gtest/gtest.h>

#include <cstring>

#include "QtPrinters.h"

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"

using namespace quil;

TEST(DatabaseError, RaisesADatabaseErrorWithTheMessage) {
  try {
    DatabaseError(Format(SFieldNotFound, {"Größe"}));
    FAIL() << "DatabaseError returned";
  } catch (const Exception& error) {
    EXPECT_NE(dynamic_cast<const EDatabaseError*>(&error), nullptr);
    EXPECT_EQ(error.Message(), QStringLiteral("Field 'Größe' not found"));
    EXPECT_STREQ(error.what(), "Field 'Größe' not found") << "what() is the message in UTF-8";
  }
}

TEST(Exception, ANewMessageIsWhatTheHandlerSees) {
  EInvalidGridOperation error(STooManyColumns);
  error.SetMessage(error.Message() + QStringLiteral(" (257)"));
  EXPECT_EQ(error.Message(), "Grid requested to display more than 256 columns (257)");
  EXPECT_STREQ(error.what(), "Grid requested to display more than 256 columns (257)");
}
