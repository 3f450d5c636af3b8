#pragma once
// Classes that publish a property of every kind, for the property access and stream
// tests: a drawing (a component) with a collection of shapes, each shape with a pen.

#include <QString>
#include <optional>

#include "framework/rtl/Collections.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/TypInfo.h"

namespace fixtures {

using namespace quil;

enum TShapeKind { skCircle, skSquare, skTriangle };
inline const TEnumTypeInfo& TypeInfo(TShapeKind) {
  static const TEnumTypeInfo info("TShapeKind", {"skCircle", "skSquare", "skTriangle"});
  return info;
}

enum TShapeStyle { ssBold, ssItalic, ssUnderline, ssStrikeOut };
using TShapeStyles = TSet<TShapeStyle>;
inline const TEnumTypeInfo& TypeInfo(TShapeStyle) {
  static const TEnumTypeInfo info("TShapeStyle", {"ssBold", "ssItalic", "ssUnderline", "ssStrikeOut"});
  return info;
}

// An integer with named values, as colours have.
inline std::optional<QString> TintToIdent(int64_t value) {
  if (value == 0) return QStringLiteral("clBlack");
  if (value == 0xFF) return QStringLiteral("clRed");
  return std::nullopt;
}
inline std::optional<int64_t> IdentToTint(const QString& ident) {
  if (ident.compare(QLatin1String("clBlack"), Qt::CaseInsensitive) == 0) return 0;
  if (ident.compare(QLatin1String("clRed"), Qt::CaseInsensitive) == 0) return 0xFF;
  return std::nullopt;
}
inline const TIntegerTypeInfo& TintTypeInfo() {
  static const TIntegerTypeInfo info(tkInteger, QStringLiteral("TTint"), &TintToIdent, &IdentToTint);
  return info;
}

class TPen : public TPersistent {
public:
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TPen", &TPersistent::StaticClass())
        .Creates<TPen>()
        .Published(IntProp("Color", &TPen::Color, &TPen::SetColor).OfType(TintTypeInfo()).Default(0))
        .Published(IntProp("Width", &TPen::Width, &TPen::SetWidth).Default(1))
        .Published(StrProp("Name", &TPen::Name, &TPen::SetName));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  int Color() const { return color_; }
  void SetColor(int value) { color_ = value; }
  int Width() const { return width_; }
  void SetWidth(int value) { width_ = value; }
  const QString& Name() const { return name_; }
  void SetName(const QString& value) { name_ = value; }

  void Assign(const TPersistent* source) override {
    auto* pen = dynamic_cast<const TPen*>(source);
    if (!pen) return TPersistent::Assign(source);
    color_ = pen->color_;
    width_ = pen->width_;
    name_ = pen->name_;
  }
  bool operator==(const TPen& other) const {
    return color_ == other.color_ && width_ == other.width_ && name_ == other.name_;
  }

private:
  int color_ = 0;
  int width_ = 1;
  QString name_;
};

class TShape : public TCollectionItem {
public:
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TShape", &TCollectionItem::StaticClass())
        .Creates<TShape>()
        .Published(StrProp("Caption", &TShape::Caption, &TShape::SetCaption))
        .Published(IntProp("Size", &TShape::Size, &TShape::SetSize).Default(10))
        .Published(EnumProp("Kind", &TShape::Kind, &TShape::SetKind).Default(skCircle))
        .Published(SetProp("Styles", &TShape::Styles, &TShape::SetStyles).Default({}))
        .Published(FloatProp("Ratio", &TShape::Ratio, &TShape::SetRatio))
        .Published(BoolProp("Visible", &TShape::Visible, &TShape::SetVisible).Default(true))
        .Published(Int64Prop("Big", &TShape::Big, &TShape::SetBig).Default(0))
        .Published(ObjectProp("Pen", &TShape::Pen, &TShape::SetPen))
        .Published(StrProp("Note", &TShape::Note, &TShape::SetNote).Stored(false));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  const QString& Caption() const { return caption_; }
  void SetCaption(const QString& value) { caption_ = value; }
  int Size() const { return size_; }
  void SetSize(int value) { size_ = value; }
  TShapeKind Kind() const { return kind_; }
  void SetKind(TShapeKind value) { kind_ = value; }
  TShapeStyles Styles() const { return styles_; }
  void SetStyles(TShapeStyles value) { styles_ = value; }
  double Ratio() const { return ratio_; }
  void SetRatio(double value) { ratio_ = value; }
  bool Visible() const { return visible_; }
  void SetVisible(bool value) { visible_ = value; }
  int64_t Big() const { return big_; }
  void SetBig(int64_t value) { big_ = value; }
  TPen* Pen() const { return pen_.get(); }
  void SetPen(TPen* value) { pen_->Assign(value); }
  const QString& Note() const { return note_; }
  void SetNote(const QString& value) { note_ = value; }

  bool operator==(const TShape& other) const {
    return caption_ == other.caption_ && size_ == other.size_ && kind_ == other.kind_ &&
           styles_ == other.styles_ && ratio_ == other.ratio_ && visible_ == other.visible_ &&
           big_ == other.big_ && *pen_ == *other.pen_ && note_ == other.note_;
  }

private:
  QString caption_;
  int size_ = 10;
  TShapeKind kind_ = skCircle;
  TShapeStyles styles_;
  double ratio_ = 0;
  bool visible_ = true;
  int64_t big_ = 0;
  std::unique_ptr<TPen> pen_ = std::make_unique<TPen>();
  QString note_;
};

class TShapes : public TOwnedCollection {
public:
  explicit TShapes(TPersistent* owner) : TOwnedCollection(owner, TShape::StaticClass()) {}
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta("TShapes", &TOwnedCollection::StaticClass());
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }
  TShape* Shape(int index) const { return static_cast<TShape*>(Items(index)); }
};

// Streams its owned components as children, as a form does.
class TDrawing : public TComponent {
public:
  explicit TDrawing(TComponent* owner) : TComponent(owner) {}

  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TDrawing", &TComponent::StaticClass())
        .Creates<TDrawing>()
        .Published(StrProp("Title", &TDrawing::Title, &TDrawing::SetTitle))
        .Published(IntProp("Count", &TDrawing::Count, &TDrawing::SetCount))
        .Published(FloatProp("Scale", &TDrawing::Scale, &TDrawing::SetScale).Default(1.0))
        .Published(ObjectProp("Shapes", &TDrawing::Shapes, &TDrawing::SetShapes))
        .Published(ObjectProp("Lines", &TDrawing::Lines, &TDrawing::SetLines))
        .Published(ObjectProp("Buddy", &TDrawing::Buddy, &TDrawing::SetBuddy))
        .Published(VariantProp("Value", &TDrawing::Value, &TDrawing::SetValue))
        .Published(EventProp("OnChange", &TDrawing::OnChange, &TDrawing::SetOnChange))
        .Published(StrProp("Secret", &TDrawing::Secret, &TDrawing::SetSecret)
                       .StoredBy(&TDrawing::IsSecretStored))
        .Published(IntProp("Revision", &TDrawing::Revision));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  const QString& Title() const { return title_; }
  void SetTitle(const QString& value) { title_ = value; }
  int Count() const { return count_; }
  void SetCount(int value) { count_ = value; }
  double Scale() const { return scale_; }
  void SetScale(double value) { scale_ = value; }
  TShapes* Shapes() const { return shapes_.get(); }
  void SetShapes(TShapes* value) { shapes_->Assign(value); }
  TStrings* Lines() const { return lines_.get(); }
  void SetLines(TStrings* value) { lines_->Assign(value); }
  TComponent* Buddy() const { return buddy_; }
  void SetBuddy(TComponent* value) { buddy_ = value; }
  const Variant& Value() const { return value_; }
  void SetValue(const Variant& value) { value_ = value; }
  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& value) { onChange_ = value; }
  const QString& Secret() const { return secret_; }
  void SetSecret(const QString& value) { secret_ = value; }
  bool IsSecretStored() const { return !secret_.startsWith(QLatin1Char('_')); }
  int Revision() const { return 7; }

  void GetChildren(const TGetChildProc& proc, TComponent* root) override {
    for (int index = 0; index < ComponentCount(); ++index) proc(Components(index));
  }

  // What the reader did: the state it saw in Loaded, and how often.
  int loadedCalls = 0;
  bool readingInLoaded = false;
  void Loaded() override {
    ++loadedCalls;
    readingInLoaded = ComponentState().Contains(csReading);
    TComponent::Loaded();
  }

  void Changed(TObject*) {}

private:
  QString title_;
  int count_ = 0;
  double scale_ = 1.0;
  std::unique_ptr<TShapes> shapes_ = std::make_unique<TShapes>(this);
  std::unique_ptr<TStringList> lines_ = std::make_unique<TStringList>();
  TComponent* buddy_ = nullptr;
  Variant value_;
  TNotifyEvent onChange_;
  QString secret_;
};

inline void RegisterFixtureClasses() {
  RegisterClass(TDrawing::StaticClass());
  RegisterClass(TComponent::StaticClass());
}

}  // namespace fixtures
