#pragma once
// The figures of one benchmark program and the ratios drawn from them. A figure is a
// benchmark's real time per iteration, or, for one that reports the counter
// kResidentCounter, its bytes of resident memory. A ratio sets one figure over another
// measured in the same run:
//   - "<figure>/quil" over "<figure>/peer", each optionally followed by "/<args>", is
//     found by name and labelled quil/peer;
//   - any other pair a program asks for with AddRatio (a size over a smaller one, the
//     library's scroll over its own full repaint, a second peer over the first).
// The program prints one RATIO line per ratio, with the last run's value beside it,
// and keeps the run's figures in a small JSON file for the next run to compare with.

#include <QJsonObject>
#include <map>
#include <string>
#include <vector>

namespace quil::bench {

inline constexpr const char* kResidentCounter = "resident_bytes";

struct TRatio {
  std::string figure;  // what the line is about, e.g. "first_screen/quil/1000000"
  std::string label;   // what is over what, e.g. "1m/1k"
  std::string numerator;
  std::string denominator;
};

enum class TUnit { Seconds, Bytes };

class TFigures {
public:
  // Repetitions of a benchmark keep their fastest time, which a busy machine disturbs
  // least; a later size in bytes replaces the earlier one.
  void Record(const std::string& benchmark, double value, TUnit unit);
  bool Empty() const { return values_.empty(); }

  // Every ratio whose two sides were measured in the same unit: the quil/peer pairs
  // by name and the asked ones, each once, keyed "<figure> <label>".
  std::map<std::string, double> Ratios(const std::vector<TRatio>& asked) const;
  // A line per ratio; a ratio the last run also had tells that run's value too.
  std::string RatioLines(const std::vector<TRatio>& asked, const QJsonObject& last) const;
  // {"program", "figures": {benchmark: {"seconds"|"bytes": value}}, "ratios": {key: value}}
  QJsonObject ToJson(const std::string& program, const std::vector<TRatio>& asked) const;

private:
  struct TValue {
    double value = 0;
    TUnit unit = TUnit::Seconds;
  };
  std::vector<TRatio> NamedPairs() const;

  std::map<std::string, TValue> values_;
};

// Asks every run of this program for a ratio that the quil/peer naming does not give.
// Called from a namespace-scope initializer: `const bool asked = AddRatio(...);`.
bool AddRatio(TRatio ratio);
const std::vector<TRatio>& AskedRatios();

}  // namespace quil::bench
