#pragma once

#include "shell/field_group.h"
#include "shell/page.h"

namespace sorvane {

// The discounts of the ten selections.
class FrmSconti : public Page {
 public:
  explicit FrmSconti(const PageServices& services);

  void Load() override;

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;
  void AfterReply() override;

 private:
  int16_t Decimals = 255;  // of money amounts; 255 stands for not known yet
  int32_t FieldValue = 0;  // the last raw value that was typed
  int16_t SelectionCount = 0;
  int16_t FreshCount = 0;
  FieldGroup fields_;
};

}  // namespace sorvane
