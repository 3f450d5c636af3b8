#include <gtest/gtest.h>

#include <QStringList>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/ObjectText.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/PublishedFixtures.h"

using namespace quil;
using namespace fixtures;

namespace {

QString Lines(const QStringList& lines) { return lines.join(sLineBreak) + sLineBreak; }

QByteArray Contents(TMemoryStream& stream) { return QByteArray(stream.Memory(), stream.Size()); }

QByteArray Binary(TComponent* root) {
  TMemoryStream stream;
  stream.WriteComponent(root);
  return Contents(stream);
}

QString ToText(const QByteArray& binary) {
  TMemoryStream input;
  input.Write(binary.constData(), binary.size());
  input.SetPosition(0);
  TStringStream output;
  ObjectBinaryToText(input, output);
  return output.DataString();
}

QByteArray ToBinary(const QString& text) {
  TStringStream input(text);
  TMemoryStream output;
  ObjectTextToBinary(input, output);
  return Contents(output);
}

// The text of one float property as the converter writes it.
QString FloatText(double value) {
  TMemoryStream stream;
  TWriter writer(stream);
  writer.WriteSignature();
  writer.WriteStr("T");
  writer.WriteStr("");
  writer.WriteStr("F");
  writer.WriteFloat(value);
  writer.WriteListEnd();
  writer.WriteListEnd();
  const QString text = ToText(Contents(stream));
  const qsizetype start = text.indexOf(" = ") + 3;
  return text.mid(start, text.indexOf(sLineBreak, start) - start);
}

}  // namespace

TEST(ObjectText, WritesTheTextForm) {
  TDrawing drawing(nullptr);
  drawing.SetName("D");
  drawing.SetTitle("Hi");
  drawing.SetCount(5);
  drawing.Lines()->Add("a");
  drawing.Lines()->Add("it's");
  auto* shape = static_cast<TShape*>(drawing.Shapes()->Add());
  shape->SetCaption(QStringLiteral("\u00e9"));
  shape->SetSize(300);
  shape->SetKind(skSquare);
  shape->SetStyles({ssBold, ssUnderline});
  shape->SetRatio(1.5);
  shape->SetVisible(false);
  shape->Pen()->SetColor(0xFF);
  shape->Pen()->SetWidth(2);
  drawing.Shapes()->Add();
  EXPECT_EQ(ToText(Binary(&drawing)), Lines({
      "object D: TDrawing",
      "  Title = 'Hi'",
      "  Count = 5",
      "  Shapes = <",
      "    item",
      "      Caption = #233",
      "      Size = 300",
      "      Kind = skSquare",
      "      Styles = [ssBold, ssUnderline]",
      "      Ratio = 1.500000000000000000",
      "      Visible = False",
      "      Pen.Color = clRed",
      "      Pen.Width = 2",
      "    end",
      "    item",
      "    end>",
      "  Lines.Strings = (",
      "    'a'",
      "    'it'#39's')",
      "end",
  }));
}

TEST(ObjectText, LeavesOutDefaultAndUnstoredProperties) {
  TDrawing drawing(nullptr);
  drawing.SetSecret("_not stored");
  static_cast<TShape*>(drawing.Shapes()->Add())->SetNote("not stored");
  EXPECT_EQ(ToText(Binary(&drawing)), Lines({
      "object TDrawing",
      "  Count = 0",
      "  Shapes = <",
      "    item",
      "    end>",
      "end",
  }));
}

TEST(ObjectText, SplitsLongStringsEvery64Characters) {
  TDrawing drawing(nullptr);
  drawing.SetTitle(QString(70, QLatin1Char('x')) + QStringLiteral("\u00e9"));
  drawing.SetSecret(QString(128, QLatin1Char('y')));
  const QString text = ToText(Binary(&drawing));
  EXPECT_TRUE(text.contains(Lines({
      "  Title = ",
      "    '" + QString(64, QLatin1Char('x')) + "' +",
      "    'xxxxxx'#233",
  }))) << qPrintable(text);
  EXPECT_TRUE(text.contains(Lines({
      "  Secret = ",
      "    '" + QString(64, QLatin1Char('y')) + "' +",
      "    '" + QString(64, QLatin1Char('y')) + "'",
  }))) << qPrintable(text);
}

TEST(ObjectText, WritesBinaryDataAsHexLinesOf32Bytes) {
  QByteArray data;
  for (int byte = 0; byte < 40; ++byte) data.append(char(byte));
  const QString hex = QString::fromLatin1(data.toHex());
  const QString text = ToText(ToBinary(Lines({"object X: TBlob", "  Data = {" + hex + "}", "end"})));
  EXPECT_EQ(text, Lines({
      "object X: TBlob",
      "  Data = {",
      "    " + hex.left(64).toUpper(),
      "    " + hex.mid(64).toUpper() + "}",
      "end",
  }));
  EXPECT_EQ(ToText(ToBinary(Lines({"object X: TBlob", "  Data = {0A ff}", "end"}))),
            Lines({"object X: TBlob", "  Data = {0AFF}", "end"}));
}

TEST(ObjectText, WritesFloatsFixedWhereTheyFitAndExactly) {
  const std::pair<double, const char*> rows[] = {
      {1.5, "1.500000000000000000"},
      {0.1, "0.100000000000000000"},
      {-2.0, "-2.000000000000000000"},
      {0.0, "0.000000000000000000"},
      {1.0 / 3, "0.333333333333333300"},
      {0.30000000000000004, "0.300000000000000040"},
      {12345.678, "12345.678000000000000000"},
      {123456789012345.0, "123456789012345.000000000000000000"},
      {1.2345e-10, "0.000000000123450000"},
      {1e16, "1E16"},
      {1e-20, "1E-20"},
      {-2.5e-300, "-2.5E-300"},
  };
  for (const auto& [value, expected] : rows) {
    const QString text = FloatText(value);
    EXPECT_EQ(text, expected) << value;
    TMemoryStream binary;
    const QByteArray bytes = ToBinary(Lines({"object T", "  F = " + text, "end"}));
    binary.Write(bytes.constData(), bytes.size());
    binary.SetPosition(4 + 2 + 1 + 2);  // signature, class name, name, property name
    TReader reader(binary);
    EXPECT_EQ(reader.ReadFloat(), value) << text.toStdString();
  }
}

TEST(ObjectText, TextRoundTripsToIdenticalBytesAndBack) {
  const QString text = Lines({
      "inherited Form1: TForm1 [2]",
      "  Left = -5",
      "  Big = 5000000000",
      "  Caption = 'it'#39's'#13#10'done'",
      "  Wide = 'Stra'#223'e '#27700",
      "  Ratio = 0.333333333333333300",
      "  Huge = 1E20",
      "  Single = 1.5s",
      "  Money = 15000c",
      "  When = 45000.5d",
      "  Flag = True",
      "  Off = False",
      "  Nothing = nil",
      "  Unknown = Null",
      "  Ref = Owner.Button1",
      "  Empty = ''",
      "  Opts = []",
      "  Members = [a, b]",
      "  List = (",
      "    1",
      "    'two'",
      "    (",
      "      3))",
      "  NoList = ()",
      "  Items = <",
      "    item [1]",
      "      X = 1",
      "      Sub.Y = 'z'",
      "    end",
      "    item",
      "    end>",
      "  NoItems = <>",
      "  Data = {0102}",
      "  object Button1: TButton",
      "    Tag = 1",
      "  end",
      "  inline Frame1: TFrame1",
      "  end",
      "end",
  });
  const QByteArray binary = ToBinary(text);
  EXPECT_EQ(ToText(binary), text);
  EXPECT_EQ(ToBinary(ToText(binary)), binary);
  EXPECT_EQ(binary.left(6).toHex(' '), "54 50 46 30 f3 02");  // "TPF0", inherited and child position
}

TEST(ObjectText, BinaryOfThisLibraryRoundTripsThroughText) {
  RegisterFixtureClasses();
  TDrawing drawing(nullptr);
  drawing.SetName("Plan");
  drawing.SetTitle(QStringLiteral("Grundri\u00df \u2014 \u6c34 'quoted' ") + QString(80, QLatin1Char('-')));
  drawing.SetCount(-70000);
  drawing.SetScale(0.1);
  drawing.SetValue(Null());
  drawing.Lines()->Add(QStringLiteral("\u00fcber"));
  for (int index = 0; index < 3; ++index) {
    auto* shape = static_cast<TShape*>(drawing.Shapes()->Add());
    shape->SetCaption(QStringLiteral("Form %1").arg(index));
    shape->SetKind(TShapeKind(index));
    shape->SetStyles(TShapeStyles::FromInt(uint64_t(index) * 5));
    shape->SetRatio(index / 7.0);
    shape->SetBig((int64_t{1} << 40) * index);
    shape->Pen()->SetColor(index * 0x10101);
  }
  auto* child = new TDrawing(&drawing);
  child->SetName("Detail");
  drawing.SetBuddy(child);
  const QByteArray binary = Binary(&drawing);
  const QString text = ToText(binary);
  EXPECT_EQ(ToBinary(text), binary) << qPrintable(text);
  EXPECT_TRUE(text.contains("  object Detail: TDrawing" + sLineBreak)) << qPrintable(text);
  EXPECT_TRUE(text.contains("  Buddy = Detail" + sLineBreak)) << qPrintable(text);
  EXPECT_TRUE(text.contains("  Value = Null" + sLineBreak)) << qPrintable(text);
}

TEST(ObjectText, ResourceFormWrapsTheBinaryBehindAHeader) {
  const QString text = Lines({"object Main: TMainForm", "  Caption = 'x'", "end"});
  TStringStream input(text);
  TMemoryStream resource;
  ObjectTextToResource(input, resource);
  const QByteArray bytes = Contents(resource);
  const QByteArray binary = ToBinary(text);
  QByteArray header("\xFF\x0A\x00TMAINFORM\x00\x30\x10", 15);
  header.append(char(binary.size())).append(3, '\0');
  EXPECT_EQ(bytes.left(header.size()).toHex(' '), header.toHex(' '));
  EXPECT_EQ(bytes.mid(header.size()), binary);
  resource.SetPosition(0);
  TStringStream output;
  ObjectResourceToText(resource, output);
  EXPECT_EQ(output.DataString(), text);
}

TEST(ObjectText, DamagedTextRaisesParserErrors) {
  const QString damaged[] = {
      "thing X: TFoo\nend\n",
      "object X: TFoo\n  A = \n",
      "object X: TFoo\n  A = 'open\nend\n",
      "object X: TFoo\n  A = 1\n",
      "object X: TFoo\n  A = (1 2\n",
      "object X: TFoo\n  A = <item\n",
      "object X: TFoo\n  A = [a b]\nend\n",
      "object X: TFoo\n  A = {0G}\nend\n",
      "object X: TFoo\n  A = #99999\nend\n",
  };
  for (const QString& text : damaged) EXPECT_THROW(ToBinary(text), EParserError) << qPrintable(text);
  try {
    ToBinary("object X: TFoo\n  A = 1\n  B 2\nend\n");
    FAIL() << "no error";
  } catch (const EParserError& error) {
    EXPECT_EQ(error.Message(), "'=' expected on line 3");
  }
}

TEST(ObjectText, DamagedBinaryRaisesReadErrors) {
  const QByteArray binary = ToBinary(Lines({"object X: TFoo", "  A = 'text'", "  B = [a]", "end"}));
  for (qsizetype length = 0; length < binary.size(); ++length)
    EXPECT_THROW(ToText(binary.left(length)), EReadError) << length;
  EXPECT_THROW(ToText("TPF1"), EReadError);
}
