#include "cli/utc_text.h"

#include <gtest/gtest.h>

namespace sorvane::cli {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

TEST(UtcTexts, AreDayAndTimeWithAllTheirDigits) {
  EXPECT_EQ(UtcText(sys_seconds(seconds(0))), "1970-01-01T00:00:00Z");
  EXPECT_EQ(UtcText(sys_seconds(seconds(1795357805))), "2026-11-22T14:30:05Z");
  EXPECT_EQ(UtcText(sys_seconds(seconds(951782399))), "2000-02-28T23:59:59Z");
  EXPECT_EQ(UtcText(sys_seconds(seconds(951782400))), "2000-02-29T00:00:00Z");
}

}  // namespace
}  // namespace sorvane::cli
