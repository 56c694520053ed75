#include <string>

#include "platform/com_port_path.h"

namespace sorvane {

std::filesystem::path ComPortPath(const std::filesystem::path&, int number) {
  return L"\\\\.\\COM" + std::to_wstring(number);
}

}  // namespace sorvane
