#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace sorvane::test::model {

using Bytes = std::vector<std::uint8_t>;

// A byte on its way from the board, and the number of the frame that it answers.
struct WireByte {
  std::uint8_t byte = 0;
  std::int64_t frame = 0;
};

// One line of an index file.
struct Row {
  std::array<std::uint8_t, 3> address{};  // in the order of the wire
  std::uint8_t command = 0;
  std::uint8_t divider = 0;
  std::array<std::uint8_t, 4> start{};
};

// What becomes of an exchange.
struct LinkEvent {
  enum class What { kSent, kAnswered, kDropped, kHandedBack, kRefilled };
  // What was taken for the answer: the one that the board gave to this very exchange, one that it
  // gave to another, or bytes of several.
  enum class Source { kOwn, kLate, kMixed };

  What what = What::kSent;
  int record = 0;
  bool write = false;
  Source source = Source::kOwn;
  std::int64_t asked = 0;  // when the exchange began
  Bytes value;             // what was sent, or what has been stored
};

// A second account of the PC's side: the table of parameters and what pages do to it, the exchange
// with its retries and timeouts, the walk over the table, and the connection. It has a time of its
// own, in milliseconds, and shares no code with the program. What can't happen throws
// std::logic_error.
class LinkModel {
 public:
  struct Record {
    std::array<std::uint8_t, 3> address{};  // in the order of the wire
    std::uint8_t command = 0;
    int wait = 0;    // passes still to wait
    int reload = 0;  // passes to wait after each exchange
    int watchers = 0;
    bool fresh = false;
    bool polled = false;
    bool watched = false;
    bool to_write = false;
    std::array<std::uint8_t, 16> value{};

    std::size_t Length() const { return command % 16U + 1U; }
    // As it stands in the program's table.
    std::array<std::uint8_t, 23> InTable() const;
  };
  struct Notice {
    int parameter = 0;
    Bytes value;
    bool operator==(const Notice&) const = default;
  };
  enum class Stage { kOff, kOpening, kAsking, kBox, kLoading, kStanding };

  // The rows of the first-level file, and of each second-level one by the two digits of its name.
  LinkModel(std::vector<Row> system, std::map<int, std::vector<Row>> files);

  // A frame that was put out, with its number, and whether a cable carries it.
  std::function<void(const Bytes& frame, std::int64_t number, bool carried)> on_frame;
  std::function<void()> on_closed;  // the open port was closed
  std::function<void(const Notice&)> on_notice;
  std::function<void(const LinkEvent&)> on_event;

  // The load of file 00 at the program's start, which counts as a board.
  void LoadAtStart();

  // The connection.
  void Connect();
  void Disconnect();
  void Answer(bool retry);
  Stage At() const { return stage_; }
  const std::string& Box() const { return box_; }
  int Loaded() const { return loaded_; }  // how often a connection came to its end
  int Ended() const { return ended_; }    // how often the program was ended

  // The line.
  void Take(const std::vector<WireByte>& bytes);
  void PullCable();
  void PlugCable() { cable_ = true; }
  // Another program holds the port, so that it can't be opened; an open one stays as it is.
  void HoldPort(bool held) { held_ = held; }
  bool IsPortOpen() const { return open_; }
  bool IsPortDead() const { return dead_; }

  // Time. Everything due up to the moment happens, in the order of moments, and what is due at the
  // same moment in the order in which it was set.
  std::optional<std::int64_t> NextMoment() const;
  void PassTo(std::int64_t moment);
  std::int64_t Now() const { return now_; }

  // The pages.
  void Watch(int parameter);
  void Unwatch(int parameter);
  void Write(int parameter, std::uint32_t number);
  void WriteText(int parameter, const std::string& text);
  std::uint64_t Read(int parameter) const;
  const Record& Of(int parameter) const { return records_[Place(parameter)]; }

  int Count() const { return static_cast<int>(records_.size()) - 2; }  // of the largest file
  int WalkEnd() const { return count_; }  // the first record that the walk doesn't reach
  int Position() const { return position_; }
  int Passes() const { return passes_; }
  bool Idle() const { return idle_; }
  // A frame is out and its second isn't over.
  bool Waits() const { return clocks_[kPatience].on; }
  // Bytes of the value in the exchange.
  std::size_t ValueLength() const { return length_; }
  // Bytes that wait in the PC for more to come.
  std::size_t LeftOver() const { return arrived_.size(); }
  int BadAnswers() const { return bad_answers_; }
  // Panels 2 to 4 of the status bar.
  const std::array<int, 3>& Lamps() const { return lamps_; }

 private:
  enum Clock { kTick, kPatience, kSendLamp, kReplyLamp, kAskLimit, kNext, kClocks };
  struct Setting {
    bool on = false;
    std::int64_t due = 0;
    std::int64_t order = 0;
  };

  void Set(Clock clock);
  void SetAnew(Clock clock);
  void Ring(Clock clock);
  // The last place stands for all behind the largest file: the walk can stand there, when it was
  // far as a smaller file came, and answers that nobody asked for take it further.
  std::size_t Place(int parameter) const {
    return std::min(static_cast<std::size_t>(parameter), records_.size() - 1);
  }
  Record& Ref(int parameter) { return records_[Place(parameter)]; }

  void Put();  // the frame of the exchange
  void Begin(int record, const Row& place, bool write, Bytes value);
  void Walk();
  LinkEvent::Source SourceOfArrived() const;
  void Settle(LinkEvent::Source source);
  void LosePatience();
  void NextStep();
  void Ask();
  void TakeAnswer();
  void OpenPort();
  void ClosePort();
  void ShowPortError();
  void ShowAndEnd(const std::string& text);
  void Decide();
  void LoadTable();
  void FillTable(const std::vector<Row>& rows);
  void Light(int lamp);
  void Tell(LinkEvent::What what, LinkEvent::Source source, const Bytes& value) const;

  const std::vector<Row> system_;
  const std::map<int, std::vector<Row>> files_;
  std::vector<Record> records_;  // by number; there is none at 0, nor at the last place
  std::array<Setting, kClocks> clocks_;
  std::int64_t now_ = 0;
  std::int64_t settings_ = 0;

  // The exchange.
  std::array<std::uint8_t, 4> head_{};  // command and address
  std::uint8_t sum_ = 0;
  bool idle_ = false;
  bool under_way_ = false;
  std::size_t length_ = 1;  // bytes of the value
  Bytes sent_;              // of the value
  Bytes answer_;
  int bad_answers_ = 0;
  int exchange_record_ = 0;
  std::int64_t first_frame_ = 0;
  std::int64_t asked_ = 0;
  std::int64_t frames_ = 0;

  // The port.
  bool cable_ = true;
  bool held_ = false;
  bool open_ = false;
  bool dead_ = false;  // the cable was pulled since it was opened
  std::vector<WireByte> arrived_;

  Stage stage_ = Stage::kOff;
  bool identifying_ = false;
  bool limit_over_ = false;
  bool board_seen_ = false;
  bool box_ends_ = false;
  std::string box_;
  int question_ = 0;
  std::array<int, 7> answers_{};
  int loaded_ = 0;
  int ended_ = 0;

  int position_ = 0;
  int passes_ = 0;
  int count_ = 0;  // records of the table that was loaded last
  std::array<int, 3> lamps_ = {1, 2, 3};
};

}  // namespace sorvane::test::model
