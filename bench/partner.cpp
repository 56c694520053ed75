#include "bench/partner.h"

#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace sorvane::bench {
namespace {

constexpr int kLookForEnd = 50;  // milliseconds

}  // namespace

Partner::Partner(std::size_t request_size, std::function<Bytes(const Bytes&)> answer)
    : request_size_(request_size), answer_(std::move(answer)) {
  termios raw{};
  cfmakeraw(&raw);
  std::array<char, 64> name{};
  if (openpty(&board_, &held_, name.data(), &raw, nullptr) != 0) {
    throw std::runtime_error("no pseudo-terminal");
  }
  device_ = name.data();
  thread_ = std::jthread([this](const std::stop_token& stop) { Serve(stop); });
}

Partner::~Partner() {
  thread_.request_stop();
  thread_.join();
  close(board_);
  close(held_);
}

void Partner::Serve(const std::stop_token& stop) const {
  Bytes request;
  while (!stop.stop_requested()) {
    pollfd line{board_, POLLIN, 0};
    if (poll(&line, 1, kLookForEnd) != 1) continue;
    std::array<uint8_t, 64> piece{};
    const ssize_t count = read(board_, piece.data(), piece.size());
    if (count <= 0) return;
    request.insert(request.end(), piece.begin(), piece.begin() + count);
    if (request.size() < request_size_) continue;
    const Bytes reply = answer_(request);
    request.clear();
    // A reply that is lost shows at the other end.
    if (write(board_, reply.data(), reply.size()) < 0) return;
  }
}

}  // namespace sorvane::bench
