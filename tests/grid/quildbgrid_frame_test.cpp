// The frame's owned parts and their factories, its own properties, the delay timers,
// Loaded, Notification and the streaming of columns against an ancestor.
#include <QLocale>
#include <QRegularExpression>
#include <QThread>
#include <functional>

#include "GridTestKit.h"
#include "framework/controls/Hints.h"
#include "framework/controls/Menus.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/SystemInfo.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StreamTextProbe.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

// A descendant that watches the deferred work and supplies an order.
class TFrameGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  using TProbeGrid::Loaded;
  using TProbeGrid::Notification;
  QString orderFields;
  int sequenceRuns = 0;
  bool timerGoneDuringWork = false;
  bool busyDuringWork = false;
  bool dataChangeDuringWork = false;
  // Stretches asked for outside a layout, whose sizing of the columns asks on its own.
  int stretches = 0;
  int searchPanelShows = 0;
  int searchPanelUpdates = 0;

  void StretchGrid() override {
    if (LayoutLock() == 0) ++stretches;
  }

protected:
  QString GetOrderFields() const override { return orderFields; }
  void ShowSearchPanel() override { ++searchPanelShows; }
  void UpdateSearchPanel() override { ++searchPanelUpdates; }
  bool UpdateSequenceValues() override {
    ++sequenceRuns;
    timerGoneDuringWork = DelayTimer(dtSequence) == nullptr;
    busyDuringWork = GetUpdateInProgress();
    if (dataChangeDuringWork) DataChanged();
    return false;
  }
};

TEST(GridFrame, OwnsItsParts) {
  TQuilDBGrid grid(nullptr);
  const std::vector<TPersistent*> parts{grid.FilterGrid(), grid.Search(),     grid.TreeView(),
                                        grid.Settings(),   grid.ScrollProp(), grid.Gradient(),
                                        grid.GridStyle()};
  for (TPersistent* part : parts) {
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(part->GetOwner(), &grid);
  }
}

// A descendant that substitutes every part its factories make, and counts the data
// events that reach its own link.
class TOwnPartsGrid : public gridtest::TProbeGrid {
public:
  struct TColumns : TQuilDBGridColumns { using TQuilDBGridColumns::TQuilDBGridColumns; };
  struct TStyle : TQuilGridStyle { using TQuilGridStyle::TQuilGridStyle; };
  struct TTotals : TQuilDBGridTotals { using TQuilDBGridTotals::TQuilDBGridTotals; };
  struct TFilter : TQuilDBGridFilter { using TQuilDBGridFilter::TQuilDBGridFilter; };
  struct TSearch : TQuilDBGridSearch { using TQuilDBGridSearch::TQuilDBGridSearch; };
  struct TTree : TQuilDBGridTreeView { using TQuilDBGridTreeView::TQuilDBGridTreeView; };
  struct TSettings : TQuilDBGridSettings { using TQuilDBGridSettings::TQuilDBGridSettings; };
  struct TScroll : TQuilScrollProp { using TQuilScrollProp::TQuilScrollProp; };
  struct TGradient : TQuilDBGridGradient { using TQuilDBGridGradient::TQuilDBGridGradient; };
  class TLink : public TQuilGridDataLink {
  public:
    using TQuilGridDataLink::TQuilGridDataLink;
    int scrolls = 0;

  protected:
    void DataSetScrolled(int distance) override {
      ++scrolls;
      TQuilGridDataLink::DataSetScrolled(distance);
    }
  };

  // touchColumns: the descendant's constructor works on its columns already.
  explicit TOwnPartsGrid(TComponent* owner, bool touchColumns = false) : TProbeGrid(owner) {
    if (touchColumns) Columns()->Add()->SetFieldName("Name");
  }
  int factoryCalls = 0;

protected:
  TQuilDBGridColumns* CreateColumns() override { return Made(new TColumns(this)); }
  TQuilGridDataLink* CreateDataLink() override { return Made(new TLink(this)); }
  TQuilGridStyle* CreateGridStyle() override { return Made(new TStyle(this)); }
  TQuilDBGridTotals* CreateTotals() override { return Made(new TTotals(this)); }
  TQuilDBGridFilter* CreateFilter() override { return Made(new TFilter(this)); }
  TQuilDBGridSearch* CreateSearch() override { return Made(new TSearch(this)); }
  TQuilDBGridTreeView* CreateTreeView() override { return Made(new TTree(this)); }
  TQuilDBGridSettings* CreateSettings() override { return Made(new TSettings(this)); }
  TQuilScrollProp* CreateScrollProp() override { return Made(new TScroll(this)); }
  TQuilDBGridGradient* CreateGradient() override { return Made(new TGradient(this)); }

private:
  template <typename Part>
  Part* Made(Part* part) {
    ++factoryCalls;
    return part;
  }
};

template <typename Expected, typename Part>
bool Is(Part* part) {
  return dynamic_cast<Expected*>(part) != nullptr;
}

TEST(GridFrame, DescendantFactoriesMakeEveryPart) {
  TOwnPartsGrid grid(nullptr);
  EXPECT_TRUE(Is<TOwnPartsGrid::TColumns>(grid.Columns()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TLink>(grid.DataLink()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TStyle>(grid.GridStyle()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TTotals>(grid.Totals()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TFilter>(grid.FilterGrid()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TSearch>(grid.Search()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TTree>(grid.TreeView()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TSettings>(grid.Settings()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TScroll>(grid.ScrollProp()));
  EXPECT_TRUE(Is<TOwnPartsGrid::TGradient>(grid.Gradient()));
  // Each part is made once, and asking again hands back the same one.
  EXPECT_EQ(grid.factoryCalls, 10);
  EXPECT_EQ(grid.Columns(), grid.Columns());
  EXPECT_EQ(grid.factoryCalls, 10);
}

TEST(GridFrame, ColumnsTouchedInTheDescendantsConstructorAreItsOwn) {
  TOwnPartsGrid grid(nullptr, true);
  EXPECT_TRUE(Is<TOwnPartsGrid::TColumns>(grid.Columns()));
  EXPECT_EQ(grid.Columns()->Count(), 1);
}

class GridFrameParts : public GridFixture {};

// The grid works through the parts its descendant made: the data events of a bound
// data set reach the descendant's link, and the layout makes its columns.
TEST_F(GridFrameParts, BoundDescendantWorksThroughItsOwnLink) {
  form = new TForm(nullptr);
  form->SetBounds(0, 0, 520, 280);
  dataSet = new dbtest::TWindowCheckedDataSet(form);
  dbtest::FillPeople(*dataSet, 50);
  source = new TDataSource(form);
  source->SetDataSet(dataSet);
  auto* own = new TOwnPartsGrid(form);
  grid = own;
  grid->SetParent(form);
  grid->SetBounds(10, 10, 480, 240);
  grid->SetDataSource(source);
  form->Show();
  Settle();
  auto* link = dynamic_cast<TOwnPartsGrid::TLink*>(grid->DataLink());
  ASSERT_NE(link, nullptr);
  EXPECT_TRUE(link->Active());
  dataSet->Next();
  EXPECT_EQ(link->scrolls, 1);
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + 1);
  EXPECT_EQ(grid->Columns()->Count(), dataSet->FieldCount());
  EXPECT_TRUE(Is<TOwnPartsGrid::TColumns>(grid->Columns()));
}

TEST(GridFrame, KoreanSystemKeepsTheEditorShown) {
  const TSysLocale saved = SysLocale;
  SysLocale = SysLocaleOf(QLocale::Korean);
  TQuilDBGrid korean(nullptr);
  SysLocale = saved;
  TQuilDBGrid plain(nullptr);
  EXPECT_TRUE(korean.Options().Contains(dgAlwaysShowEditor));
  EXPECT_EQ(korean.Options() - dgAlwaysShowEditor, plain.Options() - dgAlwaysShowEditor);
  EXPECT_EQ(plain.Options().Contains(dgAlwaysShowEditor), SysLocale.PriLangID == LANG_KOREAN);
}

TEST(GridFrame, ConstructionDefaults) {
  TQuilDBGrid grid(nullptr);
  EXPECT_TRUE(grid.Ctl3DAuto());
  EXPECT_TRUE(grid.DoubleBuffered());
  EXPECT_FALSE(grid.DragRows());
  EXPECT_FALSE(grid.ParentCustomHint());
  EXPECT_EQ(grid.DesignOptionsBoost(), (TGridOptions{goRowSizing, goColSizing}));
  EXPECT_EQ(grid.ScrollBars(), ssBoth);
  EXPECT_EQ(grid.TCustomGrid::ScrollBars(), ssHorizontal) << "the vertical bar is the record window's";
  EXPECT_EQ(grid.HeaderColor(), clBtnFace);
  EXPECT_EQ(grid.LinesCountMax(), -1);
  EXPECT_EQ(grid.LinesCountMin(), 1);
  for (int limit : {grid.DefaultWidthMax(), grid.DefaultWidthMin(), grid.StretchWidthMax(), grid.StretchWidthMin()})
    EXPECT_EQ(limit, -1);
}

TEST(GridFrame, SettingCtl3DTakesTheChoiceFromTheStyle) {
  TQuilDBGrid grid(nullptr);
  EXPECT_FALSE(grid.IsCtl3DStored());
  grid.SetCtl3D(!grid.Ctl3D());
  EXPECT_FALSE(grid.Ctl3DAuto());
  EXPECT_TRUE(grid.IsCtl3DStored());
  grid.SetCtl3DAuto(true);
  EXPECT_FALSE(grid.IsCtl3DStored());
}

TEST(GridFrame, HintIsKeptApartFromTheBaseHint) {
  TQuilDBGrid grid(nullptr);
  grid.SetHint("Own");
  grid.TControl::SetHint("Cell");
  EXPECT_EQ(grid.Hint(), QStringLiteral("Own"));
}

class GridFrameShown : public GridFixture {
protected:
  TFrameGrid* Frame() { return static_cast<TFrameGrid*>(grid); }
  void OpenFrame(int rows) {
    form = new TForm(nullptr);
    form->SetBounds(0, 0, 520, 280);
    dataSet = new dbtest::TWindowCheckedDataSet(form);
    dbtest::FillPeople(*dataSet, rows);
    source = new TDataSource(form);
    source->SetDataSet(dataSet);
    grid = new TFrameGrid(form);
    grid->SetParent(form);
    grid->SetBounds(10, 10, 480, 240);
    grid->SetDataSource(source);
    form->Show();
    Settle();
  }
  // Lets the event loop run until the timer has fired.
  void WaitForTimer(TQuilDelayTimer which) {
    for (int round = 0; round < 2000 && grid->DelayTimer(which); ++round) {
      QThread::msleep(1);
      QCoreApplication::processEvents();
    }
  }
};

// Setters that change the shape lay the grid out; the drawing options only repaint.
TEST_F(GridFrameShown, ShapeSettersLayOutAndDrawingOptionsDoNot) {
  OpenFrame(10);
  struct Case {
    const char* name;
    std::function<void()> change;
    bool laysOut;
  };
  const std::vector<Case> cases{
      {"BorderStyle", [&] { grid->SetBorderStyle(bsNone); }, true},
      {"Enabled", [&] { grid->SetEnabled(false); }, true},
      {"BiDiMode", [&] { grid->SetBiDiMode(bdRightToLeft); }, true},
      {"Ctl3D", [&] { grid->SetCtl3D(!grid->Ctl3D()); }, true},
      {"Options dgTitles", [&] { grid->SwitchOptions({dgTitles}, false); }, true},
      {"OptionsEx dgTotalFooter", [&] { grid->SwitchOptionsEx({dgTotalFooter}, true); }, true},
      {"OptionsExt dgForceSystemTheme", [&] { grid->SwitchOptionsExt({dgForceSystemTheme}, true); }, true},
      {"OptionsExt dgScrollPageMode", [&] { grid->SwitchOptionsExt({dgScrollPageMode}, true); }, false},
      {"Options dgConfirmDelete", [&] { grid->SwitchOptions({dgConfirmDelete}, false); }, false},
      {"DrawingOptions", [&] { grid->SwitchDrawingOptions({gdoStripedRows}, true); }, false},
  };
  for (const Case& c : cases) {
    grid->layoutSources.clear();
    c.change();
    EXPECT_EQ(!grid->layoutSources.empty(), c.laysOut) << c.name;
  }
  EXPECT_EQ(grid->TitleOffset(), 0);
  EXPECT_TRUE(grid->OptionsEx().Contains(dgBlankRow));
  EXPECT_EQ(grid->TotalRows(), 2);
}

TEST_F(GridFrameShown, ADelayedRequestStartsOneTimerAndARepeatRestartsIt) {
  OpenFrame(10);
  EXPECT_EQ(grid->DelayTimer(dtSequence), nullptr);
  grid->SwitchOptions({dgForceSequence}, true);
  TTimer* timer = grid->DelayTimer(dtSequence);
  ASSERT_NE(timer, nullptr);
  EXPECT_EQ(Frame()->sequenceRuns, 0) << "the work waits";
  EXPECT_TRUE(timer->Enabled());
  grid->UpdateSequence(false);
  EXPECT_EQ(grid->DelayTimer(dtSequence), timer) << "a repeat restarts the same timer";
  WaitForTimer(dtSequence);
  EXPECT_EQ(grid->DelayTimer(dtSequence), nullptr);
  EXPECT_EQ(Frame()->sequenceRuns, 1);
  EXPECT_TRUE(Frame()->timerGoneDuringWork);
  EXPECT_TRUE(Frame()->busyDuringWork);
}

TEST_F(GridFrameShown, PerformDelayedRunsAPendingTimerNow) {
  OpenFrame(10);
  grid->SwitchOptions({dgForceSequence}, true);
  ASSERT_NE(grid->DelayTimer(dtSequence), nullptr);
  grid->PerformDelayed();
  EXPECT_EQ(Frame()->sequenceRuns, 1);
  EXPECT_EQ(grid->DelayTimer(dtSequence), nullptr);
  grid->PerformDelayed();
  EXPECT_EQ(Frame()->sequenceRuns, 1) << "no timer, no work";
}

TEST_F(GridFrameShown, ADataChangeDuringDeferredWorkRepaintsNothing) {
  OpenFrame(10);
  Frame()->dataChangeDuringWork = true;
  grid->SwitchOptions({dgForceSequence}, true);
  Settle();
  grid->PerformDelayed();
  Paint();
  EXPECT_EQ(grid->DrawnCount(), 0);
  grid->DataChanged();
  Paint();
  EXPECT_GT(grid->DrawnCount(), 0);
}

TEST_F(GridFrameShown, LoadedMarksTheSettingsToLoadOnTheNextActivation) {
  OpenFrame(10);
  dataSet->Close();
  grid->SetLinesCount(2);
  Frame()->Loaded();
  EXPECT_TRUE(grid->Settings()->AutoLoadPending());
  EXPECT_EQ(grid->DefaultRowHeight(), 2 * grid->DataLineHeight() + grid->GridStyle()->DataRowSpace() + 1);
  dataSet->Open();
  EXPECT_FALSE(grid->Settings()->AutoLoadPending());
}

// A grid loaded with its search panel shown shows the panel, and is laid out as well.
TEST_F(GridFrameShown, LoadedShowsTheSearchPanelAndLaysOut) {
  OpenFrame(10);
  grid->Search()->SetPanelVisible(true);
  grid->layoutSources.clear();
  Frame()->Loaded();
  EXPECT_EQ(Frame()->searchPanelShows, 1);
  EXPECT_FALSE(grid->layoutSources.empty());
}

// The options that change the room the columns share stretch them again.
TEST_F(GridFrameShown, OptionsThatChangeTheColumnsRoomStretchThem) {
  OpenFrame(10);
  for (TQuilDBGridOption option : {dgIndicator, dgColLines, dgTitleWidthOff, dgRowLines, dgTitles}) {
    Frame()->stretches = 0;
    grid->SwitchOptions({option}, !grid->Options().Contains(option));
    const bool stretches = option == dgIndicator || option == dgColLines || option == dgTitleWidthOff;
    EXPECT_EQ(Frame()->stretches, stretches ? 1 : 0) << GetEnumName(TypeInfo(option), option).toStdString();
  }
}

TEST_F(GridFrameShown, ResizingStretchesTheColumnsAndPlacesTheSearchPanel) {
  OpenFrame(10);
  Frame()->stretches = 0;
  Frame()->searchPanelUpdates = 0;
  grid->SetWidth(300);
  EXPECT_EQ(Frame()->stretches, 1);
  EXPECT_EQ(Frame()->searchPanelUpdates, 1);
  grid->SetBorderStyle(bsNone);
  EXPECT_EQ(Frame()->searchPanelUpdates, 2) << "the border moves the panel too";
}

TEST_F(GridFrameShown, ActivationFreesTheDockedGridsItOwns) {
  OpenFrame(10);
  auto* docked = new TQuilDBGrid(grid);
  docked->SetDragKind(dkDock);
  auto* kept = new TQuilDBGrid(grid);
  dataSet->Close();
  dataSet->Open();
  EXPECT_EQ(grid->ComponentCount(), 1);
  EXPECT_EQ(grid->Components(0), kept);
}

TEST_F(GridFrameShown, RemovedComponentsAreLetGo) {
  OpenFrame(10);
  auto* hint = new TCustomHint(form);
  auto* menu = new TPopupMenu(form);
  auto* lookup = new dbtest::TWindowCheckedDataSet(form);
  grid->SetCustomHint(hint);
  grid->SetPopupMenu(menu);
  grid->Columns()->Add()->SetLookupDataSet(lookup);
  delete hint;
  delete menu;
  delete lookup;
  EXPECT_EQ(grid->CustomHint(), nullptr);
  EXPECT_EQ(grid->PopupMenu(), nullptr);
  EXPECT_EQ(grid->Columns()->Items(0)->LookupDataSet(), nullptr);
}

// Two columns on one field: the one that lets go must leave the other's notice.
TEST_F(GridFrameShown, AFieldSharedByTwoColumnsKeepsItsNotification) {
  OpenFrame(10);
  grid->Columns()->Add()->SetFieldName("Name");
  grid->Columns()->Add()->SetFieldName("Name");
  TField* name = dataSet->FieldByName("Name");
  TQuilColumn* first = grid->Columns()->Items(0);
  TQuilColumn* second = grid->Columns()->Items(1);
  ASSERT_EQ(first->Field(), name);
  ASSERT_EQ(second->Field(), name);
  EXPECT_TRUE(grid->NeedsNotification(name));
  first->SetFieldName("City");
  EXPECT_FALSE(grid->NeedsNotification(name));
  delete name;
  EXPECT_EQ(second->BoundField(), nullptr);
}

TEST_F(GridFrameShown, ATitleFontChangeMeasuresTheTitlesAgain) {
  OpenFrame(10);
  const int before = grid->RowHeights(0);
  grid->TitleFont()->SetSize(grid->TitleFont()->Size() * 3);
  EXPECT_GT(grid->RowHeights(0), before);
}

// A column whose value is looked up by a key of the row: a new key brings its result.
TEST_F(GridFrameShown, ANewKeyCopiesTheLookedUpResultIntoItsColumn) {
  OpenFrame(10);
  auto* names = new dbtest::TWindowCheckedDataSet(form);
  dbtest::FillPeople(*names, 20);
  names->Close();
  for (const char* field : {"ID", "Name", "City"}) grid->Columns()->Add()->SetFieldName(field);
  TQuilColumn* city = grid->Columns()->Items(2);
  city->SetKeyField("ID");
  city->SetLookupDataSet(names);
  city->SetLookupKeyField("ID");
  city->SetLookupResultField("Name");
  ASSERT_EQ(city->GetLookupColumn(), lcLookupResultField);
  dataSet->Edit();
  dataSet->FieldByName("ID")->SetAsInteger(17);
  EXPECT_EQ(dataSet->FieldByName("City")->AsString(), QStringLiteral("Name017"));
  EXPECT_FALSE(names->Active()) << "opened for the lookup only";
  dataSet->FieldByName("ID")->SetAsInteger(99);
  EXPECT_TRUE(dataSet->FieldByName("City")->IsNull()) << "no such key";
  dataSet->Cancel();
}

TEST_F(GridFrameShown, SelectedColumnAndIndexMoveTheCursor) {
  OpenFrame(10);
  grid->SetSelectedIndex(2);
  EXPECT_EQ(grid->Col(), grid->DataToRawColumn(2));
  grid->SetSelectedColumn(grid->Columns()->Items(1));
  EXPECT_EQ(grid->SelectedIndex(), 1);
  grid->SetSelectedColumn(nullptr);
  EXPECT_EQ(grid->SelectedIndex(), 1);
  dataSet->FieldByName("City")->FocusControl();
  EXPECT_EQ(grid->SelectedField(), dataSet->FieldByName("City"));
}

TEST_F(GridFrameShown, UpdateActiveRefreshesAnEditorThatHoldsOtherText) {
  OpenFrame(10);
  grid->SetSelectedIndex(1);
  grid->SetFocus();
  grid->ShowEditor();
  ASSERT_NE(grid->InplaceEditor(), nullptr);
  grid->InplaceEditor()->SetText("stale");
  grid->UpdateActive();
  EXPECT_EQ(grid->InplaceEditor()->Text(), dataSet->FieldByName("Name")->Text());
}

QString Written(TQuilDBGrid& grid, TQuilDBGrid* ancestor) {
  TMemoryStream binary;
  TWriter writer(binary);
  writer.SetAncestor(ancestor);
  writer.WriteRootComponent(&grid);
  return test::ObjectText(binary);
}

TEST(GridFrameStreaming, ControlPropertiesAreStoredAndReadBack) {
  TQuilDBGrid grid(nullptr);
  const QString plain = Written(grid, nullptr);
  for (const char* name : {"Anchors", "Constraints", "DragCursor", "DragKind", "DragMode", "ImeMode", "ImeName",
                           "StyleElements", "ParentCustomHint", "CustomHint"})
    EXPECT_FALSE(plain.contains(name)) << name;
  grid.SetAnchors({akLeft, akRight});
  grid.Constraints()->SetMinWidth(100);
  grid.Constraints()->SetMaxHeight(400);
  grid.SetDragCursor(crHandPoint);
  grid.SetDragKind(dkDock);
  grid.SetDragMode(dmAutomatic);
  grid.SetImeMode(imDisable);
  grid.SetImeName("Hangul");
  grid.SetStyleElements({seFont});
  grid.SetParentCustomHint(true);
  const QString text = Written(grid, nullptr);
  EXPECT_TRUE(text.contains("Constraints.MinWidth = 100")) << text.toStdString();
  TMemoryStream stream;
  stream.WriteComponent(&grid);
  TQuilDBGrid copy(nullptr);
  stream.Seek(0, soBeginning);
  stream.ReadComponent(&copy);
  EXPECT_EQ(copy.Anchors(), (TAnchors{akLeft, akRight}));
  EXPECT_EQ(copy.Constraints()->MinWidth(), 100);
  EXPECT_EQ(copy.Constraints()->MaxHeight(), 400);
  EXPECT_EQ(copy.DragCursor(), crHandPoint);
  EXPECT_EQ(copy.DragKind(), dkDock);
  EXPECT_EQ(copy.DragMode(), dmAutomatic);
  EXPECT_EQ(copy.ImeMode(), imDisable);
  EXPECT_EQ(copy.ImeName(), QStringLiteral("Hangul"));
  EXPECT_EQ(copy.StyleElements(), TStyleElements{seFont});
  EXPECT_TRUE(copy.ParentCustomHint());
}

// Whether the text form holds the property or one of its own properties.
bool Stores(const QString& text, const QString& name) {
  return text.contains(QRegularExpression(QStringLiteral("^\\s+%1(\\.\\w+)? = ").arg(name),
                                          QRegularExpression::MultilineOption));
}

// The grid as placed on a form: its binding, option sets and the framework's properties
// are stored away from their defaults and read back; components are found by name.
TEST(GridFrameStreaming, PublishedPropertiesAreStoredAwayFromTheirDefaultsAndReadBack) {
  TQuilDBGrid grid(nullptr);
  const QStringList published{"DataSource", "Options",   "OptionsEx",      "OptionsExt", "BorderStyle",
                              "Color",      "ParentColor", "GridLineWidth", "Align",      "Font",
                              "ParentFont", "BiDiMode",  "ParentBiDiMode", "ShowHint",   "ParentShowHint",
                              "TabStop",    "Visible",   "DefaultDrawing", "PopupMenu",  "ParentCtl3D"};
  const QString plain = Written(grid, nullptr);
  for (const QString& name : published) EXPECT_FALSE(Stores(plain, name)) << name.toStdString();
  auto* source = new TDataSource(&grid);
  source->SetName("Source");
  auto* menu = new TPopupMenu(&grid);
  menu->SetName("Menu");
  grid.SetDataSource(source);
  grid.SetPopupMenu(menu);
  grid.SwitchOptions({dgIndicator, dgTabs}, false);
  grid.SwitchOptionsEx({dgTotalFooter}, true);
  grid.SwitchOptionsExt({dgAutoNumberColumn}, true);
  grid.SetBorderStyle(bsNone);
  grid.SetColor(clYellow);
  grid.SetGridLineWidth(2);
  grid.SetAlign(alClient);
  grid.Font()->SetSize(14);
  grid.SetBiDiMode(bdRightToLeft);
  grid.SetShowHint(true);
  grid.SetTabStop(false);
  grid.SetVisible(false);
  grid.SetDefaultDrawing(false);
  grid.SetParentCtl3D(false);
  grid.SetBounds(5, 6, 300, 200);
  const QString text = Written(grid, nullptr);
  for (const QString& name : published) {
    // The grid keeps a color of its own, as by default.
    if (name == "ParentColor") continue;
    EXPECT_TRUE(Stores(text, name)) << name.toStdString() << "\n" << text.toStdString();
  }
  EXPECT_TRUE(text.contains("OptionsEx = [dgBlankRow, dgTotalFooter,")) << text.toStdString();
  TMemoryStream stream;
  stream.WriteComponent(&grid);
  TQuilDBGrid copy(nullptr);
  auto* copySource = new TDataSource(&copy);
  copySource->SetName("Source");
  auto* copyMenu = new TPopupMenu(&copy);
  copyMenu->SetName("Menu");
  stream.Seek(0, soBeginning);
  stream.ReadComponent(&copy);
  EXPECT_EQ(copy.DataSource(), copySource);
  EXPECT_EQ(copy.PopupMenu(), copyMenu);
  EXPECT_EQ(copy.Options(), grid.Options());
  EXPECT_EQ(copy.OptionsEx(), grid.OptionsEx());
  EXPECT_EQ(copy.OptionsExt(), grid.OptionsExt());
  EXPECT_EQ(copy.BorderStyle(), bsNone);
  EXPECT_EQ(copy.Color(), clYellow);
  EXPECT_EQ(copy.GridLineWidth(), 2);
  EXPECT_EQ(copy.Align(), alClient);
  EXPECT_EQ(copy.Font()->Size(), 14);
  EXPECT_FALSE(copy.ParentFont());
  EXPECT_EQ(copy.BiDiMode(), bdRightToLeft);
  EXPECT_TRUE(copy.ShowHint());
  EXPECT_FALSE(copy.TabStop());
  EXPECT_FALSE(copy.Visible());
  EXPECT_FALSE(copy.DefaultDrawing());
  EXPECT_FALSE(copy.ParentCtl3D());
  EXPECT_EQ(copy.BoundsRect(), grid.BoundsRect());
}

// The framework's events are written by the name the writer finds for them.
TEST(GridFrameStreaming, FrameworkEventsAreWrittenByName) {
  TQuilDBGrid grid(nullptr);
  grid.SetOnDblClick([](TObject*) {});
  grid.SetOnMouseWheel([](TObject*, TShiftState, int, TPoint, bool&) {});
  TMemoryStream binary;
  TWriter writer(binary);
  writer.FindMethodName = [](const TObject*, const TMethodPropInfo& prop) { return "Grid" + prop.Name(); };
  writer.WriteRootComponent(&grid);
  const QString text = test::ObjectText(binary);
  EXPECT_TRUE(text.contains("OnDblClick = GridOnDblClick")) << text.toStdString();
  EXPECT_TRUE(text.contains("OnMouseWheel = GridOnMouseWheel"));
  EXPECT_FALSE(text.contains("OnKeyDown")) << "an event without a handler is left out";
}

TEST(GridFrameStreaming, ColumnsAreWrittenWhereTheyDifferFromTheAncestor) {
  TQuilDBGrid ancestor(nullptr), grid(nullptr);
  for (TQuilDBGrid* each : {&ancestor, &grid}) each->Columns()->Add()->SetFieldName("Name");
  EXPECT_TRUE(Written(grid, nullptr).contains("Columns"));
  EXPECT_FALSE(Written(grid, &ancestor).contains("Columns")) << Written(grid, &ancestor).toStdString();
  grid.Columns()->Items(0)->SetWidth(90);
  EXPECT_TRUE(Written(grid, &ancestor).contains("Columns"));
  TQuilDBGrid plain(nullptr);
  EXPECT_TRUE(Written(plain, &ancestor).contains("Columns")) << "the states differ";
}

TEST(GridFrameStreaming, OrderFieldsAreWrittenWhenThereIsAnOrder) {
  TFrameGrid grid(nullptr);
  EXPECT_FALSE(Written(grid, nullptr).contains("OrderFields"));
  grid.orderFields = "Name,City DESC";
  const QString text = Written(grid, nullptr);
  EXPECT_TRUE(text.contains("OrderFields")) << text.toStdString();
  EXPECT_TRUE(text.contains("Name,City DESC"));
}

TEST(GridFrameStreaming, OwnPropertiesAreStoredAwayFromTheirDefaults) {
  TQuilDBGrid grid(nullptr);
  const QString plain = Written(grid, nullptr);
  for (const char* name : {"Ctl3D", "DoubleBuffered", "DragRows", "Enabled", "FixedCols", "ReadOnly"})
    EXPECT_FALSE(plain.contains(name)) << name;
  grid.SetDragRows(true);
  grid.SetDoubleBuffered(false);
  grid.SetCtl3D(!grid.Ctl3D());
  grid.SetHint("Grid hint");
  TMemoryStream stream;
  stream.WriteComponent(&grid);
  TQuilDBGrid copy(nullptr);
  stream.Seek(0, soBeginning);
  stream.ReadComponent(&copy);
  EXPECT_TRUE(copy.DragRows());
  EXPECT_FALSE(copy.DoubleBuffered());
  EXPECT_EQ(copy.Ctl3D(), grid.Ctl3D());
  EXPECT_FALSE(copy.Ctl3DAuto());
  EXPECT_EQ(copy.Hint(), QStringLiteral("Grid hint"));
}

}  // namespace
