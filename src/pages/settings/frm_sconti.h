#pragma once

#include "pages/settings/selection_page.h"

namespace sorvane {

// The discounts of the ten selections.
class FrmSconti : public SelectionPage {
 public:
  explicit FrmSconti(const PageServices& services);

 protected:
  void AfterReply() override;

 private:
  int16_t FreshCount = 0;
};

}  // namespace sorvane
