#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sorvane::cli {

// CRC-16 with the polynomial 8005, reflected, from 0.
uint16_t DtsSum(std::string_view bytes);

// Puts a transmission of the data transfer standard together: one set of segments, with its
// envelope, count and sum.
class DtsText {
 public:
  explicit DtsText(const std::string& sender);

  // A segment by its fields, of which the first is its name. Empty ones at the end are left out;
  // what would break a segment within a field turns into a blank.
  void Add(const std::vector<std::string>& fields);

  // The whole, once.
  std::string Finish();

 private:
  static std::string Segment(const std::vector<std::string>& fields);

  std::string envelope_;
  std::string set_;   // from its first segment on
  int segments_ = 0;  // of the set
};

}  // namespace sorvane::cli
