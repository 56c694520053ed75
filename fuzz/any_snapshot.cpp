#include "any_snapshot.h"

#include <string>

namespace sorvane::fuzz {
namespace {

using cli::HeldValue;
using cli::Snapshot;

// Texts of a snapshot are UTF-8; these have every sign that JSON writes in another way.
std::string Text(Input& input) {
  std::string text = input.TakeText(input.Byte() % 8U);
  for (char& c : text) c = static_cast<char>(c & 127);
  return text;
}

}  // namespace

const Catalogue& TheCatalogue() {
  static const Catalogue catalogue;
  return catalogue;
}

Snapshot AnySnapshot(Input& input) {
  Snapshot snapshot{.time = Text(input),
                    .program = Text(input),
                    .type = input.Word(),
                    .software = input.Byte(),
                    .revision = input.Byte(),
                    .index_file = Text(input),
                    .index_sum = Text(input),
                    .machine = input.Word() * 65536U + input.Word(),
                    .location = input.Word(),
                    .decimals = input.Byte(),
                    .complete = input.Byte() % 2 == 0,
                    .values = {}};
  int32_t number = 0;
  while (!input.Empty()) {
    number += 1 + input.Byte() % 16;
    const CatalogueEntry* entry = TheCatalogue().Find(number);
    const bool copy = entry == nullptr;
    if (copy) entry = TheCatalogue().FindByMirror(number);
    if (entry == nullptr) continue;
    HeldValue value{.number = number,
                    .name = copy ? cli::MirrorName(*entry) : entry->name,
                    .raw = input.Take(1U + input.Byte() % 16U),
                    .shown = Text(input)};
    if (value.raw.empty()) value.raw.push_back(0);
    if (value.name == "machine.number") snapshot.machine = cli::NumberOf(value.raw);
    snapshot.values.push_back(value);
  }
  return snapshot;
}

}  // namespace sorvane::fuzz
