#pragma once

#include "pages/settings/selection_page.h"

namespace sorvane {

// The prices of the ten selections, and an item number beside each.
class FrmPrezzi : public SelectionPage {
 public:
  explicit FrmPrezzi(const PageServices& services);

 protected:
  void AfterReply() override;

 private:
  int16_t FreshCount = 0;
  int16_t ItemFreshCount = 0;
};

}  // namespace sorvane
