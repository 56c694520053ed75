#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The password page.
class PasswordModel : public PageModel {
 public:
  using PageModel::PageModel;

  std::vector<int> Watched() const override { return {411, 412, 413, 414, 3}; }
  std::vector<int> Pivotal() const override { return {3}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;
  bool MayHold(const std::string& field, const QString& text) const override;
  bool MayConfirm(const std::string& field, const QString& text) const override;

 protected:
  void Build() override;
  void OnReply(int parameter, std::int64_t value) override;
  void OnEnter(const std::string& field) override;
  void OnChange(const std::string& control) override;
  void OnTime(int milliseconds) override;
  void OnClose() override { waits_.clear(); }

 private:
  // A digit that was confirmed and is written once half a second has passed. A later one stands on
  // top of it and is written first.
  struct Wait {
    std::string field;
    int mark;  // milliseconds since the start
  };
  std::vector<Wait> waits_;
};

}  // namespace sorvane::test::model
