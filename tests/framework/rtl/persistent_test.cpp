#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Persistent.h"

using namespace quil;

namespace {

// Knows only its own class as a source.
class TPen : public TPersistent {
public:
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta("TPen", &TPersistent::StaticClass());
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  void Assign(const TPersistent* source) override {
    if (auto* pen = dynamic_cast<const TPen*>(source)) {
      width = pen->width;
      return;
    }
    TPersistent::Assign(source);
  }

  int width = 1;
};

// Knows how to fill a pen, which does not know it: the fallback through AssignTo.
class TBorder : public TPersistent {
public:
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta("TBorder", &TPersistent::StaticClass());
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  int thickness = 0;
  mutable int assignToCalls = 0;

protected:
  void AssignTo(TPersistent* dest) const override {
    ++assignToCalls;
    if (auto* pen = dynamic_cast<TPen*>(dest)) {
      pen->width = thickness;
      return;
    }
    TPersistent::AssignTo(dest);
  }
};

QString AssignMessage(TPersistent& dest, const TPersistent* source) {
  try {
    dest.Assign(source);
  } catch (const EConvertError& error) {
    return error.Message();
  }
  return QStringLiteral("no error");
}

}  // namespace

TEST(TPersistent, AssignFallsBackToTheSourcesAssignTo) {
  TPen pen;
  TBorder border;
  border.thickness = 3;
  pen.Assign(&border);
  EXPECT_EQ(pen.width, 3);
  EXPECT_EQ(border.assignToCalls, 1);

  TPen other;
  other.width = 5;
  pen.Assign(&other);
  EXPECT_EQ(pen.width, 5);
  EXPECT_EQ(border.assignToCalls, 1) << "a known source is copied directly";
}

TEST(TPersistent, AssignRaisesWhenNeitherSideKnowsTheOther) {
  TPen pen;
  TBorder border, source;
  EXPECT_EQ(AssignMessage(border, &pen), QStringLiteral("Cannot assign a TPen to a TBorder"));
  EXPECT_EQ(AssignMessage(border, &source), QStringLiteral("Cannot assign a TBorder to a TBorder"))
      << "AssignTo hands what it does not know to the base, which raises";
  EXPECT_EQ(source.assignToCalls, 1);
  EXPECT_EQ(AssignMessage(pen, nullptr), QStringLiteral("Cannot assign a nil to a TPen"));
}
