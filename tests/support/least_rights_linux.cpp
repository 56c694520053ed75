#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <stdexcept>

#include "support/least_rights.h"

namespace sorvane::test {
namespace {

using Sets = std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3>;

// Gives this process those of the rights that it may have which are in the mask.
void UseRights(std::uint32_t low, std::uint32_t high) {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  Sets sets{};
  bool done = syscall(SYS_capget, &header, sets.data()) == 0;
  sets[0].effective = sets[0].permitted & low;
  sets[1].effective = sets[1].permitted & high;
  done = done && syscall(SYS_capset, &header, sets.data()) == 0;
  if (!done) throw std::runtime_error("can't change the rights of this process");
}

}  // namespace

LeastRights::LeastRights() { UseRights(CAP_TO_MASK(CAP_DAC_READ_SEARCH), 0); }
LeastRights::~LeastRights() { UseRights(~std::uint32_t{0}, ~std::uint32_t{0}); }

}  // namespace sorvane::test
