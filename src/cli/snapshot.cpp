#include "cli/snapshot.h"

#include <algorithm>

namespace sorvane::cli {

const HeldValue* Snapshot::Find(int32_t number) const {
  const auto found = std::ranges::find(values, number, &HeldValue::number);
  return found == values.end() ? nullptr : &*found;
}

const HeldValue* Snapshot::Find(const std::string& name) const {
  const auto found = std::ranges::find(values, name, &HeldValue::name);
  return found == values.end() ? nullptr : &*found;
}

}  // namespace sorvane::cli
