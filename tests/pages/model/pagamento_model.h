#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pages/model/page_model.h"

namespace sorvane::test::model {

// The payment page.
class PagamentoModel : public PageModel {
 public:
  using PageModel::PageModel;

  std::vector<int> Watched() const override;
  std::vector<int> Pivotal() const override { return {3, 22, 71}; }
  std::vector<int> BoardValues(int parameter) const override;
  std::vector<QString> Texts(const std::string& field) const override;
  bool MayConfirm(const std::string& field, const QString& text) const override;

 protected:
  void Build() override;
  void OnReply(int parameter, std::int64_t value) override;
  void OnEnter(const std::string& field) override;
  void OnChange(const std::string& control) override;

 private:
  // One field with its bar.
  struct Pair {
    const char* tabs;
    int tab;
    std::string text;
    std::string bar;
    int parameter;
    int mirror;
    int lowest;  // raw values
    int highest;
    int offset;  // of the raw value over the position
    int large_step;
    int characters;
    bool money;
  };

  static std::vector<Pair> MakePairs();
  const Pair& PairOf(const std::string& control) const;
  void ShowPair(const Pair& pair, std::int64_t raw);
  void ShowSystem(int system);
  void SetFlags(const char* array, int first, int count, std::int64_t byte);
  void WriteFlag(int& byte, int bit, bool on, int parameter, int mirror);

  const std::vector<Pair> pairs_ = MakePairs();
  std::int64_t decimals_ = 255;
  int changer_flags_ = 0;
  int sale_flags_ = 0;
  int low_flags_ = 0;
  int high_flags_ = 0;
};

}  // namespace sorvane::test::model
