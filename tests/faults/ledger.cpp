#include "faults/ledger.h"

namespace sorvane::test::faults {
namespace {

// The names in docs/faults.md.
constexpr std::array<const char*, static_cast<std::size_t>(Way::kWays)> kNames = {
    "The board changes a value by itself",
    "A write is under way",
    "A late answer is taken for another",
    "Left-over bytes come before an answer",
    "Five bad answers",
    "No answer",
    "An exchange is under way",
    "A late answer comes before the write",
    "A late answer is taken for an acknowledgement",
    "The page is closed",
    "The last record",
    "Typed over",
    "The bytes of an answer are written",
};

}  // namespace

const char* NameOf(Way way) { return kNames.at(static_cast<std::size_t>(way)); }

void Ledger::Fault(int parameter, const std::string& words) {
  faults_.push_back("parameter " + std::to_string(parameter) + " at " +
                    std::to_string(link_.Now()) + " ms: " + words);
}

void Ledger::Check(int parameter) {
  const Account& account = Of(parameter);
  if (!account.shown || *account.shown == account.held) return;
  if (account.differs) return;
  Fault(parameter, "what is shown differs from what the board holds, and no rule says why");
}

void Ledger::Held(int parameter, const Bytes& value) { Of(parameter).held = value; }

void Ledger::Changed(int parameter, const Bytes& value) {
  Change(parameter, value, Way::kChangedByItself);
}

void Ledger::Obeyed(int parameter, const Bytes& value) {
  Account& account = Of(parameter);
  Change(parameter, value, Way::kWriteUnderWay);
  if (account.sent && account.typed == value) account.open = false;
}

void Ledger::Change(int parameter, const Bytes& value, Way way) {
  Account& account = Of(parameter);
  account.held = value;
  account.changed = way;
  account.changed_at = link_.Now();
  if (account.shown && *account.shown != value) {
    account.differs = way;
    Go(way);
  }
}

void Ledger::Typed(int parameter) {
  Account& account = Of(parameter);
  const LinkModel::Record& record = link_.Of(parameter);
  if (account.open) Go(account.given_up ? *account.given_up : Way::kTypedOver);
  account.typed.assign(record.value.begin(),
                       record.value.begin() + static_cast<std::ptrdiff_t>(record.Length()));
  account.open = true;
  account.sent = account.overwritten = false;
  account.given_up.reset();
}

void Ledger::Left(int parameter) {
  Account& account = Of(parameter);
  if (link_.Of(parameter).watched) return;
  account.shown.reset();
  account.differs.reset();
}

void Ledger::Take(const LinkEvent& event) {
  Account& account = Of(event.record);
  switch (event.what) {
    case LinkEvent::What::kRefilled:
      for (Account& each : accounts_) {
        Account anew;
        anew.held = each.held;
        each = anew;
      }
      return;
    case LinkEvent::What::kSent:
      if (!event.write) return;
      if (account.overwritten) {
        if (event.value != account.typed) Go(Way::kBytesOfAnAnswer);
      } else if (event.value != account.typed) {
        Fault(event.record, "a value goes out that nobody typed");
      } else {
        account.sent = true;
      }
      account.overwritten = false;
      return;
    case LinkEvent::What::kAnswered:
      TakeAnswer(event);
      return;
    case LinkEvent::What::kDropped:
    case LinkEvent::What::kHandedBack:
      if (event.write && account.open && account.sent && !account.given_up) {
        account.given_up =
            event.what == LinkEvent::What::kDropped ? Way::kFiveBadAnswers : Way::kNoAnswer;
      }
      return;
  }
}

void Ledger::TakeAnswer(const LinkEvent& event) {
  Account& account = Of(event.record);
  const bool own = event.source == LinkEvent::Source::kOwn;
  const bool waits = link_.Of(event.record).to_write;
  if (waits) {
    account.overwritten = true;
    if (account.open && !account.given_up) {
      account.given_up = own ? Way::kExchangeUnderWay : Way::kOverwrittenByLateAnswer;
    }
  } else if (event.write && account.open && account.sent && !account.given_up) {
    // The board has not obeyed it, yet an acknowledgement came.
    if (own) Fault(event.record, "a write was acknowledged that the board never took");
    account.given_up = Way::kLateAcknowledgement;
  }
  account.shown = event.value;
  account.differs.reset();
  if (event.value != account.held) {
    if (!own) {
      const bool late = event.source == LinkEvent::Source::kLate;
      account.differs = late ? Way::kLateAnswer : Way::kLeftOverBytes;
      Go(*account.differs);
    } else if (account.changed_at >= event.asked) {
      account.differs = account.changed;
      Go(account.changed);
    }
  }
  Check(event.record);
}

void Ledger::Close() {
  for (int i = 1; i < static_cast<int>(accounts_.size()); ++i) {
    Account& account = Of(i);
    if (!account.open) continue;
    const LinkModel::Record& record = link_.Of(i);
    if (i == link_.Count()) {
      Go(Way::kLastRecord);
    } else if (account.given_up) {
      Go(*account.given_up);
    } else if (record.to_write && !record.polled) {
      Go(Way::kPageClosed);
    } else {
      Fault(i, "a typed value never reached the board, and no rule says why");
    }
    account.open = false;
  }
}

}  // namespace sorvane::test::faults
