#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>

#include "cli/hex_text.h"
#include "cli/snapshot_file.h"

namespace sorvane::cli {
namespace {

constexpr int kFormat = 1;
constexpr int64_t kMostBytes = 16;
constexpr int64_t kNumberBytes = 4;

constexpr std::array<const char*, 13> kHeaderKeys = {
    "format",       "time",    "program",  "type",     "software", "revision", "index",
    "index-sha256", "machine", "location", "decimals", "complete", "values"};
constexpr std::array<const char*, 5> kValueKeys = {"number", "name", "size", "raw", "shown"};

int LineAt(std::string_view text, std::size_t offset) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
  return 1 + static_cast<int>(std::count(text.begin(), end, '\n'));
}

// The lines on which the objects within the array of the outermost object begin. text is JSON.
std::vector<int> LinesOfValues(std::string_view text) {
  std::vector<int> lines;
  int line = 1;
  int depth = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\n') ++line;
    if (quoted && c == '\\') ++i;
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '{' && depth == 2) lines.push_back(line);
    if (c == '{' || c == '[') ++depth;
    if (c == '}' || c == ']') --depth;
  }
  return lines;
}

// A whole number from 0 on; none where the value isn't one.
std::optional<int64_t> WholeNumber(const QJsonValue& value) {
  const int64_t number = value.isDouble() ? value.toInteger(-1) : -1;
  return number < 0 ? std::nullopt : std::optional(number);
}

class Reader {
 public:
  Reader(std::string_view text, const Catalogue& catalogue) : text_(text), catalogue_(catalogue) {}

  ParsedSnapshot Read() {
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(
        QByteArray::fromRawData(text_.data(), static_cast<qsizetype>(text_.size())), &error);
    if (error.error != QJsonParseError::NoError) {
      const auto offset = static_cast<std::size_t>(std::max(error.offset, 0));
      Find(LineAt(text_, offset), "no JSON: " + error.errorString().toStdString());
      return std::move(parsed_);
    }
    if (!document.isObject()) {
      Find(1, "not a JSON object");
      return std::move(parsed_);
    }
    ReadHeader(document.object());
    ReadValues(document.object().value("values"));
    CompareIdentity();
    std::ranges::stable_sort(parsed_.findings, {}, &Finding::line);
    return std::move(parsed_);
  }

 private:
  void Find(int line, const std::string& words) { parsed_.findings.push_back({line, words}); }

  int LineOfKey(const char* key) const {
    const std::size_t offset = text_.find('"' + std::string(key) + '"');
    return offset == std::string_view::npos ? 1 : LineAt(text_, offset);
  }

  void ReadHeader(const QJsonObject& header) {
    Snapshot& snapshot = parsed_.snapshot;
    for (const QString& key : header.keys()) {
      if (std::ranges::find(kHeaderKeys, key) == kHeaderKeys.end()) {
        const std::string name = key.toStdString();
        Find(LineOfKey(name.c_str()), "unknown: \"" + name + "\"");
      }
    }
    if (Number(header, "format", std::numeric_limits<int32_t>::max()) != kFormat) {
      Find(LineOfKey("format"), "another format than 1, which a newer program may read");
    }
    snapshot.time = Text(header, "time");
    snapshot.program = Text(header, "program");
    snapshot.type = static_cast<int>(Number(header, "type", 65535));
    snapshot.software = static_cast<int>(Number(header, "software", 255));
    snapshot.revision = static_cast<int>(Number(header, "revision", 255));
    snapshot.index_file = Text(header, "index");
    snapshot.index_sum = Text(header, "index-sha256");
    constexpr auto kMost = std::numeric_limits<uint32_t>::max();
    snapshot.machine = static_cast<uint32_t>(Number(header, "machine", kMost));
    snapshot.location = static_cast<uint32_t>(Number(header, "location", kMost));
    snapshot.decimals = static_cast<int>(Number(header, "decimals", 255));
    if (!header.value("complete").isBool())
      Find(LineOfKey("complete"), "no true or false: \"complete\"");
    snapshot.complete = header.value("complete").toBool();
  }

  std::string Text(const QJsonObject& header, const char* key) {
    if (!header.value(key).isString()) Find(LineOfKey(key), "no text: \"" + std::string(key) + '"');
    return header.value(key).toString().toStdString();
  }

  int64_t Number(const QJsonObject& header, const char* key, int64_t most) {
    const auto number = WholeNumber(header.value(key));
    if (number && *number <= most) return *number;
    Find(LineOfKey(key),
         "no whole number of 0 to " + std::to_string(most) + ": \"" + std::string(key) + '"');
    return 0;
  }

  void ReadValues(const QJsonValue& values) {
    if (!values.isArray()) {
      Find(LineOfKey("values"), "no list: \"values\"");
      return;
    }
    const std::vector<int> lines = LinesOfValues(text_);
    std::size_t place = 0;
    const QJsonArray all = values.toArray();
    for (const auto& value : all) {
      if (!value.isObject()) {
        Find(place < lines.size() ? lines[place] : LineOfKey("values"), "no parameter");
        continue;
      }
      line_ = place < lines.size() ? lines[place] : 1;
      ++place;
      ReadValue(value.toObject());
    }
  }

  void ReadValue(const QJsonObject& object) {
    for (const char* key : kValueKeys) {
      if (!object.contains(key)) return Find(line_, "missing: \"" + std::string(key) + '"');
    }
    if (object.size() != static_cast<qsizetype>(kValueKeys.size())) {
      return Find(line_, "something unknown beside number, name, size, raw and shown");
    }
    const auto number = WholeNumber(object.value("number"));
    const CatalogueEntry* entry = number ? EntryOf(*number) : nullptr;
    if (entry == nullptr) return Find(line_, "no parameter has this number");

    HeldValue held{.number = static_cast<int32_t>(*number),
                   .name = object.value("name").toString().toStdString(),
                   .raw = {},
                   .shown = object.value("shown").toString().toStdString()};
    const bool copy = entry->number != held.number;
    const std::string name = copy ? MirrorName(*entry) : entry->name;
    if (held.name != name) {
      return Find(line_, "parameter " + std::to_string(held.number) + " is called \"" + name + '"');
    }
    const auto raw = Raw(object);
    if (!raw) return Find(line_, name + ": the raw value isn't one of its size");
    held.raw = *raw;
    CheckRange(*entry, held);
    CheckOrder(held);
    parsed_.snapshot.values.push_back(std::move(held));
  }

  // The entry of a parameter, or of that whose second copy it is.
  const CatalogueEntry* EntryOf(int64_t number) const {
    if (number > std::numeric_limits<int32_t>::max()) return nullptr;
    const auto wanted = static_cast<int32_t>(number);
    const CatalogueEntry* entry = catalogue_.Find(wanted);
    return entry != nullptr ? entry : catalogue_.FindByMirror(wanted);
  }

  static std::optional<Bytes> Raw(const QJsonObject& object) {
    const auto size = WholeNumber(object.value("size"));
    if (!size || *size < 1 || *size > kMostBytes) return std::nullopt;
    if (*size > kNumberBytes) {
      auto raw = BytesOfHex(object.value("raw").toString().toStdString());
      return raw && static_cast<int64_t>(raw->size()) == *size ? raw : std::nullopt;
    }
    const auto number = WholeNumber(object.value("raw"));
    if (!number || *number >> (8 * *size) != 0) return std::nullopt;
    return BytesOf(static_cast<uint32_t>(*number), static_cast<int>(*size));
  }

  void CheckRange(const CatalogueEntry& entry, const HeldValue& held) {
    const bool number = held.raw.size() <= kNumberBytes;
    if (entry.role == Role::kReadOnly || (number && IsInRange(entry, NumberOf(held.raw)))) return;
    parsed_.out_of_range.push_back({line_, held.name + ": " + held.shown + " is not " +
                                               std::to_string(entry.lowest) + " to " +
                                               std::to_string(entry.highest)});
  }

  void CheckOrder(const HeldValue& held) {
    const std::vector<HeldValue>& values = parsed_.snapshot.values;
    if (values.empty() || values.back().number < held.number) return;
    Find(line_, held.name + (parsed_.snapshot.Find(held.number) != nullptr
                                 ? " stands twice"
                                 : " stands behind a parameter of a higher number"));
  }

  void CompareIdentity() {
    const HeldValue* machine = parsed_.snapshot.Find("machine.number");
    if (machine == nullptr || NumberOf(machine->raw) == parsed_.snapshot.machine) return;
    Find(LineOfKey("machine"), "another machine than machine.number holds");
  }

  std::string_view text_;
  const Catalogue& catalogue_;
  ParsedSnapshot parsed_;
  int line_ = 1;  // of the value that is being read
};

}  // namespace

ParsedSnapshot ParseSnapshot(std::string_view text, const Catalogue& catalogue) {
  return Reader(text, catalogue).Read();
}

}  // namespace sorvane::cli
