#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/connected_board.h"

namespace sorvane::cli {

// A parameter or a bit of one, by the name that a person typed.
struct Named {
  const CatalogueEntry* entry = nullptr;
  const CatalogueBit* bit = nullptr;  // of the entry; null for the whole parameter

  const std::string& Name() const { return bit != nullptr ? bit->name : entry->name; }
};

// Throws Failure kUsage for a name that nothing has; it tells names that begin alike.
Named FindNamed(const Catalogue& catalogue, const std::string& name);

std::vector<Named> FindAllNamed(const Catalogue& catalogue, const std::vector<std::string>& names);

// What a value shows of it.
std::string ShownNamed(const Named& named, const Bytes& raw, const NumberStyle& style);

}  // namespace sorvane::cli
