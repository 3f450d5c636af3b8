#pragma once
// The SQLite databases that the benchmarks browse, made once beside the programs in the
// build folder and reused by later runs.

#include <QString>
#include <cstdint>

namespace quil::bench {

constexpr int64_t kMillion = 1000000;

// The large table of a run: ten million orders when QUIL_BENCH_LARGE is set (about
// 700 MB on disk, and some 5 GB for a model that holds every row), one million otherwise.
int64_t LargeRows();

// Where OrdersDatabase keeps the table of that many orders.
QString OrdersDatabasePath(int64_t rows);
// Orders as the demo generates them, with order lines for the first thousand only; more
// than a million copy the million's orders with shifted keys. Throws std::runtime_error.
QString OrdersDatabase(int64_t rows);
// The demo's own database at its default size, order lines and all.
QString DemoDatabase();

}  // namespace quil::bench
