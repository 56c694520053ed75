#include "platform/com_port_path.h"

#include <string>
#include <system_error>

namespace sorvane {

std::filesystem::path ComPortPath(const std::filesystem::path& folder, int number) {
  const std::filesystem::path link =
      std::filesystem::absolute(folder) / ("COM" + std::to_string(number));
  std::error_code error;
  if (!std::filesystem::is_symlink(link, error)) {
    return "/dev/ttyS" + std::to_string(number - 1);
  }
  const std::filesystem::path device = std::filesystem::canonical(link, error);
  return error ? link : device;
}

}  // namespace sorvane
