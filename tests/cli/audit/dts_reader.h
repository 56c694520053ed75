#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sorvane::test {

using DtsSegment = std::vector<std::string>;  // its fields, the name first

// A transmission of the data transfer standard, taken apart by rules of its own.
struct DtsFile {
  std::vector<DtsSegment> segments;  // all of them, those of the envelope too
  std::vector<std::string> faults;   // in words; none of a good file

  // Those of a name.
  std::vector<DtsSegment> Named(const std::string& name) const;
};

DtsFile ReadDts(std::string_view text);

// The sum as the standard's paper has it: the bits of each byte, the lowest first, are divided by
// x^16 + x^15 + x^2 + 1 as a long division goes, and the remainder is read the other way round.
std::uint16_t DividedSum(std::string_view bytes);

}  // namespace sorvane::test
