#include <windows.h>

#include <algorithm>
#include <array>
#include <string>

#include "platform/serial_ports.h"

namespace sorvane {
namespace {

constexpr const wchar_t* kDevices = L"HARDWARE\\DEVICEMAP\\SERIALCOMM";
constexpr DWORD kLongest = 256;  // characters of a device's name, and of a port's

// Names of devices and ports have no letters beyond those of ASCII.
std::string Narrow(const std::wstring& wide) {
  std::string text;
  for (const wchar_t c : wide) {
    if (c != 0) text += static_cast<char>(c);
  }
  return text;
}

}  // namespace

std::vector<SerialPortEntry> ListSerialPorts() {
  std::vector<SerialPortEntry> ports;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kDevices, 0, KEY_READ, &key) != ERROR_SUCCESS) return ports;
  for (DWORD i = 0;; ++i) {
    std::array<wchar_t, kLongest> device{};
    std::array<wchar_t, kLongest> port{};
    DWORD device_length = kLongest;
    DWORD port_bytes = sizeof port;
    DWORD type = 0;
    const LSTATUS status = RegEnumValueW(key, i, device.data(), &device_length, nullptr, &type,
                                         reinterpret_cast<BYTE*>(port.data()), &port_bytes);
    if (status != ERROR_SUCCESS) break;
    if (type != REG_SZ) continue;
    ports.push_back({Narrow({port.data(), port_bytes / sizeof(wchar_t)}),
                     Narrow({device.data(), device_length})});
  }
  RegCloseKey(key);
  std::ranges::sort(ports, {}, &SerialPortEntry::name);
  return ports;
}

// Who holds a port the system knows, and keeps to itself.
std::string PortTrouble(const std::filesystem::path& device) {
  const HANDLE handle = CreateFileW(device.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
  const DWORD error = GetLastError();
  if (handle != INVALID_HANDLE_VALUE) {
    CloseHandle(handle);
    return {};
  }
  if (error == ERROR_FILE_NOT_FOUND) return "there is no such device";
  return error == ERROR_ACCESS_DENIED ? "held by another program" : std::string();
}

}  // namespace sorvane
