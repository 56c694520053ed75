#include "cli/named_values.h"

#include <string_view>

namespace sorvane::cli {
namespace {

constexpr std::size_t kMostHints = 5;

std::string Hints(const Catalogue& catalogue, std::string_view name) {
  const std::string_view stem = name.substr(0, name.find_first_of(".-"));
  std::string hints;
  std::size_t count = 0;
  const auto add = [&](const std::string& known) {
    if (stem.empty() || !known.starts_with(stem) || ++count > kMostHints) return;
    hints += (hints.empty() ? "; there are " : ", ") + known;
  };
  for (const CatalogueEntry& entry : catalogue.Entries()) add(entry.name);
  for (const CatalogueBit& bit : catalogue.Bits()) add(bit.name);
  return count > kMostHints ? hints + " and more" : hints;
}

}  // namespace

Named FindNamed(const Catalogue& catalogue, const std::string& name) {
  if (const CatalogueEntry* entry = catalogue.Find(name)) return {.entry = entry};
  if (const CatalogueBit* bit = catalogue.FindBit(name)) {
    return {.entry = catalogue.Find(bit->number), .bit = bit};
  }
  throw Failure(ExitCode::kUsage, "nothing is called " + name + Hints(catalogue, name));
}

std::vector<Named> FindAllNamed(const Catalogue& catalogue, const std::vector<std::string>& names) {
  std::vector<Named> all;
  all.reserve(names.size());
  for (const std::string& name : names) all.push_back(FindNamed(catalogue, name));
  return all;
}

std::string ShownNamed(const Named& named, const Bytes& raw, const NumberStyle& style) {
  if (named.bit != nullptr) return std::string(ShownBit((raw.front() & named.bit->mask) != 0));
  return ShownValue(*named.entry, raw, style);
}

}  // namespace sorvane::cli
