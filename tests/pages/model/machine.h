#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "board/reply.h"

namespace sorvane::test::model {

// A second account of what the table of parameters, the sweep over it and the board behind it do:
// the machine of the test fixture, with 419 records and no poll dividers, on a line without faults.
class Machine {
 public:
  struct Record {
    int size = 1;                     // bytes of the value
    std::array<uint8_t, 16> value{};  // least significant first
    int flags = 0;                    // 1 fresh, 2 polled, 4 watched, 128 to be written
    int watchers = 0;

    bool operator==(const Record&) const = default;
  };
  static constexpr int kRecords = 419;

  Machine();
  virtual ~Machine() = default;
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  // What the board holds.
  void SetBoard(int parameter, std::uint32_t value);
  void SetBoardText(int parameter, const std::string& text);

  // What a page does to the table; tests with another table put theirs in its place.
  virtual void Watch(int parameter);
  virtual void Unwatch(int parameter);
  virtual void Write(int parameter, std::int64_t value);
  void WritePair(int first, int second, std::int64_t value);
  virtual std::int64_t Read(int parameter) const;
  virtual bool IsFresh(int parameter) const;

  // Has a watched parameter asked for once more.
  void AskAgain(int parameter);

  // One step of the sweep, and the reply to what it sent.
  void Step();

  const Record& At(int parameter) const { return records_[Place(parameter)]; }

  // All frames since they were last cleared.
  std::vector<Bytes> frames;

  // A reply has landed: the parameter and its bytes.
  std::function<void(int, const Bytes&)> on_reply;

 private:
  static std::size_t Place(int parameter) { return static_cast<std::size_t>(parameter); }
  void Exchange(int parameter);

  std::array<Record, kRecords + 1> records_;
  std::map<int, Bytes> board_;
  int position_ = 0;
};

}  // namespace sorvane::test::model
