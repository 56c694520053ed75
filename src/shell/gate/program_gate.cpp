#include "shell/gate/program_gate.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr int kFailed = 1;

}  // namespace

void ProgramGate::Run(const std::function<void()>& handler) {
  if (shut_) return;
  std::string report;
  try {
    handler();
    return;
  } catch (const RuntimeError& error) {
    report = "Run-time error '" + std::to_string(error.Number()) + "':\n\n" + error.what();
  } catch (const InternalFault& fault) {
    std::fprintf(stderr, "Internal fault: %s\n", fault.what());
  } catch (const std::exception& error) {
    report = std::string("Run-time error:\n\n") + error.what();
  }
  if (shut_) return;
  shut_ = true;
  if (report.empty()) {
    ways_.leave(kFailed);
    return;
  }
  std::fprintf(stderr, "%s\n", report.c_str());
  ways_.report(report, [this] { ways_.leave(kFailed); });
}

std::function<void()> ProgramGate::Wrap(std::function<void()> handler) {
  return [this, inner = std::move(handler)] { Run(inner); };
}

void ProgramGate::End(int exit_code) {
  const int code = shut_ ? kFailed : exit_code;
  shut_ = true;
  ways_.leave(code);
}

}  // namespace sorvane
