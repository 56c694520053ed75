#pragma once

#include <functional>
#include <string>
#include <vector>

namespace sorvane::bench {

// One repeat of a measure: the program's side and the other, in the same unit.
struct Sample {
  double ours;
  double theirs;
};

// What a measure came to. A ratio above its aim is missed; above twice its aim it is a failure.
struct Result {
  std::string what;
  std::string against;
  double aim;
  std::string unit;  // of the samples
  std::vector<Sample> samples;
};

enum class Verdict { kReached, kMissed, kFailed };

// The middle one, or the mean of the two in the middle. Throws std::invalid_argument for none.
double Median(std::vector<double> values);

// The ratio of each repeat. Its two sides ran next to each other, so that what slowed the machine
// down slowed both.
std::vector<double> Ratios(const Result& result);

Verdict Judge(const Result& result);

// Measures both sides in turn. A first round, which fills caches, isn't counted.
std::vector<Sample> Interleave(int repeats, const std::function<double()>& ours,
                               const std::function<double()>& theirs);

// A line of the table: medians, ratio, lowest and highest ratio, aim, repeats, verdict.
std::string Heading();
std::string Line(const Result& result);

}  // namespace sorvane::bench
