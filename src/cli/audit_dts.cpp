#include "cli/audit_formats.h"
#include "cli/dts_text.h"

namespace sorvane::cli {
namespace {

// The standard asks for a maker's three letters and seven digits.
constexpr const char* kSender = "SRV0000000";
constexpr int kMostDecimals = 4;

std::string Field(const AuditNumber& number) {
  return number.now ? std::to_string(*number.now) : "";
}

std::string Digits(std::string text) {
  std::erase_if(text, [](char c) { return c < '0' || c > '9'; });
  return text;
}

// "260307" and "0905".
std::string Day(const AuditDate& date) { return Digits(DayText(date)).substr(2); }
std::string Time(const AuditTime& time) { return Digits(TimeText(time)); }

void AddMachine(const AuditData& data, DtsText& text) {
  const Snapshot& origin = data.origin;
  text.Add({"ID1", std::to_string(origin.machine), "", "", std::to_string(origin.location)});
  if (origin.decimals <= kMostDecimals) text.Add({"ID4", std::to_string(origin.decimals)});
  if (data.read) {
    text.Add({"ID5", data.read->toString("yyMMdd").toStdString(),
              data.read->toString("HHmmss").toStdString()});
  }
}

// A segment whose fields are all empty tells nothing.
void AddIfAny(const std::string& name, const std::vector<std::string>& fields, DtsText& text) {
  std::vector<std::string> segment = {name};
  bool any = false;
  for (const std::string& field : fields) {
    any = any || !field.empty();
    segment.push_back(field);
  }
  if (any) text.Add(segment);
}

}  // namespace

std::string AuditDts(const AuditData& data) {
  DtsText text(kSender);
  AddMachine(data, text);
  const AuditTotal& takings = data.totals.at(0);
  const AuditTotal& vends = data.totals.at(1);
  AddIfAny("VA1",
           {Field(takings.lasting), Field(vends.lasting), Field(takings.resettable),
            Field(vends.resettable)},
           text);
  for (const AuditSelection& selection : data.selections) {
    text.Add({"PA1", std::to_string(selection.number), Field(selection.price)});
    AddIfAny("PA2", {Field(selection.vends)}, text);
    AddIfAny("PA4", {Field(selection.free_vends)}, text);
  }
  for (const AuditAlarm& alarm : data.alarms.value_or(std::vector<AuditAlarm>())) {
    if (alarm.event.empty()) continue;
    // A time alone tells nothing.
    const bool timed = alarm.date && alarm.time;
    text.Add(
        {"EA1", alarm.event, alarm.date ? Day(*alarm.date) : "", timed ? Time(*alarm.time) : ""});
  }
  return text.Finish();
}

}  // namespace sorvane::cli
