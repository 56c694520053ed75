#include "cli/write_plan.h"

#include <algorithm>
#include <tuple>

#include "board/parameter.h"

namespace sorvane::cli {
namespace {

constexpr std::string_view kMasked = "*";

// Whether the board holds a value in both of its places.
bool Stands(const Snapshot& held, const CatalogueEntry& entry, const Bytes& raw) {
  const HeldValue* copy = held.Find(entry.mirror);
  return held.Find(entry.number)->raw == raw && (copy == nullptr || copy->raw == raw);
}

std::string Shown(const CatalogueEntry& entry, const Bytes& raw, const NumberStyle& style) {
  return entry.role == Role::kSecret ? std::string(kMasked) : ShownValue(entry, raw, style);
}

}  // namespace

WritePlan PlanWrites(const Snapshot& held, const std::vector<Wanted>& wanted) {
  WritePlan plan;
  for (const Wanted& value : wanted) {
    const CatalogueEntry& entry = *value.entry;
    const HeldValue* now = held.Find(entry.number);
    if (now == nullptr || now->raw.size() != value.raw.size()) {
      plan.left_behind.push_back(entry.name + (now == nullptr ? ": the board has no such parameter"
                                                              : ": of another size"));
      continue;
    }
    if (Stands(held, entry, value.raw)) continue;
    if (!IsInRange(entry, NumberOf(value.raw))) {
      const NumberStyle style = held.Style('.');
      plan.out_of_range.push_back(entry.name + ": " + Shown(entry, value.raw, style) + " is not " +
                                  ShownRange(entry, style));
      continue;
    }
    plan.writes.push_back({.entry = &entry, .from = now->raw, .to = value.raw});
  }
  std::ranges::sort(plan.writes, {}, [](const PlannedWrite& write) {
    return std::tuple(write.entry->number != parameter::kDecimalPoint, write.entry->number);
  });
  return plan;
}

std::string PlanLines(const WritePlan& plan, const NumberStyle& style) {
  std::string lines;
  for (const PlannedWrite& write : plan.writes) {
    const CatalogueEntry& entry = *write.entry;
    lines += entry.name + ": " + Shown(entry, write.from, style) + " -> " +
             Shown(entry, write.to, style) + (write.from == write.to ? " (second copy)\n" : "\n");
  }
  return lines;
}

}  // namespace sorvane::cli
