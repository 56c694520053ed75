#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace sorvane::fuzz {

// Ends the run if a property doesn't hold; libFuzzer then keeps the input.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", property);
  std::abort();
}

// Takes an input apart from its front. Behind its end there are zeros.
class Input {
 public:
  Input(const uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  bool Empty() const { return left_ == 0; }

  uint8_t Byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }

  // Least significant byte first.
  uint16_t Word() {
    const unsigned low = Byte();
    return static_cast<uint16_t>(low + 256U * Byte());
  }

  // The next bytes, fewer at the end.
  std::vector<uint8_t> Take(std::size_t most) {
    const std::size_t count = std::min(most, left_);
    std::vector<uint8_t> bytes(data_, data_ + count);
    data_ += count;
    left_ -= count;
    return bytes;
  }

  std::string TakeText(std::size_t most) {
    const std::vector<uint8_t> bytes = Take(most);
    return {bytes.begin(), bytes.end()};
  }

  std::string Rest() { return TakeText(left_); }

 private:
  const uint8_t* data_;
  std::size_t left_;
};

}  // namespace sorvane::fuzz
