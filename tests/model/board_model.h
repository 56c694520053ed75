#pragma once

#include <deque>
#include <map>

#include "model/link_model.h"

namespace sorvane::test::model {

// What a board that holds a value answers to a frame for it: the value and its sum to a read, twice
// the frame's sum to a write.
Bytes AnswerTo(const Bytes& frame, const Bytes& held);

// What is wrong with the board or its cable, by the name that a person types.
struct Trouble {
  std::string name = "none";
  int count = 0;  // of requests that it hits; 0: without end
};

// A second account of the board at the other end of the line: what it holds under each address, the
// time that bytes take on the wire, and what each trouble does to an answer.
class BoardModel {
 public:
  static constexpr int kByteTime = 2;  // ms, at 5000 bits a second

  // Writes of 0 to this address are what "refuses day 0" refuses.
  explicit BoardModel(std::array<std::uint8_t, 3> day) : day_(day) {}

  // Gives the board a parameter.
  void Hold(const std::array<std::uint8_t, 3>& address, const Bytes& value) {
    memory_[address] = value;
  }
  const Bytes& Held(const std::array<std::uint8_t, 3>& address) const {
    return memory_.at(address);
  }

  // A new trouble takes the place of the old. With "unplugged" all that is under way is lost.
  void Suffer(const Trouble& trouble);
  const Trouble& Suffers() const { return trouble_; }

  // A frame is put on the wire.
  void Receive(const Bytes& frame, std::int64_t number, std::int64_t now);

  // When a request or a byte of an answer arrives next.
  std::optional<std::int64_t> NextMoment() const;
  // Obeys what has arrived, and returns the bytes that have reached the PC.
  std::vector<WireByte> PassTo(std::int64_t now);

  // The board has obeyed a write.
  std::function<void(const std::array<std::uint8_t, 3>& address, const Bytes& value)> on_obeyed;

  // Nothing is on its way.
  bool Quiet() const { return requests_.empty() && answers_.empty(); }

 private:
  struct Request {
    std::int64_t moment;
    std::int64_t number;
    Bytes frame;
  };
  struct Answer {
    std::int64_t moment;
    WireByte byte;
  };

  void Serve(const Request& request);

  const std::array<std::uint8_t, 3> day_;
  std::map<std::array<std::uint8_t, 3>, Bytes> memory_;
  Trouble trouble_;
  std::deque<Request> requests_;
  std::deque<Answer> answers_;
  std::int64_t last_request_ = 0;
  std::int64_t last_answer_ = 0;
};

}  // namespace sorvane::test::model
