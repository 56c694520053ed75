#include "pages/audit/channel_page.h"

#include <numeric>

#include "board/parameter.h"

namespace sorvane {
namespace {

constexpr int kHalf = parameter::kChannels / 2;

// One half of the channels, from a channel counted from 0 on.
constexpr AuditRow Channels(int message, int32_t parameter, int first) {
  return {"LabelMess1", first, message, first + 1, first, parameter + first, kHalf};
}

constexpr AuditRow kCoinsLeft[] = {Channels(75, parameter::kCoinsTaken, 0)};
constexpr AuditRow kCoinsRight[] = {Channels(75, parameter::kCoinsTaken, kHalf)};
constexpr AuditGroup kCoins[] = {{kNoFrame, kCoinsLeft, 0, 0}, {kNoFrame, kCoinsRight, 0, 1}};

constexpr AuditRow kBanknotesLeft[] = {Channels(77, parameter::kBanknotesTaken, 0)};
constexpr AuditRow kBanknotesRight[] = {Channels(77, parameter::kBanknotesTaken, kHalf)};
constexpr AuditGroup kBanknotes[] = {{kNoFrame, kBanknotesLeft, 0, 0},
                                     {kNoFrame, kBanknotesRight, 0, 1}};

}  // namespace

const ChannelPage::Constants kFrmMonete = {"FrmMonete", 12, parameter::kCoinsTaken, kCoins};
const ChannelPage::Constants kFrmBanconote = {"FrmBanconote", 13, parameter::kBanknotesTaken,
                                              kBanknotes};

ChannelPage::ChannelPage(const PageServices& services, const Constants& constants)
    : AuditPage(services, constants.form, constants.title, constants.groups),
      constants_(constants) {}

std::vector<int32_t> ChannelPage::WatchedParameters() const {
  std::vector<int32_t> watched(parameter::kChannels);
  std::iota(watched.begin(), watched.end(), constants_.parameter);
  return watched;
}

}  // namespace sorvane
