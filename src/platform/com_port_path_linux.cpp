#include <string>
#include <system_error>

#include "platform/com_port_path.h"

namespace sorvane {

std::filesystem::path ComPortPath(const std::filesystem::path& folder, int number) {
  std::filesystem::path link = std::filesystem::absolute(folder) / ("COM" + std::to_string(number));
  std::error_code error;
  if (std::filesystem::is_symlink(link, error)) return link;
  return "/dev/ttyS" + std::to_string(number - 1);
}

}  // namespace sorvane
