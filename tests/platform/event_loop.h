#pragma once

#include <functional>

namespace sorvane::test {

// Runs Qt's event loop until condition holds; false if it didn't within ten seconds.
bool RunUntil(const std::function<bool()>& condition);

// Runs Qt's event loop for some beats of 10 ms and returns how many times it woke up meanwhile.
int CountWakeUps(int beats);

}  // namespace sorvane::test
