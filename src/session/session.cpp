#include "session/session.h"

#include <utility>

#include "board/errors.h"
#include "board/record.h"

namespace sorvane {
namespace {

// The board that is served.
constexpr int16_t kType = 309;
constexpr int16_t kSoftware = 0;

// So often a piece of reading is begun anew where answers have got out of step.
constexpr int kRounds = 3;

Address AddressIn(const std::vector<IndexRecord>& records, int32_t number) {
  if (static_cast<std::size_t>(number) > records.size()) return {};
  const IndexRecord& record = records[static_cast<std::size_t>(number - 1)];
  return {.command = record.command,
          .address1 = record.address1,
          .address2 = record.address2,
          .address3 = record.address3};
}

}  // namespace

Session::Session(Exchange& exchange, std::filesystem::path folder)
    : exchange_(exchange), folder_(std::move(folder)) {}

Identified Session::Identify() {
  try {
    index_name_ = FirstLevelName(kType);
    system_parameters_ = ReadIndexFile(folder_ / index_name_, kFirstLevelSize);
    if (!AskWhoItIs()) return Identified::kNoAnswer;
    refusal_ = board_.Refusal(numbers_, kSoftware);
    if (!refusal_.empty()) return Identified::kRefused;
    index_name_ =
        SecondLevelName(numbers_.IndexType, numbers_.IndexSoftware, numbers_.IndexRevision);
    parameters_ = ReadIndexFile(folder_ / index_name_, kSecondLevelSize);
  } catch (const RuntimeError& error) {
    if (error.Code() != ErrorCode::kOverflow) return Identified::kNoIndexFile;
    refusal_ = "Board Type\nNot Compatible";
    return Identified::kRefused;
  }
  return Identified::kServed;
}

int Session::SizeOf(int32_t number) const {
  if (number < 1 || static_cast<std::size_t>(number) > parameters_.size()) return 0;
  return (AddressOf(number).command & kSizeMask) + 1;
}

bool Session::AskWhoItIs() {
  for (int i = 0; i < kRounds; ++i) {
    for (const int number : Identification::kAsked) {
      const auto value = exchange_.Read(SystemAddressOf(number), 1);
      if (!value) return false;
      board_.Take(numbers_, number, value->front());
    }
    if (exchange_.InStep()) return true;
  }
  return false;
}

std::vector<Bytes> Session::Read(std::span<const int32_t> numbers) {
  for (int i = 0; i < kRounds; ++i) {
    std::vector<Bytes> values;
    for (const int32_t number : numbers) {
      auto value = exchange_.Read(AddressOf(number), SizeOf(number));
      if (!value) break;
      values.push_back(std::move(*value));
    }
    if (exchange_.InStep()) return values;
  }
  return {};
}

std::optional<Bytes> Session::Read(int32_t number) {
  std::vector<Bytes> values = Read(std::span(&number, 1));
  return values.empty() ? std::nullopt : std::optional(std::move(values.front()));
}

WriteOutcome Session::Write(int32_t number, int32_t mirror, const Bytes& value) {
  const bool acknowledged = exchange_.Write(AddressOf(number), value);
  bool copied = mirror == 0 || (acknowledged && exchange_.Write(AddressOf(mirror), value));
  const bool in_step = exchange_.InStep();
  const std::optional<Bytes> read_back = Read(number);
  if (!read_back) return {.proof = Proof::kUnsure, .read_back = {}};
  if (*read_back != value) return {.proof = Proof::kDiffers, .read_back = *read_back};
  // Acknowledgements out of step prove nothing.
  if (mirror != 0 && (!acknowledged || !in_step)) {
    copied = exchange_.Write(AddressOf(mirror), value) && exchange_.InStep();
  }
  return {.proof = copied ? Proof::kConfirmed : Proof::kMirrorUnsure, .read_back = *read_back};
}

int32_t Session::ParameterAt(const Address& address) const {
  for (int32_t number = 1; SizeOf(number) != 0; ++number) {
    if (AddressOf(number) == address) return number;
  }
  return 0;
}

int Session::SystemParameterAt(const Address& address) const {
  for (const int number : Identification::kAsked) {
    if (SystemAddressOf(number) == address) return number;
  }
  return 0;
}

Address Session::AddressOf(int32_t number) const { return AddressIn(parameters_, number); }

Address Session::SystemAddressOf(int number) const { return AddressIn(system_parameters_, number); }

}  // namespace sorvane
