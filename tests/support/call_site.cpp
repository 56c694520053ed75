#include "support/call_site.h"

#include <gtest/gtest.h>

namespace sorvane::test {

void FailAt(const CallSite& at, const std::string& words) {
  ADD_FAILURE_AT(at.file, at.line) << words;
}

}  // namespace sorvane::test
