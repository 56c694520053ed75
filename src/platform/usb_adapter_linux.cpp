#include "platform/usb_adapter_linux.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/usb_adapter.h"

namespace sorvane {
namespace {

constexpr std::string_view kDevice = "ttyUSB";
constexpr unsigned kFirstPort = 5;

// The number of a device; none for the driver's other entries.
std::optional<unsigned> DeviceNumber(const std::string& name) {
  if (!name.starts_with(kDevice)) return std::nullopt;
  const char* end = name.data() + name.size();
  unsigned number = 0;
  const auto [rest, error] = std::from_chars(name.data() + kDevice.size(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

}  // namespace

std::string FindUsbPortLinux(const std::filesystem::path& sys_folder) {
  std::error_code error;
  std::filesystem::directory_iterator entry(sys_folder / "bus/usb-serial/drivers/ftdi_sio", error);
  std::optional<unsigned> first;
  while (!error && entry != std::filesystem::directory_iterator()) {
    const std::optional<unsigned> number = DeviceNumber(entry->path().filename().string());
    if (number) first = std::min(*number, first.value_or(*number));
    entry.increment(error);
  }
  return first ? "COM" + std::to_string(kFirstPort + *first) : std::string();
}

std::string FindSystemUsbPort() { return FindUsbPortLinux("/sys"); }

}  // namespace sorvane
