#include "BenchFigures.h"

#include <QJsonValue>
#include <algorithm>
#include <cstdio>

namespace quil::bench {
namespace {

constexpr const char* kQuilSegment = "/quil";
constexpr const char* kPeerSegment = "/peer";

// Where "/quil" stands as a whole segment of the name; npos when it does not.
size_t QuilSegment(const std::string& name) {
  for (size_t at = name.find(kQuilSegment); at != std::string::npos; at = name.find(kQuilSegment, at + 1)) {
    const size_t end = at + std::char_traits<char>::length(kQuilSegment);
    if (end == name.size() || name[end] == '/') return at;
  }
  return std::string::npos;
}

std::string Key(const TRatio& ratio) { return ratio.figure + ' ' + ratio.label; }

std::vector<TRatio>& Asked() {
  static std::vector<TRatio> asked;
  return asked;
}

}  // namespace

void TFigures::Record(const std::string& benchmark, double value, TUnit unit) {
  const auto found = values_.find(benchmark);
  if (unit == TUnit::Seconds && found != values_.end() && found->second.unit == unit)
    found->second.value = std::min(found->second.value, value);
  else
    values_[benchmark] = {value, unit};
}

std::vector<TRatio> TFigures::NamedPairs() const {
  std::vector<TRatio> pairs;
  for (const auto& [name, value] : values_) {
    const size_t at = QuilSegment(name);
    if (at == std::string::npos) continue;
    const size_t segment = std::char_traits<char>::length(kQuilSegment);
    std::string peer = name;
    peer.replace(at, segment, kPeerSegment);
    pairs.push_back({name.substr(0, at) + name.substr(at + segment), "quil/peer", name, peer});
  }
  return pairs;
}

std::map<std::string, double> TFigures::Ratios(const std::vector<TRatio>& asked) const {
  std::vector<TRatio> all = NamedPairs();
  all.insert(all.end(), asked.begin(), asked.end());
  std::map<std::string, double> ratios;
  for (const TRatio& ratio : all) {
    const auto numerator = values_.find(ratio.numerator);
    const auto denominator = values_.find(ratio.denominator);
    if (numerator == values_.end() || denominator == values_.end()) continue;
    if (numerator->second.unit != denominator->second.unit || denominator->second.value <= 0) continue;
    ratios[Key(ratio)] = numerator->second.value / denominator->second.value;
  }
  return ratios;
}

std::string TFigures::RatioLines(const std::vector<TRatio>& asked, const QJsonObject& last) const {
  const QJsonObject lastRatios = last.value(QStringLiteral("ratios")).toObject();
  std::string lines;
  for (const auto& [key, ratio] : Ratios(asked)) {
    const QJsonValue before = lastRatios.value(QString::fromStdString(key));
    // Four significant digits: a ratio may be far below one, as a screen over a fetch of all.
    char line[200];
    if (before.isDouble())
      std::snprintf(line, sizeof(line), "RATIO %-64s = %9.4g   (last run %.4g)\n", key.c_str(), ratio,
                    before.toDouble());
    else
      std::snprintf(line, sizeof(line), "RATIO %-64s = %9.4g\n", key.c_str(), ratio);
    lines += line;
  }
  return lines;
}

QJsonObject TFigures::ToJson(const std::string& program, const std::vector<TRatio>& asked) const {
  QJsonObject figures;
  for (const auto& [name, value] : values_) {
    const QString unit = value.unit == TUnit::Bytes ? QStringLiteral("bytes") : QStringLiteral("seconds");
    figures.insert(QString::fromStdString(name), QJsonObject{{unit, value.value}});
  }
  QJsonObject ratios;
  for (const auto& [key, ratio] : Ratios(asked)) ratios.insert(QString::fromStdString(key), ratio);
  return QJsonObject{{"program", QString::fromStdString(program)}, {"figures", figures}, {"ratios", ratios}};
}

bool AddRatio(TRatio ratio) {
  Asked().push_back(std::move(ratio));
  return true;
}

const std::vector<TRatio>& AskedRatios() { return Asked(); }

}  // namespace quil::bench
