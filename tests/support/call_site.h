#pragma once

#include <string>

namespace sorvane::test {

// The line of a test that called a helper, so that a failure names that line. Helpers take it as
// their last argument, with Here() as its default.
struct CallSite {
  const char* file;
  int line;

  static constexpr CallSite Here(const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
    return {file, line};
  }
};

// Fails the running test at that line, and goes on.
void FailAt(const CallSite& at, const std::string& words);

}  // namespace sorvane::test
