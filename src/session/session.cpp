#include "session/session.h"

#include <utility>

#include "board/errors.h"
#include "board/identification.h"
#include "board/index_file.h"

namespace sorvane {
namespace {

constexpr int kBoard = 0;

// So often a piece of reading is begun anew where answers have got out of step.
constexpr int kRounds = 3;

template <int kLength>
Address AddressIn(const Record<kLength>& record) {
  return {.command = record.At(position::kCommand),
          .address1 = record.At(position::kAddress1),
          .address2 = record.At(position::kAddress2),
          .address3 = record.At(position::kAddress3)};
}

}  // namespace

Session::Session(Exchange& exchange, std::filesystem::path folder)
    : exchange_(exchange), folder_(std::move(folder)) {
  SetBoardDefaults(tables_);
}

Identified Session::Identify() {
  try {
    index_name_ = FirstLevelName(tables_.BoardTypeNumber);
    LoadFirstLevel(tables_, folder_);
    const Bytes answers = AskWhoItIs();
    if (answers.size() < Identification::kAsked.size()) return Identified::kNoAnswer;
    Identification identification;
    for (std::size_t i = 0; i < answers.size(); ++i) {
      identification.Take(tables_, Identification::kAsked[i], answers[i]);
    }
    refusal_ = identification.Refusal(tables_);
    if (!refusal_.empty()) return Identified::kRefused;
    tables_.BoardPresent(kBoard) = true;
    LoadSecondLevel(tables_, folder_, index_name_);
  } catch (const RuntimeError& error) {
    if (error.Code() != ErrorCode::kOverflow) return Identified::kNoIndexFile;
    refusal_ = "Board Type\nNot Compatible";
    return Identified::kRefused;
  }
  return Identified::kServed;
}

int Session::SizeOf(int32_t number) const {
  if (number < 1 || number > tables_.RecordCount(kBoard)) return 0;
  return (tables_.ParameterTable(number, kBoard).At(position::kCommand) & kSizeMask) + 1;
}

Bytes Session::AskWhoItIs() {
  for (int i = 0; i < kRounds; ++i) {
    Bytes answers;
    for (const int number : Identification::kAsked) {
      const auto value = exchange_.Read(AddressIn(tables_.SystemTable(number, kBoard)), 1);
      if (!value) return answers;
      answers.push_back(value->front());
    }
    if (exchange_.InStep()) return answers;
  }
  return {};
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

int Session::SystemParameterAt(const Address& address) {
  for (const int number : Identification::kAsked) {
    if (AddressIn(tables_.SystemTable(number, kBoard)) == address) return number;
  }
  return 0;
}

Address Session::AddressOf(int32_t number) const {
  return AddressIn(tables_.ParameterTable(number, kBoard));
}

}  // namespace sorvane
