// Runs the benchmarks of one program, prints the ratios of its figures (BenchFigures.h)
// after the table, and keeps the figures in "<program>.figures.json" beside the program,
// or in the folder QUIL_BENCH_FIGURES names, for the next run to compare with.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <ostream>
#include <string>

#include "BenchFigures.h"

namespace {

QString FiguresFile() {
  const QString folder = qEnvironmentVariableIsEmpty("QUIL_BENCH_FIGURES") ? QCoreApplication::applicationDirPath()
                                                                          : qEnvironmentVariable("QUIL_BENCH_FIGURES");
  return QDir(folder).filePath(QFileInfo(QCoreApplication::applicationFilePath()).fileName() + ".figures.json");
}

QJsonObject ReadFigures(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QJsonDocument::fromJson(file.readAll()).object();
}

// The benchmark's name and arguments, without what the run's settings add to them
// ("/iterations:1", "/real_time"), so that a figure keeps its name from run to run.
std::string FigureName(const benchmark::BenchmarkReporter::Run& run) {
  const auto& name = run.run_name;
  return name.args.empty() ? name.function_name : name.function_name + '/' + name.args;
}

class RatioReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0) continue;
      const auto resident = run.counters.find(quil::bench::kResidentCounter);
      if (resident != run.counters.end())
        figures_.Record(FigureName(run), resident->second.value, quil::bench::TUnit::Bytes);
      else
        figures_.Record(FigureName(run), run.real_accumulated_time / double(run.iterations),
                        quil::bench::TUnit::Seconds);
    }
  }

  // The lines go out once, on the reporter's own stream, and the file is written once,
  // at the end of the run.
  void Finalize() override {
    ConsoleReporter::Finalize();
    if (figures_.Empty()) return;
    const QString path = FiguresFile();
    const auto& asked = quil::bench::AskedRatios();
    std::ostream& out = GetOutputStream();
    out << figures_.RatioLines(asked, ReadFigures(path));
    const std::string program = QFileInfo(QCoreApplication::applicationFilePath()).fileName().toStdString();
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
      file.write(QJsonDocument(figures_.ToJson(program, asked)).toJson());
      out << "figures: " << path.toStdString() << '\n';
    } else {
      out << "figures not kept: " << path.toStdString() << ": " << file.errorString().toStdString() << '\n';
    }
    out.flush();
    figures_ = {};
  }

private:
  quil::bench::TFigures figures_;
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
