#include <gtest/gtest.h>

#include "framework/controls/Clipboard.h"

using namespace quil;

TEST(Clipboard, TextGoesInAndComesBack) {
  Clipboard()->SetAsText(QStringLiteral("a\tb\r\nc"));
  EXPECT_EQ(Clipboard()->AsText(), QStringLiteral("a\tb\r\nc"));
  EXPECT_TRUE(Clipboard()->HasFormat(CF_UNICODETEXT));
  Clipboard()->Clear();
  EXPECT_TRUE(Clipboard()->AsText().isEmpty());
  EXPECT_FALSE(Clipboard()->HasFormat(CF_TEXT));
}
