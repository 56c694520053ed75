#include "simulator/simulated_board.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>
#include <vector>

#include "board/index_file.h"
#include "simulator/parameter_numbers.h"
#include "simulator/sample_contents.h"
#include "simulator/words.h"

namespace sorvane::simulator {
namespace {

// The board for which there are index files.
constexpr int16_t kFileType = 309;
constexpr int16_t kFileSoftware = 0;

std::vector<IndexRecord> ReadRecords(const std::filesystem::path& file, int record_size) {
  try {
    return ReadIndexFile(file, record_size);
  } catch (const std::exception& error) {
    throw std::runtime_error(file.string() + ": " + error.what());
  }
}

std::string ChooseIndexName(const std::filesystem::path& folder, uint8_t revision) {
  std::string name = SecondLevelName(kFileType, kFileSoftware, revision);
  if (std::filesystem::exists(folder / name)) return name;
  return SecondLevelName(kFileType, kFileSoftware, 0);
}

bool IsZero(const Bytes& value) {
  return std::all_of(value.begin(), value.end(), [](uint8_t byte) { return byte == 0; });
}

// A mark behind the words of an exchange that a fault has hit.
std::string Mark(const std::string& what) { return " [" + what + "]"; }

}  // namespace

SimulatedBoard::SimulatedBoard(std::filesystem::path folder, const Identity& identity,
                               const DateTime& now)
    : folder_(std::move(folder)), start_(now), seconds_into_minute_(now.second) {
  Become(identity);
}

void SimulatedBoard::Become(const Identity& identity) {
  const std::string name = ChooseIndexName(folder_, identity.revision);
  if (name != index_name_) {
    Memory memory = FreshMemory(name);
    FillSampleContents(memory, start_);
    memory.TakeOver(memory_);
    memory_ = std::move(memory);
    index_name_ = name;
  }
  identity_ = identity;
  LayDownIdentity();
}

Memory SimulatedBoard::FreshMemory(const std::string& index_name) const {
  return {ReadRecords(folder_ / FirstLevelName(kFileType), kFirstLevelSize),
          ReadRecords(folder_ / index_name, kSecondLevelSize)};
}

void SimulatedBoard::Forget() {
  memory_ = FreshMemory(index_name_);
  LayDownIdentity();
}

void SimulatedBoard::LayDownIdentity() {
  const auto set = [&](int which, unsigned value) {
    memory_.SetNumber(SystemParameter(which), value);
  };
  set(number::kSoftware, identity_.software);
  set(number::kBoardNumber, identity_.number);
  set(number::kTypeLow, identity_.type & 255u);
  set(number::kTypeHigh, identity_.type >> 8u);
  set(number::kRevision, identity_.revision);
}

SimulatedBoard::Answer SimulatedBoard::Serve(const Request& request) {
  const std::string verb = request.write ? "write " : "read ";
  const ParameterName* const name = memory_.NameOf({request.address, request.size});
  if (name == nullptr) {
    const Bytes address(request.address.begin(), request.address.end());
    return {
        {},
        "no parameter: " + verb + std::to_string(request.size) + " bytes at " + ShowBytes(address)};
  }
  const bool zeroes_day =
      request.write && *name == Parameter(number::kDay) && IsZero(request.value);
  const FaultOrder before = faults_.Current();
  const Fault fault = faults_.HitRequest(zeroes_day);
  const bool obeyed = fault != Fault::kSilent && fault != Fault::kRefusesDay0;
  if (request.write && obeyed) memory_.SetValue(*name, request.value);

  std::string words = verb + ShowName(*name);
  const Bytes& value = request.write ? request.value : memory_.Value(*name);
  if (request.write || obeyed) words += " = " + ShowValue(value);
  if (fault != Fault::kNone) words += Mark(FaultWords({before.fault, std::nullopt}));
  const Reply reply = request.write ? WriteReply(request.checksum) : ReadReply(value);
  return {Spoil(fault, reply), words};
}

void SimulatedBoard::PassSeconds(int64_t seconds) {
  seconds_into_minute_ += seconds;
  for (; seconds_into_minute_ >= 60; seconds_into_minute_ -= 60) TickMinute(memory_);
}

}  // namespace sorvane::simulator
