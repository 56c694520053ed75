#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cstdio>

// The main function of the tests of this floor, which need Qt's event loop. A program in which
// nothing was run, or in which tests were skipped or disabled, has failed.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  const int result = RUN_ALL_TESTS();
  const auto& run = *::testing::UnitTest::GetInstance();
  if (run.test_to_run_count() == 0 || run.skipped_test_count() > 0 ||
      run.disabled_test_count() > 0) {
    std::fprintf(stderr, "no tests were run, or some were left out\n");
    return 1;
  }
  return result;
}
