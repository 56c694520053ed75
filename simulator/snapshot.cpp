#include "simulator/snapshot.h"

#include <cstddef>
#include <fstream>
#include <limits>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "simulator/command_error.h"
#include "simulator/parameter_numbers.h"
#include "simulator/second_copies.h"
#include "simulator/words.h"

namespace sorvane::simulator {
namespace {

constexpr uint32_t kFormat = 1;
constexpr uint32_t kLargestValue = 16;  // bytes
constexpr uint32_t kLargestNumber = 4;  // bytes; a longer value is a text

std::string At(const std::filesystem::path& file, int line, const std::string& reason) {
  return file.string() + ':' + std::to_string(line) + ": " + reason;
}

uint32_t MostOf(uint32_t size) { return static_cast<uint32_t>((uint64_t{1} << (8 * size)) - 1); }

Bytes BytesOf(uint32_t number, uint32_t size) {
  Bytes bytes;
  for (uint32_t i = 0; i < size; ++i) bytes.push_back(static_cast<uint8_t>(number >> (8 * i)));
  return bytes;
}

// A snapshot's lines from the first to the last, each from left to right.
class Lines {
 public:
  explicit Lines(const std::filesystem::path& file) : file_(file), in_(file, std::ios::binary) {}

  int Line() const { return line_; }

  [[noreturn]] void Fail(const std::string& reason) const {
    throw CommandError(At(file_, line_, reason));
  }

  // Goes to the next line once this one is at its end.
  void Next() {
    if (!rest_.empty()) Fail("too much: " + std::string(rest_));
    ++line_;
    if (!std::getline(in_, text_)) Fail("the file ends too early");
    rest_ = text_;
  }

  // Takes the next line, which is nothing but this.
  void NextIs(std::string_view words) {
    Next();
    Take(words);
  }

  bool TryTake(std::string_view words) {
    if (!rest_.starts_with(words)) return false;
    rest_.remove_prefix(words.size());
    return true;
  }

  void Take(std::string_view words) {
    if (!TryTake(words)) Fail("no " + std::string(words));
  }

  uint32_t TakeNumber(uint32_t most) {
    const std::string_view digits = rest_.substr(0, rest_.find_first_of(",}"));
    rest_.remove_prefix(digits.size());
    try {
      return ParseNumber(digits, 0, most, "\"" + std::string(digits) + "\" isn't right:");
    } catch (const CommandError& error) {
      Fail(error.what());
    }
  }

  // What stands between two quotes, as it is.
  std::string_view TakeText() {
    Take("\"");
    std::size_t end = 0;
    while (end < rest_.size() && rest_[end] != '"') end += rest_[end] == '\\' ? 2 : 1;
    if (end >= rest_.size()) Fail("a text has no end");
    const std::string_view text = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return text;
  }

  void End() {
    if (!rest_.empty()) Fail("too much: " + std::string(rest_));
    ++line_;
    if (std::getline(in_, text_)) Fail("more behind the end");
  }

 private:
  std::filesystem::path file_;
  std::ifstream in_;
  int line_ = 0;
  std::string text_;
  std::string_view rest_;  // of text_
};

uint32_t NumberOfHead(Lines& lines, const std::string& key, uint32_t most) {
  lines.Next();
  lines.Take("  \"" + key + "\": ");
  const uint32_t number = lines.TakeNumber(most);
  lines.Take(",");
  return number;
}

void TextOfHead(Lines& lines, const std::string& key) {
  lines.Next();
  lines.Take("  \"" + key + "\": ");
  lines.TakeText();
  lines.Take(",");
}

// A value of the head, as that of its parameter.
HeldValue ValueOfHead(Lines& lines, const std::string& key, int parameter, uint32_t size) {
  const uint32_t number = NumberOfHead(lines, key, MostOf(size));
  return {lines.Line(), parameter, BytesOf(number, size)};
}

void ReadHead(Lines& lines, Snapshot& snapshot) {
  lines.NextIs("{");
  if (NumberOfHead(lines, "format", std::numeric_limits<uint32_t>::max()) != kFormat) {
    lines.Fail("another format than 1");
  }
  TextOfHead(lines, "time");
  TextOfHead(lines, "program");
  snapshot.type = static_cast<uint16_t>(NumberOfHead(lines, "type", MostOf(2)));
  snapshot.software = static_cast<uint8_t>(NumberOfHead(lines, "software", MostOf(1)));
  snapshot.revision = static_cast<uint8_t>(NumberOfHead(lines, "revision", MostOf(1)));
  TextOfHead(lines, "index");
  TextOfHead(lines, "index-sha256");
  snapshot.values.push_back(ValueOfHead(lines, "machine", number::kMachineNumber, 3));
  snapshot.values.push_back(ValueOfHead(lines, "location", number::kLocationNumber, 2));
  const HeldValue decimals = ValueOfHead(lines, "decimals", number::kDecimals, 1);
  snapshot.values.push_back({decimals.line, number::kDecimalPoint, decimals.bytes});
  snapshot.values.push_back(decimals);
  lines.Next();
  lines.Take("  \"complete\": ");
  if (!lines.TryTake("true,")) lines.Take("false,");
  lines.NextIs("  \"values\": [");
}

uint8_t HexDigit(const Lines& lines, char digit) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const std::size_t value = kDigits.find(digit);
  if (value == std::string_view::npos) lines.Fail("a text has hexadecimal digits");
  return static_cast<uint8_t>(value);
}

Bytes TakeRaw(Lines& lines, uint32_t size) {
  if (size <= kLargestNumber) return BytesOf(lines.TakeNumber(MostOf(size)), size);
  const std::string_view digits = lines.TakeText();
  if (digits.size() != std::size_t{2} * size) {
    lines.Fail("a text has two digits for each of its bytes");
  }
  Bytes bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes.push_back(
        static_cast<uint8_t>(HexDigit(lines, digits[i]) * 16 + HexDigit(lines, digits[i + 1])));
  }
  return bytes;
}

// Takes a parameter; returns whether another one follows.
bool TakeValue(Lines& lines, Snapshot& snapshot, int& last) {
  lines.Take("    {\"number\": ");
  const int parameter = static_cast<int>(lines.TakeNumber(std::numeric_limits<int16_t>::max()));
  if (parameter <= last) lines.Fail("the numbers of the parameters rise");
  last = parameter;
  lines.Take(", \"name\": ");
  lines.TakeText();
  lines.Take(", \"size\": ");
  const uint32_t size = lines.TakeNumber(kLargestValue);
  if (size == 0) lines.Fail("a parameter has a byte at least");
  lines.Take(", \"raw\": ");
  snapshot.values.push_back({lines.Line(), parameter, TakeRaw(lines, size)});
  lines.Take(", \"shown\": ");
  lines.TakeText();
  lines.Take("}");
  return lines.TryTake(",");
}

void ReadValues(Lines& lines, Snapshot& snapshot) {
  lines.Next();
  if (lines.TryTake("  ]")) return;
  int last = 0;
  while (TakeValue(lines, snapshot, last)) lines.Next();
  lines.NextIs("  ]");
}

void CheckPlace(const Snapshot& snapshot, const HeldValue& value, const SimulatedBoard& board) {
  const Memory& memory = board.Contents();
  const ParameterName name = Parameter(value.parameter);
  const std::string words = board.IndexName() + " has ";
  if (!memory.Has(name)) {
    throw CommandError(
        At(snapshot.file, value.line, words + "no parameter " + std::to_string(value.parameter)));
  }
  const std::size_t size = memory.Value(name).size();
  if (size == value.bytes.size()) return;
  throw CommandError(At(snapshot.file, value.line,
                        words + "parameter " + std::to_string(value.parameter) + " with size " +
                            std::to_string(size)));
}

}  // namespace

Snapshot ReadSnapshot(const std::filesystem::path& file) {
  std::error_code error;
  // Asked first: opening a pipe would wait for its other end.
  if (!std::filesystem::is_regular_file(file, error)) {
    throw CommandError(file.string() + ": no such file");
  }
  Snapshot snapshot;
  snapshot.file = file;
  Lines lines(file);
  ReadHead(lines, snapshot);
  ReadValues(lines, snapshot);
  lines.NextIs("}");
  lines.End();
  return snapshot;
}

void LayDown(const Snapshot& snapshot, SimulatedBoard& board) {
  std::set<int> told;
  for (const HeldValue& value : snapshot.values) {
    CheckPlace(snapshot, value, board);
    told.insert(value.parameter);
  }
  board.Forget();
  Memory& memory = board.Contents();
  for (const HeldValue& value : snapshot.values) {
    memory.SetValue(Parameter(value.parameter), value.bytes);
    const int copy = SecondCopyOf(value.parameter);
    const bool copied = copy != 0 && !told.contains(copy) && memory.Has(Parameter(copy));
    if (copied) memory.SetValue(Parameter(copy), value.bytes);
  }
}

}  // namespace sorvane::simulator
