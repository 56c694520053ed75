#include "cli/audit_tables.h"

#include <array>
#include <cstdio>
#include <initializer_list>

#include "cli/audit_words.h"

namespace sorvane::cli {
namespace {

constexpr const char* kNothing = "-";  // in the place of what isn't known

using Row = std::vector<AuditCell>;

std::string Told(const std::optional<QDateTime>& time, const std::string& text) {
  return time ? time->toString("yyyy-MM-dd HH:mm").toStdString() : text;
}

class Builder {
 public:
  Builder(const AuditData& data, const AuditManner& manner) : data_(data), manner_(manner) {}

  AuditTable Machine() const {
    const Snapshot& origin = data_.origin;
    AuditTable table{In(Word::kMachine), {{}, {}}, {}};
    const auto add = [&](Word word, const std::string& text) {
      table.rows.push_back({{In(word)}, {text}});
    };
    add(Word::kNumber, std::to_string(origin.machine));
    add(Word::kLocation, std::to_string(origin.location));
    add(Word::kRead, Told(data_.read, origin.time));
    if (data_.since) add(Word::kEarlier, Told(data_.since_read, *data_.since));
    add(Word::kBoard, std::to_string(origin.type) + " / " + std::to_string(origin.software) +
                          " / " + std::to_string(origin.revision));
    add(Word::kIndexFile, origin.index_file);
    add(Word::kDecimals, std::to_string(origin.decimals));
    add(Word::kProgram, origin.program);
    return table;
  }

  AuditTable Totals() const {
    AuditTable table = Counts(Word::kTotals, Word::kTotal, {Word::kLasting, Word::kResettable});
    table.wide = data_.since.has_value();
    constexpr std::array kNames = {Word::kTakings, Word::kVends, Word::kDiscounts,
                                   Word::kKeyDiscounts};
    for (std::size_t i = 0; i < data_.totals.size(); ++i) {
      Row row = {{In(kNames.at(i))}};
      AddCount(row, data_.totals[i].lasting);
      AddCount(row, data_.totals[i].resettable);
      table.rows.push_back(row);
    }
    return table;
  }

  AuditTable Selections() const {
    AuditTable table =
        Counts(Word::kSelections, Word::kSelection, {Word::kVends, Word::kFreeVends});
    table.wide = true;
    table.columns.insert(table.columns.begin() + 1, {In(Word::kPrice), true});
    for (const AuditSelection& selection : data_.selections) {
      Row row = {{std::to_string(selection.number)}, {Shown(selection.price)}};
      AddDrawnCount(row, selection.vends);
      AddDrawnCount(row, selection.free_vends);
      table.rows.push_back(row);
    }
    return table;
  }

  AuditTable Motors() const {
    AuditTable table = Counts(Word::kMotors, Word::kMotor, {Word::kBlocks});
    for (const AuditMotor& motor : data_.motors) {
      Row row = {{std::to_string(motor.number)}};
      AddDrawnCount(row, motor.blocks);
      table.rows.push_back(row);
    }
    return table;
  }

  AuditTable Coins() const {
    AuditTable table = Counts(Word::kCoins, Word::kChannel, {Word::kTaken});
    table.columns.insert(table.columns.begin() + 1, {In(Word::kValue), true});
    for (const AuditCoin& coin : data_.coins) {
      Row row = {{std::to_string(coin.channel)}, {Shown(coin.value)}};
      AddDrawnCount(row, coin.taken);
      table.rows.push_back(row);
    }
    return table;
  }

  AuditTable Banknotes() const {
    AuditTable table = Counts(Word::kBanknotes, Word::kChannel, {Word::kTaken});
    table.columns.insert(table.columns.begin() + 1, {In(Word::kAccepted), false});
    for (const AuditBanknote& banknote : data_.banknotes) {
      const std::optional<bool>& accepted = banknote.accepted;
      Row row = {{std::to_string(banknote.channel)},
                 {accepted ? In(*accepted ? Word::kYes : Word::kNo) : kNothing}};
      AddDrawnCount(row, banknote.taken);
      table.rows.push_back(row);
    }
    return table;
  }

  AuditTable Others() const {
    AuditTable table = Counts(Word::kOthers, Word::kOther, {Word::kValue});
    for (const AuditNumber& number : data_.others) {
      Row row = {{TitleOf(Named{.entry = number.entry}, manner_.language)}};
      AddCount(row, number);
      table.rows.push_back(row);
    }
    return table;
  }

  AuditTable Alarms() const {
    AuditTable table{In(Word::kAlarms),
                     {{In(Word::kPlace)},
                      {In(Word::kDate)},
                      {In(Word::kTime)},
                      {In(Word::kEvent)},
                      {In(Word::kMeaning)}},
                     {},
                     true};
    for (const AuditAlarm& alarm : *data_.alarms) {
      table.rows.push_back({{std::to_string(table.rows.size() + 1)},
                            {alarm.date ? DayText(*alarm.date) : kNothing},
                            {alarm.time ? TimeText(*alarm.time) : kNothing},
                            {alarm.event.empty() ? kNothing : alarm.event},
                            {MeaningOf(alarm, manner_.language)}});
    }
    return table;
  }

  std::optional<AuditTable> Settings(Group group) const {
    AuditTable table{std::string(TitleOf(group, manner_.language)),
                     {{In(Word::kSetting)}, {In(Word::kValue), true}},
                     {}};
    for (const AuditSetting& setting : data_.settings) {
      if (setting.named.entry->group != group) continue;
      table.rows.push_back({{TitleOf(setting.named, manner_.language)}, {Shown(setting)}});
    }
    return table.rows.empty() ? std::nullopt : std::optional(table);
  }

 private:
  std::string In(Word word) const { return std::string(WordOf(word, manner_.language)); }

  // A table of counts: each has a column, and where an earlier visit is known one for its change.
  AuditTable Counts(Word title, Word rows, std::initializer_list<Word> counts) const {
    AuditTable table{In(title), {{In(rows)}}, {}};
    for (const Word count : counts) {
      table.columns.push_back({In(count), true});
      if (data_.since) table.columns.push_back({In(Word::kChange), true});
    }
    return table;
  }

  std::string Shown(const AuditNumber& number) const {
    return number.now ? data_.Shown(number, *number.now, manner_.mark) : kNothing;
  }

  std::string Shown(const AuditSetting& setting) const {
    const CatalogueBit* bit = setting.named.bit;
    if (bit == nullptr) {
      return ShownNamed(setting.named, setting.raw, data_.origin.Style(manner_.mark));
    }
    return In((setting.raw.front() & bit->mask) != 0 ? Word::kOn : Word::kOff);
  }

  std::string Change(const AuditNumber& number) const {
    if (number.Fell()) return In(Word::kReset);
    const auto growth = number.Growth();
    if (!growth) return kNothing;
    return (*growth > 0 ? "+" : "") + data_.Shown(number, *growth, manner_.mark);
  }

  void AddCount(Row& row, const AuditNumber& number) const {
    row.push_back({Shown(number)});
    if (data_.since) row.push_back({Change(number)});
  }

  void AddDrawnCount(Row& row, const AuditNumber& number) const {
    const std::size_t place = row.size();
    AddCount(row, number);
    row[place].bar = number.now;
  }

  const AuditData& data_;
  const AuditManner& manner_;
};

}  // namespace

std::vector<AuditTable> AuditTables(const AuditData& data, const AuditManner& manner) {
  const Builder builder(data, manner);
  std::vector<AuditTable> tables = {builder.Machine(),  builder.Totals(), builder.Selections(),
                                    builder.Motors(),   builder.Others(), builder.Coins(),
                                    builder.Banknotes()};
  if (data.alarms) tables.push_back(builder.Alarms());
  return tables;
}

std::vector<AuditTable> SettingTables(const AuditData& data, const AuditManner& manner) {
  const Builder builder(data, manner);
  std::vector<AuditTable> tables;
  for (int i = 0; i < kGroups; ++i) {
    if (const auto table = builder.Settings(static_cast<Group>(i))) tables.push_back(*table);
  }
  return tables;
}

std::string DayText(const AuditDate& date) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", date.year, date.month, date.day);
  return text.data();
}

std::string TimeText(const AuditTime& time) {
  std::array<char, 30> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d", time.hour, time.minute);
  return text.data();
}

}  // namespace sorvane::cli
