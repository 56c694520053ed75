#pragma once

#include <cstdint>
#include <vector>

#include "shell/page/field_group.h"
#include "shell/page/page.h"

class QLabel;

namespace sorvane {

// A page that gives each of ten rows a whole number: keys their columns, columns their products.
class SelectionMapPage : public Page {
 public:
  struct Constants {
    const char* form;
    int title;          // message
    int heading;        // message over each half of the page; 0 for no headings
    uint8_t opened_by;  // bit of the options without which the page is closed; 0 for none
    FieldRow row;
  };

  // constants outlive the page.
  SelectionMapPage(const PageServices& services, const Constants& constants);

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;

 private:
  void LayOut();
  void OpenAll(bool open);
  // Opens the first SelectionCount rows and closes the others.
  void OpenSelections();

  const Constants& constants_;
  int16_t SelectionCount = 0;
  FieldState state_;
  std::vector<QLabel*> headings_;
  FieldGroup fields_;
};

extern const SelectionMapPage::Constants kFrmTastiColonna;
extern const SelectionMapPage::Constants kFrmColonnaProd;

}  // namespace sorvane
