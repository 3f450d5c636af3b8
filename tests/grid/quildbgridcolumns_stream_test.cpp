// The column stream: the round trip, its text form and its file form.
#include <QTemporaryDir>

#include "ColumnTestKit.h"
#include "framework/graphics/Font.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StreamTextProbe.h"
#include "framework/rtl/Strings.h"
#include "grid/QuilColumnsWrapper.h"

using namespace quil;
using gridtest::FieldNames;

namespace {

class QuilDBGridColumnStream : public gridtest::ColumnFixture {
protected:
  // Customized columns with some values set away from their defaults.
  void Customize() {
    Open(5);
    grid->Columns()->SetState(csCustomized);
    TQuilColumn* name = grid->Columns()->Items(1);
    name->SetWidth(120);
    name->SetColor(clYellow);
    name->SetCheckBoxValues("Y;N");
    name->SetDelimiterChar(';');
    name->Title()->SetCaption("Person");
    name->Title()->SetHeader("Who|");
    name->PickList()->Add("Anna");
    name->PickList()->Add("Bo");
    name->SetListOptions({loAutoComplete});
    name->Font()->SetStyle({fsBold});
    TQuilColumn* city = grid->Columns()->Items(2);
    city->SetVisible(false);
    city->SetExpandCols(1);
    city->SetExpanded(false);
  }
};

TEST_F(QuilDBGridColumnStream, ARoundTripGivesAnEqualCollection) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  gridtest::TProbeGrid other(form);
  other.SetDataSource(source);
  stream.Seek(0, soBeginning);
  other.Columns()->LoadFromStream(stream);
  EXPECT_TRUE(other.Columns()->Equals(grid->Columns()));
  TQuilColumn* name = other.Columns()->Items(1);
  EXPECT_EQ(name->Width(), 120);
  EXPECT_EQ(name->Color(), clYellow);
  EXPECT_EQ(name->CheckBoxValues(), QStringLiteral("Y;N"));
  EXPECT_EQ(name->DelimiterChar(), QChar(';'));
  EXPECT_EQ(name->Title()->Caption(), QStringLiteral("Person"));
  EXPECT_EQ(name->Title()->Header(), QStringLiteral("Who|"));
  EXPECT_EQ(name->PickList()->Count(), 2);
  EXPECT_EQ(name->ListOptions(), TQuilListOptions{loAutoComplete});
  EXPECT_TRUE(name->Font()->Style().Contains(fsBold));
  EXPECT_TRUE(name->AssignedValues().Contains(cvFont));
  TQuilColumn* city = other.Columns()->Items(2);
  EXPECT_FALSE(city->GetVisibility());
  EXPECT_FALSE(city->Expanded());
  EXPECT_EQ(city->ExpandCols(), 1);
  EXPECT_TRUE(other.StreamingState().Empty());
  EXPECT_TRUE(grid->StreamingState().Empty());
}

TEST_F(QuilDBGridColumnStream, TheTextFormShowsOnlyWhatDiffersFromTheDefaults) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  const QString text = test::ObjectText(stream);
  EXPECT_TRUE(text.startsWith("object TQuilColumnsWrapper\n")) << text.toStdString();
  const QString expected = QStringLiteral(
      "object TQuilColumnsWrapper\n"
      "  Columns = <\n"
      "    item\n"
      "      FieldName = 'ID'\n"
      "    end\n"
      "    item\n"
      "      CheckBoxValues = 'Y;N'\n"
      "      DelimiterChar = ';'\n"
      "      Color = clYellow\n"
      "      FieldName = 'Name'\n"
      "      Font.Charset = DEFAULT_CHARSET\n"
      "      Font.Color = clWindowText\n"
      "      Font.Height = %1\n"
      "      Font.Name = '%2'\n"
      "      Font.Style = [fsBold]\n"
      "      ListOptions = [loAutoComplete]\n"
      "      PickList.Strings = (\n"
      "        'Anna'\n"
      "        'Bo')\n"
      "      Title.Caption = 'Person'\n"
      "      Title.Header = 'Who|'\n"
      "      Width = 120\n"
      "    end\n"
      "    item\n"
      "      ExpandCols = 1\n"
      "      Expanded = False\n"
      "      FieldName = 'City'\n"
      "      Visible = False\n"
      "    end\n"
      "    item\n"
      "      FieldName = 'Amount'\n"
      "    end>\n"
      "end\n")
      .arg(grid->Font()->Height())
      .arg(grid->Font()->Name());
  EXPECT_EQ(text, expected);
}

TEST_F(QuilDBGridColumnStream, TheStreamIsTheFrameworksComponentFormat) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  TQuilColumnsWrapper wrapper(nullptr);
  TQuilDBGridColumns columns(nullptr);
  wrapper.Attach(&columns);
  stream.Seek(0, soBeginning);
  stream.ReadComponent(&wrapper);
  EXPECT_EQ(FieldNames(&columns), QStringList({"ID", "Name", "City", "Amount"}));
  // The same bytes as a plain component write of a wrapper while the grid streams: its
  // hidden group writes the flags as set, not as inherited from the parent.
  TMemoryStream again;
  TQuilColumnsWrapper writer(nullptr);
  writer.Attach(grid->Columns());
  grid->SetStreamingState({gsWriting});
  again.WriteComponent(&writer);
  grid->SetStreamingState({});
  EXPECT_EQ(QByteArray(static_cast<const char*>(again.Memory()), qsizetype(again.Size())),
            QByteArray(static_cast<const char*>(stream.Memory()), qsizetype(stream.Size())));
}

TEST_F(QuilDBGridColumnStream, AFileKeepsTheColumns) {
  Customize();
  QTemporaryDir dir;
  const QString file = dir.filePath("columns.bin");
  grid->Columns()->SaveToFile(file);
  grid->Columns()->RestoreDefaults();
  EXPECT_EQ(grid->Columns()->Items(1)->Color(), grid->Color());
  grid->Columns()->LoadFromFile(file);
  EXPECT_EQ(grid->Columns()->Items(1)->Color(), clYellow);
  EXPECT_THROW(grid->Columns()->LoadFromFile(dir.filePath("missing.bin")), Exception);
}

TEST_F(QuilDBGridColumnStream, ADamagedStreamLeavesTheColumnsAndTheStateAlone) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  TMemoryStream damaged;
  damaged.WriteBuffer(stream.Memory(), stream.Size() / 2);
  damaged.Seek(0, soBeginning);
  EXPECT_THROW(grid->Columns()->LoadFromStream(damaged), Exception);
  EXPECT_EQ(grid->Columns()->Count(), 4);
  EXPECT_EQ(grid->Columns()->Items(1)->Width(), 120);
  EXPECT_TRUE(grid->StreamingState().Empty());
}

TEST_F(QuilDBGridColumnStream, AnAssignedValueEqualToItsDefaultIsNotWritten) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = grid->Columns()->Items(1);
  name->SetColor(grid->Color());
  name->SetAlignment(taLeftJustify);
  name->SetWidth(100);
  ASSERT_NE(name->DefaultWidth(), 64);
  name->SetWidth(name->DefaultWidth());
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  const QString text = test::ObjectText(stream);
  EXPECT_FALSE(text.contains("Color")) << text.toStdString();
  EXPECT_FALSE(text.contains("Alignment"));
  EXPECT_FALSE(text.contains("Width")) << "only a width of 64 is written when it is the default";
}

TEST_F(QuilDBGridColumnStream, AWidthOf64IsWrittenEvenWhenItIsTheDefault) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* empty = grid->Columns()->Add();
  grid->SetDefaultColWidth(64);
  empty->SetWidth(64);
  EXPECT_FALSE(empty->AssignedValues().Contains(cvWidth)) << "the default width assigns nothing";
  empty->SetWidth(100);
  empty->SetWidth(64);
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  EXPECT_TRUE(test::ObjectText(stream).contains("Width = 64"));
}


// --- Reading a stream into a shown grid

// A grid that has an order, notes the order it is given, and whose column collections
// note, for each column that comes in, whether it came into the grid's own collection
// and in which streaming state.
class TStreamProbeGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  struct TArrival {
    bool own;
    TGridStreamingState state;
  };
  std::vector<TArrival> arrivals;
  QString order;
  QStringList ordersGiven;

  QString GetOrderFields() const override { return order; }
  void SetOrderFields(const QString& value) override { ordersGiven << value; }

protected:
  TQuilDBGridColumns* CreateColumns() override { return new TNotingColumns(this); }

private:
  class TNotingColumns : public TQuilDBGridColumns {
  public:
    explicit TNotingColumns(TStreamProbeGrid* grid) : TQuilDBGridColumns(grid), probe_(grid) {}

  protected:
    void Notify(TCollectionItem* item, TCollectionNotification action) override {
      if (action == cnAdded) probe_->arrivals.push_back({probe_->OwnsColumns(this), probe_->StreamingState()});
      TQuilDBGridColumns::Notify(item, action);
    }

  private:
    TStreamProbeGrid* probe_;
  };
};

class QuilDBGridColumnLoad : public gridtest::ColumnFixture {
protected:
  // Customized columns on a grid that notes arrivals; City owns Amount and is collapsed.
  void OpenCollapsed() {
    Open<TStreamProbeGrid>(5);
    probe = static_cast<TStreamProbeGrid*>(grid);
    grid->Columns()->SetState(csCustomized);
    grid->Columns()->Items(2)->SetExpandCols(1);
    grid->Columns()->Items(2)->SetExpanded(false);
    Settle();
  }
  TStreamProbeGrid* probe = nullptr;
};

TEST_F(QuilDBGridColumnLoad, ColumnsAreReadApartAndCopiedInWithoutExpandingOrMovingTheCursor) {
  OpenCollapsed();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  struct Counter {
    int count = 0;
    void OnColExpand(TQuilColumn*) { ++count; }
  } counter;
  grid->OnColExpand = TDBGridClickEvent(&counter, &Counter::OnColExpand);
  grid->SetSelectedIndex(3);
  const int cursor = grid->Col();
  probe->arrivals.clear();
  grid->layoutSources.clear();
  stream.Seek(0, soBeginning);
  grid->Columns()->LoadFromStream(stream);
  EXPECT_EQ(counter.count, 0) << "nothing was expanded or collapsed by a user";
  EXPECT_EQ(grid->Col(), cursor);
  EXPECT_EQ(grid->layoutSources.size(), 1u) << "one layout, for the copy";
  ASSERT_EQ(probe->arrivals.size(), 8u);
  for (const TStreamProbeGrid::TArrival& arrival : probe->arrivals)
    EXPECT_EQ(arrival.state.Contains(gsReading), !arrival.own) << "read apart, copied in after reading";
  EXPECT_FALSE(grid->Columns()->Items(2)->Expanded());
  EXPECT_TRUE(grid->StreamingState().Empty());
}

TEST_F(QuilDBGridColumnLoad, TheOrderTravelsWithTheColumns) {
  OpenCollapsed();
  probe->order = "Name,City DESC";
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  EXPECT_TRUE(test::ObjectText(stream).contains("OrderFields = 'Name,City DESC'"));
  probe->order.clear();
  stream.Seek(0, soBeginning);
  grid->Columns()->LoadFromStream(stream);
  EXPECT_EQ(probe->ordersGiven, QStringList({"Name,City DESC"}));
}

}  // namespace
