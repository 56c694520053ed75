#pragma once

#include <array>
#include <string>

#include "shell/page/field_group.h"
#include "shell/page/page.h"

namespace sorvane {

class Toggle;

// The general settings: language, selections, motors, temperatures, defrosting, numbers, and the
// switch for equal products. Its fields are open from the start.
class FrmImposta : public Page {
 public:
  explicit FrmImposta(const PageServices& services);

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;

 private:
  void LayOut();
  void OnSwitch();
  // Shows the language once its number and all names have been answered.
  void ShowLanguage();
  void OnNumberReply(Field& field, const Reply& reply);

  FieldState state_;
  // The machine's languages, in the board's character set. Only 0 to 9 are ever filled.
  std::array<std::string, 11> LanguageNames;
  int16_t LanguageNumber = 0;
  FieldGroup fields_;
  QLabel* switch_label_;
  QLabel* yes_;
  QLabel* no_;
  Toggle* switch_ = nullptr;
};

}  // namespace sorvane
