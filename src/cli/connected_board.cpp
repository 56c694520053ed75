#include "cli/connected_board.h"

#include <QCryptographicHash>
#include <algorithm>
#include <array>

#include "board/errors.h"
#include "board/parameter.h"
#include "cli/snapshot_file.h"
#include "cli/utc_text.h"

namespace sorvane::cli {
namespace {

// Who the machine is, and how it draws amounts: what is read before all values, in one piece with
// them, since a wait ends each piece.
struct HeadPlace {
  int32_t number;
  const char* name;
};
constexpr std::array kHead = {HeadPlace{parameter::kMachineNumber, "machine.number"},
                              HeadPlace{parameter::kLocationNumber, "location.number"},
                              HeadPlace{parameter::kDecimals, "decimals"}};

std::string OneLine(std::string words) {
  std::ranges::replace(words, '\n', ' ');
  return words;
}

std::string SumOf(const std::filesystem::path& file) {
  const std::string text = FileText(file);
  const QByteArray bytes =
      QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

int DecimalsOf(const Bytes& raw) {
  return static_cast<int>(std::min<uint32_t>(NumberOf(raw), 255));
}

}  // namespace

ConnectedBoard::OpenPort::OpenPort(const Surroundings& around) : port_(around.port) {
  try {
    port_.Open();
  } catch (const RuntimeError&) {
    const std::string trouble = around.port_trouble();
    throw Failure(ExitCode::kNoBoard,
                  "can't open " + around.port_name + (trouble.empty() ? "" : ": " + trouble));
  }
}

ConnectedBoard::ConnectedBoard(const Request& request, const Surroundings& around,
                               const Catalogue& catalogue)
    : request_(request),
      around_(around),
      catalogue_(catalogue),
      open_(around),
      exchange_(around.port, around.wait),
      session_(exchange_, around.index_folder) {
  if (!request.trace.empty()) {
    trace_ = std::make_unique<Trace>(request.trace, catalogue, session_, around.now);
    exchange_.on_try = [this](const Bytes& sent, const Bytes& received, TryOutcome outcome) {
      trace_->Tell(sent, received, outcome);
    };
  }
  switch (session_.Identify()) {
    case Identified::kServed:
      return;
    case Identified::kNoAnswer:
      throw Failure(ExitCode::kNoBoard, "no answer from the board at " + around.port_name);
    case Identified::kRefused:
      throw Failure(ExitCode::kWrongBoard, OneLine(session_.Refusal()));
    case Identified::kNoIndexFile:
      throw Failure(ExitCode::kWrongBoard,
                    (around.index_folder / session_.IndexName()).string() + " not found");
  }
}

void ConnectedBoard::CheckGoesOn() const {
  if (around_.interrupted()) throw Failure(ExitCode::kInterrupted, "interrupted");
}

void ConnectedBoard::CheckTrace() const {
  if (trace_) trace_->CheckWhole();
}

std::optional<Bytes> ConnectedBoard::TryRead(int32_t number, const std::string& name) {
  CheckGoesOn();
  if (session_.SizeOf(number) == 0) {
    throw Failure(ExitCode::kWrongBoard, "this board has no " + name);
  }
  auto raw = session_.Read(number);
  CheckTrace();
  return raw;
}

Bytes ConnectedBoard::Read(const CatalogueEntry& entry) {
  const auto raw = TryRead(entry.number, entry.name);
  if (!raw) throw Failure(ExitCode::kNoBoard, "the board doesn't answer for " + entry.name);
  return *raw;
}

NumberStyle ConnectedBoard::Style() {
  if (!decimals_) {
    const auto raw = TryRead(parameter::kDecimals, "decimals");
    if (!raw) throw Failure(ExitCode::kNoBoard, "the board doesn't answer for its decimals");
    decimals_ = DecimalsOf(*raw);
  }
  return {.decimals = *decimals_, .mark = request_.Mark()};
}

Snapshot ConnectedBoard::Take(std::span<const CatalogueEntry* const> entries, const Taking& taking,
                              Console& console) {
  Snapshot snapshot{.time = UtcText(around_.utc_now()),
                    .program = around_.program,
                    .type = session_.Type(),
                    .software = session_.Software(),
                    .revision = session_.Revision(),
                    .index_file = session_.IndexName(),
                    .index_sum = SumOf(around_.index_folder / session_.IndexName()),
                    .complete = true,
                    .values = {}};
  const std::vector<Place> places = PlacesOf(entries, taking.mirrors);
  std::size_t done = 0;
  while (done < places.size()) {
    CheckGoesOn();
    console.ShowProgress("reading", static_cast<int>(done), static_cast<int>(places.size()));
    const std::size_t count = std::min(Session::kAtOnce, places.size() - done);
    std::vector<int32_t> numbers;
    for (std::size_t i = 0; i < count; ++i) numbers.push_back(places[done + i].number);
    const std::vector<Bytes> values = session_.Read(numbers);
    CheckTrace();
    for (const Bytes& raw : values) Keep(places, done++, raw, snapshot);
    if (values.size() == count) continue;
    const std::string words = "the board doesn't answer for " + places[done].name;
    const bool can_miss = taking.partial && done >= kHead.size();
    if (!can_miss || session_.IsLost()) throw Failure(ExitCode::kNoBoard, words);
    console.Complain(words);
    snapshot.complete = false;
    ++done;
  }
  return snapshot;
}

std::vector<ConnectedBoard::Place> ConnectedBoard::PlacesOf(
    std::span<const CatalogueEntry* const> entries, bool mirrors) const {
  std::vector<Place> places;
  for (const CatalogueEntry* entry : entries) {
    if (!Has(*entry)) continue;
    places.push_back({entry, entry->number, entry->name});
    const bool copy = mirrors && session_.SizeOf(entry->mirror) != 0;
    if (copy) places.push_back({entry, entry->mirror, MirrorName(*entry)});
  }
  std::ranges::sort(places, {}, &Place::number);
  std::vector<Place> head;
  for (const auto& [number, name] : kHead) {
    if (session_.SizeOf(number) == 0) {
      throw Failure(ExitCode::kWrongBoard, std::string("this board has no ") + name);
    }
    head.push_back({nullptr, number, name});
  }
  places.insert(places.begin(), head.begin(), head.end());
  return places;
}

void ConnectedBoard::Keep(std::span<const Place> places, std::size_t i, const Bytes& raw,
                          Snapshot& snapshot) {
  const Place& place = places[i];
  if (i >= kHead.size()) {
    snapshot.values.push_back({.number = place.number,
                               .name = place.name,
                               .raw = raw,
                               .shown = ShownValue(*place.entry, raw, snapshot.Style('.'))});
  } else if (place.number == parameter::kMachineNumber) {
    snapshot.machine = NumberOf(raw);
  } else if (place.number == parameter::kLocationNumber) {
    snapshot.location = NumberOf(raw);
  } else {
    decimals_ = DecimalsOf(raw);
    snapshot.decimals = *decimals_;
  }
}

std::vector<const CatalogueEntry*> ChosenEntries(
    const Catalogue& catalogue, const Request& request,
    const std::function<bool(const CatalogueEntry&)>& own) {
  std::vector<const CatalogueEntry*> chosen;
  for (const CatalogueEntry& entry : catalogue.Entries()) {
    const bool wanted = request.only.empty()
                            ? own(entry)
                            : std::ranges::find(request.only, entry.group) != request.only.end();
    const bool spared = std::ranges::find(request.except, entry.group) != request.except.end();
    if (wanted && !spared) chosen.push_back(&entry);
  }
  return chosen;
}

}  // namespace sorvane::cli
