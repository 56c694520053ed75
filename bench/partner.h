#pragma once

#include <filesystem>
#include <functional>
#include <thread>

#include "board/reply.h"

namespace sorvane::bench {

// The other end of a pseudo-terminal: a thread that answers each request of a fixed size at once,
// in one piece.
class Partner {
 public:
  Partner(std::size_t request_size, std::function<Bytes(const Bytes&)> answer);
  ~Partner();
  Partner(const Partner&) = delete;
  Partner& operator=(const Partner&) = delete;

  const std::filesystem::path& Device() const { return device_; }

 private:
  void Serve(const std::stop_token& stop) const;

  std::size_t request_size_;
  std::function<Bytes(const Bytes&)> answer_;
  int board_ = -1;
  int held_ = -1;  // keeps the line up while no program has it open
  std::filesystem::path device_;
  std::jthread thread_;
};

}  // namespace sorvane::bench
