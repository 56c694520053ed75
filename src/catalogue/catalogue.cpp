#include "catalogue/catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "catalogue/catalogue_rows.h"

namespace sorvane {
namespace {

constexpr std::array<std::string_view, kGroups> kGroupNames = {
    "general", "prices",    "items",    "discounts", "clock",  "bands", "payment",
    "coins",   "banknotes", "mdb",      "tubes",     "tokens", "keys",  "products",
    "options", "password",  "identity", "audit",     "alarms"};

std::string Numbered(const char* pattern, int number) {
  std::string words = pattern;
  const std::size_t mark = words.find('#');
  if (mark != std::string::npos) words.replace(mark, 1, std::to_string(number));
  return words;
}

template <typename Entry>
const Entry* ByName(const std::vector<Entry>& entries, std::string_view name) {
  const auto found = std::ranges::find(entries, name, &Entry::name);
  return found == entries.end() ? nullptr : &*found;
}

}  // namespace

Catalogue::Catalogue() {
  for (const CatalogueRow& row : kCatalogueRows) {
    for (int i = 0; i < row.count; ++i) {
      entries_.push_back({
          .number = row.number + i * row.stride,
          .name = Numbered(row.name, row.counted_from + i),
          .title = Numbered(row.title, row.counted_from + i),
          .group = row.group,
          .form = row.form,
          .role = row.role,
          .lowest = row.lowest,
          .highest = row.highest,
          .mirror = row.mirror == 0 ? 0 : row.mirror + i,
      });
    }
  }
  std::ranges::sort(entries_, {}, &CatalogueEntry::number);
  for (const BitRow& row : kBitRows) {
    for (int i = 0; i < row.count; ++i) {
      bits_.push_back({
          .name = Numbered(row.name, row.counted_from + i),
          .title = Numbered(row.title, row.counted_from + i),
          .group = row.group,
          .number = row.number,
          .mask = static_cast<uint8_t>(row.mask << i),
      });
    }
  }
}

const CatalogueEntry* Catalogue::Find(int32_t number) const {
  const auto found = std::ranges::lower_bound(entries_, number, {}, &CatalogueEntry::number);
  return found == entries_.end() || found->number != number ? nullptr : &*found;
}

const CatalogueEntry* Catalogue::Find(std::string_view name) const {
  return ByName(entries_, name);
}

const CatalogueBit* Catalogue::FindBit(std::string_view name) const { return ByName(bits_, name); }

const CatalogueEntry* Catalogue::FindByMirror(int32_t mirror) const {
  const auto found = std::ranges::find(entries_, mirror, &CatalogueEntry::mirror);
  return found == entries_.end() || mirror == 0 ? nullptr : &*found;
}

std::string_view GroupName(Group group) { return kGroupNames.at(static_cast<std::size_t>(group)); }

std::optional<Group> FindGroup(std::string_view name) {
  const auto found = std::ranges::find(kGroupNames, name);
  if (found == kGroupNames.end()) return std::nullopt;
  return static_cast<Group>(found - kGroupNames.begin());
}

}  // namespace sorvane
