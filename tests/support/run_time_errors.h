#pragma once

#include <gtest/gtest.h>

#include "board/errors.h"

namespace sorvane::test {

// The code of the run-time error that action must raise.
template <typename Action>
ErrorCode ErrorOf(const Action& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Code();
  }
  ADD_FAILURE() << "no run-time error";
  return {};
}

}  // namespace sorvane::test
