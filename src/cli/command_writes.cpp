#include <QDateTime>
#include <algorithm>
#include <functional>
#include <map>
#include <string>

#include "board/parameter.h"
#include "cli/commands.h"
#include "cli/connected_board.h"
#include "cli/copies.h"
#include "cli/json_text.h"
#include "cli/named_values.h"
#include "cli/snapshot_file.h"
#include "cli/write_plan.h"
#include "cli/writer.h"

// The commands that write: each looks at what the board holds, shows its plan, asks, keeps a copy,
// writes, and tells what became of it.
namespace sorvane::cli {
namespace {

// What a person may set; what the machine records is no business of a write.
bool IsWritable(const CatalogueEntry& entry) { return entry.role != Role::kReadOnly; }

std::vector<const CatalogueEntry*> WritableEntries(const Catalogue& catalogue) {
  std::vector<const CatalogueEntry*> entries;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    if (IsWritable(entry)) entries.push_back(&entry);
  }
  return entries;
}

// All that can be set, as the board holds it, with the second copies.
Snapshot TakeSettings(const Task& task, ConnectedBoard& board) {
  return board.Take(WritableEntries(task.catalogue), {.mirrors = true}, task.console);
}

bool IsSecret(const Catalogue& catalogue, const HeldValue& value) {
  const CatalogueEntry* entry = catalogue.Find(value.number);
  if (entry == nullptr) entry = catalogue.FindByMirror(value.number);
  return entry->role == Role::kSecret;
}

Snapshot WithoutSecrets(const Catalogue& catalogue, Snapshot snapshot) {
  std::erase_if(snapshot.values,
                [&](const HeldValue& value) { return IsSecret(catalogue, value); });
  return snapshot;
}

// The machine's number once the plan is done: that under which a copy will be looked for.
uint32_t MachineAfter(const Snapshot& held, const WritePlan& plan) {
  for (const PlannedWrite& write : plan.writes) {
    if (write.entry->number == parameter::kMachineNumber) return NumberOf(write.to);
  }
  return held.machine;
}

bool TouchesSecrets(const WritePlan& plan) {
  return std::ranges::any_of(
      plan.writes, [](const PlannedWrite& write) { return write.entry->role == Role::kSecret; });
}

void KeepCopy(const Task& task, const Snapshot& held, const WritePlan& plan) {
  const bool secrets = task.request.password;
  const auto file =
      Copies(task.around.copies_folder)
          .Keep(secrets ? held : WithoutSecrets(task.catalogue, held), MachineAfter(held, plan));
  task.console.Tell("a copy is kept as " + file.string());
  if (!secrets && TouchesSecrets(plan)) {
    task.console.Tell("without the password, which undo won't bring back");
  }
}

std::string PlanAsJson(const WritePlan& plan, const WriteReport& report) {
  std::vector<std::string> names;
  for (const PlannedWrite& write : plan.writes) names.push_back(write.entry->name);
  return JsonObject({{"plan", JsonStrings(names)},
                     {"left-behind", JsonStrings(plan.left_behind)},
                     {"confirmed", JsonStrings(report.confirmed)},
                     {"unsure", JsonStrings(report.unsure)},
                     {"unsent", JsonStrings(report.unsent)}}) +
         '\n';
}

// What a person is asked before a write.
struct Question {
  std::string words;
  bool always = false;  // also where --yes was given
};

void Agree(const Task& task, const Question& question) {
  if (task.request.yes && !question.always) return;
  if (task.console.Confirm(question.words)) return;
  if (task.around.interrupted()) throw Failure(ExitCode::kInterrupted, "interrupted");
  throw Failure(question.always ? ExitCode::kWrongBoard : ExitCode::kUsage, "nothing is written");
}

// Keeps what is to be kept of writes that are done; tells where it finds no room, and goes on.
bool Kept(const Task& task, const std::function<void()>& keep) {
  try {
    keep();
    return true;
  } catch (const Failure& failure) {
    Complain(task, failure);
    return false;
  }
}

std::string Counted(std::size_t writes) {
  return writes == 1 ? "1 value is" : std::to_string(writes) + " values are";
}

// Brings the board from what it holds to what is wanted.
ExitCode Write(const Task& task, ConnectedBoard& board, const Snapshot& held,
               const std::vector<Wanted>& wanted, Question question) {
  const WritePlan plan = PlanWrites(held, wanted);
  const NumberStyle style = held.Style(task.request.Mark());
  for (const std::string& words : plan.left_behind) task.console.Complain("left behind " + words);
  if (!plan.out_of_range.empty()) {
    for (const std::string& words : plan.out_of_range) task.console.Complain(words);
    throw Failure(ExitCode::kUsage, "out of range, nothing is written");
  }
  const bool nothing = plan.writes.empty();
  if (nothing) task.console.Tell("nothing differs");
  const std::string lines = PlanLines(plan, style);
  if (!task.request.json) Deliver(task, lines);
  WriteReport report;
  if (!nothing && !task.request.dry_run) {
    question.words += Counted(plan.writes.size()) + " written. Go on?";
    // A person decides by the plan, wherever the result goes.
    if (task.request.json || !task.request.output.empty()) question.words.insert(0, lines);
    Agree(task, question);
    KeepCopy(task, held, plan);
    report = SendWrites(board.Line(), plan, style, task.around.interrupted, task.console);
  }
  const bool told = Kept(task, [&] {
    if (task.request.json) Deliver(task, PlanAsJson(plan, report));
    if (!task.request.json) task.console.Print(ReportLines(report));
  });
  if (!told) task.console.Complain(ReportLines(report));
  const bool traced = Kept(task, [&] { board.CheckTrace(); });
  if (report.interrupted) return ExitCode::kInterrupted;
  if (!report.AllConfirmed()) return ExitCode::kNotConfirmed;
  if (!told || !traced) return ExitCode::kUsage;
  return task.request.dry_run && !nothing ? ExitCode::kDifferences : ExitCode::kDone;
}

// What a restore takes of a snapshot.
std::vector<Wanted> WantedOf(const Task& task, const Snapshot& snapshot, bool identity) {
  const auto own = [identity](const CatalogueEntry& entry) {
    return entry.role == Role::kSetting || entry.role == Role::kSecret ||
           (identity && entry.role == Role::kIdentity);
  };
  std::vector<Wanted> wanted;
  for (const CatalogueEntry* entry : ChosenEntries(task.catalogue, task.request, own)) {
    const HeldValue* value = IsWritable(*entry) ? snapshot.Find(entry->number) : nullptr;
    if (value != nullptr) wanted.push_back({entry, value->raw});
  }
  return wanted;
}

void CheckFits(const Request& request, const Snapshot& snapshot, const Snapshot& held) {
  if (snapshot.type != held.type || snapshot.software != held.software) {
    throw Failure(ExitCode::kWrongBoard, "the snapshot is of another type of board");
  }
  if (snapshot.revision != held.revision && !request.other_revision) {
    throw Failure(ExitCode::kWrongBoard, "the snapshot is of revision " +
                                             std::to_string(snapshot.revision) + ", the board of " +
                                             std::to_string(held.revision) +
                                             "; --other-revision restores by name");
  }
}

// The values that a person gave by name, over what the board holds.
std::vector<Wanted> TypedValues(const Task& task, const Snapshot& held) {
  std::map<int32_t, Wanted> wanted;
  for (const std::string& argument : task.request.arguments) {
    const std::size_t sign = argument.find('=');
    if (sign == std::string::npos) throw Failure(ExitCode::kUsage, argument + " lacks =VALUE");
    const Named named = FindNamed(task.catalogue, argument.substr(0, sign));
    const std::string typed = argument.substr(sign + 1);
    const CatalogueEntry& entry = *named.entry;
    if (!IsWritable(entry)) throw Failure(ExitCode::kUsage, entry.name + " is read only");
    const HeldValue* now = held.Find(entry.number);
    if (now == nullptr) throw Failure(ExitCode::kWrongBoard, "this board has no " + entry.name);
    const auto [place, fresh] = wanted.insert({entry.number, {&entry, now->raw}});
    Bytes& raw = place->second.raw;
    if (named.bit != nullptr) {
      const uint8_t mask = named.bit->mask;
      const bool on = TypedBit(*named.bit, typed);
      raw.front() = static_cast<uint8_t>(on ? raw.front() | mask : raw.front() & ~mask);
    } else {
      if (!fresh) throw Failure(ExitCode::kUsage, entry.name + " is given twice");
      const uint32_t number = TypedValue(entry, typed, held.Style('.'));
      raw = BytesOf(number, static_cast<int>(now->raw.size()));
    }
  }
  std::vector<Wanted> values;
  values.reserve(wanted.size());
  for (const auto& [number, value] : wanted) values.push_back(value);
  return values;
}

}  // namespace

ExitCode SetValues(const Task& task) {
  for (const std::string& argument : task.request.arguments) {
    FindNamed(task.catalogue, argument.substr(0, argument.find('=')));
  }
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const Snapshot held = TakeSettings(task, board);
  return Write(task, board, held, TypedValues(task, held), {});
}

ExitCode RestoreSnapshot(const Task& task) {
  const std::string& file = task.request.arguments.front();
  const Snapshot snapshot = ReadSnapshot(file, task.catalogue);
  if (!snapshot.complete && !task.request.partial) {
    throw Failure(ExitCode::kUsage, file + " isn't complete; --partial restores what it holds");
  }
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const Snapshot held = TakeSettings(task, board);
  CheckFits(task.request, snapshot, held);
  Question question;
  if (snapshot.machine != held.machine) {
    question = {.words = "The snapshot is of machine " + std::to_string(snapshot.machine) +
                         ", this is machine " + std::to_string(held.machine) + ". ",
                .always = true};
  }
  return Write(task, board, held, WantedOf(task, snapshot, task.request.identity), question);
}

ExitCode UndoLast(const Task& task) {
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const Snapshot held = TakeSettings(task, board);
  const auto file = Copies(task.around.copies_folder).Newest(held.machine);
  if (!file) {
    throw Failure(ExitCode::kUsage, "there is no copy of machine " + std::to_string(held.machine));
  }
  task.console.Tell("putting back " + file->string());
  const Snapshot copy = ReadSnapshot(*file, task.catalogue);
  CheckFits(task.request, copy, held);
  return Write(task, board, held, WantedOf(task, copy, true), {});
}

ExitCode SetClock(const Task& task) {
  ConnectedBoard board(task.request, task.around, task.catalogue);
  const Snapshot held = TakeSettings(task, board);
  const QDateTime now = task.around.now();
  const std::map<int32_t, int> parts = {{parameter::kClockHours, now.time().hour()},
                                        {parameter::kClockMinutes, now.time().minute()},
                                        {parameter::kClockDay, now.date().day()},
                                        {parameter::kClockMonth, now.date().month()},
                                        {parameter::kClockYear, now.date().year() % 100}};
  std::vector<Wanted> wanted;
  for (const auto& [number, part] : parts) {
    const HeldValue* value = held.Find(number);
    const int size = value != nullptr ? static_cast<int>(value->raw.size()) : 1;
    wanted.push_back({task.catalogue.Find(number), BytesOf(static_cast<uint32_t>(part), size)});
  }
  return Write(task, board, held, wanted, {});
}

}  // namespace sorvane::cli
