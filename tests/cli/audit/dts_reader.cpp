#include "cli/audit/dts_reader.h"

#include <cstdio>

namespace sorvane::test {
namespace {

DtsSegment FieldsOf(std::string_view line) {
  DtsSegment fields = {""};
  for (const char c : line) {
    if (c == '*') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

std::string Line(const DtsSegment& segment) {
  std::string line;
  for (const std::string& field : segment) line += (line.empty() ? "" : "*") + field;
  return line;
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  DtsFile Read() {
    Split();
    CheckEnvelope();
    CheckSet();
    return file_;
  }

 private:
  void Expect(bool holds, const std::string& words) {
    if (!holds) file_.faults.push_back(words);
  }

  // Every line ends in CR LF and nothing else stands below a blank or above "~".
  void Split() {
    std::size_t begin = 0;
    while (begin < text_.size()) {
      const std::size_t end = text_.find("\r\n", begin);
      if (end == std::string_view::npos) {
        Expect(false, "the last line has no end");
        return;
      }
      const std::string_view line = text_.substr(begin, end - begin);
      for (const char c : line) Expect(c >= ' ' && c <= '~', "a byte that is no letter of the set");
      Expect(!line.empty() && line.back() != '*', "empty fields at the end: " + std::string(line));
      file_.segments.push_back(FieldsOf(line));
      begins_.push_back(begin);
      begin = end + 2;
    }
  }

  void CheckEnvelope() {
    Expect(file_.segments.size() >= 5, "too short");
    if (file_.segments.size() < 5) return;
    const DtsSegment& begin = file_.segments.front();
    Expect(begin.size() == 5 && begin[0] == "DXS" && begin[1].size() == 10 && begin[2] == "VA" &&
               begin[3] == "V0/6" && begin[4] == "1",
           "no beginning");
    Expect(Line(file_.segments.back()) == "DXE*1*1", "no end");
  }

  void CheckSet() {
    const std::size_t count = file_.segments.size();
    if (count < 5) return;
    Expect(Line(file_.segments[1]) == "ST*001*0001", "no ST");
    const std::string counted = std::to_string(count - 2);
    Expect(Line(file_.segments[count - 2]) == "SE*" + counted + "*0001", "SE is not " + counted);
    const std::string_view summed = text_.substr(begins_[1], begins_[count - 3] - begins_[1]);
    char sum[8];
    std::snprintf(sum, sizeof sum, "%04X", static_cast<unsigned>(DividedSum(summed)));
    Expect(Line(file_.segments[count - 3]) == "G85*" + std::string(sum),
           "G85 is not " + std::string(sum));
  }

  std::string_view text_;
  std::vector<std::size_t> begins_;
  DtsFile file_;
};

}  // namespace

std::vector<DtsSegment> DtsFile::Named(const std::string& name) const {
  std::vector<DtsSegment> named;
  for (const DtsSegment& segment : segments) {
    if (segment.front() == name) named.push_back(segment);
  }
  return named;
}

DtsFile ReadDts(std::string_view text) { return Reader(text).Read(); }

std::uint16_t DividedSum(std::string_view bytes) {
  std::string bits;
  for (const char c : bytes) {
    for (int bit = 0; bit < 8; ++bit)
      bits += (static_cast<unsigned char>(c) >> bit & 1) ? '1' : '0';
  }
  bits += std::string(16, '0');
  const std::string divisor = "11000000000000101";
  for (std::size_t i = 0; i + 16 < bits.size(); ++i) {
    if (bits[i] == '0') continue;
    for (std::size_t k = 0; k < divisor.size(); ++k) {
      bits[i + k] = bits[i + k] == divisor[k] ? '0' : '1';
    }
  }
  std::uint16_t sum = 0;
  for (std::size_t k = 0; k < 16; ++k) {
    if (bits[bits.size() - 16 + k] == '1') sum = static_cast<std::uint16_t>(sum | 1 << k);
  }
  return sum;
}

}  // namespace sorvane::test
