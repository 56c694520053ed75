#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The clock page.
class OrologioModel : public PageModel {
 public:
  using PageModel::PageModel;

  std::vector<int> Watched() const override;
  std::vector<int> Pivotal() const override { return {3, 56}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;
  bool MayConfirm(const std::string& field, const QString& text) const override;
  void PressButton(const std::string& button, const QDateTime& pc_clock) override;

 protected:
  void Build() override;
  void OnReply(int parameter, std::int64_t value) override;
  void AfterReply() override;
  void OnEnter(const std::string& field) override;
  void OnChange(const std::string& control) override;

 private:
  void Probe(std::int64_t day);
  void OpenPage(bool open);
  void ShowPart(const char* text, const char* bar, int index, std::int64_t value);

  bool fitted_ = false;
  bool probe_start_ = true;
  bool probe_check_ = true;
  std::int64_t saved_day_ = 0;
  std::int64_t day_ = 0;
  std::int64_t month_ = 0;
  std::int64_t year_ = 0;
  std::int64_t hours_ = 0;
  std::int64_t minutes_ = 0;
  int flags_ = 0;
};

}  // namespace sorvane::test::model
