#pragma once

#include "model/link_model.h"

namespace sorvane::test::faults {

using model::Bytes;
using model::LinkEvent;
using model::LinkModel;

// All ways in which what is shown can differ from what the board holds, in which a typed value can
// be lost, and in which the board can come to hold what nobody typed. There is no other: the ledger
// finds a fault in whatever none of them explains. docs/faults.md tells of each under this name.
enum class Way {
  kChangedByItself,
  kWriteUnderWay,
  kLateAnswer,
  kLeftOverBytes,
  kFiveBadAnswers,
  kNoAnswer,
  kExchangeUnderWay,
  kOverwrittenByLateAnswer,
  kLateAcknowledgement,
  kPageClosed,
  kLastRecord,
  kTypedOver,
  kBytesOfAnAnswer,
  kWays,
};
const char* NameOf(Way way);

// Keeps account of every typed value and every shown one.
class Ledger {
 public:
  explicit Ledger(const LinkModel& link) : link_(link), accounts_(Places()) {}

  // What happens.
  void Held(int parameter, const Bytes& value);     // the board's value at the start
  void Changed(int parameter, const Bytes& value);  // by the board itself
  void Obeyed(int parameter, const Bytes& value);   // by a write
  void Typed(int parameter);                        // the record has just been written
  void Left(int parameter);                         // a page has given the parameter back
  void Take(const LinkEvent& event);

  // Says what has become of each typed value that didn't reach the board. The line must be quiet.
  void Close();

  // Whatever no way explains, in words.
  const std::vector<std::string>& Faults() const { return faults_; }
  // How often each way was gone.
  const std::array<std::int64_t, static_cast<std::size_t>(Way::kWays)>& Seen() const {
    return seen_;
  }

 private:
  struct Account {
    Bytes held;
    std::optional<Bytes> shown;
    std::optional<Way> differs;  // why the shown value may differ from the held one
    Way changed = Way::kChangedByItself;
    std::int64_t changed_at = -1;

    Bytes typed;
    bool open = false;  // typed and not obeyed yet
    bool sent = false;
    bool overwritten = false;     // by an answer, before it went out
    std::optional<Way> given_up;  // why nothing is done for it any more
  };

  std::size_t Places() const { return static_cast<std::size_t>(link_.Count()) + 1; }
  Account& Of(int parameter) { return accounts_[static_cast<std::size_t>(parameter)]; }
  void Change(int parameter, const Bytes& value, Way way);
  void TakeAnswer(const LinkEvent& event);
  void Check(int parameter);
  void Go(Way way) { ++seen_[static_cast<std::size_t>(way)]; }
  void Fault(int parameter, const std::string& words);

  const LinkModel& link_;
  std::vector<Account> accounts_;
  std::vector<std::string> faults_;
  std::array<std::int64_t, static_cast<std::size_t>(Way::kWays)> seen_{};
};

}  // namespace sorvane::test::faults
