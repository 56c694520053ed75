#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/value_text.h"
#include "simulator/serial_line.h"
#include "simulator/simulated_board.h"
#include "support/index_files.h"
#include "support/memory_port.h"

// A snapshot of all settings is put back onto a machine all of whose settings differ, with each
// fault of the simulated board at each frame, and with an end of the program at each frame.
namespace sorvane::test {
namespace {

using simulator::Micros;
using testing::IsEmpty;

constexpr int kBaud = 19200;
constexpr uint8_t kFirstWrite = 128;

// Thrown in the middle of an exchange, in place of a program that is killed there.
struct Killed {};

// What a command line ended with and said.
struct Outcome {
  int code = 0;
  std::set<std::string> confirmed;
  std::set<std::string> unsure;
  std::set<std::string> unsent;
};

class Bench {
 public:
  Bench() : board_(index_.Path(), {}, {.year = 2026, .month = 3, .day = 5}), line_(board_) {
    line_.SetBaud(kBaud);
    wire_.SetCommPort(1);
    wire_.on_output = [this](const Bytes& frame) {
      answered_ = 0;
      ++frames_;
      if (first_write_ == 0 && frame.front() >= kFirstWrite) first_write_ = frames_;
      if (before_frame) before_frame(frames_);
      line_.Receive(frame, now_);
      if (behind_frame) behind_frame(frames_);
    };
  }

  Outcome Type(const std::vector<std::string>& arguments) {
    std::vector<const char*> argv = {"sorvane-cli"};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    Outcome outcome;
    const auto request =
        cli::ReadRequest(static_cast<int>(argv.size()), argv.data(), "test", outcome.code);
    frames_ = 0;
    first_write_ = 0;
    const cli::Surroundings around{
        .port = wire_,
        .wait = [this](auto limit, const auto& done) { return Wait(limit, done); },
        .now = [] { return QDateTime(QDate(2026, 11, 22), QTime(14, 30), Qt::UTC); },
        .utc_now = [] { return std::chrono::sys_seconds(); },
        .interrupted = [] { return false; },
        .list_ports = {},
        .port_trouble = [] { return std::string(); },
        .port_name = "COM1",
        .index_folder = index_.Path(),
        .copies_folder = data_.Path(),
        .program = "test"};
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    cli::Console console({.in = in, .out = out, .err = err}, true);
    outcome.code = static_cast<int>(cli::RunCommand({*request, around, catalogue, console}));
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) Sort(line, outcome);
    return outcome;
  }

  std::string Copy() const { return (data_.Path() / "copy.json").string(); }

  // The cable, and all else that can be wrong.
  void Fault(const std::string& words) {
    const simulator::FaultOrder order = simulator::ParseFault(words);
    board_.FaultState().Set(order);
    if (order.fault == simulator::Fault::kUnplugged) {
      wire_.Vanish();
      line_.Clear();
    } else {
      wire_.ComeBack();
    }
  }

  const Bytes& Held(int32_t number) const {
    return board_.Contents().Value(simulator::Parameter(number));
  }
  void Hold(int32_t number, const Bytes& raw) {
    board_.Contents().SetValue(simulator::Parameter(number), raw);
  }
  // Nothing is on its way any more.
  void Settle() {
    line_.Clear();
    now_ += std::chrono::seconds(5);
  }

  std::function<void(int frame)> before_frame;  // goes out
  std::function<void(int frame)> behind_frame;  // has reached the wire
  std::function<void(int frame)> first_answer;  // a byte of the answer has come

  const Catalogue catalogue;
  int frames_ = 0;
  int first_write_ = 0;  // its frame; 0 while there was none

 private:
  bool Wait(std::chrono::milliseconds limit, const std::function<bool()>& done) {
    const Micros end = now_ + limit;
    while (!done()) {
      const auto next = line_.NextEvent();
      if (!next || *next > end) {
        now_ = end;
        break;
      }
      now_ = std::max(now_, *next);
      line_.Serve(now_);
      const Bytes bytes = line_.TakeSent(now_);
      if (bytes.empty()) continue;
      if (++answered_ == 1 && first_answer) first_answer(frames_);
      wire_.Deliver(bytes);
    }
    return done();
  }

  static void Sort(const std::string& line, Outcome& outcome) {
    const std::size_t blank = line.find(' ');
    const std::string state = line.substr(0, blank);
    const std::string name = line.substr(blank + 1, line.find(':') - blank - 1);
    std::set<std::string>* names = state == "confirmed" ? &outcome.confirmed
                                   : state == "unsure"  ? &outcome.unsure
                                   : state == "unsent"  ? &outcome.unsent
                                                        : nullptr;
    if (names == nullptr) return;  // a line of the plan
    EXPECT_TRUE(names->insert(name).second) << line;
  }

  struct SampleIndex : TempFolder {
    SampleIndex() {
      WriteFile("W0309.inx", FirstLevelBytes(SystemRows()));
      WriteFile("W0309AA00.inx", SecondLevelBytes(MachineRows()));
    }
  };

  SampleIndex index_;
  TempFolder data_;
  simulator::SimulatedBoard board_;
  simulator::SerialLine line_;
  MemoryPort wire_;
  Micros now_{0};
  int answered_ = 0;
};

// A machine whose settings all differ from a copy of them.
class Proof : public testing::Test {
 protected:
  Proof() {
    for (const CatalogueEntry& entry : bench_.catalogue.Entries()) {
      if (IsRestored(entry)) LayDown(entry, entry.highest);
    }
    EXPECT_EQ(bench_.Type({"backup", "--password", bench_.Copy()}).code, 0);
    for (const CatalogueEntry& entry : bench_.catalogue.Entries()) {
      if (!IsRestored(entry)) continue;
      new_[entry.name] = bench_.Held(entry.number);
      LayDown(entry, entry.lowest);
      old_[entry.name] = bench_.Held(entry.number);
    }
    // The frames of an undisturbed restore.
    EXPECT_EQ(Restore().code, 0);
    all_frames_ = bench_.frames_;
    first_write_ = bench_.first_write_;
    EXPECT_THAT(Wrong(Outcome(), true), IsEmpty());
  }

  static bool IsRestored(const CatalogueEntry& entry) {
    return entry.role == Role::kSetting || entry.role == Role::kSecret;
  }

  void LayDown(const CatalogueEntry& entry, uint32_t number) {
    const auto size = static_cast<int>(bench_.Held(entry.number).size());
    bench_.Hold(entry.number, cli::BytesOf(number, size));
    if (entry.mirror != 0) bench_.Hold(entry.mirror, cli::BytesOf(number, size));
  }

  void MakeOld() {
    for (const CatalogueEntry& entry : bench_.catalogue.Entries()) {
      if (IsRestored(entry)) LayDown(entry, entry.lowest);
    }
  }

  Outcome Restore() { return bench_.Type({"restore", bench_.Copy(), "--yes", "--quiet"}); }

  // The frames to play a fault at: each from the first write on, and some of those that only read.
  std::vector<int> Frames() const {
    constexpr int kReadingStride = 16;
    std::vector<int> frames;
    for (int frame = 1; frame < first_write_; frame += kReadingStride) frames.push_back(frame);
    for (int frame = first_write_ - 1; frame <= all_frames_; frame += PROOF_STRIDE) {
      frames.push_back(frame);
    }
    return frames;
  }

  // What isn't as the report says, or neither old nor new; all: what isn't new.
  std::string Wrong(const Outcome& outcome, bool all) const {
    std::string words;
    for (const CatalogueEntry& entry : bench_.catalogue.Entries()) {
      if (!IsRestored(entry)) continue;
      const std::string& name = entry.name;
      const Bytes& is_new = new_.at(name);
      const Bytes& is_old = old_.at(name);
      const Bytes& held = bench_.Held(entry.number);
      const Bytes& copy = entry.mirror == 0 ? held : bench_.Held(entry.mirror);
      const bool both_new = held == is_new && copy == is_new;
      const bool both_old = held == is_old && copy == is_old;
      const bool known = (held == is_new || held == is_old) && (copy == is_new || copy == is_old);
      if (!known) words += ' ' + name + " is neither old nor new;";
      if (all && !both_new) words += ' ' + name + " isn't restored;";
      if (outcome.confirmed.contains(name) && !both_new) words += ' ' + name + " is confirmed;";
      if (outcome.unsent.contains(name) && !both_old) words += ' ' + name + " is unsent;";
      const bool told = outcome.confirmed.contains(name) || outcome.unsure.contains(name) ||
                        outcome.unsent.contains(name);
      if (!told && !both_old && !all) words += ' ' + name + " is written and not told of;";
    }
    return words;
  }

  // Afterwards the rest is restored, and then nothing is left to do.
  void Complete(const std::string& what) {
    bench_.before_frame = nullptr;
    bench_.behind_frame = nullptr;
    bench_.first_answer = nullptr;
    bench_.Fault("none");
    bench_.Settle();
    EXPECT_EQ(Restore().code, 0) << what;
    EXPECT_EQ(Wrong({}, true), "") << what;
  }

  void Play(const std::string& fault, int frame) {
    const std::string what = fault + " at frame " + std::to_string(frame);
    MakeOld();
    bench_.before_frame = [&](int at) {
      if (at == frame) bench_.Fault(fault);
    };
    const Outcome outcome = Restore();
    EXPECT_EQ(Wrong(outcome, false), "") << what;
    if (outcome.code == 0) {
      EXPECT_EQ(Wrong(outcome, true), "") << what;
    }
    EXPECT_TRUE(outcome.code == 0 || outcome.code == 3 || outcome.code == 5) << what;
    if (outcome.code == 5) {
      EXPECT_FALSE(outcome.unsure.empty()) << what;
      EXPECT_EQ(outcome.confirmed.size() + outcome.unsure.size() + outcome.unsent.size(),
                new_.size())
          << what;
    }
    Complete(what);
  }

  Bench bench_;
  std::map<std::string, Bytes> old_;
  std::map<std::string, Bytes> new_;
  int all_frames_ = 0;
  int first_write_ = 0;
};

class ProofWithFault : public Proof, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(, ProofWithFault,
                         testing::Values("silent once", "silent 3", "wrong checksum",
                                         "short reply once", "extra byte once", "extra byte",
                                         "slow", "late reply once", "late reply", "refuses day 0",
                                         "unplugged"),
                         [](const auto& played) {
                           std::string name = played.param;
                           for (char& c : name) c = c == ' ' ? '_' : c;
                           return name;
                         });

TEST_P(ProofWithFault, BeforeAnyFrameLeavesOldOrNewAndTheTruth) {
  for (const int frame : Frames()) Play(GetParam(), frame);
}

TEST_F(Proof, ACablePulledWithinAnyAnswerLeavesOldOrNewAndTheTruth) {
  for (const int frame : Frames()) {
    MakeOld();
    bench_.first_answer = [&](int at) {
      if (at == frame) bench_.Fault("unplugged");
    };
    const Outcome outcome = Restore();
    EXPECT_EQ(Wrong(outcome, false), "") << frame;
    EXPECT_NE(outcome.code, 0) << frame;
    Complete(std::to_string(frame));
  }
}

TEST_F(Proof, AProgramKilledAtAnyFrameLeavesOldOrNew) {
  for (const bool behind : {false, true}) {
    for (const int frame : Frames()) {
      MakeOld();
      auto& moment = behind ? bench_.behind_frame : bench_.before_frame;
      moment = [&](int at) {
        if (at == frame) throw Killed();
      };
      EXPECT_THROW(Restore(), Killed) << frame;
      Complete(std::to_string(frame));
    }
  }
}

TEST_F(Proof, ASecondRestoreSendsNothing) {
  EXPECT_EQ(Restore().code, 0);
  EXPECT_LT(bench_.frames_, all_frames_ / 2);
}

}  // namespace
}  // namespace sorvane::test
