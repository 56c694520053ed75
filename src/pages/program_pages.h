#pragma once

#include <QString>
#include <vector>

#include "shell/frame/page_row.h"

namespace sorvane {

struct Version;

// All pages of the program, with the menu entries that open them. title is the program's name.
std::vector<PageRow> ProgramPages(const QString& title, const Version& version);

}  // namespace sorvane
