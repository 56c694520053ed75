#include "cli/audit_formats.h"
#include "cli/audit_words.h"
#include "cli/json_text.h"

namespace sorvane::cli {
namespace {

constexpr const char* kNull = "null";

std::string OrNull(const std::optional<uint32_t>& number) {
  return number ? std::to_string(*number) : kNull;
}

std::string FigureAsJson(const AuditData& data, const AuditNumber& number) {
  return JsonObject(
      {{"name", JsonString(number.entry->name)},
       {"raw", OrNull(number.now)},
       {"shown", number.now ? JsonString(data.Shown(number, *number.now, '.')) : kNull},
       {"before", OrNull(number.before)},
       {"growth", OrNull(number.Growth())}});
}

std::string AlarmAsJson(const AuditAlarm& alarm) {
  return JsonObject({{"code", std::to_string(alarm.code)},
                     {"event", alarm.event.empty() ? kNull : JsonString(alarm.event)},
                     {"meaning", JsonString(MeaningOf(alarm, Language::kEnglish))},
                     {"date", alarm.date ? JsonString(DayText(*alarm.date)) : kNull},
                     {"time", alarm.time ? JsonString(TimeText(*alarm.time)) : kNull}});
}

std::string AlarmsAsJson(const AuditData& data) {
  if (!data.alarms) return kNull;
  std::vector<std::string> alarms;
  for (const AuditAlarm& alarm : *data.alarms) alarms.push_back(AlarmAsJson(alarm));
  return JsonList(alarms);
}

}  // namespace

std::string AuditJson(const AuditData& data) {
  const Snapshot& origin = data.origin;
  std::vector<std::string> figures;
  for (const AuditNumber* number : data.Numbers()) figures.push_back(FigureAsJson(data, *number));
  std::vector<std::string> notes;
  for (const AuditRemark& remark : data.remarks) {
    notes.push_back(RemarkOf(remark, Language::kEnglish));
  }
  return JsonObject({{"time", JsonString(origin.time)},
                     {"since", data.since ? JsonString(*data.since) : kNull},
                     {"program", JsonString(origin.program)},
                     {"type", std::to_string(origin.type)},
                     {"software", std::to_string(origin.software)},
                     {"revision", std::to_string(origin.revision)},
                     {"machine", std::to_string(origin.machine)},
                     {"location", std::to_string(origin.location)},
                     {"decimals", std::to_string(origin.decimals)},
                     {"complete", origin.complete ? "true" : "false"},
                     {"notes", JsonStrings(notes)},
                     {"figures", JsonList(figures)},
                     {"alarms", AlarmsAsJson(data)}}) +
         '\n';
}

}  // namespace sorvane::cli
