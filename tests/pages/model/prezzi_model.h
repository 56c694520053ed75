#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The prices page.
class PrezziModel : public PageModel {
 public:
  using PageModel::PageModel;

  std::vector<int> Watched() const override;
  std::vector<int> Pivotal() const override { return {2, 22}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;
  bool MayConfirm(const std::string& /*field*/, const QString& text) const override {
    return IsSmallAmount(text, decimals_);
  }

 protected:
  void Build() override;
  void OnReply(int parameter, std::int64_t value) override;
  void AfterReply() override;
  void OnEnter(const std::string& field) override;
  void OnChange(const std::string& control) override;

 private:
  void ShowPair(const char* text, const char* bar, int row, std::int64_t raw);
  void OpenRows(int end, bool open);
  bool IsTwo(const QString& text) const;

  std::int64_t decimals_ = 255;
  std::int64_t selections_ = 0;
  bool price_seen_ = false;  // parameter 23 was fresh once together with parameter 2
  bool item_seen_ = false;   // and so was 33
};

}  // namespace sorvane::test::model
