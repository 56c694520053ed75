#include "platform/GetUSBT.h"

#include <array>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr std::size_t kBufferSize = 255;

constexpr char kDriver[] = "FTDIBUS";

constexpr char kDevices[] = "Config Manager\\Enum";
constexpr char kHardware[] = "Enum\\";

constexpr char kNtDriver[] = "SYSTEM\\CurrentControlSet\\Services\\FTSER2K\\Enum\\";
constexpr char kNtHardware[] = "SYSTEM\\CurrentControlSet\\Enum\\";
constexpr char kNtParameters[] = "\\Device Parameters";

// Empty if the read fails.
std::string ReadText(RegistryReader& registry, RegistryRoot root, const std::string& key,
                     const std::string& value) {
  std::array<char, kBufferSize> buffer{};
  const std::optional<std::size_t> length = registry.ReadValue(root, key, value, buffer);
  if (!length) return {};
  return CutRegistryText(std::string_view(buffer.data(), buffer.size()), *length);
}

// The layout of the older family, with the configuration manager's dynamic data.
std::string FindInDynamicData(RegistryReader& registry) {
  if (!registry.KeyOpens(RegistryRoot::kDynData, kDevices)) return {};
  const std::vector<std::string> names = ListSubkeys(registry, RegistryRoot::kDynData, kDevices);
  if (names.empty()) throw RuntimeError(ErrorCode::kSubscriptOutOfRange);
  for (const std::string& name : names) {
    if (name.empty()) break;
    const std::string device = ReadText(registry, RegistryRoot::kDynData,
                                        std::string(kDevices) + "\\" + name, "HardWareKey");
    if (device.find(kDriver) != std::string::npos) {
      return ReadText(registry, RegistryRoot::kLocalMachine, kHardware + device, "PortName");
    }
  }
  return {};
}

std::string FindInNtLayout(RegistryReader& registry) {
  const std::string device = ReadText(registry, RegistryRoot::kLocalMachine, kNtDriver, "0");
  if (device.empty()) return {};
  return ReadText(registry, RegistryRoot::kLocalMachine, kNtHardware + device + kNtParameters,
                  "PortName");
}

}  // namespace

std::string FindUsbPort(RegistryReader& registry) {
  const std::string port = FindInDynamicData(registry);
  return port.empty() ? FindInNtLayout(registry) : port;
}

std::string CutRegistryText(std::string_view buffer, std::size_t length) {
  std::string_view text = buffer.substr(0, length);
  if (text.ends_with('\0')) text.remove_suffix(1);
  return std::string(text);
}

std::vector<std::string> ListSubkeys(RegistryReader& registry, RegistryRoot root,
                                     const std::string& key) {
  const uint32_t count = registry.CountSubkeys(root, key);
  std::vector<std::string> names;
  for (uint32_t number = 0; number < count; ++number) {
    names.push_back(registry.SubkeyName(root, key, number));
  }
  return names;
}

}  // namespace sorvane
