// The parameters of a query: kept in step with its SQL, and written with it to the
// component stream in both its forms.

#include <gtest/gtest.h>

#include "framework/db/SqlQuery.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StreamTextProbe.h"

using namespace quil;

namespace {

QStringList Names(const TSQLParams& params) {
  QStringList names;
  for (int index = 0; index < params.Count(); ++index) names.append(params.Items(index)->Name());
  return names;
}

TEST(SqlParams, FollowTheNamesOfTheSQLAndKeepTheirValues) {
  TSQLQuery query(nullptr);
  query.SQL()->SetText(QStringLiteral("SELECT * FROM t WHERE a = :a AND b = :b OR a = :A"));
  EXPECT_EQ(Names(*query.Params()), (QStringList{"a", "b"}));
  query.ParamByName(QStringLiteral("b"))->SetValue(Variant(7));
  query.ParamByName(QStringLiteral("b"))->SetDataType(ftInteger);
  query.SQL()->SetText(QStringLiteral("SELECT * FROM t WHERE c = :c AND b = :b"));
  EXPECT_EQ(Names(*query.Params()), (QStringList{"c", "b"}));
  EXPECT_EQ(query.ParamByName(QStringLiteral("b"))->Value().AsInteger(), 7);
  EXPECT_EQ(query.ParamByName(QStringLiteral("b"))->DataType(), ftInteger);
  EXPECT_TRUE(query.ParamByName(QStringLiteral("c"))->IsNull());
  EXPECT_EQ(query.Params()->FindParam(QStringLiteral("a")), nullptr);
  query.Params()->CheckConsistency();
}

TEST(SqlParams, AreWrittenWithTheQueryAndReadBackInBothForms) {
  TSQLQuery query(nullptr);
  query.SetName(QStringLiteral("Orders"));
  query.SQL()->SetText(QStringLiteral("SELECT * FROM orders WHERE id > :low AND notes = :note AND day = :day"));
  query.ParamByName(QStringLiteral("low"))->SetDataType(ftInteger);
  query.ParamByName(QStringLiteral("low"))->SetValue(Variant(40));
  query.ParamByName(QStringLiteral("note"))->SetValue(Variant(QStringLiteral("O'Brien")));

  TMemoryStream binary;
  binary.WriteComponent(&query);
  const QString text = test::ObjectText(binary);
  EXPECT_TRUE(text.contains(QStringLiteral("Params = <"))) << text.toStdString();
  EXPECT_TRUE(text.contains(QStringLiteral("DataType = ftInteger"))) << text.toStdString();
  EXPECT_TRUE(text.contains(QStringLiteral("Value = 40"))) << text.toStdString();

  // The text form converts back to the stream it came from, and that stream reads.
  TMemoryStream textStream;
  const QByteArray bytes = text.toUtf8();
  textStream.WriteBuffer(bytes.constData(), bytes.size());
  textStream.Seek(0, soBeginning);
  TMemoryStream again;
  ObjectTextToBinary(textStream, again);
  again.Seek(0, soBeginning);
  TSQLQuery copy(nullptr);
  again.ReadComponent(&copy);
  EXPECT_EQ(copy.SQL()->Text(), query.SQL()->Text());
  EXPECT_EQ(Names(*copy.Params()), (QStringList{"low", "note", "day"}));
  EXPECT_EQ(copy.ParamByName(QStringLiteral("low"))->DataType(), ftInteger);
  EXPECT_EQ(copy.ParamByName(QStringLiteral("low"))->Value().AsInteger(), 40);
  EXPECT_EQ(copy.ParamByName(QStringLiteral("note"))->Value().AsString(), QStringLiteral("O'Brien"));
  EXPECT_TRUE(copy.ParamByName(QStringLiteral("day"))->IsNull());
  EXPECT_EQ(copy.ParamByName(QStringLiteral("day"))->DataType(), ftUnknown);
  copy.Params()->CheckConsistency();
}

}  // namespace
