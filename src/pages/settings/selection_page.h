#pragma once

#include <memory>
#include <span>
#include <vector>

#include "shell/page/field_group.h"
#include "shell/page/page.h"

namespace sorvane {

// A page with a row for each selection: an amount of money, and further numbers beside it. Its rows
// stay closed until the board has answered what the page asks after, and then as many open as the
// machine has selections.
class SelectionPage : public Page {
 public:
  // columns are the tables of the rows, the amounts first; they outlive the page.
  SelectionPage(const PageServices& services, const char* form_name, int title_message,
                std::span<const FieldRow> columns);

  void Load() override;

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;

  void DisableScroll();
  // Opens the first count rows and leaves the others as they are. Throws RuntimeError
  // kNoSuchElement, after opening all, where there are fewer.
  void EnableScroll(int count);

  int16_t SelectionCount = 0;

 private:
  // The columns side by side; a single one in two halves.
  void LayOut();
  void OnFieldReply(std::size_t column, Field& field, int64_t raw);

  int title_message_;
  FieldState state_;
  std::vector<std::unique_ptr<FieldGroup>> columns_;
};

}  // namespace sorvane
