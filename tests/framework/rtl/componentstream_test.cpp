#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/PublishedFixtures.h"

using namespace quil;
using namespace fixtures;

namespace {

// Bytes written out by hand, piece by piece.
struct TBytes {
  QByteArray data;
  TBytes& Raw(const char* text) {
    data.append(text);
    return *this;
  }
  TBytes& operator()(std::initializer_list<int> bytes) {
    for (int byte : bytes) data.append(char(byte));
    return *this;
  }
  TBytes& Str(const char* text) {
    data.append(char(std::strlen(text))).append(text);
    return *this;
  }
};

QByteArray Contents(TMemoryStream& stream) { return QByteArray(stream.Memory(), stream.Size()); }

// Counts its living instances, so that a failed read shows what it left behind.
class TPart : public TComponent {
public:
  explicit TPart(TComponent* owner) : TComponent(owner) { ++live; }
  ~TPart() override { --live; }
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TPart", &TComponent::StaticClass())
        .Creates<TPart>()
        .Published(IntProp("Probe", &TPart::Probe, &TPart::SetProbe));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  // Records the state the stream left while it read or wrote the property.
  int Probe() const {
    writingSeen = ComponentState().Contains(csWriting);
    return probe_;
  }
  void SetProbe(int value) {
    readingSeen = ComponentState().Contains(csReading) && ComponentState().Contains(csLoading);
    probe_ = value;
  }

  static inline int live = 0;
  mutable bool writingSeen = false;
  bool readingSeen = false;

private:
  int probe_ = 0;
};

// Keeps its data in a defined binary property.
class TBlobHolder : public TComponent {
public:
  using TComponent::TComponent;
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TBlobHolder", &TComponent::StaticClass())
        .Creates<TBlobHolder>();
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  void DefineProperties(TFiler* filer) override {
    filer->DefineBinaryProperty(
        "Data",
        [this](TStream& stream) {
          data.resize(stream.Size());
          stream.ReadBuffer(data.data(), stream.Size());
        },
        [this](TStream& stream) { stream.WriteBuffer(data.constData(), data.size()); },
        !data.isEmpty());
  }

  QByteArray data;
};

class ComponentStream : public ::testing::Test {
protected:
  void SetUp() override {
    RegisterFixtureClasses();
    RegisterClass(TPart::StaticClass());
    RegisterClass(TBlobHolder::StaticClass());
  }

  QByteArray Write(TComponent* root) {
    TMemoryStream stream;
    stream.WriteComponent(root);
    return Contents(stream);
  }

  std::unique_ptr<TComponent> Read(const QByteArray& bytes) {
    TMemoryStream stream;
    stream.Write(bytes.constData(), bytes.size());
    stream.SetPosition(0);
    return std::unique_ptr<TComponent>(stream.ReadComponent(nullptr));
  }

  // A drawing that sets a property of every kind, away from its default.
  static void Fill(TDrawing& drawing) {
    drawing.SetName("Plan");
    drawing.SetTag(9);
    drawing.SetTitle(QStringLiteral("Grundri\u00df \u2014 \u6c34"));
    drawing.SetCount(-70000);
    drawing.SetScale(0.1);
    drawing.SetValue(Variant("v"));
    drawing.SetSecret("kept");
    drawing.Lines()->Add("first");
    drawing.Lines()->Add(QString());
    for (int index = 0; index < 3; ++index) {
      auto* shape = static_cast<TShape*>(drawing.Shapes()->Add());
      shape->SetCaption(QStringLiteral("Form %1 \u00e9").arg(index));
      shape->SetSize(index * 200 - 150);
      shape->SetKind(TShapeKind(index));
      shape->SetStyles(TShapeStyles::FromInt(uint64_t(index) * 5));
      shape->SetRatio(index / 3.0);
      shape->SetVisible(index != 1);
      shape->SetBig((int64_t{1} << 40) * index);
      shape->Pen()->SetColor(index == 2 ? 0xFF : 0x123456);
      shape->Pen()->SetWidth(index + 1);
      shape->Pen()->SetName(index == 0 ? "solid" : "");
    }
    auto* part = new TPart(&drawing);
    part->SetName("Helper");
    part->SetProbe(5);
    drawing.SetBuddy(part);
  }
};

}  // namespace

TEST_F(ComponentStream, WritesTheBinaryFormatByteForByte) {
  TDrawing drawing(nullptr);
  drawing.SetName("D");
  drawing.SetTitle("Hi");
  drawing.SetCount(5);
  drawing.Lines()->Add("a");
  auto* shape = static_cast<TShape*>(drawing.Shapes()->Add());
  shape->SetCaption(QStringLiteral("\u00e9"));
  shape->SetSize(300);
  shape->SetKind(skSquare);
  shape->SetStyles({ssBold, ssUnderline});
  shape->SetRatio(1.5);
  shape->SetVisible(false);
  shape->Pen()->SetWidth(2);
  shape->Pen()->SetColor(0xFF);

  TBytes expected;
  expected.Raw("TPF0").Str("TDrawing").Str("D");
  expected.Str("Title")({0x06}).Str("Hi");
  expected.Str("Count")({0x02, 0x05});
  expected.Str("Shapes")({0x0E, 0x01});
  expected.Str("Caption")({0x14, 0x02, 0, 0, 0, 0xC3, 0xA9});
  expected.Str("Size")({0x03, 0x2C, 0x01});
  expected.Str("Kind")({0x07}).Str("skSquare");
  expected.Str("Styles")({0x0B}).Str("ssBold").Str("ssUnderline")({0x00});
  expected.Str("Ratio")({0x05, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0xFF, 0x3F});
  expected.Str("Visible")({0x08});
  expected.Str("Pen.Color")({0x07}).Str("clRed");
  expected.Str("Pen.Width")({0x02, 0x02});
  expected({0x00, 0x00});  // end of the item, end of the collection
  expected.Str("Lines.Strings")({0x01, 0x06}).Str("a")({0x00});
  expected({0x00, 0x00});  // end of the properties, no children
  EXPECT_EQ(Write(&drawing).toHex(' '), expected.data.toHex(' '));
}

TEST_F(ComponentStream, WritesIntegersInTheSmallestForm) {
  struct Row {
    int64_t value;
    std::vector<int> bytes;
  };
  const Row rows[] = {
      {-128, {0x02, 0x80}},
      {127, {0x02, 0x7F}},
      {128, {0x03, 0x80, 0x00}},
      {-32769, {0x04, 0xFF, 0x7F, 0xFF, 0xFF}},
      {int64_t{1} << 32, {0x13, 0, 0, 0, 0, 1, 0, 0, 0}},
  };
  for (const Row& row : rows) {
    TMemoryStream stream;
    TWriter writer(stream);
    writer.WriteInteger(row.value);
    QByteArray expected;
    for (int byte : row.bytes) expected.append(char(byte));
    EXPECT_EQ(Contents(stream).toHex(' '), expected.toHex(' ')) << row.value;
  }
}

TEST_F(ComponentStream, WritesStringsAsAsciiOrUtf8) {
  TMemoryStream stream;
  TWriter writer(stream);
  writer.WriteString(QString(300, QLatin1Char('x')));
  writer.WriteString(QStringLiteral("\u00fc"));
  writer.WriteWideString(QStringLiteral("\u00fc"));
  const QByteArray bytes = Contents(stream);
  EXPECT_EQ(bytes.left(5).toHex(' '), "0c 2c 01 00 00");  // vaLString, 300
  EXPECT_EQ(bytes.mid(305).toHex(' '), "14 02 00 00 00 c3 bc 12 01 00 00 00 fc 00");
  stream.SetPosition(0);
  TReader reader(stream);
  EXPECT_EQ(reader.ReadString(), QString(300, QLatin1Char('x')));
  EXPECT_EQ(reader.ReadString(), QStringLiteral("\u00fc"));
  EXPECT_EQ(reader.ReadString(), QStringLiteral("\u00fc"));
}

TEST_F(ComponentStream, RoundTripsEveryKindOfPropertyToAnEqualObject) {
  TDrawing original(nullptr);
  Fill(original);
  const QByteArray bytes = Write(&original);
  std::unique_ptr<TComponent> read = Read(bytes);
  auto* copy = dynamic_cast<TDrawing*>(read.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->Name(), "Plan");
  EXPECT_EQ(copy->Tag(), 9);
  EXPECT_EQ(copy->Title(), original.Title());
  EXPECT_EQ(copy->Count(), -70000);
  EXPECT_EQ(copy->Scale(), 0.1);
  EXPECT_EQ(copy->Value(), Variant("v"));
  EXPECT_EQ(copy->Secret(), "kept");
  EXPECT_EQ(copy->Lines()->Text(), original.Lines()->Text());
  ASSERT_EQ(copy->Shapes()->Count(), 3);
  for (int index = 0; index < 3; ++index)
    EXPECT_TRUE(*copy->Shapes()->Shape(index) == *original.Shapes()->Shape(index)) << index;
  ASSERT_EQ(copy->ComponentCount(), 1);
  auto* helper = dynamic_cast<TPart*>(copy->Components(0));
  ASSERT_NE(helper, nullptr);
  EXPECT_EQ(helper->Name(), "Helper");
  EXPECT_EQ(helper->Probe(), 5);
  EXPECT_EQ(copy->Buddy(), helper);  // the reference was resolved to the new child
  EXPECT_EQ(Write(copy), bytes);
  copy->CheckConsistency();
}

TEST_F(ComponentStream, LeavesOutDefaultAndUnstoredProperties) {
  TDrawing drawing(nullptr);
  drawing.SetSecret("_not stored");
  auto* shape = static_cast<TShape*>(drawing.Shapes()->Add());
  shape->SetNote("not stored");
  const QByteArray bytes = Write(&drawing);
  for (const char* name : {"Secret", "Note", "Size", "Kind", "Styles", "Ratio", "Visible", "Big",
                           "Pen", "Title", "Scale", "Lines", "Buddy", "Value", "OnChange", "Revision"})
    EXPECT_FALSE(bytes.contains(name)) << name;
  // Count has no default and the collection is written even when its items are empty.
  TBytes expected;
  expected.Raw("TPF0").Str("TDrawing")({0}).Str("Count")({0x02, 0x00});
  expected.Str("Shapes")({0x0E, 0x01, 0x00, 0x00, 0x00, 0x00});
  EXPECT_EQ(bytes.toHex(' '), expected.data.toHex(' '));
  auto copy = Read(bytes);
  EXPECT_EQ(static_cast<TDrawing*>(copy.get())->Shapes()->Shape(0)->Note(), "");
}

TEST_F(ComponentStream, MarksComponentsWhileReadingAndWritingAndCallsLoadedOnce) {
  TDrawing drawing(nullptr);
  auto* part = new TPart(&drawing);
  part->SetName("P");
  part->SetProbe(3);
  TMemoryStream stream;
  stream.WriteComponent(&drawing);
  EXPECT_TRUE(part->writingSeen);
  EXPECT_FALSE(part->ComponentState().Contains(csWriting));

  stream.SetPosition(0);
  TDrawing target(nullptr);
  stream.ReadComponent(&target);
  auto* readPart = dynamic_cast<TPart*>(target.FindComponent("P"));
  ASSERT_NE(readPart, nullptr);
  EXPECT_TRUE(readPart->readingSeen);
  EXPECT_EQ(target.loadedCalls, 1);
  EXPECT_FALSE(target.readingInLoaded);
  EXPECT_FALSE(target.ComponentState().Contains(csLoading));
  EXPECT_FALSE(readPart->ComponentState().Contains(csLoading));
  EXPECT_FALSE(readPart->ComponentState().Contains(csReading));
}

TEST_F(ComponentStream, ResolvesReferencesToComponentsReadLaterAndToTheRoot) {
  TDrawing drawing(nullptr);
  drawing.SetName("Root");
  auto* inner = new TDrawing(&drawing);
  inner->SetName("Inner");
  inner->SetBuddy(&drawing);
  auto* part = new TPart(&drawing);
  part->SetName("Later");
  drawing.SetBuddy(part);
  const QByteArray bytes = Write(&drawing);
  EXPECT_TRUE(bytes.contains(TBytes().Str("Buddy")({0x07}).Str("Owner").data));
  auto copy = Read(bytes);
  auto* root = static_cast<TDrawing*>(copy.get());
  auto* readInner = static_cast<TDrawing*>(root->FindComponent("Inner"));
  EXPECT_EQ(root->Buddy(), root->FindComponent("Later"));
  EXPECT_EQ(readInner->Buddy(), root);
}

TEST_F(ComponentStream, StreamsEventsByNameThroughTheResolvers) {
  TDrawing drawing(nullptr);
  drawing.SetOnChange(TNotifyEvent(&drawing, &TDrawing::Changed));
  TMemoryStream stream;
  TWriter writer(stream);
  writer.FindMethodName = [](const TObject* instance, const TMethodPropInfo& prop) {
    return QStringLiteral("DrawingChanged");
  };
  writer.WriteRootComponent(&drawing);
  EXPECT_TRUE(Contents(stream).contains(TBytes().Str("OnChange")({0x07}).Str("DrawingChanged").data));

  stream.SetPosition(0);
  TDrawing target(nullptr);
  TReader reader(stream);
  QString boundName;
  reader.BindMethod = [&](TObject* instance, const TMethodPropInfo& prop, const QString& name) {
    boundName = name;
    auto& event = dynamic_cast<const TEventPropInfo<TNotifyEvent>&>(prop);
    event.Set(instance, TNotifyEvent(&target, &TDrawing::Changed));
  };
  reader.ReadRootComponent(&target);
  EXPECT_EQ(boundName, "DrawingChanged");
  EXPECT_TRUE(target.OnChange().Assigned());

  // Without a resolver a name cannot be bound, and a handler has no name to write.
  stream.SetPosition(0);
  TDrawing unbound(nullptr);
  EXPECT_THROW(stream.ReadComponent(&unbound), EReadError);
  EXPECT_FALSE(Write(&drawing).contains("OnChange"));
}

TEST_F(ComponentStream, RoundTripsDefinedBinaryProperties) {
  TBlobHolder holder(nullptr);
  holder.data = QByteArray("\x01\x02\x00\xFF", 4);
  const QByteArray bytes = Write(&holder);
  TBytes expected;
  expected.Raw("TPF0").Str("TBlobHolder")({0}).Str("Data")({0x0A, 4, 0, 0, 0, 1, 2, 0, 0xFF, 0, 0});
  EXPECT_EQ(bytes.toHex(' '), expected.data.toHex(' '));
  auto copy = Read(bytes);
  EXPECT_EQ(static_cast<TBlobHolder*>(copy.get())->data, holder.data);
}

TEST_F(ComponentStream, ReadsPrefixesAndItemOrdersOfOtherWriters) {
  TBytes input;
  input.Raw("TPF0")({0xF2, 0x02, 0x07}).Str("TDrawing").Str("X");
  input.Str("Shapes")({0x0E, 0x02, 0x03, 0x01}).Str("Size")({0x02, 0x21})({0x00, 0x00});
  input.Str("Scale")({0x15, 0, 0, 0, 0, 0, 0, 0x04, 0x40});  // vaDouble 2.5
  input.Str("Title")({0x12, 0x02, 0, 0, 0, 0x41, 0, 0xFC, 0});  // vaWString
  input({0x00, 0x00});
  auto copy = Read(input.data);
  auto* drawing = static_cast<TDrawing*>(copy.get());
  EXPECT_EQ(drawing->Name(), "X");
  EXPECT_EQ(drawing->Shapes()->Shape(0)->Size(), 33);
  EXPECT_EQ(drawing->Scale(), 2.5);
  EXPECT_EQ(drawing->Title(), QStringLiteral("A\u00fc"));
}

TEST_F(ComponentStream, RejectsABadSignature) {
  try {
    Read(QByteArray("TPF1\x08TDrawing\x00\x00\x00", 16));
    FAIL() << "read a stream with a bad signature";
  } catch (const EReadError& error) {
    EXPECT_EQ(error.Message(), "Invalid stream format");
  }
  EXPECT_THROW(Read(QByteArray()), EReadError);
}

TEST_F(ComponentStream, FailsCleanlyOnEveryTruncationOfAValidStream) {
  TDrawing original(nullptr);
  Fill(original);
  const QByteArray bytes = Write(&original);
  const int liveBefore = TPart::live;
  for (qsizetype length = 0; length < bytes.size(); ++length) {
    EXPECT_THROW(Read(bytes.left(length)), EFilerError) << length;
    EXPECT_EQ(TPart::live, liveBefore) << length;
  }
  // Into a given root: the parts read so far stay owned by it; the root is not left loading.
  TDrawing target(nullptr);
  TMemoryStream stream;
  stream.Write(bytes.constData(), bytes.size() - 3);
  stream.SetPosition(0);
  EXPECT_THROW(stream.ReadComponent(&target), EReadError);
  EXPECT_FALSE(target.ComponentState().Contains(csLoading));
  EXPECT_FALSE(target.ComponentState().Contains(csReading));
  target.CheckConsistency();
}

TEST_F(ComponentStream, NamesTheObjectAndPropertyOfAValueThatCannotBeRead) {
  TBytes unknown;
  unknown.Raw("TPF0").Str("TDrawing").Str("D").Str("Colour")({0x02, 0x01})({0x00, 0x00});
  try {
    Read(unknown.data);
    FAIL() << "read an unknown property";
  } catch (const EReadError& error) {
    EXPECT_EQ(error.Message(), "Error reading D.Colour: Property Colour does not exist");
  }
  TBytes wrongType;
  wrongType.Raw("TPF0").Str("TDrawing").Str("D").Str("Count")({0x06}).Str("x")({0x00, 0x00});
  EXPECT_THROW(Read(wrongType.data), EReadError);
  TBytes badByte;
  badByte.Raw("TPF0").Str("TDrawing").Str("D").Str("Count")({0x7F, 0x00, 0x00});
  EXPECT_THROW(Read(badByte.data), EReadError);
  TBytes badEnum;
  badEnum.Raw("TPF0").Str("TDrawing").Str("D").Str("Shapes")({0x0E, 0x01}).Str("Kind")({0x07});
  badEnum.Str("skOval")({0x00, 0x00, 0x00, 0x00});
  EXPECT_THROW(Read(badEnum.data), EReadError);
  TBytes unknownClass;
  unknownClass.Raw("TPF0").Str("TNoSuchThing").Str("D")({0x00, 0x00});
  EXPECT_THROW(Read(unknownClass.data), EClassNotFound);
  TBytes hugeString;
  hugeString.Raw("TPF0").Str("TDrawing").Str("D").Str("Title")({0x0C, 0xFF, 0xFF, 0xFF, 0x7F});
  EXPECT_THROW(Read(hugeString.data), EReadError);
  TBytes deepList;
  deepList.Raw("TPF0").Str("TDrawing").Str("D").Str("Colour");
  deepList.data.append(QByteArray(100000, char(0x01)));
  EXPECT_THROW(Read(deepList.data), EReadError);
}

// A component with a single character, streamed as a one-character string.
class TSeparated : public TComponent {
public:
  using TComponent::TComponent;
  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TSeparated", &TComponent::StaticClass())
                                       .Creates<TSeparated>()
                                       .Published(CharProp("Separator", &TSeparated::Separator,
                                                           &TSeparated::SetSeparator)
                                                      .Default(QLatin1Char(',')));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }
  QChar Separator() const { return separator_; }
  void SetSeparator(QChar value) { separator_ = value; }

private:
  QChar separator_ = QLatin1Char(',');
};

TEST_F(ComponentStream, WritesACharacterAsAOneCharacterString) {
  TSeparated written(nullptr);
  written.SetName("S");
  TMemoryStream defaulted;
  defaulted.WriteComponent(&written);
  EXPECT_FALSE(Contents(defaulted).contains("Separator")) << "the default is left out";
  written.SetSeparator(QChar(0x00E9));
  TMemoryStream stream;
  stream.WriteComponent(&written);
  TBytes expected;
  expected.Raw("TPF0").Str("TSeparated").Str("S").Str("Separator")({0x14, 0x02, 0x00, 0x00, 0x00, 0xC3, 0xA9});
  expected({0x00, 0x00});
  EXPECT_EQ(Contents(stream), expected.data);
  TSeparated read(nullptr);
  stream.Seek(0, soBeginning);
  stream.ReadComponent(&read);
  EXPECT_EQ(read.Separator(), QChar(0x00E9));
  EXPECT_EQ(GetPropValue(&read, "Separator").AsString(), QString(QChar(0x00E9)));
  SetPropValue(&read, "Separator", Variant(QStringLiteral(";")));
  EXPECT_EQ(read.Separator(), QLatin1Char(';'));
}

