#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The general settings page.
class ImpostaModel : public PageModel {
 public:
  using PageModel::PageModel;

  std::vector<int> Watched() const override;
  std::vector<int> Pivotal() const override { return {1, 3}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;

 protected:
  void Build() override;
  void OnReply(int parameter, std::int64_t value) override;
  void OnTextReply(int parameter, const QString& text) override;
  void OnEnter(const std::string& field) override;
  void OnChange(const std::string& control) override;

 private:
  void ShowLanguage();
  void ShowSetting(int row, std::int64_t raw);
  static Parsed Parse(const QString& text, bool tenths);

  std::array<QString, 11> names_;
  std::int64_t language_ = 0;
};

}  // namespace sorvane::test::model
