#include "cli/audit_data.h"

#include <algorithm>

#include "board/parameter.h"
#include "cli/failure.h"

namespace sorvane::cli {
namespace {

constexpr std::size_t kNumberBytes = 4;
constexpr int kMostDecimals = 4;

// Those that count up only until somebody resets them; of all others it isn't known.
constexpr std::string_view kResettable = ".resettable";

std::optional<uint32_t> NumberIn(const Snapshot& snapshot, int32_t number) {
  const HeldValue* held = snapshot.Find(number);
  if (held == nullptr || held->raw.size() > kNumberBytes) return std::nullopt;
  return NumberOf(held->raw);
}

std::optional<QDateTime> TimeOf(const std::string& text, const QTimeZone& zone) {
  const QDateTime time = QDateTime::fromString(QString::fromStdString(text), Qt::ISODate);
  return time.isValid() ? std::optional(time.toTimeZone(zone)) : std::nullopt;
}

void CheckMachine(const Snapshot& snapshot, const Snapshot& since) {
  if (snapshot.machine == since.machine) return;
  throw Failure(ExitCode::kWrongBoard, "the earlier snapshot is of machine " +
                                           std::to_string(since.machine) + ", and not of machine " +
                                           std::to_string(snapshot.machine));
}

class Gatherer {
 public:
  Gatherer(const Snapshot& snapshot, const Snapshot* since, const Catalogue& catalogue)
      : snapshot_(snapshot), since_(since), catalogue_(catalogue) {}

  void FillIn(AuditData& data) const {
    for (const char* name : {"takings", "vends", "discounts", "key-discounts"}) {
      const std::string total = name;
      data.totals.push_back({Count(total + ".total"), Count(total + std::string(kResettable))});
    }
    for (int n = 1; n <= parameter::kSelectionRows; ++n) AddSelection(n, data);
    for (int n = 1; n <= parameter::kChannels; ++n) {
      data.coins.push_back({n, Setting("coin", n), Count(Numbered("coins-taken", n))});
      data.banknotes.push_back({n, Accepted(n), Count(Numbered("banknotes-taken", n))});
    }
    for (const char* name : {"overpaid", "power-ons", "motor-resets", "visits"}) {
      data.others.push_back(Count(name));
    }
    AddSettings(data);
  }

 private:
  static std::string Numbered(const std::string& name, int n) {
    return name + '.' + std::to_string(n);
  }

  // A figure that isn't compared.
  AuditNumber Setting(const std::string& name, int n) const {
    const CatalogueEntry* entry = catalogue_.Find(Numbered(name, n));
    if (entry == nullptr) return {};
    return {.entry = entry, .now = NumberIn(snapshot_, entry->number), .before = {}};
  }

  AuditNumber Count(const std::string& name) const {
    const CatalogueEntry* entry = catalogue_.Find(name);
    AuditNumber number{.entry = entry, .now = NumberIn(snapshot_, entry->number), .before = {}};
    // An amount that was counted in another unit can't be compared.
    const bool comparable = since_ != nullptr &&
                            (entry->form != Form::kMoney || since_->decimals == snapshot_.decimals);
    if (comparable) number.before = NumberIn(*since_, entry->number);
    return number;
  }

  // Motors, keys and columns are as many as selections.
  void AddSelection(int n, AuditData& data) const {
    const AuditSelection selection{n, Setting("price", n), Count(Numbered("selection-vends", n)),
                                   Count(Numbered("free-vends", n))};
    const AuditMotor motor{n, Count(Numbered("motor-blocks", n))};
    const bool has =
        n <= static_cast<int>(
                 NumberIn(snapshot_, parameter::kSelections).value_or(parameter::kSelectionRows));
    const bool vended =
        selection.vends.now.value_or(0) > 0 || selection.free_vends.now.value_or(0) > 0;
    if (has || vended) data.selections.push_back(selection);
    if (has || motor.blocks.now.value_or(0) > 0) data.motors.push_back(motor);
  }

  std::optional<bool> Accepted(int channel) const {
    const CatalogueBit* bit = catalogue_.FindBit(Numbered("banknote", channel));
    const auto flags = NumberIn(snapshot_, bit->number);
    return flags ? std::optional((*flags & bit->mask) != 0) : std::nullopt;
  }

  void AddSettings(AuditData& data) const {
    for (const HeldValue& held : snapshot_.values) {
      const CatalogueEntry* entry = catalogue_.Find(held.number);
      const bool shown_elsewhere =
          entry != nullptr && (entry->group == Group::kPrices || entry->group == Group::kCoins ||
                               entry->group == Group::kBanknotes);
      if (entry == nullptr || entry->role != Role::kSetting || shown_elsewhere) continue;
      if (entry->form != Form::kBits) data.settings.push_back({{.entry = entry}, held.raw});
      for (const CatalogueBit& bit : catalogue_.Bits()) {
        if (bit.number == held.number) data.settings.push_back({{entry, &bit}, held.raw});
      }
    }
  }

  const Snapshot& snapshot_;
  const Snapshot* since_;
  const Catalogue& catalogue_;
};

void TellOfSnapshots(const Snapshot& snapshot, const Snapshot* since, AuditData& data) {
  const auto remark = [&](AuditNote note) { data.remarks.push_back({note, {}}); };
  if (!snapshot.complete) remark(AuditNote::kIncomplete);
  if (snapshot.decimals > kMostDecimals) remark(AuditNote::kNoDecimals);
  if (since == nullptr) return;
  if (data.read && data.since_read && *data.read < *data.since_read) {
    remark(AuditNote::kEarlierIsLater);
  }
  if (since->decimals != snapshot.decimals) remark(AuditNote::kOtherDecimals);
}

void TellWhatFell(AuditData& data) {
  std::string reset;
  std::string low;
  for (const AuditNumber* number : data.Numbers()) {
    if (!number->Fell()) continue;
    std::string& names = number->entry->name.ends_with(kResettable) ? reset : low;
    names += (names.empty() ? "" : ", ") + number->entry->name;
  }
  if (!reset.empty()) data.remarks.push_back({AuditNote::kReset, reset});
  if (!low.empty()) data.remarks.push_back({AuditNote::kUnexpectedlyLow, low});
}

void AddAlarms(const Snapshot& snapshot, AuditData& data) {
  AuditAlarms alarms = AlarmsOf(snapshot);
  switch (alarms.state) {
    case RingState::kRead:
      data.alarms = std::move(alarms.alarms);
      break;
    case RingState::kNotHeld:
      data.remarks.push_back({AuditNote::kAlarmsNotHeld, {}});
      break;
    case RingState::kNoNewest:
      data.remarks.push_back({AuditNote::kNoNewestAlarm, {}});
      break;
  }
}

}  // namespace

std::optional<uint32_t> AuditNumber::Growth() const {
  if (!now || !before || Fell()) return std::nullopt;
  return *now - *before;
}

std::vector<const AuditNumber*> AuditData::Numbers() const& {
  std::vector<const AuditNumber*> numbers;
  const auto add = [&](const AuditNumber& number) {
    if (number.entry != nullptr) numbers.push_back(&number);
  };
  for (const AuditTotal& total : totals) {
    add(total.lasting);
    add(total.resettable);
  }
  for (const AuditSelection& selection : selections) {
    add(selection.price);
    add(selection.vends);
    add(selection.free_vends);
  }
  for (const AuditMotor& motor : motors) add(motor.blocks);
  for (const AuditCoin& coin : coins) {
    add(coin.value);
    add(coin.taken);
  }
  for (const AuditBanknote& banknote : banknotes) add(banknote.taken);
  for (const AuditNumber& number : others) add(number);
  return numbers;
}

std::string AuditData::Shown(const AuditNumber& number, uint32_t raw, char mark) const {
  return ShownValue(*number.entry, BytesOf(raw, kNumberBytes), origin.Style(mark));
}

AuditData GatherAudit(const Snapshot& snapshot, const Snapshot* since, const Catalogue& catalogue,
                      const QTimeZone& zone) {
  if (since != nullptr) CheckMachine(snapshot, *since);
  AuditData data;
  data.origin = snapshot;
  data.read = TimeOf(snapshot.time, zone);
  if (since != nullptr) {
    data.since = since->time;
    data.since_read = TimeOf(since->time, zone);
  }
  Gatherer(snapshot, since, catalogue).FillIn(data);
  AddAlarms(snapshot, data);
  TellOfSnapshots(snapshot, since, data);
  TellWhatFell(data);
  return data;
}

}  // namespace sorvane::cli
