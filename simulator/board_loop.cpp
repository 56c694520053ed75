#include "simulator/board_loop.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <iostream>
#include <string_view>
#include <system_error>

namespace sorvane::simulator {
namespace {

using std::chrono::seconds;

void Print(std::string_view line) { std::cout << line << std::endl; }

void PrintIfAny(std::string_view line) {
  if (!line.empty()) Print(line);
}

DateTime PcTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

// A descriptor that becomes readable when one of the signals that end the program comes.
int WatchSignals() {
  sigset_t ends;
  sigemptyset(&ends);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ends, signal);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  // A reader of the output that goes away must not take the board with it, and a board in the
  // background of a shell finds its input at an end instead of being stopped.
  signal(SIGPIPE, SIG_IGN);
  signal(SIGTTIN, SIG_IGN);
  const int number = signalfd(-1, &ends, SFD_CLOEXEC);
  if (number < 0) throw std::system_error(errno, std::generic_category(), "signals");
  return number;
}

}  // namespace

BoardLoop::BoardLoop(const Options& options)
    : start_(std::chrono::steady_clock::now()),
      quiet_(options.quiet),
      board_(options.index_folder, options.identity, PcTime()),
      line_(board_),
      console_(board_, line_),
      link_(options.link) {
  if (options.snapshot) LayDown(*options.snapshot, board_);
  line_.SetBaud(options.baud);
  board_.FaultState().Set(options.fault);
}

BoardLoop::~BoardLoop() { PrintIfAny(link_.GiveBack()); }

Micros BoardLoop::Now() const {
  return std::chrono::duration_cast<Micros>(std::chrono::steady_clock::now() - start_);
}

void BoardLoop::Run() {
  const Descriptor signals(WatchSignals());
  FollowPlug();
  while (!ended_ && !console_.Quit()) {
    Wait(signals.Number());
    PassTime();
    if (input_ready_) ReadCommands();
    MoveBytes();
  }
}

void BoardLoop::Wait(int signals) {
  // The clock needs a look once a second, the line whenever a byte arrives.
  const Micros now = Now();
  Micros until = now + seconds(1);
  if (const auto event = line_.NextEvent()) until = std::clamp(*event, now, until);
  const Micros span = until - now;
  const timespec timeout{static_cast<time_t>(span / seconds(1)),
                         static_cast<long>((span % seconds(1)).count() * 1000)};

  std::array<pollfd, 3> watched = {{
      {signals, POLLIN, 0},
      {input_open_ ? STDIN_FILENO : -1, POLLIN, 0},
      {terminal_ ? terminal_->Number() : -1, POLLIN, 0},
  }};
  if (ppoll(watched.data(), watched.size(), &timeout, nullptr) <= 0) watched = {};
  ended_ = watched[0].revents != 0;
  input_ready_ = watched[1].revents != 0;
}

void BoardLoop::ReadCommands() {
  std::array<char, 4096> piece{};
  const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
  if (count < 0 && errno == EINTR) return;
  if (count <= 0) {
    input_open_ = false;
    ObeyLine(input_.TakeRest());
    return;
  }
  for (const std::string& line : input_.Feed({piece.data(), static_cast<std::size_t>(count)})) {
    if (!console_.Quit()) ObeyLine(line);
  }
}

void BoardLoop::ObeyLine(const std::string& line) {
  PrintIfAny(console_.Obey(line));
  FollowPlug();
}

void BoardLoop::FollowPlug() {
  const bool plugged = board_.FaultState().Current().fault != Fault::kUnplugged;
  if (linked_ && plugged == terminal_.has_value()) return;
  linked_ = true;
  if (plugged) {
    terminal_.emplace();
    const std::string replaced = link_.PointTo(terminal_->Path());
    Print("line " + link_.Path().string() + " leads to " + terminal_->Path().string());
    PrintIfAny(replaced);
  } else {
    const std::string replaced = link_.PointNowhere();
    terminal_.reset();
    line_.Clear();
    Print("line " + link_.Path().string() + " is unplugged");
    PrintIfAny(replaced);
  }
}

void BoardLoop::MoveBytes() {
  if (!terminal_) return;
  const Bytes received = terminal_->Read();
  const Micros now = Now();
  line_.Receive(received, now);
  for (const std::string& line : line_.Serve(now)) {
    if (!quiet_) Print(line);
  }
  const Bytes sent = line_.TakeSent(now);
  if (!sent.empty()) terminal_->Write(sent);
}

void BoardLoop::PassTime() {
  const auto passed = std::chrono::duration_cast<seconds>(Now());
  board_.PassSeconds((passed - passed_).count());
  passed_ = passed;
}

}  // namespace sorvane::simulator
