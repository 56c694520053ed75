#pragma once

#include <string>
#include <string_view>

#include "cli/audit_data.h"
#include "cli/request.h"

namespace sorvane::cli {

// What stands around the figures.
enum class Word {
  kAuditOfMachine,
  kMachine,
  kNumber,
  kLocation,
  kRead,
  kEarlier,
  kBoard,
  kIndexFile,
  kDecimals,
  kProgram,
  kTotals,
  kTotal,
  kTakings,
  kVends,
  kDiscounts,
  kKeyDiscounts,
  kLasting,
  kResettable,
  kChange,
  kReset,
  kSelections,
  kSelection,
  kPrice,
  kFreeVends,
  kMotors,
  kMotor,
  kBlocks,
  kCoins,
  kBanknotes,
  kChannel,
  kValue,
  kAccepted,
  kTaken,
  kOthers,
  kOther,
  kAlarms,
  kPlace,
  kDate,
  kTime,
  kEvent,
  kMeaning,
  kCode,
  kNoAlarms,
  kRemarks,
  kSettings,
  kSetting,
  kYes,
  kNo,
  kOn,
  kOff,
};

std::string_view WordOf(Word word, Language language);

// A remark as a sentence without the stop at its end.
std::string RemarkOf(const AuditRemark& remark, Language language);

// What a parameter or a bit of it is called in words.
std::string TitleOf(const Named& named, Language language);

// The same of a group of settings.
std::string_view TitleOf(Group group, Language language);

// What an alarm means; "code 4" for one without a meaning of its own.
std::string MeaningOf(const AuditAlarm& alarm, Language language);

}  // namespace sorvane::cli
