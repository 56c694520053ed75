#include "bench/ratio.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

namespace sorvane::bench {
namespace {

constexpr double kFailure = 2;  // times the aim

constexpr const char* kColumns = "%-17s | %-30s | %-11s | %-11s | %-6s | %-15s | %-5s | %-7s | %s";

std::string Cell(const char* format, double first, double second = 0) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, first, second);
  return text.data();
}

std::string Columns(const std::array<std::string, 9>& cells) {
  std::array<char, 256> line{};
  std::snprintf(line.data(), line.size(), kColumns, cells[0].c_str(), cells[1].c_str(),
                cells[2].c_str(), cells[3].c_str(), cells[4].c_str(), cells[5].c_str(),
                cells[6].c_str(), cells[7].c_str(), cells[8].c_str());
  return line.data();
}

double MedianOf(const Result& result, double Sample::*side) {
  std::vector<double> values;
  for (const Sample& sample : result.samples) values.push_back(sample.*side);
  return Median(values);
}

}  // namespace

double Median(std::vector<double> values) {
  if (values.empty()) throw std::invalid_argument("a median of nothing");
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::vector<double> Ratios(const Result& result) {
  std::vector<double> ratios;
  for (const Sample& sample : result.samples) ratios.push_back(sample.ours / sample.theirs);
  return ratios;
}

Verdict Judge(const Result& result) {
  const double ratio = Median(Ratios(result));
  if (ratio <= result.aim) return Verdict::kReached;
  // A ratio that is no number is a failure too.
  return ratio <= kFailure * result.aim ? Verdict::kMissed : Verdict::kFailed;
}

std::vector<Sample> Interleave(int repeats, const std::function<double()>& ours,
                               const std::function<double()>& theirs) {
  std::vector<Sample> samples;
  for (int round = 0; round <= repeats; ++round) {
    const double first = ours();
    const double second = theirs();
    if (round > 0) samples.push_back({first, second});
  }
  return samples;
}

std::string Heading() {
  return Columns({"what", "against", "median", "its median", "ratio", "lowest-highest", "aim",
                  "repeats", "verdict"});
}

std::string Line(const Result& result) {
  const std::vector<double> ratios = Ratios(result);
  const auto [lowest, highest] = std::minmax_element(ratios.begin(), ratios.end());
  const std::string unit = "%.3g " + result.unit;
  constexpr std::array<const char*, 3> kVerdicts = {"reached", "missed", "FAILED"};
  return Columns({result.what, result.against, Cell(unit.c_str(), MedianOf(result, &Sample::ours)),
                  Cell(unit.c_str(), MedianOf(result, &Sample::theirs)),
                  Cell("%.3f", Median(ratios)), Cell("%.3f-%.3f", *lowest, *highest),
                  Cell("%g", result.aim), std::to_string(result.samples.size()),
                  kVerdicts.at(static_cast<std::size_t>(Judge(result)))});
}

}  // namespace sorvane::bench
