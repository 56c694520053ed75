#include "cli/dts_text.h"

#include <array>
#include <cstdio>

namespace sorvane::cli {
namespace {

constexpr uint16_t kPolynomial = 0xA001;  // 8005, reflected
constexpr const char* kControlNumber = "0001";

std::string Cleaned(std::string text) {
  for (char& c : text) {
    if (c < ' ' || c > '~' || c == '*') c = ' ';
  }
  return text;
}

}  // namespace

uint16_t DtsSum(std::string_view bytes) {
  uint16_t sum = 0;
  for (const char c : bytes) {
    sum ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) {
      sum = static_cast<uint16_t>((sum & 1) != 0 ? sum >> 1 ^ kPolynomial : sum >> 1);
    }
  }
  return sum;
}

DtsText::DtsText(const std::string& sender)
    : envelope_(Segment({"DXS", sender, "VA", "V0/6", "1"})) {
  Add({"ST", "001", kControlNumber});
}

void DtsText::Add(const std::vector<std::string>& fields) {
  set_ += Segment(fields);
  ++segments_;
}

std::string DtsText::Finish() {
  std::array<char, 8> sum{};
  std::snprintf(sum.data(), sum.size(), "%04X", static_cast<unsigned>(DtsSum(set_)));
  Add({"G85", sum.data()});
  Add({"SE", std::to_string(segments_ + 1), kControlNumber});
  return envelope_ + set_ + Segment({"DXE", "1", "1"});
}

std::string DtsText::Segment(const std::vector<std::string>& fields) {
  std::string segment;
  for (const std::string& field : fields) {
    segment += (&field == &fields.front() ? "" : "*") + Cleaned(field);
  }
  return segment.substr(0, segment.find_last_not_of('*') + 1) + "\r\n";
}

}  // namespace sorvane::cli
