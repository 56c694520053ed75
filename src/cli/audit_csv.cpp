#include <initializer_list>

#include "cli/audit_formats.h"
#include "cli/audit_words.h"

namespace sorvane::cli {
namespace {

std::string Field(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + '"';
}

std::string Line(std::initializer_list<std::string> fields) {
  std::string line;
  for (const std::string& field : fields)
    line += (&field == fields.begin() ? "" : ",") + Field(field);
  return line + "\r\n";
}

// A figure's change; a word where it was reset, and nothing where nothing is known.
std::string Change(const AuditData& data, const AuditNumber& number, char mark) {
  if (number.Fell()) return std::string(WordOf(Word::kReset, Language::kEnglish));
  const auto growth = number.Growth();
  return growth ? data.Shown(number, *growth, mark) : "";
}

// "2026-03-07 09:05", or what is known of it.
std::string Moment(const AuditAlarm& alarm) {
  std::string moment = alarm.date ? DayText(*alarm.date) : "";
  if (alarm.date && alarm.time) moment += ' ';
  if (alarm.time) moment += TimeText(*alarm.time);
  return moment;
}

}  // namespace

std::string AuditCsv(const AuditData& data, char mark) {
  const Snapshot& origin = data.origin;
  std::string text = Line({"kind", "name", "title", "value", "before", "change"});
  text +=
      Line({"machine", "machine.number", "machine number", std::to_string(origin.machine), "", ""});
  text += Line(
      {"machine", "location.number", "location number", std::to_string(origin.location), "", ""});
  text +=
      Line({"machine", "time", "time of the reading", origin.time, data.since.value_or(""), ""});
  const auto shown = [&](const AuditNumber& number, const std::optional<uint32_t>& raw) {
    return raw ? data.Shown(number, *raw, mark) : "";
  };
  for (const AuditNumber* number : data.Numbers()) {
    text += Line({"figure", number->entry->name, number->entry->title, shown(*number, number->now),
                  shown(*number, number->before), Change(data, *number, mark)});
  }
  for (const AuditAlarm& alarm : data.alarms.value_or(std::vector<AuditAlarm>())) {
    text +=
        Line({"alarm", alarm.event, MeaningOf(alarm, Language::kEnglish), Moment(alarm), "", ""});
  }
  return text;
}

}  // namespace sorvane::cli
