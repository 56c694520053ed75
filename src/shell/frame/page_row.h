#pragma once

#include <functional>
#include <memory>

#include "shell/frame/menu_entry.h"
#include "shell/page/child_form.h"
#include "shell/page/page_services.h"

namespace sorvane {

// A form that a menu entry opens. The frame knows no page but by such a row.
struct PageRow {
  MenuEntry entry;
  const char* form;
  std::function<std::unique_ptr<ChildForm>(const PageServices&)> make;
};

}  // namespace sorvane
