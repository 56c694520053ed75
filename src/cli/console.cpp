#include "cli/console.h"

#include <iostream>

#include "cli/failure.h"

namespace sorvane::cli {
namespace {

constexpr int kBarWidth = 30;

}  // namespace

void Console::Print(std::string_view text) {
  WipeProgress();
  streams_.out << text << std::flush;
  if (!streams_.out) throw Failure(ExitCode::kUsage, "the standard output can't be written");
}

void Console::Tell(std::string_view words) {
  if (!quiet_) Complain(words);
}

void Console::Complain(std::string_view words) {
  WipeProgress();
  streams_.err << words << std::endl;
}

bool Console::Confirm(std::string_view question) {
  if (!streams_.asks) return false;
  WipeProgress();
  streams_.err << question << " [y/N] " << std::flush;
  std::string answer;
  if (!std::getline(streams_.in, answer)) streams_.err << std::endl;
  return answer == "y" || answer == "Y" || answer == "yes";
}

void Console::ShowProgress(std::string_view what, int done, int all) {
  if (quiet_ || !streams_.watched || all == 0) return;
  const int filled = kBarWidth * done / all;
  std::string bar = "\r" + std::string(what) + " [" +
                    std::string(static_cast<std::size_t>(filled), '#') +
                    std::string(static_cast<std::size_t>(kBarWidth - filled), ' ') + "] " +
                    std::to_string(done) + '/' + std::to_string(all);
  streams_.err << bar << std::flush;
  progress_ = bar.size() - 1;
}

void Console::WipeProgress() {
  if (progress_ == 0) return;
  streams_.err << '\r' << std::string(progress_, ' ') << '\r' << std::flush;
  progress_ = 0;
}

}  // namespace sorvane::cli
