// Runs the benchmarks of one program and then prints, for every figure measured both by
// the library and by its peer, the ratio of their times. A benchmark takes part when
// its name is "<figure>/quil" or "<figure>/peer", optionally followed by "/<args>".

#include <QApplication>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <ostream>
#include <string>

namespace {

struct Pair {
  double quil = 0;
  double peer = 0;
};

class RatioReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      Record(run.benchmark_name(), run.GetAdjustedRealTime());
    }
  }

  // The ratios go out once, on the reporter's own stream and flushed there: a line
  // left in a buffer that another stream or a later exit flushes again shows twice.
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::ostream& out = GetOutputStream();
    for (const auto& [figure, pair] : pairs_) {
      if (pair.quil <= 0 || pair.peer <= 0) continue;
      char line[160];
      std::snprintf(line, sizeof(line), "RATIO %-60s quil/peer = %.3f\n", figure.c_str(), pair.quil / pair.peer);
      out << line;
    }
    out.flush();
    pairs_.clear();
  }

private:
  void Record(const std::string& name, double time) {
    for (const char* side : {"/quil", "/peer"}) {
      const auto at = name.find(side);
      if (at == std::string::npos) continue;
      const std::string figure = name.substr(0, at) + name.substr(at + 5);
      (side[1] == 'q' ? pairs_[figure].quil : pairs_[figure].peer) = time;
    }
  }

  std::map<std::string, Pair> pairs_;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
