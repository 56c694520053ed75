#include "support/scarce_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace sorvane::test {
namespace {

constexpr std::size_t kPlenty = std::numeric_limits<std::size_t>::max();
std::size_t most_bytes = kPlenty;

void* AllocateOrNot(std::size_t bytes) {
  return bytes > most_bytes ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
}

void* Allocate(std::size_t bytes) {
  void* memory = AllocateOrNot(bytes);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

ScarceMemory::ScarceMemory(std::size_t most) { most_bytes = most; }
ScarceMemory::~ScarceMemory() { most_bytes = kPlenty; }

}  // namespace sorvane::test

// All that belong together: sanitizers bring forms of their own of those that are left out.
void* operator new(std::size_t bytes) { return sorvane::test::Allocate(bytes); }
void* operator new[](std::size_t bytes) { return sorvane::test::Allocate(bytes); }
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return sorvane::test::AllocateOrNot(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  return sorvane::test::AllocateOrNot(bytes);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
