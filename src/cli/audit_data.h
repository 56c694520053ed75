#pragma once

#include <QDateTime>
#include <QTimeZone>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/audit_alarms.h"
#include "cli/named_values.h"
#include "cli/snapshot.h"
#include "cli/value_text.h"

namespace sorvane::cli {

// A count or an amount, and what it was at the earlier visit.
struct AuditNumber {
  const CatalogueEntry* entry = nullptr;
  std::optional<uint32_t> now;     // none where it isn't held
  std::optional<uint32_t> before;  // none where nothing can be compared

  // Lower than before: it was reset in between, so that nobody knows by how much it has grown.
  bool Fell() const { return now && before && *now < *before; }
  std::optional<uint32_t> Growth() const;
};

// The machine counts a total twice.
struct AuditTotal {
  AuditNumber lasting;
  AuditNumber resettable;
};

struct AuditSelection {
  int number = 0;  // from 1 on
  AuditNumber price;
  AuditNumber vends;
  AuditNumber free_vends;
};

struct AuditMotor {
  int number = 0;
  AuditNumber blocks;
};

struct AuditCoin {
  int channel = 0;
  AuditNumber value;  // has no entry where the board keeps no value of this channel
  AuditNumber taken;
};

struct AuditBanknote {
  int channel = 0;
  std::optional<bool> accepted;
  AuditNumber taken;
};

struct AuditSetting {
  Named named;
  Bytes raw;
};

// What a reader has to know beside the figures.
enum class AuditNote {
  kIncomplete,       // the board hasn't answered all
  kAlarmsNotHeld,    // a part of the ring is missing
  kNoNewestAlarm,    // the ring's pointer leads nowhere
  kNoDecimals,       // the board's decimals are more than any amount has
  kEarlierIsLater,   // the snapshot to compare with is the younger one
  kOtherDecimals,    // amounts were counted in another unit then
  kReset,            // names: resettable, and lower than before
  kUnexpectedlyLow,  // names: nobody can reset them as far as is known, and yet lower than before
};

struct AuditRemark {
  AuditNote note;
  std::string names;  // empty for most
};

// All that the audit tells of a machine.
struct AuditData {
  Snapshot origin;                   // whose values it is made of
  std::optional<QDateTime> read;     // when, on the computer's clock
  std::optional<std::string> since;  // the time of the earlier snapshot, as it stands there
  std::optional<QDateTime> since_read;
  std::vector<AuditTotal> totals;          // takings, vends, discounts, discounts by key
  std::vector<AuditSelection> selections;  // that the machine has, or that have counted something
  std::vector<AuditMotor> motors;          // the same
  std::vector<AuditCoin> coins;
  std::vector<AuditBanknote> banknotes;
  std::vector<AuditNumber> others;
  std::optional<std::vector<AuditAlarm>> alarms;  // the newest first; none where it isn't known
  std::vector<AuditSetting> settings;             // those that stand nowhere else
  std::vector<AuditRemark> remarks;

  // All figures, in the order in which they stand above; they live as long as the data.
  std::vector<const AuditNumber*> Numbers() const&;
  std::vector<const AuditNumber*> Numbers() && = delete;

  std::string Shown(const AuditNumber& number, uint32_t raw, char mark) const;
};

// since may be null. Its machine is the same; where it isn't, this throws Failure kWrongBoard. The
// catalogue must outlive the data. Times are told in a zone.
AuditData GatherAudit(const Snapshot& snapshot, const Snapshot* since, const Catalogue& catalogue,
                      const QTimeZone& zone);

}  // namespace sorvane::cli
