#include "simulator/second_copies.h"

#include <array>

#include "simulator/parameter_numbers.h"

namespace sorvane::simulator {
namespace {

struct Span {
  int first;
  int copy;  // of the first
  int count;
};

constexpr std::array<Span, 10> kSpans = {{
    {1, 353, 8},                                    // general settings
    {67, 361, 4},                                   // on, off
    {71, 365, 14},                                  // payment system to base coin
    {number::kDecimalPoint, number::kDecimals, 1},  // the one that all amounts are drawn with
    {86, 379, 2},                                   // credit timeout, mode
    {88, 381, 2},                                   // banknotes
    {90, 383, 6},                                   // coins
    {number::kPrices, 391, number::kRows},
    {98, 401, number::kRows},  // columns
    {411, 415, 4},             // password
}};

}  // namespace

int SecondCopyOf(int parameter) {
  for (const Span& span : kSpans) {
    if (parameter >= span.first && parameter < span.first + span.count) {
      return span.copy + parameter - span.first;
    }
  }
  return 0;
}

}  // namespace sorvane::simulator
