// The demo's main form as a user meets it: the data grid over the orders of the demo's
// database, through TSQLTable, in a 1920x1080 window. The peer is a QTableView over a
// QSqlQueryModel of the same table, with the grid's column widths and row height, so
// that both show the same cells.
//
//   dbgrid_paint_1920x1080/{quil,peer}  one full frame rendered
//   dbgrid_repaint_whole/{quil,peer}    the whole window repainted where it stands
//   dbgrid_scroll_one_row/{quil,peer}   one record on from the bottom row, and the paint
// and, for each side, the scroll over the whole repaint: what a scroll saves.

#include <benchmark/benchmark.h>

#include "BenchDatabase.h"
#include "BenchFigures.h"
#include "GridBench.h"

using namespace quil;

namespace {

constexpr int kFrameWidth = 1920;
constexpr int kFrameHeight = 1080;

// Made per benchmark, so that none inherits another's scroll.
struct TDemoForm : bench::TOrdersForm {
  TDemoForm() : TOrdersForm(bench::DemoDatabase(), kFrameWidth, kFrameHeight) {}
};

struct TPeerView : bench::TOrdersView {
  TPeerView() : TOrdersView(bench::DemoDatabase(), kFrameWidth, kFrameHeight) { MatchCells(*TDemoForm().grid); }
};

void PaintQuil(benchmark::State& state) {
  TDemoForm demo;
  bench::PaintFrames(state, demo.grid->Handle(), "dbgrid_paint_quil");
}

void PaintPeer(benchmark::State& state) {
  TPeerView peer;
  bench::PaintFrames(state, peer.view.get(), "dbgrid_paint_peer");
}

void RepaintQuil(benchmark::State& state) {
  TDemoForm demo;
  bench::RepaintGrid(state, *demo.grid);
}

void RepaintPeer(benchmark::State& state) {
  TPeerView peer;
  bench::RepaintView(state, *peer.view);
}

void ScrollQuil(benchmark::State& state) {
  TDemoForm demo;
  bench::ScrollGridByOne(state, *demo.grid);
}

void ScrollPeer(benchmark::State& state) {
  TPeerView peer;
  bench::ScrollViewByOne(state, *peer.view);
}

const bool kScrollOverRepaint =
    bench::AddRatio({"dbgrid_scroll_one_row/quil", "scroll/whole", "dbgrid_scroll_one_row/quil",
                     "dbgrid_repaint_whole/quil"}) &&
    bench::AddRatio({"dbgrid_scroll_one_row/peer", "scroll/whole", "dbgrid_scroll_one_row/peer",
                     "dbgrid_repaint_whole/peer"});

}  // namespace

BENCHMARK(PaintQuil)->Name("dbgrid_paint_1920x1080/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(PaintPeer)->Name("dbgrid_paint_1920x1080/peer")->Unit(benchmark::kMillisecond);
BENCHMARK(RepaintQuil)->Name("dbgrid_repaint_whole/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(RepaintPeer)->Name("dbgrid_repaint_whole/peer")->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollQuil)->Name("dbgrid_scroll_one_row/quil")->Unit(benchmark::kMicrosecond);
BENCHMARK(ScrollPeer)->Name("dbgrid_scroll_one_row/peer")->Unit(benchmark::kMicrosecond);
