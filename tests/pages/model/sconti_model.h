#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The discounts page.
class ScontiModel : public PageModel {
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
  void ShowDiscount(int row, std::int64_t raw);
  void OpenRows(int first, int end, bool open);

  std::int64_t decimals_ = 255;
  std::int64_t selections_ = 0;
};

}  // namespace sorvane::test::model
