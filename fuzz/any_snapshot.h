#pragma once

#include "catalogue/catalogue.h"
#include "cli/snapshot.h"
#include "input.h"

namespace sorvane::fuzz {

const Catalogue& TheCatalogue();

// A snapshot that a board could give: any of the parameters and second copies, in their order, each
// with a value of any size and content. Takes the whole input.
cli::Snapshot AnySnapshot(Input& input);

}  // namespace sorvane::fuzz
