#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>

#include "pages/model/imposta_model.h"
#include "pages/model/map_models.h"
#include "pages/model/orologio_model.h"
#include "pages/model/pagamento_model.h"
#include "pages/model/password_model.h"
#include "pages/model/player.h"
#include "pages/model/prezzi_model.h"
#include "pages/model/sconti_model.h"

namespace sorvane::test {
namespace {

constexpr unsigned kSeeds = 8;
constexpr int kSteps = 400;

template <typename Model>
std::unique_ptr<model::PageModel> Make(model::Machine& machine, QChar separator) {
  return std::make_unique<Model>(machine, separator);
}

const model::PageUnderTest kPages[] = {
    {"FrmImposta", "MnuImpostazioni", Make<model::ImpostaModel>},
    {"FrmPassword", "MnuPassword", Make<model::PasswordModel>},
    {"FrmPrezzi", "MnuPrezzi", Make<model::PrezziModel>},
    {"FrmSconti", "MnuSconti", Make<model::ScontiModel>},
    {"FrmTastiColonna", "Mnutasti", Make<model::TastiModel>},
    {"FrmColonnaProd", "MnuColonne", Make<model::ColonnaProdModel>},
    {"FrmOrologio", "MnuOrologio", Make<model::OrologioModel>},
    {"FrmPagamento", "MnuPagamento", Make<model::PagamentoModel>},
};

using Case = std::tuple<model::PageUnderTest, unsigned>;

class RandomSequence : public testing::TestWithParam<Case> {};

// Of even seeds the locale has a point, of odd ones a comma.
TEST_P(RandomSequence, LeavesThePageAsItsRulesSay) {
  const auto& [page, seed] = GetParam();
  model::Player player(page, seed);
  player.Play(kSteps);
}

INSTANTIATE_TEST_SUITE_P(Pages, RandomSequence,
                         testing::Combine(testing::ValuesIn(kPages),
                                          testing::Range(1U, kSeeds + 1)),
                         [](const testing::TestParamInfo<Case>& one) {
                           return std::string(std::get<0>(one.param).form) + "_Seed" +
                                  std::to_string(std::get<1>(one.param));
                         });

}  // namespace
}  // namespace sorvane::test
