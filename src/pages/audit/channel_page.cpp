#include "pages/audit/channel_page.h"

#include <numeric>

#include "board/message.h"
#include "board/parameter.h"

namespace sorvane {
namespace {

constexpr int kHalf = parameter::kChannels / 2;

// One half of the channels, from a channel counted from 0 on.
constexpr AuditRow Channels(int message, int32_t parameter, int first) {
  return {
      .caption_index = first,
      .message = message,
      .number = first + 1,
      .value = first,
      .parameter = parameter + first,
      .count = kHalf,
  };
}

constexpr AuditRow kCoinsLeft[] = {Channels(message::kCoin, parameter::kCoinsTaken, 0)};
constexpr AuditRow kCoinsRight[] = {Channels(message::kCoin, parameter::kCoinsTaken, kHalf)};
constexpr AuditGroup kCoins[] = {
    {.rows = kCoinsLeft, .row = 0, .column = 0},
    {.rows = kCoinsRight, .row = 0, .column = 1},
};

constexpr AuditRow kBanknotesLeft[] = {Channels(message::kBanknote, parameter::kBanknotesTaken, 0)};
constexpr AuditRow kBanknotesRight[] = {
    Channels(message::kBanknote, parameter::kBanknotesTaken, kHalf),
};
constexpr AuditGroup kBanknotes[] = {
    {.rows = kBanknotesLeft, .row = 0, .column = 0},
    {.rows = kBanknotesRight, .row = 0, .column = 1},
};

}  // namespace

const ChannelPage::Constants kFrmMonete = {
    .form = "FrmMonete",
    .title = message::kCoins,
    .parameter = parameter::kCoinsTaken,
    .groups = kCoins,
};
const ChannelPage::Constants kFrmBanconote = {
    .form = "FrmBanconote",
    .title = message::kBanknotes,
    .parameter = parameter::kBanknotesTaken,
    .groups = kBanknotes,
};

ChannelPage::ChannelPage(const PageServices& services, const Constants& constants)
    : AuditPage(services, constants.form, constants.title, constants.groups),
      constants_(constants) {}

std::vector<int32_t> ChannelPage::WatchedParameters() const {
  std::vector<int32_t> watched(parameter::kChannels);
  std::iota(watched.begin(), watched.end(), constants_.parameter);
  return watched;
}

}  // namespace sorvane
