// Resident memory after jumping to the last record of the large table (a million orders,
// ten million with QUIL_BENCH_LARGE=1): the data grid over TSQLTable against QTableView
// over QSqlQueryModel. Each side runs once in a process of its own (resident_probe.cpp);
// the figure is that process's resident bytes, and "grown" what opening and the jump
// added to them.

#include <QCoreApplication>
#include <QProcess>
#include <benchmark/benchmark.h>
#include <string>

#include "BenchDatabase.h"
#include "BenchFigures.h"

namespace {

void Resident(benchmark::State& state, const char* side) {
  const QString database = quil::bench::OrdersDatabase(state.range(0));
  const QString probe = QCoreApplication::applicationDirPath() + QStringLiteral("/resident_probe");
  long long before = 0, after = 0;
  for (auto _ : state) {
    QProcess run;
    run.start(probe, {QLatin1String(side), database});
    if (!run.waitForFinished(-1) || run.exitCode() != 0) {
      static std::string message;
      message = "resident_probe failed: " + run.readAllStandardError().toStdString();
      state.SkipWithError(message.c_str());
      return;
    }
    const QStringList numbers = QString::fromLatin1(run.readAllStandardOutput()).split(' ');
    before = numbers.value(0).toLongLong();
    after = numbers.value(1).trimmed().toLongLong();
  }
  using benchmark::Counter;
  state.counters[quil::bench::kResidentCounter] = Counter(double(after), Counter::kDefaults, Counter::kIs1024);
  state.counters["grown_bytes"] = Counter(double(after - before), Counter::kDefaults, Counter::kIs1024);
}

void ResidentQuil(benchmark::State& state) { Resident(state, "quil"); }
void ResidentPeer(benchmark::State& state) { Resident(state, "peer"); }

void LargeTable(benchmark::internal::Benchmark* registered) {
  registered->Arg(quil::bench::LargeRows())->Iterations(1)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK(ResidentQuil)->Name("resident_after_last/quil")->Apply(LargeTable);
BENCHMARK(ResidentPeer)->Name("resident_after_last/peer")->Apply(LargeTable);
