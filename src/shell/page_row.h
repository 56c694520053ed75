#pragma once

#include <functional>
#include <memory>

#include "shell/child_form.h"
#include "shell/page_services.h"

namespace sorvane {

// A form that a menu entry opens. The frame knows no page but by such a row.
struct PageRow {
  const char* menu_entry;
  const char* form;
  std::function<std::unique_ptr<ChildForm>(const PageServices&)> make;
};

}  // namespace sorvane
