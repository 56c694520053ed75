#pragma once

#include <cstddef>

namespace sorvane::test {

// While it lives, an allocation of more than most bytes fails with std::bad_alloc. For test
// programs that are built with scarce_memory.cpp, which takes the place of the language's own
// allocation.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t most);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
};

}  // namespace sorvane::test
