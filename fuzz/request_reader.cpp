// The simulated board's reader of requests. An input is a row of arrivals: a pause in milliseconds,
// a count, and that many bytes which arrive together.

#include "simulator/request_reader.h"

#include <numeric>
#include <vector>

#include "input.h"

namespace sorvane::simulator {
namespace {

using fuzz::Input;
using fuzz::Require;
using std::chrono::milliseconds;

constexpr milliseconds kLongestSilence{99};  // within one request

struct Arrival {
  Micros moment{};
  Bytes bytes;
};

std::vector<Arrival> Arrivals(Input& input) {
  std::vector<Arrival> arrivals;
  Micros now{};
  while (!input.Empty()) {
    now += milliseconds(input.Byte());
    const std::size_t count = input.Byte() % 32U;
    arrivals.push_back({now, input.Take(count)});
  }
  return arrivals;
}

// All that arrived without a silence that would break a request off.
std::vector<Bytes> Stretches(const std::vector<Arrival>& arrivals) {
  std::vector<Bytes> stretches;
  Micros last{};
  for (const Arrival& arrival : arrivals) {
    if (arrival.bytes.empty()) continue;
    if (stretches.empty() || arrival.moment - last > kLongestSilence) stretches.emplace_back();
    stretches.back().insert(stretches.back().end(), arrival.bytes.begin(), arrival.bytes.end());
    last = arrival.moment;
  }
  return stretches;
}

// A read has 5 bytes, a write its value of 1 to 16 bytes more; 127 counts as a write.
std::size_t LengthBy(uint8_t command) { return command < 127 ? 5 : 6U + command % 16U; }

struct Cut {
  std::vector<Bytes> frames;
  std::vector<Bytes> rests;  // of the stretches that end within a frame
};

Cut CutUp(const std::vector<Bytes>& stretches) {
  Cut cut;
  for (const Bytes& stretch : stretches) {
    auto at = stretch.begin();
    while (at != stretch.end()) {
      const auto length = static_cast<std::ptrdiff_t>(LengthBy(*at));
      if (stretch.end() - at < length) break;
      cut.frames.emplace_back(at, at + length);
      at += length;
    }
    if (at != stretch.end()) cut.rests.emplace_back(at, stretch.end());
  }
  return cut;
}

bool SumIsRight(const Bytes& frame) {
  return (std::accumulate(frame.begin(), frame.end(), 0) - 2 * frame.back()) % 256 == 0;
}

void CheckFrame(const RequestReader::Frame& got, const Bytes& frame) {
  Require(got.bytes == frame, "a frame is cut by its first byte");
  Require(got.request.has_value() == SumIsRight(frame), "a request is taken for its checksum");
  if (!got.request) return;
  const Request& request = *got.request;
  const bool write = frame.size() > 5;
  Require(request.write == write, "a request is a write by its command");
  Require(std::equal(request.address.begin(), request.address.end(), frame.begin() + 1),
          "the address stands behind the command");
  Require(request.size == frame[0] % 16 + 1, "the size is the command's low nibble and 1");
  const Bytes value(frame.begin() + 4, frame.end() - 1);
  Require(request.value == value, "the value stands behind the address");
  Require(request.checksum == frame.back(), "the checksum is the last byte");
}

void CheckResynchronises(RequestReader& reader, Micros now) {
  const Bytes read = {1, 0, 18, 52, 71};
  now += kLongestSilence + milliseconds(1);
  reader.Expire(now);
  Require(!reader.Deadline(), "a silence ends every request");
  for (const uint8_t byte : read) {
    const auto frame = reader.Feed(byte, now);
    if (&byte == &read.back()) Require(frame && frame->request, "a request after a silence counts");
  }
}

void Run(Input input) {
  const std::vector<Arrival> arrivals = Arrivals(input);
  const Cut expected = CutUp(Stretches(arrivals));
  RequestReader reader;
  std::size_t frames = 0;
  std::size_t rests = 0;
  for (const Arrival& arrival : arrivals) {
    const Bytes dropped = reader.Expire(arrival.moment);
    if (!dropped.empty()) {
      Require(rests < expected.rests.size() && dropped == expected.rests[rests],
              "a silence drops what was broken off");
      ++rests;
    }
    for (const uint8_t byte : arrival.bytes) {
      const auto frame = reader.Feed(byte, arrival.moment);
      Require(reader.Deadline().has_value() != frame.has_value(), "a frame leaves nothing behind");
      if (!frame) continue;
      Require(frames < expected.frames.size(), "no more frames than the bytes make");
      CheckFrame(*frame, expected.frames[frames++]);
    }
  }
  Require(frames == expected.frames.size(), "no fewer frames than the bytes make");
  Require(rests + (reader.Deadline() ? 1 : 0) == expected.rests.size(),
          "each request that was broken off is dropped once");
  CheckResynchronises(reader, arrivals.empty() ? Micros{} : arrivals.back().moment);
}

}  // namespace
}  // namespace sorvane::simulator

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::simulator::Run({data, size});
  return 0;
}
