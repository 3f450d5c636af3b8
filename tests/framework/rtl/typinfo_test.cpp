#include <gtest/gtest.h>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/PublishedFixtures.h"

using namespace quil;
using namespace fixtures;

namespace {

class TypInfoTest : public ::testing::Test {
protected:
  TypInfoTest() { shape = static_cast<TShape*>(drawing.Shapes()->Add()); }
  TDrawing drawing{nullptr};
  TShape* shape;
};

}  // namespace

TEST(TPropInfo, ListsPublishedPropertiesParentsFirstWithTheirKinds) {
  const TMetaClass& meta = TShape::StaticClass();
  ASSERT_EQ(meta.PropertyCount(), 9);
  EXPECT_EQ(meta.Property(0)->Name(), "Caption");
  EXPECT_EQ(meta.Property(0)->Kind(), tkUString);
  EXPECT_EQ(meta.Property(1)->Kind(), tkInteger);
  EXPECT_EQ(meta.Property(2)->Kind(), tkEnumeration);
  EXPECT_EQ(meta.Property(2)->PropType().Name(), "TShapeKind");
  EXPECT_EQ(meta.Property(3)->Kind(), tkSet);
  EXPECT_EQ(meta.Property(3)->PropType().Name(), "set of TShapeStyle");
  EXPECT_EQ(meta.Property(4)->Kind(), tkFloat);
  EXPECT_EQ(meta.Property(5)->PropType().Name(), "Boolean");
  EXPECT_EQ(meta.Property(6)->Kind(), tkInt64);
  EXPECT_EQ(meta.Property(7)->Kind(), tkClass);
  EXPECT_EQ(meta.Property(7)->PropType().Name(), "TPen");
  EXPECT_EQ(TDrawing::StaticClass().FindProperty("onchange")->Kind(), tkMethod);
  EXPECT_EQ(TDrawing::StaticClass().FindProperty("Value")->Kind(), tkVariant);
}

TEST_F(TypInfoTest, GetPropInfoFindsNamesCaseInsensitivelyAndAlongPaths) {
  EXPECT_EQ(GetPropInfo(&drawing, "title"), TDrawing::StaticClass().FindProperty("Title"));
  EXPECT_EQ(GetPropInfo(&drawing, "Missing"), nullptr);
  EXPECT_EQ(GetPropInfo(shape, "Pen.Width"), TPen::StaticClass().FindProperty("Width"));
  EXPECT_EQ(GetPropInfo(TShape::StaticClass(), "Pen.Color"), TPen::StaticClass().FindProperty("Color"));
  EXPECT_EQ(GetPropInfo(shape, "Caption.Width"), nullptr);
  EXPECT_EQ(GetPropInfo(shape, "Pen.Missing"), nullptr);
  EXPECT_TRUE(IsPublishedProp(shape, "Pen.Name"));
  EXPECT_TRUE(IsPublishedProp(TDrawing::StaticClass(), "Name"));
  EXPECT_FALSE(IsPublishedProp(TShape::StaticClass(), "Name"));
  EXPECT_EQ(PropType(shape, "Pen.Name"), tkUString);
  EXPECT_TRUE(PropIsType(&drawing, "Shapes", tkClass));
  EXPECT_THROW(PropType(TShape::StaticClass(), "Nope"), EPropertyError);
}

TEST_F(TypInfoTest, ReadsAndWritesEachKindByName) {
  SetStrProp(shape, "Caption", QStringLiteral("Rund \u00e9"));
  EXPECT_EQ(shape->Caption(), QStringLiteral("Rund \u00e9"));
  EXPECT_EQ(GetStrProp(shape, "caption"), QStringLiteral("Rund \u00e9"));

  SetOrdProp(shape, "Size", 42);
  EXPECT_EQ(shape->Size(), 42);
  EXPECT_EQ(GetOrdProp(shape, "Size"), 42);

  SetInt64Prop(shape, "Big", int64_t{1} << 40);
  EXPECT_EQ(shape->Big(), int64_t{1} << 40);
  EXPECT_EQ(GetInt64Prop(shape, "Big"), int64_t{1} << 40);

  SetFloatProp(shape, "Ratio", 2.5);
  EXPECT_EQ(shape->Ratio(), 2.5);
  EXPECT_EQ(GetFloatProp(shape, "Ratio"), 2.5);

  SetEnumProp(shape, "Kind", "SKTRIANGLE");
  EXPECT_EQ(shape->Kind(), skTriangle);
  EXPECT_EQ(GetEnumProp(shape, "Kind"), "skTriangle");
  EXPECT_EQ(GetOrdProp(shape, "Kind"), 2);

  SetEnumProp(shape, "Visible", "False");
  EXPECT_FALSE(shape->Visible());
  EXPECT_EQ(GetEnumProp(shape, "Visible"), "False");

  SetSetProp(shape, "Styles", "[ssItalic, ssStrikeOut]");
  EXPECT_EQ(shape->Styles(), (TShapeStyles{ssItalic, ssStrikeOut}));
  EXPECT_EQ(GetSetProp(shape, "Styles"), "ssItalic,ssStrikeOut");
  EXPECT_EQ(GetSetProp(shape, "Styles", true), "[ssItalic,ssStrikeOut]");
  SetSetProp(shape, "Styles", "ssBold");
  EXPECT_EQ(shape->Styles(), TShapeStyles{ssBold});
  EXPECT_EQ(GetOrdProp(shape, "Styles"), 1);
}

TEST_F(TypInfoTest, ComponentsPublishNameAndTag) {
  SetStrProp(&drawing, "Name", "Sketch");
  SetOrdProp(&drawing, "Tag", 4);
  EXPECT_EQ(drawing.Name(), "Sketch");
  EXPECT_EQ(GetOrdProp(&drawing, "Tag"), 4);
  EXPECT_THROW(SetStrProp(&drawing, "Name", "not an identifier"), EComponentError);
  EXPECT_FALSE(IsStoredProp(&drawing, "Name"));  // the stream's header carries it
}

TEST_F(TypInfoTest, ReachesSubobjectPropertiesAlongDottedPaths) {
  SetStrProp(shape, "Pen.Name", "dashed");
  SetOrdProp(shape, "Pen.Width", 3);
  EXPECT_EQ(shape->Pen()->Name(), "dashed");
  EXPECT_EQ(GetOrdProp(shape, "pen.width"), 3);
  EXPECT_EQ(GetObjectProp(shape, "Pen"), shape->Pen());
  EXPECT_EQ(GetObjectProp(shape, "Pen", &TPen::StaticClass()), shape->Pen());
  EXPECT_EQ(GetObjectProp(shape, "Pen", &TComponent::StaticClass()), nullptr);
  EXPECT_EQ(GetObjectProp(&drawing, "Shapes"), drawing.Shapes());
}

TEST_F(TypInfoTest, ObjectSettersCheckTheClass) {
  TComponent buddy(nullptr);
  SetObjectProp(&drawing, "Buddy", &buddy);
  EXPECT_EQ(drawing.Buddy(), &buddy);
  SetObjectProp(&drawing, "Buddy", nullptr);
  EXPECT_EQ(drawing.Buddy(), nullptr);
  TPen pen;
  EXPECT_THROW(SetObjectProp(&drawing, "Buddy", &pen), EPropertyError);
  EXPECT_EQ(drawing.Buddy(), nullptr);
  pen.SetWidth(9);
  SetObjectProp(shape, "Pen", &pen);  // the setter assigns
  EXPECT_EQ(shape->Pen()->Width(), 9);
}

TEST_F(TypInfoTest, MissingPropertiesWrongKindsAndReadOnlyRaise) {
  try {
    SetStrProp(shape, "Colour", "red");
    FAIL() << "no exception";
  } catch (const EPropertyError& error) {
    EXPECT_EQ(error.Message(), "Property Colour does not exist");
  }
  EXPECT_THROW(GetOrdProp(shape, "Nothing"), EPropertyError);
  EXPECT_THROW(SetStrProp(shape, "Size", "1"), EPropertyError);
  EXPECT_THROW(GetFloatProp(shape, "Caption"), EPropertyError);
  EXPECT_THROW(GetEnumProp(shape, "Size"), EPropertyError);
  EXPECT_THROW(SetEnumProp(shape, "Kind", "skHexagon"), EPropertyError);
  EXPECT_EQ(shape->Kind(), skCircle);
  EXPECT_THROW(SetSetProp(shape, "Styles", "[ssBold, ssWavy]"), EPropertyError);
  EXPECT_TRUE(shape->Styles().Empty());
  EXPECT_THROW(SetStrProp(shape, "Caption.Text", "x"), EPropertyError);
  EXPECT_EQ(GetOrdProp(&drawing, "Revision"), 7);
  EXPECT_THROW(SetOrdProp(&drawing, "Revision", 8), EPropertyError);
  EXPECT_TRUE(GetPropInfo(&drawing, "Revision")->IsReadOnly());
}

TEST_F(TypInfoTest, VariantsCarryAnyPropertyButObjects) {
  SetPropValue(shape, "Size", Variant(12));
  SetPropValue(shape, "Kind", Variant("skSquare"));
  SetPropValue(shape, "Styles", Variant("[ssUnderline]"));
  SetPropValue(shape, "Visible", Variant(false));
  SetPropValue(shape, "Caption", Variant(3.5));
  EXPECT_EQ(shape->Size(), 12);
  EXPECT_EQ(shape->Kind(), skSquare);
  EXPECT_EQ(shape->Styles(), TShapeStyles{ssUnderline});
  EXPECT_FALSE(shape->Visible());
  EXPECT_EQ(GetPropValue(shape, "Kind"), Variant("skSquare"));
  EXPECT_EQ(GetPropValue(shape, "Kind", false), Variant(1));
  EXPECT_EQ(VarType(GetPropValue(shape, "Visible")), varBoolean);
  EXPECT_EQ(GetPropValue(shape, "Styles"), Variant("ssUnderline"));
  EXPECT_EQ(GetPropValue(shape, "Size"), Variant(12));
  SetVariantProp(&drawing, "Value", Null());
  EXPECT_TRUE(VarIsNull(GetVariantProp(&drawing, "Value")));
  EXPECT_THROW(GetPropValue(shape, "Pen"), EPropertyError);
}

TEST_F(TypInfoTest, DefaultsAndStoredPredicatesFollowTheValue) {
  const TPropInfo* size = GetPropInfo(shape, "Size");
  EXPECT_TRUE(size->HasDefault());
  EXPECT_TRUE(IsDefaultPropertyValue(shape, size));
  shape->SetSize(11);
  EXPECT_FALSE(IsDefaultPropertyValue(shape, size));

  const TPropInfo* count = GetPropInfo(&drawing, "Count");
  EXPECT_FALSE(count->HasDefault());  // nodefault: stored whatever its value
  EXPECT_FALSE(IsDefaultPropertyValue(&drawing, count));

  EXPECT_TRUE(IsDefaultPropertyValue(&drawing, GetPropInfo(&drawing, "Title")));
  drawing.SetTitle("t");
  EXPECT_FALSE(IsDefaultPropertyValue(&drawing, GetPropInfo(&drawing, "Title")));
  EXPECT_TRUE(IsDefaultPropertyValue(&drawing, GetPropInfo(&drawing, "Scale")));
  EXPECT_TRUE(IsDefaultPropertyValue(&drawing, GetPropInfo(&drawing, "Value")));
  EXPECT_TRUE(IsDefaultPropertyValue(&drawing, GetPropInfo(&drawing, "OnChange")));
  drawing.SetOnChange(TNotifyEvent(&drawing, &TDrawing::Changed));
  EXPECT_FALSE(IsDefaultPropertyValue(&drawing, GetPropInfo(&drawing, "OnChange")));

  EXPECT_FALSE(IsStoredProp(shape, "Note"));
  EXPECT_TRUE(IsStoredProp(&drawing, "Secret"));
  drawing.SetSecret("_hidden");
  EXPECT_FALSE(IsStoredProp(&drawing, "Secret"));
}

TEST(TEnumTypeInfo, NamesMembersInOrdinalOrder) {
  const TEnumTypeInfo& kinds = EnumTypeInfo<TShapeKind>();
  EXPECT_EQ(kinds.Count(), 3);
  EXPECT_EQ(GetEnumName(kinds, skSquare), "skSquare");
  EXPECT_EQ(GetEnumName(kinds, 3), "");
  EXPECT_EQ(GetEnumValue(kinds, "sktriangle"), 2);
  EXPECT_EQ(GetEnumValue(kinds, "skOval"), -1);
  EXPECT_EQ(GetEnumValue(BooleanTypeInfo(), "TRUE"), 1);
  EXPECT_EQ(&EnumTypeInfo<TShapeKind>(), &kinds);
  EXPECT_EQ(SetToString(SetTypeInfo<TShapeStyle>(), 0b1010, true), "[ssItalic,ssStrikeOut]");
  EXPECT_EQ(StringToSet(SetTypeInfo<TShapeStyle>(), " ssBold , ssUnderline "), 0b101u);
}

TEST_F(TypInfoTest, EventPropertiesAreTypedDelegates) {
  auto* prop = dynamic_cast<const TEventPropInfo<TNotifyEvent>*>(GetPropInfo(&drawing, "OnChange"));
  ASSERT_NE(prop, nullptr);
  const TNotifyEvent handler(&drawing, &TDrawing::Changed);
  prop->Set(&drawing, handler);
  EXPECT_TRUE(drawing.OnChange() == handler);
  EXPECT_TRUE(prop->Assigned(&drawing));
  prop->Clear(&drawing);
  EXPECT_FALSE(drawing.OnChange().Assigned());
}
