#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The keys to columns page.
class TastiModel : public PageModel {
 public:
  using PageModel::PageModel;

  std::vector<int> Watched() const override;
  std::vector<int> Pivotal() const override { return {2}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;

 protected:
  void Build() override { BuildRows(10); }
  void OnReply(int parameter, std::int64_t value) override;
  void OnEnter(const std::string& field) override { EnterUpTo(10, field); }
  void OnChange(const std::string& control) override;

  void BuildRows(int highest);
  void OpenRows(int end, bool open);
  void ShowRow(int row, std::int64_t value);
  void OnSelections(std::int64_t count);
  void EnterUpTo(int highest, const std::string& field);
};

// The columns to products page.
class ColonnaProdModel : public TastiModel {
 public:
  using TastiModel::TastiModel;

  std::vector<int> Watched() const override;
  std::vector<int> Pivotal() const override { return {2, 3}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;
  bool MayConfirm(const std::string& field, const QString& text) const override;
  bool MayMove(const std::string& bar, int position) const override;

 protected:
  void Build() override;
  void OnReply(int parameter, std::int64_t value) override;
  void OnEnter(const std::string& field) override { EnterUpTo(100, field); }
  void OnChange(const std::string& control) override;
};

}  // namespace sorvane::test::model
