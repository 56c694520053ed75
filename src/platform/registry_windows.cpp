#include "platform/registry_windows.h"

#include <windows.h>

#include <array>

#include "platform/usb_adapter.h"

namespace sorvane {
namespace {

constexpr REGSAM kRead = 0x20019;
constexpr std::size_t kNameSize = 255;

// A key that is opened for reading, if it opens.
class Key {
 public:
  Key(RegistryRoot root, const std::string& path) {
    const HKEY below = root == RegistryRoot::kDynData ? HKEY_DYN_DATA : HKEY_LOCAL_MACHINE;
    opens_ = RegOpenKeyExA(below, path.c_str(), 0, kRead, &handle_) == ERROR_SUCCESS;
  }
  ~Key() {
    if (opens_) RegCloseKey(handle_);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;

  bool Opens() const { return opens_; }
  HKEY Handle() const { return handle_; }

 private:
  HKEY handle_ = nullptr;
  bool opens_ = false;
};

}  // namespace

bool SystemRegistry::KeyOpens(RegistryRoot root, const std::string& key) {
  return Key(root, key).Opens();
}

std::optional<std::size_t> SystemRegistry::ReadValue(RegistryRoot root, const std::string& key,
                                                     const std::string& value,
                                                     std::span<char> buffer) {
  const Key opened(root, key);
  auto length = static_cast<DWORD>(buffer.size());
  if (!opened.Opens() ||
      RegQueryValueExA(opened.Handle(), value.c_str(), nullptr, nullptr,
                       reinterpret_cast<BYTE*>(buffer.data()), &length) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  return length;
}

uint32_t SystemRegistry::CountSubkeys(RegistryRoot root, const std::string& key) {
  const Key opened(root, key);
  DWORD count = 0;
  if (!opened.Opens() ||
      RegQueryInfoKeyA(opened.Handle(), nullptr, nullptr, nullptr, &count, nullptr, nullptr,
                       nullptr, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
    return 0;
  }
  return count;
}

std::string SystemRegistry::SubkeyName(RegistryRoot root, const std::string& key, uint32_t number) {
  const Key opened(root, key);
  std::array<char, kNameSize> name{};
  auto length = static_cast<DWORD>(name.size());
  if (!opened.Opens() || RegEnumKeyExA(opened.Handle(), number, name.data(), &length, nullptr,
                                       nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
    return {};
  }
  return {name.data(), length};
}

std::string FindSystemUsbPort() {
  SystemRegistry registry;
  return FindUsbPort(registry);
}

}  // namespace sorvane
