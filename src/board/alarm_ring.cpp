#include "board/alarm_ring.h"

#include "board/errors.h"
#include "board/formats.h"
#include "board/numbers.h"
#include "board/parameter.h"

namespace sorvane {
namespace {

constexpr int kHighestPointer = 20;
constexpr int16_t kHighestCode = 50;

// The parts of a record that are read.
constexpr int kMinute = 1;
constexpr int kHour = 2;
constexpr int kDay = 3;
constexpr int kMonth = 4;
constexpr int kYear = 5;  // since 2000
constexpr int kCode = 6;

constexpr const char* kNoText = "      ";
constexpr std::array<const char*, kHighestCode + 1> kAlarmTexts = {
    "",
    "ECM_allarme eeprom   ",
    "EAR_allarme gettoniera   ",
    "EAJ_allarme fattore di scala   ",
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    "EDM_segnalazione sonda   ",
    "ECA_segnalazione 24V   ",
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    "OBC_1_vuoto prodotto 1 ",
    "OBC_2_vuoto prodotto 2 ",
    "OBC_3_vuoto prodotto 3 ",
    "OBC_4_vuoto prodotto 4 ",
    "OBC_5_vuoto prodotto 5 ",
    "OBC_6_vuoto prodotto 6 ",
    "OBC_7_vuoto prodotto 7 ",
    "OBC_8_vuoto prodotto 8 ",
    "OBC_9_vuoto prodotto 9 ",
    "OBC_10_vuoto prodotto 10",
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    "EJB_1_blocco motore 1 ",
    "EJB_2_blocco motore 2 ",
    "EJB_3_blocco motore 3 ",
    "EJB_4_blocco motore 4 ",
    "EJB_5_blocco motore 5 ",
    "EJB_6_blocco motore 6 ",
    "EJB_7_blocco motore 7 ",
    "EJB_8_blocco motore 8 ",
    "EJB_9_blocco motore 9 ",
    "EJB_10_blocco motore 10",
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    kNoText,
    "",
    ""};

}  // namespace

bool AlarmRing::Take(const Reply& reply) {
  const int32_t byte = reply.index - parameter::kAlarmRing;
  if (reply.index == parameter::kAlarmPointer) {
    AlarmPointer = reply.Number();
  } else if (byte >= 0 && byte < parameter::kAlarmBytes) {
    AlarmBytes.at(static_cast<std::size_t>(byte)) = ToInt16(static_cast<double>(reply.Number()));
  } else {
    return false;
  }
  return true;
}

std::vector<Alarm> AlarmRing::Alarms() const {
  std::vector<Alarm> alarms;
  if (AlarmPointer > kHighestPointer) return alarms;
  auto record = static_cast<int>(AlarmPointer);
  for (int n = 0; n < parameter::kAlarmRecords; ++n) {
    if (Byte(record, kCode) > kHighestCode) break;
    alarms.push_back(At(record));
    record = record == 0 ? parameter::kAlarmRecords - 1 : record - 1;
  }
  return alarms;
}

Alarm AlarmRing::At(int record) const {
  const int16_t day = Byte(record, kDay);
  const uint8_t month = ToByte(Byte(record, kMonth));
  const int16_t year = ToInt16(Byte(record, kYear) + 2000.0);
  Alarm alarm = {.code = Byte(record, kCode),
                 .dated = day != 0 || month != 0,
                 .hour = Byte(record, kHour),
                 .minute = Byte(record, kMinute)};
  if (alarm.dated) alarm.day_number = DayNumber(day, month, year);
  return alarm;
}

int16_t AlarmRing::Byte(int record, int part) const {
  const int element = record * parameter::kAlarmRecordLength + part;
  if (element > parameter::kAlarmBytes) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
  return AlarmBytes.at(static_cast<std::size_t>(element));
}

const char* AlarmText(int16_t code) { return kAlarmTexts.at(static_cast<std::size_t>(code)); }

}  // namespace sorvane
